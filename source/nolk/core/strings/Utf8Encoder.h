/** @file
 * The ways from UTF-16 to UTF-8. All give the same bytes; tests compare them. A high surrogate with
 * a low one behind it is one character; any other unit, a lone surrogate too, is encoded by its own
 * value.
 */
#ifndef NOLK_CORE_STRINGS_UTF8_ENCODER_H
#define NOLK_CORE_STRINGS_UTF8_ENCODER_H

#include <nolk/core/Types.h>
#include <nolk/core/foundation/Processor.h>

#include <cstddef>

namespace nolk::utf8 {

/** How far an encoder has come. */
struct Encoded {
    const UChar* in;
    char* out;
};

/** How many bytes behind the last one encode() may write to. */
inline constexpr std::size_t encodeSlack = 32;

/** The most bytes that a unit becomes. */
inline constexpr std::size_t bytesOfUnit = 3;

/** The bytes that the units in [in, last) become. */
std::size_t countBytesPortably(const UChar* in, const UChar* last);

/** Writes them at `out`, where there is room for them and for encodeSlack bytes more. */
char* encodePortably(const UChar* in, const UChar* last, char* out);

/** The same without hope of ASCII. */
char* encodeSingly(const UChar* in, const UChar* last, char* out);

/** Does the same while units are ASCII, and writes to no byte behind them. */
Encoded narrowPortably(const UChar* in, const UChar* last, char* out);

#ifdef NOLK_CORE_X86_VECTORS
/** The same with vectors of 32 bytes. @pre processor::hasAvx2() */
std::size_t countBytesAvx2(const UChar* in, const UChar* last);
char* encodeAvx2(const UChar* in, const UChar* last, char* out);
Encoded narrowAvx2(const UChar* in, const UChar* last, char* out);
#endif

/** The same by the fastest way that this processor has. */
std::size_t countBytes(const UChar* in, const UChar* last);
char* encode(const UChar* in, const UChar* last, char* out);
Encoded narrow(const UChar* in, const UChar* last, char* out);

}  // namespace nolk::utf8

#endif
