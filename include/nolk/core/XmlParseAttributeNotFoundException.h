/** @file
 * An attribute that isn't there.
 */
#ifndef NOLK_CORE_XML_PARSE_ATTRIBUTE_NOT_FOUND_EXCEPTION_H
#define NOLK_CORE_XML_PARSE_ATTRIBUTE_NOT_FOUND_EXCEPTION_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlParseException.h>

#include <string>

namespace nolk {

/**
 * An element lacks an attribute.
 */
class NOLK_API XmlParseAttributeNotFoundException : public XmlParseException {
public:
    /**
     * Text "Unable to find attribute: <attrName>", without a key in front.
     * @throws std::bad_alloc
     */
    XmlParseAttributeNotFoundException(const ExceptionInfo& info, const std::string& attrName);
    XmlParseAttributeNotFoundException(const XmlParseAttributeNotFoundException& other) = default;
    XmlParseAttributeNotFoundException& operator=(const XmlParseAttributeNotFoundException& other) =
        default;
    ~XmlParseAttributeNotFoundException() override;

    /** The name of the attribute. */
    std::string attrName() const { return attrName_; }

    void raise() const override;
    Exception* clone() const override;

private:
    std::string attrName_;
};

}  // namespace nolk

#endif
