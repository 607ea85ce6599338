// Searches. A sequence of code points is searched for as the units it is written with: where these
// are found, the code points are too, unless the find begins or ends inside of a pair of the text.
// No such check is needed between its ends, where pairs of the text and of the sequence coincide.

#include <nolk/core/UString.h>

#include <algorithm>
#include <bitset>
#include <cstring>
#include <vector>

#include "nolk/core/strings/UStringCodePoints.h"
#include "nolk/core/strings/UStringScan.h"

namespace nolk {
namespace {

using View = UString::View;

bool sameUnits(const UChar* a, const UChar* b, std::size_t n) {
    return std::memcmp(a, b, n * sizeof(UChar)) == 0;
}

// The first place of a sequence of two or more units in [start, end) that is accepted.
template <typename Accept>
unsigned findSequence(const UChar* text, unsigned start, unsigned end, View s,
                      const Accept& accept) {
    if (end - start < s.size()) {
        return UString::npos;
    }
    const std::size_t last = s.size() - 1;
    const std::size_t places = end - start - last;
    const UChar* const p = text + start;
    const auto isAt = [&](std::size_t i) {
        return p[i] == s[0] && sameUnits(p + i, s.data(), last) && accept(start + i);
    };
    // Where the last unit is a rare one, it alone leads there fastest. Where it misleads, both ends
    // are looked for from there on.
    std::size_t i = ustringscan::find(p + last, places, s[last]);
    while (i < places && !isAt(i)) {
        ++i;
        i += ustringscan::findEnds(p + i, places - i, s[0], s[last], last);
    }
    return i < places ? static_cast<unsigned>(start + i) : UString::npos;
}

// The last place.
template <typename Accept>
unsigned findLastSequence(const UChar* text, unsigned start, unsigned end, View s,
                          const Accept& accept) {
    std::size_t places = end - start < s.size() ? 0 : end - start - s.size() + 1;
    const UChar* const p = text + start;
    while (places > 0) {
        const std::size_t i = ustringscan::findLast(p, places, s[0]);
        if (i == places) {
            break;
        }
        if (sameUnits(p + i, s.data(), s.size()) && accept(start + i)) {
            return static_cast<unsigned>(start + i);
        }
        places = i;
    }
    return UString::npos;
}

constexpr auto anywhere = [](std::size_t) { return true; };

// A sequence of code points in units, or nothing if no text can hold it.
class EncodedSequence {
public:
    EncodedSequence(const UChar32* s, unsigned n) {
        units_.reserve(std::size_t{n} * 2);
        for (unsigned i = 0; i < n; ++i) {
            // Side by side, what stands for two lone surrogates would be a pair.
            const bool makesPair =
                i > 0 && UString::isHighSurrogate(s[i - 1]) && UString::isLowSurrogate(s[i]);
            possible_ = possible_ && s[i] <= 0x10FFFF && !makesPair;
            UChar pair[2];
            units_.insert(units_.end(), pair, putCodePoint(pair, s[i]));
        }
    }

    bool isPossible() const { return possible_; }
    View units() const { return View(units_.data(), units_.size()); }

    /** Tells of a place whether it begins and ends where a code point of the text does. */
    auto boundariesIn(View text) const {
        return [text, size = units_.size()](std::size_t pos) {
            return !isInsidePair(text, pos) && !isInsidePair(text, pos + size);
        };
    }

private:
    std::vector<UChar> units_;
    bool possible_ = true;
};

// A set of units or code points: most that aren't in it fail the test of their low byte.
template <typename Element>
class ElementSet {
public:
    ElementSet(const Element* s, unsigned n) : begin_(s), end_(s + n) {
        for (const Element* p = begin_; p != end_; ++p) {
            lowBytes_.set(*p & 0xFF);
        }
    }

    bool contains(Element e) const {
        return lowBytes_[e & 0xFF] && std::find(begin_, end_, e) != end_;
    }

private:
    std::bitset<256> lowBytes_;
    const Element* begin_;
    const Element* end_;
};

// Where to look, inside of the text.
struct Scope {
    unsigned start;
    unsigned end;
};

Scope scopeOf(View text, unsigned start, unsigned extent) {
    const auto length = static_cast<unsigned>(text.size());
    start = std::min(start, length);
    return {start, start + std::min(extent, length - start)};
}

// Code units

unsigned doIndexOfCodeUnitSequence(View text, Scope scope, const UChar* s, unsigned n) {
    if (n > 1) {
        return findSequence(text.data(), scope.start, scope.end, View(s, n), anywhere);
    }
    const std::size_t extent = scope.end - scope.start;
    const std::size_t i = ustringscan::find(text.data() + scope.start, extent, *s);
    return i < extent ? static_cast<unsigned>(scope.start + i) : UString::npos;
}

unsigned doReverseIndexOfCodeUnitSequence(View text, Scope scope, const UChar* s, unsigned n) {
    return findLastSequence(text.data(), scope.start, scope.end, View(s, n), anywhere);
}

unsigned doIndexOfCodeUnitSet(View text, Scope scope, const UChar* s, unsigned n) {
    if (n == 1) {
        return doIndexOfCodeUnitSequence(text, scope, s, 1);
    }
    const ElementSet<UChar> set(s, n);
    for (unsigned i = scope.start; i < scope.end; ++i) {
        if (set.contains(text[i])) {
            return i;
        }
    }
    return UString::npos;
}

unsigned doReverseIndexOfCodeUnitSet(View text, Scope scope, const UChar* s, unsigned n) {
    const ElementSet<UChar> set(s, n);
    for (unsigned i = scope.end; i > scope.start; --i) {
        if (set.contains(text[i - 1])) {
            return i - 1;
        }
    }
    return UString::npos;
}

// Code points

unsigned doIndexOfCodePointSequence(View text, Scope scope, const UChar32* s, unsigned n) {
    const EncodedSequence sequence(s, n);
    if (!sequence.isPossible()) {
        return UString::npos;
    }
    return findSequence(text.data(), scope.start, scope.end, sequence.units(),
                        sequence.boundariesIn(text));
}

unsigned doReverseIndexOfCodePointSequence(View text, Scope scope, const UChar32* s, unsigned n) {
    const EncodedSequence sequence(s, n);
    if (!sequence.isPossible()) {
        return UString::npos;
    }
    return findLastSequence(text.data(), scope.start, scope.end, sequence.units(),
                            sequence.boundariesIn(text));
}

// Whether a surrogate stands alone is a matter of the whole text: a scope may begin or end inside
// of a pair, and holds no code point there.

unsigned doIndexOfCodePointSet(View text, Scope scope, const UChar32* s, unsigned n) {
    const ElementSet<UChar32> set(s, n);
    unsigned pos = scope.start + (isInsidePair(text, scope.start) ? 1 : 0);
    while (pos < scope.end) {
        const CodePoint here = codePointAt(text, pos);
        if (pos + here.units <= scope.end && set.contains(here.value)) {
            return pos;
        }
        pos += here.units;
    }
    return UString::npos;
}

unsigned doReverseIndexOfCodePointSet(View text, Scope scope, const UChar32* s, unsigned n) {
    const ElementSet<UChar32> set(s, n);
    unsigned pos = scope.end - (scope.end > scope.start && isInsidePair(text, scope.end) ? 1 : 0);
    while (pos > scope.start) {
        const CodePoint before = codePointBefore(text, pos);
        if (before.units > pos - scope.start) {
            break;
        }
        pos -= before.units;
        if (set.contains(before.value)) {
            return pos;
        }
    }
    return UString::npos;
}

}  // namespace

unsigned UString::indexOf(unsigned start, unsigned extent, const UStringPattern& pattern) const {
    const View text(data_, length());
    const Scope scope = scopeOf(text, start, extent);
    const unsigned n = pattern.length();
    if (n == 0) {
        return scope.start;
    }
    return pattern.isCodePoints() ? doIndexOfCodePointSequence(text, scope, pattern.points(), n)
                                  : doIndexOfCodeUnitSequence(text, scope, pattern.units(), n);
}

unsigned UString::lastIndexOf(unsigned start, unsigned extent,
                              const UStringPattern& pattern) const {
    const View text(data_, length());
    const Scope scope = scopeOf(text, start, extent);
    const unsigned n = pattern.length();
    if (n == 0) {
        return scope.end;
    }
    return pattern.isCodePoints()
               ? doReverseIndexOfCodePointSequence(text, scope, pattern.points(), n)
               : doReverseIndexOfCodeUnitSequence(text, scope, pattern.units(), n);
}

unsigned UString::indexOfAny(unsigned start, unsigned extent, const UStringPattern& pattern) const {
    const View text(data_, length());
    const Scope scope = scopeOf(text, start, extent);
    const unsigned n = pattern.length();
    return pattern.isCodePoints() ? doIndexOfCodePointSet(text, scope, pattern.points(), n)
                                  : doIndexOfCodeUnitSet(text, scope, pattern.units(), n);
}

unsigned UString::lastIndexOfAny(unsigned start, unsigned extent,
                                 const UStringPattern& pattern) const {
    const View text(data_, length());
    const Scope scope = scopeOf(text, start, extent);
    const unsigned n = pattern.length();
    return pattern.isCodePoints() ? doReverseIndexOfCodePointSet(text, scope, pattern.points(), n)
                                  : doReverseIndexOfCodeUnitSet(text, scope, pattern.units(), n);
}

unsigned UString::skipLeading(UChar32 cp) const noexcept {
    const View text(data_, length());
    unsigned pos = 0;
    while (pos < text.size() && codePointAt(text, pos).value == cp) {
        pos += unitCount(cp);
    }
    return pos;
}

unsigned UString::skipTrailing(UChar32 cp) const noexcept {
    const View text(data_, length());
    unsigned pos = length();
    while (pos > 0 && codePointBefore(text, pos).value == cp) {
        pos -= unitCount(cp);
    }
    return pos;
}

}  // namespace nolk
