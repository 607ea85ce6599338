#include <nolk/core/RegexException.h>

#include <new>

namespace nolk {

// Code and offset mean nothing here; the zeroes only make the object safe to copy.
RegexException::RegexException(const ExceptionInfo& info) : Exception(info), code_(0), offset_(0) {}

RegexException::RegexException(const ExceptionInfo& info, const LocalizedMessage& msg,
                               unsigned code, unsigned offset)
    : Exception(info, msg), code_(code), offset_(offset) {}

RegexException::~RegexException() = default;

void RegexException::raise() const {
    throw RegexException(*this);
}

Exception* RegexException::clone() const {
    return new (std::nothrow) RegexException(*this);
}

}  // namespace nolk
