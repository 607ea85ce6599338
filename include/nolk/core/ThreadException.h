/** @file
 * A failure of threads.
 */
#ifndef NOLK_CORE_THREAD_EXCEPTION_H
#define NOLK_CORE_THREAD_EXCEPTION_H

#include <nolk/core/Exception.h>
#include <nolk/core/Export.h>

namespace nolk {

class LocalizedMessage;

/**
 * An operation on a thread or lock failed; the classes below tell which.
 */
class NOLK_API ThreadException : public Exception {
public:
    /** The record alone; the text stays empty. */
    explicit ThreadException(const ExceptionInfo& info);
    /** Text "[KEY] message". */
    ThreadException(const ExceptionInfo& info, const LocalizedMessage& msg);
    ThreadException(const ThreadException& other) = default;
    ThreadException& operator=(const ThreadException& other) = default;
    ~ThreadException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
