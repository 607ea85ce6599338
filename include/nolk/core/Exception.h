/** @file
 * The root of all failures of the library.
 */
#ifndef NOLK_CORE_EXCEPTION_H
#define NOLK_CORE_EXCEPTION_H

#include <nolk/core/ExceptionInfo.h>
#include <nolk/core/Export.h>

#include <exception>
#include <string>

namespace nolk {

class LocalizedMessage;

/**
 * A failure: a text for the user and the record of the throw site for the programmer.
 *
 * A value, thrown by value and caught by reference, that holds nothing outside itself. A caller
 * tells failures apart by the class it catches. Every class below overrides `raise` and `clone`
 * with itself, so that a failure crosses a thread boundary with its exact class:
 *
 *     catch (const Exception& failure) { result.reset(failure.clone()); }
 *     ...
 *     result->raise();  // in the other thread
 *
 * Where a derived class overrides `operator==` or `operator!=`, objects are compared through
 * `const Exception&` on both sides: between operands of different classes a compiler may otherwise
 * turn the comparison round, and ask the operand on the right.
 *
 * Readers may run in several threads at once; `setMessage` and assignment are not synchronised.
 */
class NOLK_API Exception : public std::exception {
public:
    /** The text stays empty. Never throws. */
    explicit Exception(const ExceptionInfo& info);
    /** Text "[KEY] message"; empty if it can't be built, so that this constructor never throws. */
    Exception(const ExceptionInfo& info, const LocalizedMessage& msg);
    /**
     * The text as given; a null pointer gives an empty text. Having no throw site to record, each
     * of the two records its own place: the file, line and signature of the constructor itself.
     */
    explicit Exception(const char* text);
    explicit Exception(const std::string& text);
    /**
     * Take private copies of text and record, and never throw. What there is no memory for is empty
     * in a copy. In an assignment the text is then empty; the record is taken whole or stays.
     */
    Exception(const Exception& other);
    Exception& operator=(const Exception& other);
    ~Exception() override;

    /** The text, empty if there is none; never null. Valid until the object changes. */
    const char* what() const noexcept override;

    /**
     * Equal texts, file names, line numbers and function names, compared byte by byte. Neither the
     * class nor anything that a derived class adds takes part.
     */
    virtual bool operator==(Exception other) const;
    virtual bool operator!=(Exception other) const;

    /** The same as `what`, through its virtual slot. */
    virtual const char* why() const;

    /** Throws a copy of this object by its own exact class. */
    virtual void raise() const;

    /**
     * A copy on the heap, of this object's exact class, owned by the caller; null if there is no
     * memory for the object. @throws std::bad_alloc if there is none for a string that a derived
     * class adds
     */
    virtual Exception* clone() const;

    /** Where it was thrown, as the compiler spelled it; empty texts and 0 if that is unknown. */
    const char* getFileName() const;
    const char* getFunctionName() const;
    unsigned long getLineNumber() const;

protected:
    /** Takes a private copy of the text, an empty one for a null pointer. Never throws. */
    void setMessage(const char* text);

private:
    char* message_;
    ExceptionInfo info_;
};

}  // namespace nolk

#endif
