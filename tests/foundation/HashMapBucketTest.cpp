#include <nolk/core/HashMapBucket.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace nolk {
namespace {

using Entry = HashMapEntry<int, std::string>;
using Bucket = HashMapBucket<int, std::string>;

static_assert(std::is_base_of_v<IntrusiveListLink, Entry>);
static_assert(!std::is_copy_constructible_v<Bucket> && !std::is_copy_assignable_v<Bucket>);

bool sameLastDigit(const int& left, const int& right) {
    return left % 10 == right % 10;
}

class HashMapBucketOfThree : public testing::Test {
protected:
    HashMapBucketOfThree() {
        for (int key : {3, 1, 2}) {
            bucket.append(std::make_unique<Entry>(key));
        }
    }

    std::string keys() {
        std::string result;
        for (IntrusiveListIterator walk = bucket.walk(); const IntrusiveListLink* link = ++walk;) {
            result += std::to_string(static_cast<const Entry*>(link)->key);
        }
        return result;
    }

    Bucket bucket{&sameLastDigit};
};

TEST(HashMapEntry, StartsWithADefaultValue) {
    const Entry entry(7);
    EXPECT_EQ(entry.key, 7);
    EXPECT_EQ(entry.value, "");
    EXPECT_EQ((HashMapEntry<int, int>(7).value), 0);
}

TEST(HashMapBucket, StartsEmpty) {
    Bucket bucket(&sameLastDigit);
    EXPECT_EQ(bucket.find(1), nullptr);
    IntrusiveListIterator walk = bucket.walk();
    EXPECT_EQ(++walk, nullptr);
}

TEST_F(HashMapBucketOfThree, KeepsTheOrderInWhichEntriesCame) {
    EXPECT_EQ(keys(), "312");
}

TEST_F(HashMapBucketOfThree, FindsByItsEqualityFunction) {
    ASSERT_NE(bucket.find(21), nullptr);
    EXPECT_EQ(bucket.find(21)->key, 1);
    EXPECT_EQ(bucket.find(4), nullptr);
}

TEST_F(HashMapBucketOfThree, FindsTheFirstOfSeveral) {
    bucket.append(std::make_unique<Entry>(11));
    EXPECT_EQ(bucket.find(1)->key, 1);
}

TEST_F(HashMapBucketOfThree, RemovesOneEntry) {
    bucket.remove(bucket.find(1));
    EXPECT_EQ(bucket.find(1), nullptr);
    EXPECT_EQ(keys(), "32");
}

TEST(HashMapBucket, DeletesItsEntries) {
    auto value = std::make_shared<int>(1);
    using Shared = HashMapBucket<int, std::shared_ptr<int>>;
    {
        Shared bucket(&sameLastDigit);
        for (int key : {1, 2}) {
            auto entry = std::make_unique<Shared::Entry>(key);
            entry->value = value;
            bucket.append(std::move(entry));
        }
        bucket.remove(bucket.find(1));
        EXPECT_EQ(value.use_count(), 2);
    }
    EXPECT_EQ(value.use_count(), 1);
}

}  // namespace
}  // namespace nolk
