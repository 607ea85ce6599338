/** @file
 * The hash functions of the name-keyed tables, and a check sum.
 *
 * Their values are the same on every platform and stay so: tables walk their keys in this order.
 */
#ifndef NOLK_CORE_HASH_H
#define NOLK_CORE_HASH_H

#include <nolk/core/Export.h>

#include <string>

namespace nolk {

class CString;

/** A 32-bit hash of the bytes; 0 for the empty string. Allocates nothing. */
NOLK_API unsigned nolkStringHash(const std::string& text) noexcept;

/**
 * The same for texts that differ only in upper and lower case: the hash of a copy lowered byte by
 * byte with `tolower` in the run-time's current locale. @throws std::bad_alloc
 */
NOLK_API unsigned nolkCaseInsensitiveStringHash(const std::string& text);

/** The value itself. */
NOLK_API unsigned nolkIntHash(const int& value) noexcept;

/** `CString::hash` in mode `exact`, of the string or of the one pointed to; 0 for a null pointer.
 */
NOLK_API unsigned nolkhash(const CString& text) noexcept;
NOLK_API unsigned nolkhash(const CString* text) noexcept;

/**
 * The CRC-32 of `length` bytes in the variant of bzip2: polynomial 0x04C11DB7, the most significant
 * bit of each byte first, from 0xFFFFFFFF on, complemented at the end. 0 for no bytes, where `data`
 * may be null. Allocates nothing.
 */
NOLK_API unsigned nolkCrc32(const char* data, unsigned length) noexcept;

}  // namespace nolk

#endif
