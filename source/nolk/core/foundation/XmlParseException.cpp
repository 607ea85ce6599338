#include <nolk/core/XmlParseException.h>

#include <new>

namespace nolk {

XmlParseException::XmlParseException(const ExceptionInfo& info) : XmlException(info) {}

XmlParseException::XmlParseException(const ExceptionInfo& info, const LocalizedMessage& msg)
    : XmlException(info, msg) {}

// Neither of these two delegates to the other: each records itself.
XmlParseException::XmlParseException(const char* text) : XmlException(here()) {
    setMessage(text);
}

XmlParseException::XmlParseException(const std::string& text) : XmlException(here()) {
    setMessage(text.c_str());
}

XmlParseException::~XmlParseException() = default;

void XmlParseException::raise() const {
    throw XmlParseException(*this);
}

Exception* XmlParseException::clone() const {
    return new (std::nothrow) XmlParseException(*this);
}

}  // namespace nolk
