#include "nolk/core/xml/ShortText.h"
#include "nolk/core/xml/XmlEscape.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <string_view>

namespace nolk::xml {
namespace {

// A text in a heap block of exactly its size, so that a sanitizer sees a byte read too much.
class Exact {
public:
    explicit Exact(std::string_view text) : bytes_(new char[text.size()]), size_(text.size()) {
        text.copy(bytes_.get(), size_);
    }
    const char* begin() const { return bytes_.get(); }
    const char* end() const { return bytes_.get() + size_; }

private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_;
};

using Find = const char* (*)(const char*, const char*);

void expectFirstOf(Find find, std::string_view specials) {
    for (std::size_t length = 0; length <= 70; ++length) {
        const Exact none(std::string(length, 'x'));
        ASSERT_EQ(find(none.begin(), none.end()), none.end()) << length;
        for (std::size_t at = 0; at < length; ++at) {
            for (int byte = 0; byte < 256; ++byte) {
                std::string text(length, 'x');
                text[at] = static_cast<char>(byte);
                const Exact exact(text);
                const bool special = specials.find(text[at]) != std::string_view::npos;
                ASSERT_EQ(find(exact.begin(), exact.end()) - exact.begin(),
                          static_cast<std::ptrdiff_t>(special ? at : length))
                    << length << " " << at << " " << byte;
            }
        }
    }
}

TEST(XmlEscape, FindsEachByteThatTextEscapesAndNoOther) {
    expectFirstOf(findTextSpecial, "\r&<>");
}

TEST(XmlEscape, FindsEachByteThatTextEscapesByTable) {
    expectFirstOf(findTextSpecialByTable, "\r&<>");
}

TEST(XmlEscape, FindsEachByteThatAttributesEscapeAndNoOther) {
    expectFirstOf(findAttributeSpecial, "\"'&<>");
}

TEST(XmlEscape, FindsEachByteThatAttributesEscapeByTable) {
    expectFirstOf(findAttributeSpecialByTable, "\"'&<>");
}

TEST(XmlEscape, BothSearchesAgreeOnRandomTexts) {
    std::mt19937 random(11);
    for (int i = 0; i < 20000; ++i) {
        std::string text(random() % 100, 'a');
        for (char& byte : text) {
            byte = static_cast<char>(random() % 4 == 0 ? random() : 'a' + random() % 26);
        }
        const Exact exact(text);
        ASSERT_EQ(findTextSpecial(exact.begin(), exact.end()),
                  findTextSpecialByTable(exact.begin(), exact.end()));
        ASSERT_EQ(findAttributeSpecial(exact.begin(), exact.end()),
                  findAttributeSpecialByTable(exact.begin(), exact.end()));
    }
}

TEST(XmlEscape, TheFirstOfSeveralIsFound) {
    for (std::size_t length = 2; length <= 50; ++length) {
        for (std::size_t at = 0; at < length; ++at) {
            const std::string text = std::string(at, 'x') + std::string(length - at, '<');
            const Exact exact(text);
            ASSERT_EQ(findTextSpecial(exact.begin(), exact.end()), exact.begin() + at);
            ASSERT_EQ(findAttributeSpecial(exact.begin(), exact.end()), exact.begin() + at);
        }
    }
}

TEST(XmlEscape, NoByteExpandsBeyondTheTold) {
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        char out[16];
        EXPECT_LE(escapeText(&c, &c + 1, out) - out, static_cast<std::ptrdiff_t>(textExpansion));
        EXPECT_LE(escapeAttribute(&c, &c + 1, out) - out,
                  static_cast<std::ptrdiff_t>(attributeExpansion));
    }
}

TEST(ShortText, CopiesEveryLengthAndNothingMore) {
    for (std::size_t length = 0; length <= 80; ++length) {
        std::string text;
        for (std::size_t i = 0; i < length; ++i) {
            text += static_cast<char>('A' + i % 50);
        }
        const Exact from(text);
        std::string to(length + 8, '#');
        copyShort(to.data() + 4, from.begin(), length);
        ASSERT_EQ(to, "####" + text + "####") << length;
        ASSERT_EQ(append(to.data(), text) - to.data(), static_cast<std::ptrdiff_t>(length));
    }
}

TEST(ShortText, ComparesEveryByte) {
    for (std::size_t length = 0; length <= 80; ++length) {
        const std::string text(length, 'a');
        const Exact one(text);
        const Exact same(text);
        const std::string_view view(one.begin(), length);
        ASSERT_TRUE(equalTexts(view, {same.begin(), length})) << length;
        ASSERT_FALSE(equalTexts(view, text + "a")) << length;
        for (std::size_t at = 0; at < length; ++at) {
            std::string other = text;
            other[at] = 'b';
            const Exact different(other);
            ASSERT_FALSE(equalTexts(view, {different.begin(), length})) << length << " " << at;
        }
    }
}

}  // namespace
}  // namespace nolk::xml
