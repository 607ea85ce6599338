#include <nolk/core/ExceptionInfo.h>

#include <cstring>

namespace nolk {

namespace {

// Stands in for every copy that there was no memory for; freeCopy knows it by its address.
constinit char emptyText[1] = {'\0'};

}  // namespace

char* makeCopy(const char* text) {
    try {
        const std::size_t size = text == nullptr ? 0 : std::strlen(text);
        char* copy = new char[size + 1];
        if (size != 0) {
            std::memcpy(copy, text, size);
        }
        copy[size] = '\0';
        return copy;
    } catch (...) {
        return emptyText;
    }
}

void freeCopy(char* copy) noexcept {
    if (copy != emptyText) {
        delete[] copy;
    }
}

ExceptionInfo::ExceptionInfo() : ExceptionInfo(nullptr, 0, nullptr) {}

ExceptionInfo::ExceptionInfo(const char* file, unsigned long line, const char* function)
    : line_(line), file_(makeCopy(file)), function_(nullptr) {
    // makeCopy doesn't throw; the guard keeps the first copy safe from a duplication that would.
    try {
        function_ = makeCopy(function);
    } catch (...) {
        freeCopy(file_);
        throw;
    }
}

ExceptionInfo::ExceptionInfo(const ExceptionInfo& other)
    : ExceptionInfo(other.file_, other.line_, other.function_) {}

ExceptionInfo& ExceptionInfo::operator=(const ExceptionInfo& other) {
    if (this == &other) {
        return *this;
    }
    char* file = makeCopy(other.file_);
    char* function = makeCopy(other.function_);
    // A record with one half of another throw site would mislead: all of it, or nothing.
    if (file == emptyText || function == emptyText) {
        freeCopy(file);
        freeCopy(function);
        return *this;
    }
    freeCopy(file_);
    freeCopy(function_);
    line_ = other.line_;
    file_ = file;
    function_ = function;
    return *this;
}

ExceptionInfo::~ExceptionInfo() {
    freeCopy(file_);
    freeCopy(function_);
}

}  // namespace nolk
