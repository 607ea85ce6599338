#include <nolk/core/XmlSchemaException.h>

#include <new>

namespace nolk {

XmlSchemaException::XmlSchemaException(const ExceptionInfo& info, const LocalizedMessage& msg)
    : XmlException(info, msg) {}

XmlSchemaException::~XmlSchemaException() = default;

void XmlSchemaException::raise() const {
    throw XmlSchemaException(*this);
}

Exception* XmlSchemaException::clone() const {
    return new (std::nothrow) XmlSchemaException(*this);
}

}  // namespace nolk
