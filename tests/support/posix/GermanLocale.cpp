#include "support/GermanLocale.h"

#include <clocale>
#include <cstdlib>

namespace nolk::test {

namespace {

constexpr const char* folder = NOLK_TEST_LOCALES;  // empty without the system's compiler of locales

// What the system looks up when it loads a locale.
void setPath(const char* path) {
    if (path != nullptr) {
        setenv("LOCPATH", path, 1);
    } else {
        unsetenv("LOCPATH");
    }
}

}  // namespace

GermanLocale::GermanLocale() : before_(std::setlocale(LC_ALL, nullptr)) {
    const char* const path = std::getenv("LOCPATH");
    const std::string kept = path == nullptr ? "" : path;
    setPath(folder);
    isSet_ = std::setlocale(LC_ALL, "de_DE.ISO-8859-1") != nullptr;
    setPath(path == nullptr ? nullptr : kept.c_str());
}

GermanLocale::~GermanLocale() {
    std::setlocale(LC_ALL, before_.c_str());
}

bool GermanLocale::isThere() {
    return *folder != '\0';
}

}  // namespace nolk::test
