#include <nolk/core/OutOfBoundsException.h>

#include <new>

namespace nolk {

OutOfBoundsException::OutOfBoundsException(const ExceptionInfo& info) : Exception(info) {}

OutOfBoundsException::OutOfBoundsException(const ExceptionInfo& info, const LocalizedMessage& msg)
    : Exception(info, msg) {}

OutOfBoundsException::~OutOfBoundsException() = default;

void OutOfBoundsException::raise() const {
    throw OutOfBoundsException(*this);
}

Exception* OutOfBoundsException::clone() const {
    return new (std::nothrow) OutOfBoundsException(*this);
}

}  // namespace nolk
