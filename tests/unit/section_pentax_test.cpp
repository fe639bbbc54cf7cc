// Pentax's section of the labelled list, lens names and white balance.

#include <gtest/gtest.h>

#include <set>

#include "makernote/maker_record.h"
#include "makernote/pentax_fields.h"
#include "support/listing.h"
#include "support/utf8.h"
#include "text/maker_sections.h"
#include "text/pentax_lenses.h"

namespace qmx::test {
namespace {

using Fields = PentaxMakerFields;

ImageInfo InfoOf(const Fields& fields) {
    ImageInfo info;
    info.makerId = kMakerPentax;
    info.hasMakerNote = 1;
    ResetMakerRecord<Fields>(info) = fields;
    return info;
}

Lines List(const Fields& fields) { return ListMakerNote(InfoOf(fields)); }

// clang-format off

TEST(PentaxSection, EveryItemInOrder) {
    const Fields fields = {.pictureMode = 1280, .exposureStep = 1, .compactMode = 6, .quality = 2,
                           .imageSize = 36, .drive = 1, .selfTimer = 2, .remote = 1,
                           .exposureCount = 16, .iso = 7, .sensitivityAdjust = -0.3f,
                           .exposureTime = 0.01f, .fNumber = 5.6f, .exposureCompensation = 0.7f,
                           .autoBracket = 3, .metering = 2, .aeLock = 1, .flashMode = 258,
                           .flashUnit = 63, .flashCompensation = -0.5f, .focusMode = 17,
                           .afPointSelected = 65535, .afPointInFocus = 5, .focalLength = 18.5f,
                           .digitalZoom = 2, .shakeReduction = 7, .whiteBalance = 17,
                           .whiteBalanceMode = 4, .colorTemperature = 48190, .imageTone = 4,
                           .saturation = 3, .contrast = 1, .sharpness = 6, .hasTwoWordSettings = 1,
                           .hue = 7, .dynamicRange = 1, .fineSharpness = 0, .shadowCorrection = 2,
                           .noiseReduction = 0, .highIsoReduction = 1, .colorSpace = 1,
                           .imageProcessing = 4, .lensId = 785, .worldTime = 0, .homeCity = 56,
                           .homeDaylightSaving = 1, .destinationCity = 20,
                           .destinationDaylightSaving = 1, .temperature = -5, .shutterCount = 1648,
                           .frameNumber = INT32_MIN, .dspFirmware = 0x01000000,
                           .cpuFirmware = 0x011E0012};
    const Lines expected = {
        "撮影モード=絞り優先", "　+ 露出ステップ=1/3EV", "画質モード=ベスト",
        "イメージサイズ=3008 x 2008", "ドライブモード=連続撮影", "　+ セルフタイマー=2秒セルフタイマー",
        "　+ リモコン=リモコン（3秒後）", "　+ 多重露出=HDR", "ISO感度=125", "感度補正=-0.3EV",
        "露出時間=1/100秒", "絞り値=F5.6", "露出補正=+0.7EV", "オートブラケット=+1.0EV",
        "測光モード=スポット測光", "AEロック=オン", "フラッシュモード=強制発光", "　+ ストロボ=内蔵",
        "フラッシュ光量補正=-0.5EV", "フォーカスモード=AF.C", "測距点=オート", "合焦測距点=中央",
        "焦点距離=18.5mm", "デジタルズーム=2.0倍", "手ブレ補正=オン", "ホワイトバランス=色温度指定",
        "ホワイトバランスモード=オート（白熱灯）", "色温度=5000K", "画像仕上=雅（MIYABI）",
        "色の濃さ=-1", "コントラスト=±0", "シャープネス=+3", "ファインシャープネス=オフ", "色相=-4",
        "ダイナミックレンジ拡大=オン", "シャドー補正=オート", "ノイズリダクション=オフ",
        "高感度ノイズリダクション=微弱", "カラースペース=Adobe RGB", "画像処理=デジタルフィルタ",
        "レンズ情報=FA 85mm F2.8 SOFT", "ワールドタイム=ホームタウン", "現在地=東京", "　+ 夏時間=オン",
        "目的地=ロンドン", "　+ 夏時間=オン", "撮影時温度=-5℃", "シャッター回数=1648",
        "画像番号=2147483648", "ファームウェア=1.30.00.18"};
    EXPECT_EQ(List(fields), expected);
    EXPECT_EQ(List({}), Lines());
}

TEST(PentaxSection, ConditionsAndFallbacks) {
    struct Case {
        Fields fields;
        Lines lines;
    };
    const Case cases[] = {
        {{.compactMode = 65}, {"撮影モード=バストアップ人物"}},
        {{.pictureMode = 9999}, {"撮影モード=(9999)"}},
        {{.quality = 65535}, {}},
        {{.imageSize = 2}, {"イメージサイズ=1024 x 768"}},
        {{.imageSize = 24}, {"イメージサイズ=(24)"}},
        {{.drive = 0, .selfTimer = 0, .remote = 0, .exposureCount = 0}, {"ドライブモード=1コマ撮影"}},
        {{.selfTimer = 255}, {}},
        {{.iso = 65535}, {"ISO感度=オート"}},
        {{.sensitivityAdjust = 0}, {}},
        {{.exposureCompensation = 0}, {"露出補正=±0"}},
        {{.autoBracket = 0}, {}},
        {{.autoBracket = 1}, {"オートブラケット=+0.3EV"}},
        {{.autoBracket = 10}, {"オートブラケット=+0.5EV"}},
        {{.autoBracket = 19}, {"オートブラケット=+9.5EV"}},
        {{.autoBracket = 20}, {"オートブラケット=(20)"}},
        {{.flashMode = 1, .flashUnit = 0}, {"フラッシュモード=発光禁止"}},
        {{.digitalZoom = 0}, {"デジタルズーム=オフ"}},
        {{.colorTemperature = 0}, {}},
        {{.colorTemperature = 65535}, {}},
        {{.saturation = 0, .contrast = 4, .sharpness = 0},
         {"色の濃さ=低い", "コントラスト=やや高い", "シャープネス=ソフト"}},
        {{.sharpness = 0, .lensId = 0}, {"シャープネス=-2", "レンズ情報=M-42 or No Lens"}},
        {{.saturation = 65535, .hasTwoWordSettings = 1}, {"色の濃さ=なし"}},
        {{.imageProcessing = 0}, {}},
        {{.homeCity = 75, .homeDaylightSaving = 0}, {"現在地=(75)"}},
        {{.homeDaylightSaving = 1}, {}},
        {{.shutterCount = -1}, {"シャッター回数=4294967295"}},
        {{.dspFirmware = 0x010A0B63}, {"ファームウェア=1.10.11.99"}},
    };
    for (const Case& c : cases) EXPECT_EQ(List(c.fields), c.lines);
}

std::string Worded(bool (*append)(const ImageInfo&, TextBuffer&), const Fields& fields) {
    wchar_t storage[kValueCapacity];
    TextBuffer dst(storage);
    return append(InfoOf(fields), dst) ? Utf8(dst.Text()) : "unset";
}

TEST(PentaxText, LensNames) {
    constexpr std::pair<std::int32_t, const char*> kCases[] = {
        {INT_UNSET, "unset"}, {0, "M-42 or No Lens"}, {256, "K/M Lens"},
        {785, "FA 85mm F2.8 SOFT"}, {812, "Sigma"}, {1276, "DA 18-55mm F3.5-5.6 AL"},
        {2290, "DA* 16-50mm F2.8 ED AL [IF] SDM"}, {2303, "Sigma Lens (8 255)"}, {999, "(999)"}};
    for (const auto& [id, name] : kCases)
        EXPECT_EQ(Worded(AppendPentaxLens, {.lensId = id}), name);
}

TEST(PentaxText, EveryLensHasOneRow) {
    std::set<std::int32_t> ids;
    for (std::int32_t i = 0; i < kPentaxLensCount; ++i) ids.insert(kPentaxLensNames[i].key);
    EXPECT_EQ(ids.size(), static_cast<std::size_t>(kPentaxLensCount));
    EXPECT_GE(kPentaxLensCount, 117);
}

TEST(PentaxText, WhiteBalance) {
    constexpr std::pair<std::int32_t, const char*> kCases[] = {
        {0, "オート"}, {1, "昼光"}, {2, "日陰"}, {3, "(3)"}, {4, "白熱灯"}, {5, "マニュアル"},
        {6, "昼光蛍光灯"}, {7, "昼白色蛍光灯"}, {8, "白色蛍光灯"}, {9, "ストロボ"}, {10, "曇り"},
        {11, "(11)"}, {16, "グレー点"}, {17, "色温度指定"}, {65534, "(65534)"},
        {65535, "ユーザ設定"}, {INT_UNSET, "unset"}};
    for (const auto& [code, name] : kCases)
        EXPECT_EQ(Worded(AppendPentaxWhiteBalance, {.whiteBalance = code}), name);
}

// clang-format on

}  // namespace
}  // namespace qmx::test
