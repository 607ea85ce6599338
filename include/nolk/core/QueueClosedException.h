/** @file
 * The use of a closed queue.
 */
#ifndef NOLK_CORE_QUEUE_CLOSED_EXCEPTION_H
#define NOLK_CORE_QUEUE_CLOSED_EXCEPTION_H

#include <nolk/core/Export.h>
#include <nolk/core/QueueException.h>

namespace nolk {

/**
 * A queue is closed.
 */
class NOLK_API QueueClosedException : public QueueException {
public:
    /**
     * Text "Queue closed", without a key in front; empty if it can't be built, so that this
     * constructor never throws.
     */
    explicit QueueClosedException(const ExceptionInfo& info);
    QueueClosedException(const QueueClosedException& other) = default;
    QueueClosedException& operator=(const QueueClosedException& other) = default;
    ~QueueClosedException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
