#include "FailingAllocation.h"

#include <cstdlib>
#include <new>

namespace nolk::test {

namespace {

struct State {
    bool active;
    bool forEver;
    bool failed;
    long left;
    long live;
    long made;
    unsigned long long bytes;
};

thread_local State state;

bool failsNow() {
    if (!state.active) {
        return false;
    }
    if (state.left > 0) {
        --state.left;
        return false;
    }
    const bool fails = state.forEver || !state.failed;
    state.failed = true;
    return fails;
}

void* allocate(std::size_t size) noexcept {
    void* block = failsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (block != nullptr) {
        ++state.live;
        ++state.made;
        state.bytes += size;
    }
    return block;
}

void* allocateOrThrow(std::size_t size) {
    void* block = allocate(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void release(void* block) noexcept {
    if (block != nullptr) {
        --state.live;
        std::free(block);
    }
}

}  // namespace

FailingAllocation::FailingAllocation(long number, bool forEver) {
    state.left = number;
    state.forEver = forEver;
    state.failed = false;
    state.active = true;
}

FailingAllocation::~FailingAllocation() {
    state.active = false;
}

bool FailingAllocation::hasFailed() const {
    return state.failed;
}

long FailingAllocation::live() {
    return state.live;
}

long FailingAllocation::made() {
    return state.made;
}

unsigned long long FailingAllocation::bytes() {
    return state.bytes;
}

}  // namespace nolk::test

void* operator new(std::size_t size) {
    return nolk::test::allocateOrThrow(size);
}

void* operator new[](std::size_t size) {
    return nolk::test::allocateOrThrow(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return nolk::test::allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return nolk::test::allocate(size);
}

void operator delete(void* block) noexcept {
    nolk::test::release(block);
}

void operator delete[](void* block) noexcept {
    nolk::test::release(block);
}

void operator delete(void* block, std::size_t) noexcept {
    nolk::test::release(block);
}

void operator delete[](void* block, std::size_t) noexcept {
    nolk::test::release(block);
}

void operator delete(void* block, const std::nothrow_t&) noexcept {
    nolk::test::release(block);
}

void operator delete[](void* block, const std::nothrow_t&) noexcept {
    nolk::test::release(block);
}
