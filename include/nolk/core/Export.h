/** @file
 * Marks what the shared library exports; everything else is hidden.
 *
 * NOLK_API stands before each exported class, function and constant. `NOLK_CORE_BUILDING` is
 * defined while the library itself is compiled, and `NOLK_CORE_STATIC` for programs that link its
 * objects directly.
 */
#ifndef NOLK_CORE_EXPORT_H
#define NOLK_CORE_EXPORT_H

#if defined(NOLK_CORE_STATIC)
#define NOLK_API
#elif defined(_WIN32) && defined(NOLK_CORE_BUILDING)
#define NOLK_API __declspec(dllexport)
#elif defined(_WIN32)
#define NOLK_API __declspec(dllimport)
#else
#define NOLK_API __attribute__((visibility("default")))
#endif

#endif
