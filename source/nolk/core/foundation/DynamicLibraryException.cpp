#include <nolk/core/DynamicLibraryException.h>

#include <new>

namespace nolk {

DynamicLibraryException::DynamicLibraryException(const ExceptionInfo& info) : Exception(info) {}

DynamicLibraryException::DynamicLibraryException(const ExceptionInfo& info,
                                                 const LocalizedMessage& msg)
    : Exception(info, msg) {}

DynamicLibraryException::~DynamicLibraryException() = default;

void DynamicLibraryException::raise() const {
    throw DynamicLibraryException(*this);
}

Exception* DynamicLibraryException::clone() const {
    return new (std::nothrow) DynamicLibraryException(*this);
}

}  // namespace nolk
