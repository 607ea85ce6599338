#include "nolk/core/strings/Utf8Encoder.h"

#include <cstdint>
#include <cstring>

#include "nolk/core/strings/Utf16.h"

namespace nolk::utf8 {

namespace {

char tail(std::uint32_t bits) {
    return static_cast<char>(0x80 | (bits & 0x3F));
}

char* writeTwo(char* out, std::uint32_t c) {
    out[0] = static_cast<char>(0xC0 | c >> 6);
    out[1] = tail(c);
    return out + 2;
}

char* writeThree(char* out, std::uint32_t c) {
    out[0] = static_cast<char>(0xE0 | c >> 12);
    out[1] = tail(c >> 6);
    out[2] = tail(c);
    return out + 3;
}

char* writeFour(char* out, std::uint32_t c) {
    out[0] = static_cast<char>(0xF0 | c >> 18);
    out[1] = tail(c >> 12);
    out[2] = tail(c >> 6);
    out[3] = tail(c);
    return out + 4;
}

// Writes the character at `in`, which is above ASCII.
Encoded encodeCharacter(const UChar* in, const UChar* last, char* out) {
    const std::uint32_t unit = *in;
    if (unit < 0x800) {
        return {in + 1, writeTwo(out, unit)};
    }
    if (utf16::isPairAt(in, last)) {
        return {in + 2, writeFour(out, utf16::joinPair(in[0], in[1]))};
    }
    return {in + 1, writeThree(out, unit)};
}

std::size_t bytesOf(UChar unit) {
    return 1 + (unit >= 0x80) + (unit >= 0x800);
}

constexpr std::ptrdiff_t wordUnits = sizeof(std::uint64_t) / sizeof(UChar);

bool isAsciiWord(const UChar* in) {
    std::uint64_t word;
    std::memcpy(&word, in, sizeof word);
    return (word & 0xFF80FF80FF80FF80) == 0;
}

}  // namespace

// A pair becomes four bytes, where its halves alone become three each.
std::size_t countBytesPortably(const UChar* in, const UChar* last) {
    std::size_t count = 0;
    for (; in != last; ++in) {
        count += bytesOf(*in);
        if (utf16::isPairAt(in, last)) {
            ++in;
            ++count;
        }
    }
    return count;
}

Encoded narrowPortably(const UChar* in, const UChar* last, char* out) {
    while (last - in >= wordUnits && isAsciiWord(in)) {
        for (std::ptrdiff_t i = 0; i < wordUnits; ++i) {
            out[i] = static_cast<char>(in[i]);
        }
        in += wordUnits;
        out += wordUnits;
    }
    while (in != last && *in < 0x80) {
        *out++ = static_cast<char>(*in++);
    }
    return {in, out};
}

char* encodeSingly(const UChar* in, const UChar* last, char* out) {
    while (in != last) {
        if (*in < 0x80) {
            *out++ = static_cast<char>(*in++);
            continue;
        }
        const Encoded next = encodeCharacter(in, last, out);
        in = next.in;
        out = next.out;
    }
    return out;
}

char* encodePortably(const UChar* in, const UChar* last, char* out) {
    Encoded at = {in, out};
    while (at.in != last) {
        at = narrowPortably(at.in, last, at.out);
        while (at.in != last && *at.in >= 0x80) {
            at = encodeCharacter(at.in, last, at.out);
        }
    }
    return at.out;
}

#ifdef NOLK_CORE_X86_VECTORS

std::size_t countBytes(const UChar* in, const UChar* last) {
    static const auto chosen = processor::hasAvx2() ? countBytesAvx2 : countBytesPortably;
    return chosen(in, last);
}

char* encode(const UChar* in, const UChar* last, char* out) {
    static const auto chosen = processor::hasAvx2() ? encodeAvx2 : encodePortably;
    return chosen(in, last, out);
}

Encoded narrow(const UChar* in, const UChar* last, char* out) {
    static const auto chosen = processor::hasAvx2() ? narrowAvx2 : narrowPortably;
    return chosen(in, last, out);
}

#else

std::size_t countBytes(const UChar* in, const UChar* last) {
    return countBytesPortably(in, last);
}

char* encode(const UChar* in, const UChar* last, char* out) {
    return encodePortably(in, last, out);
}

Encoded narrow(const UChar* in, const UChar* last, char* out) {
    return narrowPortably(in, last, out);
}

#endif

}  // namespace nolk::utf8
