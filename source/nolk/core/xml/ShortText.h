/** @file
 * Copying and comparing of texts that are short as a rule, names and URIs: a call of the run-time's
 * functions costs more than their work.
 */
#ifndef NOLK_CORE_XML_SHORT_TEXT_H
#define NOLK_CORE_XML_SHORT_TEXT_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace nolk::xml {

/** Copies the first and the last `Part` bytes of n, which overlap where n is below twice that. */
template <std::size_t Part>
inline void copyBothEnds(char* out, const char* data, std::size_t n) noexcept {
    char first[Part];
    char last[Part];
    std::memcpy(first, data, Part);
    std::memcpy(last, data + n - Part, Part);
    std::memcpy(out, first, Part);
    std::memcpy(out + n - Part, last, Part);
}

/**
 * Copies `n` bytes to `out`. Up to 32 of them take two loads and two stores of a fixed size and no
 * call. The two areas don't overlap.
 */
inline void copyShort(char* out, const char* data, std::size_t n) noexcept {
    if (n > 32) {
        std::memcpy(out, data, n);
    } else if (n >= 16) {
        copyBothEnds<16>(out, data, n);
    } else if (n >= 8) {
        copyBothEnds<8>(out, data, n);
    } else if (n >= 4) {
        copyBothEnds<4>(out, data, n);
    } else if (n >= 2) {
        copyBothEnds<2>(out, data, n);
    } else if (n == 1) {
        *out = *data;
    }
}

/** Copies `text` to `out` and gives the end of the copy. */
inline char* append(char* out, std::string_view text) noexcept {
    copyShort(out, text.data(), text.size());
    return out + text.size();
}

/** The same for one byte. */
inline char* append(char* out, char c) noexcept {
    *out = c;
    return out + 1;
}

/** The bytes at `p` as a number, to be compared with others. */
template <class Word>
inline Word wordAt(const char* p) noexcept {
    Word word;
    std::memcpy(&word, p, sizeof word);
    return word;
}

/** Whether the first and the last word of n bytes agree. */
template <class Word>
inline bool equalBothEnds(const char* a, const char* b, std::size_t n) noexcept {
    return ((wordAt<Word>(a) ^ wordAt<Word>(b)) |
            (wordAt<Word>(a + n - sizeof(Word)) ^ wordAt<Word>(b + n - sizeof(Word)))) == 0;
}

/** Whether both texts have the same bytes. */
inline bool equalTexts(std::string_view a, std::string_view b) noexcept {
    const std::size_t n = a.size();
    const char* const p = a.data();
    const char* const q = b.data();
    if (n != b.size()) {
        return false;
    }
    if (n > 32) {
        return std::memcmp(p, q, n) == 0;
    }
    if (n >= 16) {
        return equalBothEnds<std::uint64_t>(p, q, 16) &&
               equalBothEnds<std::uint64_t>(p + n - 16, q + n - 16, 16);
    }
    if (n >= 8) {
        return equalBothEnds<std::uint64_t>(p, q, n);
    }
    if (n >= 4) {
        return equalBothEnds<std::uint32_t>(p, q, n);
    }
    return n == 0 || (equalBothEnds<char>(p, q, n) && p[n / 2] == q[n / 2]);
}

}  // namespace nolk::xml

#endif
