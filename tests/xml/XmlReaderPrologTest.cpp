#include <nolk/core/XmlReader.h>

#include <gtest/gtest.h>

#include <string>

#include "XmlReaderDump.h"

namespace nolk {
namespace {

using namespace std::string_literals;
using namespace nolk::test;

void expectRows(std::initializer_list<Row> rows) {
    for (const auto& [document, expected] : rows) {
        EXPECT_EQ(dump(document), expected) << document;
    }
}

// What the declaration of a document tells, as "version|encoding|standalone".
std::string factsOf(const std::string& document) {
    try {
        XmlReader reader(document);
        return reader.getVersion() + "|" + reader.getEncoding() + "|" + reader.getStandalone();
    } catch (const XmlParseLineColException& failure) {
        return "!" + keyOf(failure);
    }
}

TEST(XmlReaderProlog, StandsInFrontOfTheRootAtFirst) {
    XmlReader reader(" <?p?><!--x--><!DOCTYPE a><a/>"s);
    EXPECT_EQ(reader.getLastNodeType(), XmlReader::Unknown);
    EXPECT_EQ(reader.getLastAttributesI().length(), 0u);
    EXPECT_FALSE(reader.eof());
    reader.readNextNode();
    EXPECT_EQ(dumpNode(reader), "Empty a");
}

TEST(XmlReaderProlog, WhiteSpaceInFrontOfTheRootIsSkipped) {
    EXPECT_EQ(dump(" \t\r\n <a/>"), "Empty a");
}

TEST(XmlReaderProlog, OnlySpaceTabCrAndLfAreWhiteSpace) {
    for (const char* text : {"\f<a/>", "\v<a/>", "\xC2\xA0<a/>", "\xE2\x80\xA8<a/>", "\x01<a/>"}) {
        EXPECT_EQ(dump(text), "!XML_PARSE_INVALID_FIRST_CHAR");
    }
}

TEST(XmlReaderProlog, AZeroByteIsNoWhiteSpace) {
    EXPECT_EQ(dump(" \0<a/>"s), "!XML_PARSE_INVALID_FIRST_CHAR");
}

TEST(XmlReaderProlog, TextInFrontOfTheRootIsRefused) {
    expectRows({{"x<a/>", "!XML_PARSE_INVALID_FIRST_CHAR"},
                {"  x<a/>", "!XML_PARSE_INVALID_FIRST_CHAR"},
                {"<!--c-->x<a/>", "!XML_PARSE_INVALID_FIRST_CHAR"},
                {"&lt;<a/>", "!XML_PARSE_INVALID_FIRST_CHAR"},
                {">>>>>", "!XML_PARSE_INVALID_FIRST_CHAR"}});
}

TEST(XmlReaderProlog, ADocumentWithoutARootEndsTooEarly) {
    expectRows({{"     ", "!XML_PARSE_PREMATURE_EOF"},
                {"<!--x-->", "!XML_PARSE_PREMATURE_EOF"},
                {"<!--x-->\n", "!XML_PARSE_PREMATURE_EOF"},
                {"<?p?>", "!XML_PARSE_PREMATURE_EOF"},
                {"<!DOCTYPE a>", "!XML_PARSE_PREMATURE_EOF"},
                {"<?xml version='1.0'?>", "!XML_PARSE_PREMATURE_EOF"},
                {"    <", "!XML_PARSE_PREMATURE_EOF"},
                {"   <!", "!XML_PARSE_PREMATURE_EOF"},
                {"   <?", "!XML_PARSE_PREMATURE_EOF"}});
}

TEST(XmlReaderProlog, WhatTheRootStartsWithIsLookedAtByTheFirstRead) {
    for (const char* text : {"<1/> ", "<>   ", "< a/>", "</a> "}) {
        EXPECT_NO_THROW(XmlReader{std::string(text)}) << text;
    }
    EXPECT_EQ(dump("<1/> "), "!XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(dump("</a> "), "End a");
}

// Comments.

TEST(XmlReaderProlog, CommentsAreSkipped) {
    expectRows({{"<!----><a/>", "Empty a"},
                {"<!-- x --><a/>", "Empty a"},
                {"<!--x--> <!--y--><a/>", "Empty a"},
                {"<!-- - -><a/>< --><b/>", "Empty b"},
                {"<!--\xC3\xA4\xFF--><a/>", "Empty a"},
                {"<!--<?p?><!DOCTYPE>--><a/>", "Empty a"}});
}

TEST(XmlReaderProlog, OneDashBehindTheOpeningLeavesACommentOpen) {
    expectRows({{"<!---><a/>", "!XML_PARSE_PREMATURE_EOF"},
                {"<!---><a/>--><b/>", "Empty b"},
                {"<!--><a/>--><b/>", "Empty b"}});
}

TEST(XmlReaderProlog, TwoDashesMustEndAComment) {
    expectRows({{"<!-- a--b --><a/>", "!XML_PARSE_COMMENT_INVALID_DASH"},
                {"<!-- a---><a/>", "!XML_PARSE_COMMENT_INVALID_DASH"},
                {"<!-----><a/>", "!XML_PARSE_COMMENT_INVALID_DASH"},
                {"<!-- -- ><a/>", "!XML_PARSE_COMMENT_INVALID_DASH"}});
}

TEST(XmlReaderProlog, ASingleDashBehindTheMarkIsNoComment) {
    expectRows({{"<!-x--><a/>", "!XML_PARSE_COMMENT_SYNTAX_ERROR"},
                {"<!- -x--><a/>", "!XML_PARSE_COMMENT_SYNTAX_ERROR"},
                {"<!-><a/>", "!XML_PARSE_COMMENT_SYNTAX_ERROR"}});
}

TEST(XmlReaderProlog, AnOpenCommentEndsTheDocumentTooEarly) {
    for (const char* text : {"  <!-", " <!--", "<!-- ", "<!---", "<!--x-", "<!--x--"}) {
        EXPECT_EQ(dump(text), "!XML_PARSE_PREMATURE_EOF") << text;
    }
}

// Document types.

TEST(XmlReaderProlog, ADocumentTypeIsSkipped) {
    expectRows({{"<!DOCTYPE a><a/>", "Empty a"},
                {"<!DOCTYPE><a/>", "Empty a"},
                {"<!DOCTYPE a SYSTEM 'x.dtd'><a/>", "Empty a"},
                {"<!DOCTYPE a [<!ELEMENT a ANY>]><a/>", "Empty a"},
                {"<!DOCTYPE a [[>]>]><a/>", "Empty a"},
                {"<!DOCTYPE a><!DOCTYPE b><a/>", "Empty a"}});
}

TEST(XmlReaderProlog, TheEntitiesOfADocumentTypeAreNotDefined) {
    EXPECT_EQ(dump("<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>"), "Start a Data'&e;' End a");
}

TEST(XmlReaderProlog, TheAttributeDefaultsOfADocumentTypeDoNotApply) {
    EXPECT_EQ(dump("<!DOCTYPE a [<!ATTLIST a b CDATA 'c'>]><a/>"), "Empty a");
}

TEST(XmlReaderProlog, QuotesInADocumentTypeHideNothing) {
    expectRows({{"<!DOCTYPE a '>'><a/>", "!XML_PARSE_INVALID_FIRST_CHAR"},
                {"<!DOCTYPE a ']'><a/>", "!XML_PARSE_PREMATURE_EOF"},
                {"<!DOCTYPE a '['><a/>", "!XML_PARSE_PREMATURE_EOF"},
                {"<!DOCTYPE a [<!-- ] -->]><a/>", "!XML_PARSE_INVALID_FIRST_CHAR"}});
}

TEST(XmlReaderProlog, BracketsOfADocumentTypeAreCountedInAnyOrder) {
    EXPECT_EQ(dump("<!DOCTYPE a ][><a/>"), "Empty a");
    EXPECT_EQ(dump("<!DOCTYPE a ]>[><a/>"), "Empty a");
}

TEST(XmlReaderProlog, AnyOtherDirectiveIsUnknown) {
    expectRows({{"<!doctype a><a/>", "!XML_PARSE_UNKNOWN_PROLOG"},
                {"<!ELEMENT a><a/>", "!XML_PARSE_UNKNOWN_PROLOG"},
                {"<!DOCTYP a><a/>", "!XML_PARSE_UNKNOWN_PROLOG"},
                {"<!DOCTYPEa><a/>", "!XML_PARSE_UNKNOWN_PROLOG"},
                {"<!DOCTYPE-><a/>", "!XML_PARSE_UNKNOWN_PROLOG"}});
}

TEST(XmlReaderProlog, ADirectiveThatStartsWithNoNameIsNone) {
    expectRows({{"<![CDATA[x]]><a/>", "!XML_PARSE_ILLEGAL_NAME"},
                {"<! DOCTYPE a><a/>", "!XML_PARSE_ILLEGAL_NAME"},
                {"<!><a/>", "!XML_PARSE_ILLEGAL_NAME"}});
}

TEST(XmlReaderProlog, AnOpenDocumentTypeEndsTheDocumentTooEarly) {
    for (const char* text :
         {"<!DOC", "<!DOCTYPE", "<!DOCTYPE ", "<!DOCTYPE a [", "<!DOCTYPE a [>"}) {
        EXPECT_EQ(dump(text), "!XML_PARSE_PREMATURE_EOF") << text;
    }
}

// Processing instructions.

TEST(XmlReaderProlog, InstructionsAreDropped) {
    expectRows({{"<?p?><a/>", "Empty a"},
                {"<?p x='y'?><a/>", "Empty a"},
                {"<?p > ? ?><a/>", "Empty a"},
                {"<?p ?\?><a/>", "Empty a"},
                {"<?p ?x?><a/>", "Empty a"},
                {"<?p?>\n<?q?><a/>", "Empty a"}});
}

TEST(XmlReaderProlog, OnlyTheExactTargetXmlIsADeclaration) {
    for (const char* target : {"XML", "Xml", "xmL", "xmlx", "xml-stylesheet", "xml:x", "x", "xm",
                               "xml1", "xml\xC3\xA4"}) {
        const std::string document = "<?"s + target + " version='1.1' encoding='K'?><a/>";
        EXPECT_EQ(factsOf(document), "|UTF-8|") << target;
    }
}

TEST(XmlReaderProlog, TheTargetOfAnInstructionIsAName) {
    expectRows({{"<? p?><a/>", "!XML_PARSE_ILLEGAL_NAME"},
                {"<?\?><a/>", "!XML_PARSE_ILLEGAL_NAME"},
                {"<?1?><a/>", "!XML_PARSE_ILLEGAL_NAME"}});
}

TEST(XmlReaderProlog, AnOpenInstructionEndsTheDocumentTooEarly) {
    for (const char* text : {"  <?p", "<?p x", "<?p x?", "<?p x>", "<?p x? >"}) {
        EXPECT_EQ(dump(text), "!XML_PARSE_PREMATURE_EOF") << text;
    }
}

// The XML declaration.

TEST(XmlReaderProlog, TheDeclarationTellsVersionEncodingAndStandalone) {
    EXPECT_EQ(factsOf("<?xml version='1.0' encoding='UTF-8' standalone='yes'?><a/>"),
              "1.0|UTF-8|yes");
    EXPECT_EQ(factsOf("<?xml version='1.1'?><a/>"), "1.1|UTF-8|");
    EXPECT_EQ(factsOf("<a b='c'/>"), "|UTF-8|");
}

TEST(XmlReaderProlog, ValuesAreTakenAsTheyStand) {
    EXPECT_EQ(factsOf("<?xml version='no number' standalone='perhaps'?><a/>"),
              "no number|UTF-8|perhaps");
    EXPECT_EQ(factsOf("<?xml version='' standalone=''?><a/>"), "|UTF-8|");
    EXPECT_EQ(factsOf("<?xml version='&lt;<a>?>'?><a/>"), "&lt;<a>?>|UTF-8|");
}

TEST(XmlReaderProlog, PseudoAttributesBehindTheVersionComeInAnyOrder) {
    EXPECT_EQ(factsOf("<?xml version='1.0' standalone='yes' encoding='utf-8'?><a/>"),
              "1.0|utf-8|yes");
}

TEST(XmlReaderProlog, TheLastOfRepeatedPseudoAttributesCounts) {
    EXPECT_EQ(factsOf("<?xml version='1.0' standalone='yes' standalone='no'?><a/>"),
              "1.0|UTF-8|no");
}

TEST(XmlReaderProlog, TheQuotesOfTheDeclarationNeedNotMatch) {
    EXPECT_EQ(factsOf("<?xml version='1.0\"?><a/>"), "1.0|UTF-8|");
    EXPECT_EQ(factsOf("<?xml version=\"1.0' encoding=\"utf-8' standalone='no\"?><a/>"),
              "1.0|utf-8|no");
}

TEST(XmlReaderProlog, TheDeclarationMayEndInTheBracketAlone) {
    EXPECT_EQ(factsOf("<?xml version='1.0'><a/>"), "1.0|UTF-8|");
    EXPECT_EQ(dump("<?xml version='1.0'><a/>"), "Empty a");
    EXPECT_EQ(dump("<?xml version='1.0'??\?\?><a/>"), "Empty a");
    EXPECT_EQ(dump("<?xml version='1.0'? ><a/>"), "Empty a");
}

TEST(XmlReaderProlog, WhiteSpaceAroundTheEqualsSignIsSkipped) {
    EXPECT_EQ(factsOf("<?xml\tversion\n=\r'1.0' encoding = \"utf-8\" standalone\t=\t'yes' ?><a/>"),
              "1.0|utf-8|yes");
}

TEST(XmlReaderProlog, PseudoAttributesNeedNoSpaceBetweenThem) {
    EXPECT_EQ(factsOf("<?xml version='1.0'encoding='utf-8'standalone='yes'?><a/>"),
              "1.0|utf-8|yes");
}

TEST(XmlReaderProlog, TheBytesInPlaceOfEqualsSignAndOpeningQuoteAreNotLookedAt) {
    EXPECT_EQ(factsOf("<?xml version:#1.0'?><a/>"), "1.0|UTF-8|");
    EXPECT_EQ(factsOf("<?xml version\"1.0\"?><a/>"), ".0|UTF-8|");
    EXPECT_EQ(factsOf("<?xml version=1.0'?><a/>"), ".0|UTF-8|");
    EXPECT_EQ(factsOf("<?xml versions='1.0'?><a/>"), "|UTF-8|");
}

TEST(XmlReaderProlog, OnlyTheFirstLettersOfLaterPseudoAttributesAreLookedAt) {
    EXPECT_EQ(factsOf("<?xml version='1.0' e.......='utf-8' s.........='yes'?><a/>"),
              "1.0|utf-8|yes");
    EXPECT_EQ(factsOf("<?xml version='1.0' e????\?\?>='utf-8'?><a/>"), "1.0|utf-8|");
}

TEST(XmlReaderProlog, OtherBytesOfTheDeclarationAreIgnored) {
    EXPECT_EQ(factsOf("<?xml version='1.0' foo='bar' 123 standalone='yes'?><a/>"), "1.0|UTF-8|yes");
}

TEST(XmlReaderProlog, AnEInAnyOtherWordStartsAnEncoding) {
    // Seven bytes are passed over behind the e, then one each for the sign and the quote.
    const std::string text = failureOf("<?xml version='1.0' bee='x'?><a b='c'/>");
    const std::string start =
        "1:36 [XML_TRANSCODE_FAILED] Couldn't transcode from input encoding ' b='";
    EXPECT_EQ(text.substr(0, start.size()), start);
}

TEST(XmlReaderProlog, ASecondVersionReadsAsAnEncoding) {
    // Its e is followed by the seven bytes "rsion='", and 1 and . stand for the sign and the quote.
    const std::string text = failureOf("<?xml version='1.0' version='1.1'?><a/>");
    const std::string start =
        "1:34 [XML_TRANSCODE_FAILED] Couldn't transcode from input encoding '1': ";
    EXPECT_EQ(text.substr(0, start.size()), start);
}

TEST(XmlReaderProlog, ADeclarationWithoutVersionIsLeftBehindItsTarget) {
    expectRows({{"<?xml encoding='UTF-8'?><a/>", "!XML_PARSE_INVALID_FIRST_CHAR"},
                {"<?xml?><a/>", "!XML_PARSE_INVALID_FIRST_CHAR"},
                {"<?xml ?><a/>", "!XML_PARSE_INVALID_FIRST_CHAR"},
                {"<?xml Version='1.0'?><a/>", "!XML_PARSE_INVALID_FIRST_CHAR"},
                {"<?xml standalone='yes' version='1.0'?><a/>", "!XML_PARSE_INVALID_FIRST_CHAR"},
                {"<?xml versio", "!XML_PARSE_INVALID_FIRST_CHAR"}});
}

TEST(XmlReaderProlog, WhatFollowsATargetWithoutVersionMayBeTheRoot) {
    EXPECT_EQ(dump("<?xml <a/>"), "Empty a");
    EXPECT_EQ(dump("<?xml<a/>"), "Empty a");
}

TEST(XmlReaderProlog, TheDeclarationNeedNotComeFirst) {
    EXPECT_EQ(factsOf("<!--x--><?p?><!DOCTYPE a><?xml version='1.1'?><a/>"), "1.1|UTF-8|");
    EXPECT_EQ(factsOf("\n<?xml version='1.1'?><a/>"), "1.1|UTF-8|");
}

TEST(XmlReaderProlog, ASecondDeclarationCounts) {
    EXPECT_EQ(factsOf("<?xml version='1.0' standalone='yes'?><?xml version='1.1'?><a/>"),
              "1.1|UTF-8|yes");
}

TEST(XmlReaderProlog, AnOpenDeclarationEndsTheDocumentTooEarly) {
    const std::string document = "<?xml version='1.0' encoding='UTF-8' standalone='no' ?>";
    for (std::size_t length = 13; length <= document.size(); ++length) {
        EXPECT_EQ(dump(document.substr(0, length)), "!XML_PARSE_PREMATURE_EOF") << length;
    }
}

TEST(XmlReaderProlog, WhatIsPassedOverUnreadEndsWithTheText) {
    const std::string encoding = "<?xml version='1.0' e";
    for (std::size_t more = 0; more < 12; ++more) {
        const std::string text = encoding + std::string(more, '-');
        EXPECT_EQ(placeOf(text),
                  "1:" + std::to_string(text.size() + 1) + " XML_PARSE_PREMATURE_EOF");
    }
    const std::string standalone = "<?xml version='1.0' s";
    for (std::size_t more = 0; more < 14; ++more) {
        const std::string text = standalone + std::string(more, '-');
        EXPECT_EQ(placeOf(text),
                  "1:" + std::to_string(text.size() + 1) + " XML_PARSE_PREMATURE_EOF");
    }
}

TEST(XmlReaderProlog, RecordsWhatTheDeclarationNames) {
    const auto recorded = [](const std::string& text) {
        const XmlReaderImp body(text.data(), static_cast<unsigned>(text.size()));
        return std::string(body.encodingDeclared() ? "e" : "-") +
               (body.standaloneDeclared() ? "s" : "-");
    };
    EXPECT_EQ(recorded("<a b='c'/>"), "--");
    EXPECT_EQ(recorded("<?xml version='1.0'?><a/>"), "--");
    EXPECT_EQ(recorded("<?xml version='1.0' encoding='UTF-8'?><a/>"), "e-");
    EXPECT_EQ(recorded("<?xml version='1.0' standalone='no'?><a/>"), "-s");
    EXPECT_EQ(recorded("<?xml version='1.0' encoding='UTF-8' standalone=''?><a/>"), "es");
}

// Declarations in content.

TEST(XmlReaderProlog, ADeclarationInContentCountsToo) {
    XmlReader reader("<a>x<?xml version='1.1' standalone='yes'?>y</a>"s);
    EXPECT_EQ(reader.getVersion(), "");
    EXPECT_EQ(dumpRest(reader), "Start a Data'xy' End a");
    EXPECT_EQ(reader.getVersion(), "1.1");
    EXPECT_EQ(reader.getStandalone(), "yes");
}

TEST(XmlReaderProlog, TextMovedOverADeclarationInContentCoversItsValues) {
    // Deliberate: the values are views, and the text behind the dropped declaration moves there.
    XmlReader reader("<a>x<?xml version='1.1'?>" + std::string(40, 'y') + "</a>");
    dumpRest(reader);
    EXPECT_EQ(reader.getVersion(), "yyy");
}

TEST(XmlReaderProlog, ADeclarationInContentWithoutVersionLeavesItsRestAsText) {
    expectRows({{"<a>x<?xml encoding='K'?>y</a>", "Start a Data'xencoding='K'?>y' End a"},
                {"<a>x<?xml?>y</a>", "Start a Data'x?>y' End a"},
                {"<a><?xml?>y</a>", "Start a Data'?>y' End a"},
                {"<a><?xml <b/></a>", "Start a Empty b End a"}});
}

TEST(XmlReaderProlog, ADeclarationMayStandBehindTheRoot) {
    EXPECT_EQ(dump("<a/><?xml version='1.1'?><b/>"), "Empty a Empty b");
}

// Constructors.

TEST(XmlReaderProlog, ABadPrologLetsTheConstructorThrow) {
    const std::string text = "<!ELEMENT a>";
    EXPECT_THROW(XmlReader(text.data(), 12), XmlParseLineColException);
    EXPECT_THROW(XmlReader{text}, XmlParseLineColException);
    EXPECT_THROW(XmlReader(XmlReaderNamespaceStack(), text), XmlParseLineColException);
    EXPECT_THROW(XmlReader(new XmlReaderImp(text.data(), 12)), XmlParseLineColException);
}

TEST(XmlReaderProlog, InheritedNamespacesAreInScope) {
    XmlReaderNamespaceStack inherited;
    inherited.pushScope();
    inherited.addNamespace({XmlReaderString::of("p"), XmlReaderString::of("u")});
    inherited.addNamespace({XmlReaderString(), XmlReaderString::of("d")});
    XmlReader reader(inherited, "<p:a p:b='1'><c/></p:a>");
    EXPECT_EQ(dumpRest(reader), "Start{u}p:a[{u}p:b='1'] Empty{d}c End{u}p:a");
}

TEST(XmlReaderProlog, TheBaseScopeLiesInsideTheInheritedOnes) {
    XmlReaderNamespaceStack inherited;
    inherited.pushScope();
    inherited.addNamespace({XmlReaderString::of("p"), XmlReaderString::of("u")});
    XmlReader reader(inherited, "<a b='c'/>");
    EXPECT_EQ(reader.getNamespaceStack().depth(), 2u);
    reader.addNamespace(XmlNamespace("p", "v"));
    EXPECT_EQ(reader.getURIForPrefix("p"), "v");
    EXPECT_EQ(inherited.getURIForPrefix(XmlReaderString::of("p")).asString(), "u");
}

TEST(XmlReaderProlog, AReaderHasOneBaseScope) {
    const XmlReader reader("<a b='c'/>"s);
    EXPECT_EQ(reader.getNamespaceStack().depth(), 1u);
    EXPECT_EQ(reader.getNamespaceStack().scope(0).length(), 0u);
}

TEST(XmlReaderProlog, TheSettingsStartAsReferencesReplacedAndCommentsDropped) {
    const XmlReader reader("<a b='c'/>"s);
    EXPECT_TRUE(reader.getExpandAttributeReference());
    EXPECT_TRUE(reader.getExpandContentReference());
    EXPECT_FALSE(reader.getExpandCommentReference());
}

TEST(XmlReaderProlog, CleanupFreesTheTextOnce) {
    const std::string text = "<a>x</a>";
    XmlReaderImp body(text.data(), 8);
    body.cleanup();
    body.cleanup();
}

}  // namespace
}  // namespace nolk
