#include <nolk/core/QXArrayByteSource.h>

namespace nolk {

bool QXArrayByteSource::doGetByte(char& byte) {
    if (next_ == end_) {
        return false;
    }
    byte = *next_++;
    return true;
}

}  // namespace nolk
