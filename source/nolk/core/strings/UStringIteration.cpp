#include "nolk/core/strings/UStringIteration.h"

#include <nolk/core/ConversionException.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>

#include <algorithm>

#include "nolk/core/strings/UStringCodePoints.h"

namespace nolk::ustringiteration {
namespace {

// What an iterator walks over: up to the end it knows, or to where the text ends by now.
UString::View walkedText(const UString* text, unsigned length) {
    if (text == nullptr) {
        throw Exception(here(), message(NOLK_CORE_INVALID_ITERATOR));
    }
    return UString::View(text->data(), std::min(length, text->length()));
}

void requireBelow(unsigned position, unsigned end) {
    if (position >= end) {
        UString::reportBoundsCheckFailure(position, end);
    }
}

// Against the end that the iterator knows, and then against that of the text.
void requireWithin(UString::View walked, unsigned length, unsigned position) {
    requireBelow(position, length);
    requireBelow(position, static_cast<unsigned>(walked.size()));
}

[[noreturn]] void reportLoneSurrogate(unsigned position) {
    throw ConversionException(
        here(), message(NOLK_CORE_CONVERSION_INCOMPLETE_SEQUENCE, position, position));
}

bool isSurrogate(const CodePoint& point) {
    return point.units == 1 &&
           (UString::isHighSurrogate(point.value) || UString::isLowSurrogate(point.value));
}

CodePoint checkedAt(const UString* text, unsigned length, unsigned position) {
    const UString::View walked = walkedText(text, length);
    requireWithin(walked, length, position);
    return codePointAt(walked, position);
}

}  // namespace

UChar32 read(const UString* text, unsigned length, unsigned position) {
    const CodePoint point = checkedAt(text, length, position);
    if (isSurrogate(point)) {
        reportLoneSurrogate(position);
    }
    return point.value;
}

void stepForward(const UString* text, unsigned length, unsigned& position) {
    const CodePoint point = checkedAt(text, length, position);
    position += point.units;
    if (isSurrogate(point)) {
        reportLoneSurrogate(position - 1);
    }
}

void stepBack(const UString* text, unsigned length, unsigned& position) {
    const UString::View walked = walkedText(text, length);
    if (position == 0) {
        UString::reportBoundsCheckFailure(0, 0);
    }
    requireWithin(walked, length, position - 1);
    const CodePoint point = codePointBefore(walked, position);
    position -= point.units;
    if (isSurrogate(point)) {
        reportLoneSurrogate(position);
    }
}

void advance(const UString* text, unsigned length, unsigned& position, int n) {
    for (; n > 0; --n) {
        stepForward(text, length, position);
    }
    for (; n < 0; ++n) {
        stepBack(text, length, position);
    }
}

}  // namespace nolk::ustringiteration
