#include "parse/core/local_time.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>

namespace qmx::test {
namespace {

// The C library's conversion knows the same zone.
std::string Expected(std::time_t seconds) {
    char text[32];
    std::strftime(text, sizeof text, "%Y/%m/%d %H:%M:%S", std::localtime(&seconds));
    return text;
}

TEST(LocalTime, IsTheUsersOwn) {
    // Winter and summer, so that daylight saving would show; the last moment is behind 32 bits.
    for (const std::int64_t seconds : {978309395ll, 1247000000ll, 1259413520ll, 4294967296ll}) {
        char text[32] = {};
        EXPECT_TRUE(FormatLocalTime(seconds, text));
        EXPECT_EQ(text, Expected(static_cast<std::time_t>(seconds)));
    }
}

TEST(LocalTime, RefusesWhatIsNoDate) {
    for (const std::int64_t seconds : {INT64_MIN, std::int64_t{-1}, std::int64_t{253402300800},
                                       std::int64_t{1} << 60, INT64_MAX}) {
        char text[32] = "unchanged";
        EXPECT_FALSE(FormatLocalTime(seconds, text));
        EXPECT_STREQ(text, "unchanged");
    }
    char small[kLocalTimeCapacity - 1] = {};
    EXPECT_FALSE(FormatLocalTime(0, small));
    EXPECT_STREQ(small, "");
}

}  // namespace
}  // namespace qmx::test
