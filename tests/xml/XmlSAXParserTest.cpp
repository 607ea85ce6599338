#include <nolk/core/XmlSAXParser.h>

#include <nolk/core/NestableXmlContentHandler.h>
#include <nolk/core/XmlContentHandler.h>
#include <nolk/core/XmlParseLineColException.h>

#include "foundation/SlotOrder.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace nolk {
namespace {

using Events = std::vector<std::string>;

std::string nameText(const XmlName& name) {
    const std::string& uri = name.getNamespace().getURI();
    return (uri.empty() ? "" : "{" + uri + "}") + name.getQualifiedName();
}

// Writes down what it is called with: "<{uri}p:a x=1", ">a", "'text".
class Recorder : public XmlContentHandler {
public:
    explicit Recorder(Events& events, std::string tag = "") : events_(events), tag_(tag) {}

    void startElement(const XmlName& name, const XmlAttributeSet& attributes) override {
        std::string event = tag_ + "<" + nameText(name);
        for (auto it = attributes.getIteratorBegin(); it != attributes.getIteratorEnd(); ++it) {
            event += " " + nameText(it->getName()) + "=" + it->getValue();
        }
        record(event);
    }
    void endElement(const XmlName& name) override { record(tag_ + ">" + nameText(name)); }
    void characters(const std::string& text) override { record(tag_ + "'" + text); }

    // Called after each event with the number of events so far.
    std::function<void(std::size_t)> hook;

private:
    void record(const std::string& event) {
        events_.push_back(event);
        if (hook) {
            hook(events_.size());
        }
    }

    Events& events_;
    std::string tag_;
};

Events eventsOf(const std::string& document) {
    Events events;
    Recorder recorder(events);
    XmlSAXParser parser;
    parser.setContentHandler(&recorder);
    parser.parse(document);
    return events;
}

// The text of the failure, and the events before it.
std::string failureOf(const std::string& document, Events* events = nullptr) {
    Events unused;
    Recorder recorder(events != nullptr ? *events : unused);
    XmlSAXParser parser;
    parser.setContentHandler(&recorder);
    try {
        parser.parse(document);
    } catch (const XmlParseLineColException& e) {
        return e.what();
    }
    return "no failure";
}

const std::string unmatched = "[XML_PARSE_UNMATCHED_START] Unmatched start tag for ";
const std::string prematureEnd = "[XML_PARSE_PREMATURE_EOF] Premature EOF";

TEST(XmlContentHandler, VirtualsKeepTheirSlotOrder) {
    EXPECT_EQ(slotOf(&XmlContentHandler::startElement), 2u);
    EXPECT_EQ(slotOf(&XmlContentHandler::endElement), 3u);
    EXPECT_EQ(slotOf(&XmlContentHandler::characters), 4u);
}

TEST(XmlSAXParser, StartsWithoutHandlerAndExpandsAttributes) {
    const XmlSAXParser parser;
    EXPECT_EQ(parser.getContentHandler(), nullptr);
    EXPECT_TRUE(parser.getExpandAttributeReference());
}

TEST(XmlSAXParser, SettersAreRead) {
    Events events;
    Recorder recorder(events);
    XmlSAXParser parser;
    parser.setContentHandler(&recorder);
    parser.setExpandAttributeReference(false);
    EXPECT_EQ(parser.getContentHandler(), &recorder);
    EXPECT_FALSE(parser.getExpandAttributeReference());
    parser.setContentHandler(nullptr);
    EXPECT_EQ(parser.getContentHandler(), nullptr);
}

TEST(XmlSAXParser, CopiesTakeTheSettings) {
    Events events;
    Recorder recorder(events);
    XmlSAXParser parser;
    parser.setContentHandler(&recorder);
    parser.setExpandAttributeReference(false);
    const XmlSAXParser copy(parser);
    EXPECT_EQ(copy.getContentHandler(), &recorder);
    EXPECT_FALSE(copy.getExpandAttributeReference());
    XmlSAXParser assigned;
    assigned = parser;
    EXPECT_EQ(assigned.getContentHandler(), &recorder);
    EXPECT_FALSE(assigned.getExpandAttributeReference());
    const XmlSAXParser& same = assigned;
    assigned = same;
    EXPECT_EQ(assigned.getContentHandler(), &recorder);
}

TEST(XmlSAXParser, ACopyMadeDuringAParseIsNotInIt) {
    Events events;
    Recorder recorder(events);
    XmlSAXParser parser;
    XmlSAXParser copy;
    recorder.hook = [&](std::size_t) {
        copy = parser;
        EXPECT_EQ(parser.getURIForPrefix("p"), "u");
        EXPECT_EQ(copy.getURIForPrefix("p"), "");
    };
    parser.setContentHandler(&recorder);
    parser.parse("<a xmlns:p='u'>x<b/>");
    EXPECT_EQ(copy.getURIForPrefix("p"), "");
}

TEST(XmlSAXParser, CallsTheHandlerForEachNode) {
    EXPECT_EQ(eventsOf("<a><b/>t</a>"), (Events{"<a", "<b", ">b", "'t", ">a"}));
}

TEST(XmlSAXParser, WhiteSpaceBetweenElementsIsText) {
    EXPECT_EQ(eventsOf("<a>\n <b/>\r\n</a>"), (Events{"<a", "'\n ", "<b", ">b", "'\n", ">a"}));
}

TEST(XmlSAXParser, AttributesContainTheDeclarations) {
    EXPECT_EQ(eventsOf("<p:a x='1' xmlns:p='u' p:y='2' xmlns='d'/>"),
              (Events{"<{u}p:a x=1 xmlns:p=u {u}p:y=2 xmlns=d", ">{u}p:a"}));
}

TEST(XmlSAXParser, ARepeatedAttributeIsGivenOnceWithTheLastValue) {
    EXPECT_EQ(eventsOf("<a b='1' c='2' b='3'/>"), (Events{"<a b=3 c=2", ">a"}));
}

TEST(XmlSAXParser, AttributesOfOneTagDontReachTheNext) {
    EXPECT_EQ(eventsOf("<a x='1' y='2'><b z='3'/><c/><d x='4' y='5' z='6'/></a>"),
              (Events{"<a x=1 y=2", "<b z=3", ">b", "<c", ">c", "<d x=4 y=5 z=6", ">d", ">a"}));
}

TEST(XmlSAXParser, TextHasItsReferencesReplacedAndItsSectionsKept) {
    EXPECT_EQ(eventsOf("<a>1 &lt; 2<![CDATA[ & ]]>\r\n&#65;</a>"),
              (Events{"<a", "'1 < 2<![CDATA[ & ]]>\nA", ">a"}));
}

TEST(XmlSAXParser, CommentsAndInstructionsAreDropped) {
    EXPECT_EQ(eventsOf("<?xml version='1.0'?><!-- c --><a>x<!-- c -->y<?pi?>z</a>"),
              (Events{"<a", "'xyz", ">a"}));
}

TEST(XmlSAXParser, AttributeReferencesFollowTheSetting) {
    for (const bool expand : {true, false}) {
        Events events;
        Recorder recorder(events);
        XmlSAXParser parser;
        parser.setContentHandler(&recorder);
        parser.setExpandAttributeReference(expand);
        parser.parse("<a b='&lt;'>&lt;</a>");
        EXPECT_EQ(events, (Events{expand ? "<a b=<" : "<a b=&lt;", "'<", ">a"}));
    }
}

TEST(XmlSAXParser, TheExpansionIsThatOfTheStartOfTheParse) {
    Events events;
    Recorder recorder(events);
    XmlSAXParser parser;
    recorder.hook = [&](std::size_t) { parser.setExpandAttributeReference(false); };
    parser.setContentHandler(&recorder);
    parser.parse("<a b='&lt;'><c b='&lt;'/></a>");
    EXPECT_EQ(events, (Events{"<a b=<", "<c b=<", ">c", ">a"}));
}

TEST(XmlSAXParser, TheSecondStringIsNotRead) {
    Events events;
    Recorder recorder(events);
    XmlSAXParser parser;
    parser.setContentHandler(&recorder);
    parser.parse("<a>x</a>", "<not <even <xml");
    EXPECT_EQ(events, (Events{"<a", "'x", ">a"}));
}

TEST(XmlSAXParser, WithoutHandlerADocumentIsReadAllTheSame) {
    XmlSAXParser parser;
    EXPECT_NO_THROW(parser.parse("<a x='1'>t<b/></a>"));
    EXPECT_THROW(parser.parse("<a x='1'>t<1b/></a>"), XmlParseLineColException);
}

// ---- matching of tags ----

TEST(XmlSAXParser, AnUnmatchedEndTagFailsUnderItsOwnName) {
    Events events;
    EXPECT_EQ(failureOf("<a></b>", &events), unmatched + "b");
    EXPECT_EQ(events, (Events{"<a"}));
}

TEST(XmlSAXParser, TheUnmatchedNameIsTheQualifiedOne) {
    EXPECT_EQ(failureOf("<a xmlns:p='u'></p:a>"), unmatched + "p:a");
}

TEST(XmlSAXParser, AMismatchFailsWithoutAHandlerToo) {
    XmlSAXParser parser;
    EXPECT_THROW(parser.parse("<a></b>"), XmlParseLineColException);
}

TEST(XmlSAXParser, AnEndTagWithoutOpenElementIsTheSameFailure) {
    EXPECT_EQ(failureOf("</a><b/>"), unmatched + "a");
    EXPECT_EQ(failureOf("<a></a></a>  "), unmatched + "a");
    EXPECT_EQ(failureOf("<a/></a>  "), unmatched + "a");
}

TEST(XmlSAXParser, AnEmptyTagOpensNothing) {
    EXPECT_EQ(failureOf("<a><b/></b></a>"), unmatched + "b");
}

TEST(XmlSAXParser, TheFailureTellsTheLine) {
    XmlSAXParser parser;
    try {
        parser.parse("<a>\n<b>\n</a>");
        FAIL() << "no failure";
    } catch (const XmlParseLineColException& e) {
        EXPECT_EQ(e.getLineNumber(), 3u);
    }
}

TEST(XmlSAXParser, TagsMatchByURIAndTheEndIsSpelledAsItIs) {
    EXPECT_EQ(eventsOf("<p:a xmlns:p='u' xmlns:q='u'>x</q:a>"),
              (Events{"<{u}p:a xmlns:p=u xmlns:q=u", "'x", ">{u}q:a"}));
}

TEST(XmlSAXParser, TagsOfDifferentURIsDontMatch) {
    EXPECT_EQ(failureOf("<r xmlns:p='u' xmlns:q='v'><p:a></q:a></r>"), unmatched + "q:a");
    EXPECT_EQ(failureOf("<p:a xmlns:p='u'></a>"), unmatched + "a");
}

TEST(XmlSAXParser, NestedTagsOfOneNameMatchPairwise) {
    EXPECT_EQ(eventsOf("<a><a><a/></a></a>"), (Events{"<a", "<a", "<a", ">a", ">a", ">a"}));
}

TEST(XmlSAXParser, DeepNestingIsMatched) {
    std::string document;
    for (int i = 0; i < 5000; ++i) {
        document += "<e" + std::to_string(i) + ">";
    }
    for (int i = 4999; i >= 0; --i) {
        document += "</e" + std::to_string(i) + ">";
    }
    const Events events = eventsOf(document);
    ASSERT_EQ(events.size(), 10000u);
    EXPECT_EQ(events[4999], "<e4999");
    EXPECT_EQ(events[5000], ">e4999");
    EXPECT_EQ(events[9999], ">e0");
}

// ---- the end of the document ----

TEST(XmlSAXParser, WhiteSpaceBehindTheRootEndsNormally) {
    EXPECT_EQ(eventsOf("<a></a>\n"), (Events{"<a", ">a"}));
    EXPECT_EQ(eventsOf("<a></a>  \r\n\t "), (Events{"<a", ">a"}));
    EXPECT_EQ(eventsOf("<a/>\n"), (Events{"<a", ">a"}));
}

TEST(XmlSAXParser, ADocumentThatStopsBehindAStartTagEndsWithoutAnError) {
    EXPECT_EQ(eventsOf("<a><b>"), (Events{"<a", "<b"}));
    EXPECT_EQ(eventsOf("<abc>"), (Events{"<abc"}));
}

TEST(XmlSAXParser, ADocumentThatStopsOneByteBehindAStartTagEndsWithoutAnError) {
    EXPECT_EQ(eventsOf("<abc>x"), (Events{"<abc"}));
    EXPECT_EQ(eventsOf("<abc><"), (Events{"<abc"}));
}

TEST(XmlSAXParser, AnyOtherUnfinishedDocumentIsAPrematureEnd) {
    EXPECT_EQ(failureOf("<abc>xy"), prematureEnd);
    EXPECT_EQ(failureOf("<abc></"), prematureEnd);
    EXPECT_EQ(failureOf("<abc"), prematureEnd);
    EXPECT_EQ(failureOf("<abc>x</abc"), prematureEnd);
}

TEST(XmlSAXParser, FailuresOfTheReaderPassThrough) {
    Events events;
    EXPECT_EQ(failureOf("<a><1/></a>", &events),
              "[XML_PARSE_ILLEGAL_NAME] Illegal starting character for name: 1");
    EXPECT_EQ(events, (Events{"<a"}));
    EXPECT_EQ(failureOf("nothing here"),
              "[XML_PARSE_INVALID_FIRST_CHAR] First non-ws character in document wasn't '<'");
    EXPECT_EQ(failureOf(""), prematureEnd);
}

// ---- handlers that change ----

TEST(XmlSAXParser, TheHandlerIsAskedForAtEachCall) {
    Events events;
    Recorder first(events, "1");
    Recorder second(events, "2");
    XmlSAXParser parser;
    parser.setContentHandler(&first);
    first.hook = [&](std::size_t) { parser.setContentHandler(&second); };
    second.hook = [&](std::size_t) { parser.setContentHandler(&first); };
    parser.parse("<a><b/>t</a>");
    EXPECT_EQ(events, (Events{"1<a", "2<b", "1>b", "2't", "1>a"}));
}

TEST(XmlSAXParser, ANullHandlerDropsTheRestButTagsAreMatched) {
    Events events;
    Recorder recorder(events);
    XmlSAXParser parser;
    recorder.hook = [&](std::size_t) { parser.setContentHandler(nullptr); };
    parser.setContentHandler(&recorder);
    parser.parse("<a><b/>t<c>u</c></a>");
    EXPECT_EQ(events, (Events{"<a"}));

    parser.setContentHandler(&recorder);
    EXPECT_THROW(parser.parse("<a><c>u</a></c>"), XmlParseLineColException);
    EXPECT_EQ(events, (Events{"<a", "<a"}));
}

TEST(XmlSAXParser, AHandlerRemovedAtTheStartOfAnEmptyElementGetsNoEnd) {
    Events events;
    Recorder recorder(events);
    XmlSAXParser parser;
    recorder.hook = [&](std::size_t) { parser.setContentHandler(nullptr); };
    parser.setContentHandler(&recorder);
    parser.parse("<abc/>");
    EXPECT_EQ(events, (Events{"<abc"}));
}

TEST(XmlSAXParser, TheHandlerStaysBehindTheParse) {
    Events events;
    Recorder recorder(events);
    XmlSAXParser parser;
    parser.setContentHandler(&recorder);
    parser.parse("<abc/>");
    EXPECT_EQ(parser.getContentHandler(), &recorder);
    EXPECT_THROW(parser.parse("<abc></b>"), XmlParseLineColException);
    EXPECT_EQ(parser.getContentHandler(), &recorder);
}

TEST(XmlSAXParser, ExceptionsOfHandlersLeaveTheParse) {
    const std::string document = "<a x='1'>t<b/></a>";
    for (std::size_t failing = 1; failing <= 5; ++failing) {
        Events events;
        Recorder recorder(events);
        XmlSAXParser parser;
        parser.setContentHandler(&recorder);
        recorder.hook = [failing](std::size_t count) {
            if (count == failing) {
                throw std::runtime_error("handler");
            }
        };
        EXPECT_THROW(parser.parse(document), std::runtime_error) << failing;
        EXPECT_EQ(events.size(), failing);
        EXPECT_EQ(parser.getURIForPrefix("p"), "") << "no parse is under way";
        EXPECT_EQ(parser.getContentHandler(), &recorder);

        events.clear();
        recorder.hook = nullptr;
        parser.parse(document);
        EXPECT_EQ(events, (Events{"<a x=1", "'t", "<b", ">b", ">a"}));
    }
}

TEST(XmlSAXParser, AHandlerSetBeforeAnExceptionStays) {
    Events events;
    Recorder first(events);
    Recorder second(events);
    XmlSAXParser parser;
    parser.setContentHandler(&first);
    first.hook = [&](std::size_t) {
        parser.setContentHandler(&second);
        throw std::runtime_error("handler");
    };
    EXPECT_THROW(parser.parse("<a><b/></a>"), std::runtime_error);
    EXPECT_EQ(parser.getContentHandler(), &second);
}

TEST(XmlSAXParser, TwoParsesAreIndependent) {
    Events events;
    Recorder recorder(events);
    XmlSAXParser parser;
    parser.setContentHandler(&recorder);
    parser.parse("<a xmlns:p='u'><b>");
    events.clear();
    parser.parse("<p:c>x</p:c>");
    EXPECT_EQ(events, (Events{"<p:c", "'x", ">p:c"}));
}

// ---- namespaces in handlers ----

TEST(XmlSAXParser, ScopesAreThoseOfTheCurrentElement) {
    Events events;
    Recorder recorder(events);
    XmlSAXParser parser;
    parser.setContentHandler(&recorder);
    Events seen;
    recorder.hook = [&](std::size_t) {
        seen.push_back(events.back() + ": p is '" + parser.getURIForPrefix("p") + "', v is '" +
                       parser.getPrefixForURI("v") + "'");
    };
    parser.parse("<a xmlns:p='u'><b xmlns:p='v'>t</b><c xmlns:q='v'/></a>");
    EXPECT_EQ(seen, (Events{
                        "<a xmlns:p=u: p is 'u', v is ''",
                        "<b xmlns:p=v: p is 'v', v is 'p'",
                        "'t: p is 'v', v is 'p'",
                        ">b: p is 'u', v is ''",
                        "<c xmlns:q=v: p is 'u', v is ''",
                        ">c: p is 'u', v is ''",
                        ">a: p is '', v is ''",
                    }));
}

TEST(XmlSAXParser, ScopesOutsideAParseAreEmpty) {
    XmlSAXParser parser;
    EXPECT_EQ(parser.getPrefixForURI("u"), "");
    EXPECT_EQ(parser.getURIForPrefix("p"), "");
    parser.parse("<a xmlns:p='u'>");
    EXPECT_EQ(parser.getPrefixForURI("u"), "");
    EXPECT_EQ(parser.getURIForPrefix("p"), "");
}

// ---- nesting ----

// Takes over from a parent until the end of the element during whose start it was made.
class Child : public NestableXmlContentHandler {
public:
    Child(XmlSAXParser* parser, XmlContentHandler* parent, Events& events)
        : NestableXmlContentHandler(parser, parent), events_(events) {}

    void startElement(const XmlName& name, const XmlAttributeSet&) override {
        events_.push_back("child<" + name.asString());
        ++depth_;
    }
    void endElement(const XmlName& name) override {
        events_.push_back("child>" + name.asString());
        if (depth_-- == 0) {
            NestableXmlContentHandler::endElement(name);
        }
    }
    void characters(const std::string& text) override { events_.push_back("child'" + text); }

    using NestableXmlContentHandler::getParser;

private:
    Events& events_;
    int depth_ = 0;
};

Events nestedEventsOf(const std::string& document) {
    Events events;
    Recorder parent(events, "parent");
    XmlSAXParser parser;
    std::unique_ptr<Child> child;
    parent.hook = [&](std::size_t) {
        if (events.back() == "parent<x") {
            child = std::make_unique<Child>(&parser, &parent, events);
        }
    };
    parser.setContentHandler(&parent);
    parser.parse(document);
    EXPECT_EQ(parser.getContentHandler(), &parent);
    return events;
}

TEST(NestableXmlContentHandler, InstallsItselfInTheParser) {
    Events events;
    XmlSAXParser parser;
    Recorder parent(events);
    parser.setContentHandler(&parent);
    const Child child(&parser, &parent, events);
    EXPECT_EQ(parser.getContentHandler(), &child);
}

TEST(NestableXmlContentHandler, GivesItsParser) {
    Events events;
    XmlSAXParser parser;
    EXPECT_EQ(Child(&parser, nullptr, events).getParser(), &parser);
    EXPECT_EQ(Child(nullptr, nullptr, events).getParser(), nullptr);
}

TEST(NestableXmlContentHandler, TakesASubtreeAndGivesItsEndBack) {
    EXPECT_EQ(nestedEventsOf("<a>1<x>2<b>3</b></x>4</a>"),
              (Events{"parent<a", "parent'1", "parent<x", "child'2", "child<b", "child'3",
                      "child>b", "child>x", "parent>x", "parent'4", "parent>a"}));
}

TEST(NestableXmlContentHandler, WorksForAnEmptyElementAlike) {
    EXPECT_EQ(nestedEventsOf("<a><x/>4</a>"),
              (Events{"parent<a", "parent<x", "child>x", "parent>x", "parent'4", "parent>a"}));
}

TEST(NestableXmlContentHandler, TheParentIsBackWhenItIsToldTheEnd) {
    Events events;
    XmlSAXParser parser;
    Recorder parent(events, "parent");
    XmlContentHandler* installed = nullptr;
    parent.hook = [&](std::size_t) { installed = parser.getContentHandler(); };
    Child child(&parser, &parent, events);
    child.endElement(XmlName("x"));
    EXPECT_EQ(installed, &parent);
}

TEST(NestableXmlContentHandler, HandsBackOnlyWithParserAndParent) {
    Events events;
    XmlSAXParser parser;
    Recorder parent(events, "parent");
    Child orphan(&parser, nullptr, events);
    static_cast<XmlContentHandler&>(orphan).endElement(XmlName("x"));
    EXPECT_EQ(parser.getContentHandler(), &orphan);
    parser.setContentHandler(nullptr);
    Child loose(nullptr, &parent, events);
    EXPECT_EQ(parser.getContentHandler(), nullptr) << "nothing is installed";
    static_cast<XmlContentHandler&>(loose).endElement(XmlName("y"));
    EXPECT_EQ(events, (Events{"child>x", "child>y"}));
}

TEST(NestableXmlContentHandler, CopiesTakeBothPointers) {
    Events events;
    XmlSAXParser parser;
    Recorder parent(events, "parent");
    Child child(&parser, &parent, events);
    Child copy(child);
    EXPECT_EQ(copy.getParser(), &parser);
    copy.endElement(XmlName("x"));
    EXPECT_EQ(parser.getContentHandler(), &parent);
    EXPECT_EQ(events, (Events{"child>x", "parent>x"}));

    Child other(nullptr, nullptr, events);
    static_cast<NestableXmlContentHandler&>(other) = child;
    EXPECT_EQ(other.getParser(), &parser);
    events.clear();
    other.endElement(XmlName("y"));
    EXPECT_EQ(events, (Events{"child>y", "parent>y"}));
}

}  // namespace
}  // namespace nolk
