#include <nolk/core/NamingException.h>

#include <new>

namespace nolk {

NamingException::NamingException(const ExceptionInfo& info) : Exception(info) {}

NamingException::NamingException(const ExceptionInfo& info, const LocalizedMessage& msg)
    : Exception(info, msg) {}

NamingException::~NamingException() = default;

void NamingException::raise() const {
    throw NamingException(*this);
}

Exception* NamingException::clone() const {
    return new (std::nothrow) NamingException(*this);
}

}  // namespace nolk
