// How a snapshot is taken: all that the run-time library is ever asked for.

#include <nolk/core/LocaleSnapshot.h>

#include "nolk/core/platform/LocaleProbe.h"
#include "nolk/core/values/LocaleMoney.h"
#include "nolk/core/values/TimeFormatProbe.h"

#include <algorithm>
#include <string_view>

namespace nolk {

namespace {

// 30 November 1990, 22:54:56, a Friday: no two components have the same text.
std::tm sampleMoment() {
    std::tm tm{};
    tm.tm_sec = 56;
    tm.tm_min = 54;
    tm.tm_hour = 22;
    tm.tm_mday = 30;
    tm.tm_mon = 10;
    tm.tm_year = 90;
    tm.tm_isdst = -1;
    platform::LocaleProbe::normalize(tm);
    return tm;
}

std::string stripped(std::string_view name) {
    const std::size_t begin = std::min(name.find_first_not_of(' '), name.size());
    const std::size_t end = name.find_last_not_of(' ') + 1;
    return std::string(name.substr(begin, end > begin ? end - begin : 0));
}

bool isNumeric(const std::string& name) {
    return name.find_first_not_of("0123456789") == std::string::npos;
}

// What is out of its range gets the value for locales that don't tell.
void limit(char& value, char largest, char otherwise) {
    if (value < 0 || value > largest) {
        value = otherwise;
    }
}

// Exact, as far as digits behind a point go.
double powerOfTen(int exponent) {
    double power = 1;
    for (; exponent > 0; --exponent) {
        power *= 10;
    }
    return power;
}

}  // namespace

class LocaleSnapshot::Builder {
public:
    Builder(LocaleSnapshot& result, const char* name)
        : to_(result), runtime_(name), sample_(sampleMoment()) {}

    void build() {
        copyConventions();
        copyNames();
        for (std::size_t i = 0; i < timeConversions.size(); ++i) {
            const char format[] = {'%', timeConversions[i], '\0'};
            texts_[i] = runtime_.time(format, sample_);
        }
        learn(to_.time_, "%X");
        for (const auto& [format, conversion] : {
                 Conversion{to_.date_, "%x"},
                 Conversion{to_.dateTime_, "%c"},
                 Conversion{to_.longDateTime_, platform::LocaleProbe::longFormat()},
             }) {
            learn(format, conversion);
            learnBlanks(format, conversion);
        }
        to_.dateOrder_ = dateOrderOf(to_.date_);
        prepareMoney();
    }

private:
    struct Conversion {
        LocaleTimeFormat& format;
        const char* conversion;
    };

    void copyConventions() {
        platform::LocaleConventions all = runtime_.conventions();
        to_.localeName_ = runtime_.name();
        to_.decimalPoint_ = std::move(all.decimal_point);
        to_.thousandsSep_ = std::move(all.thousands_sep);
        to_.grouping_ = std::move(all.grouping);
        to_.intCurrSymbol_ = std::move(all.int_curr_symbol);
        to_.currencySymbol_ = std::move(all.currency_symbol);
        to_.monDecimalPoint_ = std::move(all.mon_decimal_point);
        to_.monThousandsSep_ = std::move(all.mon_thousands_sep);
        to_.monGrouping_ = std::move(all.mon_grouping);
        to_.positiveSign_ = std::move(all.positive_sign);
        to_.negativeSign_ = std::move(all.negative_sign);
        to_.intFracDigits_ = all.int_frac_digits;
        to_.fracDigits_ = all.frac_digits;
        to_.pCsPrecedes_ = all.p_cs_precedes;
        to_.pSepBySpace_ = all.p_sep_by_space;
        to_.nCsPrecedes_ = all.n_cs_precedes;
        to_.nSepBySpace_ = all.n_sep_by_space;
        to_.pSignPosn_ = all.p_sign_posn;
        to_.nSignPosn_ = all.n_sign_posn;
    }

    void copyNames() {
        std::tm tm = sample_;
        for (tm.tm_wday = 0; tm.tm_wday < 7; ++tm.tm_wday) {
            to_.weekdays_[tm.tm_wday] = runtime_.time("%A", tm);
            to_.shortWeekdays_[tm.tm_wday] = runtime_.time("%a", tm);
        }
        tm = sample_;
        for (tm.tm_mon = 0; tm.tm_mon < 12; ++tm.tm_mon) {
            to_.months_[tm.tm_mon] = monthName("%B", tm);
            to_.shortMonths_[tm.tm_mon] = monthName("%b", tm);
        }
        tm = sample_;
        tm.tm_hour = 5;
        to_.am_ = runtime_.time("%p", tm);
        tm.tm_hour = 15;
        to_.pm_ = runtime_.time("%p", tm);
    }

    std::string monthName(const char* format, const std::tm& tm) {
        std::string name = stripped(runtime_.time(format, tm));
        to_.numericMonthNames_ += isNumeric(name);
        return name;
    }

    void learn(LocaleTimeFormat& format, const char* conversion) {
        learnFormat(format, runtime_.time(conversion, sample_), texts_);
    }

    void learnBlanks(LocaleTimeFormat& format, const char* conversion) {
        const std::string sample = runtime_.time(conversion, sample_);
        std::tm tm = sample_;
        tm.tm_mday = 2;
        learnPadding(format, dayOfMonth, paddedDay, sample, runtime_.time(conversion, tm), texts_);
        tm = sample_;
        tm.tm_mon = 2;
        learnPadding(format, monthNumber, paddedMonth, sample, runtime_.time(conversion, tm),
                     texts_);
    }

    // The two places of the sign have different defaults.
    void prepareMoney() {
        limit(to_.fracDigits_, 18, 0);
        limit(to_.intFracDigits_, 18, 0);
        limit(to_.nSignPosn_, 4, 0);
        limit(to_.pSignPosn_, 4, 1);
        to_.positivePattern_ = moneyPattern(to_.pCsPrecedes_, to_.pSignPosn_);
        to_.negativePattern_ = moneyPattern(to_.nCsPrecedes_, to_.nSignPosn_);
        to_.fractionScale_ = powerOfTen(to_.fracDigits_);
        to_.internationalFractionScale_ = powerOfTen(to_.intFracDigits_);
    }

    LocaleSnapshot& to_;
    platform::LocaleProbe runtime_;
    std::tm sample_;
    std::string texts_[timeConversions.size()];  // of the sample
};

LocaleSnapshot::LocaleSnapshot(const char* name) {
    Builder(*this, name).build();
}

}  // namespace nolk
