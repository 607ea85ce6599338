#include <nolk/core/XmlParseLineColException.h>

#include <new>

namespace nolk {

XmlParseLineColException::XmlParseLineColException(const ExceptionInfo& info,
                                                   const LocalizedMessage& msg, unsigned line,
                                                   unsigned column)
    : XmlParseException(info, msg), line_(line), column_(column) {}

XmlParseLineColException::XmlParseLineColException(const ExceptionInfo& info, const char* text,
                                                   unsigned line, unsigned column)
    : XmlParseException(info), line_(line), column_(column) {
    setMessage(text);
}

XmlParseLineColException::XmlParseLineColException(const ExceptionInfo& info,
                                                   const std::string& text, unsigned line,
                                                   unsigned column)
    : XmlParseLineColException(info, text.c_str(), line, column) {}

XmlParseLineColException::~XmlParseLineColException() = default;

void XmlParseLineColException::raise() const {
    throw XmlParseLineColException(*this);
}

Exception* XmlParseLineColException::clone() const {
    return new (std::nothrow) XmlParseLineColException(*this);
}

}  // namespace nolk
