#include <nolk/core/QueueWriteClosedException.h>

#include <nolk/core/MessageIds.h>

#include "nolk/core/foundation/FixedText.h"

#include <new>

namespace nolk {

QueueWriteClosedException::QueueWriteClosedException(const ExceptionInfo& info)
    : QueueException(info) {
    setMessage(fixedText(NOLK_CORE_QUEUE_WRITE_CLOSED).c_str());
}

QueueWriteClosedException::~QueueWriteClosedException() = default;

void QueueWriteClosedException::raise() const {
    throw QueueWriteClosedException(*this);
}

Exception* QueueWriteClosedException::clone() const {
    return new (std::nothrow) QueueWriteClosedException(*this);
}

}  // namespace nolk
