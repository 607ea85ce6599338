#include <nolk/core/DecimalParserBase.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace nolk {
namespace {

// Characters that come in pieces.
class PieceParser : public DecimalParserBase {
public:
    explicit PieceParser(std::vector<std::string> pieces) : pieces_(std::move(pieces)) {}

    using DecimalParserBase::parse;
    using DecimalParserBase::value;

    int getc() const override {
        return piece_ < pieces_.size() ? static_cast<unsigned char>(pieces_[piece_][place_])
                                       : end();
    }

    int nextc() override {
        if (piece_ < pieces_.size() && ++place_ == pieces_[piece_].size()) {
            place_ = 0;
            ++piece_;
        }
        return getc();
    }

private:
    std::vector<std::string> pieces_;
    std::size_t piece_ = 0;
    std::size_t place_ = 0;
};

TEST(DecimalParserBase, IsAbstract) {
    EXPECT_TRUE(std::is_abstract_v<DecimalParserBase>);
    EXPECT_TRUE(std::has_virtual_destructor_v<DecimalParserBase>);
}

TEST(DecimalParserBase, ReadsFromAnySource) {
    PieceParser parser({"$ -1", "2", ",3", "4.", "5%"});
    EXPECT_TRUE(parser.parse());
    EXPECT_EQ(parser.value().asString(), "-0012.345");
}

TEST(DecimalParserBase, GoesOnWhereItStopped) {
    PieceParser parser({"1 2", " 3 x"});
    for (const char* expected : {"1", "2", "3", "(NaN)"}) {
        EXPECT_TRUE(parser.parse());
        EXPECT_EQ(parser.value().asString(), expected);
    }
}

TEST(DecimalParserBase, TellsWhetherTheTextHasTheForm) {
    const struct {
        const char* text;
        bool good;
    } rows[] = {{"1", true},  {"abc", true}, {"(1)", true},    {"(NaN)", true},  {"%", true},
                {"(", false}, {" ", false},  {"(1", false},    {"(abc)", false}, {"-", false},
                {"$", false}, {"()", true},  {"(nil)", false}, {"(-", false}};
    for (const auto& row : rows) {
        PieceParser parser({row.text});
        EXPECT_EQ(parser.parse(), row.good) << row.text;
        EXPECT_EQ(parser.value().isNumber(),
                  row.good && std::string(row.text).find('1') != std::string::npos);
    }
}

}  // namespace
}  // namespace nolk
