// The labelled list: which items a record yields, in what order and with what text.

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "support/utf8.h"
#include "text/enumerate.h"

namespace qmx::test {
namespace {

constexpr INT_PTR kAnswer = 0x1234;

// One line per call: "[heading]", "label=value", or "label" for a null value.
INT_PTR CALLBACK Record(UINT32 kind, const WCHAR* label, const WCHAR* value, INT_PTR user) {
    std::string line = Utf8(label);
    if (kind == QMXEXIF_KIND_HEADING) line = "[" + line + "]";
    if (value != nullptr) line += "=" + Utf8(value);
    reinterpret_cast<std::vector<std::string>*>(user)->push_back(line);
    return kAnswer;
}

std::vector<std::string> List(const ImageInfo& info) {
    std::vector<std::string> lines;
    EmitInfo(info, {Record, reinterpret_cast<INT_PTR>(&lines)});
    return lines;
}

using Lines = std::vector<std::string>;

// clang-format off

// Every field set, to codes whose names differ from those of their neighbours.
ImageInfo FullInfo() {
    ImageInfo info = {
        .makerId = kMakerKodak, .software = "1.0", .dateTime = "2009:01:01 00:00:00",
        .cameraMake = "Make", .cameraModel = "Mod\xE9l", .orientation = 6, .isoSpeed = 0,
        .exposureProgram = 4, .dateTimeOriginal = "2008:07:31 12:34:56", .flash = 93,
        .exposureTime = 0.004f, .fNumber = 5.6f, .shutterSpeed = 0.5f, .aperture = 4.0f,
        .brightness = 2.34f, .exposureBias = -0.33f, .subjectDistance = 1.5f, .meteringMode = 255,
        .lightSource = 14, .focalLength = 18.2f, .colorSpace = 65535, .pixelXDimension = 4272,
        .pixelYDimension = 2848, .exposureMode = 2, .whiteBalance = 2, .digitalZoomRatio = 2.0f,
        .focalLengthIn35mm = 29.0f, .sceneCaptureType = 3, .gainControl = 4, .contrast = 1,
        .saturation = 1, .sharpness = 2, .subjectDistanceRange = 3, .gamma = 2.2f,
        .hasMakerNote = 1, .hasGps = 1, .gpsLatitudeRef = "N", .gpsLatitude = {35, 39, 29.15f},
        .gpsLongitude = {0.5f, 0, 0}, .gpsTimeStamp = {3, 4, 5.5f}, .gpsSatellites = "7",
        .gpsDateStamp = "2008:07:31"};
    std::memset(info.gpsMapDatum, 'W', sizeof info.gpsMapDatum);
    return info;
}

TEST(InfoList, ShowsEverySetFieldInOrder) {
    const Lines expected = {
        "[Exif情報]", "メーカー名=Make", "モデル名=4D,6F,64,E9,6C,",
        "撮影日時=2008:07:31 12:34:56", "イメージサイズ=4272, 2848", "露出時間=1/250秒",
        "F値=F5.6", "シャッター速度=0.5秒", "絞り値=F4", "明るさ=+2.3EV", "露出補正=-0.3EV",
        "ISO感度=オート", "光源=冷白色蛍光灯", "焦点距離=18.2mm", "焦点距離(35mm)=29mm",
        "被写体距離=1.50m", "フラッシュ=オン（自動+赤目緩和）,発光未検出",
        "露出プログラム=シャッター速度優先AE", "測光モード=(255)", "撮影モード=オートブラケット",
        "ホワイトバランス=不明(2)", "デジタルズーム=2.0倍", "撮影シーンタイプ=夜景",
        "ゲインコントロール=HighGainDown", "コントラスト=ソフト", "色の濃さ=低い",
        "シャープネス=ハード", "被写体の距離範囲=遠景", "色の表現=sRGB以外(65535)",
        "ガンマ値=2.20", "ソフトウェア=1.0", "[メーカーノート]", "[GPS位置]",
        "緯度=N 35度39分29.15秒 (35.658096)", "経度= - ", "人工衛星=7",
        "地図データ=" + std::string(32, 'W'), "GPS日時=2008:07:31", "GPS時刻=03:04:05.50 UTC"};
    EXPECT_EQ(List(FullInfo()), expected);
}

// clang-format on

TEST(InfoList, ResetRecordYieldsHeadingsOnly) {
    ImageInfo info;
    EXPECT_EQ(List(info), Lines({"[Exif情報]"}));
    info.hasGps = 1;
    info.hasMakerNote = 1;
    EXPECT_EQ(List(info), Lines({"[Exif情報]", "[メーカーノート]", "[GPS位置]"}));
    EmitInfo(info, {nullptr, 0});
}

TEST(InfoList, ConditionsAndFallbacks) {
    struct Case {
        void (*change)(ImageInfo&);
        const char* item;  // null: none
    };
    const Case cases[] = {
        {[](ImageInfo& i) { i.exposureTime = 0.0f; }, nullptr},
        {[](ImageInfo& i) { i.shutterSpeed = 0.0f; }, nullptr},
        {[](ImageInfo& i) { i.shutterSpeed = 0.00005f; }, "シャッター速度=1/20000秒"},
        {[](ImageInfo& i) { i.shutterSpeed = 0.00005f, i.makerId = kMakerCanon; },
         "シャッター速度=バルブ"},
        {[](ImageInfo& i) { i.shutterSpeed = 0.0f, i.makerId = kMakerCanon; },
         "シャッター速度=バルブ"},
        {[](ImageInfo& i) { i.shutterSpeed = 0.000125f, i.makerId = kMakerCanon; },
         "シャッター速度=1/8000秒"},
        {[](ImageInfo& i) { i.digitalZoomRatio = 1.0f; }, nullptr},
        {[](ImageInfo& i) { i.pixelXDimension = 4000; }, nullptr},
        {[](ImageInfo& i) { i.isoSpeed = 200; }, "ISO感度=200"},
        {[](ImageInfo& i) { i.colorSpace = 1; }, "色の表現=sRGB"},
        {[](ImageInfo& i) { i.lightSource = 15; }, "光源=(15)"},
        {[](ImageInfo& i) { i.flash = 3; }, "フラッシュ=予約(3)"},
        {[](ImageInfo& i) { i.exposureMode = -1; }, "撮影モード=不明(-1)"},
        {[](ImageInfo& i) { i.brightness = 0.0f; }, "明るさ=±0"},
    };
    for (const Case& c : cases) {
        ImageInfo info;
        c.change(info);
        const Lines heading = {"[Exif情報]"};
        EXPECT_EQ(List(info), c.item != nullptr ? Lines({heading[0], c.item}) : heading);
    }
}

TEST(InfoList, SubItemsKeepLabelsOfAnyLength) {
    Lines lines;
    const EnumContext context = {Record, reinterpret_cast<INT_PTR>(&lines)};
    for (const std::size_t length : {2u, 59u, 60u, 61u, 1000u}) {
        std::vector<wchar_t> label(length, L'x');
        label.push_back(0);
        EXPECT_EQ(EmitSubItem(context, label.data(), L"v"), kAnswer);
        EXPECT_EQ(lines.back(), "　+ " + std::string(length, 'x') + "=v");
    }
    EXPECT_EQ(EmitSubItem({nullptr, 0}, L"x", L"v"), -1);
    EmitItem(context, L"group", nullptr);
    EXPECT_EQ(lines.back(), "group");
}

}  // namespace
}  // namespace qmx::test
