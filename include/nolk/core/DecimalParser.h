/** @file
 * Reads decimals from texts.
 */
#ifndef NOLK_CORE_DECIMAL_PARSER_H
#define NOLK_CORE_DECIMAL_PARSER_H

#include <nolk/core/DecimalParserBase.h>
#include <nolk/core/Export.h>

#include <cstddef>

namespace nolk {

/**
 * Reads decimals from texts in memory; the constructors of Decimal are made of it. It may be used
 * again, with the separators that the global locale had when it was made.
 *
 *     DecimalParser parse;
 *     parse("(1,234.50)");   // -1234.50
 *     parse("50%");          // 00.50
 */
class NOLK_API DecimalParser : public DecimalParserBase {
public:
    /** Takes the separators of `Locale::global()`. */
    DecimalParser();

    /**
     * The value of a text that ends in a zero byte: `null` of a null pointer and of the empty text,
     * `NaN` of one that has not the form. Characters behind the number don't matter.
     */
    Decimal operator()(const char* text);

    int getc() const override;
    int nextc() override;

protected:
    /** Goes back to the beginning of the text, with a fresh value. */
    void restart();

private:
    const char* text_ = nullptr;
    std::size_t length_ = 0;
    std::size_t position_ = 0;
};

}  // namespace nolk

#endif
