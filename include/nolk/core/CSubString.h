/** @file
 * A part of a byte string.
 */
#ifndef NOLK_CORE_CSUBSTRING_H
#define NOLK_CORE_CSUBSTRING_H

#include <nolk/core/CString.h>
#include <nolk/core/Export.h>

#include <concepts>
#include <cstdint>
#include <string_view>

namespace nolk {

/**
 * A view of a part of a CString, through which that string can also be changed.
 *
 * A value: a pointer to the string, which must outlive it, a start and an extent. Strings make it:
 *
 *     CString text("one two");
 *     text(4, 3) = "three";                    // text is "one three"
 *     CString word(text.strip(CString::leading, 'o'));  // "ne three"
 *
 * A start of `CString::npos` marks the null substring, which has no extent and stands for "not
 * found". The view keeps its numbers when the string changes. Where they reach beyond the string's
 * end, reading by `view`, comparing, converting and assigning take what is there.
 */
class NOLK_API CSubString {
public:
    CSubString(const CSubString& other) = default;

    /**
     * Puts the text in the place of the viewed one, in the string, and views it. The text may lie
     * in the same string. A null substring stays as it is.
     * @throws std::bad_alloc @throws std::length_error as CString::replace
     */
    CSubString& operator=(const CSubString& text);
    CSubString& operator=(const CString& text);
    CSubString& operator=(const char* text);

    unsigned start() const noexcept { return start_; }
    unsigned length() const noexcept { return extent_; }
    bool isNull() const noexcept { return start_ == CString::npos; }
    /** Not 0 for the null substring. */
    int operator!() const noexcept { return isNull() ? 1 : 0; }

    /** Where it starts, in the string; where the string starts for a null one. Not terminated. */
    const char* data() const noexcept { return parent_->data() + (isNull() ? 0 : start_); }
    const char* startData() const noexcept { return data(); }
    /** What the string has of it. */
    std::string_view view() const noexcept {
        const std::string_view text = parent_->view();
        return start_ < text.size() ? text.substr(start_, extent_) : text.substr(text.size());
    }

    /** @name Bytes
     * The parentheses check nothing, the brackets throw OutOfBoundsException unless the index is
     * less than the extent, and leads into the string. What is not const makes the string's buffer
     * private first. @{ */
    /** @pre start() + i lies in the string */
    char operator()(unsigned i) const noexcept { return data()[i]; }
    char& operator()(unsigned i);
    char operator[](int i) const { return (*this)(assertElement(i)); }
    char& operator[](int i) { return (*this)(assertElement(i)); }
    template <std::integral Integer>
    char operator[](Integer i) const {
        return (*this)(assertElement(static_cast<std::int64_t>(i)));
    }
    template <std::integral Integer>
    char& operator[](Integer i) {
        return (*this)(assertElement(static_cast<std::int64_t>(i)));
    }
    /** Gives the index if it is less than the extent, else throws OutOfBoundsException. */
    unsigned assertElement(std::int64_t i) const;
    /** @} */

    /** Always throws OutOfBoundsException, for those who check substrings. */
    [[noreturn]] static void subStringError(unsigned length, unsigned start, unsigned extent);

    /** Change the bytes in the string, with the current C locale. @throws std::bad_alloc */
    void toLower();
    void toUpper();

private:
    friend class CString;
    CSubString(const CString& parent, unsigned start, unsigned extent) noexcept
        : parent_(const_cast<CString*>(&parent)),
          start_(start),
          extent_(start == CString::npos ? 0 : extent) {}

    CSubString& assign(const char* text, unsigned n);
    void mapBytes(char (*map)(char));

    CString* parent_;
    unsigned start_;
    unsigned extent_;
};

/** Equal lengths and equal bytes; a null substring equals the empty text, as a null pointer does.
 * @{ */
inline bool operator==(const CSubString& a, const CSubString& b) noexcept {
    return a.view() == b.view();
}
inline bool operator==(const CSubString& a, const CString& b) noexcept {
    return a.view() == b.view();
}
inline bool operator==(const CSubString& a, const char* b) noexcept {
    return a.view() == (b == nullptr ? std::string_view() : std::string_view(b));
}
/** @} */

}  // namespace nolk

#endif
