#include <nolk/core/UConstSubString.h>

#include <nolk/core/USubString.h>

#include <algorithm>
#include <cstdint>

namespace nolk {

UConstSubString::UConstSubString(const USubString& part) noexcept
    : text_(part.text_), start_(part.start_), extent_(part.extent_) {}

const UChar* UConstSubString::data() const noexcept {
    return isNull() ? text_->data() : view().data();
}

// The string may have become shorter since the part was made.
UString::View UConstSubString::view() const noexcept {
    const unsigned length = text_->length();
    const unsigned start = std::min(start_, length);
    return UString::View(text_->data() + start, std::min(extent_, length - start));
}

UChar UConstSubString::operator[](unsigned i) const {
    return text_->data()[boundsCheckPosition(i)];
}

unsigned UConstSubString::boundsCheckIndex(unsigned i) const {
    if (i >= extent_) {
        UString::reportBoundsCheckFailure(i, extent_);
    }
    return i;
}

unsigned UConstSubString::boundsCheckPosition(unsigned i) const {
    return text_->boundsCheckIndex(std::uint64_t{start_} + boundsCheckIndex(i));
}

void UConstSubString::boundsCheckLength(unsigned start, unsigned extent) const {
    const std::uint64_t end = std::uint64_t{start} + extent;
    if (end > extent_) {
        UString::reportBoundsCheckFailure(end, extent_);
    }
}

}  // namespace nolk
