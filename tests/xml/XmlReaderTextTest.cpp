#include <nolk/core/XmlReader.h>
#include <nolk/core/XmlReaderText.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace nolk {
namespace {

TEST(XmlReaderText, HasNoBytesByDefaultAndAfterReset) {
    XmlReaderText text;
    EXPECT_EQ(text.get(), nullptr);
    text = XmlReaderText(3);
    EXPECT_NE(text.get(), nullptr);
    text.reset();
    EXPECT_EQ(text.get(), nullptr);
}

TEST(XmlReaderText, CopiesShareTheBytesAndKeepThem) {
    XmlReaderText first(1);
    XmlReaderText second(first);
    EXPECT_TRUE(first == second);
    *first.get() = 'x';
    first.reset();
    EXPECT_EQ(*second.get(), 'x');
}

TEST(XmlReaderText, MovingLeavesNothingBehind) {
    XmlReaderText first(1);
    char* const bytes = first.get();
    const XmlReaderText second(std::move(first));
    EXPECT_EQ(second.get(), bytes);
    EXPECT_EQ(first.get(), nullptr);
}

TEST(XmlReaderText, ReadersOfOneTextMayBeDroppedInSeveralThreads) {
    for (int round = 0; round < 50; ++round) {
        XmlReader parent(std::string("<a><b>1</b><b>2</b><b>3</b><b>4</b></a>"));
        parent.readElementStart("a");
        std::vector<XmlReader> children;
        for (int i = 0; i < 4; ++i) {
            children.push_back(parent.getElementReader("b"));
        }
        std::vector<std::thread> threads;
        for (XmlReader& child : children) {
            threads.emplace_back([&child] { child = XmlReader(); });
        }
        parent = XmlReader();
        for (std::thread& thread : threads) {
            thread.join();
        }
        for (const XmlReader& child : children) {
            EXPECT_FALSE(child.isValid());
        }
    }
}

}  // namespace
}  // namespace nolk
