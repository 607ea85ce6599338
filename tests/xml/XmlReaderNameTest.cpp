#include <nolk/core/XmlReader.h>

#include <gtest/gtest.h>

#include <string>

#include "XmlReaderDump.h"

namespace nolk {
namespace {

using namespace std::string_literals;
using namespace nolk::test;

std::string startingWith(const std::string& name) {
    return dump("<" + name + "/>\n");
}

std::string illegal(const std::string& place, const std::string& character) {
    return place + " [XML_PARSE_ILLEGAL_NAME] Illegal starting character for name: " + character;
}

// Whether a name may start with the character, by the table of name starts.
bool startsNames(std::uint32_t c) {
    struct Range {
        std::uint32_t first, last;
    };
    static const Range ranges[] = {
        {':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},       {0xC0, 0xD6},
        {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D},
        {0x2070, 0x218F}, {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}};
    for (const Range& range : ranges) {
        if (range.first <= c && c <= range.last) {
            return true;
        }
    }
    return false;
}

TEST(XmlReaderName, EveryAsciiCharacterStartsANameOrNot) {
    for (std::uint32_t c = 1; c < 0x80; ++c) {
        if (c == '/' || c == '!' || c == '?') {
            continue;  // these make the `<` something else than a start tag
        }
        const std::string name = utf8(c) + "x";
        const std::string wanted = c == ':'         ? "Empty x"
                                   : startsNames(c) ? "Empty " + name
                                                    : "!XML_PARSE_ILLEGAL_NAME";
        EXPECT_EQ(startingWith(name), wanted) << c;
    }
}

TEST(XmlReaderName, EveryCharacterOfTwoBytesStartsANameOrNot) {
    for (std::uint32_t c = 0x80; c < 0x800; ++c) {
        EXPECT_EQ(startingWith(utf8(c)),
                  startsNames(c) ? "Empty " + utf8(c) : "!XML_PARSE_ILLEGAL_NAME")
            << c;
    }
}

TEST(XmlReaderName, CharactersOfThreeBytesStartANameOrNot) {
    for (std::uint32_t c = 0x800; c < 0x10000; c += c < 0x3010 ? 1 : 0x0F) {
        EXPECT_EQ(startingWith(utf8(c)),
                  startsNames(c) ? "Empty " + utf8(c) : "!XML_PARSE_ILLEGAL_NAME")
            << c;
    }
}

TEST(XmlReaderName, CharactersAtTheEndOfThreeBytesStartANameOrNot) {
    for (std::uint32_t c : {0xD7FFu, 0xD800u, 0xDFFFu, 0xE000u, 0xF8FFu, 0xF900u, 0xFDCFu, 0xFDD0u,
                            0xFDEFu, 0xFDF0u, 0xFFFDu, 0xFFFEu, 0xFFFFu}) {
        EXPECT_EQ(startingWith(utf8(c)),
                  startsNames(c) ? "Empty " + utf8(c) : "!XML_PARSE_ILLEGAL_NAME")
            << c;
    }
}

TEST(XmlReaderName, TheIllegalCharacterIsToldAsUtf8) {
    EXPECT_EQ(failureOf("<1a/>"), illegal("1:3", "1"));
    EXPECT_EQ(failureOf("<-a/>"), illegal("1:3", "-"));
    EXPECT_EQ(failureOf("<.a/>"), illegal("1:3", "."));
    EXPECT_EQ(failureOf("< a/>"), illegal("1:3", " "));
    EXPECT_EQ(failureOf("<>..."), illegal("1:3", ">"));
    EXPECT_EQ(failureOf("<<a/>"), illegal("1:3", "<"));
    EXPECT_EQ(failureOf("<%1%/>"), illegal("1:3", "%"));
    EXPECT_EQ(failureOf("<\xC3\x97/>"), illegal("1:3", "\xC3\x97"));
    EXPECT_EQ(failureOf("<\xE2\x80\x93/>"), illegal("1:3", "\xE2\x80\x93"));
    EXPECT_EQ(failureOf("<\xEF\xBF\xBE/>"), illegal("1:3", "\xEF\xBF\xBE"));
    EXPECT_EQ(failureOf("<\xF0\x9F\xBF\xBE/>"), illegal("1:3", "\xF0\x9F\xBF\xBE"));
    // Decoded one bit too high: to 0x180000, and to 0x200000, of which 21 bits are written.
    EXPECT_EQ(failureOf("<\xF3\x80\x80\x80/>"), illegal("1:3", "\xF6\x80\x80\x80"));
    EXPECT_EQ(failureOf("<\xF4\x80\x80\x80/>"), illegal("1:3", "\xF0\x80\x80\x80"));
}

TEST(XmlReaderName, AZeroByteStartsNoName) {
    EXPECT_EQ(dump("<\0a/>"s), "!XML_PARSE_ILLEGAL_NAME");
}

// Characters behind the first.

TEST(XmlReaderName, DigitsDashDotAndColonGoOn) {
    EXPECT_EQ(dump("<a-b.c_0123456789/>"), "Empty a-b.c_0123456789");
}

TEST(XmlReaderName, EveryOtherAsciiCharacterEndsAName) {
    for (std::uint32_t c = 0; c < 0x80; ++c) {
        const std::string character(1, static_cast<char>(c));
        XmlReader reader("<ab" + character + "></ab>");
        try {
            reader.readNextNode();
        } catch (const XmlParseLineColException&) {
            continue;  // the character behind the name fits nowhere
        }
        const bool goesOn = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                            (c >= '0' && c <= '9') || c == '-' || c == '.' || c == '_';
        const std::string wanted = goesOn ? "ab" + character : c == ':' ? "" : "ab";
        EXPECT_EQ(reader.getLastNameI().localName.asString(), wanted) << c;
        EXPECT_TRUE(goesOn || c == ':' || c == ' ' || c == '\t' || c == '\r' || c == '\n' ||
                    c == '/' || c == '>')
            << c;
    }
}

TEST(XmlReaderName, ALongNameIsReadWhole) {
    for (std::size_t length = 1; length < 100; ++length) {
        const std::string name(length, 'n');
        EXPECT_EQ(dump("<" + name + "></" + name + ">"), "Start " + name + " End " + name);
    }
}

TEST(XmlReaderName, AnyCharacterOutsideAsciiGoesOn) {
    for (const char* rest :
         {"\xC2\x80", "\xC2\xA0", "\xC3\x97", "\xCC\x80", "\xE2\x80\x93", "\xE3\x80\x80",
          "\xED\xA0\x80", "\xEF\xBF\xBE", "\xEF\xBF\xBF", "\xF0\x9F\xBF\xBE", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_EQ(dump("<a"s + rest + "b/>"), "Empty a"s + rest + "b");
    }
}

TEST(XmlReaderName, ContinuationBytesAreNotTested) {
    // A lead byte takes what follows for its own, whatever it is.
    EXPECT_EQ(dump("<a\xC3>b/>"), "Empty a\xC3>b");
    EXPECT_EQ(dump("<a\xE1/>b/>"), "Empty a\xE1/>b");
    EXPECT_EQ(dump("<a\xF1/>/b/>"), "Empty a\xF1/>/b");
}

TEST(XmlReaderName, OddLeadsTakeFourBytes) {
    for (std::uint32_t lead = 0x80; lead < 0x100; ++lead) {
        const std::string b(1, static_cast<char>(lead));
        const bool two = lead >= 0xC2 && lead <= 0xDF;
        const bool three = lead >= 0xE0 && lead <= 0xEF;
        const std::string own = two ? "\xBF" : three ? "\xBF\xBF" : "\xBF\xBF\xBF";
        EXPECT_EQ(dump("<a" + b + own + "/>"), "Empty a" + b + own) << lead;
        // One byte more: it is a lead itself, and takes the end of the tag into the name.
        EXPECT_NE(dump("<a" + b + own + "\xBF/>"), "Empty a" + b + own + "\xBF") << lead;
    }
}

TEST(XmlReaderName, AFirstCharacterOfFourBytesIsDecodedOneBitTooHigh) {
    // U+10000 reads as itself.
    EXPECT_EQ(startingWith("\xF0\x90\x80\x80"), "Empty \xF0\x90\x80\x80");
    // U+40000 reads as 0x80000, U+80000 as 0x100000: still within bounds.
    EXPECT_EQ(startingWith("\xF1\x80\x80\x80"), "Empty \xF1\x80\x80\x80");
    EXPECT_EQ(startingWith("\xF2\x80\x80\x80"), "Empty \xF2\x80\x80\x80");
    // U+90000 reads as 0x110000, U+C0000 as 0x180000, U+100000 as 0x200000: beyond Unicode.
    EXPECT_EQ(startingWith("\xF2\x90\x80\x80"), "!XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(startingWith("\xF3\x80\x80\x80"), "!XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(startingWith("\xF4\x80\x80\x80"), "!XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderName, TheLastTwoCharactersOfAPlaneStartNoName) {
    EXPECT_EQ(startingWith("\xF0\x9F\xBF\xBD"), "Empty \xF0\x9F\xBF\xBD");
    EXPECT_EQ(startingWith("\xF0\x9F\xBF\xBE"), "!XML_PARSE_ILLEGAL_NAME");
    EXPECT_EQ(startingWith("\xF0\x9F\xBF\xBF"), "!XML_PARSE_ILLEGAL_NAME");
}

TEST(XmlReaderName, AnOddLeadMayDecodeToALetter) {
    // 0x80 is taken for a lead of four: nothing, 0, 1, 1 make 0x41, an A.
    EXPECT_EQ(startingWith("\x80\x80\x81\x81"), "Empty \x80\x80\x81\x81");
    EXPECT_EQ(startingWith("\xC0\x80\x81\x81"), "Empty \xC0\x80\x81\x81");
    EXPECT_EQ(startingWith("\xF8\x80\x81\x81"), "Empty \xF8\x80\x81\x81");
    EXPECT_EQ(startingWith("\xE0\x81\x81"), "Empty \xE0\x81\x81");
    EXPECT_EQ(dump("<a\xE0\x81\x81/>"), "Empty a\xE0\x81\x81");
}

TEST(XmlReaderName, AnOddLeadMayDecodeToADigitThatStartsNoName) {
    EXPECT_EQ(failureOf("<\xE0\x80\xB1/>"), illegal("1:3", "1"));
}

TEST(XmlReaderName, ACharacterThatDecodesToANameEndStepsBackOverAllItsBytes) {
    // E0 80 A0 reads as a space, which ends the name but is no white space where a tag skips that;
    // so it starts a name of its own, and can't.
    EXPECT_EQ(failureOf("<a\xE0\x80\xA0/>"), illegal("1:4", " "));
    EXPECT_EQ(failureOf("<a\x80\x80\x80\xA0/>"), illegal("1:7", " "));
    EXPECT_EQ(failureOf("<a\xF0\x80\x80\xBE/>"), illegal("1:4", ">"));
}

TEST(XmlReaderName, AnEndInsideACharacterIsToldSo) {
    // The lead is read; a lead's width in columns takes what is there of its bytes.
    EXPECT_EQ(placeOf("<abc\xC3"), "1:6 XML_PARSE_PREMATURE_EOF_INSIDE_CHAR");
    EXPECT_EQ(placeOf("<abc\xE1"), "1:6 XML_PARSE_PREMATURE_EOF_INSIDE_CHAR");
    EXPECT_EQ(placeOf("<abc\xE1\x80"), "1:6 XML_PARSE_PREMATURE_EOF_INSIDE_CHAR");
    EXPECT_EQ(placeOf("<abc\xF1\x80\x80"), "1:6 XML_PARSE_PREMATURE_EOF_INSIDE_CHAR");
    EXPECT_EQ(placeOf("<abc\x80"), "1:6 XML_PARSE_PREMATURE_EOF_INSIDE_CHAR");
    EXPECT_EQ(failureOf("<abc\xC3"),
              "1:6 [XML_PARSE_PREMATURE_EOF_INSIDE_CHAR] Premature EOF inside character");
}

TEST(XmlReaderName, AnEndInsideTheFirstCharacterIsToldSoToo) {
    EXPECT_EQ(placeOf("    <\xC3"), "1:7 XML_PARSE_PREMATURE_EOF_INSIDE_CHAR");
    EXPECT_EQ(placeOf("    <\xFF\xBF\xBF"), "1:7 XML_PARSE_PREMATURE_EOF_INSIDE_CHAR");
}

TEST(XmlReaderName, ACharacterMayEndWithTheDocument) {
    EXPECT_EQ(placeOf("<abc\xC3\xA4"), "1:6 XML_PARSE_PREMATURE_EOF");
    EXPECT_EQ(placeOf("<abc\xE2\x82\xAC"), "1:6 XML_PARSE_PREMATURE_EOF");
    EXPECT_EQ(placeOf("<abc\xF0\x9F\x98\x80"), "1:6 XML_PARSE_PREMATURE_EOF");
}

TEST(XmlReaderName, AnEndInsideANameIsPremature) {
    EXPECT_EQ(placeOf("<abcd"), "1:6 XML_PARSE_PREMATURE_EOF");
    EXPECT_EQ(placeOf("<a></a"), "1:7 XML_PARSE_PREMATURE_EOF");
    EXPECT_EQ(placeOf("    <"), "1:6 XML_PARSE_PREMATURE_EOF");
}

// Prefixes.

TEST(XmlReaderName, TheFirstColonSplitsAName) {
    EXPECT_EQ(dump("<a:b xmlns:a='u'/>"), "Empty{u}a:b[xmlns:a='u']");
}

TEST(XmlReaderName, AFurtherColonStaysInTheLocalName) {
    XmlReader reader("<a:b:c xmlns:a='u'/>"s);
    reader.readNextNode();
    EXPECT_EQ(reader.getLastNameI().prefix.asString(), "a");
    EXPECT_EQ(reader.getLastNameI().localName.asString(), "b:c");
    EXPECT_EQ(reader.getLastNameI().uri.asString(), "u");
}

TEST(XmlReaderName, ALeadingColonGivesAnEmptyPrefix) {
    XmlReader reader("<:a xmlns='u'/>"s);
    reader.readNextNode();
    EXPECT_EQ(reader.getLastNameI().prefix.length, 0u);
    EXPECT_EQ(reader.getLastNameI().localName.asString(), "a");
    EXPECT_EQ(reader.getLastNameI().uri.asString(), "u");
}

TEST(XmlReaderName, ATrailingColonGivesAnEmptyLocalName) {
    XmlReader reader("<a: xmlns:a='u'/>"s);
    reader.readNextNode();
    EXPECT_EQ(reader.getLastNameI().prefix.asString(), "a");
    EXPECT_EQ(reader.getLastNameI().localName.length, 0u);
    EXPECT_EQ(reader.getLastNameI().uri.asString(), "u");
}

TEST(XmlReaderName, AColonAloneIsAnEmptyName) {
    XmlReader reader("<:/>  "s);
    reader.readNextNode();
    EXPECT_EQ(reader.getLastNameI().prefix.length, 0u);
    EXPECT_EQ(reader.getLastNameI().localName.length, 0u);
}

TEST(XmlReaderName, AnUnboundPrefixHasNoUriAndIsNoError) {
    EXPECT_EQ(dump("<a:b/>"), "Empty a:b");
    EXPECT_EQ(dump("<a b:c='1'/>"), "Empty a[b:c='1']");
}

TEST(XmlReaderName, ThePrefixXmlIsNotDeclared) {
    EXPECT_EQ(dump("<a xml:lang='de'/>"), "Empty a[xml:lang='de']");
}

TEST(XmlReaderName, GetXmlNameResolvesInTheCurrentScope) {
    const std::string text = "<a xmlns='d' xmlns:p='u'></a>";
    XmlReaderImp body(text.data(), static_cast<unsigned>(text.size()));
    const auto resolved = [&body](const char* name) {
        return dumpName(body.getXmlName(XmlReaderString::of(name)));
    };
    EXPECT_EQ(resolved("p:x"), "p:x");
    body.readNextNode();
    EXPECT_EQ(resolved("p:x"), "{u}p:x");
    EXPECT_EQ(resolved("x"), "{d}x");
    EXPECT_EQ(resolved("q:x"), "q:x");
    EXPECT_EQ(resolved(":x"), "{d}x");
    EXPECT_EQ(resolved("p:x:y"), "{u}p:x:y");
    EXPECT_EQ(resolved("p:"), "{u}p:");
    EXPECT_EQ(resolved(""), "{d}");
    body.readNextNode();
    EXPECT_EQ(resolved("p:x"), "p:x");
}

TEST(XmlReaderName, GetXmlNameMakesViewsOfWhatItWasGiven) {
    const std::string text = "<a b='c'/>";
    const XmlReaderImp body(text.data(), static_cast<unsigned>(text.size()));
    const char* name = "p:x";
    const XmlReaderName split = body.getXmlName(XmlReaderString::of(name));
    EXPECT_EQ(split.prefix.data, name);
    EXPECT_EQ(split.localName.data, name + 2);
}

}  // namespace
}  // namespace nolk
