/** @file
 * Sees to it that the constants of Decimal are right in static initialisers.
 */
#ifndef NOLK_CORE_DECIMAL_INIT_H
#define NOLK_CORE_DECIMAL_INIT_H

#include <nolk/core/Export.h>

namespace nolk {

/**
 * The first one that is made makes `Decimal::null`, `Decimal::NaN` and `Decimal::missing`.
 * Decimal.h defines one in every translation unit, before anything there can use the constants.
 */
class NOLK_API DecimalInit {
public:
    DecimalInit() noexcept;

private:
    // How often the states are written: once, by the first.
    static int count_;
};

}  // namespace nolk

#endif
