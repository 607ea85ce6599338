#include <nolk/core/NullPointerException.h>

#include <nolk/core/MessageIds.h>

#include "nolk/core/foundation/FixedText.h"

#include <new>

namespace nolk {

NullPointerException::NullPointerException(const ExceptionInfo& info) : Exception(info) {
    setMessage(fixedText(NOLK_CORE_NULL_POINTER).c_str());
}

NullPointerException::~NullPointerException() = default;

void NullPointerException::raise() const {
    throw NullPointerException(*this);
}

Exception* NullPointerException::clone() const {
    return new (std::nothrow) NullPointerException(*this);
}

}  // namespace nolk
