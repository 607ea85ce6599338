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
 */
class NOLK_API ThreadCreateException : public ThreadException {
public:
    /**
     * Text "Thread Create Failed: <error>", without a key in front.
     * @throws std::bad_alloc
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
