/** @file
 * A text that can't be converted.
 */
#ifndef NOLK_CORE_CONVERSION_EXCEPTION_H
#define NOLK_CORE_CONVERSION_EXCEPTION_H

#include <nolk/core/Exception.h>
#include <nolk/core/Export.h>

namespace nolk {

class LocalizedMessage;

/**
 * A text can't be converted from one encoding or form into another.
 */
class NOLK_API ConversionException : public Exception {
public:
    /** The record alone; the text stays empty. */
    explicit ConversionException(const ExceptionInfo& info);
    /** Text "[KEY] message". */
    ConversionException(const ExceptionInfo& info, const LocalizedMessage& msg);
    ConversionException(const ConversionException& other) = default;
    ConversionException& operator=(const ConversionException& other) = default;
    ~ConversionException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
