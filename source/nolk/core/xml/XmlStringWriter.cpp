#include <nolk/core/XmlStringWriter.h>

#include "ShortText.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <stdexcept>
#include <utility>

namespace nolk {

namespace {

constexpr std::uint64_t maximumSize = std::numeric_limits<unsigned int>::max();

// Twice what is wanted, so that appending stays cheap; beyond 2 GB only as far as counts reach.
unsigned int grownSize(std::uint64_t wanted) {
    return static_cast<unsigned int>(
        std::clamp<std::uint64_t>(wanted * 2, XmlStringWriter::DefaultSize, maximumSize));
}

}  // namespace

XmlStringWriter::XmlStringWriter(unsigned int initialSize)
    : buffer_(initialSize != 0 ? new char[initialSize] : nullptr), capacity_(initialSize) {}

XmlStringWriter::XmlStringWriter(const XmlStringWriter& other)
    : XmlWriter(other),
      buffer_(other.capacity_ != 0 ? new char[other.capacity_] : nullptr),
      length_(other.length_),
      capacity_(other.capacity_) {
    if (length_ != 0) {
        std::memcpy(buffer_, other.buffer_, length_);
    }
}

XmlStringWriter& XmlStringWriter::operator=(const XmlStringWriter& other) {
    if (this != &other) {
        XmlStringWriter copy(other);
        XmlWriter::operator=(other);
        std::swap(buffer_, copy.buffer_);
        std::swap(length_, copy.length_);
        std::swap(capacity_, copy.capacity_);
    }
    return *this;
}

XmlStringWriter::~XmlStringWriter() {
    delete[] buffer_;
}

std::string XmlStringWriter::getString() const {
    return length_ != 0 ? std::string(buffer_, length_) : std::string();
}

void XmlStringWriter::resize(unsigned int size) {
    if (size != 0) {
        grow(size, nullptr, 0);
    } else {
        delete[] std::exchange(buffer_, nullptr);
        length_ = 0;
        capacity_ = 0;
    }
}

void XmlStringWriter::removeLastCharFromSink(char c) noexcept {
    if (length_ != 0 && buffer_[length_ - 1] == c) {
        --length_;
    }
}

void XmlStringWriter::writeToSink(char c) {
    if (length_ == capacity_) {
        if (capacity_ == maximumSize) {
            throw std::length_error("XmlStringWriter: more than 4 GB of text");
        }
        grow(grownSize(capacity_), &c, 1);
    } else {
        buffer_[length_++] = c;
    }
}

void XmlStringWriter::writeToSink(const char* data, unsigned int length) {
    if (data == nullptr || length == 0) {
        return;
    }
    if (length <= capacity_ - length_) {
        xml::copyShort(buffer_ + length_, data, length);
        length_ += length;
        return;
    }
    if (length > maximumSize - length_) {
        throw std::length_error("XmlStringWriter: more than 4 GB of text");
    }
    grow(grownSize(std::uint64_t{capacity_} + length), data, length);
}

void XmlStringWriter::flush() {}

// Moves to an array of `size` bytes and appends `data`, which may lie in the old array.
void XmlStringWriter::grow(unsigned int size, const char* data, unsigned int length) {
    std::unique_ptr<char[]> grown(new char[size]);
    const unsigned int kept = std::min(length_, size);
    if (kept != 0) {
        std::memcpy(grown.get(), buffer_, kept);
    }
    if (length != 0) {
        std::memcpy(grown.get() + kept, data, length);
    }
    delete[] buffer_;
    buffer_ = grown.release();
    length_ = kept + length;
    capacity_ = size;
}

}  // namespace nolk
