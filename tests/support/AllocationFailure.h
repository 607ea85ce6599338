/** @file
 * A hostile allocator for tests: it counts, and it fails where it is told to.
 *
 * Linking AllocationFailure.cpp into a program replaces the global operator new and delete. On
 * Windows a shared library keeps its own, so programs that want the library's allocations to fail
 * link its objects.
 */
#ifndef NOLK_TESTS_SUPPORT_ALLOCATION_FAILURE_H
#define NOLK_TESTS_SUPPORT_ALLOCATION_FAILURE_H

#include <functional>

namespace nolk::test {

/** Makes the n-th allocation from now on throw std::bad_alloc, once; 0 means none. */
void failAllocation(unsigned long n) noexcept;

/** Whether the failure ordered last has happened. */
bool allocationFailed() noexcept;

/** The number of allocations since the program began, those that failed among them. */
unsigned long allocationCount() noexcept;

/** The bytes asked for since the program began. */
unsigned long long allocatedBytes() noexcept;

/** The number of allocations that were not freed yet. */
long liveAllocations() noexcept;

/**
 * Calls `action` with the first allocation failing, then with the second, and so on until it gets
 * through without a failure. std::bad_alloc may leave it, any other exception goes on to the
 * caller. `afterFailure` is called after each failed try, with allocations working.
 * @return the number of tries that failed
 */
unsigned long failEachAllocation(const std::function<void()>& action,
                                 const std::function<void()>& afterFailure = {});

}  // namespace nolk::test

#endif
