/** @file
 * The door to encodings beyond the UTF forms.
 */
#ifndef NOLK_CORE_U_CONVERTER_H
#define NOLK_CORE_U_CONVERTER_H

#include <nolk/core/Export.h>

#include <string>

namespace nolk {

/**
 * Converts texts between encodings that the library itself doesn't know.
 *
 * Implemented by an optional library, which makes one with `new` in its entry point
 * "createUConverter"; the caller deletes it. An implementation says whether one object may serve
 * several threads.
 */
class NOLK_API UConverter {
public:
    UConverter() = default;
    UConverter(const UConverter& other) = default;
    UConverter& operator=(const UConverter& other) = default;
    virtual ~UConverter();

    /**
     * The text, given in the encoding `from`, in the encoding `to`. Encodings go by the names that
     * the implementation knows, as "ISO-8859-15". What can't be converted is reported by an
     * exception of the implementation's.
     */
    virtual std::string convert(const std::string& text, const std::string& from,
                                const std::string& to) const = 0;
};

}  // namespace nolk

#endif
