#include <nolk/core/regex/RegexAlternator.h>

#include <algorithm>

namespace nolk {

std::uint32_t RegexAlternator::open() {
    const std::uint32_t alternation = records_.size();
    const std::uint32_t outer = open_.empty() ? noChoice : open_.back().choice;
    const bool isRecorded = outer == noChoice ? !rotations_.empty() : open_.back().isRecorded;
    records_.push({0, 0});
    open_.push({alternation, outer, outer, isRecorded});
    return alternation;
}

void RegexAlternator::addAlternative(std::uint32_t node) {
    Record& record = records_[open_.back().alternation];
    ++record.count;
    alternatives_.push({open_.back().alternation, node});
}

// Everything inside one alternative has its choices, and the first to say so enters them: whether
// they are entered goes from an alternation to those inside it when it opens, and back when they
// close.
void RegexAlternator::record() {
    Open& current = open_.back();
    if (!current.isRecorded) {
        rotations_.push(current.choice);
        current.isRecorded = true;
    }
    for (std::uint32_t i = open_.size() - 1; i > 0; --i) {
        Open& around = open_[i - 1];
        if (around.choice != current.choice || around.isRecorded) {
            break;
        }
        around.isRecorded = true;
    }
}

void RegexAlternator::nextAlternative() {
    record();
    Open& current = open_.back();
    const std::uint32_t previous =
        current.choice == current.outer ? 0 : choices_[current.choice].alternative;
    current.choice = choices_.size();
    choices_.push({current.alternation, previous + 1, current.outer});
    current.isRecorded = false;
}

void RegexAlternator::close() {
    record();
    open_.pop();
}

void RegexAlternator::finish() {
    std::stable_sort(
        alternatives_.begin(), alternatives_.end(),
        [](const Alternative& a, const Alternative& b) { return a.alternation < b.alternation; });
    std::uint32_t first = 0;
    for (Record& record : records_) {
        record.first = first;
        first += record.count;
    }
}

}  // namespace nolk
