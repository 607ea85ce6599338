#include <nolk/core/HandleBase.h>

#include <nolk/core/NullPointerException.h>

namespace nolk {

HandleBase::HandleBase(BodyBase* body) : body_(body) {
    add(body_);
}

HandleBase::HandleBase(const HandleBase& other) : body_(other.body_) {
    add(body_);
}

HandleBase& HandleBase::operator=(const HandleBase& other) {
    // Read once: `other` may lie in the body that goes.
    BodyBase* incoming = other.body_;
    add(incoming);
    remove(body_);
    body_ = incoming;
    return *this;
}

HandleBase::~HandleBase() {
    remove(body_);
}

void HandleBase::throwInvalid() {
    throw NullPointerException(here());
}

void HandleBase::add(BodyBase* body) {
    if (body != nullptr) {
        body->addReference();
    }
}

void HandleBase::remove(BodyBase* body) {
    if (body != nullptr && body->removeReference() == 0) {
        delete body;
    }
}

}  // namespace nolk
