/** @file
 * Bytes in memory as a byte source.
 */
#ifndef NOLK_CORE_QX_ARRAY_BYTE_SOURCE_H
#define NOLK_CORE_QX_ARRAY_BYTE_SOURCE_H

#include <nolk/core/Export.h>
#include <nolk/core/UStringByteSource.h>

namespace nolk {

/**
 * Gives the bytes of an array, one by one, to UString's decoder.
 *
 *     QXArrayByteSource source("\xE2\x82\xAC", 3);
 *     UChar32 codePoint;
 *     unsigned consumed = 0;
 *     UString::getCodePointFromUtf8Source(source, codePoint, consumed);  // true, U+20AC, 3
 *
 * The array belongs to the caller and outlives the source. A copy goes on at the same place.
 */
class NOLK_API QXArrayByteSource : public UStringByteSource {
public:
    /** Gives `length` bytes, zero bytes too. */
    QXArrayByteSource(const char* bytes, unsigned length) : next_(bytes), end_(bytes + length) {}

protected:
    bool doGetByte(char& byte) override;

private:
    const char* next_;
    const char* end_;
};

}  // namespace nolk

#endif
