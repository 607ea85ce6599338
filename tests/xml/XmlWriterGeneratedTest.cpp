// The namespace handling of XmlWriter, held against a model that follows the same steps with plain
// vectors and without any shortcut, over random sequences of calls.

#include <nolk/core/XmlStringWriter.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace nolk {
namespace {

const std::string xsi = "http://www.w3.org/2001/XMLSchema-instance";

struct Binding {
    std::string prefix;
    std::string uri;
};

struct Name {
    std::string localName;
    Binding ns;
};

struct Attribute {
    Name name;
    std::string value;
};

// Names are equal by local name and URI.
void addTo(std::vector<Attribute>& attributes, const Attribute& added) {
    for (Attribute& present : attributes) {
        if (present.name.localName == added.name.localName &&
            present.name.ns.uri == added.name.ns.uri) {
            present.value = added.value;
            return;
        }
    }
    attributes.push_back(added);
}

class Model {
public:
    using Scopes = std::vector<std::vector<Binding>>;  // the innermost scope and binding first

    std::string out;
    Scopes scopes{{}};
    std::vector<Binding> declarations;

    void add(const Binding& ns) {
        std::vector<Binding>& scope = scopes.front();
        scope.insert(ns.prefix.empty() ? scope.begin() : scope.end(), ns);
    }

    std::optional<std::string> uriOf(const std::string& prefix) const {
        for (const std::vector<Binding>& scope : scopes) {
            for (const Binding& ns : scope) {
                if (ns.prefix == prefix) {
                    return ns.uri;
                }
            }
        }
        return {};
    }

    std::optional<std::string> prefixOf(const std::string& uri, bool skipDefault) const {
        for (const std::vector<Binding>& scope : scopes) {
            for (const Binding& ns : scope) {
                if (ns.uri == uri && !(skipDefault && ns.prefix.empty())) {
                    return ns.prefix;
                }
            }
        }
        return {};
    }

    void start(const Name& name, const std::vector<Attribute>& given, bool isEmpty,
               const Name& type) {
        scopes.insert(scopes.begin(), std::vector<Binding>());
        std::vector<Attribute> attributes = withoutDeclarations(given);
        if (scopes.size() == 2) {
            for (const Binding& ns : declarations) {
                addIfNecessary(ns, false);
            }
        }
        addIfNecessary(name.ns, false);
        if (!type.localName.empty()) {
            addTo(attributes, {{"type", {"xsi", xsi}}, typeText(type)});
        }
        for (const Attribute& attribute : attributes) {
            addIfNecessary(attribute.name.ns, true);
        }
        out += "<" + elementName(name);
        for (const Binding& ns : scopes.front()) {
            out += ns.prefix.empty() ? " xmlns=\"" : " xmlns:" + ns.prefix + "=\"";
            out += ns.uri + "\"";
        }
        for (const Attribute& attribute : attributes) {
            const std::string prefix = prefixOf(attribute.name.ns.uri, true).value_or("");
            out += " " + joined(prefix, attribute.name.localName) + "=\"" + attribute.value + "\"";
        }
        out += isEmpty ? "/>" : ">";
        if (isEmpty) {
            scopes.erase(scopes.begin());
        }
    }

    void end(const Name& name) {
        out += "</" + elementName(name) + ">";
        scopes.erase(scopes.begin());
    }

private:
    static std::string joined(const std::string& prefix, const std::string& localName) {
        return prefix.empty() ? localName : prefix + ":" + localName;
    }

    std::string elementName(const Name& name) const {
        const std::string prefix =
            name.ns.uri.empty() ? "" : prefixOf(name.ns.uri, false).value_or("");
        return joined(prefix, name.localName);
    }

    Binding generated(const Binding& ns) const {
        for (unsigned int i = 1; i <= 50; ++i) {
            const std::string prefix = "ns" + std::to_string(i);
            if (!uriOf(prefix)) {
                return {prefix, ns.uri};
            }
        }
        for (unsigned int i = 50;; ++i) {
            const std::string prefix = "ns" + std::to_string(i);
            if (!uriOf(prefix)) {
                return {prefix, ns.uri};
            }
        }
    }

    void addToScope(const Binding& ns) {
        for (const Binding& present : scopes.front()) {
            if (present.prefix == ns.prefix) {
                add(generated(ns));
                return;
            }
        }
        add(ns);
    }

    void addIfNecessary(const Binding& ns, bool skipDefault) {
        if (ns.uri.empty()) {
            return;
        }
        if (!ns.prefix.empty()) {
            if (!prefixOf(ns.uri, skipDefault)) {
                addToScope(ns);
            }
            return;
        }
        if (uriOf("").value_or("") != ns.uri) {
            addToScope(ns);
        }
        if (skipDefault && !prefixOf(ns.uri, true)) {
            add(generated(ns));
        }
    }

    std::vector<Attribute> withoutDeclarations(const std::vector<Attribute>& given) {
        std::vector<Attribute> plain;
        for (const Attribute& attribute : given) {
            if (attribute.name.ns.prefix == "xmlns") {
                addToScope({attribute.name.localName, attribute.value});
            } else if (attribute.name.ns.uri.empty() && attribute.name.localName == "xmlns") {
                addToScope({"", attribute.value});
            } else {
                addTo(plain, attribute);
            }
        }
        return plain;
    }

    std::string typeText(const Name& type) {
        if (!prefixOf(type.ns.uri, false)) {
            addIfNecessary(type.ns.prefix.empty() ? generated(type.ns) : type.ns, false);
        }
        const std::string own = type.ns.uri.empty() ? "" : type.ns.prefix;
        return joined(prefixOf(type.ns.uri, false).value_or(own), type.localName);
    }
};

XmlNamespace asNamespace(const Binding& ns) {
    return XmlNamespace(ns.prefix, ns.uri);
}

XmlName asName(const Name& name) {
    return XmlName(name.localName, asNamespace(name.ns));
}

XmlAttributeSet asSet(const std::vector<Attribute>& attributes) {
    XmlAttributeSet set;
    for (const Attribute& attribute : attributes) {
        set.add(asName(attribute.name), attribute.value);
    }
    return set;
}

// Calls a writer and its model alike and compares what they wrote and what is bound.
class Pair {
public:
    explicit Pair(unsigned int seed) : random_(seed) {}

    void step() {
        switch (below(16)) {
            case 0:
            case 1:
            case 2:
            case 3:
            case 4:
                start(false);
                break;
            case 5:
            case 6:
            case 7:
                start(true);
                break;
            case 8:
            case 9:
            case 10:
                end();
                break;
            case 11:
            case 12:
                simpleElement();
                break;
            case 13:
                addNamespace();
                break;
            case 14:
                addNamespaceDecl();
                break;
            default:
                replaceStack();
                break;
        }
    }

    void closeAll() {
        while (!open_.empty()) {
            end();
        }
    }

    void compare() {
        ASSERT_EQ(writer_.getString(), model_.out);
        const XmlNamespaceStack& stack = writer_.getNamespaceStack();
        ASSERT_EQ(stack.depth(), model_.scopes.size());
        for (const std::string& prefix : prefixes()) {
            std::string uri;
            ASSERT_EQ(stack.findPrefix(prefix, uri), model_.uriOf(prefix).has_value()) << prefix;
            ASSERT_EQ(uri, model_.uriOf(prefix).value_or("")) << prefix;
        }
        for (const std::string& uri : uris()) {
            for (const bool skipDefault : {false, true}) {
                std::string prefix;
                const std::optional<std::string> expected = model_.prefixOf(uri, skipDefault);
                ASSERT_EQ(stack.findURI(uri, prefix, skipDefault), expected.has_value()) << uri;
                ASSERT_EQ(prefix, expected.value_or("")) << uri;
            }
        }
    }

private:
    // Few of each, so that they meet often.
    static const std::vector<std::string>& prefixes() {
        static const std::vector<std::string> all = {"",  "",    "",    "p",  "p",
                                                     "q", "ns1", "ns3", "xsi"};
        return all;
    }
    // Of the same and of different lengths, with equal ends and beginnings.
    static const std::vector<std::string>& uris() {
        static const std::vector<std::string> all = {
            "", "", "u", "v", "w", "urn:abcd1", "urn:abcd2", "2rn:abcd1", xsi};
        return all;
    }

    std::size_t below(std::size_t limit) { return random_() % limit; }
    const std::string& oneOf(const std::vector<std::string>& all) { return all[below(all.size())]; }
    Binding binding() { return {oneOf(prefixes()), oneOf(uris())}; }
    std::string localName() { return oneOf({"a", "b", "c", "type", "xmlns"}); }
    Name name() { return {localName(), binding()}; }

    std::vector<Attribute> attributes() {
        std::vector<Attribute> all;
        for (std::size_t left = below(5); left != 0; --left) {
            switch (below(4)) {
                case 0:
                    addTo(all, {{oneOf(prefixes()), {"xmlns", ""}}, oneOf(uris())});
                    break;
                case 1:
                    addTo(all, {{"xmlns", {oneOf(prefixes()), ""}}, oneOf(uris())});
                    break;
                default:
                    addTo(all, {name(), std::to_string(left)});
                    break;
            }
        }
        return all;
    }

    Name type() { return below(3) == 0 ? name() : Name(); }

    void start(bool isEmpty) {
        const Name started = name();
        const std::vector<Attribute> given = attributes();
        const Name typeName = type();
        writer_.writeElementStart(asName(started), asSet(given), isEmpty, asName(typeName));
        model_.start(started, given, isEmpty, typeName);
        if (!isEmpty) {
            open_.push_back(started);
        }
    }

    // The end may be given under another prefix.
    void end() {
        if (open_.empty()) {
            return;
        }
        Name ended = open_.back();
        open_.pop_back();
        ended.ns.prefix = oneOf(prefixes());
        writer_.writeElementEnd(asName(ended));
        model_.end(ended);
    }

    void simpleElement() {
        const Name simple = name();
        std::vector<Attribute> given = attributes();
        const std::string value = oneOf({"", "text"});
        const bool useType = below(2) == 0;
        if (below(2) == 0) {
            const Name typeName = name();
            writer_.writeSimpleElement(asName(simple), value, asName(typeName), useType,
                                       asSet(given));
            simpleInModel(simple, given, value, useType ? typeName : Name());
        } else {
            writer_.writeSimpleElement(asName(simple), value, "any:type", useType, asSet(given));
            if (useType) {
                addTo(given, {{"type", {"xsi", xsi}}, "any:type"});
            }
            simpleInModel(simple, given, value, Name());
        }
    }

    void simpleInModel(const Name& name, const std::vector<Attribute>& given,
                       const std::string& value, const Name& type) {
        model_.start(name, given, value.empty(), type);
        if (!value.empty()) {
            model_.out += value;
            model_.end(name);
        }
    }

    void addNamespace() {
        const Binding added = binding();
        writer_.addNamespace(asNamespace(added));
        model_.add(added);
    }

    void addNamespaceDecl() {
        if (model_.declarations.size() < 3) {
            const Binding added = binding();
            writer_.addNamespaceDecl(asNamespace(added));
            model_.declarations.push_back(added);
        }
    }

    // By one of as many scopes with other bindings, so that what is open can still end.
    void replaceStack() {
        XmlNamespaceStack stack;
        Model replaced;
        replaced.scopes.clear();
        for (std::size_t i = 0; i < model_.scopes.size(); ++i) {
            stack.pushScope();
            replaced.scopes.insert(replaced.scopes.begin(), std::vector<Binding>());
            if (below(2) == 0) {
                const Binding added = binding();
                stack.addNamespace(asNamespace(added));
                replaced.add(added);
            }
        }
        writer_.setNamespaceStack(stack);
        model_.scopes = replaced.scopes;
    }

    std::mt19937 random_;
    XmlStringWriter writer_;
    Model model_;
    std::vector<Name> open_;
};

TEST(XmlWriterGenerated, NamespacesFollowTheModel) {
    for (unsigned int seed = 0; seed < 600; ++seed) {
        SCOPED_TRACE(seed);
        Pair pair(seed);
        for (int i = 0; i < 40; ++i) {
            pair.step();
            ASSERT_NO_FATAL_FAILURE(pair.compare()) << "step " << i;
        }
        pair.closeAll();
        ASSERT_NO_FATAL_FAILURE(pair.compare());
    }
}

// Prefixes made up by the dozen, with scopes that come and go and take some of the numbers.
TEST(XmlWriterGenerated, ManyMadeUpPrefixesFollowTheModel) {
    std::mt19937 random(7);
    for (int round = 0; round < 20; ++round) {
        XmlStringWriter writer;
        Model model;
        std::vector<Name> open;
        for (int i = 0; i < 12; ++i) {
            std::vector<Attribute> given;
            for (unsigned int left = random() % 40; left != 0; --left) {
                const std::string number = std::to_string(random() % 70);
                addTo(given, {{"x", {"p", "urn:" + number}}, number});
                if (random() % 8 == 0) {
                    addTo(given, {{"ns" + number, {"xmlns", ""}}, "urn:taken"});
                }
            }
            const Name name{"e", {"p", "urn:" + std::to_string(random() % 70)}};
            writer.writeElementStart(asName(name), asSet(given));
            model.start(name, given, false, {});
            open.push_back(name);
            while (!open.empty() && random() % 3 == 0) {
                writer.writeElementEnd(asName(open.back()));
                model.end(open.back());
                open.pop_back();
            }
            ASSERT_EQ(writer.getString(), model.out) << "round " << round << ", element " << i;
        }
    }
}

TEST(XmlWriterGenerated, ThousandsOfMadeUpPrefixesTakeNoCubicTime) {
    constexpr int count = 3000;
    XmlAttributeSet attributes;
    for (int i = 0; i <= count; ++i) {
        attributes.add(XmlName("x", XmlNamespace("p", std::to_string(i))), "");
    }
    XmlStringWriter writer;
    writer.writeElementStart(XmlName("e"), attributes, true);
    const std::string text = writer.getString();
    const std::string last = " ns" + std::to_string(count) + ":x=\"\"/>";
    EXPECT_TRUE(text.ends_with(last)) << text.substr(text.size() - 40);
}

}  // namespace
}  // namespace nolk
