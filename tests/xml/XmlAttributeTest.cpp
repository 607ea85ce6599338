#include <nolk/core/XmlAttribute.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace nolk {
namespace {

TEST(XmlAttribute, DefaultHasANullNameAndNoValue) {
    const XmlAttribute attribute;
    EXPECT_TRUE(attribute.getName().isNull());
    EXPECT_EQ(attribute.getValue(), "");
}

TEST(XmlAttribute, OfANameAndAValue) {
    const XmlAttribute attribute(XmlName("a", XmlNamespace("p", "u")), "v");
    EXPECT_EQ(attribute.getName().getQualifiedName(), "p:a");
    EXPECT_EQ(attribute.getName().getNamespace().getURI(), "u");
    EXPECT_EQ(attribute.getValue(), "v");
}

TEST(XmlAttribute, CopiesANameUnlessItMayMoveIt) {
    XmlName name(std::string(40, 'n'));
    const char* const storage = name.getLocalName().data();
    const XmlAttribute copied(name, "v");
    EXPECT_EQ(copied.getName(), name);
    EXPECT_NE(copied.getName().getLocalName().data(), storage);
    const XmlAttribute moved(std::move(name), "v");
    EXPECT_EQ(moved.getName().getLocalName().data(), storage);
}

TEST(XmlAttribute, OfALocalNameAValueAndANamespace) {
    const XmlAttribute attribute("a", "v", XmlNamespace("p", "u"));
    EXPECT_EQ(attribute.getName().getQualifiedName(), "p:a");
    EXPECT_EQ(attribute.getName().getNamespace().getURI(), "u");
    EXPECT_EQ(attribute.getValue(), "v");
}

TEST(XmlAttribute, CopyIsIndependent) {
    const XmlAttribute attribute(XmlName("a"), "v");
    XmlAttribute copy(attribute);
    copy.setName(XmlName("b"));
    copy.setValue("w");
    EXPECT_EQ(attribute.getName().getLocalName(), "a");
    EXPECT_EQ(attribute.getValue(), "v");
    EXPECT_EQ(copy.getName().getLocalName(), "b");
    EXPECT_EQ(copy.getValue(), "w");
}

TEST(XmlAttribute, AssignmentTakesNameAndValue) {
    XmlAttribute attribute(XmlName("a"), "v");
    attribute = XmlAttribute(XmlName("b"), "w");
    EXPECT_EQ(attribute.getName().getLocalName(), "b");
    EXPECT_EQ(attribute.getValue(), "w");
    const XmlAttribute& same = attribute;
    attribute = same;
    EXPECT_EQ(attribute.getName().getLocalName(), "b");
    EXPECT_EQ(attribute.getValue(), "w");
}

TEST(XmlAttribute, TheNameCanBeChangedInPlace) {
    XmlAttribute attribute(XmlName("a"), "v");
    attribute.getName().setLocalName("b");
    EXPECT_EQ(std::as_const(attribute).getName().getLocalName(), "b");
}

TEST(XmlAttribute, TheValueTakesNoPartInComparisons) {
    const XmlAttribute one(XmlName("a"), "1");
    const XmlAttribute two(XmlName("a"), "2");
    EXPECT_TRUE(one == two);
    EXPECT_FALSE(one != two);
    EXPECT_FALSE(one < two);
    EXPECT_FALSE(two < one);
    EXPECT_EQ(one.compareTo(two), 0);
}

TEST(XmlAttribute, ComparesByName) {
    const XmlAttribute a(XmlName("a", XmlNamespace("p", "u")), "2");
    const XmlAttribute b(XmlName("b", XmlNamespace("p", "u")), "1");
    const XmlAttribute v(XmlName("a", XmlNamespace("p", "v")), "1");
    EXPECT_LT(a.compareTo(b), 0);
    EXPECT_GT(b.compareTo(a), 0);
    EXPECT_LT(a.compareTo(v), 0);
    EXPECT_TRUE(a < b);
    EXPECT_TRUE(a < v);
    EXPECT_FALSE(b < a);
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(a != v);
}

}  // namespace
}  // namespace nolk
