/** @file
 * The record of a throw site.
 */
#ifndef NOLK_CORE_EXCEPTION_INFO_H
#define NOLK_CORE_EXCEPTION_INFO_H

#include <nolk/core/Export.h>

#include <source_location>

namespace nolk {

/**
 * Source file, line and function signature of a throw site.
 *
 * A value that owns private copies of both texts. The record is for programmers: it never enters
 * the text of an exception and is read through Exception's getters. Nothing here throws; when the
 * memory is exhausted a new record has empty texts instead.
 */
class NOLK_API ExceptionInfo {
public:
    /** Line 0, and both texts empty. */
    ExceptionInfo();
    /** Copies both texts; a null pointer gives an empty text. */
    ExceptionInfo(const char* file, unsigned long line, const char* function);
    ExceptionInfo(const ExceptionInfo& other);
    /** Duplicates both texts before it changes anything: on exhaustion the target stays. */
    ExceptionInfo& operator=(const ExceptionInfo& other);
    virtual ~ExceptionInfo();

private:
    friend class Exception;

    unsigned long line_;
    char* file_;
    char* function_;
};

/**
 * The record of the place that calls it: file and full signature as the compiler spells them.
 *
 *     throw NullPointerException(here());
 *
 * Always called without an argument.
 */
[[nodiscard]] inline ExceptionInfo here(
    const std::source_location& where = std::source_location::current()) {
    return ExceptionInfo(where.file_name(), where.line(), where.function_name());
}

/**
 * Duplicates a text with array new, or makes an empty text of a null pointer. Never throws.
 *
 * When the memory is exhausted the result is a static empty text, not to be written to. So that
 * the caller needn't tell the two apart, the result is given back to `freeCopy`, never to
 * `delete[]`.
 */
NOLK_API char* makeCopy(const char* text);

/** Frees a result of `makeCopy`; null and the static empty text are left alone. */
NOLK_API void freeCopy(char* copy) noexcept;

}  // namespace nolk

#endif
