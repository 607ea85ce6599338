/** @file
 * How the buffer of another owner is freed once the last string lets go of it.
 */
#ifndef NOLK_CORE_USTRING_DEALLOCATOR_H
#define NOLK_CORE_USTRING_DEALLOCATOR_H

#include <nolk/core/Export.h>
#include <nolk/core/Types.h>

namespace nolk {

/**
 * Frees a buffer that a UString has adopted; known as `UString::Deallocator`.
 *
 * It is called once for each buffer, by whichever thread drops the last string on it, and must
 * outlive those strings.
 */
class NOLK_API UStringDeallocator {
public:
    virtual ~UStringDeallocator();

    /** Frees `buffer`. */
    void deallocate(UChar* buffer) const { doDeallocate(buffer); }
    void deallocate(UChar* buffer) { doDeallocate(buffer); }

protected:
    virtual void doDeallocate(UChar* buffer) const = 0;
    virtual void doDeallocate(UChar* buffer) = 0;
};

/**
 * A deallocator that calls a function; known as `UString::StaticDeallocator`.
 *
 *     UString text(units, new UString::StaticDeallocator(UString::StaticDeallocator::USE_FREE,
 * true));
 */
class NOLK_API UStringStaticDeallocator : public UStringDeallocator {
public:
    using Function = void (*)(UChar*);

    /** Frees by `function` and then, with `deleteSelf`, deletes this object.
     * @pre with `deleteSelf` the object comes from `new` and frees one buffer only */
    explicit UStringStaticDeallocator(Function function, bool deleteSelf = false);
    ~UStringStaticDeallocator() override;

    /** Frees by array delete. */
    static void USE_DELETE(UChar* buffer);
    /** Frees by `std::free`. */
    static void USE_FREE(UChar* buffer);

    /** A deallocator for buffers that stay with their owner: it does nothing. Shared by all. */
    static UStringStaticDeallocator* getNullDeallocator();

protected:
    void doDeallocate(UChar* buffer) const override;
    void doDeallocate(UChar* buffer) override;

private:
    Function function_;
    bool deleteSelf_;
};

}  // namespace nolk

#endif
