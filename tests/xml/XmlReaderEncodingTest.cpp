#include <nolk/core/XmlException.h>
#include <nolk/core/XmlReader.h>

#include <gtest/gtest.h>

#include <bit>
#include <string>

#include "XmlReaderDump.h"

namespace nolk {
namespace {

using namespace std::string_literals;
using namespace nolk::test;

enum Order { LittleEndian, BigEndian };

std::string units(Order order, const std::u16string& text) {
    std::string bytes;
    for (char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        bytes += order == LittleEndian ? std::string{low, high} : std::string{high, low};
    }
    return bytes;
}

std::string marked(Order order, const std::u16string& text) {
    return units(order, u"\xFEFF" + text);
}

std::string encodingOf(const std::string& document) {
    try {
        return XmlReader(document).getEncoding();
    } catch (const XmlParseLineColException& failure) {
        return "!" + keyOf(failure);
    }
}

// What follows the position and names the failure up to the encoding.
std::string transcodeFailure(const std::string& place, const std::string& encoding) {
    return place + " [XML_TRANSCODE_FAILED] Couldn't transcode from input encoding '" + encoding +
           "': ";
}

void expectTranscodeFailure(const std::string& document, const std::string& place,
                            const std::string& encoding) {
    const std::string failure = failureOf(document);
    EXPECT_EQ(failure.substr(0, transcodeFailure(place, encoding).size()),
              transcodeFailure(place, encoding));
    EXPECT_NE(failure.find("No conversion library["), std::string::npos) << failure;
    EXPECT_NE(failure.find("\"" + encoding + "\" to \"UTF-8\""), std::string::npos) << failure;
}

std::string declarationFailure(const std::string& place, const std::string& encoding) {
    return place +
           " [XML_TRANSCODE_FROM_DECL_FAILED] Encoding to based on character-encoding identifier "
           "'" +
           encoding + "' failed.  Please verify encoding decleration.";
}

std::string declaration(const std::string& encoding) {
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>";
}

std::u16string declaration16(const std::u16string& encoding) {
    return u"<?xml version=\"1.0\" encoding=\"" + encoding + u"\"?>";
}

// The bytes of a declaration up to and including the quote behind the encoding.
unsigned readOf(const std::string& declared) {
    return static_cast<unsigned>(declaration(declared).size() - 2);
}

// Length.

TEST(XmlReaderEncoding, ADocumentBelowFiveBytesIsRefused) {
    for (const char* text :
         {"", " ", "<", "<a", "<a>", "<a/>", "    ", "\xEF\xBB\xBF<", "\xFF\xFE<"}) {
        EXPECT_EQ(failureOf(text), "1:1 [XML_PARSE_PREMATURE_EOF] Premature EOF") << text;
    }
}

TEST(XmlReaderEncoding, FiveBytesAreEnough) {
    EXPECT_EQ(dump("<a/>\n"), "Empty a");
    EXPECT_EQ(dump("<ab/>"), "Empty ab");
}

TEST(XmlReaderEncoding, ANullTextOfNoBytesIsRefusedLikeAnEmptyOne) {
    EXPECT_THROW(XmlReader(nullptr, 0), XmlParseLineColException);
}

TEST(XmlReaderEncoding, TheTextNeedsNoTerminator) {
    const std::string text = "<a/>\n<broken";
    XmlReader reader(text.data(), 5);
    EXPECT_EQ(dumpRest(reader), "Empty a");
}

TEST(XmlReaderEncoding, TheReaderKeepsACopy) {
    std::string text = "<a>x</a>";
    XmlReader reader(text);
    text.assign(text.size(), '!');
    EXPECT_EQ(dumpRest(reader), "Start a Data'x' End a");
}

// White space first.

TEST(XmlReaderEncoding, WhiteSpaceAsFirstByteMeansUtf8) {
    for (const char* text : {" <a/>", "\t<a/>", "\n<a/>", "\r<a/>"}) {
        EXPECT_EQ(encodingOf(text), "UTF-8");
        EXPECT_EQ(dump(text), "Empty a");
    }
}

TEST(XmlReaderEncoding, BehindWhiteSpaceNoMarkIsLookedFor) {
    EXPECT_EQ(placeOf(" \xEF\xBB\xBF<a/>"), "1:3 XML_PARSE_INVALID_FIRST_CHAR");
    EXPECT_EQ(placeOf(units(LittleEndian, u" <a/>")), "1:3 XML_PARSE_INVALID_FIRST_CHAR");
}

// The byte order marks, row by row.

TEST(XmlReaderEncoding, TheUtf32MarksNameEncodingsThatNeedTheCompanion) {
    // 0xFE and 0xFF count for four bytes in the column.
    expectTranscodeFailure("\0\0\xFE\xFF\0\0\0<"s, "1:4", "UTF-32BE");
    expectTranscodeFailure("\xFF\xFE\0\0<\0\0\0"s, "1:2", "UTF-32LE");
    expectTranscodeFailure("\0\0\xFF\xFE\0\0<\0"s, "1:4", "UTF-32");
    expectTranscodeFailure("\xFE\xFF\0\0\0<\0\0"s, "1:2", "UTF-32");
}

TEST(XmlReaderEncoding, TheMarkOfUtf16BigEndianIsSkipped) {
    EXPECT_EQ(encodingOf(marked(BigEndian, u"<a/>")), "UTF-16BE");
    EXPECT_EQ(dump(marked(BigEndian, u"<a>\u00E4</a>")), "Start a Data'\xC3\xA4' End a");
}

TEST(XmlReaderEncoding, TheMarkOfUtf16LittleEndianIsSkipped) {
    EXPECT_EQ(encodingOf(marked(LittleEndian, u"<a/>")), "UTF-16LE");
    EXPECT_EQ(dump(marked(LittleEndian, u"<a>\u00E4</a>")), "Start a Data'\xC3\xA4' End a");
}

TEST(XmlReaderEncoding, TheMarkOfUtf8IsSkipped) {
    EXPECT_EQ(encodingOf("\xEF\xBB\xBF<a/>"), "UTF-8");
    EXPECT_EQ(dump("\xEF\xBB\xBF<a>x</a>"), "Start a Data'x' End a");
}

TEST(XmlReaderEncoding, AMarkMayBeFollowedByWhiteSpace) {
    EXPECT_EQ(dump("\xEF\xBB\xBF \n<a/>"), "Empty a");
    EXPECT_EQ(dump(marked(BigEndian, u" \n<a/>")), "Empty a");
}

TEST(XmlReaderEncoding, HalfAMarkIsNone) {
    for (const char* text : {"\xEF\xBB<a/>", "\xEF<a/>..", "\xFE<a/>.", "\xFF<a/>."}) {
        EXPECT_EQ(placeOf(text), "1:2 XML_PARSE_INVALID_FIRST_CHAR");
    }
}

TEST(XmlReaderEncoding, ASecondUtf8MarkIsNotSkipped) {
    EXPECT_EQ(placeOf("\xEF\xBB\xBF\xEF\xBB\xBF<a/>"), "1:2 XML_PARSE_INVALID_FIRST_CHAR");
}

TEST(XmlReaderEncoding, ASecondUtf16MarkBecomesTheMarkOfTheConvertedTextAndIsSkipped) {
    EXPECT_EQ(dump(marked(LittleEndian, u"\xFEFF<a/>")), "Empty a");
    EXPECT_EQ(dump(marked(BigEndian, u"\xFEFF<a/>")), "Empty a");
}

TEST(XmlReaderEncoding, ConvertedTextMayBeShorterThanFiveBytes) {
    EXPECT_EQ(dump(marked(LittleEndian, u"<a/>")), "Empty a");
    EXPECT_EQ(placeOf("\xFF\xFE<\0\0"s), "1:2 XML_PARSE_PREMATURE_EOF");
}

// The first bytes, row by row.

TEST(XmlReaderEncoding, FirstBytesOfUtf32AndEbcdicNameEncodingsThatNeedTheCompanion) {
    expectTranscodeFailure("\0\0\0<\0\0\0a"s, "1:1", "UTF-32BE");
    expectTranscodeFailure("<\0\0\0a\0\0\0"s, "1:1", "UTF-32LE");
    expectTranscodeFailure("\0\0<\0\0\0a\0"s, "1:1", "UTF-32");
    expectTranscodeFailure("\0<\0\0\0a\0\0"s, "1:1", "UTF-32");
    expectTranscodeFailure("\x4C\x6F\xA7\x94\x93\x40", "1:1", "EBCDIC");
}

TEST(XmlReaderEncoding, FirstBytesOfADeclarationInUtf16NeedNoMark) {
    const std::u16string text = u"<?xml version=\"1.0\"?><a>\u00E4</a>";
    for (const auto& [order, name] :
         {std::pair{BigEndian, "UTF-16BE"}, {LittleEndian, "UTF-16LE"}}) {
        EXPECT_EQ(encodingOf(units(order, text)), name);
        EXPECT_EQ(dump(units(order, text)), "Start a Data'\xC3\xA4' End a");
    }
}

TEST(XmlReaderEncoding, AnyInstructionFirstServesToFindUtf16) {
    EXPECT_EQ(dump(units(LittleEndian, u"<?p?><a/>")), "Empty a");
    EXPECT_EQ(dump(units(BigEndian, u"<?p?><a/>")), "Empty a");
}

TEST(XmlReaderEncoding, FirstBytesOfADeclarationInUtf8) {
    EXPECT_EQ(encodingOf("<?xml version='1.0'?><a/>"), "UTF-8");
    EXPECT_EQ(encodingOf("<?xm?><a/>"), "UTF-8");
}

TEST(XmlReaderEncoding, WithoutAMarkAndAnyKnownBytesTheTextIsUtf8) {
    EXPECT_EQ(encodingOf("<abc/>"), "UTF-8");
    EXPECT_EQ(encodingOf("<!--x--><a/>"), "UTF-8");
    EXPECT_EQ(encodingOf("<?p?><a/>"), "UTF-8");
}

TEST(XmlReaderEncoding, Utf16WithoutMarkAndInstructionIsNotFound) {
    EXPECT_EQ(placeOf(units(BigEndian, u"<a/>")), "1:2 XML_PARSE_INVALID_FIRST_CHAR");
    // Little endian: the name starts with the zero byte behind the `<`.
    EXPECT_EQ(failureOf(units(LittleEndian, u"<a/>")).substr(0, 28),
              "1:3 [XML_PARSE_ILLEGAL_NAME]");
}

// Conversion of UTF-16.

struct Units {
    std::u16string text;
    std::string utf8;
};

const Units unitTable[] = {
    {u"a", "a"},
    {u"\x7F", "\x7F"},
    {u"\x80", "\xC2\x80"},
    {u"\x7FF", "\xDF\xBF"},
    {u"\x800", "\xE0\xA0\x80"},
    {u"\xD7FF", "\xED\x9F\xBF"},
    {u"\xE000", "\xEE\x80\x80"},
    {u"\xFEFF", "\xEF\xBB\xBF"},
    {u"\xFFFE", "\xEF\xBF\xBE"},
    {u"\xFFFF", "\xEF\xBF\xBF"},
    {std::u16string(1, u'\0'), "\0"s},
    // Pairs: the first and the last character, and one of each half's bounds.
    {u"\xD800\xDC00", "\xF0\x90\x80\x80"},
    {u"\xDBFF\xDFFF", "\xF4\x8F\xBF\xBF"},
    {u"\xD800\xDFFF", "\xF0\x90\x8F\xBF"},
    {u"\xDBFF\xDC00", "\xF4\x8F\xB0\x80"},
    {u"\xD83D\xDE00", "\xF0\x9F\x98\x80"},
    // Lone ones.
    {u"\xD800", "\xED\xA0\x80"},
    {u"\xDBFF", "\xED\xAF\xBF"},
    {u"\xDC00", "\xED\xB0\x80"},
    {u"\xDFFF", "\xED\xBF\xBF"},
    {u"\xD800x", "\xED\xA0\x80x"},
    {u"\xDC00\xD800", "\xED\xB0\x80\xED\xA0\x80"},
    {u"\xD800\xD800\xDC00", "\xED\xA0\x80\xF0\x90\x80\x80"},
    {u"\xD800\xDC00\xDC00", "\xF0\x90\x80\x80\xED\xB0\x80"},
};

TEST(XmlReaderEncoding, ConvertsUtf16ByUnitAndPair) {
    for (const auto& [text, expected] : unitTable) {
        for (Order order : {LittleEndian, BigEndian}) {
            EXPECT_EQ(textOf(marked(order, u"<a>" + text + u"</a>")), expected);
            EXPECT_EQ(textOf(units(order, u"<?p?><a>" + text + u"</a>")), expected);
        }
    }
}

TEST(XmlReaderEncoding, ConvertsEveryUnitOfTheBasicPlane) {
    std::u16string text;
    std::string expected;
    for (std::uint32_t c = 0x20; c < 0x10000; ++c) {
        if (c != '<' && c != '&' && (c < 0xD800 || c > 0xDFFF)) {
            text += static_cast<char16_t>(c);
            expected += utf8(c);
        }
    }
    EXPECT_EQ(textOf(marked(LittleEndian, u"<a>" + text + u"</a>")), expected);
    EXPECT_EQ(textOf(marked(BigEndian, u"<a>" + text + u"</a>")), expected);
}

TEST(XmlReaderEncoding, ConvertsPairsOfAllPlanes) {
    std::u16string text;
    std::string expected;
    for (std::uint32_t c = 0x10000; c <= 0x10FFFF; c += 0x3FF) {
        text += static_cast<char16_t>(0xD800 + (c - 0x10000) / 0x400);
        text += static_cast<char16_t>(0xDC00 + (c - 0x10000) % 0x400);
        expected += utf8(c);
    }
    EXPECT_EQ(textOf(marked(LittleEndian, u"<a>" + text + u"</a>")), expected);
    EXPECT_EQ(textOf(marked(BigEndian, u"<a>" + text + u"</a>")), expected);
}

TEST(XmlReaderEncoding, ALoneHighSurrogateMayEndTheDocument) {
    EXPECT_EQ(placeOf(marked(LittleEndian, u"<ab>\xD800")), "1:6 XML_PARSE_PREMATURE_EOF");
}

TEST(XmlReaderEncoding, AnOddLastByteIsDropped) {
    for (Order order : {LittleEndian, BigEndian}) {
        EXPECT_EQ(dump(marked(order, u"<a/>") + "x"), "Empty a");
        EXPECT_EQ(dump(marked(order, u"<a>x</a>") + "\xD8"), "Start a Data'x' End a");
        EXPECT_EQ(dump(units(order, u"<?p?><a/>") + "x"), "Empty a");
    }
}

TEST(XmlReaderEncoding, PositionsReferToTheConvertedText) {
    EXPECT_EQ(placeOf(marked(LittleEndian, u"<a>\n\u00E4\u20AC<1")), "2:5 XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(placeOf(marked(LittleEndian, u"\xFEFF<1/>")), "1:3 XML_PARSE_ILLEGAL_NAME");
}

// Declared encodings.

TEST(XmlReaderEncoding, GetEncodingGivesTheDeclaredSpelling) {
    for (const char* name : {"UTF-8", "utf-8", "Utf-8", "US-ASCII", "us-ascii", "ISO-8859-1",
                             "iso-8859-1", "Iso-8859-1"}) {
        EXPECT_EQ(encodingOf(declaration(name) + "<a/>"), name);
    }
}

TEST(XmlReaderEncoding, UsAsciiLeavesHighBytesAlone) {
    EXPECT_EQ(dump(declaration("US-ASCII") + "<a>\xC3\xA4\xE4</a>"),
              "Start a Data'\xC3\xA4\xE4' End a");
}

TEST(XmlReaderEncoding, Latin1BytesBecomeTheCharactersOfTheirNumber) {
    for (std::uint32_t c = 0x80; c < 0x100; ++c) {
        const std::string byte(1, static_cast<char>(c));
        EXPECT_EQ(textOf(declaration("ISO-8859-1") + "<a>x" + byte + "y</a>"), "x" + utf8(c) + "y");
    }
}

TEST(XmlReaderEncoding, Latin1KeepsAsciiAsItIs) {
    std::string text;
    for (char c = 1; c < 0x7F; ++c) {
        if (c != '<' && c != '&' && c != '\r') {
            text += c;
        }
    }
    EXPECT_EQ(textOf(declaration("iso-8859-1") + "<a>" + text + "\xE4</a>"), text + "\xC3\xA4");
}

TEST(XmlReaderEncoding, Latin1IsConvertedInNamesAndValuesToo) {
    EXPECT_EQ(dump(declaration("ISO-8859-1") + "<\xE4 \xF6='\xFC'></\xE4>"),
              "Start \xC3\xA4[\xC3\xB6='\xC3\xBC'] End \xC3\xA4");
}

TEST(XmlReaderEncoding, Utf8DeclaredAsLatin1IsConvertedOnceMore) {
    EXPECT_EQ(textOf(declaration("ISO-8859-1") + "<a>\xC3\xA4</a>"), "\xC3\x83\xC2\xA4");
}

TEST(XmlReaderEncoding, ALargeLatin1DocumentGrowsToTwiceItsSize) {
    std::string text;
    std::string expected;
    for (int i = 0; i < 50000; ++i) {
        text += "\xE4";
        expected += "\xC3\xA4";
    }
    EXPECT_EQ(textOf(declaration("ISO-8859-1") + "<a>" + text + "</a>"), expected);
}

TEST(XmlReaderEncoding, AnAsciiDocumentDeclaredAsLatin1IsReadAsItStands) {
    EXPECT_EQ(dump(declaration("ISO-8859-1") + "<a>x</a>"), "Start a Data'x' End a");
}

TEST(XmlReaderEncoding, ValuesReadBeforeAConversionStayGood) {
    XmlReader reader("<?xml version='1.1' standalone='yes' encoding='iso-8859-1'?><a>\xE4</a>"s);
    EXPECT_EQ(reader.getVersion(), "1.1");
    EXPECT_EQ(reader.getStandalone(), "yes");
    EXPECT_EQ(reader.getEncoding(), "iso-8859-1");
}

TEST(XmlReaderEncoding, ADeclarationGoesOnBehindTheConversion) {
    XmlReader reader("<?xml version='1.0' encoding='ISO-8859-1' standalone='no'?><a>\xE4</a>"s);
    EXPECT_EQ(reader.getStandalone(), "no");
    EXPECT_EQ(dumpRest(reader), "Start a Data'\xC3\xA4' End a");
}

TEST(XmlReaderEncoding, AnOwnMarkAndALatin1DeclarationContradictEachOther) {
    // The conversion starts with the mark, whose bytes so become letters in front of the text.
    const std::string place = "1:" + std::to_string(readOf("ISO-8859-1") + 1);
    EXPECT_EQ(failureOf("\xEF\xBB\xBF" + declaration("ISO-8859-1") + "<a/>"),
              declarationFailure(place, "ISO-8859-1"));
}

TEST(XmlReaderEncoding, HighBytesInFrontOfALatin1DeclarationContradictIt) {
    // E4 and the two dashes behind it are one column.
    const std::string place = "1:" + std::to_string(8 + readOf("ISO-8859-1") - 2 + 1);
    EXPECT_EQ(failureOf("<!--\xE4-->" + declaration("ISO-8859-1") + "<a/>"),
              declarationFailure(place, "ISO-8859-1"));
}

TEST(XmlReaderEncoding, HighBytesInTheDeclarationContradictIt) {
    EXPECT_EQ(dump("<?xml version='\xE4' encoding='ISO-8859-1'?><a/>"),
              "!XML_TRANSCODE_FROM_DECL_FAILED");
}

TEST(XmlReaderEncoding, HighBytesBehindTheDeclaredEncodingDoNot) {
    XmlReader reader("<?xml version='1.0' encoding='ISO-8859-1' standalone='\xE4'?><a/>"s);
    EXPECT_EQ(reader.getStandalone(), "\xC3\xA4");
}

TEST(XmlReaderEncoding, AsciiInFrontOfALatin1DeclarationDoesNotMatter) {
    EXPECT_EQ(dump("<!--x--> <?p?>" + declaration("ISO-8859-1") + "<a>\xE4</a>"),
              "Start a Data'\xC3\xA4' End a");
}

TEST(XmlReaderEncoding, Latin1ThenUtf8LeavesTheFirstConversion) {
    XmlReader reader("<?xml version='1.0' encoding='ISO-8859-1' encoding='UTF-8'?><a>\xE4</a>"s);
    EXPECT_EQ(reader.getEncoding(), "UTF-8");
    EXPECT_EQ(dumpRest(reader), "Start a Data'\xC3\xA4' End a");
}

TEST(XmlReaderEncoding, TheSameEncodingTwiceIsConvertedOnce) {
    EXPECT_EQ(
        textOf("<?xml version='1.0' encoding='ISO-8859-1' encoding='ISO-8859-1'?><a>\xE4</a>"),
        "\xC3\xA4");
}

TEST(XmlReaderEncoding, AnotherSpellingOfASettledEncodingIsConvertedAgain) {
    EXPECT_EQ(
        textOf("<?xml version='1.0' encoding='ISO-8859-1' encoding='iso-8859-1'?><a>\xE4</a>"),
        "\xC3\x83\xC2\xA4");
}

TEST(XmlReaderEncoding, UnknownNamesNeedTheCompanion) {
    for (const std::string name : {"KOI8-R", "koi8-r", "", "latin1", "UTF-16", "utf-16", "UCS-2",
                                   "UTF-32", "UTF-32LE", "EBCDIC", "UTF8", "ISO-8859-15"}) {
        expectTranscodeFailure(declaration(name) + "<a/>", "1:" + std::to_string(readOf(name) + 1),
                               name);
    }
}

TEST(XmlReaderEncoding, TheFailureOfAnUnknownNameEndsWithTheWholeTextOfItsCause) {
    EXPECT_EQ(failureOf(declaration("KOI8-R") + "<a/>"),
              transcodeFailure("1:38", "KOI8-R") +
                  "[XML_CONVERSION_UNAVAILABLE] No conversion library[nolk_icu] available from "
                  "\"KOI8-R\" to \"UTF-8\"");
}

TEST(XmlReaderEncoding, AUtf16NameInAnAsciiDocumentContradictsIt) {
    for (const std::string name : {"UTF-16LE", "UTF-16BE", "utf-16be"}) {
        for (const std::string root : {"<a/>", "<ab/>"}) {
            EXPECT_EQ(failureOf(declaration(name) + root),
                      declarationFailure("1:" + std::to_string(readOf(name) + 1), name));
        }
    }
}

// Declared encodings of UTF-16 documents.

TEST(XmlReaderEncoding, GeneralNamesOfUtf16AreTakenForTheDetectedOne) {
    for (const std::u16string name : {u"UTF-16", u"UCS-2"}) {
        const std::u16string text = declaration16(name) + u"<a>\u00E4</a>";
        EXPECT_EQ(encodingOf(marked(LittleEndian, text)), "UTF-16LE");
        EXPECT_EQ(encodingOf(marked(BigEndian, text)), "UTF-16BE");
        EXPECT_EQ(encodingOf(units(LittleEndian, text)), "UTF-16LE");
        EXPECT_EQ(encodingOf(units(BigEndian, text)), "UTF-16BE");
        EXPECT_EQ(dump(marked(LittleEndian, text)), "Start a Data'\xC3\xA4' End a");
        EXPECT_EQ(dump(units(BigEndian, text)), "Start a Data'\xC3\xA4' End a");
    }
}

TEST(XmlReaderEncoding, GeneralNamesAreMatchedByteForByte) {
    // Behind the revert the cursor stands as far behind the mark in the bytes as they came; FF or
    // FE counts for four bytes.
    for (const std::string name : {"utf-16", "Ucs-2", "UTF-32", "UCS-4"}) {
        const std::u16string text =
            declaration16(std::u16string(name.begin(), name.end())) + u"<a/>";
        const std::string place = "1:" + std::to_string(readOf(name));
        expectTranscodeFailure(marked(LittleEndian, text), place, name);
        expectTranscodeFailure(marked(BigEndian, text), place, name);
    }
}

TEST(XmlReaderEncoding, TheDetectedNameItselfChangesNothing) {
    EXPECT_EQ(encodingOf(marked(LittleEndian, declaration16(u"UTF-16LE") + u"<a/>")), "UTF-16LE");
    EXPECT_EQ(encodingOf(units(BigEndian, declaration16(u"UTF-16BE") + u"<a/>")), "UTF-16BE");
}

TEST(XmlReaderEncoding, TheDetectedNameInAnotherCaseConvertsAgainFromTheBytesAsTheyCame) {
    const std::u16string little = declaration16(u"utf-16le") + u"<a>\u00E4</a>";
    const std::u16string big = declaration16(u"Utf-16be") + u"<a>\u00E4</a>";
    for (const std::string& document : {marked(LittleEndian, little), units(LittleEndian, little),
                                        marked(BigEndian, big), units(BigEndian, big)}) {
        EXPECT_EQ(dump(document), "Start a Data'\xC3\xA4' End a");
    }
    EXPECT_EQ(encodingOf(marked(LittleEndian, little)), "utf-16le");
    EXPECT_EQ(encodingOf(marked(BigEndian, big)), "Utf-16be");
}

TEST(XmlReaderEncoding, AMarkThatTheConvertedTextStartsWithIsNoneOfTheBytesThatMustReappear) {
    const std::u16string text = u"\xFEFF" + declaration16(u"utf-16le") + u"<a>\u00E4</a>";
    EXPECT_EQ(dump(marked(LittleEndian, text)), "Start a Data'\xC3\xA4' End a");
}

TEST(XmlReaderEncoding, Utf8OrAsciiDeclaredInAUtf16DocumentIsBelievedByNameOnly) {
    for (const std::string name : {"UTF-8", "utf-8", "US-ASCII"}) {
        const std::u16string text =
            declaration16(std::u16string(name.begin(), name.end())) + u"<a>\u00E4</a>";
        EXPECT_EQ(encodingOf(marked(LittleEndian, text)), name);
        EXPECT_EQ(dump(marked(LittleEndian, text)), "Start a Data'\xC3\xA4' End a");
    }
}

TEST(XmlReaderEncoding, TheOtherByteOrderDeclaredContradictsTheMark) {
    const std::string place = "1:" + std::to_string(readOf("UTF-16BE"));
    EXPECT_EQ(failureOf(marked(LittleEndian, declaration16(u"UTF-16BE") + u"<a/>")),
              declarationFailure(place, "UTF-16BE"));
    EXPECT_EQ(failureOf(marked(BigEndian, declaration16(u"UTF-16LE") + u"<a/>")),
              declarationFailure(place, "UTF-16LE"));
}

TEST(XmlReaderEncoding, Latin1DeclaredInAUtf16DocumentContradictsIt) {
    const std::string place = "1:" + std::to_string(readOf("ISO-8859-1"));
    EXPECT_EQ(failureOf(marked(LittleEndian, declaration16(u"ISO-8859-1") + u"<a/>")),
              declarationFailure(place, "ISO-8859-1"));
}

TEST(XmlReaderEncoding, ValuesReadBeforeASecondConversionStayGood) {
    XmlReader reader(marked(
        LittleEndian, u"<?xml version='1.1' standalone='yes' encoding='utf-16le'?><a>\u00E4</a>"));
    EXPECT_EQ(reader.getVersion(), "1.1");
    EXPECT_EQ(reader.getStandalone(), "yes");
    EXPECT_EQ(reader.getEncoding(), "utf-16le");
}

TEST(XmlReaderEncoding, ADeclaredMarkedTextFailsAtPositionsOfItsOwnMark) {
    EXPECT_EQ(placeOf("\xEF\xBB\xBF<1/>"), "1:3 XML_PARSE_ILLEGAL_NAME");
}

// Declarations that stand in content.

const std::string latin1Inside = "<?xml version='1.0' encoding='ISO-8859-1'?>";

TEST(XmlReaderEncoding, ADeclarationInsideTextConvertsWhatFollows) {
    EXPECT_EQ(dump("<a>x" + latin1Inside + "\xE4</a>"), "Start a Data'x\xC3\xA4' End a");
}

TEST(XmlReaderEncoding, ADeclarationBetweenNodesConvertsWhatFollows) {
    EXPECT_EQ(dump("<a>" + latin1Inside + "\xE4</a>"), "Start a Data'\xC3\xA4' End a");
    EXPECT_EQ(dump("<a>" + latin1Inside + "<\xE4/></a>"), "Start a Empty \xC3\xA4 End a");
}

TEST(XmlReaderEncoding, TextInFrontOfADeclarationInsideMustBeAscii) {
    EXPECT_EQ(dump("<a>\xE4" + latin1Inside + "</a>"), "Start a !XML_TRANSCODE_FROM_DECL_FAILED");
}

TEST(XmlReaderEncoding, ADeclarationInsideKeepsNamesAndNamespacesThatWereRead) {
    const std::string text = "<p:a xmlns:p='u' p:b='1'>x" + latin1Inside + "\xE4<p:c/></p:a>";
    EXPECT_EQ(dump(text),
              "Start{u}p:a[xmlns:p='u' {u}p:b='1'] Data'x\xC3\xA4' Empty{u}p:c End{u}p:a");
}

TEST(XmlReaderEncoding, ADeclarationInsideKeepsTheStateOfTheLastTag) {
    XmlReader reader("<p:a xmlns:p='u' p:b='1'>x" + latin1Inside + "\xE4</p:a>");
    reader.readNextNode();
    reader.readNextNode();
    EXPECT_EQ(dumpName(reader.getLastNameI()), "{u}p:a");
    EXPECT_EQ(dumpAttributes(reader.getLastAttributesI()), "[xmlns:p='u' {u}p:b='1']");
    EXPECT_EQ(reader.getLastContent(), "x\xC3\xA4");
    EXPECT_EQ(reader.getEncoding(), "ISO-8859-1");
    EXPECT_EQ(reader.getVersion(), "1.0");
    EXPECT_EQ(reader.getURIForPrefix("p"), "u");
}

TEST(XmlReaderEncoding, ADeclarationInsideAfterTextWasMovedGoesOnInTheMovedText) {
    EXPECT_EQ(dump("<a>&lt;x" + latin1Inside + "\xE4&gt;</a>"), "Start a Data'<x\xC3\xA4>' End a");
}

TEST(XmlReaderEncoding, ADeclarationInsideAConvertedDocumentStartsFromTheBytesAsTheyCame) {
    const std::u16string text = u"<a b='1'>x<?xml version='1.0' encoding='utf-16le'?>\u00E4</a>";
    EXPECT_EQ(dump(marked(LittleEndian, text)), "Start a[b='1'] Data'x\xC3\xA4' End a");
}

TEST(XmlReaderEncoding, ADeclarationInsideAConvertedDocumentMissesTextThatWasMoved) {
    // What was read no longer reads as it came, since the reference was replaced in place.
    const std::u16string text = u"<a>&lt;x<?xml version='1.0' encoding='utf-16le'?>y</a>";
    EXPECT_EQ(dump(marked(LittleEndian, text)), "Start a !XML_TRANSCODE_FROM_DECL_FAILED");
}

// Texts that a declaration makes shorter than what was read: two zero bytes are one character of
// UTF-16, and so one byte. Such a declaration fails as any other and leaves all in its place.

const std::string utf16Inside = "<?xml version='1.0' encoding='UTF-16LE'?>";

std::string zeros(unsigned count) {
    return "<!--" + std::string(count, '\0') + "-->";
}

// 39 bytes of the declaration are read, 207 of the comment and three of the tag.
TEST(XmlReaderEncoding, ADeclarationThatMakesTheTextShorterFailsInItsPlace) {
    EXPECT_EQ(failureOf(zeros(200) + utf16Inside + "<r>y</r>"),
              declarationFailure("1:247", "UTF-16LE"));
    EXPECT_EQ(failureOf("<r>" + zeros(200) + utf16Inside + "y</r>"),
              declarationFailure("1:250", "UTF-16LE"));
    EXPECT_EQ(failureOf("<r>x" + zeros(200) + utf16Inside + "y</r>"),
              declarationFailure("1:251", "UTF-16LE"));
}

TEST(XmlReaderEncoding, ADeclarationThatMakesTheTextShorterIsReadOnBehind) {
    XmlReader reader("<r>" + zeros(200) + utf16Inside + "y</r>");
    EXPECT_EQ(dumpRest(reader), "Start r !XML_TRANSCODE_FROM_DECL_FAILED");
    EXPECT_EQ(dumpNode(reader), "Start r");
    EXPECT_EQ(reader.getVersion(), "1.0");
    EXPECT_EQ(reader.getEncoding(), "UTF-16LE");
    EXPECT_EQ(dumpRest(reader), "Data'?>y' End r");
}

TEST(XmlReaderEncoding, ADeclarationThatMakesTheTextShorterKeepsTheStateOfTheLastTag) {
    XmlReader reader("<r>" + zeros(400) + "<p:name xmlns:p='u' a='1'>x" + utf16Inside +
                     "y</p:name></r>");
    EXPECT_EQ(dumpRest(reader),
              "Start r Start{u}p:name[xmlns:p='u' a='1'] !XML_TRANSCODE_FROM_DECL_FAILED");
    EXPECT_EQ(dumpName(reader.getLastNameI()), "{u}p:name");
    EXPECT_EQ(dumpAttributes(reader.getLastAttributesI()), "[xmlns:p='u' a='1']");
    EXPECT_EQ(reader.getURIForPrefix("p"), "u");
    EXPECT_EQ(reader.getVersion(), "1.0");
    EXPECT_EQ(reader.getEncoding(), "UTF-16LE");
    EXPECT_EQ(dumpRest(reader), "Data'?>y' End{u}p:name End r");
}

// As 407 bytes of a comment, 12 of a tag and one of text are in front, and three of another tag.
TEST(XmlReaderEncoding, ADeclarationThatMakesTheTextShorterFailsInItsPlaceInsideText) {
    EXPECT_EQ(failureOf("<r>" + zeros(400) + "<name a='1'>x" + utf16Inside + "y</name></r>"),
              declarationFailure("1:463", "UTF-16LE"));
}

TEST(XmlReaderEncoding, ADeclarationThatMakesTheTextShorterMayComeAgain) {
    const std::string other = "<?xml version='1.0' encoding='utf-16be'?>";
    XmlReader reader("<r>" + zeros(200) + utf16Inside + "<a/>" + other + utf16Inside + "y</r>");
    EXPECT_EQ(dumpRest(reader), "Start r !XML_TRANSCODE_FROM_DECL_FAILED");
    EXPECT_EQ(dumpRest(reader), "Data'?>' Empty a !XML_TRANSCODE_FROM_DECL_FAILED");
    EXPECT_EQ(reader.getEncoding(), "utf-16be");
    EXPECT_EQ(dumpRest(reader), "!XML_TRANSCODE_FROM_DECL_FAILED");
    EXPECT_EQ(reader.getEncoding(), "UTF-16LE");
    EXPECT_EQ(dumpRest(reader), "Data'?>y' End r");
}

TEST(XmlReaderEncoding, ADeclarationThatMakesTheTextShorterInsideAnElementLeavesAReadableReader) {
    const std::string document = "<r>" + zeros(400) + "<a b='1'>x<c/>" + utf16Inside + "y</a></r>";
    const XmlName any = XmlReader::NullName;
    for (int operation = 0; operation < 3; ++operation) {
        XmlReader reader(document);
        reader.readElementStart();
        EXPECT_THROW(operation == 0   ? void(reader.readElement(any))
                     : operation == 1 ? void(reader.readWellFormedElement(any))
                                      : void(reader.getElementReader(any)),
                     XmlParseLineColException);
        EXPECT_EQ(dumpNode(reader), "Empty c");
        EXPECT_EQ(dumpRest(reader), "Data'?>y' End a End r");
    }
}

// From a converted text to a shorter one: it fails in the text as it came, 646 bytes behind the
// mark like in the converted one. The mark's FF counts for four bytes of the 648.
TEST(XmlReaderEncoding, ADeclarationThatMakesAConvertedTextShorterFailsInTheTextAsItCame) {
    const std::u16string text = u"<!--" + std::u16string(300, u'\u0100') +
                                u"--><?xml version='1.0' encoding='UTF-16BE'?><r/>";
    EXPECT_EQ(failureOf(marked(LittleEndian, text)), declarationFailure("1:646", "UTF-16BE"));
}

TEST(XmlReaderEncoding, NothingDanglesAfterADeclarationInsideHasFailed) {
    XmlReader reader(marked(LittleEndian,
                            u"<p:a xmlns:p='u' p:b='1'>x<?xml version='1.0' "
                            u"encoding='ISO-8859-1'?>y</p:a>"));
    EXPECT_EQ(dumpRest(reader),
              "Start{u}p:a[xmlns:p='u' {u}p:b='1'] !XML_TRANSCODE_FROM_DECL_FAILED");
    dumpNode(reader);
    dumpName(reader.getLastNameI());
    dumpAttributes(reader.getLastAttributesI());
    reader.getEncoding();
    reader.getVersion();
    reader.getStandalone();
    reader.getURIForPrefix("p");
    dumpRest(reader);
}

TEST(XmlReaderEncoding, AnUnknownEncodingInsideFailsAndNothingDangles) {
    XmlReader reader(marked(LittleEndian, u"<a b='1'>x<?xml version='1.0' encoding='K'?>y</a>"));
    EXPECT_EQ(dumpRest(reader), "Start a[b='1'] !XML_TRANSCODE_FAILED");
    dumpName(reader.getLastNameI());
    dumpAttributes(reader.getLastAttributesI());
    reader.getEncoding();
    dumpRest(reader);
}

}  // namespace
}  // namespace nolk
