#ifndef NOLK_EXAMPLES_OUTLINE_ROUND_TRIP_H
#define NOLK_EXAMPLES_OUTLINE_ROUND_TRIP_H

#include <string>

/** The document pushed through the SAX parser into the writer: UTF-8, whatever it was before. */
std::string writeAgain(const std::string& document);

/**
 * Reads both and throws nolk::XmlParseLineColException, with the place in `original`, at the first
 * element, attribute or text that is not the same. Takes the texts over and frees them early: a
 * reader has a copy of its own.
 */
void compareContent(std::string original, std::string copy);

#endif
