#include <nolk/core/XmlStringWriter.h>

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace nolk {
namespace {

constexpr unsigned int largest = std::numeric_limits<unsigned int>::max();

void send(XmlStringWriter& writer, const std::string& text) {
    writer.writeToSink(text.data(), static_cast<unsigned int>(text.size()));
}

TEST(XmlStringWriter, StartsWith4096Bytes) {
    const XmlStringWriter writer;
    EXPECT_EQ(writer.getBufferLength(), 4096u);
    EXPECT_EQ(writer.getLength(), 0u);
    EXPECT_EQ(writer.getString(), "");
}

TEST(XmlStringWriter, StartsWithTheSizeGiven) {
    EXPECT_EQ(XmlStringWriter(1).getBufferLength(), 1u);
    EXPECT_EQ(XmlStringWriter(100).getBufferLength(), 100u);
}

TEST(XmlStringWriter, OfSizeZeroHasNoBuffer) {
    const XmlStringWriter writer(0);
    EXPECT_EQ(writer.getBufferLength(), 0u);
    EXPECT_EQ(writer.getLength(), 0u);
    EXPECT_EQ(writer.getString(), "");
}

TEST(XmlStringWriter, OfSizeZeroAllocatesAtTheFirstWrite) {
    XmlStringWriter byChar(0);
    byChar.writeToSink('a');
    EXPECT_EQ(byChar.getBufferLength(), 4096u);
    EXPECT_EQ(byChar.getString(), "a");
    XmlStringWriter byText(0);
    send(byText, "abc");
    EXPECT_EQ(byText.getBufferLength(), 4096u);
    EXPECT_EQ(byText.getString(), "abc");
    XmlStringWriter byLongText(0);
    send(byLongText, std::string(3000, 'a'));
    EXPECT_EQ(byLongText.getBufferLength(), 6000u);
}

TEST(XmlStringWriter, AppendsInOrder) {
    XmlStringWriter writer;
    writer.writeToSink('a');
    send(writer, "bc");
    send(writer, std::string("d\0e", 3));
    EXPECT_EQ(writer.getString(), std::string("abcd\0e", 6));
    EXPECT_EQ(writer.getLength(), 6u);
}

TEST(XmlStringWriter, NullDataOrNoLengthDoNothing) {
    XmlStringWriter writer(0);
    writer.writeToSink(nullptr, 5);
    writer.writeToSink("abc", 0);
    writer.writeToSink(nullptr, 0);
    EXPECT_EQ(writer.getLength(), 0u);
    EXPECT_EQ(writer.getBufferLength(), 0u);
}

TEST(XmlStringWriter, TextThatFitsExactlyDoesNotGrow) {
    XmlStringWriter writer(10);
    send(writer, "1234567");
    send(writer, "890");
    EXPECT_EQ(writer.getBufferLength(), 10u);
    EXPECT_EQ(writer.getString(), "1234567890");
}

TEST(XmlStringWriter, GrowthByTextIsTwiceCapacityAndTextButAtLeast4096) {
    const struct {
        unsigned int capacity;
        unsigned int used;
        unsigned int added;
        unsigned int grown;
    } rows[] = {
        {10, 10, 1, 4096},        {10, 8, 3, 4096},          {1000, 1000, 1048, 4096},
        {1000, 1000, 1049, 4098}, {2048, 2048, 1, 4098},     {2047, 2047, 1, 4096},
        {4096, 4096, 1, 8194},    {4096, 4000, 1000, 10192}, {100, 0, 5000, 10200},
    };
    for (const auto& row : rows) {
        XmlStringWriter writer(row.capacity);
        send(writer, std::string(row.used, 'a'));
        ASSERT_EQ(writer.getBufferLength(), row.capacity);
        send(writer, std::string(row.added, 'b'));
        EXPECT_EQ(writer.getBufferLength(), row.grown) << row.capacity << " " << row.added;
        EXPECT_EQ(writer.getString(), std::string(row.used, 'a') + std::string(row.added, 'b'));
    }
}

TEST(XmlStringWriter, GrowthByOneByteDoublesButIsAtLeast4096) {
    const struct {
        unsigned int capacity;
        unsigned int grown;
    } rows[] = {{1, 4096}, {2047, 4096}, {2048, 4096}, {2049, 4098}, {4096, 8192}, {5000, 10000}};
    for (const auto& row : rows) {
        XmlStringWriter writer(row.capacity);
        send(writer, std::string(row.capacity, 'a'));
        ASSERT_EQ(writer.getBufferLength(), row.capacity);
        writer.writeToSink('b');
        EXPECT_EQ(writer.getBufferLength(), row.grown) << row.capacity;
        EXPECT_EQ(writer.getString(), std::string(row.capacity, 'a') + 'b');
    }
}

TEST(XmlStringWriter, TooMuchTextFailsAndLosesNothing) {
    XmlStringWriter writer(32);
    send(writer, "0123456789abcdef");
    // The text is never read: its length alone decides.
    EXPECT_THROW(writer.writeToSink("", largest), std::length_error);
    EXPECT_THROW(writer.writeToSink("", largest - 15), std::length_error);
    EXPECT_EQ(writer.getString(), "0123456789abcdef");
    EXPECT_EQ(writer.getBufferLength(), 32u);
}

TEST(XmlStringWriter, ResizeKeepsWhatFits) {
    XmlStringWriter writer(10);
    send(writer, "abcdef");
    writer.resize(100);
    EXPECT_EQ(writer.getBufferLength(), 100u);
    EXPECT_EQ(writer.getString(), "abcdef");
    writer.resize(6);
    EXPECT_EQ(writer.getBufferLength(), 6u);
    EXPECT_EQ(writer.getString(), "abcdef");
    writer.resize(4);
    EXPECT_EQ(writer.getBufferLength(), 4u);
    EXPECT_EQ(writer.getLength(), 4u);
    EXPECT_EQ(writer.getString(), "abcd");
}

TEST(XmlStringWriter, ResizeToZeroFreesTheBuffer) {
    XmlStringWriter writer(10);
    send(writer, "abcdef");
    writer.resize(0);
    EXPECT_EQ(writer.getBufferLength(), 0u);
    EXPECT_EQ(writer.getLength(), 0u);
    EXPECT_EQ(writer.getString(), "");
    send(writer, "x");
    EXPECT_EQ(writer.getBufferLength(), 4096u);
    EXPECT_EQ(writer.getString(), "x");
}

TEST(XmlStringWriter, ResizeOfNoBufferAllocatesOne) {
    XmlStringWriter writer(0);
    writer.resize(5);
    EXPECT_EQ(writer.getBufferLength(), 5u);
    EXPECT_EQ(writer.getLength(), 0u);
    writer.resize(0);
    writer.resize(0);
    EXPECT_EQ(writer.getBufferLength(), 0u);
}

TEST(XmlStringWriter, RemoveLastCharTakesBackTheByteAskedFor) {
    XmlStringWriter writer;
    send(writer, "ab,,");
    writer.removeLastCharFromSink(',');
    EXPECT_EQ(writer.getString(), "ab,");
    writer.removeLastCharFromSink(';');
    EXPECT_EQ(writer.getString(), "ab,");
    writer.removeLastCharFromSink(',');
    writer.removeLastCharFromSink(',');
    EXPECT_EQ(writer.getString(), "ab");
    EXPECT_EQ(writer.getBufferLength(), 4096u);
}

TEST(XmlStringWriter, RemoveLastCharOfNothingChangesNothing) {
    XmlStringWriter writer;
    writer.removeLastCharFromSink('a');
    XmlStringWriter none(0);
    none.removeLastCharFromSink('\0');
    EXPECT_EQ(writer.getLength(), 0u);
    EXPECT_EQ(none.getLength(), 0u);
}

TEST(XmlStringWriter, FlushChangesNothing) {
    XmlStringWriter writer;
    send(writer, "abc");
    writer.flush();
    EXPECT_EQ(writer.getString(), "abc");
    EXPECT_EQ(writer.getBufferLength(), 4096u);
}

TEST(XmlStringWriter, CopiesHaveABufferOfTheirOwn) {
    XmlStringWriter writer(10);
    send(writer, "abc");
    XmlStringWriter copy(writer);
    EXPECT_EQ(copy.getString(), "abc");
    EXPECT_EQ(copy.getBufferLength(), 10u);
    send(copy, "d");
    writer.removeLastCharFromSink('c');
    EXPECT_EQ(copy.getString(), "abcd");
    EXPECT_EQ(writer.getString(), "ab");
}

TEST(XmlStringWriter, CopiesGoOnWhereTheOriginalStands) {
    const XmlName a("a", XmlNamespace("p", "u"));
    XmlStringWriter writer;
    writer.setIgnoreWhitespace(false);
    writer.setCurrentIndent(2);
    writer.setMustEscapeTextDefault(false);
    writer.writeElementStart(a);
    writer.writeNewLine();
    XmlStringWriter copy(writer);
    copy.write("<");
    copy.writeElementEnd(a);
    EXPECT_EQ(copy.getString(), "<p:a xmlns:p=\"u\">\n  <</p:a>");

    XmlStringWriter declaring;
    declaring.addNamespaceDecl(XmlNamespace("q", "v"));
    XmlStringWriter declared(declaring);
    declared.writeElementStart(XmlName("a"), XmlAttributeSet(), true);
    EXPECT_EQ(declared.getString(), "<a xmlns:q=\"v\"/>");
}

TEST(XmlStringWriter, ACopyOfAWriterWithoutBufferHasNone) {
    const XmlStringWriter writer(0);
    const XmlStringWriter copy(writer);
    EXPECT_EQ(copy.getBufferLength(), 0u);
    EXPECT_EQ(copy.getString(), "");
}

TEST(XmlStringWriter, AssignmentTakesTextAndState) {
    XmlStringWriter writer(10);
    const XmlName a("a", XmlNamespace("p", "u"));
    writer.writeElementStart(a);
    XmlStringWriter other;
    other.write("gone");
    other = writer;
    other.writeElementStart(XmlName("b", XmlNamespace("q", "u")), {}, true);
    EXPECT_EQ(other.getString(), "<p:a xmlns:p=\"u\"><p:b/>");
    EXPECT_EQ(writer.getString(), "<p:a xmlns:p=\"u\">");
}

TEST(XmlStringWriter, AssignmentToItselfDoesNothing) {
    XmlStringWriter writer(10);
    send(writer, "abc");
    const XmlStringWriter& same = writer;
    writer = same;
    EXPECT_EQ(writer.getString(), "abc");
    EXPECT_EQ(writer.getBufferLength(), 10u);
}

using Pieces = std::vector<std::string>;

// A string writer with a sink of its own before the buffer.
class WatchedWriter : public XmlStringWriter {
public:
    void writeToSink(char c) override {
        pieces.emplace_back(1, c);
        XmlStringWriter::writeToSink(c);
    }
    void writeToSink(const char* data, unsigned int length) override {
        pieces.emplace_back(data, length);
        XmlStringWriter::writeToSink(data, length);
    }

    Pieces pieces;
};

void writeOrder(XmlStringWriter& writer) {
    const XmlName order("order", XmlNamespace("o", "urn:shop"));
    const XmlName note("note", XmlNamespace("o", "urn:shop"));
    XmlAttributeSet attributes;
    attributes.add(XmlName("id"), "<7>");
    writer.writeElementStart(order);
    writer.writeElementStart(order, attributes);
    writer.writeSimpleElement(note, "3 < 4", XmlName(), false, attributes);
    writer.writeElementEnd(order);
    writer.writeNewLine();
    writer.writeElementEnd(order);
}

// As writeOrder() sends it with white space on.
const Pieces orderPieces = {"<o:order xmlns:o=\"urn:shop\">",
                            "<o:order",
                            " id=\"&lt;7&gt;\"",
                            ">",
                            "<o:note",
                            " id=\"&lt;7&gt;\"",
                            ">",
                            "3 &lt; 4",
                            "</o:note>",
                            "\n",
                            "</o:order>",
                            "\n",
                            "</o:order>"};

TEST(XmlStringWriter, ADerivedSinkGetsEveryPiece) {
    WatchedWriter writer;
    writer.setIgnoreWhitespace(false);
    writeOrder(writer);
    EXPECT_EQ(writer.pieces, orderPieces);
}

// What is put together in the buffer at once grows it as if it came piece by piece.
TEST(XmlStringWriter, GrowsByThePieceThatDoesNotFit) {
    for (unsigned int room = 0; room <= 200; ++room) {
        XmlStringWriter writer(5000);
        writer.setIgnoreWhitespace(false);
        std::string expected(5000 - room, '#');
        send(writer, expected);
        writeOrder(writer);
        unsigned int capacity = 5000;
        for (const std::string& piece : orderPieces) {
            expected += piece;
            if (expected.size() > capacity) {
                const std::size_t added = piece == "\n" ? 0 : piece.size();
                capacity = 2 * (capacity + static_cast<unsigned int>(added));
            }
        }
        ASSERT_EQ(writer.getString(), expected) << room;
        ASSERT_EQ(writer.getBufferLength(), capacity) << room;
    }
}

// Blocks of every size, so that a sanitizer sees a byte written too far.
TEST(XmlStringWriter, NothingIsWrittenBehindTheBuffer) {
    const struct {
        std::string text;
        bool escape;
        std::string attribute;
        std::string expected;
    } rows[] = {
        {"text", false, "", "<element x=\"\">text</element>"},
        {"\r\r\r\r", true, "", "<element x=\"\">&#xD;&#xD;&#xD;&#xD;</element>"},
        {"&\"'<", true, "", "<element x=\"\">&amp;\"'&lt;</element>"},
        {"v", true, "\"\"\"'", "<element x=\"&quot;&quot;&quot;&apos;\">v</element>"},
    };
    for (const auto& row : rows) {
        XmlAttributeSet attributes;
        attributes.add(XmlName("x"), row.attribute);
        const auto length = static_cast<unsigned int>(row.text.size());
        for (unsigned int size = 1; size <= 100; ++size) {
            XmlStringWriter writer(size);
            writer.writeSimpleElement(XmlName("element"), row.text.data(), length, XmlName(),
                                      row.escape, false, attributes);
            ASSERT_EQ(writer.getString(), row.expected) << size;
        }
    }
}

TEST(XmlStringWriter, WritesADocument) {
    XmlStringWriter writer(16);
    const XmlName order("order", XmlNamespace("", "urn:shop"));
    writer.setIgnoreWhitespace(false);
    writer.writeElementStart(order);
    writer.incrementIndent();
    writer.writeNewLine();
    writer.writeSimpleElement(XmlName("note", XmlNamespace("", "urn:shop")), "3 < 4", "", false);
    writer.decrementIndent();
    writer.writeElementEnd(order);
    EXPECT_EQ(writer.getString(), "<order xmlns=\"urn:shop\">\n  <note>3 &lt; 4</note>\n</order>");
}

}  // namespace
}  // namespace nolk
