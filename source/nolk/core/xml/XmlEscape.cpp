#include "XmlEscape.h"

#include "ShortText.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace nolk::xml {

namespace {

using ByteSet = std::array<bool, 256>;

constexpr ByteSet byteSet(std::string_view bytes) {
    ByteSet set{};
    for (const char byte : bytes) {
        set[static_cast<unsigned char>(byte)] = true;
    }
    return set;
}

constexpr ByteSet textSpecials = byteSet("\r&<>");
constexpr ByteSet attributeSpecials = byteSet("\"&'<>");

inline const char* findByTable(const ByteSet& specials, const char* p, const char* end) noexcept {
    while (p != end && !specials[static_cast<unsigned char>(*p)]) {
        ++p;
    }
    return p;
}

#if defined(__SSE2__)

constexpr std::ptrdiff_t blockSize = 16;

__m128i load(const char* p) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}
__m128i loadHalf(const char* p) {
    return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
}

__m128i equalTo(__m128i block, char byte) {
    return _mm_cmpeq_epi8(block, _mm_set1_epi8(byte));
}

// '<' and '>' differ in the bit of value 2 only, so one comparison finds both.
__m128i angleBrackets(__m128i block) {
    return equalTo(_mm_or_si128(block, _mm_set1_epi8(2)), '>');
}

struct TextSpecials {
    static __m128i find(__m128i block) {
        return _mm_or_si128(angleBrackets(block),
                            _mm_or_si128(equalTo(block, '&'), equalTo(block, '\r')));
    }
};

// '&' and '\'' differ in the bit of value 1 only.
struct AttributeSpecials {
    static __m128i find(__m128i block) {
        return _mm_or_si128(angleBrackets(block),
                            _mm_or_si128(equalTo(_mm_or_si128(block, _mm_set1_epi8(1)), '\''),
                                         equalTo(block, '"')));
    }
};

template <class Specials>
unsigned int specialsIn(__m128i block) {
    return static_cast<unsigned int>(_mm_movemask_epi8(Specials::find(block)));
}

// The last block overlaps the one before it, so that nothing behind `end` is read.
template <class Specials>
inline const char* findByBlock(const char* p, const char* end) noexcept {
    for (; end - p > blockSize; p += blockSize) {
        if (const unsigned int found = specialsIn<Specials>(load(p))) {
            return p + std::countr_zero(found);
        }
    }
    p = end - blockSize;
    const unsigned int found = specialsIn<Specials>(load(p));
    return found != 0 ? p + std::countr_zero(found) : end;
}

// Eight to fifteen bytes make one block: the first eight and the last eight, which overlap.
template <class Specials>
inline const char* findInHalves(const char* p, const char* end) noexcept {
    constexpr int half = blockSize / 2;
    const __m128i block = _mm_unpacklo_epi64(loadHalf(p), loadHalf(end - half));
    const int found = std::countr_zero(specialsIn<Specials>(block));
    return found < half ? p + found
                        : end - blockSize + std::min(found, static_cast<int>(blockSize));
}

template <class Specials>
inline const char* find(const ByteSet& set, const char* p, const char* end) noexcept {
    if (end - p >= blockSize) {
        return findByBlock<Specials>(p, end);
    }
    return end - p >= blockSize / 2 ? findInHalves<Specials>(p, end) : findByTable(set, p, end);
}

#endif

std::string_view between(const char* p, const char* end) noexcept {
    return {p, static_cast<std::size_t>(end - p)};
}

// The end of the CDATA section that begins at `p`, or null if none begins or it isn't closed.
const char* endOfSection(const char* p, const char* end) noexcept {
    constexpr std::string_view opening = "<![CDATA[";
    constexpr std::string_view closing = "]]>";
    const std::string_view rest = between(p, end);
    if (!rest.starts_with(opening)) {
        return nullptr;
    }
    const std::size_t found = rest.find(closing, opening.size());
    return found == std::string_view::npos ? nullptr : p + found + closing.size();
}

bool startsPredefinedReference(const char* p, const char* end) noexcept {
    const std::string_view rest = between(p, end);
    return rest.starts_with("&gt;") || rest.starts_with("&lt;") || rest.starts_with("&amp;") ||
           rest.starts_with("&apos;") || rest.starts_with("&quot;");
}

std::string_view attributeReference(const char* p, const char* end) noexcept {
    switch (*p) {
        case '"':
            return "&quot;";
        case '\'':
            return "&apos;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        default:
            return startsPredefinedReference(p, end) ? "&" : "&amp;";
    }
}

}  // namespace

const char* findTextSpecialByTable(const char* p, const char* end) noexcept {
    return findByTable(textSpecials, p, end);
}

const char* findAttributeSpecialByTable(const char* p, const char* end) noexcept {
    return findByTable(attributeSpecials, p, end);
}

const char* findTextSpecial(const char* p, const char* end) noexcept {
#if defined(__SSE2__)
    return find<TextSpecials>(textSpecials, p, end);
#else
    return findTextSpecialByTable(p, end);
#endif
}

const char* findAttributeSpecial(const char* p, const char* end) noexcept {
#if defined(__SSE2__)
    return find<AttributeSpecials>(attributeSpecials, p, end);
#else
    return findAttributeSpecialByTable(p, end);
#endif
}

char* escapeText(const char* p, const char* end, char* out) noexcept {
    // Once no section closes behind a place, none does behind a later one: without this, a text
    // of many openings would be searched to its end for each.
    bool sectionsMayClose = true;
    for (;;) {
        const char* special = findTextSpecial(p, end);
        out = append(out, between(p, special));
        if (special == end) {
            return out;
        }
        p = special + 1;
        if (*special == '\r') {
            out = append(out, "&#xD;");
        } else if (*special == '&') {
            out = append(out, "&amp;");
        } else if (*special == '>') {
            out = append(out, "&gt;");
        } else if (p == end || *p != '!') {
            out = append(out, "&lt;");
        } else if (const char* sectionEnd =
                       sectionsMayClose ? endOfSection(special, end) : nullptr) {
            out = append(out, between(special, sectionEnd));
            p = sectionEnd;
        } else {
            sectionsMayClose = sectionsMayClose && !between(special, end).starts_with("<![CDATA[");
            out = append(out, "&lt;!");
            ++p;
        }
    }
}

char* escapeAttribute(const char* p, const char* end, char* out) noexcept {
    for (;;) {
        const char* special = findAttributeSpecial(p, end);
        out = append(out, between(p, special));
        if (special == end) {
            return out;
        }
        out = append(out, attributeReference(special, end));
        p = special + 1;
    }
}

}  // namespace nolk::xml
