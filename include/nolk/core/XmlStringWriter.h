#ifndef NOLK_CORE_XML_STRING_WRITER_H
#define NOLK_CORE_XML_STRING_WRITER_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlWriter.h>

#include <string>

namespace nolk {

/**
 * An XmlWriter into a growing buffer in memory of at most 4 GB.
 *
 * Growing doubles the buffer at least, so that appending stays cheap. A growth that fails, with
 * std::bad_alloc or beyond 4 GB with std::length_error, loses nothing that was written. Copies
 * have a buffer of their own. A derived class may override the sink and gets every piece there.
 */
class NOLK_API XmlStringWriter : public XmlWriter {
public:
    /** The size of a new buffer in bytes, unless told, and the least that a buffer grows to. */
    static constexpr unsigned int DefaultSize = 4096;

    /** Allocates `initialSize` bytes at once, or nothing if that is 0. */
    explicit XmlStringWriter(unsigned int initialSize = DefaultSize);
    XmlStringWriter(const XmlStringWriter& other);
    /** All or nothing. */
    XmlStringWriter& operator=(const XmlStringWriter& other);
    ~XmlStringWriter() override;

    /** A copy of what was written. */
    std::string getString() const;
    /** The number of bytes written. */
    unsigned int getLength() const noexcept { return length_; }
    /** The number of bytes allocated. */
    unsigned int getBufferLength() const noexcept { return capacity_; }

    /** Reallocates to exactly `size` bytes and cuts off what doesn't fit; 0 frees the buffer. */
    void resize(unsigned int size);

    /** Takes back the last byte written if it is `c`. */
    void removeLastCharFromSink(char c) noexcept;

    void writeToSink(char c) override;
    /** Appends. Null data or a length of 0 does nothing. `data` may lie in the own buffer. */
    void writeToSink(const char* data, unsigned int length) override;
    /** Does nothing: the buffer is always up to date. */
    void flush() override;

protected:
    using XmlWriter::writeToSink;

private:
    friend class XmlWriter;  // puts text together in the buffer

    void grow(unsigned int size, const char* data, unsigned int length);

    char* buffer_ = nullptr;  ///< array allocation, owned
    unsigned int length_ = 0;
    unsigned int capacity_ = 0;
};

}  // namespace nolk

#endif
