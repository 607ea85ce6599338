#include "nolk/core/foundation/PieceHash.h"

#include <nolk/core/Hash.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace nolk {
namespace {

std::uint32_t hashOf(const std::vector<std::string_view>& pieces) {
    std::size_t length = 0;
    for (std::string_view piece : pieces) {
        length += piece.size();
    }
    PieceHash hash(length);
    for (std::string_view piece : pieces) {
        hash.add(piece);
    }
    return hash.finish();
}

// The text in pieces of one size, the last of them shorter if need be.
std::vector<std::string_view> cut(std::string_view text, std::size_t size) {
    std::vector<std::string_view> pieces;
    for (; text.size() > size; text.remove_prefix(size)) {
        pieces.push_back(text.substr(0, size));
    }
    pieces.push_back(text);
    return pieces;
}

// The text cut behind each byte whose bit is set.
std::vector<std::string_view> cutBehind(std::string_view text, unsigned bits) {
    std::vector<std::string_view> pieces;
    std::size_t begin = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if ((bits >> i & 1) != 0) {
            pieces.push_back(text.substr(begin, i + 1 - begin));
            begin = i + 1;
        }
    }
    pieces.push_back(text.substr(begin));
    return pieces;
}

// Low and high bytes by turns, so that each word and each rest has some of both.
std::string mixedText(std::size_t length) {
    std::string text;
    for (std::size_t i = 0; i < length; ++i) {
        text += static_cast<char>(i % 2 == 0 ? 'a' + i : 0xFF - i);
    }
    return text;
}

// Worked out by hand, as for the hash of the whole.
TEST(PieceHash, HasTheValuesOfItsDefinition) {
    EXPECT_EQ(hashOf({}), 0u);
    EXPECT_EQ(hashOf({"ab", "cd"}), 0x646362E1u);
    EXPECT_EQ(hashOf({"abc", "de"}), 0x8C6C5849u);
    EXPECT_EQ(hashOf({"a", "bcd\xFF"}), 0x7393A7D3u);
    EXPECT_EQ(hashOf({"\xFF", "ab"}), 0xFFFF6102u);
}

TEST(PieceHash, OfPiecesOfOneSizeIsTheHashOfTheWhole) {
    for (std::size_t length = 0; length <= 40; ++length) {
        const std::string text = mixedText(length);
        for (std::size_t size = 1; size <= 7; ++size) {
            EXPECT_EQ(hashOf(cut(text, size)), nolkStringHash(text))
                << length << " bytes by " << size;
        }
    }
}

TEST(PieceHash, IsTheSameHoweverTheTextIsCut) {
    for (std::size_t length = 1; length <= 11; ++length) {
        const std::string text = mixedText(length);
        const std::uint32_t whole = nolkStringHash(text);
        for (unsigned bits = 0; bits < 1u << (length - 1); ++bits) {
            EXPECT_EQ(hashOf(cutBehind(text, bits)), whole) << length << " bytes at " << bits;
        }
    }
}

TEST(PieceHash, EmptyPiecesChangeNothing) {
    EXPECT_EQ(hashOf({"", "", ""}), 0u);
    const std::string text = mixedText(11);
    const std::string_view view = text;
    for (std::size_t at = 0; at <= text.size(); ++at) {
        EXPECT_EQ(hashOf({"", view.substr(0, at), "", std::string_view(), view.substr(at), ""}),
                  nolkStringHash(text))
            << at;
    }
}

}  // namespace
}  // namespace nolk
