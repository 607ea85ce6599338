#include "nolk/core/strings/Utf8Decoder.h"

#include <cstdint>
#include <cstring>

namespace nolk::utf8 {

namespace {

unsigned byteAt(const char* in, std::ptrdiff_t i = 0) {
    return static_cast<unsigned char>(in[i]);
}

bool isContinuation(unsigned byte) {
    return (byte & 0xC0) == 0x80;
}

bool areContinued(const char* in, std::ptrdiff_t length) {
    bool all = true;
    for (std::ptrdiff_t i = 1; i < length; ++i) {
        all &= isContinuation(byteAt(in, i));
    }
    return all;
}

std::uint32_t sixBits(const char* in, std::ptrdiff_t i) {
    return byteAt(in, i) & 0x3F;
}

// Each of these writes one character, and stays where it is if that isn't well-formed: it breaks
// off, would fit in fewer bytes, or has a value that no character has.

Decoded decodeTwo(const char* in, const char* last, UChar* out) {
    if (byteAt(in) < 0xC2 || last - in < 2 || !areContinued(in, 2)) {
        return {in, out};
    }
    *out = static_cast<UChar>((byteAt(in) & 0x1F) << 6 | sixBits(in, 1));
    return {in + 2, out + 1};
}

Decoded decodeThree(const char* in, const char* last, UChar* out) {
    if (last - in < 3 || !areContinued(in, 3)) {
        return {in, out};
    }
    const std::uint32_t c = (byteAt(in) & 0x0F) << 12 | sixBits(in, 1) << 6 | sixBits(in, 2);
    if (c < 0x800 || (c & 0xF800) == 0xD800) {
        return {in, out};
    }
    *out = static_cast<UChar>(c);
    return {in + 3, out + 1};
}

Decoded decodeFour(const char* in, const char* last, UChar* out) {
    if (byteAt(in) > 0xF4 || last - in < 4 || !areContinued(in, 4)) {
        return {in, out};
    }
    const std::uint32_t c =
        (byteAt(in) & 0x07) << 18 | sixBits(in, 1) << 12 | sixBits(in, 2) << 6 | sixBits(in, 3);
    if (c < 0x10000 || c > 0x10FFFF) {
        return {in, out};
    }
    out[0] = static_cast<UChar>(0xD7C0 + (c >> 10));
    out[1] = static_cast<UChar>(0xDC00 | (c & 0x3FF));
    return {in + 4, out + 2};
}

// Writes one character above ASCII.
Decoded decodeSequence(const char* in, const char* last, UChar* out) {
    const unsigned first = byteAt(in);
    return first < 0xE0   ? decodeTwo(in, last, out)
           : first < 0xF0 ? decodeThree(in, last, out)
                          : decodeFour(in, last, out);
}

constexpr std::ptrdiff_t wordSize = sizeof(std::uint64_t);

bool isAsciiWord(const char* in) {
    std::uint64_t word;
    std::memcpy(&word, in, sizeof word);
    return (word & 0x8080808080808080) == 0;
}

void widenWord(const char* in, UChar* out) {
    for (std::ptrdiff_t i = 0; i < wordSize; ++i) {
        out[i] = static_cast<UChar>(byteAt(in, i));
    }
}

}  // namespace

Decoded widenPortably(const char* in, const char* last, UChar* out) {
    while (last - in >= wordSize && isAsciiWord(in)) {
        widenWord(in, out);
        in += wordSize;
        out += wordSize;
    }
    while (in != last && byteAt(in) < 0x80) {
        *out++ = static_cast<UChar>(byteAt(in++));
    }
    return {in, out};
}

Decoded decodePortably(const char* in, const char* last, UChar* out) {
    Decoded at = {in, out};
    for (;;) {
        at = widenPortably(at.in, last, at.out);
        while (at.in != last && byteAt(at.in) >= 0x80) {
            const Decoded next = decodeSequence(at.in, last, at.out);
            if (next.in == at.in) {
                return at;
            }
            at = next;
        }
        if (at.in == last) {
            return at;
        }
    }
}

// Each byte that continues nothing begins a unit, and the longest sequences give one more.
std::size_t countUnitsPortably(const char* in, const char* last) {
    std::size_t count = 0;
    for (; in != last; ++in) {
        count += !isContinuation(byteAt(in));
        count += byteAt(in) >= 0xF0;
    }
    return count;
}

#ifdef NOLK_CORE_X86_VECTORS

std::size_t countUnits(const char* in, const char* last) {
    static const auto chosen = processor::hasAvx2() ? countUnitsAvx2 : countUnitsPortably;
    return chosen(in, last);
}

Decoded decode(const char* in, const char* last, UChar* out) {
    static const auto chosen = processor::hasAvx2() ? decodeAvx2 : decodePortably;
    return chosen(in, last, out);
}

Decoded widen(const char* in, const char* last, UChar* out) {
    static const auto chosen = processor::hasAvx2() ? widenAvx2 : widenPortably;
    return chosen(in, last, out);
}

#else

std::size_t countUnits(const char* in, const char* last) {
    return countUnitsPortably(in, last);
}

Decoded decode(const char* in, const char* last, UChar* out) {
    return decodePortably(in, last, out);
}

Decoded widen(const char* in, const char* last, UChar* out) {
    return widenPortably(in, last, out);
}

#endif

}  // namespace nolk::utf8
