// Canon CRW: the records and their fields, and the values that stand in for Exif data.

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "makernote/canon_fields.h"
#include "makernote/maker_record.h"
#include "parse/containers/ciff_mapping.h"
#include "parse/core/local_time.h"
#include "support/ciff_builder.h"
#include "support/parse.h"

namespace qmx::test {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using Fields = CanonMakerFields;

constexpr Order kLittle = Order::kLittle;

const Fields& FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

ImageInfo InfoOf(const CiffHeap& root) { return Parse(CiffFile(root)).info; }

std::string LocalTime(std::int64_t seconds) {
    char text[kLocalTimeCapacity] = {};
    FormatLocalTime(seconds, text);
    return text;
}

TEST(Ciff, EveryRecordHasItsField) {
    for (const Order order : {Order::kLittle, Order::kBig}) {
        const Parsed parsed = Parse(FullCiff(order, Bytes(9)));
        EXPECT_TRUE(parsed.parsed);
        const ImageInfo& info = parsed.info;
        EXPECT_EQ(info.makerId, kMakerCanon);
        EXPECT_EQ(info.hasMakerNote, 1);
        EXPECT_STREQ(info.cameraMake, "Canon");
        EXPECT_STREQ(info.cameraModel, "Canon EOS 20D");
        EXPECT_EQ(info.modelId, 4102);
        EXPECT_EQ(info.dateTimeOriginal, LocalTime(1068485966));
        EXPECT_EQ(info.focalLength, 24.0f);
        EXPECT_EQ(info.isoSpeed, 100);
        EXPECT_EQ(info.aperture, static_cast<float>(std::exp2(117 / 64.0)));
        EXPECT_EQ(info.exposureTime, static_cast<float>(std::exp2(-189 / 32.0)));
        EXPECT_EQ(info.exposureBias, -0.33f);
        EXPECT_EQ(info.flash, 1);
        EXPECT_EQ(info.pixelXDimension, 3504);
        EXPECT_EQ(info.pixelYDimension, 2336);
        const Fields& fields = FieldsOf(info);
        EXPECT_STREQ(fields.ownerName, "Owner");
        EXPECT_STREQ(fields.firmwareVersion, "Firmware 1.1.1");
        EXPECT_STREQ(fields.imageType, "CRW:EOS 20D CMOS RAW");
        EXPECT_EQ(fields.serialNumber, 560018150);
        EXPECT_EQ(fields.fileNumber, 1161602);
        EXPECT_EQ(fields.canonColorTemperature, 5200);
        EXPECT_EQ(fields.canonImageWidth, 3504);
        EXPECT_EQ(fields.canonImageHeight, 2336);
        EXPECT_EQ(fields.focalPlaneSize, 610);
        EXPECT_EQ(fields.sequenceNumber, 3);
        EXPECT_EQ(fields.quality, 4);
        EXPECT_EQ(fields.lensType, 61);  // EOS only: the model was known in time
        EXPECT_EQ(fields.colorTone, 0);
        EXPECT_EQ(fields.afValidPoints, 3504);
        EXPECT_EQ(fields.afPointsInFocus, 0x0010);
        EXPECT_EQ(fields.fileInfo8, 1);
        EXPECT_EQ(fields.fileIndex, order == kLittle ? 320258 : 513);
    }
}

TEST(Ciff, FindsMakeAndModel) {
    struct Case {
        const char* what;
        std::string data;
        std::string make, model;
        std::int32_t modelId;
    };
    // clang-format off
    const std::string a63(63, 'a');
    const std::string b63(63, 'b');
    const Case cases[] = {
        {"both", std::string(kCiffNames), "Canon", "Canon EOS 20D", 4102},
        {"more behind", "Canon\0Canon PowerShot Pro1\0x"s, "Canon", "Canon PowerShot Pro1", 526},
        {"no second text", "Canon\0"s, "Canon", "", 0},
        {"no terminator", "Canon", "Canon", "", 0},
        {"no second terminator", "Canon\0EOS 20D"s, "Canon", "EOS 20D", 4102},
        {"empty model", "Canon\0\0EOS 20D\0"s, "Canon", "", 0},
        {"empty make", "\0EOS 20D\0"s, "", "EOS 20D", 4102},
        {"63 fit", a63 + '\0' + b63 + '\0', a63, b63, 0},
        {"more are cut", std::string(500, 'a') + '\0' + b63 + 'b' + '\0', a63, b63, 0},
    };
    // clang-format on
    for (const Case& c : cases) {
        const Parsed parsed = Parse(CiffFile(CiffHeap(kLittle).Text(0x080A, c.data)));
        EXPECT_EQ(FieldText(parsed.info.cameraMake), c.make) << c.what;
        EXPECT_EQ(FieldText(parsed.info.cameraModel), c.model) << c.what;
        EXPECT_EQ(parsed.info.modelId, c.modelId) << c.what;
        EXPECT_EQ(parsed.parsed, !c.make.empty()) << c.what;
    }
    EXPECT_STREQ(InfoOf(NamedHeap().Text(0x080A, "C\0D\0"sv)).cameraModel, "D");
    CiffHeap endless(kLittle);
    endless.Text(0x0001, kCiffNames).Raw(0x080A, 0xFFFFFFFE, 0);
    EXPECT_STREQ(InfoOf(endless).cameraModel, "Canon EOS 20D");
}

TEST(Ciff, TextsAreCutToTheirFields) {
    CiffHeap root = NamedHeap();
    root.Text(0x0810, std::string(39, 'o'))
        .Text(0x080B, std::string(60, 'f'))
        .Raw(0x0815, 0xFFFFFFFF, 0);
    const ImageInfo info = InfoOf(root);
    EXPECT_EQ(FieldText(FieldsOf(info).ownerName), std::string(39, 'o'));
    EXPECT_EQ(FieldText(FieldsOf(info).firmwareVersion), std::string(39, 'f'));
    EXPECT_STREQ(FieldsOf(info).imageType, "Canon");
    // Inline texts have eight characters and no terminator.
    CiffHeap inlined = NamedHeap();
    inlined.Inline(0x0810, {0x64636261, 0x68676665}).Inline(0x080B, {0x20202020, 0x20202020});
    EXPECT_STREQ(FieldsOf(InfoOf(inlined)).ownerName, "abcdefgh");
    EXPECT_STREQ(FieldsOf(InfoOf(inlined)).firmwareVersion, "");
}

TEST(Ciff, TimesThatDoNotExistAreLeftOut) {
    for (const std::uint32_t stored : {0x7FFFFFFFu, 0u, 0x80000000u, 0xFFFFFFFFu}) {
        CiffHeap root = NamedHeap();
        root.Longs(0x180E, {1000000000}).Longs(0x180E, {stored, 0, 0});
        const std::string expected = LocalTime(stored < 0x80000000 ? stored : 1000000000);
        EXPECT_EQ(InfoOf(root).dateTimeOriginal, expected) << stored;
    }
}

TEST(Ciff, ShortRecordsFillWhatTheyHold) {
    CiffHeap root = NamedHeap();
    root.Longs(0x1810, {640}).Words(0x1029, {2}).Words(0x102A, {}).Data(0x102D, Bytes(3, 1));
    const ImageInfo info = InfoOf(root);
    const Fields& fields = FieldsOf(info);
    EXPECT_EQ(fields.canonImageWidth, 640);
    EXPECT_EQ(fields.canonImageHeight, INT_UNSET);
    EXPECT_EQ(info.pixelXDimension, 640);
    EXPECT_EQ(info.pixelYDimension, INT_UNSET);
    EXPECT_EQ(fields.focalType, 2);
    EXPECT_EQ(fields.focalLength, INT_UNSET);
    EXPECT_EQ(fields.baseIso, INT_UNSET);
    EXPECT_EQ(fields.macroMode, INT_UNSET);
}

TEST(Ciff, WhatIsNotThereIsNotMapped) {
    const ImageInfo info = InfoOf(NamedHeap());
    EXPECT_EQ(info.focalLength, FLOAT_UNSET);
    EXPECT_EQ(info.isoSpeed, INT_UNSET);
    EXPECT_EQ(info.aperture, FLOAT_UNSET);
    EXPECT_EQ(info.exposureTime, FLOAT_UNSET);
    EXPECT_EQ(info.exposureBias, FLOAT_UNSET);
    EXPECT_EQ(info.flash, INT_UNSET);
    EXPECT_EQ(info.pixelXDimension, INT_UNSET);
    EXPECT_STREQ(info.dateTimeOriginal, "");
}

TEST(CiffMapping, FocalLengthsAreScaledByModel) {
    struct Case {
        std::int32_t modelId;
        std::int32_t value;
        float mm;
    };
    constexpr Case kCases[] = {
        {4097, 24, 24.0f},       {4102, 1200, 1200.0f}, {4126, 999, 999.0f},   {535, 7200, 72.0f},
        {536, 600, 6.0f},        {526, 1626, 50.8125f}, {526, 230, 7.1875f},   {534, 7200, 7.2f},
        {537, 6000, 6.0f},       {516, 227, 7.09375f},  {516, 999, 31.21875f}, {516, 1000, 1.0f},
        {0, 186, 5.8125f},       {4096, 1000, 1.0f},    {4096, 32, 1.0f},      {0, -32, -1.0f},
        {535, -30736, -307.36f},
    };
    for (const Case& c : kCases) {
        ImageInfo info;
        info.modelId = c.modelId;
        ResetMakerRecord<Fields>(info).focalLength = c.value;
        MapCanonValues(info);
        EXPECT_EQ(info.focalLength, c.mm) << c.modelId << ' ' << c.value;
    }
}

TEST(CiffMapping, ValuesStandInForExif) {
    struct Case {
        std::int32_t isoSpeed, baseIso, expectedIso;
        std::int32_t flashActivity, flash;
        std::int32_t compensation;
        float bias;
    };
    constexpr std::int32_t kUnset = INT_UNSET;
    constexpr Case kCases[] = {
        {kUnset, 200, 200, kUnset, kUnset, kUnset, 2.5f},
        {0, 200, 0, -1, kUnset, 0, 0.0f},
        {400, kUnset, 400, 0, 0, 12, 0.33f},
        {kUnset, kUnset, kUnset, 133, 1, -52, -1.67f},
        {50, 100, 50, -2, 1, 33, 1.03125f},
    };
    for (const Case& c : kCases) {
        ImageInfo info;
        info.isoSpeed = c.isoSpeed;
        info.exposureBias = 2.5f;
        auto& fields = ResetMakerRecord<Fields>(info);
        fields.baseIso = c.baseIso;
        fields.flashActivity = c.flashActivity;
        fields.exposureCompensation = c.compensation;
        MapCanonValues(info);
        EXPECT_EQ(info.isoSpeed, c.expectedIso);
        EXPECT_EQ(info.flash, c.flash) << c.flashActivity;
        EXPECT_EQ(info.exposureBias, c.bias) << c.compensation;
    }
}

}  // namespace
}  // namespace qmx::test
