#include <nolk/core/DynamicLibraryMethodException.h>

#include <nolk/core/MessageIds.h>

#include "nolk/core/foundation/FixedText.h"

#include <new>

namespace nolk {

DynamicLibraryMethodException::DynamicLibraryMethodException(const ExceptionInfo& info,
                                                             const std::string& methodName,
                                                             const std::string& dllName)
    : DynamicLibraryException(info), methodName_(methodName), dllName_(dllName) {
    setMessage(fixedText(NOLK_CORE_DYNAMIC_LIBRARY_METHOD_NOT_FOUND, methodName, dllName).c_str());
}

DynamicLibraryMethodException::~DynamicLibraryMethodException() = default;

void DynamicLibraryMethodException::raise() const {
    throw DynamicLibraryMethodException(*this);
}

Exception* DynamicLibraryMethodException::clone() const {
    return new (std::nothrow) DynamicLibraryMethodException(*this);
}

}  // namespace nolk
