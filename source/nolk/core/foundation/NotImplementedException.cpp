#include <nolk/core/NotImplementedException.h>

#include <nolk/core/MessageIds.h>

#include "nolk/core/foundation/FixedText.h"

#include <new>

namespace nolk {

NotImplementedException::NotImplementedException(const ExceptionInfo& info,
                                                 const std::string& function)
    : Exception(info) {
    setMessage(fixedText(NOLK_CORE_NOT_IMPLEMENTED, function).c_str());
}

NotImplementedException::~NotImplementedException() = default;

void NotImplementedException::raise() const {
    throw NotImplementedException(*this);
}

Exception* NotImplementedException::clone() const {
    return new (std::nothrow) NotImplementedException(*this);
}

}  // namespace nolk
