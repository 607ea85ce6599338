/** @file
 * Locales of a test's choice.
 */
#ifndef NOLK_TESTS_SUPPORT_OTHER_LOCALE_H
#define NOLK_TESTS_SUPPORT_OTHER_LOCALE_H

#include <nolk/core/Locale.h>

#include <string>
#include <utility>

namespace nolk::test {

/** A locale that knows its separators, and one number. */
class OtherLocale : public Locale {
public:
    OtherLocale(std::string point, std::string separator)
        : point_(std::move(point)), separator_(std::move(separator)) {}

    /** The one text that it reads, and what it is. */
    void setNumber(std::string text, double value) {
        text_ = std::move(text);
        value_ = value;
    }

    const std::string& decimal_point() const override { return point_; }
    const std::string& thousands_sep() const override { return separator_; }

    bool stringToNum(const std::string& text, double* result) const override {
        if (text != text_) {
            return false;
        }
        *result = value_;
        return true;
    }

private:
    std::string point_;
    std::string separator_;
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
