/** @file
 * A failed file operation.
 */
#ifndef NOLK_CORE_FILE_EXCEPTION_H
#define NOLK_CORE_FILE_EXCEPTION_H

#include <nolk/core/Exception.h>
#include <nolk/core/Export.h>

namespace nolk {

class LocalizedMessage;

/**
 * An operation on a file failed.
 */
class NOLK_API FileException : public Exception {
public:
    /** The record alone; the text stays empty. */
    explicit FileException(const ExceptionInfo& info);
    /** Text "[KEY] message". */
    FileException(const ExceptionInfo& info, const LocalizedMessage& msg);
    FileException(const FileException& other) = default;
    FileException& operator=(const FileException& other) = default;
    ~FileException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
