/** @file
 * An index out of range.
 */
#ifndef NOLK_CORE_OUT_OF_BOUNDS_EXCEPTION_H
#define NOLK_CORE_OUT_OF_BOUNDS_EXCEPTION_H

#include <nolk/core/Exception.h>
#include <nolk/core/Export.h>

namespace nolk {

class LocalizedMessage;

/**
 * An index, position or step lies outside of what is there.
 */
class NOLK_API OutOfBoundsException : public Exception {
public:
    /** The record alone; the text stays empty. */
    explicit OutOfBoundsException(const ExceptionInfo& info);
    /** Text "[KEY] message". */
    OutOfBoundsException(const ExceptionInfo& info, const LocalizedMessage& msg);
    OutOfBoundsException(const OutOfBoundsException& other) = default;
    OutOfBoundsException& operator=(const OutOfBoundsException& other) = default;
    ~OutOfBoundsException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
