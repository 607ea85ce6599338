#ifndef NOLK_BENCHMARKS_XML_READERS_H
#define NOLK_BENCHMARKS_XML_READERS_H

#include "Tally.h"

#include <string>

/** @name One pass over a document, construction and destruction of the parser included.
 * All end the program when the document fails to parse. @{ */

Tally readWithNolkPull(const std::string& document);
Tally readWithNolkSax(const std::string& document);
Tally readWithExpat(const std::string& document);
Tally readWithExpatNamespaces(const std::string& document);
Tally readWithLibXml2Sax(const std::string& document);
Tally readWithLibXml2Reader(const std::string& document);
Tally readWithPugixml(const std::string& document);
/** With the library's default flags. */
Tally readWithRapidXml(const std::string& document);
/** With what makes it faster and loses nothing: no terminators, no values of elements. */
Tally readWithRapidXmlFast(const std::string& document);

/** No parser: finds each `<` and `>` and counts them as elements. What finding markup costs. */
Tally readWithMemchr(const std::string& document);
/** @} */

/** Says which parser failed on which text, and ends the program. */
[[noreturn]] void readFailed(const char* parser, const char* reason);

#endif
