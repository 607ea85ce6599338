/** @file
 * The shared buffer of long strings.
 */
#ifndef NOLK_CORE_USTRING_COUNTER_H
#define NOLK_CORE_USTRING_COUNTER_H

#include <nolk/core/AtomicCounter.h>
#include <nolk/core/Export.h>
#include <nolk/core/Types.h>

namespace nolk {

class UStringDeallocator;

/**
 * A reference-counted buffer of code units; known as `UString::Counter`.
 *
 * It either heads one block with its units right behind it, or wraps a buffer of another owner. It
 * begins with no reference and goes away when the last one is removed. References may be added and
 * removed in several threads at once. A length or capacity that isn't known is worked out when it
 * is first asked for and then kept, without a lock: ask once before a buffer is shared.
 */
class NOLK_API UStringCounter {
public:
    /** Stands for a length or capacity that isn't known. */
    static constexpr unsigned unknown = ~0u;

    /**
     * Makes one block with room for `capacity` units, copies `length` units into it, and ends them
     * with a zero unit where there is room for one. Without a source the units are left as they
     * are. @pre `length` is at most `capacity`. @throws std::bad_alloc
     */
    static UStringCounter* make(const UChar* source, unsigned length, unsigned capacity);

    /**
     * Wraps a buffer, which `deallocator` frees in the end. Neither is taken over if this throws.
     * @throws std::bad_alloc
     */
    static UStringCounter* make(UChar* buffer, unsigned length, unsigned capacity,
                                UStringDeallocator* deallocator);

    UStringCounter(const UStringCounter&) = delete;
    UStringCounter& operator=(const UStringCounter&) = delete;

    UChar* data() const noexcept { return data_; }

    /** The number of units: up to the first zero unit if it wasn't given. */
    unsigned length() const noexcept { return length_ != unknown ? length_ : measuredLength(); }
    void length(unsigned n) noexcept { length_ = n; }

    /** The number of units that there is room for; the length if it wasn't given. */
    unsigned capacity() const noexcept;

    bool empty() const noexcept { return length() == 0; }

    long references() const noexcept { return references_.references(); }
    long addReference() noexcept { return references_.addReference(); }

    /** Counts down by one; at 0 the buffer is freed along with this object. */
    long removeReference() noexcept;

private:
    UStringCounter(UChar* data, unsigned length, unsigned capacity, UStringDeallocator* deallocator)
        : data_(data), length_(length), capacity_(capacity), deallocator_(deallocator) {}
    ~UStringCounter() = default;

    unsigned measuredLength() const noexcept;
    void destroy() noexcept;

    AtomicCounter references_;
    UChar* data_;
    mutable unsigned length_;
    mutable unsigned capacity_;
    UStringDeallocator* deallocator_;  // null: the units stand behind this header in its block
};

}  // namespace nolk

#endif
