/** @file
 * A library that can't be loaded.
 */
#ifndef NOLK_CORE_DYNAMIC_LIBRARY_LOAD_EXCEPTION_H
#define NOLK_CORE_DYNAMIC_LIBRARY_LOAD_EXCEPTION_H

#include <nolk/core/DynamicLibraryException.h>
#include <nolk/core/Export.h>

#include <string>

namespace nolk {

/**
 * A library can't be loaded.
 *
 * Keeps both strings: to make, copy or read them takes memory, and std::bad_alloc is thrown if
 * there is none.
 */
class NOLK_API DynamicLibraryLoadException : public DynamicLibraryException {
public:
    /**
     * Text "Unable to load library for : <dllName>: <dllError>;", without a key in front; empty if
     * it can't be built.
     * @throws std::bad_alloc if there is no memory to keep the strings
     */
    DynamicLibraryLoadException(const ExceptionInfo& info, const std::string& dllName,
                                const std::string& dllError);
    DynamicLibraryLoadException(const DynamicLibraryLoadException& other) = default;
    DynamicLibraryLoadException& operator=(const DynamicLibraryLoadException& other) = default;
    ~DynamicLibraryLoadException() override;

    /** The name of the library. */
    std::string dllName() const { return dllName_; }
    /** What the system said. */
    std::string dllError() const { return dllError_; }

    void raise() const override;
    Exception* clone() const override;

private:
    std::string dllName_;
    std::string dllError_;
};

}  // namespace nolk

#endif
