/** @file
 * Exact decimal numbers of any length.
 */
#ifndef NOLK_CORE_DECIMAL_H
#define NOLK_CORE_DECIMAL_H

#include <nolk/core/DecimalBase.h>
#include <nolk/core/DecimalInit.h>
#include <nolk/core/Export.h>

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

namespace nolk {

class Locale;

/**
 * A decimal number without limits of length, or one of the four states that are no number.
 *
 *     Decimal price("1,234.50");
 *     Decimal total = price * Decimal(3) + Decimal("0.1");   // "3703.6"
 *     round(total, 0, Decimal::halfUp).asString();           // "3704"
 *     Decimal("n/a").state();                                // Decimal::NaN
 *
 * Nothing overflows and nothing is rounded but by round(). There is no division. The digits are
 * kept as they were given: leading zeros of the integer part and trailing zeros of the fraction
 * count for precision() and scale(), and the operators strip them from their results. A value that
 * is no number has no digits.
 *
 * A plain value that owns its digits. Nothing throws, but for std::bad_alloc, and std::length_error
 * beyond the longest string. A value belongs to one thread at a time; the operations that take no
 * locale read `Locale::global()`, as texts become numbers or numbers texts.
 */
class NOLK_API Decimal : public DecimalBase {
public:
    /** @name Constants
     * Values of the states of these names. Static initialisers and destructors may use them. @{ */
    static const Decimal& null;
    static const Decimal& NaN;
    static const Decimal& missing;
    /** @} */

    /** Zero, without any digit. */
    Decimal() noexcept = default;

    /** The number, the lowest `int` included. */
    Decimal(int value);

    /**
     * What DecimalParser makes of a text that ends in a zero byte: `null` of a null pointer and of
     * the empty text, `NaN` of one without a number. A zero has no sign. @{ */
    Decimal(const char* text);
    Decimal(const std::string& text);
    /** @} */

    bool isNumber() const noexcept { return state_ == number; }
    State state() const noexcept { return state_; }

    /** Stores the state. Any but `number` also takes digits and sign away. */
    void setState(State state) noexcept;

    /** How many digits are kept, integer part and fraction. */
    std::size_t precision() const noexcept { return integer_.size() + fraction_.size(); }

    /** How many digits of the fraction are kept. */
    std::size_t scale() const noexcept { return fraction_.size(); }

    /** precision() without the leading zeros of the integer part. */
    std::size_t numSignificantDigits() const noexcept;

    /** Whether there is no digit but zeros. The state isn't asked: what is no number, is zero. */
    bool isZero() const noexcept;

    /** Strips the leading zeros of the integer part and the trailing zeros of the fraction. */
    void trimZeros();

    /** Of the digits as they are kept: equal numbers that differ in zeros have other hashes. */
    unsigned hash() const noexcept;

    /**
     * The digits, with a "0" for an empty integer part and the locale's decimal separator, and
     * without grouping; or the state's name in parentheses, which DecimalParser reads back. Without
     * a locale, `Locale::global()` holds. @{ */
    std::string asString(const Locale& locale) const;
    std::string asString() const;
    /** @} */

    /**
     * The locale's `decimal_point()`; in place of an empty one ".", unless that is the thousands
     * separator. Without a locale, `Locale::global()` holds. @{ */
    static std::string decimalSeparator(const Locale& locale);
    static std::string decimalSeparator();
    /** @} */

    /**
     * The locale's `thousands_sep()`; in place of an empty one ",", unless that is the decimal
     * point. Without a locale, `Locale::global()` holds. @{ */
    static std::string thousandsSeparator(const Locale& locale);
    static std::string thousandsSeparator();
    /** @} */

    /** The result of the operator of two operands. @{ */
    Decimal& operator+=(const Decimal& other);
    Decimal& operator-=(const Decimal& other);
    Decimal& operator*=(const Decimal& other);
    /** @} */

private:
    friend class DecimalArithmetic;
    friend class DecimalInit;
    friend class DecimalParserBase;

    explicit Decimal(State state) noexcept : DecimalBase(state) {}
    Decimal(bool negative, std::string_view integer, std::string_view fraction)
        : negative_(negative), integer_(integer), fraction_(fraction) {}

    // The sign, and the digits of the magnitude in ASCII, the most significant first. A value that
    // is no number has no digits.
    bool negative_ = false;
    std::string integer_;
    std::string fraction_;
};

/** @name Arithmetic
 * Exact. Of operands that are no numbers the result is `missing` if one of them is, else `NaN` if
 * one of them is, else what is beside a `null`, else the one that is no number. A zero that comes
 * out has no sign. @{ */
NOLK_API Decimal operator+(const Decimal& a, const Decimal& b);
NOLK_API Decimal operator-(const Decimal& a, const Decimal& b);
NOLK_API Decimal operator*(const Decimal& a, const Decimal& b);
/** @} */

/** A copy of the other sign, whatever the state, and so the way to a negative zero. */
NOLK_API Decimal operator-(const Decimal& value);

/**
 * Keeps `places` digits of the fraction, filling up with zeros; a negative number of them puts
 * zeros in place of as many digits of the integer part, and makes it at least one digit longer.
 * Trailing zeros of the fraction are never dropped digits. What is no number is returned as it is.
 */
NOLK_API Decimal round(const Decimal& value, long places, Decimal::RoundingMethod method);

/**
 * What `stringToNum` of the global locale reads from asString(); NaN if it reads nothing, as from
 * what is no number.
 */
NOLK_API double toDouble(const Decimal& value);

/** Writes asString(). */
NOLK_API std::ostream& operator<<(std::ostream& out, const Decimal& value);

/** Sees to the constants before anything else in the translation unit is initialised. */
static const DecimalInit decimalInit;

}  // namespace nolk

#include <nolk/core/DecimalOperators.h>

#endif
