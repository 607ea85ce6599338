#include <nolk/core/MessageIds.h>
#include <nolk/core/OutOfBoundsException.h>
#include <nolk/core/XmlReader.h>

#include <limits>

namespace nolk {

namespace {

unsigned checkedLength(const std::string& text) {
    constexpr std::size_t most = std::numeric_limits<unsigned>::max();
    if (text.size() > most) {
        throw OutOfBoundsException(here(), message(NOLK_CORE_BOUNDS_INDEX_OUT_OF_RANGE,
                                                   static_cast<unsigned long long>(text.size()),
                                                   static_cast<unsigned long long>(most)));
    }
    return static_cast<unsigned>(text.size());
}

XmlReaderName resolved(const XmlReaderImp& reader, const std::string& qualifiedName) {
    return reader.getXmlName(XmlReaderString::of(qualifiedName));
}

XmlAttributeSet asSet(const XmlReaderAttributeList& attributes) {
    XmlAttributeSet set;
    set.assign(attributes);
    return set;
}

}  // namespace

const XmlName XmlReader::NullName;

XmlReader::XmlReader(const char* text, unsigned length)
    : HandleBase(new XmlReaderImp(text, length)) {}

XmlReader::XmlReader(const std::string& text)
    : HandleBase(new XmlReaderImp(text.data(), checkedLength(text))) {}

XmlReader::XmlReader(const XmlReaderNamespaceStack& inherited, const std::string& text)
    : HandleBase(new XmlReaderImp(inherited, text.data(), checkedLength(text))) {}

XmlReader::XmlReader(XmlReaderImp* body) : HandleBase(body) {}

std::string XmlReader::getEncoding() const {
    return getEncodingI().asString();
}
std::string XmlReader::getVersion() const {
    return getVersionI().asString();
}
std::string XmlReader::getStandalone() const {
    return getStandaloneI().asString();
}
const XmlReaderString& XmlReader::getEncodingI() const {
    return body().encoding();
}
const XmlReaderString& XmlReader::getVersionI() const {
    return body().version();
}
const XmlReaderString& XmlReader::getStandaloneI() const {
    return body().standalone();
}

XmlName XmlReader::getLastName() const {
    return getLastNameI().asXmlName();
}
XmlAttributeSet XmlReader::getLastAttributes() const {
    return asSet(getLastAttributesI());
}
std::string XmlReader::getLastContent() const {
    return getLastContentI().asString();
}

bool XmlReader::isElementNext(const XmlName& name) {
    return isElementNextI(asXmlReaderName(name));
}

bool XmlReader::isElementNext(const std::string& qualifiedName) {
    return isElementNextI(resolved(body(), qualifiedName));
}

bool XmlReader::isElementNextI(const XmlReaderName& name) {
    return body().isElementNext(name);
}

bool XmlReader::isElementNextI(const std::string& localName, const std::string& uri) {
    return isElementNextI({XmlReaderString::of(localName), {}, XmlReaderString::of(uri)});
}

void XmlReader::readElementStart() {
    body().readElementStart();
}

XmlAttributeSet XmlReader::readElementStart(const XmlName& name) {
    readElementStartI(asXmlReaderName(name));
    return getLastAttributes();
}

XmlAttributeSet XmlReader::readElementStart(const std::string& qualifiedName) {
    readElementStartI(resolved(body(), qualifiedName));
    return getLastAttributes();
}

void XmlReader::readElementStartI(const XmlReaderName& name) {
    body().readElementStart(name);
}

std::string XmlReader::readElementValue() {
    return readElementValueI().asString();
}

const XmlReaderString& XmlReader::readElementValueI() {
    return body().readElementValue();
}

void XmlReader::readElementEnd() {
    body().readElementEnd();
}

void XmlReader::readElementEnd(const XmlName& name) {
    readElementEndI(asXmlReaderName(name));
}

void XmlReader::readElementEnd(const std::string& qualifiedName) {
    readElementEndI(resolved(body(), qualifiedName));
}

void XmlReader::readElementEndI(const XmlReaderName& name) {
    body().readElementEnd(name);
}

std::string XmlReader::readElement(const XmlName& name) {
    return readElementI(asXmlReaderName(name)).asString();
}

std::string XmlReader::readElement(const std::string& qualifiedName) {
    return readElementI(resolved(body(), qualifiedName)).asString();
}

XmlReaderString XmlReader::readElementI(const XmlReaderName& name) {
    return body().readElement(name);
}

XmlReader XmlReader::getElementReader(const XmlName& name) {
    return getElementReader(asXmlReaderName(name));
}

XmlReader XmlReader::getElementReader(const std::string& qualifiedName) {
    return getElementReader(resolved(body(), qualifiedName));
}

XmlReader XmlReader::getElementReader(const XmlReaderName& name) {
    return body().getElementReader(name);
}

std::string XmlReader::readWellFormedElement(const XmlName& name) {
    return body().readWellFormedElement(asXmlReaderName(name));
}

void XmlReader::addNamespace(const XmlReaderNamespace& binding) {
    body().addNamespace(binding);
}
void XmlReader::addNamespace(const XmlNamespace& binding) {
    body().addNamespace(binding);
}

void XmlReader::setNamespaceStack(const XmlReaderNamespaceStack& stack) {
    body().setNamespaceStack(stack);
}

XmlReaderNamespaceStack XmlReader::getNamespaceStack() const {
    return body().namespaceStack();
}

std::string XmlReader::getURIForPrefix(const std::string& prefix) const {
    return body().namespaceStack().getURIForPrefix(XmlReaderString::of(prefix)).asString();
}

std::string XmlReader::getPrefixForURI(const std::string& uri) const {
    return body().namespaceStack().getPrefixForURI(XmlReaderString::of(uri)).asString();
}

bool XmlReader::getExpandAttributeReference() const {
    return body().expandAttributeReference();
}
void XmlReader::setExpandAttributeReference(bool expand) {
    body().setExpandAttributeReference(expand);
}
bool XmlReader::getExpandContentReference() const {
    return body().expandContentReference();
}
void XmlReader::setExpandContentReference(bool expand) {
    body().setExpandContentReference(expand);
}
bool XmlReader::getExpandCommentReference() const {
    return body().expandCommentReference();
}
void XmlReader::setExpandCommentReference(bool keep) {
    body().setExpandCommentReference(keep);
}

void XmlReader::err(const ExceptionInfo& info, const LocalizedMessage& text) const {
    body().err(info, text);
}

XmlReaderName XmlReader::asXmlReaderName(const XmlName& name) {
    const XmlNamespace& ns = name.getNamespace();
    return {XmlReaderString::of(name.getLocalName()), XmlReaderString::of(ns.getPrefix()),
            XmlReaderString::of(ns.getURI())};
}

}  // namespace nolk
