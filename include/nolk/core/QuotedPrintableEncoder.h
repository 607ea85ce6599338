/** @file
 * Quoted-printable text.
 */
#ifndef NOLK_CORE_QUOTED_PRINTABLE_ENCODER_H
#define NOLK_CORE_QUOTED_PRINTABLE_ENCODER_H

#include <nolk/core/Export.h>

#include <string>

namespace nolk {

/**
 * Turns bytes into quoted-printable text and back, after RFC 2045, for transports that keep
 * neither long lines, nor blanks at their ends, nor bytes outside ASCII.
 *
 *     QuotedPrintableEncoder::encode("a =");            // "a =3D"
 *     QuotedPrintableEncoder::decode("a =3D", false);   // "a ="
 *
 * Static operations without state, for any number of threads at once.
 */
class NOLK_API QuotedPrintableEncoder {
public:
    /**
     * The bytes as quoted-printable. Visible ASCII but for `=!"#$@[\]^`{|}~`, which some gateways
     * don't keep, blanks and tabs stand for themselves; CR LF is a line break; every other byte
     * becomes "=" and two upper-case digits. Soft breaks ("=" CR LF) keep lines within 75
     * characters, and stand behind a blank or tab that would end a line or the text.
     * @throws std::bad_alloc
     */
    static std::string encode(const std::string& input);

    /**
     * The bytes that a quoted-printable text stands for. With `stripTrailingBlanks`, blanks and
     * tabs in front of a line break and at the end of the text are dropped, encoded ones too, but
     * not where a soft break stands between.
     *
     * Nothing is refused: a "=" that begins neither a soft break nor two digits of either case
     * stays, with the byte behind it, and one with fewer than two bytes behind it stays with all of
     * them. @throws std::bad_alloc
     */
    static std::string decode(const std::string& input, bool stripTrailingBlanks);
};

}  // namespace nolk

#endif
