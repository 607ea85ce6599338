// How a string holds its text. Which of the three forms it has follows from two fields:
//
//     data_ == short_       short: the units stand in the object
//     counter_ != nullptr   counted: data_ is the counter's, and so are length and capacity
//     otherwise             borrowed: the caller's units, length_ perhaps not yet measured
//
// A counted buffer is never written to, not even by its only owner: requiresCopyOnWrite() asks for
// a count above 0, and the string itself is counted. That is meant.

#include <nolk/core/UString.h>

#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>
#include <nolk/core/OutOfBoundsException.h>

#include <algorithm>
#include <cstring>

#include "nolk/core/strings/UStringCodePoints.h"

namespace nolk {
namespace {

// Sizes are no indexes: they are shown in full.
[[noreturn]] void refuseSize(std::uint64_t n) {
    throw OutOfBoundsException(here(),
                               message(NOLK_CORE_BOUNDS_ILLEGAL_INDEX, static_cast<long long>(n),
                                       static_cast<long long>(UString::max_size())));
}

}  // namespace

// Said again, so that the DLL has it for programs that bind a reference to it.
constexpr unsigned UString::npos;

// Making

UString::UString(const UChar* s, Duration d) : UString(s, npos, d) {}

UString::UString(const UChar* s, unsigned n, Duration d) : UString() {
    if (s != nullptr && d == persistent) {
        data_ = const_cast<UChar*>(s);  // the capacity of 0 keeps it from being written
        length_ = n;
    } else if (s != nullptr) {
        n = runLength(s, n);
        std::copy_n(s, n, init(n));
    }
}

UString::UString(const UChar* s, unsigned n, unsigned capacity) : UString() {
    n = runLength(s, n);
    std::copy_n(s, n, init(n, std::max(capacity, checkedLength(n) + 1)));
}

UString::UString(const UChar32* s, unsigned n) : UString() {
    append(s, n);
}

UString::UString(UChar c, unsigned n) : UString() {
    append(c, n);
}

UString::UString(UChar32 c, unsigned n) : UString() {
    append(c, n);
}

UString::UString(const unsigned& capacity) : UString() {
    init(0, capacity);
}

UString::UString(UChar* buffer, unsigned n, unsigned capacity, Deallocator* d) : UString() {
    try {
        if (buffer != nullptr) {
            attach(Counter::make(buffer, n, capacity, d));
            return;
        }
    } catch (...) {
        if (d != nullptr) {
            d->deallocate(buffer);
        }
        throw;
    }
    if (d != nullptr) {
        d->deallocate(buffer);
    }
}

UString::UString(const USubString& part) : UString(part.view()) {}

UString::UString(const UConstSubString& part) : UString(part.view()) {}

void UString::copyFields(const UString& other) noexcept {
    takeUnits(other);
    if (counter_ != nullptr) {
        counter_->addReference();
    }
}

UChar* UString::init(unsigned length) {
    return init(length,
                length < shortCapacity ? shortCapacity : capacityFor(checkedLength(length)));
}

UChar* UString::init(unsigned length, unsigned capacity) {
    if (capacity > shortCapacity) {
        attach(Counter::make(nullptr, length, checkedCapacity(capacity)));
        return data_;
    }
    return becomeShort(length);
}

// Takes over the fields of a counter and lets go of the present one, if any.
void UString::attach(Counter* counter) noexcept {
    counter->addReference();
    dropCounter();
    counter_ = counter;
    data_ = counter->data();
    length_ = 0;
    capacity_ = 0;
}

// Leaves the present buffer; the units before the terminator are those that are there.
UChar* UString::becomeShort(unsigned length) noexcept {
    dropCounter();
    counter_ = nullptr;
    data_ = short_;
    length_ = length;
    capacity_ = 0;
    short_[length] = UChar();
    return short_;
}

void UString::takeFields(UString& other) noexcept {
    takeUnits(other);
    other.counter_ = nullptr;
    other.becomeShort(0);
}

void UString::takeUnits(const UString& other) noexcept {
    if (other.isShort()) {
        std::memcpy(short_, other.short_, sizeof(short_));
        data_ = short_;
    } else {
        data_ = other.data_;
    }
    length_ = other.length_;
    capacity_ = other.capacity_;
}

// Assigning

UString& UString::operator=(const UString& other) noexcept {
    if (this == &other || (isCounted() && counter_ == other.counter_)) {
        return *this;
    }
    Counter* const old = counter_;
    counter_ = other.counter_;
    copyFields(other);
    if (old != nullptr) {
        old->removeReference();
    }
    return *this;
}

UString& UString::operator=(UString&& other) noexcept {
    if (this != &other) {
        dropCounter();
        counter_ = other.counter_;
        takeFields(other);
    }
    return *this;
}

void UString::swap(UString& other) noexcept {
    const UString copy(*this);
    *this = other;
    other = copy;
}

// Size

unsigned UString::measuredLength() const noexcept {
    return length_ = codeUnitLength(data_);
}

unsigned UString::capacity() const noexcept {
    if (isShort()) {
        return shortCapacity;
    }
    return isCounted() ? counter_->capacity() : capacity_;
}

unsigned UString::capacity(unsigned n) {
    const unsigned present = length();
    const unsigned target = std::max(n, present + 1);
    if (target == capacity()) {
        return target;
    }
    if (target > shortCapacity) {
        attach(Counter::make(data_, present, checkedCapacity(target)));
    } else if (!isShort()) {
        std::copy_n(data_, present, short_);
        becomeShort(present);
    }
    return capacity();
}

unsigned UString::capacityFor(unsigned n) noexcept {
    const std::uint64_t room = std::uint64_t{n} + n / 4 + 65;
    return static_cast<unsigned>(std::min<std::uint64_t>(room, npos - 1));
}

unsigned UString::checkedLength(std::uint64_t n) {
    if (n > max_size()) {
        refuseSize(n);
    }
    return static_cast<unsigned>(n);
}

// A capacity of npos would mean an unknown one.
unsigned UString::checkedCapacity(unsigned n) {
    if (n == npos) {
        refuseSize(n);
    }
    return n;
}

unsigned UString::codeUnitLength(const UChar* s) noexcept {
    return runLength(s, npos);
}

unsigned UString::codeUnitLength(const UChar32* s) noexcept {
    return codeUnitLength(s, npos);
}

unsigned UString::codeUnitLength(const UChar32* s, unsigned n) noexcept {
    n = runLength(s, n);
    return static_cast<unsigned>(n + std::count_if(s, s + n, requiresSurrogatePair));
}

unsigned UString::codePointLength(const UChar* s) noexcept {
    return codePointLength(s, npos);
}

unsigned UString::codePointLength(const UChar* s, unsigned n) noexcept {
    n = runLength(s, n);
    unsigned pairs = 0;
    for (unsigned i = 1; i < n; ++i) {
        pairs += isHighSurrogate(s[i - 1]) && isLowSurrogate(s[i]) ? 1 : 0;
    }
    return n - pairs;
}

unsigned UString::codePointLength(const UChar32* s) noexcept {
    return runLength(s, npos);
}

// Parts and checks

UConstSubString UString::operator()(unsigned start, unsigned extent) const {
    boundsCheckLength(start, extent);
    return UConstSubString(*this, start, extent);
}

USubString UString::operator()(unsigned start, unsigned extent) {
    boundsCheckLength(start, extent);
    return USubString(*this, start, extent);
}

void UString::boundsCheckLength(unsigned start, unsigned extent) const {
    const std::uint64_t end = std::uint64_t{start} + extent;
    if (end > length()) {
        reportBoundsCheckFailure(end, length());
    }
}

// An index of 32 bits reads as any unsigned number in a message does, npos as -1; a wider one is
// shown as it is.
void UString::reportBoundsCheckFailure(std::uint64_t i, unsigned length) {
    if (i <= npos) {
        throw OutOfBoundsException(
            here(), message(NOLK_CORE_BOUNDS_ILLEGAL_INDEX, static_cast<unsigned>(i), length));
    }
    throw OutOfBoundsException(
        here(), message(NOLK_CORE_BOUNDS_ILLEGAL_INDEX, static_cast<long long>(i), length));
}

}  // namespace nolk
