#include <nolk/core/NullPointerException.h>

#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>

#include <new>

namespace nolk {

NullPointerException::NullPointerException(const ExceptionInfo& info) : Exception(info) {
    setMessage(message(NOLK_CORE_NULL_POINTER).getMessage().c_str());
}

NullPointerException::~NullPointerException() = default;

void NullPointerException::raise() const {
    throw NullPointerException(*this);
}

Exception* NullPointerException::clone() const {
    return new (std::nothrow) NullPointerException(*this);
}

}  // namespace nolk
