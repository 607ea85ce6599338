/** @file
 * The fast ways from UTF-8 to UTF-16. All accept the same texts and give the same units; tests
 * compare them. None tells what is wrong with a text: that is for the strict decoder, which is
 * asked once, about the character at which they stop.
 */
#ifndef NOLK_CORE_STRINGS_UTF8_DECODER_H
#define NOLK_CORE_STRINGS_UTF8_DECODER_H

#include <nolk/core/Types.h>
#include <nolk/core/foundation/Processor.h>

#include <cstddef>

namespace nolk::utf8 {

/** How far a decoder has come, always between two characters. */
struct Decoded {
    const char* in;
    UChar* out;
};

/** How many units behind the last one a decoder may write to. */
inline constexpr std::size_t decodeSlack = 32;

/**
 * The units that the bytes give if they are well-formed. If they aren't, it is still at least what
 * the characters in front of the first mistake give.
 */
std::size_t countUnits(const char* in, const char* last);

/**
 * Writes the characters in [in, last) at `out`, up to the first that isn't well-formed. The room is
 * for countUnits() and decodeSlack units.
 */
Decoded decodePortably(const char* in, const char* last, UChar* out);

/** Does the same while characters are ASCII, and writes to no unit behind them. */
Decoded widenPortably(const char* in, const char* last, UChar* out);

#ifdef NOLK_CORE_X86_VECTORS
/** The same with vectors of 32 bytes. @pre processor::hasAvx2() */
std::size_t countUnitsAvx2(const char* in, const char* last);
Decoded decodeAvx2(const char* in, const char* last, UChar* out);
Decoded widenAvx2(const char* in, const char* last, UChar* out);
#endif
std::size_t countUnitsPortably(const char* in, const char* last);

/** The same by the fastest way that this processor has. */
Decoded decode(const char* in, const char* last, UChar* out);
Decoded widen(const char* in, const char* last, UChar* out);

}  // namespace nolk::utf8

#endif
