// outline <document>
//
// Prints the outline of an XML document, writes the document again and checks that the copy says
// the same. It shows the pull reader, the SAX parser and the writer at work.
#include "InputFile.h"
#include "Outline.h"
#include "OutlinePrinter.h"
#include "PeakMemory.h"
#include "RoundTrip.h"

#include <nolk/core/MessageIds.h>
#include <nolk/core/XmlParseLineColException.h>
#include <nolk/core/XmlReader.h>

#include <chrono>
#include <cstdio>
#include <iostream>
#include <new>
#include <sstream>
#include <string>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

std::string formatted(const char* format, double value) {
    char text[64];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

std::string speed(std::size_t bytes, double seconds) {
    return formatted("%.3f ms", seconds * 1e3) +
           formatted(", %.0f MB/s", static_cast<double>(bytes) / 1e6 / seconds);
}

void addNode(Outline& outline, const nolk::XmlReader& reader) {
    const nolk::XmlReader::NodeType type = reader.getLastNodeType();
    if (type == nolk::XmlReader::Data) {
        outline.text(reader.getLastContentI());
        return;
    }
    if (type != nolk::XmlReader::EndTag) {
        outline.startElement(reader.getLastNameI(), reader.getLastAttributesI());
    }
    // The reader takes any end tag: comparing them is up to whom it matters.
    if (type != nolk::XmlReader::StartTag && !outline.endElement(reader.getLastNameI())) {
        reader.err(nolk::here(), nolk::message(nolk::NOLK_CORE_XML_PARSE_UNMATCHED_START,
                                               reader.getLastName().asString()));
    }
}

/** Reads the whole document and says how long that took, the reader's copy of it included. */
std::string readOutline(const std::string& document, Outline& outline) {
    const auto start = Clock::now();
    nolk::XmlReader reader(document);
    while (!reader.eof()) {
        reader.readNextNode();
        addNode(outline, reader);
    }
    if (outline.hasOpenElements()) {
        reader.err(nolk::here(), nolk::message(nolk::NOLK_CORE_XML_PARSE_PREMATURE_EOF));
    }
    const double seconds = secondsSince(start);
    const std::string version = reader.getVersion();
    return "  " + onOneLine(reader.getEncoding()) +
           (version.empty() ? "" : ", XML " + onOneLine(version)) + ", " +
           std::to_string(document.size()) + " bytes, read in " + speed(document.size(), seconds);
}

std::string memoryLine() {
    const auto peak = peakMemory();
    return peak ? formatted("  memory at most %.1f MB, the text itself included\n",
                            static_cast<double>(*peak) / 1e6)
                : "";
}

void run(const std::string& name) {
    std::string document = readInput(name);
    Outline outline;
    // Shown only when all is well: a broken document gives one line and nothing else.
    std::ostringstream out;
    out << name << '\n' << readOutline(document, outline) << '\n' << memoryLine();
    printTotals(out, outline.totals());
    printOutline(out, outline);

    const auto start = Clock::now();
    std::string copy = writeAgain(document);
    const std::string duration = speed(document.size(), secondsSince(start));
    const std::size_t length = copy.size();
    compareContent(std::move(document), std::move(copy));
    out << "  written and read again: the same; " << length << " bytes written in " << duration
        << '\n';
    std::cout << out.str() << std::flush;
}

int fail(const std::string& line) {
    std::cerr << onOneLine(line) << '\n';
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: outline <document>\n";
        return 2;
    }
    const std::string name = argv[1];
    try {
        run(name);
        return 0;
    } catch (const nolk::XmlParseLineColException& e) {
        return fail(name + ':' + std::to_string(e.getLineNumber()) + ':' +
                    std::to_string(e.getColumnNumber()) + ": " + e.what());
    } catch (const std::bad_alloc&) {
        return fail(name + ": not enough memory");
    } catch (const std::exception& e) {
        return fail(name + ": " + e.what());
    }
}
