/** @file
 * Bytes written as hexadecimal digits.
 */
#ifndef NOLK_CORE_HEX_BINARY_ENCODER_H
#define NOLK_CORE_HEX_BINARY_ENCODER_H

#include <nolk/core/Export.h>

#include <array>

namespace nolk {

/**
 * Turns bytes into pairs of hexadecimal digits and back, in buffers of the caller's, which must
 * not overlap. Lengths and sizes count bytes.
 *
 *     char digits[5];
 *     HexBinaryEncoder::encode("\xAB\x01", 2, digits, sizeof digits);  // "AB01"
 *
 * Static operations without state, for any number of threads at once.
 */
class NOLK_API HexBinaryEncoder {
public:
    /**
     * Writes two upper-case digits for each byte, and a NUL behind them.
     * @throws Exception (INVALID_USAGE) before anything is written, if `outputSize` is below
     * 2 * `inputLength` + 1
     */
    static void encode(const char* input, unsigned inputLength, char* output, unsigned outputSize);

    /**
     * Writes the byte of each pair of digits, upper or lower case, and no NUL.
     * @throws Exception (INVALID_USAGE) before anything is written, if `inputLength` is odd or
     * `outputSize` below half of it; and at the first pair that isn't two digits, when the bytes in
     * front of it are written
     */
    static void decode(const char* input, unsigned inputLength, char* output, unsigned outputSize);

private:
    static std::array<char, 2> encodeHexBinaryChar(unsigned char byte);
    static char decodeHexBinaryChar(unsigned char high, unsigned char low);
};

}  // namespace nolk

#endif
