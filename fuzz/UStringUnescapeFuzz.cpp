// Escapes: what a naive reading makes of the text, and a text escaped here comes back.
#include "FuzzInput.h"

#include <nolk/core/ConversionException.h>
#include <nolk/core/UString.h>

#include <cctype>
#include <optional>
#include <string>

namespace {

using nolk::UChar;
using nolk::UString;

using Units = std::basic_string<UChar>;

Units unitsOf(const UString& text) {
    return Units(text.data(), text.length());
}

// Any units: mostly bytes widened, and a few whole ones behind a mark.
Units readUnits(FuzzInput& input) {
    Units units;
    while (!input.empty()) {
        unsigned unit = input.byte();
        if (unit == 0xFF) {
            const unsigned high = input.byte();
            unit = high << 8 | input.byte();
        }
        units += static_cast<UChar>(unit);
    }
    return units;
}

std::optional<Units> unescapeNaively(const Units& text) {
    Units result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
            continue;
        }
        if (++i == text.size()) {
            return std::nullopt;
        }
        if (text[i] != 'u') {
            result += text[i];
            continue;
        }
        if (i + 4 >= text.size()) {
            return std::nullopt;
        }
        std::string digits;
        for (std::size_t k = 1; k <= 4; ++k) {
            const int digit = text[i + k] & 0xFF;
            if (digit >= 0x80 || std::isxdigit(digit) == 0) {
                return std::nullopt;
            }
            digits += static_cast<char>(digit);
        }
        result += static_cast<UChar>(std::stoul(digits, nullptr, 16));
        i += 4;
    }
    return result;
}

Units escaped(const Units& text) {
    const char digits[] = "0123456789abcdef";
    Units result;
    for (const UChar unit : text) {
        if (unit == '\\' || (unit & 1) != 0) {
            result += '\\';
            result += 'u';
            for (int shift = 12; shift >= 0; shift -= 4) {
                result += static_cast<UChar>(digits[unit >> shift & 15]);
            }
        } else {
            result += unit;
        }
    }
    return result;
}

UString stringOf(const Units& units) {
    return UString(units.data(), static_cast<unsigned>(units.size()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const Units units = readUnits(input);
    const UString text = stringOf(units);
    const std::optional<Units> wanted = unescapeNaively(units);
    try {
        const Units got = unitsOf(text.unescape());
        require(wanted && got == *wanted, "escapes are read as by a naive reading");
    } catch (const nolk::ConversionException&) {
        require(!wanted, "only what can't be read is refused");
    }
    require(unitsOf(text) == units, "the string stays");
    require(unitsOf(stringOf(escaped(units)).unescape()) == units, "what is escaped comes back");
    return 0;
}
