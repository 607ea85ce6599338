/** @file
 * A hostile allocator for tests: it counts, and it lets the n-th allocation of a thread fail.
 *
 * Linking FailingAllocation.cpp into a program replaces the global operator new and delete. On
 * Windows a shared library keeps its own, so programs that want the library's allocations to fail
 * link its objects.
 */
#ifndef NOLK_TESTS_SUPPORT_FAILING_ALLOCATION_H
#define NOLK_TESTS_SUPPORT_FAILING_ALLOCATION_H

#include <functional>
#include <new>

namespace nolk::test {

/**
 * While it lives, the allocation with this number (from 0) of this thread fails, once or, with
 * `forEver`, along with all behind it. One at a time in each thread.
 */
class FailingAllocation {
public:
    explicit FailingAllocation(long number, bool forEver = false);
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    /** Whether an allocation has failed. */
    bool hasFailed() const;

    /** The number of allocations that this thread has made and not freed. */
    static long live();

    /** The number of allocations that this thread has made. */
    static long made();

    /** The bytes that this thread has asked for. */
    static unsigned long long bytes();
};

/** How an operation ended whose n-th allocation was to fail. */
struct Outcome {
    bool failed = false; /**< It came as far as that allocation. */
    bool threw = false;  /**< It ended in std::bad_alloc. */
};

/** Runs an operation with the allocation of this number failing. */
class FailingRun {
public:
    FailingRun(long number, bool forEver) : number_(number), forEver_(forEver) {}

    template <typename Operation>
    Outcome operator()(const Operation& operation) {
        FailingAllocation failing(number_, forEver_);
        Outcome outcome;
        try {
            operation();
        } catch (const std::bad_alloc&) {
            outcome.threw = true;
        }
        outcome.failed = failed_ = failing.hasFailed();
        return outcome;
    }

    bool hasFailed() const { return failed_; }

private:
    long number_;
    bool forEver_;
    bool failed_ = false;
};

/**
 * Calls `round` with a FailingRun for the 1st, 2nd, ... allocation until the operation that it runs
 * comes through without failing, and returns how many allocations have failed. What `round` does
 * around its run, such as checking the outcome, has all the memory it needs.
 */
template <typename Round>
long failEachAllocation(bool forEver, const Round& round) {
    for (long number = 0;; ++number) {
        FailingRun run(number, forEver);
        round(run);
        if (!run.hasFailed()) {
            return number;
        }
    }
}

/**
 * Calls `action` with the first allocation failing, then with the second, and so on until it gets
 * through without a failure. std::bad_alloc may leave it, any other exception goes on to the
 * caller. `afterFailure` is called after each failed try, with allocations working.
 * @return the number of tries that failed
 */
inline unsigned long failEachAllocation(const std::function<void()>& action,
                                        const std::function<void()>& afterFailure = {}) {
    return static_cast<unsigned long>(failEachAllocation(false, [&](FailingRun& run) {
        run(action);
        if (run.hasFailed() && afterFailure) {
            afterFailure();
        }
    }));
}

}  // namespace nolk::test

#endif
