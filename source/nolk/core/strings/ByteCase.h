#ifndef NOLK_CORE_STRINGS_BYTE_CASE_H
#define NOLK_CORE_STRINGS_BYTE_CASE_H

#include <cctype>

namespace nolk {

/** A byte in the other case by the current C locale. A mapping to zero keeps the byte, so that no
 * mapping ends a text. @{ */
inline char lower(char c) noexcept {
    const int mapped = std::tolower(static_cast<unsigned char>(c));
    return mapped == 0 ? c : static_cast<char>(mapped);
}
inline char upper(char c) noexcept {
    const int mapped = std::toupper(static_cast<unsigned char>(c));
    return mapped == 0 ? c : static_cast<char>(mapped);
}
/** @} */

inline bool isLetter(char c) noexcept {
    return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

inline bool isBlank(char c) noexcept {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

}  // namespace nolk

#endif
