/** @file
 * The byte string.
 */
#ifndef NOLK_CORE_CSTRING_H
#define NOLK_CORE_CSTRING_H

#include <nolk/core/CStringRef.h>
#include <nolk/core/Export.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace nolk {

class CSubString;

/**
 * A sequence of `char` in the process's multibyte encoding, cheap to copy.
 *
 * A value. Texts of up to 63 bytes live in the object itself; longer ones on the heap, where copies
 * share them until one is written to. Zero bytes are bytes like any other: the length counts, and a
 * terminator follows that isn't part of it.
 *
 *     CString line("  total: 12 ");
 *     line.insert(2, "grand ");
 *     CString text(line.stripWhitespace(CString::both));  // "grand total: 12"
 *     text.index("total");                                // 6
 *
 * Positions are unsigned and counted in bytes; `npos`, all bits set, is none. Arguments behind a
 * position, a length or a count are cut to what is there. A null pointer is taken for an empty
 * text. A `char&` into the string, its `data()` and its `view()` stay good until it is changed,
 * copied or destroyed.
 *
 * Copies may be made, read and dropped in any thread; one object is not for two threads when one of
 * them writes. Everything that needs a new buffer throws std::bad_alloc, or std::length_error for
 * a text beyond 4 GiB - 2 bytes, and then leaves the string as it was.
 */
class NOLK_API CString {
public:
    static const unsigned npos = static_cast<unsigned>(-1);

    /** How bytes are compared. Letters and their cases are those of the current C locale. */
    enum caseCompare {
        exact,            ///< As they are.
        ignoreCase,       ///< Both through `tolower`.
        ignoreCaseStrict  ///< Both through `tolower` where both are letters by `isalpha`.
    };

    /** Which ends are stripped; a bit each. */
    enum stripType { leading = 1, trailing = 2, both = leading | trailing };

    /** @name Making @{ */
    CString() noexcept { beginInline(0); }
    /** Empty, with room for at least this many bytes. */
    explicit CString(unsigned capacity) { begin(capacity, nullptr, 0); }
    template <std::integral Integer>
    explicit CString(Integer capacity)
        : CString(checkedLength(static_cast<std::uint64_t>(capacity))) {}
    explicit CString(char) = delete;  // would be taken for a capacity
    CString(const char* text) : CString(text, lengthOf(text)) {}
    /** n bytes, zero bytes among them. */
    CString(const char* text, unsigned n) { begin(n, text, text == nullptr ? 0 : n); }
    /** n times c. */
    CString(char c, unsigned n);
    CString(const std::string& text) : CString(text.data(), checkedLength(text.size())) {}
    explicit CString(std::string_view text) : CString(text.data(), checkedLength(text.size())) {}
    /** A null substring gives an empty text. */
    CString(const CSubString& text);
    /** Shares a buffer on the heap. */
    CString(const CString& other) noexcept { beginAs(other); }
    /** Leaves `other` empty. */
    CString(CString&& other) noexcept { beginWith(other); }
    ~CString() { releaseHeap(); }

    CString& operator=(const CString& other) noexcept;
    CString& operator=(CString&& other) noexcept;
    /** The text may lie in this string. */
    CString& operator=(const char* text);

    /** A copy that shares nothing. */
    CString copy() const { return CString(data_, length()); }
    /** @} */

    /** @name Reading @{ */
    unsigned length() const noexcept { return ref()->length_; }
    /** The number of bytes there is room for; 64 in the object itself. */
    unsigned capacity() const noexcept { return ref()->capacity_; }
    /** Terminated, never null. */
    const char* data() const noexcept { return data_; }
    std::string_view view() const noexcept { return {data_, length()}; }
    operator std::string() const { return std::string(data_, length()); }
    /** Whether the length is 0. */
    bool isNull() const noexcept { return length() == 0; }
    /** Whether no byte has its top bit set. */
    bool isAscii() const noexcept;
    /** The number of multibyte characters; `npos` if it isn't a text of such. */
    unsigned mbLength() const { return mbLength(data_, length()); }
    /** A hash of the bytes, or in the other modes of their upper case: two different functions. Its
     * values are the same everywhere; an empty text gives 0. */
    unsigned hash(caseCompare mode = exact) const noexcept;
    static unsigned hash(const CString& text) noexcept { return text.hash(); }
    /** `strcoll`: negative, 0 or positive. Looks at nothing behind a zero byte. */
    int collate(const char* text) const noexcept;
    int collate(const CString& text) const noexcept { return collate(text.data_); }
    /** @} */

    /** @name Bytes
     * The parentheses check nothing, the brackets throw OutOfBoundsException unless the index is
     * less than the length. What is not const makes the buffer private first. @{ */
    /** @pre i <= length(), where the terminator stands; when writing i < length() */
    char operator()(unsigned i) const noexcept { return data_[i]; }
    char& operator()(unsigned i) { return cow(), data_[i]; }
    char operator[](int i) const { return data_[assertElement(i)]; }
    char& operator[](int i) { return (*this)(assertElement(i)); }
    template <std::integral Integer>
    char operator[](Integer i) const {
        return data_[assertElement(static_cast<std::int64_t>(i))];
    }
    template <std::integral Integer>
    char& operator[](Integer i) {
        return (*this)(assertElement(static_cast<std::int64_t>(i)));
    }
    /** Gives the index if it is less than the length, else throws OutOfBoundsException. */
    unsigned assertElement(std::int64_t i) const {
        if (static_cast<std::uint64_t>(i) >= length()) {
            refuseElement(i, length());
        }
        return static_cast<unsigned>(i);
    }
    /** @} */

    /** @name Searching
     * All give `npos` if nothing is found. @{ */
    /** The first and the last byte equal to c; a number behind it has no effect. */
    unsigned first(char c) const noexcept { return ref()->first(c); }
    unsigned first(char c, unsigned) const noexcept { return first(c); }
    unsigned last(char c) const noexcept { return ref()->last(c); }
    unsigned last(char c, unsigned) const noexcept { return last(c); }
    /** The first byte that is one of the set, a terminated text or n bytes. */
    unsigned first(const char* set) const noexcept;
    unsigned first(const char* set, unsigned n) const noexcept;

    /** The first match at or behind `start`. An empty pattern matches at once, up to the end. */
    unsigned index(char c, unsigned start = 0, caseCompare mode = exact) const noexcept {
        return indexSpecial(&c, 1, start, mode);
    }
    unsigned index(const char* pattern, unsigned start = 0,
                   caseCompare mode = exact) const noexcept {
        return indexSpecial(pattern, lengthWithin(pattern), start, mode);
    }
    unsigned index(const char* pattern, unsigned patternLength, unsigned start,
                   caseCompare mode = exact) const noexcept {
        return indexSpecial(pattern, pattern == nullptr ? 0 : patternLength, start, mode);
    }
    unsigned index(const CString& pattern, unsigned start = 0,
                   caseCompare mode = exact) const noexcept {
        return indexSpecial(pattern.data_, pattern.length(), start, mode);
    }
    unsigned index(const CString& pattern, unsigned patternLength, unsigned start,
                   caseCompare mode = exact) const noexcept {
        const unsigned n = pattern.length();
        return indexSpecial(pattern.data_, patternLength < n ? patternLength : n, start, mode);
    }

    bool contains(const CString& pattern, caseCompare mode = exact) const noexcept {
        return index(pattern, 0, mode) != npos;
    }
    bool contains(const char* pattern, caseCompare mode = exact) const noexcept {
        return index(pattern, 0, mode) != npos;
    }

    /** The first match as a substring, or a null one. */
    CSubString subString(const char* pattern, unsigned start = 0, caseCompare mode = exact);
    const CSubString subString(const char* pattern, unsigned start = 0,
                               caseCompare mode = exact) const;
    /** @} */

    /** -1, 0 or 1. Bytes from 0x80 on are negative in every mode, and so come before ASCII. */
    int compareTo(const CString& other, caseCompare mode = exact) const noexcept {
        return mode == exact ? compareExact(other)
                             : compareFolded(other.data_, other.length(), mode);
    }
    int compareTo(const char* other, caseCompare mode = exact) const noexcept {
        return mode == exact ? compareExact(other, lengthWithin(other))
                             : compareFolded(other, lengthWithin(other), mode);
    }

    /** @name Parts
     * The part follows the string: see CSubString. @{ */
    /** No check; at the start `npos` the null substring. */
    CSubString operator()(unsigned start, unsigned n);
    const CSubString operator()(unsigned start, unsigned n) const;
    /** What is left without the runs of c, or of `isspace` bytes, at the ends given; the null
     * substring if that is nothing. */
    CSubString strip(stripType ends, char c);
    const CSubString strip(stripType ends, char c) const;
    CSubString stripWhitespace(stripType ends);
    const CSubString stripWhitespace(stripType ends) const;
    /** @} */

    /** @name Changing
     * What is put in may lie in this string. A position beyond the end is the end; of a CString at
     * most its length is taken. @{ */
    CString& append(char c, unsigned n);
    CString& append(const char* text) { return append(text, lengthOf(text)); }
    CString& append(const char* text, unsigned n) {
        return canAppendInPlace(text, n) ? appendInPlace(text, n) : appendInNewBuffer(text, n);
    }
    CString& append(const CString& text) { return append(text.data_, text.length()); }
    CString& append(const CString& text, unsigned n) {
        return append(text.data_, n < text.length() ? n : text.length());
    }
    CString& operator+=(char c) { return append(c, 1); }
    CString& operator+=(const char* text) { return append(text); }
    CString& operator+=(const CString& text) { return append(text); }

    CString& prepend(char c, unsigned n);
    CString& prepend(const char* text) { return insert(0, text); }
    CString& prepend(const char* text, unsigned n) { return insert(0, text, n); }
    CString& prepend(const CString& text) { return insert(0, text); }
    CString& prepend(const CString& text, unsigned n) { return insert(0, text, n); }

    CString& insert(unsigned pos, const char* text);
    CString& insert(unsigned pos, const char* text, unsigned n);
    CString& insert(unsigned pos, const CString& text);
    CString& insert(unsigned pos, const CString& text, unsigned n);

    /** To the end, or n bytes. */
    CString& remove(unsigned pos) { return remove(pos, npos); }
    CString& remove(unsigned pos, unsigned n) { return replace(pos, n, nullptr, 0); }

    /** Puts the text in the place of n bytes. Gets a new buffer, with room for the old length, if
     * the text would become shorter and leave more than `maxWaste` bytes unused. */
    CString& replace(unsigned pos, unsigned n, const char* text);
    CString& replace(unsigned pos, unsigned n, const char* text, unsigned textLength);
    CString& replace(unsigned pos, unsigned n, const CString& text);
    CString& replace(unsigned pos, unsigned n, const CString& text, unsigned textLength);

    /** Cuts, or fills up with spaces. */
    void resize(unsigned n);
    /** Makes room for n bytes, or gives room back, and returns the capacity. Nothing happens below
     * the length, nor for less room in a buffer that isn't shared. */
    unsigned capacity(unsigned n);
    /** Byte by byte, with the current C locale. */
    void toLower();
    void toUpper();
    /** @} */

    /** @name Multibyte characters
     * With `mblen` in the current C locale; `npos` as soon as that fails. @{ */
    /** The characters in n bytes, or up to the terminator if n is `npos`. A zero byte is one. */
    static unsigned mbLength(const char* text, unsigned n);
    /** The bytes of n characters, or up to the terminator. @pre there are n characters */
    static unsigned byteCount(const char* text, unsigned n);
    /** @} */

    /** @name Settings
     * Of the whole process and not synchronised. Setting gives the old value. Derived classes use
     * the first two through adjustCapacity(): 15 and 16 unless set; replace() the third: 15. @{ */
    static unsigned initialCapacity(unsigned n) noexcept;
    static unsigned resizeIncrement(unsigned n) noexcept;
    static unsigned maxWaste(unsigned n) noexcept;
    static unsigned getInitialCapacity() noexcept;
    static unsigned getResizeIncrement() noexcept;
    static unsigned getMaxWaste() noexcept;
    /** @} */

    /** Always throws OutOfBoundsException, for those who check substrings. */
    [[noreturn]] static void subStringError(unsigned length, unsigned start, unsigned extent);

protected:
    /** The two texts, one behind the other. */
    CString(const char* a, unsigned an, const char* b, unsigned bn);

    /** n, rounded up to `initialCapacity` and then by steps of `resizeIncrement`. */
    static unsigned adjustCapacity(unsigned n) noexcept;

    /** Make the buffer private; with n also of at least that capacity, else cut to n bytes. */
    void cow() {
        if (isShared()) {
            clone();
        }
    }
    void cow(unsigned n);
    void clone();
    void clone(unsigned n);
    /** Empties the string, and makes its buffer private and of at least this capacity. */
    void clobber(unsigned n);

private:
    friend class CSubString;
    friend NOLK_API CString operator+(const CString&, const CString&);
    friend NOLK_API CString operator+(const CString&, const char*);
    friend NOLK_API CString operator+(const char*, const CString&);
    friend NOLK_API CString operator+(const CString&, char);
    friend NOLK_API CString operator+(char, const CString&);
    static constexpr unsigned inlineCapacity = 64;

    // The small buffer: laid out as one on the heap, never shared, its count without meaning.
    struct InlineBuffer {
        InlineBuffer() noexcept : header() {}
        CStringRef header;
        char text[inlineCapacity + 1];
    };

    CStringRef* ref() const noexcept {
        return reinterpret_cast<CStringRef*>(data_ - sizeof(CStringRef));
    }
    char* inlineText() const noexcept {
        return reinterpret_cast<char*>(const_cast<InlineBuffer*>(&inline_)) + sizeof(CStringRef);
    }
    bool isInline() const noexcept { return data_ == inlineText(); }
    bool isShared() const noexcept { return !isInline() && ref()->isShared(); }

    static unsigned checkedLength(std::uint64_t n) {
        if (n >= npos) {
            refuseLength();
        }
        return static_cast<unsigned>(n);
    }
    static unsigned lengthOf(const char* text) {
        return text == nullptr ? 0 : checkedLength(std::strlen(text));
    }
    // Where more than a string can hold means no more than that it differs from one.
    static unsigned lengthWithin(const char* text) noexcept {
        const std::size_t n = text == nullptr ? 0 : std::strlen(text);
        return n < npos ? static_cast<unsigned>(n) : npos;
    }
    [[noreturn]] static void refuseLength();
    [[noreturn]] static void refuseElement(std::int64_t i, unsigned length);

    void setLength(unsigned n) noexcept {
        ref()->length_ = n;
        data_[n] = '\0';
    }
    void beginInline(unsigned n) noexcept {
        data_ = inlineText();
        ref()->capacity_ = inlineCapacity;
        setLength(n);
    }
    // Begins in a buffer of the capacity asked for.
    void begin(unsigned requested, const char* text, unsigned n) {
        if (requested >= inlineCapacity) {
            beginOnHeap(requested, text, n);
            return;
        }
        beginInline(n);
        if (n != 0) {
            std::memcpy(data_, text, n);
        }
    }
    void beginOnHeap(unsigned requested, const char* text, unsigned n) {
        data_ = CStringRef::getRep(checkedLength(requested), n)->data();
        if (n != 0) {
            std::memcpy(data_, text, n);
        }
    }
    void beginAs(const CString& other) noexcept {
        if (other.isInline()) {
            copyInline(other);
        } else {
            data_ = other.data_;
            ref()->join();
        }
    }
    void beginWith(CString& other) noexcept {
        if (other.isInline()) {
            copyInline(other);
        } else {
            data_ = other.data_;
        }
        other.beginInline(0);
    }
    void copyInline(const CString& other) noexcept {
        data_ = inlineText();
        inline_ = other.inline_;
    }
    void releaseHeap() noexcept {
        if (!isInline()) {
            release(ref());
        }
    }
    static void release(CStringRef* buffer) noexcept {
        if (buffer->leave()) {
            CStringRef::destroy(buffer);
        }
    }

    // Where replace() would keep the buffer: there is room, and the text is foreign.
    bool canAppendInPlace(const char* text, unsigned n) const noexcept {
        const auto distance =
            reinterpret_cast<std::uintptr_t>(text) - reinterpret_cast<std::uintptr_t>(data_);
        return n <= capacity() - length() && distance > length() && text != nullptr && !isShared();
    }
    CString& appendInPlace(const char* text, unsigned n) noexcept {
        std::memmove(data_ + length(), text, n);
        setLength(length() + n);
        return *this;
    }

    CString& appendInNewBuffer(const char* text, unsigned n);
    void useHeap(char* text) noexcept {
        releaseHeap();
        data_ = text;
    }

    unsigned grownCapacity(unsigned requested) const noexcept;
    void allocBuf(unsigned requested, const char* source, unsigned sourceLength);
    bool canReplaceInPlace(unsigned n, const char* text, unsigned textLength) const noexcept;
    bool pointsInside(const char* text, unsigned textLength) const noexcept;
    void replaceInPlace(unsigned pos, unsigned n, const char* text, unsigned textLength) noexcept;
    void replaceInNewBuffer(unsigned pos, unsigned n, const char* text, unsigned textLength);

    // Here, so that a search for what isn't there ends in the caller.
    unsigned indexSpecial(const char* pattern, unsigned patternLength, unsigned start,
                          caseCompare mode) const noexcept {
        if (length() < std::uint64_t{start} + patternLength) {
            return npos;
        }
        if (patternLength == 0) {
            return start;
        }
        if (mode != exact) {
            return indexFolded(pattern, patternLength, start, mode);
        }
        const std::size_t offsets = std::size_t{length()} - patternLength - start + 1;
        const void* from = std::memchr(data_ + start, *pattern, offsets);
        return from == nullptr ? npos
                               : indexExact(pattern, patternLength, static_cast<const char*>(from));
    }
    unsigned indexExact(const char* pattern, unsigned patternLength,
                        const char* from) const noexcept;
    unsigned indexFolded(const char* pattern, unsigned patternLength, unsigned start,
                         caseCompare mode) const noexcept;
    int compareExact(const CString& other) const noexcept;
    int compareExact(const char* other, unsigned otherLength) const noexcept;
    int compareFolded(const char* other, unsigned otherLength, caseCompare mode) const noexcept;
    CSubString stripped(unsigned start, unsigned end) const;

    char* data_;
    InlineBuffer inline_;
};

}  // namespace nolk

#include <nolk/core/CStringOperators.h>
#include <nolk/core/CSubString.h>

#endif
