#include "Readers.h"

#include <nolk/core/XmlContentHandler.h>
#include <nolk/core/XmlReader.h>
#include <nolk/core/XmlReaderString.h>
#include <nolk/core/XmlSAXParser.h>

namespace {

void addTag(Tally& tally, const nolk::XmlReader& reader) {
    const nolk::XmlReaderName& name = reader.getLastNameI();
    ++tally.elements;
    tally.nameBytes += name.prefix.length + name.localName.length;
    tally.uriBytes += name.uri.length;
    for (const nolk::XmlReaderAttribute& attribute : reader.getLastAttributesI()) {
        ++tally.attributes;
        tally.nameBytes += attribute.name.prefix.length + attribute.name.localName.length;
        tally.uriBytes += attribute.name.uri.length;
        tally.valueBytes += attribute.value.length;
    }
}

class TallyHandler : public nolk::XmlContentHandler {
public:
    void startElement(const nolk::XmlName& name, const nolk::XmlAttributeSet& attributes) override {
        ++tally.elements;
        addName(name);
        for (auto i = attributes.getIteratorBegin(); i != attributes.getIteratorEnd(); ++i) {
            ++tally.attributes;
            addName(i->getName());
            tally.valueBytes += i->getValue().size();
        }
    }
    void endElement(const nolk::XmlName&) override {}
    void characters(const std::string& text) override { tally.textBytes += text.size(); }

    Tally tally;

private:
    void addName(const nolk::XmlName& name) {
        const nolk::XmlNamespace& ns = name.getNamespace();
        tally.nameBytes += ns.getPrefix().size() + name.getLocalName().size();
        tally.uriBytes += ns.getURI().size();
    }
};

}  // namespace

Tally readWithNolkPull(const std::string& document) {
    Tally tally;
    nolk::XmlReader reader(document);
    while (!reader.eof()) {
        reader.readNextNode();
        switch (reader.getLastNodeType()) {
            case nolk::XmlReader::StartTag:
            case nolk::XmlReader::EmptyTag:
                addTag(tally, reader);
                break;
            case nolk::XmlReader::Data:
                tally.textBytes += reader.getLastContentI().length;
                break;
            default:
                break;
        }
    }
    return tally;
}

Tally readWithNolkSax(const std::string& document) {
    TallyHandler handler;
    nolk::XmlSAXParser parser;
    parser.setContentHandler(&handler);
    parser.parse(document);
    return handler.tally;
}
