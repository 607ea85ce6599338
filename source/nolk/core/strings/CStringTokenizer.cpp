#include <nolk/core/CStringTokenizer.h>

#include <string_view>

#include "nolk/core/strings/ByteSet.h"

namespace nolk {

namespace {

constexpr const char* blanks = " \t\n";

std::string_view textOf(const char* text) {
    return text == nullptr ? std::string_view() : std::string_view(text);
}

std::string_view bytesOf(const char* bytes, unsigned n) {
    return bytes == nullptr ? std::string_view() : std::string_view(bytes, n);
}

}  // namespace

CStringTokenizer::CStringTokenizer(const CString& text) : text_(text) {}

CStringTokenizer::~CStringTokenizer() = default;

CSubString CStringTokenizer::operator()() {
    return (*this)(blanks);
}

CSubString CStringTokenizer::operator()(const char* delimiters) {
    ByteSet set(textOf(delimiters));
    set.add('\0');  // ends a run of either kind, and is stepped over
    return token(set);
}

CSubString CStringTokenizer::operator()(const char* delimiters, unsigned n) {
    return token(ByteSet(bytesOf(delimiters, n)));
}

CSubString CStringTokenizer::operator()(const CString& delimiters) {
    return token(ByteSet(delimiters.view()));
}

CSubString CStringTokenizer::nextToken() {
    return nextToken(blanks);
}

CSubString CStringTokenizer::nextToken(const char* delimiters) {
    return separated(ByteSet(textOf(delimiters)));
}

CSubString CStringTokenizer::nextToken(const char* delimiters, unsigned n) {
    return separated(ByteSet(bytesOf(delimiters, n)));
}

CSubString CStringTokenizer::nextToken(const CString& delimiters) {
    return separated(ByteSet(delimiters.view()));
}

CSubString CStringTokenizer::token(const ByteSet& delimiters) {
    const std::string_view text = text_.view();
    if (done()) {
        return text_(CString::npos, 0);
    }
    const std::size_t start = findOutside(delimiters, text, position_);
    const std::size_t end = findIn(delimiters, text, start);
    position_ = static_cast<unsigned>(end);
    return text_(start == end ? CString::npos : static_cast<unsigned>(start),
                 static_cast<unsigned>(end - start));
}

CSubString CStringTokenizer::separated(const ByteSet& delimiters) {
    const unsigned start = position_;
    if (done()) {
        ++position_;
        return text_(CString::npos, 0);
    }
    const auto end = static_cast<unsigned>(findIn(delimiters, text_.view(), start));
    position_ = end + 1;
    return text_(start, end - start);
}

}  // namespace nolk
