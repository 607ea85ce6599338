/** @file
 * Tests that both flavours pass: texts are told as ASCII and widened.
 */
#ifndef NOLK_TESTS_REGEX_REGEX_FLAVOURS_H
#define NOLK_TESTS_REGEX_REGEX_FLAVOURS_H

#include <nolk/core/Regex.h>

#include <gtest/gtest.h>

#include <string>

namespace nolk::test {

using Flavours = testing::Types<char, UChar>;

template <typename T>
std::basic_string<T> widened(const std::string& text) {
    std::basic_string<T> wide;
    for (const char c : text) {
        wide += static_cast<T>(static_cast<unsigned char>(c));
    }
    return wide;
}

/** All places of a result: "0/4 2/2 -", `-` where nothing is, `-/n` if that had a length. */
template <typename T>
std::string told(const RegexResult<T>& result) {
    std::string text;
    for (unsigned i = 0; i < result.size(); ++i) {
        const unsigned length = result.getLength(i);
        text += i == 0 ? "" : " ";
        if (result.getStart(i) == RegexResult<T>::npos) {
            text += length == 0 ? "-" : "-/" + std::to_string(length);
        } else {
            text += std::to_string(result.getStart(i)) + "/" + std::to_string(length);
        }
    }
    return text;
}

/** What a search finds. */
template <typename T>
std::string found(const std::string& pattern, const std::string& text, unsigned start = 0,
                  unsigned end = ~0u) {
    Regex<T> regex(widened<T>(pattern));
    return told(regex.search(widened<T>(text), start, end));
}

/** Code and offset of the failure that a pattern leads to: "12@2"; "" if it is a good one. */
template <typename T>
std::string fault(const std::basic_string<T>& pattern) {
    try {
        Regex<T> regex(pattern);
        return "";
    } catch (const RegexException& failure) {
        return std::to_string(failure.getCode()) + "@" + std::to_string(failure.getOffset());
    }
}

}  // namespace nolk::test

#endif
