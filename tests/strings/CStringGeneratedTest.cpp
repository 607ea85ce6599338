// Many generated operations beside the same ones on std::string, done the plain way.

#include <nolk/core/CString.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <optional>
#include <random>
#include <string>

#include "CStringSupport.h"

namespace nolk {

using namespace test;
namespace {

using Mode = CString::caseCompare;
const Mode modes[] = {CString::exact, CString::ignoreCase, CString::ignoreCaseStrict};

class Random {
public:
    explicit Random(unsigned seed) : engine_(seed) {}

    unsigned upTo(unsigned most) {
        return static_cast<unsigned>(engine_() % (std::uint64_t{most} + 1));
    }

    std::string text(unsigned length, const std::string& alphabet) {
        std::string text(length, '\0');
        for (char& c : text) {
            c = alphabet[upTo(static_cast<unsigned>(alphabet.size()) - 1)];
        }
        return text;
    }

    // Lengths around all that matters: none, short, the small buffer's end, long.
    unsigned length() {
        const unsigned choices[] = {0, upTo(3), upTo(20), 60 + upTo(10), upTo(200)};
        return choices[upTo(4)];
    }

private:
    std::mt19937_64 engine_;
};

// Few different bytes, so that there is much to be found; letters of both cases, what stands
// between them, a zero byte and bytes with their top bit set.
const std::string alphabet("aAbB_\0\xE9\xC9", 8);

// --- References, one byte at a time ---

int lowered(int c) {
    return std::tolower(c) == 0 ? c : std::tolower(c);
}

// The signed difference of two bytes under a mode.
int difference(char a, char b, Mode mode) {
    int x = static_cast<unsigned char>(a);
    int y = static_cast<unsigned char>(b);
    const bool letters = std::isalpha(x) != 0 && std::isalpha(y) != 0;
    if (mode == CString::ignoreCase || (mode == CString::ignoreCaseStrict && letters)) {
        x = lowered(x);
        y = lowered(y);
    }
    return (x < 128 ? x : x - 256) - (y < 128 ? y : y - 256);
}

int plainCompare(const std::string& a, const std::string& b, Mode mode) {
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        const int d = difference(a[i], b[i], mode);
        if (d != 0) {
            return d < 0 ? -1 : 1;
        }
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

unsigned plainIndex(const std::string& text, const std::string& pattern, unsigned start,
                    Mode mode) {
    for (std::size_t at = start; at + pattern.size() <= text.size(); ++at) {
        if (plainCompare(text.substr(at, pattern.size()), pattern, mode) == 0) {
            return static_cast<unsigned>(at);
        }
    }
    return CString::npos;
}

TEST(CStringGenerated, SearchesAsAPlainSearchDoes) {
    Random random(1);
    for (int round = 0; round < 30000; ++round) {
        const std::string text = random.text(random.length(), alphabet);
        const bool taken = random.upTo(1) != 0;
        const std::string pattern =
            taken ? text.substr(random.upTo(static_cast<unsigned>(text.size())), random.upTo(40))
                  : random.text(random.upTo(6), alphabet);
        const unsigned start = random.upTo(random.upTo(1) != 0 ? 3 : 210);
        const CString string(text);
        for (const Mode mode : modes) {
            const unsigned expected = plainIndex(text, pattern, start, mode);
            ASSERT_EQ(string.index(CString(pattern), start, mode), expected)
                << round << ' ' << mode << ' ' << text.size() << ' ' << pattern.size();
            const auto length = static_cast<unsigned>(pattern.size());
            ASSERT_EQ(string.index(pattern.data(), length, start, mode), expected) << round;
            if (pattern.find('\0') == std::string::npos) {
                ASSERT_EQ(string.index(pattern.c_str(), start, mode), expected) << round;
            }
            if (length == 1) {
                ASSERT_EQ(string.index(pattern[0], start, mode), expected) << round;
            }
        }
    }
}

TEST(CStringGenerated, ExactSearchFindsWhatStandardStringsFind) {
    Random random(2);
    for (int round = 0; round < 30000; ++round) {
        const std::string text = random.text(random.upTo(300), "ab");
        const std::string pattern = random.text(1 + random.upTo(12), "ab");
        const unsigned start = random.upTo(static_cast<unsigned>(text.size()));
        ASSERT_EQ(CString(text).index(CString(pattern), start),
                  static_cast<unsigned>(text.find(pattern, start)))
            << round;
    }
}

TEST(CStringGenerated, FindsBytesAsStandardStringsDo) {
    Random random(3);
    for (int round = 0; round < 10000; ++round) {
        const std::string text = random.text(random.length(), alphabet);
        const std::string set = random.text(random.upTo(3), alphabet);
        const CString string(text);
        const char c = alphabet[random.upTo(7)];
        ASSERT_EQ(string.first(c), static_cast<unsigned>(text.find(c))) << round;
        ASSERT_EQ(string.last(c), static_cast<unsigned>(text.rfind(c))) << round;
        ASSERT_EQ(string.first(set.data(), static_cast<unsigned>(set.size())),
                  static_cast<unsigned>(text.find_first_of(set)))
            << round;
    }
}

TEST(CStringGenerated, ComparesAsAPlainComparisonDoes) {
    Random random(4);
    for (int round = 0; round < 30000; ++round) {
        const std::string a = random.text(random.length(), alphabet);
        std::string b = random.upTo(2) == 0 ? random.text(random.length(), alphabet) : a;
        if (!b.empty() && random.upTo(1) != 0) {
            b[random.upTo(static_cast<unsigned>(b.size()) - 1)] = alphabet[random.upTo(7)];
        }
        const CString left(a);
        const CString right(b);
        for (const Mode mode : modes) {
            ASSERT_EQ(left.compareTo(right, mode), plainCompare(a, b, mode)) << round;
        }
        ASSERT_EQ(left == right, a == b) << round;
        ASSERT_EQ(left < right, plainCompare(a, b, CString::exact) < 0) << round;
    }
}

// A string and what is expected of it: its text and its capacity. The capacity follows the rules of
// replace: which buffer is kept, how a new one is measured.
class Tracked {
public:
    Tracked() = default;
    Tracked(const Tracked&) = default;

    void replace(unsigned pos, unsigned n, const std::string& source) {
        string_.replace(pos, n, source.data(), static_cast<unsigned>(source.size()));
        expectReplaced(pos, n, source, false);
    }

    void replaceWithOwn(unsigned pos, unsigned n, unsigned from, unsigned length) {
        const std::string source = text_.substr(from, length);
        string_.replace(pos, n, string_.data() + from, static_cast<unsigned>(source.size()));
        expectReplaced(pos, n, source, from < text_.size() || !source.empty());
    }

    // Holds a copy that shares the buffer if it is on the heap.
    void share() {
        copy_ = string_;
        copyText_ = text_;
    }
    void unshare() { copy_.reset(); }

    const CString& string() const { return string_; }
    const std::string& text() const { return text_; }
    unsigned capacity() const { return capacity_; }
    bool copyIsUntouched() const { return !copy_ || copy_->view() == copyText_; }

private:
    bool isShared() const { return copy_ && shareBufferBefore_; }

    void expectReplaced(unsigned pos, unsigned n, const std::string& source, bool own) {
        const std::size_t old = text_.size();
        const std::size_t at = std::min<std::size_t>(pos, old);
        text_.replace(at, std::min<std::size_t>(n, old - at), source);
        const std::size_t now = text_.size();
        const bool waste =
            now < old && capacity_ - now > CString::getMaxWaste() && capacity_ >= now;
        if (isShared() || capacity_ < now || waste || own) {
            const std::size_t request = std::max(now, old);
            std::size_t room = capacity_;
            if (room >= request) {
                room = request;
            }
            while (room < request) {
                room *= 2;
            }
            capacity_ = static_cast<unsigned>(std::max<std::size_t>(room, 64));
        }
        shareBufferBefore_ = copy_ && shareBuffer(*copy_, string_);
    }

public:
    void noteSharing() { shareBufferBefore_ = copy_ && shareBuffer(*copy_, string_); }

private:
    CString string_;
    std::string text_;
    unsigned capacity_ = 64;
    std::optional<CString> copy_;
    std::string copyText_;
    bool shareBufferBefore_ = false;
};

void changeOnce(Tracked& tracked, Random& random) {
    if (random.upTo(4) == 0) {
        random.upTo(1) != 0 ? tracked.share() : tracked.unshare();
    }
    tracked.noteSharing();
    const auto length = static_cast<unsigned>(tracked.text().size());
    const unsigned pos = random.upTo(9) == 0 ? random.upTo(CString::npos) : random.upTo(length);
    const unsigned n = random.upTo(2) == 0 ? random.upTo(length + 10) : random.upTo(3);
    if (random.upTo(3) == 0) {
        const unsigned from = random.upTo(length);
        tracked.replaceWithOwn(pos, n, from, random.upTo(length - from));
    } else {
        const unsigned sn = length > 500 ? 0 : random.length();
        tracked.replace(pos, n, random.text(sn, alphabet));
    }
}

TEST(CStringGenerated, ReplacesAsStandardStringsDoAndInTheBufferToldByTheRules) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        Random random(seed);
        Tracked tracked;
        for (int step = 0; step < 100; ++step) {
            changeOnce(tracked, random);
            ASSERT_EQ(tracked.string().view(), tracked.text()) << seed << ' ' << step;
            ASSERT_EQ(tracked.string().capacity(), tracked.capacity()) << seed << ' ' << step;
            ASSERT_EQ(tracked.string().data()[tracked.text().size()], '\0');
            ASSERT_TRUE(tracked.copyIsUntouched()) << seed << ' ' << step;
        }
    }
}

// Each operation by its own name.
void changeBoth(CString& string, std::string& text, Random& random) {
    const auto length = static_cast<unsigned>(text.size());
    const unsigned pos = random.upTo(length);
    const unsigned n = random.upTo(length + 3);
    const std::string source = random.text(length > 400 ? 0 : random.length(), alphabet);
    const auto count = static_cast<unsigned>(source.size());
    switch (random.upTo(9)) {
        case 0:
            string.append(source.data(), count);
            text.append(source);
            break;
        case 1:
            string.append(CString(source), n);
            text.append(source, 0, n);
            break;
        case 2:
            string.append('x', count);
            text.append(count, 'x');
            break;
        case 3:
            string.prepend('x', count);
            text.insert(0, count, 'x');
            break;
        case 4:
            string.prepend(CString(source), n);
            text.insert(0, source, 0, n);
            break;
        case 5:
            string.insert(pos, CString(source));
            text.insert(pos, source);
            break;
        case 6:
            string.remove(pos, n);
            text.erase(pos, n);
            break;
        case 7:
            string.remove(pos);
            text.erase(pos);
            break;
        case 8:
            string.replace(pos, n, CString(source));
            text.replace(pos, n, source);
            break;
        default:
            string.resize(n);
            text.resize(n, ' ');
            break;
    }
}

TEST(CStringGenerated, ChangesAsStandardStringsDo) {
    for (unsigned seed = 1000; seed < 1300; ++seed) {
        Random random(seed);
        CString string;
        std::string text;
        for (int step = 0; step < 100; ++step) {
            const CString copy(string);
            const std::string before(text);
            changeBoth(string, text, random);
            ASSERT_EQ(string.view(), text) << seed << ' ' << step;
            ASSERT_EQ(copy.view(), before) << seed << ' ' << step;
        }
    }
}

}  // namespace
}  // namespace nolk
