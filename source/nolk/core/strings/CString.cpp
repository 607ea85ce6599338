// The buffer of a string is either the small one in the object or one on the heap that copies
// share; data_ points to the characters, and the header is found in front of them:
//
//     small:  data_ ---+              heap:  data_ -----------------+
//             inline_  [64|3|-]abc0...       [200|120|2]xxxxxxxx...0
//
// allocBuf() tells which buffer a capacity gives and how capacities grow. A change builds its new
// buffer completely before it lets the old one go, so that a failed allocation changes nothing and
// the text that is put in may lie in the old buffer.

#include <nolk/core/CString.h>

#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>
#include <nolk/core/OutOfBoundsException.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <limits>
#include <stdexcept>
#include <utility>

#include "nolk/core/strings/ByteCase.h"
#include "nolk/core/strings/ByteSearch.h"
#include "nolk/core/strings/ByteSet.h"

namespace nolk {

namespace {

unsigned initialCapacitySetting = 15;
unsigned resizeIncrementSetting = 16;
unsigned maxWasteSetting = 15;

// memmove and memcpy, for null pointers too where there is nothing to move.
void move(char* to, const char* from, std::size_t n) noexcept {
    if (n != 0) {
        std::memmove(to, from, n);
    }
}

void copyBytes(char* to, const char* from, std::size_t n) noexcept {
    if (n != 0) {
        std::memcpy(to, from, n);
    }
}

// A pair of bytes as the mode wants them compared.
std::pair<char, char> adjusted(char a, char b, CString::caseCompare mode) noexcept {
    const bool folds = mode == CString::ignoreCase ||
                       (mode == CString::ignoreCaseStrict && isLetter(a) && isLetter(b));
    return folds ? std::pair(lower(a), lower(b)) : std::pair(a, b);
}

// The first index below n at which the two differ under a mode other than `exact`.
unsigned findDifferenceFolded(const char* a, const char* b, unsigned n,
                              CString::caseCompare mode) noexcept {
    unsigned i = 0;
    for (; i < n; ++i) {
        const auto [left, right] = adjusted(a[i], b[i], mode);
        if (left != right) {
            break;
        }
    }
    return i;
}

}  // namespace

// Not inline: only a plain constant is exported from a DLL for those who take its address.
const unsigned CString::npos;

// --- Making ---

CString::CString(char c, unsigned n) {
    begin(n, nullptr, 0);
    std::memset(data_, c, n);
    setLength(n);
}

CString::CString(const CSubString& text)
    : CString(text.view().data(), static_cast<unsigned>(text.view().size())) {}

CString::CString(const char* a, unsigned an, const char* b, unsigned bn) {
    const unsigned taken = a == nullptr ? 0 : an;
    const unsigned total = checkedLength(std::uint64_t{taken} + (b == nullptr ? 0 : bn));
    begin(total, nullptr, 0);
    copyBytes(data_, a, taken);
    copyBytes(data_ + taken, b, total - taken);
    setLength(total);
}

CString& CString::operator=(const CString& other) noexcept {
    if (data_ != other.data_) {
        CStringRef* old = isInline() ? nullptr : ref();
        beginAs(other);
        if (old != nullptr) {
            release(old);
        }
    }
    return *this;
}

CString& CString::operator=(CString&& other) noexcept {
    if (this != &other) {
        releaseHeap();
        beginWith(other);
    }
    return *this;
}

CString& CString::operator=(const char* text) {
    const unsigned n = lengthOf(text);
    if (!isShared() && capacity() >= n) {
        move(data_, text, n);
        setLength(n);
    } else {
        allocBuf(n, text, n);
    }
    return *this;
}

// --- Buffers ---

// Doubles, so that appending stays cheap, but never for a request that the buffer would hold.
unsigned CString::grownCapacity(unsigned requested) const noexcept {
    std::uint64_t grown = capacity();
    if (grown >= requested) {
        return requested;
    }
    grown = std::max<std::uint64_t>(grown, inlineCapacity - 1);
    while (grown < requested) {
        grown *= 2;
    }
    return static_cast<unsigned>(std::min<std::uint64_t>(grown, npos - 1));
}

void CString::allocBuf(unsigned requested, const char* source, unsigned sourceLength) {
    const unsigned room = grownCapacity(checkedLength(requested));
    const unsigned taken = source == nullptr ? 0 : sourceLength;
    CStringRef* old = isInline() ? nullptr : ref();
    if (room >= inlineCapacity) {
        char* fresh = CStringRef::getRep(room, taken)->data();
        copyBytes(fresh, source, taken);
        data_ = fresh;
    } else {
        move(inlineText(), source, taken);
        beginInline(taken);
    }
    if (old != nullptr) {
        release(old);
    }
}

void CString::cow(unsigned n) {
    if (isShared() || capacity() < n) {
        allocBuf(n, data_, std::min(n, length()));
    }
}

void CString::clone() {
    if (isShared()) {
        allocBuf(length(), data_, length());
    }
}

void CString::clone(unsigned n) {
    cow(n);
}

void CString::clobber(unsigned n) {
    if (isShared() || capacity() < n) {
        allocBuf(n, nullptr, 0);
    } else {
        setLength(0);
    }
}

unsigned CString::capacity(unsigned n) {
    const bool fits = n < length() || n == capacity() || (!isShared() && n <= capacity());
    if (!fits) {
        allocBuf(n, data_, length());
    }
    return capacity();
}

// --- Reading ---

bool CString::isAscii() const noexcept {
    return hasOnlyAscii(data_, length());
}

unsigned CString::hash(caseCompare mode) const noexcept {
    return mode == exact ? ref()->hash() : ref()->hashFoldCase();
}

int CString::collate(const char* text) const noexcept {
    return ref()->collate(text);
}

// --- Searching ---

unsigned CString::first(const char* set) const noexcept {
    return first(set, lengthWithin(set));
}

unsigned CString::first(const char* set, unsigned n) const noexcept {
    const ByteSet bytes(set == nullptr ? std::string_view() : std::string_view(set, n));
    const std::size_t found = findIn(bytes, view(), 0);
    return found == length() ? npos : static_cast<unsigned>(found);
}

unsigned CString::indexExact(const char* pattern, unsigned patternLength,
                             const char* from) const noexcept {
    static_assert(static_cast<unsigned>(noBytes) == npos);
    // A buffer has room for 65 bytes at least.
    const std::size_t readable = std::size_t{capacity()} + 1;
    return static_cast<unsigned>(findBytes(data_, static_cast<std::size_t>(from - data_), length(),
                                           readable, pattern, patternLength));
}

unsigned CString::indexFolded(const char* pattern, unsigned patternLength, unsigned start,
                              caseCompare mode) const noexcept {
    for (unsigned at = start; at <= length() - patternLength; ++at) {
        if (findDifferenceFolded(data_ + at, pattern, patternLength, mode) == patternLength) {
            return at;
        }
    }
    return npos;
}

CSubString CString::subString(const char* pattern, unsigned start, caseCompare mode) {
    return (*this)(index(pattern, start, mode), lengthWithin(pattern));
}

const CSubString CString::subString(const char* pattern, unsigned start, caseCompare mode) const {
    return (*this)(index(pattern, start, mode), lengthWithin(pattern));
}

// --- Comparing ---

// Buffers have room for 65 bytes at least.
int CString::compareExact(const CString& other) const noexcept {
    return compareRoomyBytes(data_, length(), other.data_, other.length());
}

int CString::compareExact(const char* other, unsigned otherLength) const noexcept {
    return compareBytes(data_, length(), other, otherLength);
}

int CString::compareFolded(const char* other, unsigned otherLength,
                           caseCompare mode) const noexcept {
    const unsigned shorter = std::min(length(), otherLength);
    const unsigned i = findDifferenceFolded(data_, other, shorter, mode);
    if (i == shorter) {
        return orderOfLengths(length(), otherLength);
    }
    const auto [left, right] = adjusted(data_[i], other[i], mode);
    return orderOfBytes(left, right);
}

// --- Parts ---

CSubString CString::operator()(unsigned start, unsigned n) {
    return CSubString(*this, start, n);
}

const CSubString CString::operator()(unsigned start, unsigned n) const {
    return CSubString(*this, start, n);
}

namespace {

// Start and end of what is left when the bytes that match are stripped from the ends told.
template <typename Matches>
std::pair<unsigned, unsigned> withoutEnds(std::string_view text, CString::stripType ends,
                                          const Matches& matches) {
    unsigned start = 0;
    auto end = static_cast<unsigned>(text.size());
    while ((ends & CString::leading) != 0 && start < end && matches(text[start])) {
        ++start;
    }
    while ((ends & CString::trailing) != 0 && start < end && matches(text[end - 1])) {
        --end;
    }
    return {start, end};
}

}  // namespace

CSubString CString::stripped(unsigned start, unsigned end) const {
    return start == end ? CSubString(*this, npos, 0) : CSubString(*this, start, end - start);
}

CSubString CString::strip(stripType ends, char c) {
    return std::as_const(*this).strip(ends, c);
}

const CSubString CString::strip(stripType ends, char c) const {
    const auto [start, end] = withoutEnds(view(), ends, [c](char byte) { return byte == c; });
    return stripped(start, end);
}

CSubString CString::stripWhitespace(stripType ends) {
    return std::as_const(*this).stripWhitespace(ends);
}

const CSubString CString::stripWhitespace(stripType ends) const {
    const auto [start, end] = withoutEnds(view(), ends, isBlank);
    return stripped(start, end);
}

// --- Changing ---

// What replace() does to most texts that are appended, without its other cases.
CString& CString::appendInNewBuffer(const char* text, unsigned n) {
    const unsigned old = length();
    const unsigned now = checkedLength(std::uint64_t{old} + n);
    const unsigned room = grownCapacity(now);
    if (text == nullptr || n == 0 || room < inlineCapacity) {
        return replace(old, 0, text, n);
    }
    char* const fresh = CStringRef::getRep(room, now)->data();
    copyBytes(fresh, data_, old);
    std::memcpy(fresh + old, text, n);
    useHeap(fresh);
    return *this;
}

CString& CString::append(char c, unsigned n) {
    const unsigned old = length();
    const unsigned now = checkedLength(std::uint64_t{old} + n);
    cow(now);
    std::memset(data_ + old, c, n);
    setLength(now);
    return *this;
}

CString& CString::prepend(char c, unsigned n) {
    const unsigned old = length();
    const unsigned now = checkedLength(std::uint64_t{old} + n);
    cow(now);
    std::memmove(data_ + n, data_, old);
    std::memset(data_, c, n);
    setLength(now);
    return *this;
}

CString& CString::insert(unsigned pos, const char* text) {
    return insert(pos, text, lengthOf(text));
}

CString& CString::insert(unsigned pos, const char* text, unsigned n) {
    return replace(pos, 0, text, n);
}

CString& CString::insert(unsigned pos, const CString& text) {
    return insert(pos, text.data_, text.length());
}

CString& CString::insert(unsigned pos, const CString& text, unsigned n) {
    return insert(pos, text.data_, std::min(n, text.length()));
}

CString& CString::replace(unsigned pos, unsigned n, const char* text) {
    return replace(pos, n, text, lengthOf(text));
}

CString& CString::replace(unsigned pos, unsigned n, const CString& text) {
    return replace(pos, n, text.data_, text.length());
}

CString& CString::replace(unsigned pos, unsigned n, const CString& text, unsigned textLength) {
    return replace(pos, n, text.data_, std::min(textLength, text.length()));
}

CString& CString::replace(unsigned pos, unsigned n, const char* text, unsigned textLength) {
    if (text == nullptr) {
        textLength = 0;
    }
    pos = std::min(pos, length());
    n = std::min(n, length() - pos);
    if (canReplaceInPlace(n, text, textLength)) {
        replaceInPlace(pos, n, text, textLength);
    } else {
        replaceInNewBuffer(pos, n, text, textLength);
    }
    return *this;
}

bool CString::canReplaceInPlace(unsigned n, const char* text, unsigned textLength) const noexcept {
    const std::uint64_t now = std::uint64_t{length()} - n + textLength;
    if (isShared() || capacity() < now || pointsInside(text, textLength)) {
        return false;
    }
    const bool wastes = now < length() && capacity() - now > maxWasteSetting;
    // The new buffer of a text below 64 bytes in the object would be the one that it has.
    return !wastes || (isInline() && length() < inlineCapacity);
}

// The terminator is part of the text for who reads it.
bool CString::pointsInside(const char* text, unsigned textLength) const noexcept {
    const char* const end = data_ + length() + (textLength != 0 ? 1 : 0);
    return !std::less<const char*>()(text, data_) && std::less<const char*>()(text, end);
}

void CString::replaceInPlace(unsigned pos, unsigned n, const char* text,
                             unsigned textLength) noexcept {
    const unsigned old = length();
    if (n != textLength) {
        std::memmove(data_ + pos + textLength, data_ + pos + n, old - pos - n);
    }
    move(data_ + pos, text, textLength);
    setLength(old - n + textLength);
}

void CString::replaceInNewBuffer(unsigned pos, unsigned n, const char* text, unsigned textLength) {
    const unsigned now = checkedLength(std::uint64_t{length()} - n + textLength);
    const unsigned room = grownCapacity(std::max(now, length()));
    if (room < inlineCapacity && isInline()) {
        // The new buffer is the old one: only the text to put in has to be saved.
        char saved[inlineCapacity];
        copyBytes(saved, text, textLength);
        replaceInPlace(pos, n, saved, textLength);
        return;
    }
    const char* const tail = data_ + pos + n;
    const unsigned tailLength = length() - pos - n;
    CStringRef* old = isInline() ? nullptr : ref();
    char* fresh = room < inlineCapacity ? inlineText() : CStringRef::getRep(room, now)->data();
    copyBytes(fresh, data_, pos);
    copyBytes(fresh + pos, text, textLength);
    copyBytes(fresh + pos + textLength, tail, tailLength);
    data_ = fresh;
    if (room < inlineCapacity) {
        beginInline(now);
    }
    if (old != nullptr) {
        release(old);
    }
}

void CString::resize(unsigned n) {
    if (n > length()) {
        append(' ', n - length());
    } else {
        remove(n);
    }
}

void CString::toLower() {
    cow();
    std::transform(data_, data_ + length(), data_, lower);
}

void CString::toUpper() {
    cow();
    std::transform(data_, data_ + length(), data_, upper);
}

// --- Multibyte characters ---

namespace {

constexpr unsigned invalid = CString::npos;

// The bytes of the character that begins a text of n bytes, 1 for a zero byte; `invalid` if there
// is none, or not all of it. No character holds a zero byte, though some systems take one after a
// lead byte for the rest of a character and would step over the terminator.
unsigned characterSize(const char* text, std::size_t n) {
    if (*text == '\0') {
        return 1;
    }
    const std::size_t longest = std::min<std::size_t>(n, MB_CUR_MAX);
    const int size = std::mblen(text, longest);
    const bool good = size > 0 && static_cast<std::size_t>(size) <= longest &&
                      std::memchr(text, '\0', static_cast<std::size_t>(size)) == nullptr;
    return good ? static_cast<unsigned>(size) : invalid;
}

}  // namespace

unsigned CString::mbLength(const char* text, unsigned n) {
    const std::size_t end = text == nullptr ? 0 : n == npos ? std::strlen(text) : n;
    unsigned count = 0;
    static_cast<void>(std::mblen(nullptr, 0));
    for (std::size_t i = 0; i < end; ++count) {
        const unsigned size = characterSize(text + i, end - i);
        if (size == invalid) {
            return npos;
        }
        i += size;
    }
    return count;
}

unsigned CString::byteCount(const char* text, unsigned n) {
    if (text == nullptr) {
        return 0;
    }
    const std::size_t end = n == npos ? std::strlen(text) : std::numeric_limits<std::size_t>::max();
    std::size_t bytes = 0;
    static_cast<void>(std::mblen(nullptr, 0));
    for (unsigned i = 0; i != n && bytes < end; ++i) {
        const unsigned size = characterSize(text + bytes, end - bytes);
        if (size == invalid) {
            return npos;
        }
        bytes += size;
    }
    return static_cast<unsigned>(bytes);
}

// --- Settings ---

unsigned CString::initialCapacity(unsigned n) noexcept {
    return std::exchange(initialCapacitySetting, n);
}

unsigned CString::resizeIncrement(unsigned n) noexcept {
    return std::exchange(resizeIncrementSetting, n);
}

unsigned CString::maxWaste(unsigned n) noexcept {
    return std::exchange(maxWasteSetting, n);
}

unsigned CString::getInitialCapacity() noexcept {
    return initialCapacitySetting;
}

unsigned CString::getResizeIncrement() noexcept {
    return resizeIncrementSetting;
}

unsigned CString::getMaxWaste() noexcept {
    return maxWasteSetting;
}

unsigned CString::adjustCapacity(unsigned n) noexcept {
    const std::uint64_t initial = initialCapacitySetting;
    const std::uint64_t step = std::max(resizeIncrementSetting, 1u);
    if (n <= initial) {
        return initialCapacitySetting;
    }
    const std::uint64_t adjusted = (step - initial + n - 1) / step * step + initial;
    return static_cast<unsigned>(std::min<std::uint64_t>(adjusted, npos - 1));
}

// --- Failures ---

void CString::refuseLength() {
    throw std::length_error("CString: the text is too long");
}

// Narrowed to a position only in the text, where it then reads as any unsigned number does.
void CString::refuseElement(std::int64_t i, unsigned length) {
    if (i == -1 || i == npos) {
        throw OutOfBoundsException(here(), message(NOLK_CORE_BOUNDS_STRING_NPOS));
    }
    if (i >= 0 && i < npos) {
        throw OutOfBoundsException(
            here(), message(NOLK_CORE_BOUNDS_ILLEGAL_INDEX, static_cast<unsigned>(i), length));
    }
    throw OutOfBoundsException(
        here(), message(NOLK_CORE_BOUNDS_ILLEGAL_INDEX, static_cast<long long>(i), length));
}

void CString::subStringError(unsigned length, unsigned start, unsigned extent) {
    throw OutOfBoundsException(
        here(), message(NOLK_CORE_BOUNDS_STRING_ILLEGAL_SUBSTRING, start, extent, length));
}

}  // namespace nolk
