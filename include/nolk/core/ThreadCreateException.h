/** @file
 * A thread that can't be made.
 */
#ifndef NOLK_CORE_THREAD_CREATE_EXCEPTION_H
#define NOLK_CORE_THREAD_CREATE_EXCEPTION_H

#include <nolk/core/Export.h>
#include <nolk/core/ThreadException.h>

#include <string>

namespace nolk {

/**
 * The system can't make a thread.
 *
 * Keeps the error: to make, copy or read it takes memory, and std::bad_alloc is thrown if there is
 * none.
 */
class NOLK_API ThreadCreateException : public ThreadException {
public:
    /**
     * Text "Thread Create Failed: <error>", without a key in front; empty if it can't be built.
     * @throws std::bad_alloc if there is no memory to keep the error
     */
    ThreadCreateException(const ExceptionInfo& info, const std::string& error);
    ThreadCreateException(const ThreadCreateException& other) = default;
    ThreadCreateException& operator=(const ThreadCreateException& other) = default;
    ~ThreadCreateException() override;

    /** What the system said. */
    std::string error() const { return error_; }

    void raise() const override;
    Exception* clone() const override;

private:
    std::string error_;
};

}  // namespace nolk

#endif
