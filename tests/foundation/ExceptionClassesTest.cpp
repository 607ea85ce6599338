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

#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeinfo>

#include "ExceptionRows.h"

namespace nolk {

using namespace test;
namespace {

const ExceptionInfo site("site.cpp", 12, "void thrower()");

LocalizedMessage queueClosed() {
    return LocalizedMessage(NOLK_CORE_QUEUE_CLOSED);
}

constexpr const char* bracketed = "[QUEUE_CLOSED] Queue closed";

TEST(ExceptionClasses, MakingAndRaisingWritesNothing) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    for (const ExceptionRow& entry : allExceptionRows()) {
        EXPECT_TRUE(entry.caughtByClass(*entry.make())) << entry.name;
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(ExceptionClasses, EachHasItsText) {
    for (const ExceptionRow& entry : allExceptionRows()) {
        const std::unique_ptr<Exception> failure = entry.make();
        EXPECT_STREQ(failure->what(), entry.text) << entry.name;
        EXPECT_STREQ(failure->why(), entry.text) << entry.name;
    }
}

TEST(ExceptionClasses, EachKeepsTheRecordThatItIsGiven) {
    for (const ExceptionRow& entry : allExceptionRows()) {
        const std::unique_ptr<Exception> failure = entry.make();
        if (entry.hasSite) {
            EXPECT_STREQ(failure->getFileName(), "site.cpp") << entry.name;
            EXPECT_EQ(failure->getLineNumber(), 12u) << entry.name;
            EXPECT_STREQ(failure->getFunctionName(), "void thrower()") << entry.name;
        }
    }
}

TEST(ExceptionClasses, EachIsRaisedByItsExactClassThroughTheRoot) {
    for (const ExceptionRow& entry : allExceptionRows()) {
        const std::unique_ptr<Exception> failure = entry.make();
        EXPECT_TRUE(entry.caughtByClass(*failure)) << entry.name;
        EXPECT_TRUE(raisedAndCaughtBy<Exception>(*failure)) << entry.name;
    }
}

TEST(ExceptionClasses, EachIsCaughtByItsBase) {
    for (const ExceptionRow& entry : allExceptionRows()) {
        const std::unique_ptr<Exception> failure = entry.make();
        if (*entry.type != typeid(Exception)) {
            EXPECT_TRUE(entry.caughtByBase(*failure)) << entry.name;
        }
    }
}

TEST(ExceptionClasses, EachIsClonedByItsExactClass) {
    for (const ExceptionRow& entry : allExceptionRows()) {
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
    for (const ExceptionRow& entry : allExceptionRows()) {
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
// What a class adds to its base, which leaves no gap behind.
template <typename Class, typename Base, typename... Added>
constexpr bool addsExactly = sizeof(Class) == sizeof(Base) + (sizeof(Added) + ... + 0);

static_assert(
    addsExactly<DynamicLibraryLoadException, DynamicLibraryException, std::string, std::string>);
static_assert(
    addsExactly<DynamicLibraryMethodException, DynamicLibraryException, std::string, std::string>);
static_assert(addsExactly<FileNotFoundException, FileException, std::string>);
static_assert(addsExactly<NotImplementedException, Exception>);
static_assert(addsExactly<NullPointerException, Exception>);
static_assert(addsExactly<QueueClosedException, QueueException>);
static_assert(addsExactly<QueueWriteClosedException, QueueException>);
static_assert(addsExactly<RegexException, Exception, unsigned, unsigned>);
static_assert(addsExactly<ThreadCreateException, ThreadException, std::string>);
static_assert(addsExactly<ThreadSystemException, ThreadException, std::string>);
static_assert(addsExactly<ThreadJoinException, ThreadException, std::string>);
static_assert(addsExactly<XmlParseException, XmlException>);
static_assert(addsExactly<XmlParseLineColException, XmlParseException, unsigned, unsigned>);
static_assert(addsExactly<XmlParseAttributeNotFoundException, XmlParseException, std::string>);
static_assert(addsExactly<XmlSchemaException, XmlException>);

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

TEST(XmlParseLineColException, HoldsTheLineInFrontOfTheColumn) {
    const XmlParseLineColException failure(site, queueClosed(), 3, 14);
    unsigned words[2];
    std::memcpy(words, reinterpret_cast<const char*>(&failure) + sizeof(XmlParseException),
                sizeof words);
    EXPECT_EQ(words[0], 3u);
    EXPECT_EQ(words[1], 14u);
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
