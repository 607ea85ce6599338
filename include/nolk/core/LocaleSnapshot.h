/** @file
 * A locale of the run-time library, written down.
 */
#ifndef NOLK_CORE_LOCALE_SNAPSHOT_H
#define NOLK_CORE_LOCALE_SNAPSHOT_H

#include <nolk/core/Export.h>
#include <nolk/core/Locale.h>
#include <nolk/core/LocaleTimeFormat.h>

#include <string>

namespace nolk {

/**
 * All that the run-time library can tell about one of its locales, copied when the object is made.
 *
 * From then on it depends on the run-time library no more: whatever the locale of the process is or
 * becomes, an object writes and reads alike, in several threads at once. Texts are bytes of the
 * locale's own character set. Where case is disregarded, that is the case of ASCII letters.
 *
 *     const LocaleSnapshot german("de_DE.UTF-8");
 *     german.asString(1234567L);                      // "1.234.567"
 *     double cents;
 *     german.stringToMoney("12,34 €", &cents, Locale::LocalSymbol);    // 1234
 */
class NOLK_API LocaleSnapshot : public Locale {
public:
    using Locale::asString;

    /**
     * The locale of this name, which is the platform's; that of the environment if it is empty. If
     * there is no such locale, or the name is null, the one that the process is in now. The layouts
     * of dates and times are learnt from how a known moment is written, in the process's time zone.
     *
     * Windows has no other way than to switch the process to the locale for a moment, so there no
     * other thread should use the run-time library's locale at the same time, but to make another
     * snapshot. Elsewhere nobody sees anything of it.
     * @throws std::bad_alloc
     */
    explicit LocaleSnapshot(const char* name = "C");
    ~LocaleSnapshot() override;
    LocaleSnapshot(const LocaleSnapshot&) = delete;
    LocaleSnapshot& operator=(const LocaleSnapshot&) = delete;

    /** The run-time library's name for it; with a list of categories where these differ. */
    const std::string& locale_name() const override;
    const std::string& decimal_point() const override;
    const std::string& thousands_sep() const override;
    const std::string& grouping() const override;
    const std::string& int_curr_symbol() const override;
    const std::string& currency_symbol() const override;
    const std::string& mon_decimal_point() const override;
    const std::string& mon_thousands_sep() const override;
    const std::string& mon_grouping() const override;
    const std::string& positive_sign() const override;
    const std::string& negative_sign() const override;
    /** 0 to 18, and 0 where the run-time library has no such number. @{ */
    char int_frac_digits() const override;
    char frac_digits() const override;
    /** @} */
    /** CHAR_MAX where the locale doesn't tell, as in "C". @{ */
    char p_cs_precedes() const override;
    char p_sep_by_space() const override;
    char n_cs_precedes() const override;
    char n_sep_by_space() const override;
    /** @} */
    /** 0 to 4; 1 for amounts above 0 and 0 for those below where the locale doesn't tell. @{ */
    char p_sign_posn() const override;
    char n_sign_posn() const override;
    /** @} */

    /**
     * 'X', 'x', 'c' and 'C' are the locale's time, date, date and time, and long date and time;
     * 'a', 'A', 'b', 'B', 'd', 'H', 'I', 'j', 'm', 'M', 'p', 'S', 'U', 'w', 'W', 'y', 'Y' and 'Z'
     * are single components. The fields needn't be in their ranges: a name that isn't there is
     * empty. The zone's names stand for 'Z'.
     */
    std::string asString(const struct tm* tm, char conversion, const TimeZone& zone) const override;

    /**
     * Rounded as the nearest text to the double's value. With a precision below 0 there are six
     * digits behind the decimal point. What isn't finite is "inf", "-inf" or "nan". Without a
     * negative sign of its own, a locale has "-".
     */
    std::string asString(double value, int precision, bool showGrouping) const override;
    std::string asString(unsigned long value) const override;
    std::string asString(long value) const override;
    std::string moneyAsString(double value, CurrSymbol symbol) const override;

    /**
     * White space may stand around a number and behind its sign; groups may be marked, but then
     * rightly. False for what is out of range; a double then is infinite or 0. @{
     */
    bool stringToNum(const std::string& text, unsigned long* value) const override;
    bool stringToNum(const std::string& text, long* value) const override;
    bool stringToNum(const std::string& text, double* value) const override;
    /** @} */

    /**
     * Numbers in the order of the locale's dates with anything between them, or a month's name and
     * two numbers. A year below 100 is one of the twentieth century. Sets year, month and day.
     */
    bool stringToDate(const std::string& text, struct tm* tm) const override;

    /** Hours and minutes, perhaps seconds, perhaps a marker of the half of the day. Sets these. */
    bool stringToTime(const std::string& text, struct tm* tm) const override;

    /** In the smallest unit of the currency. Nothing is an amount with NoSymbol. */
    bool stringToMoney(const std::string& text, double* value, CurrSymbol symbol) const override;

    int monthIndex(const std::string& name) const override;
    int weekdayIndex(const std::string& name) const override;

protected:
    /** What was learnt of the conversion 'X', 'x', 'c' or 'C'; null for another. */
    const LocaleTimeFormat* timeFormat(char conversion) const noexcept;
    /** 0: day, month, year; 1: month, day, year; 2: year, day, month; 3: year, month, day. */
    int dateOrder() const noexcept { return dateOrder_; }

    /** Appends one component, by its index as in QXTimeFmtList; nothing for another number. */
    void formatComponent(std::string& text, const struct tm* tm, int component,
                         const TimeZone& zone) const;
    /** Appends a format's text with its components. */
    void formatTime(std::string& text, const struct tm* tm, const LocaleTimeFormat& format,
                    const TimeZone& zone) const;

private:
    class Builder;

    std::string localeName_;
    std::string decimalPoint_;
    std::string thousandsSep_;
    std::string grouping_;
    std::string intCurrSymbol_;
    std::string currencySymbol_;
    std::string monDecimalPoint_;
    std::string monThousandsSep_;
    std::string monGrouping_;
    std::string positiveSign_;
    std::string negativeSign_;
    char intFracDigits_ = 0;
    char fracDigits_ = 0;
    char pCsPrecedes_ = 0;
    char pSepBySpace_ = 0;
    char nCsPrecedes_ = 0;
    char nSepBySpace_ = 0;
    char pSignPosn_ = 0;
    char nSignPosn_ = 0;
    std::string weekdays_[7];  // from Sunday on
    std::string shortWeekdays_[7];
    std::string months_[12];
    std::string shortMonths_[12];
    std::string am_;
    std::string pm_;
    int numericMonthNames_ = 0;  // how many names of months are empty or all digits
    LocaleTimeFormat time_;
    LocaleTimeFormat date_;
    LocaleTimeFormat dateTime_;
    LocaleTimeFormat longDateTime_;
    const char* positivePattern_ = nullptr;  // of four characters
    const char* negativePattern_ = nullptr;
    double fractionScale_ = 1;
    double internationalFractionScale_ = 1;
    int dateOrder_ = 0;
};

}  // namespace nolk

#endif
