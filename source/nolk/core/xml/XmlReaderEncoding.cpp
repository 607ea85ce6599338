// Converts the document to UTF-8, when an encoding is detected and again when one is declared.
//
// A conversion always starts from the bytes that the caller gave: while the declared encoding isn't
// settled, the buffer that a first conversion replaced is kept beside the new one.

#include <nolk/core/Exception.h>
#include <nolk/core/MessageIds.h>
#include <nolk/core/XmlReaderImp.h>
#include <nolk/core/xml/CharsetConversion.h>
#include <nolk/core/xml/Utf8.h>
#include <nolk/core/xml/XmlReaderAside.h>
#include <nolk/core/xml/XmlReaderBuffer.h>
#include <nolk/core/xml/XmlReaderRebase.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <limits>

namespace nolk {

namespace {

std::string upperCased(std::string text) {
    for (char& c : text) {
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    return text;
}

std::string latin1ToUtf8(std::string_view source) {
    std::string result;
    result.reserve(source.size() + source.size() / 8);
    const char* const last = source.data() + source.size() - 1;
    for (const char* p = source.data(); p <= last;) {
        const char* high = xmlscan::scan<xmlscan::HighStops>(p, last);
        result.append(p, high);
        for (p = high; p <= last && (*p & 0x80) != 0; ++p) {
            appendUtf8(result, static_cast<unsigned char>(*p));
        }
    }
    return result;
}

// Pairs of surrogates become one character; a lone one is written as it stands.
std::string utf16ToUtf8(std::string_view source, bool bigEndian) {
    const auto unit = [&](std::size_t i) -> std::uint32_t {
        const auto first = static_cast<unsigned char>(source[i]);
        const auto second = static_cast<unsigned char>(source[i + 1]);
        return bigEndian ? first << 8 | second : second << 8 | first;
    };
    std::string result;
    result.reserve(source.size());
    const bool marked = source.size() >= 2 && (unit(0) == 0xFEFF || unit(0) == 0xFFFE);
    for (std::size_t i = marked ? 2 : 0; i + 1 < source.size(); i += 2) {
        std::uint32_t c = unit(i);
        if ((c & 0xFC00) == 0xD800 && i + 3 < source.size() && (unit(i + 2) & 0xFC00) == 0xDC00) {
            c = 0x10000 + ((c & 0x3FF) << 10) + (unit(i + 2) & 0x3FF);
            i += 2;
        }
        appendUtf8(result, c);
    }
    return result;
}

bool isUtf16Name(std::string_view name) {
    return name == "UTF-16LE" || name == "UTF-16BE";
}
bool isUtf32Name(std::string_view name) {
    return name == "UTF-32LE" || name == "UTF-32BE";
}

// Whether a declaration names the family of encodings of which one was detected.
bool declaresDetected(std::string_view declared, std::string_view detected) {
    return ((declared == "UTF-16" || declared == "UCS-2") && isUtf16Name(detected)) ||
           (declared == "UTF-32" && isUtf32Name(detected));
}

// Whether a converted text, behind a mark of its own, begins with what was read of the document.
bool beginsAsRead(std::string_view converted, std::string_view read) {
    if (converted.starts_with("\xEF\xBB\xBF")) {
        converted.remove_prefix(3);
    }
    return converted.starts_with(read);
}

}  // namespace

void XmlReaderImp::transcodeDocument(const XmlReaderString& encoding) {
    if (const auto converted = convertDocument(encoding)) {
        replaceOriginalBuffer(*converted);
    }
}

std::optional<std::string> XmlReaderImp::convertDocument(const XmlReaderString& encoding) {
    if (encoding.view() == "UTF-8") {
        encoding_ = encoding;
        return std::nullopt;
    }
    const std::string name = encoding.asString();  // the view may lie in a buffer that goes away
    const std::string upperCase = upperCased(name);
    encoding_ = encoding;
    if (upperCase == "UTF-8" || upperCase == "US-ASCII") {
        return std::nullopt;
    }
    const char* from = isConverted() ? aside_->savedBegin : begin_;
    const char* to = isConverted() ? aside_->savedLast : last_;
    if (upperCase == "ISO-8859-1" && !isConverted() && isPlainAscii()) {
        return std::nullopt;  // the same bytes would come out
    }
    return convertBytes(name, upperCase, {from, static_cast<std::size_t>(to + 1 - from)});
}

std::string XmlReaderImp::convertBytes(const std::string& encoding, const std::string& upperCase,
                                       std::string_view source) {
    // A declaration may come again and again in content, each time doubling what isn't ASCII.
    const std::size_t limit = std::min<std::size_t>(64 * std::size_t{originalLength_} + 65536,
                                                    std::numeric_limits<std::uint32_t>::max());
    std::string failure;
    try {
        std::string converted = upperCase == "ISO-8859-1" ? latin1ToUtf8(source)
                                : isUtf16Name(upperCase)
                                    ? utf16ToUtf8(source, upperCase == "UTF-16BE")
                                    : convertCharset(source, encoding, "UTF-8");
        if (converted.size() <= limit) {
            return converted;
        }
        failure = message(NOLK_CORE_NO_MEMORY).getMessage();
    } catch (const Exception& e) {
        failure = e.what();
    }
    revertToOriginal();
    err(here(), message(NOLK_CORE_XML_TRANSCODE_FAILED, encoding, failure));
}

bool XmlReaderImp::isConverted() const {
    return aside_ && aside_->savedBegin != nullptr;
}

bool XmlReaderImp::isPlainAscii() {
    // What was ASCII stays so, wherever text is moved to, unless a reference stood for more.
    const char*& asciiTo = aside().asciiTo;
    const bool known = asciiTo != nullptr && !buffer_.isWrittenHigh();
    const char* from = known ? asciiTo : begin_;
    const char* to = known ? cursor_ - 1 : last_;
    if (xmlscan::scan<xmlscan::HighStops>(from, to) <= to) {
        return false;
    }
    asciiTo = cursor_;
    return true;
}

void XmlReaderImp::replaceOriginalBuffer(const std::string& converted) {
    const std::size_t length = converted.empty() ? 1 : converted.size();
    Buffer buffer = newReaderBuffer(length);
    std::memcpy(buffer.get(), converted.c_str(), length);
    char* const begin = buffer.get();
    char* const last = begin + length - 1;
    char* const start = hasUtf8Mark(begin, last) ? begin + 3 : begin;
    const XmlReaderRebase move(contentStart_, begin_, last_, start, last);
    Aside& saved = aside();
    if (saved.savedBegin == nullptr) {
        saved.savedBuffer = std::move(buffer_);
        saved.savedBegin = begin_;
        saved.savedLast = last_;
        saved.savedContentStart = contentStart_;
    }
    buffer_ = std::move(buffer);
    begin_ = begin;
    last_ = last;
    contentStart_ = start;
    saved.asciiTo = nullptr;
    rebase(move);
}

void XmlReaderImp::revertToOriginal() {
    if (!isConverted()) {
        return;
    }
    Aside& saved = *aside_;
    const XmlReaderRebase move(contentStart_, begin_, last_, saved.savedContentStart,
                               saved.savedLast);
    buffer_ = std::move(saved.savedBuffer);
    begin_ = saved.savedBegin;
    last_ = saved.savedLast;
    contentStart_ = saved.savedContentStart;
    saved.forgetSaved();
    saved.asciiTo = nullptr;
    rebase(move);
}

void XmlReaderImp::applyDeclaredEncoding(XmlReaderString declared) {
    if (declaresDetected(declared.view(), encoding_.view())) {
        declared = encoding_;
    }
    if (!(declared == encoding_)) {
        const std::string name = declared.asString();
        const std::string_view read(contentStart_,
                                    static_cast<std::size_t>(cursor_ - contentStart_));
        // Compared before it is taken: a text shorter than what was read has no place for the
        // cursor and the views, and going back from it couldn't find them again.
        if (const auto converted = convertDocument(declared)) {
            if (!beginsAsRead(*converted, read)) {
                revertToOriginal();
                err(here(), message(NOLK_CORE_XML_TRANSCODE_FROM_DECL_FAILED, name));
            }
            replaceOriginalBuffer(*converted);
        }
    }
    if (aside_) {
        aside_->forgetSaved();
    }
}

}  // namespace nolk
