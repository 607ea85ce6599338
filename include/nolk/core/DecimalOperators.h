/** @file
 * The comparisons of Decimal. Decimal.h includes them.
 */
#ifndef NOLK_CORE_DECIMAL_OPERATORS_H
#define NOLK_CORE_DECIMAL_OPERATORS_H

#include <nolk/core/Decimal.h>
#include <nolk/core/Export.h>

#include <string>

namespace nolk {

/** @name Comparing
 * `==` of two numbers goes by their value, so that zeros at the ends and the sign of a zero don't
 * count; of others by their states. The orderings look at sign and digits only, never at the state:
 * what is no number stands where zero stands.
 *
 * A text or an `int` on either side becomes a Decimal first. @{ */
NOLK_API bool operator==(const Decimal& a, const Decimal& b) noexcept;
NOLK_API bool operator<(const Decimal& a, const Decimal& b) noexcept;

inline bool operator!=(const Decimal& a, const Decimal& b) noexcept {
    return !(a == b);
}
inline bool operator>(const Decimal& a, const Decimal& b) noexcept {
    return b < a;
}
inline bool operator<=(const Decimal& a, const Decimal& b) noexcept {
    return !(b < a);
}
inline bool operator>=(const Decimal& a, const Decimal& b) noexcept {
    return !(a < b);
}

inline bool operator==(const Decimal& a, const std::string& b) {
    return a == Decimal(b);
}
inline bool operator!=(const Decimal& a, const std::string& b) {
    return a != Decimal(b);
}
inline bool operator<(const Decimal& a, const std::string& b) {
    return a < Decimal(b);
}
inline bool operator>(const Decimal& a, const std::string& b) {
    return a > Decimal(b);
}
inline bool operator<=(const Decimal& a, const std::string& b) {
    return a <= Decimal(b);
}
inline bool operator>=(const Decimal& a, const std::string& b) {
    return a >= Decimal(b);
}
inline bool operator==(const std::string& a, const Decimal& b) {
    return Decimal(a) == b;
}
inline bool operator!=(const std::string& a, const Decimal& b) {
    return Decimal(a) != b;
}
inline bool operator<(const std::string& a, const Decimal& b) {
    return Decimal(a) < b;
}
inline bool operator>(const std::string& a, const Decimal& b) {
    return Decimal(a) > b;
}
inline bool operator<=(const std::string& a, const Decimal& b) {
    return Decimal(a) <= b;
}
inline bool operator>=(const std::string& a, const Decimal& b) {
    return Decimal(a) >= b;
}

inline bool operator==(const Decimal& a, const char* b) {
    return a == Decimal(b);
}
inline bool operator!=(const Decimal& a, const char* b) {
    return a != Decimal(b);
}
inline bool operator<(const Decimal& a, const char* b) {
    return a < Decimal(b);
}
inline bool operator>(const Decimal& a, const char* b) {
    return a > Decimal(b);
}
inline bool operator<=(const Decimal& a, const char* b) {
    return a <= Decimal(b);
}
inline bool operator>=(const Decimal& a, const char* b) {
    return a >= Decimal(b);
}
inline bool operator==(const char* a, const Decimal& b) {
    return Decimal(a) == b;
}
inline bool operator!=(const char* a, const Decimal& b) {
    return Decimal(a) != b;
}
inline bool operator<(const char* a, const Decimal& b) {
    return Decimal(a) < b;
}
inline bool operator>(const char* a, const Decimal& b) {
    return Decimal(a) > b;
}
inline bool operator<=(const char* a, const Decimal& b) {
    return Decimal(a) <= b;
}
inline bool operator>=(const char* a, const Decimal& b) {
    return Decimal(a) >= b;
}

inline bool operator==(const Decimal& a, int b) {
    return a == Decimal(b);
}
inline bool operator!=(const Decimal& a, int b) {
    return a != Decimal(b);
}
inline bool operator<(const Decimal& a, int b) {
    return a < Decimal(b);
}
inline bool operator>(const Decimal& a, int b) {
    return a > Decimal(b);
}
inline bool operator<=(const Decimal& a, int b) {
    return a <= Decimal(b);
}
inline bool operator>=(const Decimal& a, int b) {
    return a >= Decimal(b);
}
inline bool operator==(int a, const Decimal& b) {
    return Decimal(a) == b;
}
inline bool operator!=(int a, const Decimal& b) {
    return Decimal(a) != b;
}
inline bool operator<(int a, const Decimal& b) {
    return Decimal(a) < b;
}
inline bool operator>(int a, const Decimal& b) {
    return Decimal(a) > b;
}
inline bool operator<=(int a, const Decimal& b) {
    return Decimal(a) <= b;
}
inline bool operator>=(int a, const Decimal& b) {
    return Decimal(a) >= b;
}
/** @} */

}  // namespace nolk

#endif
