/** @file
 * The moves and checks that both iterators of a string share.
 */
#ifndef NOLK_CORE_STRINGS_USTRING_ITERATION_H
#define NOLK_CORE_STRINGS_USTRING_ITERATION_H

#include <nolk/core/Types.h>
#include <nolk/core/UString.h>

namespace nolk::ustringiteration {

/** The code point at `position`, whose end is at `length` or before. Throws as the iterators do. */
UChar32 read(const UString* text, unsigned length, unsigned position);

/** Moves `position` behind the code point that begins there; throws behind a lone surrogate. */
void stepForward(const UString* text, unsigned length, unsigned& position);

/** Moves `position` to the begin of the code point that ends there; throws before a lone one. */
void stepBack(const UString* text, unsigned length, unsigned& position);

/** Moves `position` so many code points forward, or back. */
void advance(const UString* text, unsigned length, unsigned& position, int n);

}  // namespace nolk::ustringiteration

#endif
