#include "DocumentCursor.h"

#include <algorithm>

bool isDeclaration(const nolk::XmlReaderName& attribute) {
    const std::string_view prefix = attribute.prefix.view();
    return prefix == "xmlns" || (prefix.empty() && attribute.localName.view() == "xmlns");
}

DocumentCursor::Step DocumentCursor::next() {
    step_ = readNode();
    return step_;
}

DocumentCursor::Step DocumentCursor::readNode() {
    if (emptyTagIsOpen_) {
        emptyTagIsOpen_ = false;
        return End;
    }
    if (reader_.eof()) {
        return Done;
    }
    reader_.readNextNode();
    switch (reader_.getLastNodeType()) {
        case nolk::XmlReader::Data:
            return Text;
        case nolk::XmlReader::EndTag:
            return End;
        default:
            emptyTagIsOpen_ = reader_.getLastNodeType() == nolk::XmlReader::EmptyTag;
            collectAttributes();
            return Start;
    }
}

void DocumentCursor::collectAttributes() {
    attributes_.clear();
    for (const nolk::XmlReaderAttribute& attribute : reader_.getLastAttributesI()) {
        if (isDeclaration(attribute.name)) {
            continue;
        }
        const ContentAttribute found{attribute.name.uri.view(), attribute.name.localName.view(),
                                     attribute.value.view()};
        const auto same = std::find_if(
            attributes_.begin(), attributes_.end(), [&](const ContentAttribute& earlier) {
                return earlier.uri == found.uri && earlier.localName == found.localName;
            });
        if (same == attributes_.end()) {
            attributes_.push_back(found);
        } else {
            same->value = found.value;
        }
    }
}

std::string DocumentCursor::describe() const {
    switch (step_) {
        case Start:
            return "start of " + name().asXmlName().getUniqueName() + " with " +
                   std::to_string(attributes_.size()) + " attributes";
        case End:
            return "end of " + name().asXmlName().getUniqueName();
        case Text:
            return "text of " + std::to_string(text().size()) + " bytes";
        default:
            return "end of document";
    }
}
