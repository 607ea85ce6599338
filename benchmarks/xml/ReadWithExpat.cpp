#include "Readers.h"

#include <expat.h>

#include <cstring>
#include <memory>

namespace {

using Parser = std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)>;

void startElement(void* data, const XML_Char* name, const XML_Char** attributes) {
    Tally& tally = *static_cast<Tally*>(data);
    ++tally.elements;
    tally.nameBytes += std::strlen(name);
    for (; *attributes != nullptr; attributes += 2) {
        ++tally.attributes;
        tally.nameBytes += std::strlen(attributes[0]);
        tally.valueBytes += std::strlen(attributes[1]);
    }
}

void endElement(void*, const XML_Char*) {}

void characters(void* data, const XML_Char*, int length) {
    static_cast<Tally*>(data)->textBytes += static_cast<std::uint64_t>(length);
}

Tally read(Parser parser, const std::string& document) {
    Tally tally;
    XML_SetUserData(parser.get(), &tally);
    XML_SetElementHandler(parser.get(), startElement, endElement);
    XML_SetCharacterDataHandler(parser.get(), characters);
    const auto size = static_cast<int>(document.size());
    if (XML_Parse(parser.get(), document.data(), size, XML_TRUE) != XML_STATUS_OK) {
        readFailed("expat", XML_ErrorString(XML_GetErrorCode(parser.get())));
    }
    return tally;
}

}  // namespace

Tally readWithExpat(const std::string& document) {
    return read(Parser(XML_ParserCreate(nullptr), XML_ParserFree), document);
}

// Names come as one text here, the URI in front: all of it counts as name.
Tally readWithExpatNamespaces(const std::string& document) {
    return read(Parser(XML_ParserCreateNS(nullptr, '|'), XML_ParserFree), document);
}
