/** @file
 * A counting pointer to objects of any class.
 */
#ifndef NOLK_CORE_COUNTING_POINTER_H
#define NOLK_CORE_COUNTING_POINTER_H

#include <nolk/core/AtomicCounter.h>
#include <nolk/core/ExceptionInfo.h>
#include <nolk/core/NullPointerException.h>

namespace nolk {

/**
 * Shares an object that needn't know of it: the last pointer to go deletes the object.
 *
 * The count is a heap cell beside the object. A pointer made at compile time is null, so that one
 * of static storage duration may be used by other static initialisers. Pointers to one object may
 * be copied and dropped in several threads at once, but one CountingPointer must not be assigned
 * in one thread while it is used in another.
 *
 * @pre the destructor of `T` assigns nothing to the very pointer that is releasing the object,
 * which it sees as null already; what it assigned would be lost
 */
template <typename T>
class CountingPointer {
public:
    /** A null pointer; it has no counter. */
    constexpr CountingPointer() noexcept : object_(nullptr), counter_(nullptr) {}

    /**
     * Takes the object over, which also holds when this fails: it is deleted then.
     * @pre no other CountingPointer owns the object
     * @throws std::bad_alloc if there is no memory for the counter
     */
    CountingPointer(T* object) : CountingPointer() { adopt(object); }

    /** Shares the object of the other pointer. */
    CountingPointer(const CountingPointer& other) noexcept
        : object_(other.object_), counter_(other.counter_) {
        if (counter_ != nullptr) {
            counter_->addReference();
        }
    }

    ~CountingPointer() { release(); }

    /** Releases what it held, then takes the object over like the constructor. */
    CountingPointer& operator=(T* object) {
        release();
        adopt(object);
        return *this;
    }

    /** Shares the object of the other pointer, which may be this one. */
    CountingPointer& operator=(const CountingPointer& other) {
        // Counted in first: the release may otherwise delete what is about to be shared.
        CountingPointer shared(other);
        release();
        object_ = shared.object_;
        counter_ = shared.counter_;
        shared.object_ = nullptr;
        shared.counter_ = nullptr;
        return *this;
    }

    /** The object. @throws NullPointerException if there is none */
    T* operator->() const {
        if (object_ == nullptr) {
            throw NullPointerException(here());
        }
        return object_;
    }

private:
    void adopt(T* object) {
        if (object == nullptr) {
            return;
        }
        try {
            counter_ = new AtomicCounter(1);
        } catch (...) {
            delete object;
            throw;
        }
        object_ = object;
    }

    // Leaves both pointers null before it deletes: a destructor that looks here finds nothing, and
    // never the object that goes.
    void release() {
        T* object = object_;
        AtomicCounter* counter = counter_;
        object_ = nullptr;
        counter_ = nullptr;
        if (counter != nullptr && counter->removeReference() == 0) {
            delete object;
            delete counter;
        }
    }

    T* object_;
    AtomicCounter* counter_;
};

}  // namespace nolk

#endif
