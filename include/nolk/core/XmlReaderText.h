#ifndef NOLK_CORE_XML_READER_TEXT_H
#define NOLK_CORE_XML_READER_TEXT_H

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

namespace nolk {

/**
 * Room for the text of a document, shared by a reader and its children.
 *
 * Copies share the bytes, and the last one to go frees them. A default-constructed one has none.
 * Copies may be made and dropped in several threads at once, as the readers that hold them may.
 */
class XmlReaderText {
public:
    XmlReaderText() noexcept = default;

    /** Room for `length` bytes of any value. Throws std::bad_alloc. */
    explicit XmlReaderText(std::size_t length)
        : block_(new (::operator new(sizeof(Block) + length)) Block{1, false}) {}

    XmlReaderText(const XmlReaderText& other) noexcept : block_(other.block_) {
        if (block_ != nullptr) {
            block_->users.fetch_add(1, std::memory_order_relaxed);
        }
    }
    XmlReaderText(XmlReaderText&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
    XmlReaderText& operator=(XmlReaderText other) noexcept {
        std::swap(block_, other.block_);
        return *this;
    }
    ~XmlReaderText() {
        if (block_ != nullptr && isLast()) {
            block_->~Block();
            ::operator delete(block_);
        }
    }

    /** Lets go of the bytes. */
    void reset() noexcept { *this = XmlReaderText(); }

    /** The first byte, or null if there are none. */
    char* get() const noexcept {
        return block_ == nullptr ? nullptr : reinterpret_cast<char*>(block_ + 1);
    }

    /** Notes that a byte outside ASCII was written over one of ASCII. @pre there are bytes; the
     * readers that share them are used by one thread at a time. */
    void noteWrittenHigh() noexcept { block_->writtenHigh = true; }
    bool isWrittenHigh() const noexcept { return block_->writtenHigh; }

    /** Whether both share the same bytes. */
    bool operator==(const XmlReaderText& other) const noexcept = default;

private:
    struct Block {
        std::atomic<std::uint32_t> users;
        bool writtenHigh;
    };

    // The only user needn't count itself out: nobody else can come by the bytes.
    bool isLast() noexcept {
        return block_->users.load(std::memory_order_acquire) == 1 ||
               block_->users.fetch_sub(1, std::memory_order_acq_rel) == 1;
    }

    Block* block_ = nullptr;
};

}  // namespace nolk

#endif
