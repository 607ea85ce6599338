#include "CopyHandler.h"

#include <algorithm>

using nolk::XmlAttribute;
using nolk::XmlAttributeSet;
using nolk::XmlName;
using nolk::XmlNamespace;

namespace {

const char* const specialInValues = "&";
const char* const specialInUris = "&<\"";

const XmlNamespace xmlNamespace("xml", "http://www.w3.org/XML/1998/namespace");

std::string withReferences(const std::string& text, const char* special) {
    std::string escaped;
    std::size_t copied = 0;
    for (std::size_t at = text.find_first_of(special); at != std::string::npos;
         at = text.find_first_of(special, at + 1)) {
        escaped.append(text, copied, at - copied);
        escaped += text[at] == '&' ? "&amp;" : text[at] == '<' ? "&lt;" : "&quot;";
        copied = at + 1;
    }
    return escaped.append(text, copied);
}

bool isClean(const std::string& text, const char* special) {
    return text.find_first_of(special) == std::string::npos;
}

bool isClean(const XmlName& name) {
    return isClean(name.getNamespace().getURI(), specialInUris);
}

XmlName clean(const XmlName& name) {
    const XmlNamespace& ns = name.getNamespace();
    return XmlName(name.getLocalName(),
                   XmlNamespace(ns.getPrefix(), withReferences(ns.getURI(), specialInUris)));
}

bool hasUnboundPrefix(const XmlName& name) {
    return name.getNamespace().getURI().empty() && !name.getNamespace().getPrefix().empty();
}

bool isDeclaration(const XmlName& attribute) {
    const std::string& prefix = attribute.getNamespace().getPrefix();
    return prefix == "xmlns" || (prefix.empty() && attribute.getLocalName() == "xmlns");
}

XmlName declarationOf(const std::string& prefix) {
    return prefix.empty() ? XmlName("xmlns") : XmlName(prefix, XmlNamespace::getXmlns());
}

// xmlns:p="", which unbinds a prefix. The writer would take it for a way to spell no namespace.
bool isUnbinding(const XmlAttribute& attribute) {
    return attribute.getValue().empty() && isDeclaration(attribute.getName()) &&
           hasUnboundPrefix(attribute.getName());
}

bool isPlainAttribute(const XmlAttribute& attribute) {
    const XmlName& name = attribute.getName();
    if (isUnbinding(attribute)) {
        return false;
    }
    return isDeclaration(name) ? isClean(attribute.getValue(), specialInUris)
                               : isClean(attribute.getValue(), specialInValues) && isClean(name) &&
                                     !hasUnboundPrefix(name);
}

XmlAttribute toWrite(const XmlAttribute& attribute) {
    const XmlName& name = attribute.getName();
    if (isDeclaration(name)) {
        return XmlAttribute(name, withReferences(attribute.getValue(), specialInUris));
    }
    const std::string value = withReferences(attribute.getValue(), specialInValues);
    if (hasUnboundPrefix(name) && name.getNamespace().getPrefix() == xmlNamespace.getPrefix()) {
        return XmlAttribute(XmlName(name.getLocalName(), xmlNamespace), value);
    }
    return XmlAttribute(clean(name), value);
}

template <typename Predicate>
bool anyDeclaration(const XmlAttributeSet& attributes, Predicate matches) {
    return std::any_of(attributes.getIteratorBegin(), attributes.getIteratorEnd(),
                       [&](const XmlAttribute& attribute) {
                           return isDeclaration(attribute.getName()) && matches(attribute);
                       });
}

}  // namespace

CopyHandler::CopyHandler(nolk::XmlWriter& writer) : writer_(writer) {
    writer_.addNamespace(xmlNamespace);
    writer_.write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n", false);
}

void CopyHandler::startElement(const XmlName& name, const XmlAttributeSet& attributes) {
    if (isPlain(name, attributes)) {
        writer_.writeElementStart(name, attributes);
        return;
    }
    XmlAttributeSet careful;
    for (auto i = attributes.getIteratorBegin(); i != attributes.getIteratorEnd(); ++i) {
        if (!isUnbinding(*i)) {
            careful.add(toWrite(*i));
        }
    }
    if (hasUnboundPrefix(name)) {
        careful.setDefaultNamespaceAttribute("");
    }
    declareIfShadowed(clean(name).getNamespace(), false, careful);
    for (auto i = attributes.getIteratorBegin(); i != attributes.getIteratorEnd(); ++i) {
        declareIfShadowed(clean(i->getName()).getNamespace(), true, careful);
    }
    writer_.writeElementStart(clean(name), careful);
}

void CopyHandler::endElement(const XmlName& name) {
    if (isClean(name)) {
        writer_.writeElementEnd(name);
    } else {
        writer_.writeElementEnd(clean(name));
    }
}

void CopyHandler::characters(const std::string& text) {
    writer_.write(text, true);
}

void CopyHandler::finish() {
    writer_.write("\n", false);
    writer_.flush();
}

bool CopyHandler::isPlain(const XmlName& name, const XmlAttributeSet& attributes) const {
    const auto isPlainHere = [&](const XmlAttribute& attribute) {
        return isPlainAttribute(attribute) &&
               !isShadowed(attribute.getName().getNamespace(), true, attributes);
    };
    return isClean(name) && !hasUnboundPrefix(name) &&
           !isShadowed(name.getNamespace(), false, attributes) &&
           std::all_of(attributes.getIteratorBegin(), attributes.getIteratorEnd(), isPlainHere);
}

// Whether the prefix that the writer will find for the URI stands for another one here.
bool CopyHandler::isShadowed(const XmlNamespace& ns, bool isAttribute,
                             const XmlAttributeSet& attributes) const {
    const auto bindsUri = [&](const XmlAttribute& declaration) {
        const bool isDefault = declaration.getName().getNamespace().getPrefix().empty();
        return declaration.getValue() == ns.getURI() && !(isAttribute && isDefault);
    };
    std::string prefix;
    const nolk::XmlNamespaceStack& scopes = writer_.getNamespaceStack();
    if (ns.getURI().empty() || anyDeclaration(attributes, bindsUri) ||
        !scopes.findURI(ns.getURI(), prefix, isAttribute)) {
        return false;
    }
    const std::string local = prefix.empty() ? "xmlns" : prefix;
    return scopes.getURIForPrefix(prefix) != ns.getURI() ||
           anyDeclaration(attributes, [&](const XmlAttribute& declaration) {
               return declaration.getName().getLocalName() == local;
           });
}

void CopyHandler::declareIfShadowed(const XmlNamespace& ns, bool isAttribute,
                                    XmlAttributeSet& attributes) const {
    if (isShadowed(ns, isAttribute, attributes)) {
        // A set can't tell the declaration of a prefix from a plain attribute of that name.
        std::string prefix = ns.getPrefix();
        while (attributes.contains(declarationOf(prefix))) {
            prefix += '_';
        }
        attributes.add(declarationOf(prefix), ns.getURI());
    }
}
