#include <nolk/core/XmlReader.h>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "XmlReaderNavigation.h"

// What a reader is like behind its ordinary life: emptied, failed, bounded by its parent, or given
// more of everything than anyone writes by hand.
namespace nolk {
namespace {

using namespace navigation;

// ---- Emptied ----

struct Emptied {
    explicit Emptied(const std::string& text, int nodes)
        : body(new XmlReaderImp(text.data(), static_cast<unsigned>(text.size()))), reader(body) {
        for (int i = 0; i < nodes; ++i) {
            reader.readNextNode();
        }
    }

    XmlReaderImp* body;
    XmlReader reader;
};

using Action = std::function<void(XmlReader&)>;

const std::vector<Action>& readingActions() {
    static const std::vector<Action> actions = {
        [](XmlReader& r) { r.readNextNode(); },
        [](XmlReader& r) { r.readElementStart(); },
        [](XmlReader& r) { r.readElementStart("a"); },
        [](XmlReader& r) { r.readElementValue(); },
        [](XmlReader& r) { r.readElement(any); },
        [](XmlReader& r) { r.getElementReader(any); },
        [](XmlReader& r) { r.readWellFormedElement(any); },
    };
    return actions;
}

TEST(XmlReaderConformance, AnEmptiedReaderIsAtItsEnd) {
    for (int nodes = 0; nodes < 3; ++nodes) {
        Emptied emptied("<p:a xmlns:p='u' b='1'>x</p:a>\n", nodes);
        emptied.body->cleanup();
        EXPECT_TRUE(emptied.reader.eof());
        for (const Action& action : readingActions()) {
            EXPECT_EQ(prematureEof, failure([&] { action(emptied.reader); }));
        }
        EXPECT_TRUE(emptied.reader.eof());
    }
}

TEST(XmlReaderConformance, AnEmptiedReaderShowsNothingOfItsText) {
    Emptied emptied("<?xml version='1.0' standalone='yes'?><p:a xmlns:p='u' b='1'>x</p:a>", 2);
    emptied.body->cleanup();
    const XmlReader& reader = emptied.reader;
    EXPECT_EQ("", reader.getEncoding());
    EXPECT_EQ("", reader.getVersion());
    EXPECT_EQ("", reader.getStandalone());
    EXPECT_EQ("", text(reader.getLastNameI()));
    EXPECT_EQ(0u, reader.getLastAttributesI().length());
    EXPECT_EQ("", reader.getLastContent());
    EXPECT_EQ("", reader.getURIForPrefix("p"));
    EXPECT_EQ("", reader.getPrefixForURI("u"));
    EXPECT_EQ(0u, reader.getNamespaceStack().depth());
}

TEST(XmlReaderConformance, AnEmptiedReaderForgetsANodeThatWasReadAhead) {
    Emptied emptied("<a><b></b></a>", 1);
    EXPECT_TRUE(emptied.reader.isElementNext("b"));
    emptied.body->cleanup();
    EXPECT_EQ(prematureEof, failure([&] { emptied.reader.readNextNode(); }));
}

TEST(XmlReaderConformance, AnEmptyTagOfAnEmptiedReaderStillHasItsEnd) {
    Emptied emptied("<a/>\n", 1);
    emptied.body->cleanup();
    EXPECT_FALSE(emptied.reader.isElementNext("a"));
    emptied.reader.readElementEnd();
    EXPECT_EQ("</>", node(emptied.reader));
    EXPECT_EQ(prematureEof, failure([&] { emptied.reader.readElementEnd(); }));
}

TEST(XmlReaderConformance, AnEmptiedReaderFailsAtTheFirstPosition) {
    Emptied emptied("<a>\n<b/></a>", 3);
    emptied.body->cleanup();
    EXPECT_EQ("1:1", failurePosition([&] { emptied.reader.readNextNode(); }));
}

TEST(XmlReaderConformance, AnEmptiedReaderTakesNamespaces) {
    Emptied emptied("<a><b/></a>", 1);
    emptied.body->cleanup();
    emptied.reader.addNamespace(XmlNamespace("p", "u"));
    EXPECT_EQ("u", emptied.reader.getURIForPrefix("p"));
}

TEST(XmlReaderConformance, AReaderOverAnElementOutlivesTheEmptyingOfItsParent) {
    Emptied emptied("<r xmlns:p='u'><p:a>&lt;</p:a></r>", 1);
    XmlReader child = emptied.reader.getElementReader(any);
    emptied.body->cleanup();
    EXPECT_EQ("<{u}a>", next(child));
    EXPECT_EQ("\"<\"", next(child));
    EXPECT_EQ("</{u}a>", next(child));
}

// ---- Failed ----

TEST(XmlReaderConformance, AnEndTagThatFailsHasClosedItsScope) {
    XmlReader reader = inside("<a><b xmlns:p='u'>x</p:c d></a>");
    EXPECT_EQ("<b xmlns:p=u>", next(reader));
    EXPECT_EQ(3u, reader.getNamespaceStack().depth());
    EXPECT_EQ("\"x\"", next(reader));
    EXPECT_EQ("[XML_PARSE_UNEXPECTED_CHAR] Unexpected character /",
              failure([&] { reader.readNextNode(); }));
    EXPECT_EQ("</{u}c>", node(reader));
    EXPECT_EQ(2u, reader.getNamespaceStack().depth());
    EXPECT_EQ("x", reader.getLastContent());
}

TEST(XmlReaderConformance, AnEmptyTagThatFailsIsOneWithItsScopeOpen) {
    XmlReader reader = inside("<a>x<b xmlns:p='u' / ></a>");
    reader.readNextNode();
    EXPECT_EQ("[XML_PARSE_INVALID_SLASH] Invalid '/' found in tag",
              failure([&] { reader.readNextNode(); }));
    EXPECT_EQ("<a xmlns:p=u/>", node(reader));
    EXPECT_EQ("", reader.getLastContent());
    EXPECT_EQ("u", reader.getURIForPrefix("p"));
    EXPECT_EQ(3u, reader.getNamespaceStack().depth());
}

TEST(XmlReaderConformance, AStartTagThatFailsLeavesItsScopeOpenAndTheNodeBefore) {
    XmlReader reader = inside("<a>x<b xmlns:p='u' c></a>");
    reader.readNextNode();
    EXPECT_EQ("[XML_PARSE_ATTRIBUTE_INVALID_CHAR] invalid character in attribute definition",
              failure([&] { reader.readNextNode(); }));
    EXPECT_EQ("\"x\"", node(reader));
    EXPECT_EQ("a", text(reader.getLastNameI()));
    EXPECT_EQ(" xmlns:p=u", text(reader.getLastAttributesI()));
    EXPECT_EQ("u", reader.getURIForPrefix("p"));
    EXPECT_EQ(3u, reader.getNamespaceStack().depth());
}

TEST(XmlReaderConformance, AStartTagWithoutANameOpensNoScope) {
    XmlReader reader = inside("<a b='1'><1></a>");
    EXPECT_EQ("[XML_PARSE_ILLEGAL_NAME] Illegal starting character for name: 1",
              failure([&] { reader.readNextNode(); }));
    EXPECT_EQ("<a b=1>", node(reader));
    EXPECT_EQ(2u, reader.getNamespaceStack().depth());
}

TEST(XmlReaderConformance, TextThatFailsIsEmptyData) {
    XmlReader reader = inside("<a>x<b/>yz&#q;</a>");
    reader.readNextNode();
    reader.readNextNode();
    EXPECT_EQ(
        "[XML_PARSE_INVALID_CHAR_IN_REFERENCE] invalid character in hexadecimal character "
        "reference.",
        failure([&] { reader.readNextNode(); }));
    EXPECT_EQ("\"\"", node(reader));
    EXPECT_EQ("b", text(reader.getLastNameI()));
}

TEST(XmlReaderConformance, TextThatIsNotThereIsEmptyData) {
    XmlReader reader = inside("<a>x<b></b>");
    reader.readElementValue();
    reader.readElementStart("b");
    reader.readElementEnd("b");
    EXPECT_EQ(prematureEof, failure([&] { reader.readElementValue(); }));
    EXPECT_EQ("\"\"", node(reader));
    EXPECT_EQ("b", text(reader.getLastNameI()));
}

TEST(XmlReaderConformance, AnElementOfAnotherNameLeavesTheRawTextInFrontAsContent) {
    XmlReader reader = inside("<r>x&lt;<!--c-->\r\n<a></a></r>");
    reader.setExpandCommentReference(true);
    EXPECT_EQ(unexpected("b", "a"), failure([&] { reader.readElement("b"); }));
    EXPECT_EQ("x&lt;\r\n", reader.getLastContent());
}

TEST(XmlReaderConformance, ALookAheadThatFailsLeavesNothingPending) {
    XmlReader reader = inside("<a>x<1/>y<b/></a>");
    EXPECT_EQ("[XML_PARSE_ILLEGAL_NAME] Illegal starting character for name: 1",
              failure([&] { reader.isElementNext("b"); }));
    EXPECT_EQ("\"/>y\"", next(reader));
    EXPECT_TRUE(reader.isElementNext("b"));
}

TEST(XmlReaderConformance, AnElementReaderThatFailsLeavesTheParentUsable) {
    XmlReader reader = inside("<r><a><1/></a><b/></r>");
    EXPECT_EQ("[XML_PARSE_ILLEGAL_NAME] Illegal starting character for name: 1",
              failure([&] { reader.getElementReader("a"); }));
    EXPECT_EQ("\"/>\"", next(reader));
    EXPECT_EQ("</a>", next(reader));
    EXPECT_EQ("<b/>", reader.readElement("b"));
}

// ---- Bounded ----

// What a reader over `<a/>`, with this behind it in the document, reads behind that element: all
// but two bytes of it don't exist for the reader.
std::string behindAnEmptyElement(const std::string& tail) {
    XmlReader child = inside("<r><a/>" + tail + "</r>").getElementReader("a");
    child.readNextNode();
    return failure([&] {
        for (;;) {
            child.readNextNode();
        }
    });
}

TEST(XmlReaderConformance, NothingIsReadBeyondTheBoundOfAnElementReader) {
    const std::string long20 = "12345678901234567890";
    for (const std::string& tail : std::vector<std::string>{
             "", "x", "xy", "text" + long20, "\r\n\r\n", "&lt;", "&;&;", " &amp;", "<b/>",
             "<b c='" + long20 + "' d=\"" + long20 + "\"/>", "<bb></bb>", "<!--c-->",
             "<![CDATA[x]]>", "<?p " + long20 + "?>", "]]>", "x<b/>", " <b/>", "\n\n<b/>"}) {
        EXPECT_EQ(prematureEof, behindAnEmptyElement(tail)) << tail;
    }
}

TEST(XmlReaderConformance, TheTwoBytesBehindTheElementAreRead) {
    EXPECT_EQ("[XML_PARSE_ILLEGAL_NAME] Illegal starting character for name: 1",
              behindAnEmptyElement("<1/>"));
    EXPECT_EQ("[XML_PARSE_PREMATURE_EOF_INSIDE_CHAR] Premature EOF inside character",
              behindAnEmptyElement("<\xC3\xA4/>"));
}

// The parent leaves references alone and so ends the tag where the child is in the middle of a
// value, for which it finds no end, though there is one in the document.
TEST(XmlReaderConformance, AReferenceThatSwallowsTheEndOfTheElementMeetsTheBound) {
    for (const char* tail : {"", "x;\"/>", "xy;\"/>", ";\"/>", ";x\"/>", "xyz;\" c=\"1\"/>"}) {
        XmlReader child =
            inside("<r><a b=\"&\"/>" + std::string(tail) + "</r>").getElementReader("a");
        EXPECT_EQ(prematureEof, failure([&] {
                      child.readNextNode();
                      child.readNextNode();
                  }))
            << tail;
    }
}

// Pieces in any order: markup, and what opens or closes it.
std::string randomPieces(std::mt19937& random, unsigned most) {
    static const char* const pieces[] = {"<a>",
                                         "</a>",
                                         "<b>",
                                         "</b>",
                                         "<c/>",
                                         "<b c=\"",
                                         "<p:d e='1' xmlns:p='u'/>",
                                         "\"",
                                         "'",
                                         "&",
                                         ";",
                                         "&lt;",
                                         "<!--",
                                         "-->",
                                         "<!",
                                         "/>",
                                         ">",
                                         "<x y=\"",
                                         "\"b=\"",
                                         "z",
                                         "zz \t",
                                         "=",
                                         "<",
                                         "]]>",
                                         "-",
                                         "p:q",
                                         "<![CDATA[",
                                         "longer text of more than a vector"};
    std::string result;
    for (unsigned n = random() % most; n-- != 0;) {
        result += pieces[random() % std::size(pieces)];
    }
    return result;
}

Nodes firstNodes(XmlReader& reader) {
    Nodes result;
    try {
        while (result.size() < 40) {
            result.push_back(next(reader));
        }
    } catch (const Exception& thrown) {
        result.push_back(thrown.what());
    }
    return result;
}

// A reader over an element reads what a reader over a document of these bytes and the two behind
// them would, whatever the parent made of them.
TEST(XmlReaderConformance, AnElementReaderReadsItsBytesAndTwoMore) {
    std::mt19937 random(52);
    int compared = 0;
    for (int i = 0; i < 40000; ++i) {
        const std::string document =
            "<r><a>" + randomPieces(random, 12) + "</a>" + randomPieces(random, 6) + "</r>";
        std::string element;
        try {
            element = inside(document).readElement("a");
        } catch (const Exception&) {
            continue;
        }
        if (3 + element.size() + 2 > document.size()) {
            continue;
        }
        ASSERT_EQ(element, document.substr(3, element.size()));
        ++compared;
        XmlReader child = inside(document).getElementReader("a");
        XmlReader alone(document.substr(3, element.size() + 2));
        EXPECT_EQ(firstNodes(alone), firstNodes(child)) << document;
    }
    EXPECT_GT(compared, 1000);
}

// ---- Prefixes ----

/** Documents that are all declarations: of few prefixes and of many, in scopes of any depth. */
class PrefixDocument {
public:
    PrefixDocument(unsigned seed, unsigned prefixes) : random_(seed), prefixes_(prefixes) {}

    std::string make() {
        std::string document = "<r>";
        for (int i = 0; i < 300; ++i) {
            const unsigned kind = random_() % 8;
            document += kind < 3   ? "</" + name() + ">"
                        : kind < 4 ? "<" + name() + declarations() + "/>"
                                   : "<" + name() + declarations() + ">";
        }
        return document;
    }

private:
    // Some longer than eight bytes, which readers may treat otherwise.
    std::string prefix() {
        const unsigned number = random_() % prefixes_;
        return (number % 3 == 0 ? "longPrefix" : "p") + std::to_string(number);
    }
    std::string name() { return random_() % 4 == 0 ? "a" : prefix() + ":a"; }

    std::string declarations() {
        std::string result;
        for (unsigned n = random_() % 4; n-- != 0;) {
            const std::string uri = random_() % 8 == 0 ? "" : "u" + std::to_string(random_() % 50);
            const unsigned kind = random_() % 8;
            result += kind == 0  ? " xmlns='" + uri + "'"
                      : kind < 5 ? " xmlns:" + prefix() + "='" + uri + "'"
                                 : " " + prefix() + ":b='1'";
        }
        return result;
    }

    std::mt19937 random_;
    unsigned prefixes_;
};

// What the names of the current tag must resolve to, by a walk through the scopes in front of it
// and its own declarations.
void expectResolved(const XmlReader& reader, XmlReaderNamespaceStack scopes) {
    const XmlReaderName& name = reader.getLastNameI();
    if (reader.getLastNodeType() != XmlReader::EndTag) {
        const XmlReaderAttributeList& attributes = reader.getLastAttributesI();
        scopes.pushScope();
        for (const XmlReaderAttribute& attribute : attributes) {
            if (attribute.name.prefix.view() == "xmlns") {
                scopes.addNamespace({attribute.name.localName, attribute.value});
            } else if (attribute.name.localName.view() == "xmlns") {
                scopes.addNamespace({{}, attribute.value});
            }
        }
        for (const XmlReaderAttribute& attribute : attributes) {
            const XmlReaderName& own = attribute.name;
            EXPECT_EQ(own.prefix.length == 0 ? "" : scopes.getURIForPrefix(own.prefix).view(),
                      own.uri.view());
        }
    }
    EXPECT_EQ(scopes.getURIForPrefix(name.prefix).view(), name.uri.view());
}

void readResolved(const std::string& document, unsigned seed) {
    std::mt19937 random(seed);
    XmlReader reader(document);
    while (!reader.eof()) {
        const XmlReaderNamespaceStack before = reader.getNamespaceStack();
        reader.readNextNode();
        expectResolved(reader, before);
        switch (random() % 40) {
            case 0:
                reader.addNamespace(XmlNamespace("p1", "added"));
                break;
            case 1:
                reader.setNamespaceStack(before);
                break;
            default:
                break;
        }
    }
}

TEST(XmlReaderConformance, PrefixesResolveAsAWalkThroughTheScopesWould) {
    for (unsigned prefixes : {1, 4, 12, 60, 400}) {
        for (unsigned seed = 0; seed < 40; ++seed) {
            readResolved(PrefixDocument(seed, prefixes).make(), seed);
        }
    }
}

// ---- Usual ----

// The commonest declaration of all is recognised as a whole; it must mean what others do.
TEST(XmlReaderConformance, TheUsualDeclarationIsReadLikeAnyOther) {
    const auto facts = [](const std::string& document) {
        const XmlReaderImp body(document.data(), static_cast<unsigned>(document.size()));
        return body.version().asString() + "|" + body.encoding().asString() + "|" +
               (body.encodingDeclared() ? "e" : "-") + (body.standaloneDeclared() ? "s" : "-");
    };
    const std::string usual = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
    const std::string other = "<?xml version='1.0' encoding='UTF-8' ?>";
    for (const std::string& declaration : {usual, other}) {
        EXPECT_EQ("1.0|UTF-8|e-", facts(declaration + "<a/>"));
        EXPECT_EQ("1.0|UTF-8|e-", facts("\xEF\xBB\xBF" + declaration + "\n<a/>"));
        EXPECT_EQ("1.0|UTF-8|e-", facts("\n" + declaration + "<a/>"));
        EXPECT_EQ("1.0|UTF-8|e-", facts("<!--c-->" + declaration + "<a/>"));
        EXPECT_EQ("1.1|utf-8|e-",
                  facts(declaration + "<?xml version='1.1' encoding='utf-8'?><a/>"));
        EXPECT_EQ((Nodes{"<a>", "\"xy\"", "</a>"}),
                  nodesOf(declaration + "<a>x" + declaration + "y</a>"));
        EXPECT_EQ((Nodes{"<a>", "</a>"}), nodesOf(declaration + "<a>" + declaration + "</a>"));
        EXPECT_EQ(prematureEof, failure([&] { XmlReader{declaration}; }));
    }
}

// ---- Very many ----

double secondsOf(const std::function<void()>& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

TEST(XmlReaderConformance, VeryManyAttributesComeAsASetInTimeInProportion) {
    constexpr unsigned count = 60000;
    std::string document = "<a";
    for (unsigned i = 0; i < count; ++i) {
        document += " b" + std::to_string(i) + "='1'";
    }
    XmlReader reader(document + " b0='2'/>");
    reader.readNextNode();
    EXPECT_EQ(count + 1, reader.getLastAttributesI().length());
    XmlAttributeSet set;
    EXPECT_LT(secondsOf([&] { set = reader.getLastAttributes(); }), 5.0);
    EXPECT_EQ(count, set.entries());
    EXPECT_EQ("2", set.findValueByName("b0", true));
}

TEST(XmlReaderConformance, VeryManyPrefixesTakeTimeInProportion) {
    constexpr int count = 40000;
    std::string declarations;
    std::string bound;
    std::string unbound;
    std::string deep;
    for (int i = 0; i < count; ++i) {
        const std::string n = std::to_string(i);
        declarations += " xmlns:p" + n + "='u' p" + n + ":b=''";
        bound += "<p" + n + ":a xmlns:q='v'/>";
        unbound += "<n" + n + ":a/>";
        deep += std::string("<") + static_cast<char>('a' + i % 26) + ":x>";
    }
    for (const std::string& content : {bound, unbound, deep}) {
        XmlReader reader("<r" + declarations + ">" + content + "<end/>");
        EXPECT_LT(secondsOf([&] {
                      while (!reader.eof()) {
                          reader.readNextNode();
                      }
                  }),
                  10.0);
        EXPECT_EQ("<end/>", node(reader));
    }
}

TEST(XmlReaderConformance, ReadersOverVeryManyElementsWithADeclarationTakeTimeInProportion) {
    constexpr int count = 20000;
    const std::string declarations[] = {"<?xml version='1.0' encoding='ISO-8859-1'?>",
                                        "<?xml version='1.0' encoding='iso-8859-1'?>"};
    std::string document = "<r>";
    for (int i = 0; i < count; ++i) {
        document += "<a>" + declarations[i % 2] + "x</a>";
    }
    XmlReader reader = inside(document + "</r>");
    int read = 0;
    const auto readEach = [&] {
        while (reader.isElementNext("a")) {
            XmlReader child = reader.getElementReader("a");
            child.readElementStart("a");
            read += child.readElementValue() == "x" ? 1 : 0;
            child.readElementEnd("a");
        }
    };
    EXPECT_LT(secondsOf(readEach), 30.0);
    EXPECT_EQ(count, read);
}

}  // namespace
}  // namespace nolk
