#include <nolk/core/FileException.h>

#include <new>

namespace nolk {

FileException::FileException(const ExceptionInfo& info) : Exception(info) {}

FileException::FileException(const ExceptionInfo& info, const LocalizedMessage& msg)
    : Exception(info, msg) {}

FileException::~FileException() = default;

void FileException::raise() const {
    throw FileException(*this);
}

Exception* FileException::clone() const {
    return new (std::nothrow) FileException(*this);
}

}  // namespace nolk
