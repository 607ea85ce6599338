#include <nolk/core/URegexCategory.h>

#include <nolk/core/regex/URegexCategoryTable.h>

#include <algorithm>
#include <iterator>

namespace nolk {

namespace {

constexpr std::uint32_t bits() {
    return 0;
}

template <typename... Numbers>
constexpr std::uint32_t bits(unsigned number, Numbers... others) {
    return std::uint32_t{1} << number | bits(others...);
}

constexpr std::uint32_t letters = bits(1, 2, 3, 4, 5);
constexpr std::uint32_t marks = bits(6, 7, 8);
constexpr std::uint32_t numbers = bits(9, 10, 11);
constexpr std::uint32_t punctuation = bits(19, 20, 21, 22, 23, 28, 29);
constexpr std::uint32_t symbols = bits(24, 25, 26, 27);
constexpr std::uint32_t separators = bits(12, 13, 14);
constexpr std::uint32_t others = bits(0, 15, 16, 17, 18);
constexpr std::uint32_t all = bits(30) - 1;
constexpr std::uint32_t assigned = all & ~bits(0);
constexpr std::uint32_t unassigned = bits(0);

constexpr URegexCategoryName names[] = {
    {"Cn", 0, bits(0)},
    {"Not Assigned", 0, bits(0)},
    {"Lu", 1, bits(1)},
    {"Uppercase Letter", 1, bits(1)},
    {"Ll", 2, bits(2)},
    {"Lowercase Letter", 2, bits(2)},
    {"Lt", 3, bits(3)},
    {"Titlecase Letter", 3, bits(3)},
    {"Lm", 4, bits(4)},
    {"Modifier Letter", 4, bits(4)},
    {"Lo", 5, bits(5)},
    {"Other Letter", 5, bits(5)},
    {"Mn", 6, bits(6)},
    {"Non-Spacing Mark", 6, bits(6)},
    {"Me", 7, bits(7)},
    {"Enclosing Mark", 7, bits(7)},
    {"Mc", 8, bits(8)},
    {"Spacing Combining Mark", 8, bits(8)},
    {"Nd", 9, bits(9)},
    {"Decimal Digit Number", 9, bits(9)},
    {"Nl", 10, bits(10)},
    {"Letter Number", 10, bits(10)},
    {"No", 11, bits(11)},
    {"Other Number", 11, bits(11)},
    {"Zs", 12, bits(12)},
    {"Space Separator", 12, bits(12)},
    {"Zl", 13, bits(13)},
    {"Line Separator", 13, bits(13)},
    {"Zp", 14, bits(14)},
    {"Paragraph Separator", 14, bits(14)},
    {"Cc", 15, bits(15)},
    {"Control", 15, bits(15)},
    {"Cf", 16, bits(16)},
    {"Format", 16, bits(16)},
    {"Co", 17, bits(17)},
    {"Private Use", 17, bits(17)},
    {"Cs", 18, bits(18)},
    {"Surrogate", 18, bits(18)},
    {"Pd", 19, bits(19)},
    {"Dash Punctuation", 19, bits(19)},
    {"Ps", 20, bits(20)},
    {"Open Punctuation", 20, bits(20)},
    {"Pe", 21, bits(21)},
    {"Close Punctuation", 21, bits(21)},
    {"Pc", 22, bits(22)},
    {"Connector Punctuation", 22, bits(22)},
    {"Po", 23, bits(23)},
    {"Other Punctuation", 23, bits(23)},
    {"Sm", 24, bits(24)},
    {"Math Symbol", 24, bits(24)},
    {"Sc", 25, bits(25)},
    {"Currency Symbol", 25, bits(25)},
    {"Sk", 26, bits(26)},
    {"Modifier Symbol", 26, bits(26)},
    {"So", 27, bits(27)},
    {"Other Symbol", 27, bits(27)},
    {"Pi", 28, bits(28)},
    {"Initial Punctuation", 28, bits(28)},
    {"Pf", 29, bits(29)},
    {"Final Punctuation", 29, bits(29)},
    {"L", 0, letters},
    {"Letter", 0, letters},
    {"M", 0, marks},
    {"Mark", 0, marks},
    {"N", 0, numbers},
    {"Number", 0, numbers},
    {"P", 0, punctuation},
    {"Punctuation", 0, punctuation},
    {"S", 0, symbols},
    {"Symbol", 0, symbols},
    {"Z", 0, separators},
    {"Separator", 0, separators},
    {"C", 0, others},
    {"Other", 0, others},
    {"ALL", 0, all},
    {"ASSIGNED", 0, assigned},
    // Names of other systems, accepted: each stands for what is not assigned.
    {"WB", 0, unassigned},
    {"Word Break", 0, unassigned},
    {"CB", 0, unassigned},
    {"Character Break", 0, unassigned},
    {"LB", 0, unassigned},
    {"Line Break", 0, unassigned},
    {"SB", 0, unassigned},
    {"Sentence Break", 0, unassigned},
    {"BOL", 0, unassigned},
    {"Beginning of Line", 0, unassigned},
    {"EOL", 0, unassigned},
    {"End of Line", 0, unassigned},
    {"UNASSIGNED", 0, unassigned},
};

bool isSame(std::string_view name, std::basic_string_view<UChar> units) {
    return name.size() == units.size() &&
           std::equal(name.begin(), name.end(), units.begin(),
                      [](char a, UChar b) { return static_cast<UChar>(a) == b; });
}

}  // namespace

unsigned uregexCategory(UChar unit) noexcept {
    using namespace categories;
    const unsigned value = static_cast<std::uint16_t>(unit);
    return blocks[blockOf[value >> blockBits]][value & ((1u << blockBits) - 1)];
}

const URegexCategoryName* findURegexCategory(std::basic_string_view<UChar> name) noexcept {
    for (const URegexCategoryName& entry : names) {
        if (isSame(entry.name, name)) {
            return &entry;
        }
    }
    return nullptr;
}

const URegexCategoryName* uregexCategoryName(unsigned index) noexcept {
    return index < std::size(names) ? &names[index] : nullptr;
}

}  // namespace nolk
