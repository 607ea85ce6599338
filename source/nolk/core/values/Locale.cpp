#include <nolk/core/Locale.h>

#include <charconv>
#include <limits>
#include <system_error>

namespace nolk {

namespace {

constexpr char space[] = " \t\n\v\f\r";

// A number too large or too small for a double. Of what has no exponent, the integer part tells.
double beyond(const std::string& digits) {
    const bool large = digits.find_first_not_of("0") < digits.find('.');
    return large ? std::numeric_limits<double>::infinity() : 0.0;
}

// Digits with a point, which may be missing on one side.
bool readDigits(const std::string& digits, double& value) {
    const std::size_t other = digits.find_first_not_of("0123456789.");
    if (other != std::string::npos || digits.find_first_of("0123456789") == std::string::npos) {
        return false;
    }
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, std::chars_format::fixed);
    if (error == std::errc::result_out_of_range) {
        value = beyond(digits);
    }
    return stop == end;
}

class ClassicLocale : public Locale {
public:
    const std::string& decimal_point() const override { return point_; }
    const std::string& thousands_sep() const override { return none_; }

    bool stringToNum(const std::string& text, double* result) const override {
        std::size_t begin = text.find_first_not_of(space);
        if (begin == std::string::npos) {
            return false;
        }
        const bool negative = text[begin] == '-';
        if (negative || text[begin] == '+') {
            begin = text.find_first_not_of(space, begin + 1);
        }
        double value = 0;
        if (begin == std::string::npos ||
            !readDigits(text.substr(begin, text.find_last_not_of(space) + 1 - begin), value)) {
            return false;
        }
        *result = negative ? -value : value;
        return true;
    }

private:
    std::string point_ = ".";
    std::string none_;
};

const Locale& classic() {
    static const ClassicLocale locale;
    return locale;
}

constinit const Locale* installed = nullptr;

}  // namespace

Locale::~Locale() = default;

const Locale& Locale::global() {
    return installed == nullptr ? classic() : *installed;
}

const Locale* Locale::global(const Locale* locale) {
    const Locale* before = &global();
    installed = locale;
    return before;
}

}  // namespace nolk
