/** @file
 * A document that isn't as it should be.
 */
#ifndef NOLK_CORE_XML_PARSE_EXCEPTION_H
#define NOLK_CORE_XML_PARSE_EXCEPTION_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlException.h>

#include <string>

namespace nolk {

class LocalizedMessage;

/**
 * An XML document is malformed, or isn't what its reader expects.
 */
class NOLK_API XmlParseException : public XmlException {
public:
    /** The record alone; the text stays empty. */
    explicit XmlParseException(const ExceptionInfo& info);
    /** Text "[KEY] message". */
    XmlParseException(const ExceptionInfo& info, const LocalizedMessage& msg);
    /**
     * The text as given; a null pointer gives an empty text. Having no throw site to record, each
     * of the two records its own place: the file, line and signature of the constructor itself.
     */
    explicit XmlParseException(const char* text);
    explicit XmlParseException(const std::string& text);
    XmlParseException(const XmlParseException& other) = default;
    XmlParseException& operator=(const XmlParseException& other) = default;
    ~XmlParseException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
