#include <nolk/core/Converters.h>
#include <nolk/core/Exception.h>

#include <gtest/gtest.h>

#include <string>

namespace nolk {
namespace {

std::string read(const std::string& text) {
    try {
        return Converters::convertStringToBool(text) ? "yes" : "no";
    } catch (const Exception& failure) {
        return failure.what();
    }
}

struct Row {
    std::string text;
    std::string result;
};

TEST(Converters, ABooleanHasFourSpellingsAmongSpaces) {
    const Row rows[] = {
        {"true", "yes"}, {"1", "yes"},      {"false", "no"},   {"0", "no"},
        {" 1 ", "yes"},  {"  true", "yes"}, {"false  ", "no"}, {"   0   ", "no"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(read(row.text), row.result) << row.text;
    }
}

TEST(Converters, AnyOtherTextIsNoBooleanAndToldWithoutItsSpaces) {
    const Row rows[] = {
        {"TRUE", "TRUE"}, {"True", "True"},     {"FALSE", "FALSE"},    {"yes", "yes"},
        {"2", "2"},       {"00", "00"},         {"01", "01"},          {"true1", "true1"},
        {"tru", "tru"},   {"t rue", "t rue"},   {"  tr ue ", "tr ue"}, {"", ""},
        {"   ", ""},      {"\ttrue", "\ttrue"}, {"true\n", "true\n"},  {" 1\r ", "1\r"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(read(row.text), "[INVALID_BOOLEAN] Invalid boolean: " + row.result) << row.text;
    }
}

TEST(Converters, AZeroByteIsAByteLikeAnyOther) {
    EXPECT_THROW(Converters::convertStringToBool(std::string("true\0", 5)), Exception);
    EXPECT_THROW(Converters::convertStringToBool(std::string("\0", 1)), Exception);
}

TEST(Converters, LeaveTheirArgumentAlone) {
    const std::string text = " true ";
    Converters::convertStringToBool(text);
    EXPECT_EQ(text, " true ");
}

}  // namespace
}  // namespace nolk
