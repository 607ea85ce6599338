#include <nolk/core/DynamicLibraryLoadException.h>

#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>

#include <new>

namespace nolk {

DynamicLibraryLoadException::DynamicLibraryLoadException(const ExceptionInfo& info,
                                                         const std::string& dllName,
                                                         const std::string& dllError)
    : DynamicLibraryException(info), dllName_(dllName), dllError_(dllError) {
    setMessage(
        message(NOLK_CORE_DYNAMIC_LIBRARY_LOAD_FAILURE, dllName, dllError).getMessage().c_str());
}

DynamicLibraryLoadException::~DynamicLibraryLoadException() = default;

void DynamicLibraryLoadException::raise() const {
    throw DynamicLibraryLoadException(*this);
}

Exception* DynamicLibraryLoadException::clone() const {
    return new (std::nothrow) DynamicLibraryLoadException(*this);
}

}  // namespace nolk
