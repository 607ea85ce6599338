#include "nolk/core/foundation/NumberText.h"

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <sstream>

namespace nolk {

namespace {

template <typename Number>
std::string streamText(Number value, int precision) {
    std::ostringstream stream;
    // A stream swallows a failed allocation unless it is told not to.
    stream.exceptions(std::ios_base::badbit);
    stream.precision(precision);
    stream << value;
    return stream.str();
}

}  // namespace

std::string longToString(long value) {
    return std::to_string(value);
}

std::string unsignedLongToString(unsigned long value) {
    return std::to_string(value);
}

std::string floatToString(float value) {
    return streamText(value, 6);
}

std::string doubleToString(double value, int precision) {
    return streamText(value, precision);
}

std::string longLongToString(long long value) {
    return std::to_string(value);
}

std::string longDoubleToString(long double value) {
    // Asked for its length first: the largest values have thousands of digits.
    const int length = std::snprintf(nullptr, 0, "%Lf", value);
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::snprintf(text.data(), text.size(), "%Lf", value);
    removeNumTrails(text.data());
    text.resize(std::strlen(text.c_str()));
    return text;
}

void removeNumTrails(char* text) {
    for (std::size_t length = std::strlen(text); length > 1; --length) {
        char& last = text[length - 1];
        const bool isPoint = last == '.';
        if (last != '0' && !isPoint) {
            return;
        }
        last = '\0';
        if (isPoint) {
            return;
        }
    }
}

}  // namespace nolk
