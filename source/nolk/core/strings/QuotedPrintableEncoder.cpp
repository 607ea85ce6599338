// The encoder keeps a column: how many characters the current line has so far. A piece that would
// bring it to 75 goes to the next line, behind a soft break.
#include <nolk/core/QuotedPrintableEncoder.h>

#include "nolk/core/strings/HexDigits.h"

#include <array>
#include <cstring>
#include <string_view>

namespace nolk {

namespace {

constexpr std::size_t firstColumnTooMany = 75;
constexpr std::string_view softBreak = "=\r\n";
constexpr std::string_view hardBreak = "\r\n";

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

constexpr std::array<bool, 256> makeLiterals() {
    std::array<bool, 256> literals{};
    for (unsigned c = 33; c <= 126; ++c) {
        literals[c] = true;
    }
    for (const char c : std::string_view("=!\"#$@[\\]^`{|}~")) {
        literals[static_cast<unsigned char>(c)] = false;
    }
    literals[' '] = literals['\t'] = true;
    return literals;
}

// The bytes that stand for themselves.
constexpr std::array<bool, 256> literals = makeLiterals();

// Writes an encoded text into a string that has room for the longest possible one.
class Writer {
public:
    explicit Writer(std::size_t length) : text_(bound(length), '\0'), next_(text_.data()) {}

    void writeByte(unsigned char byte) {
        if (literals[byte]) {
            makeRoom(1);
            *next_++ = static_cast<char>(byte);
        } else {
            makeRoom(3);
            *next_++ = '=';
            *next_++ = upperHexDigits[byte >> 4];
            *next_++ = upperHexDigits[byte & 0xF];
        }
    }

    void writeHardBreak() {
        protectBlank();
        write(hardBreak);
        column_ = 0;
    }

    /** Cuts the text to what was written. */
    std::string finish() && {
        protectBlank();
        text_.resize(static_cast<std::size_t>(next_ - text_.data()));
        return std::move(text_);
    }

private:
    // Three characters for each byte, which is more than a hard break takes with its soft one; a
    // soft break for each line of at least 72 characters, so of 24 bytes; and one at the end.
    static std::size_t bound(std::size_t length) {
        return length * 3 + (length / 24 + 1) * softBreak.size();
    }

    void write(std::string_view piece) {
        std::memcpy(next_, piece.data(), piece.size());
        next_ += piece.size();
    }

    void makeRoom(std::size_t count) {
        column_ += count;
        if (column_ >= firstColumnTooMany) {
            write(softBreak);
            column_ = count;
        }
    }

    // No transport is trusted with a blank at the end of a line.
    void protectBlank() {
        if (next_ != text_.data() && isBlank(next_[-1])) {
            write(softBreak);
        }
    }

    std::string text_;
    char* next_;
    std::size_t column_ = 0;
};

void dropBlanks(std::string& text) {
    while (!text.empty() && isBlank(text.back())) {
        text.pop_back();
    }
}

class Decoder {
public:
    Decoder(std::string_view input, bool stripTrailingBlanks)
        : rest_(input), strips_(stripTrailingBlanks) {
        text_.reserve(input.size());
    }

    std::string decode() && {
        while (!rest_.empty()) {
            if (rest_.front() == '=') {
                decodeEquals();
            } else if (rest_.starts_with(hardBreak)) {
                decodeHardBreak();
            } else {
                copy(1);
                lineStart_ = false;
            }
        }
        stripBlanks();
        return std::move(text_);
    }

private:
    void copy(std::size_t count) {
        text_.append(rest_.substr(0, count));
        rest_.remove_prefix(count);
    }

    void decodeEquals() {
        if (rest_.size() < 3) {
            copy(rest_.size());  // what stands at the line's start, or behind it, stays so
            return;
        }
        if (rest_.starts_with(softBreak)) {
            rest_.remove_prefix(softBreak.size());
            lineStart_ = true;
            return;
        }
        const unsigned high = hexDigitValue(static_cast<unsigned char>(rest_[1]));
        const unsigned low = hexDigitValue(static_cast<unsigned char>(rest_[2]));
        if (high == noHexDigit || low == noHexDigit) {
            copy(2);
        } else {
            text_.push_back(static_cast<char>(high << 4 | low));
            rest_.remove_prefix(3);
        }
        lineStart_ = false;
    }

    void decodeHardBreak() {
        stripBlanks();
        copy(hardBreak.size());
        lineStart_ = true;
    }

    // Blanks in front of a soft break are meant to stay: behind one, a line starts anew.
    void stripBlanks() {
        if (strips_ && !lineStart_) {
            dropBlanks(text_);
        }
    }

    std::string text_;
    std::string_view rest_;
    bool strips_;
    bool lineStart_ = true;
};

}  // namespace

std::string QuotedPrintableEncoder::encode(const std::string& input) {
    Writer writer(input.size());
    for (std::size_t i = 0; i < input.size(); ++i) {
        if (input[i] == '\r' && i + 1 < input.size() && input[i + 1] == '\n') {
            writer.writeHardBreak();
            ++i;
        } else {
            writer.writeByte(static_cast<unsigned char>(input[i]));
        }
    }
    return std::move(writer).finish();
}

std::string QuotedPrintableEncoder::decode(const std::string& input, bool stripTrailingBlanks) {
    return Decoder(input, stripTrailingBlanks).decode();
}

}  // namespace nolk
