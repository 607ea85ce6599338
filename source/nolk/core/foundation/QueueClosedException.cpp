#include <nolk/core/QueueClosedException.h>

#include <nolk/core/MessageIds.h>

#include "nolk/core/foundation/FixedText.h"

#include <new>

namespace nolk {

QueueClosedException::QueueClosedException(const ExceptionInfo& info) : QueueException(info) {
    setMessage(fixedText(NOLK_CORE_QUEUE_CLOSED).c_str());
}

QueueClosedException::~QueueClosedException() = default;

void QueueClosedException::raise() const {
    throw QueueClosedException(*this);
}

Exception* QueueClosedException::clone() const {
    return new (std::nothrow) QueueClosedException(*this);
}

}  // namespace nolk
