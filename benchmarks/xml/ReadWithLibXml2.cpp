#include "Readers.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/xmlreader.h>

#include <cstring>
#include <memory>

namespace {

// References are to be replaced in attribute values too, as all the others do.
constexpr int options = XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_HUGE;

std::uint64_t lengthOf(const xmlChar* text) {
    return text == nullptr ? 0 : std::strlen(reinterpret_cast<const char*>(text));
}

void startElement(void* data, const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri,
                  int, const xmlChar**, int count, int, const xmlChar** attributes) {
    Tally& tally = *static_cast<Tally*>(data);
    ++tally.elements;
    tally.nameBytes += lengthOf(localName) + lengthOf(prefix);
    tally.uriBytes += lengthOf(uri);
    for (int i = 0; i < count; ++i, attributes += 5) {
        ++tally.attributes;
        tally.nameBytes += lengthOf(attributes[0]) + lengthOf(attributes[1]);
        tally.uriBytes += lengthOf(attributes[2]);
        tally.valueBytes += static_cast<std::uint64_t>(attributes[4] - attributes[3]);
    }
}

void endElement(void*, const xmlChar*, const xmlChar*, const xmlChar*) {}

void characters(void* data, const xmlChar*, int length) {
    static_cast<Tally*>(data)->textBytes += static_cast<std::uint64_t>(length);
}

xmlSAXHandler makeHandler() {
    xmlSAXHandler handler = {};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElementNs = startElement;
    handler.endElementNs = endElement;
    handler.characters = characters;
    handler.ignorableWhitespace = characters;
    handler.cdataBlock = characters;
    return handler;
}

void addName(Tally& tally, xmlTextReaderPtr reader) {
    tally.nameBytes += lengthOf(xmlTextReaderConstLocalName(reader));
    tally.nameBytes += lengthOf(xmlTextReaderConstPrefix(reader));
    tally.uriBytes += lengthOf(xmlTextReaderConstNamespaceUri(reader));
}

void addElement(Tally& tally, xmlTextReaderPtr reader) {
    ++tally.elements;
    addName(tally, reader);
    while (xmlTextReaderMoveToNextAttribute(reader) == 1) {
        ++tally.attributes;
        addName(tally, reader);
        tally.valueBytes += lengthOf(xmlTextReaderConstValue(reader));
    }
}

void addNode(Tally& tally, xmlTextReaderPtr reader) {
    switch (xmlTextReaderNodeType(reader)) {
        case XML_READER_TYPE_ELEMENT:
            addElement(tally, reader);
            break;
        case XML_READER_TYPE_TEXT:
        case XML_READER_TYPE_CDATA:
        case XML_READER_TYPE_WHITESPACE:
        case XML_READER_TYPE_SIGNIFICANT_WHITESPACE:
            tally.textBytes += lengthOf(xmlTextReaderConstValue(reader));
            break;
        default:
            break;
    }
}

}  // namespace

Tally readWithLibXml2Sax(const std::string& document) {
    static xmlSAXHandler handler = makeHandler();
    Tally tally;
    const std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> context(
        xmlCreateMemoryParserCtxt(document.data(), static_cast<int>(document.size())),
        xmlFreeParserCtxt);
    xmlSAXHandlerPtr const own = context->sax;
    context->sax = &handler;
    context->userData = &tally;
    xmlCtxtUseOptions(context.get(), options);
    const int status = xmlParseDocument(context.get());
    context->sax = own;
    if (status != 0) {
        readFailed("libxml2 SAX2", "malformed");
    }
    return tally;
}

Tally readWithLibXml2Reader(const std::string& document) {
    Tally tally;
    const auto size = static_cast<int>(document.size());
    const std::unique_ptr<xmlTextReader, decltype(&xmlFreeTextReader)> reader(
        xmlReaderForMemory(document.data(), size, nullptr, nullptr, options), xmlFreeTextReader);
    int status = xmlTextReaderRead(reader.get());
    for (; status == 1; status = xmlTextReaderRead(reader.get())) {
        addNode(tally, reader.get());
    }
    if (status != 0) {
        readFailed("libxml2 text reader", "malformed");
    }
    return tally;
}
