// Documents that are cut, damaged, or read while memory runs out.

#include <nolk/core/XmlReader.h>

#include "support/FailingAllocation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "XmlReaderDump.h"

namespace nolk {
namespace {

using namespace std::string_literals;
using namespace nolk::test;

std::string wide(const std::string& ascii, bool bigEndian) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (char c : ascii) {
        bytes += bigEndian ? "\0"s + c : c + "\0"s;
    }
    return bytes;
}

const std::vector<std::string>& samples() {
    static const std::vector<std::string> documents = {
        "<a/>\n",
        "<root><child>text</child><child/></root>\n",
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<a b='1'>x</a>",
        "<?xml version='1.0' encoding='ISO-8859-1'?><a b='\xE4'>\xF6\xFC<\xDF/></a>",
        "\xEF\xBB\xBF<!--c--><?p data?><!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;&lt;&#x20AC;</a>",
        "<p:a xmlns:p='u' xmlns='d' p:b='1'><c xmlns=''><p:d e='&amp;&#65;'/></c></p:a>",
        "<a>one<!--two-->three<?four?>&five;\r\nsix<![CDATA[<seven>&\r\n]]>\r</a>",
        "<a><!--x--><?p?><![CDATA[y]]>z<!--kept--></a><b/>",
        "<\xC3\xA4\xE2\x82\xAC \xF0\x9F\x98\x80='\xC3\xBC'>\xD0\x96</\xC3\xA4\xE2\x82\xAC>",
        "<a b=\"'&quot;'\" c='\"&apos;\"'\n\td = 'tab\there'e='&#0;'></a >  \n",
        "<a b='1'>x<?xml version='1.0' encoding='ISO-8859-1'?>\xE4<c d='2'/></a>",
        wide("<?xml version='1.0' encoding='UTF-16'?><a b='1'>&lt;x\r\n<c/></a>", false),
        wide("<p:a xmlns:p='u'>x<?xml version='1.0' encoding='utf-16be'?>y</p:a>", true),
    };
    return documents;
}

// Looks at all that the reader shows, so that a view into freed memory is met.
void touch(const XmlReader& reader) {
    dumpNode(reader);
    dumpName(reader.getLastNameI());
    dumpAttributes(reader.getLastAttributesI());
    reader.getLastContent();
    reader.getEncoding();
    reader.getVersion();
    reader.getStandalone();
    reader.getURIForPrefix("p");
}

// Reads on behind failures too; only exceptions of the library may come out of the reader.
void readAll(const std::string& document, const ReadSettings& settings = {}) {
    try {
        XmlReader reader(document.data(), static_cast<unsigned>(document.size()));
        apply(reader, settings);
        for (std::size_t i = 0, failures = 0; i < document.size() && failures < 5; ++i) {
            try {
                if (reader.eof()) {
                    return;
                }
                reader.readNextNode();
            } catch (const Exception&) {
                ++failures;
            }
            touch(reader);
        }
    } catch (const Exception&) {
    }
}

void readByElement(const std::string& document) {
    try {
        XmlReader reader(document.data(), static_cast<unsigned>(document.size()));
        XmlReader whole = reader.getElementReader(XmlReader::NullName);
        touch(whole);
        for (std::size_t i = 0; i < document.size() && !whole.eof(); ++i) {
            whole.readNextNode();
            touch(whole);
        }
        reader.readWellFormedElement(XmlReader::NullName);
    } catch (const Exception&) {
    }
    try {
        XmlReader reader(document.data(), static_cast<unsigned>(document.size()));
        reader.readElementStart();
        reader.isElementNext("c");
        touch(reader);
        reader.readElement(XmlReader::NullName);
        touch(reader);
        reader.readElementEnd();
    } catch (const Exception&) {
    }
}

void readEveryWay(const std::string& document) {
    readAll(document);
    readAll(document, keptComments);
    readAll(document, rawWithComments);
    readByElement(document);
}

TEST(XmlReaderRobustness, TheSamplesThemselvesAreReadToTheirEnd) {
    for (const std::string& document : samples()) {
        EXPECT_EQ(dump(document).find("!XML_"), std::string::npos) << document;
    }
}

TEST(XmlReaderRobustness, ADocumentCutAnywhereEndsWellOrInAnExceptionOfTheLibrary) {
    for (const std::string& document : samples()) {
        for (std::size_t length = 0; length <= document.size(); ++length) {
            EXPECT_NO_THROW(readEveryWay(document.substr(0, length))) << length;
        }
    }
}

TEST(XmlReaderRobustness, ADocumentWithoutItsFirstBytesDoesToo) {
    for (const std::string& document : samples()) {
        for (std::size_t from = 1; from < document.size(); ++from) {
            EXPECT_NO_THROW(readAll(document.substr(from))) << from;
        }
    }
}

TEST(XmlReaderRobustness, ADocumentWithoutOneOfItsBytesDoesToo) {
    for (const std::string& document : samples()) {
        for (std::size_t i = 0; i < document.size(); ++i) {
            std::string damaged = document;
            damaged.erase(i, 1);
            EXPECT_NO_THROW(readEveryWay(damaged)) << i;
        }
    }
}

TEST(XmlReaderRobustness, ADocumentWithAnyByteReplacedDoesToo) {
    const std::string nasty = "\0<>&;'/!?-]:x\r\n \x80\xC3\xE1\xFF"s;
    for (const std::string& document : samples()) {
        for (std::size_t i = 0; i < document.size(); ++i) {
            std::string damaged = document;
            for (char c : nasty) {
                damaged[i] = c;
                EXPECT_NO_THROW(readAll(damaged)) << i << " " << static_cast<int>(c);
            }
        }
    }
}

TEST(XmlReaderRobustness, ADocumentWithAnyByteDoubledDoesToo) {
    for (const std::string& document : samples()) {
        for (std::size_t i = 0; i < document.size(); ++i) {
            std::string damaged = document;
            damaged.insert(i, 1, document[i]);
            EXPECT_NO_THROW(readEveryWay(damaged)) << i;
        }
    }
}

TEST(XmlReaderRobustness, DeepNestingIsNoRecursion) {
    std::string document;
    for (int i = 0; i < 20000; ++i) {
        document += "<a>";
    }
    XmlReader reader(document + "x");
    for (int i = 0; i < 20000; ++i) {
        reader.readNextNode();
    }
    EXPECT_EQ(dumpNode(reader), "Start a");
}

// Memory that runs out.

TEST(XmlReaderRobustness, AFailingAllocationLeaksNothing) {
    for (const std::string& document : samples()) {
        const long before = FailingAllocation::live();
        const unsigned long tries = failEachAllocation(
            [&document] {
                try {
                    XmlReader reader(document.data(), static_cast<unsigned>(document.size()));
                    while (!reader.eof()) {
                        reader.readNextNode();
                    }
                } catch (const Exception&) {
                }
            },
            [before] { EXPECT_EQ(FailingAllocation::live(), before); });
        EXPECT_GT(tries, 0u);
        EXPECT_EQ(FailingAllocation::live(), before);
    }
}

TEST(XmlReaderRobustness, AFailingAllocationWhileFailingLeaksNothingEither) {
    const std::string documents[] = {"<a>", "<!ELEMENT a>",
                                     "<?xml version='1.0' encoding='K'?><a/>",
                                     "<a b='1'><c 2/></a>", "\xFF\xFE<\0a\0/\0>\0x\0y\0"s};
    for (const std::string& document : documents) {
        const long before = FailingAllocation::live();
        failEachAllocation(
            [&document] {
                try {
                    XmlReader reader(document.data(), static_cast<unsigned>(document.size()));
                    for (;;) {
                        reader.readNextNode();
                    }
                } catch (const Exception&) {
                }
            },
            [before] { EXPECT_EQ(FailingAllocation::live(), before); });
        EXPECT_EQ(FailingAllocation::live(), before);
    }
}

TEST(XmlReaderRobustness, AFailingAllocationWithManyAttributesAndScopesLeaksNothing) {
    std::string document;
    for (int depth = 0; depth < 40; ++depth) {
        document += "<a";
        for (int i = 0; i < 20; ++i) {
            document += " xmlns:p" + std::to_string(i) + "='u'";
        }
        document += ">";
    }
    document += "x";
    const long before = FailingAllocation::live();
    const unsigned long tries = failEachAllocation(
        [&document] {
            XmlReader reader(document.data(), static_cast<unsigned>(document.size()));
            for (int depth = 0; depth < 40; ++depth) {
                reader.readNextNode();
            }
        },
        [before] { EXPECT_EQ(FailingAllocation::live(), before); });
    EXPECT_GT(tries, 40u);
}

TEST(XmlReaderRobustness, AFailingAllocationInAnyOperationLeaksNothing) {
    const std::string longPart(60, 'u');
    const std::string content = "<p:c d='" + longPart + "'>x</p:c>";
    const std::string document =
        "<a xmlns:p='" + longPart + "'>" + content + content + content + "</a>";
    const long before = FailingAllocation::live();
    const unsigned long tries = failEachAllocation(
        [&] {
            XmlReader reader(document.data(), static_cast<unsigned>(document.size()));
            reader.addNamespace(XmlNamespace(longPart, longPart));
            reader.setNamespaceStack(reader.getNamespaceStack());
            reader.readElementStart("a");
            EXPECT_TRUE(reader.isElementNext("p:c"));
            reader.readElementStart("p:c");
            reader.getLastName();
            reader.readElementValue();
            reader.readElementEnd("p:c");
            XmlReader child = reader.getElementReader("p:c");
            child.addNamespace(XmlNamespace(longPart, longPart));
            child.readElement(XmlReader::NullName);
            reader.readWellFormedElement(XmlReader::NullName);
            reader.getElementReader("p:c");
        },
        [before] { EXPECT_EQ(FailingAllocation::live(), before); });
    EXPECT_GT(tries, 30u);
    EXPECT_EQ(FailingAllocation::live(), before);
}

void readWithAFailure(XmlReader& reader, long number) {
    const FailingAllocation failing(number);
    for (int i = 0; i < 20; ++i) {
        try {
            if (reader.eof()) {
                return;
            }
            reader.readNextNode();
        } catch (const std::bad_alloc&) {
        } catch (const Exception&) {
        }
    }
}

TEST(XmlReaderRobustness, AReaderIsUsableAfterAnAllocationHasFailed) {
    // Every tag that fails is left half read; what follows is still safe to ask for.
    for (long n = 0; n < 40; ++n) {
        const std::string& document = samples()[5];
        XmlReader reader(document.data(), static_cast<unsigned>(document.size()));
        readWithAFailure(reader, n);
        touch(reader);
    }
}

// Memory in ordinary use.

// Counts what reading the rest takes by views alone.
long allocationsOfRest(XmlReader& reader) {
    const long before = FailingAllocation::made();
    std::size_t seen = 0;
    while (!reader.eof()) {
        reader.readNextNode();
        seen += reader.getLastNameI().localName.length + reader.getLastAttributesI().length() +
                reader.getLastContentI().length;
    }
    EXPECT_GT(seen, 0u);
    return FailingAllocation::made() - before;
}

unsigned long allocationsAfter(const std::string& record, unsigned warmUp,
                               const ReadSettings& settings = {}) {
    std::string document = "<root xmlns='d' xmlns:q='v'>";
    for (int i = 0; i < 500; ++i) {
        document += record;
    }
    document += "</root>";
    XmlReader reader(document);
    apply(reader, settings);
    for (unsigned i = 0; i < warmUp; ++i) {
        reader.readNextNode();
    }
    return allocationsOfRest(reader);
}

TEST(XmlReaderRobustness, AfterTheFirstRecordNodesTakeNoMemory) {
    const std::string records[] = {
        "<a>x</a>",
        "<a b='1' c='2' d='&lt;'/>",
        "<p:a xmlns:p='u' p:b='1'><p:c/><q:d/>text&amp;text\r\n<!--c--><?p?></p:a>",
        "<a><b><c><d><e><f xmlns='w'>deep</f></e></d></c></b></a>",
        "<!--c--><?p?><a><![CDATA[x]]>y<!--c--></a>\n",
        "<\xC3\xA4 \xC3\xB6='\xC3\xBC'>\xE2\x82\xAC</\xC3\xA4>",
    };
    for (const std::string& record : records) {
        for (const ReadSettings& settings : {ReadSettings(), keptComments, rawContent}) {
            EXPECT_EQ(allocationsAfter(record, 20, settings), 0u) << record;
        }
    }
}

TEST(XmlReaderRobustness, AfterTheFirstRecordManyAttributesTakeNoMemory) {
    std::string record = "<a";
    for (int i = 0; i < 50; ++i) {
        record += " xmlns:p" + std::to_string(i) + "='u' p" + std::to_string(i) + ":b='1'";
    }
    EXPECT_EQ(allocationsAfter(record + "/>", 3), 0u);
}

TEST(XmlReaderRobustness, AFlatDocumentTakesItsCopyAndAtMostFourKilobytes) {
    std::string document = "<?xml version='1.0' encoding='UTF-8'?>\n<root xmlns='d'>";
    for (int i = 0; i < 20000; ++i) {
        document += "<item id='" + std::to_string(i) + "'>text &amp; more</item>\n";
    }
    document += "</root>\n";
    const unsigned long long before = FailingAllocation::bytes();
    XmlReader reader(document.data(), static_cast<unsigned>(document.size()));
    while (!reader.eof()) {
        reader.readNextNode();
    }
    EXPECT_GE(FailingAllocation::bytes() - before, document.size());
    EXPECT_LE(FailingAllocation::bytes() - before, document.size() + 4096);
}

TEST(XmlReaderRobustness, AnAsciiDocumentDeclaredAsLatin1TakesNoMoreThanTwoCopies) {
    std::string document = "<?xml version='1.0' encoding='ISO-8859-1'?>\n<root>";
    for (int i = 0; i < 20000; ++i) {
        document += "<item>text</item>\n";
    }
    document += "</root>\n";
    const unsigned long long before = FailingAllocation::bytes();
    XmlReader reader(document.data(), static_cast<unsigned>(document.size()));
    while (!reader.eof()) {
        reader.readNextNode();
    }
    EXPECT_LE(FailingAllocation::bytes() - before, 2 * document.size() + 4096);
}

TEST(XmlReaderRobustness, AReaderGivesAllItsMemoryBack) {
    const auto readAll = [] {
        for (const std::string& document : samples()) {
            readEveryWay(document);
        }
    };
    readAll();  // makes what is made once and stays
    const long before = FailingAllocation::live();
    readAll();
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST(XmlReaderRobustness, CopiesOfAHandleShareTheReader) {
    XmlReader reader("<a><b/></a>"s);
    XmlReader copy(reader);
    reader.readNextNode();
    EXPECT_EQ(dumpNode(copy), "Start a");
    copy.readNextNode();
    EXPECT_EQ(dumpNode(reader), "Empty b");
}

}  // namespace
}  // namespace nolk
