/** @file
 * Products of long polynomials, by a number-theoretic transform.
 */
#ifndef NOLK_CORE_VALUES_NUMBER_TRANSFORM_H
#define NOLK_CORE_VALUES_NUMBER_TRANSFORM_H

#include <cstddef>
#include <cstdint>
#include <span>

#include "nolk/core/values/WideWord.h"

namespace nolk {

/** The longest polynomials whose product fits: its coefficients stay below that of the primes. */
inline constexpr std::size_t longestTransformed = std::size_t{1} << 19;

/**
 * The product of two polynomials with coefficients up to 10^16.
 * @pre neither is empty, nor longer than longestTransformed; `product` has room for the
 *      coefficients of both, less one
 * @throws std::bad_alloc
 */
void transformProduct(std::span<WideWord> product, std::span<const std::uint64_t> a,
                      std::span<const std::uint64_t> b);

}  // namespace nolk

#endif
