#ifndef NOLK_CORE_XML_XML_READER_KEPT_ELEMENT_H
#define NOLK_CORE_XML_XML_READER_KEPT_ELEMENT_H

#include <nolk/core/XmlReaderImp.h>

namespace nolk {

/** Registers itself with the reader for as long as it lives. */
struct XmlReaderImp::KeptElement {
    KeptElement(XmlReaderImp& reader, char* elementStart)
        : start(elementStart),
          name(reader.lastName()),
          attributes(reader.lastAttributes_),
          owner(reader),
          outer(reader.kept_) {
        reader.kept_ = this;
    }
    ~KeptElement() { owner.kept_ = outer; }
    KeptElement(const KeptElement&) = delete;
    KeptElement& operator=(const KeptElement&) = delete;

    char* start;  // the `<` of the element
    XmlReaderName name;
    XmlReaderAttributeList attributes;
    XmlReaderImp& owner;
    KeptElement* outer;
};

}  // namespace nolk

#endif
