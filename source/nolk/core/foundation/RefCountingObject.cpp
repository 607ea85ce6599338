#include <nolk/core/RefCountingObject.h>

namespace nolk {

RefCountingObject::RefCountingObject() noexcept : references_(0) {}

RefCountingObject::RefCountingObject(const RefCountingObject&) noexcept : references_(0) {}

RefCountingObject& RefCountingObject::operator=(const RefCountingObject&) noexcept {
    return *this;
}

RefCountingObject::~RefCountingObject() = default;

void RefCountingObject::releaseRef() const {
    if (references_.removeReference() < 1) {
        delete this;
    }
}

}  // namespace nolk
