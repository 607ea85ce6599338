#include <nolk/core/NotImplementedException.h>

#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>

#include <new>

namespace nolk {

NotImplementedException::NotImplementedException(const ExceptionInfo& info,
                                                 const std::string& function)
    : Exception(info) {
    setMessage(message(NOLK_CORE_NOT_IMPLEMENTED, function).getMessage().c_str());
}

NotImplementedException::~NotImplementedException() = default;

void NotImplementedException::raise() const {
    throw NotImplementedException(*this);
}

Exception* NotImplementedException::clone() const {
    return new (std::nothrow) NotImplementedException(*this);
}

}  // namespace nolk
