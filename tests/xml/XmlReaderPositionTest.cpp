#include <nolk/core/XmlReader.h>

#include <gtest/gtest.h>

#include <string>

#include "XmlReaderDump.h"

namespace nolk {
namespace {

using namespace std::string_literals;
using namespace nolk::test;

struct Place {
    const char* document;
    const char* expected;  // line, column and text
};

// Every failure of the lexical layer. The byte found wrong counts as read, unless it was only
// looked at or given back.
const Place failures[] = {
    {"<a/>", "1:1 [XML_PARSE_PREMATURE_EOF] Premature EOF"},
    {"<a>xyz", "1:7 [XML_PARSE_PREMATURE_EOF] Premature EOF"},
    {"<abc\xC3", "1:6 [XML_PARSE_PREMATURE_EOF_INSIDE_CHAR] Premature EOF inside character"},
    {"<a><1/></a>", "1:6 [XML_PARSE_ILLEGAL_NAME] Illegal starting character for name: 1"},
    {"<a></1></a>", "1:7 [XML_PARSE_ILLEGAL_NAME] Illegal starting character for name: 1"},
    {"<a 1=''/>", "1:5 [XML_PARSE_ILLEGAL_NAME] Illegal starting character for name: 1"},
    {"<?1?><a/>", "1:4 [XML_PARSE_ILLEGAL_NAME] Illegal starting character for name: 1"},
    {"  x<a/>", "1:4 [XML_PARSE_INVALID_FIRST_CHAR] First non-ws character in document wasn't '<'"},
    {"<?xml encoding='UTF-8'?><a/>",
     "1:8 [XML_PARSE_INVALID_FIRST_CHAR] First non-ws character in document wasn't '<'"},
    {"<!ELEMENT a>", "1:10 [XML_PARSE_UNKNOWN_PROLOG] Unknown prolog tag"},
    {"<!-x--><a/>", "1:5 [XML_PARSE_COMMENT_SYNTAX_ERROR] Syntax error on comment"},
    {"<a>y<!-x--></a>", "1:9 [XML_PARSE_COMMENT_SYNTAX_ERROR] Syntax error on comment"},
    {"<!-- a--b --><a/>", "1:10 [XML_PARSE_COMMENT_INVALID_DASH] Invalid -- inside comment"},
    {"<a><!-- a--b --></a>", "1:13 [XML_PARSE_COMMENT_INVALID_DASH] Invalid -- inside comment"},
    {"<a><!----></a>", "1:10 [XML_PARSE_COMMENT_INVALID_DASH] Invalid -- inside comment"},
    {"<a>x<!-- a--b --></a>", "1:14 [XML_PARSE_COMMENT_INVALID_DASH] Invalid -- inside comment"},
    {"<a>&#1x;</a>",
     "1:9 [XML_PARSE_INVALID_CHAR_IN_REFERENCE] invalid character in hexadecimal character "
     "reference."},
    {"<a b='&#X41;'/>",
     "1:13 [XML_PARSE_INVALID_CHAR_IN_REFERENCE] invalid character in hexadecimal character "
     "reference."},
    {"<a><![cdata[x]]></a>",
     "1:12 [XML_PARSE_INVALID_CDATA_DIRECTIVE] '<![' wasnt followed by 'CDATA'"},
    {"<a><![CDATA x]]></a>",
     "1:13 [XML_PARSE_INVALID_CDATA_DIRECTIVE] '<![' wasnt followed by 'CDATA'"},
    {"<a b/>", "1:6 [XML_PARSE_ATTRIBUTE_INVALID_CHAR] invalid character in attribute definition"},
    {"<a b=c/>",
     "1:7 [XML_PARSE_ATTRIBUTE_INVALID_CHAR] invalid character in attribute definition"},
    {"<a b = c/>",
     "1:9 [XML_PARSE_ATTRIBUTE_INVALID_CHAR] invalid character in attribute definition"},
    {"<a b='<'/>",
     "1:8 [XML_PARSE_ATTRIBUTE_UNTERMINATED_VALUE] Syntax error: unterminated attribute value"},
    {"<a/ >", "1:5 [XML_PARSE_INVALID_SLASH] Invalid '/' found in tag"},
    {"<a></a b>", "1:9 [XML_PARSE_UNEXPECTED_CHAR] Unexpected character /"},
    {"<a></a\n b>", "2:3 [XML_PARSE_UNEXPECTED_CHAR] Unexpected character /"},
    {"<a>y<!x></a>", "1:8 [XML_PARSE_INVALID_SEQUENCE] Invalid character sequence <!x"},
    {"<a><!x></a>", "1:6 [XML_PARSE_INVALID_SEQUENCE] Invalid character sequence <!x"},
};

TEST(XmlReaderPosition, EveryFailureTellsLineColumnAndText) {
    for (const auto& [document, expected] : failures) {
        EXPECT_EQ(failureOf(document), expected) << document;
    }
}

TEST(XmlReaderPosition, TheFailureIsOfTheClassWithLineAndColumn) {
    try {
        XmlReader reader("x<a/>"s);
        FAIL();
    } catch (const XmlParseException& failure) {
        EXPECT_NE(dynamic_cast<const XmlParseLineColException*>(&failure), nullptr);
    }
}

TEST(XmlReaderPosition, TheFailureRecordsItsThrowSiteBesides) {
    try {
        XmlReader reader("x<a/>"s);
        FAIL();
    } catch (const Exception& failure) {
        EXPECT_NE(std::string(failure.getFileName()).find("XmlReader"), std::string::npos);
        EXPECT_NE(failure.getLineNumber(), 0u);
        EXPECT_NE(std::string(failure.getFunctionName()), "");
    }
}

// Lines.

TEST(XmlReaderPosition, OnlyAnLfRaisesTheLine) {
    EXPECT_EQ(placeOf("\n\n<a>\n<1/>"), "4:3 XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(placeOf("<a \n b='1'\n\n 2/>"), "4:3 XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(placeOf("\r\r<a \r 2/>"), "1:9 XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(placeOf("\r\n<a \r\n 2/>"), "3:3 XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(placeOf("<a\t2/>"), "1:5 XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderPosition, AZeroByteIsAColumn) {
    EXPECT_EQ(placeOf("<!--\0\0--><1/>"s), "1:12 XML_PARSE_ILLEGAL_NAME");
}

// Columns by the lead byte of a character.

TEST(XmlReaderPosition, HighBytesAreColumnsByTheirHighNibble) {
    for (unsigned lead = 0x80; lead < 0x100; ++lead) {
        const unsigned nibble = lead >> 4;
        const unsigned skipped = nibble == 0xC ? 1 : nibble == 0xE ? 2 : nibble == 0xF ? 3 : 0;
        const std::string text = "<!--" + std::string(1, static_cast<char>(lead)) + "....--><1/>";
        // Fifteen bytes up to the wrong one and with it: 4 + 1 + 4 + 3 + 2, and the column behind.
        EXPECT_EQ(placeOf(text), "1:" + std::to_string(15 - skipped) + " XML_PARSE_ILLEGAL_NAME")
            << lead;
    }
}

TEST(XmlReaderPosition, CharactersOfTwoBytesWithLeadC2ToCFAreOneColumn) {
    EXPECT_EQ(placeOf("<a>\xC3\xA4\xC2\xA0<1/>"), "1:8 XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderPosition, CharactersOfTwoBytesWithLeadD0ToDFAreTwoColumns) {
    EXPECT_EQ(placeOf("<a>\xD0\x96\xDF\xBF<1/>"), "1:10 XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderPosition, LongerCharactersAreOneColumn) {
    EXPECT_EQ(placeOf("<a>\xE2\x82\xAC\xF0\x9F\x98\x80<1/>"), "1:8 XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderPosition, ALeadTakesLineEndsIntoItsColumn) {
    EXPECT_EQ(placeOf("<a>\xE4\n\n<1/>"), "1:7 XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(placeOf("<a>\xC3\n<1/>"), "1:7 XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(placeOf("<a>\xD0\n<1/>"), "2:3 XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderPosition, ALeadAtTheEndTakesNothingBehindIt) {
    EXPECT_EQ(placeOf("<abc>\xFF"), "1:7 XML_PARSE_PREMATURE_EOF");
}

TEST(XmlReaderPosition, TheMarkOfUtf8IsNotCounted) {
    EXPECT_EQ(placeOf("\xEF\xBB\xBF<1/>"), "1:3 XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(placeOf("\xEF\xBB\xBF\n<1/>"), "2:3 XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderPosition, TheMarkOfUtf8CountsWhereItIsNotInFront) {
    EXPECT_EQ(placeOf("<a>\xEF\xBB\xBF<1/>"), "1:7 XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderPosition, ConvertedTextIsCountedAsConverted) {
    EXPECT_EQ(placeOf("<?xml version='1.0' encoding='ISO-8859-1'?>\n<a>\xE4\xE4\xE4<1/>"),
              "2:9 XML_PARSE_ILLEGAL_NAME");
    // 0xD0 is C3 90 as UTF-8, and so one column here.
    EXPECT_EQ(placeOf("<?xml version='1.0' encoding='ISO-8859-1'?>\n<a>\xD0<1/>"),
              "2:7 XML_PARSE_ILLEGAL_NAME");
}

// Text that was moved to the left counts as it stands now, left-over bytes behind it among it.

TEST(XmlReaderPosition, AFoldedCrRaisesTheLine) {
    EXPECT_EQ(placeOf("<a>\r<1/>"), "2:3 XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(placeOf("<a>\r<1/>", rawContent), "1:7 XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderPosition, AFoldedCrLfLeavesTheLfBehindUnlessTextCoversIt) {
    EXPECT_EQ(placeOf("<a>\r\n<1/>"), "3:3 XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(placeOf("<a>\r\nx<1/>"), "2:5 XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(placeOf("<a>\r\n<1/>", rawContent), "2:3 XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderPosition, AReferenceKeepsItsWidthAsLeftOverBytes) {
    EXPECT_EQ(placeOf("<a>&lt;<1/>"), "1:10 XML_PARSE_ILLEGAL_NAME");
    // The line end that was written takes the columns in front of it away: "<a>", LF, "#10;".
    EXPECT_EQ(placeOf("<a>&#10;<1/>"), "2:7 XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderPosition, ACharacterWrittenForAReferenceIsOneColumn) {
    // Three bytes of the seven are the character, four are left over.
    EXPECT_EQ(placeOf("<a>&#8364;<1/>"), "1:11 XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderPosition, MovedTextCountsTwiceWhereItsOldPlaceIsLeftOver) {
    // "<a>", LF, "\xC3\xA4x", then of the old text ";", "\xC3\xA4x": five columns behind the LF.
    EXPECT_EQ(placeOf("<a>&#10;\xC3\xA4x"), "2:6 XML_PARSE_PREMATURE_EOF");
}

TEST(XmlReaderPosition, MovedTextCountsAtItsNewPlaceForAFailingComment) {
    // "<a>", LF, "xy", "0;xy", and "<!-z" of eight more bytes.
    EXPECT_EQ(placeOf("<a>&#10;xy<!-z"), "2:11 XML_PARSE_COMMENT_SYNTAX_ERROR");
}

TEST(XmlReaderPosition, ADroppedCommentLeavesItsLineEndsUntilTextCoversThem) {
    EXPECT_EQ(placeOf("<a>x<!--\n-->y<1/>"), "2:7 XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(placeOf("<a>x<!--\n-->yyyyyyyyy<1/>"), "1:24 XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderPosition, MovedTextThatHoldsLineEndsCountsThemAtBothPlaces) {
    // "<a>x", LF and "y" moved, then left over "--c-->" and the old LF and "y".
    EXPECT_EQ(placeOf("<a>x<!--c-->\ny<1/>"), "3:4 XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderPosition, AReferenceInAValueMovesTheValueOnly) {
    // The LF stands in front of what is left of the reference, "#10;", and of the tag.
    EXPECT_EQ(placeOf("<a b='&#10;' 1/>"), "2:8 XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(placeOf("<a b='&lt;x' 1/>"), "1:15 XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderPosition, AValueMovedOverItsOwnLineEndsCountsThemAsTheyStand) {
    // The value is "<", LF, "y" now, and ";", LF, "y" of the old one are left.
    EXPECT_EQ(placeOf("<a b='&lt;\ny' 1/>"), "3:5 XML_PARSE_ILLEGAL_NAME");
}

}  // namespace
}  // namespace nolk
