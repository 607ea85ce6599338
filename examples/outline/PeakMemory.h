#ifndef NOLK_EXAMPLES_OUTLINE_PEAK_MEMORY_H
#define NOLK_EXAMPLES_OUTLINE_PEAK_MEMORY_H

#include <cstdint>
#include <optional>

/** The most memory that this process has had so far in bytes, where the system tells it in a file.
 */
std::optional<std::uint64_t> peakMemory();

#endif
