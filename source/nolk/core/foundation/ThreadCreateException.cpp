#include <nolk/core/ThreadCreateException.h>

#include <nolk/core/MessageIds.h>

#include "nolk/core/foundation/FixedText.h"

#include <new>

namespace nolk {

ThreadCreateException::ThreadCreateException(const ExceptionInfo& info, const std::string& error)
    : ThreadException(info), error_(error) {
    setMessage(fixedText(NOLK_CORE_THREAD_CREATE_FAILED, error).c_str());
}

ThreadCreateException::~ThreadCreateException() = default;

void ThreadCreateException::raise() const {
    throw ThreadCreateException(*this);
}

Exception* ThreadCreateException::clone() const {
    return new (std::nothrow) ThreadCreateException(*this);
}

}  // namespace nolk
