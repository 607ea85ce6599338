#include <nolk/core/CSubString.h>

#include <algorithm>
#include <cstring>

#include "nolk/core/strings/ByteCase.h"

namespace nolk {

CSubString& CSubString::assign(const char* text, unsigned n) {
    if (!isNull()) {
        const unsigned start = std::min(start_, parent_->length());
        parent_->replace(start, extent_, text, n);
        start_ = start;
        extent_ = n;
    }
    return *this;
}

CSubString& CSubString::operator=(const CSubString& text) {
    const std::string_view source = text.view();
    return assign(source.data(), static_cast<unsigned>(source.size()));
}

CSubString& CSubString::operator=(const CString& text) {
    return assign(text.data(), text.length());
}

CSubString& CSubString::operator=(const char* text) {
    return assign(text, CString::lengthOf(text));
}

char& CSubString::operator()(unsigned i) {
    return (*parent_)((isNull() ? 0 : start_) + i);
}

unsigned CSubString::assertElement(std::int64_t i) const {
    if (static_cast<std::uint64_t>(i) >= extent_) {
        CString::refuseElement(i, extent_);
    }
    if (static_cast<std::uint64_t>(i) >= view().size()) {
        subStringError(parent_->length(), start_, extent_);
    }
    return static_cast<unsigned>(i);
}

void CSubString::subStringError(unsigned length, unsigned start, unsigned extent) {
    CString::subStringError(length, start, extent);
}

void CSubString::toLower() {
    mapBytes(lower);
}

void CSubString::toUpper() {
    mapBytes(upper);
}

void CSubString::mapBytes(char (*map)(char)) {
    if (isNull()) {
        return;
    }
    parent_->cow();
    char* bytes = const_cast<char*>(view().data());
    std::transform(bytes, bytes + view().size(), bytes, map);
}

}  // namespace nolk
