// UTF-8 to UTF-16 into a new string and back, beside Qt's and ICU's strings.
#include <nolk/core/UString.h>

#include <benchmark/benchmark.h>

#include <unicode/unistr.h>
#include <QByteArray>
#include <QString>

#include <string>

namespace {

using nolk::UString;

struct Text {
    const char* name;
    std::string bytes;
};

// Whole paragraphs, at least `length` bytes of them, or exactly so many of one in ASCII.
std::string repeated(const std::string& paragraph, std::size_t length) {
    std::string text;
    while (text.size() < length) {
        text += paragraph;
    }
    return text;
}

const std::string ascii =
    "The order was taken on the third of March and left the harbour two days later. Nobody on the "
    "quay could say where it had been bound for, nor who had signed the papers. ";

const std::string latin =
    "Am dritten M\xC3\xA4rz nahm man die Bestellung auf, zwei Tage sp\xC3\xA4ter verlie\xC3\x9F "
    "sie "
    "den Hafen. Personne sur le quai ne savait o\xC3\xB9 elle \xC3\xA9tait destin\xC3\xA9"
    "e, ni qui "
    "avait sign\xC3\xA9 les papiers. Ma\xC3\xB1"
    "ana volver\xC3\xA1 el se\xC3\xB1or del puerto. ";

const std::string cjk =
    "\xE4\xB8\x89\xE6\x9C\x88\xE4\xB8\x89\xE6\x97\xA5\xE3\x81\xAB\xE6\xB3\xA8\xE6\x96\x87\xE3\x82"
    "\x92\xE5\x8F\x97\xE3\x81\x91\xE3\x80\x81\xE4\xBA\x8C\xE6\x97\xA5\xE5\xBE\x8C\xE3\x81\xAB\xE6"
    "\xB8\xAF\xE3\x82\x92\xE5\x87\xBA\xE3\x81\x9F\xE3\x80\x82\xE8\xAA\xB0\xE3\x82\x82\xE8\xA1\x8C"
    "\xE3\x81\x8D\xE5\x85\x88\xE3\x82\x92\xE7\x9F\xA5\xE3\x82\x89\xE3\x81\xAA\xE3\x81\x84\xE3\x80"
    "\x82\n";

const std::string emoji =
    "\xF0\x9F\x98\x80 yes \xF0\x9F\x9A\xA2\xF0\x9F\x93\xA6 sent \xF0\x9F\x91\x8D\xF0\x9F\x8F\xBD ";

const std::size_t pageLength = 16000;

const Text texts[] = {
    {"ascii", repeated(ascii, pageLength)},   {"latin", repeated(latin, pageLength)},
    {"cjk", repeated(cjk, pageLength)},       {"emoji", repeated(emoji, pageLength)},
    {"ascii_24_bytes", ascii.substr(0, 24)},  {"latin_25_bytes", latin.substr(0, 25)},
    {"cjk_24_bytes", cjk.substr(0, 24)},      {"ascii_1_MB", repeated(ascii, 1000000)},
    {"latin_1_MB", repeated(latin, 1000000)}, {"cjk_1_MB", repeated(cjk, 1000000)},
};

struct NolkStrings {
    using String = UString;
    static String decode(const std::string& text) {
        return UString(text.data(), static_cast<unsigned>(text.size()));
    }
    static std::string encode(const String& text) { return text.toUtf8(); }
};

struct QtStrings {
    using String = QString;
    static String decode(const std::string& text) {
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    }
    static QByteArray encode(const String& text) { return text.toUtf8(); }
};

struct IcuStrings {
    using String = icu::UnicodeString;
    static String decode(const std::string& text) { return icu::UnicodeString::fromUTF8(text); }
    static std::string encode(const String& text) {
        std::string bytes;
        return text.toUTF8String(bytes);
    }
};

void countBytes(benchmark::State& state, const std::string& text) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

template <class Library>
void decode(benchmark::State& state, const std::string& text) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.data());
        benchmark::DoNotOptimize(Library::decode(text));
    }
    countBytes(state, text);
}

template <class Library>
void encode(benchmark::State& state, const std::string& text) {
    const typename Library::String string = Library::decode(text);
    if (std::string(Library::encode(string).data()) != text) {
        state.SkipWithError("encodes wrongly");
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(&string);
        benchmark::DoNotOptimize(Library::encode(string));
    }
    countBytes(state, text);
}

template <class Library>
void addLibrary(const std::string& name) {
    for (const Text& text : texts) {
        benchmark::RegisterBenchmark(("decode<" + name + ">/" + text.name).c_str(), decode<Library>,
                                     text.bytes);
        benchmark::RegisterBenchmark(("encode<" + name + ">/" + text.name).c_str(), encode<Library>,
                                     text.bytes);
    }
}

}  // namespace

int main(int argc, char** argv) {
    addLibrary<NolkStrings>("UString");
    addLibrary<QtStrings>("QString");
    addLibrary<IcuStrings>("UnicodeString");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
