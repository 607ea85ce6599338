#include <nolk/core/URegexMatchIterator.h>

#include <algorithm>

namespace nolk {

URegexMatchIterator::URegexMatchIterator(const URegex& regex, const UString& subject,
                                         unsigned start, unsigned end, bool overlap)
    : regex_(&regex), subject_(&subject), position_(start), end_(end), overlap_(overlap) {
    advance();
}

URegexMatchIterator::URegexMatchIterator(const URegex& regex, const UString& subject)
    : URegexMatchIterator(regex, subject, 0u, subject.length(), false) {}

URegexMatchIterator::URegexMatchIterator(const URegex& regex, const UString& subject,
                                         const UStringConstIterator& start)
    : URegexMatchIterator(regex, subject, unsigned{start}, subject.length(), false) {}

URegexMatchIterator::URegexMatchIterator(const URegex& regex, const UString& subject,
                                         const UStringConstIterator& start,
                                         const UStringConstIterator& end, bool overlap)
    : URegexMatchIterator(regex, subject, unsigned{start}, unsigned{end}, overlap) {}

void URegexMatchIterator::advance() {
    if (position_ == 0 || position_ < end_) {
        result_ = regex_->search(*subject_, position_, end_);
        if (result_) {
            const unsigned length = overlap_ ? 0 : result_.getLength(0);
            position_ = result_.getStart(0) + std::max(length, 1u);
            return;
        }
    }
    *this = URegexMatchIterator();
}

URegexMatchIterator& URegexMatchIterator::operator++() {
    return *this += 1;
}

URegexMatchIterator URegexMatchIterator::operator++(int) {
    URegexMatchIterator before(*this);
    *this += 1;
    return before;
}

URegexMatchIterator& URegexMatchIterator::operator+=(unsigned n) {
    for (; n > 0 && regex_ != nullptr; --n) {
        advance();
    }
    return *this;
}

}  // namespace nolk
