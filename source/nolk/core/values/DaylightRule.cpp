#include <nolk/core/DaylightRule.h>

#include "nolk/core/values/RuleYear.h"

namespace nolk {

bool DaylightRule::isDaylight(const struct tm* tm) const noexcept {
    if (!observed) {
        return false;
    }
    const bool beginLater = begin.after(tm);
    const bool endLater = end.after(tm);
    if (begin.month < end.month) {
        return beginLater != endLater;
    }
    // What began the year before isn't under this rule in its first year.
    if (beginLater && ruleYear(*tm) == firstYear) {
        return false;
    }
    return beginLater == endLater;
}

}  // namespace nolk
