#include <nolk/core/XmlReader.h>
#include <nolk/core/XmlReaderString.h>

#include <gtest/gtest.h>

#include <string>

namespace nolk {
namespace {

TEST(XmlReaderString, ADefaultViewPointsAtAnEmptyText) {
    const XmlReaderString view;
    ASSERT_NE(view.data, nullptr);
    EXPECT_EQ(view.data[0], '\0');
    EXPECT_EQ(view.length, 0u);
}

TEST(XmlReaderString, ItsFieldsAreDataAndLengthInThisOrder) {
    const char* text = "abc";
    const XmlReaderString view{text, 2};
    EXPECT_EQ(view.data, text);
    EXPECT_EQ(view.length, 2u);
    EXPECT_EQ(sizeof view.length, 4u);
}

TEST(XmlReaderString, ViewsOfEqualBytesInDifferentPlacesAreEqual) {
    const std::string a = "name";
    const std::string b = "a name";
    EXPECT_TRUE(XmlReaderString::of(a) == (XmlReaderString{b.data() + 2, 4}));
    EXPECT_FALSE(XmlReaderString::of(a) != (XmlReaderString{b.data() + 2, 4}));
}

TEST(XmlReaderString, ViewsOfTheSamePlaceAreEqualOnlyWithEqualLength) {
    const char* text = "abc";
    EXPECT_TRUE((XmlReaderString{text, 3}) == (XmlReaderString{text, 3}));
    EXPECT_FALSE((XmlReaderString{text, 3}) == (XmlReaderString{text, 2}));
}

TEST(XmlReaderString, APrefixIsNotEqual) {
    EXPECT_FALSE(XmlReaderString::of("ab") == XmlReaderString::of("abc"));
    EXPECT_FALSE(XmlReaderString::of("abc") == XmlReaderString::of("ab"));
    EXPECT_FALSE(XmlReaderString::of("") == XmlReaderString::of("a"));
}

TEST(XmlReaderString, EveryByteCounts) {
    const std::string text = "0123456789abcdefghijklmnopqrstuvwxyz";
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string other = text;
        other[i] = '!';
        EXPECT_FALSE(XmlReaderString::of(text) == XmlReaderString::of(other)) << i;
    }
}

TEST(XmlReaderString, BytesAreComparedBehindAZeroByteToo) {
    const std::string a("a\0b", 3);
    const std::string b("a\0c", 3);
    EXPECT_FALSE(XmlReaderString::of(a) == XmlReaderString::of(b));
    EXPECT_TRUE(XmlReaderString::of(a) == XmlReaderString::of(std::string_view("a\0b", 3)));
}

TEST(XmlReaderString, EmptyViewsAreEqualWhereverTheyPoint) {
    EXPECT_TRUE(XmlReaderString() == (XmlReaderString{"abc", 0}));
}

TEST(XmlReaderString, CaseCounts) {
    EXPECT_FALSE(XmlReaderString::of("a") == XmlReaderString::of("A"));
}

TEST(XmlReaderString, AsStringCopiesAllBytes) {
    std::string text("a\0\xC3\xA4", 4);
    const std::string copy = XmlReaderString::of(text).asString();
    text.assign("xxxx");
    EXPECT_EQ(copy, std::string("a\0\xC3\xA4", 4));
}

TEST(XmlReaderString, ViewAndOfAreInverse) {
    const std::string text = "text";
    EXPECT_EQ(XmlReaderString::of(text).view().data(), text.data());
    EXPECT_EQ(XmlReaderString::of(text).view().size(), text.size());
}

void expectAbsent(const XmlReaderString& view) {
    ASSERT_NE(view.data, nullptr);
    EXPECT_EQ(view.length, 0u);
}

TEST(XmlReaderString, WhatADocumentDoesNotTellIsAnEmptyViewAndNeverNull) {
    XmlReader reader("<a b='1'/>");
    expectAbsent(reader.getVersionI());
    expectAbsent(reader.getStandaloneI());
    expectAbsent(reader.getLastContentI());
    expectAbsent(reader.getLastNameI().localName);
    expectAbsent(reader.getLastNameI().prefix);
    expectAbsent(reader.getLastNameI().uri);
    reader.readNextNode();
    expectAbsent(reader.getLastNameI().prefix);
    expectAbsent(reader.getLastNameI().uri);
    expectAbsent(reader.getLastAttributesI()[0].name.prefix);
    expectAbsent(reader.getLastAttributesI()[0].name.uri);
    expectAbsent(reader.getLastContentI());
}

TEST(XmlReaderString, ValuesOfNodesAreViewsIntoOneBuffer) {
    XmlReader reader("<abc d='efg'>hij</abc>");
    reader.readNextNode();
    const char* name = reader.getLastNameI().localName.data;
    EXPECT_EQ(reader.getLastAttributesI()[0].name.localName.data, name + 4);
    EXPECT_EQ(reader.getLastAttributesI()[0].value.data, name + 7);
    reader.readNextNode();
    EXPECT_EQ(reader.getLastContentI().data, name + 12);
}

}  // namespace
}  // namespace nolk
