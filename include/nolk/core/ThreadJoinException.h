/** @file
 * A thread that can't be joined.
 */
#ifndef NOLK_CORE_THREAD_JOIN_EXCEPTION_H
#define NOLK_CORE_THREAD_JOIN_EXCEPTION_H

#include <nolk/core/Export.h>
#include <nolk/core/ThreadException.h>

#include <string>

namespace nolk {

/**
 * A thread can't be joined.
 *
 * Keeps the error: to make, copy or read it takes memory, and std::bad_alloc is thrown if there is
 * none.
 */
class NOLK_API ThreadJoinException : public ThreadException {
public:
    /**
     * Text "Thread Join Failed: <error>", without a key in front; empty if it can't be built.
     * @throws std::bad_alloc if there is no memory to keep the error
     */
    ThreadJoinException(const ExceptionInfo& info, const std::string& error);
    ThreadJoinException(const ThreadJoinException& other) = default;
    ThreadJoinException& operator=(const ThreadJoinException& other) = default;
    ~ThreadJoinException() override;

    /** What the system said. */
    std::string error() const { return error_; }

    void raise() const override;
    Exception* clone() const override;

private:
    std::string error_;
};

}  // namespace nolk

#endif
