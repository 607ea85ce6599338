/** @file
 * The shared object behind handles.
 */
#ifndef NOLK_CORE_BODY_BASE_H
#define NOLK_CORE_BODY_BASE_H

#include <nolk/core/AtomicCounter.h>
#include <nolk/core/Export.h>
#include <nolk/core/StaticCtor.h>

namespace nolk {

/**
 * Base of the implementation objects that handles share: `XImp` derives from it, `X` from
 * HandleBase.
 *
 * Counts its handles and is deleted by the last one to go, in that handle's thread. The count is
 * thread safe; a body's own state needs the body's own locks. Bodies are made with `new` and given
 * to a handle.
 */
class NOLK_API BodyBase {
protected:
    /** Start without handles, a copy too: the copied body's handles aren't the copy's. */
    BodyBase() noexcept;
    BodyBase(const BodyBase& other) noexcept;
    /** Unlike other constructors with this tag it sets the count, to 0. */
    explicit BodyBase(StaticCtor) noexcept;

    /** Has no effect: the handles of the target stay its handles. */
    BodyBase& operator=(const BodyBase& other) noexcept;

    virtual ~BodyBase();

    /**
     * Count a handle in or out, and return the new count. Handles always go through these, so that
     * a body may add bookkeeping of its own; a handle deletes the body when a removal returns 0.
     */
    virtual unsigned int addReference();
    virtual unsigned int removeReference();

private:
    friend class HandleBase;

    AtomicCounter references_;
};

}  // namespace nolk

#endif
