// Rounding keeps the first digits and drops the tail behind them:
//
//     1234.5678, 2 places:   kept "123456", tail "78"
//     1234.5678, -2 places:  kept "12",     tail "345678"
//     1234.5678, -5 places:  kept "0",      tail "01234.5678" without the point
//
// The zeros that stand in front of the number in the last case are never written down.
#include <cstdint>
#include <string>
#include <string_view>

#include "nolk/core/values/DecimalArithmetic.h"
#include "nolk/core/values/DigitSums.h"

namespace nolk {

namespace {

// The tail, as far as it matters.
struct Tail {
    char first;
    bool single;
};

bool roundsUp(std::string_view kept, Tail tail, Decimal::RoundingMethod method) {
    switch (method) {
        case Decimal::halfUp:
            return tail.first >= '5';
        case Decimal::awayFromZero:
            return true;
        case Decimal::halfEven:
            if (tail.single && tail.first == '5') {
                return (kept.back() - '0') % 2 != 0;
            }
            return tail.first >= '5';
        default:
            return false;
    }
}

void roundKept(std::string& kept, Tail tail, Decimal::RoundingMethod method) {
    if (roundsUp(kept, tail, method) && asciiIncrement(kept.data(), kept.size())) {
        kept.insert(kept.begin(), '1');
    }
}

}  // namespace

void DecimalArithmetic::roundFraction(Decimal& value, std::size_t places,
                                      Decimal::RoundingMethod method) {
    const Tail tail = {value.fraction_[places], value.fraction_.size() == places + 1};
    value.integer_.append(value.fraction_, 0, places);
    roundKept(value.integer_, tail, method);
    const std::size_t point = value.integer_.size() - places;
    value.fraction_.assign(value.integer_, point);
    value.integer_.resize(point);
}

void DecimalArithmetic::roundInteger(Decimal& value, std::uint64_t zeros,
                                     Decimal::RoundingMethod method) {
    const std::size_t length = value.integer_.size();
    Tail tail = {'0', zeros == 1 && value.fraction_.empty()};
    if (zeros < length) {
        tail.first = value.integer_[length - zeros];
        value.integer_.resize(length - zeros);
    } else {
        tail.first = zeros == length ? value.integer_[0] : '0';
        value.integer_ = "0";
    }
    roundKept(value.integer_, tail, method);
    value.integer_.append(zeros, '0');
    value.fraction_.clear();
}

Decimal DecimalArithmetic::rounded(const Decimal& value, long places,
                                   Decimal::RoundingMethod method) {
    Decimal result(value);
    if (!value.isNumber()) {
        return result;
    }
    result.fraction_.resize(withoutTrailingZeros(result.fraction_).size());
    if (places < 0) {
        roundInteger(result, 0 - static_cast<std::uint64_t>(places), method);
    } else {
        if (places == 0 && result.integer_.empty()) {
            result.integer_ = "0";
        }
        const auto kept = static_cast<std::size_t>(places);
        if (kept >= result.scale()) {
            // Nothing is dropped, and a zero keeps its sign.
            result.fraction_.resize(kept, '0');
            return result;
        }
        roundFraction(result, kept, method);
    }
    result.negative_ = result.negative_ && !result.isZero();
    return result;
}

Decimal round(const Decimal& value, long places, Decimal::RoundingMethod method) {
    return DecimalArithmetic::rounded(value, places, method);
}

}  // namespace nolk
