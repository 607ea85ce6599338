/** @file
 * The string hash of a text that nobody holds in one piece.
 */
#ifndef NOLK_CORE_FOUNDATION_PIECE_HASH_H
#define NOLK_CORE_FOUNDATION_PIECE_HASH_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace nolk {

/**
 * The hash of a text that is given piece by piece: what nolkStringHash() gives for the whole,
 * without the whole being put together anywhere.
 *
 * It starts at the length. Each four bytes are folded in as a little-endian word, and the one to
 * three bytes left at the end as one more, made of bytes with their sign.
 */
class PieceHash {
public:
    /** Begins a text of `length` bytes in all. */
    explicit PieceHash(std::size_t length) noexcept : hash_(static_cast<std::uint32_t>(length)) {}

    /** Goes on with the next bytes, of which there may be none. */
    void add(std::string_view piece) noexcept {
        std::size_t next = 0;
        if (count_ == 0) {
            for (; piece.size() - next >= sizeof pending_; next += sizeof pending_) {
                fold(littleEndianWord(piece.data() + next));
            }
        }
        for (; next < piece.size(); ++next) {
            pending_[count_++] = piece[next];
            if (count_ == sizeof pending_) {
                fold(littleEndianWord(pending_));
                count_ = 0;
            }
        }
    }

    /** The hash. @pre the whole text was added, and this is asked once */
    std::uint32_t finish() noexcept {
        if (count_ != 0) {
            fold(rest());
        }
        return hash_;
    }

private:
    static std::uint32_t unsignedByte(char byte) noexcept {
        return static_cast<unsigned char>(byte);
    }

    // Widened with its sign on every platform, whatever the sign of `char`: part of the function.
    static std::uint32_t signedByte(char byte) noexcept {
        return static_cast<std::uint32_t>(
            static_cast<std::int32_t>(static_cast<signed char>(byte)));
    }

    static std::uint32_t littleEndianWord(const char* bytes) noexcept {
        return unsignedByte(bytes[0]) | unsignedByte(bytes[1]) << 8 | unsignedByte(bytes[2]) << 16 |
               unsignedByte(bytes[3]) << 24;
    }

    std::uint32_t rest() const noexcept {
        std::uint32_t rest = 0;
        for (unsigned int i = 0; i < count_; ++i) {
            rest = rest << 8 | signedByte(pending_[i]);
        }
        return rest;
    }

    void fold(std::uint32_t word) noexcept { hash_ = std::rotl(hash_, 5) ^ word; }

    std::uint32_t hash_;
    unsigned int count_ = 0;
    char pending_[4] = {};
};

}  // namespace nolk

#endif
