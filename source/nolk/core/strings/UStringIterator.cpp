#include <nolk/core/UStringIterator.h>

#include "nolk/core/strings/UStringIteration.h"

namespace nolk {

UStringIterator& UStringIterator::operator++() {
    ustringiteration::stepForward(text_, length_, position_);
    return *this;
}

UStringIterator& UStringIterator::operator--() {
    ustringiteration::stepBack(text_, length_, position_);
    return *this;
}

UStringIterator UStringIterator::operator++(int) {
    const UStringIterator before(*this);
    ++*this;
    return before;
}

UStringIterator UStringIterator::operator--(int) {
    const UStringIterator before(*this);
    --*this;
    return before;
}

UStringIterator& UStringIterator::advanceCodePoints(int n) {
    ustringiteration::advance(text_, length_, position_, n);
    return *this;
}

const UChar* UStringIterator::data() const noexcept {
    return text_ != nullptr ? text_->data() + position_ : nullptr;
}

UStringIterator::UChar32Reference UStringIterator::operator*() {
    read();  // throws here rather than where the reference is used
    return UChar32Reference(this);
}

UChar32 UStringIterator::read() const {
    return ustringiteration::read(text_, length_, position_);
}

template <typename Element>
void UStringIterator::write(Element element) {
    const unsigned old = UString::requiresSurrogatePair(read()) ? 2 : 1;
    const unsigned lengthBefore = text_->length();
    text_->replace(position_, old, element, 1);
    length_ += text_->length() - lengthBefore;  // by -1, 0 or 1
}

UStringIterator::UChar32Reference& UStringIterator::UChar32Reference::operator=(UChar32 cp) {
    iterator_->write(cp);
    return *this;
}

UStringIterator::UChar32Reference& UStringIterator::UChar32Reference::operator=(UChar unit) {
    iterator_->write(unit);
    return *this;
}

bool operator==(const UStringIterator& a, const UStringConstIterator& b) noexcept {
    return UStringConstIterator(a) == b;
}

UStringIterator UString::beginCodePointIterator() {
    return UStringIterator(*this, 0);
}

UStringIterator UString::endCodePointIterator() {
    return UStringIterator(*this, length());
}

}  // namespace nolk
