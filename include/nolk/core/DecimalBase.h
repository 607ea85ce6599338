/** @file
 * The states and rounding methods of decimals.
 */
#ifndef NOLK_CORE_DECIMAL_BASE_H
#define NOLK_CORE_DECIMAL_BASE_H

#include <nolk/core/Export.h>

namespace nolk {

/** What a Decimal is: a number, or one of four things that aren't. */
class NOLK_API DecimalBase {
public:
    /** Other values may be set; they stand for no number, and have a text of their own. */
    enum State : int {
        number = 0,    /**< A number; the digits tell which. */
        null = 1,      /**< No value; the identity of the operators. "(null)" */
        NaN = 2,       /**< Not a number, as of a text without digits. "(NaN)" */
        ctorError = 4, /**< Could not be made. "(ctorError)" */
        missing = 8,   /**< A value that isn't there; carries off all others. "(missing)" */
    };

    /** What becomes of dropped digits. Works on the magnitude; the sign stays apart. */
    enum RoundingMethod : int {
        halfUp = 0,       /**< Up if the first dropped digit is 5 or more. */
        awayFromZero = 1, /**< Up if any digit is dropped, be it a zero. */
        towardZero = 2,   /**< Cut off. So does any other value. */
        halfEven = 3,     /**< As halfUp, but a single dropped "5" goes to the even digit. */
    };

protected:
    constexpr explicit DecimalBase(State state = number) noexcept : state_(state) {}

    State state_;
};

}  // namespace nolk

#endif
