// The prolog of a document and the XML declaration, wherever it stands.

#include <nolk/core/MessageIds.h>
#include <nolk/core/XmlReaderImp.h>
#include <nolk/core/xml/XmlCharacterClass.h>
#include <nolk/core/xml/XmlReaderBuffer.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace nolk {

namespace {

struct DetectedEncoding {
    std::string_view bytes;
    XmlReaderString name;
};

using namespace std::string_view_literals;

// The order matters: UTF-32 marks begin like those of UTF-16.
constexpr DetectedEncoding byteOrderMarks[] = {
    {"\x00\x00\xFE\xFF"sv, {"UTF-32BE", 8}}, {"\xFF\xFE\x00\x00"sv, {"UTF-32LE", 8}},
    {"\x00\x00\xFF\xFE"sv, {"UTF-32", 6}},   {"\xFE\xFF\x00\x00"sv, {"UTF-32", 6}},
    {"\xFE\xFF"sv, {"UTF-16BE", 8}},         {"\xFF\xFE"sv, {"UTF-16LE", 8}},
    {"\xEF\xBB\xBF"sv, {"UTF-8", 5}},
};

// How `<` or `<?xm` looks in each, after appendix F of XML 1.0.
constexpr DetectedEncoding firstBytes[] = {
    {"\x00\x00\x00\x3C"sv, {"UTF-32BE", 8}}, {"\x3C\x00\x00\x00"sv, {"UTF-32LE", 8}},
    {"\x00\x00\x3C\x00"sv, {"UTF-32", 6}},   {"\x00\x3C\x00\x00"sv, {"UTF-32", 6}},
    {"\x00\x3C\x00\x3F"sv, {"UTF-16BE", 8}}, {"\x3C\x00\x3F\x00"sv, {"UTF-16LE", 8}},
    {"\x3C\x3F\x78\x6D"sv, {"UTF-8", 5}},    {"\x4C\x6F\xA7\x94"sv, {"EBCDIC", 6}},
};

const DetectedEncoding* findEncoding(const DetectedEncoding* first, const DetectedEncoding* end,
                                     const char* text) {
    return std::find_if(first, end, [text](const DetectedEncoding& row) {
        return std::memcmp(text, row.bytes.data(), row.bytes.size()) == 0;
    });
}

}  // namespace

void XmlReaderImp::readAndProcessBOM() {
    if (last_ - cursor_ < 4) {
        failPrematureEof();
    }
    contentStart_ = begin_;
    const bool plain = *begin_ == '<' && begin_[1] != '\0';  // as in no other encoding
    if (plain || isXmlSpace(*begin_)) {
        encoding_ = {"UTF-8", 5};
        return;
    }
    const auto* mark = findEncoding(std::begin(byteOrderMarks), std::end(byteOrderMarks), begin_);
    if (mark != std::end(byteOrderMarks)) {
        cursor_ += mark->bytes.size();
        contentStart_ = cursor_;
        transcodeDocument(mark->name);
        return;
    }
    const auto* start = findEncoding(std::begin(firstBytes), std::end(firstBytes), begin_);
    if (start != std::end(firstBytes)) {
        transcodeDocument(start->name);
    } else {
        encoding_ = {"UTF-8", 5};
    }
}

void XmlReaderImp::readProlog() {
    readAndProcessBOM();
    skipUsualXmlDecl();
    for (;;) {
        readS();
        if (rd() != '<') {
            err(here(), message(NOLK_CORE_XML_PARSE_INVALID_FIRST_CHAR));
        }
        switch (rd()) {
            case '!':
                if (rd() == '-') {
                    skipComment();
                } else {
                    pb(1);
                    readDocTypeDecl();
                }
                break;
            case '?':
                readPIOrXmlDecl();
                break;
            default:
                pb(2);
                return;
        }
    }
}

void XmlReaderImp::readDocTypeDecl() {
    XmlReaderString keyword;
    readName(keyword);
    if (keyword.view() != "DOCTYPE") {
        err(here(), message(NOLK_CORE_XML_PARSE_UNKNOWN_PROLOG));
    }
    // Nothing inside is interpreted, quotes included.
    std::int64_t brackets = 0;
    for (;;) {
        const char c = rd();
        if (c == '[') {
            ++brackets;
        } else if (c == ']') {
            --brackets;
        } else if (c == '>' && brackets == 0) {
            return;
        }
    }
}

void XmlReaderImp::readPIOrXmlDecl() {
    XmlReaderString target;
    readName(target);
    if (target.view() == "xml") {
        readXmlDecl();
        return;
    }
    for (;;) {
        const auto* mark = static_cast<const char*>(
            std::memchr(cursor_, '?', static_cast<std::size_t>(last_ + 1 - cursor_)));
        cursor_ = mark == nullptr ? last_ + 1 : cursor_ + (mark - cursor_) + 1;
        needByte();
        if (*cursor_ == '>') {
            ++cursor_;
            return;
        }
    }
}

void XmlReaderImp::readXmlDecl() {
    static constexpr std::string_view versionWord = "version";
    readS();
    if (last_ + 1 - cursor_ < static_cast<std::ptrdiff_t>(versionWord.size()) ||
        std::string_view(cursor_, versionWord.size()) != versionWord) {
        return;  // what follows is left to the caller, as content or as an error
    }
    const auto skipUnread = [this](std::ptrdiff_t count) {
        cursor_ += std::min(count, last_ + 1 - cursor_);
    };
    skipUnread(static_cast<std::ptrdiff_t>(versionWord.size()));
    version_ = readDeclValue();
    for (;;) {
        readS();
        switch (rd()) {
            case '>':
                return;
            case 'e':
                skipUnread(7);  // "ncoding"
                readDeclaredEncoding();
                break;
            case 's':
                skipUnread(9);  // "tandalone"
                standalone_ = readDeclValue();
                standaloneDeclared_ = true;
                break;
            default:
                break;  // the closing `?` among others
        }
    }
}

// The declaration that most documents have, at a glance, where it confirms what was detected.
void XmlReaderImp::skipUsualXmlDecl() {
    static constexpr std::string_view usual = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
    if (last_ - cursor_ < static_cast<std::ptrdiff_t>(usual.size()) ||
        std::memcmp(cursor_, usual.data(), usual.size()) != 0 || encoding_.view() != "UTF-8") {
        return;
    }
    version_ = {cursor_ + usual.find("1.0"), 3};
    encodingDeclared_ = true;
    cursor_ += usual.size();
}

void XmlReaderImp::readDeclaredEncoding() {
    const XmlReaderString declared = readDeclValue();
    encodingDeclared_ = true;
    applyDeclaredEncoding(declared);
}

XmlReaderString XmlReaderImp::readDeclValue() {
    readS();
    rd();  // the equals sign, whatever it is
    readS();
    rd();  // the opening quote, likewise
    const char* start = cursor_;
    for (;;) {
        const char c = rd();
        if (c == '\'' || c == '"') {
            return {start, static_cast<std::uint32_t>(cursor_ - 1 - start)};
        }
    }
}

}  // namespace nolk
