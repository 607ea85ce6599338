#include <nolk/core/XmlReader.h>

#include <gtest/gtest.h>

#include <string>

#include "XmlReaderDump.h"

namespace nolk {
namespace {

using namespace std::string_literals;
using namespace nolk::test;

void expectRows(std::initializer_list<Row> rows) {
    for (const auto& [document, expected] : rows) {
        EXPECT_EQ(dump(document), expected) << document;
    }
}

// Attributes.

TEST(XmlReaderTag, AttributesComeInDocumentOrder) {
    EXPECT_EQ(dump("<a z='1' b='2' m='3'/>"), "Empty a[z='1' b='2' m='3']");
}

TEST(XmlReaderTag, BothKindsOfQuotesServe) {
    EXPECT_EQ(dump("<a b=\"1\" c='2'/>"), "Empty a[b='1' c='2']");
}

TEST(XmlReaderTag, TheOtherQuoteIsPartOfAValue) {
    EXPECT_EQ(dump("<a b=\"'\" c='\"'/>"), "Empty a[b=''' c='\"']");
}

TEST(XmlReaderTag, ValuesMayBeEmpty) {
    EXPECT_EQ(dump("<a b=''/>"), "Empty a[b='']");
}

TEST(XmlReaderTag, WhiteSpaceBetweenAttributesIsNotRequired) {
    EXPECT_EQ(dump("<a b=\"x\"c=\"y\"/>"), "Empty a[b='x' c='y']");
}

TEST(XmlReaderTag, WhiteSpaceMayStandAroundAllPartsOfATag) {
    EXPECT_EQ(dump("<a \t\r\n b \t\r\n = \t\r\n 'x' \t\r\n ></a \t\r\n >"), "Start a[b='x'] End a");
}

TEST(XmlReaderTag, ValuesAreNotNormalised) {
    EXPECT_EQ(dump("<a b=' \t\r\n\r x  y '/>"), "Empty a[b=' \t\r\n\r x  y ']");
}

TEST(XmlReaderTag, AValueMayHoldTheEndOfATag) {
    EXPECT_EQ(dump("<a b='/>' c='?>' d=']]>'/>"), "Empty a[b='/>' c='?>' d=']]>']");
}

TEST(XmlReaderTag, RepeatedAttributesAllStay) {
    EXPECT_EQ(dump("<a b=\"1\" b=\"2\"/>"), "Empty a[b='1' b='2']");
}

TEST(XmlReaderTag, ALessThanInAValueIsRefused) {
    expectRows({{"<a b='<'/>", "!XML_PARSE_ATTRIBUTE_UNTERMINATED_VALUE"},
                {"<a b=\"x<y\"/>", "!XML_PARSE_ATTRIBUTE_UNTERMINATED_VALUE"},
                {"<a b='x><c/>", "!XML_PARSE_ATTRIBUTE_UNTERMINATED_VALUE"}});
}

TEST(XmlReaderTag, ALessThanByReferenceIsNot) {
    EXPECT_EQ(dump("<a b='&lt;'/>"), "Empty a[b='<']");
    EXPECT_EQ(dump("<a b='&#60;'/>"), "Empty a[b='<']");
}

TEST(XmlReaderTag, AnAttributeNeedsAnEqualsSign) {
    expectRows({{"<a b/>", "!XML_PARSE_ATTRIBUTE_INVALID_CHAR"},
                {"<a b>", "!XML_PARSE_ATTRIBUTE_INVALID_CHAR"},
                {"<a b 'x'/>", "!XML_PARSE_ATTRIBUTE_INVALID_CHAR"},
                {"<a b c='x'/>", "!XML_PARSE_ATTRIBUTE_INVALID_CHAR"},
                {"<a b:='x'/>", "Empty a[b:='x']"}});
}

TEST(XmlReaderTag, AValueNeedsAQuote) {
    expectRows({{"<a b=x/>", "!XML_PARSE_ATTRIBUTE_INVALID_CHAR"},
                {"<a b=/>", "!XML_PARSE_ATTRIBUTE_INVALID_CHAR"},
                {"<a b==''/>", "!XML_PARSE_ATTRIBUTE_INVALID_CHAR"},
                {"<a b=`x`/>", "!XML_PARSE_ATTRIBUTE_INVALID_CHAR"}});
}

TEST(XmlReaderTag, WhatStandsInPlaceOfAnAttributeMustStartAName) {
    expectRows({{"<a 1='x'/>", "!XML_PARSE_ILLEGAL_NAME"},
                {"<a ='x'/>", "!XML_PARSE_ILLEGAL_NAME"},
                {"<a 'x'/>", "!XML_PARSE_ILLEGAL_NAME"},
                {"<a <b/>", "!XML_PARSE_ILLEGAL_NAME"},
                {"<a b='1'&c='2'/>", "!XML_PARSE_ILLEGAL_NAME"}});
}

TEST(XmlReaderTag, ManyAttributesAreKept) {
    std::string document = "<a";
    std::string expected = "Empty a[";
    for (int i = 0; i < 200; ++i) {
        const std::string one = "n" + std::to_string(i) + "='v" + std::to_string(i) + "'";
        document += " " + one;
        expected += (i == 0 ? "" : " ") + one;
    }
    EXPECT_EQ(dump(document + "/>"), expected + "]");
}

TEST(XmlReaderTag, EachTagHasItsOwnAttributes) {
    EXPECT_EQ(dump("<a b='1' c='2'><d e='3'/><f/></a>"),
              "Start a[b='1' c='2'] Empty d[e='3'] Empty f End a");
}

TEST(XmlReaderTag, LongValuesEndAtTheirQuote) {
    for (std::size_t length = 0; length < 150; ++length) {
        const std::string value(length, 'v');
        EXPECT_EQ(dump("<a b='" + value + "' c=\"" + value + "\"/>"),
                  "Empty a[b='" + value + "' c='" + value + "']");
    }
}

// Namespaces.

TEST(XmlReaderTag, ADeclarationCountsForItsOwnElement) {
    EXPECT_EQ(dump("<a:b xmlns:a=\"u\"/>"), "Empty{u}a:b[xmlns:a='u']");
    EXPECT_EQ(dump("<a xmlns='u'/>"), "Empty{u}a[xmlns='u']");
}

TEST(XmlReaderTag, ADeclarationCountsForAnEarlierAttribute) {
    EXPECT_EQ(dump("<c d:e=\"1\" xmlns:d=\"u\"/>"), "Empty c[{u}d:e='1' xmlns:d='u']");
}

TEST(XmlReaderTag, ALaterDeclarationOfTheTagHidesAnOuterOneForEarlierAttributes) {
    EXPECT_EQ(dump("<a xmlns:p='o'><b p:x='1' xmlns:p='i' p:y='2'/></a>"),
              "Start a[xmlns:p='o'] Empty b[{i}p:x='1' xmlns:p='i' {i}p:y='2'] End a");
}

TEST(XmlReaderTag, TheFirstOfTwoDeclarationsOfAPrefixWins) {
    EXPECT_EQ(dump("<p:a xmlns:p='u' xmlns:p='v'/>"), "Empty{u}p:a[xmlns:p='u' xmlns:p='v']");
    EXPECT_EQ(dump("<a xmlns='u' xmlns='v'/>"), "Empty{u}a[xmlns='u' xmlns='v']");
}

TEST(XmlReaderTag, DeclarationsEndWithTheirElement) {
    EXPECT_EQ(dump("<a><p:b xmlns:p='u'><p:c/></p:b><p:d/></a>"),
              "Start a Start{u}p:b[xmlns:p='u'] Empty{u}p:c End{u}p:b Empty p:d End a");
    EXPECT_EQ(dump("<a><p:b xmlns:p='u'/><p:d/></a>"),
              "Start a Empty{u}p:b[xmlns:p='u'] Empty p:d End a");
}

TEST(XmlReaderTag, InnerDeclarationsHideOuterOnesWhileTheyLast) {
    EXPECT_EQ(dump("<p:a xmlns:p='o'><p:b xmlns:p='i'></p:b><p:c/></p:a>"),
              "Start{o}p:a[xmlns:p='o'] Start{i}p:b[xmlns:p='i'] End{i}p:b Empty{o}p:c End{o}p:a");
}

TEST(XmlReaderTag, TheDefaultNamespaceAppliesToElementsAndNotToAttributes) {
    EXPECT_EQ(dump("<a xmlns='u' b='1'><c d='2'/></a>"),
              "Start{u}a[xmlns='u' b='1'] Empty{u}c[d='2'] End{u}a");
}

TEST(XmlReaderTag, AnEmptyDeclarationTakesTheDefaultNamespaceAway) {
    EXPECT_EQ(dump("<a xmlns='u'><b xmlns=''><c/></b></a>"),
              "Start{u}a[xmlns='u'] Start b[xmlns=''] Empty c End b End{u}a");
}

TEST(XmlReaderTag, AnEmptyDeclarationTakesAPrefixAway) {
    EXPECT_EQ(dump("<p:a xmlns:p='u'><p:b xmlns:p=''/></p:a>"),
              "Start{u}p:a[xmlns:p='u'] Empty p:b[xmlns:p=''] End{u}p:a");
}

TEST(XmlReaderTag, DeclarationsHaveNoUriUnlessThePrefixXmlnsIsBound) {
    EXPECT_EQ(dump("<a xmlns:p='u' xmlns:xmlns='w'/>"),
              "Empty a[{w}xmlns:p='u' {w}xmlns:xmlns='w']");
    EXPECT_EQ(dump("<a xmlns:xmlns='w'><b xmlns:p='u' xmlns='d'/></a>"),
              "Start a[{w}xmlns:xmlns='w'] Empty{d}b[{w}xmlns:p='u' xmlns='d'] End a");
}

TEST(XmlReaderTag, TheUriOfADeclarationIsItsValueWithReferencesReplaced) {
    EXPECT_EQ(dump("<p:a xmlns:p='a&amp;b'/>"), "Empty{a&b}p:a[xmlns:p='a&b']");
    EXPECT_EQ(dump("<p:a xmlns:p='a&amp;b'/>", rawAttributes),
              "Empty{a&amp;b}p:a[xmlns:p='a&amp;b']");
}

TEST(XmlReaderTag, AColonInFrontOfXmlnsDeclaresTheDefaultNamespaceToo) {
    EXPECT_EQ(dump("<a :xmlns='u'/>"), "Empty{u}a[xmlns='u']");
}

TEST(XmlReaderTag, AColonBehindXmlnsDeclaresTheDefaultNamespaceToo) {
    EXPECT_EQ(dump("<a xmlns:='u'/>"), "Empty{u}a[xmlns:='u']");
}

TEST(XmlReaderTag, NamesThatOnlyStartLikeXmlnsDeclareNothing) {
    EXPECT_EQ(dump("<a xmlnsx='u' XMLNS='v' xmlnsx:b='w'/>"),
              "Empty a[xmlnsx='u' XMLNS='v' xmlnsx:b='w']");
}

TEST(XmlReaderTag, ADeclarationOfALongPrefixWithFurtherColons) {
    EXPECT_EQ(dump("<a xmlns:p:q='u'><p:b/></a>"), "Start a[xmlns:p:q='u'] Empty p:b End a");
}

TEST(XmlReaderTag, ManyDeclarationsInOneTagAreAllBound) {
    std::string document = "<a";
    for (int i = 0; i < 40; ++i) {
        document += " xmlns:p" + std::to_string(i) + "='u" + std::to_string(i) + "'";
    }
    XmlReader reader(document + ">x</a>");
    reader.readNextNode();
    for (int i = 0; i < 40; ++i) {
        EXPECT_EQ(reader.getURIForPrefix("p" + std::to_string(i)), "u" + std::to_string(i));
    }
}

TEST(XmlReaderTag, DeepElementsResolveInAllTheirAncestors) {
    std::string document;
    std::string expected;
    std::string ends;
    std::string expectedEnds;
    for (int i = 0; i < 60; ++i) {
        const std::string p = "p" + std::to_string(i);
        document += "<" + p + ":e xmlns:" + p + "='u" + p + "' p0:a='1'>";
        expected += (i == 0 ? "" : " ") + "Start{u"s + p + "}" + p + ":e[xmlns:" + p + "='u" + p +
                    "' {up0}p0:a='1']";
        ends = "</" + p + ":e>" + ends;
        expectedEnds = " End{u" + p + "}" + p + ":e" + expectedEnds;
    }
    EXPECT_EQ(dump(document + ends), expected + expectedEnds);
}

TEST(XmlReaderTag, SiblingsThatBindOnePrefixDifferentlyAreToldApart) {
    std::string document = "<r>";
    std::string expected = "Start r";
    for (int i = 0; i < 20; ++i) {
        const std::string u = "u" + std::to_string(i % 3);
        document += "<p:a xmlns:p='" + u + "'><p:b/></p:a><p:c/>";
        expected += " Start{" + u + "}p:a[xmlns:p='" + u + "'] Empty{" + u + "}p:b End{" + u +
                    "}p:a Empty p:c";
    }
    EXPECT_EQ(dump(document + "</r>"), expected + " End r");
}

TEST(XmlReaderTag, NamespacesAddedByHandAreSeenBehindThem) {
    XmlReader reader("<p:a><p:b/></p:a>"s);
    reader.addNamespace(XmlNamespace("p", "u"));
    reader.readNextNode();
    EXPECT_EQ(dumpNode(reader), "Start{u}p:a");
    reader.addNamespace(XmlNamespace("p", "v"));
    EXPECT_EQ(dumpRest(reader), "Empty{v}p:b End{v}p:a");
}

TEST(XmlReaderTag, ANamespaceStackSetByHandCountsForTheEndTagToo) {
    XmlReader reader("<p:a xmlns:p='u'><p:b></p:b></p:a>"s);
    dumpRest(reader, 2);
    XmlReaderNamespaceStack stack;
    for (const char* uri : {"w1", "w2", "w3"}) {
        stack.pushScope();
        stack.addNamespace({XmlReaderString::of("p"), XmlReaderString::of(uri)});
    }
    reader.setNamespaceStack(stack);
    EXPECT_EQ(dumpRest(reader), "End{w3}p:b End{w2}p:a");
}

TEST(XmlReaderTag, AnEndTagOfAnElementReadBeforeItsScopesWereTakenAwayIsSafe) {
    XmlReader reader("<p:a xmlns:p='u'><p:b></p:b></p:a>"s);
    dumpRest(reader, 2);
    reader.setNamespaceStack(XmlReaderNamespaceStack());
    EXPECT_EQ(dumpRest(reader), "End p:b End p:a");
}

// Empty tags.

TEST(XmlReaderTag, AnEmptyTagNeedsItsBracketAtOnce) {
    expectRows({{"<a/ >", "!XML_PARSE_INVALID_SLASH"},
                {"<a//>", "!XML_PARSE_INVALID_SLASH"},
                {"<a/b='1'>", "!XML_PARSE_INVALID_SLASH"},
                {"<a b='1'/x>", "!XML_PARSE_INVALID_SLASH"}});
}

TEST(XmlReaderTag, WhiteSpaceMayStandInFrontOfTheSlash) {
    EXPECT_EQ(dump("<a />"), "Empty a");
    EXPECT_EQ(dump("<a b='1' \n/>"), "Empty a[b='1']");
}

TEST(XmlReaderTag, AnEmptyTagClearsTheTextAndAStartTagDoesNot) {
    XmlReader reader("<a>x<b>y</b>z<c/></a>"s);
    for (int i = 0; i < 3; ++i) {
        reader.readNextNode();
    }
    EXPECT_EQ(dumpNode(reader), "Start b");
    EXPECT_EQ(reader.getLastContent(), "x");
    for (int i = 0; i < 4; ++i) {
        reader.readNextNode();
    }
    EXPECT_EQ(dumpNode(reader), "Empty c");
    EXPECT_EQ(reader.getLastContent(), "");
}

// End tags.

TEST(XmlReaderTag, AnEndTagNeedNotMatchItsStart) {
    EXPECT_EQ(dump("<a></b>"), "Start a End b");
    EXPECT_EQ(dump("<a><b></a></b>"), "Start a Start b End a End b");
}

TEST(XmlReaderTag, AnEndTagThatOnlyStartsLikeItsStartIsReadWhole) {
    EXPECT_EQ(dump("<a></ab>"), "Start a End ab");
    EXPECT_EQ(dump("<ab></a>"), "Start ab End a");
    EXPECT_EQ(dump("<a></a:b>"), "Start a End a:b");
    EXPECT_EQ(dump("<a></a-b>"), "Start a End a-b");
    EXPECT_EQ(dump("<a></a\xC3\xA4>"), "Start a End a\xC3\xA4");
}

TEST(XmlReaderTag, AnEndTagResolvesInTheScopeOfItsStart) {
    EXPECT_EQ(dump("<p:a xmlns:p='u'></p:a>"), "Start{u}p:a[xmlns:p='u'] End{u}p:a");
    EXPECT_EQ(dump("<p:a xmlns:p='u'></p:b>"), "Start{u}p:a[xmlns:p='u'] End{u}p:b");
    EXPECT_EQ(dump("<a xmlns:p='u'></p:a>"), "Start a[xmlns:p='u'] End{u}p:a");
}

TEST(XmlReaderTag, AnEndTagLeavesAttributesAndTextAsTheyWere) {
    XmlReader reader("<a b='1'>x</a>"s);
    for (int i = 0; i < 3; ++i) {
        reader.readNextNode();
    }
    EXPECT_EQ(dumpNode(reader), "End a");
    EXPECT_EQ(dumpAttributes(reader.getLastAttributesI()), "[b='1']");
    EXPECT_EQ(reader.getLastContent(), "x");
}

TEST(XmlReaderTag, OnlyWhiteSpaceMayFollowTheNameOfAnEndTag) {
    EXPECT_EQ(failureOf("<a></a b>"), "1:9 [XML_PARSE_UNEXPECTED_CHAR] Unexpected character /");
    EXPECT_EQ(dump("<a></a/>"), "Start a !XML_PARSE_UNEXPECTED_CHAR");
    EXPECT_EQ(dump("<a></a<b/>"), "Start a !XML_PARSE_UNEXPECTED_CHAR");
    EXPECT_EQ(dump("<a></a b='1'>"), "Start a !XML_PARSE_UNEXPECTED_CHAR");
}

TEST(XmlReaderTag, AnEndTagNeedsANameAtOnce) {
    expectRows({{"<a></>", "Start a !XML_PARSE_ILLEGAL_NAME"},
                {"<a></ a>", "Start a !XML_PARSE_ILLEGAL_NAME"},
                {"<a><//a>", "Start a !XML_PARSE_ILLEGAL_NAME"}});
}

TEST(XmlReaderTag, AnEndTagMayComeFirst) {
    EXPECT_EQ(dump("</a><p:b xmlns:p='u'/>"), "End a Empty{u}p:b[xmlns:p='u']");
    EXPECT_EQ(dump("</a></b><c xmlns='u'></c>"), "End a End b Start{u}c[xmlns='u'] End{u}c");
}

TEST(XmlReaderTag, AnEndTagAtTheStartPopsTheBaseScope) {
    XmlReader reader("</a><p:b/>"s);
    reader.addNamespace(XmlNamespace("p", "u"));
    reader.readNextNode();
    EXPECT_EQ(reader.getNamespaceStack().depth(), 0u);
    EXPECT_EQ(reader.getURIForPrefix("p"), "");
    reader.addNamespace(XmlNamespace("q", "v"));
    EXPECT_EQ(dumpRest(reader), "Empty p:b");
}

TEST(XmlReaderTag, ManyEndTagsMayComeFirst) {
    std::string document;
    for (int i = 0; i < 50; ++i) {
        document += "</a>";
    }
    XmlReader reader(document + "<b xmlns='u'><c/></b>");
    dumpRest(reader, 50);
    EXPECT_EQ(dumpRest(reader), "Start{u}b[xmlns='u'] Empty{u}c End{u}b");
}

// Depth and the end.

TEST(XmlReaderTag, WhiteSpaceBehindTheRootIsPartOfTheEnd) {
    for (const char* rest : {"", "\n", "  \n", " \t\r\n", "          "}) {
        EXPECT_EQ(dump("<ab/>"s + rest), "Empty ab");
        EXPECT_EQ(dump("<a></a>"s + rest), "Start a End a");
    }
}

TEST(XmlReaderTag, TheEndIsKnownWhereTheReaderStandsBehindTheRoot) {
    XmlReader reader("<a></a> \n"s);
    EXPECT_FALSE(reader.eof());
    reader.readNextNode();
    EXPECT_FALSE(reader.eof());
    reader.readNextNode();
    EXPECT_TRUE(reader.eof());
    EXPECT_TRUE(reader.eof());
}

TEST(XmlReaderTag, TheLastByteCountsAsRead) {
    EXPECT_EQ(dump("<a/>x"), "Empty a");
    EXPECT_EQ(dump("<a/>  x"), "Empty a");
    EXPECT_EQ(dump("<ab>x"), "Start ab");
    EXPECT_EQ(dump("<ab><"), "Start ab");
    EXPECT_EQ(dump("<ab>xy"), "Start ab !XML_PARSE_PREMATURE_EOF");
}

TEST(XmlReaderTag, WhiteSpaceIsSkippedForTheEndOnlyOutsideAllElements) {
    EXPECT_EQ(dump("<a>  "), "Start a !XML_PARSE_PREMATURE_EOF");
    // One end tag too many leaves the depth below zero.
    EXPECT_EQ(dump("<a></a></b>  "), "Start a End a End b !XML_PARSE_PREMATURE_EOF");
}

TEST(XmlReaderTag, AskingForTheEndInsideAnElementSkipsNothing) {
    XmlReader reader("<a>  <b/></a>"s);
    reader.readNextNode();
    EXPECT_FALSE(reader.eof());
    reader.readNextNode();
    EXPECT_EQ(dumpNode(reader), "Data'  '");
}

TEST(XmlReaderTag, AskingForTheEndBetweenRootsSkipsWhiteSpace) {
    XmlReader reader("<a/>  <b/>"s);
    reader.readNextNode();
    EXPECT_FALSE(reader.eof());
    reader.readNextNode();
    EXPECT_EQ(dumpNode(reader), "Empty b");
}

TEST(XmlReaderTag, WithoutAskingWhiteSpaceBetweenRootsIsText) {
    XmlReader reader("<a/>  <b/>"s);
    reader.readNextNode();
    reader.readNextNode();
    EXPECT_EQ(dumpNode(reader), "Data'  '");
}

TEST(XmlReaderTag, MarkupBehindTheRootIsRead) {
    EXPECT_EQ(dump("<a/><b/>"), "Empty a Empty b");
    EXPECT_EQ(dump("<a></a><b>x</b>"), "Start a End a Start b Data'x' End b");
}

TEST(XmlReaderTag, TextBehindTheRootEndsTheDocumentTooEarly) {
    EXPECT_EQ(dump("<a/>xy"), "Empty a !XML_PARSE_PREMATURE_EOF");
}

TEST(XmlReaderTag, ReadingAtTheEndFails) {
    XmlReader reader("<ab/>"s);
    reader.readNextNode();
    EXPECT_TRUE(reader.eof());
    EXPECT_THROW(reader.readNextNode(), XmlParseLineColException);
    EXPECT_TRUE(reader.eof());
}

// Failures.

TEST(XmlReaderTag, AfterAFailureReadingGoesOnAtTheCursor) {
    XmlReader reader("<a><1>x</a>"s);
    EXPECT_EQ(dumpRest(reader), "Start a !XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(dumpRest(reader), "Data'>x' End a");
}

TEST(XmlReaderTag, AFailingTagLeavesTheFieldsAsTheFailureFoundThem) {
    XmlReader reader("<a b='1'>x<c d='2' 3/></a>"s);
    EXPECT_EQ(dumpRest(reader), "Start a[b='1'] Data'x' !XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(dumpName(reader.getLastNameI()), "a");
    EXPECT_EQ(dumpAttributes(reader.getLastAttributesI()), "[d='2']");
    EXPECT_EQ(reader.getLastContent(), "x");
}

TEST(XmlReaderTag, CallersReportTheirOwnFailuresAtTheCursor) {
    XmlReader reader("<a>\n<b/></a>"s);
    dumpRest(reader, 3);
    try {
        reader.err(here(), message(MessageCatalogId("TEST", "KEY", "not %1%"), "this"));
        FAIL();
    } catch (const XmlParseLineColException& failure) {
        EXPECT_STREQ(failure.what(), "[KEY] not this");
        EXPECT_EQ(failure.getLineNumber(), 2u);
        EXPECT_EQ(failure.getColumnNumber(), 5u);
    }
}

}  // namespace
}  // namespace nolk
