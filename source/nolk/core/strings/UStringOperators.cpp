#include <nolk/core/UStringOperators.h>

#include <ostream>

namespace nolk {

std::ostream& operator<<(std::ostream& stream, const UString& text) {
    return stream << text.toUtf8();
}

}  // namespace nolk
