#ifndef NOLK_BENCHMARKS_XML_DOCUMENTS_H
#define NOLK_BENCHMARKS_XML_DOCUMENTS_H

#include <string>

/** @name Documents to read, about 4 MB each but for the envelope
 * Made in code, the same on every machine. The line breaks in `attributes`, `text` and the envelope
 * are texts of white space, which a reader may drop. @{ */

/** A message of many orders on one line: short names, short texts, a default namespace, a prefix.
 */
std::string soapDocument();
/** Empty elements with ten attributes each, some with a prefix, some with references. */
std::string attributesDocument();
/** Paragraphs of some hundred bytes with a reference here and there. */
std::string textDocument();
/** Names, values and texts in Cyrillic, Greek, Japanese and Hindi. */
std::string nonAsciiDocument();
/** One message of about 700 bytes as services exchange them. */
std::string envelopeDocument();
/** @} */

#endif
