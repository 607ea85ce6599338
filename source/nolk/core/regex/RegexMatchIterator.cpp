#include <nolk/core/RegexMatchIterator.h>

#include <algorithm>

namespace nolk {

template <typename T>
RegexMatchIterator<T>::RegexMatchIterator(Regex<T>& regex, const T* subject, unsigned start,
                                          unsigned length, bool overlap)
    : regex_(&regex), subject_(subject), position_(start), end_(start + length), overlap_(overlap) {
    const bool isUnbounded = (start < 2 && length == npos) || end_ >= npos - 1;
    if (isUnbounded) {
        end_ = start + static_cast<unsigned>(std::char_traits<T>::length(subject + start));
    }
    advance();
}

template <typename T>
RegexMatchIterator<T>::RegexMatchIterator(Regex<T>& regex, const std::basic_string<T>& subject,
                                          unsigned start, unsigned length, bool overlap)
    : regex_(&regex),
      subject_(subject.data()),
      position_(start),
      end_(start + (length == npos ? static_cast<unsigned>(subject.size()) : length)),
      subjectEnd_(static_cast<unsigned>(subject.size())),
      overlap_(overlap) {
    advance();
}

template <typename T>
void RegexMatchIterator<T>::advance() {
    if (position_ == 0 || position_ < end_) {
        result_ = regex_->search(subject_, position_, std::min(end_, subjectEnd_));
        if (result_) {
            const unsigned length = overlap_ ? 0 : result_.getLength(0);
            position_ = result_.getStart(0) + std::max(length, 1u);
            return;
        }
    }
    *this = RegexMatchIterator();
}

template <typename T>
RegexMatchIterator<T>& RegexMatchIterator<T>::operator++() {
    return *this += 1;
}

template <typename T>
RegexMatchIterator<T> RegexMatchIterator<T>::operator++(int) {
    RegexMatchIterator before(*this);
    *this += 1;
    return before;
}

template <typename T>
RegexMatchIterator<T>& RegexMatchIterator<T>::operator+=(unsigned n) {
    for (; n > 0 && regex_ != nullptr; --n) {
        advance();
    }
    return *this;
}

template <typename T>
RegexResult<T> RegexMatchIterator<T>::operator*() const {
    return result_;
}

template <typename T>
const RegexResult<T>* RegexMatchIterator<T>::operator->() const noexcept {
    return &result_;
}

template <typename T>
bool RegexMatchIterator<T>::operator==(const RegexMatchIterator& other) const noexcept {
    return regex_ == other.regex_ && position_ == other.position_;
}

template <typename T>
bool RegexMatchIterator<T>::operator!=(const RegexMatchIterator& other) const noexcept {
    return !(*this == other);
}

template class NOLK_API RegexMatchIterator<char>;
template class NOLK_API RegexMatchIterator<UChar>;

}  // namespace nolk
