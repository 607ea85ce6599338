// Base64 beside OpenSSL's EVP functions, and the CRC beside zlib's, which has another polynomial
// and order of bits but the same work.
#include <nolk/core/Base64Encoder.h>
#include <nolk/core/Hash.h>

#include <benchmark/benchmark.h>

#include <openssl/evp.h>
#include <zlib.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace {

std::string randomBytes(std::int64_t length) {
    std::mt19937 random(4612);
    std::string bytes(static_cast<std::size_t>(length), '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random());
    }
    return bytes;
}

struct Nolk {
    static std::string encode(const std::string& bytes) {
        return nolk::Base64Encoder::encode(bytes);
    }
    static std::string decode(const std::string& text) { return nolk::Base64Encoder::decode(text); }
    static unsigned long crc(const std::string& bytes) {
        return nolk::nolkCrc32(bytes.data(), static_cast<unsigned>(bytes.size()));
    }
};

const unsigned char* unsignedBytes(const std::string& bytes) {
    return reinterpret_cast<const unsigned char*>(bytes.data());
}

unsigned char* unsignedBytes(std::string& bytes) {
    return reinterpret_cast<unsigned char*>(bytes.data());
}

struct OpenSSL {
    static std::string encode(const std::string& bytes) {
        std::string text((bytes.size() + 2) / 3 * 4 + 1, '\0');
        const int length = EVP_EncodeBlock(unsignedBytes(text), unsignedBytes(bytes),
                                           static_cast<int>(bytes.size()));
        text.resize(static_cast<std::size_t>(length));
        return text;
    }

    // The form that skips line breaks, as ours does.
    static std::string decode(const std::string& text) {
        std::string bytes(text.size() / 4 * 3 + 3, '\0');
        EVP_ENCODE_CTX* const context = EVP_ENCODE_CTX_new();
        int length = 0;
        int rest = 0;
        EVP_DecodeInit(context);
        EVP_DecodeUpdate(context, unsignedBytes(bytes), &length, unsignedBytes(text),
                         static_cast<int>(text.size()));
        EVP_DecodeFinal(context, unsignedBytes(bytes) + length, &rest);
        EVP_ENCODE_CTX_free(context);
        bytes.resize(static_cast<std::size_t>(length + rest));
        return bytes;
    }
};

// The form for a single block without line breaks, which is the faster one.
struct OpenSSLBlock {
    static std::string decode(const std::string& text) {
        std::string bytes(text.size() / 4 * 3, '\0');
        const int length = EVP_DecodeBlock(unsignedBytes(bytes), unsignedBytes(text),
                                           static_cast<int>(text.size()));
        bytes.resize(static_cast<std::size_t>(length));
        return bytes;
    }
};

struct zlib {
    static unsigned long crc(const std::string& bytes) {
        return crc32(0, unsignedBytes(bytes), static_cast<uInt>(bytes.size()));
    }
};

void countBytes(benchmark::State& state, std::size_t length) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(length));
}

// Rates count the bytes, not the characters, in both directions.
template <class Library>
void base64Encode(benchmark::State& state) {
    const std::string bytes = randomBytes(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(Library::encode(bytes));
    }
    countBytes(state, bytes.size());
}

template <class Library>
void decodeText(benchmark::State& state, const std::string& bytes, const std::string& text) {
    if (Library::decode(text) != bytes) {
        state.SkipWithError("decodes wrongly");
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(Library::decode(text));
    }
    countBytes(state, bytes.size());
}

// With lines of 72 characters.
template <class Library>
void base64Decode(benchmark::State& state) {
    const std::string bytes = randomBytes(state.range(0));
    decodeText<Library>(state, bytes, nolk::Base64Encoder::encode(bytes));
}

// In a single line.
template <class Library>
void base64DecodeLine(benchmark::State& state) {
    const std::string bytes = randomBytes(state.range(0));
    decodeText<Library>(state, bytes, OpenSSL::encode(bytes));
}

template <class Library>
void crc(benchmark::State& state) {
    const std::string bytes = randomBytes(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(Library::crc(bytes));
    }
    countBytes(state, bytes.size());
}

// Multiples of three, so that OpenSSL's blocks need no padding.
BENCHMARK_TEMPLATE(base64Encode, Nolk)->Arg(60)->Arg(3000)->Arg(1050000);
BENCHMARK_TEMPLATE(base64Encode, OpenSSL)->Arg(60)->Arg(3000)->Arg(1050000);
BENCHMARK_TEMPLATE(base64Decode, Nolk)->Arg(60)->Arg(3000)->Arg(1050000);
BENCHMARK_TEMPLATE(base64Decode, OpenSSL)->Arg(60)->Arg(3000)->Arg(1050000);
BENCHMARK_TEMPLATE(base64DecodeLine, Nolk)->Arg(60)->Arg(3000)->Arg(1050000);
BENCHMARK_TEMPLATE(base64DecodeLine, OpenSSLBlock)->Arg(60)->Arg(3000)->Arg(1050000);
BENCHMARK_TEMPLATE(crc, Nolk)->Arg(60)->Arg(3000)->Arg(1000000);
BENCHMARK_TEMPLATE(crc, zlib)->Arg(60)->Arg(3000)->Arg(1000000);

}  // namespace

BENCHMARK_MAIN();
