#include "nolk/core/values/LocaleNumber.h"

#include "nolk/core/values/DigitGroups.h"
#include "nolk/core/values/LocaleText.h"
#include "nolk/core/values/PlainNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace nolk {

namespace {

using localetext::skipSpace;
using localetext::take;

// Further digits behind the point are all zero, whatever the double.
constexpr int exactDigits = 1074;
constexpr int integerDigits = 309;
constexpr int defaultPrecision = 6;

std::string writeSpecial(double value) {
    char text[16];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

std::string writeInteger(const Locale& locale, std::string_view sign, unsigned long magnitude) {
    char digits[20];
    const char* end = std::to_chars(digits, digits + sizeof digits, magnitude).ptr;
    std::string text(sign);
    appendGrouped(text, {digits, static_cast<std::size_t>(end - digits)}, locale.grouping(),
                  locale.thousands_sep());
    return text;
}

// Whether the sign in front, if any, is a minus.
bool takeSign(const Locale& locale, std::string_view& text) {
    bool negative = false;
    if (!take(text, locale.positive_sign()) && !take(text, "+")) {
        negative = take(text, locale.negative_sign()) || take(text, "-");
        if (!negative) {
            return false;
        }
    }
    skipSpace(text);
    return negative;
}

bool isBlank(std::string_view text) {
    skipSpace(text);
    return text.empty();
}

// Digits in right groups; there may be none.
std::optional<std::string> takeDigits(const Locale& locale, std::string_view& text) {
    DigitGroups groups;
    groups.take(text, locale.thousands_sep());
    if (!groups.match(locale.grouping())) {
        return std::nullopt;
    }
    return std::move(groups.digits);
}

struct Integer {
    bool negative;
    unsigned long magnitude;
};

std::optional<Integer> readInteger(const Locale& locale, std::string_view text) {
    skipSpace(text);
    const bool negative = takeSign(locale, text);
    const std::optional<std::string> digits = takeDigits(locale, text);
    if (!digits || digits->empty() || !isBlank(text)) {
        return std::nullopt;
    }
    unsigned long magnitude = 0;
    const char* end = digits->data() + digits->size();
    if (std::from_chars(digits->data(), end, magnitude).ec != std::errc()) {
        return std::nullopt;
    }
    return Integer{negative, magnitude};
}

}  // namespace

std::string_view negativeSign(const Locale& locale) {
    const std::string& sign = locale.negative_sign();
    return sign.empty() ? std::string_view("-") : sign;
}

void appendFixed(std::string& text, double magnitude, int precision, const NumberMarks& marks) {
    if (!std::isfinite(magnitude)) {
        text += writeSpecial(magnitude);
        return;
    }
    if (precision < 0) {
        precision = defaultPrecision;
    }
    char digits[integerDigits + 1 + exactDigits];
    const int exact = std::min(precision, exactDigits);
    const char* end =
        std::to_chars(digits, digits + sizeof digits, magnitude, std::chars_format::fixed, exact)
            .ptr;
    const std::string_view all(digits, static_cast<std::size_t>(end - digits));
    const std::size_t point = std::min(all.find('.'), all.size());
    appendGrouped(text, all.substr(0, point), marks.grouping, marks.separator);
    if (precision > 0) {
        text += marks.point;
        text += all.substr(point + 1);
        text.append(static_cast<std::size_t>(precision - exact), '0');
    }
}

std::string writeNumber(const Locale& locale, double value, int precision, bool showGrouping) {
    if (!std::isfinite(value)) {
        return writeSpecial(value);
    }
    std::string text;
    // Zero may have a sign, too, and so may what is rounded to it.
    if (std::signbit(value)) {
        text = negativeSign(locale);
    } else if (value > 0) {
        text = locale.positive_sign();
    }
    NumberMarks marks{locale.decimal_point(), {}, {}};
    if (showGrouping) {
        marks.grouping = locale.grouping();
        marks.separator = locale.thousands_sep();
    }
    appendFixed(text, std::abs(value), precision, marks);
    return text;
}

std::string writeNumber(const Locale& locale, unsigned long value) {
    return writeInteger(locale, value > 0 ? std::string_view(locale.positive_sign()) : "", value);
}

std::string writeNumber(const Locale& locale, long value) {
    if (value >= 0) {
        return writeNumber(locale, static_cast<unsigned long>(value));
    }
    return writeInteger(locale, negativeSign(locale), 0 - static_cast<unsigned long>(value));
}

bool readNumber(const Locale& locale, std::string_view text, unsigned long* value) {
    const std::optional<Integer> number = readInteger(locale, text);
    if (!number || number->negative) {
        return false;
    }
    *value = number->magnitude;
    return true;
}

bool readNumber(const Locale& locale, std::string_view text, long* value) {
    constexpr auto largest = static_cast<unsigned long>(std::numeric_limits<long>::max());
    const std::optional<Integer> number = readInteger(locale, text);
    if (!number || number->magnitude > largest + (number->negative ? 1 : 0)) {
        return false;
    }
    *value = static_cast<long>(number->negative ? 0 - number->magnitude : number->magnitude);
    return true;
}

bool readNumber(const Locale& locale, std::string_view text, double* value) {
    skipSpace(text);
    const bool negative = takeSign(locale, text);
    const std::optional<std::string> integer = takeDigits(locale, text);
    if (!integer) {
        return false;
    }
    std::string plain = *integer;
    if (take(text, locale.decimal_point())) {
        plain += '.';
        for (; localetext::startsWithDigit(text); text.remove_prefix(1)) {
            plain += text.front();
        }
    }
    std::string_view rest = plain;
    const std::optional<double> magnitude = takeDouble(rest);
    if (!magnitude || !isBlank(text)) {
        return false;
    }
    *value = negative ? -*magnitude : *magnitude;
    return true;
}

}  // namespace nolk
