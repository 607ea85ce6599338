#include <nolk/core/BodyBase.h>

namespace nolk {

BodyBase::BodyBase() noexcept : references_(0) {}

BodyBase::BodyBase(const BodyBase&) noexcept : references_(0) {}

BodyBase::BodyBase(StaticCtor) noexcept : references_(0) {}

BodyBase& BodyBase::operator=(const BodyBase&) noexcept {
    return *this;
}

BodyBase::~BodyBase() = default;

unsigned int BodyBase::addReference() {
    return static_cast<unsigned int>(references_.addReference());
}

unsigned int BodyBase::removeReference() {
    return static_cast<unsigned int>(references_.removeReference());
}

}  // namespace nolk
