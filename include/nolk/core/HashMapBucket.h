/** @file
 * What stands in one bucket of a hash map.
 */
#ifndef NOLK_CORE_HASH_MAP_BUCKET_H
#define NOLK_CORE_HASH_MAP_BUCKET_H

#include <nolk/core/IntrusiveList.h>
#include <nolk/core/IntrusiveListIterator.h>

#include <memory>

namespace nolk {

/** A key and its value, which starts as the default one. */
template <typename K, typename V>
struct HashMapEntry : IntrusiveListLink {
    explicit HashMapEntry(const K& entryKey) : key(entryKey), value() {}

    K key;
    V value;
};

/**
 * The entries of a HashMap whose keys fall into one bucket, in the order in which they came.
 *
 * Owns its entries. Part of HashMap and of no use without it.
 */
template <typename K, typename V>
class HashMapBucket {
public:
    using Entry = HashMapEntry<K, V>;
    using EqualityFunction = bool (*)(const K&, const K&);

    explicit HashMapBucket(EqualityFunction equal) : equal_(equal) {}
    HashMapBucket(const HashMapBucket&) = delete;
    HashMapBucket& operator=(const HashMapBucket&) = delete;
    ~HashMapBucket() {
        while (IntrusiveListLink* link = entries_.get()) {
            delete static_cast<Entry*>(link);
        }
    }

    /** The key's entry, or null. */
    Entry* find(const K& key) {
        for (IntrusiveListIterator walk = this->walk();
             auto* entry = static_cast<Entry*>(++walk);) {
            if (equal_(entry->key, key)) {
                return entry;
            }
        }
        return nullptr;
    }

    /** Takes an entry over, as the last one. @pre its key isn't here */
    void append(std::unique_ptr<Entry> entry) noexcept { entries_.append(entry.release()); }

    /** Takes an entry out and deletes it. @pre it is one of these */
    void remove(Entry* entry) noexcept {
        entries_.removeReference(entry);
        delete entry;
    }

    /** A walk over the entries, before the first. */
    IntrusiveListIterator walk() noexcept { return IntrusiveListIterator(entries_); }

private:
    IntrusiveList entries_;
    EqualityFunction equal_;
};

}  // namespace nolk

#endif
