#include <nolk/core/XmlReader.h>

#include <gtest/gtest.h>

#include <string>

#include "XmlReaderDump.h"

namespace nolk {
namespace {

using namespace std::string_literals;
using namespace nolk::test;

std::string inText(const std::string& text, const ReadSettings& settings = {}) {
    return textOf("<a>" + text + "</a>", settings);
}

std::string inValue(const std::string& value, const ReadSettings& settings = {}) {
    return valueOf("<a b=\"" + value + "\"/>", settings);
}

// References that read alike in text and in attribute values.
void expectBoth(const std::string& written, const std::string& read) {
    EXPECT_EQ(inText("x" + written + "y"), "x" + read + "y") << written;
    EXPECT_EQ(inValue("x" + written + "y"), "x" + read + "y") << written;
    EXPECT_EQ(inText(written), read) << written;
    EXPECT_EQ(inValue(written), read) << written;
}

void expectInvalid(const std::string& written) {
    EXPECT_EQ(inText(written), "!XML_PARSE_INVALID_CHAR_IN_REFERENCE") << written;
    EXPECT_EQ(inValue(written), "!XML_PARSE_INVALID_CHAR_IN_REFERENCE") << written;
}

TEST(XmlReaderReference, TheFivePredefinedEntitiesAreReplaced) {
    expectBoth("&lt;", "<");
    expectBoth("&gt;", ">");
    expectBoth("&amp;", "&");
    expectBoth("&apos;", "'");
    expectBoth("&quot;", "\"");
}

TEST(XmlReaderReference, ManyInARowAreReplaced) {
    expectBoth("&lt;&lt;&amp;&gt;&#65;&quot;&quot;&apos;", "<<&>A\"\"'");
}

TEST(XmlReaderReference, WhatAReferenceWroteIsNotReadAgain) {
    expectBoth("&amp;lt;", "&lt;");
    expectBoth("&#38;lt;", "&lt;");
    expectBoth("&#60;b&#62;", "<b>");
}

TEST(XmlReaderReference, UnknownEntitiesStayAsWritten) {
    for (const char* entity : {"&foo;", "&LT;", "&Amp;", "&lt ;", "& lt;", "&ltx;", "&l;", "&quo;",
                               "&apos';", "&;", "& ;", "&nbsp;", "&\xC3\xA4;", "&a&b;"}) {
        expectBoth(entity, entity);
    }
}

TEST(XmlReaderReference, AnUnknownEntityKeepsTheTextBehindItInPlace) {
    expectBoth("&lt;&foo;&gt;&bar;", "<&foo;>&bar;");
}

TEST(XmlReaderReference, AStrayAmpersandTakesTextUpToTheNextSemicolon) {
    EXPECT_EQ(inText("a & b; c"), "a & b; c");
    EXPECT_EQ(inText("&&lt;"), "&&lt;");
    EXPECT_EQ(inText("a &lt b &lt; c"), "a &lt b &lt; c");
}

TEST(XmlReaderReference, AStrayAmpersandTakesTagsToo) {
    EXPECT_EQ(dump("<a>x & y</a><b>;z</b>"), "Start a Data'x & y</a><b>;z' End b");
    EXPECT_EQ(dump("<a>&<!--c-->;<b/></a>"), "Start a Data'&<!--c-->;' Empty b End a");
}

TEST(XmlReaderReference, AStrayAmpersandInAValueTakesQuotesAndTagsToo) {
    EXPECT_EQ(dump("<a b=\"x & y\" c=\"1;2\"/>"), "Empty a[b='x & y\" c=\"1;2']");
    EXPECT_EQ(dump("<a b=\"&<;\"/>"), "Empty a[b='&<;']");
}

TEST(XmlReaderReference, AnUnknownEntityIsCopiedWithItsLineEnds) {
    EXPECT_EQ(inText("&x\r\ny\r;\r\n"), "&x\r\ny\r;\n");
}

TEST(XmlReaderReference, WithoutAnySemicolonTheDocumentEndsTooEarly) {
    EXPECT_EQ(placeOf("<a>a & b</a>"), "1:13 XML_PARSE_PREMATURE_EOF");
    EXPECT_EQ(placeOf("<a b='&lt'/>"), "1:13 XML_PARSE_PREMATURE_EOF");
    EXPECT_EQ(placeOf("<aa>&"), "1:6 XML_PARSE_PREMATURE_EOF");
    EXPECT_EQ(placeOf("<aa>&#6"), "1:8 XML_PARSE_PREMATURE_EOF");
}

// Characters by number.

TEST(XmlReaderReference, DecimalAndHexadecimalNumbersAreReplaced) {
    expectBoth("&#65;", "A");
    expectBoth("&#x41;", "A");
    expectBoth("&#0065;", "A");
    expectBoth("&#x0000000041;", "A");
    expectBoth("&#xaf;", "\xC2\xAF");
    expectBoth("&#xAF;", "\xC2\xAF");
    expectBoth("&#xaF;", "\xC2\xAF");
    expectBoth("&#1234567;", "\xF0\xAD\x9A\x87");
}

TEST(XmlReaderReference, EveryDigitCounts) {
    expectBoth("&#x10;&#x32;&#x54;&#x76;&#x98;", "\x10\x32\x54\x76\xC2\x98");
    expectBoth("&#xAB;&#xCD;&#xEF;&#xab;&#xcd;&#xef;",
               "\xC2\xAB\xC3\x8D\xC3\xAF\xC2\xAB\xC3\x8D\xC3\xAF");
    expectBoth("&#9786;&#1234;&#50;", "\xE2\x98\xBA\xD3\x92\x32");
}

TEST(XmlReaderReference, NumbersAreWrittenAsUtf8OfTheirSize) {
    expectBoth("&#x7F;", "\x7F");
    expectBoth("&#x80;", "\xC2\x80");
    expectBoth("&#x7FF;", "\xDF\xBF");
    expectBoth("&#x800;", "\xE0\xA0\x80");
    expectBoth("&#xFFFF;", "\xEF\xBF\xBF");
    expectBoth("&#x10000;", "\xF0\x90\x80\x80");
    expectBoth("&#x1F600;", "\xF0\x9F\x98\x80");
    expectBoth("&#x3FFFF;", "\xF0\xBF\xBF\xBF");
}

TEST(XmlReaderReference, IllegalCharactersAreWrittenToo) {
    expectBoth("&#1;", "\x01");
    expectBoth("&#xD800;", "\xED\xA0\x80");
    expectBoth("&#xDFFF;", "\xED\xBF\xBF");
    expectBoth("&#xFFFE;", "\xEF\xBF\xBE");
}

TEST(XmlReaderReference, CharactersFrom40000UpLoseTheirHighBits) {
    expectBoth("&#x40000;", "\xF0\x80\x80\x80");
    expectBoth("&#x50000;", "\xF0\x90\x80\x80");
    expectBoth("&#x10FFFF;", "\xF0\x8F\xBF\xBF");
    expectBoth("&#x110000;", "\xF0\x90\x80\x80");
    expectBoth("&#xFFFFFFFF;", "\xF0\xBF\xBF\xBF");
}

TEST(XmlReaderReference, NumbersWrapAtThirtyTwoBits) {
    expectBoth("&#4294967361;", "A");
    expectBoth("&#x100000041;", "A");
    expectBoth("&#4294967296;", "\0"s);
    expectBoth("&#xABCDEF00000041;", "A");
    // 2 to the power of 64, and 65 more.
    expectBoth("&#18446744073709551681;", "A");
}

TEST(XmlReaderReference, ANumberOfZeroWritesAZeroByte) {
    expectBoth("&#0;", "\0"s);
    expectBoth("&#x0;", "\0"s);
    expectBoth("&#x000;", "\0"s);
}

TEST(XmlReaderReference, NoDigitAtAllIsZero) {
    expectBoth("&#;", "\0"s);
    expectBoth("&#x;", "\0"s);
}

TEST(XmlReaderReference, AnyOtherByteAmongTheDigitsIsRefused) {
    for (const char* reference :
         {"&#X41;", "&#a;",   "&#12a;", "&#1 ;",       "&# 1;", "&#-1;",  "&#+1;", "&#1.0;",
          "&#/;",   "&#:;",   "&#x1G;", "&#xg;",       "&#x/;", "&#x:;",  "&#x@;", "&#x`;",
          "&#x 1;", "&#xx1;", "&#x-1;", "&#\xC2\xB2;", "&##1;", "&#1&#2;"}) {
        expectInvalid(reference);
    }
}

TEST(XmlReaderReference, BadDigitsAreToldWithOneTextForBothForms) {
    const std::string told =
        " [XML_PARSE_INVALID_CHAR_IN_REFERENCE] invalid character in hexadecimal character "
        "reference.";
    EXPECT_EQ(failureOf("<a>&#1a;</a>"), "1:9" + told);
    EXPECT_EQ(failureOf("<a>&#x1g;</a>"), "1:10" + told);
}

TEST(XmlReaderReference, ACrByReferenceIsNotALineEnd) {
    expectBoth("&#13;\n", "\r\n");
}

// Switched off.

TEST(XmlReaderReference, TextKeepsReferencesIfTold) {
    EXPECT_EQ(inText("&lt;&#65;&foo;&", rawContent), "&lt;&#65;&foo;&");
    EXPECT_EQ(inText("x & y", rawContent), "x & y");
    EXPECT_EQ(inText("&#X41;", rawContent), "&#X41;");
}

TEST(XmlReaderReference, ValuesKeepReferencesIfTold) {
    EXPECT_EQ(inValue("&lt;&#65;&foo;&", rawAttributes), "&lt;&#65;&foo;&");
    EXPECT_EQ(inValue("x & y", rawAttributes), "x & y");
    EXPECT_EQ(inValue("&<;", rawAttributes), "!XML_PARSE_ATTRIBUTE_UNTERMINATED_VALUE");
}

TEST(XmlReaderReference, TheTwoSettingsAreIndependent) {
    EXPECT_EQ(inText("&lt;", rawAttributes), "<");
    EXPECT_EQ(inValue("&lt;", rawContent), "<");
}

// Compaction.

TEST(XmlReaderReference, LongTextBehindAReferenceIsMovedWhole) {
    std::string written;
    std::string read;
    for (int i = 0; i < 300; ++i) {
        written += std::string(static_cast<std::size_t>(i), 'x') + "&amp;";
        read += std::string(static_cast<std::size_t>(i), 'x') + "&";
    }
    EXPECT_EQ(inText(written), read);
    EXPECT_EQ(inValue(written), read);
}

TEST(XmlReaderReference, ReplacingInAValueLeavesTheRestOfTheTagAlone) {
    EXPECT_EQ(dump("<a b='&lt;&gt;' c='&#65;' d='x'>&amp;<e f='&quot;'/></a>"),
              "Start a[b='<>' c='A' d='x'] Data'&' Empty e[f='\"'] End a");
}

}  // namespace
}  // namespace nolk
