/** @file
 * A failure of the naming context.
 */
#ifndef NOLK_CORE_NAMING_EXCEPTION_H
#define NOLK_CORE_NAMING_EXCEPTION_H

#include <nolk/core/Exception.h>
#include <nolk/core/Export.h>

namespace nolk {

class LocalizedMessage;

/**
 * A name can't be bound, or the object behind it can't be made.
 */
class NOLK_API NamingException : public Exception {
public:
    /** The record alone; the text stays empty. */
    explicit NamingException(const ExceptionInfo& info);
    /** Text "[KEY] message". */
    NamingException(const ExceptionInfo& info, const LocalizedMessage& msg);
    NamingException(const NamingException& other) = default;
    NamingException& operator=(const NamingException& other) = default;
    ~NamingException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
