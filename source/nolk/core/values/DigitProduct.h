/** @file
 * Products of long decimal integers.
 */
#ifndef NOLK_CORE_VALUES_DIGIT_PRODUCT_H
#define NOLK_CORE_VALUES_DIGIT_PRODUCT_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace nolk {

/** The digits in a limb. */
inline constexpr std::size_t digitsPerLimb = 16;

/** A limb is below this, 10^16. */
inline constexpr std::uint64_t limbBase = 10'000'000'000'000'000u;

/** The limbs of so many digits. */
constexpr std::size_t limbsOf(std::size_t digits) {
    return digits / digitsPerLimb + (digits % digitsPerLimb != 0);
}

/**
 * Reads limbs, the least significant first, from the ASCII digits of an integer part and a
 * fraction, taken as one integer. What lies above the digits is zero.
 */
void readLimbs(std::span<std::uint64_t> limbs, std::string_view integer,
               std::string_view fraction) noexcept;

/** The same of at most `digitsPerLimb` digits in all. */
std::uint64_t readLimb(std::string_view integer, std::string_view fraction) noexcept;

/** Writes limbs in `digitsPerLimb` ASCII digits for each, the most significant limb first. */
void writeLimbs(char* digits, std::span<const std::uint64_t> limbs) noexcept;

/** From how many limbs of the shorter factor on each way of multiplying is the fastest. */
struct ProductLimits {
    std::size_t halving = 56;      /**< Karatsuba's; below, every limb by every limb. */
    std::size_t transform = 2500;  /**< The number-theoretic transform. */
    std::size_t longest = 500'000; /**< Longer ones are cut to pieces. */
};

/** The product of two limbs. */
std::array<std::uint64_t, 2> multiplyLimb(std::uint64_t a, std::uint64_t b) noexcept;

/**
 * The product of two integers of limbs, the least significant limb first.
 * @pre neither is empty; `product` has as many limbs as both, and is none of them
 * @throws std::bad_alloc for factors long enough for other than the plain way
 */
void multiplyLimbs(std::span<std::uint64_t> product, std::span<const std::uint64_t> a,
                   std::span<const std::uint64_t> b, const ProductLimits& limits = {});

}  // namespace nolk

#endif
