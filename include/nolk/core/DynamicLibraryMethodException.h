/** @file
 * An entry point that isn't there.
 */
#ifndef NOLK_CORE_DYNAMIC_LIBRARY_METHOD_EXCEPTION_H
#define NOLK_CORE_DYNAMIC_LIBRARY_METHOD_EXCEPTION_H

#include <nolk/core/DynamicLibraryException.h>
#include <nolk/core/Export.h>

#include <string>

namespace nolk {

/**
 * A loaded library lacks an entry point.
 *
 * Keeps both names: to make, copy or read them takes memory, and std::bad_alloc is thrown if there
 * is none.
 */
class NOLK_API DynamicLibraryMethodException : public DynamicLibraryException {
public:
    /**
     * Text "Unable to find method '<methodName>' in '<dllName>'", without a key in front; empty if
     * it can't be built.
     * @throws std::bad_alloc if there is no memory to keep the names
     */
    DynamicLibraryMethodException(const ExceptionInfo& info, const std::string& methodName,
                                  const std::string& dllName);
    DynamicLibraryMethodException(const DynamicLibraryMethodException& other) = default;
    DynamicLibraryMethodException& operator=(const DynamicLibraryMethodException& other) = default;
    ~DynamicLibraryMethodException() override;

    /** The name of the entry point. */
    std::string methodName() const { return methodName_; }
    /** The name of the library. */
    std::string dllName() const { return dllName_; }

    void raise() const override;
    Exception* clone() const override;

private:
    std::string methodName_;
    std::string dllName_;
};

}  // namespace nolk

#endif
