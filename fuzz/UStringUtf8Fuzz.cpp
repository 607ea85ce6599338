// Bytes through UTF-8's decoders and back. The strict one, which takes byte by byte, says what is
// well-formed; the fast ones have to agree, with each other too.
#include "FuzzInput.h"

#include <nolk/core/ConversionException.h>
#include <nolk/core/QXArrayByteSource.h>
#include <nolk/core/UString.h>
#include <nolk/core/strings/Utf8Decoder.h>
#include <nolk/core/strings/Utf8Encoder.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using nolk::UChar;
using nolk::UChar32;
using nolk::UString;

using Units = std::basic_string<UChar>;

struct Decoded {
    Units units;
    unsigned length = 0;  // of the well-formed part
    std::string mistake;
};

void append(Units& units, UChar32 point) {
    if (UString::requiresSurrogatePair(point)) {
        units += UString::highSurrogate(point);
        units += UString::lowSurrogate(point);
    } else {
        units += static_cast<UChar>(point);
    }
}

Decoded decodeStrictly(const std::string& text) {
    Decoded decoded;
    nolk::QXArrayByteSource source(text.data(), static_cast<unsigned>(text.size()));
    UChar32 point = 0;
    unsigned consumed = 0;
    try {
        while (UString::getCodePointFromUtf8Source(source, point, consumed)) {
            append(decoded.units, point);
            decoded.length = consumed;
        }
    } catch (const nolk::ConversionException& failure) {
        decoded.mistake = failure.what();
    }
    return decoded;
}

// The bytes in a block of memory of their own: a sanitizer sees every access beyond.
void checkPortableDecoder(const std::string& text, const Decoded& wanted) {
    const std::vector<char> bytes(text.begin(), text.end());
    const char* const first = bytes.data();
    const char* const last = first + bytes.size();
    const std::size_t count = nolk::utf8::countUnitsPortably(first, last);
    require(count == nolk::utf8::countUnits(first, last), "both ways count the same");
    require(count >= wanted.units.size(), "there is room for what is well-formed");
    std::vector<UChar> units(count + nolk::utf8::decodeSlack);
    const nolk::utf8::Decoded portable = nolk::utf8::decodePortably(first, last, units.data());
    require(portable.in - first == wanted.length, "the portable decoder stops at the mistake");
    require(Units(units.data(), portable.out) == wanted.units, "it gives the same units");
    const nolk::utf8::Decoded fast = nolk::utf8::decode(first, last, units.data());
    require(fast.in - first == wanted.length, "the fast decoder stops at the mistake");
    require(Units(units.data(), fast.out) == wanted.units, "it gives the same units");
}

void checkString(const std::string& text, const Decoded& wanted) {
    try {
        const UString string(text);
        require(wanted.mistake.empty(), "what isn't well-formed makes no string");
        require(Units(string.data(), string.length()) == wanted.units, "a string has the units");
        require(string.toUtf8() == text, "a string goes back to its text");
    } catch (const nolk::ConversionException& failure) {
        require(wanted.mistake == failure.what(), "a string tells the same mistake");
    }
}

// The input as units: any of them can be encoded, in the same way by all.
void checkEncoders(const std::string& text) {
    Units units;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
        units += static_cast<UChar>(static_cast<unsigned char>(text[i]) |
                                    static_cast<unsigned char>(text[i + 1]) << 8);
    }
    const UChar* const last = units.data() + units.size();
    std::string bytes(nolk::utf8::countBytesPortably(units.data(), last) + nolk::utf8::encodeSlack,
                      '\0');
    char* const end = nolk::utf8::encodePortably(units.data(), last, bytes.data());
    bytes.resize(static_cast<std::size_t>(end - bytes.data()));
    const UString string(units.data(), static_cast<unsigned>(units.size()));
    require(string.toUtf8() == bytes, "both ways encode the same");
    require(nolk::utf8::countBytes(units.data(), last) == bytes.size(), "both count the same");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = FuzzInput(data, size).rest();
    const Decoded wanted = decodeStrictly(text);
    checkPortableDecoder(text, wanted);
    checkString(text, wanted);
    checkEncoders(text);
    return 0;
}
