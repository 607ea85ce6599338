#ifndef NOLK_CORE_XML_ATTRIBUTE_SET_H
#define NOLK_CORE_XML_ATTRIBUTE_SET_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlAttribute.h>
#include <nolk/core/XmlName.h>
#include <nolk/core/XmlNamespace.h>

#include <list>
#include <memory>
#include <string>
#include <string_view>

namespace nolk {

class XmlReaderAttributeList;

/**
 * The attributes of one element in the order in which they were added, each name once.
 *
 * Namespace declarations are attributes like others. Deliberate: as the namespace of `xmlns`
 * declarations has an empty URI, the declaration `xmlns:foo` and a plain attribute `foo` have
 * equal names, and adding one after the other keeps one entry with the later value.
 *
 * Made for the few attributes that elements have, it takes very many as well: adding and finding
 * stay quick. No look-up allocates but where it copies out.
 *
 * A value that owns its attributes; not synchronised. References and iterators stay valid until
 * their attribute is removed.
 */
class NOLK_API XmlAttributeSet {
public:
    using const_iterator = std::list<XmlAttribute>::const_iterator;

    /** What equalTo() compares. */
    enum EqualityType : int { NamesOnly = 0, NamesAndValues = 1 };

    /** What operations refer to when there is nothing: an empty text. */
    static const std::string EmptyString;
    /** "xmlns", the local name of the default namespace's declaration. */
    static const std::string DefaultNamespaceAttributeTag;

    XmlAttributeSet() noexcept;
    XmlAttributeSet(const XmlAttributeSet& other);
    XmlAttributeSet(XmlAttributeSet&& other) noexcept;
    /** Both assignments: all or nothing; assigning a set to itself does nothing. */
    XmlAttributeSet& operator=(const XmlAttributeSet& other);
    XmlAttributeSet& operator=(XmlAttributeSet&& other) noexcept;
    virtual ~XmlAttributeSet();

    /**
     * Adds at the end. If an attribute of equal name is present, only its value is replaced: its
     * prefix as it was stored and its place in the order stay.
     */
    void add(XmlAttribute attribute);
    void add(const XmlName& name, std::string value);
    void add(XmlName&& name, std::string value);

    /**
     * Adds the declaration of the default namespace. An attribute given whole is added under its
     * own name, as by add().
     */
    void setDefaultNamespaceAttribute(XmlAttribute attribute);
    void setDefaultNamespaceAttribute(std::string uri);
    void setDefaultNamespaceAttribute(const XmlNamespace& ns);
    /** Declares that there is no default namespace: `xmlns=""` stays in the set. */
    void unsetDefaultNamespaceAttribute();
    void removeDefaultNamespaceAttribute();
    /** The URI of the default namespace's declaration, or EmptyString. */
    const std::string& getDefaultNamespaceAttribute() const noexcept;

    /** Adds the declaration of `ns`: local name its prefix, value its URI. */
    void addNamespaceAttribute(const XmlNamespace& ns);
    /** Removes what is equal by name to the declaration of the prefix. */
    void removeNamespaceAttribute(const std::string& prefix);
    void removeNamespaceAttribute(const XmlNamespace& ns);

    /**
     * Looks an attribute up by name. find() copies it to `out` and gives true; where there is
     * none it gives false and leaves `out` alone.
     */
    bool find(const XmlAttribute& key, XmlAttribute& out) const;
    bool find(const XmlName& name, XmlAttribute& out) const;
    bool contains(const XmlAttribute& key) const noexcept;
    bool contains(const XmlName& name) const noexcept;

    /**
     * Finds the first attribute with this local name, or with that of the namespace's prefix.
     * Deliberate: the attribute's namespace is not looked at, so a plain attribute is found too.
     */
    bool findNamespaceAttribute(const std::string& prefix, XmlAttribute& out) const;
    bool findNamespaceAttribute(const XmlNamespace& ns, XmlAttribute& out) const;

    /**
     * The value of the attribute of this local name in no namespace. If there is none: EmptyString.
     * @throws XmlParseAttributeNotFoundException if there is none and it is `required`
     */
    const std::string& findValueByName(const std::string& localName, bool required) const;

    /** Removes the attribute with an equal name, if there is one. */
    void remove(const XmlAttribute& key);
    void remove(const XmlName& name);
    void clear() noexcept;

    /** The number of attributes. */
    unsigned int entries() const noexcept;
    const_iterator getIteratorBegin() const noexcept { return attributes_.begin(); }
    const_iterator getIteratorEnd() const noexcept { return attributes_.end(); }

    /**
     * True if both sets hold the same names, and with NamesAndValues the same values under them,
     * in any order. With a `type` that is neither, true only for two empty sets.
     */
    bool equalTo(const XmlAttributeSet& other, EqualityType type) const noexcept;

    /** Replaces all by the reader's attributes, as if each were added in turn. */
    void assign(const XmlReaderAttributeList& attributes);

private:
    friend class XmlSAXParser;
    class Index;

    const XmlAttribute* lookUp(std::string_view localName, std::string_view uri) const noexcept;
    XmlAttribute* lookUp(std::string_view localName, std::string_view uri) noexcept;
    const XmlAttribute* lookUp(const XmlName& name) const noexcept;
    bool findNamespaceByPrefix(const std::string& prefix, XmlAttribute& out) const;
    template <class Name>
    void place(Name&& name, std::string&& value);
    void appendFirstOf(std::list<XmlAttribute>& source);
    void removeAll(std::string_view localName, std::string_view uri);
    void refill(const XmlReaderAttributeList& attributes, std::list<XmlAttribute>& spare);

    std::list<XmlAttribute> attributes_;
    std::unique_ptr<Index> index_;  ///< of all attributes once they are many, or null
};

}  // namespace nolk

#endif
