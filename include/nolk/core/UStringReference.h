/** @file
 * A code unit of a string that may be written to.
 */
#ifndef NOLK_CORE_USTRING_REFERENCE_H
#define NOLK_CORE_USTRING_REFERENCE_H

#include <nolk/core/Export.h>
#include <nolk/core/Types.h>

namespace nolk {

class UString;

/**
 * Stands for one unit of a UString, and is used like a `UChar&`. Known as
 * `UString::UCharReference`.
 *
 *     text[0] = text[1];
 *     text[2] ^= 0x20;
 *     swap(text[0], text[3]);
 *
 * A true `UChar&` can't tell a read from a write. Strings share their buffers and never write to
 * one, so that handing it out would copy the text each time a unit is merely looked at, and a write
 * through one that was kept would show in other strings. Here reading copies nothing, and only
 * writing gives the string a buffer of its own.
 *
 * It holds the string and the position, so it stays right while the string changes its buffer, and
 * it must not outlive the string. Where the position has gone in the meantime, writing appends. It
 * can't be copied, as two of them would still be one unit. All writes throw std::bad_alloc and then
 * leave the string as it was.
 * @pre to be read, the position lies in the string
 */
class NOLK_API UStringReference {
public:
    UStringReference(const UStringReference& other) = delete;

    operator UChar() const noexcept;

    UStringReference& operator=(UChar unit);
    UStringReference& operator=(const UStringReference& other) {
        return *this = static_cast<UChar>(other);
    }

    /** @name Change
     *  As for any integer of 16 bits without a sign.
     *  @{ */
    UStringReference& operator+=(int n) { return put(unit() + n); }
    UStringReference& operator-=(int n) { return put(unit() - n); }
    UStringReference& operator*=(int n) { return put(unit() * n); }
    UStringReference& operator/=(int n) { return put(unit() / n); }
    UStringReference& operator%=(int n) { return put(unit() % n); }
    UStringReference& operator&=(int n) { return put(unit() & n); }
    UStringReference& operator|=(int n) { return put(unit() | n); }
    UStringReference& operator^=(int n) { return put(unit() ^ n); }
    UStringReference& operator<<=(int n) { return put(unit() << n); }
    UStringReference& operator>>=(int n) { return put(unit() >> n); }
    UStringReference& operator++() { return *this += 1; }
    UStringReference& operator--() { return *this -= 1; }
    UChar operator++(int) {
        const UChar before = *this;
        ++*this;
        return before;
    }
    UChar operator--(int) {
        const UChar before = *this;
        --*this;
        return before;
    }
    /** @} */

    /** Swaps the units, of one string or of two, which stay as they were if this throws. */
    friend NOLK_API void swap(const UStringReference& a, const UStringReference& b);

private:
    friend class UString;
    friend class USubString;

    UStringReference(UString& text, unsigned position) : text_(&text), position_(position) {}

    long long unit() const noexcept { return static_cast<UChar>(*this); }
    UStringReference& put(long long n) { return *this = static_cast<UChar>(n); }

    UString* text_;
    unsigned position_;
};

}  // namespace nolk

#endif
