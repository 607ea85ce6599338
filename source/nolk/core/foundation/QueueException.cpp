#include <nolk/core/QueueException.h>

#include <new>

namespace nolk {

QueueException::QueueException(const ExceptionInfo& info) : Exception(info) {}

QueueException::QueueException(const ExceptionInfo& info, const LocalizedMessage& msg)
    : Exception(info, msg) {}

QueueException::~QueueException() = default;

void QueueException::raise() const {
    throw QueueException(*this);
}

Exception* QueueException::clone() const {
    return new (std::nothrow) QueueException(*this);
}

}  // namespace nolk
