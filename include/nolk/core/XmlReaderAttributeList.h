#ifndef NOLK_CORE_XML_READER_ATTRIBUTE_LIST_H
#define NOLK_CORE_XML_READER_ATTRIBUTE_LIST_H

#include <nolk/core/XmlReaderAttribute.h>
#include <nolk/core/XmlReaderSlots.h>

namespace nolk {

/** The attributes of a tag in document order, namespace declarations and repeated names among
 * them. */
class XmlReaderAttributeList : public XmlReaderSlots<XmlReaderAttribute> {};

}  // namespace nolk

#endif
