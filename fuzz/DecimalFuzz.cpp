// Texts, read as decimals; what the operators give for two of them is held against the laws of
// arithmetic, and what comes out as text is read again.
#include "FuzzInput.h"

#include <nolk/core/Decimal.h>
#include <nolk/core/DecimalParser.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace {

using nolk::Decimal;

bool areSame(const Decimal& a, const Decimal& b) {
    return a == b && a.asString() == b.asString();
}

// Digits, and a point with digits behind it.
bool hasForm(const std::string& text) {
    const std::size_t sign = text.front() == '-';
    const std::size_t point = std::min(text.find('.'), text.size());
    const auto areDigits = [&text](std::size_t begin, std::size_t end) {
        return begin < end && text.find_first_not_of("0123456789", begin) >= end;
    };
    return areDigits(sign, point) && (point == text.size() || areDigits(point + 1, text.size()));
}

void checkValue(const Decimal& value) {
    const std::string text = value.asString();
    require(areSame(Decimal(text), value), "what was written is read again");
    require(value.precision() >= value.scale() && value.numSignificantDigits() <= value.precision(),
            "the digits are counted");
    require(std::isnan(toDouble(value)) == !value.isNumber(), "only numbers are doubles");
    Decimal trimmed(value);
    trimmed.trimZeros();
    require(trimmed == value && trimmed.isZero() == (trimmed.precision() == 0),
            "zeros at the ends don't count");
    if (value.isNumber()) {
        require(hasForm(text), "numbers are digits");
        require(!value.isZero() || text.front() != '-', "a zero has no sign");
    } else {
        require(value.precision() == 0, "what is no number has no digits");
    }
}

void checkRounding(const Decimal& value, long places, int method) {
    const auto how = static_cast<Decimal::RoundingMethod>(method);
    const Decimal rounded = round(value, places, how);
    if (!value.isNumber()) {
        require(areSame(rounded, value), "only numbers are rounded");
        return;
    }
    const Decimal unit =
        places < 0 ? Decimal("1" + std::string(static_cast<std::size_t>(-places), '0'))
                   : Decimal("0." + std::string(static_cast<std::size_t>(places), '0') + "1") * 10;
    const Decimal error = rounded - value;
    require(error <= unit && -error <= unit, "rounding goes to a neighbour");
    require(rounded.scale() == static_cast<std::size_t>(std::max(places, 0L)),
            "rounding keeps the places");
    require(round(-value, places, how) == -rounded, "rounding works on the magnitude");
    const Decimal twice = error * 2;
    require(method != 0 && method != 3 ? true : twice <= unit && -twice <= unit,
            "rounding to the nearest goes there");
}

void checkPair(const Decimal& a, const Decimal& b) {
    require(areSame(a * b, b * a) && (a.isNumber() != b.isNumber() || areSame(a + b, b + a)),
            "the order of operands doesn't matter");
    require((a < b) + (b < a) <= 1, "one comes first at most");
    require((a == b) == (b == a) && (a != b) == !(a == b), "equality is mutual");
    if (a.isNumber() && b.isNumber()) {
        require((a < b) + (b < a) + (a == b) == 1, "numbers are in one order");
        require(a - b + b == a, "a difference and its subtrahend make the minuend");
        require(areSame((a + b) * (a - b), a * a - b * b), "products distribute over sums");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const long places = static_cast<long>(input.byte()) - 128;
    const int method = input.byte() % 6;
    const std::string text = input.rest();
    const std::size_t middle = std::min(text.find(';'), text.size());
    const Decimal a(text.substr(0, middle));
    const Decimal b(text.substr(std::min(middle + 1, text.size())));
    checkValue(a);
    checkValue(b);
    checkRounding(a, places, method);
    checkPair(a, b);
    checkPair(a, -b);

    nolk::DecimalParser parse;
    parse(text.c_str());
    require(areSame(parse(a.asString().c_str()), a), "a parser may be used again");
    return 0;
}
