#include <nolk/core/XmlWriter.h>

#include <nolk/core/XmlStringWriter.h>

#include "foundation/SlotOrder.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace nolk {
namespace {

const std::string xsi = "http://www.w3.org/2001/XMLSchema-instance";
const std::string xsiDeclaration = " xmlns:xsi=\"" + xsi + "\"";

// A sink that keeps the pieces apart as they come.
class PieceWriter : public XmlWriter {
public:
    void writeToSink(char c) override { take(std::string(1, c)); }
    void writeToSink(const char* data, unsigned int length) override {
        take(std::string(data, length));
    }
    void flush() override { ++flushes; }

    void sendString(const std::string& text) { XmlWriter::writeToSink(text); }

    std::string text() const {
        std::string all;
        for (const std::string& piece : pieces) {
            all += piece;
        }
        return all;
    }

    std::vector<std::string> pieces;
    int flushes = 0;
    std::size_t failAt = static_cast<std::size_t>(-1);

private:
    void take(const std::string& piece) {
        if (pieces.size() == failAt) {
            throw std::runtime_error("sink");
        }
        pieces.push_back(piece);
    }
};

using Pieces = std::vector<std::string>;

// What comes out is the same in pieces and in a buffer, with room or without.
std::string written(const std::function<void(XmlWriter&)>& action) {
    PieceWriter writer;
    action(writer);
    for (const unsigned int size : {0u, 8u, 64u, 4096u, 100000u}) {
        XmlStringWriter inMemory(size);
        action(inMemory);
        EXPECT_EQ(inMemory.getString(), writer.text()) << size;
    }
    return writer.text();
}

std::string escapedText(const std::string& text) {
    return written([&](XmlWriter& writer) { writer.write(text, true); });
}

std::string escapedAttribute(const std::string& value) {
    return written([&](XmlWriter& writer) { writer.writeAttribute("a", value, true); });
}

TEST(XmlWriter, VirtualsKeepTheirSlotOrder) {
    struct Access : XmlWriter {
        using XmlWriter::writeToSink;
    };
    EXPECT_EQ(slotOf(static_cast<void (XmlWriter::*)(char)>(&XmlWriter::writeToSink)), 2u);
    EXPECT_EQ(slotOf(static_cast<void (XmlWriter::*)(const char*, unsigned int)>(
                  &XmlWriter::writeToSink)),
              3u);
    EXPECT_EQ(slotOf(static_cast<void (XmlWriter::*)(const std::string&)>(&Access::writeToSink)),
              4u);
    EXPECT_EQ(slotOf(&XmlWriter::flush), 5u);
}

// ---- settings and layout ----

TEST(XmlWriter, StartsWithItsDefaults) {
    PieceWriter writer;
    EXPECT_TRUE(writer.getIgnoreWhitespace());
    EXPECT_TRUE(writer.getMustEscapeTextDefault());
    EXPECT_EQ(writer.setSizeOfIndent(7), 2);
    EXPECT_EQ(writer.getNamespaceStack().depth(), 1u) << "the base scope";
    EXPECT_TRUE(writer.getNamespaceStack().getNamespaceIteratorBegin() ==
                writer.getNamespaceStack().getNamespaceIteratorEnd());
}

TEST(XmlWriter, SetSizeOfIndentGivesThePreviousSize) {
    PieceWriter writer;
    EXPECT_EQ(writer.setSizeOfIndent(4), 2);
    EXPECT_EQ(writer.setSizeOfIndent(0), 4);
    EXPECT_EQ(writer.setSizeOfIndent(-3), 0);
    EXPECT_EQ(writer.setSizeOfIndent(1), -3);
}

TEST(XmlWriter, SettersAreRead) {
    PieceWriter writer;
    writer.setIgnoreWhitespace(false);
    EXPECT_FALSE(writer.getIgnoreWhitespace());
    writer.setMustEscapeTextDefault(false);
    EXPECT_FALSE(writer.getMustEscapeTextDefault());
}

// The spaces that a text gets in front at the start of a line.
std::size_t indentOf(PieceWriter& writer) {
    writer.setIgnoreWhitespace(false);
    writer.pieces.clear();
    writer.writeNewLine();
    writer.write("x", false);
    return writer.text().size() - 2;
}

TEST(XmlWriter, IncrementAndDecrementMoveTheIndentByItsSize) {
    PieceWriter writer;
    EXPECT_EQ(indentOf(writer), 0u);
    writer.incrementIndent();
    EXPECT_EQ(indentOf(writer), 2u);
    writer.setSizeOfIndent(3);
    writer.incrementIndent();
    EXPECT_EQ(indentOf(writer), 5u);
    writer.decrementIndent();
    EXPECT_EQ(indentOf(writer), 2u);
}

TEST(XmlWriter, DecrementStopsAtZero) {
    PieceWriter writer;
    writer.decrementIndent();
    EXPECT_EQ(indentOf(writer), 0u);
    writer.setCurrentIndent(1);
    writer.decrementIndent();
    EXPECT_EQ(indentOf(writer), 0u);
    writer.incrementIndent();
    EXPECT_EQ(indentOf(writer), 2u);
}

TEST(XmlWriter, SetCurrentIndentCountsANegativeNumberAsZero) {
    PieceWriter writer;
    writer.setCurrentIndent(5);
    EXPECT_EQ(indentOf(writer), 5u);
    writer.setCurrentIndent(-5);
    EXPECT_EQ(indentOf(writer), 0u);
}

TEST(XmlWriter, ANegativeSizeTurnsIncrementAndDecrementRound) {
    PieceWriter writer;
    writer.setSizeOfIndent(-2);
    writer.incrementIndent();
    EXPECT_EQ(indentOf(writer), 0u);
    writer.decrementIndent();
    EXPECT_EQ(indentOf(writer), 2u);
}

TEST(XmlWriter, LongIndentsAreWrittenWhole) {
    PieceWriter writer;
    for (const int indent : {31, 32, 33, 64, 100}) {
        writer.setCurrentIndent(indent);
        EXPECT_EQ(indentOf(writer), static_cast<std::size_t>(indent));
    }
}

TEST(XmlWriter, IgnoredWhiteSpaceIsNeverWritten) {
    PieceWriter writer;
    writer.setCurrentIndent(4);
    writer.writeNewLine();
    writer.writeIndentChars();
    writer.write("x", false);
    EXPECT_EQ(writer.text(), "x");
}

TEST(XmlWriter, NewLineIgnoredDoesNotStartALine) {
    PieceWriter writer;
    writer.setCurrentIndent(4);
    writer.writeNewLine();
    writer.setIgnoreWhitespace(false);
    writer.writeIndentChars();
    EXPECT_EQ(writer.text(), "");
}

TEST(XmlWriter, NewLineIsOneLineFeed) {
    PieceWriter writer;
    writer.setIgnoreWhitespace(false);
    writer.writeNewLine();
    EXPECT_EQ(writer.pieces, Pieces{"\n"});
}

TEST(XmlWriter, EachNewLineIsWritten) {
    PieceWriter writer;
    writer.setIgnoreWhitespace(false);
    writer.writeNewLine();
    writer.writeNewLine();
    EXPECT_EQ(writer.text(), "\n\n");
}

TEST(XmlWriter, TheIndentIsWrittenOnceForALine) {
    PieceWriter writer;
    writer.setIgnoreWhitespace(false);
    writer.setCurrentIndent(2);
    writer.writeIndentChars();
    EXPECT_EQ(writer.text(), "") << "the document doesn't start as a line";
    writer.writeNewLine();
    writer.writeIndentChars();
    writer.writeIndentChars();
    writer.write("x", false);
    writer.write("y", false);
    EXPECT_EQ(writer.text(), "\n  xy");
}

TEST(XmlWriter, ALineStaysToBeIndentedUntilItIs) {
    PieceWriter writer;
    writer.setIgnoreWhitespace(false);
    writer.setCurrentIndent(2);
    writer.writeNewLine();
    writer.setIgnoreWhitespace(true);
    writer.write("x", false);
    writer.setIgnoreWhitespace(false);
    writer.write("y", false);
    EXPECT_EQ(writer.text(), "\nx  y");
}

TEST(XmlWriter, EachKindOfOutputIndentsFirst) {
    const struct {
        const char* what;
        std::function<void(XmlWriter&)> action;
        std::string expected;
    } rows[] = {
        {"text", [](XmlWriter& w) { w.write("x", true); }, "\n   x"},
        {"text as it is", [](XmlWriter& w) { w.write("x", 1, false); }, "\n   x"},
        {"empty text", [](XmlWriter& w) { w.write("", true); }, "\n   "},
        {"attribute", [](XmlWriter& w) { w.writeAttribute("a", std::string("v")); },
         "\n    a=\"v\""},
        {"start", [](XmlWriter& w) { w.writeElementStart(XmlName("e")); }, "\n   <e>"},
        {"end", [](XmlWriter& w) { w.writeElementEnd(XmlName("e")); }, "\n   </e>"},
    };
    for (const auto& row : rows) {
        PieceWriter writer;
        writer.setIgnoreWhitespace(false);
        writer.setCurrentIndent(3);
        writer.writeNewLine();
        row.action(writer);
        EXPECT_EQ(writer.text(), row.expected) << row.what;
    }
}

TEST(XmlWriter, NothingElseMovesTheIndent) {
    PieceWriter writer;
    writer.setIgnoreWhitespace(false);
    const XmlName a("a");
    writer.writeElementStart(a);
    writer.writeNewLine();
    writer.writeElementStart(XmlName("b"), {}, true);
    writer.writeNewLine();
    writer.writeElementEnd(a);
    EXPECT_EQ(writer.text(), "<a>\n<b/>\n</a>");
}

TEST(XmlWriter, AStringGoesToTheSinkAsItsBytes) {
    PieceWriter writer;
    writer.sendString(std::string("a\0b", 3));
    EXPECT_EQ(writer.pieces, (Pieces{std::string("a\0b", 3)}));
}

// ---- text ----

TEST(XmlWriter, TextAsItIsGoesOutUnchanged) {
    const std::string text = "\r&<>\"'<![CDATA[x]]>\n";
    PieceWriter writer;
    writer.write(text, false);
    writer.write(text.data(), static_cast<unsigned int>(text.size()), false);
    EXPECT_EQ(writer.pieces, (Pieces{text, text}));
}

TEST(XmlWriter, TextOfALengthTakesThatManyBytes) {
    PieceWriter writer;
    writer.write("ab<cd", 3, true);
    EXPECT_EQ(writer.text(), "ab&lt;");
}

TEST(XmlWriter, WhatStandsBehindTheLengthIsNotLookedAt) {
    for (const char* behind : {"", "!", "!x", "![CDATA[x]]>"}) {
        PieceWriter writer;
        writer.write((std::string("<") + behind).c_str(), 1, true);
        writer.write((std::string("a<") + behind).c_str(), 2, true);
        EXPECT_EQ(writer.pieces, (Pieces{"&lt;", "a&lt;"})) << behind;
        XmlStringWriter sink;
        sink.write((std::string("<") + behind).c_str(), 1, true);
        sink.write((std::string("a<") + behind).c_str(), 2, true);
        EXPECT_EQ(sink.getString(), "&lt;a&lt;") << behind;
    }
}

TEST(XmlWriter, NoTextAtNoPlaceIsHarmless) {
    PieceWriter writer;
    writer.write(nullptr, 0, true);
    writer.write(nullptr, 0, false);
    EXPECT_EQ(writer.text(), "");
}

TEST(XmlWriter, TextWithoutAFlagFollowsTheDefault) {
    PieceWriter writer;
    writer.write("<");
    writer.setMustEscapeTextDefault(false);
    writer.write("<");
    EXPECT_EQ(writer.text(), "&lt;<");
}

struct EscapeRow {
    std::string input;
    std::string output;
};

// Each input at the start, in the middle, at the end and alone, in texts of all lengths around
// the sizes at which the search changes its step.
void expectEscapedAnywhere(const std::vector<EscapeRow>& rows,
                           const std::function<std::string(const std::string&)>& escape) {
    for (const EscapeRow& row : rows) {
        EXPECT_EQ(escape(row.input), row.output) << row.input;
        for (std::size_t length = 1; length <= 40; ++length) {
            const std::string filler(length, 'x');
            EXPECT_EQ(escape(row.input + filler), row.output + filler) << row.input << length;
            EXPECT_EQ(escape(filler + row.input), filler + row.output) << row.input << length;
            EXPECT_EQ(escape(filler + row.input + filler), filler + row.output + filler)
                << row.input << length;
            EXPECT_EQ(escape(row.input + filler + row.input), row.output + filler + row.output)
                << row.input << length;
        }
    }
}

TEST(XmlWriter, TextEscapesEveryRowAtStartMiddleAndEnd) {
    expectEscapedAnywhere(
        {
            {"\r", "&#xD;"},
            {"&", "&amp;"},
            {">", "&gt;"},
            {"<", "&lt;"},
            {"<a", "&lt;a"},
            {"<<", "&lt;&lt;"},
            {"<>", "&lt;&gt;"},
            {"<&", "&lt;&amp;"},
            {"<!", "&lt;!"},
            {"<!>", "&lt;!&gt;"},
            {"<!<", "&lt;!&lt;"},
            {"<!!", "&lt;!!"},
            {"<!--", "&lt;!--"},
            {"<!-- & -->", "&lt;!-- &amp; --&gt;"},
            {"<![CDATA[x]]>", "<![CDATA[x]]>"},
            {"<![CDATA[]]>", "<![CDATA[]]>"},
            {"<![CDATA[&<>\r\"]]>", "<![CDATA[&<>\r\"]]>"},
            {"<![CDATA[]]]>", "<![CDATA[]]]>"},
            {"<![CDATA[a]]b]>]]>", "<![CDATA[a]]b]>]]>"},
            {"<![CDATA[<![CDATA[]]>", "<![CDATA[<![CDATA[]]>"},
            {"<![CDATA[a]]>]]>", "<![CDATA[a]]>]]&gt;"},
            {"<![CDATA[a]]><![CDATA[b]]>", "<![CDATA[a]]><![CDATA[b]]>"},
            {"<![CDATA[a]]>&<![CDATA[&]]>", "<![CDATA[a]]>&amp;<![CDATA[&]]>"},
            {"]]>", "]]&gt;"},
            {"\r\n", "&#xD;\n"},
            {"\n\t\"'", "\n\t\"'"},
            {"&amp;", "&amp;amp;"},
            {"&#xD;", "&amp;#xD;"},
            {"\xC3\xA4\xF0\x9F\x98\x80", "\xC3\xA4\xF0\x9F\x98\x80"},
            {std::string("\0\x01\x7F\xFF", 4), std::string("\0\x01\x7F\xFF", 4)},
        },
        escapedText);
}

TEST(XmlWriter, TextEscapesAReferenceAgain) {
    EXPECT_EQ(escapedText("a&amp;b"), "a&amp;amp;b");
}

TEST(XmlWriter, TextKeepsACDATASectionAndEscapesWhatFollows) {
    EXPECT_EQ(escapedText("<![CDATA[x]]>y<"), "<![CDATA[x]]>y&lt;");
}

TEST(XmlWriter, TextEscapesAnUnterminatedCDATASection) {
    EXPECT_EQ(escapedText("<![CDATA[x"), "&lt;![CDATA[x");
    EXPECT_EQ(escapedText("<![CDATA[x]]"), "&lt;![CDATA[x]]");
    EXPECT_EQ(escapedText("<![CDATA[x]>"), "&lt;![CDATA[x]&gt;");
    EXPECT_EQ(escapedText("<![CDATA["), "&lt;![CDATA[");
    EXPECT_EQ(escapedText("<![CDATA[]>"), "&lt;![CDATA[]&gt;");
    EXPECT_EQ(escapedText("<![CDATA[ & <![CDATA[ & "), "&lt;![CDATA[ &amp; &lt;![CDATA[ &amp; ");
}

TEST(XmlWriter, TextTakesNoSectionForItsNearMisses) {
    EXPECT_EQ(escapedText("<![CDATA x]]>"), "&lt;![CDATA x]]&gt;");
    EXPECT_EQ(escapedText("<![cdata[x]]>"), "&lt;![cdata[x]]&gt;");
    EXPECT_EQ(escapedText("<![CDAT"), "&lt;![CDAT");
    EXPECT_EQ(escapedText("< ![CDATA[x]]>"), "&lt; ![CDATA[x]]&gt;");
}

// The end is searched for behind the opening: its own bracket doesn't count.
TEST(XmlWriter, TextDoesNotCloseASectionWithItsOpening) {
    EXPECT_EQ(escapedText("<![CDATA[]>"), "&lt;![CDATA[]&gt;");
    EXPECT_EQ(escapedText("<![CDATA[>]]>"), "<![CDATA[>]]>");
}

TEST(XmlWriter, TextOfManyOpenSectionsTakesLinearTime) {
    std::string text;
    std::string expected;
    for (int i = 0; i < 200000; ++i) {
        text += "<![CDATA[";
        expected += "&lt;![CDATA[";
    }
    EXPECT_EQ(escapedText(text), expected);
}

TEST(XmlWriter, TextGoesToTheSinkInOnePieceOfAnyLength) {
    for (const std::size_t length : {0u, 1u, 100u, 204u, 205u, 206u, 1023u, 1024u, 1025u, 5000u}) {
        const std::string text(length, '&');
        std::string expected;
        for (std::size_t i = 0; i < length; ++i) {
            expected += "&amp;";
        }
        PieceWriter writer;
        writer.write(text, true);
        EXPECT_EQ(writer.pieces, Pieces{expected}) << length;
        PieceWriter plain;
        plain.write(std::string(length, 'x'), true);
        EXPECT_EQ(plain.pieces, Pieces{std::string(length, 'x')}) << length;
    }
}

// ---- attributes ----

TEST(XmlWriter, AttributeIsASpaceTheNameAndTheQuotedValue) {
    EXPECT_EQ(escapedAttribute("v"), " a=\"v\"");
    EXPECT_EQ(escapedAttribute(""), " a=\"\"");
}

TEST(XmlWriter, AttributeEscapesEveryRowAtStartMiddleAndEnd) {
    const auto value = [](const std::string& input) {
        const std::string attribute = escapedAttribute(input);
        EXPECT_EQ(attribute.substr(0, 4), " a=\"");
        EXPECT_EQ(attribute.back(), '"');
        return attribute.substr(4, attribute.size() - 5);
    };
    expectEscapedAnywhere(
        {
            {"\"", "&quot;"},
            {"'", "&apos;"},
            {"<", "&lt;"},
            {">", "&gt;"},
            {"&", "&amp;"},
            {"&gt;", "&gt;"},
            {"&lt;", "&lt;"},
            {"&amp;", "&amp;"},
            {"&apos;", "&apos;"},
            {"&quot;", "&quot;"},
            {"&gt", "&amp;gt"},
            {"&lt", "&amp;lt"},
            {"&amp", "&amp;amp"},
            {"&apos", "&amp;apos"},
            {"&quot", "&amp;quot"},
            {"&GT;", "&amp;GT;"},
            {"&#65;", "&amp;#65;"},
            {"&#xD;", "&amp;#xD;"},
            {"&foo;", "&amp;foo;"},
            {"&&lt;", "&amp;&lt;"},
            {"&amp;lt;", "&amp;lt;"},
            {"& amp;", "&amp; amp;"},
            {"\r\n\t", "\r\n\t"},
            {"<![CDATA[x]]>", "&lt;![CDATA[x]]&gt;"},
            {"\xC3\xA4", "\xC3\xA4"},
            {std::string("\0\x7F", 2), std::string("\0\x7F", 2)},
        },
        value);
}

TEST(XmlWriter, AttributeDoesNotEscapeAReferenceAgain) {
    EXPECT_EQ(escapedAttribute("a&amp;b"), " a=\"a&amp;b\"");
}

TEST(XmlWriter, AttributeAsItIsIsCopied) {
    PieceWriter writer;
    writer.writeAttribute("a", std::string("\"<&>'\r"), false);
    EXPECT_EQ(writer.pieces, (Pieces{" a=\"\"<&>'\r\""}));
}

TEST(XmlWriter, AttributeGoesToTheSinkInOnePieceOfAnyLength) {
    for (const std::size_t length : {0u, 1u, 169u, 170u, 171u, 1018u, 1019u, 1020u, 5000u}) {
        std::string expected = " name=\"";
        for (std::size_t i = 0; i < length; ++i) {
            expected += "&quot;";
        }
        expected += "\"";
        PieceWriter writer;
        writer.writeAttribute("name", std::string(length, '"'), true);
        EXPECT_EQ(writer.pieces, Pieces{expected}) << length;
        PieceWriter plain;
        plain.writeAttribute("name", std::string(length, 'x'), true);
        EXPECT_EQ(plain.pieces, Pieces{" name=\"" + std::string(length, 'x') + "\""}) << length;
    }
}

TEST(XmlWriter, AttributeOfAnyNameLengthIsWritten) {
    for (const std::size_t length : {1u, 15u, 16u, 17u, 33u, 1019u, 1020u, 3000u}) {
        const std::string name(length, 'n');
        PieceWriter writer;
        writer.writeAttribute(name, std::string("v"), true);
        EXPECT_EQ(writer.pieces, Pieces{" " + name + "=\"v\""}) << length;
    }
}

TEST(XmlWriter, EveryAttributeOverloadWritesItsAttribute) {
    const std::string qname = "q";
    const XmlName name("n", XmlNamespace("p", "u"));
    const char* data = "<<<";
    const std::string text = "<";
    const struct {
        const char* what;
        std::function<void(XmlWriter&)> action;
        std::string escaped;
        std::string asItIs;
    } rows[] = {
        {"text, data, flag", [&](XmlWriter& w) { w.writeAttribute(qname, data, 2, true); },
         " q=\"&lt;&lt;\"", " q=\"&lt;&lt;\""},
        {"text, data, no flag", [&](XmlWriter& w) { w.writeAttribute(qname, data, 2, false); },
         " q=\"<<\"", " q=\"<<\""},
        {"text, data", [&](XmlWriter& w) { w.writeAttribute(qname, data, 2); }, " q=\"&lt;&lt;\"",
         " q=\"<<\""},
        {"text, text, flag", [&](XmlWriter& w) { w.writeAttribute(qname, text, true); },
         " q=\"&lt;\"", " q=\"&lt;\""},
        {"text, text, no flag", [&](XmlWriter& w) { w.writeAttribute(qname, text, false); },
         " q=\"<\"", " q=\"<\""},
        {"text, text", [&](XmlWriter& w) { w.writeAttribute(qname, text); }, " q=\"&lt;\"",
         " q=\"<\""},
        {"name, data, flag", [&](XmlWriter& w) { w.writeAttribute(name, data, 2, true); },
         " p:n=\"&lt;&lt;\"", " p:n=\"&lt;&lt;\""},
        {"name, data, no flag", [&](XmlWriter& w) { w.writeAttribute(name, data, 2, false); },
         " p:n=\"<<\"", " p:n=\"<<\""},
        {"name, data", [&](XmlWriter& w) { w.writeAttribute(name, data, 2); }, " p:n=\"&lt;&lt;\"",
         " p:n=\"<<\""},
        {"name, text, flag", [&](XmlWriter& w) { w.writeAttribute(name, text, true); },
         " p:n=\"&lt;\"", " p:n=\"&lt;\""},
        {"name, text, no flag", [&](XmlWriter& w) { w.writeAttribute(name, text, false); },
         " p:n=\"<\"", " p:n=\"<\""},
        {"name, text", [&](XmlWriter& w) { w.writeAttribute(name, text); }, " p:n=\"&lt;\"",
         " p:n=\"<\""},
        {"literals", [](XmlWriter& w) { w.writeAttribute("q", "<"); }, " q=\"&lt;\"", " q=\"<\""},
        {"literals, length", [](XmlWriter& w) { w.writeAttribute("q", "<<", 1); }, " q=\"&lt;\"",
         " q=\"<\""},
        {"literals, flag", [](XmlWriter& w) { w.writeAttribute("q", "<", true); }, " q=\"&lt;\"",
         " q=\"&lt;\""},
        {"name, literal, flag", [&](XmlWriter& w) { w.writeAttribute(name, "<", false); },
         " p:n=\"<\"", " p:n=\"<\""},
    };
    for (const auto& row : rows) {
        PieceWriter writer;
        row.action(writer);
        EXPECT_EQ(writer.text(), row.escaped) << row.what;
        PieceWriter asItIs;
        asItIs.setMustEscapeTextDefault(false);
        row.action(asItIs);
        EXPECT_EQ(asItIs.text(), row.asItIs) << row.what;
    }
}

TEST(XmlWriter, AttributeOfNoValueAtNoPlaceIsHarmless) {
    PieceWriter writer;
    writer.writeAttribute("a", static_cast<const char*>(nullptr), 0u, true);
    EXPECT_EQ(writer.text(), " a=\"\"");
}

// ---- elements ----

TEST(XmlWriter, ElementWithoutNamespaceIsItsLocalName) {
    EXPECT_EQ(written([](XmlWriter& w) {
                  w.writeElementStart(XmlName("a"));
                  w.writeElementEnd(XmlName("a"));
              }),
              "<a></a>");
}

TEST(XmlWriter, EmptyElementClosesItself) {
    PieceWriter writer;
    writer.writeElementStart(XmlName("a"), {}, true);
    EXPECT_EQ(writer.text(), "<a/>");
    EXPECT_EQ(writer.getNamespaceStack().depth(), 1u);
}

TEST(XmlWriter, StartOpensAScopeAndEndClosesIt) {
    PieceWriter writer;
    writer.writeElementStart(XmlName("a"));
    EXPECT_EQ(writer.getNamespaceStack().depth(), 2u);
    writer.writeElementStart(XmlName("b"));
    EXPECT_EQ(writer.getNamespaceStack().depth(), 3u);
    writer.writeElementEnd(XmlName("b"));
    writer.writeElementEnd(XmlName("a"));
    EXPECT_EQ(writer.getNamespaceStack().depth(), 1u);
}

TEST(XmlWriter, AWantedPrefixThatIsFreeIsDeclared) {
    const XmlName name("a", XmlNamespace("p", "u"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(name);
                  w.writeElementEnd(name);
              }),
              "<p:a xmlns:p=\"u\"></p:a>");
}

TEST(XmlWriter, AnEmptyPrefixDeclaresTheDefaultNamespace) {
    const XmlName name("a", XmlNamespace("", "u"));
    EXPECT_EQ(written([&](XmlWriter& w) { w.writeElementStart(name, {}, true); }),
              "<a xmlns=\"u\"/>");
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(name);
                  w.writeElementEnd(name);
              }),
              "<a xmlns=\"u\"></a>");
}

TEST(XmlWriter, APrefixWithoutAURIIsDropped) {
    const XmlName name("a", XmlNamespace("p", ""));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(name);
                  w.writeElementEnd(name);
              }),
              "<a></a>");
}

TEST(XmlWriter, ABindingInScopeIsNotDeclaredAgain) {
    const XmlName a("a", XmlNamespace("p", "u"));
    const XmlName b("b", XmlNamespace("p", "u"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(a);
                  w.writeElementStart(b, {}, true);
                  w.writeElementEnd(a);
              }),
              "<p:a xmlns:p=\"u\"><p:b/></p:a>");
}

TEST(XmlWriter, ABindingOutOfScopeIsDeclaredAgain) {
    const XmlName root("r");
    const XmlName a("a", XmlNamespace("p", "u"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(root);
                  w.writeElementStart(a, {}, true);
                  w.writeElementStart(a, {}, true);
                  w.writeElementEnd(root);
              }),
              "<r><p:a xmlns:p=\"u\"/><p:a xmlns:p=\"u\"/></r>");
}

TEST(XmlWriter, ABoundURIIsWrittenWithItsPrefixNotTheOneAskedFor) {
    const XmlName a("a", XmlNamespace("p", "u"));
    const XmlName b("b", XmlNamespace("q", "u"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(a);
                  w.writeElementStart(b);
                  w.writeElementEnd(b);
                  w.writeElementEnd(a);
              }),
              "<p:a xmlns:p=\"u\"><p:b></p:b></p:a>");
}

TEST(XmlWriter, AnElementMayUseTheDefaultForItsURI) {
    const XmlName a("a", XmlNamespace("", "u"));
    const XmlName b("b", XmlNamespace("p", "u"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(a);
                  w.writeElementStart(b, {}, true);
              }),
              "<a xmlns=\"u\"><b/>");
}

// Asked for as default, a URI is declared as default although a prefix stands for it already;
// the inner default is then found first.
TEST(XmlWriter, AnElementWithoutPrefixDeclaresADefaultBesideABoundPrefix) {
    const XmlName a("a", XmlNamespace("p", "u"));
    const XmlName b("b", XmlNamespace("", "u"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(a);
                  w.writeElementStart(b);
                  w.writeElementEnd(b);
                  w.writeElementEnd(a);
              }),
              "<p:a xmlns:p=\"u\"><b xmlns=\"u\"></b></p:a>");
}

TEST(XmlWriter, AnotherDefaultIsDeclaredInside) {
    const XmlName a("a", XmlNamespace("", "u"));
    const XmlName b("b", XmlNamespace("", "v"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(a);
                  w.writeElementStart(b);
                  w.writeElementStart(a, {}, true);
                  w.writeElementEnd(b);
                  w.writeElementStart(a, {}, true);
                  w.writeElementEnd(a);
              }),
              "<a xmlns=\"u\"><b xmlns=\"v\"><a xmlns=\"u\"/></b><a/></a>");
}

// Nothing undeclares a default: an element without namespace inside one falls into it.
TEST(XmlWriter, AnElementWithoutNamespaceDoesNotUndeclareTheDefault) {
    EXPECT_EQ(written([](XmlWriter& w) {
                  w.writeElementStart(XmlName("a", XmlNamespace("", "u")));
                  w.writeElementStart(XmlName("b"), {}, true);
              }),
              "<a xmlns=\"u\"><b/>");
}

// The binding is found by URI; that its prefix is shadowed by now isn't noticed.
TEST(XmlWriter, AShadowedPrefixIsUsedAllTheSame) {
    const XmlName a("a", XmlNamespace("p", "u"));
    const XmlName b("b", XmlNamespace("p", "v"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(a);
                  w.writeElementStart(b);
                  w.writeElementStart(a, {}, true);
              }),
              "<p:a xmlns:p=\"u\"><p:b xmlns:p=\"v\"><p:a/>");
}

TEST(XmlWriter, URIsAreWrittenAsTheyAre) {
    EXPECT_EQ(written([](XmlWriter& w) {
                  w.writeElementStart(XmlName("a", XmlNamespace("p", "x&y<z")), {}, true);
              }),
              "<p:a xmlns:p=\"x&y<z\"/>");
}

TEST(XmlWriter, NamesAreWrittenAsTheyAre) {
    const XmlName odd("l<&\"", XmlNamespace("p<&\"", "u"));
    XmlAttributeSet attributes;
    attributes.add(XmlName("a<&\""), "v");
    EXPECT_EQ(written([&](XmlWriter& writer) {
                  writer.writeElementStart(odd, attributes);
                  writer.writeElementStart(odd, attributes);
                  writer.writeSimpleElement(odd, "t", XmlName(), false);
                  writer.writeElementEnd(odd);
                  writer.writeElementEnd(odd);
              }),
              "<p<&\":l<&\" xmlns:p<&\"=\"u\" a<&\"=\"v\">"
              "<p<&\":l<&\" a<&\"=\"v\">"
              "<p<&\":l<&\">t</p<&\":l<&\">"
              "</p<&\":l<&\"></p<&\":l<&\">");
}

TEST(XmlWriter, AnEmptyElementClosesItsScopeInFrontOfItsEnding) {
    PieceWriter writer;
    writer.failAt = 2;  // "<a", " x=...", "/>"
    XmlAttributeSet attributes;
    attributes.add(XmlName("x"), "1");
    EXPECT_THROW(writer.writeElementStart(XmlName("a"), attributes, true), std::runtime_error);
    EXPECT_EQ(writer.text(), "<a x=\"1\"");
    EXPECT_EQ(writer.getNamespaceStack().depth(), 1u);
}

TEST(XmlWriter, LongNamesAndURIsAreWrittenWhole) {
    for (const std::size_t length : {500u, 1000u, 1024u, 5000u}) {
        const std::string prefix(length, 'p');
        const std::string local(length, 'l');
        const std::string uri(length, 'u');
        const XmlName name(local, XmlNamespace(prefix, uri));
        PieceWriter writer;
        writer.writeElementStart(name);
        writer.writeElementEnd(name);
        EXPECT_EQ(writer.text(), "<" + prefix + ":" + local + " xmlns:" + prefix + "=\"" + uri +
                                     "\"></" + prefix + ":" + local + ">")
            << length;
    }
}

// ---- attributes of elements ----

TEST(XmlWriter, AttributesComeInOrderBehindTheDeclarations) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x"), "1");
    attributes.add(XmlName("y", XmlNamespace("q", "v")), "2");
    attributes.add(XmlName("z"), "<3>");
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("a", XmlNamespace("p", "u")), attributes);
              }),
              "<p:a xmlns:p=\"u\" xmlns:q=\"v\" x=\"1\" q:y=\"2\" z=\"&lt;3&gt;\">");
}

TEST(XmlWriter, AttributesOfElementsFollowTheEscapeDefault) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x"), "<");
    PieceWriter writer;
    writer.setMustEscapeTextDefault(false);
    writer.writeElementStart(XmlName("a"), attributes, true);
    EXPECT_EQ(writer.text(), "<a x=\"<\"/>");
}

TEST(XmlWriter, TwoAttributesOfOneURIComeOutWithTheFirstPrefix) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x", XmlNamespace("p", "u")), "1");
    attributes.add(XmlName("y", XmlNamespace("q", "u")), "2");
    EXPECT_EQ(written([&](XmlWriter& w) { w.writeElementStart(XmlName("a"), attributes, true); }),
              "<a xmlns:p=\"u\" p:x=\"1\" p:y=\"2\"/>");
}

TEST(XmlWriter, TheSecondURIWithATakenPrefixGetsAGeneratedOne) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x", XmlNamespace("p", "u")), "1");
    attributes.add(XmlName("y", XmlNamespace("p", "v")), "2");
    EXPECT_EQ(written([&](XmlWriter& w) { w.writeElementStart(XmlName("a"), attributes, true); }),
              "<a xmlns:p=\"u\" xmlns:ns1=\"v\" p:x=\"1\" ns1:y=\"2\"/>");
}

TEST(XmlWriter, AnAttributeWithThePrefixOfItsElementAndAnotherURIGetsAGeneratedOne) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x", XmlNamespace("p", "v")), "1");
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("a", XmlNamespace("p", "u")), attributes, true);
              }),
              "<p:a xmlns:p=\"u\" xmlns:ns1=\"v\" ns1:x=\"1\"/>");
}

TEST(XmlWriter, APrefixTakenInAnOuterScopeIsBoundAnew) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x", XmlNamespace("p", "v")), "1");
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("a", XmlNamespace("p", "u")));
                  w.writeElementStart(XmlName("b"), attributes, true);
              }),
              "<p:a xmlns:p=\"u\"><b xmlns:p=\"v\" p:x=\"1\"/>");
}

TEST(XmlWriter, AnAttributeWhoseURIIsBoundOnlyAsDefaultGetsAGeneratedPrefix) {
    const XmlNamespace u("", "u");
    XmlAttributeSet attributes;
    attributes.add(XmlName("x", u), "1");
    EXPECT_EQ(
        written([&](XmlWriter& w) { w.writeElementStart(XmlName("a", u), attributes, true); }),
        "<a xmlns=\"u\" xmlns:ns1=\"u\" ns1:x=\"1\"/>");
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("a", u));
                  w.writeElementStart(XmlName("b", u), attributes, true);
              }),
              "<a xmlns=\"u\"><ns1:b xmlns:ns1=\"u\" ns1:x=\"1\"/>")
        << "the inner binding is found first, for the element as well";
}

TEST(XmlWriter, AnAttributeWhoseURIIsBoundOnlyAsDefaultGetsTheFreePrefixItAsksFor) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x", XmlNamespace("p", "u")), "1");
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("a", XmlNamespace("", "u")), attributes, true);
              }),
              "<a xmlns=\"u\" xmlns:p=\"u\" p:x=\"1\"/>");
}

// Once the attribute's prefix is bound in the element itself, it is found before the outer
// default, for the element as well.
TEST(XmlWriter, AnElementTakesThePrefixBoundForItsAttribute) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x", XmlNamespace("p", "u")), "1");
    const XmlName c("c", XmlNamespace("q", "u"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("b", XmlNamespace("", "u")));
                  w.writeElementStart(c, attributes);
                  w.writeElementEnd(c);
              }),
              "<b xmlns=\"u\"><p:c xmlns:p=\"u\" p:x=\"1\"></p:c>");
}

TEST(XmlWriter, AnAttributeWithoutPrefixUsesABoundPrefixOfItsURI) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x", XmlNamespace("", "u")), "1");
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("r", XmlNamespace("", "u")));
                  w.addNamespace(XmlNamespace("p", "u"));
                  w.writeElementStart(XmlName("a"), attributes, true);
              }),
              "<r xmlns=\"u\"><a p:x=\"1\"/>");
}

TEST(XmlWriter, AnAttributeWithoutPrefixWhoseURIIsNotTheDefaultIsBoundAsDefaultFirst) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x", XmlNamespace("", "u")), "1");
    // As default first, and as an attribute can't use that, under a generated prefix as well.
    EXPECT_EQ(written([&](XmlWriter& w) { w.writeElementStart(XmlName("a"), attributes, true); }),
              "<a xmlns=\"u\" xmlns:ns1=\"u\" ns1:x=\"1\"/>");
    // With the default taken in the element, only under a generated prefix.
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("a", XmlNamespace("", "v")), attributes, true);
              }),
              "<a xmlns=\"v\" xmlns:ns1=\"u\" ns1:x=\"1\"/>");
}

TEST(XmlWriter, AnAttributeWithAPrefixAndNoURIKeepsNoPrefix) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x", XmlNamespace("p", "")), "1");
    EXPECT_EQ(written([&](XmlWriter& w) { w.writeElementStart(XmlName("a"), attributes, true); }),
              "<a x=\"1\"/>");
}

// A plain attribute's empty URI is looked up like any other.
TEST(XmlWriter, APlainAttributeTakesAPrefixBoundToTheEmptyURI) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x"), "1");
    PieceWriter writer;
    writer.writeElementStart(XmlName("r"), attributes);
    writer.addNamespace(XmlNamespace("", ""));
    writer.writeElementStart(XmlName("a"), attributes);
    writer.addNamespace(XmlNamespace("p", ""));
    writer.writeElementStart(XmlName("b"), attributes, true);
    writer.writeElementEnd(XmlName("a"));
    writer.writeElementStart(XmlName("c"), attributes, true);
    EXPECT_EQ(writer.text(), "<r x=\"1\"><a x=\"1\"><b p:x=\"1\"/></a><c x=\"1\"/>");
}

// ---- declarations among the attributes ----

TEST(XmlWriter, DeclarationsAmongTheAttributesAreWrittenAsDeclarations) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x"), "1");
    attributes.addNamespaceAttribute(XmlNamespace("p", "u"));
    attributes.setDefaultNamespaceAttribute("d");
    attributes.addNamespaceAttribute(XmlNamespace("q", "v"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("a", XmlNamespace("q", "v")), attributes, true);
              }),
              "<q:a xmlns=\"d\" xmlns:p=\"u\" xmlns:q=\"v\" x=\"1\"/>");
}

TEST(XmlWriter, ADeclarationIsMadeEvenIfTheURIIsInScope) {
    XmlAttributeSet attributes;
    attributes.addNamespaceAttribute(XmlNamespace("q", "u"));
    const XmlName a("a", XmlNamespace("p", "u"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(a);
                  w.writeElementStart(a, attributes, true);
              }),
              "<p:a xmlns:p=\"u\"><q:a xmlns:q=\"u\"/>");
}

TEST(XmlWriter, AnEmptyDefaultDeclarationIsWritten) {
    XmlAttributeSet attributes;
    attributes.unsetDefaultNamespaceAttribute();
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("a", XmlNamespace("", "u")));
                  w.writeElementStart(XmlName("b"), attributes, true);
              }),
              "<a xmlns=\"u\"><b xmlns=\"\"/>");
}

// Whatever the URI of an attribute is, the prefix "xmlns" makes it a declaration.
TEST(XmlWriter, ThePrefixXmlnsMakesADeclarationWhateverTheURI) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("p", XmlNamespace("xmlns", "http://www.w3.org/2000/xmlns/")), "u");
    EXPECT_EQ(written([&](XmlWriter& w) { w.writeElementStart(XmlName("a"), attributes, true); }),
              "<a xmlns:p=\"u\"/>");
}

TEST(XmlWriter, TheLocalNameXmlnsMakesADefaultDeclarationOnlyWithoutAURI) {
    XmlAttributeSet without;
    without.add(XmlName("xmlns", XmlNamespace("p", "")), "u");
    EXPECT_EQ(written([&](XmlWriter& w) { w.writeElementStart(XmlName("a"), without, true); }),
              "<a xmlns=\"u\"/>");
    XmlAttributeSet with;
    with.add(XmlName("xmlns", XmlNamespace("p", "v")), "u");
    EXPECT_EQ(written([&](XmlWriter& w) { w.writeElementStart(XmlName("a"), with, true); }),
              "<a xmlns:p=\"v\" p:xmlns=\"u\"/>");
}

TEST(XmlWriter, TheSecondDeclarationOfAPrefixIsMadeUnderAGeneratedOne) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("p", XmlNamespace("xmlns", "")), "u");
    attributes.add(XmlName("p", XmlNamespace("xmlns", "other")), "v");
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("a", XmlNamespace("z", "v")), attributes, true);
              }),
              "<ns1:a xmlns:p=\"u\" xmlns:ns1=\"v\"/>");
}

TEST(XmlWriter, AnElementThatClashesWithADeclaredDefaultGetsAGeneratedPrefix) {
    XmlAttributeSet attributes;
    attributes.setDefaultNamespaceAttribute("u");
    const XmlName a("a", XmlNamespace("", "v"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(a, attributes);
                  w.writeElementEnd(a);
              }),
              "<ns1:a xmlns=\"u\" xmlns:ns1=\"v\"></ns1:a>");
}

TEST(XmlWriter, TheAttributesGivenStayAsTheyAre) {
    XmlAttributeSet attributes;
    attributes.addNamespaceAttribute(XmlNamespace("p", "u"));
    attributes.add(XmlName("x"), "1");
    written([&](XmlWriter& w) {
        w.writeElementStart(XmlName("a"), attributes, true, XmlName("t", XmlNamespace("q", "v")));
    });
    EXPECT_EQ(attributes.entries(), 2u);
}

// ---- generated prefixes ----

TEST(XmlWriter, GeneratedPrefixesCountUpAndPassOverBoundOnes) {
    XmlAttributeSet attributes;
    attributes.addNamespaceAttribute(XmlNamespace("p", "0"));
    attributes.addNamespaceAttribute(XmlNamespace("ns2", "two"));
    for (const char* local : {"a", "b", "c"}) {
        attributes.add(XmlName(local, XmlNamespace("p", std::string("u") + local)), local);
    }
    EXPECT_EQ(written([&](XmlWriter& w) { w.writeElementStart(XmlName("e"), attributes, true); }),
              "<e xmlns:p=\"0\" xmlns:ns2=\"two\" xmlns:ns1=\"ua\" xmlns:ns3=\"ub\""
              " xmlns:ns4=\"uc\" ns1:a=\"a\" ns3:b=\"b\" ns4:c=\"c\"/>");
}

TEST(XmlWriter, GeneratedPrefixesPassOverThoseOfOuterScopes) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x", XmlNamespace("p", "u")), "1");
    attributes.add(XmlName("y", XmlNamespace("p", "v")), "2");
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("a", XmlNamespace("ns1", "w")));
                  w.writeElementStart(XmlName("b"), attributes, true);
              }),
              "<ns1:a xmlns:ns1=\"w\"><b xmlns:p=\"u\" xmlns:ns2=\"v\" p:x=\"1\" ns2:y=\"2\"/>");
}

TEST(XmlWriter, GeneratedPrefixesGoOnWithoutLimitBehindFifty) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x", XmlNamespace("p", "first")), "");
    std::string expected = "<e xmlns:p=\"first\"";
    for (int i = 1; i <= 60; ++i) {
        const std::string uri = "u" + std::to_string(i);
        attributes.add(XmlName("x", XmlNamespace("p", uri)), "");
        expected += " xmlns:ns" + std::to_string(i) + "=\"" + uri + "\"";
    }
    expected += " p:x=\"\"";
    for (int i = 1; i <= 60; ++i) {
        expected += " ns" + std::to_string(i) + ":x=\"\"";
    }
    EXPECT_EQ(written([&](XmlWriter& w) { w.writeElementStart(XmlName("e"), attributes, true); }),
              expected + "/>");
}

// ---- namespaces of the writer ----

TEST(XmlWriter, AddNamespaceBindsWithoutWriting) {
    PieceWriter writer;
    writer.addNamespace(XmlNamespace("p", "u"));
    EXPECT_EQ(writer.text(), "");
    writer.writeElementStart(XmlName("a", XmlNamespace("q", "u")), {}, true);
    EXPECT_EQ(writer.text(), "<p:a/>");
}

TEST(XmlWriter, AddNamespaceIsUnconditional) {
    PieceWriter writer;
    writer.addNamespace(XmlNamespace("p", "u"));
    writer.addNamespace(XmlNamespace("p", "v"));
    writer.addNamespace(XmlNamespace("p", "u"));
    const XmlNamespaceStack& stack = writer.getNamespaceStack();
    EXPECT_EQ(std::distance(stack.getNamespaceIteratorBegin(), stack.getNamespaceIteratorEnd()), 3);
}

TEST(XmlWriter, AddNamespaceInAnElementLastsUntilItsEnd) {
    PieceWriter writer;
    const XmlName a("a", XmlNamespace("p", "u"));
    writer.writeElementStart(XmlName("r"));
    writer.addNamespace(XmlNamespace("q", "u"));
    writer.writeElementStart(a, {}, true);
    writer.writeElementEnd(XmlName("r"));
    writer.writeElementStart(a, {}, true);
    EXPECT_EQ(writer.text(), "<r><q:a/></r><p:a xmlns:p=\"u\"/>");
}

TEST(XmlWriter, RememberedNamespacesAreDeclaredOnEachFirstLevelElement) {
    PieceWriter writer;
    writer.addNamespaceDecl(XmlNamespace("p", "u"));
    writer.addNamespaceDecl(XmlNamespace("q", "v"));
    writer.writeElementStart(XmlName("a"));
    writer.writeElementStart(XmlName("b"), {}, true);
    writer.writeElementEnd(XmlName("a"));
    writer.writeElementStart(XmlName("c"), {}, true);
    EXPECT_EQ(writer.text(),
              "<a xmlns:p=\"u\" xmlns:q=\"v\"><b/></a><c xmlns:p=\"u\" xmlns:q=\"v\"/>");
}

TEST(XmlWriter, RememberedNamespacesComeBehindTheGivenDeclarationsAndBeforeTheElement) {
    PieceWriter writer;
    writer.addNamespaceDecl(XmlNamespace("p", "u"));
    XmlAttributeSet attributes;
    attributes.addNamespaceAttribute(XmlNamespace("z", "w"));
    writer.writeElementStart(XmlName("a", XmlNamespace("q", "v")), attributes, true);
    EXPECT_EQ(writer.text(), "<q:a xmlns:z=\"w\" xmlns:p=\"u\" xmlns:q=\"v\"/>");
}

TEST(XmlWriter, RememberedNamespacesInScopeAreNotDeclared) {
    PieceWriter writer;
    writer.addNamespace(XmlNamespace("o", "u"));
    writer.addNamespaceDecl(XmlNamespace("p", "u"));
    writer.addNamespaceDecl(XmlNamespace("", ""));
    XmlAttributeSet attributes;
    attributes.setDefaultNamespaceAttribute("v");
    writer.addNamespaceDecl(XmlNamespace("q", "v"));
    writer.writeElementStart(XmlName("a"), attributes, true);
    EXPECT_EQ(writer.text(), "<a xmlns=\"v\"/>") << "a default in scope will do";
}

TEST(XmlWriter, ARememberedNamespaceThatClashesIsDeclaredUnderAGeneratedPrefix) {
    PieceWriter writer;
    writer.addNamespaceDecl(XmlNamespace("p", "u"));
    writer.addNamespaceDecl(XmlNamespace("p", "v"));
    writer.writeElementStart(XmlName("a"), {}, true);
    EXPECT_EQ(writer.text(), "<a xmlns:p=\"u\" xmlns:ns1=\"v\"/>");
}

// Declared first, it takes the default from the element that asks for another one.
TEST(XmlWriter, ARememberedDefaultComesBeforeThatOfTheElement) {
    PieceWriter writer;
    writer.addNamespaceDecl(XmlNamespace("", "u"));
    writer.writeElementStart(XmlName("a", XmlNamespace("", "v")));
    writer.writeElementStart(XmlName("b", XmlNamespace("", "u")), {}, true);
    writer.writeElementEnd(XmlName("a", XmlNamespace("", "v")));
    EXPECT_EQ(writer.text(), "<ns1:a xmlns=\"u\" xmlns:ns1=\"v\"><b/></ns1:a>");
}

TEST(XmlWriter, SetNamespaceStackReplacesByACopy) {
    XmlNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(XmlNamespace("p", "u"));
    PieceWriter writer;
    writer.addNamespace(XmlNamespace("q", "u"));
    writer.setNamespaceStack(stack);
    stack.popScope();
    EXPECT_EQ(writer.getNamespaceStack().depth(), 1u);
    writer.writeElementStart(XmlName("a", XmlNamespace("q", "u")), {}, true);
    EXPECT_EQ(writer.text(), "<p:a/>");
}

TEST(XmlWriter, SetNamespaceStackToOneWithoutScopesIsHarmless) {
    PieceWriter writer;
    writer.setNamespaceStack(XmlNamespaceStack());
    writer.writeElementEnd(XmlName("x", XmlNamespace("p", "u")));
    writer.writeElementStart(XmlName("a", XmlNamespace("p", "u")));
    EXPECT_EQ(writer.text(), "</x><p:a xmlns:p=\"u\">");
}

// With another stack than the base scope alone, what is first-level changes.
TEST(XmlWriter, RememberedNamespacesDependOnTheDepthOfTheStack) {
    XmlNamespaceStack stack;
    stack.pushScope();
    stack.pushScope();
    PieceWriter writer;
    writer.addNamespaceDecl(XmlNamespace("p", "u"));
    writer.setNamespaceStack(stack);
    writer.writeElementStart(XmlName("a"), {}, true);
    EXPECT_EQ(writer.text(), "<a/>");
}

TEST(XmlWriter, FewLookUpsRemainTrueWhenBindingsChange) {
    const XmlName a("a", XmlNamespace("p", "u"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("r"));
                  for (int i = 0; i < 2; ++i) {
                      w.writeElementStart(a);
                      w.writeElementStart(a, {}, true);
                      w.addNamespace(XmlNamespace("q", "u"));
                      w.writeElementStart(a, {}, true);
                      w.writeElementEnd(a);
                  }
              }),
              "<r><p:a xmlns:p=\"u\"><p:a/><p:a/></p:a><p:a xmlns:p=\"u\"><p:a/><p:a/></p:a>");
}

TEST(XmlWriter, AnInnerDefaultIsFoundInPlaceOfAnEarlierAnswer) {
    const XmlName a("a", XmlNamespace("p", "u"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(a);
                  w.writeElementStart(a);
                  w.addNamespace(XmlNamespace("", "u"));
                  w.writeElementStart(a, {}, true);
                  w.writeElementEnd(a);
                  w.writeElementStart(a, {}, true);
              }),
              "<p:a xmlns:p=\"u\"><p:a><a/></a><p:a/>");
}

void simple(XmlWriter& writer, const XmlName& name, const XmlAttributeSet& attributes = {}) {
    writer.writeSimpleElement(name, "v", XmlName(), false, attributes);
}

TEST(XmlWriter, ABindingIsForgottenWhenItsScopeCloses) {
    const XmlName a("a", XmlNamespace("p", "u"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("r"));
                  w.writeElementStart(a);
                  simple(w, a);
                  w.writeElementEnd(a);
                  simple(w, a);
                  simple(w, a);
              }),
              "<r><p:a xmlns:p=\"u\"><p:a>v</p:a></p:a>"
              "<p:a xmlns:p=\"u\">v</p:a><p:a xmlns:p=\"u\">v</p:a>");
}

TEST(XmlWriter, ABindingOfAnEmptyElementEndsWithIt) {
    const XmlName a("a", XmlNamespace("p", "u"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("r"));
                  w.writeElementStart(a, {}, true);
                  w.writeSimpleElement(a, "", XmlName(), false);
                  simple(w, a);
              }),
              "<r><p:a xmlns:p=\"u\"/><p:a xmlns:p=\"u\"/><p:a xmlns:p=\"u\">v</p:a>");
}

TEST(XmlWriter, ASimpleElementFollowsAShadowingPrefix) {
    const XmlName a("a", XmlNamespace("p", "u"));
    const XmlName b("b", XmlNamespace("p", "v"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(a);
                  simple(w, a);
                  w.writeElementStart(b);
                  simple(w, b);
                  simple(w, a);
                  w.writeElementEnd(b);
                  simple(w, b);
              }),
              "<p:a xmlns:p=\"u\"><p:a>v</p:a><p:b xmlns:p=\"v\"><p:b>v</p:b><p:a>v</p:a></p:b>"
              "<p:b xmlns:p=\"v\">v</p:b>");
}

TEST(XmlWriter, ASimpleElementFollowsAnAddedBinding) {
    const XmlName a("a", XmlNamespace("p", "u"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(a);
                  simple(w, a);
                  w.writeElementStart(XmlName("r"));
                  w.addNamespace(XmlNamespace("q", "u"));
                  simple(w, a);
                  w.addNamespace(XmlNamespace("", "u"));
                  simple(w, a);
                  w.writeElementEnd(XmlName("r"));
                  simple(w, a);
              }),
              "<p:a xmlns:p=\"u\"><p:a>v</p:a><r><q:a>v</q:a><a>v</a></r><p:a>v</p:a>");
}

TEST(XmlWriter, ASimpleElementWithoutPrefixAsksForItsURIAsDefault) {
    const XmlName outer("a", XmlNamespace("", "u"));
    const XmlName inner("b", XmlNamespace("", "v"));
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(outer);
                  simple(w, outer);
                  w.writeElementStart(inner);
                  simple(w, outer);
                  simple(w, inner);
                  w.addNamespace(XmlNamespace("p", "u"));
                  simple(w, outer);
              }),
              "<a xmlns=\"u\"><a>v</a><b xmlns=\"v\"><a xmlns=\"u\">v</a><b>v</b>"
              "<a xmlns=\"u\">v</a>");
}

TEST(XmlWriter, DeclarationsAreMadeOnElementsThatNeedNone) {
    const XmlName a("a", XmlNamespace("p", "u"));
    XmlAttributeSet prefixed;
    prefixed.add(XmlName("x"), "1");
    prefixed.addNamespaceAttribute(XmlNamespace("q", "v"));
    XmlAttributeSet byDefault;
    byDefault.setDefaultNamespaceAttribute("w");
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(a);
                  simple(w, a, prefixed);
                  simple(w, a, byDefault);
                  w.writeElementStart(a, byDefault);
                  simple(w, XmlName("b", XmlNamespace("", "w")));
              }),
              "<p:a xmlns:p=\"u\"><p:a xmlns:q=\"v\" x=\"1\">v</p:a><p:a xmlns=\"w\">v</p:a>"
              "<p:a xmlns=\"w\"><b>v</b>");
}

TEST(XmlWriter, AnAttributeOfANamespaceOnASimpleElementIsBound) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x"), "1");
    attributes.add(XmlName("y", XmlNamespace("q", "v")), "2");
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("r"));
                  simple(w, XmlName("a"), attributes);
                  w.addNamespace(XmlNamespace("p", "v"));
                  simple(w, XmlName("a"), attributes);
              }),
              "<r><a xmlns:q=\"v\" x=\"1\" q:y=\"2\">v</a><a x=\"1\" p:y=\"2\">v</a>");
}

TEST(XmlWriter, APrefixBoundToTheEmptyURIReachesSimpleElements) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x"), "1");
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeElementStart(XmlName("r"));
                  simple(w, XmlName("a"), attributes);
                  w.writeElementStart(XmlName("s"));
                  w.addNamespace(XmlNamespace("e", ""));
                  simple(w, XmlName("a"), attributes);
                  simple(w, XmlName("a"));
                  w.writeElementEnd(XmlName("s"));
                  simple(w, XmlName("a"), attributes);
              }),
              "<r><a x=\"1\">v</a><s><a e:x=\"1\">v</a><a>v</a></s><a x=\"1\">v</a>");
}

TEST(XmlWriter, RememberedNamespacesAreDeclaredOnFirstLevelSimpleElementsOnly) {
    EXPECT_EQ(written([](XmlWriter& w) {
                  w.addNamespaceDecl(XmlNamespace("p", "u"));
                  simple(w, XmlName("a"));
                  simple(w, XmlName("a"));
                  w.writeElementStart(XmlName("b"));
                  simple(w, XmlName("a"));
                  w.writeElementStart(XmlName("a"), {}, true);
              }),
              "<a xmlns:p=\"u\">v</a><a xmlns:p=\"u\">v</a><b xmlns:p=\"u\"><a>v</a><a/>");
}

// ---- types ----

std::string typed(const XmlName& type, const XmlName& element = XmlName("a"),
                  const XmlAttributeSet& attributes = {}) {
    return written([&](XmlWriter& w) { w.writeElementStart(element, attributes, true, type); });
}

TEST(XmlWriter, ATypeIsWrittenAsXsiType) {
    EXPECT_EQ(typed(XmlName("int", XmlNamespace("xsd", "schema"))),
              "<a xmlns:xsd=\"schema\"" + xsiDeclaration + " xsi:type=\"xsd:int\"/>");
}

TEST(XmlWriter, ATypeWithoutALocalNameIsNoType) {
    EXPECT_EQ(typed(XmlName()), "<a/>");
    EXPECT_EQ(typed(XmlName("", XmlNamespace("xsd", "schema"))), "<a/>");
}

TEST(XmlWriter, ATypeUsesThePrefixBoundToItsURI) {
    EXPECT_EQ(typed(XmlName("t", XmlNamespace("q", "u")), XmlName("a", XmlNamespace("p", "u"))),
              "<p:a xmlns:p=\"u\"" + xsiDeclaration + " xsi:type=\"p:t\"/>");
}

TEST(XmlWriter, ATypeInTheDefaultNamespaceHasNoPrefix) {
    EXPECT_EQ(typed(XmlName("t", XmlNamespace("q", "u")), XmlName("a", XmlNamespace("", "u"))),
              "<a xmlns=\"u\"" + xsiDeclaration + " xsi:type=\"t\"/>");
}

TEST(XmlWriter, ATypeWithoutPrefixWhoseURIIsUnboundGetsAGeneratedOne) {
    EXPECT_EQ(typed(XmlName("t", XmlNamespace("", "u"))),
              "<a xmlns:ns1=\"u\"" + xsiDeclaration + " xsi:type=\"ns1:t\"/>");
}

TEST(XmlWriter, ATypeWhosePrefixIsTakenGetsAGeneratedOne) {
    EXPECT_EQ(typed(XmlName("t", XmlNamespace("p", "v")), XmlName("a", XmlNamespace("p", "u"))),
              "<p:a xmlns:p=\"u\" xmlns:ns1=\"v\"" + xsiDeclaration + " xsi:type=\"ns1:t\"/>");
}

TEST(XmlWriter, ATypeWithoutURIIsItsLocalName) {
    EXPECT_EQ(typed(XmlName("t")), "<a" + xsiDeclaration + " xsi:type=\"t\"/>");
}

TEST(XmlWriter, ATypeWithAPrefixAndNoURILosesThePrefix) {
    EXPECT_EQ(typed(XmlName("t", XmlNamespace("p", ""))),
              "<a" + xsiDeclaration + " xsi:type=\"t\"/>");
}

TEST(XmlWriter, ATypeWithoutURITakesAPrefixBoundToTheEmptyURI) {
    PieceWriter writer;
    writer.addNamespace(XmlNamespace("p", ""));
    writer.writeElementStart(XmlName("a"), {}, true, XmlName("t"));
    EXPECT_EQ(writer.text(), "<a" + xsiDeclaration + " xsi:type=\"p:t\"/>");
}

TEST(XmlWriter, ATypeReplacesAGivenXsiTypeInItsPlace) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x"), "1");
    attributes.add(XmlName("type", XmlNamespace("i", xsi)), "old");
    attributes.add(XmlName("y"), "2");
    EXPECT_EQ(typed(XmlName("t"), XmlName("a"), attributes),
              "<a xmlns:i=\"" + xsi + "\" x=\"1\" i:type=\"t\" y=\"2\"/>");
}

TEST(XmlWriter, AGivenXsiTypeStaysWithoutAType) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("type", XmlNamespace::getXsi()), "old");
    EXPECT_EQ(typed(XmlName(), XmlName("a"), attributes),
              "<a" + xsiDeclaration + " xsi:type=\"old\"/>");
}

TEST(XmlWriter, TheTypeAttributeComesBehindTheGivenOnes) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x"), "1");
    EXPECT_EQ(typed(XmlName("t"), XmlName("a"), attributes),
              "<a" + xsiDeclaration + " x=\"1\" xsi:type=\"t\"/>");
}

TEST(XmlWriter, TheTypeOfXsiUsesAPrefixInScope) {
    PieceWriter writer;
    writer.addNamespace(XmlNamespace("i", xsi));
    writer.writeElementStart(XmlName("a"), {}, true, XmlName("t"));
    EXPECT_EQ(writer.text(), "<a i:type=\"t\"/>");
}

TEST(XmlWriter, TheTypeAttributeIsEscapedByDefault) {
    EXPECT_EQ(typed(XmlName("a<b")), "<a" + xsiDeclaration + " xsi:type=\"a&lt;b\"/>");
}

// ---- simple elements ----

TEST(XmlWriter, SimpleElementIsStartTextAndEnd) {
    PieceWriter writer;
    writer.writeSimpleElement(XmlName("a", XmlNamespace("p", "u")), std::string("<v>"),
                              std::string(), false);
    EXPECT_EQ(writer.text(), "<p:a xmlns:p=\"u\">&lt;v&gt;</p:a>");
    EXPECT_EQ(writer.getNamespaceStack().depth(), 1u);
}

TEST(XmlWriter, SimpleElementWithAnEmptyValueIsEmpty) {
    PieceWriter writer;
    writer.writeSimpleElement("a", "", "", false);
    EXPECT_EQ(writer.text(), "<a/>");
    EXPECT_EQ(writer.getNamespaceStack().depth(), 1u);
}

TEST(XmlWriter, SimpleElementEndsItsLine) {
    PieceWriter writer;
    writer.setIgnoreWhitespace(false);
    writer.writeSimpleElement("a", "v", "", false);
    writer.writeSimpleElement("b", "", "", false);
    EXPECT_EQ(writer.text(), "<a>v</a>\n<b/>\n");
}

TEST(XmlWriter, SimpleElementWritesItsAttributes) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x"), "1");
    PieceWriter writer;
    writer.writeSimpleElement("a", "v", "", false, attributes);
    writer.writeSimpleElement("b", "", "", false, attributes);
    EXPECT_EQ(writer.text(), "<a x=\"1\">v</a><b x=\"1\"/>");
}

TEST(XmlWriter, SimpleElementEscapesItsTextAsToldAndItsAttributesByDefault) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x"), "<&amp;");
    const XmlName a("a");
    const XmlName noType;
    for (const bool byDefault : {true, false}) {
        const std::string tag = byDefault ? "<a x=\"&lt;&amp;\">" : "<a x=\"<&amp;\">";
        EXPECT_EQ(written([&](XmlWriter& w) {
                      w.setMustEscapeTextDefault(byDefault);
                      w.writeSimpleElement(a, "<&amp;", 6, noType, true, false, attributes);
                      w.writeSimpleElement(a, "<&amp;", 6, noType, false, false, attributes);
                  }),
                  tag + "&lt;&amp;amp;</a>" + tag + "<&amp;</a>");
    }
}

TEST(XmlWriter, ASimpleElementIsIndentedOnce) {
    EXPECT_EQ(written([](XmlWriter& w) {
                  w.setIgnoreWhitespace(false);
                  w.writeElementStart(XmlName("r"));
                  w.incrementIndent();
                  w.writeNewLine();
                  simple(w, XmlName("a"));
                  simple(w, XmlName("a"));
                  w.writeElementStart(XmlName("b"), {}, true);
              }),
              "<r>\n  <a>v</a>\n  <a>v</a>\n  <b/>");
}

TEST(XmlWriter, SimpleElementWithATextTypeWritesItAsItIs) {
    PieceWriter writer;
    writer.writeSimpleElement("a", "v", "any:thing", true);
    EXPECT_EQ(writer.text(), "<a" + xsiDeclaration + " xsi:type=\"any:thing\">v</a>");
}

TEST(XmlWriter, ATypeGivenAsTextIsAnAttributeValueLikeOthers) {
    const auto typed = [](bool escape) {
        return written([escape](XmlWriter& writer) {
            writer.setMustEscapeTextDefault(escape);
            writer.writeSimpleElement(XmlName("a"), "v", std::string("a<b&c"), true);
        });
    };
    EXPECT_EQ(typed(true), "<a" + xsiDeclaration + " xsi:type=\"a&lt;b&amp;c\">v</a>");
    EXPECT_EQ(typed(false), "<a" + xsiDeclaration + " xsi:type=\"a<b&c\">v</a>");
}

TEST(XmlWriter, TheTypeFollowsTheNamespaceOfInstances) {
    const XmlNamespace before = XmlNamespace::getXsi();
    XmlNamespace::getXsi() = XmlNamespace("i", "urn:instances");
    PieceWriter writer;
    writer.writeElementStart(XmlName("a"), XmlAttributeSet(), true, XmlName("t"));
    XmlNamespace::getXsi() = before;
    EXPECT_EQ(writer.text(), "<a xmlns:i=\"urn:instances\" i:type=\"t\"/>");
}

TEST(XmlWriter, SimpleElementWithATextTypeReplacesAGivenXsiType) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("type", XmlNamespace("i", xsi)), "old");
    PieceWriter writer;
    writer.writeSimpleElement("a", "v", "new", true, attributes);
    EXPECT_EQ(writer.text(), "<a xmlns:i=\"" + xsi + "\" i:type=\"new\">v</a>");
    EXPECT_EQ(attributes.findValueByName("type", false), "") << "the set given stays as it is";
    EXPECT_EQ(attributes.getIteratorBegin()->getValue(), "old");
}

TEST(XmlWriter, SimpleElementWithAnEmptyTextTypeInUseWritesAnEmptyType) {
    PieceWriter writer;
    writer.writeSimpleElement("a", "v", "", true);
    EXPECT_EQ(writer.text(), "<a" + xsiDeclaration + " xsi:type=\"\">v</a>");
}

// Each row once with the type in use and once without, once with attributes and once without.
// The value is '<' twice, the length given is 1 where there is one; `escape` of -1 means that the
// overload doesn't take it.
TEST(XmlWriter, EverySimpleElementOverloadWritesItsElement) {
    const XmlName n("n", XmlNamespace("p", "u"));
    const std::string s = "s";
    const char* data = "<<";
    const std::string text = "<";
    const XmlName type("t", XmlNamespace("p", "u"));
    const std::string typeText = "tt";
    using Set = XmlAttributeSet;
    using Writer = XmlWriter;
    const struct {
        const char* what;
        std::function<void(Writer&, bool escape, bool useType, const Set*)> action;
        bool byName;
        bool typeByName;
        bool takesEscape;
    } rows[] = {
        {"name, data, name, escape",
         [&](Writer& w, bool e, bool t, const Set* a) {
             a != nullptr ? w.writeSimpleElement(n, data, 1, type, e, t, *a)
                          : w.writeSimpleElement(n, data, 1, type, e, t);
         },
         true, true, true},
        {"name, data, text, escape",
         [&](Writer& w, bool e, bool t, const Set* a) {
             a != nullptr ? w.writeSimpleElement(n, data, 1, typeText, e, t, *a)
                          : w.writeSimpleElement(n, data, 1, typeText, e, t);
         },
         true, false, true},
        {"text, data, text, escape",
         [&](Writer& w, bool e, bool t, const Set* a) {
             a != nullptr ? w.writeSimpleElement(s, data, 1, typeText, e, t, *a)
                          : w.writeSimpleElement(s, data, 1, typeText, e, t);
         },
         false, false, true},
        {"name, text, name",
         [&](Writer& w, bool, bool t, const Set* a) {
             a != nullptr ? w.writeSimpleElement(n, text, type, t, *a)
                          : w.writeSimpleElement(n, text, type, t);
         },
         true, true, false},
        {"name, text, text, escape",
         [&](Writer& w, bool e, bool t, const Set* a) {
             a != nullptr ? w.writeSimpleElement(n, text, typeText, e, t, *a)
                          : w.writeSimpleElement(n, text, typeText, e, t);
         },
         true, false, true},
        {"text, text, text, escape",
         [&](Writer& w, bool e, bool t, const Set* a) {
             a != nullptr ? w.writeSimpleElement(s, text, typeText, e, t, *a)
                          : w.writeSimpleElement(s, text, typeText, e, t);
         },
         false, false, true},
        {"name, data, name",
         [&](Writer& w, bool, bool t, const Set* a) {
             a != nullptr ? w.writeSimpleElement(n, data, 1, type, t, *a)
                          : w.writeSimpleElement(n, data, 1, type, t);
         },
         true, true, false},
        {"name, data, text",
         [&](Writer& w, bool, bool t, const Set* a) {
             a != nullptr ? w.writeSimpleElement(n, data, 1, typeText, t, *a)
                          : w.writeSimpleElement(n, data, 1, typeText, t);
         },
         true, false, false},
        {"text, data, text",
         [&](Writer& w, bool, bool t, const Set* a) {
             a != nullptr ? w.writeSimpleElement(s, data, 1, typeText, t, *a)
                          : w.writeSimpleElement(s, data, 1, typeText, t);
         },
         false, false, false},
        {"name, text, text",
         [&](Writer& w, bool, bool t, const Set* a) {
             a != nullptr ? w.writeSimpleElement(n, text, typeText, t, *a)
                          : w.writeSimpleElement(n, text, typeText, t);
         },
         true, false, false},
        {"text, text, text",
         [&](Writer& w, bool, bool t, const Set* a) {
             a != nullptr ? w.writeSimpleElement(s, text, typeText, t, *a)
                          : w.writeSimpleElement(s, text, typeText, t);
         },
         false, false, false},
    };
    XmlAttributeSet attributes;
    attributes.add(XmlName("x"), "1");
    for (const auto& row : rows) {
        for (int bits = 0; bits < 16; ++bits) {
            const bool escape = (bits & 1) != 0;
            const bool useType = (bits & 2) != 0;
            const bool withAttributes = (bits & 4) != 0;
            const bool escapeDefault = (bits & 8) != 0;
            std::string expected = row.byName ? "<p:n xmlns:p=\"u\"" : "<s";
            expected += useType ? xsiDeclaration : "";
            expected += withAttributes ? " x=\"1\"" : "";
            if (useType) {
                expected += row.typeByName ? " xsi:type=\"p:t\"" : " xsi:type=\"tt\"";
            }
            expected += (row.takesEscape ? escape : escapeDefault) ? ">&lt;" : "><";
            expected += row.byName ? "</p:n>" : "</s>";
            PieceWriter writer;
            writer.setMustEscapeTextDefault(escapeDefault);
            row.action(writer, escape, useType, withAttributes ? &attributes : nullptr);
            EXPECT_EQ(writer.text(), expected) << row.what << ", " << bits;
        }
    }
}

TEST(XmlWriter, SimpleElementsTakeLiterals) {
    EXPECT_EQ(written([](XmlWriter& w) {
                  w.writeSimpleElement(XmlName("a"), "<<", 1, "t", true, false);
                  w.writeSimpleElement("b", "<<", 1, "t", true, false);
                  w.writeSimpleElement(XmlName("c"), "<", "t", true, false);
                  w.writeSimpleElement("d", "<", "t", true, false);
                  w.writeSimpleElement(XmlName("e"), "<<", 1, "t", false);
                  w.writeSimpleElement("f", "<<", 1, "t", false);
                  w.writeSimpleElement(XmlName("g"), "<", "t", false);
                  w.writeSimpleElement("h", "<", "t", false);
                  w.writeSimpleElement(XmlName("i"), "<", XmlName("t"), false);
                  w.writeSimpleElement(XmlName("j"), "<<", 1, XmlName("t"), false);
                  w.writeSimpleElement(XmlName("k"), "", 0, XmlName("t"), true, false);
              }),
              "<a>&lt;</a><b>&lt;</b><c>&lt;</c><d>&lt;</d><e>&lt;</e><f>&lt;</f><g>&lt;</g>"
              "<h>&lt;</h><i>&lt;</i><j>&lt;</j><k/>");
}

TEST(XmlWriter, SimpleElementOfNoLengthIsEmptyWhateverTheData) {
    const unsigned int length = 0;
    EXPECT_EQ(written([&](XmlWriter& w) {
                  w.writeSimpleElement("a", "text", length, "", false);
                  w.writeSimpleElement("b", nullptr, length, "", false);
              }),
              "<a/><b/>");
}

// ---- pieces, failures, copies ----

TEST(XmlWriter, ATagIsOnePieceAndEachAttributeOneMore) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x"), "1");
    attributes.add(XmlName("y"), "2");
    PieceWriter writer;
    const XmlName a("a", XmlNamespace("p", "u"));
    writer.writeElementStart(a, attributes);
    writer.writeElementStart(XmlName("b"));
    writer.write("text");
    writer.writeElementEnd(XmlName("b"));
    writer.writeElementStart(XmlName("c"), {}, true);
    writer.writeElementEnd(a);
    EXPECT_EQ(writer.pieces, (Pieces{"<p:a xmlns:p=\"u\"", " x=\"1\"", " y=\"2\"", ">", "<b>",
                                     "text", "</b>", "<c/>", "</p:a>"}));
}

TEST(XmlWriter, ExceptionsOfTheSinkPassThrough) {
    XmlAttributeSet attributes;
    attributes.add(XmlName("x"), std::string(3000, '&'));
    for (std::size_t failAt = 0;; ++failAt) {
        PieceWriter writer;
        writer.failAt = failAt;
        try {
            writer.writeElementStart(XmlName("a"), attributes);
            writer.write(std::string(3000, '<'));
            writer.writeElementEnd(XmlName("a"));
            EXPECT_EQ(failAt, 5u) << "start, attribute, '>', text, end";
            break;
        } catch (const std::runtime_error& e) {
            EXPECT_STREQ(e.what(), "sink");
            EXPECT_EQ(writer.pieces.size(), failAt);
        }
    }
}

TEST(XmlWriter, ACopyTakesSettingsScopesAndDeclarations) {
    PieceWriter writer;
    writer.setSizeOfIndent(3);
    writer.setIgnoreWhitespace(false);
    writer.setMustEscapeTextDefault(false);
    writer.incrementIndent();
    writer.addNamespaceDecl(XmlNamespace("q", "v"));
    writer.addNamespace(XmlNamespace("p", "u"));
    writer.writeNewLine();
    const auto check = [](PieceWriter& copy) {
        copy.pieces.clear();
        copy.writeElementStart(XmlName("a", XmlNamespace("", "z")));
        copy.write("<");
        copy.writeElementStart(XmlName("b", XmlNamespace("other", "u")), {}, true);
        EXPECT_EQ(copy.text(), "   <a xmlns=\"z\" xmlns:q=\"v\"><<p:b/>");
        EXPECT_EQ(copy.setSizeOfIndent(1), 3);
    };
    PieceWriter copy(writer);
    check(copy);
    PieceWriter assigned;
    assigned.writeElementStart(XmlName("x", XmlNamespace("y", "z")));
    assigned = writer;
    check(assigned);
    EXPECT_EQ(writer.getNamespaceStack().depth(), 1u) << "the original is left alone";
    check(writer);
}

// What a writer remembers of its look-ups is about its own scopes.
TEST(XmlWriter, ACopyOutlivesWhatItsOriginalRemembered) {
    const XmlName outer("a", XmlNamespace("p", "urn:a-namespace"));
    auto original = std::make_unique<XmlStringWriter>();
    original->writeElementStart(outer);
    original->writeElementStart(outer, XmlAttributeSet(), true);
    XmlStringWriter copy(*original);
    original->writeElementEnd(outer);
    original.reset();
    copy.writeElementStart(XmlName("b"));
    copy.addNamespace(XmlNamespace("q", "urn:a-namespace"));
    copy.writeElementStart(outer, XmlAttributeSet(), true);
    copy.writeElementEnd(XmlName("b"));
    copy.writeElementStart(outer, XmlAttributeSet(), true);
    EXPECT_EQ(copy.getString(), "<p:a xmlns:p=\"urn:a-namespace\"><p:a/><b><q:a/></b><p:a/>");
}

TEST(XmlWriter, AssignmentToItselfDoesNothing) {
    PieceWriter writer;
    writer.addNamespace(XmlNamespace("p", "u"));
    const PieceWriter& same = writer;
    writer = same;
    writer.writeElementStart(XmlName("a", XmlNamespace("q", "u")), {}, true);
    EXPECT_EQ(writer.text(), "<p:a/>");
}

TEST(XmlWriter, FlushIsTheSinks) {
    PieceWriter writer;
    static_cast<XmlWriter&>(writer).flush();
    EXPECT_EQ(writer.flushes, 1);
}

}  // namespace
}  // namespace nolk
