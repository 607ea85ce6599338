#include <nolk/core/XmlStringWriter.h>

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>

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
