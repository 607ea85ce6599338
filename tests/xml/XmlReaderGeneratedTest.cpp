#include <nolk/core/XmlReader.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "XmlReaderNavigation.h"

// Random documents, written piece by piece so that what each piece must read as is known from the
// start, and read back in every encoding and by every style of reading.
namespace nolk {
namespace {

using namespace navigation;

struct Settings {
    bool content = true;
    bool attributes = true;
    bool comments = false;
};

/** A run of text as it is written, and as it reads with and without expansion. */
struct Value {
    std::string written;
    std::string expanded;

    void add(const std::string& text, const std::string& meaning) {
        written += text;
        expanded += meaning;
    }
    const std::string& read(bool expand) const { return expand ? expanded : written; }
};

struct Piece {
    enum Kind { Characters, Cdata, Comment, Instruction } kind;
    Value value;  // of a comment, expanded is the text with its line ends folded
};

struct Attribute {
    std::string prefix;
    std::string local;
    Value value;
};

using Bindings = std::vector<Attribute>;  // declarations, by the prefix that they bind

struct Item {
    enum Kind { Start, Empty, Text, End } kind;
    std::string prefix;
    std::string local;
    std::vector<Attribute> attributes;
    std::vector<Bindings> scopes;  // outermost first, the tag's own last
    std::vector<Piece> pieces;
};

struct Document {
    std::string prolog;  // behind the XML declaration
    std::string root;
    std::string tail;
    std::string inner;  // between the root's tags
    std::vector<Item> items;
    bool latin1 = true;         // all characters are in ISO-8859-1
    bool exact = true;          // readElement moves no text
    bool selfContained = true;  // readWellFormedElement adds nothing and cuts nothing
};

// ---- Making documents ----

class Generator {
public:
    explicit Generator(unsigned seed) : random_(seed) {}

    Document make() {
        document_ = Document();
        text_.clear();
        wide_ = chance(60);
        makeProlog();
        document_.items.clear();
        text_.clear();
        document_.exact = true;
        element("root" + std::to_string(below(100)), {}, 0);
        document_.root = text_;
        document_.tail = whiteSpace(chance(50) ? below(4) : 0) + "\n";
        if (chance(30) && document_.root.size() > 5) {
            document_.tail.clear();
        }
        document_.latin1 = !wide_;
        return std::move(document_);
    }

    unsigned below(unsigned bound) { return static_cast<unsigned>(random_() % bound); }
    bool chance(unsigned percent) { return below(100) < percent; }

private:
    using List = std::initializer_list<const char*>;

    std::string oneOf(List list) { return *(list.begin() + below(unsigned(list.size()))); }

    std::string whiteSpace(unsigned length) {
        std::string result;
        for (unsigned i = 0; i < length; ++i) {
            result += oneOf({" ", " ", "\t", "\n", "\r\n"});
        }
        return result;
    }

    std::string character() {
        switch (below(wide_ ? 12 : 9)) {
            case 0:
                return oneOf({"\xC3\xA9", "\xC2\xA3", "\xC3\xBF", "\xC2\x80", "\xC3\x97"});
            case 1:
                return oneOf({"'", "\"", ">", "]", "=", "-", "?", "!", "/", ";", "#"});
            case 2:
                return std::string(below(40), static_cast<char>('a' + below(26)));
            case 9:
                return oneOf({"\xE2\x82\xAC", "\xE6\xBC\xA2", "\xEF\xBF\xBD"});
            case 10:
                return oneOf({"\xF0\x9F\x98\x80", "\xF0\x90\x80\x80"});
            case 11:
                return oneOf({"\xCE\xA9", "\xDF\xBF", "\xE0\xA0\x80"});
            default:
                return std::string(1, static_cast<char>('0' + below(10)));
        }
    }

    std::pair<std::string, std::string> reference() {
        static const std::pair<const char*, const char*> all[] = {
            {"&lt;", "<"},
            {"&gt;", ">"},
            {"&amp;", "&"},
            {"&apos;", "'"},
            {"&quot;", "\""},
            {"&#65;", "A"},
            {"&#xe9;", "\xC3\xA9"},
            {"&#x1F600;", "\xF0\x9F\x98\x80"},
            {"&#8364;", "\xE2\x82\xAC"},
            {"&other;", "&other;"},
            {"&#13;", "\r"},
            {"&#10;", "\n"},
        };
        return all[below(12)];
    }

    std::string name() {
        std::string result = oneOf({"a", "b", "element", "_x", "Z9", "\xC3\xA9t\xC3\xA9",
                                    "long-name.with_many-characters.inside-of-it"});
        if (wide_ && chance(20)) {
            result = oneOf({"\xE6\xBC\xA2\xE5\xAD\x97", "\xCE\xA9mega", "x\xF0\x9F\x98\x80"});
        }
        return result;
    }

    std::string prefix() { return chance(50) ? "" : oneOf({"p", "q", "s", "\xC3\xA9"}); }

    /** Text in which no line feed stands right behind a carriage return that isn't its own. */
    void addCharacters(Value& value) {
        if (chance(20)) {
            const auto [written, meaning] = reference();
            value.add(written, meaning);
        } else if (chance(20)) {
            std::string end = oneOf({"\n", "\r", "\r\n"});
            if (end == "\n" && !value.written.empty() && value.written.back() == '\r') {
                end = "\r";
            }
            value.add(end, "\n");
        } else {
            const std::string text = character();
            value.add(text, text);
        }
    }

    std::string commentText() {
        std::string result = chance(90) ? " " : "";
        for (unsigned i = below(6); i > 0; --i) {
            const std::string text =
                chance(20) ? oneOf({"\r\n", "\r", "\n", "&lt;", "<b>", "&"}) : character();
            result += text == "-" ? "_" : text;
        }
        // `<!---->` is no comment at a boundary, and `<!-->` none anywhere.
        return result.empty() || result.front() == '>' ? " " + result : result;
    }

    static std::string folded(const std::string& text) {
        std::string result;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] != '\r') {
                result += text[i];
                continue;
            }
            result += '\n';
            i += i + 1 < text.size() && text[i + 1] == '\n' ? 1 : 0;
        }
        return result;
    }

    std::string instruction() {
        std::string result = "<?" + oneOf({"p", "xmlx", "XML", "x\xC3\xA9"}) + " ";
        for (unsigned i = below(5); i > 0; --i) {
            const std::string text = character();
            result += text == ">" ? "?" : text;
        }
        return result + oneOf({"?>", " ?>", "?\?>"});
    }

    std::string cdata() {
        std::string result;
        for (unsigned i = below(6); i > 0; --i) {
            std::string text =
                chance(30) ? oneOf({"\r\n", "\r", "<b>", "&lt;", "<!--", "]"}) : character();
            const bool wouldEnd =
                text == ">" && result.size() > 1 && result.compare(result.size() - 2, 2, "]]") == 0;
            result += wouldEnd ? "_" : text;
        }
        return "<![CDATA[" + result + "]]>";
    }

    void makeProlog() {
        for (unsigned i = below(4); i > 0; --i) {
            switch (below(4)) {
                case 0:
                    document_.prolog += "<!--" + commentText() + "-->";
                    break;
                case 1:
                    document_.prolog += instruction();
                    break;
                case 2:
                    document_.prolog += "<!DOCTYPE root [ <!ENTITY other \"x\"> ]>";
                    break;
                default:
                    document_.prolog += whiteSpace(below(4));
            }
        }
    }

    Piece piece() {
        Piece result{Piece::Characters, {}};
        switch (below(10)) {
            case 0:
            case 1: {
                const std::string text = commentText();
                result.kind = Piece::Comment;
                result.value.add("<!--" + text + "-->", "<!--" + folded(text) + "-->");
                break;
            }
            case 2: {
                result.kind = Piece::Instruction;
                result.value.add(instruction(), "");
                break;
            }
            case 3: {
                const std::string text = cdata();
                result.kind = Piece::Cdata;
                result.value.add(text, text);
                break;
            }
            default:
                for (unsigned i = 1 + below(5); i > 0; --i) {
                    addCharacters(result.value);
                }
        }
        return result;
    }

    void textRun() {
        Item item{Item::Text, {}, {}, {}, {}, {}};
        bool inText = false;
        for (unsigned i = below(5); i > 0; --i) {
            Piece next = piece();
            // An own piece for each run of characters keeps line ends apart.
            if (next.kind == Piece::Characters && !item.pieces.empty() &&
                item.pieces.back().kind == Piece::Characters) {
                continue;
            }
            if (next.value.written.empty()) {
                continue;
            }
            inText = inText || next.kind == Piece::Characters || next.kind == Piece::Cdata;
            const bool moves =
                next.kind == Piece::Instruction ||
                (next.kind == Piece::Comment && next.value.written != next.value.expanded);
            document_.exact = document_.exact && !(inText && moves);
            text_ += next.value.written;
            item.pieces.push_back(std::move(next));
        }
        if (!item.pieces.empty()) {
            document_.items.push_back(std::move(item));
        }
    }

    Value attributeValue(char quote) {
        Value value;
        for (unsigned i = below(5); i > 0; --i) {
            if (chance(20)) {
                const auto [written, meaning] = reference();
                value.add(written, meaning);
                continue;
            }
            std::string text = chance(10) ? oneOf({"\r\n", "\r", "\t", "\n"}) : character();
            text = text == std::string(1, quote) ? "_" : text;
            value.add(text, text);
        }
        return value;
    }

    Value uri() {
        static const std::pair<const char*, const char*> all[] = {
            {"urn:a", "urn:a"}, {"urn:b", "urn:b"}, {"u", "u"}, {"?a=1&amp;b", "?a=1&b"}, {"", ""}};
        Value value;
        const auto& [written, meaning] = all[below(5)];
        value.add(written, meaning);
        return value;
    }

    void addAttribute(Item& item, bool atRoot) {
        const char quote = chance(50) ? '"' : '\'';
        Attribute attribute;
        if (chance(30)) {
            attribute.value = uri();
            const std::string bound = prefix();
            attribute.prefix = bound.empty() ? "" : "xmlns";
            attribute.local = bound.empty() ? "xmlns" : bound;
            for (const Attribute& binding : item.scopes.back()) {
                const bool again = bound.empty() && binding.prefix.empty();
                document_.selfContained = document_.selfContained && !again;
            }
            item.scopes.back().push_back({bound, "", attribute.value});
        } else {
            attribute.prefix = prefix();
            attribute.local = name();
            attribute.value = attributeValue(quote);
        }
        if (atRoot && attribute.value.written.find('>') != std::string::npos) {
            document_.selfContained = false;
        }
        const std::string qname =
            attribute.prefix.empty() ? attribute.local : attribute.prefix + ":" + attribute.local;
        text_ += qname + whiteSpace(chance(10) ? 2 : 0) + "=" + whiteSpace(chance(10) ? 2 : 0) +
                 quote + attribute.value.written + quote + whiteSpace(chance(80) ? 1 : 0);
        item.attributes.push_back(std::move(attribute));
    }

    void element(const std::string& local, std::vector<Bindings> scopes, unsigned depth) {
        scopes.emplace_back();
        Item item{Item::Start, prefix(), local, {}, std::move(scopes), {}};
        const std::string qname = item.prefix.empty() ? local : item.prefix + ":" + local;
        text_ += "<" + qname + whiteSpace(1 + below(2));
        for (unsigned i = chance(2) ? 40 : below(4); i > 0; --i) {
            addAttribute(item, depth == 0);
        }
        if (chance(depth == 0 ? 3 : 30)) {
            item.kind = Item::Empty;
            text_ += "/>";
            document_.items.push_back(std::move(item));
            return;
        }
        text_ += ">";
        const std::size_t start = text_.size();
        const Item tag = item;
        document_.items.push_back(std::move(item));
        children(tag.scopes, depth);
        if (depth == 0) {
            document_.inner = text_.substr(start);
        }
        text_ += "</" + qname + whiteSpace(chance(10) ? 1 : 0) + ">";
        document_.items.push_back({Item::End, tag.prefix, local, {}, tag.scopes, {}});
    }

    void children(const std::vector<Bindings>& scopes, unsigned depth) {
        textRun();
        if (depth > 20) {
            return;
        }
        for (unsigned i = below(depth < 3 ? 5 : 2); i > 0; --i) {
            element(name(), scopes, depth + 1);
            textRun();
        }
    }

    std::mt19937 random_;
    Document document_;
    std::string text_;
    bool wide_ = false;
};

// ---- What a document must read as ----

std::string resolve(const std::vector<Bindings>& scopes, const std::string& prefix, bool expand) {
    for (auto scope = scopes.rbegin(); scope != scopes.rend(); ++scope) {
        for (const Attribute& binding : *scope) {
            if (binding.prefix == prefix) {
                return binding.value.read(expand);
            }
        }
    }
    return {};
}

std::string written(const std::string& prefix, const std::string& local, const std::string& uri) {
    return prefix + ":" + local + "{" + uri + "}";
}

std::string attributeUri(const Item& item, const Attribute& attribute, const Settings& settings) {
    return attribute.prefix.empty() ? ""
                                    : resolve(item.scopes, attribute.prefix, settings.attributes);
}

std::string expectedTag(const Item& item, const Settings& settings) {
    static const char* const marks[] = {"<", "/", "", ">"};
    std::string result = marks[item.kind == Item::Start ? 0 : item.kind == Item::Empty ? 1 : 3];
    result +=
        written(item.prefix, item.local, resolve(item.scopes, item.prefix, settings.attributes));
    for (const Attribute& attribute : item.attributes) {
        result +=
            " " +
            written(attribute.prefix, attribute.local, attributeUri(item, attribute, settings)) +
            "=" + attribute.value.read(settings.attributes);
    }
    return result;
}

/** The text of a run, with a quote in front; empty if the run is no node. */
std::string expectedText(const Item& item, const Settings& settings) {
    std::string result;
    bool started = false;
    bool keep = settings.comments;
    for (const Piece& piece : item.pieces) {
        const bool starts = piece.kind == Piece::Characters || piece.kind == Piece::Cdata;
        if (!started && !starts) {
            continue;
        }
        if (!started) {
            started = true;
            keep = keep || piece.kind == Piece::Cdata;
            result = "\"";
        }
        if (piece.kind == Piece::Comment) {
            result += keep ? piece.value.expanded : "";
        } else if (piece.kind != Piece::Instruction) {
            result += piece.value.read(settings.content);
        }
    }
    return result;
}

Nodes expectedNodes(const Document& document, const Settings& settings) {
    Nodes result;
    for (const Item& item : document.items) {
        const std::string node =
            item.kind == Item::Text ? expectedText(item, settings) : expectedTag(item, settings);
        if (!node.empty()) {
            result.push_back(node);
        }
    }
    return result;
}

// ---- What it reads as ----

std::string readTag(const XmlReader& reader, bool withAttributes) {
    const XmlReaderName& name = reader.getLastNameI();
    std::string result =
        written(name.prefix.asString(), name.localName.asString(), name.uri.asString());
    const XmlReaderAttributeList& attributes = reader.getLastAttributesI();
    for (std::uint32_t i = 0; withAttributes && i < attributes.length(); ++i) {
        const XmlReaderAttribute& attribute = attributes[i];
        result += " " +
                  written(attribute.name.prefix.asString(), attribute.name.localName.asString(),
                          attribute.name.uri.asString()) +
                  "=" + attribute.value.asString();
    }
    return result;
}

std::string readNode(XmlReader& reader) {
    reader.readNextNode();
    switch (reader.getLastNodeType()) {
        case XmlReader::StartTag:
            return "<" + readTag(reader, true);
        case XmlReader::EmptyTag:
            return "/" + readTag(reader, true);
        case XmlReader::EndTag:
            return ">" + readTag(reader, false);
        case XmlReader::Data:
            return "\"" + reader.getLastContent();
        case XmlReader::Unknown:
            break;
    }
    return "unknown";
}

Nodes readNodes(XmlReader& reader) {
    Nodes result;
    while (!reader.eof()) {
        result.push_back(readNode(reader));
    }
    return result;
}

XmlReader readerWith(const Settings& settings, const std::string& text) {
    XmlReader reader(text);
    reader.setExpandContentReference(settings.content);
    reader.setExpandAttributeReference(settings.attributes);
    reader.setExpandCommentReference(settings.comments);
    return reader;
}

// ---- Encodings ----

std::uint32_t decode(const std::string& text, std::size_t& at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned lead = byte(at++);
    if (lead < 0x80) {
        return lead;
    }
    int more = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    std::uint32_t code = lead & (0x3Fu >> more);
    for (; more > 0; --more) {
        code = code << 6 | (byte(at++) & 0x3Fu);
    }
    return code;
}

std::string toLatin1(const std::string& text) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        result += static_cast<char>(decode(text, at));
    }
    return result;
}

std::string toUtf16(const std::string& text, bool bigEndian) {
    std::string result;
    const auto unit = [&](std::uint32_t value) {
        const char high = static_cast<char>(value >> 8);
        const char low = static_cast<char>(value & 0xFF);
        result += bigEndian ? high : low;
        result += bigEndian ? low : high;
    };
    unit(0xFEFF);
    for (std::size_t at = 0; at < text.size();) {
        const std::uint32_t code = decode(text, at);
        if (code < 0x10000) {
            unit(code);
        } else {
            unit(0xD800 + ((code - 0x10000) >> 10));
            unit(0xDC00 + ((code - 0x10000) & 0x3FF));
        }
    }
    return result;
}

std::string bodyOf(const Document& document) {
    return document.prolog + document.root + document.tail;
}

std::string declaring(const std::string& encoding) {
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>";
}

void expectReads(const Document& document, const Settings& settings, const std::string& text,
                 const std::string& encoding) {
    XmlReader reader = readerWith(settings, text);
    ASSERT_EQ(encoding, reader.getEncoding());
    ASSERT_EQ(expectedNodes(document, settings), readNodes(reader));
}

const unsigned documents = 1000;

template <class Check>
void forEachDocument(unsigned seed, Check check) {
    Generator generator(seed);
    for (unsigned i = 0; i < documents; ++i) {
        const Document document = generator.make();
        SCOPED_TRACE("document " + std::to_string(i) + ": " + bodyOf(document));
        check(document, generator);
        if (::testing::Test::HasFatalFailure()) {
            return;
        }
    }
}

TEST(XmlReaderGenerated, Utf8DocumentsReadAsTheyWereMade) {
    forEachDocument(1, [](const Document& document, Generator&) {
        expectReads(document, {}, bodyOf(document), "UTF-8");
    });
}

TEST(XmlReaderGenerated, DocumentsReadAsTheyWereMadeUnderAllSettings) {
    forEachDocument(2, [](const Document& document, Generator& random) {
        const Settings settings{random.chance(50), random.chance(50), random.chance(50)};
        expectReads(document, settings, bodyOf(document), "UTF-8");
    });
}

TEST(XmlReaderGenerated, DeclaredAndMarkedUtf8ReadsTheSame) {
    forEachDocument(3, [](const Document& document, Generator& random) {
        const std::string mark = random.chance(50) ? "\xEF\xBB\xBF" : "";
        expectReads(document, {}, mark + declaring("UTF-8") + bodyOf(document), "UTF-8");
    });
}

TEST(XmlReaderGenerated, Utf16ReadsTheSame) {
    forEachDocument(4, [](const Document& document, Generator& random) {
        const bool bigEndian = random.chance(50);
        const std::string found = bigEndian ? "UTF-16BE" : "UTF-16LE";
        const std::string declarations[] = {"", declaring("UTF-16"), declaring(found),
                                            "<?xml version='1.0'?>"};
        expectReads(document, {},
                    toUtf16(declarations[random.below(4)] + bodyOf(document), bigEndian), found);
    });
}

TEST(XmlReaderGenerated, Latin1ReadsTheSame) {
    unsigned read = 0;
    forEachDocument(5, [&](const Document& document, Generator& random) {
        if (document.latin1) {
            ++read;
            const std::string encoding = random.chance(50) ? "ISO-8859-1" : "iso-8859-1";
            expectReads(document, {}, toLatin1(declaring(encoding) + bodyOf(document)), encoding);
        }
    });
    EXPECT_GT(read, documents / 4);
}

TEST(XmlReaderGenerated, ViewsAndCopiesAgree) {
    forEachDocument(6, [](const Document& document, Generator&) {
        XmlReader reader(bodyOf(document));
        while (!reader.eof()) {
            reader.readNextNode();
            const XmlReaderName& view = reader.getLastNameI();
            const XmlName name = reader.getLastName();
            ASSERT_EQ(view.localName.asString(), name.getLocalName());
            ASSERT_EQ(view.prefix.asString(), name.getNamespace().getPrefix());
            ASSERT_EQ(view.uri.asString(), name.getNamespace().getURI());
            ASSERT_EQ(reader.getLastContentI().asString(), reader.getLastContent());
        }
    });
}

// Of two attributes with an equal name the set holds the later value under the earlier prefix.
TEST(XmlReaderGenerated, AttributeSetsHoldEachNameOnce) {
    forEachDocument(7, [](const Document& document, Generator&) {
        XmlReader reader(bodyOf(document));
        for (const Item& item : document.items) {
            if (item.kind != Item::Start && item.kind != Item::Empty) {
                continue;
            }
            do {
                reader.readNextNode();
            } while (reader.getLastNodeType() != XmlReader::StartTag &&
                     reader.getLastNodeType() != XmlReader::EmptyTag);
            Nodes expected;
            std::vector<std::pair<std::string, std::string>> keys;
            for (const Attribute& attribute : item.attributes) {
                const std::pair<std::string, std::string> key(attribute.local,
                                                              attributeUri(item, attribute, {}));
                std::size_t at = 0;
                while (at < keys.size() && keys[at] != key) {
                    ++at;
                }
                if (at == keys.size()) {
                    keys.push_back(key);
                    expected.push_back(written(attribute.prefix, key.first, key.second) + "=");
                }
                expected[at].erase(expected[at].find("}=") + 2);
                expected[at] += attribute.value.expanded;
            }
            const XmlAttributeSet set = reader.getLastAttributes();
            Nodes found;
            for (auto i = set.getIteratorBegin(); i != set.getIteratorEnd(); ++i) {
                found.push_back(written(i->getName().getNamespace().getPrefix(),
                                        i->getName().getLocalName(),
                                        i->getName().getNamespace().getURI()) +
                                "=" + i->getValue());
            }
            ASSERT_EQ(expected, found);
        }
    });
}

void readByElement(const Document& document, XmlReader& reader, bool lookAhead) {
    for (const Item& item : document.items) {
        if (item.kind == Item::Text) {
            continue;
        }
        const std::string uri = resolve(item.scopes, item.prefix, true);
        const XmlName name(item.local, XmlNamespace("", uri));
        const XmlReaderName view = XmlReader::asXmlReaderName(name);
        if (item.kind == Item::End) {
            if (lookAhead) {
                ASSERT_FALSE(reader.isElementNextI(view));
            }
            reader.readElementEndI(view);
            continue;
        }
        if (lookAhead) {
            // Without a URI the default namespace is asked for; an empty tag's own is gone.
            std::vector<Bindings> scopes = item.scopes;
            if (item.kind == Item::Empty) {
                scopes.pop_back();
            }
            const std::string asked = uri.empty() ? resolve(scopes, "", true) : uri;
            ASSERT_EQ(asked == uri, reader.isElementNextI(view));
            ASSERT_EQ(asked == uri, reader.isElementNext(name));
            ASSERT_EQ(asked == uri, reader.isElementNextI(item.local, uri));
            ASSERT_FALSE(reader.isElementNextI(item.local, "elsewhere"));
        }
        reader.readElementStartI(view);
        if (item.kind == Item::Empty) {
            ASSERT_EQ(XmlReader::EmptyTag, reader.getLastNodeType());
            reader.readElementEnd(name);
        }
    }
    ASSERT_TRUE(reader.eof());
}

TEST(XmlReaderGenerated, ReadByElement) {
    forEachDocument(8, [](const Document& document, Generator&) {
        XmlReader reader(bodyOf(document));
        readByElement(document, reader, false);
        XmlReader asking(bodyOf(document));
        readByElement(document, asking, true);
    });
}

TEST(XmlReaderGenerated, RawElementIsTheWrittenText) {
    unsigned compared = 0;
    forEachDocument(9, [&](const Document& document, Generator&) {
        if (!document.exact) {
            return;
        }
        ++compared;
        XmlReader reader(bodyOf(document));
        ASSERT_EQ(document.root, reader.readElement(XmlReader::NullName));
        ASSERT_EQ(XmlReader::EndTag, reader.getLastNodeType());
        ASSERT_EQ(document.inner, reader.getLastContent());
        ASSERT_TRUE(reader.eof());
    });
    EXPECT_GT(compared, documents / 10);
}

TEST(XmlReaderGenerated, RawElementHasTheLengthOfTheWrittenText) {
    forEachDocument(10, [](const Document& document, Generator&) {
        XmlReader reader(bodyOf(document));
        ASSERT_EQ(document.root.size(), reader.readElement(XmlReader::NullName).size());
        ASSERT_EQ(document.inner.size(), reader.getLastContent().size());
        ASSERT_TRUE(reader.eof());
    });
}

TEST(XmlReaderGenerated, ElementReaderReadsTheSameNodes) {
    forEachDocument(11, [](const Document& document, Generator& random) {
        if (!document.exact) {
            return;
        }
        const Settings settings{random.chance(50), random.chance(50), random.chance(50)};
        XmlReader reader = readerWith(settings, bodyOf(document));
        XmlReader child = reader.getElementReader(XmlReader::NullName);
        ASSERT_TRUE(reader.eof());
        const Nodes expected = expectedNodes(document, settings);
        Nodes found;
        while (found.size() < expected.size()) {
            found.push_back(readNode(child));
        }
        ASSERT_EQ(expected, found);
    });
}

/** Whether a tag has an attribute with an unbound prefix, which gets a declaration. */
bool hasUnboundAttribute(const Document& document) {
    for (const Item& item : document.items) {
        for (const Attribute& attribute : item.attributes) {
            if (attribute.prefix.empty() || attribute.prefix == "xmlns") {
                continue;
            }
            bool bound = false;
            for (const Bindings& scope : item.scopes) {
                for (const Attribute& binding : scope) {
                    bound = bound || binding.prefix == attribute.prefix;
                }
            }
            if (!bound) {
                return true;
            }
        }
    }
    return false;
}

TEST(XmlReaderGenerated, WellFormedRootNeedsNothing) {
    unsigned compared = 0;
    forEachDocument(12, [&](const Document& document, Generator&) {
        if (!document.exact || !document.selfContained || hasUnboundAttribute(document)) {
            return;
        }
        ++compared;
        XmlReader reader(bodyOf(document));
        ASSERT_EQ(document.root, reader.readWellFormedElement(XmlReader::NullName));
        ASSERT_EQ(document.inner, reader.getLastContent());
        ASSERT_TRUE(reader.eof());
    });
    EXPECT_GT(compared, documents / 20);
}

TEST(XmlReaderGenerated, DocumentsCutShortEndProperly) {
    forEachDocument(13, [](const Document& document, Generator& random) {
        const std::string text = bodyOf(document);
        const std::string cut = text.substr(0, random.below(static_cast<unsigned>(text.size())));
        try {
            XmlReader reader(cut);
            const Nodes expected = expectedNodes(document, {});
            std::size_t at = 0;
            while (!reader.eof()) {
                const std::string node = readNode(reader);
                ASSERT_LT(at, expected.size());
                ASSERT_EQ(expected[at++], node);
            }
        } catch (const XmlParseLineColException&) {
            // read as far as it goes
        }
    });
}

}  // namespace
}  // namespace nolk
