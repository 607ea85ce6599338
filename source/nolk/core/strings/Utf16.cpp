#include "nolk/core/strings/Utf16.h"

#include <nolk/core/ConversionException.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>

namespace nolk::utf16 {

UChar32* toUtf32(const UChar* in, unsigned length, UChar32* out) {
    const UChar* const last = in + length;
    for (unsigned i = 0; i < length; ++i) {
        const bool isPair = isPairAt(in + i, last);
        if (!isPair && isSurrogate(in[i])) {
            throw ConversionException(here(), message(NOLK_CORE_CONVERSION_INCOMPLETE_SEQUENCE, i,
                                                      i + isHighSurrogate(in[i])));
        }
        *out++ = characterAt(in + i, last);
        i += isPair;
    }
    return out;
}

}  // namespace nolk::utf16
