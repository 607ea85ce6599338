#include <nolk/core/UString.h>

#include <nolk/core/ConversionException.h>
#include <nolk/core/OutOfBoundsException.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

#include "UnitText.h"
#include "foundation/SlotOrder.h"

namespace nolk {
namespace {

using namespace test;

constexpr unsigned npos = UString::npos;

// Counts the buffers that it frees, and leaves them to the test.
class CountingDeallocator : public UString::Deallocator {
public:
    int freed() const { return freed_; }

protected:
    void doDeallocate(UChar*) const override { ++freed_; }
    void doDeallocate(UChar*) override { ++freed_; }

private:
    mutable int freed_ = 0;
};

std::string failureOf(const auto& action) {
    try {
        action();
    } catch (const OutOfBoundsException& failure) {
        return failure.what();
    } catch (const ConversionException& failure) {
        return failure.what();
    }
    return "nothing was thrown";
}

std::string illegalIndex(const std::string& index, unsigned length) {
    return "[BOUNDS_ILLEGAL_INDEX] Illegal Index (" + index + ") for collection or string with " +
           std::to_string(length) + " elements";
}

// Forms and capacities

TEST(UString, IsAValueWithoutVirtualOperations) {
    EXPECT_FALSE(std::is_polymorphic_v<UString>);
    EXPECT_TRUE(std::is_nothrow_copy_constructible_v<UString>);
    EXPECT_EQ(UString::npos, 0xFFFFFFFFu);
    EXPECT_EQ(UString::max_size(), 4294967243u);
    EXPECT_EQ(UString::temporary, 0);
    EXPECT_EQ(UString::persistent, 1);
}

TEST(UString, OfNothingIsShortAndEmpty) {
    const UString s;
    EXPECT_EQ(s.length(), 0u);
    EXPECT_EQ(s.size(), 0u);
    EXPECT_EQ(s.capacity(), 8u);
    EXPECT_TRUE(s.empty());
    EXPECT_TRUE(s.isNull());
    EXPECT_EQ(*s.data(), UChar());
    EXPECT_EQ(s.begin(), s.end());
}

struct MadeCase {
    const char* what;
    UString made;
    std::u16string text;
    unsigned capacity;
};

TEST(UString, ConstructorsGiveTheTextAndTheCapacity) {
    const std::u16string seven = u"abcdefg";
    const std::u16string eight = u"abcdefgh";
    const std::u16string pairs4 = u"\U00010000\U00010000\U00010000\U00010000";
    const MadeCase cases[] = {
        {"7 units", UString(u"abcdefg"_u), seven, 8},
        {"8 units", UString(u"abcdefgh"_u), eight, 75},
        {"7 units, temporary", UString(u"abcdefg"_u, UString::temporary), seven, 8},
        {"7 units, persistent", UString(u"abcdefg"_u, UString::persistent), seven, 0},
        {"no unit, persistent", UString(u""_u, UString::persistent), u"", 0},
        {"7 of 8", UString(u"abcdefgh"_u, 7), seven, 8},
        {"8 of 9", UString(u"abcdefghi"_u, 8), eight, 75},
        {"20", UString(u"abcdefghijklmnopqrst"_u, 20), u"abcdefghijklmnopqrst", 90},
        {"a terminator inside", UString(u"a\0b"_u, 3), std::u16string(u"a\0b", 3), 8},
        {"npos measures", UString(u"abcdefgh"_u, npos), eight, 75},
        {"8 of 9, persistent", UString(u"abcdefghi"_u, 8, UString::persistent), eight, 0},
        {"8 of 9, temporary", UString(u"abcdefghi"_u, 8, UString::temporary), eight, 75},
        {"npos, persistent", UString(u"abc"_u, npos, UString::persistent), u"abc", 0},
        {"capacity 20", UString(u"abc"_u, 3u, 20u), u"abc", 20},
        {"capacity 9", UString(u"abc"_u, 3u, 9u), u"abc", 9},
        {"capacity 8", UString(u"abc"_u, 3u, 8u), u"abc", 8},
        {"capacity too small", UString(u"abcdefgh"_u, 8u, 3u), eight, 9},
        {"capacity equal to n", UString(u"abcdefgh"_u, 8u, 8u), eight, 9},
        {"capacity, measured", UString(u"abcdefgh"_u, npos, 100u), eight, 100},
        {"code points", UString(U"a\U0001F600z"_p), u"a\U0001F600z", 8},
        {"8 units of code points", UString(U"abcdef\U0001F600"_p), u"abcdef\U0001F600", 75},
        {"some code points", UString(U"a\U0001F600z"_p, 2), u"a\U0001F600", 8},
        {"a zero code point", UString(U"a\0b"_p, 3), std::u16string(u"a\0b", 3), 8},
        {"all code points", UString(U"ab"_p, npos), u"ab", 8},
        {"lone surrogates", UString(Points{0xD800, 0x61, 0xDFFF}.data(), 3), u"\xD800\x61\xDFFF",
         8},
        {"7 of a unit", UString(unit(u'x'), 7), u"xxxxxxx", 8},
        {"8 of a unit", UString(unit(u'x'), 8), u"xxxxxxxx", 75},
        {"none of a unit", UString(unit(u'x'), 0), u"", 8},
        {"7 of a code point", UString(UChar32{0x78}, 7), u"xxxxxxx", 8},
        {"3 pairs", UString(UChar32{0x10000}, 3), pairs4.substr(2), 8},
        {"4 pairs", UString(UChar32{0x10000}, 4), pairs4, 75},
        {"room for 9", UString(9u), u"", 9},
        {"room for 8", UString(8u), u"", 8},
        {"room for none", UString(0u), u"", 8},
        {"UTF-32 literal", UString(U"a\U0001F600z"), u"a\U0001F600z", 8},
        {"part of a UTF-32 literal", UString(U"abcdef\U0001F600", 7), u"abcdef\U0001F600", 75},
        {"view", UString(units(eight)), eight, 75},
        {"UTF-8 view", UString(std::string_view("Z\xC3\xBCrich!", 7)), u"Z\u00FCrich", 8},
        {"part", UString(text(u"abcdefghi")(0, 8)), eight, 75},
        {"constant part",
         UString(std::as_const(static_cast<const UString&>(text(u"xabcdefg")))(1, 7)), seven, 8},
    };
    for (const MadeCase& c : cases) {
        EXPECT_EQ(shown(c.made), c.text) << c.what;
        EXPECT_EQ(c.made.length(), c.text.size()) << c.what;
        EXPECT_EQ(c.made.capacity(), c.capacity) << c.what;
        EXPECT_EQ(c.made.empty(), c.text.empty()) << c.what;
        EXPECT_EQ(c.made.isNull(), c.text.empty()) << c.what;
    }
}

TEST(UString, EndsInAZeroUnit) {
    for (unsigned n = 0; n < 40; ++n) {
        const UString s(unit(u'x'), n);
        EXPECT_EQ(s.data()[n], UChar());
        EXPECT_EQ(UString(s.data()).length(), n);
    }
}

TEST(UString, TakesNullPointersAsEmptyTexts) {
    const UChar* const noUnits = nullptr;
    const UChar32* const noPoints = nullptr;
    const char32_t* const noCharacters = nullptr;
    EXPECT_TRUE(UString(noUnits).empty());
    EXPECT_TRUE(UString(noUnits, UString::persistent).empty());
    EXPECT_TRUE(UString(noUnits, 5).empty());
    EXPECT_TRUE(UString(noUnits, 5u, 20u).empty());
    EXPECT_TRUE(UString(noPoints).empty());
    EXPECT_TRUE(UString(noPoints, 5).empty());
    EXPECT_TRUE(UString(noCharacters).empty());
    EXPECT_EQ(UString(unit(u'x'), 3).append(noUnits).append(noPoints).length(), 3u);
    EXPECT_EQ(UString(unit(u'x'), 3).replace(0, 2, noUnits).length(), 1u);
    EXPECT_EQ(UString(unit(u'x'), 3).compareTo(noUnits), 1);
    EXPECT_EQ(UString(unit(u'x'), 3).compareTo(noPoints), 1);
    EXPECT_EQ(UString::codeUnitLength(noUnits), 0u);
    EXPECT_EQ(UString::codeUnitLength(noPoints), 0u);
    EXPECT_EQ(UString::codePointLength(noUnits), 0u);
    EXPECT_EQ(UString::codePointLength(noPoints), 0u);
}

TEST(UString, TakesWideLiteralsOnEveryPlatform) {
    UString s(L"sm\u00F8rrebr\u00F8d");
    EXPECT_EQ(shown(s), u"sm\u00F8rrebr\u00F8d");
    s = L"kage";
    EXPECT_EQ(shown(s), u"kage");
    EXPECT_EQ(shown(UString(L"kage", 2)), u"ka");
    EXPECT_EQ(shown(UString(L"kage", UString::persistent)), u"kage");
    EXPECT_TRUE(s == L"kage");
    EXPECT_TRUE(L"kager" > s);
    EXPECT_EQ(s.index(L"ge"), 2u);
    EXPECT_EQ(s.rindex(1, L"ge"), 2u);
    EXPECT_EQ(shown(s.append(L"mand")), u"kagemand");
    EXPECT_EQ(shown(s.replace(0, 4, L"brun")), u"brunmand");
    EXPECT_EQ(shown(s + L"!"), u"brunmand!");
    EXPECT_EQ(s.compareTo(L"brunmand"), 0);
    EXPECT_EQ(shown(UString(L"\U0001F600")), u"\U0001F600");
}

TEST(UString, RefusesWhatIsNoCodePoint) {
    const std::string key = "[CONVERSION_ILLEGAL_SEQUENCE]";
    const auto refused = [&key](const auto& action) {
        return failureOf(action).compare(0, key.size(), key) == 0;
    };
    const UChar32 wide = UChar32{0x110000} | UChar32{0x41} << (sizeof(UChar32) * 8 - 8);
    for (const UChar32 cp : {UChar32{0x110000}, wide, ~UChar32{}, UChar32{0x110041}}) {
        const Points points{0x61, cp};
        UString s(u"unchanged text"_u);
        EXPECT_TRUE(refused([&] { UString(cp, 1); }));
        EXPECT_TRUE(refused([&] { UString(points.data(), 2); }));
        EXPECT_TRUE(refused([&] { s.append(cp, 2); }));
        EXPECT_TRUE(refused([&] { s.insert(3, points.data(), 2); }));
        EXPECT_TRUE(refused([&] { s = cp; }));
        EXPECT_TRUE(refused([&] { s.resize(100, cp); }));
        EXPECT_EQ(shown(s), u"unchanged text");
    }
    EXPECT_TRUE(refused([] { UString(U"\x110000"); }));
}

TEST(UString, OfCodePointsAbove32BitsTruncatesNoneToAValidOne) {
    if (sizeof(UChar32) > 4) {
        const std::uint64_t high = std::uint64_t{1} << 32;
        for (const std::uint64_t low : {0x41ull, 0x10000ull, 0x10FFFFull}) {
            const UChar32 cp = static_cast<UChar32>(high | low);
            EXPECT_THROW(UString(cp, 1), ConversionException);
            EXPECT_FALSE(UString::isUnicodeCharacter(cp));
            EXPECT_EQ(text(u"A\U00010000\U0010FFFF").index(cp), npos);
            EXPECT_EQ(text(u"A\U00010000\U0010FFFF").first(cp), npos);
            EXPECT_EQ(text(u"A").skipLeading(cp), 0u);
        }
    }
}

// Sharing

TEST(UString, CopyOfAShortStringSharesNothing) {
    const UString s(u"abc"_u);
    const UString copy(s);
    EXPECT_NE(copy.data(), s.data());
    EXPECT_EQ(shown(copy), u"abc");
}

TEST(UString, CopyOfACountedStringSharesItsBufferUntilAWrite) {
    const UString s(u"abcdefgh"_u);
    UString copy(s);
    EXPECT_EQ(copy.data(), s.data());
    EXPECT_EQ(copy.capacity(), 75u);
    copy.append(u"ij"_u);
    EXPECT_NE(copy.data(), s.data());
    EXPECT_EQ(shown(s), u"abcdefgh");
    EXPECT_EQ(shown(copy), u"abcdefghij");
    EXPECT_EQ(copy.capacity(), 77u);  // 10 + 2 + 65
}

TEST(UString, OfACountedBufferBuildsAnotherOneForEachWriteEvenAlone) {
    UString s(u"abcdefgh"_u, 8u, 1000u);
    const UChar* const before = s.data();
    s.replace(0, 1, unit(u'x'), 1);
    EXPECT_NE(s.data(), before);
    EXPECT_EQ(s.capacity(), 75u);
    EXPECT_EQ(shown(s), u"xbcdefgh");
}

TEST(UString, ThatIsGivenNothingToDoKeepsItsBuffer) {
    UString s(u"abcdefgh"_u, 8u, 1000u);
    const UChar* const before = s.data();
    s.append(u""_u).prepend(UString()).insert(3, unit(u'x'), 0).replace(2, 0, U""_p);
    s.remove(8).remove(100).remove(3, 0).resize(8, unit(u'x')).resize(8, UChar32{0x78});
    s.replace(8, 5, u""_u);
    EXPECT_EQ(s.data(), before);
    EXPECT_EQ(s.capacity(), 1000u);
}

TEST(UString, OfPersistentUnitsBorrowsThemUntilAWrite) {
    Units units = test::units(u"borrowed text");
    const Units original = units;
    UString s(units.c_str(), UString::persistent);
    EXPECT_EQ(s.data(), units.data());
    const UString copy(s);
    EXPECT_EQ(copy.data(), units.data());
    EXPECT_EQ(copy.capacity(), 0u);
    s.replace(0, 8, u"lent"_u);
    EXPECT_EQ(shown(s), u"lent text");
    EXPECT_NE(s.data(), units.data());
    EXPECT_EQ(s.capacity(), 9u + 2 + 65);
    EXPECT_EQ(units, original);
    EXPECT_EQ(shown(copy), u"borrowed text");
}

TEST(UString, OfPersistentUnitsIsShortAfterAWriteThatLeavesFew) {
    UString s(u"borrowed text"_u, UString::persistent);
    s.remove(4);
    EXPECT_EQ(shown(s), u"borr");
    EXPECT_EQ(s.capacity(), 8u);
}

TEST(UString, OfPersistentUnitsNeedsNoTerminator) {
    const UChar units[] = {unit(u'a'), unit(u'b'), unit(u'c')};
    const std::unique_ptr<UChar[]> exact(new UChar[3]{units[0], units[1], units[2]});
    UString s(exact.get(), 3, UString::persistent);
    EXPECT_EQ(s.length(), 3u);
    EXPECT_EQ(s.hash(), UString(units, 3).hash());
    EXPECT_TRUE(s == UString(units, 3));
    EXPECT_EQ(s.index(unit(u'c')), 2u);
    EXPECT_EQ(s.index(UChar32{0x64}), npos);
    EXPECT_EQ(s.rindex(u"bc"_u), 1u);
    EXPECT_EQ(s.compareTo(u"abcd"_u), -1);
    EXPECT_EQ(s.codePointLength(), 3u);
    EXPECT_EQ(shown(s + u"!"_u), u"abc!");
}

TEST(UString, MovedFromIsEmpty) {
    for (UString source :
         {text(u"abc"), text(u"a long text"), UString(u"b"_u, UString::persistent)}) {
        const std::u16string was = shown(source);
        UString target(std::move(source));
        EXPECT_EQ(shown(target), was);
        EXPECT_TRUE(source.empty());
        EXPECT_EQ(source.capacity(), 8u);
        UString other(u"another long text"_u);
        other = std::move(target);
        EXPECT_EQ(shown(other), was);
        EXPECT_TRUE(target.empty());
        EXPECT_EQ(shown(target.append(u"again"_u)), u"again");
    }
}

TEST(UString, AssignmentTakesEachFormOverEachForm) {
    const UString forms[] = {UString(u"short"_u), UString(u"a counted text"_u),
                             UString(u"a borrowed text"_u, UString::persistent)};
    for (const UString& target : forms) {
        for (const UString& source : forms) {
            UString s(target);
            EXPECT_EQ(&(s = source), &s);
            EXPECT_EQ(shown(s), shown(source));
            EXPECT_EQ(s.capacity(), source.capacity());
            EXPECT_EQ(s.data() == source.data(), source.length() > 7);
            const UString& self = s;
            s = self;
            EXPECT_EQ(shown(s), shown(source));
        }
    }
}

TEST(UString, AssignmentTakesOtherTexts) {
    UString s(u"a text before it"_u);
    EXPECT_EQ(shown(s = u"units"_u), u"units");
    EXPECT_EQ(shown(s = U"p\U0001F600"_p), u"p\U0001F600");
    EXPECT_EQ(shown(s = unit(u'u')), u"u");
    EXPECT_EQ(shown(s = UChar32{0x1F600}), u"\U0001F600");
    EXPECT_EQ(shown(s = UString::View(units(u"a view"))), u"a view");
    EXPECT_EQ(shown(s = text(u"some part")(5, 4)), u"part");
    EXPECT_EQ(shown(s = u"an even longer text"_u), u"an even longer text");
    EXPECT_EQ(shown(s = s.data() + 8), u"longer text");
    EXPECT_EQ(shown(s = U"literal"), u"literal");
}

TEST(UString, SwapExchangesEachFormWithEachForm) {
    const UString forms[] = {UString(u"short"_u), UString(u"a counted text"_u),
                             UString(u"a borrowed text"_u, UString::persistent)};
    for (const UString& first : forms) {
        for (const UString& second : forms) {
            UString a(first);
            UString b(second);
            a.swap(b);
            EXPECT_EQ(shown(a), shown(second));
            EXPECT_EQ(shown(b), shown(first));
            using std::swap;
            swap(a, b);
            EXPECT_EQ(shown(a), shown(first));
            EXPECT_EQ(shown(b), shown(second));
        }
    }
}

TEST(UString, CopiesAreMadeAndDroppedInSeveralThreads) {
    const UString s(unit(u'x'), 1000);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([copy = s] {
            for (int round = 0; round < 5000; ++round) {
                UString mine(copy);
                const UString another(mine);
                if (round % 100 == 0) {
                    mine.append(unit(u'y'), 1);
                }
                EXPECT_EQ(another.data(), copy.data());
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(s.length(), 1000u);
    EXPECT_EQ(s.index(unit(u'y')), npos);
}

// Adopted buffers

TEST(UString, AdoptsABufferOfUnknownLength) {
    Units units = test::units(u"adopted text");
    CountingDeallocator deallocator;
    {
        const UString s(units.data(), &deallocator);
        EXPECT_EQ(s.data(), units.data());
        EXPECT_EQ(s.capacity(), 12u);  // asked first, it measures
        EXPECT_EQ(s.length(), 12u);
        const UString copy(s);
        EXPECT_EQ(copy.data(), units.data());
        EXPECT_EQ(deallocator.freed(), 0);
    }
    EXPECT_EQ(deallocator.freed(), 1);
}

TEST(UString, AdoptsABufferOfGivenLengthWithThatCapacity) {
    UChar units[] = {unit(u'a'), unit(u'b'), unit(u'c')};
    CountingDeallocator deallocator;
    {
        const UString s(units, 3, &deallocator);
        EXPECT_EQ(s.length(), 3u);
        EXPECT_EQ(s.capacity(), 3u);
        EXPECT_EQ(s.data(), units);
        EXPECT_EQ(shown(s), u"abc");
    }
    EXPECT_EQ(deallocator.freed(), 1);
}

TEST(UString, AdoptsABufferOfGivenCapacity) {
    Units units = test::units(u"abc");
    units.resize(30);
    CountingDeallocator deallocator;
    UString s(units.data(), 3, 30, &deallocator);
    EXPECT_EQ(s.length(), 3u);
    EXPECT_EQ(s.capacity(), 30u);
    s.append(unit(u'd'), 1);
    EXPECT_EQ(deallocator.freed(), 1);
    EXPECT_EQ(shown(s), u"abcd");
    EXPECT_EQ(s.capacity(), 8u);
    EXPECT_EQ(units.substr(0, 5), test::units(std::u16string_view(u"abc\0\0", 5)));
}

TEST(UString, AdoptsABufferOfUnknownLengthAndKnownCapacity) {
    Units units = test::units(u"abcdef");
    CountingDeallocator deallocator;
    EXPECT_EQ(UString(units.data(), npos, 100, &deallocator).length(), 6u);
    EXPECT_EQ(UString(units.data(), npos, 4, &deallocator).length(), 4u);  // no zero unit in 4
    EXPECT_EQ(deallocator.freed(), 2);
}

// The text is cut after the string was made, and again after its length was asked.
TEST(UString, IsMeasuredWhenItsLengthIsFirstAskedAndNeverAgain) {
    Units units = test::units(u"abcdefghij");
    CountingDeallocator deallocator;
    const UString borrowed(units.c_str(), UString::persistent);
    const UString adopted(units.data(), &deallocator);
    const UString ofCapacity(units.data(), npos, 10, &deallocator);
    units[6] = UChar();
    EXPECT_EQ(borrowed.length(), 6u);
    EXPECT_EQ(ofCapacity.length(), 6u);
    units[5] = UChar();
    EXPECT_EQ(adopted.capacity(), 5u);
    units[2] = UChar();
    EXPECT_EQ(borrowed.length(), 6u);
    EXPECT_EQ(adopted.length(), 5u);
    EXPECT_EQ(adopted.capacity(), 5u);
    EXPECT_EQ(ofCapacity.length(), 6u);
    EXPECT_EQ(ofCapacity.capacity(), 10u);
}

TEST(UString, ThatIsMeasuredKeepsItsLengthForItsCapacity) {
    Units units = test::units(u"abcdefghij");
    CountingDeallocator deallocator;
    const UString adopted(units.data(), &deallocator);
    EXPECT_EQ(adopted.length(), 10u);
    units[2] = UChar();
    EXPECT_EQ(adopted.length(), 10u);
    EXPECT_EQ(adopted.capacity(), 10u);
}

TEST(UString, WithAnAdoptedBufferDropsItOnAssignment) {
    Units units = test::units(u"adopted text");
    CountingDeallocator deallocator;
    UString s(units.data(), &deallocator);
    s = u"abc"_u;
    EXPECT_EQ(deallocator.freed(), 1);
}

TEST(UString, AdoptingNullIsEmptyAndFreesIt) {
    CountingDeallocator deallocator;
    EXPECT_TRUE(UString(nullptr, &deallocator).empty());
    EXPECT_TRUE(UString(nullptr, 3, &deallocator).empty());
    EXPECT_EQ(deallocator.freed(), 2);
    UChar* const none = nullptr;
    EXPECT_TRUE(UString(none, 3, 4, nullptr).empty());
}

TEST(UString, AdoptingWithoutADeallocatorLeavesTheBufferToItsOwner) {
    Units units = test::units(u"somebody's text");
    {
        UString s(units.data(), static_cast<UString::Deallocator*>(nullptr));
        EXPECT_EQ(s.data(), units.data());
    }
    EXPECT_EQ(units, test::units(u"somebody's text"));
}

// Tells its two operations apart.
class BothWays : public UString::Deallocator {
public:
    static std::size_t slotOfConst() {
        return slotOf(static_cast<void (BothWays::*)(UChar*) const>(&BothWays::doDeallocate));
    }
    static std::size_t slotOfOther() {
        return slotOf(static_cast<void (BothWays::*)(UChar*)>(&BothWays::doDeallocate));
    }

    mutable int byConst = 0;
    int byOther = 0;

protected:
    void doDeallocate(UChar*) const override { ++byConst; }
    void doDeallocate(UChar*) override { ++byOther; }
};

TEST(UStringDeallocator, VirtualsKeepTheirSlotOrder) {
    EXPECT_EQ(BothWays::slotOfConst(), 2u);  // behind the destructor
    EXPECT_EQ(BothWays::slotOfOther(), 3u);
}

TEST(UStringDeallocator, CallsTheOperationOfItsOwnConstness) {
    BothWays deallocator;
    deallocator.deallocate(nullptr);
    EXPECT_EQ(deallocator.byOther, 1);
    EXPECT_EQ(deallocator.byConst, 0);
    std::as_const(deallocator).deallocate(nullptr);
    EXPECT_EQ(deallocator.byOther, 1);
    EXPECT_EQ(deallocator.byConst, 1);
}

TEST(UStringStaticDeallocator, ForwardsToItsConstOperation) {
    class Derived : public UString::StaticDeallocator {
    public:
        using UString::StaticDeallocator::StaticDeallocator;
        mutable int calls = 0;

    protected:
        using UString::StaticDeallocator::doDeallocate;
        void doDeallocate(UChar*) const override { ++calls; }
    };
    Derived deallocator(UString::StaticDeallocator::USE_DELETE);
    UString::Deallocator& base = deallocator;
    base.deallocate(nullptr);
    EXPECT_EQ(deallocator.calls, 1);
}

TEST(UStringStaticDeallocator, FreesByItsFunction) {
    static int freed;
    freed = 0;
    UString::StaticDeallocator deallocator([](UChar*) { ++freed; });
    Units units = test::units(u"adopted text");
    { const UString s(units.data(), &deallocator); }
    EXPECT_EQ(freed, 1);
    deallocator.deallocate(units.data());
    std::as_const(deallocator).deallocate(units.data());
    EXPECT_EQ(freed, 3);
}

TEST(UStringStaticDeallocator, FreesByDeleteAndByFreeAndDeletesItself) {
    using Deallocator = UString::StaticDeallocator;
    auto* const made = new UChar[3]{unit(u'a'), unit(u'b'), UChar()};
    EXPECT_EQ(shown(UString(made, new Deallocator(Deallocator::USE_DELETE, true))), u"ab");
    auto* const allocated = static_cast<UChar*>(std::calloc(3, sizeof(UChar)));
    allocated[0] = unit(u'c');
    EXPECT_EQ(shown(UString(allocated, new Deallocator(Deallocator::USE_FREE, true))), u"c");
}

TEST(UStringStaticDeallocator, ThatDoesNothingIsOneForAll) {
    UString::StaticDeallocator* const none = UString::StaticDeallocator::getNullDeallocator();
    EXPECT_EQ(none, UString::StaticDeallocator::getNullDeallocator());
    Units units = test::units(u"lent text");
    { const UString s(units.data(), none); }
    { const UString s(units.data(), none); }
    EXPECT_EQ(units, test::units(u"lent text"));
}

TEST(UStringCounter, HoldsItsUnitsInItsOwnBlock) {
    UString::Counter* const counter = UString::Counter::make(u"abcdef"_u, 4, 10);
    EXPECT_EQ(counter->references(), 0);
    EXPECT_EQ(counter->addReference(), 1);
    EXPECT_EQ(counter->addReference(), 2);
    EXPECT_EQ(counter->length(), 4u);
    EXPECT_EQ(counter->capacity(), 10u);
    EXPECT_FALSE(counter->empty());
    EXPECT_EQ(static_cast<void*>(counter->data()), static_cast<void*>(counter + 1));
    EXPECT_EQ(counter->data()[3], unit(u'd'));
    EXPECT_EQ(counter->data()[4], UChar());
    counter->length(0);
    EXPECT_TRUE(counter->empty());
    EXPECT_EQ(counter->removeReference(), 1);
    EXPECT_EQ(counter->removeReference(), 0);
}

// What stands in memory, in order.
TEST(UStringCounter, KeepsItsFieldsInOrder) {
    struct Fields {
        std::int32_t references;
        UChar* data;
        std::uint32_t length;
        std::uint32_t capacity;
        UString::Deallocator* deallocator;
    };
    static_assert(sizeof(Fields) == sizeof(UString::Counter));
    const auto fieldsOf = [](const UString::Counter* counter) {
        Fields fields;
        std::memcpy(&fields, counter, sizeof fields);
        return fields;
    };
    UString::Counter* const counter = UString::Counter::make(u"abcd"_u, 4, 10);
    counter->addReference();
    const Fields own = fieldsOf(counter);
    EXPECT_EQ(own.references, 1);
    EXPECT_EQ(own.data, counter->data());
    EXPECT_EQ(own.length, 4u);
    EXPECT_EQ(own.capacity, 10u);
    EXPECT_EQ(own.deallocator, nullptr);
    counter->removeReference();
    Units units = test::units(u"abcd");
    CountingDeallocator deallocator;
    UString::Counter* const adopting =
        UString::Counter::make(units.data(), npos, npos, &deallocator);
    adopting->addReference();
    const Fields adopted = fieldsOf(adopting);
    EXPECT_EQ(adopted.data, units.data());
    EXPECT_EQ(adopted.length, npos);
    EXPECT_EQ(adopted.capacity, npos);
    EXPECT_EQ(adopted.deallocator, &deallocator);
    EXPECT_EQ(adopting->length(), 4u);
    const Fields measured = fieldsOf(adopting);
    EXPECT_EQ(measured.length, 4u);
    EXPECT_EQ(measured.capacity, 4u);
    adopting->removeReference();
}

TEST(UStringCounter, WithoutRoomForATerminatorHasNone) {
    UString::Counter* const counter = UString::Counter::make(u"abcd"_u, 4, 4);
    counter->addReference();
    EXPECT_EQ(counter->length(), 4u);
    EXPECT_EQ(counter->data()[3], unit(u'd'));
    counter->removeReference();
}

// capacity(n)

struct CapacityCase {
    const char16_t* text;
    unsigned before;  // 0: as it comes
    unsigned asked;
    unsigned after;
    bool sameBuffer;
};

TEST(UString, MovesToABufferOfTheCapacityAsked) {
    const CapacityCase cases[] = {
        {u"abc", 0, 0, 8, true},        {u"abc", 0, 8, 8, true},
        {u"abc", 0, 9, 9, false},       {u"abc", 0, 100, 100, false},
        {u"abcdefgh", 0, 75, 75, true}, {u"abcdefgh", 0, 0, 9, false},
        {u"abcdefgh", 0, 9, 9, false},  {u"abcdefgh", 0, 200, 200, false},
        {u"abcdefgh", 9, 5, 9, true},   {u"abc", 100, 5, 8, false},
        {u"abc", 100, 8, 8, false},     {u"abcdefg", 100, 0, 8, false},
        {u"abc", 100, 100, 100, true},  {u"", 100, 0, 8, false},
    };
    for (const CapacityCase& c : cases) {
        const Units units = test::units(c.text);
        UString s(units.data(), static_cast<unsigned>(units.size()));
        if (c.before != 0) {
            s = UString(units.data(), static_cast<unsigned>(units.size()), c.before);
        }
        const UString shared(s);
        const UChar* const data = s.data();
        EXPECT_EQ(s.capacity(c.asked), c.after);
        EXPECT_EQ(s.capacity(), c.after);
        EXPECT_EQ(shown(s), c.text);
        EXPECT_EQ(s.data() == data, c.sameBuffer) << c.asked;
        EXPECT_EQ(shown(shared), c.text);
        EXPECT_EQ(s.data()[s.length()], UChar());
    }
}

TEST(UString, MovesIntoTheObjectForACapacityOf8) {
    UString s(u"abc"_u, 3, 100);
    EXPECT_EQ(s.capacity(8), 8u);
    const UString copy(s);
    EXPECT_NE(copy.data(), s.data());
    EXPECT_EQ(shown(copy), u"abc");
}

TEST(UString, ThatBorrowsGetsABufferOfItsOwnFromTheCapacityAsked) {
    UString s(u"borrowed text"_u, UString::persistent);
    EXPECT_EQ(s.capacity(0), 14u);
    EXPECT_EQ(shown(s), u"borrowed text");
    UString small(u"abc"_u, UString::persistent);
    EXPECT_EQ(small.capacity(3), 8u);
    EXPECT_EQ(shown(small), u"abc");
}

TEST(UString, RefusesWhatIsLongerThanAStringCanBe) {
    UString s(u"abc"_u);
    EXPECT_THROW(s.capacity(npos), OutOfBoundsException);
    EXPECT_THROW(s.append(unit(u'x'), npos), OutOfBoundsException);
    EXPECT_THROW(s.append(UChar32{0x10000}, 0x80000000u), OutOfBoundsException);
    EXPECT_THROW(s.append(unit(u'x'), UString::max_size() - 2), OutOfBoundsException);
    EXPECT_EQ(failureOf([] { UString(unit(u'x'), UString::max_size() + 1); }),
              illegalIndex("4294967244", UString::max_size()));
    EXPECT_EQ(shown(s), u"abc");
    EXPECT_EQ(s.capacity(), 8u);
}

// Elements

TEST(UString, GivesItsUnitsByIndexesOfAllTypes) {
    UString s(u"abc"_u);
    const UString& constant = s;
    EXPECT_EQ(constant[static_cast<short>(1)], unit(u'b'));
    EXPECT_EQ(constant[static_cast<unsigned short>(1)], unit(u'b'));
    EXPECT_EQ(constant[1], unit(u'b'));
    EXPECT_EQ(constant[1u], unit(u'b'));
    EXPECT_EQ(constant[1L], unit(u'b'));
    EXPECT_EQ(constant[1LL], unit(u'b'));
    EXPECT_EQ(constant[std::size_t{1}], unit(u'b'));
    EXPECT_EQ(constant(1), unit(u'b'));
    s[static_cast<short>(0)] = unit(u'1');
    EXPECT_EQ(shown(s), u"1bc");
    s[static_cast<unsigned short>(0)] = unit(u'2');
    EXPECT_EQ(shown(s), u"2bc");
    s[0] = unit(u'3');
    EXPECT_EQ(shown(s), u"3bc");
    s[0u] = unit(u'4');
    EXPECT_EQ(shown(s), u"4bc");
    s[0L] = unit(u'5');
    EXPECT_EQ(shown(s), u"5bc");
    s[0LL] = unit(u'6');
    EXPECT_EQ(shown(s), u"6bc");
    s[std::size_t{0}] = unit(u'7');
    EXPECT_EQ(shown(s), u"7bc");
    s(0) = unit(u'8');
    EXPECT_EQ(shown(s), u"8bc");
    s[2] = s[0];
    EXPECT_EQ(shown(s), u"8b8");
    EXPECT_EQ(s[2], unit(u'8'));
}

TEST(UString, ChecksIndexesAtTheirFullWidth) {
    UString s(u"abc"_u);
    const UString& constant = s;
    EXPECT_EQ(failureOf([&] { constant[3]; }), illegalIndex("3", 3));
    EXPECT_EQ(failureOf([&] { s[3] = unit(u'x'); }), illegalIndex("3", 3));
    EXPECT_EQ(failureOf([&] { constant[-1]; }), illegalIndex("-1", 3));
    EXPECT_EQ(failureOf([&] { constant[static_cast<short>(-1)]; }), illegalIndex("-1", 3));
    EXPECT_EQ(failureOf([&] { constant[-1L]; }), illegalIndex("-1", 3));
    EXPECT_EQ(failureOf([&] { constant[-1LL]; }), illegalIndex("-1", 3));
    EXPECT_EQ(failureOf([&] { constant[0x100000001LL]; }), illegalIndex("4294967297", 3));
    EXPECT_EQ(failureOf([&] { constant[-0x100000001LL]; }), illegalIndex("-4294967297", 3));
    EXPECT_EQ(failureOf([&] { s[0x100000001LL] = unit(u'x'); }), illegalIndex("4294967297", 3));
    EXPECT_EQ(failureOf([&] { constant.boundsCheckIndex(7); }), illegalIndex("7", 3));
    EXPECT_EQ(constant.boundsCheckIndex(2), 2u);
    EXPECT_EQ(failureOf([] { UString()[0] = UChar(); }), illegalIndex("0", 0));
}

// As every unsigned number in a message.
TEST(UString, ShowsUnsignedIndexesFromTwoToThe31OnAsNegativeOnes) {
    UString s(u"abc"_u);
    const UString& constant = s;
    EXPECT_EQ(failureOf([&] { constant[npos]; }), illegalIndex("-1", 3));
    EXPECT_EQ(failureOf([&] { s[npos] = unit(u'x'); }), illegalIndex("-1", 3));
    EXPECT_EQ(failureOf([&] { constant[4294967294u]; }), illegalIndex("-2", 3));
    EXPECT_EQ(failureOf([&] { constant[4294967294LL]; }), illegalIndex("-2", 3));
    EXPECT_EQ(failureOf([&] { constant[0x80000000u]; }), illegalIndex("-2147483648", 3));
    EXPECT_EQ(failureOf([&] { constant[0x7FFFFFFFu]; }), illegalIndex("2147483647", 3));
    EXPECT_EQ(failureOf([&] { constant[~0ull]; }), illegalIndex("-1", 3));
    EXPECT_EQ(failureOf([&] { constant.boundsCheckIndex(npos); }), illegalIndex("-1", 3));
    EXPECT_EQ(failureOf([&] { constant(4294967294u, 0); }), illegalIndex("-2", 3));
    EXPECT_EQ(failureOf([&] { s(4294967290u, 4); }), illegalIndex("-2", 3));
    EXPECT_EQ(failureOf([] { UString::reportBoundsCheckFailure(4294967294u, 3); }),
              illegalIndex("-2", 3));
}

TEST(UString, ReadingAUnitOfASharedBufferCopiesNothingAndWritingDoes) {
    UString s(u"abcdefgh"_u, 8u, 1000u);
    const UString copy(s);
    EXPECT_EQ(s[3], unit(u'd'));
    EXPECT_EQ(s.data(), copy.data());
    s[3] = unit(u'x');
    EXPECT_EQ(shown(s), u"abcxefgh");
    EXPECT_EQ(shown(copy), u"abcdefgh");
    EXPECT_EQ(s.capacity(), 75u);
}

TEST(UString, ChecksRanges) {
    UString s(u"abc"_u);
    const UString& constant = s;
    EXPECT_EQ(shown(s(1, 2).view()), u"bc");
    EXPECT_EQ(shown(constant(3, 0).view()), u"");
    EXPECT_EQ(failureOf([&] { constant(1, 3); }), illegalIndex("4", 3));
    EXPECT_EQ(failureOf([&] { s(4, 0); }), illegalIndex("4", 3));
    EXPECT_EQ(failureOf([&] { constant(2, npos); }), illegalIndex("4294967297", 3));
    EXPECT_EQ(failureOf([&] { s(npos, npos); }), illegalIndex("8589934590", 3));
    EXPECT_EQ(failureOf([&] { constant.boundsCheckLength(0, 4); }), illegalIndex("4", 3));
    EXPECT_NO_THROW(constant.boundsCheckLength(0, 3));
}

TEST(UString, IsWalkedUnitByUnit) {
    std::u16string seen;
    for (const UChar c : UString(u"a\U0001F600z"_u)) {
        seen += static_cast<char16_t>(c);
    }
    EXPECT_EQ(seen, u"a\U0001F600z");
}

// Units and code points

TEST(UString, MeasuresTextsInUnitsAndCodePoints) {
    EXPECT_EQ(UString::codeUnitLength(u"a\U0001F600z"_u), 4u);
    EXPECT_EQ(UString::codeUnitLength(U"a\U0001F600z"_p), 4u);
    EXPECT_EQ(UString::codeUnitLength(U"a\U0001F600z"_p, 1), 1u);
    EXPECT_EQ(UString::codeUnitLength(U"a\U0001F600z"_p, 2), 3u);
    EXPECT_EQ(UString::codeUnitLength(U"\U0001F600\0\U0001F600"_p, 3), 5u);
    EXPECT_EQ(UString::codeUnitLength(U"\uFFFF\U00010000"_p), 3u);
    EXPECT_EQ(UString::codePointLength(u"a\U0001F600z"_u), 3u);
    EXPECT_EQ(UString::codePointLength(u"a\U0001F600z"_u, 2), 2u);  // half of the pair
    EXPECT_EQ(UString::codePointLength(u"a\U0001F600z"_u, 3), 2u);
    EXPECT_EQ(UString::codePointLength(U"a\U0001F600z"_p), 3u);
    EXPECT_EQ(text(u"a\U0001F600z").codePointLength(), 3u);
    EXPECT_EQ(text(u"").codePointLength(), 0u);
}

TEST(UString, CountsALoneSurrogateAsACodePoint) {
    EXPECT_EQ(text(u"\xD800").codePointLength(), 1u);
    EXPECT_EQ(text(u"\xD800\xD800\xDC00").codePointLength(), 2u);
    EXPECT_EQ(text(u"\xDC00\xD800").codePointLength(), 2u);
    EXPECT_EQ(text(u"\xD800\xDC00\xDC00").codePointLength(), 2u);
}

struct PairCase {
    UChar32 cp;
    char16_t high;
    char16_t low;
};

TEST(UString, SplitsAndJoinsSurrogatePairs) {
    const PairCase cases[] = {{0x10000, 0xD800, 0xDC00},  {0x103FF, 0xD800, 0xDFFF},
                              {0x10400, 0xD801, 0xDC00},  {0x1F600, 0xD83D, 0xDE00},
                              {0x10FFFF, 0xDBFF, 0xDFFF}, {0xFFFFF, 0xDBBF, 0xDFFF}};
    for (const PairCase& c : cases) {
        EXPECT_EQ(UString::highSurrogate(c.cp), unit(c.high));
        EXPECT_EQ(UString::lowSurrogate(c.cp), unit(c.low));
        EXPECT_EQ(UString::computeCodePointValue(unit(c.high), unit(c.low)), c.cp);
        EXPECT_TRUE(UString::requiresSurrogatePair(c.cp));
    }
    EXPECT_FALSE(UString::requiresSurrogatePair(0xFFFF));
}

TEST(UString, TellsSurrogatesFromOtherUnits) {
    for (unsigned u = 0; u <= 0xFFFF; ++u) {
        ASSERT_EQ(UString::isHighSurrogate(static_cast<UChar>(u)), u >= 0xD800 && u <= 0xDBFF);
        ASSERT_EQ(UString::isLowSurrogate(static_cast<UChar>(u)), u >= 0xDC00 && u <= 0xDFFF);
    }
}

TEST(UString, LooksAtTheUnitOfAWiderArgumentAlone) {
    EXPECT_TRUE(UString::isHighSurrogate(UChar32{0x1D800}));
    EXPECT_TRUE(UString::isLowSurrogate(UChar32{0x10DFFF}));
    EXPECT_FALSE(UString::isHighSurrogate(UChar32{0x1DC00}));
    EXPECT_FALSE(UString::isLowSurrogate(UChar32{0x1D800}));
}

TEST(UString, TellsCharactersFromSurrogatesAndNoncharacters) {
    for (UChar32 cp = 0; cp <= 0x110100; ++cp) {
        const bool surrogate = cp >= 0xD800 && cp <= 0xDFFF;
        const bool lastOfPlane = cp % 0x10000 >= 0xFFFE;
        const bool arabic = cp >= 0xFDD0 && cp <= 0xFDEF;
        ASSERT_EQ(UString::isUnicodeCharacter(cp),
                  cp <= 0x10FFFF && !surrogate && !lastOfPlane && !arabic)
            << cp;
    }
}

// hash

// Words of two units, the first one low, rotated in by 5 bits from the length on.
TEST(UString, HashesPairsOfUnits) {
    EXPECT_EQ(UString().hash(), 0u);
    EXPECT_EQ(text(u"a").hash(), 32u ^ 0x61u);
    EXPECT_EQ(text(u"ab").hash(), 64u ^ 0x00620061u);
    EXPECT_EQ(text(u"abc").hash(), ((96u ^ 0x00620061u) << 5) ^ 0x63u);
    // 2 * 32 = 0x40; 0x40 ^ 0xFFFF8000 = 0xFFFF8040; from there a rotation carries ones around.
    const unsigned three = 0x60u ^ 0xFFFF8000u;
    EXPECT_EQ(text(u"\u8000\uFFFF\u0001").hash(), ((three << 5) | (three >> 27)) ^ 1u);
}

TEST(UString, HashIsTheSameInEveryForm) {
    const UString counted(u"abcdefgh"_u);
    const UString borrowed(u"abcdefgh"_u, UString::persistent);
    EXPECT_EQ(counted.hash(), borrowed.hash());
    EXPECT_EQ(std::hash<UString>()(counted), counted.hash());
    std::unordered_set<UString> set{counted};
    EXPECT_TRUE(set.contains(borrowed));
    EXPECT_FALSE(set.contains(text(u"abc")));
}

}  // namespace
}  // namespace nolk
