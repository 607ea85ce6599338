/** @file
 * The arrays of the regular-expression engine.
 */
#ifndef NOLK_CORE_REGEX_REGEX_ARRAY_H
#define NOLK_CORE_REGEX_REGEX_ARRAY_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <type_traits>

namespace nolk {

/**
 * A counted array of plain values with room for `N` of them in the object.
 *
 * Nothing is initialised before it is used, so a large inline capacity costs nothing; the heap is
 * used above it only, and the memory is kept until the array goes.
 */
template <typename T, std::uint32_t N>
class RegexArray {
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

public:
    RegexArray() noexcept : data_(inlineData()), size_(0), capacity_(N) {}
    RegexArray(const RegexArray& other) : RegexArray() { assign(other.data_, other.size_); }
    RegexArray& operator=(const RegexArray& other) {
        if (this != &other) {
            assign(other.data_, other.size_);
        }
        return *this;
    }
    ~RegexArray() { freeHeap(); }

    std::uint32_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    T* data() noexcept { return data_; }
    const T* data() const noexcept { return data_; }
    T* begin() noexcept { return data_; }
    T* end() noexcept { return data_ + size_; }
    const T* begin() const noexcept { return data_; }
    const T* end() const noexcept { return data_ + size_; }
    T& operator[](std::uint32_t i) noexcept { return data_[i]; }
    const T& operator[](std::uint32_t i) const noexcept { return data_[i]; }
    T& back() noexcept { return data_[size_ - 1]; }
    const T& back() const noexcept { return data_[size_ - 1]; }

    void push(T value) {
        reserve(size_ + 1);
        data_[size_++] = value;
    }
    void pop() noexcept { --size_; }
    void clear() noexcept { size_ = 0; }
    /** Drops what stands at `size` and behind. @pre `size` is at most size() */
    void truncate(std::uint32_t size) noexcept { size_ = size; }

    /** Makes room for `count` more values at the end, uninitialised, and returns the first. */
    T* extend(std::uint32_t count) {
        reserve(size_ + count);
        T* first = data_ + size_;
        size_ += count;
        return first;
    }
    void fill(std::uint32_t size, T value) {
        clear();
        T* first = extend(size);
        for (std::uint32_t i = 0; i < size; ++i) {
            first[i] = value;
        }
    }
    void assign(const T* values, std::uint32_t count) {
        clear();
        T* first = extend(count);
        if (count != 0) {
            std::memcpy(static_cast<void*>(first), values, count * sizeof(T));
        }
    }
    void reserve(std::uint32_t capacity) {
        if (capacity > capacity_) [[unlikely]] {
            grow(capacity);
        }
    }

private:
    T* inlineData() noexcept { return reinterpret_cast<T*>(inline_); }
    void freeHeap() noexcept {
        if (data_ != inlineData()) {
            ::operator delete(data_);
        }
    }
    void grow(std::uint32_t wanted) {
        const std::uint32_t doubled = capacity_ * 2 > capacity_ ? capacity_ * 2 : wanted;
        const std::uint32_t capacity = wanted > doubled ? wanted : doubled;
        T* data = static_cast<T*>(::operator new (std::size_t{capacity} * sizeof(T)));
        if (size_ != 0) {
            std::memcpy(static_cast<void*>(data), data_, std::size_t{size_} * sizeof(T));
        }
        freeHeap();
        data_ = data;
        capacity_ = capacity;
    }

    T* data_;
    std::uint32_t size_;
    std::uint32_t capacity_;
    alignas(T) unsigned char inline_[sizeof(T) * N];
};

}  // namespace nolk

#endif
