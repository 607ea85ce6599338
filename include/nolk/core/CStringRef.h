/** @file
 * The header of a byte string's buffer.
 */
#ifndef NOLK_CORE_CSTRING_REF_H
#define NOLK_CORE_CSTRING_REF_H

#include <nolk/core/AtomicCounter.h>
#include <nolk/core/Export.h>

#include <atomic>
#include <cstdint>
#include <type_traits>

#if __has_include(<ext/atomicity.h>)
#include <ext/atomicity.h>
#endif

namespace nolk {

/**
 * What stands in memory directly in front of the characters of a CString.
 *
 *     | capacity | length | references | c h a r a c t e r s ... 0 |
 *
 * There is room for capacity + 1 bytes, and a zero byte follows the last character. Strings share
 * buffers on the heap and count themselves here; the count may change in several threads at once,
 * all else belongs to whoever owns the only reference. Never used by itself.
 */
class NOLK_API CStringRef {
public:
    /**
     * A buffer on the heap with room for `capacity` characters, a count of 1, this length and the
     * terminator; the characters are for the caller to write. Freed as an array of `char`.
     * @pre length <= capacity @throws std::bad_alloc
     */
    static CStringRef* getRep(unsigned capacity, unsigned length);

    char* data() noexcept { return reinterpret_cast<char*>(this) + sizeof *this; }
    const char* data() const noexcept { return reinterpret_cast<const char*>(this) + sizeof *this; }
    unsigned length() const noexcept { return length_; }
    unsigned capacity() const noexcept { return capacity_; }

    /** @name The count of strings
     * Counting gives the new count. The unsafe forms don't interlock: only for a buffer that no
     * other thread knows. None of them frees the buffer. @{ */
    long references() const noexcept { return references_.references(); }
    long addReference() noexcept { return references_.addReference(); }
    long removeReference() noexcept { return references_.removeReference(); }
    long unsafeAddReference() noexcept { return unsafeCount(+1); }
    long unsafeRemoveReference() noexcept { return unsafeCount(-1); }
    void setRefCount(long count) noexcept { references_ = AtomicCounter(count); }
    /** @} */

    /** The position of the first and of the last byte equal to `c`; `CString::npos` for none. */
    unsigned first(char c) const noexcept;
    unsigned last(char c) const noexcept;

    /** The hash functions of CString: of the bytes, and of their upper case. */
    unsigned hash() const noexcept;
    unsigned hashFoldCase() const noexcept;

    /** `strcoll` of the characters, up to the first zero byte, and the text. */
    int collate(const char* text) const noexcept;

private:
    friend class CString;
    using Count = std::atomic_ref<std::int32_t>;

    // The words are for the string to write.
    CStringRef() noexcept : references_(AtomicCounter::staticCtor) {}
    CStringRef(unsigned capacity, unsigned length) noexcept
        : capacity_(capacity), length_(length), references_(1) {}

    // The word inside the counter: a standard-layout object begins with its only member.
    static_assert(std::is_standard_layout_v<AtomicCounter> && sizeof(AtomicCounter) == 4);
    Count count() const noexcept {
        return Count(reinterpret_cast<std::int32_t&>(const_cast<AtomicCounter&>(references_)));
    }

    // Whether another string knows this buffer. Sees what a string that has left it did before;
    // unlike references() it costs no interlocked operation.
    bool isShared() const noexcept { return count().load(std::memory_order_acquire) > 1; }

    // Whether this is the only thread that the process ever had. An interlocked operation takes
    // longer than all else about a copy, and where nobody else is there, nobody sees a difference.
    static bool isOnlyThread() noexcept {
#if __has_include(<ext/atomicity.h>)
        return __gnu_cxx::__is_single_threaded();
#else
        return false;
#endif
    }

    void join() noexcept {
        if (isOnlyThread()) {
            unsafeAddReference();
        } else {
            addReference();
        }
    }
    // Whether nobody is left.
    bool leave() noexcept {
        if (!isShared()) {
            return true;
        }
        return (isOnlyThread() ? unsafeRemoveReference() : removeReference()) == 0;
    }

    long unsafeCount(std::int32_t step) noexcept {
        const std::int32_t now = count().load(std::memory_order_relaxed) + step;
        count().store(now, std::memory_order_relaxed);
        return now;
    }

    static void destroy(CStringRef* buffer) noexcept;

    std::uint32_t capacity_;
    std::uint32_t length_;
    AtomicCounter references_;
};

static_assert(sizeof(CStringRef) == 12);

}  // namespace nolk

#endif
