/** @file
 * Digits in groups, as in "1.234.567".
 *
 * A grouping is a string of the sizes of the groups, the rightmost first; the last size goes on for
 * all further groups. A size that is CHAR_MAX or below 1 ends it: all further digits are one group.
 */
#ifndef NOLK_CORE_VALUES_DIGIT_GROUPS_H
#define NOLK_CORE_VALUES_DIGIT_GROUPS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace nolk {

/** Appends digits with a separator between their groups. */
void appendGrouped(std::string& text, std::string_view digits, std::string_view grouping,
                   std::string_view separator);

/** Digits that were read, and how many stood in front of each separator. */
struct DigitGroups {
    std::string digits;
    std::vector<std::size_t> separators;

    /**
     * Takes the digits off the front of a text. A separator is one only between digits. False if
     * there are more separators than `most`.
     */
    bool take(std::string_view& text, std::string_view separator,
              std::size_t most = std::string_view::npos);

    /** Whether the separators, if any, stand where the grouping has them. */
    bool match(std::string_view grouping) const noexcept;
};

}  // namespace nolk

#endif
