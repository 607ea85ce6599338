#ifndef NOLK_FUZZ_FUZZ_INPUT_H
#define NOLK_FUZZ_FUZZ_INPUT_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

/** Takes an input apart from its front. What isn't there reads as zeroes and empty texts. */
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    bool empty() const { return size_ == 0; }

    std::uint8_t byte() {
        if (size_ == 0) {
            return 0;
        }
        --size_;
        return *data_++;
    }

    /** At most `length` bytes. */
    std::string text(std::size_t length) {
        const std::size_t taken = length < size_ ? length : size_;
        const std::string bytes(reinterpret_cast<const char*>(data_), taken);
        data_ += taken;
        size_ -= taken;
        return bytes;
    }

    std::string rest() { return text(size_); }

private:
    const std::uint8_t* data_;
    std::size_t size_;
};

/** Ends the program, and so the search, unless `holds`. Stays in where NDEBUG drops assertions. */
inline void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

#endif
