// UString beside std::u16string: compare and find in texts of 12 and 200 units, copies, appends and
// short texts. Each row is the same code with another string class; what is compared differs in its
// last unit, and what is looked for stands at the end or nowhere.
#include <nolk/core/UString.h>

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using nolk::UChar;
using nolk::UString;
using Standard = std::basic_string<UChar>;

// Varied, so that a search for its end meets many a false beginning.
Standard textOf(std::int64_t length) {
    const char* const words = "the quick brown fox; ";
    Standard text;
    for (std::int64_t i = 0; i < length; ++i) {
        text += static_cast<UChar>(words[i % 21]);
    }
    return text;
}

int orderOf(const UString& a, const UString& b) {
    return a.compareTo(b);
}
int orderOf(const Standard& a, const Standard& b) {
    return a.compare(b);
}

std::size_t placeOf(const UString& text, const Standard& pattern) {
    return text.index(pattern.data(), static_cast<unsigned>(pattern.size()));
}
std::size_t placeOf(const Standard& text, const Standard& pattern) {
    return text.find(pattern);
}
std::size_t placeOf(const UString& text, UChar unit) {
    return text.index(unit);
}
std::size_t placeOf(const Standard& text, UChar unit) {
    return text.find(unit);
}

void append(UString& text, const Standard& piece) {
    text.append(piece.data(), static_cast<unsigned>(piece.size()));
}
void append(Standard& text, const Standard& piece) {
    text.append(piece);
}

// Keeps the compiler from knowing what a pointer leads to.
template <typename Text>
const Text& hidden(const Text& text) {
    const Text* pointer = &text;
    benchmark::DoNotOptimize(pointer);
    return *pointer;
}

template <typename Text>
void construct(benchmark::State& state) {
    const Standard source = textOf(state.range(0));
    const UChar* data = source.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(data);
        const Text text(data);
        benchmark::DoNotOptimize(text.data());
    }
}

template <typename Text>
void copy(benchmark::State& state) {
    const Text text(textOf(state.range(0)).c_str());
    for (auto _ : state) {
        const Text another(hidden(text));
        benchmark::DoNotOptimize(another.data());
    }
}

template <typename Text>
void compare(benchmark::State& state) {
    Standard other = textOf(state.range(0));
    const Text a(other.c_str());
    other.back() = UChar('!');
    const Text b(other.c_str());
    for (auto _ : state) {
        benchmark::DoNotOptimize(orderOf(hidden(a), hidden(b)));
    }
}

template <typename Text>
void equal(benchmark::State& state) {
    const Standard source = textOf(state.range(0));
    const Text a(source.c_str());
    const Text b(source.c_str());
    for (auto _ : state) {
        benchmark::DoNotOptimize(hidden(a) == hidden(b));
    }
}

template <typename Text>
void findUnit(benchmark::State& state) {
    const Text text(textOf(state.range(0)).c_str());
    UChar unit('!');
    for (auto _ : state) {
        benchmark::DoNotOptimize(unit);
        benchmark::DoNotOptimize(placeOf(hidden(text), unit));
    }
}

template <typename Text>
void findText(benchmark::State& state) {
    Standard source = textOf(state.range(0));
    source.replace(source.size() - 3, 3, Standard(3, UChar('!')));
    const Text text(source.c_str());
    const Standard pattern = source.substr(source.size() - 5);
    for (auto _ : state) {
        benchmark::DoNotOptimize(placeOf(hidden(text), hidden(pattern)));
    }
}

template <typename Text>
void appendOnce(benchmark::State& state) {
    const Text text(textOf(state.range(0)).c_str());
    const Standard piece = textOf(state.range(0));
    for (auto _ : state) {
        Text another(hidden(text));
        append(another, piece);
        benchmark::DoNotOptimize(another.data());
    }
}

// A wrong place, fast, is worth nothing.
void check() {
    const Standard source = textOf(200);
    const UString text(source.c_str());
    for (std::size_t i = 0; i < 190; ++i) {
        const Standard pattern = source.substr(i, 7);
        if (placeOf(text, pattern) != placeOf(source, pattern) ||
            placeOf(text, source[i]) != placeOf(source, source[i])) {
            std::fprintf(stderr, "UString and the standard string find different places\n");
            std::exit(1);
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    check();
    for (const std::int64_t length : {12, 200}) {
        const auto row = [length](const char* name, auto* ours, auto* theirs) {
            benchmark::RegisterBenchmark((std::string(name) + "/nolk").c_str(), ours)->Arg(length);
            benchmark::RegisterBenchmark((std::string(name) + "/u16string").c_str(), theirs)
                ->Arg(length);
        };
        row("construct", construct<UString>, construct<Standard>);
        row("copy", copy<UString>, copy<Standard>);
        row("compare", compare<UString>, compare<Standard>);
        row("equal", equal<UString>, equal<Standard>);
        row("find_unit", findUnit<UString>, findUnit<Standard>);
        row("find_text", findText<UString>, findText<Standard>);
        row("append", appendOnce<UString>, appendOnce<Standard>);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
