// Appending, inserting, replacing, removing, stripping.

#include <nolk/core/CString.h>

#include <nolk/core/CSubString.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <string_view>

#include "CStringSupport.h"

namespace nolk {

using namespace test;
namespace {

constexpr unsigned npos = CString::npos;
const std::string long100(100, 'x');
const char* const nothing = nullptr;

struct Form {
    const char* name;
    std::function<CString&(CString&)> change;
    std::string_view result;
};

// Each form, on "abc".
const Form forms[] = {
    {"append char n", [](CString& s) -> CString& { return s.append('x', 2); }, "abcxx"},
    {"append char 0", [](CString& s) -> CString& { return s.append('x', 0); }, "abc"},
    {"append text", [](CString& s) -> CString& { return s.append("xy"); }, "abcxy"},
    {"append text n", [](CString& s) -> CString& { return s.append("xyz", 2); }, "abcxy"},
    {"append text 0", [](CString& s) -> CString& { return s.append("xyz", 0); }, "abc"},
    {"append null", [](CString& s) -> CString& { return s.append(nothing, 4); }, "abc"},
    {"append null text", [](CString& s) -> CString& { return s.append(nothing); }, "abc"},
    {"append string", [](CString& s) -> CString& { return s.append(CString("xy")); }, "abcxy"},
    {"append string n", [](CString& s) -> CString& { return s.append(CString("xyz"), 2); },
     "abcxy"},
    {"append string more", [](CString& s) -> CString& { return s.append(CString("xy"), 9); },
     "abcxy"},
    {"append string npos", [](CString& s) -> CString& { return s.append(CString("xy"), npos); },
     "abcxy"},
    {"+= char", [](CString& s) -> CString& { return s += 'x'; }, "abcx"},
    {"+= text", [](CString& s) -> CString& { return s += "xy"; }, "abcxy"},
    {"+= null", [](CString& s) -> CString& { return s += nothing; }, "abc"},
    {"+= string", [](CString& s) -> CString& { return s += CString("xy"); }, "abcxy"},
    {"+= std::string", [](CString& s) -> CString& { return s += std::string("xy"); }, "abcxy"},
    {"prepend char n", [](CString& s) -> CString& { return s.prepend('x', 2); }, "xxabc"},
    {"prepend char 0", [](CString& s) -> CString& { return s.prepend('x', 0); }, "abc"},
    {"prepend text", [](CString& s) -> CString& { return s.prepend("xy"); }, "xyabc"},
    {"prepend text n", [](CString& s) -> CString& { return s.prepend("xyz", 2); }, "xyabc"},
    {"prepend null", [](CString& s) -> CString& { return s.prepend(nothing, 4); }, "abc"},
    {"prepend string", [](CString& s) -> CString& { return s.prepend(CString("xy")); }, "xyabc"},
    {"prepend string n", [](CString& s) -> CString& { return s.prepend(CString("xyz"), 2); },
     "xyabc"},
    {"prepend string more", [](CString& s) -> CString& { return s.prepend(CString("xy"), 9); },
     "xyabc"},
    {"insert text", [](CString& s) -> CString& { return s.insert(1, "xy"); }, "axybc"},
    {"insert text at 0", [](CString& s) -> CString& { return s.insert(0, "xy"); }, "xyabc"},
    {"insert text at end", [](CString& s) -> CString& { return s.insert(3, "xy"); }, "abcxy"},
    {"insert text n", [](CString& s) -> CString& { return s.insert(2, "xyz", 2); }, "abxyc"},
    {"insert null", [](CString& s) -> CString& { return s.insert(1, nothing, 4); }, "abc"},
    {"insert string", [](CString& s) -> CString& { return s.insert(1, CString("xy")); }, "axybc"},
    {"insert string n", [](CString& s) -> CString& { return s.insert(1, CString("xyz"), 2); },
     "axybc"},
    {"insert string more", [](CString& s) -> CString& { return s.insert(1, CString("xy"), 9); },
     "axybc"},
    {"remove to end", [](CString& s) -> CString& { return s.remove(1); }, "a"},
    {"remove all", [](CString& s) -> CString& { return s.remove(0); }, ""},
    {"remove nothing", [](CString& s) -> CString& { return s.remove(3); }, "abc"},
    {"remove n", [](CString& s) -> CString& { return s.remove(0, 1); }, "bc"},
    {"remove more", [](CString& s) -> CString& { return s.remove(1, 9); }, "a"},
    {"remove npos", [](CString& s) -> CString& { return s.remove(2, npos); }, "ab"},
    {"remove 0", [](CString& s) -> CString& { return s.remove(1, 0); }, "abc"},
    {"replace text", [](CString& s) -> CString& { return s.replace(1, 1, "xyz"); }, "axyzc"},
    {"replace same length", [](CString& s) -> CString& { return s.replace(1, 1, "x"); }, "axc"},
    {"replace shorter", [](CString& s) -> CString& { return s.replace(0, 2, "x"); }, "xc"},
    {"replace text n", [](CString& s) -> CString& { return s.replace(1, 1, "xyz", 2); }, "axyc"},
    {"replace string", [](CString& s) -> CString& { return s.replace(1, 1, CString("xy")); },
     "axyc"},
    {"replace string n", [](CString& s) -> CString& { return s.replace(1, 1, CString("xyz"), 2); },
     "axyc"},
    {"replace string more",
     [](CString& s) -> CString& { return s.replace(1, 1, CString("xy"), 9); }, "axyc"},
    {"replace null", [](CString& s) -> CString& { return s.replace(0, 1, nothing, 7); }, "bc"},
    {"replace null text", [](CString& s) -> CString& { return s.replace(0, 1, nothing); }, "bc"},
    {"replace with 0", [](CString& s) -> CString& { return s.replace(0, 1, 0, 0); }, "bc"},
    {"replace more", [](CString& s) -> CString& { return s.replace(1, 9, "x"); }, "ax"},
    {"replace npos", [](CString& s) -> CString& { return s.replace(0, npos, "x"); }, "x"},
};

TEST(CStringChange, EachFormGivesItsResultAndTheStringItself) {
    for (const Form& form : forms) {
        CString text("abc");
        EXPECT_EQ(&form.change(text), &text) << form.name;
        EXPECT_EQ(text.view(), form.result) << form.name;
        EXPECT_EQ(text.data()[text.length()], '\0') << form.name;
    }
}

TEST(CStringChange, EachFormDoesTheSameInALargeBuffer) {
    for (const Form& form : forms) {
        CString text(500);
        text = "abc";
        form.change(text);
        EXPECT_EQ(text.view(), form.result) << form.name;
        EXPECT_EQ(text.data()[text.length()], '\0') << form.name;
    }
}

TEST(CStringChange, EachFormLeavesCopiesAlone) {
    for (const Form& form : forms) {
        CString text(500);
        text = "abc";
        const CString copy(text);
        form.change(text);
        EXPECT_EQ(text.view(), form.result) << form.name;
        EXPECT_EQ(copy.view(), "abc") << form.name;
        EXPECT_FALSE(shareBuffer(text, copy)) << form.name;
    }
}

TEST(CStringChange, PositionBeyondTheEndIsTheEnd) {
    for (const unsigned pos : {4u, 63u, 64u, 1000u, npos - 1, npos}) {
        EXPECT_EQ(CString("abc").insert(pos, "x").view(), "abcx") << pos;
        EXPECT_EQ(CString("abc").insert(pos, "xy", 1).view(), "abcx") << pos;
        EXPECT_EQ(CString("abc").insert(pos, CString("x")).view(), "abcx") << pos;
        EXPECT_EQ(CString("abc").insert(pos, CString("xy"), 1).view(), "abcx") << pos;
        EXPECT_EQ(CString("abc").remove(pos).view(), "abc") << pos;
        EXPECT_EQ(CString("abc").remove(pos, 2).view(), "abc") << pos;
        EXPECT_EQ(CString("abc").remove(pos, npos).view(), "abc") << pos;
        EXPECT_EQ(CString("abc").replace(pos, 5, "x").view(), "abcx") << pos;
        EXPECT_EQ(CString("abc").replace(pos, npos, CString("x")).view(), "abcx") << pos;
    }
}

TEST(CStringChange, ZeroBytesAreKept) {
    CString text("a");
    text.append("\0b", 2).insert(1, "\0", 1).prepend(CString('\0', 1));
    EXPECT_EQ(text.view(), std::string_view("\0a\0\0b", 5));
}

// --- Text out of the string itself ---

TEST(CStringChange, TextMayComeFromTheSmallBufferItself) {
    CString text("abcdef");
    text.insert(1, text.data() + 2, 3);
    EXPECT_EQ(text.view(), "acdebcdef");
    text.replace(0, 4, text.data() + 5, 2);
    EXPECT_EQ(text.view(), "cdbcdef");
    text.append(text.data(), 7);
    EXPECT_EQ(text.view(), "cdbcdefcdbcdef");
    EXPECT_TRUE(isInline(text));
    text.prepend(text);
    EXPECT_EQ(text.view(), "cdbcdefcdbcdefcdbcdefcdbcdef");
    text += text;
    text += text;
    EXPECT_EQ(text.length(), 112u);
    EXPECT_EQ(text.view().substr(84), "cdbcdefcdbcdefcdbcdefcdbcdef");
}

TEST(CStringChange, TextMayComeFromTheBufferOnTheHeapItself) {
    const std::string content = std::string(60, 'a') + std::string(60, 'b');
    for (const unsigned capacity : {120u, 500u}) {
        CString text(capacity);
        text = content.c_str();
        text.insert(0, text.data() + 55, 10);
        EXPECT_EQ(text.view(), "aaaaabbbbb" + content);
        text.replace(0, 10, text.data() + 128, 2);
        EXPECT_EQ(text.view(), "bb" + content);
        text.append(text);
        EXPECT_EQ(text.view(), "bb" + content + "bb" + content);
    }
}

TEST(CStringChange, ShorterTextOutOfALargeBufferReturnsToTheSmallOne) {
    CString text(500);
    text = "abcdef";
    text.replace(0, 6, text.data() + 2, 3);
    EXPECT_EQ(text.view(), "cde");
    EXPECT_TRUE(isInline(text));
}

TEST(CStringChange, OwnTerminatorCanBePutIn) {
    CString text("abc");
    text.insert(0, text.data() + 3, 1);
    EXPECT_EQ(text.view(), std::string_view("\0abc", 4));
}

TEST(CStringChange, TextOfACopyMayBePutIn) {
    CString text(long100);
    const CString copy(text);
    text.insert(50, copy);
    EXPECT_EQ(text.view(), std::string(200, 'x'));
    EXPECT_EQ(copy.view(), long100);
}

// --- Which buffer a change leaves ---

struct BufferRow {
    const char* why;
    unsigned capacity;  // made with
    unsigned length;    // of the text
    unsigned n;         // removed at 0
    unsigned sn;        // put in there
    unsigned expected;  // capacity then
};

const BufferRow bufferRows[] = {
    {"room enough", 200, 100, 0, 50, 200},
    {"room to the last byte", 200, 100, 0, 100, 200},
    {"no room: doubled", 200, 100, 0, 101, 400},
    {"no room: doubled until enough", 200, 100, 0, 800, 1600},
    {"same length keeps any waste", 200, 100, 10, 10, 200},
    {"longer keeps any waste", 200, 100, 10, 11, 200},
    {"shorter with 15 to spare", 100, 90, 5, 0, 100},
    {"shorter with 16 to spare: as large as the old text", 100, 90, 6, 0, 90},
    {"shorter with far more to spare", 200, 100, 90, 0, 100},
    {"a full buffer: another one just as large", 100, 100, 90, 0, 100},
    {"old text below 64: into the object", 200, 63, 60, 0, 64},
    {"old text of 64 stays on the heap", 200, 64, 60, 0, 64},
};

TEST(CStringChange, ReplaceKeepsOrLeavesABufferByItsRules) {
    for (const BufferRow& row : bufferRows) {
        CString text(row.capacity);
        text.append('x', row.length);
        text.replace(0, row.n, CString('y', row.sn));
        EXPECT_EQ(text.capacity(), row.expected) << row.why;
        EXPECT_EQ(text.view(), std::string(row.sn, 'y') + std::string(row.length - row.n, 'x'))
            << row.why;
    }
}

TEST(CStringChange, ReplaceInASharedBufferMakesOneOfTheLargerLength) {
    struct Row {
        unsigned length;
        unsigned n;
        unsigned sn;
        unsigned expected;
    };
    const Row rows[] = {{100, 0, 20, 120},
                        {100, 30, 0, 100},
                        {100, 0, 101, 400},
                        {50, 10, 0, 64},
                        {100, 0, 0, 100}};
    for (const Row& row : rows) {
        CString text(200);
        text.append('x', row.length);
        const CString copy(text);
        text.replace(0, row.n, CString('y', row.sn));
        EXPECT_EQ(text.capacity(), row.expected) << row.length << ' ' << row.n << ' ' << row.sn;
        EXPECT_EQ(copy.length(), row.length);
    }
}

TEST(CStringChange, ReplaceWithItsOwnTextLeavesALargerBuffer) {
    CString text(500);
    text.append('x', 100);
    text.append(text.data(), 20);
    EXPECT_EQ(text.capacity(), 120u);
    text.append(text.data(), 1);
    EXPECT_EQ(text.capacity(), 240u);
}

TEST(CStringChange, MaxWasteTellsHowMuchIsLeftUnused) {
    const WithMaxWaste waste(0);
    CString text(100);
    text.append('x', 99).remove(98);
    EXPECT_EQ(text.capacity(), 99u);
    const WithMaxWaste much(1000);
    CString other(200);
    other.append('x', 100).remove(10);
    EXPECT_EQ(other.capacity(), 200u);
}

TEST(CStringChange, FullBufferIsLeftForAnotherOneWhenItShrinks) {
    CString text(long100);
    const char* data = text.data();
    text.remove(85);
    EXPECT_EQ(text.data(), data);
    CString other(long100);
    data = other.data();
    other.remove(84);
    EXPECT_NE(other.data(), data);
    EXPECT_EQ(other.view(), std::string(84, 'x'));
}

TEST(CStringChange, SmallBufferKeepsATextBelow64ThatShrinks) {
    CString text('x', 63);
    text.remove(2);
    EXPECT_EQ(text.view(), "xx");
    EXPECT_TRUE(isInline(text));
}

// What replaces a full one has room for 64 bytes, too.
TEST(CStringChange, FullSmallBufferIsLeftForTheHeapWhenItShrinks) {
    CString text('x', 63);
    text += 'y';
    EXPECT_TRUE(isInline(text));
    text.remove(1, 62);
    EXPECT_EQ(text.view(), "xy");
    EXPECT_EQ(text.capacity(), 64u);
    EXPECT_FALSE(isInline(text));
    EXPECT_TRUE(shareBuffer(text, CString(text)));
    CString little('x', 63);
    little += 'y';
    little.remove(49);
    EXPECT_TRUE(isInline(little));
}

TEST(CStringChange, BufferIsKeptToItsLastByte) {
    CString text(200);
    text.append('x', 100);
    const char* data = text.data();
    text.replace(0, 0, CString('y', 100));
    EXPECT_EQ(text.data(), data);
    EXPECT_EQ(text.length(), 200u);
    CString small('x', 60);
    small.insert(1, "yyyy");
    EXPECT_EQ(small.view(), "xyyyy" + std::string(59, 'x'));
    EXPECT_TRUE(isInline(small));
}

TEST(CStringChange, NothingAppendedKeepsABufferUnlessItIsShared) {
    CString text(200);
    text.append('x', 100);
    const char* data = text.data();
    text.append("", 0).append(nothing, 3).append(data + 100, 0);
    EXPECT_EQ(text.data(), data);
    CString copy(text);
    copy.append("", 0);
    EXPECT_FALSE(shareBuffer(text, copy));
    EXPECT_EQ(copy.view(), long100);
}

TEST(CStringChange, OwnTextThatFillsTheSmallBufferLeavesItForTheHeap) {
    CString text('x', 60);
    text.insert(1, text.data(), 3);
    EXPECT_TRUE(isInline(text));
    CString full('x', 60);
    full.insert(1, full.data(), 4);
    EXPECT_EQ(full.view(), std::string(64, 'x'));
    EXPECT_EQ(full.capacity(), 64u);
    EXPECT_FALSE(isInline(full));
}

TEST(CStringChange, AppendedAndPrependedBytesGrowByDoubling) {
    CString text(long100);
    text.append('y', 1);
    EXPECT_EQ(text.capacity(), 200u);
    text.prepend('z', 100);
    EXPECT_EQ(text.capacity(), 400u);
    EXPECT_EQ(text.view(), std::string(100, 'z') + long100 + "y");
}

TEST(CStringChange, BytesPutBeforeOrBehindASharedTextTakeJustEnough) {
    CString text(500);
    text.append('x', 100);
    CString behind(text);
    behind.append('y', 20);
    EXPECT_EQ(behind.capacity(), 120u);
    CString before(text);
    before.prepend('y', 20);
    EXPECT_EQ(before.capacity(), 120u);
    EXPECT_EQ(text.view(), long100);
    EXPECT_EQ(behind.view(), long100 + std::string(20, 'y'));
    EXPECT_EQ(before.view(), std::string(20, 'y') + long100);
}

// --- Resizing, case ---

TEST(CStringChange, ResizeFillsUpWithSpaces) {
    CString text("ab");
    text.resize(5);
    EXPECT_EQ(text.view(), "ab   ");
    text.resize(100);
    EXPECT_EQ(text.view(), "ab" + std::string(98, ' '));
}

TEST(CStringChange, ResizeCutsTheTail) {
    CString text("abcdef");
    text.resize(2);
    EXPECT_EQ(text.view(), "ab");
    text.resize(2);
    EXPECT_EQ(text.view(), "ab");
    text.resize(0);
    EXPECT_EQ(text.view(), "");
}

TEST(CStringChange, CaseIsChangedInPlace) {
    CString text("aBc[1\xE9");
    text.toUpper();
    EXPECT_EQ(text.view(), "ABC[1\xE9");
    text.toLower();
    EXPECT_EQ(text.view(), "abc[1\xE9");
}

TEST(CStringChange, CaseMappingKeepsZeroBytes) {
    CString text(std::string("a\0b", 3));
    text.toUpper();
    EXPECT_EQ(text.view(), std::string_view("A\0B", 3));
}

TEST(CStringChange, CaseOfACopyIsItsOwn) {
    CString text(long100);
    CString copy(text);
    copy.toUpper();
    EXPECT_EQ(text.view(), long100);
    EXPECT_EQ(copy.view(), std::string(100, 'X'));
    copy = text;
    copy.toLower();
    EXPECT_FALSE(shareBuffer(text, copy));
}

// --- Stripping ---

struct StripRow {
    std::string_view text;
    CString::stripType ends;
    unsigned start;
    unsigned extent;
};

const StripRow stripRows[] = {
    {"xxaxbx", CString::leading, 2, 4},  {"xxaxbx", CString::trailing, 0, 5},
    {"xxaxbx", CString::both, 2, 3},     {"abc", CString::both, 0, 3},
    {"xxx", CString::leading, npos, 0},  {"xxx", CString::trailing, npos, 0},
    {"xxx", CString::both, npos, 0},     {"", CString::both, npos, 0},
    {"", CString::stripType(), npos, 0}, {"xax", CString::stripType(), 0, 3},
    {"xa", CString::trailing, 0, 2},     {"ax", CString::leading, 0, 2},
};

TEST(CStringStrip, TakesRunsOffTheEndsTold) {
    for (const StripRow& row : stripRows) {
        CString text(row.text);
        const CString& constant = text;
        const CSubString stripped = text.strip(row.ends, 'x');
        EXPECT_EQ(stripped.start(), row.start) << row.text << ' ' << row.ends;
        EXPECT_EQ(stripped.length(), row.extent) << row.text << ' ' << row.ends;
        EXPECT_EQ(constant.strip(row.ends, 'x').start(), row.start) << row.text;
        EXPECT_EQ(constant.strip(row.ends, 'x').length(), row.extent) << row.text;
    }
}

TEST(CStringStrip, NothingLeftIsANullSubstring) {
    const CString text("xxx");
    const CSubString stripped = text.strip(CString::both, 'x');
    EXPECT_TRUE(stripped.isNull());
    EXPECT_EQ(stripped.start(), npos);
}

TEST(CStringStrip, TakesZeroBytesButNotTheTerminator) {
    const CString zeros('\0', 3);
    EXPECT_TRUE(zeros.strip(CString::leading, '\0').isNull());
    EXPECT_TRUE(zeros.strip(CString::trailing, '\0').isNull());
    EXPECT_TRUE(CString("").strip(CString::leading, '\0').isNull());
    EXPECT_EQ(CString(std::string_view("\0a\0", 3)).strip(CString::leading, '\0').length(), 2u);
}

TEST(CStringStrip, TakesWhiteSpaceOfEachKind) {
    for (const StripRow& row : stripRows) {
        std::string spaced(row.text);
        const char* kinds = " \t\n\v\f\r";
        unsigned kind = 0;
        for (char& c : spaced) {
            c = c == 'x' ? kinds[kind++ % 6] : c;
        }
        CString text(spaced);
        const CString& constant = text;
        EXPECT_EQ(text.stripWhitespace(row.ends).start(), row.start) << row.text << ' ' << row.ends;
        EXPECT_EQ(text.stripWhitespace(row.ends).length(), row.extent) << row.text;
        EXPECT_EQ(constant.stripWhitespace(row.ends).start(), row.start) << row.text;
        EXPECT_EQ(constant.stripWhitespace(row.ends).length(), row.extent) << row.text;
    }
    EXPECT_TRUE(CString(" \t\n\v\f\r").stripWhitespace(CString::both).isNull());
}

TEST(CStringStrip, ResultCanBeWritten) {
    CString text("  ab  ");
    text.stripWhitespace(CString::both) = "xyz";
    EXPECT_EQ(text.view(), "  xyz  ");
    text.strip(CString::trailing, ' ') = CString();
    EXPECT_EQ(text.view(), "  ");
}

}  // namespace
}  // namespace nolk
