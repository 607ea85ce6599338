// The run-time library, msvcrt.dll, has neither locales of a thread nor locale objects that format
// times, so the process is switched. Probes wait for each other: each restores what it has found.

#include "nolk/core/platform/LocaleProbe.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <locale.h>

namespace nolk::platform {

namespace {

SRWLOCK processLocale = SRWLOCK_INIT;

class Guard {
public:
    Guard() { AcquireSRWLockExclusive(&processLocale); }
    ~Guard() { ReleaseSRWLockExclusive(&processLocale); }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;
};

}  // namespace

struct LocaleProbe::State {
    explicit State(const char* name) : before(setlocale(LC_ALL, nullptr)) {
        if (name != nullptr) {
            setlocale(LC_ALL, name);
        }
    }
    ~State() { setlocale(LC_ALL, before.c_str()); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    Guard guard;
    std::string before;
};

LocaleProbe::LocaleProbe(const char* name) : state_(std::make_unique<State>(name)) {}

LocaleProbe::~LocaleProbe() = default;

std::string LocaleProbe::name() const {
    return setlocale(LC_ALL, nullptr);
}

LocaleConventions LocaleProbe::conventions() const {
    const lconv& facts = *localeconv();
    LocaleConventions all;
    all.decimal_point = facts.decimal_point;
    all.thousands_sep = facts.thousands_sep;
    all.grouping = facts.grouping == nullptr ? "" : facts.grouping;
    all.int_curr_symbol = facts.int_curr_symbol;
    all.currency_symbol = facts.currency_symbol;
    all.mon_decimal_point = facts.mon_decimal_point;
    all.mon_thousands_sep = facts.mon_thousands_sep;
    all.mon_grouping = facts.mon_grouping == nullptr ? "" : facts.mon_grouping;
    all.positive_sign = facts.positive_sign;
    all.negative_sign = facts.negative_sign;
    all.int_frac_digits = facts.int_frac_digits;
    all.frac_digits = facts.frac_digits;
    all.p_cs_precedes = facts.p_cs_precedes;
    all.p_sep_by_space = facts.p_sep_by_space;
    all.n_cs_precedes = facts.n_cs_precedes;
    all.n_sep_by_space = facts.n_sep_by_space;
    all.p_sign_posn = facts.p_sign_posn;
    all.n_sign_posn = facts.n_sign_posn;
    return all;
}

std::string LocaleProbe::time(const char* format, const std::tm& tm) const {
    char text[256];
    return std::string(text, strftime(text, sizeof text, format, &tm));
}

const char* LocaleProbe::longFormat() noexcept {
    return "%#c";
}

void LocaleProbe::normalize(std::tm& tm) noexcept {
    mktime(&tm);
}

}  // namespace nolk::platform
