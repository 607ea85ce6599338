/** @file
 * An object that counts its own references.
 */
#ifndef NOLK_CORE_REF_COUNTING_OBJECT_H
#define NOLK_CORE_REF_COUNTING_OBJECT_H

#include <nolk/core/AtomicCounter.h>
#include <nolk/core/Export.h>

namespace nolk {

/**
 * Base of objects that are counted by hand and delete themselves with their last reference.
 *
 * Made with `new` and a count of 0. The count is thread safe and may be changed through pointers
 * to const; the object is deleted in the thread that releases the last reference.
 */
class NOLK_API RefCountingObject {
public:
    /** Start with a count of 0, a copy too. */
    RefCountingObject() noexcept;
    RefCountingObject(const RefCountingObject& other) noexcept;
    /** Has no effect: the target's references stay. */
    RefCountingObject& operator=(const RefCountingObject& other) noexcept;
    virtual ~RefCountingObject();

    /** Counts up by one. */
    void addRef() const noexcept { references_.addReference(); }

    /**
     * Counts down by one, and deletes the object when the result is less than 1: also when nobody
     * ever held a reference. @pre the object was made with `new`
     */
    virtual void releaseRef() const;

private:
    mutable AtomicCounter references_;
};

}  // namespace nolk

#endif
