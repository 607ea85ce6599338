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
 *
 * Keeps the attribute's name: to make, copy or read it takes memory, and std::bad_alloc is thrown
 * if there is none.
 */
class NOLK_API XmlParseAttributeNotFoundException : public XmlParseException {
public:
    /**
     * Text "Unable to find attribute: <attrName>", without a key in front; empty if it can't
     * be built.
     * @throws std::bad_alloc if there is no memory to keep the name
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
