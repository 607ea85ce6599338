// Reads and writes the same documents with the library and its peers. Run it through
// scripts/bench.sh, which prints the ratios; `--check` only compares what the parsers find.
#include "Documents.h"
#include "Orders.h"
#include "Readers.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

struct Reader {
    const char* name;
    Tally (*read)(const std::string&);
    /** Namespace declarations are attributes to some and no attributes to others. */
    bool countsDeclarations;
    /** Texts of nothing but white space between tags are dropped by the builders of trees. */
    bool dropsWhiteSpace;
};

const Reader readers[] = {
    {"nolk_pull", readWithNolkPull, true, false},
    {"nolk_sax", readWithNolkSax, true, false},
    {"expat", readWithExpat, true, false},
    {"expat_ns", readWithExpatNamespaces, false, false},
    {"libxml2_sax", readWithLibXml2Sax, false, false},
    {"libxml2_reader", readWithLibXml2Reader, true, false},
    {"pugixml", readWithPugixml, true, true},
    {"rapidxml", readWithRapidXml, true, true},
    {"rapidxml_fast", readWithRapidXmlFast, true, true},
};

struct Document {
    const char* name;
    std::string text;
};

struct Writer {
    const char* name;
    std::string (*write)(const std::vector<Order>&);
};

const Writer writers[] = {
    {"nolk_writer", writeWithNolk},
    {"libxml2_writer", writeWithLibXml2},
    {"string_appends", writeWithString},
};

std::vector<Document> makeDocuments() {
    return {{"soap", soapDocument()},
            {"attributes", attributesDocument()},
            {"text", textDocument()},
            {"nonascii", nonAsciiDocument()},
            {"envelope", envelopeDocument()}};
}

const std::vector<Order>& ordersToWrite() {
    static const std::vector<Order> orders = makeOrders(4500);
    return orders;
}

// What two ways of counting may differ by, taken from parsers that differ in nothing else: expat
// with and without namespaces tells the declarations; white space is counted in the text.
struct Differences {
    std::uint64_t declarations;
    std::uint64_t declaredBytes;
    std::uint64_t whiteSpace;
};

std::uint64_t whiteSpaceBetweenTags(const std::string& text) {
    std::uint64_t bytes = 0;
    const std::size_t root = text.find("?>") == std::string::npos ? 0 : text.find("?>") + 2;
    std::size_t at = text.find('>', root);
    for (; at != std::string::npos; at = text.find('>', at + 1)) {
        const std::size_t next = text.find_first_not_of(" \t\r\n", at + 1);
        if (next != std::string::npos && text[next] == '<') {
            bytes += next - at - 1;
        }
    }
    return bytes;
}

Differences differencesIn(const std::string& text) {
    const Tally all = readWithExpat(text);
    const Tally resolved = readWithExpatNamespaces(text);
    return {all.attributes - resolved.attributes, all.valueBytes - resolved.valueBytes,
            whiteSpaceBetweenTags(text)};
}

bool same(const char* document, const char* reader, const char* what, std::uint64_t found,
          std::uint64_t expected) {
    if (found != expected) {
        std::fprintf(stderr, "%s: %s finds %llu %s, not %llu\n", document, reader,
                     static_cast<unsigned long long>(found), what,
                     static_cast<unsigned long long>(expected));
    }
    return found == expected;
}

bool checkReader(const Document& document, const Reader& reader, const Tally& expected,
                 const Differences& differences) {
    const Tally found = reader.read(document.text);
    const std::uint64_t more = reader.countsDeclarations ? differences.declarations : 0;
    const std::uint64_t moreBytes = reader.countsDeclarations ? differences.declaredBytes : 0;
    const std::uint64_t less = reader.dropsWhiteSpace ? differences.whiteSpace : 0;
    const auto check = [&](const char* what, std::uint64_t have, std::uint64_t want) {
        return same(document.name, reader.name, what, have, want);
    };
    bool good = check("elements", found.elements, expected.elements);
    good &= check("attributes", found.attributes, expected.attributes + more);
    good &= check("bytes of values", found.valueBytes, expected.valueBytes + moreBytes);
    good &= check("bytes of text", found.textBytes, expected.textBytes - less);
    return good;
}

bool checkReaders(const std::vector<Document>& documents) {
    bool good = true;
    for (const Document& document : documents) {
        const Tally expected = readWithExpatNamespaces(document.text);
        const Differences differences = differencesIn(document.text);
        for (const Reader& reader : readers) {
            good &= checkReader(document, reader, expected, differences);
        }
    }
    return good;
}

bool checkWriters() {
    const Tally expected = readWithExpatNamespaces(writeWithString(ordersToWrite()));
    bool good = true;
    for (const Writer& writer : writers) {
        const Document written = {"written", writer.write(ordersToWrite())};
        good &= checkReader(written, {writer.name, readWithExpatNamespaces, false, false}, expected,
                            {0, 0, 0});
    }
    return good;
}

void readDocument(benchmark::State& state, const std::string& text,
                  Tally (*read)(const std::string&)) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(read(text));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(text.size()));
}

void writeOrders(benchmark::State& state, std::string (*write)(const std::vector<Order>&)) {
    std::int64_t bytes = 0;
    for (auto _ : state) {
        const std::string text = write(ordersToWrite());
        bytes += static_cast<std::int64_t>(text.size());
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(bytes);
}

void registerReading(const Document& document, const char* name,
                     Tally (*read)(const std::string&)) {
    const std::string row = std::string(document.name) + "/" + name;
    benchmark::RegisterBenchmark(row.c_str(), [&document, read](benchmark::State& state) {
        readDocument(state, document.text, read);
    });
}

void registerAll(const std::vector<Document>& documents) {
    for (const Document& document : documents) {
        for (const Reader& reader : readers) {
            registerReading(document, reader.name, reader.read);
        }
        registerReading(document, "memchr", readWithMemchr);
    }
    for (const Writer& writer : writers) {
        const std::string row = std::string("write/") + writer.name;
        benchmark::RegisterBenchmark(
            row.c_str(), [&writer](benchmark::State& state) { writeOrders(state, writer.write); });
    }
}

// Memory stays with the process between passes, as in a service that has run for a while: else the
// builders of trees would be measured at getting pages from the system, and so would our copy.
void keepMemory() {
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    mallopt(M_TOP_PAD, 64 << 20);
}

void printSizes(const std::vector<Document>& documents) {
    for (const Document& document : documents) {
        const Tally tally = readWithExpat(document.text);
        std::fprintf(stderr, "%-10s %8zu bytes, %7llu elements, %7llu attributes\n", document.name,
                     document.text.size(), static_cast<unsigned long long>(tally.elements),
                     static_cast<unsigned long long>(tally.attributes));
    }
}

}  // namespace

void readFailed(const char* parser, const char* reason) {
    std::fprintf(stderr, "%s: %s\n", parser, reason);
    std::exit(1);
}

int main(int argc, char** argv) {
    keepMemory();
    const std::vector<Document> documents = makeDocuments();
    if (!checkReaders(documents) || !checkWriters()) {
        return 1;
    }
    if (argc > 1 && std::strcmp(argv[1], "--check") == 0) {
        printSizes(documents);
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    registerAll(documents);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
