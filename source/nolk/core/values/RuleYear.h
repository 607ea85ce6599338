/** @file
 * The years of daylight rules.
 */
#ifndef NOLK_CORE_VALUES_RULE_YEAR_H
#define NOLK_CORE_VALUES_RULE_YEAR_H

#include <cstdint>
#include <ctime>

namespace nolk {

/** The year of a civil time as rules compare it: in 16 bits, with a sign. */
inline std::int16_t ruleYear(const std::tm& tm) noexcept {
    return static_cast<std::int16_t>(static_cast<std::uint32_t>(tm.tm_year) + 1900);
}

}  // namespace nolk

#endif
