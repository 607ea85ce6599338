#include <nolk/core/DecimalInit.h>

#include <nolk/core/Decimal.h>

#include <new>

namespace nolk {

namespace {

// Room that is there before any code runs, and whose value is never destroyed.
union Constant {
    constexpr Constant() noexcept : none(0) {}
    constexpr ~Constant() {}

    char none;
    Decimal value;
};

constinit Constant nullConstant;
constinit Constant notANumberConstant;
constinit Constant missingConstant;

}  // namespace

constinit const Decimal& Decimal::null = nullConstant.value;
constinit const Decimal& Decimal::NaN = notANumberConstant.value;
constinit const Decimal& Decimal::missing = missingConstant.value;

constinit int DecimalInit::count_ = 0;

DecimalInit::DecimalInit() noexcept {
    if (count_ == 0) {
        new (&missingConstant.value) Decimal(Decimal::State::missing);
        new (&notANumberConstant.value) Decimal(Decimal::State::NaN);
        new (&nullConstant.value) Decimal(Decimal::State::null);
        count_ = 1;
    }
}

}  // namespace nolk
