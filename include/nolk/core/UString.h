/** @file
 * The library's Unicode string.
 */
#ifndef NOLK_CORE_USTRING_H
#define NOLK_CORE_USTRING_H

#include <nolk/core/Export.h>
#include <nolk/core/Types.h>
#include <nolk/core/UStringByteSource.h>
#include <nolk/core/UStringCounter.h>
#include <nolk/core/UStringDeallocator.h>
#include <nolk/core/UStringReference.h>
#include <nolk/core/UStringRun.h>

#include <concepts>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace nolk {

class UConstSubString;
class UStringConstIterator;
class UStringIterator;
class USubString;

/**
 * A string of UTF-16 code units.
 *
 *     UString city("Z\xC3\xBCrich");             // narrow text is UTF-8, in and out
 *     city.append(0x1F600UL, 1);                 // a code point: two units here
 *     unsigned at = city.index(0x1F600UL);       // 6, a position in units
 *     city.replace(at, 2, UString("!"));
 *     std::string text = city.toUtf8();
 *
 * Operations come twice over: arguments of type UChar are code units, arguments of type UChar32
 * code points, where a supplementary one matches or makes a whole surrogate pair. Positions,
 * extents and lengths count units from 0, and `npos` is no position. A text argument has one of the
 * forms of UStringRun; literals of `char32_t`, and of `wchar_t` where that is as wide, convert to a
 * UString, as narrow ones do. Ranges that reach behind the end are cut off there, and pointers may
 * point into the string itself. Nothing checks that surrogates come in pairs.
 *
 * Up to 7 units are kept in the object. Longer ones stand in a counted buffer, which copies share
 * and which is never written to: each change builds a new one with room for n + n / 4 + 65 units. A
 * borrowed buffer belongs to the caller and is left at the first change.
 *
 * A value. Copies may be used by different threads; one object may not while one of them writes,
 * and asking a string of unknown length for it writes too. Operations throw std::bad_alloc, or
 * OutOfBoundsException for a text beyond max_size(), or ConversionException for a code point
 * beyond 0x10FFFF that is to be put in; the string then is as it was.
 */
class NOLK_API UString {
public:
    using Counter = UStringCounter;
    using Deallocator = UStringDeallocator;
    using StaticDeallocator = UStringStaticDeallocator;
    using ByteSource = UStringByteSource;
    using UCharReference = UStringReference;
    using View = std::basic_string_view<UChar>;

    /** How long the caller keeps the units that a pointer leads to. */
    enum Duration {
        temporary,  ///< no longer than the call: they are copied
        persistent  ///< longer than this string and its copies, unchanged: they are borrowed
    };

    static constexpr unsigned npos = ~0u;

    /** @name Make
     *  @{ */
    UString() noexcept : data_(short_) {}
    UString(const UString& other) noexcept : counter_(other.counter_) { copyFields(other); }
    /** Leaves `other` empty. */
    UString(UString&& other) noexcept : counter_(other.counter_) { takeFields(other); }
    ~UString() { dropCounter(); }

    /** Of a terminated text. A persistent one isn't measured before its length is needed. */
    UString(const UChar* s, Duration d = temporary);
    /** Of `n` units, or of a terminated text if `n` is `npos`. */
    UString(const UChar* s, unsigned n, Duration d = temporary);
    /** The same, with room for `capacity` units, or for the text if that is less. */
    UString(const UChar* s, unsigned n, unsigned capacity);
    UString(const UChar32* s) : UString(s, npos) {}
    UString(const UChar32* s, unsigned n);
    UString(UChar c, unsigned n);
    UString(UChar32 c, unsigned n);
    /** Empty, with room for `capacity` units. */
    explicit UString(const unsigned& capacity);

    /**
     * Adopts a buffer, which is given to `d` once no string has it any more, or if this throws. The
     * length is up to the first zero unit unless it is given; so is the capacity. Where the length
     * is below the capacity a zero unit must end the text.
     */
    UString(UChar* buffer, Deallocator* d) : UString(buffer, npos, npos, d) {}
    UString(UChar* buffer, unsigned n, Deallocator* d) : UString(buffer, n, n, d) {}
    UString(UChar* buffer, unsigned n, unsigned capacity, Deallocator* d);

    /** Of UTF-8, zero bytes included. @throws ConversionException if it isn't well-formed */
    UString(const char* s) : UString() { initFromUtf8(s, byteLength(s)); }
    UString(const char* s, unsigned n) : UString() { initFromUtf8(s, n); }
    UString(const std::string& s) : UString(std::string_view(s)) {}
    UString(std::string_view s) : UString() { initFromUtf8(s.data(), checkedLength(s.size())); }

    UString(View text) : UString(text.data(), checkedLength(text.size())) {}
    UString(const USubString& part);
    UString(const UConstSubString& part);

    /** Of code points; always a copy. */
    template <Utf32Character Character>
    UString(const Character* s, Duration = temporary) : UString() {
        initFromUtf32(s, npos);
    }
    template <Utf32Character Character>
    UString(const Character* s, unsigned n, Duration = temporary) : UString() {
        initFromUtf32(s, n);
    }
    /** @} */

    /** @name Assign
     *  Strings of one counted buffer leave each other alone.
     *  @{ */
    UString& operator=(const UString& other) noexcept;
    UString& operator=(UString&& other) noexcept;
    UString& operator=(const UChar* s) { return *this = UString(s); }
    UString& operator=(const UChar32* s) { return *this = UString(s); }
    UString& operator=(UChar c) { return *this = UString(c, 1); }
    UString& operator=(UChar32 c) { return *this = UString(c, 1); }
    void swap(UString& other) noexcept;
    /** @} */

    /** @name Size
     *  @{ */
    unsigned length() const noexcept { return counter_ ? counter_->length() : ownLength(); }
    unsigned size() const noexcept { return length(); }
    unsigned codePointLength() const noexcept { return codePointLength(data_, length()); }
    bool empty() const noexcept { return length() == 0; }
    /** The same as empty(). */
    bool isNull() const noexcept { return empty(); }
    static constexpr unsigned max_size() noexcept { return 4294967243; }

    /** The units that there is room for, the terminator included; 0 for a borrowed buffer. */
    unsigned capacity() const noexcept;
    /** Moves the text to a buffer of exactly `n` units, or as many as the text needs if that is
     * more; up to 8 into the object. @return the new capacity */
    unsigned capacity(unsigned n);
    /** @} */

    /** @name Read
     *  @{ */
    /** The units, with a zero unit behind them unless a buffer given by the caller has none. Valid
     * until the string changes. */
    const UChar* data() const noexcept { return data_; }
    const UChar* begin() const noexcept { return data_; }
    const UChar* end() const noexcept { return data_ + length(); }
    View view() const& noexcept { return View(data_, length()); }
    View view() const&& = delete;

    /** The unit at `i`, for UStringReference to tell reads from writes where the string may be
     * written to. @throws OutOfBoundsException at or behind the end, or below 0 */
    UChar operator[](unsigned i) const { return data_[boundsCheckIndex(i)]; }
    UCharReference operator[](unsigned i) { return UCharReference(*this, boundsCheckIndex(i)); }
    template <std::integral Index>
    UChar operator[](Index i) const {
        return data_[boundsCheckIndex(wideIndex(i))];
    }
    template <std::integral Index>
    UCharReference operator[](Index i) {
        return UCharReference(*this, boundsCheckIndex(wideIndex(i)));
    }

    /** The same without a check. @pre `i` is below length() */
    UChar operator()(unsigned i) const noexcept { return data_[i]; }
    UCharReference operator()(unsigned i) noexcept { return UCharReference(*this, i); }

    /** A view of a range. @throws OutOfBoundsException if it doesn't lie in the string */
    UConstSubString operator()(unsigned start, unsigned extent) const;
    USubString operator()(unsigned start, unsigned extent);

    UStringConstIterator beginCodePointIterator() const;
    UStringConstIterator endCodePointIterator() const;
    UStringIterator beginCodePointIterator();
    UStringIterator endCodePointIterator();

    /** UTF-8 of the first `n` code points; a lone surrogate is encoded by its own value. */
    std::string toUtf8(unsigned n = npos) const;
    /** A copy with each "\u" and its four hexadecimal digits replaced by that unit, and each other
     * backslash dropped before the unit that it escapes.
     * @throws ConversionException for an escape that isn't complete */
    UString unescape() const;
    /** A 32-bit hash of the units, the same on every platform. */
    unsigned hash() const noexcept;
    /** @} */

    /**
     * @name Search
     * Each takes a pattern, and before it where to look for it:
     *
     *     s.index(pattern...)    s.index(start, pattern...)    s.index(start, extent, pattern...)
     *
     * The pattern is a UString, a range of one (`text, start, extent`), a pointer to units or
     * code points without or with their number, one unit or one code point. The whole find must lie
     * in the range. A code point never matches half of a pair, only a surrogate that stands alone.
     * An empty sequence is found at the start of the range, or at its end going backward; in an
     * empty set there is nothing to find. The result is a position in the string, or `npos`.
     *  @{ */
    /** The first place of a sequence. */
    template <typename... Arguments>
    unsigned index(const Arguments&... arguments) const requires
        UStringQueryArguments<Arguments...> {
        return UStringQuery::run(*this, &UString::indexOf, arguments...);
    }
    /** The last place of a sequence. */
    template <typename... Arguments>
    unsigned rindex(const Arguments&... arguments) const requires
        UStringQueryArguments<Arguments...> {
        return UStringQuery::run(*this, &UString::lastIndexOf, arguments...);
    }
    /** The first place of any element of a set. */
    template <typename... Arguments>
    unsigned first(const Arguments&... arguments) const requires
        UStringQueryArguments<Arguments...> {
        return UStringQuery::run(*this, &UString::indexOfAny, arguments...);
    }
    /** The last place of any element of a set. */
    template <typename... Arguments>
    unsigned last(const Arguments&... arguments) const requires
        UStringQueryArguments<Arguments...> {
        return UStringQuery::run(*this, &UString::lastIndexOfAny, arguments...);
    }
    /** Whether a sequence has a place. */
    template <typename... Arguments>
    bool contains(const Arguments&... arguments) const requires
        UStringQueryArguments<Arguments...> {
        return UStringQuery::run(*this, &UString::indexOf, arguments...) != npos;
    }

    /** The first position not in the leading run of `cp`. */
    unsigned skipLeading(UChar32 cp) const noexcept;
    /** The position behind the last unit not in the trailing run of `cp`. */
    unsigned skipTrailing(UChar32 cp) const noexcept;
    /** @} */

    /**
     * @name Compare
     * The result is below, equal to or above 0 as this string sorts before, with or behind the
     * other: the difference of the first two units that differ, or of where they sort, or -1 or 1
     * where one string begins with the other. By code points, supplementary characters sort behind
     * all others; by code units they sort with the surrogates. compareTo() goes by code units for
     * UTF-16 and by code points for UTF-32.
     *  @{ */
    int compareCodeUnits(const UString& s) const noexcept;
    int compareCodeUnits(const UString& s, unsigned start, unsigned extent) const noexcept;
    int compareCodeUnits(const UChar* s) const noexcept { return compareCodeUnits(s, npos); }
    int compareCodeUnits(const UChar* s, unsigned n) const noexcept;

    int compareCodePoints(const UString& s) const noexcept;
    int compareCodePoints(const UString& s, unsigned start, unsigned extent) const noexcept;
    int compareCodePoints(const UChar* s) const noexcept { return compareCodePoints(s, npos); }
    int compareCodePoints(const UChar* s, unsigned n) const noexcept;
    int compareCodePoints(const UChar32* s) const noexcept { return compareCodePoints(s, npos); }
    int compareCodePoints(const UChar32* s, unsigned n) const noexcept;

    int compareTo(const UString& s) const noexcept { return compareCodeUnits(s); }
    int compareTo(const UString& s, unsigned start, unsigned extent) const noexcept {
        return compareCodeUnits(s, start, extent);
    }
    int compareTo(const UChar* s) const noexcept { return compareCodeUnits(s); }
    int compareTo(const UChar* s, unsigned n) const noexcept { return compareCodeUnits(s, n); }
    int compareTo(const UChar32* s) const noexcept { return compareCodePoints(s); }
    int compareTo(const UChar32* s, unsigned n) const noexcept { return compareCodePoints(s, n); }

    static int compareCodeUnits(View a, View b) noexcept;
    static int compareCodePoints(View a, View b) noexcept;
    static int compareCodePoints(View a, const UChar32* b, unsigned n = npos) noexcept;

    /** Whether both show the same units: where they share a buffer, whatever their lengths, or else
     * where these and the units are the same. Unlike `==`, it takes a borrowed text for its own
     * beginning. */
    bool equals(const UString& s) const noexcept;
    /** @} */

    /**
     * @name Change
     * Each takes what UStringSource is made of: a UString, a range of one (`text, start, extent`),
     * a USubString or UConstSubString, a pointer to units or code points without or with their
     * number, or a unit or code point and how often to put it. A position behind the end means the
     * end.
     *  @{ */
    template <typename... Source>
    UString& append(const Source&... source) requires UStringSourceArguments<Source...> {
        return replaceBy(length(), 0, UStringSource(source...));
    }
    template <typename... Source>
    UString& prepend(const Source&... source) requires UStringSourceArguments<Source...> {
        return replaceBy(0, 0, UStringSource(source...));
    }
    template <typename... Source>
    UString& insert(unsigned pos,
                    const Source&... source) requires UStringSourceArguments<Source...> {
        return replaceBy(pos, 0, UStringSource(source...));
    }
    template <typename... Source>
    UString& replace(unsigned pos, unsigned n,
                     const Source&... source) requires UStringSourceArguments<Source...> {
        return replaceBy(pos, n, UStringSource(source...));
    }

    UString& operator+=(const UString& s) { return append(s); }
    UString& operator+=(const USubString& s) { return append(s); }
    UString& operator+=(const UConstSubString& s) { return append(s); }
    UString& operator+=(const UChar* s) { return append(s); }
    UString& operator+=(const UChar32* s) { return append(s); }
    UString& operator+=(UChar c) { return append(c, 1); }
    UString& operator+=(UChar32 c) { return append(c, 1); }

    /** Takes out `n` units, or all to the end. */
    UString& remove(unsigned pos, unsigned n = npos);

    /** Cuts off or fills up with `c`, to `n` units. */
    UString& resize(unsigned n, UChar c);
    /** The same, to `n` code points. */
    UString& resize(unsigned n, UChar32 c);
    /** @} */

    /** @name Units and code points
     *  A pointer without a number leads to a terminated text; a null one to an empty text.
     *  @{ */
    static unsigned codeUnitLength(const UChar* s) noexcept;
    static unsigned codeUnitLength(const UChar32* s) noexcept;
    static unsigned codeUnitLength(const UChar32* s, unsigned n) noexcept;
    static unsigned codePointLength(const UChar* s) noexcept;
    static unsigned codePointLength(const UChar* s, unsigned n) noexcept;
    static unsigned codePointLength(const UChar32* s) noexcept;

    static constexpr UChar32 computeCodePointValue(UChar high, UChar low) noexcept {
        return std::uint32_t{high} * 1024 + std::uint32_t{low} - 0x35FDC00;
    }
    static constexpr UChar highSurrogate(UChar32 cp) noexcept { return UChar((cp >> 10) + 0xD7C0); }
    static constexpr UChar lowSurrogate(UChar32 cp) noexcept {
        return UChar((cp & 0x3FF) | 0xDC00);
    }
    /** Of a code unit: only the lower 16 bits are looked at. */
    static constexpr bool isHighSurrogate(UChar32 u) noexcept { return (u & 0xFC00) == 0xD800; }
    static constexpr bool isLowSurrogate(UChar32 u) noexcept { return (u & 0xFC00) == 0xDC00; }
    static constexpr bool requiresSurrogatePair(UChar32 cp) noexcept { return cp > 0xFFFF; }
    /** Whether `cp` is a code point, and neither a surrogate nor a noncharacter. */
    static constexpr bool isUnicodeCharacter(UChar32 cp) noexcept {
        return cp < 0xD800 || (cp >= 0xE000 && cp <= 0x10FFFF && (cp & 0xFFFE) != 0xFFFE &&
                               (cp < 0xFDD0 || cp > 0xFDEF));
    }
    /** Returns `cp`. @throws ConversionException unless isUnicodeCharacter(cp) */
    static UChar32 validateCodePoint(UChar32 cp);

    /** Decodes one code point of UTF-8, strictly. @return false at the end of the source
     * @param consumed counts the bytes taken on from its value @throws ConversionException */
    static bool getCodePointFromUtf8Source(ByteSource& source, UChar32& codePoint,
                                           unsigned& consumed);
    /** @} */

    /** @name Checks
     *  The argument given back. @throws OutOfBoundsException
     *  @{ */
    unsigned boundsCheckIndex(std::uint64_t i) const {
        return i < length() ? unsigned(i) : (reportBoundsCheckFailure(i, length()), 0);
    }
    void boundsCheckLength(unsigned start, unsigned extent) const;
    [[noreturn]] static void reportBoundsCheckFailure(std::uint64_t i, unsigned length);
    /** @} */

private:
    friend class USubString;

    static constexpr unsigned shortCapacity = 8;

    // Widened with its sign, so that -1 of any type lies behind every end, and is reported as -1.
    template <std::integral Index>
    static std::uint64_t wideIndex(Index i) {
        return static_cast<std::uint64_t>(static_cast<long long>(i));
    }
    static unsigned byteLength(const char* s) { return s ? checkedLength(std::strlen(s)) : 0; }
    static unsigned checkedLength(std::uint64_t n);
    static unsigned checkedCapacity(unsigned n);
    static unsigned capacityFor(unsigned n) noexcept;

    bool isShort() const noexcept { return data_ == short_; }
    bool isCounted() const noexcept { return counter_ != nullptr; }
    bool requiresCopyOnWrite() const noexcept;
    unsigned ownLength() const noexcept { return length_ != npos ? length_ : measuredLength(); }
    unsigned measuredLength() const noexcept;

    // Making and taking on. The short form wants its units written; a buffer brings its own.
    void copyFields(const UString& other) noexcept;
    void takeFields(UString& other) noexcept;
    void takeUnits(const UString& other) noexcept;
    void dropCounter() noexcept {
        if (counter_ != nullptr) {
            counter_->removeReference();
        }
    }
    void attach(Counter* counter) noexcept;
    UChar* becomeShort(unsigned length) noexcept;
    void setLength(unsigned n) noexcept;
    // Of an empty short string: makes room, sets length and terminator, and returns where the units
    // are to be written. One allocation from 8 units on. Throws bad_alloc.
    UChar* init(unsigned length);
    UChar* init(unsigned length, unsigned capacity);
    void initFromUtf8(const char* s, unsigned n);
    void initFromUtf32(const char32_t* s, unsigned n);
    void initFromUtf32(const wchar_t* s, unsigned n);
    UChar32* toUtf32(UChar32* out) const;

    // Searches. Scopes are clamped to the string.
    unsigned indexOf(unsigned start, unsigned extent, const UStringPattern& pattern) const;
    unsigned lastIndexOf(unsigned start, unsigned extent, const UStringPattern& pattern) const;
    unsigned indexOfAny(unsigned start, unsigned extent, const UStringPattern& pattern) const;
    unsigned lastIndexOfAny(unsigned start, unsigned extent, const UStringPattern& pattern) const;

    // Changes. Positions are clamped by replaceBy(); the units of the gap are to be written, from a
    // source that may stand in the buffer that was left.
    class LeftBuffer;
    UString& replaceBy(unsigned pos, unsigned n, const UStringSource& source);
    void doReplace(unsigned pos, unsigned n, const UChar* source, unsigned sourceLength);
    void doReplace(unsigned pos, unsigned n, const UChar32* source, unsigned sourceLength);
    void doReplace(unsigned pos, unsigned n, UChar c, unsigned count);
    void doReplace(unsigned pos, unsigned n, UChar32 c, unsigned count);
    template <typename Point>
    void replaceByPoints(unsigned pos, unsigned n, const Point* source, unsigned sourceLength);
    UChar* doMakeSpace(unsigned pos, unsigned removeCount, unsigned insertCount, LeftBuffer& left);

    UChar* data_;
    Counter* counter_ = nullptr;
    UChar short_[shortCapacity] = {};
    mutable std::uint32_t length_ = 0;  // of the short and borrowed forms; npos: not yet measured
    std::uint32_t capacity_ = 0;        // of a borrowed buffer; 0: not to be written
};

}  // namespace nolk

// The views and iterators that a string gives, and what is said about strings in general.
#include <nolk/core/UConstSubString.h>
#include <nolk/core/UStringConstIterator.h>
#include <nolk/core/UStringIterator.h>
#include <nolk/core/UStringOperators.h>
#include <nolk/core/USubString.h>

#endif
