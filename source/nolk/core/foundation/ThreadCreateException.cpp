#include <nolk/core/ThreadCreateException.h>

#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>

#include <new>

namespace nolk {

ThreadCreateException::ThreadCreateException(const ExceptionInfo& info, const std::string& error)
    : ThreadException(info), error_(error) {
    setMessage(message(NOLK_CORE_THREAD_CREATE_FAILED, error).getMessage().c_str());
}

ThreadCreateException::~ThreadCreateException() = default;

void ThreadCreateException::raise() const {
    throw ThreadCreateException(*this);
}

Exception* ThreadCreateException::clone() const {
    return new (std::nothrow) ThreadCreateException(*this);
}

}  // namespace nolk
