#ifndef NOLK_CORE_XML_READER_NAME_H
#define NOLK_CORE_XML_READER_NAME_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlReaderString.h>

namespace nolk {

class XmlName;

/** A qualified name as views. Owns nothing; asXmlName() makes the owning form. */
struct NOLK_API XmlReaderName {
    XmlReaderString localName;
    XmlReaderString prefix;
    XmlReaderString uri;

    /** An owning copy of all three parts. */
    XmlName asXmlName() const;
};

/** A name is its local name and its URI: prefixes take no part. */
inline bool operator==(const XmlReaderName& a, const XmlReaderName& b) {
    return a.localName == b.localName && a.uri == b.uri;
}

}  // namespace nolk

#endif
