// Every class of the tree: its base, constructors, text, readers, raise and clone.

#include <nolk/core/ConversionException.h>
#include <nolk/core/DynamicLibraryException.h>
#include <nolk/core/DynamicLibraryLoadException.h>
#include <nolk/core/DynamicLibraryMethodException.h>
#include <nolk/core/Exception.h>
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

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

namespace nolk {
namespace {

const ExceptionInfo site("site.cpp", 12, "void thrower()");

LocalizedMessage queueClosed() {
    return LocalizedMessage(NOLK_CORE_QUEUE_CLOSED);
}

constexpr const char* bracketed = "[QUEUE_CLOSED] Queue closed";

struct Row {
    const char* name;
    const char* text;
    // Made with a record, and not of a text alone.
    bool hasSite;
    std::function<std::unique_ptr<Exception>()> make;
    const std::type_info* type;
    // Raises through the pointer, and tells whether the class itself, its base and the root
    // catch it.
    std::function<bool(const Exception&)> caughtByClass;
    std::function<bool(const Exception&)> caughtByBase;
};

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
Row row(const char* name, const char* text, First first, Arguments... arguments) {
    static_assert(std::is_base_of_v<Base, Class>);
    static_assert(std::is_copy_constructible_v<Class> && std::is_copy_assignable_v<Class>);
    static_assert(LeavesTheOthersToTheRoot<Class>);
    if constexpr (std::is_same_v<Class, XmlParseLineColException>) {
        static_assert(!Raises<Class> && !Clones<Class>);
    } else {
        static_assert(OverridesRaiseAndClone<Class>);
    }
    return Row{name,
               text,
               std::is_same_v<First, ExceptionInfo>,
               [first, arguments...] { return std::make_unique<Class>(first, arguments...); },
               &typeid(Class),
               &raisedAndCaughtBy<Class>,
               &raisedAndCaughtBy<Base>};
}

// A class with the constructors (info) and (info, msg) and nothing of its own gives two rows.
template <typename Class, typename Base>
void addPlain(std::vector<Row>& rows, const char* name) {
    static_assert(sizeof(Class) == sizeof(Base));
    static_assert(!std::is_constructible_v<Class, const char*>);
    static_assert(!std::is_constructible_v<Class, std::string>);
    rows.push_back(row<Class, Base>(name, "", site));
    rows.push_back(row<Class, Base>(name, bracketed, site, queueClosed()));
}

// A class with a fixed text takes no message.
template <typename Class, typename Base, typename... Arguments>
void addFixed(std::vector<Row>& rows, const char* name, const char* text, Arguments... arguments) {
    static_assert(!std::is_constructible_v<Class, ExceptionInfo, LocalizedMessage>);
    rows.push_back(row<Class, Base>(name, text, site, std::string(arguments)...));
}

void addPlainClasses(std::vector<Row>& rows) {
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

void addFixedClasses(std::vector<Row>& rows) {
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

void addOtherClasses(std::vector<Row>& rows) {
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

std::vector<Row> allRows() {
    std::vector<Row> rows;
    addOtherClasses(rows);
    addPlainClasses(rows);
    addFixedClasses(rows);
    return rows;
}

TEST(ExceptionClasses, EachHasItsText) {
    for (const Row& entry : allRows()) {
        const std::unique_ptr<Exception> failure = entry.make();
        EXPECT_STREQ(failure->what(), entry.text) << entry.name;
        EXPECT_STREQ(failure->why(), entry.text) << entry.name;
    }
}

TEST(ExceptionClasses, EachKeepsTheRecordThatItIsGiven) {
    for (const Row& entry : allRows()) {
        const std::unique_ptr<Exception> failure = entry.make();
        if (entry.hasSite) {
            EXPECT_STREQ(failure->getFileName(), "site.cpp") << entry.name;
            EXPECT_EQ(failure->getLineNumber(), 12u) << entry.name;
            EXPECT_STREQ(failure->getFunctionName(), "void thrower()") << entry.name;
        }
    }
}

TEST(ExceptionClasses, EachIsRaisedByItsExactClassThroughTheRoot) {
    for (const Row& entry : allRows()) {
        const std::unique_ptr<Exception> failure = entry.make();
        EXPECT_TRUE(entry.caughtByClass(*failure)) << entry.name;
        EXPECT_TRUE(raisedAndCaughtBy<Exception>(*failure)) << entry.name;
    }
}

TEST(ExceptionClasses, EachIsCaughtByItsBase) {
    for (const Row& entry : allRows()) {
        const std::unique_ptr<Exception> failure = entry.make();
        if (*entry.type != typeid(Exception)) {
            EXPECT_TRUE(entry.caughtByBase(*failure)) << entry.name;
        }
    }
}

TEST(ExceptionClasses, EachIsClonedByItsExactClass) {
    for (const Row& entry : allRows()) {
        std::unique_ptr<Exception> failure = entry.make();
        const std::unique_ptr<Exception> clone(failure->clone());
        ASSERT_NE(clone, nullptr) << entry.name;
        const Exception& same = *clone;
        EXPECT_TRUE(typeid(same) == *entry.type) << entry.name;
        EXPECT_TRUE(same == *failure) << entry.name;
        failure.reset();
        EXPECT_STREQ(clone->what(), entry.text) << entry.name;
    }
}

TEST(ExceptionClasses, NoneIsCaughtByASibling) {
    for (const Row& entry : allRows()) {
        const std::unique_ptr<Exception> failure = entry.make();
        if (*entry.type != typeid(NamingException)) {
            EXPECT_FALSE(raisedAndCaughtBy<NamingException>(*failure)) << entry.name;
        }
    }
}

// The constructors that some classes don't have, and the classes that add no data.
static_assert(!std::is_default_constructible_v<Exception>);
static_assert(!std::is_constructible_v<XmlSchemaException, ExceptionInfo>);
static_assert(!std::is_constructible_v<XmlParseLineColException, ExceptionInfo>);
static_assert(!std::is_constructible_v<XmlParseLineColException, ExceptionInfo, LocalizedMessage>);
static_assert(!std::is_constructible_v<RegexException, ExceptionInfo, LocalizedMessage>);
static_assert(!std::is_constructible_v<FileNotFoundException, ExceptionInfo>);

static_assert(!std::is_constructible_v<XmlParseAttributeNotFoundException, ExceptionInfo>);
static_assert(sizeof(NotImplementedException) == sizeof(Exception));
static_assert(sizeof(NullPointerException) == sizeof(Exception));
static_assert(sizeof(QueueClosedException) == sizeof(QueueException));
static_assert(sizeof(QueueWriteClosedException) == sizeof(QueueException));
static_assert(sizeof(XmlParseException) == sizeof(XmlException));
static_assert(sizeof(XmlSchemaException) == sizeof(XmlException));

// Whether a reader is const and returns a string by value.
template <typename Class>
consteval bool readsAString(std::string (Class::*)() const) {
    return true;
}
consteval bool readsAString(...) {
    return false;
}
static_assert(readsAString(&DynamicLibraryLoadException::dllName));
static_assert(readsAString(&DynamicLibraryLoadException::dllError));
static_assert(readsAString(&DynamicLibraryMethodException::methodName));
static_assert(readsAString(&DynamicLibraryMethodException::dllName));
static_assert(readsAString(&FileNotFoundException::fileName));
static_assert(readsAString(&ThreadCreateException::error));
static_assert(readsAString(&ThreadSystemException::error));
static_assert(readsAString(&ThreadJoinException::error));
static_assert(readsAString(&XmlParseAttributeNotFoundException::attrName));

// The object as it arrives in another thread: cloned, and the clone raised.
template <typename Class>
Class carried(const Class& failure) {
    const Exception& root = failure;
    const std::unique_ptr<Exception> clone(root.clone());
    try {
        clone->raise();
    } catch (const Class& caught) {
        return caught;
    }
    throw std::logic_error("raise returned");
}

TEST(ExceptionClasses, CarriedObjectsKeepTheirData) {
    const auto load = carried(DynamicLibraryLoadException(site, "lib", "no"));
    EXPECT_EQ(load.dllName() + "|" + load.dllError(), "lib|no");
    const auto method = carried(DynamicLibraryMethodException(site, "run", "lib"));
    EXPECT_EQ(method.methodName() + "|" + method.dllName(), "run|lib");
    EXPECT_EQ(carried(FileNotFoundException(site, "a.txt")).fileName(), "a.txt");
    EXPECT_EQ(carried(ThreadCreateException(site, "a")).error(), "a");
    EXPECT_EQ(carried(ThreadSystemException(site, "b")).error(), "b");
    EXPECT_EQ(carried(ThreadJoinException(site, "c")).error(), "c");
    EXPECT_EQ(carried(XmlParseAttributeNotFoundException(site, "id")).attrName(), "id");
    const auto regex = carried(RegexException(site, queueClosed(), 7, 9));
    EXPECT_EQ(regex.getCode(), 7u);
    EXPECT_EQ(regex.getOffset(), 9u);
    const auto place = carried(XmlParseLineColException(site, "text", 3, 14));
    EXPECT_EQ(place.getLineNumber(), 3u);
    EXPECT_EQ(place.getColumnNumber(), 14u);
}

TEST(DynamicLibraryLoadException, KeepsBothStrings) {
    const DynamicLibraryLoadException failure(site, "lib", "no");
    EXPECT_EQ(failure.dllName(), "lib");
    EXPECT_EQ(failure.dllError(), "no");
}

TEST(DynamicLibraryMethodException, CloneKeepsBothStrings) {
    const DynamicLibraryMethodException failure(site, "run", "lib");
    const std::unique_ptr<Exception> clone(failure.clone());
    const auto& same = dynamic_cast<const DynamicLibraryMethodException&>(*clone);
    EXPECT_EQ(same.methodName(), "run");
    EXPECT_EQ(same.dllName(), "lib");
}

TEST(DynamicLibraryMethodException, AssignmentTakesTheStrings) {
    DynamicLibraryMethodException target(site, "a", "b");
    target = DynamicLibraryMethodException(site, "run", "lib");
    EXPECT_EQ(target.methodName(), "run");
    EXPECT_EQ(target.dllName(), "lib");
    EXPECT_STREQ(target.what(), "Unable to find method 'run' in 'lib'");
}

TEST(FileNotFoundException, RaisedThroughTheRootKeepsItsName) {
    const FileNotFoundException failure(site, "a.txt");
    const Exception* root = &failure;
    try {
        root->raise();
        FAIL() << "raise returned";
    } catch (FileNotFoundException& caught) {
        EXPECT_EQ(caught.fileName(), "a.txt");
    }
}

TEST(ThreadExceptions, KeepTheError) {
    EXPECT_EQ(ThreadCreateException(site, "a").error(), "a");
    EXPECT_EQ(ThreadSystemException(site, "b").error(), "b");
    EXPECT_EQ(ThreadJoinException(site, "c").error(), "c");
}

TEST(XmlParseAttributeNotFoundException, KeepsTheName) {
    EXPECT_EQ(XmlParseAttributeNotFoundException(site, "id").attrName(), "id");
}

TEST(RegexException, KeepsCodeAndOffset) {
    const RegexException failure(site, queueClosed(), 7, 4294967295u);
    EXPECT_EQ(failure.getCode(), 7u);
    EXPECT_EQ(failure.getOffset(), 4294967295u);
    const std::unique_ptr<Exception> clone(failure.clone());
    const auto& same = dynamic_cast<const RegexException&>(*clone);
    EXPECT_EQ(same.getCode(), 7u);
    EXPECT_EQ(same.getOffset(), 4294967295u);
}

TEST(XmlParseException, TextConstructorsRecordTheirOwnPlaces) {
    const XmlParseException ofPointer("text");
    const XmlParseException ofString(std::string("text"));
    EXPECT_STREQ(ofPointer.getFunctionName(),
                 "nolk::XmlParseException::XmlParseException(const char*)");
    const std::string function = ofString.getFunctionName();
    EXPECT_EQ(function.rfind("nolk::XmlParseException::XmlParseException(const std::", 0), 0u)
        << function;
    EXPECT_NE(ofPointer.getLineNumber(), ofString.getLineNumber());
    const std::string file = ofPointer.getFileName();
    EXPECT_NE(file.find("foundation/XmlParseException.cpp"), std::string::npos) << file;
}

TEST(XmlParseException, OfANullTextHasAnEmptyText) {
    EXPECT_STREQ(XmlParseException(static_cast<const char*>(nullptr)).what(), "");
}

TEST(XmlParseLineColException, HasLineAndColumnOutsideItsText) {
    XmlParseLineColException failure(site, queueClosed(), 3, 14);
    EXPECT_STREQ(failure.what(), bracketed);
    EXPECT_EQ(failure.getLineNumber(), 3u);
    EXPECT_EQ(failure.getColumnNumber(), 14u);
    failure.setLineNumber(4);
    failure.setColumnNumber(15);
    EXPECT_EQ(failure.getLineNumber(), 4u);
    EXPECT_EQ(failure.getColumnNumber(), 15u);
    EXPECT_STREQ(failure.what(), bracketed);
}

TEST(XmlParseLineColException, ThroughTheRootTheLineIsThatOfTheThrowSite) {
    const XmlParseLineColException failure(site, "text", 3, 14);
    EXPECT_EQ(failure.getLineNumber(), 3u);
    EXPECT_EQ(static_cast<const Exception&>(failure).getLineNumber(), 12u);
}

TEST(XmlParseLineColException, OfANullTextHasAnEmptyText) {
    EXPECT_STREQ(XmlParseLineColException(site, static_cast<const char*>(nullptr), 1, 1).what(),
                 "");
}

TEST(XmlParseLineColException, RaisedThroughTheRootKeepsItsPlace) {
    const XmlParseLineColException failure(site, std::string("text"), 3, 14);
    const Exception& root = failure;
    try {
        root.raise();
        FAIL() << "raise returned";
    } catch (const XmlParseLineColException& caught) {
        EXPECT_EQ(caught.getLineNumber(), 3u);
        EXPECT_EQ(caught.getColumnNumber(), 14u);
    }
}

TEST(ExceptionTexts, TheSameIdHasItsKeyOnlyWhenGivenAsAMessage) {
    EXPECT_STREQ(QueueException(site, queueClosed()).what(), "[QUEUE_CLOSED] Queue closed");
    EXPECT_STREQ(QueueClosedException(site).what(), "Queue closed");
}

TEST(ExceptionTexts, PercentSignsInANameFollowTheRulesOfMessages) {
    EXPECT_STREQ(FileNotFoundException(site, "50%").what(), "File 50% not found");
}

}  // namespace
}  // namespace nolk
