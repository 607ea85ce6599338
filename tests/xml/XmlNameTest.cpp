#include <nolk/core/XmlName.h>

#include <nolk/core/Hash.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <unordered_set>
#include <utility>

namespace nolk {
namespace {

TEST(XmlName, DefaultIsNull) {
    const XmlName name;
    EXPECT_EQ(name.getLocalName(), "");
    EXPECT_TRUE(name.getNamespace().empty());
    EXPECT_TRUE(name.empty());
    EXPECT_TRUE(name.isNull());
}

TEST(XmlName, OfALocalNameIsInNoNamespace) {
    const XmlName name("a");
    EXPECT_EQ(name.getLocalName(), "a");
    EXPECT_TRUE(name.getNamespace().empty());
}

TEST(XmlName, KeepsLocalNameAndNamespace) {
    const XmlName name("a", XmlNamespace("p", "u"));
    EXPECT_EQ(name.getLocalName(), "a");
    EXPECT_EQ(name.getNamespace().getPrefix(), "p");
    EXPECT_EQ(name.getNamespace().getURI(), "u");
}

TEST(XmlName, CopyIsIndependent) {
    const XmlName name("a", XmlNamespace("p", "u"));
    XmlName copy(name);
    copy.setLocalName("b");
    copy.getNamespace().setURI("v");
    EXPECT_EQ(name.getUniqueName(), "u::a");
    EXPECT_EQ(copy.getUniqueName(), "v::b");
}

TEST(XmlName, AssignmentTakesAllThreeTexts) {
    XmlName name("a", XmlNamespace("p", "u"));
    name = XmlName("b", XmlNamespace("q", "v"));
    EXPECT_EQ(name.getQualifiedName(), "q:b");
    EXPECT_EQ(name.getUniqueName(), "v::b");
    const XmlName& same = name;
    name = same;
    EXPECT_EQ(name.getQualifiedName(), "q:b");
}

TEST(XmlName, SettersReplaceTheParts) {
    XmlName name;
    name.setLocalName("a");
    name.setNamespace(XmlNamespace("p", "u"));
    EXPECT_EQ(name.getQualifiedName(), "p:a");
    EXPECT_EQ(name.getUniqueName(), "u::a");
}

TEST(XmlName, TheNamespaceCanBeChangedInPlace) {
    XmlName name("a", XmlNamespace("p", "u"));
    name.getNamespace().setPrefix("q");
    EXPECT_EQ(std::as_const(name).getNamespace().getPrefix(), "q");
}

TEST(XmlName, UnsetNamespaceDropsPrefixAndURI) {
    XmlName name("a", XmlNamespace("p", "u"));
    name.unsetNamespace();
    EXPECT_TRUE(name.getNamespace().empty());
    EXPECT_EQ(name.getLocalName(), "a");
}

TEST(XmlName, AssignReplacesAllThreeTexts) {
    XmlName name("old", XmlNamespace("o", "urn:old"));
    name.assign("new", "n", "urn:new");
    EXPECT_EQ(name.getLocalName(), "new");
    EXPECT_EQ(name.getNamespace().getPrefix(), "n");
    EXPECT_EQ(name.getNamespace().getURI(), "urn:new");
    name.assign("", "", "");
    EXPECT_TRUE(name.isNull());
}

TEST(XmlName, IsNullOnlyWithAllThreeTextsEmpty) {
    const struct {
        XmlName name;
        bool null;
    } rows[] = {
        {XmlName(), true},
        {XmlName("a"), false},
        {XmlName("", XmlNamespace("p", "")), false},
        {XmlName("", XmlNamespace("", "u")), false},
        {XmlName("a", XmlNamespace("p", "u")), false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.name.empty(), row.null) << row.name.getUniqueName();
        EXPECT_EQ(row.name.isNull(), row.null) << row.name.getUniqueName();
    }
}

TEST(XmlName, EqualWithAnotherPrefixButSpelledDifferently) {
    const XmlName p("a", XmlNamespace("p", "u"));
    const XmlName q("a", XmlNamespace("q", "u"));
    EXPECT_TRUE(p == q);
    EXPECT_FALSE(p != q);
    EXPECT_EQ(p.compareTo(q), 0);
    EXPECT_NE(p.getQualifiedName(), q.getQualifiedName());
}

TEST(XmlName, DiffersByLocalNameOrByURI) {
    const XmlName name("a", XmlNamespace("p", "u"));
    EXPECT_TRUE(name != XmlName("b", XmlNamespace("p", "u")));
    EXPECT_TRUE(name != XmlName("a", XmlNamespace("p", "v")));
    EXPECT_TRUE(name != XmlName("a"));
    EXPECT_FALSE(name == XmlName("a"));
}

TEST(XmlName, OrdersByLocalNameFirst) {
    const XmlName a("a", XmlNamespace("", "z"));
    const XmlName b("b", XmlNamespace("", "y"));
    EXPECT_LT(a.compareTo(b), 0);
    EXPECT_GT(b.compareTo(a), 0);
    EXPECT_TRUE(a < b);
    EXPECT_FALSE(b < a);
}

TEST(XmlName, OrdersByURIUnderOneLocalName) {
    const XmlName y("a", XmlNamespace("q", "y"));
    const XmlName z("a", XmlNamespace("p", "z"));
    EXPECT_LT(y.compareTo(z), 0);
    EXPECT_GT(z.compareTo(y), 0);
    EXPECT_TRUE(y < z);
    EXPECT_FALSE(z < y);
    EXPECT_FALSE(y < y);
}

TEST(XmlName, OrdersLocalNamesByUnsignedBytes) {
    EXPECT_TRUE(XmlName("z") < XmlName("\xC3\xA4"));
}

TEST(XmlName, QualifiedNameHasThePrefixIfThereIsOne) {
    EXPECT_EQ(XmlName("a", XmlNamespace("p", "u")).getQualifiedName(), "p:a");
    EXPECT_EQ(XmlName("a", XmlNamespace("p", "")).getQualifiedName(), "p:a");
    EXPECT_EQ(XmlName("a", XmlNamespace("", "u")).getQualifiedName(), "a");
    EXPECT_EQ(XmlName().getQualifiedName(), "");
}

TEST(XmlName, AsStringIsTheQualifiedName) {
    EXPECT_EQ(XmlName("a", XmlNamespace("p", "u")).asString(), "p:a");
    EXPECT_EQ(XmlName("a", XmlNamespace("", "u")).asString(), "a");
}

TEST(XmlName, UniqueNameHasTheURIIfThereIsOne) {
    EXPECT_EQ(XmlName("a", XmlNamespace("p", "u")).getUniqueName(), "u::a");
    EXPECT_EQ(XmlName("a", XmlNamespace("", "u")).getUniqueName(), "u::a");
    EXPECT_EQ(XmlName("", XmlNamespace("", "u")).getUniqueName(), "u::");
}

TEST(XmlName, UniqueNameWithAPrefixButNoURIIsTheBareLocalName) {
    EXPECT_EQ(XmlName("a", XmlNamespace("p", "")).getUniqueName(), "a");
}

TEST(XmlNameHash, OfNothingIsZero) {
    EXPECT_EQ(nolkXmlNameHash(XmlName()), 0u);
}

// Worked out by hand: h starts at the length; rotl is by 5 bits of 32; words are little-endian.
TEST(XmlNameHash, FollowsTheAlgorithmByHand) {
    const struct {
        XmlName name;
        unsigned int hash;
    } rows[] = {
        // n 1: rotl(1) = 0x20, ^ 0x61
        {XmlName("a"), 0x41u},
        // n 2: rotl(2) = 0x40, ^ 0x6162
        {XmlName("ab"), 0x6122u},
        // n 3: rotl(3) = 0x60, ^ 0x616263
        {XmlName("abc"), 0x616203u},
        // n 4: rotl(4) = 0x80, ^ 0x64636261
        {XmlName("abcd"), 0x646362E1u},
        // n 5: rotl(5) = 0xA0, ^ 0x64636261 = 0x646362C1; rotl = 0x8C6C582C, ^ 0x65
        {XmlName("abcde"), 0x8C6C5849u},
        // "u::a", n 4: rotl(4) = 0x80, ^ 0x613A3A75
        {XmlName("a", XmlNamespace("p", "u")), 0x613A3AF5u},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(nolkXmlNameHash(row.name), row.hash) << row.name.getUniqueName();
    }
}

TEST(XmlNameHash, ExtendsTheSignOfBytesInTheRest) {
    // n 1: 0x20 ^ 0xFFFFFFFF
    EXPECT_EQ(nolkXmlNameHash(XmlName("\xFF")), 0xFFFFFFDFu);
    // n 2: r = 0xFFFFFF80, then (r << 8) | 0x41 = 0xFFFF8041; 0x40 ^ r
    EXPECT_EQ(nolkXmlNameHash(XmlName("\x80"
                                      "A")),
              0xFFFF8001u);
    // n 2: r = 0x41, then (0x41 << 8) | 0xFFFFFF80 = 0xFFFFFF80 | 0x4100; 0x40 ^ r
    EXPECT_EQ(nolkXmlNameHash(XmlName("A\x80")), 0xFFFFFFC0u);
}

TEST(XmlNameHash, TakesBytesOfWholeWordsWithoutSign) {
    // n 4: 0x80 ^ 0x818283FF
    EXPECT_EQ(nolkXmlNameHash(XmlName("\xFF\x83\x82\x81")), 0x8182837Fu);
}

TEST(XmlNameHash, DoesNotDependOnThePrefix) {
    EXPECT_EQ(nolkXmlNameHash(XmlName("a", XmlNamespace("p", "urn:u"))),
              nolkXmlNameHash(XmlName("a", XmlNamespace("q", "urn:u"))));
    EXPECT_EQ(nolkXmlNameHash(XmlName("a", XmlNamespace("p", ""))), nolkXmlNameHash(XmlName("a")));
}

TEST(XmlNameHash, IsTheStringHashOfTheUniqueName) {
    std::mt19937 random(5);
    const auto text = [&random](std::size_t limit) {
        std::string bytes(random() % limit, '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(random());
        }
        return bytes;
    };
    for (int i = 0; i < 2000; ++i) {
        const XmlName name(text(12), XmlNamespace(text(4), text(14)));
        ASSERT_EQ(nolkXmlNameHash(name), nolkStringHash(name.getUniqueName()));
    }
}

TEST(XmlNameHash, ServesTheStandardContainers) {
    std::unordered_set<XmlName> names;
    names.insert(XmlName("a", XmlNamespace("p", "u")));
    EXPECT_EQ(names.count(XmlName("a", XmlNamespace("q", "u"))), 1u);
    EXPECT_EQ(names.count(XmlName("a", XmlNamespace("p", "v"))), 0u);
}

}  // namespace
}  // namespace nolk
