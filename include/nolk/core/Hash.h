/** @file
 * The hash functions of the name-keyed tables.
 *
 * Their values are the same on every platform and stay so: tables walk their keys in this order.
 */
#ifndef NOLK_CORE_HASH_H
#define NOLK_CORE_HASH_H

#include <nolk/core/Export.h>

#include <string>

namespace nolk {

/** A 32-bit hash of the bytes; 0 for the empty string. Allocates nothing. */
NOLK_API unsigned nolkStringHash(const std::string& text) noexcept;

/**
 * The same for texts that differ only in upper and lower case: the hash of a copy lowered byte by
 * byte with `tolower` in the run-time's current locale. @throws std::bad_alloc
 */
NOLK_API unsigned nolkCaseInsensitiveStringHash(const std::string& text);

/** The value itself. */
NOLK_API unsigned nolkIntHash(const int& value) noexcept;

}  // namespace nolk

#endif
