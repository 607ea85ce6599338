#ifndef NOLK_CORE_XML_READER_ATTRIBUTE_H
#define NOLK_CORE_XML_READER_ATTRIBUTE_H

#include <nolk/core/XmlReaderName.h>

namespace nolk {

/** One attribute of a tag as views. Owns nothing. */
struct XmlReaderAttribute {
    XmlReaderName name;
    XmlReaderString value;
};

}  // namespace nolk

#endif
