#include <nolk/core/XmlName.h>
#include <nolk/core/XmlNamespaceStack.h>
#include <nolk/core/XmlReaderAttributeList.h>
#include <nolk/core/XmlReaderNamespaceStack.h>

#include <gtest/gtest.h>

#include <string>

namespace nolk {
namespace {

XmlReaderString v(const char* text) {
    return XmlReaderString::of(text);
}

XmlReaderNamespace binding(const char* prefix, const char* uri) {
    return {v(prefix), v(uri)};
}

XmlReaderAttribute attribute(const char* name, const char* value) {
    return {{v(name), {}, {}}, v(value)};
}

std::string uriOf(const XmlReaderNamespaceStack& stack, const char* prefix) {
    return stack.getURIForPrefix(v(prefix)).asString();
}

std::string prefixOf(const XmlReaderNamespaceStack& stack, const char* uri) {
    return stack.getPrefixForURI(v(uri)).asString();
}

// Namespaces and names.

TEST(XmlReaderNamespace, ItsFieldsArePrefixAndUriInThisOrder) {
    const XmlReaderNamespace ns{v("p"), v("u")};
    EXPECT_EQ(ns.prefix.asString(), "p");
    EXPECT_EQ(ns.uri.asString(), "u");
}

TEST(XmlReaderNamespace, IsEqualByUriWhateverThePrefix) {
    EXPECT_TRUE(binding("p", "u") == binding("q", "u"));
    EXPECT_FALSE(binding("p", "u") != binding("q", "u"));
}

TEST(XmlReaderNamespace, OfAnotherUriIsNotEqualThoughThePrefixIs) {
    EXPECT_FALSE(binding("p", "u") == binding("p", "v"));
    EXPECT_TRUE(binding("p", "u") != binding("p", "v"));
}

TEST(XmlReaderNamespace, BecomesAnOwningNamespaceByCopy) {
    std::string prefix = "p";
    std::string uri = "urn:long enough to live on the heap, not inside the string";
    const std::string wanted = uri;
    const XmlNamespace owning(
        XmlReaderNamespace{XmlReaderString::of(prefix), XmlReaderString::of(uri)});
    prefix.assign("x");
    uri.assign(uri.size(), 'x');
    EXPECT_EQ(owning.getPrefix(), "p");
    EXPECT_EQ(owning.getURI(), wanted);
}

TEST(XmlReaderName, ItsFieldsAreLocalNamePrefixAndUriInThisOrder) {
    const XmlReaderName name{v("a"), v("p"), v("u")};
    EXPECT_EQ(name.localName.asString(), "a");
    EXPECT_EQ(name.prefix.asString(), "p");
    EXPECT_EQ(name.uri.asString(), "u");
}

TEST(XmlReaderName, IsEqualByLocalNameAndUri) {
    const XmlReaderName name{v("a"), v("p"), v("u")};
    EXPECT_TRUE(name == (XmlReaderName{v("a"), v("q"), v("u")}));
    EXPECT_FALSE(name == (XmlReaderName{v("b"), v("p"), v("u")}));
    EXPECT_FALSE(name == (XmlReaderName{v("a"), v("p"), v("v")}));
    EXPECT_TRUE(name != (XmlReaderName{v("a"), v("p"), v("v")}));
}

TEST(XmlReaderName, AsXmlNameCopiesAllThreeParts) {
    std::string text = "local-prefix-uri";
    const XmlReaderName views{{text.data(), 5}, {text.data() + 6, 6}, {text.data() + 13, 3}};
    const XmlName name = views.asXmlName();
    text.assign(text.size(), 'x');
    EXPECT_EQ(name.getLocalName(), "local");
    EXPECT_EQ(name.getNamespace().getPrefix(), "prefix");
    EXPECT_EQ(name.getNamespace().getURI(), "uri");
}

TEST(XmlReaderName, AnEmptyNameBecomesAnEmptyXmlName) {
    EXPECT_TRUE(XmlReaderName().asXmlName().empty());
}

// Lists.

TEST(XmlReaderAttributeList, IsEmptyAtFirst) {
    EXPECT_EQ(XmlReaderAttributeList().length(), 0u);
}

TEST(XmlReaderAttributeList, AppendKeepsTheOrder) {
    XmlReaderAttributeList list;
    list.append(attribute("a", "1"));
    list.append(attribute("b", "2"));
    list.append(attribute("a", "3"));
    ASSERT_EQ(list.length(), 3u);
    EXPECT_EQ(list[0].value.asString(), "1");
    EXPECT_EQ(list[1].name.localName.asString(), "b");
    EXPECT_EQ(list[2].value.asString(), "3");
}

TEST(XmlReaderAttributeList, GrowsBeyondSixteenAndKeepsWhatItHolds) {
    std::vector<std::string> values;
    for (int i = 0; i < 100; ++i) {
        values.push_back(std::to_string(i));
    }
    XmlReaderAttributeList list;
    for (unsigned i = 0; i < 100; ++i) {
        list.append(attribute("a", values[i].c_str()));
        ASSERT_EQ(list.length(), i + 1);
        for (unsigned k = 0; k <= i; ++k) {
            ASSERT_EQ(list[k].value.asString(), values[k]);
        }
    }
}

TEST(XmlReaderAttributeList, ClearOnlyResetsTheCount) {
    XmlReaderAttributeList list;
    list.append(attribute("a", "1"));
    const XmlReaderAttribute* slot = &list[0];
    list.clear();
    EXPECT_EQ(list.length(), 0u);
    EXPECT_EQ(&list[0], slot);
    EXPECT_EQ(list[0].value.asString(), "1");
}

TEST(XmlReaderAttributeList, ReusesItsSlotsAfterClear) {
    XmlReaderAttributeList list;
    for (int i = 0; i < 40; ++i) {
        list.append(attribute("a", "1"));
    }
    const XmlReaderAttribute* first = &list[0];
    const XmlReaderAttribute* last = &list[39];
    list.clear();
    for (int i = 0; i < 40; ++i) {
        list.append(attribute("b", "2"));
    }
    EXPECT_EQ(&list[0], first);
    EXPECT_EQ(&list[39], last);
    EXPECT_EQ(list[39].value.asString(), "2");
}

TEST(XmlReaderAttributeList, SixteenSlotsServeWithoutMoving) {
    XmlReaderAttributeList list;
    list.append(attribute("a", "1"));
    const XmlReaderAttribute* first = &list[0];
    for (int i = 1; i < 16; ++i) {
        list.append(attribute("a", "1"));
    }
    EXPECT_EQ(&list[0], first);
}

TEST(XmlReaderAttributeList, AppendsAnEntryOfItsOwnWhileItGrows) {
    XmlReaderAttributeList list;
    list.append(attribute("first", "1"));
    for (int i = 0; i < 70; ++i) {
        list.append(list[0]);
    }
    for (unsigned i = 0; i < list.length(); ++i) {
        ASSERT_EQ(list[i].name.localName.asString(), "first") << i;
    }
}

TEST(XmlReaderAttributeList, ACopyIsIndependent) {
    XmlReaderAttributeList list;
    list.append(attribute("a", "1"));
    XmlReaderAttributeList copy(list);
    list.clear();
    list.append(attribute("b", "2"));
    list.append(attribute("c", "3"));
    ASSERT_EQ(copy.length(), 1u);
    EXPECT_EQ(copy[0].value.asString(), "1");
    copy = list;
    ASSERT_EQ(copy.length(), 2u);
    EXPECT_EQ(copy[1].value.asString(), "3");
}

TEST(XmlReaderAttributeList, AssignmentOfAShorterListLeavesOnlyItsEntriesLive) {
    XmlReaderAttributeList longer;
    for (int i = 0; i < 20; ++i) {
        longer.append(attribute("a", "1"));
    }
    XmlReaderAttributeList shorter;
    shorter.append(attribute("b", "2"));
    longer = shorter;
    ASSERT_EQ(longer.length(), 1u);
    EXPECT_EQ(longer[0].value.asString(), "2");
}

TEST(XmlReaderAttributeList, AssignmentToItselfChangesNothing) {
    XmlReaderAttributeList list;
    list.append(attribute("a", "1"));
    XmlReaderAttributeList& same = list;
    list = same;
    ASSERT_EQ(list.length(), 1u);
    EXPECT_EQ(list[0].value.asString(), "1");
}

TEST(XmlReaderAttributeList, CopiesOfAnEmptyListAreEmpty) {
    const XmlReaderAttributeList empty;
    XmlReaderAttributeList copy(empty);
    EXPECT_EQ(copy.length(), 0u);
    copy.append(attribute("a", "1"));
    copy = empty;
    EXPECT_EQ(copy.length(), 0u);
}

TEST(XmlReaderNamespaceList, HasTheSameOperations) {
    XmlReaderNamespaceList list;
    EXPECT_EQ(list.length(), 0u);
    for (int i = 0; i < 17; ++i) {
        list.append(binding("p", i == 16 ? "last" : "u"));
    }
    ASSERT_EQ(list.length(), 17u);
    EXPECT_EQ(list[0].uri.asString(), "u");
    EXPECT_EQ(list[16].uri.asString(), "last");
    list.clear();
    EXPECT_EQ(list.length(), 0u);
    EXPECT_EQ(list[16].uri.asString(), "last");
}

// The stack.

TEST(XmlReaderNamespaceStack, HasNoScopeAtFirst) {
    const XmlReaderNamespaceStack stack;
    EXPECT_EQ(stack.depth(), 0u);
    EXPECT_EQ(uriOf(stack, "p"), "");
    EXPECT_EQ(prefixOf(stack, "u"), "");
}

TEST(XmlReaderNamespaceStack, PushAndPopChangeTheDepth) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.pushScope();
    EXPECT_EQ(stack.depth(), 2u);
    stack.popScope();
    EXPECT_EQ(stack.depth(), 1u);
}

TEST(XmlReaderNamespaceStack, PopWithoutAScopeChangesNothing) {
    XmlReaderNamespaceStack stack;
    stack.popScope();
    EXPECT_EQ(stack.depth(), 0u);
    stack.pushScope();
    EXPECT_EQ(stack.depth(), 1u);
}

TEST(XmlReaderNamespaceStack, AddsToTheInnermostScope) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("p", "outer"));
    stack.pushScope();
    stack.addNamespace(binding("q", "inner"));
    EXPECT_EQ(stack.scope(0).length(), 1u);
    EXPECT_EQ(stack.scope(1).length(), 1u);
    EXPECT_EQ(stack.scope(1)[0].uri.asString(), "inner");
}

TEST(XmlReaderNamespaceStack, FindsInOuterScopes) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("p", "u"));
    stack.pushScope();
    stack.pushScope();
    EXPECT_EQ(uriOf(stack, "p"), "u");
    EXPECT_EQ(prefixOf(stack, "u"), "p");
}

TEST(XmlReaderNamespaceStack, AnInnerBindingHidesAnOuterOne) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("p", "outer"));
    stack.pushScope();
    stack.addNamespace(binding("p", "inner"));
    EXPECT_EQ(uriOf(stack, "p"), "inner");
    stack.popScope();
    EXPECT_EQ(uriOf(stack, "p"), "outer");
}

TEST(XmlReaderNamespaceStack, TheFirstBindingOfAScopeWins) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("p", "first"));
    stack.addNamespace(binding("p", "second"));
    EXPECT_EQ(uriOf(stack, "p"), "first");
}

TEST(XmlReaderNamespaceStack, TheFirstDefaultOfAScopeWinsToo) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("p", "u"));
    stack.addNamespace(binding("", "first"));
    stack.addNamespace(binding("", "second"));
    EXPECT_EQ(uriOf(stack, ""), "first");
}

TEST(XmlReaderNamespaceStack, ABindingToNoUriHidesAnOuterOne) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("", "u"));
    stack.addNamespace(binding("p", "v"));
    stack.pushScope();
    stack.addNamespace(binding("", ""));
    stack.addNamespace(binding("p", ""));
    EXPECT_EQ(uriOf(stack, ""), "");
    EXPECT_EQ(uriOf(stack, "p"), "");
}

TEST(XmlReaderNamespaceStack, PrefixesMatchExactly) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("ab", "u"));
    EXPECT_EQ(uriOf(stack, "a"), "");
    EXPECT_EQ(uriOf(stack, "abc"), "");
    EXPECT_EQ(uriOf(stack, "AB"), "");
    EXPECT_EQ(uriOf(stack, "ab"), "u");
}

TEST(XmlReaderNamespaceStack, LongPrefixesThatDifferAtTheEndAreToldApart) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("prefix-one", "1"));
    stack.addNamespace(binding("prefix-two", "2"));
    EXPECT_EQ(uriOf(stack, "prefix-one"), "1");
    EXPECT_EQ(uriOf(stack, "prefix-two"), "2");
}

TEST(XmlReaderNamespaceStack, ThePrefixOfAUriIsThatOfTheFirstMatchInside) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("outer", "u"));
    stack.pushScope();
    stack.addNamespace(binding("first", "u"));
    stack.addNamespace(binding("second", "u"));
    EXPECT_EQ(prefixOf(stack, "u"), "first");
    stack.popScope();
    EXPECT_EQ(prefixOf(stack, "u"), "outer");
}

TEST(XmlReaderNamespaceStack, ThePrefixOfAUriMayBeHiddenByAnotherBinding) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("p", "u"));
    stack.pushScope();
    stack.addNamespace(binding("p", "v"));
    EXPECT_EQ(prefixOf(stack, "u"), "p");
}

TEST(XmlReaderNamespaceStack, WhatIsNotFoundIsAnEmptyViewAndNeverNull) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    EXPECT_NE(stack.getURIForPrefix(v("p")).data, nullptr);
    EXPECT_NE(stack.getPrefixForURI(v("u")).data, nullptr);
    EXPECT_EQ(uriOf(stack, "p"), "");
    EXPECT_EQ(prefixOf(stack, "u"), "");
}

TEST(XmlReaderNamespaceStack, APoppedScopeStaysInPlaceButIsNotSearched) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.pushScope();
    stack.addNamespace(binding("p", "u"));
    stack.popScope();
    EXPECT_EQ(uriOf(stack, "p"), "");
    EXPECT_EQ(stack.allocatedScopes(), 2u);
    ASSERT_EQ(stack.scope(1).length(), 1u);
    EXPECT_EQ(stack.scope(1)[0].uri.asString(), "u");
}

TEST(XmlReaderNamespaceStack, APushedScopeReusesThePoppedOneAndIsEmpty) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("p", "u"));
    const XmlReaderNamespace* slot = &stack.scope(0)[0];
    stack.popScope();
    stack.pushScope();
    EXPECT_EQ(stack.allocatedScopes(), 1u);
    EXPECT_EQ(uriOf(stack, "p"), "");
    stack.addNamespace(binding("q", "v"));
    EXPECT_EQ(&stack.scope(0)[0], slot);
}

TEST(XmlReaderNamespaceStack, AddsABindingOfItsOwn) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("p", "u"));
    for (int i = 1; i < 100; ++i) {
        stack.addNamespace(stack.scope(0)[0]);
    }
    ASSERT_EQ(stack.scope(0).length(), 100u);
    for (const XmlReaderNamespace& each : stack.scope(0)) {
        EXPECT_EQ(each.prefix.asString(), "p");
        EXPECT_EQ(each.uri.asString(), "u");
    }
}

TEST(XmlReaderNamespaceStack, AddingWithoutAScopeIsSafe) {
    XmlReaderNamespaceStack stack;
    stack.addNamespace(binding("p", "u"));
    stack.pushScope();
    stack.popScope();
    stack.popScope();
    stack.addNamespace(binding("q", "v"));
}

TEST(XmlReaderNamespaceStack, ACopyHasScopesOfItsOwn) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("p", "u"));
    XmlReaderNamespaceStack copy(stack);
    copy.addNamespace(binding("q", "v"));
    stack.popScope();
    stack.pushScope();
    EXPECT_EQ(uriOf(copy, "p"), "u");
    EXPECT_EQ(uriOf(copy, "q"), "v");
    EXPECT_EQ(uriOf(stack, "q"), "");
    stack = copy;
    EXPECT_EQ(uriOf(stack, "q"), "v");
}

TEST(XmlReaderNamespaceStack, ACopyKeepsPoppedScopes) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.pushScope();
    stack.addNamespace(binding("p", "u"));
    stack.popScope();
    const XmlReaderNamespaceStack copy(stack);
    EXPECT_EQ(copy.depth(), 1u);
    EXPECT_EQ(copy.allocatedScopes(), 2u);
    EXPECT_EQ(copy.scope(1).length(), 1u);
}

TEST(XmlReaderNamespaceStack, ConvertsWithItsLastAllocatedScopeInnermost) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("p", "outer"));
    stack.pushScope();
    stack.addNamespace(binding("p", "popped"));
    stack.popScope();
    const XmlNamespaceStack converted(stack);
    EXPECT_EQ(converted.depth(), 2u);
    EXPECT_EQ(converted.getURIForPrefix("p"), "popped");
}

TEST(XmlReaderNamespaceStack, ConvertsOnlyTheLiveEntriesOfAReusedScope) {
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("p", "u"));
    stack.popScope();
    stack.pushScope();
    const XmlNamespaceStack converted(stack);
    EXPECT_EQ(converted.depth(), 1u);
    EXPECT_EQ(converted.getURIForPrefix("p"), "");
}

TEST(XmlReaderNamespaceStack, ALaterDefaultWinsOnceConverted) {
    // The owning stack puts defaults in front, so that the order of two of them turns round.
    XmlReaderNamespaceStack stack;
    stack.pushScope();
    stack.addNamespace(binding("", "first"));
    stack.addNamespace(binding("", "second"));
    EXPECT_EQ(XmlNamespaceStack(stack).getURIForPrefix(""), "second");
}

}  // namespace
}  // namespace nolk
