/** @file
 * Where an object of the process is kept that is made on first use and may be replaced.
 */
#ifndef NOLK_CORE_VALUES_PROCESS_SLOT_H
#define NOLK_CORE_VALUES_PROCESS_SLOT_H

#include <atomic>
#include <memory>

namespace nolk {

/**
 * The place of one object: null, a caller's object, or one that was made here. Of threads that find
 * it empty at the same time each makes an object, and the first one's stays.
 */
template <typename T>
class ProcessSlot {
public:
    template <typename Make>
    const T& get(Make make) {
        if (const T* object = current_.load(std::memory_order_acquire)) {
            return *object;
        }
        std::unique_ptr<const T> object = make();
        const T* found = nullptr;
        if (!current_.compare_exchange_strong(found, object.get(), std::memory_order_acq_rel)) {
            return *found;
        }
        made_.store(object.get(), std::memory_order_release);
        return *object.release();
    }

    const T* set(const T* object) noexcept {
        return current_.exchange(object, std::memory_order_acq_rel);
    }

    /** Deletes the object if it was made here and nobody has taken its place. */
    void release() noexcept {
        const T* made = made_.load(std::memory_order_acquire);
        const T* object = made;
        if (made != nullptr && current_.compare_exchange_strong(object, nullptr)) {
            made_.store(nullptr, std::memory_order_release);
            delete made;
        }
    }

private:
    std::atomic<const T*> current_ = nullptr;
    std::atomic<const T*> made_ = nullptr;
};

}  // namespace nolk

#endif
