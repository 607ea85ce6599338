#include <nolk/core/Exception.h>

#include <nolk/core/LocalizedMessage.h>

#include <cstring>
#include <new>

namespace nolk {

namespace {

const char* textOrEmpty(const char* text) {
    return text == nullptr ? "" : text;
}

}  // namespace

Exception::Exception(const ExceptionInfo& info) : message_(nullptr), info_(info) {}

Exception::Exception(const ExceptionInfo& info, const LocalizedMessage& msg)
    : message_(nullptr), info_(info) {
    // A failure is being reported already: no second one may take its place.
    try {
        const std::string text = "[" + msg.getIdentifier() + "] " + msg.getMessage();
        message_ = makeCopy(text.c_str());
    } catch (...) {
        message_ = nullptr;
    }
}

// Neither of these two delegates to the other: each records itself.
Exception::Exception(const char* text) : message_(makeCopy(text)), info_(here()) {}

Exception::Exception(const std::string& text) : message_(makeCopy(text.c_str())), info_(here()) {}

Exception::Exception(const Exception& other)
    : std::exception(other), message_(makeCopy(other.message_)), info_(other.info_) {}

Exception& Exception::operator=(const Exception& other) {
    if (this != &other) {
        std::exception::operator=(other);
        setMessage(other.message_);
        info_ = other.info_;
    }
    return *this;
}

Exception::~Exception() {
    freeCopy(message_);
}

const char* Exception::what() const noexcept {
    return textOrEmpty(message_);
}

bool Exception::operator==(Exception other) const {
    return std::strcmp(textOrEmpty(message_), textOrEmpty(other.message_)) == 0 &&
           std::strcmp(getFileName(), other.getFileName()) == 0 &&
           getLineNumber() == other.getLineNumber() &&
           std::strcmp(getFunctionName(), other.getFunctionName()) == 0;
}

bool Exception::operator!=(Exception other) const {
    return !operator==(other);
}

const char* Exception::why() const {
    return what();
}

void Exception::raise() const {
    throw Exception(*this);
}

Exception* Exception::clone() const {
    return new (std::nothrow) Exception(*this);
}

const char* Exception::getFileName() const {
    return textOrEmpty(info_.file_);
}

const char* Exception::getFunctionName() const {
    return textOrEmpty(info_.function_);
}

unsigned long Exception::getLineNumber() const {
    return info_.line_;
}

void Exception::setMessage(const char* text) {
    // Copied first: the text may be this object's own.
    char* copy = makeCopy(text);
    freeCopy(message_);
    message_ = copy;
}

}  // namespace nolk
