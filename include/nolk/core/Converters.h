/** @file
 * Values read from text.
 */
#ifndef NOLK_CORE_CONVERTERS_H
#define NOLK_CORE_CONVERTERS_H

#include <nolk/core/Export.h>

#include <string>

namespace nolk {

/** Reads values from text. Static operations without state, for any number of threads at once. */
class NOLK_API Converters {
public:
    /**
     * True for "true" and "1", false for "false" and "0", in exactly this spelling. Spaces, but no
     * other white space, may stand at both ends.
     * @throws Exception (INVALID_BOOLEAN) with the text without these spaces, for any other text
     * @throws std::bad_alloc
     */
    static bool convertStringToBool(const std::string& text);
};

}  // namespace nolk

#endif
