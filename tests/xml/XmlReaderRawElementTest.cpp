#include <nolk/core/MessageCatalogId.h>
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

/** What readElement gives for the element in `<r>...</r>`. */
std::string elementIn(const std::string& content) {
    return inside("<r>" + content + "</r>").readElement(any);
}

// ---- readElement ----

TEST(XmlReaderReadElement, GivesTheWholeElementTagsIncluded) {
    EXPECT_EQ("<a>x</a>", elementIn("<a>x</a>"));
    EXPECT_EQ("<a></a>", elementIn("<a></a>"));
    EXPECT_EQ("<a/>", elementIn("<a/>"));
    EXPECT_EQ("<a b = '1' />", elementIn("<a b = '1' />"));
    EXPECT_EQ("<a b=\"1\" >x</a >", elementIn("<a b=\"1\" >x</a >"));
    EXPECT_EQ("<a><b>x</b><c/>y</a>", elementIn("<a><b>x</b><c/>y</a>"));
}

TEST(XmlReaderReadElement, GivesTheRoot) {
    XmlReader reader(std::string("<?xml version=\"1.0\"?>\n<r a='1'>x</r>\n"));
    EXPECT_EQ("<r a='1'>x</r>", reader.readElement("r"));
    EXPECT_TRUE(reader.eof());
}

TEST(XmlReaderReadElement, ExpandsNothing) {
    const std::string element =
        "<a b=\"&lt;&#65;\">&lt;\r\n\r&#228;<![CDATA[&\r\n]]><c d='&amp;'>\r\n</c>\r</a>";
    EXPECT_EQ(element, elementIn(element));
}

TEST(XmlReaderReadElement, SkipsTheTextInFront) {
    EXPECT_EQ("<a>x</a>", elementIn(" t &lt; \r\n<a>x</a> tail"));
    EXPECT_EQ("<a>x</a>", elementIn("<![CDATA[<b/>]]><a>x</a>"));
}

TEST(XmlReaderReadElement, SkipsCommentsAndInstructionsInFront) {
    EXPECT_EQ("<a>x</a>", elementIn("<!--c--><a>x</a>"));
    EXPECT_EQ("<a>x</a>", elementIn("<?p?><a>x</a>"));
    EXPECT_EQ("<a>x</a>", elementIn("t<!--c-->t<?p?>t<a>x</a>"));
}

TEST(XmlReaderReadElement, ReadsCommentsInFrontAsInText) {
    EXPECT_EQ("<a>x</a>", elementIn("<!----><a>x</a>"));
    EXPECT_EQ(prematureEof, failure([] { elementIn("<!---><a>x</a>"); }));
}

TEST(XmlReaderReadElement, CommentsAtABoundaryInsideStayAsWritten) {
    for (const char* element :
         {"<a><!--c--></a>", "<a><!--c--><b/></a>", "<a><b/><!--\r\n--><c></c></a>",
          "<a><b/><!--c-->x</a>", "<a><!--c-->x</a>", "<a><!--c--><!--d--><b/><!--e--></a>"}) {
        EXPECT_EQ(element, elementIn(element));
    }
}

TEST(XmlReaderReadElement, CommentsInTextInsideStayAsWritten) {
    for (const char* element : {"<a>x<!--c-->y</a>", "<a>x<!--c--><b/></a>",
                                "<a> <!--c--> <b/> <!--d--></a>", "<a>x<!--&lt;<b>--></a>"}) {
        EXPECT_EQ(element, elementIn(element));
    }
}

TEST(XmlReaderReadElement, CommentsInsideStayEvenIfTheSettingKeepsOrDropsThem) {
    XmlReader reader = inside("<r><!--c--><a>x<!--d-->y</a></r>");
    reader.setExpandCommentReference(true);
    EXPECT_EQ("<a>x<!--d-->y</a>", reader.readElement(any));
}

TEST(XmlReaderReadElement, InstructionsAtABoundaryInsideStayAsWritten) {
    for (const char* element : {"<a><?p?></a>", "<a><?p?><b/></a>", "<a><b/><?p?><?q?></a>",
                                "<a><?p?>x</a>", "<a><?xml version=\"1.0\"?><b/></a>"}) {
        EXPECT_EQ(element, elementIn(element));
    }
}

// What stands between the moved text and the next tag is left over, its length is not.
TEST(XmlReaderReadElement, InstructionInTextMovesTheTextBehindItWithinTheSameLength) {
    const std::string element = "<a>x<?p?>yz<b/>t</a>";
    const std::string read = elementIn(element);
    EXPECT_EQ(element.size(), read.size());
    EXPECT_EQ("<a>xyz", read.substr(0, 6));
    EXPECT_EQ("<b/>t</a>", read.substr(11));
}

TEST(XmlReaderReadElement, LineEndInACommentInTextMovesTheTextBehindItWithinTheSameLength) {
    const std::string element = "<a>x<!--\r\n-->yz<b/></a>";
    const std::string read = elementIn(element);
    EXPECT_EQ(element.size(), read.size());
    EXPECT_EQ("<a>x<!--\n-->yz", read.substr(0, 14));
    EXPECT_EQ("<b/></a>", read.substr(15));
}

TEST(XmlReaderReadElement, WhatFollowsAMovedTextIsUnaffected) {
    XmlReader reader = inside("<r><a>x<?p?>yz</a>&lt;<b/></r>");
    reader.readElement(any);
    EXPECT_EQ("\"<\"", next(reader));
    EXPECT_EQ("<b/>", next(reader));
    EXPECT_EQ("</r>", next(reader));
}

TEST(XmlReaderReadElement, NestedElementsOfTheSameNameAreCounted) {
    EXPECT_EQ("<a><a>x</a><a><a></a></a></a>", elementIn("<a><a>x</a><a><a></a></a></a><a/>"));
}

TEST(XmlReaderReadElement, EmptyElementsOfTheSameNameInsideAreNotCounted) {
    EXPECT_EQ("<a><a/></a>", elementIn("<a><a/></a>x</a>"));
}

TEST(XmlReaderReadElement, SameNamesAreCountedByLocalNameAndUri) {
    const std::string element =
        "<p:a xmlns:p=\"u\"><a></a><q:a xmlns:q=\"u\"></q:a><p:a xmlns:p=\"v\"></p:a></p:a>";
    EXPECT_EQ(element, elementIn(element + "<b/>"));
}

TEST(XmlReaderReadElement, OtherTagsNeedNotMatch) {
    EXPECT_EQ("<a><b></c></a>", elementIn("<a><b></c></a>"));
    EXPECT_EQ("<a><b></a>", elementIn("<a><b></a>"));
    EXPECT_EQ("<a></b></a>", elementIn("<a></b></a>"));
}

TEST(XmlReaderReadElement, EndTagOfTheNameInAnotherNamespaceDoesNotCount) {
    EXPECT_EQ("<a></p:a></a>", inside("<r xmlns:p=\"u\"><a></p:a></a></r>").readElement(any));
}

TEST(XmlReaderReadElement, MissingEndTagIsPrematureEof) {
    EXPECT_EQ(prematureEof, failure([] { elementIn("<a><b>"); }));
    EXPECT_EQ(prematureEof, failure([] { XmlReader(std::string("<a><b/>")).readElement(any); }));
}

TEST(XmlReaderReadElement, LeavesTheEndTagAsNodeWithTheRawTextAsContent) {
    XmlReader reader = inside("<r><p:a xmlns:p=\"u\" b=\"&lt;\">x&lt;<c d=\"2\"/>\r\n</p:a>y</r>");
    reader.readElement(any);
    EXPECT_EQ("</{u}a>", node(reader));
    EXPECT_EQ("p", reader.getLastNameI().prefix.asString());
    EXPECT_EQ("x&lt;<c d=\"2\"/>\r\n", reader.getLastContent());
    EXPECT_EQ(" xmlns:p=u b=&lt;", text(reader.getLastAttributesI()));
    EXPECT_EQ("\"y\"", next(reader));
    EXPECT_EQ("</r>", next(reader));
    EXPECT_TRUE(reader.eof());
}

TEST(XmlReaderReadElement, LeavesAnEndTagWithEmptyContentBehindAnEmptyTag) {
    XmlReader reader = inside("<r>x<a b='&lt;'/>y</r>");
    EXPECT_EQ("<a b='&lt;'/>", reader.readElement(any));
    EXPECT_EQ("</a>", node(reader));
    EXPECT_EQ("", reader.getLastContent());
    EXPECT_EQ(" b=&lt;", text(reader.getLastAttributesI()));
    EXPECT_EQ("\"y\"", next(reader));
    EXPECT_EQ("</r>", next(reader));
}

TEST(XmlReaderReadElement, EmptyElementHasEmptyContent) {
    XmlReader reader = inside("<r><a></a></r>");
    EXPECT_EQ("<a></a>", reader.readElement(any));
    EXPECT_EQ("", reader.getLastContent());
}

TEST(XmlReaderReadElement, LeavesScopeAndSettingsAsTheyWere) {
    XmlReader reader = inside("<r><a xmlns:p=\"u\"><b xmlns:q=\"v\"/></a></r>");
    const auto depth = reader.getNamespaceStack().depth();
    reader.readElement(any);
    EXPECT_EQ(depth, reader.getNamespaceStack().depth());
    EXPECT_EQ("", reader.getURIForPrefix("p"));
    EXPECT_TRUE(reader.getExpandAttributeReference());
    EXPECT_TRUE(reader.getExpandContentReference());
    EXPECT_FALSE(reader.getExpandCommentReference());
}

TEST(XmlReaderReadElement, IsFollowedByTheNextElement) {
    XmlReader reader = inside("<r> <a>1</a> <a>2</a> </r>");
    EXPECT_EQ("<a>1</a>", reader.readElement("a"));
    EXPECT_TRUE(reader.isElementNext("a"));
    EXPECT_EQ("<a>2</a>", reader.readElement("a"));
    reader.readElementEnd("r");
    EXPECT_TRUE(reader.eof());
}

TEST(XmlReaderReadElement, PendingStartTagIsFoundByWalkingBack) {
    XmlReader reader = inside("<r xmlns:p=\"u\">x<p:a  b = '>' >y</p:a></r>");
    EXPECT_TRUE(reader.isElementNext("p:a"));
    EXPECT_EQ("<p:a  b = '>' >y</p:a>", reader.readElement("p:a"));
    EXPECT_EQ("</r>", next(reader));
}

TEST(XmlReaderReadElement, PendingEmptyTagIsFoundByWalkingBack) {
    XmlReader reader = inside("<r>x<a b='1'/>y</r>");
    EXPECT_TRUE(reader.isElementNext("a"));
    EXPECT_EQ("<a b='1'/>", reader.readElement("a"));
    EXPECT_EQ("</a>", node(reader));
    EXPECT_EQ("\"y\"", next(reader));
}

TEST(XmlReaderReadElement, BehindATextTheNextElementIsRead) {
    XmlReader reader = inside("<r>x<a>y</a></r>");
    EXPECT_EQ("x", reader.readElementValue());
    EXPECT_EQ("<a>y</a>", reader.readElement(any));
}

TEST(XmlReaderReadElement, BehindAnEmptyTagTheNextElementIsRead) {
    XmlReader reader = inside("<r><a/><b/></r>");
    reader.readElementStart("a");
    EXPECT_EQ("<b/>", reader.readElement(any));
}

TEST(XmlReaderReadElement, AbsentElementGivesAnEmptyTextAndLeavesTheNodePending) {
    XmlReader reader = inside("<r><a>x</a></r>");
    reader.readElementStart("a");
    EXPECT_EQ("", reader.readElement("b"));
    EXPECT_EQ("</a>", node(reader));
    EXPECT_EQ("", reader.getLastContent());
    EXPECT_EQ("", reader.readElement(any));
    EXPECT_EQ("", reader.readElement(any));
    EXPECT_FALSE(reader.isElementNext("a"));
    reader.readElementEnd("a");
    EXPECT_EQ("</a>", node(reader));
    reader.readElementEnd("r");
}

TEST(XmlReaderReadElement, AbsentElementBehindALookAheadLeavesTheNodePending) {
    XmlReader reader = inside("<r>x</r>");
    EXPECT_FALSE(reader.isElementNext("a"));
    EXPECT_EQ(0u, reader.readElementI(readerName("a")).length);
    EXPECT_EQ("", reader.getLastContent());
    reader.readElementEnd("r");
    EXPECT_TRUE(reader.eof());
}

TEST(XmlReaderReadElement, NameIsCheckedWithNoDefaultNamespace) {
    const std::string document = "<r xmlns:p=\"u\"><p:a>x</p:a></r>";
    EXPECT_EQ("<p:a>x</p:a>", inside(document).readElement(name("a", "u")));
    EXPECT_EQ("<p:a>x</p:a>", inside(document).readElement("p:a"));
    EXPECT_EQ("<p:a>x</p:a>", inside(document).readElementI(readerName("a", "u")).asString());
    EXPECT_EQ(unexpected("a", "u::a"), failure([&] { inside(document).readElement(name("a")); }));
    EXPECT_EQ(unexpected("a", "u::a"), failure([&] { inside(document).readElement("a"); }));
    EXPECT_EQ(unexpected("u::b", "u::a"), failure([&] { inside(document).readElement("p:b"); }));
    EXPECT_EQ(unexpected("v::a", "u::a"),
              failure([&] { inside(document).readElementI(readerName("a", "v")); }));
    EXPECT_EQ(unexpected("b", "u::b"),
              failure([] { inside("<r xmlns=\"u\"><b/></r>").readElement(name("b")); }));
    EXPECT_EQ("<b/>", inside("<r xmlns=\"u\"><b/></r>").readElement("b"));
}

TEST(XmlReaderReadElement, AnotherNameFailsBehindTheStartTag) {
    XmlReader reader = inside("<r><a>x</a></r>");
    EXPECT_EQ("1:7", failurePosition([&] { reader.readElement("b"); }));
    EXPECT_EQ("\"x\"", next(reader));
}

TEST(XmlReaderReadElement, EmptyLocalNameMeansAnyWhateverItsNamespace) {
    EXPECT_EQ("<a/>", inside("<r><a/></r>").readElement(name("", "u")));
    EXPECT_EQ("<a/>", inside("<r><a/></r>").readElement(""));
    EXPECT_EQ("<a/>", inside("<r><a/></r>").readElementI(XmlReaderName()).asString());
}

TEST(XmlReaderReadElement, TakesTheReadersOwnName) {
    XmlReader same = inside("<a><a>x</a></a>");
    EXPECT_EQ("<a>x</a>", same.readElementI(same.getLastNameI()).asString());
    XmlReader other = inside("<a><b>x</b></a>");
    EXPECT_EQ(unexpected("a", "b"), failure([&] { other.readElementI(other.getLastNameI()); }));
}

TEST(XmlReaderReadElement, AtTheEndIsPrematureEof) {
    XmlReader reader(std::string("<a></a>"));
    reader.readElement(any);
    EXPECT_EQ(prematureEof, failure([&] { reader.readElement(any); }));
}

TEST(XmlReaderReadElement, ManyElementsInARow) {
    std::string document = "<r>";
    for (int i = 0; i < 200; ++i) {
        document += "<a n='" + std::to_string(i) + "'><a>&lt;</a></a>\n";
    }
    XmlReader reader = inside(document + "</r>");
    for (int i = 0; i < 200; ++i) {
        EXPECT_EQ("<a n='" + std::to_string(i) + "'><a>&lt;</a></a>", reader.readElement("a"));
    }
    EXPECT_EQ("", reader.readElement("a"));
    reader.readElementEnd("r");
}

// ---- getElementReader ----

TEST(XmlReaderElementReader, ReadsTheElementAsItsRoot) {
    XmlReader reader = inside("<r>t<a b='&lt;'>x&lt;<c/></a>y</r>");
    XmlReader child = reader.getElementReader("a");
    EXPECT_EQ("<a b=<>", next(child));
    EXPECT_EQ("\"x<\"", next(child));
    EXPECT_EQ("<c/>", next(child));
    EXPECT_EQ("</a>", next(child));
}

TEST(XmlReaderElementReader, LeavesTheParentBehindTheElement) {
    XmlReader reader = inside("<r><a>x</a>y</r>");
    XmlReader child = reader.getElementReader("a");
    EXPECT_EQ("</a>", node(reader));
    EXPECT_EQ("x", reader.getLastContent());
    EXPECT_EQ("\"y\"", next(reader));
    EXPECT_EQ("<a>", next(child));
    EXPECT_EQ("</r>", next(reader));
    EXPECT_EQ("\"x\"", next(child));
}

TEST(XmlReaderElementReader, TakesEachFormOfName) {
    const std::string document = "<r xmlns:p=\"u\"><p:a/></r>";
    const auto first = [&](auto get) {
        XmlReader reader = inside(document);
        XmlReader child = get(reader);
        return next(child);
    };
    EXPECT_EQ("<{u}a/>", first([](XmlReader& r) { return r.getElementReader(name("a", "u")); }));
    EXPECT_EQ("<{u}a/>", first([](XmlReader& r) { return r.getElementReader("p:a"); }));
    EXPECT_EQ("<{u}a/>",
              first([](XmlReader& r) { return r.getElementReader(readerName("a", "u")); }));
    EXPECT_EQ("<{u}a/>", first([](XmlReader& r) { return r.getElementReader(any); }));
    EXPECT_EQ(unexpected("a", "u::a"),
              failure([&] { inside(document).getElementReader(name("a")); }));
}

TEST(XmlReaderElementReader, SeesTheScopesOfTheParent) {
    XmlReader reader = inside("<r xmlns=\"d\" xmlns:p=\"u\"><a><p:b/></a></r>");
    XmlReader child = reader.getElementReader("a");
    EXPECT_EQ("u", child.getURIForPrefix("p"));
    EXPECT_EQ("<{d}a>", next(child));
    EXPECT_EQ("<{u}b/>", next(child));
    EXPECT_EQ("</{d}a>", next(child));
}

TEST(XmlReaderElementReader, SeesNamespacesThatWereAddedToTheParent) {
    XmlReader reader = inside("<r><p:a/></r>");
    reader.addNamespace(XmlNamespace("p", "u"));
    XmlReader child = reader.getElementReader(any);
    reader = XmlReader();
    EXPECT_EQ("<{u}a/>", next(child));
}

TEST(XmlReaderElementReader, NamespacesAddedLaterAreEachReadersOwn) {
    XmlReader reader = inside("<r><a></a></r>");
    XmlReader child = reader.getElementReader(any);
    child.addNamespace(XmlNamespace("p", "u"));
    reader.addNamespace(XmlNamespace("q", "v"));
    EXPECT_EQ("", reader.getURIForPrefix("p"));
    EXPECT_EQ("", child.getURIForPrefix("q"));
}

TEST(XmlReaderElementReader, TakesOverSettingsAndFacts) {
    XmlReader reader(std::string("<?xml version='1.0' encoding='US-ASCII'?><r><a>&lt;</a></r>"));
    reader.readNextNode();
    reader.setExpandContentReference(false);
    reader.setExpandAttributeReference(false);
    reader.setExpandCommentReference(true);
    XmlReader child = reader.getElementReader(any);
    EXPECT_FALSE(child.getExpandContentReference());
    EXPECT_FALSE(child.getExpandAttributeReference());
    EXPECT_TRUE(child.getExpandCommentReference());
    EXPECT_EQ("US-ASCII", child.getEncoding());
    EXPECT_EQ("1.0", child.getVersion());
    child.setExpandContentReference(true);
    EXPECT_FALSE(reader.getExpandContentReference());
}

TEST(XmlReaderElementReader, StandsOnTheNodeWhereTheParentStoodBefore) {
    XmlReader reader = inside("<r b='1'>x<a></a></r>");
    reader.readElementValue();
    XmlReader child = reader.getElementReader(any);
    EXPECT_EQ("\"x\"", node(child));
    EXPECT_EQ("r", child.getLastName().getLocalName());
    EXPECT_EQ(" b=1", text(child.getLastAttributesI()));
}

TEST(XmlReaderElementReader, PendingElementOfTheParentIsNotPendingInTheChild) {
    XmlReader reader = inside("<r xmlns:p=\"u\"><p:a>x</p:a><b/></r>");
    EXPECT_TRUE(reader.isElementNext("p:a"));
    XmlReader child = reader.getElementReader("p:a");
    EXPECT_EQ((Nodes{"<{u}a>", "\"x\"", "</{u}a>"}),
              (Nodes{next(child), next(child), next(child)}));
    EXPECT_EQ("<b/>", next(reader));
}

TEST(XmlReaderElementReader, ChildOverAPendingEmptyTagStandsOnIt) {
    XmlReader reader = inside("<r><a/><b/></r>");
    EXPECT_TRUE(reader.isElementNext("a"));
    XmlReader child = reader.getElementReader("a");
    EXPECT_EQ(XmlReader::EmptyTag, child.getLastNodeType());
    EXPECT_TRUE(child.isElementNext("a"));
    child.readElementStart("a");
    EXPECT_EQ("<a/>", node(child));
}

TEST(XmlReaderElementReader, ReadsByElementLikeItsParent) {
    XmlReader reader = inside("<r><a><b>1</b><c/></a></r>");
    XmlReader child = reader.getElementReader("a");
    EXPECT_TRUE(child.isElementNext("a"));
    child.readElementStart("a");
    child.readElementStart("b");
    EXPECT_EQ("1", child.readElementValue());
    child.readElementEnd("b");
    EXPECT_EQ("<c/>", child.readElement("c"));
    child.readElementEnd("a");
    reader.readElementEnd("r");
}

TEST(XmlReaderElementReader, ChildrenOfChildren) {
    XmlReader reader = inside("<r><a><b><c>&lt;</c></b></a></r>");
    XmlReader child = reader.getElementReader("a");
    child.readElementStart("a");
    XmlReader grandchild = child.getElementReader("b");
    reader = XmlReader();
    child = XmlReader();
    grandchild.readElementStart("b");
    grandchild.readElementStart("c");
    EXPECT_EQ("<", grandchild.readElementValue());
    grandchild.readElementEnd("c");
    grandchild.readElementEnd("b");
}

TEST(XmlReaderElementReader, ChildOutlivesAllHandlesOfTheParent) {
    XmlReader child;
    {
        XmlReader reader = inside("<r xmlns:p=\"u\"><p:a>&lt;</p:a></r>");
        child = reader.getElementReader(any);
    }
    EXPECT_EQ("<{u}a>", next(child));
    EXPECT_EQ("\"<\"", next(child));
    EXPECT_EQ("</{u}a>", next(child));
}

TEST(XmlReaderElementReader, ParentOutlivesTheChild) {
    XmlReader reader = inside("<r><a>&lt;</a>&lt;</r>");
    { XmlReader child = reader.getElementReader(any); }
    EXPECT_EQ("\"<\"", next(reader));
    EXPECT_EQ("</r>", next(reader));
}

TEST(XmlReaderElementReader, SharesTheBuffer) {
    XmlReader reader = inside("<r><a>x</a></r>");
    const char* const before = reader.getLastNameI().localName.data;
    XmlReader child = reader.getElementReader(any);
    child.readNextNode();
    EXPECT_EQ(before + 3, child.getLastNameI().localName.data);
}

TEST(XmlReaderElementReader, EndOfTheChildLiesTwoBytesBehindTheElement) {
    const auto atEnd = [](const std::string& document) {
        XmlReader child = inside(document).getElementReader(any);
        for (int i = 0; i < 3; ++i) {
            child.readNextNode();
        }
        return child.eof();
    };
    EXPECT_FALSE(atEnd("<r><a>x</a></r>"));
    EXPECT_FALSE(atEnd("<r><a>x</a>yz</r>"));
    EXPECT_FALSE(atEnd("<r><a>x</a>y</r>"));
    EXPECT_TRUE(atEnd("<r><a>x</a> </r>"));
    EXPECT_TRUE(atEnd("<r><a>x</a>\n\n</r>"));
    EXPECT_TRUE(atEnd("<r><a>x</a> y</r>"));
}

TEST(XmlReaderElementReader, EndOfAChildOverTheLastElementOfTheDocument) {
    const auto atEnd = [](const std::string& document) {
        XmlReader child = XmlReader(document).getElementReader(any);
        for (int i = 0; i < 3; ++i) {
            child.readNextNode();
        }
        return child.eof();
    };
    EXPECT_FALSE(atEnd("<a>x</a>"));
    EXPECT_TRUE(atEnd("<a>x</a>\n"));
    EXPECT_TRUE(atEnd("<a>x</a>\n\n"));
}

TEST(XmlReaderElementReader, ReadingOnBehindTheElementMeetsTheBound) {
    XmlReader reader = inside("<r><a>x</a></r>");
    XmlReader child = reader.getElementReader(any);
    EXPECT_EQ((Nodes{"<a>", "\"x\"", "</a>"}), (Nodes{next(child), next(child), next(child)}));
    EXPECT_EQ(prematureEof, failure([&] { child.readNextNode(); }));
    XmlReader last = XmlReader(std::string("<a>x</a>")).getElementReader(any);
    EXPECT_EQ((Nodes{"<a>", "\"x\"", "</a>"}), (Nodes{next(last), next(last), next(last)}));
    EXPECT_EQ(prematureEof, failure([&] { last.readNextNode(); }));
}

TEST(XmlReaderElementReader, DepthOfTheChildStartsAtZero) {
    XmlReader reader(std::string("<r><s><a/> \n</s></r>"));
    reader.readElementStart();
    reader.readElementStart();
    XmlReader child = reader.getElementReader("a");
    child.readNextNode();
    EXPECT_TRUE(child.eof());
}

TEST(XmlReaderElementReader, ErrorsOfTheChildTellPositionsInTheDocument) {
    XmlReader reader = inside("<r>\n<a><b/></a></r>");
    XmlReader child = reader.getElementReader("a");
    child.readElementStart("a");
    EXPECT_EQ("2:8", failurePosition([&] { child.readElementEnd("a"); }));
    EXPECT_EQ("2:12",
              failurePosition([&] { reader.err(here(), message(MessageCatalogId("", "", ""))); }));
}

TEST(XmlReaderElementReader, AbsentElementGivesAReaderThatCanBeAsked) {
    XmlReader reader = inside("<r xmlns:p=\"u\">x</r>");
    XmlReader child = reader.getElementReader("a");
    EXPECT_TRUE(child.isValid());
    EXPECT_NO_THROW((void)child.eof());
    EXPECT_EQ("UTF-8", child.getEncoding());
    EXPECT_EQ("u", child.getURIForPrefix("p"));
    EXPECT_EQ("<r xmlns:p=u>", node(child));
    EXPECT_EQ(prematureEof, failure([&] { child.readNextNode(); }));
    EXPECT_EQ(prematureEof, failure([&] { child.isElementNext("a"); }));
    EXPECT_EQ(prematureEof, failure([&] { child.readElementStart(); }));
    EXPECT_EQ(prematureEof, failure([&] { child.readElementValue(); }));
    EXPECT_EQ(prematureEof, failure([&] { child.readElementEnd(); }));
    EXPECT_EQ(prematureEof, failure([&] { child.readElement(any); }));
    EXPECT_EQ(prematureEof, failure([&] { child.getElementReader(any); }));
    EXPECT_EQ(prematureEof, failure([&] { child.readWellFormedElement(any); }));
    EXPECT_NO_THROW((void)child.eof());
}

TEST(XmlReaderElementReader, EachOperationOfAReaderOverAnAbsentElementIsPrematureEof) {
    const auto fail = [](auto action) {
        XmlReader reader = inside("<r>x</r>");
        XmlReader child = reader.getElementReader("a");
        return failure([&] { action(child); });
    };
    EXPECT_EQ(prematureEof, fail([](XmlReader& r) { r.readNextNode(); }));
    EXPECT_EQ(prematureEof, fail([](XmlReader& r) { r.isElementNext("a"); }));
    EXPECT_EQ(prematureEof, fail([](XmlReader& r) { r.readElementStart(); }));
    EXPECT_EQ(prematureEof, fail([](XmlReader& r) { r.readElementValue(); }));
    EXPECT_EQ(prematureEof, fail([](XmlReader& r) { r.readElementEnd(); }));
    EXPECT_EQ(prematureEof, fail([](XmlReader& r) { r.readElement(any); }));
    EXPECT_EQ(prematureEof, fail([](XmlReader& r) { r.getElementReader(any); }));
    EXPECT_EQ(prematureEof, fail([](XmlReader& r) { r.readWellFormedElement(any); }));
}

TEST(XmlReaderElementReader, AbsentElementLeavesTheParentAsReadElementDoes) {
    XmlReader reader = inside("<r>x</r>");
    XmlReader child = reader.getElementReader("a");
    EXPECT_EQ("</r>", node(reader));
    EXPECT_EQ(prematureEof, failure([&] { child.readNextNode(); }));
    reader.readElementEnd("r");
    EXPECT_TRUE(reader.eof());
}

TEST(XmlReaderElementReader, ReadersOverAbsentElementsLeaveTheSharedEmptyTextAlone) {
    XmlReader first = inside("<r>x</r>");
    XmlReader second = inside("<r>x</r>");
    XmlReader a = first.getElementReader("a");
    XmlReader b = second.getElementReader("a");
    EXPECT_EQ(prematureEof, failure([&] { a.readNextNode(); }));
    EXPECT_EQ(prematureEof, failure([&] { b.readNextNode(); }));
    EXPECT_EQ('\0', *XmlReaderString().data) << "the shared empty text";
}

// ---- readWellFormedElement ----

/** What readWellFormedElement gives for the first element inside the root. */
std::string wellFormedIn(const std::string& document) {
    return inside(document).readWellFormedElement(any);
}

TEST(XmlReaderWellFormedElement, ElementThatNeedsNothingIsItsOwnText) {
    for (const char* element :
         {"<a>x</a>", "<a></a>", "<a/>", "<a b='1' />", "<a b=\"&lt;\">&lt;\r\n<c d='2'/>&#65;</a>",
          "<a xmlns=\"u\" xmlns:p=\"v\" p:b=\"1\"><p:c/></a>", "<p:a xmlns:p=\"u\"></p:a>",
          "<a><p:b xmlns:p=\"u\" p:c=\"1\"/></a>", "<a><!--c--><b/><?p?>x<!--d--></a>"}) {
        EXPECT_EQ(element, wellFormedIn(std::string("<r>") + element + "</r>"));
    }
}

TEST(XmlReaderWellFormedElement, AddsTheDeclarationOfItsOwnPrefix) {
    EXPECT_EQ("<p:a xmlns:p=\"u\"/>", wellFormedIn("<r xmlns:p=\"u\"><p:a/></r>"));
    EXPECT_EQ("<p:a xmlns:p=\"u\">x</p:a>", wellFormedIn("<r xmlns:p=\"u\"><p:a>x</p:a></r>"));
    EXPECT_EQ("<p:a b='1'  xmlns:p=\"u\"/>", wellFormedIn("<r xmlns:p=\"u\"><p:a b='1' /></r>"));
}

TEST(XmlReaderWellFormedElement, AddsTheDefaultNamespaceInScope) {
    EXPECT_EQ("<a xmlns=\"u\"/>", wellFormedIn("<r xmlns=\"u\"><a/></r>"));
    EXPECT_EQ("<a xmlns=\"u\"><b/></a>", wellFormedIn("<r xmlns=\"u\"><a><b/></a></r>"));
    EXPECT_EQ("<p:a xmlns=\"u\" xmlns:p=\"v\"/>",
              wellFormedIn("<r xmlns=\"u\" xmlns:p=\"v\"><p:a/></r>"));
}

TEST(XmlReaderWellFormedElement, OwnDefaultNamespaceIsNotAddedTwice) {
    EXPECT_EQ("<a xmlns=\"v\"/>", wellFormedIn("<r xmlns=\"u\"><a xmlns=\"v\"/></r>"));
    EXPECT_EQ("<a xmlns=\"u\"></a>", wellFormedIn("<r xmlns=\"u\"><a xmlns=\"u\"></a></r>"));
}

TEST(XmlReaderWellFormedElement, EmptyOwnDefaultNamespaceHidesTheOuterOneInAStartTag) {
    EXPECT_EQ("<a xmlns=\"\">x</a>", wellFormedIn("<r xmlns=\"u\"><a xmlns=\"\">x</a></r>"));
}

// Deliberate: the scope of an empty tag is gone when the outer default is asked for.
TEST(XmlReaderWellFormedElement, EmptyOwnDefaultNamespaceOfAnEmptyTagGetsTheOuterOneAdded) {
    EXPECT_EQ("<a xmlns=\"\" xmlns=\"u\"/>", wellFormedIn("<r xmlns=\"u\"><a xmlns=\"\"/></r>"));
}

TEST(XmlReaderWellFormedElement, AddsTheDeclarationsOfItsAttributesBeforeThatOfItsName) {
    const std::string scope = "<r xmlns=\"d\" xmlns:p=\"u\" xmlns:q=\"v\" xmlns:s=\"w\">";
    EXPECT_EQ("<p:a q:b='1' s:c='2' c='3' xmlns=\"d\" xmlns:q=\"v\" xmlns:s=\"w\" xmlns:p=\"u\"/>",
              wellFormedIn(scope + "<p:a q:b='1' s:c='2' c='3'/></r>"));
    EXPECT_EQ("<a q:b='1' q:c='2' xmlns=\"d\" xmlns:q=\"v\">x</a>",
              wellFormedIn(scope + "<a q:b='1' q:c='2'>x</a></r>"));
    EXPECT_EQ("<p:a p:b='1' xmlns=\"d\" xmlns:p=\"u\">x</p:a>",
              wellFormedIn(scope + "<p:a p:b='1'>x</p:a></r>"));
}

TEST(XmlReaderWellFormedElement, DeclaresAnUnboundAttributePrefixAsEmptyAndNoUnboundName) {
    EXPECT_EQ("<a q:b='1' q:c='2' xmlns:q=\"\"/>", wellFormedIn("<r><a q:b='1' q:c='2'/></r>"));
    EXPECT_EQ("<q:a/>", wellFormedIn("<r><q:a/></r>"));
    EXPECT_EQ("<a xmlns:q=\"\"><b q:c='1'/></a>", wellFormedIn("<r><a><b q:c='1'/></a></r>"));
}

TEST(XmlReaderWellFormedElement, HoistsDeclarationsThatDeeperTagsNeed) {
    const std::string scope = "<r xmlns:p=\"u\" xmlns:q=\"v\">";
    EXPECT_EQ("<a xmlns:p=\"u\"><p:b/></a>", wellFormedIn(scope + "<a><p:b/></a></r>"));
    EXPECT_EQ("<a xmlns:p=\"u\"><p:b></p:b></a>", wellFormedIn(scope + "<a><p:b></p:b></a></r>"));
    EXPECT_EQ("<a xmlns:q=\"v\" xmlns:p=\"u\"><c><p:b q:d='1'/></c><p:b/></a>",
              wellFormedIn(scope + "<a><c><p:b q:d='1'/></c><p:b/></a></r>"));
    EXPECT_EQ("<p:a xmlns:p=\"u\" xmlns:q=\"v\">x<q:b/></p:a>",
              wellFormedIn(scope + "<p:a>x<q:b/></p:a></r>"));
}

TEST(XmlReaderWellFormedElement, DeeperDeclarationsStayWhereTheyAre) {
    EXPECT_EQ("<a><b xmlns=\"v\"><c/></b></a>",
              wellFormedIn("<r><a><b xmlns=\"v\"><c/></b></a></r>"));
    EXPECT_EQ("<a xmlns=\"u\"><b xmlns=\"v\"/></a>",
              wellFormedIn("<r xmlns=\"u\"><a><b xmlns=\"v\"/></a></r>"));
    EXPECT_EQ("<a><p:b xmlns:p=\"v\"/></a>",
              wellFormedIn("<r xmlns:p=\"u\"><a><p:b xmlns:p=\"v\"/></a></r>"));
}

// Deliberate: a declaration met anywhere counts for all that follows it.
TEST(XmlReaderWellFormedElement, DeclarationOfAnEarlierSiblingStopsTheHoisting) {
    EXPECT_EQ("<a><b xmlns:p=\"u\"/><p:c/></a>",
              wellFormedIn("<r xmlns:p=\"u\"><a><b xmlns:p=\"u\"/><p:c/></a></r>"));
    EXPECT_EQ("<a xmlns:p=\"u\"><p:c/><b xmlns:p=\"u\"/></a>",
              wellFormedIn("<r xmlns:p=\"u\"><a><p:c/><b xmlns:p=\"u\"/></a></r>"));
}

TEST(XmlReaderWellFormedElement, OnePrefixWithTwoUrisIsTwoPairs) {
    EXPECT_EQ("<a xmlns:p=\"u\"><b xmlns:p=\"v\"/><p:c/></a>",
              wellFormedIn("<r xmlns:p=\"u\"><a><b xmlns:p=\"v\"/><p:c/></a></r>"));
}

TEST(XmlReaderWellFormedElement, OneUriUnderTwoPrefixesIsTwoPairs) {
    EXPECT_EQ("<p:a xmlns:p=\"u\" xmlns:q=\"u\"><q:b/></p:a>",
              wellFormedIn("<r xmlns:p=\"u\" xmlns:q=\"u\"><p:a><q:b/></p:a></r>"));
}

TEST(XmlReaderWellFormedElement, WritesUrisAsTheyStandWithoutEscaping) {
    EXPECT_EQ("<p:a xmlns:p=\"x&y\"/>", wellFormedIn("<r xmlns:p=\"x&amp;y\"><p:a/></r>"));
    EXPECT_EQ("<a xmlns=\"x\"y\"/>", wellFormedIn("<r xmlns='x\"y'><a/></r>"));
}

TEST(XmlReaderWellFormedElement, AngleInAnAttributeValueEndsTheStartTag) {
    EXPECT_EQ("<a b=\"x>y\">t</a>", wellFormedIn("<r><a b=\"x>y\">t</a></r>"));
    EXPECT_EQ("<a b=\"x xmlns=\"u\">y\">t</a>",
              wellFormedIn("<r xmlns=\"u\"><a b=\"x>y\">t</a></r>"));
    EXPECT_EQ("<a b=\"x/>", wellFormedIn("<r><a b=\"x>y\"/></r>"));
    EXPECT_EQ("<a b=\"x>\">t</a>", wellFormedIn("<r><a b=\"x/>\">t</a></r>"));
}

TEST(XmlReaderWellFormedElement, EmptyTagLeavesAnEndTagWithEmptyContent) {
    XmlReader reader = inside("<r>x<a b='1'/>y</r>");
    EXPECT_EQ("<a b='1'/>", reader.readWellFormedElement(any));
    EXPECT_EQ("</a>", node(reader));
    EXPECT_EQ("", reader.getLastContent());
    EXPECT_EQ(" b=1", text(reader.getLastAttributesI()));
    EXPECT_EQ("\"y\"", next(reader));
}

TEST(XmlReaderWellFormedElement, LeavesTheEndTagWithTheRawTextAsContent) {
    XmlReader reader = inside("<r xmlns:p=\"u\"><p:a b=\"&lt;\">x&lt;<c d=\"2\"/></p:a>y</r>");
    EXPECT_EQ("<p:a b=\"&lt;\" xmlns:p=\"u\">x&lt;<c d=\"2\"/></p:a>",
              reader.readWellFormedElement(any));
    EXPECT_EQ("</{u}a>", node(reader));
    EXPECT_EQ("x&lt;<c d=\"2\"/>", reader.getLastContent());
    EXPECT_EQ(" b=&lt;", text(reader.getLastAttributesI()));
    EXPECT_EQ("\"y\"", next(reader));
    EXPECT_EQ("</r>", next(reader));
    EXPECT_TRUE(reader.eof());
}

TEST(XmlReaderWellFormedElement, NestedElementsOfTheSameNameAreCountedByUri) {
    EXPECT_EQ("<a><a>x</a></a>", wellFormedIn("<r><a><a>x</a></a><a/></r>"));
    EXPECT_EQ("<a xmlns:p=\"u\"><p:a/></a>", wellFormedIn("<r xmlns:p=\"u\"><a><p:a/></a></r>"));
}

// Deliberate: unlike in readElement.
TEST(XmlReaderWellFormedElement, EmptyChildOfItsOwnNameCountsUp) {
    EXPECT_EQ(prematureEof, failure([] { wellFormedIn("<r><a><a/></a></r>"); }));
    XmlReader reader(std::string("<a><r><a><a/></a></r></a>"));
    reader.readElementStart("a");
    reader.readElementStart("r");
    EXPECT_EQ("<a><a/></a></r></a>", reader.readWellFormedElement(name("a")));
    EXPECT_EQ("</a>", node(reader));
    EXPECT_EQ("<a/></a></r>", reader.getLastContent());
    EXPECT_TRUE(reader.eof());
}

TEST(XmlReaderWellFormedElement, AbsentElementGivesAnEmptyTextAndLeavesTheNodePending) {
    XmlReader reader = inside("<r>x</r>");
    EXPECT_EQ("", reader.readWellFormedElement(any));
    EXPECT_EQ("</r>", node(reader));
    EXPECT_EQ("", reader.getLastContent());
    EXPECT_EQ("", reader.readWellFormedElement(name("a")));
    reader.readElementEnd("r");
    EXPECT_TRUE(reader.eof());
}

TEST(XmlReaderWellFormedElement, PendingTagsAreTaken) {
    XmlReader start = inside("<r xmlns:p=\"u\">t<p:a>x</p:a>y</r>");
    EXPECT_TRUE(start.isElementNext("p:a"));
    EXPECT_EQ("<p:a xmlns:p=\"u\">x</p:a>", start.readWellFormedElement(name("a", "u")));
    EXPECT_EQ("\"y\"", next(start));
    XmlReader empty = inside("<r xmlns:p=\"u\">t<p:a/>y</r>");
    EXPECT_TRUE(empty.isElementNext("p:a"));
    EXPECT_EQ("<p:a xmlns:p=\"u\"/>", empty.readWellFormedElement(name("a", "u")));
    EXPECT_EQ("\"y\"", next(empty));
}

TEST(XmlReaderWellFormedElement, NameIsCheckedWithNoDefaultNamespace) {
    const std::string document = "<r xmlns=\"u\"><a/></r>";
    EXPECT_EQ("<a xmlns=\"u\"/>", inside(document).readWellFormedElement(name("a", "u")));
    EXPECT_EQ(unexpected("a", "u::a"),
              failure([&] { inside(document).readWellFormedElement(name("a")); }));
    EXPECT_EQ(unexpected("u::b", "u::a"),
              failure([&] { inside(document).readWellFormedElement(name("b", "u")); }));
    EXPECT_EQ("<a xmlns=\"u\"/>", inside(document).readWellFormedElement(name("", "v")));
}

TEST(XmlReaderWellFormedElement, NamespacesAddedByTheCallerAreAddedToo) {
    XmlReader reader(std::string("<p:a><b/></p:a>"));
    reader.addNamespace(XmlNamespace("p", "u"));
    reader.addNamespace(XmlNamespace("", "d"));
    EXPECT_EQ("<p:a xmlns=\"d\" xmlns:p=\"u\"><b/></p:a>", reader.readWellFormedElement(any));
}

TEST(XmlReaderWellFormedElement, LocalNameXmlnsUnderAnotherPrefixIsTakenForTheDefault) {
    EXPECT_EQ("<a p:xmlns=\"v\" xmlns:p=\"w\"/>",
              wellFormedIn("<r xmlns=\"u\" xmlns:p=\"w\"><a p:xmlns=\"v\"/></r>"));
}

TEST(XmlReaderWellFormedElement, ResultIsReadAloneWithTheSameNames) {
    const std::string result = wellFormedIn(
        "<r xmlns=\"d\" xmlns:p=\"u\" xmlns:q=\"v\"><p:a q:b='1'>x<c/><q:d/>y</p:a></r>");
    EXPECT_EQ((Nodes{"<{u}a q:b=1 xmlns=d xmlns:q=v xmlns:p=u>", "\"x\"", "<{d}c/>", "<{v}d/>",
                     "\"y\"", "</{u}a>"}),
              nodesOf(result));
}

TEST(XmlReaderWellFormedElement, InstructionInTextMovesTheTextBehindItWithinTheSameLength) {
    const std::string element = "<a>x<?p?>yz<b/>t</a>";
    const std::string read = wellFormedIn("<r>" + element + "</r>");
    EXPECT_EQ(element.size(), read.size());
    EXPECT_EQ("<a>xyz", read.substr(0, 6));
    EXPECT_EQ("<b/>t</a>", read.substr(11));
}

TEST(XmlReaderWellFormedElement, MissingEndTagIsPrematureEof) {
    EXPECT_EQ(prematureEof, failure([] { wellFormedIn("<r><a><b>"); }));
}

}  // namespace
}  // namespace nolk
