#ifndef NOLK_BENCHMARKS_XML_TALLY_H
#define NOLK_BENCHMARKS_XML_TALLY_H

#include <cstdint>

/**
 * What one pass over a document adds up. Every parser visits every element, attribute and text for
 * it, so that none gets away with work put off.
 */
struct Tally {
    std::uint64_t elements = 0;
    std::uint64_t attributes = 0;
    std::uint64_t valueBytes = 0;  ///< of the attributes, references replaced
    std::uint64_t textBytes = 0;   ///< of the texts, references replaced
    std::uint64_t nameBytes = 0;   ///< names of elements and attributes as the parser gives them
    std::uint64_t uriBytes = 0;    ///< namespaces of both, where the parser resolves them
};

#endif
