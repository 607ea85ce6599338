#ifndef NOLK_CORE_XML_ATTRIBUTE_H
#define NOLK_CORE_XML_ATTRIBUTE_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlName.h>

#include <string>
#include <utility>

namespace nolk {

/**
 * One attribute: a name and a value.
 *
 * Deliberate: an attribute is identified by its name alone. Two attributes with equal names are
 * equal whatever their values, and XmlAttributeSet is keyed by that.
 *
 * A plain value that owns its texts; not synchronised.
 */
class NOLK_API XmlAttribute {
public:
    /** The null name and an empty value. */
    XmlAttribute() = default;

    XmlAttribute(const XmlName& name, std::string value) : name_(name), value_(std::move(value)) {}
    XmlAttribute(XmlName&& name, std::string value)
        : name_(std::move(name)), value_(std::move(value)) {}

    XmlAttribute(std::string localName, std::string value, XmlNamespace ns)
        : name_(std::move(localName), std::move(ns)), value_(std::move(value)) {}

    const XmlName& getName() const noexcept { return name_; }
    XmlName& getName() noexcept { return name_; }
    void setName(XmlName name) { name_ = std::move(name); }

    /** UTF-8. A writer escapes it; a reader has replaced its references unless told not to. */
    const std::string& getValue() const noexcept { return value_; }
    void setValue(std::string value) { value_ = std::move(value); }

    /** The order of the names, as XmlName::compareTo. */
    int compareTo(const XmlAttribute& other) const noexcept { return name_.compareTo(other.name_); }

private:
    friend class XmlAttributeSet;

    XmlName name_;
    std::string value_;
};

/** Comparisons by name; the values take no part. @{ */
inline bool operator==(const XmlAttribute& a, const XmlAttribute& b) noexcept {
    return a.getName() == b.getName();
}
inline bool operator!=(const XmlAttribute& a, const XmlAttribute& b) noexcept {
    return !(a == b);
}
inline bool operator<(const XmlAttribute& a, const XmlAttribute& b) noexcept {
    return a.compareTo(b) < 0;
}
/** @} */

}  // namespace nolk

#endif
