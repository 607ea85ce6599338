/** @file
 * The counter under all reference counts.
 */
#ifndef NOLK_CORE_ATOMIC_COUNTER_H
#define NOLK_CORE_ATOMIC_COUNTER_H

#include <nolk/core/StaticCtor.h>

#include <atomic>
#include <cstdint>
#include <type_traits>

namespace nolk {

/**
 * A signed 32-bit word that several threads may count up and down at once.
 *
 * Four bytes on every platform: although the interface speaks of `long`, values are cut to 32 bits
 * and wrap around at their ends. Copying and assigning aren't atomic. Nothing here throws.
 */
class AtomicCounter {
public:
    /** The tag `nolk::StaticCtor` under this class's own name; both mean the same. */
    enum StaticCtor { staticCtor };

    constexpr AtomicCounter(long n = 0) noexcept : value_(static_cast<std::int32_t>(n)) {}

    /** Leaves the word as it is: zero in static storage, or what has been counted since. */
    constexpr AtomicCounter(StaticCtor) noexcept { clearIfConstant(); }
    constexpr AtomicCounter(nolk::StaticCtor) noexcept { clearIfConstant(); }

    /** Copy the word plainly, without interlocking. */
    AtomicCounter(const AtomicCounter& other) = default;
    AtomicCounter& operator=(const AtomicCounter& other) = default;

    /** The value, read through an atomic add of 0 and so with a full fence. */
    long references() const noexcept { return word().fetch_add(0); }

    /** Count up or down by one; each returns the new value. */
    long addReference() noexcept { return ++word(); }
    long removeReference() noexcept { return --word(); }

private:
    friend class UnsafeAtomicCounter;
    using Word = std::atomic_ref<std::int32_t>;

    // A compile-time object needs a value; one made at run time keeps its bytes.
    constexpr void clearIfConstant() noexcept {
        if (std::is_constant_evaluated()) {
            value_ = 0;
        }
    }

    Word word() const noexcept { return Word(value_); }

    AtomicCounter exchange(AtomicCounter other) noexcept {
        const AtomicCounter old(word().load(std::memory_order_relaxed));
        word().exchange(other.value_);
        return old;
    }

    alignas(Word::required_alignment) mutable std::int32_t value_;
};

static_assert(sizeof(AtomicCounter) == 4);

/**
 * The public door to the exchange of a counter's value.
 *
 * "Unsafe", because the exchange as a whole isn't atomic: the old value is read and the new one is
 * stored in two separate steps, and what another thread writes between them is lost.
 */
class UnsafeAtomicCounter {
public:
    /** Stores the value of `other` in `target`, and returns what `target` held before. */
    static AtomicCounter exchange(AtomicCounter& target, AtomicCounter other) noexcept {
        return target.exchange(other);
    }
};

}  // namespace nolk

#endif
