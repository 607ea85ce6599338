#include <nolk/core/XmlAttributeSet.h>

#include <nolk/core/XmlParseAttributeNotFoundException.h>
#include <nolk/core/XmlReaderAttributeList.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace nolk {
namespace {

const XmlNamespace p("p", "u");
const XmlNamespace q("q", "u");

// Qualified names and values in order, "p:a=1 b=2".
std::string dump(const XmlAttributeSet& set) {
    std::string text;
    for (auto it = set.getIteratorBegin(); it != set.getIteratorEnd(); ++it) {
        text += text.empty() ? "" : " ";
        text += it->getName().getQualifiedName() + "=" + it->getValue();
    }
    return text;
}

XmlAttributeSet abc() {
    XmlAttributeSet set;
    set.add(XmlName("a"), "1");
    set.add(XmlName("b"), "2");
    set.add(XmlName("c"), "3");
    return set;
}

TEST(XmlAttributeSet, NewSetIsEmpty) {
    const XmlAttributeSet set;
    EXPECT_EQ(set.entries(), 0u);
    EXPECT_TRUE(set.getIteratorBegin() == set.getIteratorEnd());
}

TEST(XmlAttributeSet, HasAVirtualDestructor) {
    EXPECT_TRUE(std::has_virtual_destructor_v<XmlAttributeSet>);
}

TEST(XmlAttributeSet, ConstantsAreAnEmptyTextAndXmlns) {
    EXPECT_EQ(XmlAttributeSet::EmptyString, "");
    EXPECT_EQ(XmlAttributeSet::DefaultNamespaceAttributeTag, "xmlns");
}

TEST(XmlAttributeSet, EqualityTypesAreNumbered) {
    EXPECT_EQ(static_cast<int>(XmlAttributeSet::NamesOnly), 0);
    EXPECT_EQ(static_cast<int>(XmlAttributeSet::NamesAndValues), 1);
}

TEST(XmlAttributeSet, AddAppendsInOrder) {
    EXPECT_EQ(dump(abc()), "a=1 b=2 c=3");
    EXPECT_EQ(abc().entries(), 3u);
}

TEST(XmlAttributeSet, AddOfAnAttributeIsAddOfItsNameAndValue) {
    XmlAttributeSet set;
    set.add(XmlAttribute(XmlName("a", p), "1"));
    EXPECT_EQ(dump(set), "p:a=1");
}

TEST(XmlAttributeSet, AddOfAPresentNameKeepsItsPlaceAndReplacesTheValue) {
    XmlAttributeSet set = abc();
    set.add(XmlName("a"), "9");
    set.add(XmlAttribute(XmlName("b"), "8"));
    EXPECT_EQ(dump(set), "a=9 b=8 c=3");
    EXPECT_EQ(set.entries(), 3u);
}

TEST(XmlAttributeSet, AddOfAnEqualNameKeepsTheStoredPrefix) {
    XmlAttributeSet set;
    set.add(XmlName("a", p), "1");
    set.add(XmlName("a", q), "2");
    EXPECT_EQ(dump(set), "p:a=2");
}

TEST(XmlAttributeSet, AddTellsNamesApartByURI) {
    XmlAttributeSet set;
    set.add(XmlName("a", XmlNamespace("p", "u")), "1");
    set.add(XmlName("a", XmlNamespace("p", "v")), "2");
    set.add(XmlName("a"), "3");
    EXPECT_EQ(dump(set), "p:a=1 p:a=2 a=3");
}

TEST(XmlAttributeSet, AddLeavesWhatItCopiesAlone) {
    const std::string text(40, 'x');
    XmlName name(text, XmlNamespace(text, text));
    std::string value = text;
    XmlAttributeSet set;
    set.add(name, value);
    EXPECT_EQ(name.getUniqueName(), text + "::" + text);
    EXPECT_EQ(name.getNamespace().getPrefix(), text);
    EXPECT_EQ(value, text);
    set.add(name, "2");
    EXPECT_EQ(name.getLocalName(), text);
    set.add(std::move(name), std::move(value));
    EXPECT_EQ(dump(set), text + ":" + text + "=" + text);
}

TEST(XmlAttributeSet, AddTakesAMovedNameAsItIs) {
    XmlName name(std::string(40, 'n'), XmlNamespace("p", std::string(40, 'u')));
    const char* const storage = name.getLocalName().data();
    XmlAttributeSet set;
    set.add(std::move(name), "1");
    EXPECT_EQ(set.getIteratorBegin()->getName().getLocalName().data(), storage);
}

TEST(XmlAttributeSet, AddOfAnOwnNameReplacesItsValue) {
    XmlAttributeSet set = abc();
    set.add(set.getIteratorBegin()->getName(), "9");
    set.add(set.getIteratorBegin()->getName(), set.getIteratorBegin()->getValue());
    EXPECT_EQ(dump(set), "a=9 b=2 c=3");
}

TEST(XmlAttributeSet, AddOfAnOwnElementIsHarmless) {
    XmlAttributeSet set = abc();
    set.add(*set.getIteratorBegin());
    EXPECT_EQ(dump(set), "a=1 b=2 c=3");
}

TEST(XmlAttributeSet, CopiesAreIndependent) {
    XmlAttributeSet set = abc();
    XmlAttributeSet copy(set);
    copy.add(XmlName("a"), "9");
    copy.add(XmlName("d"), "4");
    EXPECT_EQ(dump(set), "a=1 b=2 c=3");
    EXPECT_EQ(dump(copy), "a=9 b=2 c=3 d=4");
    set = copy;
    copy.clear();
    EXPECT_EQ(dump(set), "a=9 b=2 c=3 d=4");
}

TEST(XmlAttributeSet, AssignmentToItselfDoesNothing) {
    XmlAttributeSet set = abc();
    const XmlAttribute* first = &*set.getIteratorBegin();
    const XmlAttributeSet& same = set;
    set = same;
    EXPECT_EQ(dump(set), "a=1 b=2 c=3");
    EXPECT_EQ(&*set.getIteratorBegin(), first);
}

TEST(XmlAttributeSet, MovingTakesTheAttributes) {
    XmlAttributeSet set = abc();
    const XmlAttributeSet moved(std::move(set));
    EXPECT_EQ(dump(moved), "a=1 b=2 c=3");
}

TEST(XmlAttributeSet, SetDefaultNamespaceAttributeByURI) {
    XmlAttributeSet set;
    set.setDefaultNamespaceAttribute("u");
    EXPECT_EQ(dump(set), "xmlns=u");
    EXPECT_TRUE(set.getIteratorBegin()->getName().getNamespace().empty());
    EXPECT_EQ(set.getDefaultNamespaceAttribute(), "u");
}

TEST(XmlAttributeSet, SetDefaultNamespaceAttributeByNamespaceTakesItsURI) {
    XmlAttributeSet set;
    set.setDefaultNamespaceAttribute(p);
    EXPECT_EQ(dump(set), "xmlns=u");
}

TEST(XmlAttributeSet, SetDefaultNamespaceAttributeByAttributeIsAdd) {
    XmlAttributeSet set;
    set.setDefaultNamespaceAttribute(XmlAttribute(XmlName("a", p), "1"));
    EXPECT_EQ(dump(set), "p:a=1");
    set.setDefaultNamespaceAttribute(XmlAttribute(XmlName("xmlns"), "v"));
    EXPECT_EQ(set.getDefaultNamespaceAttribute(), "v");
}

TEST(XmlAttributeSet, SetDefaultNamespaceAttributeAgainReplacesTheValue) {
    XmlAttributeSet set = abc();
    set.setDefaultNamespaceAttribute("u");
    set.setDefaultNamespaceAttribute("v");
    EXPECT_EQ(dump(set), "a=1 b=2 c=3 xmlns=v");
}

TEST(XmlAttributeSet, UnsetDefaultNamespaceAttributeLeavesADeclarationOfNothing) {
    XmlAttributeSet set;
    set.setDefaultNamespaceAttribute("u");
    set.unsetDefaultNamespaceAttribute();
    EXPECT_EQ(dump(set), "xmlns=");
    XmlAttributeSet fresh;
    fresh.unsetDefaultNamespaceAttribute();
    EXPECT_EQ(dump(fresh), "xmlns=");
}

TEST(XmlAttributeSet, RemoveDefaultNamespaceAttributeLeavesOneEntryLessThanUnset) {
    XmlAttributeSet unset = abc();
    XmlAttributeSet removed = abc();
    unset.setDefaultNamespaceAttribute("u");
    removed.setDefaultNamespaceAttribute("u");
    unset.unsetDefaultNamespaceAttribute();
    removed.removeDefaultNamespaceAttribute();
    EXPECT_EQ(unset.entries(), removed.entries() + 1);
    EXPECT_EQ(dump(removed), "a=1 b=2 c=3");
    removed.removeDefaultNamespaceAttribute();
    EXPECT_EQ(dump(removed), "a=1 b=2 c=3");
}

TEST(XmlAttributeSet, GetDefaultNamespaceAttributeOfNoneIsTheEmptyConstant) {
    EXPECT_EQ(&abc().getDefaultNamespaceAttribute(), &XmlAttributeSet::EmptyString);
}

TEST(XmlAttributeSet, AddNamespaceAttributeDeclaresThePrefix) {
    XmlAttributeSet set;
    set.addNamespaceAttribute(XmlNamespace("foo", "u"));
    EXPECT_EQ(dump(set), "xmlns:foo=u");
    EXPECT_EQ(set.getIteratorBegin()->getName().getNamespace().getURI(), "");
}

TEST(XmlAttributeSet, ADeclarationAndAPlainAttributeOfOneLocalNameAreOneEntry) {
    XmlAttributeSet set;
    set.addNamespaceAttribute(XmlNamespace("foo", "u"));
    set.add(XmlName("foo"), "plain");
    EXPECT_EQ(dump(set), "xmlns:foo=plain");

    XmlAttributeSet reverse;
    reverse.add(XmlName("foo"), "plain");
    reverse.addNamespaceAttribute(XmlNamespace("foo", "u"));
    EXPECT_EQ(dump(reverse), "foo=u");
}

TEST(XmlAttributeSet, ContainsAndRemoveDontTellADeclarationFromAPlainAttribute) {
    XmlAttributeSet set;
    set.addNamespaceAttribute(XmlNamespace("foo", "u"));
    EXPECT_TRUE(set.contains(XmlName("foo")));
    set.remove(XmlName("foo"));
    EXPECT_EQ(set.entries(), 0u);

    set.add(XmlName("foo"), "plain");
    EXPECT_TRUE(set.contains(XmlName("foo", XmlNamespace::getXmlns())));
    set.removeNamespaceAttribute("foo");
    EXPECT_EQ(set.entries(), 0u);
}

TEST(XmlAttributeSet, RemoveNamespaceAttributeByPrefixOrNamespace) {
    XmlAttributeSet set = abc();
    set.addNamespaceAttribute(XmlNamespace("foo", "u"));
    set.addNamespaceAttribute(XmlNamespace("bar", "v"));
    set.removeNamespaceAttribute("foo");
    EXPECT_EQ(dump(set), "a=1 b=2 c=3 xmlns:bar=v");
    set.removeNamespaceAttribute(XmlNamespace("bar", "another URI"));
    EXPECT_EQ(dump(set), "a=1 b=2 c=3");
    set.removeNamespaceAttribute("nothing");
    EXPECT_EQ(dump(set), "a=1 b=2 c=3");
}

TEST(XmlAttributeSet, RemoveNamespaceAttributeLeavesAttributesWithAURI) {
    XmlAttributeSet set;
    set.add(XmlName("foo", p), "1");
    set.removeNamespaceAttribute("foo");
    EXPECT_EQ(dump(set), "p:foo=1");
}

TEST(XmlAttributeSet, FindCopiesWhatItFinds) {
    XmlAttributeSet set = abc();
    set.add(XmlName("a", p), "4");
    XmlAttribute out;
    EXPECT_TRUE(set.find(XmlName("b"), out));
    EXPECT_EQ(out.getValue(), "2");
    EXPECT_TRUE(set.find(XmlAttribute(XmlName("a", q), "whatever"), out));
    EXPECT_EQ(out.getName().getQualifiedName(), "p:a");
    EXPECT_EQ(out.getValue(), "4");
}

TEST(XmlAttributeSet, FindOfNothingLeavesTheResultAlone) {
    const XmlAttributeSet set = abc();
    XmlAttribute out(XmlName("mine"), "kept");
    EXPECT_FALSE(set.find(XmlName("z"), out));
    EXPECT_FALSE(set.find(XmlName("a", p), out));
    EXPECT_FALSE(set.find(XmlAttribute(XmlName("z"), "1"), out));
    EXPECT_EQ(out.getName().getLocalName(), "mine");
    EXPECT_EQ(out.getValue(), "kept");
}

TEST(XmlAttributeSet, ContainsIsFindWithoutTheCopy) {
    const XmlAttributeSet set = abc();
    EXPECT_TRUE(set.contains(XmlName("a")));
    EXPECT_TRUE(set.contains(XmlAttribute(XmlName("c"), "another value")));
    EXPECT_FALSE(set.contains(XmlName("d")));
    EXPECT_FALSE(set.contains(XmlName("a", p)));
    EXPECT_FALSE(set.contains(XmlAttribute(XmlName("d"), "1")));
}

TEST(XmlAttributeSet, FindNamespaceAttributeByPrefixOrNamespace) {
    XmlAttributeSet set = abc();
    set.addNamespaceAttribute(XmlNamespace("foo", "u"));
    XmlAttribute out;
    EXPECT_TRUE(set.findNamespaceAttribute("foo", out));
    EXPECT_EQ(out.getValue(), "u");
    XmlAttribute again;
    EXPECT_TRUE(set.findNamespaceAttribute(XmlNamespace("foo", "another URI"), again));
    EXPECT_EQ(again.getValue(), "u");
}

TEST(XmlAttributeSet, FindNamespaceAttributeFindsPlainAttributesToo) {
    XmlAttributeSet set;
    set.add(XmlName("foo", p), "1");
    XmlAttribute out;
    EXPECT_TRUE(set.findNamespaceAttribute("foo", out));
    EXPECT_EQ(out.getName().getQualifiedName(), "p:foo");
    set.addNamespaceAttribute(XmlNamespace("foo", "u"));
    EXPECT_TRUE(set.findNamespaceAttribute("foo", out));
    EXPECT_EQ(out.getValue(), "1") << "the first of that local name";
}

TEST(XmlAttributeSet, FindNamespaceAttributeComparesBytes) {
    const XmlAttributeSet set = abc();
    XmlAttribute out(XmlName("mine"), "kept");
    EXPECT_FALSE(set.findNamespaceAttribute("A", out));
    EXPECT_FALSE(set.findNamespaceAttribute("", out));
    EXPECT_FALSE(set.findNamespaceAttribute(XmlNamespace("ab", "1"), out));
    EXPECT_EQ(out.getValue(), "kept");
}

TEST(XmlAttributeSet, FindValueByNameLooksInNoNamespace) {
    XmlAttributeSet set;
    set.add(XmlName("a", p), "in u");
    set.add(XmlName("a"), "plain");
    EXPECT_EQ(set.findValueByName("a", true), "plain");
    EXPECT_EQ(set.findValueByName("a", false), "plain");
}

TEST(XmlAttributeSet, FindValueByNameOfAnOptionalAbsentOneIsTheEmptyConstant) {
    EXPECT_EQ(&abc().findValueByName("z", false), &XmlAttributeSet::EmptyString);
}

TEST(XmlAttributeSet, FindValueByNameOfARequiredAbsentOneThrows) {
    XmlAttributeSet set;
    set.add(XmlName("size", p), "in u");
    try {
        set.findValueByName("size", true);
        FAIL() << "no exception";
    } catch (const XmlParseAttributeNotFoundException& e) {
        EXPECT_EQ(e.attrName(), "size");
        EXPECT_STREQ(e.what(), "Unable to find attribute: size");
    }
}

TEST(XmlAttributeSet, RemoveTakesOutWhatIsEqualByName) {
    XmlAttributeSet set = abc();
    set.add(XmlName("a", p), "4");
    set.remove(XmlAttribute(XmlName("b"), "another value"));
    EXPECT_EQ(dump(set), "a=1 c=3 p:a=4");
    set.remove(XmlName("a", q));
    EXPECT_EQ(dump(set), "a=1 c=3");
    set.remove(XmlName("z"));
    set.remove(XmlAttribute(XmlName("z"), "1"));
    EXPECT_EQ(dump(set), "a=1 c=3");
}

TEST(XmlAttributeSet, RemoveOfAnOwnElementIsHarmless) {
    XmlAttributeSet set = abc();
    set.remove(*set.getIteratorBegin());
    EXPECT_EQ(dump(set), "b=2 c=3");
    set.remove(set.getIteratorBegin()->getName());
    EXPECT_EQ(dump(set), "c=3");
}

TEST(XmlAttributeSet, ClearEmpties) {
    XmlAttributeSet set = abc();
    set.clear();
    EXPECT_EQ(set.entries(), 0u);
    EXPECT_FALSE(set.contains(XmlName("a")));
}

TEST(XmlAttributeSet, EqualToIgnoresOrderAndPrefixes) {
    XmlAttributeSet one = abc();
    one.add(XmlName("a", p), "4");
    XmlAttributeSet other;
    other.add(XmlName("a", q), "4");
    other.add(XmlName("c"), "3");
    other.add(XmlName("b"), "2");
    other.add(XmlName("a"), "1");
    EXPECT_TRUE(one.equalTo(other, XmlAttributeSet::NamesOnly));
    EXPECT_TRUE(one.equalTo(other, XmlAttributeSet::NamesAndValues));
    EXPECT_TRUE(other.equalTo(one, XmlAttributeSet::NamesAndValues));
}

TEST(XmlAttributeSet, EqualToComparesValuesOnlyWhenAsked) {
    const XmlAttributeSet one = abc();
    XmlAttributeSet other = abc();
    other.add(XmlName("b"), "other");
    EXPECT_TRUE(one.equalTo(other, XmlAttributeSet::NamesOnly));
    EXPECT_FALSE(one.equalTo(other, XmlAttributeSet::NamesAndValues));
    EXPECT_FALSE(other.equalTo(one, XmlAttributeSet::NamesAndValues));
}

TEST(XmlAttributeSet, EqualToNeedsAPartnerForEachName) {
    const XmlAttributeSet one = abc();
    XmlAttributeSet other = abc();
    other.remove(XmlName("c"));
    other.add(XmlName("d"), "3");
    EXPECT_FALSE(one.equalTo(other, XmlAttributeSet::NamesOnly));
    EXPECT_FALSE(other.equalTo(one, XmlAttributeSet::NamesOnly));
}

TEST(XmlAttributeSet, EqualToNeedsEqualSizes) {
    const XmlAttributeSet one = abc();
    XmlAttributeSet more = abc();
    more.add(XmlName("d"), "4");
    EXPECT_FALSE(one.equalTo(more, XmlAttributeSet::NamesOnly));
    EXPECT_FALSE(more.equalTo(one, XmlAttributeSet::NamesOnly));
    EXPECT_FALSE(XmlAttributeSet().equalTo(one, XmlAttributeSet::NamesOnly));
}

TEST(XmlAttributeSet, EqualToOfTwoEmptySetsIsTrueForAnyType) {
    const auto unknown = static_cast<XmlAttributeSet::EqualityType>(2);
    EXPECT_TRUE(XmlAttributeSet().equalTo(XmlAttributeSet(), XmlAttributeSet::NamesOnly));
    EXPECT_TRUE(XmlAttributeSet().equalTo(XmlAttributeSet(), XmlAttributeSet::NamesAndValues));
    EXPECT_TRUE(XmlAttributeSet().equalTo(XmlAttributeSet(), unknown));
}

TEST(XmlAttributeSet, EqualToWithAnUnknownTypeIsFalseForNonEmptySets) {
    const auto unknown = static_cast<XmlAttributeSet::EqualityType>(2);
    EXPECT_FALSE(abc().equalTo(abc(), unknown));
}

XmlReaderString view(const char* text) {
    return XmlReaderString{text, static_cast<std::uint32_t>(std::string(text).size())};
}

XmlReaderAttributeList readerList(const std::vector<std::vector<const char*>>& rows) {
    XmlReaderAttributeList list;
    for (const auto& row : rows) {
        XmlReaderAttribute attribute;
        attribute.name.localName = view(row[0]);
        attribute.name.prefix = view(row[1]);
        attribute.name.uri = view(row[2]);
        attribute.value = view(row[3]);
        list.append(attribute);
    }
    return list;
}

TEST(XmlAttributeSet, AssignOfReaderAttributesReplacesAll) {
    XmlAttributeSet set = abc();
    set.assign(readerList({{"x", "p", "u", "1"}, {"y", "", "", ""}}));
    EXPECT_EQ(dump(set), "p:x=1 y=");
    EXPECT_EQ(set.getIteratorBegin()->getName().getNamespace().getURI(), "u");
    set.assign(readerList({{"a", "", "", "1"},
                           {"b", "", "", "2"},
                           {"c", "", "", "3"},
                           {"d", "", "", "4"},
                           {"e", "", "", "5"}}));
    EXPECT_EQ(dump(set), "a=1 b=2 c=3 d=4 e=5");
    set.assign(readerList({}));
    EXPECT_EQ(set.entries(), 0u);
}

TEST(XmlAttributeSet, AssignOfReaderAttributesKeepsEachNameOnceWithTheLastValue) {
    XmlAttributeSet set;
    set.assign(readerList({{"a", "p", "u", "1"}, {"b", "", "", "2"}, {"a", "q", "u", "3"}}));
    EXPECT_EQ(dump(set), "p:a=3 b=2");
}

TEST(XmlAttributeSet, AssignOfVeryManyReaderAttributesDoesTheSame) {
    for (const std::size_t count : {63u, 64u, 65u, 66u, 20000u}) {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < count - 2; ++i) {
            names.push_back("n" + std::to_string(i));
        }
        XmlReaderAttributeList list;
        const auto append = [&list](const char* name, const char* uri, const char* value) {
            list.append(XmlReaderAttribute{{view(name), view(""), view(uri)}, view(value)});
        };
        for (const std::string& name : names) {
            append(name.c_str(), "", "first");
        }
        append("n3", "", "again");
        append("n3", "u", "other");
        XmlAttributeSet set;
        set.assign(list);
        ASSERT_EQ(set.entries(), count - 1);
        EXPECT_EQ(set.getIteratorBegin()->getName().getLocalName(), "n0");
        EXPECT_EQ(set.findValueByName("n2", true), "first");
        EXPECT_EQ(set.findValueByName("n3", true), "again");
        EXPECT_EQ(std::prev(set.getIteratorEnd())->getValue(), "other");
        EXPECT_EQ(std::prev(set.getIteratorEnd(), 2)->getName().getLocalName(), names.back());
    }
}

// ---- sets of any size ----

XmlName numbered(std::size_t number, const char* prefix = "p") {
    return XmlName("n" + std::to_string(number / 2),
                   number % 2 == 0 ? XmlNamespace() : XmlNamespace(prefix, "u"));
}

TEST(XmlAttributeSet, AddOfVeryManyKeepsEachNameOnce) {
    constexpr std::size_t count = 50000;
    XmlAttributeSet set;
    for (const char* value : {"first", "second"}) {
        for (std::size_t i = 0; i < count; ++i) {
            set.add(numbered(i), value);
        }
    }
    ASSERT_EQ(set.entries(), count);
    XmlAttributeSet reversed;
    for (std::size_t i = count; i-- > 0;) {
        reversed.add(numbered(i, "q"), "second");
    }
    EXPECT_TRUE(set.equalTo(reversed, XmlAttributeSet::NamesAndValues));
    EXPECT_TRUE(XmlAttributeSet(set).equalTo(XmlAttributeSet(reversed), XmlAttributeSet::NamesOnly))
        << "copies are as quick";
    reversed.add(numbered(count / 2), "third");
    EXPECT_FALSE(set.equalTo(reversed, XmlAttributeSet::NamesAndValues));
}

// The same operations on a plain vector.
class SetModel {
public:
    void add(const XmlName& name, const std::string& value) {
        const auto present = find(name);
        if (present != entries_.end()) {
            present->second = value;
        } else {
            entries_.emplace_back(name, value);
        }
    }
    void remove(const XmlName& name) {
        const auto present = find(name);
        if (present != entries_.end()) {
            entries_.erase(present);
        }
    }
    bool contains(const XmlName& name) { return find(name) != entries_.end(); }
    void clear() { entries_.clear(); }

    std::string dump() const {
        std::string text;
        for (const auto& [name, value] : entries_) {
            text += text.empty() ? "" : " ";
            text += name.getQualifiedName() + "=" + value;
        }
        return text;
    }

private:
    using Entries = std::vector<std::pair<XmlName, std::string>>;

    Entries::iterator find(const XmlName& name) {
        return std::find_if(entries_.begin(), entries_.end(),
                            [&name](const auto& entry) { return entry.first == name; });
    }

    Entries entries_;
};

// Few names and many, so that the sets cross the size from which on they keep an index.
TEST(XmlAttributeSet, RandomChangesFollowAPlainVector) {
    for (unsigned int seed = 0; seed < 30; ++seed) {
        std::mt19937 random(seed);
        const std::size_t names = seed % 3 == 0 ? 70 : 200;
        XmlAttributeSet set;
        SetModel model;
        for (int i = 0; i < 600; ++i) {
            const XmlName name = numbered(random() % names, random() % 2 == 0 ? "p" : "q");
            const unsigned int action = random() % 100;
            if (action < 88) {
                set.add(name, std::to_string(i));
                model.add(name, std::to_string(i));
            } else if (action < 94) {
                set.remove(name);
                model.remove(name);
            } else if (action < 97) {
                const XmlAttributeSet copy(set);
                set.clear();
                set = copy;
            } else if (action < 99) {
                XmlAttributeSet moved(std::move(set));
                set = std::move(moved);
            } else if (random() % 4 == 0) {
                set.clear();
                model.clear();
            }
            const XmlName other = numbered(random() % names);
            ASSERT_EQ(set.contains(other), model.contains(other)) << seed << ", " << i;
            if (i % 20 == 0) {
                ASSERT_EQ(dump(set), model.dump()) << seed << ", " << i;
            }
        }
    }
}

TEST(XmlAttributeSet, AssignOfReaderAttributesToALargeSetForgetsItsNames) {
    XmlAttributeSet set;
    for (std::size_t i = 0; i < 100; ++i) {
        set.add(numbered(i), "old");
    }
    set.assign(readerList({{"n1", "", "", "new"}}));
    EXPECT_EQ(dump(set), "n1=new");
    EXPECT_FALSE(set.contains(XmlName("n2")));
    set.add(XmlName("n2"), "added");
    EXPECT_EQ(dump(set), "n1=new n2=added");
}

TEST(XmlAttributeSet, ACopyOfALargeSetOutlivesIt) {
    XmlAttributeSet copy;
    {
        XmlAttributeSet set;
        for (std::size_t i = 0; i < 100; ++i) {
            set.add(numbered(i), "value");
        }
        copy = set;
    }
    EXPECT_TRUE(copy.contains(numbered(99)));
    copy.add(numbered(99), "replaced");
    EXPECT_EQ(copy.entries(), 100u);
    EXPECT_EQ(std::prev(copy.getIteratorEnd())->getValue(), "replaced");
}

TEST(XmlAttributeSet, MoveAssignmentToItselfDoesNothing) {
    XmlAttributeSet set = abc();
    XmlAttributeSet& same = set;
    set = std::move(same);
    EXPECT_EQ(dump(set), "a=1 b=2 c=3");
}

}  // namespace
}  // namespace nolk
