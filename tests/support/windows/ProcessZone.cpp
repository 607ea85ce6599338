#include "support/ProcessZone.h"

#include <cstdlib>
#include <ctime>

namespace nolk::test {

ProcessZone::ProcessZone(const char* zone) {
    if (const char* before = std::getenv("TZ")) {
        before_ = before;
    }
    _putenv(("TZ=" + std::string(zone)).c_str());
    _tzset();
}

ProcessZone::~ProcessZone() {
    // An empty value takes the variable away.
    _putenv(("TZ=" + before_.value_or("")).c_str());
    _tzset();
}

}  // namespace nolk::test
