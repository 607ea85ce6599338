// A pattern in both flavours: bytes as they are, and each pair of bytes as a code unit.
#include "FuzzInput.h"

#include <nolk/core/Regex.h>

#include <string>

namespace {

template <typename T>
void compile(const std::basic_string<T>& pattern) {
    try {
        nolk::Regex<T> regex(pattern);
        require(regex.getStatus().getCode() == 0, "a pattern that compiles has no status");
        const nolk::Regex<T> copy(regex);
        require(copy == regex && !(copy < regex), "a copy has the same pattern");
    } catch (const nolk::RegexException& failure) {
        require(failure.getCode() >= 1 && failure.getCode() <= 18, "a failure has a code");
        require(failure.getOffset() <= pattern.size(), "a failure lies in the pattern");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes = FuzzInput(data, size).rest();
    compile<char>(bytes);
    std::basic_string<nolk::UChar> units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        units += static_cast<nolk::UChar>(static_cast<unsigned char>(bytes[i]) << 8 |
                                          static_cast<unsigned char>(bytes[i + 1]));
    }
    compile<nolk::UChar>(units);
    compile<nolk::UChar>(std::basic_string<nolk::UChar>(bytes.begin(), bytes.end()));
    return 0;
}
