#include <nolk/core/UString.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "UnitText.h"

namespace nolk {
namespace {

using namespace test;

constexpr unsigned npos = UString::npos;

// The families, each under a name that takes a range and any arguments.

struct Append {
    static UString& to(UString& s, unsigned, unsigned, const auto&... source) {
        return s.append(source...);
    }
};
struct Prepend {
    static UString& to(UString& s, unsigned, unsigned, const auto&... source) {
        return s.prepend(source...);
    }
};
struct Insert {
    static UString& to(UString& s, unsigned pos, unsigned, const auto&... source) {
        return s.insert(pos, source...);
    }
};
struct Replace {
    static UString& to(UString& s, unsigned pos, unsigned n, const auto&... source) {
        return s.replace(pos, n, source...);
    }
};

struct ModifyCase {
    std::u16string before;
    unsigned pos;
    unsigned n;
    std::u32string source;
    std::u16string after;
};

// Checks every form of a family over a row, for each storage form of the string.
template <typename Family>
class Forms {
public:
    explicit Forms(const ModifyCase& row) : row_(row) {}

    void check() {
        const Points points(row_.source.begin(), row_.source.end());
        const Units units = test::units(points);
        const Units embedded = test::units(u"<<") + units + test::units(u">");
        const unsigned unitCount = static_cast<unsigned>(units.size());
        const unsigned pointCount = static_cast<unsigned>(points.size());
        UString whole(embedded);
        form("UString", UString(units));
        form("UString, start, extent", whole, 2u, unitCount);
        form("units, n", units.data(), unitCount);
        form("points, n", points.data(), pointCount);
        form("USubString", whole(2, unitCount));
        form("UConstSubString", std::as_const(whole)(2, unitCount));
        if (row_.source.find(U'\0') == std::u32string::npos) {
            Points terminated = points;
            terminated.push_back(0);
            form("units", units.c_str());
            form("points", static_cast<const UChar32*>(terminated.data()));
        }
        const bool same =
            std::count(points.begin(), points.end(), points.empty() ? 0 : points[0]) ==
            static_cast<long>(pointCount);
        if (same && unitCount == pointCount) {
            form("unit, n", pointCount == 0 ? unit(u'x') : units[0], pointCount);
        }
        if (same) {
            form("point, n", pointCount == 0 ? UChar32{0x1F600} : points[0], pointCount);
        }
    }

private:
    template <typename... Source>
    void form(const char* name, const Source&... source) {
        const Units before = test::units(row_.before);
        const unsigned length = static_cast<unsigned>(before.size());
        const UString forms[] = {UString(before), UString(before.data(), length, 100u),
                                 UString(before.c_str(), UString::persistent)};
        for (const UString& original : forms) {
            if (original.length() != length) {
                continue;  // a zero unit ended the borrowed text
            }
            UString s(original);
            EXPECT_EQ(&Family::to(s, row_.pos, row_.n, source...), &s);
            EXPECT_EQ(shown(s), row_.after) << name;
            EXPECT_EQ(s.data()[s.length()], UChar()) << name;
            EXPECT_EQ(shown(original), row_.before) << name;
            if (s.data() != original.data() || s.capacity() == 8) {
                const unsigned n = s.length();
                EXPECT_EQ(s.capacity(), n < 8 ? 8 : n + n / 4 + 65) << name;
            }
        }
    }

    const ModifyCase& row_;
};

template <typename Family>
void checkTable(const std::vector<ModifyCase>& rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE("row " + std::to_string(i));
        Forms<Family>(rows[i]).check();
    }
}

TEST(UStringModify, AppendPutsTheSourceBehindTheText) {
    checkTable<Append>({
        {u"", 0, 0, U"", u""},
        {u"", 0, 0, U"abc", u"abc"},
        {u"abc", 0, 0, U"", u"abc"},
        {u"abc", 0, 0, U"defg", u"abcdefg"},
        {u"abc", 0, 0, U"defgh", u"abcdefgh"},
        {u"abcdefgh", 0, 0, U"i", u"abcdefghi"},
        {u"ab", 0, 0, U"\U0001F600", u"ab\U0001F600"},
        {u"abcdef", 0, 0, U"\U0001F600", u"abcdef\U0001F600"},
        {u"abcdef", 0, 0, U"\U0001F600\U0001F600", u"abcdef\U0001F600\U0001F600"},
        {u"a", 0, 0, U"xxxx", u"axxxx"},
        {u"\xD83D", 0, 0, U"\xDE00", u"\U0001F600"},
        {u"a", 0, 0, std::u32string(U"\0b", 2), std::u16string(u"a\0b", 3)},
        {std::u16string(u"a\0", 2), 0, 0, U"b", std::u16string(u"a\0b", 3)},
    });
}

TEST(UStringModify, PrependPutsTheSourceBeforeTheText) {
    checkTable<Prepend>({
        {u"", 0, 0, U"", u""},
        {u"", 0, 0, U"abc", u"abc"},
        {u"abc", 0, 0, U"", u"abc"},
        {u"abc", 0, 0, U"defg", u"defgabc"},
        {u"abc", 0, 0, U"defgh", u"defghabc"},
        {u"abcdefgh", 0, 0, U"i", u"iabcdefgh"},
        {u"ab", 0, 0, U"\U0001F600\U0001F600", u"\U0001F600\U0001F600ab"},
        {u"a", 0, 0, U"xxxx", u"xxxxa"},
    });
}

TEST(UStringModify, InsertPutsTheSourceAtAPosition) {
    checkTable<Insert>({
        {u"", 0, 0, U"abc", u"abc"},
        {u"abc", 0, 0, U"x", u"xabc"},
        {u"abc", 1, 0, U"x", u"axbc"},
        {u"abc", 3, 0, U"x", u"abcx"},
        {u"abc", 4, 0, U"x", u"abcx"},  // behind the end is the end
        {u"abc", npos, 0, U"x", u"abcx"},
        {u"abc", 1, 0, U"", u"abc"},
        {u"abc", 1, 0, U"wxyz", u"awxyzbc"},
        {u"abc", 1, 0, U"vwxyz", u"avwxyzbc"},
        {u"abcdefgh", 7, 0, U"\U0001F600", u"abcdefg\U0001F600h"},
        {u"abc", 2, 0, U"\U0001F600\U0001F600", u"ab\U0001F600\U0001F600c"},
        {u"\U0001F600", 1, 0, U"x", u"\xD83Dx\xDE00"},  // nothing keeps pairs together
    });
}

TEST(UStringModify, ReplacePutsTheSourceInThePlaceOfARange) {
    checkTable<Replace>({
        {u"abc", 0, 0, U"x", u"xabc"},
        {u"abc", 0, 1, U"x", u"xbc"},
        {u"abc", 1, 1, U"xyz", u"axyzc"},
        {u"abc", 1, 2, U"x", u"ax"},
        {u"abc", 1, 9, U"x", u"ax"},
        {u"abc", 1, npos, U"x", u"ax"},
        {u"abc", 0, 3, U"", u""},
        {u"abc", 1, 0, U"", u"abc"},
        {u"abc", 9, 9, U"x", u"abcx"},
        {u"abc", npos, npos, U"x", u"abcx"},
        {u"abcdefgh", 0, 8, U"x", u"x"},
        {u"abcdefgh", 2, 1, U"", u"abdefgh"},
        {u"abcdefghi", 2, 1, U"", u"abdefghi"},
        {u"abcdefghi", 2, 3, U"\U0001F600", u"ab\U0001F600fghi"},
        {u"abc", 1, 1, U"\U0001F600\U0001F600\U0001F600", u"a\U0001F600\U0001F600\U0001F600c"},
        {u"abcdefgh", 0, 8, U"abcdefgh", u"abcdefgh"},
        {u"\U0001F600", 1, 1, U"x", u"\xD83Dx"},
    });
}

TEST(UStringModify, ClampsCountsAndRangesOfTheSource) {
    const UString source = text(u"xyz");
    EXPECT_EQ(shown(text(u"a").append(source, 1, 100)), u"ayz");
    EXPECT_EQ(shown(text(u"a").append(source, 1, npos)), u"ayz");
    EXPECT_EQ(shown(text(u"a").append(source, 9, 1)), u"a");
    EXPECT_EQ(shown(text(u"a").append(u"xyz"_u, npos)), u"axyz");
    EXPECT_EQ(shown(text(u"a").append(U"xyz"_p, npos)), u"axyz");
}

struct RemoveCase {
    std::u16string before;
    unsigned pos;
    unsigned n;
    std::u16string after;
};

TEST(UStringModify, RemoveTakesOutUnits) {
    const RemoveCase cases[] = {
        {u"abc", 0, 1, u"bc"},
        {u"abc", 1, 1, u"ac"},
        {u"abc", 2, 1, u"ab"},
        {u"abc", 0, 3, u""},
        {u"abc", 1, 9, u"a"},
        {u"abc", 1, npos, u"a"},
        {u"abc", 3, 1, u"abc"},
        {u"abc", 9, 1, u"abc"},
        {u"abc", 1, 0, u"abc"},
        {u"abcdefghij", 3, 2, u"abcfghij"},
        {u"abcdefghij", 3, 4, u"abchij"},
        {u"abcdefghij", 0, npos, u""},
    };
    for (const RemoveCase& c : cases) {
        for (UString s : {text(c.before), UString(units(c.before).c_str(), npos, 100u)}) {
            const UString copy(s);
            s.remove(c.pos, c.n);
            EXPECT_EQ(shown(s), c.after);
            EXPECT_EQ(shown(copy), c.before);
            if (s.data() != copy.data()) {
                const unsigned n = s.length();
                EXPECT_EQ(s.capacity(), n < 8 ? 8 : n + n / 4 + 65);
            }
            if (c.n == npos) {
                EXPECT_EQ(shown(UString(copy).remove(c.pos)), c.after);
            }
        }
    }
}

struct ResizeCase {
    std::u16string before;
    unsigned n;
    char32_t fill;
    std::u16string byUnits;
    std::u16string byPoints;
};

TEST(UStringModify, ResizeCountsUnitsOrCodePoints) {
    const ResizeCase cases[] = {
        {u"abc", 3, U'x', u"abc", u"abc"},
        {u"abc", 2, U'x', u"ab", u"ab"},
        {u"abc", 0, U'x', u"", u""},
        {u"abc", 5, U'x', u"abcxx", u"abcxx"},
        {u"abc", 10, U'x', u"abcxxxxxxx", u"abcxxxxxxx"},
        {u"", 1, U'x', u"x", u"x"},
        {u"a\U0001F600z", 2, U'x', u"a\xD83D", u"a\U0001F600"},
        {u"a\U0001F600z", 3, U'x', u"a\U0001F600", u"a\U0001F600z"},
        {u"a\U0001F600z", 5, U'x', u"a\U0001F600zx", u"a\U0001F600zxx"},
        {u"\xD83D\xD83D\xDE00", 1, U'x', u"\xD83D", u"\xD83D"},
        {u"\xD83D\xD83D\xDE00", 2, U'x', u"\xD83D\xD83D", u"\xD83D\U0001F600"},
    };
    for (const ResizeCase& c : cases) {
        EXPECT_EQ(shown(text(c.before).resize(c.n, unit(static_cast<char16_t>(c.fill)))),
                  c.byUnits);
        EXPECT_EQ(shown(text(c.before).resize(c.n, UChar32{c.fill})), c.byPoints);
    }
    EXPECT_EQ(shown(text(u"a").resize(3, UChar32{0x1F600})), u"a\U0001F600\U0001F600");
}

TEST(UStringModify, TakesTheGreatestCodePoint) {
    const UChar32 greatest = 0x10FFFF;
    const UChar32 run[] = {greatest, 0};
    EXPECT_EQ(shown(UString(greatest, 1)), u"\xDBFF\xDFFF");
    EXPECT_EQ(shown(UString(run)), u"\xDBFF\xDFFF");
    EXPECT_EQ(shown(text(u"a").append(greatest, 2)), u"a\xDBFF\xDFFF\xDBFF\xDFFF");
    EXPECT_EQ(shown(text(u"a").append(run)), u"a\xDBFF\xDFFF");
    EXPECT_EQ(shown(text(u"a").resize(2, greatest)), u"a\xDBFF\xDFFF");
    UString assigned;
    EXPECT_EQ(shown(assigned = greatest), u"\xDBFF\xDFFF");
}

// Sources within the string

TEST(UStringModify, TakesTheStringItselfAsASource) {
    for (const std::u16string before : {u"", u"ab", u"abcd", u"abcdefgh"}) {
        UString s = text(before);
        EXPECT_EQ(shown(s.append(s)), before + before);
        s = text(before);
        EXPECT_EQ(shown(s.prepend(s)), before + before);
        s = text(before);
        EXPECT_EQ(shown(s += s), before + before);
        s = text(before);
        EXPECT_EQ(shown(s.replace(0, s.length(), s)), before);
        s = text(before);
        EXPECT_EQ(shown(s = s(0, s.length() / 2)), before.substr(0, before.size() / 2));
    }
}

TEST(UStringModify, TakesEveryPartOfItselfAsASourceAtEveryPlace) {
    for (const std::u16string& before :
         {std::u16string(u"abcdef"), std::u16string(u"abcdefg"), std::u16string(u"abcdefghij")}) {
        const unsigned size = static_cast<unsigned>(before.size());
        for (unsigned pos = 0; pos <= size; ++pos) {
            for (unsigned n = 0; pos + n <= size; ++n) {
                for (unsigned start = 0; start <= size; ++start) {
                    for (unsigned extent = 0; start + extent <= size; ++extent) {
                        const std::u16string source = before.substr(start, extent);
                        const std::u16string after = std::u16string(before).replace(pos, n, source);
                        UString s = text(before);
                        ASSERT_EQ(shown(s.replace(pos, n, s.data() + start, extent)), after);
                        s = text(before);
                        ASSERT_EQ(shown(s.replace(pos, n, s, start, extent)), after);
                    }
                }
            }
        }
    }
}

TEST(UStringModify, TakesATerminatedTailOfItself) {
    UString s = text(u"abc");
    EXPECT_EQ(shown(s.append(s.data() + 1)), u"abcbc");
    EXPECT_EQ(shown(s.insert(0, s.data() + 3)), u"bcabcbc");
    EXPECT_EQ(shown(s.append(s.data())), u"bcabcbcbcabcbc");
    EXPECT_EQ(shown(s.append(s.data() + 12)), u"bcabcbcbcabcbcbc");
}

// A buffer whose owner uses it for other things as soon as the string has left it.
class ReusedBuffer : public UString::Deallocator {
public:
    explicit ReusedBuffer(std::u16string_view units) : units_(test::units(units)) {}

    UChar* at(unsigned i) { return units_.data() + i; }
    UChar32* points() { return points_; }
    bool isFreed() const { return isFreed_; }

protected:
    void doDeallocate(UChar* buffer) const override {
        const_cast<ReusedBuffer*>(this)->doDeallocate(buffer);
    }
    void doDeallocate(UChar*) override {
        std::fill(units_.begin(), units_.end(), unit(u'#'));
        std::fill(std::begin(points_), std::end(points_), UChar32{'#'});
        isFreed_ = true;
    }

private:
    Units units_;
    UChar32 points_[3] = {0x1F600, 'p', 0};
    bool isFreed_ = false;
};

TEST(UStringModify, TakesSourcesAnywhereInTheBufferThatItLeaves) {
    const std::u16string_view whole(u"head\0a text of its own\0tail", 27);
    struct Place {
        unsigned length;    // of the string, which begins at 5
        unsigned capacity;  // npos: not known
    };
    for (const Place place : {Place{17, 22}, Place{17, npos}, Place{npos, npos}, Place{17, 17}}) {
        for (unsigned start = 0; start <= whole.size(); ++start) {
            for (unsigned n = 0; start + n <= whole.size(); ++n) {
                ReusedBuffer buffer(whole);
                UString s(buffer.at(5), place.length, place.capacity, &buffer);
                const std::u16string source(whole.substr(start, n));
                s.replace(2, 4, buffer.at(start), n);
                ASSERT_EQ(shown(s), u"a " + source + u" of its own") << start << ' ' << n;
                ASSERT_TRUE(buffer.isFreed());
            }
        }
    }
}

TEST(UStringModify, TakesSourcesInTheBufferThatItLeavesForTheShortForm) {
    ReusedBuffer buffer(std::u16string_view(u"a text of its own\0tail", 22));
    UString s(buffer.at(0), 17, 22, &buffer);
    EXPECT_EQ(shown(s.replace(1, 16, buffer.at(18))), u"atail");
    EXPECT_EQ(s.capacity(), 8u);
    EXPECT_TRUE(buffer.isFreed());
}

TEST(UStringModify, TakesCodePointsThatAreFreedWithTheBufferThatItLeaves) {
    ReusedBuffer buffer(u"a text of its own");
    UString s(buffer.at(0), 17, &buffer);
    EXPECT_EQ(shown(s.replace(6, npos, buffer.points())), u"a text\U0001F600p");
    EXPECT_TRUE(buffer.isFreed());
}

TEST(UStringModify, TakesItsOwnTerminatorAsASource) {
    UString s = text(u"abc");
    EXPECT_EQ(shown(s.insert(1, s.data() + 2, 2)), std::u16string(u"ac\0bc", 5));
    s = text(u"abcdefg");
    EXPECT_EQ(shown(s.replace(0, 7, s.data(), 8)), std::u16string(u"abcdefg\0", 8));
    EXPECT_EQ(shown(s.append(s.data() + 7, 2)), std::u16string(u"abcdefg\0\0\0", 10));
}

TEST(UStringModify, AddsAllKindsOfText) {
    UString s;
    EXPECT_EQ(shown(s += text(u"ab")), u"ab");
    EXPECT_EQ(shown(s += u"cd"_u), u"abcd");
    EXPECT_EQ(shown(s += U"\U0001F600"_p), u"abcd\U0001F600");
    EXPECT_EQ(shown(s += unit(u'e')), u"abcd\U0001F600e");
    EXPECT_EQ(shown(s += UChar32{0x1F601}), u"abcd\U0001F600e\U0001F601");
    EXPECT_EQ(shown(s += s(0, 2)), u"abcd\U0001F600e\U0001F601ab");
    EXPECT_EQ(shown(s += std::as_const(s)(2, 2)), u"abcd\U0001F600e\U0001F601abcd");
}

template <typename... Arguments>
concept Appends = requires(UString s, const Arguments&... arguments) {
    s.append(arguments...);
};
static_assert(Appends<UChar, unsigned> && Appends<UChar32, unsigned>);
static_assert(!Appends<UChar> && !Appends<UChar32> && !Appends<>);

TEST(UStringModify, AgreesWithTheStandardStringOverManyRandomChanges) {
    std::mt19937 random(20260103);
    const auto number = [&random](std::size_t below) {
        return static_cast<unsigned>(random() % below);
    };
    for (int round = 0; round < 300; ++round) {
        UString s;
        Units model;
        for (int step = 0; step < 100; ++step) {
            const UString before(s);
            const Units beforeModel = model;
            const unsigned pos = number(model.size() + 1);
            const unsigned n = number(model.size() - pos + 1);
            const Units source(number(number(8) == 0 ? 60 : 6), static_cast<UChar>(random()));
            switch (number(7)) {
                case 0:
                    s.append(source.data(), static_cast<unsigned>(source.size()));
                    model.append(source);
                    break;
                case 1:
                    s.insert(pos, UString(source));
                    model.insert(pos, source);
                    break;
                case 2:
                    s.replace(pos, n, source.data(), static_cast<unsigned>(source.size()));
                    model.replace(pos, n, source);
                    break;
                case 3:
                    s.remove(pos, n);
                    model.erase(pos, n);
                    break;
                case 4:
                    s.replace(pos, n, unit(u'r'), n / 2);
                    model.replace(pos, n, n / 2, unit(u'r'));
                    break;
                case 5:
                    s.resize(pos, unit(u'z'));
                    model.resize(pos, unit(u'z'));
                    break;
                default:
                    s.insert(pos, s, pos, n);
                    model.insert(pos, beforeModel.substr(pos, n));
            }
            ASSERT_EQ(shown(s.view()), shown(UString::View(model)));
            ASSERT_EQ(s.data()[s.length()], UChar());
            ASSERT_EQ(shown(before.view()), shown(UString::View(beforeModel)));
        }
    }
}

}  // namespace
}  // namespace nolk
