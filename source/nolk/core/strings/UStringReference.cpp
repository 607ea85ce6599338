#include <nolk/core/UStringReference.h>

#include <nolk/core/UString.h>

#include <utility>

namespace nolk {

UStringReference::operator UChar() const noexcept {
    return text_->data()[position_];
}

UStringReference& UStringReference::operator=(UChar unit) {
    text_->replace(position_, 1, unit, 1);
    return *this;
}

void swap(const UStringReference& a, const UStringReference& b) {
    UString first(*a.text_);
    UString second(*b.text_);
    UString& other = a.text_ == b.text_ ? first : second;
    const UChar unit = a;
    first(a.position_) = b;
    other(b.position_) = unit;
    if (&other == &second) {
        *b.text_ = std::move(second);
    }
    *a.text_ = std::move(first);
}

}  // namespace nolk
