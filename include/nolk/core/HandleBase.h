/** @file
 * The base of handles.
 */
#ifndef NOLK_CORE_HANDLE_BASE_H
#define NOLK_CORE_HANDLE_BASE_H

#include <nolk/core/BodyBase.h>
#include <nolk/core/Export.h>
#include <nolk/core/StaticCtor.h>

#include <type_traits>

namespace nolk {

/**
 * Base of the public classes that share an implementation object.
 *
 * Copying a handle shares its body; the last handle to go deletes it. A handle without a body is
 * invalid, and every operation of a derived handle that needs the body then throws a
 * NullPointerException. A derived handle reaches its body in one way:
 *
 *     LoggerImp& Logger::body() const { return static_cast<LoggerImp&>(HandleBase::body()); }
 *
 * Handles of one body may be copied and dropped in several threads at once, but one handle object
 * must not be assigned in one thread while it is used in another.
 */
class NOLK_API HandleBase {
public:
    /** Compare the bodies' addresses, not their contents. Two invalid handles are equal. */
    bool operator==(const HandleBase& other) const noexcept { return body_ == other.body_; }
    bool operator!=(const HandleBase& other) const noexcept { return body_ != other.body_; }

    /** Whether there is a body. */
    bool isValid() const noexcept { return body_ != nullptr; }

protected:
    /** An invalid handle. */
    HandleBase() noexcept : body_(nullptr) {}

    /** Takes a counted reference; a null pointer makes an invalid handle. */
    explicit HandleBase(BodyBase* body);
    HandleBase(const HandleBase& other);

    /** Leaves the body pointer as it is: null in static storage, or what was assigned since. */
    explicit constexpr HandleBase(StaticCtor) noexcept {
        if (std::is_constant_evaluated()) {
            body_ = nullptr;
        }
    }

    /** Counts the new body in before the old one out, so that assigning to itself is harmless. */
    HandleBase& operator=(const HandleBase& other);

    virtual ~HandleBase();

    /** The body. @throws NullPointerException if there is none */
    BodyBase& body() const {
        if (body_ == nullptr) {
            throwInvalid();
        }
        return *body_;
    }

private:
    [[noreturn]] static void throwInvalid();
    static void add(BodyBase* body);
    static void remove(BodyBase* body);

    BodyBase* body_;
};

}  // namespace nolk

#endif
