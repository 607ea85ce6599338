#include <nolk/core/Hash.h>

#include "nolk/core/foundation/PieceHash.h"

#include <algorithm>
#include <cctype>

namespace nolk {

unsigned nolkStringHash(const std::string& text) noexcept {
    PieceHash hash(text.size());
    hash.add(text);
    return hash.finish();
}

unsigned nolkCaseInsensitiveStringHash(const std::string& text) {
    std::string lowered = text;
    std::transform(lowered.begin(), lowered.end(), lowered.begin(),
                   [](unsigned char byte) { return static_cast<char>(std::tolower(byte)); });
    return nolkStringHash(lowered);
}

unsigned nolkIntHash(const int& value) noexcept {
    return static_cast<unsigned>(value);
}

}  // namespace nolk
