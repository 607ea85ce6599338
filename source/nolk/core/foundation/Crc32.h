/** @file
 * The ways to compute nolkCrc32(). All give the same values; tests compare them.
 *
 * Each goes on from a state of the shift register: 0xFFFFFFFF before the first byte. The check sum
 * is the complement of the last state.
 */
#ifndef NOLK_CORE_FOUNDATION_CRC32_H
#define NOLK_CORE_FOUNDATION_CRC32_H

#include <nolk/core/foundation/Processor.h>

#include <cstddef>
#include <cstdint>

namespace nolk::crc32 {

/** By tables, eight bytes at a time. */
std::uint32_t advanceByTable(std::uint32_t state, const char* data, std::size_t length) noexcept;

#ifdef NOLK_CORE_X86_VECTORS
/** By carry-less products, 64 bytes at a time. @pre processor::hasCarryLessProduct() */
std::uint32_t advanceByProduct(std::uint32_t state, const char* data, std::size_t length) noexcept;
#endif

/** By the fastest way that this processor has. */
std::uint32_t advance(std::uint32_t state, const char* data, std::size_t length) noexcept;

}  // namespace nolk::crc32

#endif
