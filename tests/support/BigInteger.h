/** @file
 * Integers of any length in binary, the slow and simple way: what exact results are held against.
 */
#ifndef NOLK_TESTS_SUPPORT_BIG_INTEGER_H
#define NOLK_TESTS_SUPPORT_BIG_INTEGER_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace nolk::test {

/** Not negative. Words of 32 bits, the lowest first, without zeros at the upper end. */
class BigInteger {
public:
    BigInteger() = default;
    explicit BigInteger(std::uint32_t value) : words_{value} { trim(); }

    static BigInteger ofText(const std::string& digits) {
        BigInteger result;
        for (const char digit : digits) {
            result.multiplyAndAdd(10, static_cast<std::uint32_t>(digit - '0'));
        }
        return result;
    }

    static BigInteger powerOfTen(std::size_t exponent) {
        BigInteger result(1);
        for (; exponent > 0; --exponent) {
            result.multiplyAndAdd(10, 0);
        }
        return result;
    }

    /** The digits, "0" for zero. */
    std::string text() const {
        std::string digits;
        for (BigInteger rest = *this; !rest.words_.empty() || digits.empty();) {
            digits += static_cast<char>('0' + rest.divide(10));
        }
        std::reverse(digits.begin(), digits.end());
        return digits;
    }

    bool isZero() const { return words_.empty(); }

    int compare(const BigInteger& other) const {
        if (words_.size() != other.words_.size()) {
            return words_.size() < other.words_.size() ? -1 : 1;
        }
        for (std::size_t place = words_.size(); place-- > 0;) {
            if (words_[place] != other.words_[place]) {
                return words_[place] < other.words_[place] ? -1 : 1;
            }
        }
        return 0;
    }

    BigInteger plus(const BigInteger& other) const {
        BigInteger sum;
        std::uint64_t carry = 0;
        for (std::size_t place = 0; place < std::max(words_.size(), other.words_.size()); ++place) {
            carry += std::uint64_t{word(place)} + other.word(place);
            sum.words_.push_back(static_cast<std::uint32_t>(carry));
            carry >>= 32;
        }
        sum.words_.push_back(static_cast<std::uint32_t>(carry));
        sum.trim();
        return sum;
    }

    /** @pre `other` isn't larger */
    BigInteger minus(const BigInteger& other) const {
        BigInteger difference;
        std::int64_t borrow = 0;
        for (std::size_t place = 0; place < words_.size(); ++place) {
            borrow += std::int64_t{word(place)} - other.word(place);
            difference.words_.push_back(static_cast<std::uint32_t>(borrow));
            borrow = borrow < 0 ? -1 : 0;
        }
        difference.trim();
        return difference;
    }

    BigInteger times(const BigInteger& other) const {
        BigInteger product;
        product.words_.resize(words_.size() + other.words_.size() + 1);
        for (std::size_t a = 0; a < words_.size(); ++a) {
            std::uint64_t carry = 0;
            for (std::size_t b = 0; b <= other.words_.size(); ++b) {
                carry += std::uint64_t{words_[a]} * other.word(b) + product.words_[a + b];
                product.words_[a + b] = static_cast<std::uint32_t>(carry);
                carry >>= 32;
            }
        }
        product.trim();
        return product;
    }

    /** Divides in place. @return the remainder */
    std::uint32_t divide(std::uint32_t divisor) {
        std::uint64_t rest = 0;
        for (std::size_t place = words_.size(); place-- > 0;) {
            rest = rest << 32 | words_[place];
            words_[place] = static_cast<std::uint32_t>(rest / divisor);
            rest %= divisor;
        }
        trim();
        return static_cast<std::uint32_t>(rest);
    }

private:
    std::uint32_t word(std::size_t place) const {
        return place < words_.size() ? words_[place] : 0;
    }

    void multiplyAndAdd(std::uint32_t factor, std::uint32_t summand) {
        std::uint64_t carry = summand;
        for (std::uint32_t& word : words_) {
            carry += std::uint64_t{word} * factor;
            word = static_cast<std::uint32_t>(carry);
            carry >>= 32;
        }
        words_.push_back(static_cast<std::uint32_t>(carry));
        trim();
    }

    void trim() {
        while (!words_.empty() && words_.back() == 0) {
            words_.pop_back();
        }
    }

    std::vector<std::uint32_t> words_;
};

}  // namespace nolk::test

#endif
