// Every class of exceptions while the memory runs out, at every single allocation. The program
// allocates through FailingAllocation.cpp. Arguments are long enough that no string keeps them in
// place.

#include <nolk/core/CountingPointer.h>
#include <nolk/core/DynamicLibraryLoadException.h>
#include <nolk/core/DynamicLibraryMethodException.h>
#include <nolk/core/FileNotFoundException.h>
#include <nolk/core/HandleBase.h>
#include <nolk/core/NotImplementedException.h>
#include <nolk/core/NullPointerException.h>
#include <nolk/core/QueueClosedException.h>
#include <nolk/core/QueueWriteClosedException.h>
#include <nolk/core/ThreadCreateException.h>
#include <nolk/core/ThreadJoinException.h>
#include <nolk/core/ThreadSystemException.h>
#include <nolk/core/XmlParseAttributeNotFoundException.h>
#include <nolk/core/XmlParseException.h>
#include <nolk/core/XmlParseLineColException.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ExceptionRows.h"
#include "support/FailingAllocation.h"

namespace nolk {

using namespace test;
namespace {

const ExceptionInfo site("site.cpp", 12, "void thrower()");
const std::string longName(100, 'n');
const std::string longError(120, 'e');

class ExceptionAllocation : public testing::TestWithParam<bool> {
protected:
    bool forEver() const { return GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(OnceAndForEver, ExceptionAllocation, testing::Bool());

// How the making of an exception ended.
struct Ending {
    Outcome outcome;
    std::string text;
    unsigned long line = 0;
};

// A constructor with its arguments.
struct Row {
    std::string name;
    std::string text;
    // The strings that the object keeps beside its text and its record.
    long kept;
    std::function<Ending(FailingRun&)> make;
};

template <typename Class, typename... Arguments>
Row row(const char* name, const std::string& text, long kept, Arguments... arguments) {
    return Row{name, text, kept, [arguments...](FailingRun& run) {
                   std::optional<Class> failure;
                   Ending ending;
                   ending.outcome = run([&] { failure.emplace(arguments...); });
                   EXPECT_EQ(failure.has_value(), !ending.outcome.threw);
                   if (failure.has_value()) {
                       const Exception& root = *failure;
                       ending.text = root.what();
                       ending.line = root.getLineNumber();
                   }
                   return ending;
               }};
}

std::vector<Row> rowsOfFixedTexts() {
    const std::string& name = longName;
    const std::string& error = longError;
    return {
        row<NullPointerException>("NullPointerException", "Attempt to dereference a null pointer",
                                  0, site),
        row<QueueClosedException>("QueueClosedException", "Queue closed", 0, site),
        row<QueueWriteClosedException>("QueueWriteClosedException", "Queue closed for write", 0,
                                       site),
        row<NotImplementedException>("NotImplementedException", "Function not implemented: " + name,
                                     0, site, name),
        row<FileNotFoundException>("FileNotFoundException", "File " + name + " not found", 1, site,
                                   name),
        row<ThreadCreateException>("ThreadCreateException", "Thread Create Failed: " + error, 1,
                                   site, error),
        row<ThreadSystemException>("ThreadSystemException", "Thread error: " + error, 1, site,
                                   error),
        row<ThreadJoinException>("ThreadJoinException", "Thread Join Failed: " + error, 1, site,
                                 error),
        row<XmlParseAttributeNotFoundException>("XmlParseAttributeNotFoundException",
                                                "Unable to find attribute: " + name, 1, site, name),
        row<DynamicLibraryLoadException>(
            "DynamicLibraryLoadException",
            "Unable to load library for : " + name + ": " + error + ";", 2, site, name, error),
        row<DynamicLibraryMethodException>(
            "DynamicLibraryMethodException",
            "Unable to find method '" + error + "' in '" + name + "'", 2, site, error, name),
    };
}

// A message that finds no room for an argument goes on without it.
bool showsAPlaceholder(const std::string& text) {
    return text.find('%') != std::string::npos;
}

// How many tries ended in an exception of their own, and how many in an empty text.
struct Tally {
    long refused = 0;
    long emptied = 0;
};

Tally tallyOf(const Row& entry, bool forEver) {
    Tally tally;
    const long before = FailingAllocation::live();
    failEachAllocation(forEver, [&](FailingRun& run) {
        const Ending ending = entry.make(run);
        if (ending.outcome.threw) {
            ++tally.refused;
            return;
        }
        tally.emptied += ending.text.empty() ? 1 : 0;
        EXPECT_TRUE(
            ending.text == entry.text ||
            (ending.outcome.failed && (ending.text.empty() || showsAPlaceholder(ending.text))))
            << entry.name << ": " << ending.text;
    });
    EXPECT_EQ(FailingAllocation::live(), before) << entry.name;
    return tally;
}

TEST_P(ExceptionAllocation, FixedTextThatCannotBeBuiltIsEmpty) {
    for (const Row& entry : rowsOfFixedTexts()) {
        EXPECT_GT(tallyOf(entry, forEver()).emptied, 0) << entry.name;
    }
}

TEST_P(ExceptionAllocation, OnlyAStringThatIsKeptRefusesAnExceptionWithAFixedText) {
    for (const Row& entry : rowsOfFixedTexts()) {
        // Failing for ever, the two texts of the record in front of the strings refuse it too.
        const long before = forEver() && entry.kept != 0 ? 2 : 0;
        EXPECT_EQ(tallyOf(entry, forEver()).refused, before + entry.kept) << entry.name;
    }
}

TEST_P(ExceptionAllocation, FixedTextsKeepTheLineOfTheirRecord) {
    for (const Row& entry : rowsOfFixedTexts()) {
        failEachAllocation(forEver(), [&entry](FailingRun& run) {
            const Ending ending = entry.make(run);
            EXPECT_TRUE(ending.outcome.threw || ending.line == 12) << entry.name;
        });
    }
}

TEST_P(ExceptionAllocation, StringsThatAreKeptAreWholeEvenIfTheTextIsNot) {
    const long failures = failEachAllocation(forEver(), [](FailingRun& run) {
        std::optional<DynamicLibraryMethodException> failure;
        run([&failure] { failure.emplace(site, longError, longName); });
        if (failure.has_value()) {
            EXPECT_EQ(failure->methodName(), longError);
            EXPECT_EQ(failure->dllName(), longName);
        }
    });
    EXPECT_GT(failures, 4) << "the record, both strings, and the text";
}

std::vector<Row> rowsOfGivenTexts() {
    const std::string& text = longName;
    const char* pointer = longName.c_str();
    return {
        row<Exception>("Exception(const char*)", text, 0, pointer),
        row<Exception>("Exception(string)", text, 0, text),
        row<XmlParseException>("XmlParseException(const char*)", text, 0, pointer),
        row<XmlParseException>("XmlParseException(string)", text, 0, text),
        row<XmlParseLineColException>("XmlParseLineColException(const char*)", text, 0, site,
                                      pointer, 3u, 14u),
        row<XmlParseLineColException>("XmlParseLineColException(string)", text, 0, site, text, 3u,
                                      14u),
    };
}

TEST(ExceptionAllocation, GivenTextIsEmptyWhereItsOneCopyFails) {
    for (const Row& entry : rowsOfGivenTexts()) {
        const Tally tally = tallyOf(entry, false);
        EXPECT_EQ(tally.refused, 0) << entry.name;
        EXPECT_EQ(tally.emptied, 1) << entry.name;
    }
}

TEST(ExceptionAllocation, GivenTextIsEmptyWhenAllMemoryIsGone) {
    for (const Row& entry : rowsOfGivenTexts()) {
        FailingRun run(0, true);
        const Ending ending = entry.make(run);
        EXPECT_TRUE(ending.outcome.failed && !ending.outcome.threw) << entry.name;
        EXPECT_EQ(ending.text, "") << entry.name;
        EXPECT_NE(ending.line, 0u) << entry.name;
        EXPECT_EQ(tallyOf(entry, true).refused, 0) << entry.name;
    }
}

TEST(ExceptionAllocation, PlaceInADocumentIsKeptWithoutMemory) {
    std::optional<XmlParseLineColException> failure;
    {
        FailingAllocation failing(0, true);
        failure.emplace(site, longName, 3u, 14u);
    }
    EXPECT_EQ(failure->getLineNumber(), 3u);
    EXPECT_EQ(failure->getColumnNumber(), 14u);
    EXPECT_STREQ(failure->what(), "");
}

TEST_P(ExceptionAllocation, CloneOfEachClassIsNullWithoutMemoryForTheObject) {
    for (const ExceptionRow& entry : allExceptionRows()) {
        const std::unique_ptr<Exception> failure = entry.make();
        const long before = FailingAllocation::live();
        const Exception* clone = failure.get();
        {
            FailingAllocation failing(0, forEver());
            clone = failure->clone();
        }
        EXPECT_EQ(clone, nullptr) << entry.name;
        EXPECT_EQ(FailingAllocation::live(), before) << entry.name;
    }
}

// The text of the NullPointerException that an operation ends in when all memory is gone.
std::string textWithoutMemory(const auto& operation) {
    std::optional<NullPointerException> caught;
    try {
        FailingAllocation failing(0, true);
        operation();
    } catch (const NullPointerException& failure) {
        caught.emplace(failure);
    }
    return caught.has_value() ? caught->what() : "no exception";
}

TEST(ExceptionAllocation, NullCountingPointerThrowsAnEmptyTextWithoutMemory) {
    const CountingPointer<int> pointer;
    EXPECT_EQ(textWithoutMemory([&pointer] { pointer.operator->(); }), "");
}

struct Handle : HandleBase {
    using HandleBase::body;
};

TEST(ExceptionAllocation, InvalidHandleThrowsAnEmptyTextWithoutMemory) {
    const Handle handle;
    EXPECT_EQ(textWithoutMemory([&handle] { handle.body(); }), "");
}

}  // namespace
}  // namespace nolk
