/** @file
 * A part of a string that may be written to.
 */
#ifndef NOLK_CORE_USUB_STRING_H
#define NOLK_CORE_USUB_STRING_H

#include <nolk/core/Export.h>
#include <nolk/core/Types.h>
#include <nolk/core/UString.h>

namespace nolk {

class UConstSubString;

/**
 * A part of a UString, to be read and replaced.
 *
 *     UString text("grey sky");
 *     text(0, 4) = "pink";  // "pink sky"
 *
 * The same as UConstSubString, but that an assignment puts its text into the string in place of the
 * part. The extent stays what it was, whatever the length of that text: what the part shows
 * afterwards may be more or less than what was assigned. Assigning to a null part does nothing.
 */
class NOLK_API USubString {
public:
    /** Nothing is checked: compare `text(start, extent)`, which is how a part is usually made. */
    USubString(UString& text, unsigned start, unsigned extent) noexcept
        : text_(&text), start_(start), extent_(start != UString::npos ? extent : 0) {}
    USubString(const USubString& other) = default;

    /** @name Replace the part
     *  @{ */
    USubString& operator=(const UString& s) { return assign(UStringSource(s)); }
    USubString& operator=(const USubString& s) { return assign(UStringSource(s)); }
    USubString& operator=(const UConstSubString& s) { return assign(UStringSource(s)); }
    USubString& operator=(const UChar* s) { return assign(UStringSource(s)); }
    USubString& operator=(const UChar32* s) { return assign(UStringSource(s)); }
    USubString& operator=(UChar c) { return assign(UStringSource(c, 1)); }
    USubString& operator=(UChar32 c) { return assign(UStringSource(c, 1)); }
    /** @} */

    unsigned start() const noexcept { return start_; }
    unsigned length() const noexcept { return extent_; }
    bool isNull() const noexcept { return start_ == UString::npos; }

    /** The first unit, of the string itself for a null part. Not terminated. */
    const UChar* data() const noexcept;
    /** The units that are there to be read. Valid until the string changes. */
    UString::View view() const noexcept;

    /** The unit at `i` of the part. @throws OutOfBoundsException behind the part or the string */
    UChar operator[](unsigned i) const;
    UStringReference operator[](unsigned i);
    /** The same without a check. @pre `i` is below length(), and the string is as long */
    UChar operator()(unsigned i) const noexcept;
    UStringReference operator()(unsigned i) noexcept;

    /** The same checks as the string has, against length(). @throws OutOfBoundsException */
    unsigned boundsCheckIndex(unsigned i) const;
    void boundsCheckLength(unsigned start, unsigned extent) const;

private:
    friend class UConstSubString;

    USubString& assign(const UStringSource& source);

    UString* text_;
    unsigned start_;
    unsigned extent_;
};

}  // namespace nolk

#endif
