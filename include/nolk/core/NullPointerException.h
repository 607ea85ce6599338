/** @file
 * The use of a null pointer.
 */
#ifndef NOLK_CORE_NULL_POINTER_EXCEPTION_H
#define NOLK_CORE_NULL_POINTER_EXCEPTION_H

#include <nolk/core/Exception.h>
#include <nolk/core/Export.h>

namespace nolk {

/**
 * A null pointer was to be followed, or an invalid handle to be used.
 */
class NOLK_API NullPointerException : public Exception {
public:
    /**
     * Text "Attempt to dereference a null pointer", without a key in front; empty if it can't be
     * built, so that this constructor never throws.
     */
    explicit NullPointerException(const ExceptionInfo& info);
    NullPointerException(const NullPointerException& other) = default;
    NullPointerException& operator=(const NullPointerException& other) = default;
    ~NullPointerException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
