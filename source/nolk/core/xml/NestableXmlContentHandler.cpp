#include <nolk/core/NestableXmlContentHandler.h>

#include <nolk/core/XmlSAXParser.h>

namespace nolk {

NestableXmlContentHandler::NestableXmlContentHandler(XmlSAXParser* parser,
                                                     XmlContentHandler* parent)
    : parser_(parser), parent_(parent) {
    if (parser_ != nullptr) {
        parser_->setContentHandler(this);
    }
}

NestableXmlContentHandler::~NestableXmlContentHandler() = default;

void NestableXmlContentHandler::endElement(const XmlName& name) {
    if (parser_ != nullptr && parent_ != nullptr) {
        parser_->setContentHandler(parent_);
        parent_->endElement(name);
    }
}

}  // namespace nolk
