/** @file
 * The ways to write and read Base64. All give the same texts; tests compare them.
 */
#ifndef NOLK_CORE_STRINGS_BASE64_CODEC_H
#define NOLK_CORE_STRINGS_BASE64_CODEC_H

#include <nolk/core/foundation/Processor.h>

#include <cstddef>

namespace nolk::base64 {

/** Data characters in front of each line break, and the bytes that they stand for. */
inline constexpr std::size_t lineCharacters = 72;
inline constexpr std::size_t lineBytes = lineCharacters / 4 * 3;

/** The most characters that so many bytes are written with. */
constexpr std::size_t encodedBound(std::size_t length) {
    return (length + 2) / 3 * 4 + length / lineBytes * 2;
}

/** The most bytes that so many characters stand for. */
constexpr std::size_t decodedBound(std::size_t length) {
    return length / 4 * 3 + 2;
}

/**
 * Writes `length` bytes with line breaks and padding at `out`, which has room for
 * encodedBound(length) characters, and returns the end.
 */
char* encodePortably(const char* in, std::size_t length, char* out);

/**
 * Reads `length` characters, of which CR and LF are skipped, into `out`, which has room for
 * decodedBound(length) bytes, and returns the end; null at a character that isn't in the alphabet.
 */
char* decodePortably(const char* in, std::size_t length, char* out);

#ifdef NOLK_CORE_X86_VECTORS
/** The same with vectors of 32 bytes. @pre processor::hasAvx2() */
char* encodeAvx2(const char* in, std::size_t length, char* out);
char* decodeAvx2(const char* in, std::size_t length, char* out);
#endif

/** The same by the fastest way that this processor has. */
char* encode(const char* in, std::size_t length, char* out);
char* decode(const char* in, std::size_t length, char* out);

}  // namespace nolk::base64

#endif
