/** @file
 * The general categories of characters, as regular expressions know them.
 */
#ifndef NOLK_CORE_UREGEX_CATEGORY_H
#define NOLK_CORE_UREGEX_CATEGORY_H

#include <nolk/core/Export.h>
#include <nolk/core/Types.h>

#include <cstdint>
#include <string_view>

namespace nolk {

/** The number of categories; they are numbered from 0, which is "Not Assigned". */
inline constexpr unsigned uregexCategoryCount = 30;

/**
 * The general category of a code unit: that of Unicode 3.2.0, so that what was assigned later has
 * category 0. A surrogate has category 18. Never throws.
 */
NOLK_API unsigned uregexCategory(UChar unit) noexcept;

/** What a name in braces inside a bracket set stands for. */
struct URegexCategoryName {
    /** The name, in ASCII. Case matters. */
    std::string_view name;
    /** The number that the name is listed with: a category's own, or 0 for any other name. */
    unsigned number;
    /** The categories that it selects: bit n stands for category n. */
    std::uint32_t categories;
};

/**
 * The entry of a name, or null if there is none: 89 names are known, a short and a long one for
 * each category and each group of categories, and a few that select what is not assigned.
 *
 * The list is a constant: it may be asked in static initialisers, and by any thread.
 */
NOLK_API const URegexCategoryName* findURegexCategory(std::basic_string_view<UChar> name) noexcept;

/** The entry at a place in the list, or null behind its end. */
NOLK_API const URegexCategoryName* uregexCategoryName(unsigned index) noexcept;

}  // namespace nolk

#endif
