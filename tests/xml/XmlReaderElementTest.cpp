#include <nolk/core/XmlReader.h>

#include <gtest/gtest.h>

#include <string>

#include "XmlReaderNavigation.h"

namespace nolk {
namespace {

using namespace navigation;

XmlReaderName readerName(const char* local, const char* uri = "", const char* prefix = "") {
    return {XmlReaderString::of(local), XmlReaderString::of(prefix), XmlReaderString::of(uri)};
}

XmlName name(const char* local, const char* uri = "", const char* prefix = "") {
    return XmlName(local, XmlNamespace(prefix, uri));
}

/** A reader that stands behind the given number of nodes. */
XmlReader behind(int count, const std::string& document) {
    XmlReader reader(document);
    for (int i = 0; i < count; ++i) {
        reader.readNextNode();
    }
    return reader;
}

// ---- The usual way ----

TEST(XmlReaderElement, StartValueEnd) {
    XmlReader reader(std::string("<a>x</a>"));
    reader.readElementStart();
    EXPECT_EQ("<a>", node(reader));
    EXPECT_EQ("x", reader.readElementValue());
    EXPECT_EQ("\"x\"", node(reader));
    reader.readElementEnd();
    EXPECT_EQ("</a>", node(reader));
    EXPECT_TRUE(reader.eof());
}

TEST(XmlReaderElement, ListOfElements) {
    XmlReader reader(std::string("<l>\n <i>1</i>\n <i>2</i>\n <i/>\n</l>\n"));
    reader.readElementStart("l");
    std::string values;
    while (reader.isElementNext("i")) {
        reader.readElementStart("i");
        if (reader.getLastNodeType() != XmlReader::EmptyTag) {
            values += reader.readElementValue() + ";";
        }
        reader.readElementEnd("i");
    }
    reader.readElementEnd("l");
    EXPECT_EQ("1;2;", values);
    EXPECT_TRUE(reader.eof());
}

// ---- isElementNext ----

TEST(XmlReaderElement, IsElementNextComparesLocalNameAndUri) {
    const std::string document = "<r xmlns:p=\"u\"><p:a></p:a></r>";
    EXPECT_TRUE(inside(document).isElementNext(name("a", "u")));
    EXPECT_TRUE(inside(document).isElementNext(name("a", "u", "other")));
    EXPECT_FALSE(inside(document).isElementNext(name("b", "u")));
    EXPECT_FALSE(inside(document).isElementNext(name("a", "v")));
    EXPECT_FALSE(inside(document).isElementNext(name("a")));
    EXPECT_FALSE(inside(document).isElementNext(name("p:a", "u")));
}

TEST(XmlReaderElement, IsElementNextTakesAReaderName) {
    const std::string document = "<r xmlns:p=\"u\"><p:a></p:a></r>";
    EXPECT_TRUE(inside(document).isElementNextI(readerName("a", "u")));
    EXPECT_TRUE(inside(document).isElementNextI(readerName("a", "", "p")));
    EXPECT_FALSE(inside(document).isElementNextI(readerName("a")));
    EXPECT_FALSE(inside(document).isElementNextI(readerName("b", "u")));
}

TEST(XmlReaderElement, IsElementNextTakesLocalNameAndUri) {
    const std::string document = "<r xmlns:p=\"u\"><p:a></p:a></r>";
    EXPECT_TRUE(inside(document).isElementNextI("a", "u"));
    EXPECT_FALSE(inside(document).isElementNextI("a", ""));
    EXPECT_FALSE(inside(document).isElementNextI("a", "v"));
    EXPECT_TRUE(inside("<r xmlns=\"u\"><a></a></r>").isElementNextI("a", ""));
    EXPECT_FALSE(inside(document).isElementNextI("p:a", ""));
}

TEST(XmlReaderElement, IsElementNextTakesAQualifiedName) {
    const std::string document = "<r xmlns:p=\"u\" xmlns:q=\"u\" xmlns:s=\"v\"><p:a></p:a></r>";
    EXPECT_TRUE(inside(document).isElementNext("p:a"));
    EXPECT_TRUE(inside(document).isElementNext("q:a"));
    EXPECT_FALSE(inside(document).isElementNext("s:a"));
    EXPECT_FALSE(inside(document).isElementNext("a"));
    EXPECT_FALSE(inside(document).isElementNext("t:a"));
}

TEST(XmlReaderElement, IsElementNextResolvesAnUnboundPrefixInTheScopeOfTheTag) {
    EXPECT_TRUE(inside("<r><p:a xmlns:p=\"u\"></p:a></r>").isElementNext("p:a"));
    EXPECT_TRUE(inside("<r><p:a xmlns:p=\"u\"></p:a></r>").isElementNext(name("a", "", "p")));
}

TEST(XmlReaderElement, IsElementNextResolvesABoundPrefixAtTheCall) {
    EXPECT_FALSE(inside("<r xmlns:p=\"u\"><p:a xmlns:p=\"v\"></p:a></r>").isElementNext("p:a"));
    EXPECT_TRUE(
        inside("<r xmlns:p=\"u\"><p:a xmlns:p=\"v\"></p:a></r>").isElementNext(name("a", "", "p")));
}

TEST(XmlReaderElement, UnqualifiedNameMatchesTheDefaultNamespaceThatTheElementDeclares) {
    EXPECT_TRUE(inside("<r><a xmlns=\"u\"></a></r>").isElementNext("a"));
    EXPECT_TRUE(inside("<r><a xmlns=\"u\"></a></r>").isElementNext(name("a")));
    EXPECT_TRUE(inside("<r xmlns=\"u\"><a></a></r>").isElementNext(name("a")));
    EXPECT_TRUE(inside("<r xmlns=\"u\"><a/></r>").isElementNext(name("a")));
    EXPECT_FALSE(inside("<r xmlns=\"u\" xmlns:p=\"v\"><p:a/></r>").isElementNext(name("a")));
    EXPECT_FALSE(inside("<r xmlns=\"u\"><p:a/></r>").isElementNext(name("a")));
}

TEST(XmlReaderElement, ScopeOfAnEmptyTagIsGoneWhenTheNameIsCompared) {
    EXPECT_FALSE(inside("<r><a xmlns=\"u\"/></r>").isElementNext(name("a")));
    EXPECT_TRUE(inside("<r><a xmlns=\"u\"/></r>").isElementNext(name("a", "u")));
    EXPECT_FALSE(inside("<r><p:a xmlns:p=\"u\"/></r>").isElementNext("p:a"));
    EXPECT_FALSE(inside("<r xmlns=\"u\"><a xmlns=\"\"/></r>").isElementNext(name("a")));
    EXPECT_TRUE(inside("<r xmlns=\"u\"><a xmlns=\"\"></a></r>").isElementNext(name("a")));
}

TEST(XmlReaderElement, IsElementNextOnTheRoot) {
    XmlReader reader(std::string("<a xmlns=\"u\"></a>"));
    EXPECT_TRUE(reader.isElementNext("a"));
    EXPECT_FALSE(reader.isElementNext("b"));
    EXPECT_EQ("<{u}a xmlns=u>", next(reader));
}

TEST(XmlReaderElement, IsElementNextTwiceReadsOnce) {
    XmlReader reader = inside("<r><a/><b/></r>");
    EXPECT_TRUE(reader.isElementNext("a"));
    EXPECT_TRUE(reader.isElementNext("a"));
    EXPECT_FALSE(reader.isElementNext("b"));
    EXPECT_EQ("<a/>", node(reader));
    reader.readElementStart("a");
    EXPECT_EQ("<a/>", node(reader));
    EXPECT_EQ("<b/>", next(reader));
}

TEST(XmlReaderElement, ReadElementStartAfterALookAheadDoesNotRead) {
    XmlReader reader = inside("<r><a><b/></a></r>");
    EXPECT_TRUE(reader.isElementNext("a"));
    reader.readElementStart();
    EXPECT_EQ("<a>", node(reader));
    reader.readElementStart();
    EXPECT_EQ("<b/>", node(reader));
}

TEST(XmlReaderElement, LookAheadOnAnEndTagIsFalseAndLeavesTheTag) {
    XmlReader reader = inside("<r><a></a></r>");
    reader.readElementStart("a");
    EXPECT_FALSE(reader.isElementNext("a"));
    EXPECT_EQ("</a>", node(reader));
    reader.readElementEnd("a");
    EXPECT_EQ("</a>", node(reader));
    reader.readElementEnd("r");
}

TEST(XmlReaderElement, LookAheadSkipsTextCommentsAndInstructions) {
    XmlReader reader = inside("<r>\n text <!--c--><?p?><![CDATA[<b/>]]><a/></r>");
    EXPECT_TRUE(reader.isElementNext("a"));
}

TEST(XmlReaderElement, LookAheadReadsCommentsAtABoundaryAsInText) {
    EXPECT_TRUE(inside("<r><!----><a/></r>").isElementNext("a"));
    EXPECT_EQ(prematureEof, failure([] { inside("<r><!---><a/></r>").isElementNext("a"); }));
    EXPECT_EQ("[XML_PARSE_COMMENT_SYNTAX_ERROR] Syntax error on comment",
              failure([] { inside("<r><!-x--><a/></r>").isElementNext("a"); }));
}

TEST(XmlReaderElement, LookAheadKeepsTheTextInFrontOfAStartOrEndTagAsContent) {
    XmlReader start = inside("<r>x&lt;<!--c-->y<a></a></r>");
    EXPECT_TRUE(start.isElementNext("a"));
    EXPECT_EQ("x<y", start.getLastContent());
    XmlReader end = inside("<r>x</r>");
    EXPECT_FALSE(end.isElementNext("a"));
    EXPECT_EQ("x", end.getLastContent());
}

TEST(XmlReaderElement, LookAheadOnAnEmptyTagHasEmptyContent) {
    XmlReader reader = inside("<r>x<a/></r>");
    EXPECT_TRUE(reader.isElementNext("a"));
    EXPECT_EQ("", reader.getLastContent());
}

TEST(XmlReaderElement, LookAheadReadsTheAttributesByTheSetting) {
    XmlReader expanded = inside("<r><a b=\"&lt;\"></a></r>");
    EXPECT_TRUE(expanded.isElementNext("a"));
    EXPECT_EQ(" b=<", text(expanded.getLastAttributesI()));
    XmlReader raw = inside("<r><a b=\"&lt;\"></a></r>");
    raw.setExpandAttributeReference(false);
    EXPECT_TRUE(raw.isElementNext("a"));
    EXPECT_EQ(" b=&lt;", text(raw.getLastAttributesI()));
}

TEST(XmlReaderElement, LookAheadHasPushedTheScopeOfAStartTag) {
    XmlReader reader = inside("<r><a xmlns:p=\"u\"></a></r>");
    EXPECT_EQ(2u, reader.getNamespaceStack().depth());
    EXPECT_TRUE(reader.isElementNext("a"));
    EXPECT_EQ(3u, reader.getNamespaceStack().depth());
    EXPECT_EQ("u", reader.getURIForPrefix("p"));
}

TEST(XmlReaderElement, IsElementNextOfANullNameMatchesNothing) {
    XmlReader reader = inside("<r><a/></r>");
    EXPECT_FALSE(reader.isElementNext(XmlReader::NullName));
    EXPECT_EQ("<a/>", node(reader));
}

TEST(XmlReaderElement, IsElementNextBehindTheRootIsPrematureEof) {
    XmlReader reader = behind(2, "<r></r>\n");
    EXPECT_EQ(prematureEof, failure([&] { reader.isElementNext("a"); }));
}

TEST(XmlReaderElement, BehindAnEmptyTagTheTestAsksAboutThatTag) {
    XmlReader reader = inside("<r><a/><b/></r>");
    reader.readElementStart("a");
    EXPECT_TRUE(reader.isElementNext("a"));
    EXPECT_FALSE(reader.isElementNext("b"));
    EXPECT_EQ("<a/>", node(reader));
    reader.readElementEnd("a");
    EXPECT_EQ("</a>", node(reader));
    EXPECT_TRUE(reader.isElementNext("b"));
}

TEST(XmlReaderElement, TestBehindAnEmptyTagSetsNothingPending) {
    XmlReader reader = inside("<r><a/><b/></r>");
    reader.readElementStart("a");
    EXPECT_TRUE(reader.isElementNext("a"));
    reader.readElementStart("b");
    EXPECT_EQ("<b/>", node(reader));
}

TEST(XmlReaderElement, TestBehindAnEmptyTagReadByReadNextNodeAsksAboutThatTag) {
    XmlReader reader = behind(2, "<r><a/><b/></r>");
    EXPECT_FALSE(reader.isElementNext("b"));
    EXPECT_TRUE(reader.isElementNext("a"));
    EXPECT_EQ("<b/>", next(reader));
}

TEST(XmlReaderElement, IsElementNextTakesTheReadersOwnName) {
    XmlReader same = inside("<a><a></a></a>");
    EXPECT_TRUE(same.isElementNextI(same.getLastNameI()));
    XmlReader other = inside("<a><b></b></a>");
    EXPECT_FALSE(other.isElementNextI(other.getLastNameI()));
}

// ---- The rows of the states ----

TEST(XmlReaderElement, ValueAfterAStartTagLeavesData) {
    XmlReader reader = inside("<a>x</a>");
    reader.readElementValue();
    EXPECT_EQ(XmlReader::Data, reader.getLastNodeType());
}

TEST(XmlReaderElement, EndAfterDataStartOrEndTagLeavesAnEndTag) {
    XmlReader data = behind(2, "<a>x</a>");
    data.readElementEnd();
    EXPECT_EQ("</a>", node(data));
    XmlReader start = behind(1, "<a>x</a>");
    start.readElementEnd();
    EXPECT_EQ("</a>", node(start));
    XmlReader end = behind(3, "<a><b></b>x</a>");
    end.readElementEnd();
    EXPECT_EQ("</a>", node(end));
}

TEST(XmlReaderElement, EndAfterAnEmptyTagReadsNothing) {
    XmlReader reader = behind(2, "<r>x<a b=\"1\"/>y</r>");
    reader.readNextNode();
    EXPECT_EQ("<a b=1/>", node(reader));
    reader.readElementEnd();
    EXPECT_EQ("</a>", node(reader));
    EXPECT_EQ("", reader.getLastContent());
    EXPECT_EQ(" b=1", text(reader.getLastAttributesI()));
    EXPECT_EQ("\"y\"", next(reader));
}

TEST(XmlReaderElement, EndAfterAPendingEmptyTagConsumesIt) {
    XmlReader reader = inside("<r><a/><b/></r>");
    EXPECT_TRUE(reader.isElementNext("a"));
    reader.readElementEnd();
    EXPECT_EQ("</a>", node(reader));
    EXPECT_EQ("<b/>", next(reader));
}

TEST(XmlReaderElement, LookAheadFromEachStateLeavesAPendingTag) {
    const std::string document = "<r>x<a></a><b/>y</r>";
    struct State {
        int nodes;
        const char* pending;
    };
    for (const State& state : {State{0, "<r>"}, {1, "<a>"}, {2, "<a>"}, {3, "</a>"}, {4, "<b/>"}}) {
        XmlReader reader = behind(state.nodes, document);
        reader.isElementNext("none");
        EXPECT_EQ(state.pending, node(reader));
        EXPECT_EQ(state.pending, next(reader)) << "pending";
    }
    XmlReader data = behind(6, document);
    data.isElementNext("none");
    EXPECT_EQ("</r>", node(data));
}

TEST(XmlReaderElement, StartAfterAPendingTagKeepsItsState) {
    XmlReader start = inside("<r><a></a></r>");
    start.isElementNext("a");
    start.readElementStart();
    EXPECT_EQ("<a>", node(start));
    EXPECT_EQ("</a>", next(start));
    XmlReader empty = inside("<r><a/></r>");
    empty.isElementNext("a");
    empty.readElementStart();
    EXPECT_EQ("<a/>", node(empty));
    EXPECT_EQ("</r>", next(empty));
}

TEST(XmlReaderElement, StartAfterAPendingEndTagFailsAndTakesIt) {
    XmlReader reader = inside("<r><a></a></r>");
    reader.readElementStart();
    EXPECT_FALSE(reader.isElementNext("b"));
    EXPECT_EQ(noStartTag("a"), failure([&] { reader.readElementStart(); }));
    EXPECT_EQ("</r>", next(reader));
}

TEST(XmlReaderElement, ValueOfAPendingNodeIsTheTextInFrontAndTakesTheNode) {
    XmlReader start = inside("<r>x<a>y</a></r>");
    EXPECT_TRUE(start.isElementNext("a"));
    EXPECT_EQ("x", start.readElementValue());
    EXPECT_EQ("<a>", node(start));
    EXPECT_EQ("y", start.readElementValue());
    XmlReader end = inside("<r>x</r>");
    EXPECT_FALSE(end.isElementNext("a"));
    EXPECT_EQ("x", end.readElementValueI().asString());
    EXPECT_EQ("</r>", node(end));
    EXPECT_EQ(prematureEof, failure([&] { end.readElementEnd(); }));
}

TEST(XmlReaderElement, ValueOfAPendingEmptyTagIsEmpty) {
    XmlReader reader = inside("<r>x<a/>y</r>");
    EXPECT_TRUE(reader.isElementNext("a"));
    EXPECT_EQ("", reader.readElementValue());
    EXPECT_EQ("y", reader.readElementValue());
}

// ---- readElementStart ----

TEST(XmlReaderElement, StartSkipsTheTextInFront) {
    XmlReader reader(std::string("<r> x &lt; <!--c--><?p?><![CDATA[<b>]]><a></a></r>"));
    reader.readElementStart("r");
    reader.readElementStart("a");
    EXPECT_EQ("<a>", node(reader));
}

TEST(XmlReaderElement, StartTakesAnEmptyTag) {
    XmlReader reader = inside("<r><a/></r>");
    reader.readElementStart("a");
    EXPECT_EQ(XmlReader::EmptyTag, reader.getLastNodeType());
}

TEST(XmlReaderElement, StartGivesTheAttributes) {
    const std::string document = "<r><a b=\"1\" xmlns:p=\"u\" p:c=\"&lt;\"/></r>";
    XmlReader byName = inside(document);
    const XmlAttributeSet set = byName.readElementStart(name("a"));
    EXPECT_EQ(3u, set.entries());
    EXPECT_EQ("1", set.findValueByName("b", true));
    XmlAttribute found;
    ASSERT_TRUE(set.find(name("c", "u"), found));
    EXPECT_EQ("<", found.getValue());
    XmlReader byText = inside(document);
    EXPECT_TRUE(set.equalTo(byText.readElementStart("a"), XmlAttributeSet::NamesAndValues));
    XmlReader byView = inside(document);
    byView.readElementStartI(readerName("a"));
    EXPECT_TRUE(set.equalTo(byView.getLastAttributes(), XmlAttributeSet::NamesAndValues));
}

TEST(XmlReaderElement, StartOnAnEndTagFailsWithItsUniqueName) {
    EXPECT_EQ(noStartTag("r"), failure([] { inside("<r></r>").readElementStart(); }));
    EXPECT_EQ(noStartTag("u::r"),
              failure([] { inside("<p:r xmlns:p=\"u\">x</p:r>").readElementStart(); }));
    EXPECT_EQ(noStartTag("r"), failure([] { inside("<r></r>").readElementStart("a"); }));
    EXPECT_EQ(noStartTag("r"), failure([] { inside("<r></r>").readElementStart(name("a")); }));
    EXPECT_EQ(noStartTag("r"),
              failure([] { inside("<r></r>").readElementStartI(readerName("a")); }));
}

TEST(XmlReaderElement, StartOfAnotherNameFailsWithBothUniqueNames) {
    const std::string document = "<r xmlns:p=\"u\"><p:a/></r>";
    EXPECT_EQ(unexpected("b", "u::a"),
              failure([&] { inside(document).readElementStart(name("b")); }));
    EXPECT_EQ(unexpected("a", "u::a"),
              failure([&] { inside(document).readElementStart(name("a")); }));
    EXPECT_EQ(unexpected("v::a", "u::a"),
              failure([&] { inside(document).readElementStart(name("a", "v", "p")); }));
    EXPECT_EQ(unexpected("u::b", "u::a"),
              failure([&] { inside(document).readElementStart("p:b"); }));
    EXPECT_EQ(unexpected("a", "u::a"), failure([&] { inside(document).readElementStart("a"); }));
    EXPECT_EQ(unexpected("b", "u::a"),
              failure([&] { inside(document).readElementStartI(readerName("b")); }));
    EXPECT_EQ(unexpected("b", "a"), failure([] { inside("<r><a/></r>").readElementStart("b"); }));
}

TEST(XmlReaderElement, StartOfAnotherNameHasPassedTheTag) {
    XmlReader reader = inside("<r><a/><b/></r>");
    EXPECT_EQ("1:8", failurePosition([&] { reader.readElementStart("b"); }));
    EXPECT_EQ("<a/>", node(reader));
    reader.readElementStart("b");
    EXPECT_EQ("<b/>", node(reader));
}

TEST(XmlReaderElement, StartOfAnotherNameTakesAPendingTag) {
    XmlReader reader = inside("<r><a></a><b/></r>");
    EXPECT_FALSE(reader.isElementNext("b"));
    EXPECT_EQ(unexpected("b", "a"), failure([&] { reader.readElementStart("b"); }));
    EXPECT_EQ("</a>", next(reader));
}

TEST(XmlReaderElement, StartAppliesNoDefaultNamespaceToAName) {
    XmlReader reader = inside("<a xmlns=\"u\"><b/></a>");
    EXPECT_TRUE(reader.isElementNext(name("b")));
    EXPECT_EQ(unexpected("b", "u::b"), failure([&] { reader.readElementStart(name("b")); }));
}

TEST(XmlReaderElement, StartAppliesTheDefaultNamespaceAtTheCallToAText) {
    XmlReader reader = inside("<a xmlns=\"u\"><b></b></a>");
    reader.readElementStart("b");
    EXPECT_EQ("<{u}b>", node(reader));
    reader.readElementEnd("b");
    reader.readElementEnd("a");
}

TEST(XmlReaderElement, StartResolvesATextBeforeTheTagIsRead) {
    EXPECT_EQ(unexpected("a", "u::a"),
              failure([] { XmlReader(std::string("<a xmlns=\"u\"/>")).readElementStart("a"); }));
    EXPECT_EQ(unexpected("a", "u::a"),
              failure([] { inside("<r><p:a xmlns:p=\"u\"></p:a></r>").readElementStart("p:a"); }));
    XmlReader pending = inside("<r><p:a xmlns:p=\"u\"></p:a></r>");
    EXPECT_TRUE(pending.isElementNext("p:a"));
    pending.readElementStart("p:a");
    EXPECT_EQ("<{u}a xmlns:p=u>", node(pending));
}

TEST(XmlReaderElement, NullNameIsNoWildcardForStartAndEnd) {
    EXPECT_EQ(unexpected("", "a"),
              failure([] { inside("<r><a/></r>").readElementStart(XmlReader::NullName); }));
    EXPECT_EQ(unexpected("", "r"),
              failure([] { inside("<r></r>").readElementEnd(XmlReader::NullName); }));
}

TEST(XmlReaderElement, StartTakesTheReadersOwnName) {
    XmlReader same = inside("<a><a></a></a>");
    same.readElementStartI(same.getLastNameI());
    EXPECT_EQ("<a>", node(same));
    XmlReader other = inside("<a><b></b></a>");
    EXPECT_EQ(unexpected("a", "b"),
              failure([&] { other.readElementStartI(other.getLastNameI()); }));
}

TEST(XmlReaderElement, StartAtTheEndIsPrematureEof) {
    XmlReader reader = behind(2, "<r></r>");
    EXPECT_EQ(prematureEof, failure([&] { reader.readElementStart(); }));
}

// ---- readElementValue ----

TEST(XmlReaderElement, ValueIsReadByTheSettings) {
    const std::string document = "<a>&lt;\r\n<!--c-->x<![CDATA[y]]></a>";
    XmlReader plain = inside(document);
    EXPECT_EQ("<\nx<![CDATA[y]]>", plain.readElementValue());
    XmlReader raw = inside(document);
    raw.setExpandContentReference(false);
    EXPECT_EQ("&lt;\r\nx<![CDATA[y]]>", raw.readElementValueI().asString());
    XmlReader comments = inside(document);
    comments.setExpandCommentReference(true);
    EXPECT_EQ("<\n<!--c-->x<![CDATA[y]]>", comments.readElementValue());
}

TEST(XmlReaderElement, ValueStartsBeforeACommentUnlikeANode) {
    XmlReader reader = inside("<a><!--c-->x</a>");
    reader.setExpandCommentReference(true);
    EXPECT_EQ("<!--c-->x", reader.readElementValue());
    XmlReader cdata = inside("<a><![CDATA[x]]><!--c-->y</a>");
    EXPECT_EQ("<![CDATA[x]]>y", cdata.readElementValue());
}

TEST(XmlReaderElement, ValueInFrontOfATagIsEmptyData) {
    XmlReader reader = inside("<a></a>");
    EXPECT_EQ("", reader.readElementValue());
    EXPECT_EQ("\"\"", node(reader));
    EXPECT_EQ("", reader.readElementValue());
    reader.readElementEnd("a");
}

TEST(XmlReaderElement, ValueStopsAtAChild) {
    XmlReader reader = inside("<a>x<b/>y</a>");
    EXPECT_EQ("x", reader.readElementValue());
    EXPECT_EQ("<b/>", next(reader));
    EXPECT_EQ("y", reader.readElementValue());
}

TEST(XmlReaderElement, ValueAfterAnEmptyTagIsTheTextBehindIt) {
    XmlReader reader = inside("<r><a/>tail</r>");
    reader.readElementStart("a");
    EXPECT_EQ("tail", reader.readElementValue());
    EXPECT_EQ(unexpected("a", "r"), failure([&] { reader.readElementEnd("a"); }));
}

TEST(XmlReaderElement, ValueAfterAnEmptyRootIsPrematureEof) {
    XmlReader reader(std::string("<a/>\n"));
    reader.readElementStart();
    EXPECT_EQ(prematureEof, failure([&] { reader.readElementValue(); }));
}

TEST(XmlReaderElement, PlainAndViewValuesAgree) {
    EXPECT_EQ(inside("<a>x&amp;y</a>").readElementValue(), "x&y");
    XmlReader reader = inside("<a>x&amp;y</a>");
    EXPECT_EQ("x&y", reader.readElementValueI().asString());
    EXPECT_EQ("x&y", reader.getLastContent());
}

// ---- readElementEnd ----

TEST(XmlReaderElement, EndSkipsTheTextInFront) {
    XmlReader reader = inside("<a> x <!--c--></a>");
    reader.readElementEnd("a");
    EXPECT_EQ("</a>", node(reader));
}

TEST(XmlReaderElement, EndOnAStartOrEmptyTagFailsWithItsUniqueName) {
    EXPECT_EQ(noEndTag("b"), failure([] { inside("<a><b></b></a>").readElementEnd(); }));
    EXPECT_EQ(noEndTag("u::b"),
              failure([] { inside("<a>x<p:b xmlns:p=\"u\"/></a>").readElementEnd(); }));
    EXPECT_EQ(noEndTag("b"), failure([] { inside("<a><b></b></a>").readElementEnd("a"); }));
    EXPECT_EQ(noEndTag("b"), failure([] { inside("<a><b></b></a>").readElementEnd(name("a")); }));
    EXPECT_EQ(noEndTag("b"),
              failure([] { inside("<a><b></b></a>").readElementEndI(readerName("a")); }));
}

TEST(XmlReaderElement, EndOnAPendingStartTagFailsAndTakesIt) {
    XmlReader reader = inside("<a><b></b></a>");
    EXPECT_TRUE(reader.isElementNext("b"));
    EXPECT_EQ(noEndTag("b"), failure([&] { reader.readElementEnd(); }));
    EXPECT_EQ("</b>", next(reader));
}

TEST(XmlReaderElement, EndOfAnotherNameFailsWithBothUniqueNames) {
    EXPECT_EQ(unexpected("a", "b"), failure([] { inside("<a></b>").readElementEnd("a"); }));
    const std::string document = "<p:a xmlns:p=\"u\"></p:a>";
    EXPECT_EQ(unexpected("a", "u::a"),
              failure([&] { inside(document).readElementEnd(name("a")); }));
    EXPECT_EQ(unexpected("u::b", "u::a"), failure([&] { inside(document).readElementEnd("p:b"); }));
    EXPECT_EQ(unexpected("v::a", "u::a"),
              failure([&] { inside(document).readElementEndI(readerName("a", "v")); }));
}

TEST(XmlReaderElement, EndOfTheRightNameInEachForm) {
    const std::string document = "<p:a xmlns:p=\"u\">x</p:a>";
    const auto behindEnd = [&](auto read) {
        XmlReader reader = inside(document);
        read(reader);
        return node(reader);
    };
    EXPECT_EQ("</{u}a>", behindEnd([](XmlReader& r) { r.readElementEnd(); }));
    EXPECT_EQ("</{u}a>", behindEnd([](XmlReader& r) { r.readElementEnd("p:a"); }));
    EXPECT_EQ("</{u}a>", behindEnd([](XmlReader& r) { r.readElementEnd(name("a", "u")); }));
    EXPECT_EQ("</{u}a>", behindEnd([](XmlReader& r) { r.readElementEndI(readerName("a", "u")); }));
}

TEST(XmlReaderElement, EndIsTheOnlyPlaceWhereNestingIsChecked) {
    XmlReader reader = inside("<a><b></a></b>");
    reader.readElementStart("b");
    reader.readElementEnd();
    EXPECT_EQ("</a>", node(reader));
    EXPECT_EQ(unexpected("a", "b"), failure([&] { reader.readElementEnd("a"); }));
}

TEST(XmlReaderElement, EndAfterAnEmptyTagComparesTheName) {
    XmlReader reader = inside("<r><p:a xmlns:p=\"u\"/></r>");
    reader.readElementStart();
    EXPECT_EQ(unexpected("r", "u::a"), failure([&] { reader.readElementEnd("r"); }));
    EXPECT_EQ("</{u}a>", node(reader));
    reader.readElementEnd("r");
}

TEST(XmlReaderElement, EndAfterAnEmptyTagResolvesATextOutsideTheTagsScope) {
    XmlReader reader = inside("<r><p:a xmlns:p=\"u\"/></r>");
    reader.readElementStart(name("a", "u"));
    EXPECT_EQ(unexpected("a", "u::a"), failure([&] { reader.readElementEnd("p:a"); }));
}

TEST(XmlReaderElement, EndAfterAPendingEndTagResolvesATextOutsideTheElementsScope) {
    XmlReader reader = inside("<p:a xmlns:p=\"u\"></p:a>");
    EXPECT_FALSE(reader.isElementNext("b"));
    EXPECT_EQ(unexpected("a", "u::a"), failure([&] { reader.readElementEnd("p:a"); }));
}

TEST(XmlReaderElement, EndTakesTheReadersOwnName) {
    XmlReader same = inside("<a></a>");
    same.readElementEndI(same.getLastNameI());
    EXPECT_EQ("</a>", node(same));
    XmlReader other = inside("<a></b>");
    EXPECT_EQ(unexpected("a", "b"), failure([&] { other.readElementEndI(other.getLastNameI()); }));
}

TEST(XmlReaderElement, EndBehindTheRootIsPrematureEof) {
    XmlReader reader = behind(2, "<a></a>");
    EXPECT_EQ(prematureEof, failure([&] { reader.readElementEnd(); }));
    EXPECT_EQ(prematureEof, failure([] { inside("<a>xyz").readElementEnd(); }));
}

}  // namespace
}  // namespace nolk
