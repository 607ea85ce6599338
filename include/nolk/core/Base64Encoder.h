/** @file
 * Base64 text.
 */
#ifndef NOLK_CORE_BASE64_ENCODER_H
#define NOLK_CORE_BASE64_ENCODER_H

#include <nolk/core/Export.h>

#include <string>

namespace nolk {

/**
 * Turns bytes into Base64 and back, with the alphabet and the padding of RFC 4648.
 *
 *     Base64Encoder::encode("Man");   // "TWFu"
 *     Base64Encoder::decode("TWE=");  // "Ma"
 *
 * Static operations without state, for any number of threads at once.
 */
class NOLK_API Base64Encoder {
public:
    /**
     * The bytes as Base64. Each 72 data characters are followed by CR LF, also where the text ends
     * with them; pad characters don't count and stand on the line where they fall. An empty input
     * gives an empty text. @throws std::bad_alloc
     */
    static std::string encode(const std::string& input);

    /**
     * The bytes that a Base64 text stands for. White space at the end and then pad characters at
     * the end are dropped, so that a text without its padding is read as well; CR and LF are
     * skipped wherever they stand. A last group of a single character yields nothing, and spare
     * bits of a last group may have any value.
     *
     * @pre Something is left when white space and padding are dropped. Where nothing is, the
     * result is empty.
     * @throws Exception (INVALID_BASE64) if any other character is outside the alphabet, such as a
     * blank or a pad character in the middle
     * @throws std::bad_alloc
     */
    static std::string decode(const std::string& input);
};

}  // namespace nolk

#endif
