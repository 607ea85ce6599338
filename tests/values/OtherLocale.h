/** @file
 * Locales of a test's choice for decimals.
 */
#ifndef NOLK_TESTS_VALUES_OTHER_LOCALE_H
#define NOLK_TESTS_VALUES_OTHER_LOCALE_H

#include <string>
#include <utility>

#include "values/MadeLocale.h"

namespace nolk::test {

/** A locale that knows its separators, and one number. */
class OtherLocale : public MadeLocale {
public:
    using MadeLocale::stringToNum;

    OtherLocale(std::string decimalPoint, std::string thousands) {
        point = std::move(decimalPoint);
        separator = std::move(thousands);
    }

    /** The one text that it reads, and what it is. */
    void setNumber(std::string text, double value) {
        text_ = std::move(text);
        value_ = value;
    }

    bool stringToNum(const std::string& text, double* result) const override {
        if (text != text_) {
            return false;
        }
        *result = value_;
        return true;
    }

private:
    std::string text_;
    double value_ = 0;
};

/** While it lives, another locale is the global one. */
class GlobalLocale {
public:
    explicit GlobalLocale(const Locale& locale) : before_(Locale::global(&locale)) {}
    ~GlobalLocale() { Locale::global(before_); }
    GlobalLocale(const GlobalLocale&) = delete;
    GlobalLocale& operator=(const GlobalLocale&) = delete;

private:
    const Locale* before_;
};

}  // namespace nolk::test

#endif
