/** @file
 * A failure of a queue.
 */
#ifndef NOLK_CORE_QUEUE_EXCEPTION_H
#define NOLK_CORE_QUEUE_EXCEPTION_H

#include <nolk/core/Exception.h>
#include <nolk/core/Export.h>

namespace nolk {

class LocalizedMessage;

/**
 * A queue can't give or take an element; the classes below tell why.
 */
class NOLK_API QueueException : public Exception {
public:
    /** The record alone; the text stays empty. */
    explicit QueueException(const ExceptionInfo& info);
    /** Text "[KEY] message". */
    QueueException(const ExceptionInfo& info, const LocalizedMessage& msg);
    QueueException(const QueueException& other) = default;
    QueueException& operator=(const QueueException& other) = default;
    ~QueueException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
