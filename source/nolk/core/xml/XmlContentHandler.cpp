#include <nolk/core/XmlContentHandler.h>

namespace nolk {

XmlContentHandler::~XmlContentHandler() = default;

}  // namespace nolk
