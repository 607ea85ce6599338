#ifndef NOLK_EXAMPLES_OUTLINE_OUTLINE_PRINTER_H
#define NOLK_EXAMPLES_OUTLINE_OUTLINE_PRINTER_H

#include "Outline.h"

#include <iosfwd>
#include <string>

/** Two lines of counts. */
void printTotals(std::ostream& out, const OutlineTotals& totals);

/**
 * The tree, a line for each node, a namespace where it differs from the parent's. At most some
 * hundred lines, and then how many are left out.
 */
void printOutline(std::ostream& out, const Outline& outline);

/** The text with control characters shown by number, so that it stays on its line. */
std::string onOneLine(const std::string& text);

#endif
