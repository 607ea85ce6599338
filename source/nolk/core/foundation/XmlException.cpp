#include <nolk/core/XmlException.h>

#include <new>

namespace nolk {

XmlException::XmlException(const ExceptionInfo& info) : Exception(info) {}

XmlException::XmlException(const ExceptionInfo& info, const LocalizedMessage& msg)
    : Exception(info, msg) {}

XmlException::~XmlException() = default;

void XmlException::raise() const {
    throw XmlException(*this);
}

Exception* XmlException::clone() const {
    return new (std::nothrow) XmlException(*this);
}

}  // namespace nolk
