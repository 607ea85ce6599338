#include "support/ProcessZone.h"

#include <cstdlib>
#include <ctime>

namespace nolk::test {

ProcessZone::ProcessZone(const char* zone) {
    if (const char* before = std::getenv("TZ")) {
        before_ = before;
    }
    setenv("TZ", zone, 1);
    tzset();
}

ProcessZone::~ProcessZone() {
    if (before_) {
        setenv("TZ", before_->c_str(), 1);
    } else {
        unsetenv("TZ");
    }
    tzset();
}

}  // namespace nolk::test
