// What is left when memory runs out, allocation by allocation.

#include <nolk/core/XmlAttributeSet.h>
#include <nolk/core/XmlNamespaceStack.h>
#include <nolk/core/XmlReaderAttributeList.h>
#include <nolk/core/XmlStringWriter.h>

#include "support/FailingAllocation.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace nolk {
namespace {

using test::failEachAllocation;
using test::FailingAllocation;

// Long enough that no copy of it fits into a string object.
std::string longText(char c) {
    return std::string(60, c);
}

XmlNamespace longNamespace(char c) {
    return XmlNamespace(longText(c), longText(c) + "/uri");
}

XmlName longName(char c) {
    return XmlName(longText(c), longNamespace(c));
}

std::string dump(const XmlAttributeSet& set) {
    std::string text;
    for (auto it = set.getIteratorBegin(); it != set.getIteratorEnd(); ++it) {
        text += it->getName().getUniqueName() + "=" + it->getValue() + "\n";
    }
    return text;
}

XmlAttributeSet sample(char from) {
    XmlAttributeSet set;
    set.add(longName(from), longText(from));
    set.add(longName(static_cast<char>(from + 1)), longText(from));
    return set;
}

XmlStringWriter sampleWriter() {
    XmlStringWriter writer(64);
    writer.addNamespaceDecl(longNamespace('d'));
    writer.writeElementStart(longName('e'), sample('a'));
    writer.write(longText('<'), true);
    return writer;
}

TEST(XmlAllocation, AttributeSetAddIsAllOrNothing) {
    XmlAttributeSet set = sample('a');
    const std::string before = dump(set);
    const unsigned long tries = failEachAllocation([&] { set.add(longName('x'), longText('v')); },
                                                   [&] { EXPECT_EQ(dump(set), before); });
    EXPECT_GT(tries, 0u);
    EXPECT_EQ(set.entries(), 3u);
}

TEST(XmlAllocation, AnAttributeOfShortTextsIsOneAllocation) {
    const XmlName name("id", XmlNamespace("p", "u"));
    const std::string value = "1";
    XmlAttributeSet set;
    const long before = FailingAllocation::made();
    set.add(name, value);
    EXPECT_EQ(FailingAllocation::made(), before + 1);
    set.add(name, value);
    EXPECT_EQ(FailingAllocation::made(), before + 1);
}

TEST(XmlAllocation, AddToALargeAttributeSetIsAllOrNothing) {
    for (const std::size_t entries : {63u, 64u, 65u, 200u}) {
        XmlAttributeSet set;
        for (std::size_t i = 0; i < entries; ++i) {
            set.add(XmlName(longText('n') + std::to_string(i)), longText('v'));
        }
        const std::string before = dump(set);
        const unsigned long tries =
            failEachAllocation([&] { set.add(longName('x'), longText('v')); },
                               [&] {
                                   EXPECT_EQ(dump(set), before);
                                   EXPECT_FALSE(set.contains(longName('x')));
                               });
        EXPECT_GT(tries, 1u);
        EXPECT_EQ(set.entries(), entries + 1);
        EXPECT_TRUE(set.contains(longName('x')));
    }
}

TEST(XmlAllocation, AttributeSetReplacementIsAllOrNothing) {
    XmlAttributeSet set = sample('a');
    const std::string before = dump(set);
    const unsigned long tries = failEachAllocation([&] { set.add(longName('a'), longText('v')); },
                                                   [&] { EXPECT_EQ(dump(set), before); });
    EXPECT_GT(tries, 0u);
    EXPECT_EQ(set.entries(), 2u);
    EXPECT_EQ(set.getIteratorBegin()->getValue(), longText('v'));
}

TEST(XmlAllocation, AttributeSetAssignmentIsAllOrNothing) {
    XmlAttributeSet set = sample('a');
    const XmlAttributeSet other = sample('k');
    const std::string before = dump(set);
    const unsigned long tries =
        failEachAllocation([&] { set = other; }, [&] { EXPECT_EQ(dump(set), before); });
    EXPECT_GT(tries, 0u);
    EXPECT_EQ(dump(set), dump(other));
}

TEST(XmlAllocation, AttributeSetCopyLeaksNothing) {
    const XmlAttributeSet set = sample('a');
    const long before = FailingAllocation::live();
    const unsigned long tries =
        failEachAllocation([&] { const XmlAttributeSet copy(set); },
                           [&] { EXPECT_EQ(FailingAllocation::live(), before); });
    EXPECT_GT(tries, 0u);
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST(XmlAllocation, NamespaceStackCopyAndAssignmentAreAllOrNothing) {
    XmlNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(longNamespace('a'));
    stack.pushScope();
    stack.addNamespace(longNamespace('b'));
    const long before = FailingAllocation::live();
    const unsigned long copies =
        failEachAllocation([&] { const XmlNamespaceStack copy(stack); },
                           [&] { EXPECT_EQ(FailingAllocation::live(), before); });
    EXPECT_GT(copies, 0u);
    XmlNamespaceStack other;
    other.pushScope();
    other.addNamespace(longNamespace('o'));
    const unsigned long assignments = failEachAllocation(
        [&] { other = stack; },
        [&] {
            EXPECT_EQ(other.depth(), 1u);
            EXPECT_EQ(other.getURIForPrefix(longText('o')), longText('o') + "/uri");
        });
    EXPECT_GT(assignments, 0u);
    EXPECT_TRUE(other == stack);
}

TEST(XmlAllocation, NamespaceStackPushAndAddAreAllOrNothing) {
    XmlNamespaceStack stack;
    const unsigned long pushes =
        failEachAllocation([&] { stack.pushScope(); }, [&] { EXPECT_EQ(stack.depth(), 0u); });
    EXPECT_GT(pushes, 0u);
    EXPECT_EQ(stack.depth(), 1u);
    const unsigned long adds = failEachAllocation(
        [&] { stack.addNamespace(longNamespace('a')); },
        [&] { EXPECT_TRUE(stack.getNamespaceIteratorBegin() == stack.getNamespaceIteratorEnd()); });
    EXPECT_GT(adds, 0u);
    EXPECT_EQ(stack.getURIForPrefix(longText('a')), longText('a') + "/uri");
}

TEST(XmlAllocation, StringWriterGrowthLosesNothing) {
    XmlStringWriter writer(8);
    writer.writeToSink("12345678", 8);
    const auto unchanged = [&] {
        EXPECT_EQ(writer.getString(), "12345678");
        EXPECT_EQ(writer.getBufferLength(), 8u);
    };
    EXPECT_EQ(failEachAllocation([&] { writer.resize(8); }, unchanged), 1u);
    EXPECT_EQ(failEachAllocation([&] { writer.writeToSink('9'); }, unchanged), 1u);
    EXPECT_EQ(writer.getString(), "123456789");
    writer.resize(9);
    EXPECT_EQ(failEachAllocation([&] { writer.writeToSink("abc", 3); },
                                 [&] {
                                     EXPECT_EQ(writer.getString(), "123456789");
                                     EXPECT_EQ(writer.getBufferLength(), 9u);
                                 }),
              1u);
    EXPECT_EQ(writer.getString(), "123456789abc");
}

TEST(XmlAllocation, StringWriterCopyLeaksNothing) {
    const XmlStringWriter writer = sampleWriter();
    const long before = FailingAllocation::live();
    const unsigned long tries =
        failEachAllocation([&] { const XmlStringWriter copy(writer); },
                           [&] { EXPECT_EQ(FailingAllocation::live(), before); });
    EXPECT_GT(tries, 3u);
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST(XmlAllocation, StringWriterAssignmentIsAllOrNothing) {
    const XmlStringWriter writer = sampleWriter();
    XmlStringWriter other(16);
    other.addNamespace(longNamespace('o'));
    other.write("other", false);
    const XmlName name("x", XmlNamespace("p", longText('o') + "/uri"));
    const unsigned long tries = failEachAllocation(
        [&] { other = writer; },
        [&] {
            EXPECT_EQ(other.getString(), "other");
            EXPECT_EQ(other.getBufferLength(), 16u);
            EXPECT_EQ(other.getNamespaceStack().depth(), 1u);
            EXPECT_EQ(other.getNamespaceStack().getPrefixForURI(longText('o') + "/uri"),
                      longText('o'));
        });
    EXPECT_GT(tries, 3u);
    EXPECT_EQ(other.getString(), writer.getString());
    EXPECT_TRUE(other.getNamespaceStack() == writer.getNamespaceStack());
}

TEST(XmlAllocation, WritingADocumentEndsInBadAllocAndLeaksNothing) {
    const auto document = [] {
        XmlStringWriter writer(0);
        const XmlName root = longName('r');
        XmlAttributeSet attributes = sample('a');
        attributes.addNamespaceAttribute(longNamespace('n'));
        writer.addNamespaceDecl(longNamespace('d'));
        writer.writeElementStart(root, attributes, false, longName('t'));
        writer.writeSimpleElement(longName('s'), std::string(3000, '&'), "type", true, attributes);
        writer.writeAttribute(longName('x'), std::string(3000, '"'));
        writer.writeElementEnd(root);
        return writer.getLength();
    };
    document();  // the shared instances are made once and for all
    const long before = FailingAllocation::live();
    const unsigned long tries = failEachAllocation(
        [&] { document(); }, [&] { EXPECT_EQ(FailingAllocation::live(), before); });
    EXPECT_GT(tries, 10u);
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST(XmlAllocation, WritingShortElementsAllocatesNothingOnceWarm) {
    XmlStringWriter writer(1 << 16);
    const XmlName root("root", XmlNamespace("p", "urn:example:namespace:of:some:length"));
    const XmlName item("item", XmlNamespace("p", "urn:example:namespace:of:some:length"));
    const XmlName value("value");
    const std::string text = "3 < 4 & 5 > 2, as everybody knows";
    XmlAttributeSet attributes;
    attributes.add(XmlName("id"), "a\"b");
    const auto element = [&] {
        writer.writeElementStart(item, attributes);
        writer.writeElementStart(value);
        writer.write(text);
        writer.writeElementEnd(value);
        writer.writeElementStart(value, attributes, true);
        writer.writeSimpleElement(item, text, XmlName(), false, attributes);
        writer.writeElementEnd(item);
    };
    writer.writeElementStart(root);
    element();
    const long before = FailingAllocation::made();
    for (int i = 0; i < 100; ++i) {
        element();
    }
    EXPECT_EQ(FailingAllocation::made(), before);
}

TEST(XmlAllocation, LookingNamesUpAllocatesNothing) {
    const XmlAttributeSet set = sample('a');
    const XmlName name = longName('a');
    const std::string localName = longText('z');
    XmlNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(longNamespace('a'));
    const std::string prefix = longText('a');
    const long before = FailingAllocation::made();
    const bool found = set.contains(name) && set.equalTo(set, XmlAttributeSet::NamesAndValues) &&
                       set.findValueByName(localName, false).empty() && !name.isNull() &&
                       name == set.getIteratorBegin()->getName() && stack == stack &&
                       !stack.getURIForPrefix(prefix).empty() && nolkXmlNameHash(name) != 0 &&
                       set.getDefaultNamespaceAttribute().empty() &&
                       !XmlNamespace::matchXsi(name.getNamespace());
    const long after = FailingAllocation::made();
    EXPECT_TRUE(found);
    EXPECT_EQ(after, before);
}

TEST(XmlAllocation, ReadingAttributesIntoASetAgainAllocatesNothing) {
    const std::string uri = longText('u');
    const std::string local = longText('l');
    const auto view = [](const std::string& text) {
        return XmlReaderString{text.data(), static_cast<std::uint32_t>(text.size())};
    };
    XmlReaderAttributeList list;
    list.append(XmlReaderAttribute{{view(local), view(local), view(uri)}, view(uri)});
    list.append(XmlReaderAttribute{{view(uri), view(local), view(uri)}, view(local)});
    XmlAttributeSet set;
    set.assign(list);
    const long before = FailingAllocation::made();
    set.assign(list);
    EXPECT_EQ(FailingAllocation::made(), before);
    EXPECT_EQ(set.entries(), 2u);
}

}  // namespace
}  // namespace nolk
