/** @file
 * Reads decimals from a source of characters.
 */
#ifndef NOLK_CORE_DECIMAL_PARSER_BASE_H
#define NOLK_CORE_DECIMAL_PARSER_BASE_H

#include <nolk/core/Decimal.h>
#include <nolk/core/Export.h>

#include <cstddef>
#include <string>

namespace nolk {

/**
 * The form of decimals, over characters that a derived class brings. It is lenient, as accounts are
 * written:
 *
 *     text      = [ "$" ] ( number [ "%" ] | "(" ( name | number ) ")" ) anything
 *     number    = [ "+" | "-" ] digits [ point digits ]
 *     digits    = { digit | thousands separator }
 *     name      = letter ( "ull" | "aN" | "issing" )
 *
 * Blanks, tabs, carriage returns and newlines may stand in front, behind the currency sign, behind
 * the sign, and inside of the parentheses. Parentheses mean a negative number, and hold the name
 * where they begin with "m", "n" or "N". A per cent sign divides by 100. The separators are those
 * of `Locale::global()` when the parser is made. A number without digits is `NaN`.
 *
 * Owns what it builds; for one thread at a time.
 */
class NOLK_API DecimalParserBase {
public:
    virtual ~DecimalParserBase();

    /** The character at the place that reading has come to, as `unsigned char`, or the end value.
     */
    virtual int getc() const = 0;

    /** Goes on by one, unless at the end, and then is getc(). */
    virtual int nextc() = 0;

protected:
    DecimalParserBase();

    /** Reads a value into value(), which is `NaN` if the text has not the form: then it is false.
     */
    bool parse();

    /** Begins with a fresh value, a number without digits. */
    void clear();

    /** What has been read. Without digits, and of zeros only, it has no sign. */
    const Decimal& value() const { return value_; }

    /** What getc() gives at the end. */
    int end() const { return end_; }

private:
    bool parseForm();
    bool parseParentheses();
    bool consume_frac();
    void consume_percent();
    bool consume_nonum();

    int peek() const;
    int look(std::size_t place);
    void skip();
    void skipSpace();
    bool atEnd() const { return peek() == end_; }
    bool take(char wanted);
    bool takeFirstOf(const std::string& text);
    bool takeWhole(const std::string& text);
    bool takeName(const char* letters, DecimalBase::State state);
    bool takeDigitRun();
    void takeDigitsInto(std::string& digits);

    Decimal value_;
    int end_ = 0;
    std::string currency_;
    std::string trailing_;
    std::string thousandsSeparator_;
    std::string decimalSeparator_;
    std::string* digits_ = nullptr;  // null but while digits are read

    // Read already, but still to be taken: the bytes of what began like a separator.
    std::string ahead_;
};

}  // namespace nolk

#endif
