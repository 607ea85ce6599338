// A locale object of its own: neither the process nor the thread is switched. `localeconv` would
// need that, and fills one structure for all threads, so the fields are asked for one by one.

#include "nolk/core/platform/LocaleProbe.h"

#include <langinfo.h>
#include <locale.h>

#include <climits>
#include <new>

namespace nolk::platform {

struct LocaleProbe::State {
    explicit State(const char* name) {
        if (name != nullptr) {
            locale = newlocale(LC_ALL_MASK, name, locale_t{});
        }
        if (locale == locale_t{}) {
            locale = duplocale(LC_GLOBAL_LOCALE);
        }
        if (locale == locale_t{}) {
            throw std::bad_alloc();
        }
    }
    ~State() { freelocale(locale); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    std::string text(nl_item item) const { return nl_langinfo_l(item, locale); }

    // As `localeconv` tells it: no grouping where the first group has no size.
    std::string grouping(nl_item item) const {
        std::string sizes = text(item);
        if (sizes.starts_with('\177') || sizes.starts_with('\377')) {
            sizes.clear();
        }
        return sizes;
    }

    // Locales have -1 for what they leave open, `localeconv` CHAR_MAX.
    char number(nl_item item) const {
        const char value = *nl_langinfo_l(item, locale);
        return value == '\377' ? static_cast<char>(CHAR_MAX) : value;
    }

    locale_t locale{};
};

LocaleProbe::LocaleProbe(const char* name) : state_(std::make_unique<State>(name)) {}

LocaleProbe::~LocaleProbe() = default;

std::string LocaleProbe::name() const {
    static constexpr struct {
        const char* name;
        int category;
    } categories[] = {
        {"LC_CTYPE", LC_CTYPE},
        {"LC_NUMERIC", LC_NUMERIC},
        {"LC_TIME", LC_TIME},
        {"LC_COLLATE", LC_COLLATE},
        {"LC_MONETARY", LC_MONETARY},
        {"LC_MESSAGES", LC_MESSAGES},
        {"LC_PAPER", LC_PAPER},
        {"LC_NAME", LC_NAME},
        {"LC_ADDRESS", LC_ADDRESS},
        {"LC_TELEPHONE", LC_TELEPHONE},
        {"LC_MEASUREMENT", LC_MEASUREMENT},
        {"LC_IDENTIFICATION", LC_IDENTIFICATION},
    };
    const std::string first = state_->text(NL_LOCALE_NAME(LC_CTYPE));
    bool differs = false;
    std::string all;
    for (const auto& [name, category] : categories) {
        const std::string value = state_->text(NL_LOCALE_NAME(category));
        differs = differs || value != first;
        all += all.empty() ? "" : ";";
        all += name;
        all += '=';
        all += value;
    }
    return differs ? all : first;
}

LocaleConventions LocaleProbe::conventions() const {
    LocaleConventions all;
    all.decimal_point = state_->text(RADIXCHAR);
    all.thousands_sep = state_->text(THOUSEP);
    all.grouping = state_->grouping(GROUPING);
    all.int_curr_symbol = state_->text(INT_CURR_SYMBOL);
    all.currency_symbol = state_->text(CURRENCY_SYMBOL);
    all.mon_decimal_point = state_->text(MON_DECIMAL_POINT);
    all.mon_thousands_sep = state_->text(MON_THOUSANDS_SEP);
    all.mon_grouping = state_->grouping(MON_GROUPING);
    all.positive_sign = state_->text(POSITIVE_SIGN);
    all.negative_sign = state_->text(NEGATIVE_SIGN);
    all.int_frac_digits = state_->number(INT_FRAC_DIGITS);
    all.frac_digits = state_->number(FRAC_DIGITS);
    all.p_cs_precedes = state_->number(P_CS_PRECEDES);
    all.p_sep_by_space = state_->number(P_SEP_BY_SPACE);
    all.n_cs_precedes = state_->number(N_CS_PRECEDES);
    all.n_sep_by_space = state_->number(N_SEP_BY_SPACE);
    all.p_sign_posn = state_->number(P_SIGN_POSN);
    all.n_sign_posn = state_->number(N_SIGN_POSN);
    return all;
}

std::string LocaleProbe::time(const char* format, const std::tm& tm) const {
    char text[256];
    return std::string(text, strftime_l(text, sizeof text, format, &tm, state_->locale));
}

const char* LocaleProbe::longFormat() noexcept {
    return "%A, %B %d, %Y %X";
}

void LocaleProbe::normalize(std::tm& tm) noexcept {
    mktime(&tm);
}

}  // namespace nolk::platform
