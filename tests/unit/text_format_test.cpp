// The exact forms of single values, and the bounds of the buffer they are composed in.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "support/utf8.h"
#include "text/lens_text.h"
#include "text/value_format.h"

namespace qmx::test {
namespace {

template <class Format, class... Values>
std::string Formatted(Format format, Values... values) {
    wchar_t storage[kValueCapacity];
    TextBuffer text(storage);
    format(text, values...);
    return Utf8(text.Text());
}

struct FloatCase {
    float value;
    const char* text;
};

template <class Format, std::size_t Count>
void ExpectTexts(Format format, const FloatCase (&cases)[Count]) {
    for (const FloatCase& c : cases) EXPECT_EQ(Formatted(format, c.value), c.text) << c.value;
}

TEST(TextBuffer, CutsAndTerminatesWithinItsStorage) {
    wchar_t storage[] = {L'?', L'?', L'?', L'?', L'#'};
    TextBuffer text(std::span(storage, 4));
    EXPECT_EQ(text.Append(L"絞").Append(nullptr).AppendInteger(-250).Append(L'x').Length(), 3u);
    EXPECT_EQ(Utf8(text.Text()), "絞-2");
    EXPECT_EQ(storage[3], 0);
    EXPECT_EQ(storage[4], L'#');
    text.Truncate(9);
    text.Truncate(1);
    EXPECT_EQ(Utf8(text.AppendHex(0xAB, 2).Text()), "絞AB");

    wchar_t single[] = {L'?', L'#'};
    EXPECT_TRUE(TextBuffer(std::span(single, 1)).Append(L"long").Append(L'x').IsEmpty());
    EXPECT_EQ(single[0], 0);
    EXPECT_EQ(single[1], L'#');
}

TEST(TextBuffer, WritesIntegersOfEverySize) {
    wchar_t storage[kValueCapacity];
    TextBuffer text(storage);
    text.AppendInteger(INT32_MIN).Append(L'|').AppendInteger(7, 3).Append(L'|');
    text.AppendInteger(-7, 3).Append(L'|').AppendInteger(1000, 3).Append(L'|');
    text.AppendUnsigned(UINT64_MAX).Append(L'|').AppendUnsigned(5, 2).Append(L'|');
    text.AppendHex(0xFFFFFFFF).Append(L'|').AppendHex(0, 2);
    EXPECT_EQ(Utf8(text.Text()), "-2147483648|  7| -7|1000|18446744073709551615|05|FFFFFFFF|00");
}

TEST(ValueFormat, Integers) {
    EXPECT_EQ(Formatted(FormatInteger, -5, L"K"), "-5K");
    EXPECT_EQ(Formatted(FormatHex, 0xBEEFu), "BEEF");
    EXPECT_EQ(Formatted(FormatIntegerPair, 4272, -1), "4272, -1");
    EXPECT_EQ(Formatted(FormatSignedInteger, 0, L"K"), "±0K");
    EXPECT_EQ(Formatted(FormatSignedInteger, 300, L"K"), "+300K");
    EXPECT_EQ(Formatted(FormatSignedInteger, -150, nullptr), "-150");
    EXPECT_EQ(Formatted(FormatDistance, 1500), "1.5m");
    EXPECT_EQ(Formatted(FormatDistance, 1000), "1.0m");
    EXPECT_EQ(Formatted(FormatDistance, 450), "45.0cm");
    EXPECT_EQ(Formatted(FormatDistance, -7), "0.7cm");
}

// clang-format off
TEST(ValueFormat, Decimals) {
    ExpectTexts([](TextBuffer& dst, float v) { FormatTenths(dst, v); },
                {{2.59f, "2.5"}, {-0.5f, "0.5"}, {-1.5f, "-1.5"}, {0.0f, "0.0"}});
    ExpectTexts([](TextBuffer& dst, float v) { FormatRoundedTenths(dst, v, L"m"); },
                {{1.25f, "1.3m"}, {-1.25f, "-1.3m"}, {3.5f, "3.5m"}, {2.96f, "3.0m"}});
    ExpectTexts([](TextBuffer& dst, float v) { FormatHundredths(dst, v, L"m"); },
                {{1.005f, "1.01m"}, {2.2f, "2.20m"}, {0.0f, "0.00m"}, {-1.258f, "-1.25m"}});
    ExpectTexts(
        [](TextBuffer& dst, float v) { FormatWholeOrTenths(dst, v, L"mm"); },
        {{18, "18mm"}, {18.04f, "18mm"}, {18.2f, "18.2mm"}, {4.99f, "5.0mm"}, {-2.5f, "-2mm"}});
    ExpectTexts(FormatExposureBias,
                {{0.0f, "±0"}, {-0.0f, "±0"}, {0.3f, "+0.3EV"}, {-1.0f, "-1.0EV"},
                 {-0.33f, "-0.3EV"}, {0.67f, "+0.7EV"}, {1.25f, "+1.3EV"}});
    ExpectTexts(FormatZoomRatio,
                {{2, "2.0倍"}, {1.25f, "1.3倍"}, {0, "オフ"}, {-1, "オフ"}});
    ExpectTexts(FormatExposureTime,
                {{0.004f, "1/250秒"}, {1.0f / 60, "1/60秒"}, {0.29f, "1/3秒"}, {0.3f, "0.3秒"},
                 {0.5f, "0.5秒"}, {0.96f, "1秒"}, {1, "1秒"}, {1.25f, "1.3秒"}, {2.5f, "2.5秒"},
                 {30, "30秒"}, {1e-30f, "1/-2147483648秒"}});
    ExpectTexts(FormatFNumber,
                {{2.8f, "F2.8"}, {4, "F4"}, {5.6f, "F5.6"}, {9.96f, "F10"}, {10, "F10"},
                 {11.3f, "F11"}, {22.6f, "F23"}, {0.95f, "F1"}});
}
// clang-format on

TEST(ValueFormat, DigitsStayDigitsForEveryFloat) {
    const float limits[] = {1e10f,
                            1e37f,
                            std::numeric_limits<float>::max(),
                            -1e30f,
                            std::numeric_limits<float>::infinity(),
                            std::nanf("")};
    for (const float value : limits) {
        EXPECT_LT(TenthsDigit(value), 10u) << value;
        EXPECT_LT(HundredthsDigits(value), 100u) << value;
    }
    EXPECT_EQ(Formatted(FormatExposureBias, std::nanf("")), "+-2147483648.0EV");
    EXPECT_EQ(Formatted(FormatTenths, limits[4], L"m"), "-2147483648.0m");
}

TEST(ValueFormat, GpsCoordinates) {
    EXPECT_EQ(Formatted(FormatGpsCoordinate, 35.0f, 39.0f, 29.15f, "N"),
              "N 35度39分29.15秒 (35.658096)");
    EXPECT_EQ(Formatted(FormatGpsCoordinate, 139.5f, 0.0f, 0.0f, "\xFF"),
              "FF, 139度0分0.00秒 (139.500000)");
    EXPECT_EQ(Formatted(FormatGpsCoordinate, 1.0f, 0.0f, 0.0f, ""), " 1度0分0.00秒 (1.000000)");
    EXPECT_EQ(Formatted(FormatGpsCoordinate, 0.99f, 59.0f, 59.0f, "N"), " - ");
}

TEST(ValueFormat, MakerStringsAreAsciiOrHex) {
    struct Case {
        std::string text;
        std::size_t capacity;
        const char* expected;
    };
    const Case cases[] = {
        {"Canon", 260, "Canon"},
        {"Canon", 4, "Can"},
        {"Canon", 1, ""},
        {"Canon", 0, ""},
        {" ~", 260, " ~"},
        {"", 260, ""},
        {"A\n", 260, "41,0A,"},
        {"A\x7F", 260, "41,7F,"},
        {"\xE7\xB5", 260, "E7,B5,"},
        {"A\x80Z", 7, "41,80,"},
        {"A\x80Z", 6, "41,"},
        {"A\x80Z", 3, ""},
        {std::string(32, '\t'), 32, "09,09,09,09,09,09,09,09,09,09,"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Formatted(WidenMakerString, std::string_view(c.text), c.capacity), c.expected);
    }
}

TEST(ValueFormat, ExifDates) {
    const SYSTEMTIME untouched = {1, 2, 3, 4, 5, 6, 7, 8};
    const auto parse = [&](std::string_view text) {
        SYSTEMTIME t = untouched;
        ParseExifDateTime(text, &t);
        std::string fields;
        for (const int field : {+t.wYear, +t.wMonth, +t.wDayOfWeek, +t.wDay, +t.wHour, +t.wMinute,
                                +t.wSecond, +t.wMilliseconds}) {
            fields += std::to_string(field) + ' ';
        }
        return fields;
    };
    EXPECT_EQ(parse("2014:05:06 07:08:09"), "2014 5 0 6 7 8 9 0 ");
    EXPECT_EQ(parse("20140506-070809.123"), "2014 5 0 6 7 8 9 0 ");
    EXPECT_EQ(parse("2014:13:45 25:61:99"), "2014 13 0 45 25 61 99 0 ");
    EXPECT_EQ(parse("2014:05:06 07:08:0"), "0 0 0 0 0 0 0 0 ");
    EXPECT_EQ(parse("    :  :     :  :  "), "0 0 0 0 0 0 0 0 ");
    EXPECT_EQ(parse(""), "1 2 3 4 5 6 7 8 ");
    ParseExifDateTime("2014:05:06 07:08:09", nullptr);
}

TEST(LensText, RangesReadAsLenses) {
    const auto nikon = [](std::int32_t type, const float(&range)[4]) {
        wchar_t storage[kValueCapacity];
        TextBuffer text(storage);
        return Utf8(FormatNikonLensText(text, type, range).Text());
    };
    EXPECT_EQ(nikon(14, {18, 200, 3.5f, 5.6f}), "AF VR 18-200mm F3.5-5.6G");
    EXPECT_EQ(nikon(1, {18, 55, 3.5f, 3.5f}), "MF 18-55mm F3.5");
    EXPECT_EQ(nikon(3, {50, 50, 1.8f, 1.8f}), "AF 50mm F1.8D");
    EXPECT_EQ(nikon(0, {50, 50, 1.8f, 2.8f}), "AF 50mm F1.8");
    EXPECT_EQ(Formatted(FormatLensRange, 14, 42, 3.5f, 5.6f), "14-42mm F3.5-5.6");
    EXPECT_EQ(Formatted(FormatLensRange, 18, 55, 2.8f, 2.8f), "18-55mm F2.8");
    EXPECT_EQ(Formatted(FormatLensRange, 25, 25, 1.25f, 1.25f), "25mm F1.3");
    EXPECT_EQ(Formatted(FormatLensRange, 14, 42, 3.5f, std::numeric_limits<float>::max()),
              "14-42mm");
}

}  // namespace
}  // namespace qmx::test
