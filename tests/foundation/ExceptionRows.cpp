#include "ExceptionRows.h"

#include <nolk/core/ConversionException.h>
#include <nolk/core/DynamicLibraryException.h>
#include <nolk/core/DynamicLibraryLoadException.h>
#include <nolk/core/DynamicLibraryMethodException.h>
#include <nolk/core/FileException.h>
#include <nolk/core/FileNotFoundException.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/LoggerException.h>
#include <nolk/core/MessageCatalogException.h>
#include <nolk/core/MessageIds.h>
#include <nolk/core/NamingException.h>
#include <nolk/core/NotImplementedException.h>
#include <nolk/core/NullPointerException.h>
#include <nolk/core/OutOfBoundsException.h>
#include <nolk/core/QueueClosedException.h>
#include <nolk/core/QueueException.h>
#include <nolk/core/QueueWriteClosedException.h>
#include <nolk/core/RegexException.h>
#include <nolk/core/ThreadCreateException.h>
#include <nolk/core/ThreadException.h>
#include <nolk/core/ThreadJoinException.h>
#include <nolk/core/ThreadSystemException.h>
#include <nolk/core/XmlException.h>
#include <nolk/core/XmlParseAttributeNotFoundException.h>
#include <nolk/core/XmlParseException.h>
#include <nolk/core/XmlParseLineColException.h>
#include <nolk/core/XmlSchemaException.h>

#include <exception>
#include <string>
#include <type_traits>

namespace nolk::test {

namespace {

const ExceptionInfo site("site.cpp", 12, "void thrower()");

LocalizedMessage queueClosed() {
    return LocalizedMessage(NOLK_CORE_QUEUE_CLOSED);
}

constexpr const char* bracketed = "[QUEUE_CLOSED] Queue closed";

template <typename... Classes>
struct ClassList {};

using EveryClass =
    ClassList<std::exception, Exception, ConversionException, DynamicLibraryException,
              DynamicLibraryLoadException, DynamicLibraryMethodException, FileException,
              FileNotFoundException, LoggerException, MessageCatalogException, NamingException,
              NotImplementedException, NullPointerException, OutOfBoundsException, QueueException,
              QueueClosedException, QueueWriteClosedException, RegexException, ThreadException,
              ThreadCreateException, ThreadSystemException, ThreadJoinException, XmlException,
              XmlParseException, XmlParseLineColException, XmlParseAttributeNotFoundException,
              XmlSchemaException>;

// Whether a class has no other ancestors in the tree than its base and those of its base.
template <typename Class, typename Base, typename... Others>
consteval bool derivesDirectly(ClassList<Others...>) {
    return ((std::is_base_of_v<Others, Class> ==
             (std::is_same_v<Others, Class> || std::is_base_of_v<Others, Base>)) &&
            ...) &&
           std::is_convertible_v<const Class*, const Base*>;
}

template <typename Class>
concept Raises = requires(const Class& failure) {
    failure.raise();
};
template <typename Class>
concept Clones = requires(const Class& failure) {
    failure.clone();
};

// Whether the class declares these two itself. A name has the type of the class that declares it.
template <typename Class>
concept OverridesRaiseAndClone = std::is_same_v<decltype(&Class::raise), void (Class::*)() const> &&
    std::is_same_v<decltype(&Class::clone), Exception* (Class::*)() const>;

template <typename Class>
concept LeavesTheOthersToTheRoot =
    std::is_same_v<decltype(&Class::what), decltype(&Exception::what)> &&
    std::is_same_v<decltype(&Class::why), decltype(&Exception::why)> &&
    std::is_same_v<decltype(&Class::operator==), decltype(&Exception::operator==)> &&
    std::is_same_v<decltype(&Class::operator!=), decltype(&Exception::operator!=)>;

template <typename Class, typename Base, typename First, typename... Arguments>
ExceptionRow row(const char* name, const char* text, First first, Arguments... arguments) {
    static_assert(derivesDirectly<Class, Base>(EveryClass()));
    static_assert(std::is_copy_constructible_v<Class> && std::is_copy_assignable_v<Class>);
    static_assert(LeavesTheOthersToTheRoot<Class>);
    if constexpr (std::is_same_v<Class, XmlParseLineColException>) {
        static_assert(!Raises<Class> && !Clones<Class>);
    } else {
        static_assert(OverridesRaiseAndClone<Class>);
    }
    return ExceptionRow{
        name,
        text,
        std::is_same_v<First, ExceptionInfo>,
        [first, arguments...] { return std::make_unique<Class>(first, arguments...); },
        &typeid(Class),
        &raisedAndCaughtBy<Class>,
        &raisedAndCaughtBy<Base>};
}

// A class with the constructors (info) and (info, msg) and nothing of its own gives two rows.
template <typename Class, typename Base>
void addPlain(std::vector<ExceptionRow>& rows, const char* name) {
    static_assert(sizeof(Class) == sizeof(Base));
    static_assert(!std::is_constructible_v<Class, const char*>);
    static_assert(!std::is_constructible_v<Class, std::string>);
    rows.push_back(row<Class, Base>(name, "", site));
    rows.push_back(row<Class, Base>(name, bracketed, site, queueClosed()));
}

// A class with a fixed text takes no message.
template <typename Class, typename Base, typename... Arguments>
void addFixed(std::vector<ExceptionRow>& rows, const char* name, const char* text,
              Arguments... arguments) {
    static_assert(!std::is_constructible_v<Class, ExceptionInfo, LocalizedMessage>);
    rows.push_back(row<Class, Base>(name, text, site, std::string(arguments)...));
}

void addPlainClasses(std::vector<ExceptionRow>& rows) {
    addPlain<ConversionException, Exception>(rows, "ConversionException");
    addPlain<DynamicLibraryException, Exception>(rows, "DynamicLibraryException");
    addPlain<FileException, Exception>(rows, "FileException");
    addPlain<LoggerException, Exception>(rows, "LoggerException");
    addPlain<MessageCatalogException, Exception>(rows, "MessageCatalogException");
    addPlain<NamingException, Exception>(rows, "NamingException");
    addPlain<OutOfBoundsException, Exception>(rows, "OutOfBoundsException");
    addPlain<QueueException, Exception>(rows, "QueueException");
    addPlain<ThreadException, Exception>(rows, "ThreadException");
    addPlain<XmlException, Exception>(rows, "XmlException");
}

void addFixedClasses(std::vector<ExceptionRow>& rows) {
    addFixed<DynamicLibraryLoadException, DynamicLibraryException>(
        rows, "DynamicLibraryLoadException", "Unable to load library for : lib: no;", "lib", "no");
    addFixed<DynamicLibraryMethodException, DynamicLibraryException>(
        rows, "DynamicLibraryMethodException", "Unable to find method 'run' in 'lib'", "run",
        "lib");
    addFixed<FileNotFoundException, FileException>(rows, "FileNotFoundException",
                                                   "File a.txt not found", "a.txt");
    addFixed<NotImplementedException, Exception>(rows, "NotImplementedException",
                                                 "Function not implemented: f", "f");
    addFixed<NullPointerException, Exception>(rows, "NullPointerException",
                                              "Attempt to dereference a null pointer");
    addFixed<QueueClosedException, QueueException>(rows, "QueueClosedException", "Queue closed");
    addFixed<QueueWriteClosedException, QueueException>(rows, "QueueWriteClosedException",
                                                        "Queue closed for write");
    addFixed<ThreadCreateException, ThreadException>(rows, "ThreadCreateException",
                                                     "Thread Create Failed: no", "no");
    addFixed<ThreadSystemException, ThreadException>(rows, "ThreadSystemException",
                                                     "Thread error: no", "no");
    addFixed<ThreadJoinException, ThreadException>(rows, "ThreadJoinException",
                                                   "Thread Join Failed: no", "no");
    addFixed<XmlParseAttributeNotFoundException, XmlParseException>(
        rows, "XmlParseAttributeNotFoundException", "Unable to find attribute: id", "id");
}

void addOtherClasses(std::vector<ExceptionRow>& rows) {
    rows.push_back(row<Exception, std::exception>("Exception", "", site));
    rows.push_back(row<Exception, std::exception>("Exception", bracketed, site, queueClosed()));
    rows.push_back(row<Exception, std::exception>("Exception", "text", "text"));
    rows.push_back(row<Exception, std::exception>("Exception", "text", std::string("text")));
    rows.push_back(row<RegexException, Exception>("RegexException", "", site));
    rows.push_back(
        row<RegexException, Exception>("RegexException", bracketed, site, queueClosed(), 1u, 2u));
    rows.push_back(row<XmlParseException, XmlException>("XmlParseException", "", site));
    rows.push_back(
        row<XmlParseException, XmlException>("XmlParseException", bracketed, site, queueClosed()));
    rows.push_back(row<XmlParseException, XmlException>("XmlParseException", "text", "text"));
    rows.push_back(
        row<XmlParseException, XmlException>("XmlParseException", "text", std::string("text")));
    rows.push_back(row<XmlParseLineColException, XmlParseException>(
        "XmlParseLineColException", bracketed, site, queueClosed(), 1u, 2u));
    rows.push_back(row<XmlParseLineColException, XmlParseException>("XmlParseLineColException",
                                                                    "text", site, "text", 1u, 2u));
    rows.push_back(row<XmlParseLineColException, XmlParseException>(
        "XmlParseLineColException", "text", site, std::string("text"), 1u, 2u));
    rows.push_back(row<XmlSchemaException, XmlException>("XmlSchemaException", bracketed, site,
                                                         queueClosed()));
}

}  // namespace

std::vector<ExceptionRow> allExceptionRows() {
    std::vector<ExceptionRow> rows;
    addOtherClasses(rows);
    addPlainClasses(rows);
    addFixedClasses(rows);
    return rows;
}

}  // namespace nolk::test
