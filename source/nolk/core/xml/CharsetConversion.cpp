#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>
#include <nolk/core/XmlException.h>
#include <nolk/core/xml/CharsetConversion.h>

namespace nolk {

std::string convertCharset(std::string_view, const std::string& from, const std::string& to) {
    throw XmlException(here(), message(NOLK_CORE_XML_CONVERSION_UNAVAILABLE, "nolk_icu", from, to));
}

}  // namespace nolk
