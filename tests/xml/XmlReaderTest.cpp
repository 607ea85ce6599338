#include <nolk/core/MessageIds.h>
#include <nolk/core/NullPointerException.h>
#include <nolk/core/XmlReader.h>
#include <nolk/core/XmlReaderImp.h>

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "XmlReaderNavigation.h"

namespace nolk {
namespace {

using namespace navigation;

const XmlName a("a");
const std::string document = "<a>x</a>";

XmlReaderName readerName(const char* local, const char* uri = "", const char* prefix = "") {
    return {XmlReaderString::of(local), XmlReaderString::of(prefix), XmlReaderString::of(uri)};
}

XmlReaderNamespace binding(const char* prefix, const char* uri) {
    return {XmlReaderString::of(prefix), XmlReaderString::of(uri)};
}

// ---- The empty handle ----

struct Operation {
    const char* name;
    std::function<void(XmlReader&)> run;
};

const std::vector<Operation>& everyOperation() {
    static const std::string text = "a";
    static const std::vector<Operation> operations = {
        {"addNamespace(views)", [](XmlReader& r) { r.addNamespace(binding("p", "u")); }},
        {"addNamespace(copy)", [](XmlReader& r) { r.addNamespace(XmlNamespace("p", "u")); }},
        {"setNamespaceStack", [](XmlReader& r) { r.setNamespaceStack(XmlReaderNamespaceStack()); }},
        {"getNamespaceStack", [](XmlReader& r) { (void)r.getNamespaceStack(); }},
        {"getURIForPrefix", [](XmlReader& r) { (void)r.getURIForPrefix(text); }},
        {"getPrefixForURI", [](XmlReader& r) { (void)r.getPrefixForURI(text); }},
        {"getExpandAttributeReference",
         [](XmlReader& r) { (void)r.getExpandAttributeReference(); }},
        {"setExpandAttributeReference", [](XmlReader& r) { r.setExpandAttributeReference(true); }},
        {"getExpandContentReference", [](XmlReader& r) { (void)r.getExpandContentReference(); }},
        {"setExpandContentReference", [](XmlReader& r) { r.setExpandContentReference(true); }},
        {"getExpandCommentReference", [](XmlReader& r) { (void)r.getExpandCommentReference(); }},
        {"setExpandCommentReference", [](XmlReader& r) { r.setExpandCommentReference(true); }},
        {"getEncoding", [](XmlReader& r) { (void)r.getEncoding(); }},
        {"getVersion", [](XmlReader& r) { (void)r.getVersion(); }},
        {"getStandalone", [](XmlReader& r) { (void)r.getStandalone(); }},
        {"getEncodingI", [](XmlReader& r) { (void)r.getEncodingI(); }},
        {"getVersionI", [](XmlReader& r) { (void)r.getVersionI(); }},
        {"getStandaloneI", [](XmlReader& r) { (void)r.getStandaloneI(); }},
        {"readNextNode", [](XmlReader& r) { r.readNextNode(); }},
        {"getLastNodeType", [](XmlReader& r) { (void)r.getLastNodeType(); }},
        {"getLastName", [](XmlReader& r) { (void)r.getLastName(); }},
        {"getLastNameI", [](XmlReader& r) { (void)r.getLastNameI(); }},
        {"getLastAttributes", [](XmlReader& r) { (void)r.getLastAttributes(); }},
        {"getLastAttributesI", [](XmlReader& r) { (void)r.getLastAttributesI(); }},
        {"getLastContent", [](XmlReader& r) { (void)r.getLastContent(); }},
        {"getLastContentI", [](XmlReader& r) { (void)r.getLastContentI(); }},
        {"eof", [](XmlReader& r) { (void)r.eof(); }},
        {"err", [](XmlReader& r) { r.err(here(), message(NOLK_CORE_XML_PARSE_PREMATURE_EOF)); }},
        {"isElementNext(XmlName)", [](XmlReader& r) { (void)r.isElementNext(a); }},
        {"isElementNext(string)", [](XmlReader& r) { (void)r.isElementNext(text); }},
        {"isElementNextI(name)", [](XmlReader& r) { (void)r.isElementNextI(readerName("a")); }},
        {"isElementNextI(strings)", [](XmlReader& r) { (void)r.isElementNextI(text, text); }},
        {"readElementStart()", [](XmlReader& r) { r.readElementStart(); }},
        {"readElementStart(XmlName)", [](XmlReader& r) { (void)r.readElementStart(a); }},
        {"readElementStart(string)", [](XmlReader& r) { (void)r.readElementStart(text); }},
        {"readElementStartI", [](XmlReader& r) { r.readElementStartI(readerName("a")); }},
        {"readElementValue", [](XmlReader& r) { (void)r.readElementValue(); }},
        {"readElementValueI", [](XmlReader& r) { (void)r.readElementValueI(); }},
        {"readElementEnd()", [](XmlReader& r) { r.readElementEnd(); }},
        {"readElementEnd(XmlName)", [](XmlReader& r) { r.readElementEnd(a); }},
        {"readElementEnd(string)", [](XmlReader& r) { r.readElementEnd(text); }},
        {"readElementEndI", [](XmlReader& r) { r.readElementEndI(readerName("a")); }},
        {"readElement(XmlName)", [](XmlReader& r) { (void)r.readElement(a); }},
        {"readElement(string)", [](XmlReader& r) { (void)r.readElement(text); }},
        {"readElementI", [](XmlReader& r) { (void)r.readElementI(readerName("a")); }},
        {"getElementReader(XmlName)", [](XmlReader& r) { (void)r.getElementReader(a); }},
        {"getElementReader(string)", [](XmlReader& r) { (void)r.getElementReader(text); }},
        {"getElementReader(reader name)",
         [](XmlReader& r) { (void)r.getElementReader(readerName("a")); }},
        {"readWellFormedElement", [](XmlReader& r) { (void)r.readWellFormedElement(a); }},
    };
    return operations;
}

TEST(XmlReader, EveryOperationOfAnEmptyHandleThrowsNullPointerException) {
    for (const Operation& operation : everyOperation()) {
        XmlReader reader;
        EXPECT_THROW(operation.run(reader), NullPointerException) << operation.name;
        EXPECT_FALSE(reader.isValid()) << operation.name;
    }
}

TEST(XmlReader, NoOperationOfAHandleWithABodyThrowsNullPointerException) {
    for (const Operation& operation : everyOperation()) {
        XmlReader reader(document);
        try {
            operation.run(reader);
        } catch (const NullPointerException&) {
            ADD_FAILURE() << operation.name;
        } catch (const XmlParseLineColException&) {
            // err, and readElementEnd on a start tag
        }
    }
}

TEST(XmlReader, DefaultHandleIsInvalidAndEqualsAnotherOne) {
    EXPECT_FALSE(XmlReader().isValid());
    EXPECT_TRUE(XmlReader() == XmlReader());
}

TEST(XmlReader, NullBodyMakesAnEmptyHandle) {
    XmlReader reader(static_cast<XmlReaderImp*>(nullptr));
    EXPECT_FALSE(reader.isValid());
    EXPECT_THROW(reader.readNextNode(), NullPointerException);
}

TEST(XmlReader, AssigningAnEmptyHandleDropsTheBody) {
    XmlReader reader(document);
    reader = XmlReader();
    EXPECT_FALSE(reader.isValid());
}

TEST(XmlReader, HasAVirtualDestructorAndIsAHandle) {
    EXPECT_TRUE(std::has_virtual_destructor_v<XmlReader>);
    EXPECT_TRUE((std::is_base_of_v<HandleBase, XmlReader>));
    EXPECT_TRUE((std::is_base_of_v<BodyBase, XmlReaderImp>));
    EXPECT_TRUE(std::has_virtual_destructor_v<XmlReaderImp>);
}

TEST(XmlReader, NodeTypesAreNumberedInOrder) {
    EXPECT_EQ(0, XmlReader::StartTag);
    EXPECT_EQ(1, XmlReader::EndTag);
    EXPECT_EQ(2, XmlReader::EmptyTag);
    EXPECT_EQ(3, XmlReader::Data);
    EXPECT_EQ(4, XmlReader::Unknown);
}

TEST(XmlReader, NullNameIsADefaultName) {
    EXPECT_TRUE(XmlReader::NullName.isNull());
    EXPECT_EQ("", XmlReader::NullName.getLocalName());
    EXPECT_EQ("", XmlReader::NullName.getNamespace().getPrefix());
    EXPECT_EQ("", XmlReader::NullName.getNamespace().getURI());
}

// ---- Construction ----

TEST(XmlReader, ConstructedFromPointerAndLengthReadsThatManyBytes) {
    XmlReader reader("<a>x</a>garbage", 8);
    EXPECT_EQ((Nodes{"<a>", "\"x\"", "</a>"}), nodes(reader));
}

TEST(XmlReader, ConstructedFromPointerNeedsNoTerminator) {
    const std::unique_ptr<char[]> text(new char[8]);
    std::memcpy(text.get(), "<a>x</a>", 8);
    XmlReader reader(text.get(), 8);
    EXPECT_EQ((Nodes{"<a>", "\"x\"", "</a>"}), nodes(reader));
}

TEST(XmlReader, ConstructedFromStringReadsTheSame) {
    XmlReader reader(document);
    EXPECT_EQ((Nodes{"<a>", "\"x\"", "</a>"}), nodes(reader));
}

TEST(XmlReader, ConstructedFromStringKeepsZeroBytesInside) {
    XmlReader reader(std::string("<a>x\0y</a>", 10));
    reader.readElementStart();
    EXPECT_EQ(std::string("x\0y", 3), reader.readElementValue());
}

TEST(XmlReader, DocumentIsCopiedAndTheCallersTextLeftAlone) {
    std::string text = "<a>&lt;</a>";
    XmlReader reader(text);
    const std::string before = text;
    EXPECT_EQ((Nodes{"<a>", "\"<\"", "</a>"}), nodes(reader));
    EXPECT_EQ(before, text);

    XmlReader other(text);
    text.assign(text.size(), '#');
    EXPECT_EQ((Nodes{"<a>", "\"<\"", "</a>"}), nodes(other));
}

TEST(XmlReader, DocumentsBelowFiveBytesArePrematureEof) {
    for (const char* text : {"", "<", "<a", "<a>", "<a/>", "    "}) {
        EXPECT_EQ(prematureEof, failure([&] { XmlReader reader{std::string(text)}; })) << text;
        EXPECT_EQ(prematureEof,
                  failure([&] { XmlReader(text, static_cast<unsigned>(std::strlen(text))); }))
            << text;
        EXPECT_EQ(prematureEof,
                  failure([&] { XmlReader(XmlReaderNamespaceStack(), std::string(text)); }))
            << text;
    }
}

TEST(XmlReader, PrologIsReadByTheConstructorAndItsFailureThrownFromIt) {
    EXPECT_EQ("[XML_PARSE_INVALID_FIRST_CHAR] First non-ws character in document wasn't '<'",
              failure([] { XmlReader reader(std::string("hello<a/>")); }));
}

TEST(XmlReader, InheritedPrefixesResolveInAFragment) {
    XmlReaderNamespaceStack inherited;
    inherited.pushScope();
    inherited.addNamespace(binding("p", "u"));
    inherited.addNamespace(binding("", "d"));
    XmlReader reader(inherited, "<p:a><b/></p:a>");
    EXPECT_EQ((Nodes{"<{u}a>", "<{d}b/>", "</{u}a>"}), nodes(reader));
}

TEST(XmlReader, InheritedScopesStandBelowTheReadersOwnBaseScope) {
    XmlReaderNamespaceStack inherited;
    inherited.pushScope();
    inherited.addNamespace(binding("p", "u"));
    XmlReader reader(inherited, document);
    EXPECT_EQ(2u, reader.getNamespaceStack().depth());
    reader.addNamespace(binding("p", "v"));
    EXPECT_EQ("v", reader.getURIForPrefix("p"));
    EXPECT_EQ(1u, inherited.depth());
    EXPECT_EQ("u", inherited.getURIForPrefix(XmlReaderString::of("p")).asString());
}

TEST(XmlReader, WrapsABodyByReferenceCount) {
    XmlReader reader(new XmlReaderImp(document.data(), 8));
    EXPECT_TRUE(reader.isValid());
    XmlReader other = reader;
    reader = XmlReader();
    EXPECT_EQ((Nodes{"<a>", "\"x\"", "</a>"}), nodes(other));
}

// ---- Sharing ----

TEST(XmlReader, CopiesShareThePosition) {
    XmlReader reader(document);
    XmlReader copy = reader;
    EXPECT_TRUE(copy == reader);
    EXPECT_EQ("<a>", next(reader));
    EXPECT_EQ("<a>", node(copy));
    EXPECT_EQ("\"x\"", next(copy));
    EXPECT_EQ("\"x\"", node(reader));
}

TEST(XmlReader, AssignedHandlesShareThePosition) {
    XmlReader reader(document);
    XmlReader other;
    other = reader;
    reader.readNextNode();
    EXPECT_EQ("<a>", node(other));
    EXPECT_FALSE(other != reader);
}

TEST(XmlReader, CopiesShareSettingsAndPendingNode) {
    XmlReader reader(document);
    XmlReader copy = reader;
    copy.setExpandCommentReference(true);
    EXPECT_TRUE(reader.getExpandCommentReference());
    EXPECT_TRUE(copy.isElementNext(a));
    reader.readElementStart();
    EXPECT_EQ("x", copy.readElementValue());
}

TEST(XmlReader, TwoReadersOverEqualTextAreDifferentReaders) {
    XmlReader reader(document);
    XmlReader other(document);
    EXPECT_TRUE(reader != other);
    reader.readNextNode();
    EXPECT_EQ("unknown", node(other));
}

TEST(XmlReader, BodyLivesUntilTheLastHandleGoes) {
    auto first = std::make_unique<XmlReader>(document);
    XmlReader second = *first;
    first.reset();
    EXPECT_EQ((Nodes{"<a>", "\"x\"", "</a>"}), nodes(second));
}

struct WatchedBody : XmlReaderImp {
    WatchedBody(const std::string& text, bool& gone)
        : XmlReaderImp(text.data(), static_cast<unsigned>(text.size())), gone_(gone) {}
    ~WatchedBody() override { gone_ = true; }

private:
    bool& gone_;
};

TEST(XmlReader, BodyLivesUntilTheLastReaderOfAnElementGoes) {
    bool gone = false;
    XmlReader reader(new WatchedBody("<r><a/></r>", gone));
    reader.readNextNode();
    XmlReader child = reader.getElementReader(a);
    reader = XmlReader();
    EXPECT_FALSE(gone);
    child = XmlReader();
    EXPECT_TRUE(gone);
}

// ---- Settings ----

TEST(XmlReader, SettingsStartAsTrueTrueFalse) {
    XmlReader reader(document);
    EXPECT_TRUE(reader.getExpandAttributeReference());
    EXPECT_TRUE(reader.getExpandContentReference());
    EXPECT_FALSE(reader.getExpandCommentReference());
}

TEST(XmlReader, EachSettingIsSetByItself) {
    XmlReader reader(document);
    reader.setExpandAttributeReference(false);
    EXPECT_FALSE(reader.getExpandAttributeReference());
    EXPECT_TRUE(reader.getExpandContentReference());
    EXPECT_FALSE(reader.getExpandCommentReference());
    reader.setExpandContentReference(false);
    EXPECT_FALSE(reader.getExpandContentReference());
    EXPECT_FALSE(reader.getExpandCommentReference());
    reader.setExpandCommentReference(true);
    EXPECT_TRUE(reader.getExpandCommentReference());
    reader.setExpandAttributeReference(true);
    EXPECT_TRUE(reader.getExpandAttributeReference());
    EXPECT_FALSE(reader.getExpandContentReference());
}

// ---- Document facts ----

TEST(XmlReader, FactsOfADocumentWithoutDeclaration) {
    XmlReader reader(document);
    EXPECT_EQ("UTF-8", reader.getEncoding());
    EXPECT_EQ("", reader.getVersion());
    EXPECT_EQ("", reader.getStandalone());
}

TEST(XmlReader, FactsOfADeclaration) {
    XmlReader reader(
        std::string("<?xml version=\"1.1\" encoding=\"us-ascii\" standalone='yes'?><a/>"));
    EXPECT_EQ("us-ascii", reader.getEncoding());
    EXPECT_EQ("1.1", reader.getVersion());
    EXPECT_EQ("yes", reader.getStandalone());
    EXPECT_EQ("us-ascii", reader.getEncodingI().asString());
    EXPECT_EQ("1.1", reader.getVersionI().asString());
    EXPECT_EQ("yes", reader.getStandaloneI().asString());
}

TEST(XmlReader, FactsSurviveTheReadingOfTheDocument) {
    XmlReader reader(std::string(
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"no\"?><a>\xE4&#228;</a>"));
    EXPECT_EQ((Nodes{"<a>", "\"\xC3\xA4\xC3\xA4\"", "</a>"}), nodes(reader));
    EXPECT_EQ("ISO-8859-1", reader.getEncoding());
    EXPECT_EQ("1.0", reader.getVersion());
    EXPECT_EQ("no", reader.getStandalone());
}

TEST(XmlReader, FactsOfADeclarationInContentReplaceThoseOfTheProlog) {
    XmlReader reader(
        std::string("<?xml version=\"1.0\"?><a><?xml version=\"2.0\" standalone=\"maybe\"?></a>"));
    reader.readNextNode();
    EXPECT_EQ("1.0", reader.getVersion());
    EXPECT_EQ("</a>", next(reader));
    EXPECT_EQ("2.0", reader.getVersion());
    EXPECT_EQ("maybe", reader.getStandalone());
}

// ---- Before anything is read ----

TEST(XmlReader, NothingReadMeansUnknownAndEmptyFields) {
    XmlReader reader(document);
    EXPECT_EQ(XmlReader::Unknown, reader.getLastNodeType());
    EXPECT_TRUE(reader.getLastName().isNull());
    EXPECT_EQ(0u, reader.getLastNameI().localName.length);
    EXPECT_EQ(0u, reader.getLastAttributes().entries());
    EXPECT_EQ(0u, reader.getLastAttributesI().length());
    EXPECT_EQ("", reader.getLastContent());
    EXPECT_EQ(0u, reader.getLastContentI().length);
    EXPECT_FALSE(reader.eof());
}

// ---- Node access ----

TEST(XmlReader, LastNameHasAllThreeParts) {
    XmlReader reader(std::string("<p:a xmlns:p=\"u\"/>"));
    reader.readNextNode();
    const XmlName name = reader.getLastName();
    EXPECT_EQ("a", name.getLocalName());
    EXPECT_EQ("p", name.getNamespace().getPrefix());
    EXPECT_EQ("u", name.getNamespace().getURI());
    EXPECT_EQ("a", reader.getLastNameI().localName.asString());
    EXPECT_EQ("p", reader.getLastNameI().prefix.asString());
    EXPECT_EQ("u", reader.getLastNameI().uri.asString());
    EXPECT_TRUE(reader.getLastNameI().asXmlName() == name);
}

TEST(XmlReader, LastNameAfterATextIsThatOfTheNodeBefore) {
    XmlReader reader(std::string("<a><b></b>x<c/>y</a>"));
    Nodes names;
    while (!reader.eof()) {
        reader.readNextNode();
        if (reader.getLastNodeType() == XmlReader::Data) {
            names.push_back(reader.getLastName().getLocalName());
        }
    }
    EXPECT_EQ((Nodes{"b", "c"}), names);
}

TEST(XmlReader, AttributeSetKeepsTheLaterValueInTheEarlierPlace) {
    XmlReader reader(std::string("<a b=\"1\" c=\"2\" b=\"3\"/>"));
    reader.readNextNode();
    EXPECT_EQ("<a b=1 c=2 b=3/>", node(reader));
    const XmlAttributeSet set = reader.getLastAttributes();
    ASSERT_EQ(2u, set.entries());
    auto entry = set.getIteratorBegin();
    EXPECT_EQ("b", entry->getName().getLocalName());
    EXPECT_EQ("3", entry->getValue());
    ++entry;
    EXPECT_EQ("c", entry->getName().getLocalName());
    EXPECT_EQ("2", entry->getValue());
}

TEST(XmlReader, AttributesOfEqualNameByUriAreOneInTheSetUnderTheFirstPrefix) {
    XmlReader reader(std::string("<a xmlns:p=\"u\" xmlns:q=\"u\" q:b=\"1\" p:b=\"2\"></a>"));
    reader.readNextNode();
    EXPECT_EQ(4u, reader.getLastAttributesI().length());
    const XmlAttributeSet set = reader.getLastAttributes();
    ASSERT_EQ(3u, set.entries());
    XmlAttribute found;
    ASSERT_TRUE(set.find(XmlName("b", XmlNamespace("", "u")), found));
    EXPECT_EQ("2", found.getValue());
    EXPECT_EQ("q", found.getName().getNamespace().getPrefix());
}

TEST(XmlReader, NamespaceDeclarationsAreAmongTheAttributes) {
    XmlReader reader(std::string("<a xmlns=\"d\" xmlns:p=\"u\" b=\"1\"/>"));
    reader.readNextNode();
    EXPECT_EQ("<{d}a xmlns=d xmlns:p=u b=1/>", node(reader));
    const XmlAttributeSet set = reader.getLastAttributes();
    EXPECT_EQ(3u, set.entries());
    EXPECT_EQ("d", set.getDefaultNamespaceAttribute());
    XmlAttribute found;
    ASSERT_TRUE(set.findNamespaceAttribute("p", found));
    EXPECT_EQ("u", found.getValue());
    EXPECT_EQ("xmlns", found.getName().getNamespace().getPrefix());
    EXPECT_EQ("", found.getName().getNamespace().getURI());
}

TEST(XmlReader, DeclarationAndPlainAttributeOfOneLocalNameAreOneInTheSet) {
    XmlReader reader(std::string("<a p=\"1\" xmlns:p=\"u\"/>"));
    reader.readNextNode();
    EXPECT_EQ(2u, reader.getLastAttributesI().length());
    const XmlAttributeSet set = reader.getLastAttributes();
    ASSERT_EQ(1u, set.entries());
    EXPECT_EQ("u", set.getIteratorBegin()->getValue());
    EXPECT_EQ("", set.getIteratorBegin()->getName().getNamespace().getPrefix());
}

TEST(XmlReader, AttributesStayAfterTextAndEndTag) {
    XmlReader reader(std::string("<a b=\"1\">x</a>"));
    reader.readNextNode();
    reader.readNextNode();
    EXPECT_EQ(" b=1", text(reader.getLastAttributesI()));
    reader.readNextNode();
    EXPECT_EQ(XmlReader::EndTag, reader.getLastNodeType());
    EXPECT_EQ(" b=1", text(reader.getLastAttributesI()));
}

TEST(XmlReader, ContentStaysAfterStartAndEndTagAndIsEmptiedByAnEmptyTag) {
    XmlReader reader(std::string("<a>x<b>y</b><c/></a>"));
    reader.readNextNode();
    EXPECT_EQ("\"x\"", next(reader));
    EXPECT_EQ("<b>", next(reader));
    EXPECT_EQ("x", reader.getLastContent());
    EXPECT_EQ("\"y\"", next(reader));
    EXPECT_EQ("</b>", next(reader));
    EXPECT_EQ("y", reader.getLastContent());
    EXPECT_EQ("<c/>", next(reader));
    EXPECT_EQ("", reader.getLastContent());
}

TEST(XmlReader, PlainAndViewFormsAgreeOnContent) {
    XmlReader reader(std::string("<a>x<![CDATA[&y]]>&amp;</a>"));
    reader.readNextNode();
    reader.readNextNode();
    EXPECT_EQ("x<![CDATA[&y]]>&", reader.getLastContent());
    EXPECT_EQ("x<![CDATA[&y]]>&", reader.getLastContentI().asString());
}

// ---- Errors of the caller ----

TEST(XmlReader, ErrThrowsWithTheCurrentLineAndColumn) {
    XmlReader reader(std::string("<a>\nxy</a>"));
    const auto err = [&] {
        reader.err(here(), message(NOLK_CORE_XML_PARSE_MISSING_NAMESPACE, std::string("p")));
    };
    EXPECT_EQ("1:1", failurePosition(err));
    reader.readNextNode();
    EXPECT_EQ("1:4", failurePosition(err));
    reader.readNextNode();
    EXPECT_EQ("2:3", failurePosition(err));
    EXPECT_EQ("[XML_PARSE_MISSING_NAMESPACE] Missing namespace definition: p", failure(err));
}

TEST(XmlReader, ErrKeepsTheCallersPlace) {
    XmlReader reader(document);
    try {
        reader.err(ExceptionInfo("generated.cpp", 17, "void generated()"),
                   message(NOLK_CORE_XML_PARSE_PREMATURE_EOF));
        FAIL();
    } catch (const Exception& thrown) {
        EXPECT_STREQ("generated.cpp", thrown.getFileName());
        EXPECT_STREQ("void generated()", thrown.getFunctionName());
        EXPECT_EQ(17u, thrown.getLineNumber());
    }
}

TEST(XmlReader, ErrChangesNothing) {
    XmlReader reader(document);
    reader.readNextNode();
    EXPECT_EQ(prematureEof,
              failure([&] { reader.err(here(), message(NOLK_CORE_XML_PARSE_PREMATURE_EOF)); }));
    EXPECT_EQ("<a>", node(reader));
    EXPECT_EQ("\"x\"", next(reader));
}

// ---- Namespaces ----

TEST(XmlReader, LookUpOfAnAbsentPrefixOrUriGivesAnEmptyString) {
    XmlReader reader(document);
    EXPECT_EQ("", reader.getURIForPrefix("p"));
    EXPECT_EQ("", reader.getURIForPrefix(""));
    EXPECT_EQ("", reader.getURIForPrefix("xml"));
    EXPECT_EQ("", reader.getPrefixForURI("u"));
}

TEST(XmlReader, AddedViewsCountInTheInnermostScope) {
    XmlReader reader(std::string("<a><p:b/></a><p:c/>"));
    reader.readNextNode();
    reader.addNamespace(binding("p", "u"));
    EXPECT_EQ("u", reader.getURIForPrefix("p"));
    EXPECT_EQ("p", reader.getPrefixForURI("u"));
    EXPECT_EQ("<{u}b/>", next(reader));
    EXPECT_EQ("</a>", next(reader));
    EXPECT_EQ("", reader.getURIForPrefix("p"));
    EXPECT_EQ("<c/>", next(reader));
}

TEST(XmlReader, AddedNamespacesBeforeTheRootStayForTheWholeDocument) {
    XmlReader reader(std::string("<p:a><p:b/></p:a>"));
    reader.addNamespace(XmlNamespace("p", "u"));
    EXPECT_EQ((Nodes{"<{u}a>", "<{u}b/>", "</{u}a>"}), nodes(reader));
    EXPECT_EQ("u", reader.getURIForPrefix("p"));
}

TEST(XmlReader, AddedNamespaceIsCopied) {
    XmlReader reader(document);
    {
        const XmlNamespace ns(std::string(100, 'p'), std::string(100, 'u'));
        reader.addNamespace(ns);
    }
    EXPECT_EQ(std::string(100, 'u'), reader.getURIForPrefix(std::string(100, 'p')));
    EXPECT_EQ(std::string(100, 'p'), reader.getPrefixForURI(std::string(100, 'u')));
}

TEST(XmlReader, ManyAddedNamespacesStayValid) {
    XmlReader reader(document);
    for (int i = 0; i < 100; ++i) {
        const std::string number = std::to_string(i);
        reader.addNamespace(XmlNamespace("p" + number, "u" + number));
    }
    for (int i = 0; i < 100; ++i) {
        const std::string number = std::to_string(i);
        EXPECT_EQ("u" + number, reader.getURIForPrefix("p" + number));
    }
}

TEST(XmlReader, FirstBindingOfAPrefixInAScopeCounts) {
    XmlReader reader(document);
    reader.addNamespace(binding("p", "first"));
    reader.addNamespace(binding("p", "second"));
    EXPECT_EQ("first", reader.getURIForPrefix("p"));
    EXPECT_EQ("p", reader.getPrefixForURI("second"));
}

TEST(XmlReader, AddedDefaultNamespaceAppliesToElementsNotAttributes) {
    XmlReader reader(std::string("<a b=\"1\"/>"));
    reader.addNamespace(XmlNamespace("", "u"));
    EXPECT_EQ("<{u}a b=1/>", next(reader));
    EXPECT_EQ(0u, reader.getLastAttributesI()[0].name.uri.length);
}

TEST(XmlReader, AddNamespaceWithoutAnyScopeIsSafe) {
    XmlReader reader(std::string("</a><p:b></p:b>"));
    EXPECT_EQ("</a>", next(reader));
    EXPECT_EQ(0u, reader.getNamespaceStack().depth());
    reader.addNamespace(binding("p", "u"));
    reader.addNamespace(XmlNamespace("q", "v"));
    EXPECT_EQ("<{u}b>", next(reader));
}

TEST(XmlReader, BaseScopeBelongsToTheReader) {
    XmlReader reader(document);
    EXPECT_EQ(1u, reader.getNamespaceStack().depth());
    reader.readNextNode();
    EXPECT_EQ(2u, reader.getNamespaceStack().depth());
    reader.readNextNode();
    reader.readNextNode();
    EXPECT_EQ(1u, reader.getNamespaceStack().depth());
}

TEST(XmlReader, NamespaceStackIsCopiedOut) {
    XmlReader reader(document);
    reader.addNamespace(binding("p", "u"));
    XmlReaderNamespaceStack stack = reader.getNamespaceStack();
    stack.addNamespace(binding("q", "v"));
    EXPECT_EQ("", reader.getURIForPrefix("q"));
    reader.addNamespace(binding("r", "w"));
    EXPECT_EQ(0u, stack.getURIForPrefix(XmlReaderString::of("r")).length);
    EXPECT_EQ("u", stack.getURIForPrefix(XmlReaderString::of("p")).asString());
}

TEST(XmlReader, NamespaceStackIsCopiedInAndReplacesTheOldOne) {
    XmlReader reader(std::string("<p:a/><p:b/>"));
    reader.addNamespace(binding("q", "old"));
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("p", "u"));
    reader.setNamespaceStack(stack);
    stack.addNamespace(binding("r", "late"));
    EXPECT_EQ("", reader.getURIForPrefix("q"));
    EXPECT_EQ("", reader.getURIForPrefix("r"));
    EXPECT_EQ("<{u}a/>", next(reader));
    EXPECT_EQ(1u, reader.getNamespaceStack().depth());
}

TEST(XmlReader, EmptyNamespaceStackSetIsSafeToReadOn) {
    XmlReader reader(std::string("<a xmlns:p=\"u\"><p:b/></a>"));
    reader.setNamespaceStack(XmlReaderNamespaceStack());
    EXPECT_EQ((Nodes{"<a xmlns:p=u>", "<{u}b/>", "</a>"}), nodes(reader));
    EXPECT_EQ(0u, reader.getNamespaceStack().depth());
    reader.addNamespace(binding("p", "v"));
    EXPECT_EQ("v", reader.getURIForPrefix("p"));
}

TEST(XmlReader, ChangedNamespacesCountForTheNextTagEvenAfterThePrefixWasResolved) {
    XmlReader reader(std::string("<r><p:a/><p:a/><p:a/></r>"));
    reader.readNextNode();
    EXPECT_EQ("<a/>", next(reader));
    reader.addNamespace(binding("p", "u"));
    EXPECT_EQ("<{u}a/>", next(reader));
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("p", "v"));
    reader.setNamespaceStack(stack);
    EXPECT_EQ("<{v}a/>", next(reader));
}

TEST(XmlReader, NamespacesAddedInsideAnElementCountForItsEndTag) {
    XmlReader reader(std::string("<p:a></p:a>"));
    EXPECT_EQ("<a>", next(reader));
    reader.addNamespace(binding("p", "u"));
    EXPECT_EQ("</{u}a>", next(reader));
}

TEST(XmlReader, NamespaceStackSetInsideAnElementCountsForItsEndTag) {
    XmlReader reader(std::string("<p:a xmlns:p=\"u\"></p:a>"));
    EXPECT_EQ("<{u}a xmlns:p=u>", next(reader));
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("p", "v"));
    stack.pushScope();
    reader.setNamespaceStack(stack);
    EXPECT_EQ("</{v}a>", next(reader));
}

TEST(XmlReader, PrefixForUriIsThatOfTheInnermostScope) {
    XmlReader reader(std::string("<a xmlns:p=\"u\"><b xmlns:q=\"u\"></b></a>"));
    reader.readNextNode();
    EXPECT_EQ("p", reader.getPrefixForURI("u"));
    reader.readNextNode();
    EXPECT_EQ("q", reader.getPrefixForURI("u"));
    reader.readNextNode();
    EXPECT_EQ("p", reader.getPrefixForURI("u"));
}

TEST(XmlReader, EmptyTagsOwnDeclarationsAreGoneBehindIt) {
    XmlReader reader(std::string("<a><b xmlns:p=\"u\"/></a>"));
    reader.readNextNode();
    reader.readNextNode();
    EXPECT_EQ("", reader.getURIForPrefix("p"));
    EXPECT_EQ("", reader.getPrefixForURI("u"));
}

// ---- asXmlReaderName ----

TEST(XmlReader, AsXmlReaderNameGivesViewsIntoTheName) {
    const XmlName name("local", XmlNamespace("prefix", "uri"));
    const XmlReaderName views = XmlReader::asXmlReaderName(name);
    EXPECT_EQ("local", views.localName.asString());
    EXPECT_EQ("prefix", views.prefix.asString());
    EXPECT_EQ("uri", views.uri.asString());
    EXPECT_EQ(name.getLocalName().data(), views.localName.data);
    EXPECT_EQ(name.getNamespace().getPrefix().data(), views.prefix.data);
    EXPECT_EQ(name.getNamespace().getURI().data(), views.uri.data);
}

TEST(XmlReader, AsXmlReaderNameOfTheNullNameIsThreeEmptyViews) {
    const XmlReaderName views = XmlReader::asXmlReaderName(XmlReader::NullName);
    EXPECT_EQ(0u, views.localName.length);
    EXPECT_EQ(0u, views.prefix.length);
    EXPECT_EQ(0u, views.uri.length);
}

// ---- The overloads hand back what they are told to ----

TEST(XmlReader, ResultTypesOfTheForms) {
    using std::declval;
    using std::is_same_v;
    using Reader = XmlReader&;
    EXPECT_TRUE(std::is_void_v<decltype(declval<Reader>().readElementStart())>);
    EXPECT_TRUE(std::is_void_v<decltype(declval<Reader>().readElementStartI(XmlReaderName()))>);
    EXPECT_TRUE(std::is_void_v<decltype(declval<Reader>().readElementEnd())>);
    EXPECT_TRUE(std::is_void_v<decltype(declval<Reader>().readElementEndI(XmlReaderName()))>);
    EXPECT_TRUE((is_same_v<XmlAttributeSet, decltype(declval<Reader>().readElementStart(a))>));
    EXPECT_TRUE((is_same_v<XmlAttributeSet, decltype(declval<Reader>().readElementStart("a"))>));
    EXPECT_TRUE((is_same_v<XmlReader, decltype(declval<Reader>().getElementReader("a"))>));
}

}  // namespace
}  // namespace nolk
