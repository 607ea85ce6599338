/** @file
 * The names that dates bear in fixed forms of text: those of the locale "C".
 */
#ifndef NOLK_CORE_VALUES_ENGLISH_NAMES_H
#define NOLK_CORE_VALUES_ENGLISH_NAMES_H

#include <string_view>

namespace nolk::english {

/** From Sunday on. */
inline constexpr std::string_view shortWeekDays[7] = {"Sun", "Mon", "Tue", "Wed",
                                                      "Thu", "Fri", "Sat"};

/** From January on; the short names are the first three letters. */
inline constexpr std::string_view months[12] = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December",
};

inline constexpr std::string_view::size_type shortLength = 3;

constexpr char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/** Whether two texts are the same but for the case of ASCII letters. */
constexpr bool sameWord(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::string_view::size_type i = 0; i < a.size(); ++i) {
        if (lowered(a[i]) != lowered(b[i])) {
            return false;
        }
    }
    return true;
}

/** 1 to 12 for a long or short name in any case, and 0 for anything else. */
constexpr unsigned monthIndex(std::string_view name) {
    for (unsigned month = 1; month <= 12; ++month) {
        const std::string_view known = months[month - 1];
        if (sameWord(name, known) || sameWord(name, known.substr(0, shortLength))) {
            return month;
        }
    }
    return 0;
}

}  // namespace nolk::english

#endif
