/** @file
 * Lets a test run in a locale that isn't C.
 */
#ifndef NOLK_TESTS_SUPPORT_GERMAN_LOCALE_H
#define NOLK_TESTS_SUPPORT_GERMAN_LOCALE_H

#include <string>

namespace nolk::test {

/**
 * While it lives, all categories of the C locale are German with one byte for each character:
 * 0xC4 and 0xE4 are the two cases of a letter, and small letters sort before capitals of letters
 * behind theirs. The system's own on Windows; compiled by the build elsewhere. For programs without
 * other threads.
 */
class GermanLocale {
public:
    GermanLocale();
    ~GermanLocale();
    GermanLocale(const GermanLocale&) = delete;
    GermanLocale& operator=(const GermanLocale&) = delete;

    /** Whether the build could make one. */
    static bool isThere();
    /** Whether it was set. */
    bool isSet() const { return isSet_; }

private:
    std::string before_;
    bool isSet_;
};

}  // namespace nolk::test

#endif
