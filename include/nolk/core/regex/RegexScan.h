/** @file
 * Finds where a match may begin.
 */
#ifndef NOLK_CORE_REGEX_REGEX_SCAN_H
#define NOLK_CORE_REGEX_REGEX_SCAN_H

#include <nolk/core/regex/RegexBitmap.h>
#include <nolk/core/regex/RegexProgram.h>

#include <cstdint>

namespace nolk {

/**
 * Looks for the first unit of a set, many at a time where the processor has vectors.
 *
 * Made of a program: its set is that of the units that a match may begin with. Where a match begins
 * with a text, it looks for the whole text.
 */
template <typename T>
class RegexFirstUnits {
public:
    RegexFirstUnits() = default;
    explicit RegexFirstUnits(const RegexProgram<T>& program);

    /** The first place in front of `end` where a match may begin, or `end`. */
    const T* find(const RegexProgram<T>& program, const T* p, const T* end) const;

private:
    enum class Way : std::uint8_t { all, one, set, text, run };

    const T* findRun(const RegexProgram<T>& program, const T* p, const T* end) const;

    Way way_ = Way::all;
    bool high_ = false;
    char one_ = 0;
    RegexBitmap set_;
    // The set by the halves of a byte, for vectors.
    std::uint8_t nibbles_[2][16] = {};
};

extern template class RegexFirstUnits<char>;
extern template class RegexFirstUnits<UChar>;

}  // namespace nolk

#endif
