/** @file
 * Where the UTF-8 decoder takes its bytes from.
 */
#ifndef NOLK_CORE_USTRING_BYTE_SOURCE_H
#define NOLK_CORE_USTRING_BYTE_SOURCE_H

#include <nolk/core/Export.h>

namespace nolk {

/** A source of bytes that is pulled one by one; known as `UString::ByteSource`. */
class NOLK_API UStringByteSource {
public:
    /** Stores the next byte in `byte`. @return false at the end, where `byte` stays as it was */
    bool getByte(char& byte) { return doGetByte(byte); }

protected:
    UStringByteSource() = default;
    UStringByteSource(const UStringByteSource&) = default;
    UStringByteSource& operator=(const UStringByteSource&) = default;
    ~UStringByteSource() = default;

    virtual bool doGetByte(char& byte) = 0;
};

}  // namespace nolk

#endif
