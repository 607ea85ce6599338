#include <nolk/core/strings/Utf8Encoder.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

#include "Utf8Reference.h"

namespace nolk {
namespace {

using namespace test;
using utf8::Encoded;

struct Way {
    const char* name;
    std::size_t (*count)(const UChar*, const UChar*);
    char* (*encode)(const UChar*, const UChar*, char*);
    Encoded (*narrow)(const UChar*, const UChar*, char*);
};

// The chosen way is the one with vectors wherever the processor has them.
const Way ways[] = {
    {"portable", utf8::countBytesPortably, utf8::encodePortably, utf8::narrowPortably},
    {"chosen", utf8::countBytes, utf8::encode, utf8::narrow},
};

// Character by character: a pair is one, any other unit is encoded by its own value.
std::string naive(const Units& units) {
    std::string text;
    for (std::size_t i = 0; i < units.size(); ++i) {
        std::uint32_t c = units[i];
        if (c >= 0xD800 && c <= 0xDBFF && i + 1 < units.size() && units[i + 1] >= 0xDC00 &&
            units[i + 1] <= 0xDFFF) {
            c = 0x10000 + (c - 0xD800) * 0x400 + (units[++i] - 0xDC00);
        }
        text += encodeByDefinition(c);
    }
    return text;
}

// Units and bytes end with their blocks of memory: a sanitizer sees every access beyond.
testing::AssertionResult agrees(const Way& way, const Units& text, const std::string& wanted) {
    const std::unique_ptr<UChar[]> units(new UChar[text.size()]);
    std::copy(text.begin(), text.end(), units.get());
    const UChar* const last = units.get() + text.size();
    const std::size_t count = way.count(units.get(), last);
    if (count != wanted.size()) {
        return testing::AssertionFailure()
               << way.name << " counts " << count << " of " << wanted.size();
    }
    const std::unique_ptr<char[]> bytes(new char[count + utf8::encodeSlack]);
    const char* const end = way.encode(units.get(), last, bytes.get());
    if (std::string(static_cast<const char*>(bytes.get()), end) != wanted) {
        return testing::AssertionFailure() << way.name << " gives other bytes";
    }
    return testing::AssertionSuccess();
}

void expectAgreement(const Units& text) {
    const std::string wanted = naive(text);
    for (const Way& way : ways) {
        ASSERT_TRUE(agrees(way, text, wanted)) << testing::PrintToString(text);
    }
}

Units unitsOf(std::initializer_list<unsigned> values) {
    Units units;
    for (const unsigned value : values) {
        units += static_cast<UChar>(value);
    }
    return units;
}

TEST(Utf8Encoder, EveryUnitIsEncodedAmongOthers) {
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        Units text(40, static_cast<UChar>(unit % 7 == 0 ? 0x20AC : 'a'));
        text[unit % 40] = static_cast<UChar>(unit);
        expectAgreement(text);
    }
}

TEST(Utf8Encoder, EverySupplementaryCharacterIsEncoded) {
    Units text;
    for (std::uint32_t c = 0x10000; c < 0x110000; ++c) {
        appendUtf16(text, c);
        if (text.size() > 1000 || c == 0x10FFFF) {
            expectAgreement(text);
            text.clear();
        }
    }
}

// At the borders between lengths, and surrogates in all orders, so also alone.
const Units borders = unitsOf(
    {0x00, 0x41, 0x7F, 0x80, 0x7FF, 0x800, 0xD7FF, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000, 0xFFFF});

TEST(Utf8Encoder, EveryPairOfBorderUnitsIsEncodedAtEveryPlace) {
    const Units fillers = unitsOf({'a', 0xE9, 0x20AC});
    for (const UChar first : borders) {
        for (const UChar second : borders) {
            for (const UChar filler : fillers) {
                for (std::size_t before = 0; before < 36; ++before) {
                    Units text(before, filler);
                    text += first;
                    text += second;
                    expectAgreement(text);
                    text.append(20, filler);
                    expectAgreement(text);
                }
            }
        }
    }
}

TEST(Utf8Encoder, EveryTripleOfBorderUnitsIsEncoded) {
    std::size_t before = 0;
    for (const UChar first : borders) {
        for (const UChar second : borders) {
            for (const UChar third : borders) {
                Units text(before++ % 40, UChar('a'));
                text += first;
                text += second;
                text += third;
                expectAgreement(text);
                text.append(17, UChar(0xE9));
                expectAgreement(text);
            }
        }
    }
}

TEST(Utf8Encoder, RandomUnitsAreEncodedAsByTheDefinition) {
    std::mt19937 random(16);
    for (int round = 0; round < 20000; ++round) {
        Units text(random() % 120, UChar());
        const unsigned kinds = 1 + random() % 15;
        for (UChar& unit : text) {
            const unsigned first[] = {0, 0x80, 0x800, 0xD800};
            const unsigned count[] = {0x80, 0x780, 0xF800, 0x800};
            unsigned kind = random() % 4;
            while ((kinds >> kind & 1) == 0) {
                kind = random() % 4;
            }
            unit = static_cast<UChar>(first[kind] + random() % count[kind]);
        }
        expectAgreement(text);
    }
}

TEST(Utf8Encoder, NarrowingStopsAtTheFirstUnitAboveAsciiAndWritesNothingBehindIt) {
    for (const unsigned other : {0x80u, 0x100u, 0x141u, 0x8000u, 0xFF41u}) {
        for (std::size_t length = 0; length < 140; ++length) {
            for (std::size_t stop = length % 5; stop <= length; stop += 1 + stop % 3) {
                Units text(length, UChar('a'));
                if (stop < length) {
                    text[stop] = static_cast<UChar>(other);
                }
                const std::size_t wanted = std::min(stop, length);
                for (const Way& way : ways) {
                    const std::unique_ptr<char[]> bytes(new char[wanted]);
                    const Encoded narrowed =
                        way.narrow(text.data(), text.data() + length, bytes.get());
                    ASSERT_EQ(static_cast<std::size_t>(narrowed.in - text.data()), wanted);
                    ASSERT_EQ(std::string(bytes.get(), narrowed.out - bytes.get()),
                              std::string(wanted, 'a'))
                        << way.name;
                }
            }
        }
    }
}

}  // namespace
}  // namespace nolk
