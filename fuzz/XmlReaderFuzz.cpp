// Raw bytes through the pull reader. The first byte holds the settings, the second the length of a
// script of operations, one byte each; the rest is the document, in whatever encoding. Behind the
// script the rest is read node by node.
#include "FuzzInput.h"

#include <nolk/core/Exception.h>
#include <nolk/core/XmlAttributeSet.h>
#include <nolk/core/XmlName.h>
#include <nolk/core/XmlNamespace.h>
#include <nolk/core/XmlReader.h>

#include <vector>

namespace {

using nolk::XmlName;
using nolk::XmlReader;

constexpr int mostFailures = 4;
constexpr int mostReaders = 8;

std::uint64_t touched = 0;

void touch(const nolk::XmlReaderString& view) {
    require(view.data != nullptr, "a view points somewhere");
    for (const char c : view.view()) {
        touched += static_cast<unsigned char>(c);
    }
}

void touch(const nolk::XmlReaderName& name) {
    touch(name.localName);
    touch(name.prefix);
    touch(name.uri);
}

void touch(const nolk::XmlReaderNamespaceStack& stack) {
    for (const char* prefix : {"", "a", "xmlns", "xml"}) {
        touch(stack.getURIForPrefix(nolk::XmlReaderString::of(prefix)));
    }
    touch(stack.getPrefixForURI(nolk::XmlReaderString::of("u")));
}

// Every view that the reader hands out lies in live memory, whatever was read before.
void touchAll(const XmlReader& reader) {
    touch(reader.getLastNameI());
    touch(reader.getLastContentI());
    for (const nolk::XmlReaderAttribute& attribute : reader.getLastAttributesI()) {
        touch(attribute.name);
        touch(attribute.value);
    }
    touch(reader.getEncodingI());
    touch(reader.getVersionI());
    touch(reader.getStandaloneI());
    require(reader.getLastNodeType() <= XmlReader::Unknown, "the node has a type");
}

// The copies say the same as the views.
void compareCopies(const XmlReader& reader) {
    const XmlName name = reader.getLastName();
    require(XmlReader::asXmlReaderName(name) == reader.getLastNameI(), "the names are equal");
    require(reader.getLastContent() == reader.getLastContentI().view(), "the texts are equal");
    const nolk::XmlAttributeSet attributes = reader.getLastAttributes();
    require(attributes.entries() <= reader.getLastAttributesI().length(),
            "a set holds no more than the list");
    require(reader.getEncoding() == reader.getEncodingI().view(), "the encodings are equal");
    touch(reader.getNamespaceStack());
}

class Session {
public:
    Session(const XmlReader& reader, FuzzInput script) : script_(script) {
        readers_.push_back(reader);
    }

    void run() {
        while (!script_.empty() && failures_ < mostFailures) {
            attempt([this] { operate(script_.byte()); });
        }
        // A child is read to its end before its parent goes on.
        while (!readers_.empty()) {
            attempt([this] { drain(); });
            readers_.pop_back();
        }
    }

private:
    template <typename Operation>
    void attempt(Operation operation) {
        try {
            operation();
        } catch (const nolk::Exception& failure) {
            // Nothing goes on from here in earnest, but it must not harm either.
            require(failure.what()[0] == '[', "a failure has a text");
            ++failures_;
        }
        touchAll(reader());
    }

    XmlReader& reader() { return readers_.back(); }

    void drain() {
        while (!reader().eof()) {
            reader().readNextNode();
            touchAll(reader());
        }
        require(reader().eof(), "the end stays the end");
    }

    // A name by which something may be there: that of the last tag, any, or one from the start.
    XmlName nameFor(unsigned choice) {
        switch (choice & 3) {
            case 0:
                return reader().getLastName();
            case 1:
                return XmlReader::NullName;
            case 2:
                return XmlName("a");
            default:
                return XmlName("b", nolk::XmlNamespace("p", "u"));
        }
    }

    void operate(unsigned operation) {
        const XmlName name = nameFor(operation >> 5);
        switch (operation & 31) {
            case 0:
            case 1:
                reader().readNextNode();
                break;
            case 2:
                reader().isElementNext(name);
                break;
            case 3:
                reader().isElementNext(name.getQualifiedName());
                break;
            case 4:
                reader().isElementNextI(name.getLocalName(), name.getNamespace().getURI());
                break;
            case 5:
                reader().readElementStart();
                break;
            case 6:
                reader().readElementStart(name);
                break;
            case 7:
                reader().readElementStart(name.getQualifiedName());
                break;
            case 8:
                touch(reader().readElementValueI());
                break;
            case 9:
                touched += reader().readElementValue().size();
                break;
            case 10:
                reader().readElementEnd();
                break;
            case 11:
                reader().readElementEnd(name);
                break;
            case 12:
                reader().readElementEndI(XmlReader::asXmlReaderName(name));
                break;
            case 13:
                touched += reader().readElement(name).size();
                break;
            case 14:
                touch(reader().readElementI(XmlReader::asXmlReaderName(name)));
                break;
            case 15:
                descend(name);
                break;
            case 16:
                touched += reader().readWellFormedElement(name).size();
                break;
            case 17:
                ascend();
                break;
            default:
                set(operation & 31);
                break;
        }
    }

    void set(unsigned operation) {
        switch (operation) {
            case 18:
                reader().setExpandAttributeReference(!reader().getExpandAttributeReference());
                break;
            case 19:
                reader().setExpandContentReference(!reader().getExpandContentReference());
                break;
            case 20:
                reader().setExpandCommentReference(!reader().getExpandCommentReference());
                break;
            case 21:
                compareCopies(reader());
                break;
            case 22:
                reader().addNamespace(nolk::XmlNamespace("a", "u"));
                break;
            case 23:
                reader().setNamespaceStack(reader().getNamespaceStack());
                break;
            case 24:
                reader().eof();
                break;
            case 25:
                nestFragment();
                break;
            default:
                break;
        }
    }

    void descend(const XmlName& name) {
        if (readers_.size() < mostReaders) {
            readers_.push_back(reader().getElementReader(name));
        }
    }

    void ascend() {
        if (readers_.size() > 1) {
            drain();
            readers_.pop_back();
        }
    }

    // The next element alone, with the prefixes of its place.
    void nestFragment() {
        const std::string fragment = reader().readElement(XmlReader::NullName);
        // Only now: what it views ends if the element converts the document.
        const nolk::XmlReaderNamespaceStack inherited = reader().getNamespaceStack();
        XmlReader nested(inherited, fragment);
        nested.readNextNode();
        touchAll(nested);
    }

    std::vector<XmlReader> readers_;
    FuzzInput script_;
    int failures_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const unsigned settings = input.byte();
    const std::string script = input.text(input.byte() & 31);
    const std::string document = input.rest();
    try {
        XmlReader reader(document);
        reader.setExpandAttributeReference((settings & 1) == 0);
        reader.setExpandContentReference((settings & 2) == 0);
        reader.setExpandCommentReference((settings & 4) != 0);
        touchAll(reader);
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(script.data());
        Session(reader, FuzzInput(bytes, script.size())).run();
    } catch (const nolk::Exception&) {
        // A bad prolog.
    }
    return 0;
}
