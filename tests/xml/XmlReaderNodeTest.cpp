#include <nolk/core/XmlReader.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "XmlReaderNavigation.h"

namespace nolk {
namespace {

using namespace navigation;

const char invalidDash[] = "[XML_PARSE_COMMENT_INVALID_DASH] Invalid -- inside comment";
const char commentSyntax[] = "[XML_PARSE_COMMENT_SYNTAX_ERROR] Syntax error on comment";
const char invalidCdata[] = "[XML_PARSE_INVALID_CDATA_DIRECTIVE] '<![' wasnt followed by 'CDATA'";

struct Row {
    const char* document;
    Nodes nodes;
};

void expectRows(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        EXPECT_EQ(row.nodes, nodesOf(row.document)) << row.document;
    }
}

struct Settings {
    bool content;
    bool attributes;
    bool comments;
};

Nodes nodesWith(const Settings& settings, const std::string& document) {
    XmlReader reader(document);
    reader.setExpandContentReference(settings.content);
    reader.setExpandAttributeReference(settings.attributes);
    reader.setExpandCommentReference(settings.comments);
    return nodes(reader);
}

const Settings keepComments = {true, true, true};
const Settings rawContent = {false, true, false};
const Settings rawAttributes = {true, false, false};

/** The one text of `<a>content</a>`. */
std::string contentOf(const std::string& content, const Settings& settings = {true, true, false}) {
    const Nodes all = nodesWith(settings, "<a>" + content + "</a>");
    const std::string quoted = all.size() == 3 ? all[1] : "?" + std::to_string(all.size()) + "?";
    return quoted.substr(1, quoted.size() - 2);
}

// ---- Nodes ----

TEST(XmlReaderNode, TagsAndTexts) {
    expectRows({
        {"<a>x</a>", {"<a>", "\"x\"", "</a>"}},
        {"<a/>\n", {"<a/>"}},
        {"<a></a>", {"<a>", "</a>"}},
        {"<a><b/><c></c></a>", {"<a>", "<b/>", "<c>", "</c>", "</a>"}},
        {"<a>x<b>y</b>z</a>", {"<a>", "\"x\"", "<b>", "\"y\"", "</b>", "\"z\"", "</a>"}},
        {"<a b='1' c=\"2\"/>", {"<a b=1 c=2/>"}},
        {"<a>1 > 2 ]]> 3</a>", {"<a>", "\"1 > 2 ]]> 3\"", "</a>"}},
    });
}

TEST(XmlReaderNode, WhiteSpaceBetweenTagsIsData) {
    expectRows({
        {"<a>\n <b/>\t</a>\n", {"<a>", "\"\n \"", "<b/>", "\"\t\"", "</a>"}},
        {"<a> </a>", {"<a>", "\" \"", "</a>"}},
    });
}

TEST(XmlReaderNode, PrologIsNoNode) {
    expectRows({
        {"<?xml version=\"1.0\"?>\n<!--c--><!DOCTYPE a [<!ENTITY e 'x'>]>\n<?p?><a>&e;</a>",
         {"<a>", "\"&e;\"", "</a>"}},
    });
}

TEST(XmlReaderNode, NestedNamespacesResolveByScope) {
    expectRows({
        {"<a xmlns=\"u\"><b xmlns=\"v\"><c/></b><d/></a>",
         {"<{u}a xmlns=u>", "<{v}b xmlns=v>", "<{v}c/>", "</{v}b>", "<{u}d/>", "</{u}a>"}},
        {"<p:a xmlns:p=\"u\"><p:b xmlns:p=\"v\"/><p:c/></p:a>",
         {"<{u}a xmlns:p=u>", "<{v}b xmlns:p=v/>", "<{u}c/>", "</{u}a>"}},
        {"<a xmlns=\"u\"><b xmlns=\"\"></b></a>",
         {"<{u}a xmlns=u>", "<b xmlns=>", "</b>", "</{u}a>"}},
        {"<p:a><q:b/></p:a>", {"<a>", "<b/>", "</a>"}},
    });
}

TEST(XmlReaderNode, EndTagThatMatchesNothingIsAccepted) {
    expectRows({
        {"<a></b>", {"<a>", "</b>"}},
        {"<a><b></a></b>", {"<a>", "<b>", "</a>", "</b>"}},
        {"</a><b/>", {"</a>", "<b/>"}},
    });
}

TEST(XmlReaderNode, EndTagsNameIsResolvedInTheScopeOfItsStart) {
    expectRows({
        {"<a xmlns=\"u\"></a>", {"<{u}a xmlns=u>", "</{u}a>"}},
        {"<p:a xmlns:p=\"u\"></p:a>", {"<{u}a xmlns:p=u>", "</{u}a>"}},
        {"<p:a xmlns:p=\"u\"><b xmlns:p=\"v\"></p:a></b>",
         {"<{u}a xmlns:p=u>", "<b xmlns:p=v>", "</{v}a>", "</b>"}},
    });
}

TEST(XmlReaderNode, SecondRootIsReadAsAnyElement) {
    expectRows({{"<a/><b/>\n", {"<a/>", "<b/>"}}});
}

TEST(XmlReaderNode, DeepNestingComesBackLevelByLevel) {
    std::string document;
    Nodes expected;
    for (int i = 0; i < 500; ++i) {
        const std::string n = std::to_string(i);
        document += "<e" + n + " xmlns=\"u" + n + "\">";
        expected.push_back("<{u" + n + "}e" + n + " xmlns=u" + n + ">");
    }
    for (int i = 499; i >= 0; --i) {
        const std::string n = std::to_string(i);
        document += "</e" + n + ">";
        expected.push_back("</{u" + n + "}e" + n + ">");
    }
    EXPECT_EQ(expected, nodesOf(document));
}

TEST(XmlReaderNode, ManyAttributesAndDeclarations) {
    std::string document = "<a";
    std::string expected = "<a";
    for (int i = 0; i < 100; ++i) {
        const std::string n = std::to_string(i);
        document += " p" + n + ":b=\"" + n + "\" xmlns:p" + n + "=\"u" + n + "\"";
        expected += " p" + n + ":b=" + n + " xmlns:p" + n + "=u" + n;
    }
    XmlReader reader(document + "></a>");
    EXPECT_EQ(expected + ">", next(reader));
    for (std::uint32_t i = 0; i < 100; ++i) {
        EXPECT_EQ("u" + std::to_string(i), reader.getLastAttributesI()[2 * i].name.uri.asString());
    }
}

// ---- Comments and processing instructions ----

TEST(XmlReaderNode, CommentsAndInstructionsAtABoundaryAreNoNodes) {
    expectRows({
        {"<a><!--c--></a>", {"<a>", "</a>"}},
        {"<a><?p?></a>", {"<a>", "</a>"}},
        {"<a><!--c--><b/></a>", {"<a>", "<b/>", "</a>"}},
        {"<a><?p x?><b/></a>", {"<a>", "<b/>", "</a>"}},
        {"<a><!--c--><?p?><!--d--><?q?>x</a>", {"<a>", "\"x\"", "</a>"}},
        {"<a><b/><!--c--></a>", {"<a>", "<b/>", "</a>"}},
        {"<a><b/><?p?><c/></a>", {"<a>", "<b/>", "<c/>", "</a>"}},
    });
}

TEST(XmlReaderNode, TextInFrontOfACommentRunsAcrossItToTheNextTag) {
    expectRows({
        {"<a>x<!--c-->y</a>", {"<a>", "\"xy\"", "</a>"}},
        {"<a>x<?p?>y</a>", {"<a>", "\"xy\"", "</a>"}},
        {"<a> <!--c--> <b/></a>", {"<a>", "\"  \"", "<b/>", "</a>"}},
        {"<a><!--c--> <b/></a>", {"<a>", "\" \"", "<b/>", "</a>"}},
        {"<a> <!--c--><b/></a>", {"<a>", "\" \"", "<b/>", "</a>"}},
        {"<a>x<!--c--><!--d-->y<?p?>z<b/></a>", {"<a>", "\"xyz\"", "<b/>", "</a>"}},
    });
}

TEST(XmlReaderNode, KeptCommentsStayInTheTextAsMarkup) {
    EXPECT_EQ("x<!--c-->y", contentOf("x<!--c-->y", keepComments));
    EXPECT_EQ("x<!--c--><!--d-->", contentOf("x<!--c--><!--d-->", keepComments));
    EXPECT_EQ("x<!-- & &lt; <b> -->", contentOf("x<!-- & &lt; <b> -->", keepComments));
}

TEST(XmlReaderNode, CommentAtABoundaryIsSkippedEvenIfCommentsAreKept) {
    EXPECT_EQ((Nodes{"<a>", "</a>"}), nodesWith(keepComments, "<a><!--c--></a>"));
    EXPECT_EQ((Nodes{"<a>", "\"y\"", "</a>"}), nodesWith(keepComments, "<a><!--c-->y</a>"));
    EXPECT_EQ((Nodes{"<a>", "<b/>", "</a>"}), nodesWith(keepComments, "<a><!--c--><b/></a>"));
}

TEST(XmlReaderNode, InstructionsAreDroppedEvenIfCommentsAreKept) {
    EXPECT_EQ("xy", contentOf("x<?p <!--c--> ?>y", keepComments));
}

TEST(XmlReaderNode, KeptCommentHasItsLineEndsFoldedWhateverTheContentSetting) {
    EXPECT_EQ("x<!--1\n2\n3\n\n4-->y", contentOf("x<!--1\r\n2\r3\r\r\n4-->y", keepComments));
    EXPECT_EQ("x\r\n<!--1\n2-->\r\n", contentOf("x\r\n<!--1\r\n2-->\r\n", {false, true, true}));
}

TEST(XmlReaderNode, OddCommentsAtABoundary) {
    EXPECT_EQ((Nodes{"<a>", "</a>"}), nodesOf("<a><!---></a>"));
    EXPECT_EQ((Nodes{"<a>", invalidDash}), nodesOf("<a><!----></a>"));
    EXPECT_EQ((Nodes{"<a>", "</a>"}), nodesOf("<a><!-x--></a>"));
}

TEST(XmlReaderNode, OddCommentsInText) {
    EXPECT_EQ("t", contentOf("t<!--->x-->"));
    EXPECT_EQ("tx", contentOf("t<!---->x"));
    EXPECT_EQ("t<!--->x-->", contentOf("t<!--->x-->", keepComments));
    EXPECT_EQ("t<!---->x", contentOf("t<!---->x", keepComments));
}

TEST(XmlReaderNode, OddCommentInTextFailsTheSameWayKeptOrNot) {
    for (const Settings& settings : {Settings{true, true, false}, keepComments}) {
        const auto fail = [&](const char* document) {
            const Nodes all = nodesWith(settings, document);
            return all.size() > 1 ? all[1] : "";
        };
        EXPECT_EQ(commentSyntax, fail("<a>t<!-x--></a>"));
        EXPECT_EQ(invalidDash, fail("<a>t<!--a--b--></a>"));
        EXPECT_EQ(invalidDash, fail("<a>t<!--a---></a>"));
        EXPECT_EQ(prematureEof, fail("<a>t<!--a-></a>"));
        EXPECT_EQ(prematureEof, fail("<a>t<!---></a>"));
    }
}

TEST(XmlReaderNode, DashesInsideACommentAtABoundaryFail) {
    XmlReader reader(std::string("<a><!--a--b--></a>"));
    reader.readNextNode();
    EXPECT_EQ(invalidDash, failure([&] { reader.readNextNode(); }));
}

TEST(XmlReaderNode, InstructionEndsAtTheFirstQuestionMarkBeforeAnAngle) {
    expectRows({
        {"<a><?p ? > ?>x</a>", {"<a>", "\"x\"", "</a>"}},
        {"<a><?p?\?>x</a>", {"<a>", "\"x\"", "</a>"}},
        {"<a>w<?p ? > ?\?>x</a>", {"<a>", "\"wx\"", "</a>"}},
        {"<a><?XML version=\"1.0\" encoding=\"EBCDIC\"?>x</a>", {"<a>", "\"x\"", "</a>"}},
        {"<a><?xml-stylesheet href=\"x\"?>x</a>", {"<a>", "\"x\"", "</a>"}},
        {"<a><?p?x</a>", {"<a>", prematureEof}},
        {"<a><?\?></a>",
         {"<a>", "[XML_PARSE_ILLEGAL_NAME] Illegal starting character for name: ?"}},
    });
}

TEST(XmlReaderNode, DeclarationInContentIsDropped) {
    expectRows({
        {"<a><?xml version=\"1.0\"?>x</a>", {"<a>", "\"x\"", "</a>"}},
        {"<a>w<?xml version=\"1.0\"?>x</a>", {"<a>", "\"wx\"", "</a>"}},
        {"<a><?xml version=\"1.0\">x</a>", {"<a>", "\"x\"", "</a>"}},
        {"<a><?xml version=\"1.0\"?><b/></a>", {"<a>", "<b/>", "</a>"}},
    });
}

TEST(XmlReaderNode, RestOfADeclarationWithoutVersionBecomesText) {
    expectRows({
        {"<a><?xml foo?>bar</a>", {"<a>", "\"foo?>bar\"", "</a>"}},
        {"<a>w<?xml foo?>bar</a>", {"<a>", "\"wfoo?>bar\"", "</a>"}},
        {"<a><?xml ?></a>", {"<a>", "\"?>\"", "</a>"}},
        {"<a><?xml <b/></a>", {"<a>", "<b/>", "</a>"}},
    });
}

// ---- CDATA ----

TEST(XmlReaderNode, CdataStaysInTheTextAsMarkup) {
    EXPECT_EQ("<![CDATA[x]]>", contentOf("<![CDATA[x]]>"));
    EXPECT_EQ("<![CDATA[]]>", contentOf("<![CDATA[]]>"));
    EXPECT_EQ("w<![CDATA[x]]>y", contentOf("w<![CDATA[x]]>y"));
    EXPECT_EQ("<![CDATA[x]]><![CDATA[y]]>", contentOf("<![CDATA[x]]><![CDATA[y]]>"));
}

TEST(XmlReaderNode, NothingInsideCdataIsTouched) {
    const std::string section = "<![CDATA[\r\n\r&lt;&<b>]]]<!--c--><?p?>]]]]>";
    EXPECT_EQ(section, contentOf(section));
    EXPECT_EQ("<" + section + ">", contentOf("&lt;" + section + "&gt;"));
}

TEST(XmlReaderNode, TextThatStartsWithCdataKeepsComments) {
    EXPECT_EQ("<![CDATA[x]]><!--c-->y", contentOf("<![CDATA[x]]><!--c-->y"));
    EXPECT_EQ("<![CDATA[x]]>y<!--c--><!--d-->", contentOf("<![CDATA[x]]>y<!--c--><!--d-->"));
    EXPECT_EQ("<![CDATA[x]]><!--1\n2-->", contentOf("<![CDATA[x]]><!--1\r\n2-->"));
    EXPECT_EQ("<![CDATA[x]]><!--c-->", contentOf("<!--b--><![CDATA[x]]><!--c-->"));
    EXPECT_EQ("<![CDATA[x]]><!--c-->", contentOf("<?p?><![CDATA[x]]><!--c-->"));
}

TEST(XmlReaderNode, TextThatHoldsCdataFurtherOnDropsComments) {
    EXPECT_EQ("w<![CDATA[x]]>y", contentOf("w<![CDATA[x]]><!--c-->y"));
}

TEST(XmlReaderNode, TextThatStartsWithCdataDropsInstructionsAndExpandsReferences) {
    EXPECT_EQ("<![CDATA[x]]>y", contentOf("<![CDATA[x]]><?p?>y"));
    EXPECT_EQ("<![CDATA[x]]><\n", contentOf("<![CDATA[x]]>&lt;\r\n"));
    EXPECT_EQ("<![CDATA[x]]>&lt;\r\n", contentOf("<![CDATA[x]]>&lt;\r\n", rawContent));
}

TEST(XmlReaderNode, OddCommentBehindALeadingCdataIsReadAsInText) {
    EXPECT_EQ("<![CDATA[x]]><!---->y", contentOf("<![CDATA[x]]><!---->y"));
    EXPECT_EQ("<![CDATA[x]]><!--->y-->", contentOf("<![CDATA[x]]><!--->y-->"));
}

TEST(XmlReaderNode, MalformedCdataFails) {
    expectRows({
        {"<a><![CDAT[x]]></a>", {"<a>", invalidCdata}},
        {"<a><![cdata[x]]></a>", {"<a>", invalidCdata}},
        {"<a><![CDATA x]]></a>", {"<a>", invalidCdata}},
        {"<a>w<![CDATAX[x]]></a>", {"<a>", invalidCdata}},
        {"<a><![CDATA[x]></a>", {"<a>", prematureEof}},
        {"<a><![[x]]></a>",
         {"<a>", "[XML_PARSE_ILLEGAL_NAME] Illegal starting character for name: ["}},
    });
}

// ---- References and line ends ----

TEST(XmlReaderNode, ReferencesInContentAreReplaced) {
    EXPECT_EQ("<>&'\"AB", contentOf("&lt;&gt;&amp;&apos;&quot;&#65;&#x42;"));
    EXPECT_EQ("\xC3\xA4\xE2\x82\xAC\xF0\x90\x80\x80", contentOf("&#xe4;&#8364;&#x10000;"));
    EXPECT_EQ("&foo;&;", contentOf("&foo;&;"));
    EXPECT_EQ("&lt;", contentOf("&amp;lt;"));
}

TEST(XmlReaderNode, StrayAmpersandSwallowsTheTextUpToTheNextSemicolon) {
    expectRows({
        {"<a>1 & 2<b>;</b></a>", {"<a>", "\"1 & 2<b>;\"", "</b>", "</a>"}},
        {"<a>1 & 2</a>", {"<a>", prematureEof}},
    });
}

TEST(XmlReaderNode, LineEndsInContentBecomeLineFeeds) {
    EXPECT_EQ("1\n2\n3\n4\n\n5\n", contentOf("1\r\n2\r3\n4\r\r\n5\r"));
    EXPECT_EQ("\n", contentOf("\r\n"));
    EXPECT_EQ("\n", contentOf("\r"));
}

TEST(XmlReaderNode, CarriageReturnIsJoinedOnlyWithALineFeedThatFollowsAtOnce) {
    EXPECT_EQ("x\n\ny", contentOf("x\r<!--c-->\ny"));
    EXPECT_EQ("x\n\ny", contentOf("x\r<?p?>\ny"));
    EXPECT_EQ("\r\n", contentOf("&#13;\n"));
    EXPECT_EQ("\n\n", contentOf("\r&#10;"));
}

TEST(XmlReaderNode, ContentSettingOffLeavesReferencesAndLineEnds) {
    EXPECT_EQ("&lt;", contentOf("&lt;", rawContent));
    EXPECT_EQ("\r\n\r&amp;&#65;", contentOf("\r\n\r&amp;&#65;", rawContent));
    EXPECT_EQ("a & b", contentOf("a & b", rawContent));
    EXPECT_EQ("xy", contentOf("x<!--c--><?p?>y", rawContent));
}

TEST(XmlReaderNode, AttributeSettingOffLeavesReferencesInValues) {
    EXPECT_EQ((Nodes{"<a b=&lt;/>"}), nodesWith(rawAttributes, "<a b=\"&lt;\"/>"));
    EXPECT_EQ((Nodes{"<a b=&lt;>", "\"<\"", "</a>"}),
              nodesWith(rawAttributes, "<a b=\"&lt;\">&lt;</a>"));
    EXPECT_EQ((Nodes{"<a b=a & b/>"}), nodesWith(rawAttributes, "<a b=\"a & b\"/>"));
    EXPECT_EQ((Nodes{"<a b=</>"}), nodesOf("<a b=\"&lt;\"/>"));
}

TEST(XmlReaderNode, AnyByteIsContent) {
    const std::string bytes("\x01\x7F\x80\xBF\xC0\xFE\xFF\0z", 9);
    EXPECT_EQ(bytes, contentOf(bytes));
}

// Scanners look at many bytes at once: each special piece at each place of a long text.
TEST(XmlReaderNode, SpecialPieceAtEachPlaceOfALongText) {
    struct Piece {
        const char* written;
        const char* read;
        const char* readRaw;
    };
    const Piece pieces[] = {
        {"", "", ""},
        {"&lt;", "<", "&lt;"},
        {"&#228;", "\xC3\xA4", "&#228;"},
        {"\r\n", "\n", "\r\n"},
        {"\r", "\n", "\r"},
        {"\xC3\xA4", "\xC3\xA4", "\xC3\xA4"},
        {"<![CDATA[<&\r]]>", "<![CDATA[<&\r]]>", "<![CDATA[<&\r]]>"},
        {"<!--c-->", "", ""},
        {"<?p?>", "", ""},
    };
    for (const Piece& piece : pieces) {
        for (std::size_t before = 1; before < 70; ++before) {
            for (std::size_t after : {0, 1, 15, 16, 17, 31, 32, 33, 63, 64, 65}) {
                const std::string left(before, 'l');
                const std::string right(after, 'r');
                ASSERT_EQ(left + piece.read + right, contentOf(left + piece.written + right))
                    << piece.written << " behind " << before << " before " << after;
                ASSERT_EQ(left + piece.readRaw + right,
                          contentOf(left + piece.written + right, rawContent))
                    << piece.written << " behind " << before << " before " << after;
            }
        }
    }
}

TEST(XmlReaderNode, AttributeValueAndNameOfEachLength) {
    for (std::size_t length = 1; length < 70; ++length) {
        const std::string n(length, 'n');
        const std::string v(length, 'v');
        EXPECT_EQ((Nodes{"<" + n + " " + n + "=" + v + ">", "</" + n + ">"}),
                  nodesOf("<" + n + " " + n + "='" + v + "'></" + n + ">"));
        EXPECT_EQ((Nodes{"<a b=" + v + "<" + v + "/>"}),
                  nodesOf("<a b='" + v + "&lt;" + v + "'/>"));
    }
}

// ---- Invalid sequences ----

TEST(XmlReaderNode, InvalidSequenceTellsTheByteBehindTheExclamationMark) {
    expectRows({
        {"<a><!x></a>", {"<a>", invalidSequence("x")}},
        {"<a>t<!x></a>", {"<a>", invalidSequence("x")}},
        {"<a><!DOCTYPE b></a>", {"<a>", invalidSequence("D")}},
        {"<a>t<!DOCTYPE b></a>", {"<a>", invalidSequence("D")}},
        {"<a><!></a>", {"<a>", invalidSequence(">")}},
        {"<a><!--c--><!y></a>", {"<a>", invalidSequence("y")}},
    });
}

TEST(XmlReaderNode, InvalidSequenceAtABoundaryIsLookedAtAndNotRead) {
    XmlReader reader(std::string("<a><!x>y</a>"));
    reader.readNextNode();
    EXPECT_EQ("1:6", failurePosition([&] { reader.readNextNode(); }));
    EXPECT_EQ("\"x>y\"", next(reader));
    EXPECT_EQ("</a>", next(reader));
}

TEST(XmlReaderNode, InvalidSequenceInTextIsRead) {
    XmlReader reader(std::string("<a>t<!x>y</a>"));
    reader.readNextNode();
    EXPECT_EQ("1:8", failurePosition([&] { reader.readNextNode(); }));
    EXPECT_EQ("\"\"", node(reader));
    EXPECT_EQ("\">y\"", next(reader));
    EXPECT_EQ("</a>", next(reader));
}

// ---- The end ----

TEST(XmlReaderNode, TextNeverEndsAtTheEndOfTheDocument) {
    expectRows({
        {"<a>bc", {"<a>", prematureEof}},
        {"<a>x<", {"<a>", prematureEof}},
        {"<a>x<!", {"<a>", prematureEof}},
        {"<a>x<!-", {"<a>", prematureEof}},
        {"<a>x<!--c-->", {"<a>", prematureEof}},
        {"<a>x<![CDATA[y]]>", {"<a>", prematureEof}},
        {"<a>x&lt;", {"<a>", prematureEof}},
        {"<a>x<?p?>", {"<a>", prematureEof}},
        {"<a>x<?xml version='1.0'?>", {"<a>", prematureEof}},
        {"<a>x\r", {"<a>", prematureEof}},
        {"<a>x\r\n", {"<a>", prematureEof}},
    });
}

TEST(XmlReaderNode, MarkupAtABoundaryMayNotEndTheDocument) {
    expectRows({
        {"<a><!", {"<a>", prematureEof}},
        {"<a><!-", {"<a>", prematureEof}},
        {"<a><!--c-->", {"<a>", prematureEof}},
        {"<a><?p?>", {"<a>", prematureEof}},
        {"<a><?p", {"<a>", prematureEof}},
        {"<a><?xml version='1.0'?>", {"<a>", prematureEof}},
        {"<a></", {"<a>", prematureEof}},
        {"<a><b", {"<a>", prematureEof}},
    });
}

TEST(XmlReaderNode, PrematureEndIsToldBehindTheLastByte) {
    XmlReader reader(std::string("<a>\nbc"));
    reader.readNextNode();
    EXPECT_EQ("2:3", failurePosition([&] { reader.readNextNode(); }));
}

TEST(XmlReaderNode, ReadingAtTheEndIsPrematureEof) {
    for (const char* document : {"<a></a>", "<a></a>\n", "<a></a>  \r\n\t ", "<a>x</a>", "<a />"}) {
        XmlReader reader{std::string(document)};
        while (!reader.eof()) {
            reader.readNextNode();
        }
        EXPECT_EQ(prematureEof, failure([&] { reader.readNextNode(); })) << document;
        EXPECT_EQ(prematureEof, failure([&] { reader.readNextNode(); })) << document;
    }
}

TEST(XmlReaderNode, ReadingAtTheEndWithoutAskingIsPrematureEof) {
    for (const char* document : {"<a></a>", "<a></a>\n", "<a></a> \n"}) {
        XmlReader reader{std::string(document)};
        reader.readNextNode();
        reader.readNextNode();
        EXPECT_EQ(prematureEof, failure([&] { reader.readNextNode(); })) << document;
    }
}

TEST(XmlReaderNode, ReadingAtTheEndLeavesTheLastNode) {
    XmlReader reader(std::string("<a>x</a>"));
    for (int i = 0; i < 3; ++i) {
        reader.readNextNode();
    }
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(prematureEof, failure([&] { reader.readNextNode(); }));
        EXPECT_EQ("</a>", node(reader));
        EXPECT_EQ("x", reader.getLastContent());
    }
}

// Two bytes behind the element are its reader's too: here they are text that never ends.
TEST(XmlReaderNode, ReadingAtTheEndOfAnElementGoesNoFurther) {
    XmlReader reader = inside("<r><a>x</a>  <b/></r>");
    XmlReader child = reader.getElementReader(any);
    EXPECT_EQ((Nodes{"<a>", "\"x\"", "</a>"}), (Nodes{next(child), next(child), next(child)}));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(prematureEof, failure([&] { child.readNextNode(); })) << i;
        EXPECT_EQ("\"\"", node(child)) << i;
    }
}

TEST(XmlReaderNode, CommentOrInstructionBehindTheRootIsPrematureEof) {
    expectRows({
        {"<a></a><!--c-->", {"<a>", "</a>", prematureEof}},
        {"<a></a>\n<!--c-->\n", {"<a>", "</a>", prematureEof}},
        {"<a></a><?p?>", {"<a>", "</a>", prematureEof}},
        {"<a/><!--c-->", {"<a/>", prematureEof}},
    });
}

TEST(XmlReaderNode, EndIsReachedBehindWhiteSpaceAfterTheRoot) {
    expectRows({
        {"<a></a>\n", {"<a>", "</a>"}},
        {"<a></a> \t\r\n", {"<a>", "</a>"}},
        {"<a/> \n \n", {"<a/>"}},
    });
}

TEST(XmlReaderNode, LastByteCountsAsRead) {
    expectRows({
        {"<a></a>x", {"<a>", "</a>"}},
        {"<a></a>xy", {"<a>", "</a>", prematureEof}},
        {"<a></a> x", {"<a>", "</a>"}},
        {"<aa>b", {"<aa>"}},
    });
}

TEST(XmlReaderNode, EofSkipsNoWhiteSpaceInsideAnElement) {
    XmlReader reader(std::string("<a>  </a>"));
    reader.readNextNode();
    EXPECT_FALSE(reader.eof());
    EXPECT_EQ("\"  \"", next(reader));
}

TEST(XmlReaderNode, EofSkipsNoWhiteSpaceWhileAnElementIsOpen) {
    XmlReader open(std::string("<a><b></a> \n"));
    for (int i = 0; i < 3; ++i) {
        open.readNextNode();
    }
    EXPECT_FALSE(open.eof());
    XmlReader extra(std::string("<a></a></a> \n"));
    for (int i = 0; i < 3; ++i) {
        extra.readNextNode();
    }
    EXPECT_FALSE(extra.eof());
}

TEST(XmlReaderNode, EofBeforeTheRootIsFalseAndMovesNothing) {
    XmlReader reader(std::string("<a/>\n"));
    EXPECT_FALSE(reader.eof());
    EXPECT_FALSE(reader.eof());
    EXPECT_EQ("<a/>", next(reader));
    EXPECT_TRUE(reader.eof());
    EXPECT_TRUE(reader.eof());
}

TEST(XmlReaderNode, EofBetweenTwoRootsSkipsTheWhiteSpace) {
    XmlReader reader(std::string("<a/>  <b/> "));
    EXPECT_EQ("<a/>", next(reader));
    EXPECT_FALSE(reader.eof());
    EXPECT_EQ("<b/>", next(reader));
    EXPECT_TRUE(reader.eof());
}

// ---- The pending node ----

TEST(XmlReaderNode, PendingNodeIsReturnedWithoutMoving) {
    XmlReader reader(std::string("<a><b/></a>"));
    EXPECT_TRUE(reader.isElementNext(XmlName("a")));
    EXPECT_EQ("<a>", node(reader));
    EXPECT_EQ("<a>", next(reader));
    EXPECT_EQ("<b/>", next(reader));
}

TEST(XmlReaderNode, SettingsCountAtTheReadNotAtTheConstruction) {
    XmlReader reader(std::string("<a>&lt;<b/>&lt;</a>"));
    reader.readNextNode();
    EXPECT_EQ("\"<\"", next(reader));
    reader.readNextNode();
    reader.setExpandContentReference(false);
    EXPECT_EQ("\"&lt;\"", next(reader));
}

TEST(XmlReaderNode, ViewsOfEarlierNodesStayValidWhileTheReaderLives) {
    XmlReader reader(std::string("<a b=\"&lt;c\">&gt;d<e/></a>"));
    reader.readNextNode();
    const XmlReaderName name = reader.getLastNameI();
    const XmlReaderString value = reader.getLastAttributesI()[0].value;
    reader.readNextNode();
    const XmlReaderString content = reader.getLastContentI();
    while (!reader.eof()) {
        reader.readNextNode();
    }
    EXPECT_EQ("a", name.localName.asString());
    EXPECT_EQ("<c", value.asString());
    EXPECT_EQ(">d", content.asString());
}

}  // namespace
}  // namespace nolk
