/** @file
 * Short ways through a pattern beside the walks that they stand for.
 */
#ifndef NOLK_TESTS_REGEX_REGEX_WAYS_H
#define NOLK_TESTS_REGEX_REGEX_WAYS_H

#include <nolk/core/regex/RegexImp.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "RegexFlavours.h"

namespace nolk::test {

template <typename T>
RegexImp<T> compiled(const std::string& pattern) {
    const std::basic_string<T> units = widened<T>(pattern);
    return RegexImp<T>(units.data(), static_cast<unsigned>(units.size()));
}

template <typename T>
std::string searched(RegexImp<T>& regex, const std::string& text) {
    const std::basic_string<T> subject = widened<T>(text);
    auto result = RegexImp<T>::makeResult();
    regex.search(subject.data(), 0, static_cast<unsigned>(subject.size()), result);
    return told(result);
}

/** All texts of some units up to a length. */
inline std::vector<std::string> textsOf(const std::string& units, std::size_t length) {
    std::vector<std::string> all(1);
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].size() < length) {
            for (const char unit : units) {
                all.push_back(all[i] + unit);
            }
        }
    }
    return all;
}

/** Whether a pattern finds the same in each text when all of it is walked. */
template <typename T>
void expectWhatWalksFind(const std::string& pattern, const std::vector<std::string>& texts) {
    RegexImp<T> regex = compiled<T>(pattern);
    RegexImp<T> walking(regex);
    walking.walkAlways();
    for (const std::string& text : texts) {
        ASSERT_EQ(searched(regex, text), searched(walking, text)) << pattern << " on " << text;
    }
}

}  // namespace nolk::test

#endif
