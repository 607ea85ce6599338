#include <nolk/core/URegex.h>
#include <nolk/core/URegexMatchIterator.h>

#include <gtest/gtest.h>

#include <string>

namespace nolk {
namespace {

std::string told(const URegexResult& result) {
    std::string text;
    for (unsigned i = 0; i < result.size(); ++i) {
        text += i == 0 ? "" : " ";
        text +=
            result.getStart(i) == URegexResult::npos
                ? "-"
                : std::to_string(result.getStart(i)) + "/" + std::to_string(result.getLength(i));
    }
    return text;
}

std::string found(const char* pattern, const UString& text) {
    return told(URegex(UString(pattern)).search(text));
}

UStringConstIterator at(const UString& text, int codePoints) {
    UStringConstIterator it(text);
    it.advanceCodePoints(codePoints);
    return it;
}

unsigned codeOf(const char* pattern, const char* encoding) {
    try {
        URegex regex(std::string(pattern), 0, 0, encoding);
        return 0;
    } catch (const RegexException& failure) {
        return failure.getCode();
    }
}

TEST(URegex, KnowsCategoriesSubtractionAndPairs) {
    EXPECT_EQ(found("[{Lu}]+", UString("ABc")), "0/2");
    EXPECT_EQ(found("[a-z-[aeiou]]", UString("b")), "0/1");
    EXPECT_EQ(found("[a-z-[aeiou]]", UString("a")), "-");
    EXPECT_EQ(found("[{ALL}]", UString("")), "-");
    EXPECT_EQ(found(".", UString("\xF0\x9F\x98\x80")), "0/1");
    EXPECT_EQ(found("^..$", UString("\xF0\x9F\x98\x80")), "0/2");
    EXPECT_EQ(found("(\xC3\xA9|e)+", UString("x\xC3\xA9"
                                             "e")),
              "1/2 2/1");
}

TEST(URegex, WithoutAPatternOrForAnotherLevelFindsNothing) {
    URegex none;
    EXPECT_FALSE(none.search(UString("")));
    EXPECT_EQ(none.subCount(), 0u);
    URegex regex(UString("(a)"), 1, 7);
    EXPECT_FALSE(regex.search(UString("a")));
    EXPECT_EQ(regex.getLevel(), 1);
    EXPECT_EQ(regex.getOptions(), 7);
    EXPECT_EQ(regex.getPattern(), UString("(a)"));
    regex.setLevel(0);
    EXPECT_EQ(told(regex.search(UString("a"))), "0/1 0/1");
    EXPECT_EQ(regex.getOptions(), 7);
    regex.setLevel(2);
    EXPECT_FALSE(regex.matchAt(UString("a")));
    EXPECT_FALSE(URegex(regex).search(UString("a")));
}

TEST(URegex, TakesNarrowPatterns) {
    const UString text("x\xC3\xA9");
    EXPECT_EQ(told(URegex("\xC3\xA9", 0, 0, "UTF-8").search(text)), "1/1");
    EXPECT_EQ(told(URegex("\xC3\xA9", 0, 0, nullptr).search(text)), "1/1");
    EXPECT_EQ(told(URegex(std::string("\xE9"), 0, 0, "iso-8859-1").search(text)), "1/1");
    EXPECT_EQ(codeOf("\xE9", "UTF-8"), 20u);
    EXPECT_EQ(codeOf("\xE9", "ASCII"), 20u);
    EXPECT_EQ(codeOf("a", "EBCDIC"), 20u);
    EXPECT_EQ(codeOf("a", "us-ascii"), 0u);
    EXPECT_EQ(codeOf("[{Foo}]", "UTF-8"), 18u);
    EXPECT_EQ(codeOf("[{Lu]", "UTF-8"), 17u);
}

TEST(URegex, SearchesBetweenIterators) {
    const UString text("abab");
    const URegex regex(UString("ab"));
    EXPECT_EQ(told(regex.search(text, at(text, 1))), "2/2");
    EXPECT_EQ(told(regex.search(text, at(text, 1), at(text, 3))), "-");
    EXPECT_EQ(told(regex.matchAt(text)), "0/2");
    EXPECT_EQ(told(regex.matchAt(text, at(text, 2))), "2/2");
    EXPECT_EQ(told(regex.matchAt(text, at(text, 1), at(text, 4))), "-");
}

TEST(URegex, CopiesAndCompares) {
    URegex a(UString("a+"), 0, 3);
    const URegex copy(a);
    a = URegex(UString("b"));
    EXPECT_EQ(told(copy.search(UString("xaa"))), "1/2");
    EXPECT_EQ(copy.getOptions(), 3);
    EXPECT_EQ(told(a.search(UString("ab"))), "1/1");
    EXPECT_TRUE(copy < a);
    EXPECT_FALSE(copy == a);
    EXPECT_TRUE(URegex(UString("b")) == a);
}

TEST(URegex, Replaces) {
    const URegex regex(UString("a(x*)"));
    UString text("axbaba");
    EXPECT_EQ(regex.replace(text, UString("-"), 2), 2u);
    EXPECT_EQ(text, UString("-b-ba"));
    text = UString("axba");
    EXPECT_EQ(regex.replace(text, UString("y"), 0, 1), 2u);
    EXPECT_EQ(text, UString("aybay"));
    text = UString("axbaa");
    EXPECT_EQ(regex.replace(text, UString("y"), 0, 1, at(text, 0), at(text, 4), false), 1u);
    EXPECT_EQ(text, UString("aybaa"));
    text = UString("ab");
    EXPECT_EQ(URegex(UString("(a)|b")).replace(text, UString("X"), 0, 1), 1u);
    EXPECT_EQ(text, UString("X"));
}

TEST(URegexResult, TellsPlacesAsIteratorsAndPieces) {
    const UString text("xaby");
    const URegexResult result = URegex(UString("a(b)|(c)")).search(text);
    ASSERT_TRUE(result);
    EXPECT_EQ(unsigned{result.begin(text, 0)}, 1u);
    EXPECT_EQ(unsigned{result.end(text, 0)}, 3u);
    EXPECT_EQ(unsigned{result.begin(text, 2)}, 4u);
    EXPECT_EQ(unsigned{result.end(text, 2)}, 4u);
    EXPECT_EQ(UString(result.subString(text, 1)), UString("b"));
    EXPECT_EQ(result.subString(text, 2).length(), 0u);
    EXPECT_FALSE(URegexResult());
}

TEST(URegexMatchIterator, GoesFromMatchToMatch) {
    const auto all = [](URegexMatchIterator it) {
        std::string text;
        for (; it != URegexMatchIterator(); it++) {
            text += told(*it) + " ";
        }
        return text;
    };
    const UString text("baaa");
    URegex some(UString("a*"));
    URegex two(UString("aa"));
    EXPECT_EQ(all(URegexMatchIterator(some, text)), "0/0 1/3 ");
    EXPECT_EQ(all(URegexMatchIterator(two, text, at(text, 2))), "2/2 ");
    EXPECT_EQ(all(URegexMatchIterator(two, text, at(text, 0), at(text, 4), true)), "1/2 2/2 ");
    EXPECT_EQ(all(URegexMatchIterator(two, text, at(text, 0), at(text, 3), true)), "1/2 ");
    const UString empty;
    EXPECT_EQ(all(URegexMatchIterator(some, empty)), "0/0 ");
    URegexMatchIterator it(some, text);
    it += 1;
    EXPECT_EQ(it->getStart(0), 1u);
    it += 9;
    EXPECT_TRUE(it == URegexMatchIterator());
}

}  // namespace
}  // namespace nolk
