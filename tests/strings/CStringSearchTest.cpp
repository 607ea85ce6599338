// Searching and comparing.

#include <nolk/core/CString.h>

#include <nolk/core/CSubString.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace nolk {
namespace {

constexpr unsigned npos = CString::npos;
const CString::caseCompare allModes[] = {CString::exact, CString::ignoreCase,
                                         CString::ignoreCaseStrict};

TEST(CStringSearch, FirstAndLastFindAByte) {
    const CString text("abcab");
    EXPECT_EQ(text.first('b'), 1u);
    EXPECT_EQ(text.last('b'), 4u);
    EXPECT_EQ(text.first('x'), npos);
    EXPECT_EQ(text.last('x'), npos);
    EXPECT_EQ(CString().first('x'), npos);
    EXPECT_EQ(CString().last('x'), npos);
}

TEST(CStringSearch, FirstAndLastFindZeroBytes) {
    const CString text(std::string("\0a\0b", 4));
    EXPECT_EQ(text.first('\0'), 0u);
    EXPECT_EQ(text.last('\0'), 2u);
    EXPECT_EQ(CString("ab").first('\0'), npos);
}

TEST(CStringSearch, NumberBehindTheByteHasNoEffect) {
    const CString text("abcab");
    for (const unsigned number : {0u, 3u, 100u, npos}) {
        EXPECT_EQ(text.first('a', number), 0u);
        EXPECT_EQ(text.last('a', number), 3u);
    }
    EXPECT_EQ(text.first('a', 0), 0u);
    EXPECT_EQ(text.last('c', 0), 2u);
}

TEST(CStringSearch, FirstFindsAByteOfASet) {
    const CString text("abcab");
    EXPECT_EQ(text.first("cb"), 1u);
    EXPECT_EQ(text.first("c"), 2u);
    EXPECT_EQ(text.first("xyz"), npos);
    EXPECT_EQ(text.first(""), npos);
    EXPECT_EQ(text.first(static_cast<const char*>(nullptr)), npos);
    EXPECT_EQ(CString().first("a"), npos);
    EXPECT_EQ(CString("a\xE9").first("\xE9"), 1u);
}

TEST(CStringSearch, FirstFindsAByteOfACountedSet) {
    const CString text(std::string("ab\0cd", 5));
    EXPECT_EQ(text.first("d\0x", 3), 2u);
    EXPECT_EQ(text.first("dcb", 1), 4u);
    EXPECT_EQ(text.first("dcb", 0), npos);
    EXPECT_EQ(text.first(static_cast<const char*>(nullptr), 3), npos);
}

TEST(CStringSearch, IndexFindsFromTheStartOn) {
    const CString text("abcabc");
    EXPECT_EQ(text.index("bc"), 1u);
    EXPECT_EQ(text.index("bc", 1), 1u);
    EXPECT_EQ(text.index("bc", 2), 4u);
    EXPECT_EQ(text.index("bc", 4), 4u);
    EXPECT_EQ(text.index("bc", 5), npos);
    EXPECT_EQ(text.index("bcd"), npos);
    EXPECT_EQ(text.index("abcabc"), 0u);
    EXPECT_EQ(text.index("abcabcd"), npos);
}

TEST(CStringSearch, IndexHasFiveForms) {
    const CString text("abCabc");
    const CString pattern("Bcx");
    EXPECT_EQ(text.index('c', 0, CString::exact), 5u);
    EXPECT_EQ(text.index('c', 0, CString::ignoreCase), 2u);
    EXPECT_EQ(text.index('c', 3), 5u);
    EXPECT_EQ(text.index('c'), 5u);
    EXPECT_EQ(text.index("bc", 0, CString::exact), 4u);
    EXPECT_EQ(text.index("BC", 0, CString::ignoreCase), 1u);
    EXPECT_EQ(text.index("bcx", 2, 0, CString::exact), 4u);
    EXPECT_EQ(text.index("BCx", 2, 2, CString::ignoreCase), 4u);
    EXPECT_EQ(text.index("bcx", 2, 0), 4u);
    EXPECT_EQ(text.index(CString("bc"), 0, CString::exact), 4u);
    EXPECT_EQ(text.index(CString("bc"), 5), npos);
    EXPECT_EQ(text.index(CString("bc")), 4u);
    EXPECT_EQ(text.index(pattern, 2, 0, CString::ignoreCase), 1u);
    EXPECT_EQ(text.index(pattern, 2, 2, CString::ignoreCase), 4u);
    EXPECT_EQ(text.index(pattern, 2, 0), npos);
}

TEST(CStringSearch, IndexTakesAtMostTheLengthOfAString) {
    const CString text("abcabc");
    EXPECT_EQ(text.index(CString("bc"), 100, 0), 1u);
    EXPECT_EQ(text.index(CString("bc"), npos, 2, CString::ignoreCase), 4u);
}

TEST(CStringSearch, IndexFindsTheEmptyPatternAtTheStartUpToTheEnd) {
    const CString text("abc");
    for (const auto mode : allModes) {
        for (unsigned start = 0; start <= 3; ++start) {
            EXPECT_EQ(text.index("", start, mode), start);
        }
        EXPECT_EQ(text.index("", 4, mode), npos);
        EXPECT_EQ(CString().index("", 0, mode), 0u);
    }
    EXPECT_EQ(text.index(static_cast<const char*>(nullptr)), 0u);
    EXPECT_EQ(text.index(static_cast<const char*>(nullptr), 5, 1), 1u);
}

TEST(CStringSearch, IndexBeyondTheEndFindsNothing) {
    const CString text("abc");
    for (const auto mode : allModes) {
        EXPECT_EQ(text.index("c", 3, mode), npos);
        EXPECT_EQ(text.index("c", npos, mode), npos);
        EXPECT_EQ(text.index("", npos, mode), npos);
        EXPECT_EQ(text.index('c', npos, mode), npos);
        // The sum of start and pattern wraps around to 0 in 32 bits.
        EXPECT_EQ(text.index("cc", 2, npos - 1, mode), npos);
    }
}

TEST(CStringSearch, IndexFindsZeroBytes) {
    const CString text(std::string("a\0b\0c", 5));
    EXPECT_EQ(text.index("\0c", 2, 0), 3u);
    EXPECT_EQ(text.index('\0', 2), 3u);
    EXPECT_EQ(text.index(CString('\0', 1)), 1u);
}

TEST(CStringSearch, ModesDifferInLetters) {
    const CString text("xAb[");
    EXPECT_EQ(text.index("ab", 0, CString::exact), npos);
    EXPECT_EQ(text.index("aB", 0, CString::ignoreCase), 1u);
    EXPECT_EQ(text.index("aB", 0, CString::ignoreCaseStrict), 1u);
    EXPECT_EQ(text.index("{", 0, CString::ignoreCase), npos);
}

TEST(CStringSearch, ContainsWhatIndexFinds) {
    const CString text("abCabc");
    EXPECT_TRUE(text.contains("Cab"));
    EXPECT_FALSE(text.contains("cab"));
    EXPECT_TRUE(text.contains("cab", CString::ignoreCase));
    EXPECT_TRUE(text.contains(CString("cab"), CString::ignoreCaseStrict));
    EXPECT_FALSE(text.contains(CString("cab")));
    EXPECT_TRUE(text.contains(""));
    EXPECT_TRUE(CString().contains(CString()));
}

TEST(CStringSearch, SubStringStandsOnTheMatch) {
    CString text("abCabc");
    const CSubString match = text.subString("cA", 0, CString::ignoreCase);
    EXPECT_EQ(match.start(), 2u);
    EXPECT_EQ(match.length(), 2u);
    EXPECT_EQ(match, "Ca");
    EXPECT_EQ(text.subString("ab", 1).start(), 3u);
    text.subString("Cab") = "-";
    EXPECT_EQ(text.view(), "ab-c");
}

TEST(CStringSearch, SubStringOfNoMatchIsNull) {
    const CString text("abc");
    const CSubString match = text.subString("x");
    EXPECT_TRUE(match.isNull());
    EXPECT_EQ(match.length(), 0u);
    EXPECT_TRUE(text.subString("a", 1).isNull());
    EXPECT_TRUE(text.subString("a", 4).isNull());
    EXPECT_FALSE(text.subString("", 3).isNull());
}

// --- Comparing ---

struct Row {
    std::string_view a;
    std::string_view b;
    int exact;
    int ignoreCase;
    int strict;
};

const Row rows[] = {
    {"", "", 0, 0, 0},
    {"a", "", 1, 1, 1},
    {"", "a", -1, -1, -1},
    {"abc", "abc", 0, 0, 0},
    {"abc", "abd", -1, -1, -1},
    {"abd", "abc", 1, 1, 1},
    {"ab", "abc", -1, -1, -1},
    {"abc", "ab", 1, 1, 1},
    {"b", "abc", 1, 1, 1},
    {"ABC", "abc", -1, 0, 0},
    {"abc", "ABC", 1, 0, 0},
    {"abc", "ABD", 1, -1, -1},
    {"B", "a", -1, 1, 1},
    {"AB", "abc", -1, -1, -1},
    // Between the cases stand [ \ ] ^ _ `. The strict mode doesn't lower the letter beside them.
    {"Z", "_", -1, 1, -1},
    {"_", "Z", 1, -1, 1},
    {"a", "_", 1, 1, 1},
    // Signed: bytes from 0x80 on come first, in their own order.
    {"\xE9", "a", -1, -1, -1},
    {"a", "\xE9", 1, 1, 1},
    {"\x80", "\xFF", -1, -1, -1},
    {"\xFF", "\x80", 1, 1, 1},
    {"\x80", std::string_view("\0", 1), -1, -1, -1},
    {"\x7F", "\x80", 1, 1, 1},
    {"ab\xE9", "abc", -1, -1, -1},
    // Zero bytes are bytes.
    {std::string_view("a\0b", 3), std::string_view("a\0c", 3), -1, -1, -1},
    {std::string_view("a\0", 2), "a", 1, 1, 1},
};

TEST(CStringCompare, HasOneResultForEachMode) {
    for (const Row& row : rows) {
        const CString a(row.a);
        const CString b(row.b);
        EXPECT_EQ(a.compareTo(b), row.exact) << row.a << " and " << row.b;
        EXPECT_EQ(a.compareTo(b, CString::exact), row.exact) << row.a << " and " << row.b;
        EXPECT_EQ(a.compareTo(b, CString::ignoreCase), row.ignoreCase) << row.a << " and " << row.b;
        EXPECT_EQ(a.compareTo(b, CString::ignoreCaseStrict), row.strict)
            << row.a << " and " << row.b;
    }
}

TEST(CStringCompare, TakesTerminatedTexts) {
    for (const Row& row : rows) {
        if (row.b.find('\0') != std::string_view::npos) {
            continue;
        }
        const CString a(row.a);
        const std::string b(row.b);
        EXPECT_EQ(a.compareTo(b.c_str()), row.exact) << row.a << " and " << row.b;
        EXPECT_EQ(a.compareTo(b.c_str(), CString::ignoreCase), row.ignoreCase);
        EXPECT_EQ(a.compareTo(b.c_str(), CString::ignoreCaseStrict), row.strict);
    }
}

TEST(CStringCompare, OrdersATextBehindNullUnlessItIsEmpty) {
    EXPECT_EQ(CString().compareTo(static_cast<const char*>(nullptr)), 0);
    EXPECT_EQ(CString("a").compareTo(static_cast<const char*>(nullptr)), 1);
}

TEST(CStringCompare, SeesEveryByteOfLongTexts) {
    for (const unsigned length : {7u, 8u, 15u, 16u, 17u, 31u, 33u, 200u}) {
        const CString a('x', length);
        for (unsigned i = 0; i < length; ++i) {
            CString b(a);
            b(i) = 'y';
            EXPECT_EQ(a.compareTo(b), -1) << i << " of " << length;
            EXPECT_EQ(b.compareTo(a), 1) << i << " of " << length;
            b(i) = '\xE9';
            EXPECT_EQ(a.compareTo(b), 1) << i << " of " << length;
            b(i) = 'X';
            EXPECT_EQ(a.compareTo(b, CString::ignoreCase), 0) << i << " of " << length;
        }
    }
}

TEST(CStringCompare, TheFirstDifferenceDecides) {
    CString a('x', 40);
    CString b('x', 40);
    a(20) = 'y';
    b(21) = 'z';
    EXPECT_EQ(a.compareTo(b), 1);
    EXPECT_EQ(b.compareTo(a), -1);
}

}  // namespace
}  // namespace nolk
