#include <nolk/core/XmlNamespaceStack.h>
#include <nolk/core/XmlReader.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "XmlReaderNavigation.h"

// An XML declaration is obeyed wherever it is met. One in the middle of the content converts the
// whole buffer while the reader, its child readers and the caller hold views into the old one.
namespace nolk {
namespace {

using namespace navigation;

std::string declaring(const std::string& encoding) {
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>";
}

const std::string latin1 = declaring("ISO-8859-1");
const std::string otherLatin1 = declaring("iso-8859-1");  // another spelling: converts once more

const std::string once = "\xC3\xA4";           // E4 converted from ISO-8859-1
const std::string twice = "\xC3\x83\xC2\xA4";  // and its two bytes once more
const std::string thrice = "\xC3\x83\xC2\x83\xC3\x82\xC2\xA4";

std::string refused(const std::string& encoding) {
    return "[XML_TRANSCODE_FROM_DECL_FAILED] Encoding to based on character-encoding identifier '" +
           encoding + "' failed.  Please verify encoding decleration.";
}

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

// ---- Nodes ----

TEST(XmlReaderBufferReplacement, BytesBehindADeclarationAtABoundaryAreConverted) {
    XmlReader reader("<a>" + latin1 + "\xE4<b c='\xE4'/></a>");
    EXPECT_EQ("<a>", next(reader));
    EXPECT_EQ("UTF-8", reader.getEncoding());
    EXPECT_EQ(quoted(once), next(reader));
    EXPECT_EQ("ISO-8859-1", reader.getEncoding());
    EXPECT_EQ("1.0", reader.getVersion());
    EXPECT_EQ("<b c=" + once + "/>", next(reader));
    EXPECT_EQ("</a>", next(reader));
    EXPECT_TRUE(reader.eof());
    EXPECT_EQ("ISO-8859-1", reader.getEncoding());
}

TEST(XmlReaderBufferReplacement, DeclarationInTextKeepsTheTextInFront) {
    struct Row {
        const char* before;
        const char* read;
    };
    for (const Row& row :
         {Row{"t", "t"}, Row{"&lt;", "<"}, Row{"x\r\ny", "x\ny"}, Row{"t<!--c-->u", "tu"},
          Row{"t<?p?>u", "tu"}, Row{"&#65;&foo;", "A&foo;"}, Row{"<![CDATA[x]]>", "<![CDATA[x]]>"},
          Row{"<![CDATA[x]]><!--c-->", "<![CDATA[x]]><!--c-->"}}) {
        EXPECT_EQ((Nodes{"<a>", quoted(row.read + once + "u"), "</a>"}),
                  nodesOf(std::string("<a>") + row.before + latin1 + "\xE4u</a>"))
            << row.before;
    }
}

TEST(XmlReaderBufferReplacement, DeclarationInTextWithKeptComments) {
    XmlReader reader("<a>t<!--c-->" + latin1 + "<!--\xE4-->&lt;</a>");
    reader.setExpandCommentReference(true);
    reader.readNextNode();
    EXPECT_EQ(quoted("t<!--c--><!--" + once + "--><"), next(reader));
}

TEST(XmlReaderBufferReplacement, DeclarationInTextWithoutExpansion) {
    XmlReader reader("<a>&lt;\r\n" + latin1 + "\xE4&gt;</a>");
    reader.setExpandContentReference(false);
    reader.readNextNode();
    EXPECT_EQ(quoted("&lt;\r\n" + once + "&gt;"), next(reader));
}

TEST(XmlReaderBufferReplacement, LongTextsOnBothSides) {
    for (std::size_t length : {1, 15, 16, 17, 31, 32, 33, 63, 64, 65, 1000, 5000}) {
        const std::string left(length, 'l');
        std::string right;
        std::string converted;
        for (std::size_t i = 0; i < length; ++i) {
            right += "\xE4";
            converted += once;
        }
        EXPECT_EQ((Nodes{"<a>", quoted(left + converted), "</a>"}),
                  nodesOf("<a>" + left + latin1 + right + "</a>"));
    }
}

TEST(XmlReaderBufferReplacement, DeclarationInsideCdataOrCommentIsNone) {
    XmlReader reader("<a><![CDATA[" + latin1 + "]]><!--" + latin1 + "-->\xE4</a>");
    reader.readNextNode();
    EXPECT_EQ(quoted("<![CDATA[" + latin1 + "]]><!--" + latin1 + "-->\xE4"), next(reader));
    EXPECT_EQ("UTF-8", reader.getEncoding());
}

TEST(XmlReaderBufferReplacement, PlainAsciiChangesNothingButTheName) {
    XmlReader reader("<a b='1'>t" + latin1 + "u<c/></a>");
    EXPECT_EQ((Nodes{"<a b=1>", quoted("tu"), "<c/>", "</a>"}), nodes(reader));
    EXPECT_EQ("ISO-8859-1", reader.getEncoding());
}

TEST(XmlReaderBufferReplacement, HighByteInFrontInTextIsRefused) {
    XmlReader reader("<a>\xE4" + latin1 + "x</a>");
    reader.readNextNode();
    EXPECT_EQ(refused("ISO-8859-1"), failure([&] { reader.readNextNode(); }));
    EXPECT_EQ(quoted("?>x"), next(reader));
    EXPECT_EQ("</a>", next(reader));
}

TEST(XmlReaderBufferReplacement, HighByteInFrontAtABoundaryIsRefused) {
    XmlReader reader("<a b='1'>\xE4<c/>" + latin1 + "\xE4</a>");
    for (int i = 0; i < 3; ++i) {
        reader.readNextNode();
    }
    EXPECT_EQ(refused("ISO-8859-1"), failure([&] { reader.readNextNode(); }));
    EXPECT_EQ("<c/>", node(reader));
    EXPECT_EQ("1.0", reader.getVersion());
    EXPECT_EQ("ISO-8859-1", reader.getEncoding());
    EXPECT_EQ(quoted("?>\xE4"), next(reader));
    EXPECT_EQ("</a>", next(reader));
}

// Three bytes of the tag, the high byte that takes two more along, and 39 to the closing quote.
TEST(XmlReaderBufferReplacement, RefusalTellsItsPlaceInTheRevertedText) {
    XmlReader reader("<a>\xE4" + latin1 + "x</a>");
    reader.readNextNode();
    EXPECT_EQ("1:44", failurePosition([&] { reader.readNextNode(); }));
}

TEST(XmlReaderBufferReplacement, ReferenceThatWroteHighBytesInFrontIsRefused) {
    EXPECT_EQ((Nodes{"<a>", refused("ISO-8859-1")}), nodesOf("<a>&#228;" + latin1 + "x</a>"));
}

TEST(XmlReaderBufferReplacement, HighByteInANameAttributeOrCommentInFrontIsRefused) {
    EXPECT_EQ((Nodes{"<a b=\xE4>", refused("ISO-8859-1")}),
              nodesOf("<a b='\xE4'>" + latin1 + "x</a>"));
    EXPECT_EQ((Nodes{"<a>", refused("ISO-8859-1")}), nodesOf("<a><!--\xE4-->" + latin1 + "x</a>"));
    EXPECT_EQ((Nodes{"<a\xC3\xA4>", refused("ISO-8859-1")}),
              nodesOf("<a\xC3\xA4>" + latin1 + "x</a>"));
}

TEST(XmlReaderBufferReplacement, EqualDeclarationAgainConvertsNothing) {
    EXPECT_EQ((Nodes{"<a>", quoted(once + "\xC3\xB6"), "</a>"}),
              nodesOf("<a>" + latin1 + "\xE4" + latin1 + "\xF6</a>"));
}

TEST(XmlReaderBufferReplacement, AnotherSpellingConvertsOnceMore) {
    EXPECT_EQ((Nodes{"<a>", quoted(twice), "</a>"}),
              nodesOf("<a>" + latin1 + otherLatin1 + "\xE4</a>"));
    EXPECT_EQ((Nodes{"<a>", quoted("t" + twice), "</a>"}),
              nodesOf("<a>t" + latin1 + otherLatin1 + "\xE4</a>"));
    EXPECT_EQ((Nodes{"<a>", quoted("tuv" + thrice), "</a>"}),
              nodesOf("<a>t" + latin1 + "u" + otherLatin1 + "v" + latin1 + "\xE4</a>"));
    EXPECT_EQ((Nodes{"<a>", quoted(twice), "</a>"}),
              nodesOf(latin1 + "<a>" + otherLatin1 + "\xE4</a>"));
}

TEST(XmlReaderBufferReplacement, AnotherSpellingBehindAConvertedByteIsRefused) {
    XmlReader reader("<a>" + latin1 + "\xE4" + otherLatin1 + "x</a>");
    reader.readNextNode();
    EXPECT_EQ(refused("iso-8859-1"), failure([&] { reader.readNextNode(); }));
    EXPECT_EQ(quoted("?>x"), next(reader));
    EXPECT_EQ("</a>", next(reader));
}

TEST(XmlReaderBufferReplacement, Utf8InBetweenConvertsNothingAndIsForgotten) {
    XmlReader reader("<a>" + latin1 + declaring("UTF-8") + latin1 + "\xE4</a>");
    EXPECT_EQ((Nodes{"<a>", quoted(twice), "</a>"}), nodes(reader));
    XmlReader utf8("<a>" + latin1 + "\xE4" + declaring("utf-8") + "x</a>");
    EXPECT_EQ((Nodes{"<a>", quoted(once + "x"), "</a>"}), nodes(utf8));
    EXPECT_EQ("utf-8", utf8.getEncoding());
}

TEST(XmlReaderBufferReplacement, Utf16DeclaredInContentIsRefused) {
    for (const char* encoding : {"UTF-16LE", "UTF-16BE"}) {
        XmlReader reader("<a>t" + declaring(encoding) + "x</a>");
        reader.readNextNode();
        EXPECT_EQ(refused(encoding), failure([&] { reader.readNextNode(); }));
        EXPECT_EQ(quoted("?>x"), next(reader));
        EXPECT_EQ("</a>", next(reader));
    }
}

TEST(XmlReaderBufferReplacement, UnknownEncodingDeclaredInContentFailsAndTheReaderLives) {
    XmlReader reader("<a>t" + declaring("UTF-16") + "x</a>");
    reader.readNextNode();
    const std::string text = failure([&] { reader.readNextNode(); });
    EXPECT_EQ(0u, text.find("[XML_TRANSCODE_FAILED] Couldn't transcode from input encoding "
                            "'UTF-16': "))
        << text;
    EXPECT_EQ("UTF-16", reader.getEncoding());
    EXPECT_EQ(quoted("?>x"), next(reader));
}

TEST(XmlReaderBufferReplacement, ByteOrderMarkInFrontIsRefused) {
    EXPECT_EQ((Nodes{"<a>", refused("ISO-8859-1")}),
              nodesOf("\xEF\xBB\xBF<a>" + latin1 + "\xE4</a>"));
    EXPECT_EQ((Nodes{"<a>", refused("ISO-8859-1")}), nodesOf("\xEF\xBB\xBF<a>" + latin1 + "</a>"));
}

TEST(XmlReaderBufferReplacement, DeclarationInsideAUtf16DocumentIsRefused) {
    std::string document("\xFF\xFE", 2);
    for (char c : "<a>t" + latin1 + "x</a>") {
        document += c;
        document += '\0';
    }
    XmlReader reader(document);
    EXPECT_EQ("<a>", next(reader));
    EXPECT_EQ(refused("ISO-8859-1"), failure([&] { reader.readNextNode(); }));
    // The converted text is given up: what is read now isn't told, but it must end.
    const Nodes rest = nodes(reader);
    EXPECT_LE(rest.size(), document.size());
    EXPECT_LE(reader.getLastName().getLocalName().size(), document.size());
    EXPECT_LE(reader.getLastContent().size(), document.size());
    EXPECT_LE(text(reader.getLastAttributesI()).size(), document.size());
}

TEST(XmlReaderBufferReplacement, Utf8DeclaredInsideAUtf16DocumentKeepsTheConvertedText) {
    std::string document("\xFE\xFF", 2);
    for (char c : "<a>t" + declaring("UTF-8") + "x" + latin1 + "y</a>") {
        document += '\0';
        document += c;
    }
    EXPECT_EQ((Nodes{"<a>", quoted("txy"), "</a>"}), nodesOf(document));
}

// ---- Node state and namespaces ----

TEST(XmlReaderBufferReplacement, NameAttributesAndContentMoveAlong) {
    XmlReader reader("<p:a xmlns:p=\"u\" b=\"&lt;1\">t" + latin1 + "\xE4</p:a>");
    reader.readNextNode();
    reader.readNextNode();
    EXPECT_EQ(quoted("t" + once), node(reader));
    EXPECT_EQ("{u}a", text(reader.getLastNameI()));
    EXPECT_EQ("p", reader.getLastNameI().prefix.asString());
    EXPECT_EQ(" xmlns:p=u b=<1", text(reader.getLastAttributesI()));
    EXPECT_EQ("</{u}a>", next(reader));
    EXPECT_EQ(" xmlns:p=u b=<1", text(reader.getLastAttributesI()));
}

TEST(XmlReaderBufferReplacement, ContentOfTheNodeBeforeMovesAlong) {
    XmlReader reader("<a>text<b></b>" + latin1 + "<c></c>\xE4</a>");
    for (int i = 0; i < 5; ++i) {
        reader.readNextNode();
    }
    EXPECT_EQ("<c>", node(reader));
    EXPECT_EQ("text", reader.getLastContent());
}

TEST(XmlReaderBufferReplacement, NodeStateStaysReadableAfterARefusal) {
    XmlReader reader("<p:a xmlns:p=\"u\" b=\"1\">\xE4<c/>" + latin1 + "x</p:a>");
    for (int i = 0; i < 3; ++i) {
        reader.readNextNode();
    }
    EXPECT_EQ(refused("ISO-8859-1"), failure([&] { reader.readNextNode(); }));
    EXPECT_EQ("<c/>", node(reader));
    EXPECT_EQ("u", reader.getURIForPrefix("p"));
    EXPECT_EQ(quoted("?>x"), next(reader));
    EXPECT_EQ("</{u}a>", next(reader));
}

TEST(XmlReaderBufferReplacement, DeclaredNamespacesMoveAlong) {
    XmlReader reader("<p:a xmlns:p=\"u\" xmlns=\"d\"><e xmlns:q=\"v\">" + latin1 +
                     "\xE4<p:b/><c/><q:f/></e><p:g/></p:a>");
    EXPECT_EQ((Nodes{"<{u}a xmlns:p=u xmlns=d>", "<{d}e xmlns:q=v>", quoted(once), "<{u}b/>",
                     "<{d}c/>", "<{v}f/>", "</{d}e>", "<{u}g/>", "</{u}a>"}),
              nodes(reader));
}

TEST(XmlReaderBufferReplacement, LookUpsSeeTheMovedNamespaces) {
    XmlReader reader("<p:a xmlns:p=\"u\">" + latin1 + otherLatin1 + "\xE4</p:a>");
    reader.readNextNode();
    EXPECT_EQ("u", reader.getURIForPrefix("p"));
    reader.readNextNode();
    EXPECT_EQ("u", reader.getURIForPrefix("p"));
    EXPECT_EQ("p", reader.getPrefixForURI("u"));
}

TEST(XmlReaderBufferReplacement, NamespacesFromOutsideStayWhereTheyAre) {
    const std::string prefix = "s";
    const std::string uri = "w";
    XmlReader reader("<a>" + latin1 + "\xE4<q:b/><s:c/></a>");
    reader.addNamespace(XmlNamespace("q", "v"));
    reader.addNamespace(XmlReaderNamespace{XmlReaderString::of(prefix), XmlReaderString::of(uri)});
    EXPECT_EQ((Nodes{"<a>", quoted(once), "<{v}b/>", "<{w}c/>", "</a>"}), nodes(reader));
}

TEST(XmlReaderBufferReplacement, InheritedNamespacesOfAnotherReaderStayThere) {
    XmlReader outer = inside("<r xmlns:p=\"u\">x</r>");
    XmlReader reader(outer.getNamespaceStack(), "<p:a>" + latin1 + "\xE4<p:b/></p:a>");
    EXPECT_EQ((Nodes{"<{u}a>", quoted(once), "<{u}b/>", "</{u}a>"}), nodes(reader));
    EXPECT_EQ("u", outer.getURIForPrefix("p"));
    EXPECT_EQ("u", reader.getURIForPrefix("p"));
}

TEST(XmlReaderBufferReplacement, NamespacesOfPoppedScopesMoveAlong) {
    XmlReader reader("<a><b xmlns:q=\"v\"></b>" + latin1 + "\xE4</a>");
    for (int i = 0; i < 4; ++i) {
        reader.readNextNode();
    }
    EXPECT_EQ(quoted(once), node(reader));
    const XmlNamespaceStack stack(reader.getNamespaceStack());
    std::string uri;
    EXPECT_TRUE(stack.findPrefix("q", uri));
    EXPECT_EQ("v", uri);
}

TEST(XmlReaderBufferReplacement, StackTakenOutAndPutBackMovesAlong) {
    XmlReader reader("<p:a xmlns:p=\"u\">" + latin1 + "\xE4<p:b/></p:a>");
    reader.readNextNode();
    reader.setNamespaceStack(reader.getNamespaceStack());
    EXPECT_EQ((Nodes{quoted(once), "<{u}b/>", "</{u}a>"}), nodes(reader));
}

TEST(XmlReaderBufferReplacement, ManyOpenElementsMoveAlong) {
    std::string document;
    std::string ends;
    for (int i = 0; i < 40; ++i) {
        const std::string n = std::to_string(i);
        document += "<p" + n + ":a xmlns:p" + n + "=\"u" + n + "\">";
        ends = "</p" + n + ":a>" + ends;
    }
    XmlReader reader(document + latin1 + "\xE4" + ends);
    for (int i = 0; i < 40; ++i) {
        reader.readNextNode();
    }
    EXPECT_EQ(quoted(once), next(reader));
    for (int i = 39; i >= 0; --i) {
        EXPECT_EQ("</{u" + std::to_string(i) + "}a>", next(reader));
    }
    EXPECT_TRUE(reader.eof());
}

// ---- By element ----

TEST(XmlReaderBufferReplacement, LookAheadAcrossADeclaration) {
    XmlReader reader("<r xmlns:p=\"u\">t" + latin1 + "\xE4<p:a b='\xE4'></p:a></r>");
    reader.readElementStart("r");
    EXPECT_TRUE(reader.isElementNext("p:a"));
    EXPECT_EQ("t" + once, reader.getLastContent());
    EXPECT_EQ(" b=" + once, text(reader.getLastAttributesI()));
    reader.readElementStart("p:a");
    reader.readElementEnd("p:a");
    reader.readElementEnd("r");
}

TEST(XmlReaderBufferReplacement, LookAheadWithANameOfTheReader) {
    XmlReader reader("<p:a xmlns:p=\"u\">" + latin1 + "\xE4<p:a></p:a></p:a>");
    reader.readElementStart();
    const XmlReaderName name = reader.getLastNameI();
    EXPECT_TRUE(reader.isElementNextI(name));
    XmlReader byReference("<p:a xmlns:p=\"u\">" + latin1 + "\xE4<p:a></p:a></p:a>");
    byReference.readElementStart();
    EXPECT_TRUE(byReference.isElementNextI(byReference.getLastNameI()));
    XmlReader other("<p:a xmlns:p=\"u\">" + latin1 + "\xE4<p:b></p:b></p:a>");
    other.readElementStart();
    EXPECT_FALSE(other.isElementNextI(other.getLastNameI()));
}

TEST(XmlReaderBufferReplacement, StartWithANameOfTheReader) {
    XmlReader same("<a>" + latin1 + otherLatin1 + "\xE4<a></a></a>");
    same.readElementStart();
    same.readElementStartI(same.getLastNameI());
    EXPECT_EQ("<a>", node(same));
    XmlReader other("<p:a xmlns:p=\"u\">" + latin1 + "\xE4<b></b></p:a>");
    other.readElementStart();
    const XmlReaderName name = other.getLastNameI();
    EXPECT_EQ(unexpected("u::a", "b"), failure([&] { other.readElementStartI(name); }));
}

TEST(XmlReaderBufferReplacement, EndWithANameOfTheReader) {
    XmlReader same("<p:a xmlns:p=\"u\">" + latin1 + "\xE4</p:a>");
    same.readElementStart();
    same.readElementEndI(same.getLastNameI());
    EXPECT_EQ("</{u}a>", node(same));
    XmlReader other("<p:a xmlns:p=\"u\">" + latin1 + otherLatin1 + "\xE4</b>");
    other.readElementStart();
    EXPECT_EQ(unexpected("u::a", "b"),
              failure([&] { other.readElementEndI(other.getLastNameI()); }));
}

TEST(XmlReaderBufferReplacement, ElementWithANameOfTheReader) {
    const std::string element = "<p:a>" + latin1 + "\xE4</p:a>";
    const std::string converted = "<p:a>" + latin1 + once + "</p:a>";
    XmlReader plain("<p:a xmlns:p=\"u\">" + element + "</p:a>");
    plain.readElementStart();
    EXPECT_EQ(converted, plain.readElementI(plain.getLastNameI()).asString());
    XmlReader inFront("<p:a xmlns:p=\"u\">" + latin1 + "\xE4<p:a>x</p:a></p:a>");
    inFront.readElementStart();
    EXPECT_EQ("<p:a>x</p:a>", inFront.readElementI(inFront.getLastNameI()).asString());
    XmlReader other("<p:a xmlns:p=\"u\">" + latin1 + "\xE4<b/></p:a>");
    other.readElementStart();
    EXPECT_EQ(unexpected("u::a", "b"), failure([&] { other.readElementI(other.getLastNameI()); }));
}

TEST(XmlReaderBufferReplacement, ElementReaderWithANameOfTheReader) {
    XmlReader reader("<p:a xmlns:p=\"u\">" + latin1 + "\xE4<p:a>\xE4</p:a></p:a>");
    reader.readElementStart();
    XmlReader child = reader.getElementReader(reader.getLastNameI());
    EXPECT_EQ((Nodes{"<{u}a>", quoted(once), "</{u}a>"}),
              (Nodes{next(child), next(child), next(child)}));
    EXPECT_EQ("</{u}a>", next(reader));
}

TEST(XmlReaderBufferReplacement, ValueAcrossADeclaration) {
    XmlReader reader = inside("<a>t" + latin1 + "\xE4</a>");
    EXPECT_EQ("t" + once, reader.readElementValue());
    reader.readElementEnd("a");
    XmlReader view = inside("<a>" + latin1 + "\xE4</a>");
    EXPECT_EQ(once, view.readElementValueI().asString());
}

TEST(XmlReaderBufferReplacement, StartAndEndAcrossADeclaration) {
    XmlReader reader("<r>t" + latin1 + "\xE4<a b='\xE4'>" + latin1 + "</a>" + latin1 + "</r>");
    reader.readElementStart("r");
    EXPECT_EQ(once, reader.readElementStart("a").findValueByName("b", true));
    reader.readElementEnd("a");
    reader.readElementEnd("r");
    EXPECT_TRUE(reader.eof());
}

// ---- readElement ----

TEST(XmlReaderBufferReplacement, ReadElementAcrossADeclarationInside) {
    XmlReader reader =
        inside("<r><p:a xmlns:p='u' b='1'>" + latin1 + "\xE4<p:a>x</p:a></p:a>\xE4</r>");
    EXPECT_EQ("<p:a xmlns:p='u' b='1'>" + latin1 + once + "<p:a>x</p:a></p:a>",
              reader.readElement(any));
    EXPECT_EQ("</{u}a>", node(reader));
    EXPECT_EQ(latin1 + once + "<p:a>x</p:a>", reader.getLastContent());
    EXPECT_EQ(" xmlns:p=u b=1", text(reader.getLastAttributesI()));
    EXPECT_EQ(quoted(once), next(reader));
    EXPECT_EQ("</r>", next(reader));
}

TEST(XmlReaderBufferReplacement, ReadElementAcrossSeveralDeclarationsInside) {
    XmlReader reader = inside("<r><a b='1'><c/>" + latin1 + "<d/>" + otherLatin1 + "<e/>" + latin1 +
                              "\xE4</a></r>");
    EXPECT_EQ("<a b='1'><c/>" + latin1 + "<d/>" + otherLatin1 + "<e/>" + latin1 + thrice + "</a>",
              reader.readElement("a"));
    EXPECT_EQ(" b=1", text(reader.getLastAttributesI()));
    EXPECT_EQ("</r>", next(reader));
}

TEST(XmlReaderBufferReplacement, ReadElementAcrossADeclarationInFront) {
    XmlReader reader = inside("<r>t" + latin1 + "\xE4<a>\xE4</a></r>");
    EXPECT_EQ("<a>" + once + "</a>", reader.readElement("a"));
    EXPECT_EQ("</r>", next(reader));
}

TEST(XmlReaderBufferReplacement, ReadElementOfAPendingTag) {
    XmlReader reader = inside("<r>" + latin1 + "<a b='1'>" + otherLatin1 + "\xE4</a></r>");
    EXPECT_TRUE(reader.isElementNext("a"));
    EXPECT_EQ("<a b='1'>" + otherLatin1 + twice + "</a>", reader.readElement("a"));
    EXPECT_EQ("</r>", next(reader));
}

TEST(XmlReaderBufferReplacement, ReadElementAcrossADeclarationInTextKeepsBothEnds) {
    XmlReader reader = inside("<r><a>t" + latin1 + "\xE4<b/></a></r>");
    const std::string element = reader.readElement("a");
    EXPECT_EQ("<a>t" + once, element.substr(0, 6));
    EXPECT_EQ("<b/></a>", element.substr(element.size() - 8));
    EXPECT_EQ(("<a>t" + latin1 + once + "<b/></a>").size(), element.size());
    EXPECT_EQ("</r>", next(reader));
}

TEST(XmlReaderBufferReplacement, RefusalInsideReadElementLeavesAReadableReader) {
    XmlReader reader = inside("<r><a b='1'>\xE4" + latin1 + "x</a></r>");
    EXPECT_EQ(refused("ISO-8859-1"), failure([&] { reader.readElement("a"); }));
    EXPECT_EQ("a", reader.getLastName().getLocalName());
    EXPECT_EQ(" b=1", text(reader.getLastAttributesI()));
    EXPECT_EQ((Nodes{quoted("?>x"), "</a>", "</r>"}), nodes(reader));
}

TEST(XmlReaderBufferReplacement, AbsentElementAcrossADeclaration) {
    XmlReader reader = inside("<r>t" + latin1 + "\xE4</r>");
    EXPECT_EQ("", reader.readElement("a"));
    reader.readElementEnd("r");
    EXPECT_TRUE(reader.eof());
}

// ---- readWellFormedElement ----

TEST(XmlReaderBufferReplacement, WellFormedElementAcrossADeclarationInside) {
    XmlReader reader = inside("<r xmlns='d' xmlns:p='u' xmlns:s='w'><p:a s:q='1'>" + latin1 +
                              "\xE4<s:b/><p:c/></p:a>\xE4</r>");
    EXPECT_EQ("<p:a s:q='1' xmlns=\"d\" xmlns:s=\"w\" xmlns:p=\"u\">" + latin1 + once +
                  "<s:b/><p:c/></p:a>",
              reader.readWellFormedElement(any));
    EXPECT_EQ("</{u}a>", node(reader));
    EXPECT_EQ(" s:q=1", text(reader.getLastAttributesI()));
    EXPECT_EQ(latin1 + once + "<s:b/><p:c/>", reader.getLastContent());
    EXPECT_EQ(quoted(once), next(reader));
}

TEST(XmlReaderBufferReplacement, WellFormedElementHoistsAcrossSeveralDeclarations) {
    XmlReader reader = inside("<r xmlns:p='u' xmlns:q='v'><a><p:b xmlns:p='o'/>" + latin1 +
                              "<p:c/>" + otherLatin1 + "<q:d q:e='\xE4'/></a></r>");
    EXPECT_EQ("<a xmlns:p=\"u\" xmlns:q=\"v\"><p:b xmlns:p='o'/>" + latin1 + "<p:c/>" +
                  otherLatin1 + "<q:d q:e='" + twice + "'/></a>",
              reader.readWellFormedElement(any));
    EXPECT_EQ("</r>", next(reader));
}

TEST(XmlReaderBufferReplacement, WellFormedElementOfAPendingTag) {
    XmlReader reader =
        inside("<r xmlns:p='u'>" + latin1 + "<p:a>" + otherLatin1 + "\xE4</p:a></r>");
    EXPECT_TRUE(reader.isElementNext("p:a"));
    EXPECT_EQ("<p:a xmlns:p=\"u\">" + otherLatin1 + twice + "</p:a>",
              reader.readWellFormedElement(XmlName("a", XmlNamespace("", "u"))));
}

TEST(XmlReaderBufferReplacement, WellFormedElementAcrossADeclarationInFront) {
    XmlReader reader = inside("<r xmlns:p='u'>t" + latin1 + "\xE4<p:a>\xE4</p:a></r>");
    EXPECT_EQ("<p:a xmlns:p=\"u\">" + once + "</p:a>", reader.readWellFormedElement(any));
}

TEST(XmlReaderBufferReplacement, RefusalInsideReadWellFormedElementLeavesAReadableReader) {
    XmlReader reader = inside("<r xmlns:p='u'><p:a b='1'>\xE4" + latin1 + "x</p:a></r>");
    EXPECT_EQ(refused("ISO-8859-1"), failure([&] { reader.readWellFormedElement(any); }));
    EXPECT_EQ((Nodes{quoted("?>x"), "</{u}a>", "</r>"}), nodes(reader));
}

// ---- Child readers ----

TEST(XmlReaderBufferReplacement, ChildOverAnElementWithADeclarationReadsItConverted) {
    XmlReader reader = inside("<r xmlns:p='u'><p:a>" + latin1 + "\xE4</p:a>\xE4</r>");
    XmlReader child = reader.getElementReader(any);
    EXPECT_EQ("<{u}a>", next(child));
    EXPECT_EQ(quoted(once), next(child));
    EXPECT_EQ("</{u}a>", next(child));
    EXPECT_EQ(quoted(once), next(reader));
    EXPECT_EQ("</r>", next(reader));
}

TEST(XmlReaderBufferReplacement, ChildBehindADeclarationInFrontReadsItConverted) {
    XmlReader reader = inside("<r xmlns:p='u'>t" + latin1 + "\xE4<p:a>\xE4</p:a></r>");
    XmlReader child = reader.getElementReader("p:a");
    EXPECT_EQ("u", child.getURIForPrefix("p"));
    EXPECT_EQ((Nodes{"<{u}a>", quoted(once), "</{u}a>"}),
              (Nodes{next(child), next(child), next(child)}));
}

TEST(XmlReaderBufferReplacement, StateThatTheChildTookOverStaysReadable) {
    XmlReader reader("<r b='1'>text<a>" + latin1 + "\xE4</a></r>");
    reader.readElementStart("r");
    EXPECT_EQ("text", reader.readElementValue());
    XmlReader child = reader.getElementReader(any);
    EXPECT_EQ(quoted("text"), node(child));
    EXPECT_EQ("r", child.getLastName().getLocalName());
    EXPECT_EQ(" b=1", text(child.getLastAttributesI()));
    EXPECT_FALSE(child.getEncoding().empty());
}

TEST(XmlReaderBufferReplacement, ParentsBufferReplacedWhileAChildLives) {
    XmlReader reader = inside("<r xmlns:p='u'><p:a b='1'>x<p:c/></p:a>" + latin1 + "\xE4<b/></r>");
    XmlReader child = reader.getElementReader(any);
    EXPECT_EQ(quoted(once), next(reader));
    EXPECT_EQ("<{u}a b=1>", next(child));
    EXPECT_EQ("<b/>", next(reader));
    EXPECT_EQ(quoted("x"), next(child));
    EXPECT_EQ("<{u}c/>", next(child));
    EXPECT_EQ("</r>", next(reader));
    EXPECT_EQ("</{u}a>", next(child));
    EXPECT_TRUE(reader.eof());
}

TEST(XmlReaderBufferReplacement, ParentsBufferReplacedTwiceWhileAChildIsInUse) {
    XmlReader reader = inside("<r><a b='1'>x</a>" + latin1 + "<s/>" + otherLatin1 + "\xE4</r>");
    XmlReader child = reader.getElementReader(any);
    EXPECT_EQ("<a b=1>", next(child));
    const XmlReaderName name = child.getLastNameI();
    EXPECT_EQ("<s/>", next(reader));
    EXPECT_EQ(quoted(twice), next(reader));
    EXPECT_EQ("a", name.localName.asString());
    EXPECT_EQ(" b=1", text(child.getLastAttributesI()));
    EXPECT_EQ(quoted("x"), next(child));
    EXPECT_EQ("</a>", next(child));
    reader = XmlReader();
    EXPECT_EQ("a", child.getLastName().getLocalName());
}

TEST(XmlReaderBufferReplacement, ChildsBufferReplacedWhileTheParentIsInUse) {
    XmlReader reader =
        inside("<r xmlns:p='u'><p:a>" + latin1 + otherLatin1 + "\xE4</p:a>\xE4<p:b/></r>");
    XmlReader child = reader.getElementReader(any);
    EXPECT_EQ("<{u}a>", next(child));
    child.readNextNode();
    EXPECT_EQ(XmlReader::Data, child.getLastNodeType());
    EXPECT_EQ("</{u}a>", node(reader));
    EXPECT_EQ("</{u}a>", next(child));
    child = XmlReader();
    EXPECT_EQ(quoted(twice), next(reader));
    EXPECT_EQ("<{u}b/>", next(reader));
    EXPECT_EQ("</r>", next(reader));
}

TEST(XmlReaderBufferReplacement, ChildWithABufferOfItsOwnOutlivesTheParent) {
    XmlReader child;
    {
        XmlReader reader =
            inside("<r xmlns:p='u'><p:a><b/>" + latin1 + otherLatin1 + "\xE4</p:a></r>");
        child = reader.getElementReader(any);
        EXPECT_EQ("<{u}a>", next(child));
        EXPECT_EQ("<b/>", next(child));
    }
    child.readNextNode();
    EXPECT_EQ(XmlReader::Data, child.getLastNodeType());
    EXPECT_EQ("</{u}a>", next(child));
    EXPECT_EQ("u", child.getURIForPrefix("p"));
}

TEST(XmlReaderBufferReplacement, ChildsBoundMovesWithItsBuffer) {
    XmlReader reader = inside("<r><a>" + latin1 + otherLatin1 + "\xE4</a> </r>");
    XmlReader child = reader.getElementReader(any);
    for (int i = 0; i < 3; ++i) {
        child.readNextNode();
    }
    EXPECT_EQ("</a>", node(child));
    EXPECT_TRUE(child.eof());
    EXPECT_EQ(prematureEof, failure([&] { child.readElementEnd(); }));
}

TEST(XmlReaderBufferReplacement, GrandchildrenAcrossDeclarations) {
    XmlReader reader = inside("<r xmlns:p='u'><p:a><p:b>" + latin1 + "<c/>" + otherLatin1 +
                              "\xE4</p:b></p:a></r>");
    XmlReader child = reader.getElementReader(any);
    child.readElementStart();
    XmlReader grandchild = child.getElementReader(any);
    EXPECT_EQ("</r>", next(reader));
    reader = XmlReader();
    EXPECT_EQ("<{u}b>", next(grandchild));
    EXPECT_EQ("<c/>", next(grandchild));
    child.readElementEnd();
    child = XmlReader();
    grandchild.readNextNode();
    EXPECT_EQ(XmlReader::Data, grandchild.getLastNodeType());
    EXPECT_EQ("</{u}b>", next(grandchild));
}

TEST(XmlReaderBufferReplacement, RefusalWhileAChildIsMadeLeavesAReadableParent) {
    XmlReader reader = inside("<r><a>\xE4" + latin1 + "x</a></r>");
    EXPECT_EQ(refused("ISO-8859-1"), failure([&] { reader.getElementReader(any); }));
    EXPECT_EQ((Nodes{quoted("?>x"), "</a>", "</r>"}), nodes(reader));
}

TEST(XmlReaderBufferReplacement, ReaderOverAnAbsentElementWhileTheParentsBufferIsReplaced) {
    XmlReader reader("<r><a b='1'>text</a>" + latin1 + "\xE4</r>");
    reader.readElementStart("r");
    reader.readElementStart("a");
    XmlReader child = reader.getElementReader("b");
    reader.readElementEnd("a");
    EXPECT_EQ(quoted(once), next(reader));
    EXPECT_EQ("<a b=1>", node(child));
    EXPECT_EQ(prematureEof, failure([&] { child.readNextNode(); }));
    reader = XmlReader();
    EXPECT_EQ("a", child.getLastName().getLocalName());
}

TEST(XmlReaderBufferReplacement, AbsentElementBehindADeclaration) {
    XmlReader reader("<r b='1'>text" + latin1 + "\xE4</r>");
    reader.readElementStart("r");
    XmlReader child = reader.getElementReader("a");
    EXPECT_EQ("<r b=1>", node(child));
    EXPECT_FALSE(child.getEncoding().empty());
    EXPECT_EQ(prematureEof, failure([&] { child.readNextNode(); }));
    reader.readElementEnd("r");
}

// ---- Growth ----

/** How an action on a reader ends: "well", with the failure of a malformed document, "failed", or
 * otherwise. */
template <class Action>
std::string ending(const std::string& document, Action action) {
    XmlReader reader;
    try {
        reader = XmlReader(document);
        action(reader);
    } catch (const XmlParseLineColException&) {
        return reader.isValid() && reader.getEncoding().empty() ? "without encoding" : "failed";
    } catch (const std::exception& thrown) {
        return std::string("otherwise: ") + thrown.what();
    }
    return "well";
}

void readAll(XmlReader& reader) {
    while (!reader.eof()) {
        reader.readNextNode();
    }
}

std::string alternating(int count, const std::string& between) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += (i % 2 == 0 ? latin1 : otherLatin1) + between;
    }
    return result;
}

// Each conversion makes two bytes of each above 0x7F: sixty of them would fill any memory.
TEST(XmlReaderBufferReplacement, GrowthByAlternatingDeclarationsIsBounded) {
    const auto start = std::chrono::steady_clock::now();
    for (const char* between : {"", "t", "<b/>", "<!--c-->", "<?p?>"}) {
        for (int count : {60, 200}) {
            EXPECT_EQ("failed", ending("<a>" + alternating(count, between) + "\xE4</a>", readAll));
        }
    }
    EXPECT_EQ("failed", ending(alternating(60, "") + "<a>\xE4</a>", readAll));
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    EXPECT_LT(taken.count(), 30.0);
}

TEST(XmlReaderBufferReplacement, ManyAlternatingDeclarationsWithoutAHighByteAreRead) {
    EXPECT_EQ((Nodes{"<a>", quoted("x"), "</a>"}),
              nodesOf("<a>" + alternating(1000, "") + "x</a>"));
    EXPECT_EQ((Nodes{"<a>", quoted(std::string(1000, 't')), "</a>"}),
              nodesOf("<a>" + alternating(1000, "t") + "</a>"));
}

TEST(XmlReaderBufferReplacement, GrowthIsBoundedInsideReadElementAndTheOthers) {
    const std::string document = "<r><a>" + alternating(60, "<b/>") + "\xE4</a></r>";
    EXPECT_EQ("failed", ending(document, [](XmlReader& r) {
                  r.readElementStart();
                  r.readElement(any);
              }));
    EXPECT_EQ("failed", ending(document, [](XmlReader& r) { r.readWellFormedElement(any); }));
    EXPECT_EQ("failed", ending(document, [](XmlReader& r) { r.getElementReader(any); }));
    EXPECT_EQ("failed", ending(document, [](XmlReader& r) {
                  r.readElementStart("r");
                  r.readElementStart("a");
                  while (r.isElementNext("b")) {
                      r.readElementStart("b");
                      r.readElementEnd("b");
                  }
              }));
}

// ---- Cut short ----

TEST(XmlReaderBufferReplacement, DocumentCutAtEachByteEndsProperly) {
    const std::string document = "<r xmlns:p='u'>t&lt;" + latin1 + "<d/>" + otherLatin1 +
                                 "\xE4<p:a b='\xE4'>" + otherLatin1 + "<c/>\xE4</p:a>" +
                                 declaring("UTF-8") + "\xE4</r>";
    const auto run = [](const std::string& text, auto action) {
        const std::string end = ending(text, action);
        EXPECT_TRUE(end == "well" || end == "failed") << end << " at " << text.size();
    };
    for (std::size_t length = 0; length <= document.size(); ++length) {
        const std::string text = document.substr(0, length);
        run(text, readAll);
        run(text, [](XmlReader& r) { r.readElement(any); });
        run(text, [](XmlReader& r) { r.readWellFormedElement(any); });
        run(text, [](XmlReader& r) {
            XmlReader child = r.getElementReader(any);
            readAll(child);
        });
        run(text, [](XmlReader& r) {
            r.readElementStart();
            r.readElementValue();
            r.isElementNextI(r.getLastNameI());
            r.readElementStart();
            r.readElementEnd();
        });
    }
    EXPECT_EQ("well", ending(document, readAll));
}

}  // namespace
}  // namespace nolk
