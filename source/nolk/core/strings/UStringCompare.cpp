// Comparing and hashing.

#include <nolk/core/UString.h>

#include <algorithm>
#include <bit>
#include <cstring>

#include "nolk/core/strings/UStringCodePoints.h"
#include "nolk/core/strings/UStringScan.h"

namespace nolk {
namespace {

int unitOrder(UChar a, UChar b) {
    return int{a} - int{b};
}

// Sorts surrogates, which stand for supplementary characters, behind U+E000 to U+FFFF.
int rotated(UChar unit) {
    return (unit + (unit < 0xE000 ? 0x2000 : 0xF800)) & 0xFFFF;
}

int pointOrder(UChar a, UChar b) {
    return a < 0xD800 || b < 0xD800 ? unitOrder(a, b) : rotated(a) - rotated(b);
}

template <typename Order>
int compare(UString::View a, UString::View b, const Order& order) {
    const std::size_t n = std::min(a.size(), b.size());
    const std::size_t i = ustringscan::mismatch(a.data(), b.data(), n);
    if (i < n) {
        return order(a[i], b[i]);
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

// A run as a view; of a terminated one no more than tells that it is longer than `limit`.
UString::View runOf(const UChar* s, unsigned n, unsigned limit) {
    if (s == nullptr) {
        return UString::View();
    }
    if (n != UString::npos) {
        return UString::View(s, n);
    }
    std::size_t size = 0;
    while (size <= limit && s[size] != UChar()) {
        ++size;
    }
    return UString::View(s, size);
}

UString::View rangeOf(const UString& s, unsigned start, unsigned extent) {
    const UStringRun range(s, start, extent);
    return UString::View(range.units(), range.length());
}

}  // namespace

int UString::compareCodeUnits(View a, View b) noexcept {
    return compare(a, b, unitOrder);
}

int UString::compareCodePoints(View a, View b) noexcept {
    return compare(a, b, pointOrder);
}

int UString::compareCodePoints(View a, const UChar32* b, unsigned n) noexcept {
    std::size_t pos = 0;
    n = b != nullptr ? n : 0;
    for (unsigned i = 0; n != npos ? i < n : b[i] != 0; ++i) {
        if (b[i] > 0x10FFFF) {
            return -1;  // behind everything that a string can hold
        }
        UChar units[2];
        const UChar* const end = putCodePoint(units, b[i]);
        for (const UChar* unit = units; unit != end; ++unit, ++pos) {
            if (pos == a.size()) {
                return -1;
            }
            if (a[pos] != *unit) {
                return pointOrder(a[pos], *unit);
            }
        }
    }
    return pos < a.size() ? 1 : 0;
}

int UString::compareCodeUnits(const UString& s) const noexcept {
    return compareCodeUnits(View(data_, length()), View(s.data_, s.length()));
}

int UString::compareCodeUnits(const UString& s, unsigned start, unsigned extent) const noexcept {
    return compareCodeUnits(View(data_, length()), rangeOf(s, start, extent));
}

int UString::compareCodeUnits(const UChar* s, unsigned n) const noexcept {
    return compareCodeUnits(View(data_, length()), runOf(s, n, length()));
}

int UString::compareCodePoints(const UString& s) const noexcept {
    return compareCodePoints(View(data_, length()), View(s.data_, s.length()));
}

int UString::compareCodePoints(const UString& s, unsigned start, unsigned extent) const noexcept {
    return compareCodePoints(View(data_, length()), rangeOf(s, start, extent));
}

int UString::compareCodePoints(const UChar* s, unsigned n) const noexcept {
    return compareCodePoints(View(data_, length()), runOf(s, n, length()));
}

int UString::compareCodePoints(const UChar32* s, unsigned n) const noexcept {
    return compareCodePoints(View(data_, length()), s, n);
}

// One pointer is enough: borrowed strings of different lengths are equal here where they share
// their units. That is meant; the operators tell them apart.
bool UString::equals(const UString& s) const noexcept {
    if (data_ == s.data_) {
        return true;
    }
    const unsigned n = length();
    return n == s.length() && std::memcmp(data_, s.data_, std::size_t{n} * sizeof(UChar)) == 0;
}

unsigned UString::hash() const noexcept {
    const unsigned n = length();
    std::uint32_t h = n;
    unsigned i = 0;
    for (; n - i >= 2; i += 2) {
        h = std::rotl(h, 5) ^ (std::uint32_t{data_[i]} | std::uint32_t{data_[i + 1]} << 16);
    }
    if (i < n) {
        h = std::rotl(h, 5) ^ data_[i];
    }
    return h;
}

}  // namespace nolk
