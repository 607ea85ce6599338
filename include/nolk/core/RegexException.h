/** @file
 * A failure of a regular expression.
 */
#ifndef NOLK_CORE_REGEX_EXCEPTION_H
#define NOLK_CORE_REGEX_EXCEPTION_H

#include <nolk/core/Exception.h>
#include <nolk/core/Export.h>

namespace nolk {

class LocalizedMessage;

/**
 * A regular expression can't be compiled or used.
 *
 * Tells what is wrong by an error code and where by an offset into the expression.
 */
class NOLK_API RegexException : public Exception {
public:
    /** The record alone: the text stays empty, and code and offset are not to be read. */
    explicit RegexException(const ExceptionInfo& info);
    /** Text "[KEY] message". */
    RegexException(const ExceptionInfo& info, const LocalizedMessage& msg, unsigned code,
                   unsigned offset);
    RegexException(const RegexException& other) = default;
    RegexException& operator=(const RegexException& other) = default;
    ~RegexException() override;

    /** The error code. @pre made with a code and an offset */
    unsigned getCode() const { return code_; }
    /** The offset into the expression, in its units. @pre made with a code and an offset */
    unsigned getOffset() const { return offset_; }

    void raise() const override;
    Exception* clone() const override;

private:
    unsigned code_;
    unsigned offset_;
};

}  // namespace nolk

#endif
