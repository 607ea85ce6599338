/** @file
 * A failure of logging.
 */
#ifndef NOLK_CORE_LOGGER_EXCEPTION_H
#define NOLK_CORE_LOGGER_EXCEPTION_H

#include <nolk/core/Exception.h>
#include <nolk/core/Export.h>

namespace nolk {

class LocalizedMessage;

/**
 * Logging isn't set up, or can't be set up as configured.
 */
class NOLK_API LoggerException : public Exception {
public:
    /** The record alone; the text stays empty. */
    explicit LoggerException(const ExceptionInfo& info);
    /** Text "[KEY] message". */
    LoggerException(const ExceptionInfo& info, const LocalizedMessage& msg);
    LoggerException(const LoggerException& other) = default;
    LoggerException& operator=(const LoggerException& other) = default;
    ~LoggerException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
