#include <nolk/core/regex/RegexBracketSet.h>

#include <nolk/core/URegexCategory.h>

#include <algorithm>

namespace nolk {

template <typename T>
void RegexBracketSet<T>::addRange(T a, T b) {
    const int low = std::min(Unit::order(a), Unit::order(b));
    const int high = std::max(Unit::order(a), Unit::order(b));
    if constexpr (Unit::isWide) {
        bitmap_.addRange(static_cast<unsigned>(low), static_cast<unsigned>(std::min(high, 255)));
        if (high > 255) {
            ranges_.push_back(
                {static_cast<std::uint16_t>(std::max(low, 256)), static_cast<std::uint16_t>(high)});
        }
    } else {
        for (int order = low; order <= high; ++order) {
            bitmap_.add(Unit::value(Unit::fromOrder(order)));
        }
    }
}

template <typename T>
void RegexBracketSet<T>::addCategoriesToBitmap() {
    for (unsigned unit = 0; unit < 256; ++unit) {
        if ((categories_ >> uregexCategory(static_cast<UChar>(unit)) & 1) != 0) {
            bitmap_.add(unit);
        }
    }
}

template <typename T>
void RegexBracketSet<T>::finish() {
    if (categories_ != 0) {
        addCategoriesToBitmap();
    }
    mayContainHigh_ = isNegated_ || categories_ != 0 || !ranges_.empty();
    for (const RegexBracketSet& member : members_) {
        bitmap_.addAll(member.bitmap_);
        mayContainHigh_ |= member.mayContainHigh_;
    }
    if (isNegated_) {
        bitmap_.invert();
    }
    for (const RegexBracketSet& set : subtrahend_) {
        bitmap_.removeAll(set.bitmap_);
    }
}

template <typename T>
bool RegexBracketSet<T>::isHighMember(unsigned unit) const {
    for (const Range& range : ranges_) {
        if (unit >= range.low && unit <= range.high) {
            return true;
        }
    }
    if (categories_ != 0 && (categories_ >> uregexCategory(static_cast<UChar>(unit)) & 1) != 0) {
        return true;
    }
    return std::any_of(members_.begin(), members_.end(),
                       [unit](const RegexBracketSet& set) { return set.containsHigh(unit); });
}

template <typename T>
bool RegexBracketSet<T>::containsHigh(unsigned unit) const {
    return isHighMember(unit) != isNegated_ &&
           std::none_of(subtrahend_.begin(), subtrahend_.end(),
                        [unit](const RegexBracketSet& set) { return set.containsHigh(unit); });
}

template class RegexBracketSet<char>;
template class RegexBracketSet<UChar>;

}  // namespace nolk
