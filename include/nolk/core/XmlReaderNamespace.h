#ifndef NOLK_CORE_XML_READER_NAMESPACE_H
#define NOLK_CORE_XML_READER_NAMESPACE_H

#include <nolk/core/XmlReaderString.h>

namespace nolk {

/** A namespace binding as views; an empty prefix binds the default namespace. Owns nothing. */
struct XmlReaderNamespace {
    XmlReaderString prefix;
    XmlReaderString uri;
};

/** A namespace is its URI: prefixes take no part. */
inline bool operator==(const XmlReaderNamespace& a, const XmlReaderNamespace& b) {
    return a.uri == b.uri;
}

}  // namespace nolk

#endif
