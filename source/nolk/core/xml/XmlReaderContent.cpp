// Text, comments and CDATA sections, and the step to the next node.
//
// Text is handed out where it stands. Only when a reference, a line end or a comment makes it
// shorter, what follows is moved to the left: `out` is the write position, never ahead of the
// cursor.

#include <nolk/core/MessageIds.h>
#include <nolk/core/XmlReaderImp.h>
#include <nolk/core/xml/XmlScan.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace nolk {

namespace {

char* moveText(char* out, const char* from, const char* to) {
    const auto length = static_cast<std::size_t>(to - from);
    if (out != from && length != 0) {
        std::memmove(out, from, length);
    }
    return out + length;
}

char* moveFoldingLineEnds(char* out, const char* from, const char* to) {
    while (from != to) {
        const char c = *from++;
        if (c == '\r' && from != to && *from == '\n') {
            ++from;
        }
        *out++ = c == '\r' ? '\n' : c;
    }
    return out;
}

}  // namespace

bool XmlReaderImp::readNodeDirective(bool expandContent) {
    ++cursor_;
    needByte();
    switch (*cursor_) {
        case '-':
            // The first dash is still ahead, so that `<!--->` is a whole comment here.
            skipComment();
            return false;
        case '[':
            // Deliberate: text that starts with a section keeps its comments.
            cursor_ -= 2;
            readContent(expandContent, true);
            return true;
        default:
            err(here(), message(NOLK_CORE_XML_PARSE_INVALID_SEQUENCE, *cursor_));
    }
}

// Content that isn't plain text up to a tag. The cursor is on the first special byte.
void XmlReaderImp::readMixedContent(char* start, bool expandReferences, bool keepComments) {
    using namespace xmlscan;
    char* out = cursor_;
    for (;;) {
        switch (rd()) {
            case '<':
                if (!readContentMarkup(start, out, keepComments)) {
                    lastContent_ = {start, static_cast<std::uint32_t>(out - start)};
                    return;
                }
                break;
            case '&':
                readReference(out);
                break;
            default:  // CR
                if (cursor_ <= last_ && *cursor_ == '\n') {
                    ++cursor_;
                }
                *out++ = '\n';
        }
        char* const from = cursor_;
        needByte();
        cursor_ =
            expandReferences ? scan<ContentStops>(from, last_) : scan<MarkupStops>(from, last_);
        out = moveText(out, from, cursor_);
    }
}

// Behind a `<` in content. Puts the cursor back and returns false if it starts a tag.
bool XmlReaderImp::readContentMarkup(char*& start, char*& out, bool keepComments) {
    switch (rd()) {
        case '?':
            readEmbeddedPI(start, out);
            return true;
        case '!':
            break;
        default:
            pb(2);
            return false;
    }
    const char kind = rd();
    if (kind == '-') {
        if (keepComments) {
            readComment(out);
        } else {
            skipComment();
        }
    } else if (kind == '[') {
        out = std::copy_n("<![", 3, out);
        readCDATA(out);
    } else {
        err(here(), message(NOLK_CORE_XML_PARSE_INVALID_SEQUENCE, kind));
    }
    return true;
}

// A declaration met in content can replace the buffer under the text being read.
void XmlReaderImp::readEmbeddedPI(char*& start, char*& out) {
    const std::ptrdiff_t startOffset = start - contentStart_;
    const std::ptrdiff_t outOffset = out - contentStart_;
    readPIOrXmlDecl();
    start = contentStart_ + startOffset;
    out = contentStart_ + outOffset;
}

namespace {

/** The next dash in [p, last], or `last + 1`. */
char* findDash(char* p, const char* last) {
    auto* dash = static_cast<char*>(std::memchr(p, '-', static_cast<std::size_t>(last + 1 - p)));
    return dash != nullptr ? dash : p + (last + 1 - p);
}

}  // namespace

void XmlReaderImp::skipComment() {
    char* out = nullptr;
    readComment(out);
}

// With `out` null, skips. The second dash of `<!--` is ahead, or on the path of nodes the first.
void XmlReaderImp::readComment(char*& out) {
    const bool copying = out != nullptr;
    if (rd() != '-') {
        err(here(), message(NOLK_CORE_XML_PARSE_COMMENT_SYNTAX_ERROR));
    }
    if (copying) {
        out = std::copy_n("<!--", 4, out);
    }
    for (;;) {
        char* const from = cursor_;
        cursor_ = findDash(from, last_);
        if (copying) {
            out = moveFoldingLineEnds(out, from, cursor_);
        }
        rd();
        if (rd() != '-') {
            pb(1);
            if (copying) {
                *out++ = '-';
            }
            continue;
        }
        if (rd() != '>') {
            err(here(), message(NOLK_CORE_XML_PARSE_COMMENT_INVALID_DASH));
        }
        if (copying) {
            out = std::copy_n("-->", 3, out);
        }
        return;
    }
}

void XmlReaderImp::readCDATA(char*& out) {
    XmlReaderString keyword;
    readName(keyword);
    if (keyword.view() != "CDATA" || rd() != '[') {
        err(here(), message(NOLK_CORE_XML_PARSE_INVALID_CDATA_DIRECTIVE));
    }
    out = std::copy_n("CDATA[", 6, out);
    const std::string_view rest(cursor_, static_cast<std::size_t>(last_ + 1 - cursor_));
    const std::size_t end = rest.find("]]>");
    char* const from = cursor_;
    cursor_ = end == std::string_view::npos ? last_ + 1 : cursor_ + end + 3;
    out = moveText(out, from, cursor_);
    if (end == std::string_view::npos) {
        failPrematureEof();
    }
}

}  // namespace nolk
