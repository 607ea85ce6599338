/** @file
 * A naive matcher, and patterns and texts to compare it with.
 */
#ifndef NOLK_TESTS_REGEX_REGEX_ORACLE_H
#define NOLK_TESTS_REGEX_REGEX_ORACLE_H

#include <functional>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace nolk::test {

/** A part of a pattern, and how often it is to be there. */
struct Part {
    enum Kind { characters, any, literal, sequence, alternation } kind = characters;
    std::string text;         ///< the members of a set, or a literal
    std::vector<Part> parts;  ///< of a sequence (a group) or an alternation (a group of literals)
    unsigned min = 1;
    unsigned max = 1;
    int group = -1;  ///< the number of the group
};

inline constexpr unsigned noBound = ~0u;

/** How a part is written. */
inline std::string written(const Part& part) {
    std::string text;
    switch (part.kind) {
        case Part::characters:
            text = part.text.size() == 1 ? part.text : "[" + part.text + "]";
            break;
        case Part::any:
            text = ".";
            break;
        case Part::literal:
            text = part.text;
            break;
        case Part::sequence:
        case Part::alternation:
            for (const Part& inner : part.parts) {
                text += (part.kind == Part::alternation && &inner != &part.parts[0] ? "|" : "") +
                        written(inner);
            }
            text = "(" + text + ")";
            break;
    }
    if (part.min == 0 && part.max == 1) {
        return text + "?";
    }
    if (part.max == noBound && part.min < 2) {
        return text + (part.min == 0 ? "*" : "+");
    }
    if (part.min != 1 || part.max != 1) {
        return text + "{" + std::to_string(part.min) +
               (part.max == part.min ? "}" : "," + std::to_string(part.max) + "}");
    }
    return text;
}

/** Where a group was found last. */
struct Place {
    int start = -1;
    int end = -1;
    bool operator==(const Place&) const = default;
};

/**
 * Finds matches by trying everything, in order: the most iterations first, and of the alternatives
 * that stand here the first in the rotation's order, then the others from the last to the second.
 */
class NaiveMatcher {
public:
    NaiveMatcher(const std::vector<Part>& pattern, unsigned groups)
        : pattern_(pattern), groups_(groups) {
        countAlternatives(pattern);
    }

    /** The match that begins first, and there the longest over the rotations. */
    bool search(const std::string& text, std::vector<Place>& found) {
        text_ = text;
        for (std::size_t start = 0; start <= text.size(); ++start) {
            if (attempt(start, found)) {
                return true;
            }
        }
        return false;
    }

    bool attempt(std::size_t start, std::vector<Place>& found) {
        bool any = false;
        for (std::size_t i = 0; i < rotations_.size(); ++i) {
            rotated_ = rotations_[i].first;
            choice_ = rotations_[i].second;
            places_.assign(groups_ + 1, Place());
            places_[0].start = static_cast<int>(start);
            if (matchParts(pattern_, 0, start,
                           [this](std::size_t end) {
                               places_[0].end = static_cast<int>(end);
                               return true;
                           }) &&
                (!any || places_[0].end > found[0].end)) {
                any = true;
                found = places_;
            }
        }
        return any;
    }

private:
    using Then = std::function<bool(std::size_t)>;

    void countAlternatives(const std::vector<Part>& parts) {
        if (rotations_.empty()) {
            rotations_.push_back({nullptr, 0});
        }
        for (const Part& part : parts) {
            if (part.kind == Part::sequence) {
                countAlternatives(part.parts);
            } else if (part.kind == Part::alternation) {
                for (std::size_t i = 1; i < part.parts.size(); ++i) {
                    rotations_.push_back({&part, i});
                }
            }
        }
    }

    bool matchParts(const std::vector<Part>& parts, std::size_t i, std::size_t at,
                    const Then& then) {
        return i == parts.size() ? then(at)
                                 : matchRepeated(parts[i], 0, at, [&, i](std::size_t end) {
                                       return matchParts(parts, i + 1, end, then);
                                   });
    }

    bool matchRepeated(const Part& part, unsigned count, std::size_t at, const Then& then) {
        if (count < part.max && matchOnce(part, at, [&](std::size_t end) {
                return matchRepeated(part, count + 1, end, then);
            })) {
            return true;
        }
        return count >= part.min && then(at);
    }

    bool matchOnce(const Part& part, std::size_t at, const Then& then) {
        switch (part.kind) {
            case Part::characters:
                return at < text_.size() && part.text.find(text_[at]) != std::string::npos &&
                       then(at + 1);
            case Part::any:
                return at < text_.size() && text_[at] != '\n' && then(at + 1);
            case Part::literal:
                return text_.compare(at, part.text.size(), part.text) == 0 &&
                       then(at + part.text.size());
            case Part::sequence:
                return matchParts(part.parts, 0, at, closing(part, at, then));
            default:
                return matchAlternatives(part, at, closing(part, at, then));
        }
    }

    // Captures the group, and takes that back where what follows fails.
    Then closing(const Part& part, std::size_t at, const Then& then) {
        return [this, &part, at, &then](std::size_t end) {
            const Place before = places_[static_cast<std::size_t>(part.group)];
            places_[static_cast<std::size_t>(part.group)] = {static_cast<int>(at),
                                                             static_cast<int>(end)};
            if (then(end)) {
                return true;
            }
            places_[static_cast<std::size_t>(part.group)] = before;
            return false;
        };
    }

    bool matchAlternatives(const Part& part, std::size_t at, const Then& then) {
        const std::size_t count = part.parts.size();
        std::vector<std::size_t> here;
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t number = (i + (rotated_ == &part ? choice_ : 0)) % count;
            const std::string& text = part.parts[number].text;
            if (text_.compare(at, text.size(), text) == 0) {
                here.push_back(at + text.size());
            }
        }
        if (!here.empty() && then(here[0])) {
            return true;
        }
        for (std::size_t i = here.size(); i-- > 1;) {
            if (then(here[i])) {
                return true;
            }
        }
        return false;
    }

    const std::vector<Part>& pattern_;
    unsigned groups_;
    std::vector<std::pair<const Part*, std::size_t>> rotations_;
    const Part* rotated_ = nullptr;
    std::size_t choice_ = 0;
    std::string text_;
    std::vector<Place> places_;
};

/** Says of any pattern what it may match at all: every end of a match that begins at a place. */
class NaiveEnds {
public:
    explicit NaiveEnds(const std::string& text) : text_(text) {}

    std::set<std::size_t> of(const std::vector<Part>& parts, std::size_t at) const {
        std::set<std::size_t> ends{at};
        for (const Part& part : parts) {
            std::set<std::size_t> next;
            for (const std::size_t end : ends) {
                next.merge(repeated(part, end));
            }
            ends = next;
        }
        return ends;
    }

private:
    std::set<std::size_t> once(const Part& part, std::size_t at) const {
        switch (part.kind) {
            case Part::characters:
            case Part::any: {
                const bool fits =
                    at < text_.size() &&
                    (part.kind == Part::any ? text_[at] != '\n'
                                            : part.text.find(text_[at]) != std::string::npos);
                return fits ? std::set<std::size_t>{at + 1} : std::set<std::size_t>{};
            }
            case Part::literal:
                return text_.compare(at, part.text.size(), part.text) == 0
                           ? std::set<std::size_t>{at + part.text.size()}
                           : std::set<std::size_t>{};
            case Part::sequence:
                return of(part.parts, at);
            default: {
                std::set<std::size_t> ends;
                for (const Part& alternative : part.parts) {
                    ends.merge(repeated(alternative, at));
                }
                return ends;
            }
        }
    }

    std::set<std::size_t> repeated(const Part& part, std::size_t at) const {
        std::set<std::size_t> all;
        std::set<std::size_t> current{at};
        if (part.min == 0) {
            all.insert(at);
        }
        const unsigned most =
            part.max == noBound ? part.min + 2 + unsigned(text_.size()) : part.max;
        for (unsigned count = 1; count <= most && !current.empty(); ++count) {
            std::set<std::size_t> next;
            for (const std::size_t end : current) {
                next.merge(once(part, end));
            }
            current = next;
            if (count >= part.min) {
                all.insert(current.begin(), current.end());
            }
        }
        return all;
    }

    const std::string& text_;
};

/** Makes patterns over the letters a to c. */
class PatternMaker {
public:
    explicit PatternMaker(unsigned seed) : random_(seed) {}

    /** How many groups the last pattern has. */
    unsigned groups() const { return groups_; }

    /**
     * A pattern whose match is fixed: no group in it ends with something that may be there more or
     * less often, and alternatives are literals.
     */
    std::vector<Part> fixedPattern() {
        groups_ = 0;
        std::vector<Part> parts;
        const unsigned count = 1 + below(4);
        for (unsigned i = 0; i < count; ++i) {
            parts.push_back(below(3) == 0 ? fixedGroup(1) : character(true));
        }
        return parts;
    }

    /** Any pattern of groups, repetitions and alternations, nested up to a depth. */
    std::vector<Part> anyPattern(unsigned depth) {
        groups_ = 0;
        return anySequence(depth);
    }

    std::string text(unsigned longest) {
        std::string text;
        for (unsigned length = below(longest + 1); length > 0; --length) {
            text += static_cast<char>('a' + below(3));
        }
        return text;
    }

    unsigned below(unsigned n) { return static_cast<unsigned>(random_() % n); }

private:
    void repeat(Part& part) {
        static const unsigned bounds[][2] = {{1, 1}, {1, 1}, {1, 1}, {0, noBound}, {1, noBound},
                                             {0, 1}, {2, 2}, {1, 3}, {2, 3}};
        const auto& bound = bounds[below(9)];
        part.min = bound[0];
        part.max = bound[1];
    }

    Part character(bool mayRepeat) {
        static const char* const sets[] = {"a", "b", "c", "ab", "bc", "ac"};
        Part part;
        const unsigned kind = below(7);
        part.kind = kind == 6 ? Part::any : Part::characters;
        part.text = kind == 6 ? "" : sets[kind];
        if (mayRepeat) {
            repeat(part);
        }
        return part;
    }

    Part literal() {
        Part part;
        part.kind = Part::literal;
        for (unsigned length = 1 + below(3); length > 0; --length) {
            part.text += static_cast<char>('a' + below(3));
        }
        return part;
    }

    Part fixedGroup(unsigned depth) {
        Part group;
        group.group = static_cast<int>(++groups_);
        if (below(2) == 0) {
            group.kind = Part::alternation;
            for (unsigned count = 2 + below(2); count > 0; --count) {
                group.parts.push_back(literal());
            }
            group.parts[below(2)].text += "ab";  // so that not all have one character
        } else {
            group.kind = Part::sequence;
            for (unsigned count = below(3); count > 0; --count) {
                group.parts.push_back(depth > 0 && below(4) == 0 ? fixedGroup(depth - 1)
                                                                 : character(true));
            }
            group.parts.push_back(character(false));
        }
        repeat(group);
        return group;
    }

    std::vector<Part> anySequence(unsigned depth) {
        std::vector<Part> parts;
        for (unsigned count = 1 + below(3); count > 0; --count) {
            parts.push_back(depth > 0 && below(2) == 0 ? anyGroup(depth - 1) : character(true));
        }
        return parts;
    }

    Part anyGroup(unsigned depth) {
        Part group;
        group.group = static_cast<int>(++groups_);
        if (below(3) == 0) {
            group.kind = Part::alternation;
            for (unsigned count = 2 + below(2); count > 0; --count) {
                group.parts.push_back(below(2) == 0 ? literal() : character(true));
            }
        } else {
            group.kind = Part::sequence;
            group.parts = anySequence(depth);
        }
        repeat(group);
        return group;
    }

    std::mt19937 random_;
    unsigned groups_ = 0;
};

inline std::string written(const std::vector<Part>& parts) {
    std::string text;
    for (const Part& part : parts) {
        text += written(part);
    }
    return text;
}

}  // namespace nolk::test

#endif
