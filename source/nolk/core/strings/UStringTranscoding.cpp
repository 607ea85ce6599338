// A long text is decoded twice at most: once in the hope that it is ASCII, up to the first
// character that isn't, and then, with the units counted, the rest into a buffer of the right size.
// The fast decoder only says where it stops. What is wrong there is found out by the strict one,
// byte by byte.
#include <nolk/core/ConversionException.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>
#include <nolk/core/QXArrayByteSource.h>
#include <nolk/core/UString.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "nolk/core/strings/HexDigits.h"
#include "nolk/core/strings/Utf16.h"
#include "nolk/core/strings/Utf8Decoder.h"
#include "nolk/core/strings/Utf8Encoder.h"

namespace nolk {

namespace {

unsigned difference(const UChar* end, const UChar* begin) {
    return static_cast<unsigned>(end - begin);
}

constexpr unsigned longestSequence = 6;

// The length of the sequence that a byte begins, 0 for a byte that begins none. Lengths beyond 4
// are read to their end, to tell how far the mistake goes.
unsigned sequenceLength(std::uint32_t first) {
    constexpr std::array<std::uint8_t, 16> lengths = {2, 2, 2, 2, 2, 2, 2, 2,
                                                      3, 3, 3, 3, 4, 4, 5, 6};
    if (first < 0xC0 || first >= 0xFE) {
        return 0;
    }
    return lengths[(first - 0xC0) / 4];
}

// The marks of a sequence's bytes, added up as its value is.
constexpr std::array<std::uint32_t, longestSequence + 1> markSums = {
    0, 0, 0x3080, 0xE2080, 0x3C82080, 0xFA082080, 0x82082080};

// The least value that is worth so many bytes; none is worth more than four.
constexpr std::array<std::uint32_t, longestSequence + 1> leastValues = {
    0, 0, 0x80, 0x800, 0x10000, 0xFFFFFFFF, 0xFFFFFFFF};

std::uint32_t unsignedByte(char byte) {
    return static_cast<unsigned char>(byte);
}

bool isSurrogate(std::uint32_t value) {
    return value >= 0xD800 && value <= 0xDFFF;
}

[[noreturn]] void failAt(const MessageCatalogId& id, unsigned first, unsigned last) {
    throw ConversionException(here(), message(id, first, last));
}

// Adds the continuation bytes of a sequence to its value, which is that of its first byte. `first`
// is the index of that byte.
std::uint32_t readContinuations(UString::ByteSource& source, std::uint32_t value, unsigned length,
                                unsigned first, unsigned& consumed) {
    for (unsigned i = 1; i < length; ++i) {
        char byte;
        if (!source.getByte(byte)) {
            failAt(NOLK_CORE_CONVERSION_INCOMPLETE_SEQUENCE, first, consumed - 1);
        }
        ++consumed;
        if ((unsignedByte(byte) & 0xC0) != 0x80) {
            failAt(NOLK_CORE_CONVERSION_INCOMPLETE_SEQUENCE, first, consumed - 1);
        }
        value = value * 64 + unsignedByte(byte);
    }
    return value;
}

void checkSequence(std::uint32_t value, unsigned length, unsigned first, unsigned last) {
    if (length == 3 && isSurrogate(value)) {
        failAt(NOLK_CORE_CONVERSION_IRREGULAR_SEQUENCE, first, last);
    }
    if (length == 0 || value >= 0x110000 || value < leastValues[length] || isSurrogate(value)) {
        failAt(NOLK_CORE_CONVERSION_ILLEGAL_SEQUENCE, first, last);
    }
}

// Throws what is wrong with the character at `at`, unless the text ends there.
void requireEnd(const char* s, unsigned n, const char* at) {
    auto consumed = static_cast<unsigned>(at - s);
    if (consumed == n) {
        return;
    }
    QXArrayByteSource rest(at, n - consumed);
    UChar32 codePoint;
    UString::getCodePointFromUtf8Source(rest, codePoint, consumed);
}

// The units of the first `count` code points, or of all that there are.
unsigned unitsOfCodePoints(UString::View text, unsigned count) {
    const UChar* const last = text.data() + text.size();
    const UChar* in = text.data();
    if (count >= text.size()) {
        return static_cast<unsigned>(text.size());
    }
    for (; count > 0 && in != last; --count) {
        in += utf16::isPairAt(in, last) ? 2 : 1;
    }
    return difference(in, text.data());
}

// A unit of an escaped text, and how many units tell it.
struct Escape {
    UChar unit;
    unsigned length;
};

// The value of the four digits behind "\\u", which is at `i`. Only the low bytes are looked at.
UChar escapedUnit(UString::View text, unsigned i) {
    constexpr unsigned digits = 4;
    unsigned value = 0;
    for (unsigned k = 0; k < digits; ++k) {
        const unsigned digit = hexDigitValue(static_cast<unsigned char>(text[i + 2 + k] & 0xFF));
        if (digit == noHexDigit) {
            // The second number lies in front of the first; that is meant.
            failAt(NOLK_CORE_CONVERSION_ILLEGAL_SEQUENCE, i, i - k);
        }
        value = value << 4 | digit;
    }
    return static_cast<UChar>(value);
}

Escape escapeAt(UString::View text, unsigned i) {
    if (text[i] != UChar('\\')) {
        return {text[i], 1};
    }
    const std::size_t left = text.size() - i;
    if (left == 1) {
        failAt(NOLK_CORE_CONVERSION_ILLEGAL_SEQUENCE, i, i + 1);
    }
    if (text[i + 1] != UChar('u')) {
        return {text[i + 1], 2};
    }
    if (left <= 5) {
        failAt(NOLK_CORE_CONVERSION_ILLEGAL_SEQUENCE, i, i + 5);
    }
    return {escapedUnit(text, i), 6};
}

// Texts up to this length are decoded on the stack before anything is allocated.
constexpr unsigned shortText = 64;

// Whether as much of a longer one is ASCII.
template <typename Character>
bool beginsWithAscii(const Character* text) {
    return std::all_of(text, text + shortText, [](Character c) {
        return static_cast<std::make_unsigned_t<Character>>(c) < 0x80;
    });
}

}  // namespace

bool UString::getCodePointFromUtf8Source(ByteSource& source, UChar32& codePoint,
                                         unsigned& consumed) {
    char byte;
    if (!source.getByte(byte)) {
        return false;
    }
    const unsigned first = consumed++;
    std::uint32_t value = unsignedByte(byte);
    if (value >= 0x80) {
        const unsigned length = sequenceLength(value);
        value = readContinuations(source, value, length, first, consumed) - markSums[length];
        checkSequence(value, length, first, consumed - 1);
    }
    codePoint = value;
    return true;
}

void UString::initFromUtf8(const char* s, unsigned n) {
    const char* const last = s + n;
    if (n <= shortText) {
        UChar units[shortText + utf8::decodeSlack];
        const utf8::Decoded decoded = utf8::decode(s, last, units);
        requireEnd(s, n, decoded.in);
        const unsigned count = difference(decoded.out, units);
        std::memcpy(init(count), units, count * sizeof(UChar));
        return;
    }
    utf8::Decoded ascii = {s, nullptr};
    UString hoped;
    if (beginsWithAscii(s)) {
        ascii = utf8::widen(s, last, hoped.init(n));
        if (ascii.in == last) {
            swap(hoped);
            return;
        }
    }
    const auto done = static_cast<unsigned>(ascii.in - s);
    UChar* const units = init(done + static_cast<unsigned>(utf8::countUnits(ascii.in, last)));
    std::memcpy(units, hoped.data_, done * sizeof(UChar));
    requireEnd(s, n, utf8::decode(ascii.in, last, units + done).in);
}

std::string UString::toUtf8(unsigned n) const {
    const UChar* const last = data_ + unitsOfCodePoints(view(), n);
    const auto length = static_cast<std::size_t>(last - data_);
    if (length <= shortText) {
        char bytes[shortText * utf8::bytesOfUnit + utf8::encodeSlack];
        return std::string(bytes, utf8::encode(data_, last, bytes));
    }
    std::string bytes;
    utf8::Encoded ascii = {data_, nullptr};
    if (beginsWithAscii(data_)) {
        bytes.resize(length);
        ascii = utf8::narrow(data_, last, bytes.data());
        if (ascii.in == last) {
            return bytes;
        }
    }
    const auto done = static_cast<std::size_t>(ascii.in - data_);
    bytes.resize(done + utf8::countBytes(ascii.in, last) + utf8::encodeSlack);
    const char* const end = utf8::encode(ascii.in, last, bytes.data() + done);
    bytes.resize(static_cast<std::size_t>(end - bytes.data()));
    return bytes;
}

UChar32* UString::toUtf32(UChar32* out) const {
    return utf16::toUtf32(data_, length(), out);
}

UChar32 UString::validateCodePoint(UChar32 cp) {
    if (!isUnicodeCharacter(cp)) {
        failAt(NOLK_CORE_CONVERSION_ILLEGAL_SEQUENCE, 0, 0);  // the place isn't known here
    }
    return cp;
}

UString UString::unescape() const {
    const View text = view();
    UString unescaped;
    UChar* const first = unescaped.init(length());
    UChar* out = first;
    for (unsigned i = 0; i < text.size();) {
        const Escape escape = escapeAt(text, i);
        *out++ = escape.unit;
        i += escape.length;
    }
    const unsigned count = difference(out, first);
    if (count == text.size()) {
        return unescaped;
    }
    UString result;
    std::memcpy(result.init(count), first, count * sizeof(UChar));
    return result;
}

}  // namespace nolk
