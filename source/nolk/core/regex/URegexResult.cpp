#include <nolk/core/URegexResult.h>

#include <algorithm>

namespace nolk {

UStringConstIterator URegexResult::begin(const UString& subject, unsigned i) const {
    return UStringConstIterator(subject, std::min(getStart(i), subject.length()));
}

UStringConstIterator URegexResult::end(const UString& subject, unsigned i) const {
    const unsigned start = std::min(getStart(i), subject.length());
    return UStringConstIterator(subject, start + std::min(getLength(i), subject.length() - start));
}

UConstSubString URegexResult::subString(const UString& subject, unsigned i) const noexcept {
    return UConstSubString(subject, std::min(getStart(i), subject.length()), getLength(i));
}

}  // namespace nolk
