#include <nolk/core/UStringRun.h>

#include <nolk/core/UConstSubString.h>
#include <nolk/core/UString.h>
#include <nolk/core/USubString.h>

#include <algorithm>

#include "nolk/core/strings/UStringCodePoints.h"

namespace nolk {

UStringRun::UStringRun(const UString& text)
    : units_(text.data()), points_(nullptr), length_(text.length()) {}

UStringRun::UStringRun(const UString& text, unsigned start, unsigned extent)
    : units_(text.data()), points_(nullptr), length_(text.length()) {
    start = std::min(start, length_);
    units_ += start;
    length_ = std::min(extent, length_ - start);
}

UStringRun::UStringRun(const UChar* units) : UStringRun(units, UString::npos) {}

UStringRun::UStringRun(const UChar* units, unsigned n)
    : units_(units), points_(nullptr), length_(runLength(units, n)) {}

UStringRun::UStringRun(const UChar32* points) : UStringRun(points, UString::npos) {}

UStringRun::UStringRun(const UChar32* points, unsigned n)
    : units_(nullptr), points_(points), length_(runLength(points, n)) {}

UStringSource::UStringSource(const USubString& part)
    : UStringRun(part.view().data(), static_cast<unsigned>(part.view().size())) {}

UStringSource::UStringSource(const UConstSubString& part)
    : UStringRun(part.view().data(), static_cast<unsigned>(part.view().size())) {}

}  // namespace nolk
