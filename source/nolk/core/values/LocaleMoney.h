/** @file
 * Writes and reads amounts of money by the conventions that a locale tells, and by nothing else.
 *
 * Amounts are told in the smallest unit of the currency. How one is written is told by a pattern of
 * four characters: "m" the number, "$" the symbol of the currency, "-" the sign, "(" parentheses
 * around the whole, and a blank that stands if the locale separates.
 */
#ifndef NOLK_CORE_VALUES_LOCALE_MONEY_H
#define NOLK_CORE_VALUES_LOCALE_MONEY_H

#include <nolk/core/Locale.h>

#include <string>
#include <string_view>

namespace nolk {

/** The four characters for a place of the symbol, any but 0 for in front. @pre `posn` is 0 to 4 */
const char* moneyPattern(char precedes, char posn) noexcept;

/** What a locale has worked out for its amounts. */
struct MoneyForm {
    const char* positivePattern;
    const char* negativePattern;
    double fractionScale;
    double internationalFractionScale;
};

std::string writeMoney(const Locale& locale, const MoneyForm& form, double value,
                       Locale::CurrSymbol symbol);

/** The result is set if, and only if, the whole text is an amount. */
bool readMoney(const Locale& locale, std::string_view text, double* value,
               Locale::CurrSymbol symbol);

}  // namespace nolk

#endif
