#include <nolk/core/URegex.h>

#include <nolk/core/ConversionException.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>
#include <nolk/core/URegexMatchIterator.h>
#include <nolk/core/regex/RegexPatternReader.h>
#include <nolk/core/regex/RegexReplace.h>
#include <nolk/core/regex/UBasicRegexImp.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace nolk {

namespace {

enum class Encoding { utf8, ascii, latin1, unknown };

bool isSameName(std::string_view a, std::string_view b) {
    const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [upper](char x, char y) { return upper(x) == upper(y); });
}

Encoding encodingOf(const char* name) {
    static constexpr struct {
        std::string_view name;
        Encoding encoding;
    } names[] = {{"UTF-8", Encoding::utf8},        {"UTF8", Encoding::utf8},
                 {"US-ASCII", Encoding::ascii},    {"ASCII", Encoding::ascii},
                 {"ISO-8859-1", Encoding::latin1}, {"LATIN1", Encoding::latin1}};
    if (name == nullptr) {
        return Encoding::utf8;
    }
    for (const auto& entry : names) {
        if (isSameName(entry.name, name)) {
            return entry.encoding;
        }
    }
    return Encoding::unknown;
}

[[noreturn]] void throwNarrow(std::size_t offset) {
    throw RegexException(here(), LocalizedMessage(NOLK_CORE_REGEX_ASCII_ERROR), regexAsciiError,
                         static_cast<unsigned>(offset));
}

UString widened(std::string_view text, unsigned last) {
    UString wide;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte > last) {
            throwNarrow(i);
        }
        wide += static_cast<UChar>(byte);
    }
    return wide;
}

UString fromUtf8(const char* pattern, std::size_t length) {
    try {
        return UString(pattern, static_cast<unsigned>(length));
    } catch (const ConversionException&) {
        throwNarrow(0);
    }
}

}  // namespace

URegex::URegex() = default;

URegex::URegex(const UString& pattern, UnicodeConformanceLevel level, long options)
    : pattern_(pattern), level_(level), options_(options), imp_(makeImp(pattern, level, options)) {}

URegex::URegex(const std::string& pattern, UnicodeConformanceLevel level, long options,
               const char* encoding)
    : URegex(constructFromAscii(pattern.data(), pattern.size(), encoding), level, options) {}

URegex::URegex(const char* pattern, UnicodeConformanceLevel level, long options,
               const char* encoding)
    : URegex(constructFromAscii(pattern, std::strlen(pattern), encoding), level, options) {}

URegex::URegex(const URegex& other)
    : pattern_(other.pattern_),
      level_(other.level_),
      options_(other.options_),
      imp_(other.imp_ == nullptr ? nullptr : makeImp(pattern_, level_, options_)) {}

URegex& URegex::operator=(const URegex& other) {
    if (this != &other) {
        URegex copy(other);
        pattern_ = copy.pattern_;
        level_ = copy.level_;
        options_ = copy.options_;
        imp_ = std::move(copy.imp_);
    }
    return *this;
}

URegex::~URegex() = default;

URegexImp* URegex::makeImp(const UString& pattern, UnicodeConformanceLevel level, long) {
    return level == 0 ? new UBasicRegexImp(pattern) : nullptr;
}

UString URegex::constructFromAscii(const char* pattern, std::size_t length, const char* encoding) {
    switch (encodingOf(encoding)) {
        case Encoding::utf8:
            return fromUtf8(pattern, length);
        case Encoding::ascii:
            return widened({pattern, length}, 127);
        case Encoding::latin1:
            return widened({pattern, length}, 255);
        default:
            throwNarrow(0);
    }
}

void URegex::setLevel(UnicodeConformanceLevel level) {
    if (level != level_) {
        imp_.reset(makeImp(pattern_, level, options_));
        level_ = level;
    }
}

unsigned URegex::subCount() const noexcept {
    return imp_ == nullptr ? 0 : imp_->subCount();
}

bool URegex::operator==(const URegex& other) const noexcept {
    return pattern_.compareCodeUnits(other.pattern_) == 0;
}

bool URegex::operator<(const URegex& other) const noexcept {
    return pattern_.compareCodeUnits(other.pattern_) < 0;
}

URegexResult URegex::search(const UString& subject, unsigned start, unsigned end) const {
    RegexResult<UChar> result;
    if (imp_ != nullptr) {
        imp_->search(subject, start, std::min(end, subject.length()), result);
    }
    return URegexResult(result);
}

URegexResult URegex::matchAt(const UString& subject, unsigned start, unsigned end) const {
    RegexResult<UChar> result;
    if (imp_ != nullptr) {
        imp_->matchAt(subject, start, std::min(end, subject.length()), result);
    }
    return URegexResult(result);
}

URegexResult URegex::search(const UString& subject) const {
    return search(subject, 0u, npos);
}

URegexResult URegex::search(const UString& subject, const UStringConstIterator& start) const {
    return search(subject, unsigned{start}, npos);
}

URegexResult URegex::search(const UString& subject, const UStringConstIterator& start,
                            const UStringConstIterator& end) const {
    return search(subject, unsigned{start}, unsigned{end});
}

URegexResult URegex::matchAt(const UString& subject) const {
    return matchAt(subject, 0u, npos);
}

URegexResult URegex::matchAt(const UString& subject, const UStringConstIterator& start) const {
    return matchAt(subject, unsigned{start}, npos);
}

URegexResult URegex::matchAt(const UString& subject, const UStringConstIterator& start,
                             const UStringConstIterator& end) const {
    return matchAt(subject, unsigned{start}, unsigned{end});
}

unsigned URegex::replace(UString& subject, const UString& with, unsigned count, unsigned matchIndex,
                         unsigned start, unsigned end, bool replaceEmptyMatches) const {
    UString replaced;
    URegexMatchIterator match(*this, subject, start, std::min(end, subject.length()), false);
    const unsigned done = replaceMatches(subject.data(), subject.length(), with, count, matchIndex,
                                         replaceEmptyMatches, match, replaced);
    subject = std::move(replaced);
    return done;
}

unsigned URegex::replace(UString& subject, const UString& with, unsigned count,
                         long matchIndex) const {
    return replace(subject, with, count, static_cast<unsigned>(matchIndex), 0u, npos, true);
}

unsigned URegex::replace(UString& subject, const UString& with, unsigned count, long matchIndex,
                         const UStringConstIterator& start, const UStringConstIterator& end,
                         bool replaceEmptyMatches) const {
    return replace(subject, with, count, static_cast<unsigned>(matchIndex), unsigned{start},
                   unsigned{end}, replaceEmptyMatches);
}

}  // namespace nolk
