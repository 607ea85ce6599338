#include "RoundTrip.h"

#include "CopyHandler.h"
#include "DocumentCursor.h"

#include <nolk/core/MessageIds.h>
#include <nolk/core/XmlSAXParser.h>
#include <nolk/core/XmlStringWriter.h>

#include <algorithm>
#include <utility>

namespace {

// Makes a cursor and lets go of the text.
DocumentCursor cursorOver(std::string document) {
    return DocumentCursor(document);
}

bool sameContent(DocumentCursor::Step step, const DocumentCursor& a, const DocumentCursor& b) {
    switch (step) {
        case DocumentCursor::Start:
            return a.name() == b.name() && a.attributes() == b.attributes();
        case DocumentCursor::End:
            return a.name() == b.name();
        case DocumentCursor::Text:
            return a.text() == b.text();
        default:
            return true;
    }
}

// The copy is rarely much longer than the original, so that its buffer hardly ever grows.
unsigned expectedLength(const std::string& document) {
    const std::size_t most = 0xF0000000;
    return static_cast<unsigned>(std::min(document.size() + document.size() / 16 + 4096, most));
}

}  // namespace

std::string writeAgain(const std::string& document) {
    nolk::XmlStringWriter writer(expectedLength(document));
    CopyHandler handler(writer);
    nolk::XmlSAXParser parser;
    parser.setContentHandler(&handler);
    parser.parse(document);
    handler.finish();
    return writer.getString();
}

void compareContent(std::string original, std::string copy) {
    DocumentCursor wanted = cursorOver(std::move(original));
    DocumentCursor found = cursorOver(std::move(copy));
    DocumentCursor::Step step = DocumentCursor::Start;
    while (step != DocumentCursor::Done) {
        step = wanted.next();
        if (found.next() != step || !sameContent(step, wanted, found)) {
            wanted.reader().err(nolk::here(),
                                nolk::message(nolk::NOLK_CORE_XML_PARSE_UNEXPECTED_ELEMENT,
                                              wanted.describe(), found.describe()));
        }
    }
}
