#include <nolk/core/UStringDeallocator.h>

#include <cstdlib>

namespace nolk {

UStringDeallocator::~UStringDeallocator() = default;

UStringStaticDeallocator::UStringStaticDeallocator(Function function, bool deleteSelf)
    : function_(function), deleteSelf_(deleteSelf) {}

UStringStaticDeallocator::~UStringStaticDeallocator() = default;

void UStringStaticDeallocator::USE_DELETE(UChar* buffer) {
    delete[] buffer;
}

void UStringStaticDeallocator::USE_FREE(UChar* buffer) {
    std::free(buffer);
}

UStringStaticDeallocator* UStringStaticDeallocator::getNullDeallocator() {
    static UStringStaticDeallocator none([](UChar*) {});
    return &none;
}

void UStringStaticDeallocator::doDeallocate(UChar* buffer) const {
    function_(buffer);
    if (deleteSelf_) {
        delete this;
    }
}

void UStringStaticDeallocator::doDeallocate(UChar* buffer) {
    static_cast<const UStringStaticDeallocator*>(this)->doDeallocate(buffer);
}

}  // namespace nolk
