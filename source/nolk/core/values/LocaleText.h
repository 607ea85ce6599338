/** @file
 * Takes the texts apart that a locale reads.
 */
#ifndef NOLK_CORE_VALUES_LOCALE_TEXT_H
#define NOLK_CORE_VALUES_LOCALE_TEXT_H

#include <string_view>

namespace nolk::localetext {

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

constexpr bool startsWithDigit(std::string_view text) {
    return !text.empty() && isDigit(text.front());
}

constexpr void skipSpace(std::string_view& text) {
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
}

/** Takes `piece` off the front of a text. An empty piece is never there. */
constexpr bool take(std::string_view& text, std::string_view piece) {
    if (piece.empty() || !text.starts_with(piece)) {
        return false;
    }
    text.remove_prefix(piece.size());
    return true;
}

}  // namespace nolk::localetext

#endif
