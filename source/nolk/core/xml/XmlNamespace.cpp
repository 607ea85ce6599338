#include <nolk/core/XmlNamespace.h>

#include <nolk/core/XmlReaderNamespace.h>

#include <string_view>

namespace nolk {

namespace {

constexpr std::string_view xsi2001 = "http://www.w3.org/2001/XMLSchema-instance";
constexpr std::string_view xsi1999 = "http://www.w3.org/1999/XMLSchema-instance";
constexpr std::string_view xsd2001 = "http://www.w3.org/2001/XMLSchema";
constexpr std::string_view xsd1999 = "http://www.w3.org/1999/XMLSchema";

}  // namespace

XmlNamespace::XmlNamespace(const XmlReaderNamespace& view)
    : prefix_(view.prefix.view()), uri_(view.uri.view()) {}

std::string XmlNamespace::infoString() const {
    std::string text;
    text.reserve(prefix_.size() + uri_.size() + 7);
    return text.append("\"").append(prefix_).append("\"-->\"").append(uri_).append("\"");
}

// The shared instances are never destroyed, so that destructors of static objects may use them.

const XmlNamespace& XmlNamespace::getXmlns() {
    static const XmlNamespace& instance = *new XmlNamespace("xmlns", "");
    return instance;
}

const XmlNamespace& XmlNamespace::getEmptyNamespace() {
    static const XmlNamespace& instance = *new XmlNamespace();
    return instance;
}

XmlNamespace& XmlNamespace::getXsi() {
    static XmlNamespace& instance = *new XmlNamespace("xsi", std::string(xsi2001));
    return instance;
}

XmlNamespace& XmlNamespace::getXsd() {
    static XmlNamespace& instance = *new XmlNamespace("xsd", std::string(xsd2001));
    return instance;
}

const XmlNamespace& XmlNamespace::getNOLKNamespace() {
    static const XmlNamespace& instance = *new XmlNamespace("nolk", "http://xml.nolk.example/nolk");
    return instance;
}

bool XmlNamespace::matchXmlns(const XmlNamespace& ns) noexcept {
    return ns.uri_.empty();
}

bool XmlNamespace::matchXsi(const XmlNamespace& ns) noexcept {
    return ns.uri_ == xsi2001 || ns.uri_ == xsi1999;
}

bool XmlNamespace::matchXsd(const XmlNamespace& ns) noexcept {
    return ns.uri_ == xsd2001 || ns.uri_ == xsd1999;
}

}  // namespace nolk
