#include <nolk/core/XmlNamespace.h>

#include <nolk/core/XmlReaderNamespace.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <type_traits>

namespace nolk {
namespace {

const std::string xsi2001 = "http://www.w3.org/2001/XMLSchema-instance";
const std::string xsi1999 = "http://www.w3.org/1999/XMLSchema-instance";
const std::string xsd2001 = "http://www.w3.org/2001/XMLSchema";
const std::string xsd1999 = "http://www.w3.org/1999/XMLSchema";

TEST(XmlNamespace, DefaultHasNeitherPrefixNorURI) {
    const XmlNamespace ns;
    EXPECT_EQ(ns.getPrefix(), "");
    EXPECT_EQ(ns.getURI(), "");
}

TEST(XmlNamespace, KeepsPrefixAndURI) {
    const XmlNamespace ns("p", "urn:u");
    EXPECT_EQ(ns.getPrefix(), "p");
    EXPECT_EQ(ns.getURI(), "urn:u");
}

TEST(XmlNamespace, CopyIsIndependent) {
    const XmlNamespace ns("p", "urn:u");
    XmlNamespace copy(ns);
    copy.setPrefix("q");
    copy.setURI("urn:v");
    EXPECT_EQ(ns.getPrefix(), "p");
    EXPECT_EQ(ns.getURI(), "urn:u");
    EXPECT_EQ(copy.getPrefix(), "q");
    EXPECT_EQ(copy.getURI(), "urn:v");
}

TEST(XmlNamespace, AssignmentTakesPrefixAndURI) {
    XmlNamespace ns("p", "urn:u");
    ns = XmlNamespace("q", "urn:v");
    EXPECT_EQ(ns.getPrefix(), "q");
    EXPECT_EQ(ns.getURI(), "urn:v");
}

TEST(XmlNamespace, AssignmentToItselfChangesNothing) {
    XmlNamespace ns("p", "urn:a URI too long for a small string");
    const XmlNamespace& same = ns;
    ns = same;
    EXPECT_EQ(ns.getPrefix(), "p");
    EXPECT_EQ(ns.getURI(), "urn:a URI too long for a small string");
}

TEST(XmlNamespace, FromReaderViewCopiesTheTexts) {
    std::string buffer = "preurn:u";
    const XmlReaderNamespace view{XmlReaderString{buffer.data(), 3},
                                  XmlReaderString{buffer.data() + 3, 5}};
    const XmlNamespace ns(view);
    buffer.assign(buffer.size(), '#');
    EXPECT_EQ(ns.getPrefix(), "pre");
    EXPECT_EQ(ns.getURI(), "urn:u");
}

TEST(XmlNamespace, FromEmptyReaderViewIsEmpty) {
    EXPECT_TRUE(XmlNamespace(XmlReaderNamespace{}).empty());
}

TEST(XmlNamespace, EmptyAndIsNullNeedBothPartsEmpty) {
    const struct {
        XmlNamespace ns;
        bool empty;
    } rows[] = {
        {XmlNamespace(), true},
        {XmlNamespace("p", ""), false},
        {XmlNamespace("", "u"), false},
        {XmlNamespace("p", "u"), false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.ns.empty(), row.empty) << row.ns.infoString();
        EXPECT_EQ(row.ns.isNull(), row.empty) << row.ns.infoString();
    }
}

TEST(XmlNamespace, ComparesByURIAlone) {
    const XmlNamespace p("p", "u");
    const XmlNamespace q("q", "u");
    const XmlNamespace other("p", "v");
    EXPECT_EQ(p.compareTo(q), 0);
    EXPECT_TRUE(p == q);
    EXPECT_FALSE(p != q);
    EXPECT_FALSE(p < q);
    EXPECT_LT(p.compareTo(other), 0);
    EXPECT_GT(other.compareTo(p), 0);
    EXPECT_FALSE(p == other);
    EXPECT_TRUE(p != other);
    EXPECT_TRUE(p < other);
    EXPECT_FALSE(other < p);
}

TEST(XmlNamespace, OrdersBytesAsUnsigned) {
    const XmlNamespace ascii("", "z");
    const XmlNamespace high("", "\xC3\xA4");
    EXPECT_TRUE(ascii < high);
    EXPECT_GT(high.compareTo(ascii), 0);
}

TEST(XmlNamespace, APrefixOfAURISortsBeforeIt) {
    EXPECT_TRUE(XmlNamespace("", "urn:a") < XmlNamespace("", "urn:ab"));
    EXPECT_FALSE(XmlNamespace("", "urn:ab") < XmlNamespace("", "urn:a"));
}

TEST(XmlNamespace, InfoStringQuotesBothParts) {
    EXPECT_EQ(XmlNamespace("p", "urn:u").infoString(), "\"p\"-->\"urn:u\"");
    EXPECT_EQ(XmlNamespace().infoString(), "\"\"-->\"\"");
}

TEST(XmlNamespace, SharedInstancesHaveTheirPrefixAndURI) {
    const struct {
        const XmlNamespace& ns;
        std::string prefix;
        std::string uri;
    } rows[] = {
        {XmlNamespace::getXmlns(), "xmlns", ""},
        {XmlNamespace::getEmptyNamespace(), "", ""},
        {XmlNamespace::getXsi(), "xsi", xsi2001},
        {XmlNamespace::getXsd(), "xsd", xsd2001},
        {XmlNamespace::getNOLKNamespace(), "nolk", "http://xml.nolk.example/nolk"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.ns.getPrefix(), row.prefix);
        EXPECT_EQ(row.ns.getURI(), row.uri);
    }
}

TEST(XmlNamespace, SharedInstancesAreTheSameObjectAtEachCall) {
    EXPECT_EQ(&XmlNamespace::getXmlns(), &XmlNamespace::getXmlns());
    EXPECT_EQ(&XmlNamespace::getEmptyNamespace(), &XmlNamespace::getEmptyNamespace());
    EXPECT_EQ(&XmlNamespace::getXsi(), &XmlNamespace::getXsi());
    EXPECT_EQ(&XmlNamespace::getXsd(), &XmlNamespace::getXsd());
    EXPECT_EQ(&XmlNamespace::getNOLKNamespace(), &XmlNamespace::getNOLKNamespace());
}

TEST(XmlNamespace, OnlyTheSchemaInstancesAreNotConst) {
    EXPECT_TRUE((std::is_same_v<decltype(XmlNamespace::getXmlns()), const XmlNamespace&>));
    EXPECT_TRUE((std::is_same_v<decltype(XmlNamespace::getEmptyNamespace()), const XmlNamespace&>));
    EXPECT_TRUE((std::is_same_v<decltype(XmlNamespace::getNOLKNamespace()), const XmlNamespace&>));
    EXPECT_TRUE((std::is_same_v<decltype(XmlNamespace::getXsi()), XmlNamespace&>));
    EXPECT_TRUE((std::is_same_v<decltype(XmlNamespace::getXsd()), XmlNamespace&>));
}

// A static object that was made before the shared instances dies after statics made later; the
// instances must still be there. A failure shows as a crash or a sanitizer report at exit.
struct UsesInstancesAtExit {
    ~UsesInstancesAtExit() {
        if (XmlNamespace::getXsi().getURI() != xsi2001Literal) {
            std::abort();
        }
    }
    static constexpr const char* xsi2001Literal = "http://www.w3.org/2001/XMLSchema-instance";
} usesInstancesAtExit;

TEST(XmlNamespace, MatchXmlnsIsTrueForAnyEmptyURI) {
    EXPECT_TRUE(XmlNamespace::matchXmlns(XmlNamespace()));
    EXPECT_TRUE(XmlNamespace::matchXmlns(XmlNamespace("xmlns", "")));
    EXPECT_TRUE(XmlNamespace::matchXmlns(XmlNamespace("whatever", "")));
    EXPECT_FALSE(XmlNamespace::matchXmlns(XmlNamespace("xmlns", "u")));
}

TEST(XmlNamespace, MatchXsiTakesBothYearsAndAnyPrefix) {
    EXPECT_TRUE(XmlNamespace::matchXsi(XmlNamespace("xsi", xsi2001)));
    EXPECT_TRUE(XmlNamespace::matchXsi(XmlNamespace("xsi", xsi1999)));
    EXPECT_TRUE(XmlNamespace::matchXsi(XmlNamespace("other", xsi1999)));
    EXPECT_FALSE(XmlNamespace::matchXsi(XmlNamespace("xsi", xsd2001)));
    EXPECT_FALSE(XmlNamespace::matchXsi(XmlNamespace("xsi", xsi2001 + "/")));
    EXPECT_FALSE(XmlNamespace::matchXsi(XmlNamespace("xsi", "")));
}

TEST(XmlNamespace, MatchXsdTakesBothYearsAndAnyPrefix) {
    EXPECT_TRUE(XmlNamespace::matchXsd(XmlNamespace("xsd", xsd2001)));
    EXPECT_TRUE(XmlNamespace::matchXsd(XmlNamespace("xsd", xsd1999)));
    EXPECT_TRUE(XmlNamespace::matchXsd(XmlNamespace("other", xsd1999)));
    EXPECT_FALSE(XmlNamespace::matchXsd(XmlNamespace("xsd", xsi2001)));
    EXPECT_FALSE(XmlNamespace::matchXsd(XmlNamespace("xsd", "")));
}

}  // namespace
}  // namespace nolk
