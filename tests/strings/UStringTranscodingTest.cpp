#include <nolk/core/ConversionException.h>
#include <nolk/core/QXArrayByteSource.h>
#include <nolk/core/UString.h>

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>

#include "Utf8Reference.h"

namespace nolk {
namespace {

using namespace test;

Units unitsOf(const UString& text) {
    return Units(text.data(), text.length());
}

Units units(std::initializer_list<unsigned> values) {
    Units result;
    for (const unsigned value : values) {
        result += static_cast<UChar>(value);
    }
    return result;
}

UString stringOf(const Units& units) {
    return UString(units.data(), static_cast<unsigned>(units.size()));
}

std::string failureOf(const std::string& text) {
    try {
        return std::to_string(UString(text).length()) + " units";
    } catch (const ConversionException& failure) {
        return failure.what();
    }
}

std::string illegal(const std::string& places) {
    return "[CONVERSION_ILLEGAL_SEQUENCE] The byte values at elements " + places +
           " form an illegal encoding sequence";
}

std::string incomplete(const std::string& places) {
    return "[CONVERSION_INCOMPLETE_SEQUENCE] The byte values at elements " + places +
           " form an incomplete encoding sequence";
}

std::string irregular(const std::string& places) {
    return "[CONVERSION_IRREGULAR_SEQUENCE] The UTF-8 multibyte sequence at elements " + places +
           " encode a non-character value";
}

// The capacity of a buffer that a string makes for so many units.
unsigned capacityFor(std::size_t count) {
    return static_cast<unsigned>(count < 8 ? 8 : count + count / 4 + 65);
}

// ---- UTF-8 in

struct Row {
    std::string text;
    std::string failure;
};

TEST(UStringFromUtf8, WhatIsNotWellFormedIsToldByKindAndPlaces) {
    const Row rows[] = {
        {"\xC0\x80", illegal("0 through 1")},
        {"\xC1\xBF", illegal("0 through 1")},
        {"\xE0\x80\x80", illegal("0 through 2")},
        {"\xE0\x9F\xBF", illegal("0 through 2")},
        {"\xF0\x80\x80\x80", illegal("0 through 3")},
        {"\xF0\x8F\xBF\xBF", illegal("0 through 3")},
        {"\xF4\x90\x80\x80", illegal("0 through 3")},
        {"\xF7\xBF\xBF\xBF", illegal("0 through 3")},
        {"\xF8\x88\x80\x80\x80", illegal("0 through 4")},
        {"\xFB\xBF\xBF\xBF\xBF", illegal("0 through 4")},
        {"\xFC\x84\x80\x80\x80\x80", illegal("0 through 5")},
        {"\xFD\xBF\xBF\xBF\xBF\xBF", illegal("0 through 5")},
        {"\x80", illegal("0 through 0")},
        {"\xBF", illegal("0 through 0")},
        {"\xFE", illegal("0 through 0")},
        {"\xFF", illegal("0 through 0")},
        {"\xFE\x80\x80\x80\x80\x80\x80", illegal("0 through 0")},
        {"\xED\xA0\x80", irregular("0 through 2")},
        {"\xED\xAF\xBF", irregular("0 through 2")},
        {"\xED\xB0\x80", irregular("0 through 2")},
        {"\xED\xBF\xBF", irregular("0 through 2")},
        {"\xED\xA0\xBD\xED\xB8\x80", irregular("0 through 2")},
        {"\xF0\x8D\xA0\x80", illegal("0 through 3")},  // a surrogate in four bytes
        {"\xF8\x80\x8D\xA0\x80", illegal("0 through 4")},
        {"\xC2", incomplete("0 through 0")},
        {"\xE2\x82", incomplete("0 through 1")},
        {"\xE2", incomplete("0 through 0")},
        {"\xF0\x9F\x98", incomplete("0 through 2")},
        {"\xF8\x80\x80\x80", incomplete("0 through 3")},
        {"\xFC\x80\x80\x80\x80", incomplete("0 through 4")},
        // The byte that doesn't continue is counted in, whatever it is.
        {"\xC2"
         "a",
         incomplete("0 through 1")},
        {"\xE2\x82"
         "a",
         incomplete("0 through 2")},
        {"\xE2"
         "ab",
         incomplete("0 through 1")},
        {"\xF0\x9F\x98\xC3", incomplete("0 through 3")},
        {"\xFD\xBF\xBF\xBF\xBF"
         "a",
         incomplete("0 through 5")},
        {"\xC0"
         "a",
         incomplete("0 through 1")},
        {"\xED\xA0", incomplete("0 through 1")},
        // Places are offsets in the whole text.
        {"ab\x80", illegal("2 through 2")},
        {"\xC3\xA9\xED\xA0\x80", irregular("2 through 4")},
        {"\xF0\x9F\x98\x80\xE2\x82", incomplete("4 through 5")},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(failureOf(row.text), row.failure) << testing::PrintToString(row.text);
        for (const std::size_t before : {1u, 40u, 64u, 200u}) {
            // The same behind ASCII, where the numbers are larger by as much.
            const std::string text = std::string(before, 'a') + row.text;
            const Utf8Result wanted = decodeByDefinition(text);
            EXPECT_EQ(failureOf(text), wanted.mistake);
        }
    }
}

// The reference agrees with the rows above, so that it may stand for all the others.
TEST(UStringFromUtf8, EveryOneAndTwoBytesGiveUnitsOrTheirMistake) {
    for (unsigned pair = 0; pair < 0x10100; ++pair) {
        const std::string text = pair < 0x100 ? std::string(1, static_cast<char>(pair))
                                              : std::string{static_cast<char>((pair - 0x100) >> 8),
                                                            static_cast<char>(pair - 0x100)};
        const Utf8Result wanted = decodeByDefinition(text);
        if (wanted.mistake.empty()) {
            ASSERT_EQ(unitsOf(UString(text)), wanted.units) << pair;
        } else {
            ASSERT_EQ(failureOf(text), wanted.mistake) << pair;
        }
    }
}

TEST(UStringFromUtf8, BorderSequencesInALongTextGiveUnitsOrTheirMistake) {
    const unsigned leads[] = {0xC2, 0xE0, 0xE1, 0xED, 0xEF, 0xF0, 0xF1, 0xF4, 0xF5, 0xF8, 0xFC};
    const unsigned others[] = {0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0};
    std::size_t round = 0;
    for (const unsigned first : leads) {
        for (const unsigned second : others) {
            for (const unsigned third : others) {
                for (const unsigned fourth : others) {
                    const std::string sequence = {
                        static_cast<char>(first), static_cast<char>(second),
                        static_cast<char>(third), static_cast<char>(fourth)};
                    const std::string text =
                        repeated(fillers()[round % 4], round % 61) + sequence + "end";
                    ++round;
                    const Utf8Result wanted = decodeByDefinition(text);
                    ASSERT_EQ(failureOf(text), wanted.mistake.empty()
                                                   ? std::to_string(wanted.units.size()) + " units"
                                                   : wanted.mistake);
                }
            }
        }
    }
}

TEST(UStringFromUtf8, NoncharactersAreAccepted) {
    EXPECT_EQ(unitsOf(UString("\xEF\xBF\xBF")), units({0xFFFF}));
    EXPECT_EQ(unitsOf(UString("\xEF\xBF\xBE")), units({0xFFFE}));
    EXPECT_EQ(unitsOf(UString("\xEF\xB7\x90")), units({0xFDD0}));
    EXPECT_EQ(unitsOf(UString("\xF4\x8F\xBF\xBF")), units({0xDBFF, 0xDFFF}));
}

TEST(UStringFromUtf8, TextIsTakenInThreeWays) {
    EXPECT_EQ(unitsOf(UString("a\xC3\xA9")), units({'a', 0xE9}));
    EXPECT_EQ(unitsOf(UString("a\xC3\xA9\xE2\x82\xAC", 3u)), units({'a', 0xE9}));
    EXPECT_EQ(unitsOf(UString(std::string("a\xC3\xA9"))), units({'a', 0xE9}));
}

TEST(UStringFromUtf8, AZeroByteIsACharacterWhereTheLengthIsGiven) {
    EXPECT_EQ(unitsOf(UString("a\0b", 3u)), units({'a', 0, 'b'}));
    EXPECT_EQ(unitsOf(UString(std::string("a\0b", 3))), units({'a', 0, 'b'}));
    EXPECT_EQ(unitsOf(UString("a\0b")), units({'a'}));
}

TEST(UStringFromUtf8, ACharacterCutOffByTheLengthIsIncomplete) {
    const auto cut = [] { return UString("\xC3\xA9", 1u); };
    EXPECT_THROW(cut(), ConversionException);
}

TEST(UStringFromUtf8, NothingGivesAnEmptyString) {
    for (const UString& text : {UString(""), UString("abc", 0u), UString(std::string())}) {
        EXPECT_EQ(text.length(), 0u);
        EXPECT_EQ(text.capacity(), 8u);
        EXPECT_EQ(text.data()[0], UChar());
    }
}

TEST(UStringFromUtf8, TheUnitsTellTheCapacityWhateverTheBytes) {
    for (const std::string& character : fillers()) {
        for (std::size_t count = 1; count < 300; ++count) {
            const UString text(repeated(character, count));
            const std::size_t wanted = count * (character.size() == 4 ? 2 : 1);
            ASSERT_EQ(text.length(), wanted);
            ASSERT_EQ(text.capacity(), capacityFor(wanted));
            ASSERT_EQ(text.data()[wanted], UChar());
        }
    }
}

TEST(UStringFromUtf8, ALateCharacterAboveAsciiChangesNothingInFront) {
    for (std::size_t before = 0; before < 200; ++before) {
        const std::string bytes = std::string(before, 'a') + "\xE2\x82\xAC" + "b";
        const UString text(bytes);
        ASSERT_EQ(unitsOf(text), Units(before, UChar('a')) + units({0x20AC, 'b'}));
        ASSERT_EQ(text.capacity(), capacityFor(before + 2));
        ASSERT_EQ(text.toUtf8(), bytes);
    }
}

TEST(UStringFromUtf8, RandomTextsGoThereAndBack) {
    std::mt19937 random(23);
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (std::size_t i = random() % 200; i > 0; --i) {
            std::uint32_t c =
                static_cast<std::uint32_t>(random()) % (random() % 4 ? 0x300 : 0x110000);
            text += encodeByDefinition(c >= 0xD800 && c <= 0xDFFF ? 'x' : c);
        }
        const UString decoded(text);
        ASSERT_EQ(unitsOf(decoded), decodeByDefinition(text).units);
        ASSERT_EQ(decoded.toUtf8(), text);
    }
}

// ---- One code point at a time

TEST(UStringGetCodePoint, GivesEachCodePointAndCountsItsBytes) {
    const std::string text = std::string("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\0", 11);
    QXArrayByteSource source(text.data(), static_cast<unsigned>(text.size()));
    const std::pair<UChar32, unsigned> wanted[] = {
        {'a', 1}, {0xE9, 3}, {0x20AC, 6}, {0x1F600, 10}, {0, 11}};
    unsigned consumed = 0;
    UChar32 point = 99;
    for (const auto& [value, count] : wanted) {
        ASSERT_TRUE(UString::getCodePointFromUtf8Source(source, point, consumed));
        EXPECT_EQ(point, value);
        EXPECT_EQ(consumed, count);
    }
    EXPECT_FALSE(UString::getCodePointFromUtf8Source(source, point, consumed));
    EXPECT_EQ(consumed, 11u);
}

struct FailingSource {
    std::string bytes;
    std::string failure;
    unsigned consumed;
};

TEST(UStringGetCodePoint, CountsTheBytesOfAMistakeOnFromThoseBefore) {
    const FailingSource rows[] = {
        {"\xE2\x82", incomplete("100 through 101"), 102},
        {"\xE2"
         "a",
         incomplete("100 through 101"), 102},
        {"\xF0\x9F\x98"
         "a",
         incomplete("100 through 103"), 104},
        {"\xE2", incomplete("100 through 100"), 101},
        {"\x80", illegal("100 through 100"), 101},
        {"\xC0\x80", illegal("100 through 101"), 102},
        {"\xED\xA0\x80", irregular("100 through 102"), 103},
    };
    for (const FailingSource& row : rows) {
        QXArrayByteSource source(row.bytes.data(), static_cast<unsigned>(row.bytes.size()));
        unsigned consumed = 100;
        UChar32 point = 0;
        try {
            UString::getCodePointFromUtf8Source(source, point, consumed);
            ADD_FAILURE() << row.failure;
        } catch (const ConversionException& failure) {
            EXPECT_EQ(failure.what(), row.failure);
            EXPECT_EQ(consumed, row.consumed) << row.failure;
        }
    }
}

// What the strict decoder makes of a text, without any other.
Utf8Result decodeByPulling(const std::string& text) {
    QXArrayByteSource source(text.data(), static_cast<unsigned>(text.size()));
    Utf8Result result;
    unsigned consumed = 0;
    UChar32 point = 0;
    try {
        while (UString::getCodePointFromUtf8Source(source, point, consumed)) {
            appendUtf16(result.units, static_cast<std::uint32_t>(point));
            result.at = consumed;
        }
    } catch (const ConversionException& failure) {
        result.mistake = failure.what();
    }
    return result;
}

TEST(UStringGetCodePoint, ReadsBorderSequencesByTheDefinition) {
    for (const unsigned first : borderBytes()) {
        for (const unsigned second : borderBytes()) {
            for (const unsigned third : borderBytes()) {
                const std::string text = {static_cast<char>(first),
                                          static_cast<char>(second),
                                          static_cast<char>(third),
                                          '\x80',
                                          '\xBF',
                                          '\x90'};
                const Utf8Result wanted = decodeByDefinition(text);
                const Utf8Result got = decodeByPulling(text);
                ASSERT_EQ(got.mistake, wanted.mistake) << testing::PrintToString(text);
                ASSERT_EQ(got.units, wanted.units) << testing::PrintToString(text);
                ASSERT_EQ(got.at, wanted.at) << testing::PrintToString(text);
            }
        }
    }
}

TEST(UStringGetCodePoint, ReadsEveryCharacter) {
    for (std::uint32_t c = 0; c < 0x110000; ++c) {
        if (c >= 0xD800 && c <= 0xDFFF) {
            continue;
        }
        const std::string text = encodeByDefinition(c);
        QXArrayByteSource source(text.data(), static_cast<unsigned>(text.size()));
        unsigned consumed = 0;
        UChar32 point = 0;
        ASSERT_TRUE(UString::getCodePointFromUtf8Source(source, point, consumed));
        ASSERT_EQ(point, c);
        ASSERT_EQ(consumed, text.size());
    }
}

// ---- UTF-8 out

TEST(UStringToUtf8, EncodesEachLengthAndPairs) {
    EXPECT_EQ(UString().toUtf8(), "");
    EXPECT_EQ(stringOf(units({'a', 0x7F, 0x80, 0x7FF, 0x800, 0xFFFF})).toUtf8(),
              "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
    EXPECT_EQ(stringOf(units({0xD800, 0xDC00, 0xDBFF, 0xDFFF})).toUtf8(),
              "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
    EXPECT_EQ(stringOf(units({'a', 0, 'b'})).toUtf8(), std::string("a\0b", 3));
}

TEST(UStringToUtf8, ALoneSurrogateIsEncodedByItsOwnValueAndCannotBeReadBack) {
    EXPECT_EQ(stringOf(units({0xD800})).toUtf8(), "\xED\xA0\x80");
    EXPECT_EQ(stringOf(units({0xDFFF})).toUtf8(), "\xED\xBF\xBF");
    EXPECT_EQ(stringOf(units({0xDC00, 0xD800})).toUtf8(), "\xED\xB0\x80\xED\xA0\x80");
    EXPECT_EQ(stringOf(units({0xD800, 0xD800, 0xDC00})).toUtf8(), "\xED\xA0\x80\xF0\x90\x80\x80");
    EXPECT_EQ(failureOf(stringOf(units({'a', 0xD800})).toUtf8()), irregular("1 through 3"));
}

TEST(UStringToUtf8, StopsAfterSoManyCodePoints) {
    const UString text = stringOf(units({'a', 0xD83D, 0xDE00, 0xE9, 0xD800, 'b'}));
    const std::string wanted[] = {
        "",
        "a",
        "a\xF0\x9F\x98\x80",
        "a\xF0\x9F\x98\x80\xC3\xA9",
        "a\xF0\x9F\x98\x80\xC3\xA9\xED\xA0\x80",
        "a\xF0\x9F\x98\x80\xC3\xA9\xED\xA0\x80"
        "b",
        "a\xF0\x9F\x98\x80\xC3\xA9\xED\xA0\x80"
        "b",
    };
    for (unsigned n = 0; n < std::size(wanted); ++n) {
        EXPECT_EQ(text.toUtf8(n), wanted[n]) << n;
    }
    EXPECT_EQ(text.toUtf8(UString::npos), wanted[5]);
    EXPECT_EQ(UString().toUtf8(3), "");
}

TEST(UStringToUtf8, StopsInALongTextToo) {
    for (const std::string& character : fillers()) {
        const UString text(repeated(character, 150));
        for (unsigned n = 0; n < 150; ++n) {
            ASSERT_EQ(text.toUtf8(n), repeated(character, n));
        }
        EXPECT_EQ(text.toUtf8(), repeated(character, 150));
    }
}

TEST(UStringToUtf8, ABorrowedBufferIsNotReadBeyondItsLength) {
    const Units text = units({'a', 'b', 0xD83D, 0xDE00});
    EXPECT_EQ(UString(text.data(), 3u, UString::persistent).toUtf8(), "ab\xED\xA0\xBD");
}

// ---- Code points

TEST(UStringValidateCodePoint, RefusesSurrogatesNoncharactersAndWhatIsTooLarge) {
    struct Range {
        UChar32 first;
        UChar32 last;
        bool valid;
    };
    const Range ranges[] = {
        {0x0, 0xD7FF, true},         {0xD800, 0xDFFF, false},         {0xE000, 0xFDCF, true},
        {0xFDD0, 0xFDEF, false},     {0xFDF0, 0xFFFD, true},          {0xFFFE, 0xFFFF, false},
        {0x10000, 0x1FFFD, true},    {0x1FFFE, 0x1FFFF, false},       {0x20000, 0x2FFFD, true},
        {0xFFFFE, 0xFFFFF, false},   {0x100000, 0x10FFFD, true},      {0x10FFFE, 0x10FFFF, false},
        {0x110000, 0x110010, false}, {0xFFFFFFF0, 0xFFFFFFFF, false},
    };
    for (const Range& range : ranges) {
        for (const UChar32 cp : {range.first, range.first / 2 + range.last / 2, range.last}) {
            if (range.valid) {
                EXPECT_EQ(UString::validateCodePoint(cp), cp) << cp;
            } else {
                EXPECT_THROW(UString::validateCodePoint(cp), ConversionException) << cp;
            }
        }
    }
}

TEST(UStringValidateCodePoint, KnowsNoPlace) {
    try {
        UString::validateCodePoint(0xD800);
        FAIL();
    } catch (const ConversionException& failure) {
        EXPECT_EQ(failure.what(), illegal("0 through 0"));
    }
}

TEST(UStringValidateCodePoint, LooksAtAllBitsOfItsArgument) {
    // All bits above 32 are set, if there are any.
    const UChar32 wide = (~UChar32{0} - 0xFFFFFFFF) | 'a';
    if (wide == 'a') {
        EXPECT_EQ(UString::validateCodePoint(wide), wide);
    } else {
        EXPECT_THROW(UString::validateCodePoint(wide), ConversionException);
    }
}

// ---- Escapes

std::string unescaped(const std::string& text) {
    try {
        return UString(text).unescape().toUtf8();
    } catch (const ConversionException& failure) {
        return failure.what();
    }
}

TEST(UStringUnescape, ReplacesEscapesAndDropsOtherBackslashes) {
    const Row rows[] = {
        {"", ""},
        {"abc", "abc"},
        {"a\\qb", "aqb"},
        {"\\n\\t\\r\\0\\x", "ntr0x"},
        {"\\\\", "\\"},
        {"\\\\u0041", "\\u0041"},
        {"\\\"", "\""},
        {"\\U0041", "U0041"},
        {"\\u00e9", "\xC3\xA9"},
        {"\\u00E9", "\xC3\xA9"},
        {"\\u20aC", "\xE2\x82\xAC"},
        {"\\u0041\\u0042", "AB"},
        {"a\\u0041b", "aAb"},
        {"\\u00410", "A0"},
        {"\\uD83D\\uDE00", "\xF0\x9F\x98\x80"},
        {"\\uD83D", "\xED\xA0\xBD"},
        {"\\uFFFF", "\xEF\xBF\xBF"},
        {"\\\xC3\xA9", "\xC3\xA9"},
        {"long enough to be counted \\u0021", "long enough to be counted !"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(unescaped(row.text), row.failure) << row.text;
    }
}

TEST(UStringUnescape, AZeroUnitIsATextLikeAnyOther) {
    EXPECT_EQ(unitsOf(UString("a\\u0000b").unescape()), units({'a', 0, 'b'}));
    EXPECT_EQ(unitsOf(UString("a\0b\\u0041", 9u).unescape()), units({'a', 0, 'b', 'A'}));
}

TEST(UStringUnescape, ABackslashAtTheEndIsToldWithItsIndexAndTheNext) {
    EXPECT_EQ(unescaped("\\"), illegal("0 through 1"));
    EXPECT_EQ(unescaped("abc\\"), illegal("3 through 4"));
    EXPECT_EQ(unescaped("\\\\\\"), illegal("2 through 3"));
}

TEST(UStringUnescape, AnEscapeThatReachesBeyondTheEndIsToldWithWhereItWouldEnd) {
    EXPECT_EQ(unescaped("\\u"), illegal("0 through 5"));
    EXPECT_EQ(unescaped("\\u0"), illegal("0 through 5"));
    EXPECT_EQ(unescaped("\\u004"), illegal("0 through 5"));
    EXPECT_EQ(unescaped("ab\\u004"), illegal("2 through 7"));
    EXPECT_EQ(unescaped("\\u00g"), illegal("0 through 5"));
    EXPECT_EQ(unescaped("\\u0041\\u004"), illegal("6 through 11"));
}

TEST(UStringUnescape, TooFewDigitsAreToldWithTheIndexLessTheirNumber) {
    EXPECT_EQ(unescaped("abcdefg\\u004g"), illegal("7 through 4"));
    EXPECT_EQ(unescaped("abcdefg\\u00g4"), illegal("7 through 5"));
    EXPECT_EQ(unescaped("abcdefg\\u0g41"), illegal("7 through 6"));
    EXPECT_EQ(unescaped("abcdefg\\ug041"), illegal("7 through 7"));
    EXPECT_EQ(unescaped("\\ug041"), illegal("0 through 0"));
    EXPECT_EQ(unescaped("\\u0g41"), illegal("0 through -1"));
    EXPECT_EQ(unescaped("\\u00g1"), illegal("0 through -2"));
    EXPECT_EQ(unescaped("\\u004g"), illegal("0 through -3"));
    EXPECT_EQ(unescaped("a\\u004 "), illegal("1 through -2"));
}

TEST(UStringUnescape, DigitsAreNeitherBlanksNorSignsNorAPrefix) {
    EXPECT_EQ(unescaped("\\u 041"), illegal("0 through 0"));
    EXPECT_EQ(unescaped("\\u\t041"), illegal("0 through 0"));
    EXPECT_EQ(unescaped("\\u+041"), illegal("0 through 0"));
    EXPECT_EQ(unescaped("\\u-041"), illegal("0 through 0"));
    EXPECT_EQ(unescaped("\\u0x41"), illegal("0 through -1"));
    EXPECT_EQ(unescaped("\\u0X41"), illegal("0 through -1"));
}

TEST(UStringUnescape, OnlyTheLowBytesOfDigitsCount) {
    // Each of these units has the low byte of the digit that it stands for.
    const UString text = stringOf(units({'\\', 'u', 0x0130, 0x0230, 0xFF34, 0x2031}));
    EXPECT_EQ(unitsOf(text.unescape()), units({0x0041}));
    // But a backslash and a "u" are what they are.
    const Units others = units({'a', 0x015C, 'u', '\\', 0x0175});
    EXPECT_EQ(unitsOf(stringOf(others).unescape()), units({'a', 0x015C, 'u', 0x0175}));
}

TEST(UStringUnescape, EveryUnitHasAnEscape) {
    const char digits[] = "0123456789aBcDeF";
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const std::string text = {'\\',
                                  'u',
                                  digits[unit >> 12],
                                  digits[unit >> 8 & 15],
                                  digits[unit >> 4 & 15],
                                  digits[unit & 15]};
        ASSERT_EQ(unitsOf(UString(text).unescape()), units({unit})) << text;
    }
}

TEST(UStringUnescape, LeavesTheStringAloneAndMakesABufferOfItsOwn) {
    const UString text("no escapes in this text");
    const UString copy = text.unescape();
    EXPECT_EQ(unitsOf(copy), unitsOf(text));
    EXPECT_NE(copy.data(), text.data());
    const UString escaped("\\u0041");
    escaped.unescape();
    EXPECT_EQ(unitsOf(escaped), units({'\\', 'u', '0', '0', '4', '1'}));
}

TEST(UStringUnescape, TheResultTellsTheCapacity) {
    for (std::size_t count = 0; count < 100; ++count) {
        EXPECT_EQ(UString(std::string(count, 'a')).unescape().capacity(), capacityFor(count));
        EXPECT_EQ(UString(repeated("\\u0041", count)).unescape().capacity(), capacityFor(count));
        EXPECT_EQ(UString(repeated("\\a", count)).unescape().capacity(), capacityFor(count));
    }
    UString spacious;
    spacious.capacity(500);
    spacious.append(UString("twelve units"));
    EXPECT_EQ(spacious.unescape().capacity(), capacityFor(12));
}

TEST(UStringUnescape, ABorrowedTextIsUnescapedByItsLength) {
    const Units text = units({'a', '\\', 'b', '\\', 'c'});
    EXPECT_EQ(UString(text.data(), 3u, UString::persistent).unescape().toUtf8(), "ab");
}

}  // namespace
}  // namespace nolk
