// The caller's record: values, fall-backs and both texts, and what must not be written.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "support/exports.h"
#include "support/utf8.h"
#include "text/summary.h"

namespace qmx::test {
namespace {

// clang-format off
const ImageInfo kSample = {
    .cameraMake = "Make", .cameraModel = "Model", .isoSpeed = 200, .exposureProgram = 2, .flash = 1,
    .exposureTime = 0.004f, .fNumber = 5.6f, .exposureBias = 0.3f};
// clang-format on

TEST(Summary, FillsEveryValue) {
    ImageInfo info = kSample;
    info.orientation = 6;
    info.pixelXDimension = 4272;
    info.pixelYDimension = 2848;
    info.focalLength = 18.0f;
    info.focalLengthIn35mm = 29.0f;
    info.meteringMode = 5;
    info.whiteBalance = 1;
    info.maxAperture = 3.5f;
    std::strcpy(info.dateTimeOriginal, "2008:07:31 12:34:56");
    Caller caller(nullptr);
    InfoRequest& r = caller.record;
    std::memset(r.reserved, 0xA5, sizeof r.reserved);
    BuildSummary(info, &r);
    EXPECT_EQ(Utf8(r.makeText) + "|" + Utf8(r.modelText) + "|" + Utf8(r.whiteBalanceText),
              "Make|Model|マニュアル");
    const INT32 integers[] = {r.imageWidth,         r.imageHeight,       r.exposureProgram,
                              r.isoSpeed,           r.meteringMode,      r.whiteBalance,
                              INT32(r.orientation), INT32(r.flashFired), r.captureTime.wYear,
                              r.captureTime.wSecond};
    EXPECT_TRUE(std::ranges::equal(integers, std::array{4272, 2848, 2, 200, 5, 1, 6, 1, 2008, 56}));
    const float floats[] = {r.focalLength,  r.focalLength35mm, r.exposureTime,
                            r.exposureBias, r.fNumber,         r.maxAperture};
    EXPECT_TRUE(std::ranges::equal(floats, std::array{18.0f, 29.0f, 0.004f, 0.3f, 5.6f, 3.5f}));
    EXPECT_TRUE(std::ranges::all_of(r.reserved, [](UINT8 b) { return b == 0xA5; }));
}

TEST(Summary, AbsentValuesKeepTheirMarks) {
    Caller caller(nullptr);
    InfoRequest& r = caller.record;
    r.captureTime.wYear = 1999;
    r.modelText[0] = r.lensText[0] = r.whiteBalanceText[0] = L'?';
    BuildSummary(ImageInfo{}, &r);
    for (const INT32 v : {r.imageWidth, r.imageHeight, r.exposureProgram, r.isoSpeed,
                          r.meteringMode, r.whiteBalance}) {
        EXPECT_EQ(v, INT_UNSET);
    }
    for (const float v : {r.focalLength, r.focalLength35mm, r.exposureTime, r.exposureBias,
                          r.fNumber, r.maxAperture}) {
        EXPECT_EQ(v, FLOAT_UNSET);
    }
    EXPECT_EQ(r.orientation, 1u);
    EXPECT_EQ(r.flashFired, 0u);
    EXPECT_EQ(r.captureTime.wYear, 1999);
    EXPECT_EQ(Utf8(r.modelText) + Utf8(r.lensText) + Utf8(r.whiteBalanceText), "");
    EXPECT_EQ(Utf8(caller.shortText.Get()), "");
}

TEST(Summary, FallBacks) {
    ImageInfo info;
    info.shutterSpeed = 0.5f;
    info.aperture = 4.0f;
    info.pixelXDimension = 4000;
    info.flash = 24;
    info.whiteBalance = 7;
    std::memset(info.cameraModel, 'M', sizeof info.cameraModel);
    std::strcpy(info.dateTimeOriginal, "2008:07:31");
    Caller caller(nullptr);
    InfoRequest& r = caller.record;
    r.captureTime.wYear = 1999;
    BuildSummary(info, &r);
    EXPECT_EQ(r.exposureTime, 0.5f);
    EXPECT_EQ(r.fNumber, 4.0f);
    EXPECT_EQ(r.imageWidth, INT_UNSET);
    EXPECT_EQ(r.flashFired, 0u);
    EXPECT_EQ(r.captureTime.wYear, 0);
    EXPECT_EQ(Utf8(r.whiteBalanceText), "不明(7)");
    EXPECT_EQ(Utf8(r.modelText), std::string(31, 'M'));
}

// Both texts of a record.
struct Texts {
    std::string longText, shortText;
};
Texts TextsOf(const ImageInfo& info) {
    Caller caller(nullptr);
    BuildSummary(info, &caller.record);
    return {Utf8(caller.longText.Get()), Utf8(caller.shortText.Get())};
}

TEST(Summary, TextsByField) {
    struct Case {
        void (*change)(ImageInfo&);
        const char* longText;
        const char* shortText;
    };
    const Case cases[] = {
        {[](ImageInfo& i) { i = kSample; },
         "モデル名: Model\n撮影情報: P 1/250秒 F5.6 +0.3EV ISO200", " 250 F5.6 +0.3 200* "},
        {[](ImageInfo&) {}, "", ""},
        {[](ImageInfo& i) { i.exposureTime = 1.3f; }, "撮影情報: 1.3秒", " 1\"3 "},
        {[](ImageInfo& i) { i.exposureTime = 0.3f; }, "撮影情報: 0.3秒", " 0\"3 "},
        {[](ImageInfo& i) { i.exposureTime = 1.0f / 60; }, "撮影情報: 1/60秒", " 60 "},
        {[](ImageInfo& i) { i.exposureTime = 0.29f; }, "撮影情報: 1/3秒", "  3 "},
        {[](ImageInfo& i) { i.exposureTime = 0.000125f; }, "撮影情報: 1/8000秒", " 8000 "},
        {[](ImageInfo& i) { i.exposureTime = 0.0f, i.shutterSpeed = 1.0f; }, "", ""},
        {[](ImageInfo& i) { i.exposureProgram = 8; }, "撮影情報: La", ""},
        {[](ImageInfo& i) { i.exposureProgram = 9; }, "", ""},
        {[](ImageInfo& i) { i.exposureBias = 0.0f; }, "", ""},
        {[](ImageInfo& i) { i.isoSpeed = 0; }, "撮影情報: ISOオート", " Auto "},
        {[](ImageInfo& i) { i.flash = 1; }, "", " * "},
        {[](ImageInfo& i) { i.pixelXDimension = 4272, i.pixelYDimension = 2848; },
         "大きさ: 4272 x 2848", ""},
        {[](ImageInfo& i) { std::strcpy(i.dateTime, "2008:07:31 12:34:56"); }, "", ""},
    };
    for (const Case& c : cases) {
        ImageInfo info;
        c.change(info);
        const Texts texts = TextsOf(info);
        EXPECT_EQ(texts.longText, c.longText);
        EXPECT_EQ(texts.shortText, c.shortText);
    }
}

TEST(Summary, DatesReadAsTheSystemWritesThem) {
    const SYSTEMTIME time = {2008, 7, 0, 31, 12, 34, 56, 0};
    wchar_t date[256];
    wchar_t clock[256];
    ASSERT_GT(GetDateFormatW(LOCALE_USER_DEFAULT, DATE_LONGDATE, &time, nullptr, date, 256), 0);
    ASSERT_GT(GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, clock, 256), 0);
    const std::string label = "撮影日時: ";
    const auto line = [](const char* text) {
        ImageInfo info;
        std::strcpy(info.dateTimeOriginal, text);
        return TextsOf(info).longText;
    };
    EXPECT_EQ(line("2008:07:31 12:34:56"), label + Utf8(date) + " " + Utf8(clock));
    EXPECT_EQ(line("2008:13:31 12:34:56"), label + Utf8(clock));
    EXPECT_EQ(line("2008:07:31 25:34:56"), label + Utf8(date));
    EXPECT_EQ(line("2008:13:31 25:34:56"), "");
    EXPECT_EQ(line("0000:07:31 12:34:56"), "");
}

TEST(Summary, TextsStayWithinTheirCapacities) {
    const ImageInfo info = kSample;
    const Texts whole = TextsOf(info);
    const auto build = [](const ImageInfo& from, Caller& caller, INT32 both) {
        caller.record.longTextCapacity = caller.record.shortTextCapacity = both;
        BuildSummary(from, &caller.record);
    };
    for (INT32 capacity = 1; capacity <= 24; ++capacity) {
        const auto units = static_cast<std::size_t>(capacity);
        Caller caller(nullptr);
        build(info, caller, capacity);
        EXPECT_TRUE(whole.longText.starts_with(Utf8(caller.longText.Get())));
        EXPECT_EQ(caller.longText.Get()[capacity - 1], 0);
        EXPECT_TRUE(caller.longText.IsUntouchedFrom(units));
        // The blank in front comes on top of the capacity.
        EXPECT_EQ(Utf8(caller.shortText.Get()), whole.shortText.substr(0, units));
        EXPECT_TRUE(caller.shortText.IsUntouchedFrom(units + 1));
    }
    for (const INT32 none : {0, -1}) {
        Caller caller(nullptr);
        build(info, caller, none);
        EXPECT_TRUE(caller.HasUntouchedTexts());
    }
    InfoRequest withoutBuffers = {};
    withoutBuffers.longTextCapacity = withoutBuffers.shortTextCapacity = 1024;
    BuildSummary(info, &withoutBuffers);
    BuildSummary(info, nullptr);

    // A line that brings its own blank is cut at the capacity itself.
    ImageInfo slow;
    slow.exposureTime = 1.0f / 60;
    Caller caller(nullptr);
    build(slow, caller, 3);
    EXPECT_EQ(Utf8(caller.shortText.Get()), " 6");
    EXPECT_TRUE(caller.shortText.IsUntouchedFrom(3));
}

}  // namespace
}  // namespace qmx::test
