/** @file
 * Walks over the code points of a string.
 */
#ifndef NOLK_CORE_USTRING_CONST_ITERATOR_H
#define NOLK_CORE_USTRING_CONST_ITERATOR_H

#include <nolk/core/Export.h>
#include <nolk/core/Types.h>
#include <nolk/core/UString.h>

namespace nolk {

class UStringIterator;

/**
 * A position in a UString that moves by code points.
 *
 * It must not outlive the string. The end is where it was when the iterator was made, or where it
 * is now if the string has become shorter. Moves and reads throw Exception if the iterator was
 * default constructed, OutOfBoundsException at the end that they would cross, and
 * ConversionException at a surrogate without its partner, which a move steps over all the same.
 */
class NOLK_API UStringConstIterator {
public:
    UStringConstIterator() noexcept = default;
    UStringConstIterator(const UString& text) noexcept : UStringConstIterator(text, 0) {}
    UStringConstIterator(const UStringIterator& other) noexcept;

    /** The code point here. */
    UChar32 operator*() const;

    UStringConstIterator& operator++();
    UStringConstIterator& operator--();
    UStringConstIterator operator++(int);
    UStringConstIterator operator--(int);
    /** Moves `n` code points forward, or -`n` back. */
    UStringConstIterator& advanceCodePoints(int n);

    /** The unit here; null if the iterator was default constructed. */
    const UChar* data() const noexcept;
    /** The position in units. */
    operator unsigned() const noexcept { return position_; }

    /** Whether both are at the same position of the same string. */
    friend bool operator==(const UStringConstIterator& a, const UStringConstIterator& b) noexcept {
        return a.text_ == b.text_ && a.position_ == b.position_;
    }

private:
    friend class UString;
    friend class URegexResult;

    UStringConstIterator(const UString& text, unsigned position) noexcept
        : text_(&text), length_(text.length()), position_(position) {}

    const UString* text_ = nullptr;
    unsigned length_ = 0;
    unsigned position_ = 0;
};

}  // namespace nolk

#endif
