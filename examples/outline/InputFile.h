#ifndef NOLK_EXAMPLES_OUTLINE_INPUT_FILE_H
#define NOLK_EXAMPLES_OUTLINE_INPUT_FILE_H

#include <string>

/** The bytes of a file or a pipe. Throws std::runtime_error with a text for the user. */
std::string readInput(const std::string& name);

#endif
