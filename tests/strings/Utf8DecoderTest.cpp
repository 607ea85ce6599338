#include <nolk/core/strings/Utf8Decoder.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

#include "Utf8Reference.h"

namespace nolk {
namespace {

using namespace test;
using utf8::Decoded;

struct Way {
    const char* name;
    std::size_t (*count)(const char*, const char*);
    Decoded (*decode)(const char*, const char*, UChar*);
    Decoded (*widen)(const char*, const char*, UChar*);
};

// The chosen way is the one with vectors wherever the processor has them.
const Way ways[] = {
    {"portable", utf8::countUnitsPortably, utf8::decodePortably, utf8::widenPortably},
    {"chosen", utf8::countUnits, utf8::decode, utf8::widen},
};

// Text and units end with their blocks of memory: a sanitizer sees every access beyond.
testing::AssertionResult agrees(const Way& way, const std::string& text, const Utf8Result& wanted) {
    const std::unique_ptr<char[]> bytes(new char[text.size()]);
    std::copy(text.begin(), text.end(), bytes.get());
    const char* const first = bytes.get();
    const char* const last = first + text.size();
    const std::size_t count = way.count(first, last);
    if (wanted.mistake.empty() ? count != wanted.units.size() : count < wanted.units.size()) {
        return testing::AssertionFailure() << way.name << " counts " << count << " units";
    }
    const std::unique_ptr<UChar[]> units(new UChar[count + utf8::decodeSlack]);
    const Decoded decoded = way.decode(first, last, units.get());
    if (static_cast<std::size_t>(decoded.in - first) != wanted.at) {
        return testing::AssertionFailure()
               << way.name << " stops at " << decoded.in - first << " and not at " << wanted.at;
    }
    if (Units(units.get(), decoded.out) != wanted.units) {
        return testing::AssertionFailure() << way.name << " gives other units";
    }
    return testing::AssertionSuccess();
}

void expectAgreement(const std::string& text) {
    const Utf8Result wanted = decodeByDefinition(text);
    for (const Way& way : ways) {
        ASSERT_TRUE(agrees(way, text, wanted)) << testing::PrintToString(text);
    }
}

// Alone, and within a long text at a place of a block.
void expectAgreementAt(const std::string& sequence, const std::string& filler, std::size_t before) {
    const std::string front =
        std::string(before % filler.size(), 'x') + repeated(filler, before / filler.size());
    expectAgreement(front + sequence + repeated(filler, 70 / filler.size()));
}

TEST(Utf8Decoder, EveryByteIsDecodedOrStoppedAtAtEveryPlace) {
    for (unsigned byte = 0; byte < 0x100; ++byte) {
        const std::string sequence(1, static_cast<char>(byte));
        expectAgreement(sequence);
        for (std::size_t before = 0; before < 70; ++before) {
            expectAgreementAt(sequence, "a", before);
        }
    }
}

TEST(Utf8Decoder, EveryPairOfBytesIsDecodedOrStoppedAt) {
    for (unsigned pair = 0; pair < 0x10000; ++pair) {
        const std::string sequence = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
        expectAgreementAt(sequence, "a", 32 + pair % 33);
    }
}

TEST(Utf8Decoder, EveryPairOfBorderBytesIsDecodedOrStoppedAtAtEveryPlace) {
    for (const unsigned first : borderBytes()) {
        for (const unsigned second : borderBytes()) {
            const std::string sequence = {static_cast<char>(first), static_cast<char>(second)};
            for (std::size_t before = 28; before < 68; ++before) {
                expectAgreementAt(sequence, fillers()[before % 4], before);
            }
        }
    }
}

TEST(Utf8Decoder, EveryTripleOfBorderBytesIsDecodedOrStoppedAt) {
    std::size_t before = 0;
    for (const unsigned first : borderBytes()) {
        for (const unsigned second : borderBytes()) {
            for (const unsigned third : borderBytes()) {
                const std::string sequence = {static_cast<char>(first), static_cast<char>(second),
                                              static_cast<char>(third)};
                expectAgreement(sequence);
                expectAgreementAt(sequence, fillers()[before % 4], 30 + before % 37);
                ++before;
            }
        }
    }
}

TEST(Utf8Decoder, EveryFourBorderBytesBehindALongLeadAreDecodedOrStoppedAt) {
    const unsigned leads[] = {0xED, 0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5, 0xF7, 0xF8, 0xFC, 0xFF};
    const unsigned others[] = {0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xE0, 0xFF};
    std::size_t before = 0;
    for (const unsigned first : leads) {
        for (const unsigned second : others) {
            for (const unsigned third : others) {
                for (const unsigned fourth : others) {
                    const std::string sequence = {
                        static_cast<char>(first), static_cast<char>(second),
                        static_cast<char>(third), static_cast<char>(fourth)};
                    expectAgreement(sequence);
                    expectAgreementAt(sequence, fillers()[before % 4], 30 + before % 37);
                    ++before;
                }
            }
        }
    }
}

TEST(Utf8Decoder, CharactersOfEveryLengthStandAtEveryPlace) {
    for (const std::string& sequence : fillers()) {
        for (const std::string& filler : fillers()) {
            for (std::size_t before = 0; before < 100; ++before) {
                expectAgreementAt(sequence, filler, before);
            }
        }
    }
}

TEST(Utf8Decoder, ATextMayEndAtEveryByte) {
    std::string text;
    for (int i = 0; i < 12; ++i) {
        for (const std::string& sequence : fillers()) {
            text += sequence + (i % 3 == 0 ? "b" : "");
        }
    }
    for (std::size_t start = 0; start < 12; ++start) {
        for (std::size_t length = 0; start + length <= text.size(); ++length) {
            expectAgreement(text.substr(start, length));
        }
    }
}

TEST(Utf8Decoder, EveryCharacterIsDecoded) {
    std::string text;
    for (std::uint32_t c = 0; c < 0x110000; ++c) {
        if (c < 0xD800 || c > 0xDFFF) {
            text += encodeByDefinition(c);
        }
        if (text.size() > 5000 || c == 0x10FFFF) {
            expectAgreement(text);
            text.clear();
        }
    }
}

TEST(Utf8Decoder, RandomCharactersAndDamageAreSeenAsByTheDefinition) {
    std::mt19937 random(8);
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        const unsigned kinds = 1 + random() % 15;
        while (text.size() < round % 200u) {
            const unsigned kind = random() % 4;
            if ((kinds >> kind & 1) != 0) {
                const std::uint32_t limits[] = {0x80, 0x800, 0xD800, 0x110000};
                text += encodeByDefinition(static_cast<std::uint32_t>(random()) % limits[kind]);
            }
        }
        if (round % 3 == 0 && !text.empty()) {
            text[random() % text.size()] = static_cast<char>(random());
        }
        expectAgreement(text);
    }
}

TEST(Utf8Decoder, WideningStopsAtTheFirstByteAboveAsciiAndWritesNothingBehindIt) {
    for (std::size_t length = 0; length < 150; ++length) {
        for (std::size_t stop = 0; stop <= length; ++stop) {
            std::string text(length, 'a');
            if (stop < length) {
                text[stop] = '\xC3';
            }
            for (const Way& way : ways) {
                const std::unique_ptr<UChar[]> units(new UChar[stop]);
                const Decoded widened = way.widen(text.data(), text.data() + length, units.get());
                ASSERT_EQ(static_cast<std::size_t>(widened.in - text.data()), stop) << way.name;
                ASSERT_EQ(Units(units.get(), widened.out), Units(stop, UChar('a'))) << way.name;
            }
        }
    }
}

}  // namespace
}  // namespace nolk
