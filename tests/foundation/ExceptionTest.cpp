#include <nolk/core/Exception.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>
#include <nolk/core/OutOfBoundsException.h>
#include <nolk/core/ThreadCreateException.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "SlotOrder.h"

namespace nolk {
namespace {

const ExceptionInfo site("site.cpp", 12, "void thrower()");

struct Settable : Exception {
    using Exception::Exception;
    using Exception::setMessage;
};

Exception withMessage(const ExceptionInfo& info, const char* text) {
    Settable result(info);
    result.setMessage(text);
    return result;
}

TEST(Exception, OfARecordAloneHasAnEmptyTextAndItsThrowSite) {
    const Exception failure(site);
    EXPECT_STREQ(failure.what(), "");
    EXPECT_STREQ(failure.getFileName(), "site.cpp");
    EXPECT_EQ(failure.getLineNumber(), 12u);
    EXPECT_STREQ(failure.getFunctionName(), "void thrower()");
}

TEST(Exception, OfANullRecordAnswersEmptyNames) {
    const Exception failure(ExceptionInfo(nullptr, 0, nullptr));
    EXPECT_STREQ(failure.getFileName(), "");
    EXPECT_STREQ(failure.getFunctionName(), "");
    EXPECT_EQ(failure.getLineNumber(), 0u);
}

TEST(Exception, OfAMessageHasTheBracketedKeyInFront) {
    const Exception failure(site, message(NOLK_CORE_BOUNDS_ILLEGAL_INDEX, 5, 3));
    EXPECT_STREQ(
        failure.what(),
        "[BOUNDS_ILLEGAL_INDEX] Illegal Index (5) for collection or string with 3 elements");
    EXPECT_EQ(failure.getLineNumber(), 12u);
}

TEST(Exception, OfATextHasTheTextAsGiven) {
    EXPECT_STREQ(Exception("plain %1% text").what(), "plain %1% text");
    EXPECT_STREQ(Exception(std::string("plain text")).what(), "plain text");
}

TEST(Exception, OfANullTextHasAnEmptyText) {
    EXPECT_STREQ(Exception(static_cast<const char*>(nullptr)).what(), "");
}

TEST(Exception, TextConstructorsRecordTheirOwnPlaces) {
    const Exception ofPointer("text");
    const Exception ofString(std::string("text"));
    const std::string pointerFunction = ofPointer.getFunctionName();
    const std::string stringFunction = ofString.getFunctionName();
    EXPECT_EQ(pointerFunction, "nolk::Exception::Exception(const char*)");
    EXPECT_EQ(stringFunction.rfind("nolk::Exception::Exception(const std::", 0), 0u)
        << stringFunction;
    for (const Exception* failure : {&ofPointer, &ofString}) {
        const std::string file = failure->getFileName();
        EXPECT_NE(file.find("foundation/Exception.cpp"), std::string::npos) << file;
        EXPECT_GT(failure->getLineNumber(), 0u);
    }
    EXPECT_NE(ofPointer.getLineNumber(), ofString.getLineNumber());
}

TEST(Exception, WhyIsAVirtualCallOfWhat) {
    struct Other : Exception {
        using Exception::Exception;
        const char* what() const noexcept override { return "other"; }
    };
    const Other failure("text");
    EXPECT_STREQ(static_cast<const Exception&>(failure).why(), "other");
    EXPECT_STREQ(Exception("text").why(), "text");
}

template <typename Class>
concept SetsMessages = requires(Class failure) {
    failure.setMessage("");
};
static_assert(!SetsMessages<Exception> && SetsMessages<Settable>);

TEST(Exception, SetMessageReplacesTheText) {
    Settable failure(site);
    std::string text = "first";
    failure.setMessage(text.c_str());
    text = "xxxxx";
    EXPECT_STREQ(failure.what(), "first");
    failure.setMessage("second");
    EXPECT_STREQ(failure.what(), "second");
}

TEST(Exception, SetMessageOfNullGivesAnEmptyText) {
    Settable failure("text");
    failure.setMessage(nullptr);
    EXPECT_STREQ(failure.what(), "");
}

TEST(Exception, SetMessageTakesItsOwnText) {
    Settable failure("text");
    failure.setMessage(failure.what() + 1);
    EXPECT_STREQ(failure.what(), "ext");
}

TEST(Exception, CopyHasTextAndRecordOfItsOwn) {
    auto source = std::make_unique<Exception>(withMessage(site, "text"));
    const Exception copy(*source);
    source.reset();
    EXPECT_STREQ(copy.what(), "text");
    EXPECT_STREQ(copy.getFileName(), "site.cpp");
    EXPECT_EQ(copy.getLineNumber(), 12u);
    EXPECT_STREQ(copy.getFunctionName(), "void thrower()");
}

TEST(Exception, AssignmentTakesTextAndRecord) {
    Exception target("old");
    {
        const Exception source = withMessage(site, "text");
        target = source;
    }
    EXPECT_STREQ(target.what(), "text");
    EXPECT_STREQ(target.getFileName(), "site.cpp");
    EXPECT_EQ(target.getLineNumber(), 12u);
    EXPECT_STREQ(target.getFunctionName(), "void thrower()");
}

TEST(Exception, AssignmentOfAnUnsetTextEmptiesTheText) {
    Exception target("old");
    target = Exception(site);
    EXPECT_STREQ(target.what(), "");
}

TEST(Exception, AssignmentToItselfChangesNothing) {
    Exception failure = withMessage(site, "text");
    const Exception& same = failure;
    failure = same;
    EXPECT_STREQ(failure.what(), "text");
    EXPECT_STREQ(failure.getFunctionName(), "void thrower()");
}

TEST(ExceptionEquality, HoldsForEqualTextsAndRecords) {
    const Exception left = withMessage(site, "text");
    const Exception right = withMessage(site, "text");
    EXPECT_TRUE(left == right);
    EXPECT_FALSE(left != right);
}

TEST(ExceptionEquality, FailsForADifferenceInAnyOfTheFour) {
    const Exception left = withMessage(ExceptionInfo("a", 1, "f"), "text");
    const Exception others[] = {
        withMessage(ExceptionInfo("a", 1, "f"), "Text"),
        withMessage(ExceptionInfo("b", 1, "f"), "text"),
        withMessage(ExceptionInfo("a", 2, "f"), "text"),
        withMessage(ExceptionInfo("a", 1, "g"), "text"),
    };
    for (const Exception& other : others) {
        EXPECT_FALSE(left == other);
        EXPECT_TRUE(left != other);
    }
}

TEST(ExceptionEquality, UnsetAndEmptyTextAreEqual) {
    EXPECT_TRUE(Exception(site) == withMessage(site, ""));
    EXPECT_TRUE(withMessage(site, "") == Exception(site));
    EXPECT_TRUE(Exception(site) == Exception(site));
}

TEST(ExceptionEquality, IgnoresTheClassAndWhatItAdds) {
    const ThreadCreateException thread(site, "no more");
    const Exception plain = withMessage(site, "Thread Create Failed: no more");
    EXPECT_TRUE(thread == plain);
    EXPECT_TRUE(plain == thread);
    EXPECT_FALSE(thread != plain);
    EXPECT_FALSE(plain != thread);
}

// Equal to everything, so that a test sees whose comparison ran.
struct AlwaysEqual : Exception {
    using Exception::Exception;
    bool operator==(Exception) const override { return true; }
};

TEST(ExceptionEquality, IsTheLeftOperandsVirtualOperation) {
    const AlwaysEqual always("left");
    const Exception& left = always;
    const Exception right("right");
    EXPECT_TRUE(left == right);
    EXPECT_FALSE(right == left);
}

TEST(ExceptionEquality, InequalityNegatesTheVirtualEquality) {
    const AlwaysEqual always("left");
    const Exception& left = always;
    const Exception right("right");
    EXPECT_FALSE(left != right);
    EXPECT_TRUE(right != left);
}

struct NeverEqual : Exception {
    using Exception::Exception;
    bool operator==(Exception) const override { return false; }
};

// The operands by themselves have classes of their own, between which a compiler may choose.
TEST(ExceptionEquality, ThroughReferencesTheLeftOperandDecidesWhateverTheRightOneIs) {
    const AlwaysEqual always("text");
    const NeverEqual never("text");
    const Exception plain("text");
    const Exception& asAlways = always;
    const Exception& asNever = never;
    EXPECT_TRUE(asAlways == asNever);
    EXPECT_FALSE(asNever == asAlways);
    EXPECT_FALSE(asAlways != asNever);
    EXPECT_TRUE(asNever != asAlways);
    EXPECT_TRUE(asAlways == Exception("other"));
    EXPECT_FALSE(Exception("other") == asAlways);
    EXPECT_TRUE(plain == asNever) << "the same constructor, and the same text";
    EXPECT_FALSE(asNever == plain);
}

struct AlwaysUnequal : Exception {
    using Exception::Exception;
    bool operator!=(Exception) const override { return true; }
};

TEST(ExceptionEquality, InequalityIsNeverWrittenAsANegatedEquality) {
    const AlwaysUnequal odd("text");
    const Exception& left = odd;
    EXPECT_TRUE(left == left);
    EXPECT_TRUE(left != left);
}

TEST(ExceptionEquality, WorksOnObjectsThatMayChangeToo) {
    Exception left("a");
    Exception right("b");
    EXPECT_FALSE(left == right);
    EXPECT_TRUE(left != right);
}

TEST(Exception, HoldsItsTextAndItsRecordOnly) {
    EXPECT_EQ(sizeof(Exception), sizeof(std::exception) + sizeof(char*) + sizeof(ExceptionInfo));
}

TEST(Exception, VirtualsKeepTheirSlotOrder) {
    EXPECT_EQ(slotOf(&Exception::what), 2u);
    EXPECT_EQ(slotOf(&Exception::operator==), 3u);
    EXPECT_EQ(slotOf(&Exception::operator!=), 4u);
    EXPECT_EQ(slotOf(&Exception::why), 5u);
    EXPECT_EQ(slotOf(&Exception::raise), 6u);
    EXPECT_EQ(slotOf(&Exception::clone), 7u);
}

TEST(Exception, IsCaughtAsAStandardException) {
    try {
        throw OutOfBoundsException(site, message(NOLK_CORE_INVALID_USAGE));
    } catch (const std::exception& failure) {
        EXPECT_STREQ(failure.what(), "[INVALID_USAGE] Invalid Usage");
    }
}

TEST(Exception, CrossesThreadsByCloneAndRaise) {
    std::unique_ptr<Exception> carried;
    std::thread thrower([&carried] {
        try {
            throw OutOfBoundsException(here(), message(NOLK_CORE_INVALID_USAGE));
        } catch (const Exception& failure) {
            carried.reset(failure.clone());
        }
    });
    thrower.join();
    try {
        carried->raise();
        FAIL() << "raise returned";
    } catch (const OutOfBoundsException& failure) {
        EXPECT_STREQ(failure.what(), "[INVALID_USAGE] Invalid Usage");
        EXPECT_NE(failure.getLineNumber(), 0u);
    }
}

TEST(Exception, ReadersRunInSeveralThreads) {
    const Exception failure = withMessage(site, "text");
    std::vector<std::thread> threads;
    std::vector<int> agreed(4, 0);
    for (int& count : agreed) {
        threads.emplace_back([&failure, &count] {
            for (int round = 0; round < 500; ++round) {
                count += std::string(failure.what()) == "text" && failure.getLineNumber() == 12;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(agreed, std::vector<int>(4, 500));
}

}  // namespace
}  // namespace nolk
