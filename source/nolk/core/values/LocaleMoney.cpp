#include "nolk/core/values/LocaleMoney.h"

#include "nolk/core/values/DigitGroups.h"
#include "nolk/core/values/LocaleNumber.h"
#include "nolk/core/values/LocaleText.h"

#include <climits>
#include <cmath>
#include <optional>

namespace nolk {

namespace {

using localetext::skipSpace;
using localetext::startsWithDigit;
using localetext::take;

// By the place of the symbol, then by the place of the sign.
constexpr char patterns[] = "(m $-m $m $-m- $m $-($ m-$ m$ m--$ m$ -m";
constexpr int positions = 5;
constexpr int patternLength = 4;
constexpr char internationalPattern[] = "$-m ";

constexpr std::size_t mostSeparators = 10;

// What is written around a number.
struct Frame {
    std::string_view pattern;
    std::string_view sign;
    std::string_view symbol;
    bool separated;
};

std::string fill(const Frame& frame, std::string_view number) {
    std::string text;
    for (const char place : frame.pattern) {
        switch (place) {
            case 'm':
                text += number;
                break;
            case '$':
                text += frame.symbol;
                break;
            case '-':
                text += frame.sign;
                break;
            case ' ':
                text += frame.separated ? " " : "";
                break;
            default:
                text += place;
                break;
        }
    }
    if (frame.pattern.starts_with('(')) {
        text += ')';
    }
    return text;
}

std::string_view signOf(const Locale& locale, double value) {
    if (value < 0) {
        return negativeSign(locale);
    }
    return value > 0 ? std::string_view(locale.positive_sign()) : "";
}

// CHAR_MAX is no separation: such a locale doesn't tell.
bool separates(const Locale& locale, double value) {
    const char by = value < 0 ? locale.n_sep_by_space() : locale.p_sep_by_space();
    return by == 1 || by == 2;
}

// Reads one amount, whose parts may come in any order.
class MoneyReader {
public:
    MoneyReader(const Locale& locale, std::string_view text, bool international)
        : locale_(locale),
          text_(text),
          symbol_(international ? locale.int_curr_symbol() : locale.currency_symbol()),
          digits_(international ? locale.int_frac_digits() : locale.frac_digits()) {
        if (!international) {
            positive_ = locale.positive_sign();
            negative_ = locale.negative_sign();
        }
    }

    std::optional<double> read(int rounds) {
        skipSpace(text_);
        if (take(text_, "(")) {
            sign_ = '(';
            skipSpace(text_);
        }
        for (; rounds > 0 && !text_.empty() && !isComplete(); --rounds) {
            readSymbol();
            readSign();
            readNumber();
        }
        if (!closeParenthesis() || !text_.empty() || !number_) {
            return std::nullopt;
        }
        return sign_ == '-' ? -*number_ : *number_;
    }

private:
    bool isComplete() const { return sign_ != '\0' && hasSymbol_ && number_; }

    void readSymbol() {
        if (!hasSymbol_ && !startsWithDigit(text_) && take(text_, symbol_)) {
            hasSymbol_ = true;
            skipSpace(text_);
        }
    }

    void readSign() {
        if (sign_ != '\0' || startsWithDigit(text_)) {
            return;
        }
        if (take(text_, "-")) {
            sign_ = '-';
        } else if (take(text_, "+")) {
            sign_ = '+';
        } else if (take(text_, negative_)) {
            sign_ = '-';
        } else if (take(text_, positive_)) {
            sign_ = '+';
        } else {
            return;
        }
        skipSpace(text_);
    }

    void readNumber() {
        if (number_) {
            return;
        }
        std::string_view rest = text_;
        number_ = takeNumber(rest);
        if (number_) {
            text_ = rest;
            skipSpace(text_);
        }
    }

    std::optional<double> takeNumber(std::string_view& text) const {
        DigitGroups groups;
        if (!groups.take(text, locale_.mon_thousands_sep(), mostSeparators) ||
            !groups.match(locale_.mon_grouping())) {
            return std::nullopt;
        }
        int missing = digits_;
        if (digits_ > 0 && take(text, decimalText())) {
            for (; startsWithDigit(text); text.remove_prefix(1)) {
                groups.digits += text.front();
                --missing;
            }
            if (missing != 0) {
                return std::nullopt;
            }
        }
        if (groups.digits.empty()) {
            return std::nullopt;
        }
        double value = 0;
        for (const char digit : groups.digits) {
            value = value * 10 + (digit - '0');
        }
        for (; missing > 0; --missing) {
            value *= 10;
        }
        return value;
    }

    std::string_view decimalText() const {
        std::string_view text = locale_.mon_decimal_point();
        const bool isUnset =
            locale_.int_frac_digits() == CHAR_MAX && locale_.frac_digits() == CHAR_MAX;
        if (text.empty() && !isUnset) {
            text = locale_.decimal_point();
        }
        return text.empty() ? "." : text;
    }

    // False if one is open and stays so.
    bool closeParenthesis() {
        if (sign_ != '(') {
            return true;
        }
        sign_ = '-';
        const bool closes = take(text_, ")");
        skipSpace(text_);
        return closes;
    }

    const Locale& locale_;
    std::string_view text_;
    std::string_view symbol_;
    std::string_view positive_;
    std::string_view negative_;
    int digits_;
    char sign_ = '\0';
    bool hasSymbol_ = false;
    std::optional<double> number_;
};

}  // namespace

const char* moneyPattern(char precedes, char posn) noexcept {
    return patterns + ((precedes != 0 ? positions : 0) + posn) * patternLength;
}

std::string writeMoney(const Locale& locale, const MoneyForm& form, double value,
                       Locale::CurrSymbol symbol) {
    Frame frame{{}, signOf(locale, value), {}, separates(locale, value)};
    double scale = form.fractionScale;
    int digits = locale.frac_digits();
    if (symbol == Locale::IntlSymbol) {
        frame.pattern = internationalPattern;
        frame.symbol = locale.int_curr_symbol();
        scale = form.internationalFractionScale;
        digits = locale.int_frac_digits();
    } else {
        frame.pattern = {value < 0 ? form.negativePattern : form.positivePattern, patternLength};
        frame.symbol =
            symbol == Locale::LocalSymbol ? locale.currency_symbol() : std::string_view();
    }
    std::string number;
    appendFixed(number, std::abs(value) / scale, digits,
                {locale.mon_decimal_point(), locale.mon_grouping(), locale.mon_thousands_sep()});
    return fill(frame, number);
}

bool readMoney(const Locale& locale, std::string_view text, double* value,
               Locale::CurrSymbol symbol) {
    if (symbol != Locale::LocalSymbol && symbol != Locale::IntlSymbol) {
        return false;
    }
    const bool international = symbol == Locale::IntlSymbol;
    const std::optional<double> amount =
        MoneyReader(locale, text, international).read(international ? 1 : 3);
    if (amount) {
        *value = *amount;
    }
    return amount.has_value();
}

}  // namespace nolk
