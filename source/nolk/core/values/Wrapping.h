/** @file
 * Arithmetic on 64 bits that wraps at their ends.
 */
#ifndef NOLK_CORE_VALUES_WRAPPING_H
#define NOLK_CORE_VALUES_WRAPPING_H

namespace nolk::wrapping {

constexpr long long sum(long long a, long long b) {
    return static_cast<long long>(static_cast<unsigned long long>(a) +
                                  static_cast<unsigned long long>(b));
}

constexpr long long difference(long long a, long long b) {
    return static_cast<long long>(static_cast<unsigned long long>(a) -
                                  static_cast<unsigned long long>(b));
}

constexpr long long product(long long a, long long b) {
    return static_cast<long long>(static_cast<unsigned long long>(a) *
                                  static_cast<unsigned long long>(b));
}

}  // namespace nolk::wrapping

#endif
