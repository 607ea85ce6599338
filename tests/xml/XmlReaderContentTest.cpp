#include <nolk/core/XmlReader.h>

#include <gtest/gtest.h>

#include <string>

#include "XmlReaderDump.h"

namespace nolk {
namespace {

using namespace std::string_literals;
using namespace nolk::test;

void expectRows(std::initializer_list<Row> rows, const ReadSettings& settings = {}) {
    for (const auto& [document, expected] : rows) {
        EXPECT_EQ(dump(document, settings), expected) << document;
    }
}

// Text.

TEST(XmlReaderContent, TextIsGivenWhole) {
    EXPECT_EQ(dump("<a>some text</a>"), "Start a Data'some text' End a");
}

TEST(XmlReaderContent, WhiteSpaceBetweenTagsIsText) {
    EXPECT_EQ(dump("<a> <b/>\n</a>"), "Start a Data' ' Empty b Data'\n' End a");
}

TEST(XmlReaderContent, NothingBetweenTagsIsNoText) {
    EXPECT_EQ(dump("<a><b></b></a>"), "Start a Start b End b End a");
}

TEST(XmlReaderContent, CharactersAreNotChecked) {
    expectRows({{"<a>]]></a>", "Start a Data']]>' End a"},
                {"<a>></a>", "Start a Data'>' End a"},
                {"<a>\x01\x1F\x7F</a>", "Start a Data'\x01\x1F\x7F' End a"},
                {"<a>\xEF\xBF\xBF\xED\xA0\x80</a>", "Start a Data'\xEF\xBF\xBF\xED\xA0\x80' End a"},
                {"<a>\xFF\xC3</a>", "Start a Data'\xFF\xC3' End a"}});
    EXPECT_EQ(dump("<a>x\0y</a>"s), "Start a Data'x\0y' End a"s);
}

TEST(XmlReaderContent, LongTextEndsAtItsTag) {
    for (std::size_t length = 1; length < 200; ++length) {
        const std::string text(length, 't');
        EXPECT_EQ(dump("<a>" + text + "</a>"), "Start a Data'" + text + "' End a");
        EXPECT_EQ(textOf("<a>" + text + "&lt;" + text + "\r\n" + text + "</a>"),
                  text + "<" + text + "\n" + text);
    }
}

// Line ends.

TEST(XmlReaderContent, CrAndCrLfBecomeLf) {
    EXPECT_EQ(textOf("<a>x\ry</a>"), "x\ny");
    EXPECT_EQ(textOf("<a>x\r\ny</a>"), "x\ny");
    EXPECT_EQ(textOf("<a>x\ny</a>"), "x\ny");
    EXPECT_EQ(textOf("<a>\r\r\n\n\r</a>"), "\n\n\n\n");
    EXPECT_EQ(textOf("<a>\r</a>"), "\n");
    EXPECT_EQ(textOf("<a>\r\n</a>"), "\n");
    EXPECT_EQ(textOf("<a>\n\r</a>"), "\n\n");
}

TEST(XmlReaderContent, LineEndsStayIfContentIsToStay) {
    EXPECT_EQ(textOf("<a>x\r\ny\rz</a>", rawContent), "x\r\ny\rz");
}

TEST(XmlReaderContent, ManyLineEndsAreFolded) {
    std::string written;
    std::string read;
    for (std::size_t i = 0; i < 200; ++i) {
        written += std::string(i, 'x') + "\r\n";
        read += std::string(i, 'x') + "\n";
    }
    EXPECT_EQ(textOf("<a>" + written + "</a>"), read);
}

// Comments between nodes.

TEST(XmlReaderContent, CommentsBetweenNodesAreSkippedWhateverTheSetting) {
    for (const ReadSettings& settings :
         {ReadSettings(), keptComments, rawContent, rawWithComments}) {
        expectRows({{"<a><!--c--></a>", "Start a End a"},
                    {"<a><!--c--><!--d--><b/></a>", "Start a Empty b End a"},
                    {"<a><b/><!--c--></a>", "Start a Empty b End a"},
                    {"<a><!--c-->x</a>", "Start a Data'x' End a"},
                    {"<a><b></b><!----><c/></a>",
                     "Start a Start b End b !XML_PARSE_COMMENT_INVALID_DASH"}},
                   settings);
    }
}

TEST(XmlReaderContent, BetweenNodesACommentMayCloseAtOnce) {
    EXPECT_EQ(dump("<a><!---></a>"), "Start a End a");
    EXPECT_EQ(dump("<a><!--->x</a>"), "Start a Data'x' End a");
}

TEST(XmlReaderContent, BetweenNodesTheDashesOfTheOpeningCountForTheEnd) {
    EXPECT_EQ(dump("<a><!----></a>"), "Start a !XML_PARSE_COMMENT_INVALID_DASH");
    EXPECT_EQ(dump("<a><!----x--></a>"), "Start a !XML_PARSE_COMMENT_INVALID_DASH");
    EXPECT_EQ(dump("<a><!--x--></a>"), "Start a End a");
}

TEST(XmlReaderContent, BetweenNodesOneDashOpensAComment) {
    EXPECT_EQ(dump("<a><!-x--></a>"), "Start a End a");
    EXPECT_EQ(dump("<a><!-> x --></a>"), "Start a End a");
}

TEST(XmlReaderContent, BetweenNodesTwoDashesMustEndAComment) {
    EXPECT_EQ(dump("<a><!-- a--b --></a>"), "Start a !XML_PARSE_COMMENT_INVALID_DASH");
    EXPECT_EQ(dump("<a><!--x---></a>"), "Start a !XML_PARSE_COMMENT_INVALID_DASH");
}

TEST(XmlReaderContent, ACommentBehindTheRootEndsTheDocumentTooEarly) {
    EXPECT_EQ(dump("<a/><!--c-->"), "Empty a !XML_PARSE_PREMATURE_EOF");
    EXPECT_EQ(dump("<a/>\n<!--c-->\n"), "Empty a !XML_PARSE_PREMATURE_EOF");
}

// Comments in text.

TEST(XmlReaderContent, CommentsInTextAreDropped) {
    expectRows({{"<a>x<!--c-->y</a>", "Start a Data'xy' End a"},
                {"<a>x<!----></a>", "Start a Data'x' End a"},
                {"<a>x<!--c--><!--d-->y<!--e--></a>", "Start a Data'xy' End a"},
                {"<a> <!--c--> <b/></a>", "Start a Data'  ' Empty b End a"},
                {"<a>x<!--<b/>&lt;\r\n-->y</a>", "Start a Data'xy' End a"}});
}

TEST(XmlReaderContent, CommentsInTextAreKeptIfTold) {
    expectRows({{"<a>x<!--c-->y</a>", "Start a Data'x<!--c-->y' End a"},
                {"<a>x<!----></a>", "Start a Data'x<!---->' End a"},
                {"<a>x<!-- - - --><!--d-->y</a>", "Start a Data'x<!-- - - --><!--d-->y' End a"},
                {"<a>&lt;<!--&lt;<b/>-->&gt;</a>", "Start a Data'<<!--&lt;<b/>-->>' End a"}},
               keptComments);
}

TEST(XmlReaderContent, LineEndsInAKeptCommentAreFolded) {
    EXPECT_EQ(textOf("<a>x<!--\r\n\r\n\r\r-->\r\n</a>", keptComments), "x<!--\n\n\n\n-->\n");
}

TEST(XmlReaderContent, LineEndsInAKeptCommentAreFoldedEvenWhereContentStays) {
    EXPECT_EQ(textOf("<a>\r\n<!--\r\n\r-->\r\n</a>", rawWithComments), "\r\n<!--\n\n-->\r\n");
}

TEST(XmlReaderContent, TheCommentInFrontOfTextIsNotKept) {
    EXPECT_EQ(dump("<a><!--c-->x<!--d-->y</a>", keptComments), "Start a Data'x<!--d-->y' End a");
}

TEST(XmlReaderContent, InTextOneDashBehindTheOpeningLeavesACommentOpen) {
    for (const ReadSettings& settings : {ReadSettings(), keptComments}) {
        EXPECT_EQ(dump("<a>x<!---></a>", settings), "Start a !XML_PARSE_PREMATURE_EOF");
    }
    EXPECT_EQ(dump("<a>x<!---></a>-->y</a>"), "Start a Data'xy' End a");
    EXPECT_EQ(dump("<a>x<!---></a>-->y</a>", keptComments), "Start a Data'x<!---></a>-->y' End a");
}

TEST(XmlReaderContent, InTextTwoDashesMustEndAComment) {
    for (const ReadSettings& settings : {ReadSettings(), keptComments}) {
        expectRows({{"<a>x<!-- a--b --></a>", "Start a !XML_PARSE_COMMENT_INVALID_DASH"},
                    {"<a>x<!--c---></a>", "Start a !XML_PARSE_COMMENT_INVALID_DASH"},
                    {"<a>x<!-----></a>", "Start a !XML_PARSE_COMMENT_INVALID_DASH"}},
                   settings);
    }
}

TEST(XmlReaderContent, InTextOneDashOpensNoComment) {
    for (const ReadSettings& settings : {ReadSettings(), keptComments}) {
        EXPECT_EQ(dump("<a>y<!-x--></a>", settings), "Start a !XML_PARSE_COMMENT_SYNTAX_ERROR");
        EXPECT_EQ(dump("<a>y<!-></a>", settings), "Start a !XML_PARSE_COMMENT_SYNTAX_ERROR");
    }
}

// CDATA sections.

TEST(XmlReaderContent, SectionsStayInTextAsWritten) {
    expectRows(
        {{"<a><![CDATA[x]]></a>", "Start a Data'<![CDATA[x]]>' End a"},
         {"<a>x<![CDATA[y]]>z</a>", "Start a Data'x<![CDATA[y]]>z' End a"},
         {"<a><![CDATA[]]></a>", "Start a Data'<![CDATA[]]>' End a"},
         {"<a><![CDATA[<b>&lt;</b>]]></a>", "Start a Data'<![CDATA[<b>&lt;</b>]]>' End a"},
         {"<a><![CDATA[\r\n\r]]>\r\n</a>", "Start a Data'<![CDATA[\r\n\r]]>\n' End a"},
         {"<a><![CDATA[a]]><![CDATA[b]]></a>", "Start a Data'<![CDATA[a]]><![CDATA[b]]>' End a"},
         {"<a><![CDATA[<!--c--><?p?>]]></a>", "Start a Data'<![CDATA[<!--c--><?p?>]]>' End a"}});
}

TEST(XmlReaderContent, BracketsInFrontOfTheEndOfASectionBelongToIt) {
    expectRows({{"<a><![CDATA[]]]></a>", "Start a Data'<![CDATA[]]]>' End a"},
                {"<a><![CDATA[]]]]></a>", "Start a Data'<![CDATA[]]]]>' End a"},
                {"<a><![CDATA[]>]] >]]></a>", "Start a Data'<![CDATA[]>]] >]]>' End a"},
                {"<a>x<![CDATA[]]]></a>", "Start a Data'x<![CDATA[]]]>' End a"}});
}

TEST(XmlReaderContent, SectionsBehindMovedTextAreMovedWhole) {
    EXPECT_EQ(textOf("<a>&lt;<![CDATA[x&lt;\r\n]]>&gt;</a>"), "<<![CDATA[x&lt;\r\n]]>>");
    EXPECT_EQ(textOf("<a>x<!--c--><![CDATA[y]]>z</a>"), "x<![CDATA[y]]>z");
    const std::string longText(500, 'x');
    EXPECT_EQ(textOf("<a>&lt;<![CDATA[" + longText + "]]>y</a>"), "<<![CDATA[" + longText + "]]>y");
}

TEST(XmlReaderContent, SectionsStayWhereContentIsToStay) {
    EXPECT_EQ(textOf("<a>\r\n<![CDATA[x]]>&lt;</a>", rawContent), "\r\n<![CDATA[x]]>&lt;");
}

TEST(XmlReaderContent, TextThatStartsWithASectionKeepsItsComments) {
    EXPECT_EQ(dump("<a><![CDATA[x]]>y<!--c-->z</a>"),
              "Start a Data'<![CDATA[x]]>y<!--c-->z' End a");
    EXPECT_EQ(dump("<a><!--b--><![CDATA[x]]><!--c--></a>"),
              "Start a Data'<![CDATA[x]]><!--c-->' End a");
}

TEST(XmlReaderContent, TextThatStartsOtherwiseDropsThemBehindASectionToo) {
    EXPECT_EQ(dump("<a>w<![CDATA[x]]>y<!--c-->z</a>"), "Start a Data'w<![CDATA[x]]>yz' End a");
}

TEST(XmlReaderContent, TextThatStartsWithASectionIsReadBySettingOtherwise) {
    EXPECT_EQ(textOf("<a><![CDATA[x]]>&lt;\r\n</a>"), "<![CDATA[x]]><\n");
    EXPECT_EQ(textOf("<a><![CDATA[x]]>&lt;\r\n</a>", rawContent), "<![CDATA[x]]>&lt;\r\n");
}

TEST(XmlReaderContent, ASectionNeedsItsExactName) {
    expectRows({{"<a><![cdata[x]]></a>", "Start a !XML_PARSE_INVALID_CDATA_DIRECTIVE"},
                {"<a><![CDAT[x]]></a>", "Start a !XML_PARSE_INVALID_CDATA_DIRECTIVE"},
                {"<a><![CDATAX[x]]></a>", "Start a !XML_PARSE_INVALID_CDATA_DIRECTIVE"},
                {"<a><![CDATA [x]]></a>", "Start a !XML_PARSE_INVALID_CDATA_DIRECTIVE"},
                {"<a><![CDATA]></a>", "Start a !XML_PARSE_INVALID_CDATA_DIRECTIVE"},
                {"<a><![[x]]></a>", "Start a !XML_PARSE_ILLEGAL_NAME"},
                {"<a><![ CDATA[x]]></a>", "Start a !XML_PARSE_ILLEGAL_NAME"},
                {"<a>x<![cdata[x]]></a>", "Start a !XML_PARSE_INVALID_CDATA_DIRECTIVE"}});
}

TEST(XmlReaderContent, ASectionMayStandBehindTheRootButTextMustEndInATag) {
    EXPECT_EQ(dump("<a/><![CDATA[x]]><b/>"), "Empty a Data'<![CDATA[x]]>' Empty b");
    EXPECT_EQ(dump("<a/><![CDATA[x]]>"), "Empty a !XML_PARSE_PREMATURE_EOF");
}

// Processing instructions.

TEST(XmlReaderContent, InstructionsInTextAreDropped) {
    expectRows({{"<a>x<?p?>y</a>", "Start a Data'xy' End a"},
                {"<a>x<?p <b> ?\? ?></a>", "Start a Data'x' End a"},
                {"<a>x<?p?><!--c--><?q?>y</a>", "Start a Data'xy' End a"},
                {"<a>&lt;<?p?>&gt;</a>", "Start a Data'<>' End a"},
                {"<a> <?p?> <b/></a>", "Start a Data'  ' Empty b End a"}});
}

TEST(XmlReaderContent, InstructionsBetweenNodesAreDropped) {
    expectRows({{"<a><?p?></a>", "Start a End a"},
                {"<a><?p?><!--c--><?q?><b/></a>", "Start a Empty b End a"},
                {"<a><?p?>x</a>", "Start a Data'x' End a"},
                {"<a><?p?><![CDATA[x]]></a>", "Start a Data'<![CDATA[x]]>' End a"}});
}

TEST(XmlReaderContent, AnInstructionBehindTheRootEndsTheDocumentTooEarly) {
    EXPECT_EQ(dump("<a/><?p?>"), "Empty a !XML_PARSE_PREMATURE_EOF");
    EXPECT_EQ(dump("<a/><?p?>\n"), "Empty a !XML_PARSE_PREMATURE_EOF");
}

TEST(XmlReaderContent, AnInstructionNeedsAName) {
    EXPECT_EQ(dump("<a><?\?></a>"), "Start a !XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(dump("<a>x<? p?></a>"), "Start a !XML_PARSE_ILLEGAL_NAME");
}

// Other directives.

TEST(XmlReaderContent, OtherDirectivesAreRefused) {
    EXPECT_EQ(failureOf("<a>y<!x></a>"),
              "1:8 [XML_PARSE_INVALID_SEQUENCE] Invalid character sequence <!x");
    EXPECT_EQ(failureOf("<a><!x></a>"),
              "1:6 [XML_PARSE_INVALID_SEQUENCE] Invalid character sequence <!x");
    EXPECT_EQ(dump("<a><!DOCTYPE b></a>"), "Start a !XML_PARSE_INVALID_SEQUENCE");
    EXPECT_EQ(dump("<a><!></a>"), "Start a !XML_PARSE_INVALID_SEQUENCE");
    EXPECT_EQ(dump("<a/><!DOCTYPE b>"), "Empty a !XML_PARSE_INVALID_SEQUENCE");
}

// The end of the document in the middle of something.

TEST(XmlReaderContent, ADocumentMayEndOnlyBehindATag) {
    const std::string documents[] = {"<ab>text",
                                     "<ab>text&lt;",
                                     "<ab>text\r",
                                     "<ab>text\r\n",
                                     "<ab>text<!--c-->",
                                     "<ab>text<?p?>",
                                     "<ab><![CDATA[x]]>",
                                     "<ab>text<![CDATA[x]]>",
                                     "<ab><!--c-->",
                                     "<ab><?p?>",
                                     "<ab>"};
    for (const std::string& document : documents) {
        const std::string failure = failureOf(document);
        EXPECT_EQ(failure.substr(failure.find(' ') + 1), "[XML_PARSE_PREMATURE_EOF] Premature EOF")
            << document;
    }
}

TEST(XmlReaderContent, EveryOpenPieceOfMarkupEndsTheDocumentTooEarly) {
    const std::string pieces[] = {"x<!--c-->",    "<!--c-->",    "x<![CDATA[y]]>", "<![CDATA[y]]>",
                                  "x<?pi data?>", "<?pi data?>", "x&amp;",         "&#65;",
                                  "<b c = 'd'/>", "<b>",         "</b>",           "\r\n"};
    for (const std::string& piece : pieces) {
        for (std::size_t length = 0; length < piece.size(); ++length) {
            for (const ReadSettings& settings : {ReadSettings(), keptComments, rawWithComments}) {
                const std::string place = placeOf("<root>" + piece.substr(0, length), settings);
                EXPECT_EQ(place.substr(place.find(' ') + 1), "XML_PARSE_PREMATURE_EOF")
                    << piece.substr(0, length);
            }
        }
    }
}

TEST(XmlReaderContent, ACrAsLastByteOfAllIsNotFollowedByAnything) {
    EXPECT_EQ(failureOf("<ab>\r"), "2:1 [XML_PARSE_PREMATURE_EOF] Premature EOF");
}

// Names and attributes while text is read.

TEST(XmlReaderContent, TextKeepsTheNameOfTheNodeBefore) {
    XmlReader reader("<a b='1'>x</a>"s);
    dumpRest(reader, 2);
    EXPECT_EQ(reader.getLastNodeType(), XmlReader::Data);
    EXPECT_EQ(dumpName(reader.getLastNameI()), "a");
    EXPECT_EQ(dumpAttributes(reader.getLastAttributesI()), "[b='1']");
}

TEST(XmlReaderContent, ViewsOfTheTagBeforeSurviveTheMovingOfText) {
    XmlReader reader("<name attribute='value'>&lt;&lt;&lt;moved text</name>"s);
    reader.readNextNode();
    const XmlReaderName name = reader.getLastNameI();
    const XmlReaderAttribute attribute = reader.getLastAttributesI()[0];
    reader.readNextNode();
    EXPECT_EQ(name.localName.asString(), "name");
    EXPECT_EQ(attribute.name.localName.asString(), "attribute");
    EXPECT_EQ(attribute.value.asString(), "value");
}

TEST(XmlReaderContent, EarlierTextSurvivesReadingOn) {
    XmlReader reader("<a>&lt;one<b>&gt;two</b></a>"s);
    dumpRest(reader, 2);
    const XmlReaderString one = reader.getLastContentI();
    dumpRest(reader);
    EXPECT_EQ(one.asString(), "<one");
}

}  // namespace
}  // namespace nolk
