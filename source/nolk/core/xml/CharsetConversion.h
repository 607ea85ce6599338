#ifndef NOLK_CORE_XML_CHARSET_CONVERSION_H
#define NOLK_CORE_XML_CHARSET_CONVERSION_H

#include <string>
#include <string_view>

namespace nolk {

/** Converts `source` between two encodings given by name, other than those built into the reader.
 * Throws XmlException if no conversion library is there. */
std::string convertCharset(std::string_view source, const std::string& from, const std::string& to);

}  // namespace nolk

#endif
