#ifndef NOLK_CORE_XML_READER_SLOTS_H
#define NOLK_CORE_XML_READER_SLOTS_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

namespace nolk {

/**
 * A list whose slots are kept and reused: clear() only resets the count, so that filling it again
 * allocates nothing until it grows beyond its longest use.
 *
 * The first entry makes room for sixteen, so that the many lists that never hold one cost no
 * memory; from there the room doubles. A list can be lent its first room by its owner instead.
 * Copying copies the live entries.
 */
template <class T>
class XmlReaderSlots {
    static_assert(std::is_trivially_copyable_v<T>, "slots are moved as bytes");

public:
    using const_iterator = const T*;

    XmlReaderSlots() = default;
    XmlReaderSlots(const XmlReaderSlots& other) { *this = other; }
    XmlReaderSlots(XmlReaderSlots&& other) noexcept { swap(other); }
    ~XmlReaderSlots() {
        if (ownsSlots()) {
            ::operator delete(slots_);
        }
    }

    XmlReaderSlots& operator=(const XmlReaderSlots& other) {
        if (this != &other) {
            clear();
            if (other.count_ > capacity_) {
                reserve(std::max(other.capacity_, firstCapacity));
            }
            copySlots(slots_, other);
            count_ = other.count_;
        }
        return *this;
    }
    XmlReaderSlots& operator=(XmlReaderSlots&& other) noexcept {
        XmlReaderSlots taken(std::move(other));
        swap(taken);
        return *this;
    }
    void swap(XmlReaderSlots& other) noexcept {
        std::swap(count_, other.count_);
        std::swap(capacity_, other.capacity_);
        std::swap(slots_, other.slots_);
    }

    /** The number of live entries. */
    std::uint32_t length() const { return count_; }

    /** The number of entries that there is room for. */
    std::uint32_t capacity() const { return capacity_; }

    /** Lends an unused list its first room, for `capacity` entries; it counts for a list that takes
     * this one's place by a move too.
     * @pre `room` outlives them and is aligned for entries; `capacity` is below sixteen. */
    void lendRoom(void* room, std::uint32_t capacity) {
        slots_ = static_cast<T*>(room);
        capacity_ = capacity;
    }

    /** Forgets the entries and keeps their slots. */
    void clear() { count_ = 0; }

    /** Adds an entry behind the last one. Throws std::bad_alloc and changes nothing if a needed
     * growth fails. */
    void append(const T& entry) {
        const T copy = entry;  // it may lie in the slots that growth replaces
        appendSlot() = copy;
    }

    /** Adds an entry to be filled in place, whose value is unknown. Throws like append(). */
    T& appendSlot() {
        T& slot = nextSlot();
        keepNextSlot();
        return slot;
    }

    /** The slot that the next entry would take, to be filled before it is known whether it comes to
     * be one. Throws like append(). */
    T& nextSlot() {
        if (count_ == capacity_) [[unlikely]] {
            grow();
        }
        return slots_[count_];
    }

    /** Makes an entry of it. @pre nextSlot() was called since the last change. */
    void keepNextSlot() { ++count_; }

    /** The slot at `index`, without a check.
     * @pre `index` is below length(), or below an earlier length of this list. */
    const T& operator[](std::uint32_t index) const { return slots_[index]; }
    T& operator[](std::uint32_t index) { return slots_[index]; }

    const_iterator begin() const { return slots_; }
    const_iterator end() const { return slots_ + count_; }

private:
    static constexpr std::uint32_t firstCapacity = 16;

    bool ownsSlots() const { return capacity_ >= firstCapacity; }

    static void copySlots(T* to, const XmlReaderSlots& from) {
        if (from.count_ != 0) {
            std::memcpy(static_cast<void*>(to), from.slots_, from.count_ * sizeof(T));
        }
    }

    [[gnu::noinline]] void grow() { reserve(std::max(firstCapacity, capacity_ * 2)); }

    // Slots get their first value when they are first used.
    void reserve(std::uint32_t capacity) {
        auto* slots = static_cast<T*>(::operator new (std::size_t{capacity} * sizeof(T)));
        copySlots(slots, *this);
        if (ownsSlots()) {
            ::operator delete(slots_);
        }
        slots_ = slots;
        capacity_ = capacity;
    }

    std::uint32_t count_ = 0;
    std::uint32_t capacity_ = 0;  // at least firstCapacity if and only if the slots are owned
    T* slots_ = nullptr;
};

}  // namespace nolk

#endif
