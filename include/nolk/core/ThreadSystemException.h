/** @file
 * A failed system call on threads.
 */
#ifndef NOLK_CORE_THREAD_SYSTEM_EXCEPTION_H
#define NOLK_CORE_THREAD_SYSTEM_EXCEPTION_H

#include <nolk/core/Export.h>
#include <nolk/core/ThreadException.h>

#include <string>

namespace nolk {

/**
 * A system call on a thread or lock failed.
 *
 * Keeps the error: to make, copy or read it takes memory, and std::bad_alloc is thrown if there is
 * none.
 */
class NOLK_API ThreadSystemException : public ThreadException {
public:
    /**
     * Text "Thread error: <error>", without a key in front; empty if it can't be built.
     * @throws std::bad_alloc if there is no memory to keep the error
     */
    ThreadSystemException(const ExceptionInfo& info, const std::string& error);
    ThreadSystemException(const ThreadSystemException& other) = default;
    ThreadSystemException& operator=(const ThreadSystemException& other) = default;
    ~ThreadSystemException() override;

    /** What the system said. */
    std::string error() const { return error_; }

    void raise() const override;
    Exception* clone() const override;

private:
    std::string error_;
};

}  // namespace nolk

#endif
