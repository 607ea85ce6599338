#include <nolk/core/ThreadSystemException.h>

#include <nolk/core/MessageIds.h>

#include "nolk/core/foundation/FixedText.h"

#include <new>

namespace nolk {

ThreadSystemException::ThreadSystemException(const ExceptionInfo& info, const std::string& error)
    : ThreadException(info), error_(error) {
    setMessage(fixedText(NOLK_CORE_THREAD_GENERAL_ERROR, error).c_str());
}

ThreadSystemException::~ThreadSystemException() = default;

void ThreadSystemException::raise() const {
    throw ThreadSystemException(*this);
}

Exception* ThreadSystemException::clone() const {
    return new (std::nothrow) ThreadSystemException(*this);
}

}  // namespace nolk
