#include <nolk/core/UConverter.h>

namespace nolk {

// Here, so that the class's tables stand in the library once.
UConverter::~UConverter() = default;

}  // namespace nolk
