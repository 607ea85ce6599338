#include <nolk/core/ConversionException.h>

#include <new>

namespace nolk {

ConversionException::ConversionException(const ExceptionInfo& info) : Exception(info) {}

ConversionException::ConversionException(const ExceptionInfo& info, const LocalizedMessage& msg)
    : Exception(info, msg) {}

ConversionException::~ConversionException() = default;

void ConversionException::raise() const {
    throw ConversionException(*this);
}

Exception* ConversionException::clone() const {
    return new (std::nothrow) ConversionException(*this);
}

}  // namespace nolk
