/** @file
 * Walks over the code points of a string and replaces them.
 */
#ifndef NOLK_CORE_USTRING_ITERATOR_H
#define NOLK_CORE_USTRING_ITERATOR_H

#include <nolk/core/Export.h>
#include <nolk/core/Types.h>
#include <nolk/core/UString.h>
#include <nolk/core/UStringConstIterator.h>

namespace nolk {

/**
 * The same as UStringConstIterator, over a string that may be written to.
 *
 *     for (UStringIterator i(text); i != text.endCodePointIterator(); ++i) {
 *         if (*i == 0x20UL) *i = 0x1F600UL;  // one unit becomes two, and i knows
 *     }
 */
class NOLK_API UStringIterator {
public:
    /**
     * Stands for the code point at an iterator, which it must not outlive. Reading and writing
     * throw as the iterator does.
     */
    class NOLK_API UChar32Reference {
    public:
        UChar32Reference(const UChar32Reference& other) = default;

        operator UChar32() const { return static_cast<const UStringIterator&>(*iterator_).read(); }

        /** Puts `cp` in the place of the one or two units here. The iterator's end moves along. */
        UChar32Reference& operator=(UChar32 cp);
        UChar32Reference& operator=(UChar unit);
        UChar32Reference& operator=(const UChar32Reference& other) {
            return *this = static_cast<UChar32>(other);
        }

    private:
        friend class UStringIterator;
        explicit UChar32Reference(UStringIterator* iterator) : iterator_(iterator) {}

        UStringIterator* iterator_;
    };

    UStringIterator() noexcept = default;
    UStringIterator(UString& text) noexcept : UStringIterator(text, 0) {}

    /** The code point here. */
    UChar32 operator*() const { return read(); }
    UChar32Reference operator*();

    UStringIterator& operator++();
    UStringIterator& operator--();
    UStringIterator operator++(int);
    UStringIterator operator--(int);
    /** Moves `n` code points forward, or -`n` back. */
    UStringIterator& advanceCodePoints(int n);

    /** The unit here; null if the iterator was default constructed. */
    const UChar* data() const noexcept;
    /** The position in units. */
    operator unsigned() const noexcept { return position_; }

    /** Whether both are at the same position of the same string. */
    friend bool operator==(const UStringIterator& a, const UStringIterator& b) noexcept {
        return a.text_ == b.text_ && a.position_ == b.position_;
    }
    friend NOLK_API bool operator==(const UStringIterator& a,
                                    const UStringConstIterator& b) noexcept;

private:
    friend class UString;
    friend class UStringConstIterator;

    UStringIterator(UString& text, unsigned position) noexcept
        : text_(&text), length_(text.length()), position_(position) {}

    UChar32 read() const;
    template <typename Element>
    void write(Element element);

    UString* text_ = nullptr;
    unsigned length_ = 0;
    unsigned position_ = 0;
};

}  // namespace nolk

#endif
