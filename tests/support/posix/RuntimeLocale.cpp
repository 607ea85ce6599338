#include "support/RuntimeLocale.h"

#include <cstdlib>

// Of the leak checker, if there is one. The C library loses the list that it makes of LOCPATH. The
// name of its function tells that apart, where a program can name functions: one of clang needs
// another program for that, which may not be there.
extern "C" {
__attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
    return "leak:__argz_add_sep";
}
__attribute__((weak)) void __lsan_disable();
__attribute__((weak)) void __lsan_enable();
}

namespace nolk::test {

const char* runtimeName(Culture culture) {
    static constexpr const char* names[] = {"de_DE.UTF-8",     "en_US.UTF-8", "fr_FR.UTF-8",
                                            "cs_CZ.UTF-8",     "ja_JP.UTF-8", "en_IN.UTF-8",
                                            "de_DE.ISO-8859-1"};
    return names[static_cast<int>(culture)];
}

RuntimeLocales::RuntimeLocales(bool ignoreLeaks)
    : ignoreLeaks_(ignoreLeaks && __lsan_disable != nullptr) {
    if (ignoreLeaks_) {
        __lsan_disable();
    }
    if (const char* before = std::getenv("LOCPATH")) {
        before_ = before;
    }
    setenv("LOCPATH", NOLK_TEST_LOCALES, 1);
}

RuntimeLocales::~RuntimeLocales() {
    if (ignoreLeaks_) {
        __lsan_enable();
    }
    if (before_) {
        setenv("LOCPATH", before_->c_str(), 1);
    } else {
        unsetenv("LOCPATH");
    }
}

}  // namespace nolk::test
