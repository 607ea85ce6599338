#ifndef NOLK_CORE_STRINGS_BYTE_SET_H
#define NOLK_CORE_STRINGS_BYTE_SET_H

#include <bitset>
#include <string_view>

namespace nolk {

/** A set of bytes, asked in constant time. */
class ByteSet {
public:
    explicit ByteSet(std::string_view bytes) noexcept {
        for (const char c : bytes) {
            add(c);
        }
    }

    void add(char c) noexcept { bits_[static_cast<unsigned char>(c)] = true; }
    bool has(char c) const noexcept { return bits_[static_cast<unsigned char>(c)]; }

private:
    std::bitset<256> bits_;
};

/** The first byte at or behind `position` that is in the set (or isn't); the length if there is
 * none. @pre position <= text.size() @{ */
inline std::size_t findIn(const ByteSet& set, std::string_view text, std::size_t position) {
    while (position < text.size() && !set.has(text[position])) {
        ++position;
    }
    return position;
}
inline std::size_t findOutside(const ByteSet& set, std::string_view text, std::size_t position) {
    while (position < text.size() && set.has(text[position])) {
        ++position;
    }
    return position;
}
/** @} */

}  // namespace nolk

#endif
