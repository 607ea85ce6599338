#include "AllocationFailure.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace nolk::test {

namespace {

std::atomic<unsigned long> allocations{0};
std::atomic<unsigned long long> bytes{0};
std::atomic<long> live{0};
std::atomic<unsigned long> failing{0};
std::atomic<bool> failed{false};

void* allocate(std::size_t size) {
    const unsigned long number = ++allocations;
    if (number == failing.load()) {
        failed = true;
        throw std::bad_alloc();
    }
    void* memory = std::malloc(size != 0 ? size : 1);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    ++live;
    bytes += size;
    return memory;
}

void release(void* memory) noexcept {
    if (memory != nullptr) {
        --live;
        std::free(memory);
    }
}

}  // namespace

void failAllocation(unsigned long n) noexcept {
    failed = false;
    failing = n != 0 ? allocations + n : 0;
}

bool allocationFailed() noexcept {
    return failed;
}

unsigned long allocationCount() noexcept {
    return allocations;
}

unsigned long long allocatedBytes() noexcept {
    return bytes;
}

long liveAllocations() noexcept {
    return live;
}

unsigned long failEachAllocation(const std::function<void()>& action,
                                 const std::function<void()>& afterFailure) {
    for (unsigned long n = 1;; ++n) {
        failAllocation(n);
        try {
            action();
        } catch (const std::bad_alloc&) {
        } catch (...) {
            failAllocation(0);
            throw;
        }
        const bool reached = allocationFailed();
        failAllocation(0);
        if (!reached) {
            return n - 1;
        }
        if (afterFailure) {
            afterFailure();
        }
    }
}

}  // namespace nolk::test

void* operator new(std::size_t size) {
    return nolk::test::allocate(size);
}
void* operator new[](std::size_t size) {
    return nolk::test::allocate(size);
}
void operator delete(void* memory) noexcept {
    nolk::test::release(memory);
}
void operator delete[](void* memory) noexcept {
    nolk::test::release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    nolk::test::release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    nolk::test::release(memory);
}
