#include <nolk/core/UConverter.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

namespace nolk {
namespace {

// Tells what it was asked, and when it goes.
class EchoConverter : public UConverter {
public:
    explicit EchoConverter(bool& gone) : gone_(&gone) {}
    ~EchoConverter() override { *gone_ = true; }

    std::string convert(const std::string& text, const std::string& from,
                        const std::string& to) const override {
        return text + " from " + from + " to " + to;
    }

private:
    bool* gone_;
};

TEST(UConverter, IsCalledThroughItsInterface) {
    bool gone = false;
    const EchoConverter echo(gone);
    const UConverter& converter = echo;
    EXPECT_EQ(converter.convert("text", "ISO-8859-15", "UTF-8"), "text from ISO-8859-15 to UTF-8");
}

TEST(UConverter, IsDeletedThroughItsInterface) {
    bool gone = false;
    std::unique_ptr<UConverter> converter = std::make_unique<EchoConverter>(gone);
    converter.reset();
    EXPECT_TRUE(gone);
}

TEST(UConverter, IsAbstractAndMayBeCopiedByImplementations) {
    EXPECT_TRUE(std::is_abstract_v<UConverter>);
    EXPECT_TRUE(std::is_copy_constructible_v<EchoConverter>);
    EXPECT_TRUE(std::is_copy_assignable_v<EchoConverter>);
}

}  // namespace
}  // namespace nolk
