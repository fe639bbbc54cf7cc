// Decimal numbers at the front of a text.

#include "parse/core/decimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <random>
#include <string>

namespace qmx::test {
namespace {

TEST(Decimal, TakesWhatItReads) {
    struct Case {
        std::string_view text;
        bool taken;
        float number;
        std::string_view rest;
    };
    // clang-format off
    const Case cases[] = {
        {"0", true, 0, ""}, {"24.2", true, 24.2f, ""}, {"1/180", true, 1, "/180"},
        {"-.5x", true, -0.5f, "x"}, {"7.", true, 7, ""}, {"1.25e-3 2", true, 0.00125f, " 2"},
        {"1E+2", true, 100, ""}, {"3e", true, 3, "e"}, {"3e+", true, 3, "e+"},
        {"0e99999999999", true, 0, ""}, {"1e-99999999999", true, 0, ""},
        {"340282346638528859811704183484516925440", true, 3.4028235e38f, ""},
        {"0.000000000000000000000000000000000000000000001401298464324817", true, 1.4e-45f, ""},
        {"", false, 9, ""}, {"-", false, 9, "-"}, {".", false, 9, "."}, {"e5", false, 9, "e5"},
        {" 1", false, 9, " 1"}, {"+1", false, 9, "+1"}, {"inf", false, 9, "inf"},
        {"1e39", false, 9, "1e39"}, {"1e99999999999", false, 9, "1e99999999999"},
    };
    // clang-format on
    for (const Case& c : cases) {
        std::string_view text = c.text;
        float number = 9;
        EXPECT_EQ(TakeDecimal(text, number), c.taken) << c.text;
        EXPECT_EQ(number, c.number) << c.text;
        EXPECT_EQ(text, c.rest) << c.text;
    }
    std::string zeros(5000, '0');
    for (const std::string& longText : {zeros + "1.5", "1.5" + zeros, "." + zeros + "1"}) {
        std::string_view text = longText;
        float number = 9;
        EXPECT_TRUE(TakeDecimal(text, number));
        EXPECT_EQ(number, longText[0] == '.' ? 0 : 1.5f);
        EXPECT_TRUE(text.empty());
    }
}

// Shortest texts of floats come back as the same floats.
TEST(Decimal, ReadsEveryFloatThatIsWritten) {
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i) {
        const auto written =
            static_cast<float>(std::bit_cast<std::int32_t>(static_cast<std::uint32_t>(random())) /
                               std::pow(10.0, static_cast<int>(random() % 20)));
        char buffer[64];
        const auto end = std::to_chars(std::begin(buffer), std::end(buffer), written).ptr;
        std::string_view text(buffer, static_cast<std::size_t>(end - buffer));
        float read = 0;
        EXPECT_TRUE(TakeDecimal(text, read));
        EXPECT_EQ(read, written) << buffer;
    }
}

}  // namespace
}  // namespace qmx::test
