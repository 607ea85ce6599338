#ifndef NOLK_CORE_XML_UTF8_H
#define NOLK_CORE_XML_UTF8_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace nolk {

/** Writes a code point of up to 21 bits as UTF-8 at `out`, which has room for four bytes, and
 * returns the bytes used. Surrogates are written like any other value. */
inline std::size_t writeUtf8(char* out, std::uint32_t c) {
    const auto tail = [c](unsigned shift) {
        return static_cast<char>(0x80 | ((c >> shift) & 0x3F));
    };
    if (c < 0x80) {
        out[0] = static_cast<char>(c);
        return 1;
    }
    if (c < 0x800) {
        out[0] = static_cast<char>(0xC0 | (c >> 6));
        out[1] = tail(0);
        return 2;
    }
    if (c <= 0xFFFF) {
        out[0] = static_cast<char>(0xE0 | (c >> 12));
        out[1] = tail(6);
        out[2] = tail(0);
        return 3;
    }
    out[0] = static_cast<char>(0xF0 | ((c >> 18) & 0x07));
    out[1] = tail(12);
    out[2] = tail(6);
    out[3] = tail(0);
    return 4;
}

inline void appendUtf8(std::string& text, std::uint32_t c) {
    char bytes[4];
    text.append(bytes, writeUtf8(bytes, c));
}

}  // namespace nolk

#endif
