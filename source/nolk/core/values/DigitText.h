/** @file
 * Short texts of numbers and signs, put together in place.
 */
#ifndef NOLK_CORE_VALUES_DIGIT_TEXT_H
#define NOLK_CORE_VALUES_DIGIT_TEXT_H

#include <cstring>
#include <string>
#include <string_view>

namespace nolk {

/** A text of at most 63 bytes; who writes it knows that it fits. */
class DigitText {
public:
    DigitText() = default;
    DigitText(const DigitText&) = delete;
    DigitText& operator=(const DigitText&) = delete;

    /** A number with zeroes in front up to the width. @pre `width` is at most 10 */
    DigitText& number(unsigned value, int width) noexcept {
        char digits[10];
        char* at = digits + sizeof digits;
        do {
            *--at = static_cast<char>('0' + value % 10);
            value /= 10;
        } while (value != 0);
        while (digits + sizeof digits - at < width) {
            *--at = '0';
        }
        return text({at, static_cast<std::size_t>(digits + sizeof digits - at)});
    }

    /** A number of two digits. @pre it is below 100 */
    DigitText& two(unsigned value) noexcept {
        end_[0] = static_cast<char>('0' + value / 10);
        end_[1] = static_cast<char>('0' + value % 10);
        end_ += 2;
        return *this;
    }

    DigitText& sign(char character) noexcept {
        *end_++ = character;
        return *this;
    }

    DigitText& text(std::string_view characters) noexcept {
        std::memcpy(end_, characters.data(), characters.size());
        end_ += characters.size();
        return *this;
    }

    std::string_view view() const noexcept {
        return {text_, static_cast<std::size_t>(end_ - text_)};
    }

    std::string string() const { return std::string(view()); }

private:
    char text_[64];
    char* end_ = text_;
};

}  // namespace nolk

#endif
