/** @file
 * Lets the n-th allocation of a thread fail.
 */
#ifndef NOLK_TESTS_FOUNDATION_FAILING_ALLOCATION_H
#define NOLK_TESTS_FOUNDATION_FAILING_ALLOCATION_H

#include <new>

namespace nolk {

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

}  // namespace nolk

#endif
