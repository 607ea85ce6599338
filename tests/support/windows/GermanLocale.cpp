#include "support/GermanLocale.h"

#include <clocale>

namespace nolk::test {

GermanLocale::GermanLocale()
    : before_(std::setlocale(LC_ALL, nullptr)),
      isSet_(std::setlocale(LC_ALL, "German_Germany.1252") != nullptr) {}

GermanLocale::~GermanLocale() {
    std::setlocale(LC_ALL, before_.c_str());
}

bool GermanLocale::isThere() {
    return true;
}

}  // namespace nolk::test
