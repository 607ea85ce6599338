/** @file
 * A culture made up for tests: German names, dates as "day.month.year", times as "hour-minute".
 */
#ifndef NOLK_TESTS_VALUES_TEST_LOCALE_H
#define NOLK_TESTS_VALUES_TEST_LOCALE_H

#include <nolk/core/Locale.h>

#include <cstdio>
#include <string>

namespace nolk::test {

class TestLocale : public Locale {
public:
    using Locale::asString;

    static constexpr const char* months[12] = {"Januar",    "Februar", "Maerz",    "April",
                                               "Mai",       "Juni",    "Juli",     "August",
                                               "September", "Oktober", "November", "Dezember"};
    static constexpr const char* weekDays[7] = {"Sonntag",    "Montag",  "Dienstag", "Mittwoch",
                                                "Donnerstag", "Freitag", "Samstag"};

    const std::string& locale_name() const override { return empty_; }
    const std::string& decimal_point() const override { return empty_; }
    const std::string& thousands_sep() const override { return empty_; }
    const std::string& grouping() const override { return empty_; }
    const std::string& int_curr_symbol() const override { return empty_; }
    const std::string& currency_symbol() const override { return empty_; }
    const std::string& mon_decimal_point() const override { return empty_; }
    const std::string& mon_thousands_sep() const override { return empty_; }
    const std::string& mon_grouping() const override { return empty_; }
    const std::string& positive_sign() const override { return empty_; }
    const std::string& negative_sign() const override { return empty_; }
    char int_frac_digits() const override { return 0; }
    char frac_digits() const override { return 0; }
    char p_cs_precedes() const override { return 0; }
    char p_sep_by_space() const override { return 0; }
    char n_cs_precedes() const override { return 0; }
    char n_sep_by_space() const override { return 0; }
    char p_sign_posn() const override { return 0; }
    char n_sign_posn() const override { return 0; }

    /** The fields by the letters of `strftime`, and all of them for 'c'. */
    std::string asString(const std::tm* tm, char conversion, const TimeZone& zone) const override {
        switch (conversion) {
            case 'A':
                return weekDays[tm->tm_wday];
            case 'B':
                return months[tm->tm_mon];
            case 'Y':
                return std::to_string(tm->tm_year + 1900);
            case 'm':
                return std::to_string(tm->tm_mon + 1);
            case 'd':
                return std::to_string(tm->tm_mday);
            case 'Z':
                return tm->tm_isdst == 1   ? zone.altZoneName()
                       : tm->tm_isdst == 0 ? zone.timeZoneName()
                                           : "";
            case 'c':
                return all(*tm);
            default:
                return std::string();
        }
    }
    std::string asString(double, int, bool) const override { return empty_; }
    std::string asString(unsigned long) const override { return empty_; }
    std::string asString(long) const override { return empty_; }
    std::string moneyAsString(double, CurrSymbol) const override { return empty_; }
    bool stringToNum(const std::string&, unsigned long*) const override { return false; }
    bool stringToNum(const std::string&, long*) const override { return false; }
    bool stringToNum(const std::string&, double*) const override { return false; }
    bool stringToDate(const std::string& text, std::tm* tm) const override {
        int day, month, year;
        char rest;
        if (std::sscanf(text.c_str(), "%d.%d.%d%c", &day, &month, &year, &rest) != 3) {
            return false;
        }
        tm->tm_mday = day;
        tm->tm_mon = month - 1;
        tm->tm_year = year - 1900;
        return true;
    }
    bool stringToTime(const std::string& text, std::tm* tm) const override {
        int hour, minute;
        char rest;
        if (std::sscanf(text.c_str(), "%d-%d%c", &hour, &minute, &rest) != 2) {
            return false;
        }
        tm->tm_hour = hour;
        tm->tm_min = minute;
        tm->tm_sec = 59;
        return true;
    }
    bool stringToMoney(const std::string&, double*, CurrSymbol) const override { return false; }
    int monthIndex(const std::string& name) const override {
        for (int i = 0; i < 12; ++i) {
            if (name == months[i]) {
                return i + 1;
            }
        }
        return 0;
    }
    int weekdayIndex(const std::string& name) const override {
        for (int i = 0; i < 7; ++i) {
            if (name == weekDays[i]) {
                return (i + 6) % 7 + 1;
            }
        }
        return 0;
    }

    /** All nine fields of a civil time, so that tests compare them at once. */
    static std::string all(const std::tm& tm) {
        char text[160];
        std::snprintf(text, sizeof text, "%d-%02d-%02d %02d:%02d:%02d wday %d yday %d isdst %d",
                      tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min,
                      tm.tm_sec, tm.tm_wday, tm.tm_yday, tm.tm_isdst);
        return text;
    }

private:
    std::string empty_;
};

}  // namespace nolk::test

#endif
