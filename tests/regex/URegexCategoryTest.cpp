#include "RegexFlavours.h"

#include <nolk/core/Regex.h>
#include <nolk/core/URegexCategory.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <set>
#include <string>

namespace nolk {
namespace {

using test::fault;
using test::told;
using test::widened;

std::string found(const std::string& pattern, std::basic_string<UChar> text) {
    return told(Regex<UChar>(widened<UChar>(pattern)).search(text));
}

std::basic_string<UChar> units(std::initializer_list<unsigned> values) {
    std::basic_string<UChar> text;
    for (const unsigned value : values) {
        text += static_cast<UChar>(value);
    }
    return text;
}

TEST(URegexCategory, KnowsTheCategoryOfAUnit) {
    const struct {
        unsigned unit;
        unsigned category;
    } rows[] = {{0x41, 1},    {0x61, 2},    {0x30, 9},    {0x20, 12},   {0, 15},      {0x2D, 19},
                {0x28, 20},   {0x29, 21},   {0x5F, 22},   {0x2B, 24},   {0x24, 25},   {0x5E, 26},
                {0xAB, 28},   {0xBB, 29},   {0xA6, 27},   {0x21, 23},   {0x1C5, 3},   {0x2B0, 4},
                {0x5D0, 5},   {0x300, 6},   {0x20DD, 7},  {0x903, 8},   {0x2160, 10}, {0xB2, 11},
                {0x2028, 13}, {0x2029, 14}, {0xFEFF, 16}, {0xE000, 17}, {0xD800, 18}, {0xDFFF, 18},
                {0x221, 0},   {0xFFFF, 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(uregexCategory(static_cast<UChar>(row.unit)), row.category)
            << std::hex << row.unit;
    }
}

// The numbers and the FNV-1a hash of all categories in order come from the Unicode data.
TEST(URegexCategory, IsThatOfUnicodeForAllUnits) {
    const unsigned expected[uregexCategoryCount] = {
        6811, 704, 824,  31,   48, 44033, 496, 10, 117, 198, 52, 231, 18,   1, 1,
        65,   26,  6400, 2048, 18, 64,    63,  11, 195, 889, 34, 69,  2069, 6, 4};
    unsigned counts[uregexCategoryCount] = {};
    std::uint32_t hash = 2166136261u;
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const unsigned category = uregexCategory(static_cast<UChar>(unit));
        ASSERT_LT(category, uregexCategoryCount) << unit;
        ++counts[category];
        hash = (hash ^ category) * 16777619u;
    }
    for (unsigned i = 0; i < uregexCategoryCount; ++i) {
        EXPECT_EQ(counts[i], expected[i]) << i;
    }
    EXPECT_EQ(hash, 0x951A036Bu);
}

struct NameRow {
    const char* shortName;
    const char* longName;
    unsigned number;
    std::set<unsigned> categories;
};

const NameRow nameRows[] = {
    {"Cn", "Not Assigned", 0, {0}},
    {"Lu", "Uppercase Letter", 1, {1}},
    {"Ll", "Lowercase Letter", 2, {2}},
    {"Lt", "Titlecase Letter", 3, {3}},
    {"Lm", "Modifier Letter", 4, {4}},
    {"Lo", "Other Letter", 5, {5}},
    {"Mn", "Non-Spacing Mark", 6, {6}},
    {"Me", "Enclosing Mark", 7, {7}},
    {"Mc", "Spacing Combining Mark", 8, {8}},
    {"Nd", "Decimal Digit Number", 9, {9}},
    {"Nl", "Letter Number", 10, {10}},
    {"No", "Other Number", 11, {11}},
    {"Zs", "Space Separator", 12, {12}},
    {"Zl", "Line Separator", 13, {13}},
    {"Zp", "Paragraph Separator", 14, {14}},
    {"Cc", "Control", 15, {15}},
    {"Cf", "Format", 16, {16}},
    {"Co", "Private Use", 17, {17}},
    {"Cs", "Surrogate", 18, {18}},
    {"Pd", "Dash Punctuation", 19, {19}},
    {"Ps", "Open Punctuation", 20, {20}},
    {"Pe", "Close Punctuation", 21, {21}},
    {"Pc", "Connector Punctuation", 22, {22}},
    {"Po", "Other Punctuation", 23, {23}},
    {"Sm", "Math Symbol", 24, {24}},
    {"Sc", "Currency Symbol", 25, {25}},
    {"Sk", "Modifier Symbol", 26, {26}},
    {"So", "Other Symbol", 27, {27}},
    {"Pi", "Initial Punctuation", 28, {28}},
    {"Pf", "Final Punctuation", 29, {29}},
    {"L", "Letter", 0, {1, 2, 3, 4, 5}},
    {"M", "Mark", 0, {6, 7, 8}},
    {"N", "Number", 0, {9, 10, 11}},
    {"P", "Punctuation", 0, {19, 20, 21, 22, 23, 28, 29}},
    {"S", "Symbol", 0, {24, 25, 26, 27}},
    {"Z", "Separator", 0, {12, 13, 14}},
    {"C", "Other", 0, {0, 15, 16, 17, 18}},
    {"WB", "Word Break", 0, {0}},
    {"CB", "Character Break", 0, {0}},
    {"LB", "Line Break", 0, {0}},
    {"SB", "Sentence Break", 0, {0}},
    {"BOL", "Beginning of Line", 0, {0}},
    {"EOL", "End of Line", 0, {0}},
};

void expectName(const std::string& name, unsigned number, const std::set<unsigned>& categories) {
    std::uint32_t bits = 0;
    for (const unsigned category : categories) {
        bits += 1u << category;
    }
    const URegexCategoryName* const entry = findURegexCategory(widened<UChar>(name));
    ASSERT_NE(entry, nullptr) << name;
    EXPECT_EQ(entry->name, name);
    EXPECT_EQ(entry->number, number) << name;
    EXPECT_EQ(entry->categories, bits) << name;
}

// Three names have no long form.
TEST(URegexCategory, Knows89Names) {
    std::set<std::string_view> names;
    while (const URegexCategoryName* entry =
               uregexCategoryName(static_cast<unsigned>(names.size()))) {
        ASSERT_TRUE(names.insert(entry->name).second) << entry->name;
    }
    EXPECT_EQ(names.size(), 89u);
    std::set<unsigned> all;
    for (unsigned category = 0; category < uregexCategoryCount; ++category) {
        all.insert(category);
    }
    expectName("ALL", 0, all);
    all.erase(0);
    expectName("ASSIGNED", 0, all);
    expectName("UNASSIGNED", 0, {0});
    for (const NameRow& row : nameRows) {
        expectName(row.shortName, row.number, row.categories);
        expectName(row.longName, row.number, row.categories);
    }
    EXPECT_EQ(2 * std::size(nameRows) + 3, names.size());
    EXPECT_EQ(findURegexCategory(widened<UChar>("lu")), nullptr);
    EXPECT_EQ(findURegexCategory(widened<UChar>("")), nullptr);
}

// Every name against every unit: a category is its own, a group is the told ones.
TEST(URegexCategory, NamesSelectTheirCategories) {
    const struct {
        const char* shortName;
        const char* longName;
        std::set<unsigned> categories;
    } groups[] = {
        {"L", "Letter", {1, 2, 3, 4, 5}},    {"M", "Mark", {6, 7, 8}},
        {"N", "Number", {9, 10, 11}},        {"P", "Punctuation", {19, 20, 21, 22, 23, 28, 29}},
        {"S", "Symbol", {24, 25, 26, 27}},   {"Z", "Separator", {12, 13, 14}},
        {"C", "Other", {0, 15, 16, 17, 18}}, {"WB", "Word Break", {0}},
        {"BOL", "Beginning of Line", {0}},   {"EOL", "End of Line", {0}},
        {"Cn", "Not Assigned", {0}},         {"UNASSIGNED", "Sentence Break", {0}},
        {"Lu", "Uppercase Letter", {1}},     {"Pf", "Final Punctuation", {29}}};
    for (const auto& group : groups) {
        for (const std::string name : {group.shortName, group.longName}) {
            Regex<UChar> regex(widened<UChar>("[{" + name + "}]"));
            for (unsigned unit = 0; unit < 0x10000; unit += 7) {
                const UChar text[] = {static_cast<UChar>(unit)};
                ASSERT_EQ(static_cast<bool>(regex.search(text, 0, 1)),
                          group.categories.count(uregexCategory(text[0])) != 0)
                    << name << " " << unit;
            }
        }
    }
}

TEST(URegexCategory, StandsInSets) {
    EXPECT_EQ(found("[{Lu}]+", widened<UChar>("ABc")), "0/2");
    EXPECT_EQ(found("[^{L}{Nd}x]+", widened<UChar>("a1--x")), "2/2");
    EXPECT_EQ(found("[{Nd}-9]+", widened<UChar>("a-1x")), "1/2");
    EXPECT_EQ(found("[a-{Lu}]+", widened<UChar>("ba-Bc")), "1/3");
    EXPECT_EQ(found("[\\{Lu}]+", widened<UChar>("A{Lu}")), "1/4");
    EXPECT_EQ(found("[{WB}]", units({0x41, 0x221})), "1/1");
    EXPECT_EQ(found("[{ASSIGNED}]", units({0x221, 0x41})), "1/1");
    EXPECT_EQ(found("[{ALL}]", units({0x221})), "0/1");
    EXPECT_EQ(found("[{ALL}]", units({})), "-");
    EXPECT_EQ(found("[{ALL}]+$", units({0x221, 0xD800})), "0/2");
}

TEST(URegexCategory, FailsWithoutAGoodName) {
    EXPECT_EQ(fault<UChar>(widened<UChar>("[{Foo}]")), "18@2");
    EXPECT_EQ(fault<UChar>(widened<UChar>("a[{}]")), "18@3");
    EXPECT_EQ(fault<UChar>(widened<UChar>("[{Lu]")), "17@1");
    // Sets are read once all tokens are cut.
    EXPECT_EQ(fault<UChar>(widened<UChar>("[{Lu]}")), "16@5");
}

TEST(URegexCategory, SetsAreSubtracted) {
    EXPECT_EQ(found("[a-z-[aeiou]]+", widened<UChar>("abcde")), "1/3");
    EXPECT_EQ(found("[a-z-[aeiou]-[b]]+", widened<UChar>("abcde")), "2/2");
    EXPECT_EQ(found("[a-z-[b-y-[m]]]+", widened<UChar>("bamzy")), "1/3");
    EXPECT_EQ(found("[^a-[b]]+", widened<UChar>("abcd")), "2/2");
    EXPECT_EQ(found("[{L}-[{Lu}]]+", units({0x41, 0x3B1, 0x61, 0x391})), "1/2");
    EXPECT_EQ(found("[\\u0100-\\u0200-[\\u0150]]+", units({0x150, 0x151, 0x14F, 0x150})), "1/2");
    EXPECT_EQ(found("([\\u0100]|[^\\u0150])+", units({0x150, 0x100, 0x151})), "1/2 2/1");
    EXPECT_EQ(found("[-[a]]", widened<UChar>("ab")), "-");
    EXPECT_EQ(found("[^-[a]]", widened<UChar>("ab")), "1/1");
    EXPECT_EQ(fault<UChar>(widened<UChar>("[a-[b]")), "5@0");
}

TEST(URegexCategory, TheDotOfTheWideFlavourStopsAtEveryLineEnd) {
    for (const unsigned end : {10u, 11u, 12u, 13u, 133u, 8232u, 8233u}) {
        EXPECT_EQ(found(".", units({end})), "-") << end;
    }
    EXPECT_EQ(found(".+", units({9, 14, 132, 134, 8231, 8234})), "0/6");
    EXPECT_EQ(found(".{2}", units({0xD83D, 0xDE00})), "0/2");
    EXPECT_EQ(told(Regex<char>(".+").search("\v\f\r\x85\n")), "0/4");
}

}  // namespace
}  // namespace nolk
