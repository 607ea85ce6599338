// How a string is changed. Every change names a range of units and what stands there afterwards:
//
//     head | n units | tail      doMakeSpace() puts the tail in its new place, or head and tail
//     into head | gap ...... | tail   a new buffer; doReplace() then fills the gap
//
// so that a failed allocation comes before anything is changed. The source may be a part of the
// string itself, or stand elsewhere in its buffer, which is why a buffer that is left is dropped
// only when the gap is filled.

#include <nolk/core/ConversionException.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>
#include <nolk/core/UString.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <utility>

#include "nolk/core/strings/UStringCodePoints.h"

namespace nolk {
namespace {

void copyUnits(UChar* to, const UChar* from, unsigned n) {
    std::copy_n(from, n, to);
}

// What can't be written in UTF-16 is refused, at its own index.
void checkCodePoint(UChar32 cp, unsigned index) {
    if (cp > 0x10FFFF) {
        throw ConversionException(here(),
                                  message(NOLK_CORE_CONVERSION_ILLEGAL_SEQUENCE, index, index));
    }
}

template <typename Point>
std::uint64_t checkedUnitCount(const Point* s, unsigned n) {
    std::uint64_t units = 0;
    for (unsigned i = 0; i < n; ++i) {
        const UChar32 cp = codePointOf(s[i]);
        checkCodePoint(cp, i);
        units += unitCount(cp);
    }
    return units;
}

// Whether runs have a place in common, wherever they come from.
bool overlap(const UChar* a, std::size_t aLength, const UChar* b, std::size_t bLength) {
    const std::less<const UChar*> before;
    return before(a, b + bLength) && before(b, a + aLength);
}

}  // namespace

/** Holds on to the buffer that a change leaves while the source is read. */
class UString::LeftBuffer {
public:
    LeftBuffer() = default;
    LeftBuffer(const LeftBuffer&) = delete;
    LeftBuffer& operator=(const LeftBuffer&) = delete;
    ~LeftBuffer() {
        if (counter_ != nullptr) {
            counter_->removeReference();
        }
    }

    /** Takes over a string's reference, if it has one. */
    void take(Counter*& counter) { std::swap(counter_, counter); }

private:
    Counter* counter_ = nullptr;
};

bool UString::requiresCopyOnWrite() const noexcept {
    if (isShort()) {
        return false;
    }
    return isCounted() ? counter_->references() > 0 : capacity_ == 0;
}

UChar* UString::doMakeSpace(unsigned pos, unsigned removeCount, unsigned insertCount,
                            LeftBuffer& left) {
    const unsigned present = length();
    const unsigned tail = present - removeCount - pos;
    const unsigned length = checkedLength(std::uint64_t{present} - removeCount + insertCount);
    const UChar* const head = data_;
    const UChar* const rest = data_ + pos + removeCount;
    if (!requiresCopyOnWrite() && length < capacity()) {
        std::memmove(data_ + pos + insertCount, rest, std::size_t{tail} * sizeof(UChar));
        setLength(length);
        return data_ + pos;
    }
    Counter* const counter =
        length < shortCapacity ? nullptr : Counter::make(nullptr, length, capacityFor(length));
    left.take(counter_);
    if (counter != nullptr) {
        attach(counter);
    } else {
        becomeShort(length);
    }
    copyUnits(data_, head, pos);
    copyUnits(data_ + pos + insertCount, rest, tail);
    return data_ + pos;
}

void UString::setLength(unsigned n) noexcept {
    if (isCounted()) {
        counter_->length(n);
    } else {
        length_ = n;
    }
    data_[n] = UChar();
}

void UString::doReplace(unsigned pos, unsigned n, const UChar* source, unsigned sourceLength) {
    LeftBuffer left;
    if (!requiresCopyOnWrite() && overlap(source, sourceLength, data_, capacity())) {
        // Such a buffer may be written to in its place, and the source with it.
        const UString copy(source, sourceLength);
        copyUnits(doMakeSpace(pos, n, sourceLength, left), copy.data_, sourceLength);
        return;
    }
    copyUnits(doMakeSpace(pos, n, sourceLength, left), source, sourceLength);
}

void UString::doReplace(unsigned pos, unsigned n, const UChar32* source, unsigned sourceLength) {
    replaceByPoints(pos, n, source, sourceLength);
}

void UString::doReplace(unsigned pos, unsigned n, UChar c, unsigned count) {
    LeftBuffer left;
    std::fill_n(doMakeSpace(pos, n, count, left), count, c);
}

void UString::doReplace(unsigned pos, unsigned n, UChar32 c, unsigned count) {
    checkCodePoint(c, 0);
    if (!requiresSurrogatePair(c)) {
        doReplace(pos, n, static_cast<UChar>(c), count);
        return;
    }
    LeftBuffer left;
    UChar* out = doMakeSpace(pos, n, checkedLength(std::uint64_t{count} * 2), left);
    while (count-- > 0) {
        out = putCodePoint(out, c);
    }
}

template <typename Point>
void UString::replaceByPoints(unsigned pos, unsigned n, const Point* source,
                              unsigned sourceLength) {
    const std::uint64_t units = checkedUnitCount(source, sourceLength);
    LeftBuffer left;
    UChar* out = doMakeSpace(pos, n, checkedLength(units), left);
    for (unsigned i = 0; i < sourceLength; ++i) {
        out = putCodePoint(out, codePointOf(source[i]));
    }
}

void UString::initFromUtf32(const char32_t* s, unsigned n) {
    replaceByPoints(0, 0, s, runLength(s, n));
}

void UString::initFromUtf32(const wchar_t* s, unsigned n) {
    replaceByPoints(0, 0, s, runLength(s, n));
}

UString& UString::replaceBy(unsigned pos, unsigned n, const UStringSource& source) {
    const unsigned present = length();
    pos = std::min(pos, present);
    n = std::min(n, present - pos);
    const unsigned count = source.length();
    if (n == 0 && count == 0) {
        return *this;  // nothing is written, so a shared buffer stays
    }
    if (source.isCodePoints()) {
        source.isRepeated() ? doReplace(pos, n, *source.points(), count)
                            : doReplace(pos, n, source.points(), count);
    } else {
        source.isRepeated() ? doReplace(pos, n, *source.units(), count)
                            : doReplace(pos, n, source.units(), count);
    }
    return *this;
}

UString& UString::remove(unsigned pos, unsigned n) {
    return replaceBy(pos, n, UStringSource(UChar(), 0));
}

UString& UString::resize(unsigned n, UChar c) {
    const unsigned present = length();
    return n < present ? remove(n) : append(c, n - present);
}

UString& UString::resize(unsigned n, UChar32 c) {
    const View text(data_, length());
    unsigned pos = 0;
    for (; n > 0 && pos < text.size(); --n) {
        pos += codePointAt(text, pos).units;
    }
    return n == 0 ? remove(pos) : append(c, n);
}

}  // namespace nolk
