/** @file
 * The exception classes as a table: every class with each of its constructors.
 */
#ifndef NOLK_TESTS_FOUNDATION_EXCEPTION_ROWS_H
#define NOLK_TESTS_FOUNDATION_EXCEPTION_ROWS_H

#include <nolk/core/Exception.h>

#include <functional>
#include <memory>
#include <typeinfo>
#include <vector>

namespace nolk::test {

/** One class and one constructor of it. */
struct ExceptionRow {
    const char* name;
    /** What `what` gives. */
    const char* text;
    /** Made with a record, "site.cpp", 12 and "void thrower()", and not of a text alone. */
    bool hasSite;
    std::function<std::unique_ptr<Exception>()> make;
    const std::type_info* type;
    /** Raise through the reference, and tell whether the class itself or its base catches it. */
    std::function<bool(const Exception&)> caughtByClass;
    std::function<bool(const Exception&)> caughtByBase;
};

/** The classes of the whole tree. What holds at compile time is checked while they are listed. */
std::vector<ExceptionRow> allExceptionRows();

/** Raises an exception, and tells whether a handler of this class gets it with its exact class. */
template <typename Caught>
bool raisedAndCaughtBy(const Exception& failure) {
    try {
        failure.raise();
    } catch (const Caught& caught) {
        return typeid(caught) == typeid(failure) &&
               static_cast<const Exception&>(caught) == failure;
    } catch (...) {
        return false;
    }
    return false;
}

}  // namespace nolk::test

#endif
