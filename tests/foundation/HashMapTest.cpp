#include <nolk/core/HashMap.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

namespace nolk {
namespace {

using StringMap = HashMap<std::string, std::string>;
using IntMap = HashMap<int, int>;

template <typename K, typename V>
std::vector<K> keysOf(const HashMap<K, V>& map) {
    std::vector<K> keys;
    for (typename HashMap<K, V>::Walker walker(map); walker.next();) {
        keys.push_back(walker.key());
    }
    EXPECT_EQ(keys.size(), map.size());
    return keys;
}

static_assert(!std::is_polymorphic_v<StringMap>);

TEST(HashMap, StartsEmpty) {
    const StringMap map;
    EXPECT_EQ(map.size(), 0u);
    EXPECT_TRUE(map.isEmpty());
    EXPECT_FALSE(map.contains(""));
    EXPECT_EQ(map.find("a"), nullptr);
    EXPECT_TRUE(keysOf(map).empty());
}

TEST(HashMap, FindsWhatWasPut) {
    StringMap map;
    map.put("a", "1");
    map.put("b", "2");
    ASSERT_NE(map.find("a"), nullptr);
    EXPECT_EQ(*map.find("a"), "1");
    EXPECT_EQ(*map.find("b"), "2");
    EXPECT_EQ(map.find("c"), nullptr);
    EXPECT_EQ(map.size(), 2u);
}

TEST(HashMap, KeysAreExact) {
    StringMap map;
    map.put("Key", "1");
    EXPECT_FALSE(map.contains("key"));
    EXPECT_FALSE(map.contains("Key "));
    EXPECT_FALSE(map.contains(std::string("Key\0", 4)));
}

TEST(HashMap, EmptyKeyAndEmptyValueAreOrdinary) {
    StringMap map;
    map.put("", "");
    ASSERT_TRUE(map.contains(""));
    EXPECT_EQ(*map.find(""), "");
    EXPECT_EQ(map.size(), 1u);
}

TEST(HashMap, FoundValueCanBeChanged) {
    StringMap map;
    map.put("a", "1");
    *map.find("a") = "2";
    const StringMap& same = map;
    EXPECT_EQ(*same.find("a"), "2");
}

TEST(HashMap, SecondPutReplacesTheValueAndKeepsThePosition) {
    IntMap map(&nolkIntHash);
    map.put(1, 10);
    map.put(65, 11);
    map.put(1, 12);
    EXPECT_EQ(map.size(), 2u);
    EXPECT_EQ(*map.find(1), 12);
    EXPECT_EQ(keysOf(map), (std::vector<int>{1, 65}));
}

TEST(HashMap, OrderIsByHashModulo64AndThenByInsertion) {
    IntMap map(&nolkIntHash);
    for (int key : {200, 63, 128, 64, 1, 0, 65, -1}) {
        map.put(key, key);
    }
    // 200 is 8 modulo 64; 128, 64 and 0 share bucket 0; -1 hashes to all ones, bucket 63.
    EXPECT_EQ(keysOf(map), (std::vector<int>{128, 64, 0, 1, 65, 200, 63, -1}));
}

TEST(HashMap, OrderOfStringsFollowsTheirStringHash) {
    StringMap map;
    // Hashes 0x41 (bucket 1), 0x616203 (bucket 3), 0x646362E1 (bucket 33), 0 (bucket 0).
    for (const char* key : {"abcd", "abc", "a", ""}) {
        map.put(key, "");
    }
    EXPECT_EQ(keysOf(map), (std::vector<std::string>{"", "a", "abc", "abcd"}));
}

// The thousand keys in an order that is neither theirs nor that of their buckets.
std::vector<int> scatteredKeys() {
    std::vector<int> keys;
    for (int i = 0; i < 1000; ++i) {
        keys.push_back(i * 617 % 1000);
    }
    return keys;
}

TEST(HashMap, OfAThousandKeysStillHas64Buckets) {
    IntMap map(&nolkIntHash);
    std::vector<int> expected = scatteredKeys();
    for (int key : expected) {
        map.put(key, key);
    }
    std::stable_sort(expected.begin(), expected.end(),
                     [](int left, int right) { return left % 64 < right % 64; });
    EXPECT_EQ(keysOf(map), expected);
    EXPECT_EQ(map.size(), 1000u);
}

TEST(HashMap, ThousandStringsStillStandByTheirHashModulo64) {
    StringMap map;
    std::vector<std::string> expected;
    for (int key : scatteredKeys()) {
        expected.push_back("key " + std::to_string(key));
        map.put(expected.back(), "");
    }
    std::stable_sort(expected.begin(), expected.end(),
                     [](const std::string& left, const std::string& right) {
                         return nolkStringHash(left) % 64 < nolkStringHash(right) % 64;
                     });
    EXPECT_EQ(keysOf(map), expected);
}

TEST(HashMap, ValuesStayWhereTheyAreWhileAThousandKeysCome) {
    IntMap map(&nolkIntHash);
    map.put(7, 70);
    const int* value = map.find(7);
    for (int key : scatteredKeys()) {
        if (key != 7) {
            map.put(key, key);
        }
    }
    EXPECT_EQ(map.find(7), value);
    EXPECT_EQ(*value, 70);
}

TEST(HashMap, KeysOfOneHashAreToldApartByEquality) {
    HashMap<std::string, int> map([](const std::string&) { return 7u; });
    map.put("a", 1);
    map.put("b", 2);
    map.put("c", 3);
    EXPECT_EQ(*map.find("b"), 2);
    EXPECT_EQ(keysOf(map), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_TRUE(map.remove("b"));
    EXPECT_EQ(keysOf(map), (std::vector<std::string>{"a", "c"}));
}

TEST(HashMap, EqualityFunctionDecidesWhatIsTheSameKey) {
    HashMap<int, int> map(
        [](const int& key) { return static_cast<unsigned>(key % 10); },
        [](const int& left, const int& right) { return left % 10 == right % 10; });
    map.put(1, 100);
    map.put(11, 200);
    EXPECT_EQ(map.size(), 1u);
    EXPECT_EQ(*map.find(21), 200);
    EXPECT_EQ(keysOf(map), (std::vector<int>{1}));
}

TEST(HashMap, RemoveTakesTheKeyOut) {
    StringMap map;
    map.put("a", "1");
    EXPECT_TRUE(map.remove("a"));
    EXPECT_FALSE(map.contains("a"));
    EXPECT_EQ(map.size(), 0u);
    EXPECT_FALSE(map.remove("a"));
    EXPECT_FALSE(map.remove("b"));
    EXPECT_TRUE(keysOf(map).empty());
}

TEST(HashMap, RemovedKeyComesBackAtTheEndOfItsBucket) {
    IntMap map(&nolkIntHash);
    map.put(0, 1);
    map.put(64, 2);
    map.remove(0);
    map.put(0, 3);
    EXPECT_EQ(keysOf(map), (std::vector<int>{64, 0}));
}

TEST(HashMap, RemoveAcceptsTheKeyThatTheMapHolds) {
    StringMap map;
    map.put("a key too long to be kept in place", "1");
    StringMap::Walker walker(map);
    ASSERT_TRUE(walker.next());
    EXPECT_TRUE(map.remove(walker.key()));
    EXPECT_TRUE(map.isEmpty());
}

TEST(HashMap, ClearTakesAllOut) {
    StringMap map;
    map.put("a", "1");
    map.put("b", "2");
    map.clear();
    EXPECT_TRUE(map.isEmpty());
    EXPECT_FALSE(map.contains("a"));
    map.put("a", "3");
    EXPECT_EQ(*map.find("a"), "3");
}

TEST(HashMap, CopyIsDeepAndKeepsTheOrder) {
    IntMap map(&nolkIntHash);
    for (int key : {128, 64, 1, 0}) {
        map.put(key, key);
    }
    IntMap copy(map);
    EXPECT_EQ(keysOf(copy), keysOf(map));
    copy.put(1, 99);
    copy.remove(64);
    EXPECT_EQ(*map.find(1), 1);
    EXPECT_TRUE(map.contains(64));
    map.clear();
    EXPECT_EQ(*copy.find(128), 128);
}

TEST(HashMap, CopyKeepsFunctionsAndBuckets) {
    HashMap<int, int> map(&nolkIntHash, &IntMap::equalKeys, 4);
    for (int key : {5, 4, 1, 3}) {
        map.put(key, key);
    }
    HashMap<int, int> copy(map);
    copy.put(8, 8);
    EXPECT_EQ(keysOf(copy), (std::vector<int>{4, 8, 5, 1, 3}));
}

TEST(HashMap, AssignmentTakesFunctionsAndBuckets) {
    IntMap four(&nolkIntHash, &IntMap::equalKeys, 4);
    for (int key : {5, 4, 1, 3}) {
        four.put(key, key);
    }
    IntMap map(&nolkIntHash);
    map.put(63, 1);
    map = four;
    map.put(8, 8);
    EXPECT_EQ(keysOf(map), (std::vector<int>{4, 8, 5, 1, 3}));
}

TEST(HashMap, CopyAndAssignmentTakeTheEqualityOfKeys) {
    const auto lastDigit = [](const int& key) { return static_cast<unsigned>(key % 10); };
    const auto sameLastDigit = [](const int& a, const int& b) { return a % 10 == b % 10; };
    IntMap map(lastDigit, sameLastDigit);
    map.put(1, 100);
    IntMap copy(map);
    copy.put(11, 200);
    EXPECT_EQ(copy.size(), 1u);
    IntMap assigned(&nolkIntHash);
    assigned = map;
    assigned.put(21, 300);
    EXPECT_EQ(assigned.size(), 1u);
    assigned.put(2, 400);
    assigned.put(12, 500);  // in a bucket that the assignment didn't bring
    EXPECT_EQ(assigned.size(), 2u);
}

TEST(HashMap, AssignmentReplacesAll) {
    StringMap map;
    map.put("a", "1");
    StringMap other;
    other.put("b", "2");
    map = other;
    EXPECT_FALSE(map.contains("a"));
    EXPECT_EQ(*map.find("b"), "2");
    other.put("b", "3");
    EXPECT_EQ(*map.find("b"), "2");
}

TEST(HashMap, AssignmentToItselfChangesNothing) {
    StringMap map;
    map.put("a", "1");
    const StringMap& same = map;
    map = same;
    EXPECT_EQ(*map.find("a"), "1");
    EXPECT_EQ(map.size(), 1u);
}

TEST(HashMap, SwapExchangesAll) {
    StringMap left;
    left.put("a", "1");
    StringMap right;
    left.swap(right);
    EXPECT_TRUE(left.isEmpty());
    EXPECT_EQ(*right.find("a"), "1");
}

TEST(HashMap, LookUpHashesTheKeyOnce) {
    static int hashed = 0;
    HashMap<int, int> map([](const int& key) {
        ++hashed;
        return static_cast<unsigned>(key);
    });
    hashed = 0;
    map.put(1, 1);
    EXPECT_EQ(hashed, 1);
    map.put(1, 2);
    EXPECT_EQ(hashed, 2);
    map.find(1);
    EXPECT_EQ(hashed, 3);
    map.contains(2);
    EXPECT_EQ(hashed, 4);
    map.remove(1);
    EXPECT_EQ(hashed, 5);
}

// Throws on the assignment of 13.
struct Unlucky {
    Unlucky(int start = 0) : number(start) {}
    Unlucky(const Unlucky& other) = default;
    Unlucky& operator=(const Unlucky& other) {
        if (other.number == 13) {
            throw 13;
        }
        number = other.number;
        return *this;
    }
    int number;
};

TEST(HashMap, PutThatThrowsAddsNothing) {
    HashMap<std::string, Unlucky> map;
    EXPECT_THROW(map.put("a", Unlucky(13)), int);
    EXPECT_FALSE(map.contains("a"));
    EXPECT_EQ(map.size(), 0u);
    EXPECT_TRUE(keysOf(map).empty());
}

TEST(HashMap, PutThatThrowsKeepsTheOldValue) {
    HashMap<std::string, Unlucky> map;
    map.put("a", 7);
    EXPECT_THROW(map.put("a", Unlucky(13)), int);
    EXPECT_EQ(map.find("a")->number, 7);
    EXPECT_EQ(map.size(), 1u);
}

TEST(HashMapWalker, GivesKeysAndValues) {
    StringMap map;
    map.put("a", "1");
    StringMap::Walker walker(map);
    ASSERT_TRUE(walker.next());
    EXPECT_EQ(walker.key(), "a");
    EXPECT_EQ(walker.value(), "1");
    EXPECT_FALSE(walker.next());
    EXPECT_FALSE(walker.next());
}

TEST(HashMapWalker, PassesOverBucketsThatHaveBecomeEmpty) {
    IntMap map(&nolkIntHash);
    for (int key : {0, 5, 63}) {
        map.put(key, key);
    }
    map.remove(5);
    EXPECT_EQ(keysOf(map), (std::vector<int>{0, 63}));
    map.remove(63);
    EXPECT_EQ(keysOf(map), (std::vector<int>{0}));
}

TEST(HashMapWalker, CopyGoesOnFromTheSamePlace) {
    IntMap map(&nolkIntHash);
    for (int key : {0, 64, 1}) {
        map.put(key, key);
    }
    IntMap::Walker walker(map);
    walker.next();
    IntMap::Walker copy(walker);
    ASSERT_TRUE(copy.next());
    EXPECT_EQ(copy.key(), 64);
    EXPECT_EQ(walker.key(), 0);
}

TEST(HashMap, AgreesWithAnOrderedMapOverManySteps) {
    std::mt19937 random(20);
    StringMap map;
    std::map<std::string, std::string> expected;
    for (int step = 0; step < 5000; ++step) {
        const std::string key = "key" + std::to_string(random() % 300);
        if (random() % 3 == 0) {
            EXPECT_EQ(map.remove(key), expected.erase(key) == 1);
        } else {
            map.put(key, std::to_string(step));
            expected[key] = std::to_string(step);
        }
    }
    std::map<std::string, std::string> walked;
    for (StringMap::Walker walker(map); walker.next();) {
        walked[walker.key()] = walker.value();
    }
    EXPECT_EQ(walked, expected);
    EXPECT_EQ(map.size(), expected.size());
}

}  // namespace
}  // namespace nolk
