/** @file
 * A function that isn't there yet.
 */
#ifndef NOLK_CORE_NOT_IMPLEMENTED_EXCEPTION_H
#define NOLK_CORE_NOT_IMPLEMENTED_EXCEPTION_H

#include <nolk/core/Exception.h>
#include <nolk/core/Export.h>

#include <string>

namespace nolk {

/**
 * A function has no implementation.
 */
class NOLK_API NotImplementedException : public Exception {
public:
    /**
     * Text "Function not implemented: <function>", without a key in front; empty if it can't be
     * built, so that this constructor never throws. The argument isn't kept.
     */
    NotImplementedException(const ExceptionInfo& info, const std::string& function);
    NotImplementedException(const NotImplementedException& other) = default;
    NotImplementedException& operator=(const NotImplementedException& other) = default;
    ~NotImplementedException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
