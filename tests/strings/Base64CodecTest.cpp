#include <nolk/core/strings/Base64Codec.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <random>
#include <string>

namespace nolk {
namespace {

using Bytes = std::string;

constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// By the definition: a stream of bits, six at a time.
Bytes naiveEncode(const Bytes& bytes) {
    Bytes text;
    std::size_t data = 0;
    for (std::size_t bit = 0; bit < bytes.size() * 8; bit += 6) {
        unsigned value = 0;
        for (std::size_t i = bit; i < bit + 6; ++i) {
            const unsigned byte =
                i / 8 < bytes.size() ? static_cast<unsigned char>(bytes[i / 8]) : 0;
            value = value * 2 + ((byte >> (7 - i % 8)) & 1);
        }
        text += alphabet[value];
        if (++data % 72 == 0) {
            text += "\r\n";
        }
    }
    text.append((4 - data % 4) % 4, '=');
    return text;
}

std::optional<Bytes> naiveDecode(const Bytes& text) {
    Bytes bits;
    for (const char c : text) {
        if (c == '\r' || c == '\n') {
            continue;
        }
        const char* const end = alphabet + 64;
        const auto value = static_cast<unsigned>(std::find(alphabet, end, c) - alphabet);
        if (value == 64) {
            return std::nullopt;
        }
        for (int bit = 5; bit >= 0; --bit) {
            bits += static_cast<char>((value >> bit) & 1);
        }
    }
    Bytes bytes;
    for (std::size_t i = 0; i + 8 <= bits.size(); i += 8) {
        unsigned byte = 0;
        for (std::size_t k = i; k < i + 8; ++k) {
            byte = byte * 2 + static_cast<unsigned>(bits[k]);
        }
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

using Way = char* (*)(const char*, std::size_t, char*);

struct Ways {
    const char* name;
    Way encode;
    Way decode;
};

// The chosen way is the one with vectors wherever the processor has them.
const Ways allWays[] = {
    {"portable", base64::encodePortably, base64::decodePortably},
    {"chosen", base64::encode, base64::decode},
};

// Input and output end with their blocks of memory: a sanitizer sees every access beyond.
std::optional<Bytes> run(Way way, const Bytes& input, std::size_t bound) {
    const std::unique_ptr<char[]> in(new char[input.size()]);
    const std::unique_ptr<char[]> out(new char[bound]);
    std::copy(input.begin(), input.end(), in.get());
    const char* const end = way(in.get(), input.size(), out.get());
    if (end == nullptr) {
        return std::nullopt;
    }
    EXPECT_LE(static_cast<std::size_t>(end - out.get()), bound);
    return Bytes(static_cast<const char*>(out.get()), end);
}

Bytes randomBytes(std::mt19937& random, std::size_t length) {
    Bytes bytes(length, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random());
    }
    return bytes;
}

void expectDecoded(const Bytes& text) {
    const std::optional<Bytes> wanted = naiveDecode(text);
    for (const Ways& way : allWays) {
        ASSERT_EQ(run(way.decode, text, base64::decodedBound(text.size())), wanted)
            << way.name << " " << text;
    }
}

TEST(Base64Codec, EveryWayWritesAsByTheDefinitionAtEveryLength) {
    std::mt19937 random(64);
    for (std::size_t length = 0; length <= 500; ++length) {
        const Bytes bytes = randomBytes(random, length);
        const Bytes wanted = naiveEncode(bytes);
        ASSERT_LE(wanted.size(), base64::encodedBound(length));
        for (const Ways& way : allWays) {
            ASSERT_EQ(run(way.encode, bytes, base64::encodedBound(length)), wanted)
                << way.name << " at length " << length;
        }
    }
}

TEST(Base64Codec, EveryWayReadsWhatWasWrittenAtEveryLength) {
    std::mt19937 random(65);
    for (std::size_t length = 0; length <= 500; ++length) {
        const Bytes bytes = randomBytes(random, length);
        Bytes text = naiveEncode(bytes);
        text.resize(text.find_last_not_of('=') + 1);
        for (const Ways& way : allWays) {
            ASSERT_EQ(run(way.decode, text, base64::decodedBound(text.size())), bytes)
                << way.name << " at length " << length;
        }
    }
}

TEST(Base64Codec, EveryWayReadsAnyNumberOfCharacters) {
    std::mt19937 random(66);
    for (std::size_t length = 0; length <= 300; ++length) {
        Bytes text(length, '\0');
        for (char& c : text) {
            c = alphabet[random() % 64];
        }
        expectDecoded(text);
    }
}

TEST(Base64Codec, EveryWaySkipsLineBreaksAtEveryPlace) {
    std::mt19937 random(67);
    for (std::size_t length = 0; length <= 140; ++length) {
        Bytes text(length, '\0');
        for (char& c : text) {
            c = alphabet[random() % 64];
        }
        for (const char* breaks : {"\r\n", "\n", "\r", "\n\n\n"}) {
            for (std::size_t i = 0; i <= length; i += 1 + length / 40) {
                expectDecoded(Bytes(text).insert(i, breaks));
            }
        }
    }
}

TEST(Base64Codec, EveryWayReadsLinesOfAnyLength) {
    std::mt19937 random(68);
    for (std::size_t line = 1; line <= 130; ++line) {
        Bytes text;
        for (std::size_t i = 0; i < 400; ++i) {
            text += alphabet[random() % 64];
            if (i % line == line - 1) {
                text += "\r\n";
            }
        }
        expectDecoded(text);
    }
}

TEST(Base64Codec, EveryByteIsTakenOrRefusedAtEveryPlaceOfAStep) {
    for (unsigned c = 0; c < 256; ++c) {
        Bytes text(120, 'z');
        for (std::size_t i = 0; i < text.size(); ++i) {
            text[i] = static_cast<char>(c);
            expectDecoded(text);
            text[i] = 'z';
        }
    }
}

TEST(Base64Codec, RandomTextsWithFewOddCharactersAreReadAsByTheDefinition) {
    std::mt19937 random(69);
    for (int round = 0; round < 5000; ++round) {
        Bytes text(random() % 300, '\0');
        for (char& c : text) {
            const unsigned kind = random() % 200;
            c = kind == 0  ? static_cast<char>(random())
                : kind < 6 ? "\r\n"[kind % 2]
                           : alphabet[random() % 64];
        }
        expectDecoded(text);
    }
}

}  // namespace
}  // namespace nolk
