#include <nolk/core/XmlParseAttributeNotFoundException.h>

#include <nolk/core/MessageIds.h>

#include "nolk/core/foundation/FixedText.h"

#include <new>

namespace nolk {

XmlParseAttributeNotFoundException::XmlParseAttributeNotFoundException(const ExceptionInfo& info,
                                                                       const std::string& attrName)
    : XmlParseException(info), attrName_(attrName) {
    setMessage(fixedText(NOLK_CORE_XML_PARSE_ATTRIBUTE_NOT_FOUND, attrName).c_str());
}

XmlParseAttributeNotFoundException::~XmlParseAttributeNotFoundException() = default;

void XmlParseAttributeNotFoundException::raise() const {
    throw XmlParseAttributeNotFoundException(*this);
}

Exception* XmlParseAttributeNotFoundException::clone() const {
    return new (std::nothrow) XmlParseAttributeNotFoundException(*this);
}

}  // namespace nolk
