/** @file
 * A write to a queue that takes no more.
 */
#ifndef NOLK_CORE_QUEUE_WRITE_CLOSED_EXCEPTION_H
#define NOLK_CORE_QUEUE_WRITE_CLOSED_EXCEPTION_H

#include <nolk/core/Export.h>
#include <nolk/core/QueueException.h>

namespace nolk {

/**
 * A queue is closed for writing.
 */
class NOLK_API QueueWriteClosedException : public QueueException {
public:
    /**
     * Text "Queue closed for write", without a key in front; empty if it can't be built, so that
     * this constructor never throws.
     */
    explicit QueueWriteClosedException(const ExceptionInfo& info);
    QueueWriteClosedException(const QueueWriteClosedException& other) = default;
    QueueWriteClosedException& operator=(const QueueWriteClosedException& other) = default;
    ~QueueWriteClosedException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
