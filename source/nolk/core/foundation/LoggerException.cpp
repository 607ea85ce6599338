#include <nolk/core/LoggerException.h>

#include <new>

namespace nolk {

LoggerException::LoggerException(const ExceptionInfo& info) : Exception(info) {}

LoggerException::LoggerException(const ExceptionInfo& info, const LocalizedMessage& msg)
    : Exception(info, msg) {}

LoggerException::~LoggerException() = default;

void LoggerException::raise() const {
    throw LoggerException(*this);
}

Exception* LoggerException::clone() const {
    return new (std::nothrow) LoggerException(*this);
}

}  // namespace nolk
