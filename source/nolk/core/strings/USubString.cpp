#include <nolk/core/USubString.h>

#include <nolk/core/UConstSubString.h>

namespace nolk {

const UChar* USubString::data() const noexcept {
    return UConstSubString(*this).data();
}

UString::View USubString::view() const noexcept {
    return UConstSubString(*this).view();
}

UChar USubString::operator[](unsigned i) const {
    return UConstSubString(*this)[i];
}

UStringReference USubString::operator[](unsigned i) {
    return (*text_)[UConstSubString(*this).boundsCheckPosition(i)];
}

UChar USubString::operator()(unsigned i) const noexcept {
    return UConstSubString(*this)(i);
}

UStringReference USubString::operator()(unsigned i) noexcept {
    return (*text_)(start_ + i);
}

unsigned USubString::boundsCheckIndex(unsigned i) const {
    return UConstSubString(*this).boundsCheckIndex(i);
}

void USubString::boundsCheckLength(unsigned start, unsigned extent) const {
    UConstSubString(*this).boundsCheckLength(start, extent);
}

// The extent stays as it was on purpose: the part shows a fixed stretch of the string.
USubString& USubString::assign(const UStringSource& source) {
    if (!isNull()) {
        text_->replaceBy(start_, extent_, source);
    }
    return *this;
}

}  // namespace nolk
