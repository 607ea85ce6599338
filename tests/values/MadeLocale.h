/** @file
 * Conventions of a test's choice for numbers and money.
 */
#ifndef NOLK_TESTS_VALUES_MADE_LOCALE_H
#define NOLK_TESTS_VALUES_MADE_LOCALE_H

#include <string>

#include "values/TestLocale.h"

namespace nolk::test {

/** A locale whose answers are its fields. */
class MadeLocale : public TestLocale {
public:
    const std::string& decimal_point() const override { return point; }
    const std::string& thousands_sep() const override { return separator; }
    const std::string& grouping() const override { return groups; }
    const std::string& int_curr_symbol() const override { return international; }
    const std::string& currency_symbol() const override { return symbol; }
    const std::string& mon_decimal_point() const override { return moneyPoint; }
    const std::string& mon_thousands_sep() const override { return moneySeparator; }
    const std::string& mon_grouping() const override { return moneyGroups; }
    const std::string& positive_sign() const override { return positive; }
    const std::string& negative_sign() const override { return negative; }
    char int_frac_digits() const override { return internationalDigits; }
    char frac_digits() const override { return digits; }
    char p_sep_by_space() const override { return positiveSpace; }
    char n_sep_by_space() const override { return negativeSpace; }

    std::string point = ".";
    std::string separator = ",";
    std::string groups = "\3";
    std::string international = "XTS ";
    std::string symbol = "$";
    std::string moneyPoint = ".";
    std::string moneySeparator = ",";
    std::string moneyGroups = "\3";
    std::string positive;
    std::string negative = "-";
    char internationalDigits = 2;
    char digits = 2;
    char positiveSpace = 0;
    char negativeSpace = 0;
};

}  // namespace nolk::test

#endif
