/** @file
 * What the operators of Decimal do.
 */
#ifndef NOLK_CORE_VALUES_DECIMAL_ARITHMETIC_H
#define NOLK_CORE_VALUES_DECIMAL_ARITHMETIC_H

#include <nolk/core/Decimal.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace nolk {

/** The operators' access to the digits. */
class DecimalArithmetic {
public:
    /** a + b, or a - b. */
    static Decimal sum(const Decimal& a, const Decimal& b, bool subtract);
    static Decimal product(const Decimal& a, const Decimal& b);
    static Decimal negated(const Decimal& value);
    static Decimal rounded(const Decimal& value, long places, Decimal::RoundingMethod method);

    static bool equal(const Decimal& a, const Decimal& b) noexcept;
    static bool less(const Decimal& a, const Decimal& b) noexcept;

private:
    static Decimal sumOfOthers(const Decimal& a, const Decimal& b, bool subtract);

    // Of the magnitudes; `a` is the larger one for the difference.
    static Decimal plus(const Decimal& a, const Decimal& b, bool negative);
    static Decimal minus(const Decimal& a, const Decimal& b, bool negative);
    static int compare(const Decimal& a, const Decimal& b) noexcept;

    static void roundFraction(Decimal& value, std::size_t places, Decimal::RoundingMethod method);
    static void roundInteger(Decimal& value, std::uint64_t zeros, Decimal::RoundingMethod method);

    static Decimal ofDigits(std::string_view digits, std::size_t scale, bool negative);
    static Decimal unlessZero(const Decimal& value, bool negative);
};

}  // namespace nolk

#endif
