#include <nolk/core/Exception.h>
#include <nolk/core/HexBinaryEncoder.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>

#include "nolk/core/strings/HexDigits.h"

#include <cstdint>

namespace nolk {

namespace {

// Lengths near the limit of their type must not wrap.
std::uint64_t wide(unsigned length) {
    return length;
}

}  // namespace

std::array<char, 2> HexBinaryEncoder::encodeHexBinaryChar(unsigned char byte) {
    return {upperHexDigits[byte >> 4], upperHexDigits[byte & 0xF]};
}

char HexBinaryEncoder::decodeHexBinaryChar(unsigned char high, unsigned char low) {
    const unsigned first = hexDigitValue(high);
    const unsigned second = hexDigitValue(low);
    if (first == noHexDigit || second == noHexDigit) {
        throw Exception(here(), message(NOLK_CORE_INVALID_USAGE));
    }
    return static_cast<char>(first << 4 | second);
}

void HexBinaryEncoder::encode(const char* input, unsigned inputLength, char* output,
                              unsigned outputSize) {
    if (outputSize < 2 * wide(inputLength) + 1) {
        throw Exception(here(), message(NOLK_CORE_INVALID_USAGE));
    }
    for (unsigned i = 0; i < inputLength; ++i) {
        const std::array<char, 2> digits =
            encodeHexBinaryChar(static_cast<unsigned char>(input[i]));
        *output++ = digits[0];
        *output++ = digits[1];
    }
    *output = '\0';
}

void HexBinaryEncoder::decode(const char* input, unsigned inputLength, char* output,
                              unsigned outputSize) {
    if (inputLength % 2 != 0 || outputSize < inputLength / 2) {
        throw Exception(here(), message(NOLK_CORE_INVALID_USAGE));
    }
    const auto* digits = reinterpret_cast<const unsigned char*>(input);
    for (unsigned i = 0; i < inputLength; i += 2) {
        *output++ = decodeHexBinaryChar(digits[i], digits[i + 1]);
    }
}

}  // namespace nolk
