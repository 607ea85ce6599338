#include <nolk/core/UStringConstIterator.h>

#include "nolk/core/strings/UStringIteration.h"

namespace nolk {

UStringConstIterator& UStringConstIterator::operator++() {
    ustringiteration::stepForward(text_, length_, position_);
    return *this;
}

UStringConstIterator& UStringConstIterator::operator--() {
    ustringiteration::stepBack(text_, length_, position_);
    return *this;
}

UStringConstIterator UStringConstIterator::operator++(int) {
    const UStringConstIterator before(*this);
    ++*this;
    return before;
}

UStringConstIterator UStringConstIterator::operator--(int) {
    const UStringConstIterator before(*this);
    --*this;
    return before;
}

UStringConstIterator& UStringConstIterator::advanceCodePoints(int n) {
    ustringiteration::advance(text_, length_, position_, n);
    return *this;
}

const UChar* UStringConstIterator::data() const noexcept {
    return text_ != nullptr ? text_->data() + position_ : nullptr;
}

UStringConstIterator::UStringConstIterator(const UStringIterator& other) noexcept
    : text_(other.text_), length_(other.length_), position_(other.position_) {}

UChar32 UStringConstIterator::operator*() const {
    return ustringiteration::read(text_, length_, position_);
}

UStringConstIterator UString::beginCodePointIterator() const {
    return UStringConstIterator(*this, 0);
}

UStringConstIterator UString::endCodePointIterator() const {
    return UStringConstIterator(*this, length());
}

}  // namespace nolk
