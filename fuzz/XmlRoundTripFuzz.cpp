// A document through the SAX parser into the writer: if it parses, what is written parses too and
// says the same. That is promised for documents whose names are names; the parser itself looks at
// the first character of a name only, so others are left alone once they are read without harm.
#include "CopyHandler.h"
#include "DocumentCursor.h"
#include "FuzzInput.h"

#include <nolk/core/Exception.h>
#include <nolk/core/XmlSAXParser.h>
#include <nolk/core/XmlStringWriter.h>

#include <algorithm>
#include <string>

namespace {

bool isLetter(unsigned char c) {
    return (c | 0x20) >= 'a' && (c | 0x20) <= 'z';
}

bool isNameByte(unsigned char c) {
    return isLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '.';
}

// ASCII only: how a broken multi-byte character ends a name depends on what stands behind it.
bool isSimpleName(const std::string& name) {
    return !name.empty() && (isLetter(static_cast<unsigned char>(name[0])) || name[0] == '_') &&
           std::all_of(name.begin(), name.end(),
                       [](char c) { return isNameByte(static_cast<unsigned char>(c)); });
}

// Passes all on, and notes what the promise doesn't cover.
class WatchingHandler : public nolk::XmlContentHandler {
public:
    explicit WatchingHandler(nolk::XmlContentHandler& next) : next_(next) {}

    bool isPromised() const { return promised_; }

    void startElement(const nolk::XmlName& name, const nolk::XmlAttributeSet& attributes) override {
        ++depth_;
        watchName(name);
        watchAttributes(attributes);
        next_.startElement(name, attributes);
    }
    void endElement(const nolk::XmlName& name) override {
        --depth_;
        watchName(name);
        next_.endElement(name);
    }
    void characters(const std::string& text) override {
        // Between two roots, which no document has, white space may be dropped.
        promised_ &= depth_ > 0;
        next_.characters(text);
    }

private:
    void watchName(const nolk::XmlName& name) {
        const std::string& prefix = name.getNamespace().getPrefix();
        promised_ &= isSimpleName(name.getLocalName()) &&
                     (prefix.empty() || isSimpleName(prefix)) && prefix != "xmlns";
    }

    void watchAttributes(const nolk::XmlAttributeSet& attributes) {
        for (auto i = attributes.getIteratorBegin(); i != attributes.getIteratorEnd(); ++i) {
            const nolk::XmlName& name = i->getName();
            const std::string& prefix = name.getNamespace().getPrefix();
            const bool declares = prefix == "xmlns";
            promised_ &= isSimpleName(name.getLocalName());
            promised_ &= prefix.empty() || isSimpleName(prefix);
            // A prefix that may not be bound, and an attribute that looks like a declaration.
            promised_ &=
                !declares || (name.getLocalName() != "xmlns" && name.getLocalName() != "xml");
            promised_ &= prefix.empty() || name.getLocalName() != "xmlns";
        }
    }

    nolk::XmlContentHandler& next_;
    bool promised_ = true;
    int depth_ = 0;
};

// A declaration that a set of attributes drops for another one, or a plain attribute that it drops
// for a declaration: to it they have equal names.
bool hasLostAttributes(const nolk::XmlReaderAttributeList& list) {
    for (std::uint32_t i = 0; i < list.length(); ++i) {
        for (std::uint32_t j = 0; j < i; ++j) {
            if (list[i].name == list[j].name &&
                (isDeclaration(list[i].name) || isDeclaration(list[j].name))) {
                return true;
            }
        }
    }
    return false;
}

void compare(const std::string& document, const std::string& written) {
    DocumentCursor wanted(document);
    DocumentCursor found(written);
    DocumentCursor::Step step = DocumentCursor::Start;
    while (step != DocumentCursor::Done) {
        step = wanted.next();
        if (step == DocumentCursor::Start &&
            hasLostAttributes(wanted.reader().getLastAttributesI())) {
            return;
        }
        require(found.next() == step, "what is written has the same nodes");
        if (step == DocumentCursor::Start) {
            require(found.name() == wanted.name(), "an element has its name");
            require(found.attributes() == wanted.attributes(), "an element has its attributes");
        } else if (step == DocumentCursor::End) {
            require(found.name() == wanted.name(), "an end has its name");
        } else if (step == DocumentCursor::Text) {
            require(found.text() == wanted.text(), "a text is the same");
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string document(reinterpret_cast<const char*>(data), size);
    nolk::XmlStringWriter writer(static_cast<unsigned>(size % 64));
    CopyHandler copy(writer);
    WatchingHandler handler(copy);
    nolk::XmlSAXParser parser;
    parser.setContentHandler(&handler);
    try {
        parser.parse(document);
    } catch (const nolk::Exception&) {
        return 0;
    }
    copy.finish();
    if (handler.isPromised()) {
        compare(document, writer.getString());
    }
    return 0;
}
