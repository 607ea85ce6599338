#include <nolk/core/DynamicLibraryLoadException.h>

#include <nolk/core/MessageIds.h>

#include "nolk/core/foundation/FixedText.h"

#include <new>

namespace nolk {

DynamicLibraryLoadException::DynamicLibraryLoadException(const ExceptionInfo& info,
                                                         const std::string& dllName,
                                                         const std::string& dllError)
    : DynamicLibraryException(info), dllName_(dllName), dllError_(dllError) {
    setMessage(fixedText(NOLK_CORE_DYNAMIC_LIBRARY_LOAD_FAILURE, dllName, dllError).c_str());
}

DynamicLibraryLoadException::~DynamicLibraryLoadException() = default;

void DynamicLibraryLoadException::raise() const {
    throw DynamicLibraryLoadException(*this);
}

Exception* DynamicLibraryLoadException::clone() const {
    return new (std::nothrow) DynamicLibraryLoadException(*this);
}

}  // namespace nolk
