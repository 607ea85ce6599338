#include <nolk/core/StringTokenizer.h>

#include <limits>
#include <stdexcept>

namespace nolk {

namespace {

constexpr std::size_t none = std::string::npos;
constexpr std::string_view blanks = " \t\n";

std::string_view textOf(const char* text) {
    return text == nullptr ? std::string_view() : std::string_view(text);
}

std::string_view bytesOf(const char* bytes, unsigned n) {
    return bytes == nullptr ? std::string_view() : std::string_view(bytes, n);
}

unsigned checkedLength(std::size_t length) {
    if (length >= std::numeric_limits<unsigned>::max()) {
        throw std::length_error("StringTokenizer: the text is too long");
    }
    return static_cast<unsigned>(length);
}

}  // namespace

StringTokenizer::StringTokenizer(const std::string& text)
    : text_(text), length_(checkedLength(text.size())) {}

StringTokenizer::~StringTokenizer() = default;

std::string StringTokenizer::operator()() {
    return token(blanks);
}

std::string StringTokenizer::operator()(const char* delimiters) {
    return token(textOf(delimiters));
}

std::string StringTokenizer::operator()(const char* delimiters, unsigned n) {
    return token(bytesOf(delimiters, n));
}

std::string StringTokenizer::nextToken() {
    return separated(blanks);
}

std::string StringTokenizer::nextToken(const char* delimiters) {
    return separated(textOf(delimiters));
}

std::string StringTokenizer::nextToken(const char* delimiters, unsigned n) {
    return separated(bytesOf(delimiters, n));
}

std::string StringTokenizer::token(std::string_view delimiters) {
    if (finished_) {
        return std::string();
    }
    const std::string_view text = text_;
    const std::size_t start = text.find_first_not_of(delimiters, position_);
    const std::size_t end = start == none ? none : text.find_first_of(delimiters, start);
    if (end != none) {
        std::string token(text.substr(start, end - start));
        position_ = static_cast<unsigned>(end);
        return token;
    }
    // The rest, be it a last token or nothing but delimiters.
    std::string rest(start == none ? std::string_view() : text.substr(start));
    finished_ = true;
    return rest;
}

std::string StringTokenizer::separated(std::string_view delimiters) {
    if (finished_) {
        return std::string();
    }
    const std::string_view text = text_;
    const std::size_t end = text.find_first_of(delimiters, position_);
    std::string token(text.substr(position_, end == none ? none : end - position_));
    position_ = static_cast<unsigned>(end == none ? length_ : end + 1);
    finished_ = position_ >= length_;
    return token;
}

}  // namespace nolk
