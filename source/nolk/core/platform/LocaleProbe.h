/** @file
 * What the run-time library knows of a locale.
 */
#ifndef NOLK_CORE_PLATFORM_LOCALE_PROBE_H
#define NOLK_CORE_PLATFORM_LOCALE_PROBE_H

#include <ctime>
#include <memory>
#include <string>

namespace nolk::platform {

/** The fields of `lconv`, under their names. */
struct LocaleConventions {
    std::string decimal_point;
    std::string thousands_sep;
    std::string grouping;
    std::string int_curr_symbol;
    std::string currency_symbol;
    std::string mon_decimal_point;
    std::string mon_thousands_sep;
    std::string mon_grouping;
    std::string positive_sign;
    std::string negative_sign;
    char int_frac_digits;
    char frac_digits;
    char p_cs_precedes;
    char p_sep_by_space;
    char n_cs_precedes;
    char n_sep_by_space;
    char p_sign_posn;
    char n_sign_posn;
};

/**
 * While it lives, a locale of the run-time library is at hand, and when it is gone all is as
 * before. Several threads may have one each. On Windows the process is in that locale for the time,
 * so no other thread should use the process's locale then; elsewhere nobody sees anything of it.
 * @pre the thread has no other one
 */
class LocaleProbe {
public:
    /**
     * The locale of this name, by the environment if that is empty. If it is null, or there is no
     * such locale, the one that the process is in. @throws std::bad_alloc
     */
    explicit LocaleProbe(const char* name);
    ~LocaleProbe();
    LocaleProbe(const LocaleProbe&) = delete;
    LocaleProbe& operator=(const LocaleProbe&) = delete;

    /** As `setlocale` tells it for all categories. */
    std::string name() const;

    LocaleConventions conventions() const;

    /** What `strftime` writes; nothing if that is longer than 255 bytes. */
    std::string time(const char* format, const std::tm& tm) const;

    /** The format for the long date and time, which only Windows has a conversion for. */
    static const char* longFormat() noexcept;

    /** Completes a civil time of the process's zone, as `mktime` does. */
    static void normalize(std::tm& tm) noexcept;

private:
    struct State;

    std::unique_ptr<State> state_;
};

}  // namespace nolk::platform

#endif
