#ifndef NOLK_CORE_XML_READER_NAMESPACE_LIST_H
#define NOLK_CORE_XML_READER_NAMESPACE_LIST_H

#include <nolk/core/XmlReaderNamespace.h>
#include <nolk/core/XmlReaderSlots.h>

namespace nolk {

/** The bindings of one scope in the order of their declaration. */
class XmlReaderNamespaceList : public XmlReaderSlots<XmlReaderNamespace> {};

}  // namespace nolk

#endif
