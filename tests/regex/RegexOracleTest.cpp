#include "RegexOracle.h"

#include <nolk/core/Regex.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace nolk {
namespace {

using test::NaiveEnds;
using test::NaiveMatcher;
using test::Part;
using test::PatternMaker;
using test::Place;

template <typename T>
class RegexOracle : public testing::Test {};

using Flavours = testing::Types<char, UChar>;
TYPED_TEST_SUITE(RegexOracle, Flavours);

template <typename T>
std::basic_string<T> widened(const std::string& text) {
    return std::basic_string<T>(text.begin(), text.end());
}

template <typename T>
Place placeOf(const RegexResult<T>& result, unsigned i) {
    if (result.getStart(i) == RegexResult<T>::npos) {
        return {};
    }
    const auto start = static_cast<int>(result.getStart(i));
    return {start, start + static_cast<int>(result.getLength(i))};
}

// The groups whose captures are fixed: those outside repeated groups. What others hold of the way
// to an earlier iteration, or to one that failed, isn't.
void collectFixedGroups(const std::vector<Part>& parts, std::vector<unsigned>& fixed) {
    for (const Part& part : parts) {
        if (part.group > 0) {
            fixed.push_back(static_cast<unsigned>(part.group));
        }
        if (part.kind == Part::sequence && part.max == 1) {
            collectFixedGroups(part.parts, fixed);
        }
    }
}

// A group on the way of the match holds its last iteration; one that isn't and has no group around
// may tell where it was left out, and has no length.
template <typename T>
void expectCaptures(const std::vector<Part>& parts, const RegexResult<T>& result,
                    const std::vector<Place>& expected, unsigned& compared) {
    std::vector<unsigned> fixed;
    collectFixedGroups(parts, fixed);
    for (const unsigned i : fixed) {
        if (expected[i].start >= 0) {
            ++compared;
            EXPECT_EQ(placeOf(result, i), expected[i]) << "group " << i;
        }
    }
    for (const Part& part : parts) {
        const auto i = static_cast<unsigned>(part.group);
        if (part.group > 0 && expected[i].start < 0) {
            EXPECT_EQ(result.getLength(i), 0u) << "group " << i;
        }
    }
}

TYPED_TEST(RegexOracle, FindsWhatTryingEverythingFinds) {
    PatternMaker maker(4612);
    int found = 0;
    unsigned captures = 0;
    for (int i = 0; i < 12000; ++i) {
        const std::vector<Part> parts = maker.fixedPattern();
        const std::string pattern = written(parts);
        Regex<TypeParam> regex(widened<TypeParam>(pattern));
        NaiveMatcher naive(parts, maker.groups());
        for (int j = 0; j < 10; ++j) {
            const std::string text = maker.text(9);
            std::vector<Place> expected(maker.groups() + 1);
            const bool matches = naive.search(text, expected);
            const RegexResult<TypeParam> result = regex.search(widened<TypeParam>(text));
            ASSERT_EQ(static_cast<bool>(result), matches) << pattern << " on " << text;
            if (matches) {
                ++found;
                ASSERT_EQ(placeOf(result, 0), expected[0])
                    << pattern << " on " << text << ": " << placeOf(result, 0).start << " to "
                    << placeOf(result, 0).end << ", not " << expected[0].start << " to "
                    << expected[0].end;
                expectCaptures(parts, result, expected, captures);
                ASSERT_FALSE(this->HasFailure()) << pattern << " on " << text;
            }
        }
    }
    EXPECT_GT(found, 40000);
    EXPECT_GT(captures, 10000u);
}

TYPED_TEST(RegexOracle, FindsNothingThatThePatternDoesNotMatch) {
    PatternMaker maker(815);
    for (int i = 0; i < 3000; ++i) {
        const std::vector<Part> parts = maker.anyPattern(3);
        const std::string pattern = written(parts);
        Regex<TypeParam> regex(widened<TypeParam>(pattern));
        for (int j = 0; j < 10; ++j) {
            const std::string text = maker.text(9);
            const RegexResult<TypeParam> result = regex.search(widened<TypeParam>(text));
            if (result) {
                const Place place = placeOf(result, 0);
                const auto ends = NaiveEnds(text).of(parts, static_cast<std::size_t>(place.start));
                ASSERT_TRUE(ends.count(static_cast<std::size_t>(place.end)) != 0)
                    << pattern << " on " << text << ": " << place.start << " to " << place.end;
            }
        }
    }
}

}  // namespace
}  // namespace nolk
