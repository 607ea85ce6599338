#include <nolk/core/XmlNamespaceStack.h>

#include <nolk/core/XmlAttributeSet.h>
#include <nolk/core/XmlReaderNamespaceStack.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace nolk {
namespace {

using Bindings = std::vector<XmlNamespace>;

// Prefixes and URIs of the innermost scope in order, "p=u q=v".
std::string innermost(const XmlNamespaceStack& stack) {
    std::string text;
    for (auto it = stack.getNamespaceIteratorBegin(); it != stack.getNamespaceIteratorEnd(); ++it) {
        text += text.empty() ? "" : " ";
        text += it->getPrefix() + "=" + it->getURI();
    }
    return text;
}

// All scopes from the innermost to the outermost, "p=u q=v | r=w".
std::string dump(XmlNamespaceStack stack) {
    std::string text;
    for (bool first = true; stack.depth() != 0; first = false) {
        text += first ? "" : " | ";
        text += innermost(stack);
        stack.popScope();
    }
    return text;
}

// The outermost scope is given first.
XmlNamespaceStack stackOf(const std::vector<Bindings>& scopes) {
    XmlNamespaceStack stack;
    for (const Bindings& scope : scopes) {
        stack.pushScope();
        for (const XmlNamespace& ns : scope) {
            stack.addNamespace(ns);
        }
    }
    return stack;
}

TEST(XmlNamespaceStack, NewStackHasNoScope) {
    const XmlNamespaceStack stack;
    EXPECT_EQ(stack.depth(), 0u);
    EXPECT_TRUE(stack.getNamespaceIteratorBegin() == stack.getNamespaceIteratorEnd());
}

TEST(XmlNamespaceStack, PushAndPopMoveTheDepth) {
    XmlNamespaceStack stack;
    stack.pushScope();
    stack.pushScope();
    EXPECT_EQ(stack.depth(), 2u);
    stack.popScope();
    EXPECT_EQ(stack.depth(), 1u);
    stack.popScope();
    EXPECT_EQ(stack.depth(), 0u);
}

TEST(XmlNamespaceStack, PopWithoutAScopeChangesNothing) {
    XmlNamespaceStack stack;
    stack.popScope();
    EXPECT_EQ(stack.depth(), 0u);
    stack.pushScope();
    EXPECT_EQ(stack.depth(), 1u);
}

TEST(XmlNamespaceStack, LookUpsWithoutAScopeFindNothing) {
    const XmlNamespaceStack stack;
    std::string out = "kept";
    EXPECT_FALSE(stack.findURI("", out, false));
    EXPECT_FALSE(stack.findURI("u", out, true));
    EXPECT_FALSE(stack.findPrefix("", out));
    EXPECT_FALSE(stack.findPrefix("p", out));
    EXPECT_EQ(out, "kept");
    EXPECT_EQ(&stack.getURIForPrefix("p"), &XmlAttributeSet::EmptyString);
    EXPECT_EQ(&stack.getPrefixForURI("u"), &XmlAttributeSet::EmptyString);
}

TEST(XmlNamespaceStack, PoppedBindingsAreGoneFromTheNextScope) {
    XmlNamespaceStack stack = stackOf({{}, {XmlNamespace("p", "u")}});
    stack.popScope();
    stack.pushScope();
    EXPECT_EQ(dump(stack), " | ");
    EXPECT_EQ(stack.getURIForPrefix("p"), "");
}

TEST(XmlNamespaceStack, AddPutsDefaultsInFrontAndOthersBehind) {
    const XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "1"), XmlNamespace("", "2"),
                                              XmlNamespace("q", "3"), XmlNamespace("", "4")}});
    EXPECT_EQ(innermost(stack), "=4 =2 p=1 q=3");
}

TEST(XmlNamespaceStack, AddDoesNotLookAtBoundPrefixes) {
    const XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "1"), XmlNamespace("p", "2")}});
    EXPECT_EQ(innermost(stack), "p=1 p=2");
}

TEST(XmlNamespaceStack, AddGoesToTheInnermostScope) {
    XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "1")}, {}});
    stack.addNamespace(XmlNamespace("q", "2"));
    EXPECT_EQ(dump(stack), "q=2 | p=1");
}

TEST(XmlNamespaceStack, AddWithoutAScopeIsHarmless) {
    XmlNamespaceStack stack;
    stack.addNamespace(XmlNamespace("p", "u"));
    EXPECT_EQ(stack.getURIForPrefix("p"), "u");
    EXPECT_EQ(stack.depth(), 1u);
}

TEST(XmlNamespaceStack, OfTwoBindingsOfAPrefixInOneScopeTheEarlierWins) {
    const XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "1"), XmlNamespace("p", "2")}});
    EXPECT_EQ(stack.getURIForPrefix("p"), "1");
}

TEST(XmlNamespaceStack, OfTwoDefaultsInOneScopeTheLaterWins) {
    const XmlNamespaceStack stack = stackOf({{XmlNamespace("", "1"), XmlNamespace("", "2")}});
    EXPECT_EQ(stack.getURIForPrefix(""), "2");
}

TEST(XmlNamespaceStack, AnInnerBindingHidesAnOuterOne) {
    XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "1")}, {XmlNamespace("p", "2")}});
    EXPECT_EQ(stack.getURIForPrefix("p"), "2");
    stack.popScope();
    EXPECT_EQ(stack.getURIForPrefix("p"), "1");
}

TEST(XmlNamespaceStack, LookUpsReachTheOuterScopes) {
    const XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "u")}, {}, {}});
    EXPECT_EQ(stack.getURIForPrefix("p"), "u");
    EXPECT_EQ(stack.getPrefixForURI("u"), "p");
}

TEST(XmlNamespaceStack, GetPrefixForURITakesTheFirstMatchADefaultIncluded) {
    const XmlNamespaceStack stack =
        stackOf({{XmlNamespace("o", "u")}, {XmlNamespace("p", "u"), XmlNamespace("q", "u")}});
    EXPECT_EQ(stack.getPrefixForURI("u"), "p");
    XmlNamespaceStack withDefault(stack);
    withDefault.addNamespace(XmlNamespace("", "u"));
    EXPECT_EQ(withDefault.getPrefixForURI("u"), "");
    EXPECT_NE(&withDefault.getPrefixForURI("u"), &XmlAttributeSet::EmptyString);
}

TEST(XmlNamespaceStack, LookUpsOfWhatIsNotBoundGiveTheEmptyConstant) {
    const XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "u")}});
    EXPECT_EQ(&stack.getURIForPrefix("q"), &XmlAttributeSet::EmptyString);
    EXPECT_EQ(&stack.getPrefixForURI("v"), &XmlAttributeSet::EmptyString);
}

TEST(XmlNamespaceStack, FindPrefixCopiesTheURI) {
    const XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "u")}, {XmlNamespace("", "d")}});
    std::string uri = "kept";
    EXPECT_FALSE(stack.findPrefix("q", uri));
    EXPECT_EQ(uri, "kept");
    EXPECT_TRUE(stack.findPrefix("p", uri));
    EXPECT_EQ(uri, "u");
    EXPECT_TRUE(stack.findPrefix("", uri));
    EXPECT_EQ(uri, "d");
}

TEST(XmlNamespaceStack, FindPrefixTellsAnEmptyURIFromNone) {
    const XmlNamespaceStack stack = stackOf({{XmlNamespace("", "")}});
    std::string uri = "overwritten";
    EXPECT_TRUE(stack.findPrefix("", uri));
    EXPECT_EQ(uri, "");
}

TEST(XmlNamespaceStack, FindURICopiesThePrefix) {
    const XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "u")}});
    std::string prefix = "kept";
    EXPECT_FALSE(stack.findURI("v", prefix, false));
    EXPECT_EQ(prefix, "kept");
    EXPECT_TRUE(stack.findURI("u", prefix, false));
    EXPECT_EQ(prefix, "p");
}

TEST(XmlNamespaceStack, FindURIPassesADefaultOverWhenAsked) {
    const XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "u")}, {XmlNamespace("", "u")}});
    std::string prefix;
    EXPECT_TRUE(stack.findURI("u", prefix, true));
    EXPECT_EQ(prefix, "p");
    EXPECT_TRUE(stack.findURI("u", prefix, false));
    EXPECT_EQ(prefix, "");
}

TEST(XmlNamespaceStack, FindURIOfADefaultAloneFailsWhenItIsPassedOver) {
    const XmlNamespaceStack stack = stackOf({{XmlNamespace("", "u")}});
    std::string prefix = "kept";
    EXPECT_FALSE(stack.findURI("u", prefix, true));
    EXPECT_EQ(prefix, "kept");
}

// Finding by URI doesn't ask whether the prefix means something else further in.
TEST(XmlNamespaceStack, FindURIGivesAShadowedPrefix) {
    const XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "u")}, {XmlNamespace("p", "v")}});
    std::string prefix;
    EXPECT_TRUE(stack.findURI("u", prefix, false));
    EXPECT_EQ(prefix, "p");
}

TEST(XmlNamespaceStack, TheResultMayBeTheText) {
    const XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "u")}});
    std::string text = "p";
    EXPECT_TRUE(stack.findPrefix(text, text));
    EXPECT_EQ(text, "u");
    EXPECT_TRUE(stack.findURI(text, text, true));
    EXPECT_EQ(text, "p");
}

TEST(XmlNamespaceStack, IteratorsRunOverTheInnermostScopeOnly) {
    const XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "1")}, {XmlNamespace("q", "2")}});
    EXPECT_EQ(innermost(stack), "q=2");
    EXPECT_EQ(innermost(stackOf({{XmlNamespace("p", "1")}, {}})), "");
}

TEST(XmlNamespaceStack, CopiesAreDeep) {
    XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "1")}, {XmlNamespace("q", "2")}});
    XmlNamespaceStack copy(stack);
    EXPECT_EQ(dump(copy), "q=2 | p=1");
    copy.popScope();
    copy.addNamespace(XmlNamespace("r", "3"));
    EXPECT_EQ(dump(stack), "q=2 | p=1");
    EXPECT_EQ(dump(copy), "p=1 r=3");
    stack = copy;
    copy.popScope();
    EXPECT_EQ(dump(stack), "p=1 r=3");
}

TEST(XmlNamespaceStack, CopiesHoldLiveScopesOnly) {
    XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "1")}, {XmlNamespace("q", "2")}});
    stack.popScope();
    XmlNamespaceStack copy(stack);
    EXPECT_EQ(copy.depth(), 1u);
    EXPECT_EQ(dump(copy), "p=1");
    copy = stack;
    EXPECT_EQ(dump(copy), "p=1");
    copy.pushScope();
    EXPECT_EQ(dump(copy), " | p=1");
}

TEST(XmlNamespaceStack, AssignmentToItselfDoesNothing) {
    XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "1")}, {XmlNamespace("q", "2")}});
    const XmlNamespaceStack& same = stack;
    stack = same;
    EXPECT_EQ(dump(stack), "q=2 | p=1");
}

TEST(XmlNamespaceStack, AssignmentOfAnEmptyStackDropsAllScopes) {
    XmlNamespaceStack stack = stackOf({{XmlNamespace("p", "1")}});
    stack = XmlNamespaceStack();
    EXPECT_EQ(stack.depth(), 0u);
    EXPECT_EQ(stack.getURIForPrefix("p"), "");
    stack.popScope();
    stack.pushScope();
    EXPECT_EQ(stack.depth(), 1u);
}

TEST(XmlNamespaceStack, EqualityNeedsTheSameNumberOfScopes) {
    EXPECT_TRUE(XmlNamespaceStack() == XmlNamespaceStack());
    EXPECT_FALSE(XmlNamespaceStack() == stackOf({{}}));
    EXPECT_FALSE(stackOf({{}}) == XmlNamespaceStack());
    EXPECT_TRUE(stackOf({{}}) == stackOf({{}}));
    EXPECT_FALSE(stackOf({{}, {}}) == stackOf({{}}));
}

TEST(XmlNamespaceStack, EqualityIgnoresPrefixes) {
    EXPECT_TRUE(stackOf({{XmlNamespace("p", "u")}}) == stackOf({{XmlNamespace("q", "u")}}));
    EXPECT_TRUE(stackOf({{XmlNamespace("p", "u")}}) == stackOf({{XmlNamespace("", "u")}}));
    EXPECT_FALSE(stackOf({{XmlNamespace("p", "u")}}) == stackOf({{XmlNamespace("p", "v")}}));
    EXPECT_TRUE(stackOf({{XmlNamespace("p", "u")}}) != stackOf({{XmlNamespace("p", "v")}}));
}

TEST(XmlNamespaceStack, EqualityIgnoresOrderAndRepetitionInAScope) {
    const XmlNamespaceStack one = stackOf({{XmlNamespace("p", "u"), XmlNamespace("q", "v")}});
    const XmlNamespaceStack other =
        stackOf({{XmlNamespace("a", "v"), XmlNamespace("b", "u"), XmlNamespace("c", "u")}});
    EXPECT_TRUE(one == other);
    EXPECT_TRUE(other == one);
}

TEST(XmlNamespaceStack, EqualityNeedsBothInclusions) {
    const XmlNamespaceStack fewer = stackOf({{XmlNamespace("p", "u")}});
    const XmlNamespaceStack more = stackOf({{XmlNamespace("p", "u"), XmlNamespace("q", "v")}});
    EXPECT_FALSE(fewer == more);
    EXPECT_FALSE(more == fewer);
    EXPECT_FALSE(stackOf({{}}) == fewer);
    EXPECT_FALSE(fewer == stackOf({{}}));
}

TEST(XmlNamespaceStack, EqualityComparesScopeByScope) {
    const XmlNamespace u("p", "u");
    const XmlNamespace v("p", "v");
    EXPECT_TRUE(stackOf({{u}, {}, {v}}) == stackOf({{u}, {}, {v}}));
    EXPECT_FALSE(stackOf({{u}, {}, {v}}) == stackOf({{u}, {v}, {}}));
    EXPECT_FALSE(stackOf({{u}, {v}}) == stackOf({{v}, {u}}));
    EXPECT_FALSE(stackOf({{u}, {v}}) == stackOf({{v}, {v}}));
}

struct ScopeAccess : XmlNamespaceStack {
    using XmlNamespaceStack::equalScopes;
};

TEST(XmlNamespaceStack, EqualScopesIsMutualInclusionByURI) {
    using Scope = XmlNamespaceStack::Scope;
    const XmlNamespace pu("p", "u");
    const XmlNamespace qu("q", "u");
    const XmlNamespace pv("p", "v");
    const struct {
        Scope a;
        Scope b;
        bool equal;
    } rows[] = {
        {{}, {}, true},         {{pu}, {}, false},       {{}, {pu}, false},
        {{pu}, {qu}, true},     {{pu}, {pv}, false},     {{pu, pv}, {pv, qu}, true},
        {{pu, qu}, {pu}, true}, {{pu, pv}, {pu}, false}, {{pu}, {pu, pv}, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ScopeAccess::equalScopes(row.a, row.b), row.equal)
            << row.a.size() << " and " << row.b.size();
    }
}

XmlReaderNamespace readerNamespace(const char* prefix, const char* uri) {
    const auto view = [](const char* text) {
        return XmlReaderString{text, static_cast<std::uint32_t>(std::string(text).size())};
    };
    return XmlReaderNamespace{view(prefix), view(uri)};
}

TEST(XmlNamespaceStack, FromAnEmptyReaderStackHasNoScope) {
    EXPECT_EQ(XmlNamespaceStack(XmlReaderNamespaceStack()).depth(), 0u);
}

TEST(XmlNamespaceStack, FromAReaderStackKeepsScopesAndOrder) {
    XmlReaderNamespaceStack reader;
    reader.pushScope();
    reader.addNamespace(readerNamespace("a", "1"));
    reader.addNamespace(readerNamespace("", "2"));
    reader.addNamespace(readerNamespace("b", "3"));
    reader.pushScope();
    reader.pushScope();
    reader.addNamespace(readerNamespace("c", "4"));
    const XmlNamespaceStack stack = reader;
    EXPECT_EQ(dump(stack), "c=4 |  | =2 a=1 b=3");
}

TEST(XmlNamespaceStack, FromAReaderStackTakesPoppedScopesAlong) {
    XmlReaderNamespaceStack reader;
    reader.pushScope();
    reader.addNamespace(readerNamespace("a", "1"));
    reader.pushScope();
    reader.addNamespace(readerNamespace("b", "2"));
    reader.pushScope();
    reader.addNamespace(readerNamespace("c", "3"));
    reader.popScope();
    reader.popScope();
    EXPECT_EQ(dump(reader), "c=3 | b=2 | a=1");
    reader.pushScope();
    reader.addNamespace(readerNamespace("d", "4"));
    EXPECT_EQ(dump(reader), "c=3 | d=4 | a=1") << "a scope used again holds its new bindings";
}

TEST(XmlNamespaceStack, FromAReaderStackOwnsItsTexts) {
    std::string buffer = "pu";
    XmlReaderNamespaceStack reader;
    reader.pushScope();
    reader.addNamespace(XmlReaderNamespace{XmlReaderString{buffer.data(), 1},
                                           XmlReaderString{buffer.data() + 1, 1}});
    const XmlNamespaceStack stack(reader);
    buffer = "##";
    EXPECT_EQ(dump(stack), "p=u");
}

}  // namespace
}  // namespace nolk
