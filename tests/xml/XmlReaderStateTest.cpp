#include <nolk/core/XmlReader.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "XmlReaderNavigation.h"

// What a read that fails leaves, and what the body's own operations give.
namespace nolk {
namespace {

using namespace navigation;

std::unique_ptr<XmlReaderImp> bodyOf(const std::string& document) {
    return std::make_unique<XmlReaderImp>(document.data(), static_cast<unsigned>(document.size()));
}

// ---- failures ----

TEST(XmlReaderState, AnEndTagWithoutANameIsAnEndTagWhoseScopeIsOpen) {
    XmlReader reader = inside("<a></1  ");
    EXPECT_NE("nothing thrown", failure([&] { reader.readNextNode(); }));
    EXPECT_EQ(XmlReader::EndTag, reader.getLastNodeType());
    EXPECT_EQ(2u, reader.getNamespaceStack().depth());
    EXPECT_TRUE(reader.eof()) << "outside all elements, where white space is skipped";
}

TEST(XmlReaderState, TextThatFailsLeavesNoContent) {
    for (const bool expand : {true, false}) {
        XmlReader reader(expand ? "<a>x<b>yz&#q;</b></a>" : "<a>x<b>yz<!q</b></a>");
        reader.setExpandContentReference(expand);
        EXPECT_EQ("<a>", next(reader));
        EXPECT_EQ("\"x\"", next(reader));
        EXPECT_EQ("<b>", next(reader));
        EXPECT_NE("nothing thrown", failure([&] { reader.readNextNode(); }));
        EXPECT_EQ("\"\"", node(reader)) << expand;
    }
}

TEST(XmlReaderState, AValueBehindTheDocumentFailsAsEmptyText) {
    XmlReader reader("<a>x</a>");
    for (int i = 0; i < 3; ++i) {
        reader.readNextNode();
    }
    EXPECT_EQ(prematureEof, failure([&] { reader.readElementValue(); }));
    EXPECT_EQ("\"\"", node(reader));
}

TEST(XmlReaderState, ASectionWithoutItsEndFailsBehindTheLastByte) {
    XmlReader reader = inside("<a><![CDATA[xy");
    EXPECT_EQ("1:15", failurePosition([&] { reader.readNextNode(); }));
}

TEST(XmlReaderState, AnEncodingIsDeclaredBeforeItIsObeyedAndStandaloneAfterItIsRead) {
    const auto unknown = bodyOf("<a><?xml version='1.0' encoding='K'?></a>");
    unknown->readNextNode();
    EXPECT_NE("nothing thrown", failure([&] { unknown->readNextNode(); }));
    EXPECT_TRUE(unknown->encodingDeclared());

    const auto unquoted = bodyOf("<a><?xml version='1.0' standalone=yes?></a>");
    unquoted->readNextNode();
    EXPECT_NE("nothing thrown", failure([&] { unquoted->readNextNode(); }));
    EXPECT_FALSE(unquoted->standaloneDeclared());
}

// ---- odd places ----

TEST(XmlReaderState, AnUnboundPrefixOfATagIsLookedUpWhenItsTextIsTaken) {
    XmlReader reader = inside("<r><a q:b='1'/></r>");
    EXPECT_TRUE(reader.isElementNext("a"));
    reader.addNamespace(XmlNamespace("q", "v"));
    EXPECT_EQ("<a q:b='1' xmlns:q=\"v\"/>", reader.readWellFormedElement(any));
}

TEST(XmlReaderState, OfTwoDefaultsInATagTheLastIsItsOwnForItsText) {
    XmlReader reader = inside("<r xmlns='w'><a xmlns='u' xmlns=''/></r>");
    EXPECT_EQ("<a xmlns='u' xmlns='' xmlns=\"w\"/>", reader.readWellFormedElement(any));
}

// C3 3C decodes to a letter: its second byte is the first `<` on the way back.
TEST(XmlReaderState, TheStartOfAnEmptyElementIsTheNearestAngleBracket) {
    XmlReader reader = inside("<r><\xC3<:b/></r>");
    EXPECT_EQ("<:b/>", reader.readElement(any));
}

TEST(XmlReaderState, LineEndsBehindADashOfACommentAreOneLineFeed) {
    XmlReader reader = inside("<a>t<!--c-\r\nd-\r--></a>");
    reader.setExpandCommentReference(true);
    EXPECT_EQ("\"t<!--c-\nd-\n-->\"", next(reader));
}

TEST(XmlReaderState, AChildTellsTheStandaloneOfItsParent) {
    XmlReader reader = inside("<?xml version='1.0' standalone='yes'?><r><a/></r>");
    EXPECT_EQ("yes", reader.getElementReader(any).getStandalone());
}

struct OpenReader : XmlReader {
    explicit OpenReader(const XmlReader& reader) : XmlReader(reader) {}
    using XmlReader::body;
};

TEST(XmlReaderState, AChildKnowsWhatTheDeclarationOfItsParentNames) {
    for (const bool encoding : {true, false}) {
        for (const bool standalone : {true, false}) {
            const OpenReader reader(
                inside(std::string("<?xml version='1.0'") + (encoding ? " encoding='UTF-8'" : "") +
                       (standalone ? " standalone='no'" : "") + "?><r><a>x</a></r>"));
            EXPECT_EQ(encoding, reader.body().encodingDeclared());
            EXPECT_EQ(standalone, reader.body().standaloneDeclared());
            const OpenReader child(XmlReader(reader).getElementReader("a"));
            EXPECT_EQ(encoding, child.body().encodingDeclared());
            EXPECT_EQ(standalone, child.body().standaloneDeclared());
        }
    }
}

// A child moves the text of an element that the parent has passed. What the parent remembers of the
// prefixes declared there must not be read from it.
TEST(XmlReaderState, PrefixesOfPassedElementsMayBeMovedByAChild) {
    std::string document = "<r";
    for (int i = 0; i < 100; ++i) {
        document += " xmlns:n" + std::to_string(i) + "='u'";
    }
    document +=
        "><a>&lt;& <longPrefixQ:x xmlns:longPrefixQ='u'/>;</a>"
        "<b xmlns:longPrefixQ='v'><c/><longPrefixQ:d/></b></r>";
    XmlReader reader = inside(document);
    XmlReader child = reader.getElementReader(any);
    reader.readElementStart("b");
    child.readElementStart("a");
    child.readNextNode();
    EXPECT_EQ("<c/>", (reader.readElementStart(), node(reader)));
    EXPECT_EQ("<{v}d/>", (reader.readElementEnd(), reader.readElementStart(), node(reader)));
}

// ASCII in ISO-8859-1 is the same text. It isn't ASCII any more once a reference stood for more,
// be it in front of the second declaration or in an element that a child reads.
TEST(XmlReaderState, ReferencesToOtherCharactersCountForTheNextDeclaration) {
    const std::string latin1 = "<?xml version='1.0' encoding='ISO-8859-1'?>";
    const std::string otherLatin1 = "<?xml version='1.0' encoding='iso-8859-1'?>";
    const std::string refused =
        "[XML_TRANSCODE_FROM_DECL_FAILED] Encoding to based on character-encoding identifier "
        "'iso-8859-1' failed.  Please verify encoding decleration.";
    for (const std::string& document : {"<a>x" + latin1 + "&#228;" + otherLatin1 + "y</a>",
                                        "<a>x" + latin1 + "&#228;<b/>" + otherLatin1 + "y</a>"}) {
        EXPECT_EQ(refused, nodesOf(document).back()) << document;
    }
    XmlReader reader = inside("<r><a>&#228;</a>" + latin1 + "<b/>" + otherLatin1 + "y</r>");
    XmlReader child = reader.getElementReader(any);
    reader.readElementStart("b");
    child.readElementStart("a");
    EXPECT_EQ("\xC3\xA4", child.readElementValue());
    reader.readElementEnd();
    EXPECT_EQ(refused, failure([&] { reader.readNextNode(); }));
}

// ---- the body ----

TEST(XmlReaderState, TheBodyReadsANodeWithSettingsOfTheCall) {
    for (const bool content : {false, true}) {
        for (const bool attributes : {false, true}) {
            for (const bool comments : {false, true}) {
                const auto body = bodyOf("<a b='&lt;'>x&lt;<!--c-->y</a>");
                body->readNextNode(content, attributes, comments);
                EXPECT_EQ(attributes ? "<" : "&lt;", body->lastAttributes()[0].value.asString());
                body->readNextNode(content, attributes, comments);
                EXPECT_EQ(std::string(content ? "x<" : "x&lt;") + (comments ? "<!--c-->y" : "y"),
                          body->lastContent().asString());
                EXPECT_TRUE(body->expandContentReference() && body->expandAttributeReference());
                EXPECT_FALSE(body->expandCommentReference());
            }
        }
    }
}

TEST(XmlReaderState, TheBodyGivesTheNamesOfStartsAndEnds) {
    const auto body = bodyOf("<a><p:b xmlns:p='u'/></a>");
    EXPECT_EQ("a", text(body->readElementStart()));
    EXPECT_EQ("{u}b", text(body->readElementStart()));
    EXPECT_EQ("{u}b", text(body->readElementEnd()));
    EXPECT_EQ("a", text(body->readElementEnd()));
}

}  // namespace
}  // namespace nolk
