#include <nolk/core/Exception.h>
#include <nolk/core/ExceptionInfo.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <type_traits>

namespace nolk {
namespace {

// A record is read through an exception that holds it.
std::string shown(const ExceptionInfo& info) {
    const Exception holder(info);
    return std::string(holder.getFileName()) + "|" + std::to_string(holder.getLineNumber()) + "|" +
           holder.getFunctionName();
}

TEST(ExceptionInfo, DefaultHasLineZeroAndEmptyTexts) {
    EXPECT_EQ(shown(ExceptionInfo()), "|0|");
}

TEST(ExceptionInfo, KeepsFileLineAndFunction) {
    EXPECT_EQ(shown(ExceptionInfo("a.cpp", 42, "void f()")), "a.cpp|42|void f()");
}

TEST(ExceptionInfo, NullPointersGiveEmptyTexts) {
    EXPECT_EQ(shown(ExceptionInfo(nullptr, 7, nullptr)), "|7|");
    EXPECT_EQ(shown(ExceptionInfo("a", 7, nullptr)), "a|7|");
    EXPECT_EQ(shown(ExceptionInfo(nullptr, 7, "f")), "|7|f");
}

TEST(ExceptionInfo, NeverKeepsAPointerThatItWasGiven) {
    char file[] = "file";
    char function[] = "function";
    const ExceptionInfo info(file, 1, function);
    std::memset(file, 'x', 4);
    std::memset(function, 'x', 8);
    EXPECT_EQ(shown(info), "file|1|function");
}

TEST(ExceptionInfo, CopyOutlivesItsSource) {
    auto* source = new ExceptionInfo("a.cpp", 42, "void f()");
    const ExceptionInfo copy(*source);
    delete source;
    EXPECT_EQ(shown(copy), "a.cpp|42|void f()");
}

TEST(ExceptionInfo, AssignmentReplacesAllThree) {
    ExceptionInfo target("old.cpp", 1, "void old()");
    {
        const ExceptionInfo source("new.cpp", 2, "void now()");
        target = source;
    }
    EXPECT_EQ(shown(target), "new.cpp|2|void now()");
}

TEST(ExceptionInfo, AssignmentToItselfChangesNothing) {
    ExceptionInfo info("a.cpp", 42, "void f()");
    const ExceptionInfo& same = info;
    info = same;
    EXPECT_EQ(shown(info), "a.cpp|42|void f()");
}

TEST(ExceptionInfo, HasAVirtualDestructorAndItsThreeFieldsOnly) {
    EXPECT_TRUE(std::has_virtual_destructor_v<ExceptionInfo>);
    EXPECT_EQ(sizeof(ExceptionInfo), 4 * sizeof(void*));
}

TEST(ExceptionInfo, HoldsLineFileAndFunctionInThisOrder) {
    const ExceptionInfo info("a.cpp", 42, "void f()");
    struct Words {
        void* virtuals;
        unsigned long line;
        const char* file;
        const char* function;
    } words;
    static_assert(sizeof words == sizeof info);
    std::memcpy(&words, &info, sizeof words);
    EXPECT_EQ(words.line, 42u);
    EXPECT_STREQ(words.file, "a.cpp");
    EXPECT_STREQ(words.function, "void f()");
}

TEST(Here, RecordsThePlaceThatCallsIt) {
    const Exception thrown(here());
    const unsigned long line = __LINE__ - 1;
    EXPECT_EQ(thrown.getLineNumber(), line);
    EXPECT_STREQ(thrown.getFileName(), __FILE__);
    EXPECT_STREQ(thrown.getFunctionName(), __PRETTY_FUNCTION__);
}

int withLongSignature(const std::string&, unsigned, Exception& out) {
    out = Exception(here());
    return 0;
}

TEST(Here, RecordsTheFullSignature) {
    Exception thrown("");
    withLongSignature("", 0, thrown);
    const std::string function = thrown.getFunctionName();
    EXPECT_EQ(function.rfind("int nolk::", 0), 0u) << function;
    EXPECT_NE(function.find("withLongSignature("), std::string::npos) << function;
    EXPECT_NE(function.find("unsigned int"), std::string::npos) << function;
    EXPECT_NE(function.find("Exception&)"), std::string::npos) << function;
}

TEST(MakeCopy, DuplicatesTheText) {
    char text[] = "text";
    char* copy = makeCopy(text);
    text[0] = 'x';
    EXPECT_STREQ(copy, "text");
    EXPECT_NE(static_cast<const void*>(copy), text);
    freeCopy(copy);
}

TEST(MakeCopy, NullGivesAnEmptyTextOfItsOwn) {
    char* copy = makeCopy(nullptr);
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy, "");
    copy[0] = '\0';
    freeCopy(copy);
}

TEST(MakeCopy, EmptyTextGivesACopyOfItsOwn) {
    char* copy = makeCopy("");
    char* other = makeCopy("");
    EXPECT_STREQ(copy, "");
    EXPECT_NE(copy, other);
    freeCopy(copy);
    freeCopy(other);
}

TEST(FreeCopy, LeavesNullAlone) {
    freeCopy(nullptr);
}

}  // namespace
}  // namespace nolk
