#include <nolk/core/ThreadException.h>

#include <new>

namespace nolk {

ThreadException::ThreadException(const ExceptionInfo& info) : Exception(info) {}

ThreadException::ThreadException(const ExceptionInfo& info, const LocalizedMessage& msg)
    : Exception(info, msg) {}

ThreadException::~ThreadException() = default;

void ThreadException::raise() const {
    throw ThreadException(*this);
}

Exception* ThreadException::clone() const {
    return new (std::nothrow) ThreadException(*this);
}

}  // namespace nolk
