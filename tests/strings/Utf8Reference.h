/** @file
 * UTF-8 by its definition, for tests: which sequences there are is read from the standard's table
 * of well-formed ones, and what is wrong with others from how far they could have gone on.
 */
#ifndef NOLK_TESTS_STRINGS_UTF8_REFERENCE_H
#define NOLK_TESTS_STRINGS_UTF8_REFERENCE_H

#include <nolk/core/Types.h>

#include <cstdint>
#include <string>
#include <vector>

namespace nolk::test {

using Units = std::basic_string<UChar>;

/** What comes of a text: its units, those in front of a mistake, and the mistake's message. */
struct Utf8Result {
    Units units;
    std::string mistake;
    std::size_t at = 0;  // where the mistake begins, or the length
};

struct ByteRange {
    unsigned first;
    unsigned last;
    bool has(char c) const {
        const unsigned byte = static_cast<unsigned char>(c);
        return byte >= first && byte <= last;
    }
};

/** The standard's table of well-formed byte sequences. */
inline const std::vector<std::vector<ByteRange>>& wellFormedSequences() {
    static const std::vector<std::vector<ByteRange>> rows = {
        {{0x00, 0x7F}},
        {{0xC2, 0xDF}, {0x80, 0xBF}},
        {{0xE0, 0xE0}, {0xA0, 0xBF}, {0x80, 0xBF}},
        {{0xE1, 0xEC}, {0x80, 0xBF}, {0x80, 0xBF}},
        {{0xED, 0xED}, {0x80, 0x9F}, {0x80, 0xBF}},
        {{0xEE, 0xEF}, {0x80, 0xBF}, {0x80, 0xBF}},
        {{0xF0, 0xF0}, {0x90, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}},
        {{0xF1, 0xF3}, {0x80, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}},
        {{0xF4, 0xF4}, {0x80, 0x8F}, {0x80, 0xBF}, {0x80, 0xBF}},
    };
    return rows;
}

/** The length of the well-formed sequence at `at`; 0 if there is none. */
inline std::size_t wellFormedLength(const std::string& text, std::size_t at) {
    for (const std::vector<ByteRange>& row : wellFormedSequences()) {
        std::size_t i = 0;
        while (i < row.size() && at + i < text.size() && row[i].has(text[at + i])) {
            ++i;
        }
        if (i == row.size()) {
            return i;
        }
    }
    return 0;
}

/** The bits that a sequence carries, read off the bytes one bit at a time. */
inline std::uint32_t bitsOf(const std::string& sequence) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < sequence.size(); ++i) {
        const int carried = sequence.size() == 1 ? 7 : i > 0 ? 6 : 7 - int(sequence.size());
        for (int bit = carried - 1; bit >= 0; --bit) {
            value = value * 2 + (static_cast<unsigned char>(sequence[i]) >> bit & 1);
        }
    }
    return value;
}

inline void appendUtf16(Units& units, std::uint32_t c) {
    if (c < 0x10000) {
        units += static_cast<UChar>(c);
    } else {
        units += static_cast<UChar>(0xD800 + (c - 0x10000) / 0x400);
        units += static_cast<UChar>(0xDC00 + (c - 0x10000) % 0x400);
    }
}

/** The message about the sequence at `at`, which isn't well-formed. */
inline std::string mistakeAt(const std::string& text, std::size_t at) {
    const ByteRange continuation = {0x80, 0xBF};
    const ByteRange leads[] = {
        {0xC0, 0xDF}, {0xE0, 0xEF}, {0xF0, 0xF7}, {0xF8, 0xFB}, {0xFC, 0xFD}};
    std::size_t length = 1;
    for (std::size_t i = 0; i < 5; ++i) {
        length = leads[i].has(text[at]) ? i + 2 : length;
    }
    std::size_t last = at;
    bool complete = true;
    for (std::size_t i = at + 1; complete && i < at + length; ++i) {
        complete = i < text.size() && continuation.has(text[i]);
        last = i < text.size() ? i : last;
    }
    const ByteRange surrogates = {0xA0, 0xBF};
    const std::string places = std::to_string(at) + " through " + std::to_string(last);
    if (!complete) {
        return "[CONVERSION_INCOMPLETE_SEQUENCE] The byte values at elements " + places +
               " form an incomplete encoding sequence";
    }
    if (text[at] == '\xED' && surrogates.has(text[at + 1])) {
        return "[CONVERSION_IRREGULAR_SEQUENCE] The UTF-8 multibyte sequence at elements " +
               places + " encode a non-character value";
    }
    return "[CONVERSION_ILLEGAL_SEQUENCE] The byte values at elements " + places +
           " form an illegal encoding sequence";
}

inline Utf8Result decodeByDefinition(const std::string& text) {
    Utf8Result result;
    while (result.at < text.size()) {
        const std::size_t length = wellFormedLength(text, result.at);
        if (length == 0) {
            result.mistake = mistakeAt(text, result.at);
            return result;
        }
        appendUtf16(result.units, bitsOf(text.substr(result.at, length)));
        result.at += length;
    }
    return result;
}

/** A value of up to 21 bits in the shortest form that holds it, surrogates too. */
inline std::string encodeByDefinition(std::uint32_t c) {
    if (c < 0x80) {
        return {static_cast<char>(c)};
    }
    std::string tail;
    std::uint32_t left = c;
    std::uint32_t room = 0x40;  // what the first byte holds, when there is one more behind it
    do {
        tail.insert(tail.begin(), static_cast<char>(0x80 + left % 64));
        left /= 64;
        room /= 2;
    } while (left >= room);
    const unsigned mark = 0x100 - room * 2;
    tail.insert(tail.begin(), static_cast<char>(mark + left));
    return tail;
}

/** Bytes at and beside each border between the kinds of bytes. */
inline const std::vector<unsigned>& borderBytes() {
    static const std::vector<unsigned> bytes = {0x00, 0x41, 0x7F, 0x80, 0x81, 0x8F, 0x90, 0x9F,
                                                0xA0, 0xBF, 0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xE1,
                                                0xEC, 0xED, 0xEE, 0xEF, 0xF0, 0xF1, 0xF3, 0xF4,
                                                0xF5, 0xF7, 0xF8, 0xFB, 0xFC, 0xFD, 0xFE, 0xFF};
    return bytes;
}

/** Texts to put a sequence among, so that it comes to stand at every place of a block. */
inline const std::vector<std::string>& fillers() {
    static const std::vector<std::string> texts = {"a", "\xC3\xA9", "\xE2\x82\xAC",
                                                   "\xF0\x9F\x98\x80"};
    return texts;
}

inline std::string repeated(const std::string& text, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

}  // namespace nolk::test

#endif
