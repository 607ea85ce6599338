#ifndef NOLK_EXAMPLES_OUTLINE_DOCUMENT_CURSOR_H
#define NOLK_EXAMPLES_OUTLINE_DOCUMENT_CURSOR_H

#include <nolk/core/XmlReader.h>

#include <string>
#include <string_view>
#include <vector>

/** Whether an attribute binds a namespace: `xmlns` or `xmlns:prefix`. */
bool isDeclaration(const nolk::XmlReaderName& attribute);

/** An attribute without its prefix, which doesn't belong to the content. */
struct ContentAttribute {
    std::string_view uri;
    std::string_view localName;
    std::string_view value;

    bool operator==(const ContentAttribute&) const = default;
};

/**
 * Steps through what a document says, whichever way it is spelled: an empty tag is a start and an
 * end, prefixes and declarations are left out. All views last until the next step.
 */
class DocumentCursor {
public:
    enum Step { Start, End, Text, Done };

    explicit DocumentCursor(const std::string& document) : reader_(document) {}

    /** Throws nolk::XmlParseLineColException as the reader does. */
    Step next();

    const nolk::XmlReaderName& name() const { return reader_.getLastNameI(); }
    /** Of a start, in the document's order. Of attributes with equal names (`lang` and `xml:lang`
     * are such: the prefix xml isn't bound) the last value counts, as in XmlAttributeSet. */
    const std::vector<ContentAttribute>& attributes() const { return attributes_; }
    std::string_view text() const { return reader_.getLastContentI().view(); }

    /** For the message: what the last step met. */
    std::string describe() const;

    const nolk::XmlReader& reader() const { return reader_; }

private:
    Step readNode();
    void collectAttributes();

    nolk::XmlReader reader_;
    Step step_ = Done;
    bool emptyTagIsOpen_ = false;
    std::vector<ContentAttribute> attributes_;
};

#endif
