#ifndef NOLK_CORE_REGEX_REGEX_ANALYSIS_H
#define NOLK_CORE_REGEX_REGEX_ANALYSIS_H

#include <nolk/core/regex/RegexProgram.h>

#include <cstdint>
#include <vector>

namespace nolk {

/**
 * Finds out, once the successors are known, what a walk needn't ask again and again: where it has
 * to save decisions, and how matches begin. Whatever isn't certain is answered as it costs time and
 * not as it loses a match.
 */
template <typename T>
class RegexAnalysis {
public:
    explicit RegexAnalysis(RegexProgram<T>& program) : program_(program) {}

    void run();

private:
    // The units that a node may begin with.
    struct Units {
        RegexBitmap low;
        bool high = false;
        bool any = false;
    };

    RegexStateNode& node(std::uint32_t i) { return program_.nodes[i]; }
    void findLooks();
    void findDecisions();
    bool mayBeSkipped(const RegexStateNode& node);
    bool isExclusive(const RegexStateNode& head);
    bool excludesBefore(const RegexStateNode& head, std::uint32_t alternative);
    static bool meet(const Units& a, const Units& b);
    bool isRun(std::uint32_t group);
    bool isTextChoice(std::uint32_t head, std::uint32_t end);
    bool excludeEachOther(const RegexStateNode& a, const RegexStateNode& b) const;
    void addChoices(RegexStateNode& node, std::uint32_t from, std::uint32_t to);
    void addChoice(RegexStateNode& node, const RegexStateNode& text);
    const T* textOf(const RegexStateNode& node, T& unit) const;
    Units unitsOf(const RegexStateNode& node) const;
    Units look(const RegexStateNode& node) const;
    void findFirstUnits();
    void visit(std::uint32_t i);
    void leave(std::uint32_t group);
    void findStraight();
    bool isStraight(std::uint32_t from, std::uint32_t to, std::uint32_t outer);
    bool isStraightChoice(std::uint32_t head, std::uint32_t to, std::uint32_t outer);
    bool isStraightGroup(std::uint32_t group);
    bool leadsTo(std::uint32_t i, std::uint32_t target);
    void findLeadingRun();
    static bool isPlain(const RegexStateNode& node);
    static bool isPlainUnit(const RegexStateNode& node);

    RegexProgram<T>& program_;
    std::vector<bool> isVisited_;
    std::vector<bool> isLeft_;
    std::vector<std::uint32_t> toVisit_;
    unsigned nested_ = 0;  // groups that isStraightGroup() is in
};

extern template class RegexAnalysis<char>;
extern template class RegexAnalysis<UChar>;

}  // namespace nolk

#endif
