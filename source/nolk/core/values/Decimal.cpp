#include <nolk/core/Decimal.h>

#include <nolk/core/DecimalParser.h>
#include <nolk/core/Hash.h>
#include <nolk/core/Locale.h>

#include "nolk/core/foundation/NumberText.h"
#include "nolk/core/values/DigitSums.h"

#include <limits>
#include <ostream>

namespace nolk {

namespace {

const char* textOf(DecimalBase::State state) {
    switch (state) {
        case DecimalBase::null:
            return "(null)";
        case DecimalBase::NaN:
            return "(NaN)";
        case DecimalBase::ctorError:
            return "(ctorError)";
        case DecimalBase::missing:
            return "(missing)";
        default:
            return "(Impossible value)";
    }
}

unsigned magnitude(int value) {
    return value < 0 ? 0 - static_cast<unsigned>(value) : static_cast<unsigned>(value);
}

}  // namespace

Decimal::Decimal(int value)
    : negative_(value < 0), integer_(unsignedLongToString(magnitude(value))) {}

Decimal::Decimal(const char* text) : Decimal(DecimalParser()(text)) {
    negative_ = negative_ && !isZero();
}

Decimal::Decimal(const std::string& text) : Decimal(text.c_str()) {}

void Decimal::setState(State state) noexcept {
    state_ = state;
    if (state != number) {
        negative_ = false;
        integer_.clear();
        fraction_.clear();
    }
}

std::size_t Decimal::numSignificantDigits() const noexcept {
    return withoutLeadingZeros(integer_).size() + fraction_.size();
}

bool Decimal::isZero() const noexcept {
    return withoutLeadingZeros(integer_).empty() && withoutLeadingZeros(fraction_).empty();
}

void Decimal::trimZeros() {
    fraction_.resize(withoutTrailingZeros(fraction_).size());
    integer_.erase(0, integer_.size() - withoutLeadingZeros(integer_).size());
}

unsigned Decimal::hash() const noexcept {
    const unsigned sum = nolkStringHash(fraction_) + nolkStringHash(integer_);
    return negative_ ? 0 - sum : sum;
}

std::string Decimal::asString(const Locale& locale) const {
    if (!isNumber()) {
        return textOf(state_);
    }
    const std::string separator = decimalSeparator(locale);
    std::string text;
    text.reserve(2 + precision() + separator.size());
    if (negative_ && precision() != 0) {
        text += '-';
    }
    if (integer_.empty()) {
        text += '0';
    }
    text += integer_;
    if (!fraction_.empty()) {
        text += separator;
        text += fraction_;
    }
    return text;
}

std::string Decimal::asString() const {
    return asString(Locale::global());
}

std::string Decimal::decimalSeparator(const Locale& locale) {
    const std::string& point = locale.decimal_point();
    return point.empty() && locale.thousands_sep() != "." ? "." : point;
}

std::string Decimal::decimalSeparator() {
    return decimalSeparator(Locale::global());
}

std::string Decimal::thousandsSeparator(const Locale& locale) {
    const std::string& separator = locale.thousands_sep();
    return separator.empty() && locale.decimal_point() != "," ? "," : separator;
}

std::string Decimal::thousandsSeparator() {
    return thousandsSeparator(Locale::global());
}

Decimal& Decimal::operator+=(const Decimal& other) {
    return *this = *this + other;
}

Decimal& Decimal::operator-=(const Decimal& other) {
    return *this = *this - other;
}

Decimal& Decimal::operator*=(const Decimal& other) {
    return *this = *this * other;
}

double toDouble(const Decimal& value) {
    double result = std::numeric_limits<double>::quiet_NaN();
    Locale::global().stringToNum(value.asString(), &result);
    return result;
}

std::ostream& operator<<(std::ostream& out, const Decimal& value) {
    return out << value.asString();
}

}  // namespace nolk
