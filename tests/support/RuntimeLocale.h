/** @file
 * Locales of the run-time library that aren't C.
 */
#ifndef NOLK_TESTS_SUPPORT_RUNTIME_LOCALE_H
#define NOLK_TESTS_SUPPORT_RUNTIME_LOCALE_H

#include <optional>
#include <string>

namespace nolk::test {

/** Cultures that tests speak of. */
enum class Culture { german, english, french, czech, japanese, indian, germanOfBytes };

/**
 * The name of a culture's locale for the run-time library: UTF-8 where the build compiles it, the
 * system's own with a code page on Windows. `germanOfBytes` has one byte for each character, with
 * 0xC4 and 0xE4 for the two cases of a letter.
 */
const char* runtimeName(Culture culture);

/**
 * While it lives, the run-time library finds the locales that the build compiled. For programs
 * without other threads.
 */
class RuntimeLocales {
public:
    /** With `ignoreLeaks` the leak checker, if there is one, doesn't see what is allocated. */
    explicit RuntimeLocales(bool ignoreLeaks = false);
    ~RuntimeLocales();
    RuntimeLocales(const RuntimeLocales&) = delete;
    RuntimeLocales& operator=(const RuntimeLocales&) = delete;

private:
    std::optional<std::string> before_;
    bool ignoreLeaks_;
};

}  // namespace nolk::test

#endif
