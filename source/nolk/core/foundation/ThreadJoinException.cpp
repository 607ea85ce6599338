#include <nolk/core/ThreadJoinException.h>

#include <nolk/core/MessageIds.h>

#include "nolk/core/foundation/FixedText.h"

#include <new>

namespace nolk {

ThreadJoinException::ThreadJoinException(const ExceptionInfo& info, const std::string& error)
    : ThreadException(info), error_(error) {
    setMessage(fixedText(NOLK_CORE_THREAD_JOIN_FAILED, error).c_str());
}

ThreadJoinException::~ThreadJoinException() = default;

void ThreadJoinException::raise() const {
    throw ThreadJoinException(*this);
}

Exception* ThreadJoinException::clone() const {
    return new (std::nothrow) ThreadJoinException(*this);
}

}  // namespace nolk
