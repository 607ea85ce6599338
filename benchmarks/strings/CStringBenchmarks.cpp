// CString beside std::string and std::string_view: construct, copy, compare, find and append, of
// texts of 12, 200 and 10,000 bytes. Each row is the same code with another string class.
#include <nolk/core/CString.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace {

using nolk::CString;

// Varied, so that a search for its end meets many a false beginning.
std::string textOf(std::int64_t length) {
    std::string text;
    while (text.size() < static_cast<std::size_t>(length)) {
        text += "the quick brown fox; ";
    }
    text.resize(static_cast<std::size_t>(length));
    return text;
}

const char* dataOf(const CString& text) {
    return text.data();
}
const char* dataOf(const std::string& text) {
    return text.data();
}

int orderOf(const CString& a, const CString& b) {
    return a.compareTo(b);
}
int orderOf(const std::string& a, const std::string& b) {
    return a.compare(b);
}

std::size_t placeOf(const CString& text, std::string_view pattern) {
    return text.index(pattern.data(), static_cast<unsigned>(pattern.size()), 0);
}
std::size_t placeOf(const std::string& text, std::string_view pattern) {
    return text.find(pattern);
}
std::size_t placeOf(std::string_view text, std::string_view pattern) {
    return text.find(pattern);
}

// Keeps the compiler from knowing what it leads to.
template <typename Type>
const Type* hidden(const Type* pointer) {
    asm volatile("" : "+r"(pointer) : : "memory");
    return pointer;
}

template <typename Type>
const Type& hidden(const Type& object) {
    return *hidden(&object);
}

template <typename Text>
void construct(benchmark::State& state) {
    const std::string source = textOf(state.range(0));
    const char* data = source.c_str();
    for (auto _ : state) {
        const Text text(hidden(data));
        benchmark::DoNotOptimize(dataOf(text));
    }
}

template <typename Text>
void copy(benchmark::State& state) {
    const Text source(textOf(state.range(0)));
    for (auto _ : state) {
        const Text text(hidden(source));
        benchmark::DoNotOptimize(dataOf(text));
    }
}

template <typename Text>
void equal(benchmark::State& state) {
    const Text a(textOf(state.range(0)));
    const Text b(textOf(state.range(0)).c_str());
    for (auto _ : state) {
        const bool same = hidden(a) == hidden(b);
        benchmark::DoNotOptimize(same);
    }
}

// Equal but for the last byte.
template <typename Text>
void compare(benchmark::State& state) {
    std::string other = textOf(state.range(0));
    const Text a(other);
    ++other.back();
    const Text b(other);
    for (auto _ : state) {
        const int order = orderOf(hidden(a), hidden(b));
        benchmark::DoNotOptimize(order);
    }
}

// The last five bytes; the first of them stands in the text before.
template <typename Text>
void find(benchmark::State& state) {
    std::string source = textOf(state.range(0));
    source.replace(source.size() - 5, 5, "hello");
    const Text text(source);
    const char* const hello = "hello";
    for (auto _ : state) {
        const std::size_t place = placeOf(hidden(text), std::string_view(hidden(hello), 5));
        benchmark::DoNotOptimize(place);
    }
}

// What isn't there, with a first byte that isn't either.
template <typename Text>
void findNothing(benchmark::State& state) {
    const std::string source = textOf(state.range(0));
    const Text text(source);
    const char* const zebra = "zebra";
    for (auto _ : state) {
        const std::size_t place = placeOf(hidden(text), std::string_view(hidden(zebra), 5));
        benchmark::DoNotOptimize(place);
    }
}

// A text to an empty string, which is made and goes too.
template <typename Text>
void append(benchmark::State& state) {
    const std::string source = textOf(state.range(0));
    const char* data = source.data();
    for (auto _ : state) {
        Text text;
        text.append(hidden(data), static_cast<unsigned>(source.size()));
        benchmark::DoNotOptimize(dataOf(text));
    }
}

// A text twenty times over, to one string that grows.
template <typename Text>
void appendOften(benchmark::State& state) {
    const std::string source = textOf(state.range(0));
    const char* data = source.data();
    for (auto _ : state) {
        Text text;
        for (int i = 0; i < 20; ++i) {
            text.append(hidden(data), static_cast<unsigned>(source.size()));
        }
        benchmark::DoNotOptimize(dataOf(text));
    }
}

BENCHMARK_TEMPLATE(construct, CString)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(construct, std::string)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(copy, CString)->Arg(12)->Arg(200)->Arg(10000);
BENCHMARK_TEMPLATE(copy, std::string)->Arg(12)->Arg(200)->Arg(10000);
BENCHMARK_TEMPLATE(equal, CString)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(equal, std::string)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(compare, CString)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(compare, std::string)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(find, CString)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(find, std::string)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(find, std::string_view)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(findNothing, CString)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(findNothing, std::string)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(findNothing, std::string_view)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(append, CString)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(append, std::string)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(appendOften, CString)->Arg(12)->Arg(200);
BENCHMARK_TEMPLATE(appendOften, std::string)->Arg(12)->Arg(200);

}  // namespace

BENCHMARK_MAIN();
