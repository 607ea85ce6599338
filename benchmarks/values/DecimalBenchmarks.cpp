// Exact decimals beside Boost's cpp_dec_float, in a precision that holds every result. Debian has
// no package of mpdecimal: its times, which were taken on a machine like ours, stand in the labels.
#include <nolk/core/Decimal.h>

#include <benchmark/benchmark.h>

#include <boost/multiprecision/cpp_dec_float.hpp>

#include <cstddef>
#include <cstdint>
#include <ios>
#include <string>

namespace {

using nolk::Decimal;

template <unsigned digits>
using Boost = boost::multiprecision::number<boost::multiprecision::cpp_dec_float<2 * digits>,
                                            boost::multiprecision::et_off>;

// As many digits, half of them behind the point, and none of them zero.
std::string digitsOf(std::size_t count, std::uint32_t seed) {
    std::string text;
    for (std::size_t place = 0; place < count; ++place) {
        seed = seed * 1664525 + 1013904223;
        text += static_cast<char>('1' + (seed >> 16) % 9);
    }
    return text.insert(count / 2, 1, '.');
}

struct Add {
    template <typename Number>
    static Number of(const Number& a, const Number& b) {
        return a + b;
    }
};

struct Multiply {
    template <typename Number>
    static Number of(const Number& a, const Number& b) {
        return a * b;
    }
};

template <typename Number, typename Operation, std::size_t digits>
void compute(benchmark::State& state, const char* label) {
    const Number a(digitsOf(digits, 1));
    const Number b(digitsOf(digits, 2));
    for (auto _ : state) {
        const Number result = Operation::of(a, b);
        benchmark::DoNotOptimize(&result);
        benchmark::ClobberMemory();
    }
    state.SetLabel(label);
}

template <typename Number>
void parse(benchmark::State& state, const char* label) {
    const std::string text = digitsOf(300, 3);
    for (auto _ : state) {
        const Number result(text);
        benchmark::DoNotOptimize(&result);
        benchmark::ClobberMemory();
    }
    state.SetLabel(label);
}

std::string textOf(const Decimal& value) {
    return value.asString();
}

std::string textOf(const Boost<300>& value) {
    return value.str(0, std::ios_base::fixed);
}

template <typename Number>
void print(benchmark::State& state, const char* label) {
    const Number value(digitsOf(300, 3));
    for (auto _ : state) {
        benchmark::DoNotOptimize(textOf(value));
    }
    state.SetLabel(label);
}

struct Row {
    const char* name;
    void (*run)(benchmark::State&, const char*);
    const char* label;
};

constexpr Row rows[] = {
    {"decimal/add/10/nolk", compute<Decimal, Add, 10>, "mpdecimal 19 ns"},
    {"decimal/add/10/cpp_dec_float", compute<Boost<10>, Add, 10>, ""},
    {"decimal/add/30/nolk", compute<Decimal, Add, 30>, "mpdecimal 20 ns"},
    {"decimal/add/30/cpp_dec_float", compute<Boost<30>, Add, 30>, ""},
    {"decimal/multiply/10/nolk", compute<Decimal, Multiply, 10>, "mpdecimal 19 ns"},
    {"decimal/multiply/10/cpp_dec_float", compute<Boost<10>, Multiply, 10>, ""},
    {"decimal/multiply/30/nolk", compute<Decimal, Multiply, 30>, "mpdecimal 41 ns"},
    {"decimal/multiply/30/cpp_dec_float", compute<Boost<30>, Multiply, 30>, ""},
    {"decimal/multiply/300/nolk", compute<Decimal, Multiply, 300>, "mpdecimal 973 ns"},
    {"decimal/multiply/300/cpp_dec_float", compute<Boost<300>, Multiply, 300>, ""},
    {"decimal/multiply/3000/nolk", compute<Decimal, Multiply, 3000>, "mpdecimal 104 us"},
    {"decimal/multiply/3000/cpp_dec_float", compute<Boost<3000>, Multiply, 3000>, ""},
    {"decimal/multiply/30000/nolk", compute<Decimal, Multiply, 30000>, ""},
    {"decimal/multiply/300000/nolk", compute<Decimal, Multiply, 300000>, ""},
    {"decimal/parse/300/nolk", parse<Decimal>, "mpdecimal 839 ns"},
    {"decimal/parse/300/cpp_dec_float", parse<Boost<300>>, ""},
    {"decimal/print/300/nolk", print<Decimal>, "mpdecimal 389 ns"},
    {"decimal/print/300/cpp_dec_float", print<Boost<300>>, ""},
};

const bool registered = [] {
    for (const Row& row : rows) {
        benchmark::RegisterBenchmark(row.name, row.run, row.label);
    }
    return true;
}();

}  // namespace
