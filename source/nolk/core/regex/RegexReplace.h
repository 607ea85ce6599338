#ifndef NOLK_CORE_REGEX_REGEX_REPLACE_H
#define NOLK_CORE_REGEX_REGEX_REPLACE_H

#include <nolk/core/RegexMatchIterator.h>

#include <algorithm>
#include <cstddef>

namespace nolk {

/**
 * Copies a text to the end of another while putting `with` in place of a group of each match. What
 * stands in front of the first match and behind the last is copied as it is.
 * @return the number of replacements
 */
template <typename Unit, typename Text, typename Iterator>
unsigned replaceMatches(const Unit* s, std::size_t size, const Text& with, unsigned count,
                        unsigned matchIndex, bool replaceEmptyMatches, Iterator& match, Text& out) {
    const auto copy = [s, &out](unsigned from, unsigned to) {
        if (from < to) {
            out.append(s + from, to - from);
        }
    };
    unsigned done = 0;
    unsigned copied = 0;
    for (const Iterator end; match != end && (count == 0 || done < count); ++match) {
        const unsigned matchStart = match->getStart(0);
        const unsigned matchEnd = matchStart + match->getLength(0);
        const unsigned groupStart = match->getStart(matchIndex);
        const unsigned groupLength = match->getLength(matchIndex);
        copy(copied, matchStart);
        if (groupStart != Iterator::npos) {
            // What a way that failed has left in a group may lie outside the match.
            copy(matchStart, std::min(groupStart, matchEnd));
            if (groupLength != 0 || replaceEmptyMatches) {
                out.append(with);
                ++done;
            }
            copy(std::max(groupStart + groupLength, matchStart), matchEnd);
        }
        copied = matchEnd;
    }
    copy(copied, static_cast<unsigned>(size));
    return done;
}

}  // namespace nolk

#endif
