#include <nolk/core/UString.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "UnitText.h"

namespace nolk {
namespace {

using namespace test;

constexpr unsigned npos = UString::npos;

// The families, each under a name that takes any arguments.

struct Index {
    static constexpr const char* name = "index";
    static unsigned in(const UString& s, const auto&... arguments) { return s.index(arguments...); }
};
struct Rindex {
    static constexpr const char* name = "rindex";
    static unsigned in(const UString& s, const auto&... arguments) {
        return s.rindex(arguments...);
    }
};
struct First {
    static constexpr const char* name = "first";
    static unsigned in(const UString& s, const auto&... arguments) { return s.first(arguments...); }
};
struct Last {
    static constexpr const char* name = "last";
    static unsigned in(const UString& s, const auto&... arguments) { return s.last(arguments...); }
};
struct Contains {
    static constexpr const char* name = "contains";
    static unsigned in(const UString& s, const auto&... arguments) {
        static_assert(std::is_same_v<decltype(s.contains(arguments...)), bool>);
        return s.contains(arguments...) ? 1 : 0;
    }
};

struct SearchCase {
    std::u16string text;
    unsigned start;
    unsigned extent;
    std::u32string pattern;
    unsigned foundUnits;   // by code units
    unsigned foundPoints;  // by code points
};

// Every form that can say a row: the scope as short as it goes and then longer, with each tail.
class Forms {
public:
    using Expect = std::function<void(unsigned found, unsigned expected, const std::string& form)>;

    Forms(const SearchCase& row, Expect expect)
        : row_(row),
          expect_(std::move(expect)),
          text_(test::text(row.text)),
          points_(row.pattern.begin(), row.pattern.end()),
          units_(test::units(points_)) {}

    template <typename Family>
    void check() {
        const Units embedded = test::units(u"<<") + units_ + test::units(u">");
        const unsigned unitCount = static_cast<unsigned>(units_.size());
        const unsigned pointCount = static_cast<unsigned>(points_.size());
        points_.push_back(0);
        inScopes<Family>("UString", row_.foundUnits, UString(units_));
        inScopes<Family>("UString, start, extent", row_.foundUnits, UString(embedded), 2u,
                         unitCount);
        inScopes<Family>("units, n", row_.foundUnits, units_.data(), unitCount);
        inScopes<Family>("points, n", row_.foundPoints, points_.data(), pointCount);
        if (row_.pattern.find(U'\0') == std::u32string::npos) {
            inScopes<Family>("units", row_.foundUnits, units_.c_str());
            inScopes<Family>("points", row_.foundPoints,
                             static_cast<const UChar32*>(points_.data()));
        }
        if (unitCount == 1) {
            inScopes<Family>("unit", row_.foundUnits, units_[0]);
        }
        if (pointCount == 1) {
            inScopes<Family>("point", row_.foundPoints, points_[0]);
        }
    }

private:
    template <typename Family, typename... Tail>
    void inScopes(const std::string& form, unsigned expected, const Tail&... tail) {
        const std::string name = Family::name + std::string("(") + form + ")";
        if (row_.start == 0 && row_.extent == npos) {
            expect_(Family::in(text_, tail...), expected, name + " anywhere");
        }
        if (row_.extent == npos) {
            expect_(Family::in(text_, row_.start, tail...), expected, name + " from a start");
        }
        expect_(Family::in(text_, row_.start, row_.extent, tail...), expected,
                name + " in a range");
    }

    const SearchCase& row_;
    Expect expect_;
    UString text_;
    Points points_;
    Units units_;
};

template <typename Family>
void checkTable(const std::vector<SearchCase>& rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        Forms(rows[i], [i](unsigned found, unsigned expected, const std::string& form) {
            EXPECT_EQ(found, expected) << "row " << i << ", " << form;
        }).check<Family>();
    }
}

// U+1F600 is the pair D83D DE00, U+1F601 is D83D DE01, U+2FA00 is D87E DE00.

const std::vector<SearchCase> sequenceRows = {
    // text, start, extent, pattern, by units, by code points
    {u"abcabc", 0, npos, U"b", 1, 1},
    {u"abcabc", 2, npos, U"b", 4, 4},
    {u"abcabc", 4, npos, U"b", 4, 4},
    {u"abcabc", 5, npos, U"b", npos, npos},
    {u"abcabc", 0, 1, U"b", npos, npos},
    {u"abcabc", 0, 2, U"b", 1, 1},
    {u"abcabc", 0, npos, U"bc", 1, 1},
    {u"abcabc", 0, npos, U"abcabc", 0, 0},
    {u"abcabc", 0, npos, U"abcabcd", npos, npos},
    {u"abcabc", 0, npos, U"x", npos, npos},
    {u"abcabc", 2, 3, U"bc", npos, npos},  // would end behind the range
    {u"abcabc", 2, 4, U"bc", 4, 4},
    {u"abcabc", 2, 400, U"bc", 4, 4},  // ranges end with the text
    {u"abcabc", 4, 0xFFFFFFFE, U"bc", 4, 4},
    {u"abcabc", 6, npos, U"c", npos, npos},
    {u"abcabc", 7, npos, U"c", npos, npos},
    {u"abcabc", npos, npos, U"c", npos, npos},
    {u"aaab", 0, npos, U"aab", 1, 1},
    {u"", 0, npos, U"a", npos, npos},
    // the empty sequence is found at the start
    {u"abc", 0, npos, U"", 0, 0},
    {u"abc", 2, npos, U"", 2, 2},
    {u"abc", 1, 1, U"", 1, 1},
    {u"abc", 3, npos, U"", 3, 3},
    {u"abc", 9, npos, U"", 3, 3},
    {u"abc", 9, 9, U"", 3, 3},
    {u"", 0, npos, U"", 0, 0},
    // zero units are units
    {std::u16string(u"a\0b", 3), 0, npos, std::u32string(U"\0b", 2), 1, 1},
    {std::u16string(u"a\0b", 3), 0, npos, std::u32string(U"\0", 1), 1, 1},
    // pairs
    {u"x\U0001F600y", 0, npos, U"\U0001F600", 1, 1},
    {u"x\U0001F601\U0001F600", 0, npos, U"\U0001F600", 3, 3},
    {u"x\U0001F600y", 2, npos, U"\U0001F600", npos, npos},  // the range begins inside of it
    {u"x\U0001F600y", 0, 2, U"\U0001F600", npos, npos},     // the range ends inside of it
    {u"x\U0001F600y", 0, 3, U"\U0001F600", 1, 1},
    {u"x\U0001F600y", 0, npos, U"x\U0001F600y", 0, 0},
    {u"x\U0001F600y", 0, npos, U"\U0001F600y", 1, 1},
    {u"\U0001F600\U0001F601", 0, npos, U"\U0001F600\U0001F601", 0, 0},
    // half of a pair is found by units only, a lone surrogate by both
    {u"\U0001F600", 0, npos, U"\xD83D", 0, npos},
    {u"\U0001F600", 0, npos, U"\xDE00", 1, npos},
    {u"\U0001F600", 1, npos, U"\xDE00", 1, npos},
    {u"\U0001F600", 0, 1, U"\xD83D", 0, npos},
    {u"\U0001F600\xD83D", 0, npos, U"\xD83D", 0, 2},
    {u"\U0001F600\xDE00", 0, npos, U"\xDE00", 1, 2},
    {u"\xDE00\U0001F600", 0, npos, U"\xDE00", 0, 0},
    {u"\xD83D\xD83D\xDE00", 0, npos, U"\xD83D", 0, 0},
    {u"a\U0001F600", 0, npos, U"a\xD83D", 0, npos},
    {u"a\U0001F600a\xD83D", 0, npos, U"a\xD83D", 0, 3},
    {u"\U0001F600z", 0, npos, U"\xDE00z", 1, npos},
    {u"\U0001F600z\xDE00z", 0, npos, U"\xDE00z", 1, 3},
    // side by side, two surrogates are never two code points of a text
    {u"\U0001F600", 0, npos, U"\xD83D\xDE00", 0, npos},
    {u"\xDE00\xD83D", 0, npos, U"\xDE00\xD83D", 0, 0},
    {u"\xD83D\xD83D\xDE00", 0, npos, U"\xD83D\U0001F600", 0, 0},
};

TEST(UStringSearch, IndexFindsTheFirstPlaceOfASequence) {
    checkTable<Index>(sequenceRows);
}

TEST(UStringSearch, ContainsTellsWhetherIndexFindsAPlace) {
    std::vector<SearchCase> rows = sequenceRows;
    for (SearchCase& row : rows) {
        row.foundUnits = row.foundUnits != npos ? 1 : 0;
        row.foundPoints = row.foundPoints != npos ? 1 : 0;
    }
    checkTable<Contains>(rows);
}

TEST(UStringSearch, RindexFindsTheLastPlaceOfASequence) {
    checkTable<Rindex>({
        {u"abcabc", 0, npos, U"b", 4, 4},
        {u"abcabc", 4, npos, U"b", 4, 4},
        {u"abcabc", 5, npos, U"b", npos, npos},  // a start is where the range begins
        {u"abcabc", 0, 4, U"b", 1, 1},
        {u"abcabc", 2, 2, U"b", npos, npos},
        {u"abcabc", 0, npos, U"abc", 3, 3},
        {u"abcabc", 0, 5, U"abc", 0, 0},
        {u"abcabc", 1, 4, U"abc", npos, npos},
        {u"abcabc", 1, 400, U"abc", 3, 3},
        {u"abcabc", 0, npos, U"abcabc", 0, 0},
        {u"abcabc", 0, npos, U"abcabcd", npos, npos},
        {u"abcabc", 6, npos, U"c", npos, npos},
        {u"abcabc", npos, npos, U"c", npos, npos},
        {u"aaab", 0, npos, U"aa", 1, 1},
        {u"", 0, npos, U"a", npos, npos},
        // the empty sequence is found at the end
        {u"abc", 0, npos, U"", 3, 3},
        {u"abc", 2, npos, U"", 3, 3},
        {u"abc", 1, 1, U"", 2, 2},
        {u"abc", 9, 9, U"", 3, 3},
        {u"", 0, npos, U"", 0, 0},
        {std::u16string(u"a\0b\0", 4), 0, npos, std::u32string(U"\0", 1), 3, 3},
        // pairs
        {u"\U0001F600x\U0001F600y", 0, npos, U"\U0001F600", 3, 3},
        {u"\U0001F600x\U0001F600y", 0, 4, U"\U0001F600", 0, 0},
        {u"\U0001F600x\U0001F600y", 1, 3, U"\U0001F600", npos, npos},
        {u"\U0001F600x\U0001F601y", 0, npos, U"\U0001F600x", 0, 0},
        // half of a pair is found by units only, a lone surrogate by both
        {u"\U0001F600", 0, npos, U"\xD83D", 0, npos},
        {u"\U0001F600", 0, npos, U"\xDE00", 1, npos},
        {u"\U0001F600", 0, 1, U"\xD83D", 0, npos},
        {u"\xD83Dx\U0001F600", 0, npos, U"\xD83D", 2, 0},
        {u"\xDE00\U0001F600", 0, npos, U"\xDE00", 2, 0},
        {u"a\xD83D\x61\U0001F600", 0, npos, U"a\xD83D", 2, 0},
        {u"\U0001F600", 0, npos, U"\xD83D\xDE00", 0, npos},
    });
}

TEST(UStringSearch, FirstFindsTheFirstPlaceOfAnyOfASet) {
    checkTable<First>({
        {u"abcabc", 0, npos, U"b", 1, 1},
        {u"abcabc", 0, npos, U"cb", 1, 1},
        {u"abcabc", 2, npos, U"cb", 2, 2},
        {u"abcabc", 3, npos, U"xcy", 5, 5},
        {u"abcabc", 3, 2, U"xcy", npos, npos},
        {u"abcabc", 3, 300, U"xcy", 5, 5},
        {u"abcabc", 0, npos, U"xyz", npos, npos},
        {u"abcabc", 6, npos, U"c", npos, npos},
        {u"abcabc", npos, npos, U"abc", npos, npos},
        {u"abc", 0, npos, U"", npos, npos},
        {u"", 0, npos, U"abc", npos, npos},
        {u"\u0162\u0262a", 0, npos, U"ab", 2, 2},  // others with the low byte of "b"
        {u"\u0162\u0262a", 0, npos, U"\u0262\u0362", 1, 1},
        {std::u16string(u"a\0b", 3), 0, npos, std::u32string(U"x\0", 2), 1, 1},
        // as units, a pair in the set is two elements
        {u"x\U0001F600", 0, npos, U"\U0001F600", 1, 1},
        {u"x\U0001F601\U0001F600", 0, npos, U"y\U0001F600", 1, 3},
        {u"x\U0002FA00\U0001F600", 0, npos, U"y\U0001F600", 2, 3},
        {u"x\U0001F600", 2, npos, U"y\U0001F600", 2, npos},
        {u"x\U0001F600", 0, 2, U"y\U0001F600", 1, npos},
        {u"\U0001F600y", 1, npos, U"y\U0001F600", 1, 2},
        // half of a pair is found by units only, a lone surrogate by both
        {u"\U0001F600\xDE00", 0, npos, U"\xDE00", 1, 2},
        {u"\U0001F600\xD83D", 0, npos, U"\xD83D", 0, 2},
        {u"\U0001F600", 0, 1, U"\xD83D", 0, npos},
        {u"\U0001F600", 1, npos, U"\xDE00", 1, npos},
        {u"\U0001F600", 0, npos, U"\xD83D\xDE00", 0, npos},
        {u"\U0001F600\xDE00", 0, npos, U"\xD83D\xDE00", 0, 2},
    });
}

TEST(UStringSearch, LastFindsTheLastPlaceOfAnyOfASet) {
    checkTable<Last>({
        {u"abcabc", 0, npos, U"b", 4, 4},
        {u"abcabc", 0, npos, U"ab", 4, 4},
        {u"abcabc", 0, 4, U"cb", 2, 2},
        {u"abcabc", 3, npos, U"a", 3, 3},
        {u"abcabc", 4, npos, U"a", npos, npos},  // a start is where the range begins
        {u"abcabc", 3, 300, U"ab", 4, 4},
        {u"abcabc", 0, npos, U"xyz", npos, npos},
        {u"abcabc", 6, npos, U"c", npos, npos},
        {u"abcabc", npos, npos, U"abc", npos, npos},
        {u"abc", 0, npos, U"", npos, npos},
        {u"", 0, npos, U"abc", npos, npos},
        {u"a\u0162\u0262", 0, npos, U"ab", 0, 0},
        {std::u16string(u"a\0b", 3), 0, npos, std::u32string(U"x\0", 2), 1, 1},
        // as units, a pair in the set is two elements
        {u"\U0001F600x", 0, npos, U"\U0001F600", 1, 0},
        {u"\U0001F600\U0001F601x", 0, npos, U"y\U0001F600", 2, 0},
        {u"\U0001F600x", 0, 1, U"y\U0001F600", 0, npos},
        {u"\U0001F600x", 1, npos, U"y\U0001F600", 1, npos},
        {u"y\U0001F600", 0, 2, U"y\U0001F600", 1, 0},
        // half of a pair is found by units only, a lone surrogate by both
        {u"\xDE00\U0001F600", 0, npos, U"\xDE00", 2, 0},
        {u"\xD83D\x61\U0001F600", 0, npos, U"\xD83D", 2, 0},
        {u"\U0001F600", 0, 1, U"\xD83D", 0, npos},
        {u"\U0001F600", 1, npos, U"\xDE00", 1, npos},
        {u"\xDE00\U0001F600", 0, npos, U"\xD83D\xDE00", 2, 0},
        {u"\U0001F600", 2, 0, U"\U0001F600", npos, npos},
    });
}

TEST(UStringSearch, ClampsCountsAndRangesOfThePattern) {
    const UString s = text(u"abcabc");
    const UString pattern = text(u"xbc");
    EXPECT_EQ(s.index(pattern, 1, 2), 1u);
    EXPECT_EQ(s.index(pattern, 1, npos), 1u);
    EXPECT_EQ(s.index(pattern, 1, 100), 1u);
    EXPECT_EQ(s.index(pattern, 9, 3), 0u);  // nothing is left of it
    EXPECT_EQ(s.index(1, 5, pattern, 1, 100), 1u);
    EXPECT_EQ(s.rindex(pattern, 3, 1), 6u);
    EXPECT_EQ(s.first(pattern, 3, 1), npos);
    EXPECT_EQ(s.index(u"bc"_u, npos), 1u);
    EXPECT_EQ(s.index(U"bc"_p, npos), 1u);
    EXPECT_EQ(s.rindex(2u, U"bc"_p, npos), 4u);
}

// From a single unit that is there to both ends together, at all distances of the first miss.
TEST(UStringSearch, FindsASequenceBehindOnesThatShareItsLastUnit) {
    for (unsigned before = 0; before < 70; ++before) {
        for (unsigned between = 0; between < 70; between += 3) {
            const UString misses = UString(unit(u'-'), before) + u"xz"_u;
            const UString s = misses + UString(unit(u'-'), between) + u"yzz abz abz"_u;
            const unsigned at = s.length() - 7;
            ASSERT_EQ(s.index(u"abz"_u), at);
            ASSERT_EQ(s.index(at + 1, u"abz"_u), at + 4);
            ASSERT_EQ(s.index(U"abz"_p), at);
            ASSERT_EQ(s.index(0u, at + 2, u"abz"_u), npos);
            ASSERT_EQ(s.index(u"acz"_u), npos);
        }
    }
}

TEST(UStringSearch, FindsItselfAndPartsOfItself) {
    const UString s = text(u"a text that holds itself");
    EXPECT_EQ(s.index(s), 0u);
    EXPECT_EQ(s.rindex(s), 0u);
    EXPECT_EQ(s.index(s, 7, 4), 7u);
    EXPECT_EQ(s.index(s.data() + 2), 2u);
    EXPECT_EQ(s.last(s), 23u);
}

TEST(UStringSearch, TakesNarrowPatternsAsUtf8) {
    const UString s = text(u"Z\u00FCrich");
    EXPECT_EQ(s.index("\xC3\xBCr"), 1u);
    EXPECT_TRUE(s.contains(std::string("rich")));
    EXPECT_EQ(s.rindex(std::string_view("chat").substr(0, 2)), 4u);
}

TEST(UStringSearch, FindsNoCodePointThatThereIsNot) {
    const UString s = text(u"a\U00010000\U0010FFFF");
    for (const UChar32 cp : {UChar32{0x110000}, ~UChar32{}}) {
        EXPECT_EQ(s.index(cp), npos);
        EXPECT_EQ(s.rindex(cp), npos);
        EXPECT_EQ(s.first(cp), npos);
        EXPECT_EQ(s.last(cp), npos);
        EXPECT_FALSE(s.contains(cp));
        EXPECT_EQ(s.skipLeading(cp), 0u);
        EXPECT_EQ(s.skipTrailing(cp), 4u + 1);
    }
}

// Whether a string takes these arguments at all.
template <typename... Arguments>
concept Searches = requires(const UString& s, const Arguments&... arguments) {
    s.index(arguments...);
};
static_assert(Searches<UChar> && Searches<unsigned, unsigned, UChar32>);
static_assert(!Searches<> && !Searches<unsigned, unsigned> && !Searches<UString, UChar>);

struct SkipCase {
    std::u16string text;
    UChar32 cp;
    unsigned leading;
    unsigned trailing;
};

TEST(UStringSearch, SkipsLeadingAndTrailingRuns) {
    const SkipCase cases[] = {
        {u"", 'x', 0, 0},
        {u"abc", 'x', 0, 3},
        {u"xxabcxxx", 'x', 2, 5},
        {u"xxx", 'x', 3, 0},
        {u"axa", 'x', 0, 3},
        {u"\U0001F600\U0001F600a\U0001F600", 0x1F600, 4, 5},
        {u"\U0001F600\U0001F600", 0x1F600, 4, 0},
        {u"\U0001F600\U0001F601\U0001F600", 0x1F600, 2, 4},
        {u"\U0001F600\xD83D", 0x1F600, 2, 3},
        {u"\xDE00\U0001F600", 0x1F600, 0, 1},
        {u"\U0001F600", 0xD83D, 0, 2},
        {u"\U0001F600", 0xDE00, 0, 2},
        {u"\xD83D\xD83D\xDE00", 0xD83D, 1, 3},
        {u"\xD83D\xDE00\xDE00", 0xDE00, 0, 2},
        {u"\xD83D\xD83D", 0xD83D, 2, 0},
    };
    for (const SkipCase& c : cases) {
        EXPECT_EQ(text(c.text).skipLeading(c.cp), c.leading) << std::hex << c.cp;
        EXPECT_EQ(text(c.text).skipTrailing(c.cp), c.trailing) << std::hex << c.cp;
    }
}

// Random texts: many repetitions, so that much is nearly found, and lengths around the blocks that
// scans take at once.
class RandomTexts {
public:
    explicit RandomTexts(std::u16string alphabet) : alphabet_(std::move(alphabet)) {}

    unsigned number(unsigned below) { return static_cast<unsigned>(random_() % below); }
    Units of(unsigned length) {
        Units s;
        for (unsigned i = 0; i < length; ++i) {
            s += unit(alphabet_[number(static_cast<unsigned>(alphabet_.size()))]);
        }
        return s;
    }

private:
    std::u16string alphabet_;
    std::mt19937 random_{20260101};
};

unsigned found(std::size_t i, std::size_t offset) {
    return i == Units::npos ? npos : static_cast<unsigned>(i + offset);
}

TEST(UStringSearch, ByUnitsAgreesWithTheStandardString) {
    RandomTexts random(u"aaab");
    for (int round = 0; round < 20000; ++round) {
        const Units whole = random.of(random.number(90));
        const Units pattern = random.of(1 + random.number(round % 4 == 0 ? 20 : 4));
        const UString s(whole);
        const unsigned start = random.number(s.length() + 1);
        const unsigned extent = random.number(s.length() - start + 1);
        const Units part = whole.substr(start, extent);
        const UString p(pattern);
        ASSERT_EQ(s.index(start, extent, p), found(part.find(pattern), start));
        ASSERT_EQ(s.rindex(start, extent, p), found(part.rfind(pattern), start));
        ASSERT_EQ(s.first(start, extent, p), found(part.find_first_of(pattern), start));
        ASSERT_EQ(s.last(start, extent, p), found(part.find_last_of(pattern), start));
        ASSERT_EQ(s.contains(start, extent, p), part.find(pattern) != Units::npos);
        const UChar c = unit(u'b');
        ASSERT_EQ(s.index(start, extent, c), found(part.find(c), start));
        ASSERT_EQ(s.rindex(start, extent, c), found(part.rfind(c), start));
    }
}

// A text as code points, each with its place.
struct PlacedPoints {
    explicit PlacedPoints(const Units& s) {
        for (std::size_t i = 0; i < s.size(); ++i) {
            const auto high = static_cast<std::uint32_t>(s[i]);
            const bool pair = high >= 0xD800 && high <= 0xDBFF && i + 1 < s.size() &&
                              s[i + 1] >= 0xDC00 && s[i + 1] <= 0xDFFF;
            places.push_back(static_cast<unsigned>(i));
            values.push_back(pair ? 0x10000 + (high - 0xD800) * 0x400 + (s[i + 1] - 0xDC00) : high);
            i += pair ? 1 : 0;
        }
        places.push_back(static_cast<unsigned>(s.size()));
    }

    // Whether the code points from the k-th on begin with the pattern and lie in the range.
    bool matches(std::size_t k, const Points& pattern, unsigned start, unsigned end) const {
        return k + pattern.size() <= values.size() && places[k] >= start &&
               places[k + pattern.size()] <= end &&
               std::equal(pattern.begin(), pattern.end(), values.begin() + static_cast<long>(k));
    }

    std::vector<unsigned> places;
    Points values;
};

TEST(UStringSearch, ByCodePointsAgreesWithASearchInDecodedText) {
    RandomTexts random(u"\xD83D\xD83D\xDE00\xDE00\xDE01z");
    for (int round = 0; round < 20000; ++round) {
        const Units whole = random.of(random.number(round % 2 == 0 ? 10 : 90));
        const UString s(whole);
        const PlacedPoints placed(whole);
        const unsigned start = random.number(s.length() + 1);
        const unsigned end = start + random.number(s.length() - start + 1);
        const Points pattern = PlacedPoints(random.of(1 + random.number(4))).values;
        std::vector<unsigned> sequences;
        std::vector<unsigned> elements;
        for (std::size_t k = 0; k < placed.values.size(); ++k) {
            if (placed.matches(k, pattern, start, end)) {
                sequences.push_back(placed.places[k]);
            }
            if (std::count(pattern.begin(), pattern.end(), placed.values[k]) > 0 &&
                placed.matches(k, Points{placed.values[k]}, start, end)) {
                elements.push_back(placed.places[k]);
            }
        }
        const unsigned n = static_cast<unsigned>(pattern.size());
        const UChar32* const p = pattern.data();
        const unsigned extent = end - start;
        ASSERT_EQ(s.index(start, extent, p, n), sequences.empty() ? npos : sequences.front());
        ASSERT_EQ(s.rindex(start, extent, p, n), sequences.empty() ? npos : sequences.back());
        ASSERT_EQ(s.first(start, extent, p, n), elements.empty() ? npos : elements.front());
        ASSERT_EQ(s.last(start, extent, p, n), elements.empty() ? npos : elements.back());
    }
}

}  // namespace
}  // namespace nolk
