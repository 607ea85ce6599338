#include <nolk/core/UStringCounter.h>

#include <nolk/core/UString.h>
#include <nolk/core/UStringDeallocator.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>

namespace nolk {

// Said again, so that the DLL has it for programs that bind a reference to it.
constexpr unsigned UStringCounter::unknown;

// Every header is the begin of an array of bytes, so that all are freed alike:
//
//     | header | units ... |        one block
//     | header | -> units           a wrapped buffer, with a deallocator

UStringCounter* UStringCounter::make(const UChar* source, unsigned length, unsigned capacity) {
    const std::size_t size = sizeof(UStringCounter) + std::size_t{capacity} * sizeof(UChar);
    char* const block = new char[size];
    UChar* const units = reinterpret_cast<UChar*>(block + sizeof(UStringCounter));
    if (source != nullptr) {
        std::memcpy(units, source, std::size_t{length} * sizeof(UChar));
    }
    if (length < capacity) {
        units[length] = UChar();
    }
    return new (block) UStringCounter(units, length, capacity, nullptr);
}

UStringCounter* UStringCounter::make(UChar* buffer, unsigned length, unsigned capacity,
                                     UStringDeallocator* deallocator) {
    return new (new char[sizeof(UStringCounter)])
        UStringCounter(buffer, length, capacity, deallocator);
}

unsigned UStringCounter::measuredLength() const noexcept {
    if (capacity_ == unknown) {
        length_ = capacity_ = UString::codeUnitLength(data_);
    } else {
        length_ = static_cast<unsigned>(std::find(data_, data_ + capacity_, UChar()) - data_);
    }
    return length_;
}

unsigned UStringCounter::capacity() const noexcept {
    if (capacity_ == unknown) {
        capacity_ = length();
    }
    return capacity_;
}

long UStringCounter::removeReference() noexcept {
    const long left = references_.removeReference();
    if (left == 0) {
        destroy();
    }
    return left;
}

void UStringCounter::destroy() noexcept {
    if (deallocator_ != nullptr) {
        deallocator_->deallocate(data_);
    }
    data_ = nullptr;  // whoever comes back to a freed counter finds nothing rather than its text
    length_ = 0;
    capacity_ = 0;
    this->~UStringCounter();
    delete[] reinterpret_cast<char*>(this);
}

}  // namespace nolk
