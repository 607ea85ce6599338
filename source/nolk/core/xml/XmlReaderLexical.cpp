// Characters, names and references, byte by byte: the careful path, for all that XmlReaderNode.cpp
// doesn't recognise at a glance.

#include <nolk/core/MessageIds.h>
#include <nolk/core/XmlReaderImp.h>
#include <nolk/core/xml/Utf8.h>
#include <nolk/core/xml/XmlCharacterClass.h>
#include <nolk/core/xml/XmlScan.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace nolk {

namespace {

bool isNameStart(std::uint32_t c) {
    return xmlCharacterClass(c) == XmlCharacterClass::NameStart;
}

bool isAsciiNameEnd(std::uint32_t c) {
    return c < 0x80 && xmlCharacterClass(c) < XmlCharacterClass::NamePart;
}

}  // namespace

char XmlReaderImp::rd() {
    needByte();
    return *cursor_++;
}

void XmlReaderImp::readS() {
    while (cursor_ <= last_ && isXmlSpace(*cursor_)) {
        ++cursor_;
    }
}

std::uint32_t XmlReaderImp::rduchar() {
    needByte();
    if ((*cursor_ & 0x80) == 0) {
        return static_cast<unsigned char>(*cursor_++);
    }
    return rdmbuchar();
}

// The bytes behind the lead are taken for what they should be, and the lead of a four-byte sequence
// is shifted by 19, not 18: only the class of a name's first character and the number of bytes
// depend on the result, and callers on both.
std::uint32_t XmlReaderImp::rdmbuchar() {
    const auto byte = [this](std::ptrdiff_t i) -> std::uint32_t {
        return static_cast<unsigned char>(cursor_[i]);
    };
    const std::uint32_t lead = byte(0);
    const std::ptrdiff_t length = lead >= 0xC2 && lead <= 0xDF   ? 2
                                  : lead >= 0xE0 && lead <= 0xEF ? 3
                                                                 : 4;
    if (last_ + 1 - cursor_ < length) {
        ++cursor_;  // the lead counts as read
        err(here(), message(NOLK_CORE_XML_PARSE_PREMATURE_EOF_INSIDE_CHAR));
    }
    std::uint32_t c = 0;
    if (length == 2) {
        c = (lead & 0x1F) << 6 | (byte(1) & 0x3F);
    } else if (length == 3) {
        c = (lead & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
    } else {
        c = (lead & 0x07) << 19 | (byte(1) & 0x3F) << 12 | (byte(2) & 0x3F) << 6 | (byte(3) & 0x3F);
    }
    cursor_ += length;
    return c;
}

void XmlReaderImp::readName(XmlReaderString& name) {
    const char* const start = cursor_;
    const std::uint32_t first = rduchar();
    if (!isNameStart(first)) {
        std::string character;
        appendUtf8(character, first);
        err(here(), message(NOLK_CORE_XML_PARSE_ILLEGAL_NAME, character));
    }
    for (;;) {
        cursor_ = xmlscan::scan<xmlscan::NameStops>(cursor_, last_);
        needByte();
        if ((*cursor_ & 0x80) == 0) {
            break;
        }
        char* const before = cursor_;
        if (isAsciiNameEnd(rdmbuchar())) {
            cursor_ = before;
            break;
        }
    }
    name = {start, static_cast<std::uint32_t>(cursor_ - start)};
}

XmlReaderName XmlReaderImp::getXmlName(const XmlReaderString& qname) const {
    const std::string_view text = qname.view();
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) {
        return {qname, {}, findPrefix({})};
    }
    const XmlReaderString prefix = XmlReaderString::of(text.substr(0, colon));
    return {XmlReaderString::of(text.substr(colon + 1)), prefix, findPrefix(prefix)};
}

namespace {

/** The character that one of the five predefined entities stands for, or 0. */
char predefinedEntity(std::string_view name) {
    static constexpr std::pair<std::string_view, char> entities[] = {
        {"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"apos", '\''}, {"quot", '"'}};
    for (const auto& [entity, character] : entities) {
        if (name == entity) {
            return character;
        }
    }
    return 0;
}

/** The value of a digit, or a number not below any base. */
std::uint32_t digitValue(char c) {
    if (c >= '0' && c <= '9') {
        return static_cast<std::uint32_t>(c - '0');
    }
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? static_cast<std::uint32_t>(lower - 'a' + 10) : 16;
}

/** Writes the character of a reference. Deliberate: of a value above 0xFFFF only 18 bits are
 * carried, so that code points from 0x40000 up come out as others, and no value is refused. */
std::size_t writeReferenced(char* out, std::uint32_t c) {
    const std::size_t length = writeUtf8(out, c);
    if (length == 4) {
        out[0] = static_cast<char>(0xF0);
    }
    return length;
}

}  // namespace

void XmlReaderImp::readReference(char*& out) {
    const char* const start = cursor_;
    const auto* end = static_cast<const char*>(
        std::memchr(start, ';', static_cast<std::size_t>(last_ + 1 - start)));
    if (end == nullptr) {
        cursor_ = last_ + 1;
        failPrematureEof();
    }
    const std::string_view text(start, static_cast<std::size_t>(end - start));
    cursor_ += text.size() + 1;
    if (text.empty() || text[0] != '#') {
        if (const char character = predefinedEntity(text)) {
            *out++ = character;
        } else {
            std::memmove(out, start - 1, text.size() + 2);
            out += text.size() + 2;
        }
        return;
    }
    const bool hexadecimal = text.size() > 1 && text[1] == 'x';
    const std::uint32_t base = hexadecimal ? 16 : 10;
    std::uint32_t value = 0;
    for (const char c : text.substr(hexadecimal ? 2 : 1)) {
        const std::uint32_t digit = digitValue(c);
        if (digit >= base) {
            err(here(), message(NOLK_CORE_XML_PARSE_INVALID_CHAR_IN_REFERENCE));
        }
        value = value * base + digit;
    }
    out += writeReferenced(out, value);
    if (value >= 0x80) {
        buffer_.noteWrittenHigh();
    }
}

}  // namespace nolk
