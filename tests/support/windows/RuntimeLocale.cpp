#include "support/RuntimeLocale.h"

namespace nolk::test {

const char* runtimeName(Culture culture) {
    static constexpr const char* names[] = {
        "German_Germany.1252", "English_United States.1252", "French_France.1252", "Czech",
        "Japanese_Japan.932",  "English_India.1252",         "German_Germany.1252"};
    return names[static_cast<int>(culture)];
}

// They are always there.
RuntimeLocales::RuntimeLocales(bool ignoreLeaks) : ignoreLeaks_(ignoreLeaks) {}

RuntimeLocales::~RuntimeLocales() = default;

}  // namespace nolk::test
