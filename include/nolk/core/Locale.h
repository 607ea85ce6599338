/** @file
 * How a culture writes numbers.
 */
#ifndef NOLK_CORE_LOCALE_H
#define NOLK_CORE_LOCALE_H

#include <nolk/core/Export.h>

#include <string>

namespace nolk {

/**
 * How a culture writes numbers, apart from the locale of the process, which it neither reads nor
 * changes. A locale that nobody changes may be read by all threads.
 */
class NOLK_API Locale {
public:
    virtual ~Locale();

    /** What stands between integer part and fraction; may be empty or of several bytes. */
    virtual const std::string& decimal_point() const = 0;

    /** What stands between groups of digits; may be empty or of several bytes. */
    virtual const std::string& thousands_sep() const = 0;

    /**
     * Reads a number that may have white space around it. False, and `result` as it was, if the
     * text is anything else.
     */
    virtual bool stringToNum(const std::string& text, double* result) const = 0;

    /** The locale of the process's values: that of C, until another is installed. */
    static const Locale& global();

    /**
     * Installs another, which stays the caller's, and returns the one before. Set it before threads
     * start: nothing is locked. With null, that of C holds again.
     */
    static const Locale* global(const Locale* locale);
};

}  // namespace nolk

#endif
