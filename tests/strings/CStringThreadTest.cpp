// Copies of one string in several threads. The thread sanitizer sees more than the checks here.

#include <nolk/core/CString.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "CStringSupport.h"

namespace nolk {

using namespace test;
namespace {

constexpr unsigned threadCount = 4;
constexpr unsigned rounds = 2000;
const std::string content(200, 'x');

template <typename Work>
void inThreads(const Work& work) {
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < threadCount; ++i) {
        threads.emplace_back(work, i);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(CStringThread, CopiesOfOneStringAreMadeAndDropped) {
    const CString text(content);
    std::atomic<unsigned> wrong = 0;
    inThreads([&](unsigned) {
        for (unsigned i = 0; i < rounds; ++i) {
            const CString copy(text);
            const CString another(copy);
            wrong += another.view() != content ? 1 : 0;
        }
    });
    EXPECT_EQ(wrong, 0u);
    EXPECT_EQ(text.view(), content);
}

TEST(CStringThread, WritingACopyIsSeenByNobodyElse) {
    const CString text(content);
    std::atomic<unsigned> wrong = 0;
    inThreads([&](unsigned number) {
        const char mark = static_cast<char>('a' + number);
        for (unsigned i = 0; i < rounds; ++i) {
            CString copy(text);
            copy(i % 200) = mark;
            copy += mark;
            wrong += copy.last(mark) != 200 || copy.first(mark) != i % 200 ? 1 : 0;
        }
    });
    EXPECT_EQ(wrong, 0u);
    EXPECT_EQ(text.view(), content);
}

// Whoever drops its copy last frees the buffer; whoever writes while others drop theirs may find
// itself alone with what they have read.
TEST(CStringThread, LastOfTheCopiesKeepsOrFreesTheBuffer) {
    for (unsigned round = 0; round < 200; ++round) {
        std::vector<CString> copies(threadCount, CString(content));
        std::atomic<unsigned> wrong = 0;
        inThreads([&](unsigned number) {
            CString own(std::move(copies[number]));
            wrong += own.view() != content ? 1 : 0;
            own(0) = 'y';
            wrong += own.view().substr(1) != content.substr(1) ? 1 : 0;
        });
        ASSERT_EQ(wrong, 0u);
    }
}

}  // namespace
}  // namespace nolk
