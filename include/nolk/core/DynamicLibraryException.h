/** @file
 * A failure of dynamic loading.
 */
#ifndef NOLK_CORE_DYNAMIC_LIBRARY_EXCEPTION_H
#define NOLK_CORE_DYNAMIC_LIBRARY_EXCEPTION_H

#include <nolk/core/Exception.h>
#include <nolk/core/Export.h>

namespace nolk {

class LocalizedMessage;

/**
 * A dynamically loaded library failed; the classes below tell how.
 */
class NOLK_API DynamicLibraryException : public Exception {
public:
    /** The record alone; the text stays empty. */
    explicit DynamicLibraryException(const ExceptionInfo& info);
    /** Text "[KEY] message". */
    DynamicLibraryException(const ExceptionInfo& info, const LocalizedMessage& msg);
    DynamicLibraryException(const DynamicLibraryException& other) = default;
    DynamicLibraryException& operator=(const DynamicLibraryException& other) = default;
    ~DynamicLibraryException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
