/** @file
 * The table behind everything that is looked up by name.
 */
#ifndef NOLK_CORE_HASH_MAP_H
#define NOLK_CORE_HASH_MAP_H

#include <nolk/core/Hash.h>
#include <nolk/core/HashMapBucket.h>
#include <nolk/core/IntrusiveListIterator.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

namespace nolk {

/**
 * A map of `K` to `V` with a fixed number of buckets, made for a few dozen names.
 *
 * A value that owns its keys and values; copies are deep. It never rehashes, so that keys, values
 * and their order stay where they are: by bucket, which is the hash modulo the number of buckets,
 * and within one by insertion. Look-ups hash the key once and allocate nothing. `V` must have a
 * default value and be assignable. No lock of its own; a map that nobody changes may be read by
 * all threads.
 */
template <typename K, typename V>
class HashMap {
public:
    using HashFunction = unsigned (*)(const K&);
    using EqualityFunction = bool (*)(const K&, const K&);

    static constexpr std::uint32_t defaultBucketCount = 64;

    /** Whether two keys are the same, by their own `==`. */
    static bool equalKeys(const K& left, const K& right) { return left == right; }

    /** An empty map; keys other than `std::string` name their hash. @pre at least one bucket */
    HashMap() : HashMap(&nolkStringHash) {}
    explicit HashMap(HashFunction hash, EqualityFunction equal = &equalKeys,
                     std::uint32_t bucketCount = defaultBucketCount)
        : bucketCount_(bucketCount),
          buckets_(new std::unique_ptr<Bucket>[bucketCount]),
          count_(0),
          hash_(hash),
          equal_(equal) {}

    /** A deep copy in the same order, with the other's functions and number of buckets. */
    HashMap(const HashMap& other) : HashMap(other.hash_, other.equal_, other.bucketCount_) {
        for (Walker walker(other); walker.next();) {
            put(walker.key(), walker.value());
        }
    }

    /** Replaces all by a deep copy, or changes nothing if that throws. */
    HashMap& operator=(const HashMap& other) {
        HashMap copy(other);
        swap(copy);
        return *this;
    }

    ~HashMap() = default;

    /** The number of keys. */
    std::uint32_t size() const noexcept { return count_; }
    bool isEmpty() const noexcept { return count_ == 0; }

    bool contains(const K& key) const { return find(key) != nullptr; }

    /** The key's value, or null; valid until the key is removed or the map cleared or assigned. */
    V* find(const K& key) { return valueOf(findIn(bucketOf(key), key)); }
    const V* find(const K& key) const { return valueOf(findIn(bucketOf(key), key)); }

    /**
     * Sets the key's value. A key that is there keeps its place; a new one goes to the end of its
     * bucket. If this throws, the map is as it was, but for what `V`'s assignment did to a value
     * that was there.
     */
    void put(const K& key, const V& value) {
        std::unique_ptr<Bucket>& bucket = bucketOf(key);
        if (Entry* entry = findIn(bucket, key)) {
            entry->value = value;
            return;
        }
        if (bucket == nullptr) {
            bucket = std::make_unique<Bucket>(equal_);
        }
        auto entry = std::make_unique<Entry>(key);
        entry->value = value;
        bucket->append(std::move(entry));
        ++count_;
    }

    /** Takes the key out; whether it was there. */
    bool remove(const K& key) {
        std::unique_ptr<Bucket>& bucket = bucketOf(key);
        Entry* entry = findIn(bucket, key);
        if (entry == nullptr) {
            return false;
        }
        bucket->remove(entry);
        --count_;
        return true;
    }

    void clear() noexcept {
        for (std::uint32_t index = 0; index < bucketCount_; ++index) {
            buckets_[index].reset();
        }
        count_ = 0;
    }

    void swap(HashMap& other) noexcept {
        std::swap(bucketCount_, other.bucketCount_);
        std::swap(buckets_, other.buckets_);
        std::swap(count_, other.count_);
        std::swap(hash_, other.hash_);
        std::swap(equal_, other.equal_);
    }

private:
    using Bucket = HashMapBucket<K, V>;
    using Entry = HashMapEntry<K, V>;

public:
    /**
     * Walks the entries of a map in the map's order. It refers to the map without owning it: the
     * map outlives it and isn't changed meanwhile.
     *
     *     for (HashMap<std::string, int>::Walker walker(map); walker.next();) { ... }
     */
    class Walker {
    public:
        /** Stands before the first entry. */
        explicit Walker(const HashMap& map) noexcept : map_(&map), bucket_(-1) {}

        /** Goes to the next entry; false, from then on, after the last. */
        bool next() noexcept {
            while (!inBucket_ || ++*inBucket_ == nullptr) {
                if (!toNextBucket()) {
                    return false;
                }
            }
            return true;
        }

        /** @pre the last `next` returned true */
        const K& key() const noexcept { return entry().key; }
        const V& value() const noexcept { return entry().value; }

    private:
        bool toNextBucket() noexcept {
            inBucket_.reset();
            const auto end = static_cast<std::int64_t>(map_->bucketCount_);
            while (bucket_ < end && ++bucket_ < end) {
                if (map_->buckets_[bucket_] != nullptr) {
                    inBucket_ = map_->buckets_[bucket_]->walk();
                    return true;
                }
            }
            return false;
        }

        const Entry& entry() const noexcept { return *static_cast<Entry*>(inBucket_->key()); }

        const HashMap* map_;
        std::int64_t bucket_;
        std::optional<IntrusiveListIterator> inBucket_;
    };

private:
    std::unique_ptr<Bucket>& bucketOf(const K& key) const {
        return buckets_[hash_(key) % bucketCount_];
    }

    static Entry* findIn(const std::unique_ptr<Bucket>& bucket, const K& key) {
        return bucket == nullptr ? nullptr : bucket->find(key);
    }

    static V* valueOf(Entry* entry) noexcept { return entry == nullptr ? nullptr : &entry->value; }

    std::uint32_t bucketCount_;
    std::unique_ptr<std::unique_ptr<Bucket>[]> buckets_;
    std::uint32_t count_;
    HashFunction hash_;
    EqualityFunction equal_;
};

}  // namespace nolk

#endif
