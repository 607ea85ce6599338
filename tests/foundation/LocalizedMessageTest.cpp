#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

namespace nolk {
namespace {

LocalizedMessage withText(const char* text) {
    return LocalizedMessage(MessageCatalogId("TEST", "KEY", text));
}

// The text after one call of replace for each argument, in order.
std::string filled(const char* text, const std::vector<std::string>& arguments) {
    LocalizedMessage result = withText(text);
    for (const std::string& argument : arguments) {
        result.replace(argument);
    }
    return result.getMessage();
}

template <typename Number>
std::string textOf(Number value) {
    LocalizedMessage result = withText("<%1%>");
    result.replace(value);
    const std::string text = result.getMessage();
    return text.substr(1, text.size() - 2);
}

TEST(LocalizedMessage, TakesKeyAndBuiltInTextOfItsId) {
    const LocalizedMessage text(NOLK_CORE_NO_MEMORY);
    EXPECT_EQ(text.getMessage(), "No memory");
    EXPECT_EQ(text.getIdentifier(), "NO_MEMORY");
}

static_assert(std::has_virtual_destructor_v<LocalizedMessage>);
static_assert(std::is_convertible_v<const MessageCatalogId&, LocalizedMessage>);

TEST(LocalizedMessage, HoldsTwoStringsAndA32BitNumber) {
    struct Fields {
        virtual ~Fields() = default;
        std::string identifier;
        std::string message;
        std::uint32_t nextArgument = 0;
    };
    EXPECT_EQ(sizeof(LocalizedMessage), sizeof(Fields));
}

TEST(LocalizedMessage, KeepsTheKeyWithoutTheComponent) {
    EXPECT_EQ(LocalizedMessage(NOLK_AGENT_HANDLER_KEY_NOT_FOUND).getIdentifier(),
              "HANDLER_KEY_NOT_FOUND");
}

TEST(LocalizedMessage, OutlivesTheTextsOfItsId) {
    std::string key = "GONE";
    std::string built = "gone %1%";
    LocalizedMessage text(MessageCatalogId("TEST", key.c_str(), built.c_str()));
    key = "xxxx";
    built = "xxxxxxxx";
    text.replace("x");
    EXPECT_EQ(text.getIdentifier(), "GONE");
    EXPECT_EQ(text.getMessage(), "gone x");
}

TEST(LocalizedMessage, ShowsUnfilledPlaceholdersAsTheyStand) {
    LocalizedMessage text(NOLK_CORE_BOUNDS_ILLEGAL_INDEX);
    EXPECT_EQ(text.getMessage(), "Illegal Index (%1%) for collection or string with %2% elements");
    text.replace(5);
    EXPECT_EQ(text.getMessage(), "Illegal Index (5) for collection or string with %2% elements");
    text.replace(3);
    EXPECT_EQ(text.getMessage(), "Illegal Index (5) for collection or string with 3 elements");
}

TEST(LocalizedMessage, CopyContinuesAtTheSamePlaceholder) {
    LocalizedMessage text = withText("%1% %2% %3%");
    text.replace("a");
    LocalizedMessage copy(text);
    copy.replace("b");
    text.replace("c");
    EXPECT_EQ(copy.getMessage(), "a b %3%");
    EXPECT_EQ(text.getMessage(), "a c %3%");
    LocalizedMessage assigned(NOLK_CORE_NO_MEMORY);
    assigned = copy;
    assigned.replace("d");
    EXPECT_EQ(assigned.getMessage(), "a b d");
    EXPECT_EQ(assigned.getIdentifier(), "KEY");
}

TEST(LocalizedMessage, AssignmentToItselfChangesNothing) {
    LocalizedMessage text = withText("%1% %2%");
    text.replace("a");
    LocalizedMessage& same = text;
    text = same;
    text.replace("b");
    EXPECT_EQ(text.getMessage(), "a b");
}

TEST(LocalizedMessage, MessageFunctionFillsAllArgumentsInOrder) {
    const LocalizedMessage text =
        message(NOLK_CORE_XML_VALIDATE_BOUNDS_ERROR, "list", 3u, -1L, std::string("many"));
    EXPECT_EQ(text.getMessage(), "Bounds error in: list size = 3 minOccurs = -1 maxOccurs = many");
    EXPECT_EQ(text.getIdentifier(), "XML_VALIDATE_BOUNDS_ERROR");
}

TEST(LocalizedMessage, MessageFunctionWithoutArgumentsKeepsTheText) {
    EXPECT_EQ(message(NOLK_CORE_INVALID_ID).getMessage(), "Unrecognized message identifier: %1%");
}

TEST(LocalizedMessageReplace, PlaceholderStandingTwiceIsFilledOnlyAtItsFirstPlace) {
    EXPECT_EQ(filled("a %1% b %1%", {"x"}), "a x b %1%");
}

TEST(LocalizedMessageReplace, PlaceholderLeftOverStaysThroughLaterCalls) {
    EXPECT_EQ(filled("a %1% b %1% %2%", {"x", "y"}), "a x b %1% y");
}

TEST(LocalizedMessageReplace, FillsAtTheVeryStart) {
    EXPECT_EQ(filled("%1%", {"x"}), "x");
}

TEST(LocalizedMessageReplace, FillsWithAnEmptyArgument) {
    EXPECT_EQ(filled("a%1%b", {""}), "ab");
}

TEST(LocalizedMessageReplace, PairBeforeThePlaceholderIsCollapsed) {
    EXPECT_EQ(filled("100%% of %1%", {"x"}), "100% of x");
}

TEST(LocalizedMessageReplace, PairBehindThePlaceholderIsCollapsed) {
    EXPECT_EQ(filled("%1% is 100%%", {"x"}), "x is 100%");
}

TEST(LocalizedMessageReplace, AllPairsAreCollapsedAtOnce) {
    EXPECT_EQ(filled("%% %1% %% %%%%", {"x"}), "% x % %%");
}

TEST(LocalizedMessageReplace, PairsStayWhileTheFirstPercentBeginsAPlaceholder) {
    EXPECT_EQ(filled("%1% and %2% are 100%%", {"a"}), "a and %2% are 100%%");
    EXPECT_EQ(filled("%1% and %2% are 100%%", {"a", "b"}), "a and b are 100%");
}

TEST(LocalizedMessageReplace, PairInFrontIsCollapsedEvenIfPlaceholdersFollow) {
    EXPECT_EQ(filled("100%% of %1% and %2%", {"a"}), "100% of a and %2%");
    EXPECT_EQ(filled("100%% of %1% and %2%", {"a", "b"}), "100% of a and b");
}

TEST(LocalizedMessageReplace, LonePercentAtTheEndKeepsThePairs) {
    EXPECT_EQ(filled("%1% 5%", {"x"}), "x 5%");
    EXPECT_EQ(filled("%1% %a %%", {"x"}), "x %a %%");
}

TEST(LocalizedMessageReplace, TextWithoutPlaceholderStaysAndTheNextNumberComes) {
    EXPECT_EQ(filled("plain", {"x"}), "plain");
    EXPECT_EQ(filled("a %2%", {"x"}), "a %2%");
    EXPECT_EQ(filled("a %2%", {"x", "y"}), "a y");
}

TEST(LocalizedMessageReplace, TextWithoutPlaceholderStillLosesItsPairs) {
    EXPECT_EQ(filled("100%%", {"x"}), "100%");
}

TEST(LocalizedMessageReplace, PlaceholdersPastNineAreFound) {
    EXPECT_EQ(filled("%10% %1%", {"a", "2", "3", "4", "5", "6", "7", "8", "9", "j"}), "j a");
}

TEST(LocalizedMessageReplace, EscapedPlaceholderIsALiteral) {
    EXPECT_EQ(filled("write %%1%", {"x"}), "write %1%");
}

TEST(LocalizedMessageReplace, EscapedPlaceholderInFrontBlocksTheRealOne) {
    EXPECT_EQ(filled("%%1% %1%", {"x"}), "%1% %1%");
}

TEST(LocalizedMessageReplace, CollapsedPairBecomesALivePlaceholder) {
    EXPECT_EQ(filled("%%2%", {"x"}), "%2%");
    EXPECT_EQ(filled("%%2%", {"x", "y"}), "y");
}

TEST(LocalizedMessageReplace, PlaceholderInTheArgumentAtTheStartIsNotSearchedAgain) {
    EXPECT_EQ(filled("%1% b", {"%1%"}), "%1% b");
}

TEST(LocalizedMessageReplace, PlaceholderInTheArgumentOnePastThePositionIsFound) {
    EXPECT_EQ(filled("%1%", {"x%1%"}), "xx%1%");
}

TEST(LocalizedMessageReplace, PlaceholderInTheArgumentPastThePositionIsFilledInTheMessage) {
    // Found at 5 of the argument, so that 5 of the message is filled as well.
    EXPECT_EQ(filled("%1% and %1%", {"abcde%1%"}), "abcdeabcde%1% and %1%");
}

TEST(LocalizedMessageReplace, PositionFromTheArgumentOverwritesWhateverStandsThere) {
    // The first is blocked; at 6 of the argument stands the placeholder, at 6 of the text "ghi".
    EXPECT_EQ(filled("%%1%efghij", {"123456%1%"}), "%%1%ef123456%1%j");
}

TEST(LocalizedMessageReplace, PositionFromTheArgumentBehindAPercentIsLeftAlone) {
    // At 5 of the argument; the message has a percent sign at 4, and its last character at 5.
    EXPECT_EQ(filled("%%1%%b", {"12345%1%"}), "%%1%%b");
}

TEST(LocalizedMessageReplace, PositionFromTheArgumentAtTheTextsEndBehindAPercentIsLeftAlone) {
    EXPECT_EQ(filled("%%1%", {"1234%1%"}), "%%1%");
    EXPECT_EQ(filled("%%1% %2%", {"12345678%1%"}), "%%1% %2%");
    EXPECT_EQ(filled("%%1% %2%", {"12345678%1%", "y"}), "%1% y");
}

TEST(LocalizedMessageReplace, PositionFromTheArgumentAtTheTextsEndAppends) {
    EXPECT_EQ(filled("%%1%ef", {"123456%1%"}), "%%1%ef123456%1%");
}

TEST(LocalizedMessageReplace, PositionFromTheArgumentPastTheTextsEndEndsTheCall) {
    EXPECT_EQ(filled("%%1%", {"12345678%1%"}), "%%1%");
    EXPECT_EQ(filled("%%1%", {std::string(100000, 'x') + "%1%"}), "%%1%");
}

TEST(LocalizedMessageReplace, CallEndedPastTheTextsEndExpectsTheSameNumberAgain) {
    const std::string past = "0123456789%1%";
    EXPECT_EQ(filled("%%1% %2%", {past}), "%%1% %2%");
    EXPECT_EQ(filled("%%1% %2%", {past, "y"}), "%1% %2%");
    EXPECT_EQ(filled("%%1% %2%", {past, "y", "z"}), "%1% z");
}

TEST(LocalizedMessageReplace, PercentInTheArgumentPastTheTextsEndKeepsThePairs) {
    EXPECT_EQ(filled("%%a", {"xxxxx%"}), "%%a");
    EXPECT_EQ(filled("%%a", {"xxx%"}), "%%a");
}

TEST(LocalizedMessageReplace, PercentInTheArgumentInFrontOfTheSearchChangesNothing) {
    EXPECT_EQ(filled("%%a", {"x%"}), "%a");
}

TEST(LocalizedMessageReplace, PercentInTheArgumentTwoPastThePairKeepsThePairs) {
    EXPECT_EQ(filled("%%abc", {"12%"}), "%%abc");
}

TEST(LocalizedMessageReplace, PercentInTheArgumentAtTheTextsLastIndexKeepsThePairs) {
    EXPECT_EQ(filled("%%abc", {"1234%"}), "%%abc");
}

TEST(LocalizedMessageReplace, PercentInTheArgumentWhereTheTextHasAPairGoesOn) {
    EXPECT_EQ(filled("%%abc%%", {"12345%%"}), "%abc%");
}

TEST(LocalizedMessageReplace, PercentInTheArgumentWhereTheTextHasNoPairKeepsThePairs) {
    EXPECT_EQ(filled("%%abc%%", {"123%"}), "%%abc%%");
}

TEST(LocalizedMessageReplace, ArgumentWithPercentSignsCanBeCollapsedToo) {
    EXPECT_EQ(filled("%1%", {"50%%"}), "50%");
    EXPECT_EQ(filled("%1%", {"50%"}), "50%");
}

TEST(LocalizedMessageReplace, ZeroBytesOfAStringStay) {
    const std::string argument("a\0b", 3);
    EXPECT_EQ(filled("<%1%>", {argument}), "<" + argument + ">");
}

TEST(LocalizedMessageReplace, TextOfAPointerIsAString) {
    LocalizedMessage text = withText("%1%");
    const char* argument = "x";
    text.replace(argument);
    EXPECT_EQ(text.getMessage(), "x");
}

TEST(LocalizedMessageReplace, CharactersShowAsThemselves) {
    EXPECT_EQ(textOf('A'), "A");
    EXPECT_EQ(textOf(static_cast<unsigned char>('B')), "B");
    EXPECT_EQ(textOf('\xE9'), "\xE9");
    EXPECT_EQ(textOf(static_cast<unsigned char>(0xE9)), "\xE9");
}

TEST(LocalizedMessageReplace, ZeroCharacterGivesAnEmptyText) {
    EXPECT_EQ(textOf('\0'), "");
    EXPECT_EQ(textOf(static_cast<unsigned char>(0)), "");
}

TEST(LocalizedMessageReplace, ShortNumbersShowInDecimal) {
    EXPECT_EQ(textOf(static_cast<short>(-32768)), "-32768");
    EXPECT_EQ(textOf(static_cast<short>(7)), "7");
    EXPECT_EQ(textOf(static_cast<unsigned short>(65535)), "65535");
}

TEST(LocalizedMessageReplace, IntShowsInDecimal) {
    EXPECT_EQ(textOf(0), "0");
    EXPECT_EQ(textOf(2147483647), "2147483647");
    EXPECT_EQ(textOf(INT_MIN), "-2147483648");
}

TEST(LocalizedMessageReplace, UnsignedIntShowsAsASigned32BitNumber) {
    EXPECT_EQ(textOf(2147483647u), "2147483647");
    EXPECT_EQ(textOf(2147483648u), "-2147483648");
    EXPECT_EQ(textOf(3000000000u), "-1294967296");
    EXPECT_EQ(textOf(4294967295u), "-1");
}

TEST(LocalizedMessageReplace, LongKeepsThePlatformsWidth) {
    const bool wide = sizeof(long) == 8;
    EXPECT_EQ(textOf(LONG_MIN), wide ? "-9223372036854775808" : "-2147483648");
    EXPECT_EQ(textOf(LONG_MAX), wide ? "9223372036854775807" : "2147483647");
    EXPECT_EQ(textOf(-5L), "-5");
}

TEST(LocalizedMessageReplace, UnsignedLongNeverTurnsNegative) {
    const bool wide = sizeof(long) == 8;
    EXPECT_EQ(textOf(3000000000ul), "3000000000");
    EXPECT_EQ(textOf(ULONG_MAX), wide ? "18446744073709551615" : "4294967295");
}

TEST(LocalizedMessageReplace, LongLongShowsAll64Bits) {
    EXPECT_EQ(textOf(LLONG_MAX), "9223372036854775807");
    EXPECT_EQ(textOf(LLONG_MIN), "-9223372036854775808");
}

TEST(LocalizedMessageReplace, UnsignedLongLongShowsAsASigned64BitNumber) {
    EXPECT_EQ(textOf(9223372036854775807ull), "9223372036854775807");
    EXPECT_EQ(textOf(9223372036854775808ull), "-9223372036854775808");
    EXPECT_EQ(textOf(ULLONG_MAX), "-1");
}

TEST(LocalizedMessageReplace, FloatShowsSixSignificantDigits) {
    EXPECT_EQ(textOf(2.5f), "2.5");
    EXPECT_EQ(textOf(0.1f), "0.1");
    EXPECT_EQ(textOf(-3.0f), "-3");
    EXPECT_EQ(textOf(123456.0f), "123456");
    EXPECT_EQ(textOf(1234567.0f), "1.23457e+06");
    EXPECT_EQ(textOf(0.0001f), "0.0001");
    EXPECT_EQ(textOf(0.00001f), "1e-05");
}

TEST(LocalizedMessageReplace, DoubleShowsFifteenSignificantDigits) {
    EXPECT_EQ(textOf(2.5), "2.5");
    EXPECT_EQ(textOf(0.1), "0.1");
    EXPECT_EQ(textOf(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(textOf(123456789012345.0), "123456789012345");
    EXPECT_EQ(textOf(1234567890123456.0), "1.23456789012346e+15");
    EXPECT_EQ(textOf(1e100), "1e+100");
    EXPECT_EQ(textOf(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(textOf(-std::numeric_limits<double>::infinity()), "-inf");
    EXPECT_EQ(textOf(std::numeric_limits<double>::quiet_NaN()), "nan");
}

TEST(LocalizedMessageReplace, LongDoubleShowsAtMostSixDecimals) {
    EXPECT_EQ(textOf(2.5L), "2.5");
    EXPECT_EQ(textOf(100.0L), "100");
    EXPECT_EQ(textOf(0.0L), "0");
    EXPECT_EQ(textOf(-0.5L), "-0.5");
    EXPECT_EQ(textOf(0.1234567L), "0.123457");
    EXPECT_EQ(textOf(std::ldexp(1.0L, 100)), "1267650600228229401496703205376");
}

TEST(LocalizedMessageReplace, LongDoubleThatIsNoNumberShowsItsName) {
    EXPECT_EQ(textOf(std::numeric_limits<long double>::infinity()), "inf");
    EXPECT_EQ(textOf(-std::numeric_limits<long double>::infinity()), "-inf");
    EXPECT_EQ(textOf(std::numeric_limits<long double>::quiet_NaN()), "nan");
}

TEST(LocalizedMessageReplace, LongDoubleZeroKeepsItsSign) {
    EXPECT_EQ(textOf(-0.0L), "-0");
    EXPECT_EQ(textOf(-0.0000001L), "-0");
}

TEST(LocalizedMessageReplace, LargestLongDoubleShowsInFull) {
    // The values of 64 and of 80 bits both stand in the standard tables of their limits.
    const std::string text = textOf(LDBL_MAX);
    EXPECT_EQ(text.size(), static_cast<std::size_t>(LDBL_MAX_10_EXP) + 1);
    EXPECT_EQ(text.substr(0, 9), LDBL_MAX_10_EXP == 4932 ? "118973149" : "179769313");
    EXPECT_EQ(text.find_first_not_of("0123456789"), std::string::npos);
}

TEST(LocalizedMessage, SeveralThreadsBuildMessagesAtOnce) {
    std::vector<std::string> results(4);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < results.size(); ++i) {
        threads.emplace_back([&result = results[i], i] {
            for (int round = 0; round < 500; ++round) {
                result = message(NOLK_CORE_FILE_NOT_FOUND, static_cast<int>(i)).getMessage();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(results[0], "File 0 not found");
    EXPECT_EQ(results[3], "File 3 not found");
}

}  // namespace
}  // namespace nolk
