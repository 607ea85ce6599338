/** @file
 * The conventions of a culture.
 */
#ifndef NOLK_CORE_LOCALE_H
#define NOLK_CORE_LOCALE_H

#include <nolk/core/Export.h>
#include <nolk/core/TimeZone.h>

#include <ctime>
#include <string>

namespace nolk {

/**
 * How a culture writes and reads numbers, money, dates and times.
 *
 * The first operations are those of the C run-time library's `lconv`, under the same names. A
 * `stringTo...` operation that can't read its text returns false and leaves its result as it was.
 * An object that nobody changes may be used in several threads.
 */
class NOLK_API Locale {
public:
    /** Which name of the currency an amount of money carries. */
    enum CurrSymbol : int {
        NoSymbol = 0,
        LocalSymbol = 1,
        IntlSymbol = 2,
    };

    virtual ~Locale();

    virtual const std::string& locale_name() const = 0;
    virtual const std::string& decimal_point() const = 0;
    virtual const std::string& thousands_sep() const = 0;
    virtual const std::string& grouping() const = 0;
    virtual const std::string& int_curr_symbol() const = 0;
    virtual const std::string& currency_symbol() const = 0;
    virtual const std::string& mon_decimal_point() const = 0;
    virtual const std::string& mon_thousands_sep() const = 0;
    virtual const std::string& mon_grouping() const = 0;
    virtual const std::string& positive_sign() const = 0;
    virtual const std::string& negative_sign() const = 0;
    virtual char int_frac_digits() const = 0;
    virtual char frac_digits() const = 0;
    virtual char p_cs_precedes() const = 0;
    virtual char p_sep_by_space() const = 0;
    virtual char n_cs_precedes() const = 0;
    virtual char n_sep_by_space() const = 0;
    virtual char p_sign_posn() const = 0;
    virtual char n_sign_posn() const = 0;

    /**
     * A civil time by one conversion of `strftime`, such as 'Y'; 'C' is the long date and time.
     * Nothing for a letter that is no conversion. @pre `tm` isn't null
     */
    virtual std::string asString(const struct tm* tm, char conversion,
                                 const TimeZone& zone) const = 0;

    /** Numbers; a double with `precision` digits behind the decimal point. @{ */
    virtual std::string asString(double value, int precision, bool showGrouping) const = 0;
    virtual std::string asString(unsigned long value) const = 0;
    virtual std::string asString(long value) const = 0;
    /** @} */

    /** An amount, told in the smallest unit of the currency. */
    virtual std::string moneyAsString(double value, CurrSymbol symbol) const = 0;

    /** Reading. @pre the pointers aren't null @{ */
    virtual bool stringToNum(const std::string& text, unsigned long* value) const = 0;
    virtual bool stringToNum(const std::string& text, long* value) const = 0;
    virtual bool stringToNum(const std::string& text, double* value) const = 0;
    virtual bool stringToDate(const std::string& text, struct tm* tm) const = 0;
    virtual bool stringToTime(const std::string& text, struct tm* tm) const = 0;
    virtual bool stringToMoney(const std::string& text, double* value, CurrSymbol symbol) const = 0;
    /** @} */

    /** 1 to 12 for the long or short name of a month in any case, and 0 for anything else. */
    virtual int monthIndex(const std::string& name) const = 0;
    /** 1 for Monday to 7 for Sunday, and 0 for what is no name of a week day. */
    virtual int weekdayIndex(const std::string& name) const = 0;

    /**
     * A civil time by a format: "%" and the character behind it become that conversion, "%%" a
     * percent sign, and all else stays, as does a "%" at the end. Null is the empty format.
     */
    std::string asString(const struct tm* tm, const char* format, const TimeZone& zone) const;

    /** A new LocaleSnapshot of "C", which is the caller's. @throws std::bad_alloc */
    static Locale* defaultLocale();

    /** The locale of the process's values: "C", made on first use, until another is installed. */
    static const Locale& global();
    /**
     * Installs another, which stays the caller's and must live until it is replaced. Returns the
     * one before, null if it was never asked for. With null, "C" is made anew. For times when no
     * other thread uses the locale that goes.
     */
    static const Locale* global(const Locale* locale) noexcept;

    /**
     * Deletes the process's zones (TimeZone::local(), standard(), system() and utc()) and global
     * locale where the library made them; they are made anew when they are asked for. For times
     * when no other thread uses one of them.
     */
    static void releaseCache() noexcept;

protected:
    Locale() = default;
    Locale(const Locale&) = default;
    Locale& operator=(const Locale&) = default;
};

}  // namespace nolk

#endif
