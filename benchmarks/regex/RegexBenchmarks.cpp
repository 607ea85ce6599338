// The same patterns with the library and its peers: all matches with their groups in a text of a
// megabyte, one full match, and compiling. Rows are named <what>/<pattern>/<engine>.
#include <nolk/core/RegexMatchIterator.h>

#include <benchmark/benchmark.h>
#include <re2/re2.h>
#include <unicode/regex.h>
#include <boost/regex.hpp>

#include <cstdio>
#include <functional>
#include <memory>
#include <random>
#include <regex>
#include <string>
#include <vector>

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

namespace {

struct Row {
    const char* name;
    std::string pattern;
    const char* match;
    bool isFacet = false;
};

// What the lexical checks of values are made of.
const std::string months = "(01|02|03|04|05|06|07|08|09|10|11|12)";
const std::string daysOfMonths =
    "(01|02|03|04|05|06|07|08|09|10|11|12|13|14|15|16|17|18|19|20|21|22|23|24|25|26|27|28|29|30|"
    "31)";
const std::string hours =
    "(01|02|03|04|05|06|07|08|09|10|11|12|13|14|15|16|17|18|19|20|21|22|23|24)";
const std::string seconds = ":(([0-5][0-9])|60)";
const std::string zone = "(Z|([+-][0-9]{2}:[0-9]{2}))?";
const std::string dateHead = "-?[0-9]{4}-" + months + "-";
const std::string day = "(([0-2][0-9])|30|31)";

const Row rows[] = {
    {"date", "[0-9]{4}-[0-9]{2}-[0-9]{2}", "2024-10-31"},
    {"url", "(([A-Z]|[a-z])+)://(([^:/]*))(:([0-9]*))?(/.*)", "http://example.com:80/path"},
    {"alt", "(foo|bar|baz)+", "foobarbazfoobar"},
    {"ident", "[A-Za-z_][A-Za-z0-9_]*", "order_identifier"},
    {"int", "-?[0-9]+", "123456789"},
    {"literal", "needle in a haystack", "needle in a haystack"},
    {"boolean", "true|false|1|0", "false", true},
    {"decimal", "[0-9]*(\\.[0-9]*)?", "1234.5678", true},
    {"duration", "-?P([0-9]+Y)?([0-9]+M)?([0-9]+D)?(T([0-9]+H)?([0-9]+M)?([0-9](.[0-9]*)?)?)?",
     "P1Y2M3DT10H30M5", true},
    {"gMonthYear", "[0-9]{4}-" + months, "2024-10", true},
    {"gYear", "[0-9]{4}", "2024", true},
    {"gMonth", "--" + months + "--", "--11--", true},
    {"gDay", "---" + daysOfMonths, "---31", true},
    {"gMonthDay", "--" + months + "-" + daysOfMonths, "--12-24", true},
    {"hexBinary", "[0-9a-fA-F]*", "0123456789abcdefABCDEF", true},
    {"integer", "-?[0-9]+", "-123456789", true},
    {"nonPositiveInteger", "(-[0-9]+)|[0]+", "-123456789", true},
    {"nonNegativeInteger", "[0-9]+", "123456789", true},
    {"positiveInteger", "[0-9]*[1-9]+[0-9]*", "120034500", true},
    {"negativeInteger", "-[0-9]*[1-9]+[0-9]*", "-120034500", true},
    {"xsdDate", dateHead + day + zone, "2024-10-31+02:00", true},
    {"dateTime", dateHead + day + "T" + hours + seconds + seconds + zone, "2024-10-31T23:59:60Z",
     true},
    {"time", hours + seconds + seconds + zone, "23:59:60Z", true},
};

// Words, and now and then something that one of the patterns matches.
std::string makeText() {
    static const char* const words[] = {"the",   "quick",   "brown", "service", "order_id", "value",
                                        "about", "message", "bar",   "foo",     "request",  "it"};
    std::mt19937 random(1);
    const auto below = [&random](unsigned n) { return random() % n; };
    std::string text;
    while (text.size() < (1u << 20)) {
        switch (below(60)) {
            case 0:
                text += "2024-0" + std::to_string(1 + below(9)) + "-1" + std::to_string(below(10));
                break;
            case 1:
                text += "http://example" + std::to_string(below(10)) + ".com:80/path";
                break;
            case 2:
                text += std::to_string(below(100000));
                break;
            case 3:
                text += "foobarbaz";
                break;
            case 4:
                text += below(50) == 0 ? "needle in a haystack" : "needle";
                break;
            default:
                text += words[below(std::size(words))];
        }
        text += below(12) != 0 ? ' ' : '\n';
    }
    return text;
}

// Words, and values of the types that the checks are for.
std::string makeValues() {
    std::mt19937 random(2);
    std::string text;
    while (text.size() < (1u << 20)) {
        const Row& row = rows[random() % std::size(rows)];
        text += row.isFacet && random() % 4 == 0 ? row.match : "Service order";
        text += random() % 12 != 0 ? ' ' : '\n';
    }
    return text;
}

// What an engine does with one pattern. `count` finds all matches that aren't empty; `match`
// matches a whole text.
class Engine {
public:
    virtual ~Engine() = default;
    virtual std::size_t count(const std::string& text) = 0;
    virtual bool match(const std::string& text) = 0;
};

class Nolk : public Engine {
public:
    explicit Nolk(const char* pattern) : regex_(pattern) {}
    std::size_t count(const std::string& text) override {
        std::size_t matches = 0;
        const nolk::RegexMatchIterator<char> end;
        for (nolk::RegexMatchIterator<char> it(regex_, text); it != end; ++it) {
            matches += it->getLength(0) != 0;
        }
        return matches;
    }
    bool match(const std::string& text) override {
        return regex_.matchAt(text).getLength(0) == text.size();
    }

private:
    nolk::Regex<char> regex_;
};

template <typename Regex, typename Iterator, typename Match, auto flags>
class Standard : public Engine {
public:
    explicit Standard(const char* pattern) : regex_(pattern, flags) {}
    std::size_t count(const std::string& text) override {
        std::size_t matches = 0;
        for (Iterator it(text.begin(), text.end(), regex_); it != Iterator(); ++it) {
            matches += it->length(0) != 0;
        }
        return matches;
    }
    bool match(const std::string& text) override {
        return regex_match(text.begin(), text.end(), match_, regex_);
    }

private:
    Regex regex_;
    Match match_;
};
using Std = Standard<std::regex, std::sregex_iterator, std::smatch, std::regex::ECMAScript>;
// A `.` is to stop at line ends, as it does everywhere else.
using Boost = Standard<boost::regex, boost::sregex_iterator, boost::smatch,
                       boost::regex::perl | boost::regex::no_mod_s>;

class Re2 : public Engine {
public:
    explicit Re2(const char* pattern)
        : regex_(pattern), groups_(std::size_t(regex_.NumberOfCapturingGroups()) + 1) {}
    std::size_t count(const std::string& text) override {
        std::size_t matches = 0;
        for (std::size_t at = 0; at <= text.size() && find(text, at, RE2::UNANCHORED);) {
            const bool isEmpty = groups_[0].empty();
            at = std::size_t(groups_[0].data() - text.data()) + groups_[0].size() + isEmpty;
            matches += !isEmpty;
        }
        return matches;
    }
    bool match(const std::string& text) override { return find(text, 0, RE2::ANCHOR_BOTH); }

private:
    bool find(const std::string& text, std::size_t at, RE2::Anchor anchor) {
        return regex_.Match(text, at, text.size(), anchor, groups_.data(), int(groups_.size()));
    }
    RE2 regex_;
    std::vector<re2::StringPiece> groups_;
};

template <bool jit>
class Pcre2 : public Engine {
public:
    explicit Pcre2(const char* pattern) {
        int code = 0;
        PCRE2_SIZE offset = 0;
        code_ = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern), PCRE2_ZERO_TERMINATED, 0,
                              &code, &offset, nullptr);
        if (jit) {
            pcre2_jit_compile(code_, PCRE2_JIT_COMPLETE);
        }
        data_ = pcre2_match_data_create_from_pattern(code_, nullptr);
    }
    Pcre2(const Pcre2&) = delete;
    Pcre2& operator=(const Pcre2&) = delete;
    ~Pcre2() override {
        pcre2_match_data_free(data_);
        pcre2_code_free(code_);
    }
    std::size_t count(const std::string& text) override {
        std::size_t matches = 0;
        for (std::size_t at = 0; at <= text.size() && find(text, at, 0);) {
            const PCRE2_SIZE* const place = pcre2_get_ovector_pointer(data_);
            const bool isEmpty = place[0] == place[1];
            at = place[1] + isEmpty;
            matches += !isEmpty;
        }
        return matches;
    }
    bool match(const std::string& text) override {
        return find(text, 0, PCRE2_ANCHORED) && pcre2_get_ovector_pointer(data_)[1] == text.size();
    }

private:
    bool find(const std::string& text, std::size_t at, std::uint32_t options) {
        return pcre2_match(code_, reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(), at,
                           options | (jit ? 0 : PCRE2_NO_JIT), data_, nullptr) > 0;
    }
    pcre2_code* code_ = nullptr;
    pcre2_match_data* data_ = nullptr;
};

// Over UTF-16, so it begins with a conversion that isn't counted: texts are kept.
class Icu : public Engine {
public:
    explicit Icu(const char* pattern)
        : matcher_(icu::UnicodeString::fromUTF8(pattern), 0, status_) {}
    std::size_t count(const std::string& text) override {
        prepare(text);
        std::size_t matches = 0;
        while (matcher_.find()) {
            matches += matcher_.end(status_) != matcher_.start(status_);
        }
        return matches;
    }
    bool match(const std::string& text) override {
        prepare(text);
        return matcher_.matches(status_) != 0;
    }

private:
    void prepare(const std::string& text) {
        if (kept_ != &text) {
            text_ = icu::UnicodeString::fromUTF8(text);
            kept_ = &text;
        }
        matcher_.reset(text_);
    }
    UErrorCode status_ = U_ZERO_ERROR;
    icu::RegexMatcher matcher_;
    const std::string* kept_ = nullptr;
    icu::UnicodeString text_;
};

using Maker = std::function<std::unique_ptr<Engine>(const char*)>;

template <typename T>
Maker maker() {
    return [](const char* pattern) { return std::make_unique<T>(pattern); };
}

const std::pair<const char*, Maker> engines[] = {
    {"nolk", maker<Nolk>()},
    {"std", maker<Std>()},
    {"boost", maker<Boost>()},
    {"re2", maker<Re2>()},
    {"pcre2", maker<Pcre2<false>>()},
    {"pcre2_jit", maker<Pcre2<true>>()},
    {"icu", maker<Icu>()},
};

void registerRow(const Row& row, const std::string& text, const char* name, const Maker& make) {
    const std::string end = std::string("/") + row.name + "/" + name;
    benchmark::RegisterBenchmark(("search" + end).c_str(), [&row, &text, &make](auto& state) {
        const auto engine = make(row.pattern.c_str());
        for (auto _ : state) {
            benchmark::DoNotOptimize(engine->count(text));
        }
        state.SetBytesProcessed(std::int64_t(state.iterations()) * std::int64_t(text.size()));
    });
    benchmark::RegisterBenchmark(("match" + end).c_str(), [&row, &make](auto& state) {
        const auto engine = make(row.pattern.c_str());
        const std::string match = row.match;
        for (auto _ : state) {
            benchmark::DoNotOptimize(engine->match(match));
        }
    });
    benchmark::RegisterBenchmark(("compile" + end).c_str(), [&row, &make](auto& state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(make(row.pattern.c_str()));
        }
    });
}

bool agree(const Row& row, const std::string& text) {
    const std::size_t expected = engines[0].second(row.pattern.c_str())->count(text);
    bool good = true;
    for (const auto& [name, make] : engines) {
        const auto engine = make(row.pattern.c_str());
        if (engine->count(text) != expected || !engine->match(row.match)) {
            std::fprintf(stderr, "%s: %s differs\n", row.name, name);
            good = false;
        }
    }
    return good;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string words = makeText();
    const std::string values = makeValues();
    for (const Row& row : rows) {
        const std::string& text = row.isFacet ? values : words;
        if (!agree(row, text)) {
            return 1;
        }
        for (const auto& [name, make] : engines) {
            registerRow(row, text, name, make);
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
