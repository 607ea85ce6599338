/** @file
 * A malformed place in a document.
 */
#ifndef NOLK_CORE_XML_PARSE_LINE_COL_EXCEPTION_H
#define NOLK_CORE_XML_PARSE_LINE_COL_EXCEPTION_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlParseException.h>

#include <string>

namespace nolk {

class LocalizedMessage;

/**
 * An XML document is malformed at a line and column.
 *
 * The text doesn't mention the two: a caller who wants them reads them. `getLineNumber` of this
 * class is the document's line; through an Exception the same name still gives the throw site's.
 * `raise` and `clone` are reached through a base class.
 */
class NOLK_API XmlParseLineColException : public XmlParseException {
public:
    /** Text "[KEY] message". */
    XmlParseLineColException(const ExceptionInfo& info, const LocalizedMessage& msg, unsigned line,
                             unsigned column);
    /** The text as given; a null pointer gives an empty text. */
    XmlParseLineColException(const ExceptionInfo& info, const char* text, unsigned line,
                             unsigned column);
    XmlParseLineColException(const ExceptionInfo& info, const std::string& text, unsigned line,
                             unsigned column);
    XmlParseLineColException(const XmlParseLineColException& other) = default;
    XmlParseLineColException& operator=(const XmlParseLineColException& other) = default;
    ~XmlParseLineColException() override;

    /** The line in the document, as the reader counts. */
    unsigned getLineNumber() const { return line_; }
    void setLineNumber(unsigned line) { line_ = line; }

    /** The column in that line, as the reader counts. */
    unsigned getColumnNumber() const { return column_; }
    void setColumnNumber(unsigned column) { column_ = column; }

private:
    void raise() const override;
    Exception* clone() const override;

    unsigned line_;
    unsigned column_;
};

}  // namespace nolk

#endif
