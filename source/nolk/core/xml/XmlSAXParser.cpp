#include <nolk/core/XmlSAXParser.h>

#include <nolk/core/ExceptionInfo.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>
#include <nolk/core/XmlAttributeSet.h>
#include <nolk/core/XmlContentHandler.h>
#include <nolk/core/XmlName.h>
#include <nolk/core/XmlReader.h>

#include <cstddef>
#include <list>
#include <vector>

namespace nolk {

/**
 * One parse: turns the nodes of its reader into calls of the parser's handler.
 *
 * What the handler is given is kept in objects that are filled anew for each event, so that their
 * storage serves again: once the deepest nesting, the largest tag and the longest text were seen,
 * a parse allocates nothing.
 */
class XmlSAXParser::Events {
public:
    Events(XmlSAXParser& parser, const std::string& document) : parser_(parser), reader_(document) {
        reader_.setExpandAttributeReference(parser_.expandAttributeReference_);
        parser_.reader_ = &reader_;
    }
    Events(const Events&) = delete;
    Events& operator=(const Events&) = delete;
    ~Events() { parser_.reader_ = nullptr; }

    void run() {
        bool more = true;
        while (more && !reader_.eof()) {
            reader_.readNextNode();
            more = passOn(reader_.getLastNodeType());
        }
    }

private:
    bool passOn(XmlReader::NodeType type) {
        switch (type) {
            case XmlReader::StartTag:
                start(open());
                return true;
            case XmlReader::EndTag:
                endTag();
                return true;
            case XmlReader::EmptyTag:
                emptyTag();
                return true;
            case XmlReader::Data:
                data();
                return true;
            default:
                return false;
        }
    }

    // Any call of the handler may put another in its place: it is asked for anew each time.
    XmlContentHandler* handler() const { return parser_.contentHandler_; }

    static void read(const XmlReaderName& from, XmlName& to) {
        to.assign(from.localName.view(), from.prefix.view(), from.uri.view());
    }

    // Appends the reader's name to those of the open elements.
    const XmlName& open() {
        if (depth_ == openNames_.size()) {
            openNames_.emplace_back();
        }
        XmlName& name = openNames_[depth_];
        read(reader_.getLastNameI(), name);
        ++depth_;
        return name;
    }

    void start(const XmlName& name) {
        if (handler() != nullptr) {
            attributes_.refill(reader_.getLastAttributesI(), spareAttributes_);
            handler()->startElement(name, attributes_);
        }
    }

    void end(const XmlName& name) {
        if (handler() != nullptr) {
            handler()->endElement(name);
        }
    }

    void emptyTag() {
        read(reader_.getLastNameI(), emptyName_);
        start(emptyName_);
        end(emptyName_);
    }

    void endTag() {
        const XmlReaderName& found = reader_.getLastNameI();
        if (depth_ == 0 || !closes(found, openNames_[depth_ - 1])) {
            reader_.err(here(), message(NOLK_CORE_XML_PARSE_UNMATCHED_START,
                                        reader_.getLastName().asString()));
        }
        XmlName& name = openNames_[--depth_];
        if (handler() != nullptr) {
            // The end tag may spell the name with another prefix of the same namespace.
            read(found, name);
            end(name);
        }
    }

    static bool closes(const XmlReaderName& found, const XmlName& name) {
        return found.localName.view() == name.getLocalName() &&
               found.uri.view() == name.getNamespace().getURI();
    }

    void data() {
        if (handler() != nullptr) {
            text_.assign(reader_.getLastContentI().view());
            handler()->characters(text_);
        }
    }

    XmlSAXParser& parser_;
    XmlReader reader_;
    std::vector<XmlName> openNames_;  ///< the first depth_ are open, the others kept for reuse
    std::size_t depth_ = 0;
    XmlName emptyName_;
    XmlAttributeSet attributes_;
    std::list<XmlAttribute> spareAttributes_;
    std::string text_;
};

XmlSAXParser::XmlSAXParser(const XmlSAXParser& other) noexcept
    : contentHandler_(other.contentHandler_),
      expandAttributeReference_(other.expandAttributeReference_) {}

XmlSAXParser& XmlSAXParser::operator=(const XmlSAXParser& other) noexcept {
    contentHandler_ = other.contentHandler_;
    expandAttributeReference_ = other.expandAttributeReference_;
    return *this;
}

std::string XmlSAXParser::getPrefixForURI(const std::string& uri) const {
    return reader_ != nullptr ? reader_->getPrefixForURI(uri) : std::string();
}

std::string XmlSAXParser::getURIForPrefix(const std::string& prefix) const {
    return reader_ != nullptr ? reader_->getURIForPrefix(prefix) : std::string();
}

void XmlSAXParser::parse(const std::string& document, const std::string& /*second*/) {
    Events(*this, document).run();
}

}  // namespace nolk
