#include <nolk/core/XmlName.h>
#include <nolk/core/XmlReaderName.h>

namespace nolk {

XmlName XmlReaderName::asXmlName() const {
    return XmlName(localName.asString(), XmlNamespace(prefix.asString(), uri.asString()));
}

}  // namespace nolk
