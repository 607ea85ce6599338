#include <nolk/core/regex/RegexTriedList.h>

#include <algorithm>

namespace nolk {

namespace {

std::uint64_t mixed(std::uint64_t hash, std::uint64_t value) {
    hash = (hash ^ value) * 0x9E3779B97F4A7C15;
    return hash ^ hash >> 29;
}

std::uint64_t address(const void* p) {
    return reinterpret_cast<std::uintptr_t>(p);
}

}  // namespace

template <typename T>
void RegexTriedList<T>::clear() noexcept {
    if (entries_.empty()) {
        return;
    }
    entries_.clear();
    progress_.clear();
    if (++generation_ == 0) {
        slots_.clear();  // the marks of long ago would look new
    }
}

template <typename T>
std::uint32_t RegexTriedList<T>::hash(const Entry& entry, const Progress* progress) const noexcept {
    std::uint64_t hash = mixed(address(entry.position), entry.resume);
    hash = mixed(hash, entry.alternative);
    hash = mixed(hash, entry.node);
    for (std::uint32_t i = 0; i < entry.depth; ++i) {
        hash = mixed(hash, progress[i].count);
        hash = mixed(hash, address(progress[i].lastPosition));
        hash = mixed(hash, address(progress[i].captureStart));
        hash = mixed(hash, address(progress[i].groupEnd));
    }
    return static_cast<std::uint32_t>(hash ^ hash >> 32);
}

template <typename T>
bool RegexTriedList<T>::isSame(const Entry& known, const Entry& entry,
                               const Progress* progress) const noexcept {
    return known.position == entry.position && known.resume == entry.resume &&
           known.alternative == entry.alternative && known.kind == entry.kind &&
           known.node == entry.node &&
           std::equal(progress, progress + entry.depth, progress_.data() + known.snapshot);
}

template <typename T>
typename RegexTriedList<T>::Slot& RegexTriedList<T>::freeSlot(std::uint32_t hash) noexcept {
    const std::uint32_t mask = slots_.size() - 1;
    std::uint32_t i = hash & mask;
    while (slots_[i].generation == generation_) {
        i = (i + 1) & mask;
    }
    return slots_[i];
}

template <typename T>
bool RegexTriedList<T>::enter(const RegexDecision<T>& decision, const Progress* progress,
                              std::uint32_t depth) {
    looks_ += looks_ != ~std::uint32_t{0};
    if (entries_.size() == mostEntries) {
        clear();
    }
    if (entries_.size() * 2 >= slots_.size()) {
        grow();
    }
    Entry entry{decision.position, decision.node, decision.resume,  decision.alternative,
                decision.kind,     depth,         progress_.size(), 0};
    entry.hash = hash(entry, progress);
    const std::uint32_t mask = slots_.size() - 1;
    for (std::uint32_t i = entry.hash & mask; slots_[i].generation == generation_;
         i = (i + 1) & mask) {
        const Entry& known = entries_[slots_[i].entry];
        if (known.hash == entry.hash && isSame(known, entry, progress)) {
            return false;
        }
    }
    add(entry, progress);
    return true;
}

template <typename T>
void RegexTriedList<T>::add(Entry entry, const Progress* progress) {
    if (entry.depth != 0) {
        std::copy(progress, progress + entry.depth, progress_.extend(entry.depth));
    }
    entries_.push(entry);
    freeSlot(entry.hash) = {generation_, entries_.size() - 1};
}

template <typename T>
void RegexTriedList<T>::grow() {
    const std::uint32_t size = std::max(firstSlots, slots_.size() * 2);
    slots_.fill(size, {0, 0});
    generation_ = 1;
    for (std::uint32_t i = 0; i < entries_.size(); ++i) {
        freeSlot(entries_[i].hash) = {generation_, i};
    }
}

template class RegexTriedList<char>;
template class RegexTriedList<UChar>;

}  // namespace nolk
