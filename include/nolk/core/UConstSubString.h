/** @file
 * A view of a part of a string.
 */
#ifndef NOLK_CORE_UCONST_SUB_STRING_H
#define NOLK_CORE_UCONST_SUB_STRING_H

#include <nolk/core/Export.h>
#include <nolk/core/Types.h>
#include <nolk/core/UString.h>

namespace nolk {

class USubString;

/**
 * A part of a UString, to be read.
 *
 * It keeps the string, a start and an extent, and must not outlive the string. It follows what the
 * string holds there: where the string has become too short, there is less to read or nothing. A
 * part that starts at `UString::npos` is null, and stands for no part at all.
 */
class NOLK_API UConstSubString {
public:
    /** Nothing is checked: compare `text(start, extent)`, which is how a part is usually made. */
    UConstSubString(const UString& text, unsigned start, unsigned extent) noexcept
        : text_(&text), start_(start), extent_(start != UString::npos ? extent : 0) {}
    UConstSubString(const USubString& part) noexcept;

    unsigned start() const noexcept { return start_; }
    unsigned length() const noexcept { return extent_; }
    bool isNull() const noexcept { return start_ == UString::npos; }

    /** The first unit, of the string itself for a null part. Not terminated. */
    const UChar* data() const noexcept;
    /** The units that are there to be read. Valid until the string changes. */
    UString::View view() const noexcept;

    /** The unit at `i` of the part. @throws OutOfBoundsException behind the part or the string */
    UChar operator[](unsigned i) const;
    /** The same without a check. @pre `i` is below length(), and the string is as long */
    UChar operator()(unsigned i) const noexcept { return text_->data()[start_ + i]; }

    /** The same checks as the string has, against length(). @throws OutOfBoundsException */
    unsigned boundsCheckIndex(unsigned i) const;
    void boundsCheckLength(unsigned start, unsigned extent) const;

private:
    friend class USubString;

    // The place of a unit of the part in the string.
    unsigned boundsCheckPosition(unsigned i) const;

    const UString* text_;
    unsigned start_;
    unsigned extent_;
};

}  // namespace nolk

#endif
