#include <nolk/core/Regex.h>

#include <nolk/core/regex/RegexImp.h>
#include <nolk/core/regex/RegexReplace.h>

#include <algorithm>
#include <cstddef>

namespace nolk {

namespace {

template <typename T>
unsigned lengthOf(const T* s) {
    return static_cast<unsigned>(std::char_traits<T>::length(s));
}

template <typename T>
unsigned clamped(const std::basic_string<T>& s, unsigned length) {
    return static_cast<unsigned>(std::min<std::size_t>(s.size(), length));
}

}  // namespace

template <typename T>
Regex<T>::Regex() : imp_(new RegexImp<T>) {}

template <typename T>
Regex<T>::Regex(const T* pattern, unsigned length)
    : imp_(new RegexImp<T>(pattern, length == npos ? lengthOf(pattern) : length)) {}

template <typename T>
Regex<T>::Regex(const String& pattern, unsigned length)
    : imp_(new RegexImp<T>(pattern.data(), clamped(pattern, length))) {}

template <typename T>
Regex<T>::Regex(const Regex& other) : imp_(new RegexImp<T>(*other.imp_)) {}

template <typename T>
Regex<T>& Regex<T>::operator=(const Regex& other) {
    if (this != &other) {
        RegexImp<T>* const copy = new RegexImp<T>(*other.imp_);
        delete imp_;
        imp_ = copy;
    }
    return *this;
}

template <typename T>
Regex<T>::~Regex() {
    delete imp_;
}

template <typename T>
unsigned Regex<T>::subCount() const noexcept {
    return imp_->subCount();
}

template <typename T>
const RegexException& Regex<T>::getStatus() const {
    return RegexImp<T>::getStatus();
}

template <typename T>
bool Regex<T>::operator==(const Regex& other) const noexcept {
    return imp_->compare(*other.imp_) == 0;
}

template <typename T>
bool Regex<T>::operator<(const Regex& other) const noexcept {
    return imp_->compare(*other.imp_) < 0;
}

template <typename T>
RegexResult<T> Regex<T>::search(const T* s, unsigned start, unsigned end) {
    RegexResult<T> result = RegexImp<T>::makeResult();
    imp_->search(s, start, end == npos ? lengthOf(s) : end, result);
    return result;
}

template <typename T>
RegexResult<T> Regex<T>::search(const String& s, unsigned start, unsigned end) {
    RegexResult<T> result = RegexImp<T>::makeResult();
    imp_->search(s.data(), start, clamped(s, end), result);
    return result;
}

template <typename T>
RegexResult<T> Regex<T>::matchAt(const T* s, unsigned start, unsigned end) {
    RegexResult<T> result = RegexImp<T>::makeResult();
    imp_->matchAt(s, start, end == npos ? lengthOf(s) : end, result);
    return result;
}

template <typename T>
RegexResult<T> Regex<T>::matchAt(const String& s, unsigned start, unsigned end) {
    RegexResult<T> result = RegexImp<T>::makeResult();
    imp_->matchAt(s.data(), start, clamped(s, end), result);
    return result;
}

template <typename T>
unsigned Regex<T>::index(const T* s, unsigned* matchLength, unsigned start, unsigned end) {
    const RegexResult<T> result = search(s, start, end);
    if (matchLength != nullptr) {
        *matchLength = result.getLength(0);
    }
    return result.getStart(0);
}

template <typename T>
unsigned Regex<T>::index(const String& s, unsigned* matchLength, unsigned start, unsigned end) {
    const RegexResult<T> result = search(s, start, end);
    if (matchLength != nullptr) {
        *matchLength = result.getLength(0);
    }
    return result.getStart(0);
}

template <typename T>
unsigned Regex<T>::replace(String& s, const String& with, unsigned count, unsigned matchIndex,
                           unsigned start, unsigned length, bool replaceEmptyMatches) {
    String replaced;
    RegexMatchIterator<T> match(*this, s, start, length);
    const unsigned done = replaceMatches(s.data(), s.size(), with, count, matchIndex,
                                         replaceEmptyMatches, match, replaced);
    s.swap(replaced);
    return done;
}

template class NOLK_API Regex<char>;
template class NOLK_API Regex<UChar>;

}  // namespace nolk
