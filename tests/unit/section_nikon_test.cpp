// Nikon's section of the labelled list, and the wordings of lens and white balance.

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "makernote/maker_record.h"
#include "makernote/nikon_fields.h"
#include "support/listing.h"
#include "text/maker_sections.h"
#include "text/nikon_lenses.h"
#include "text/nikon_names.h"

namespace qmx::test {
namespace {

using Fields = NikonMakerFields;

constexpr std::int32_t kD80 = 4108;

ImageInfo InfoOf(const Fields& fields, std::int32_t modelId = kD80) {
    ImageInfo info;
    info.makerId = kMakerNikon;
    info.modelId = modelId;
    info.hasMakerNote = 1;
    ResetMakerRecord<Fields>(info) = fields;
    return info;
}

Lines List(const Fields& fields, std::int32_t modelId = kD80) {
    return ListMakerNote(InfoOf(fields, modelId));
}

std::string Word(bool (*wording)(const ImageInfo&, TextBuffer&), const Fields& fields) {
    wchar_t storage[kValueCapacity];
    TextBuffer text(storage);
    const bool hasText = wording(InfoOf(fields), text);
    EXPECT_EQ(hasText, !text.IsEmpty());
    return Utf8(text.Text());
}

// clang-format off

TEST(NikonSection, EveryItemInOrder) {
    const Fields fields = {
        .nikonVersion = {'0', '2', '1', '0'}, .nikonColorMode = "COLOR", .nikonQuality = "FINE",
        .nikonWhiteBalance = "AUTO1", .nikonSharpening = "MED.H", .nikonFocusMode = "AF-S",
        .nikonFlashSetting = "RED-EYE SLOW", .nikonFlashType = "Built-in,TTL&Comdr.",
        .nikonIsoSelection = "MANUAL", .nikonSerialNumber = "2188172",
        .nikonImageAdjustment = "CONTRAST(+)", .nikonToneComp = "CS",
        .nikonAuxiliaryLens = "FISHEYE 1", .nikonColorHue = "MODE1a", .nikonSceneMode = "COPY",
        .nikonLightSource = "SPEEDLIGHT", .nikonNoiseReduction = "FPNR",
        .nikonSceneAssist = "GUIDE", .nikonSerialNumber2 = "NO= 1",
        .nikonImageOptimization = "MORE VIVID", .nikonSaturation = "ENHANCED",
        .nikonVariProgram = "AUTO(FLASH OFF)", .nikonVrText = "VR-OFF",
        .nikonAfResponse = "STANDARD", .nikonPictureControlName = "VIVID",
        .nikonPictureControlBase = "STANDARD", .nikonLensIdText = "7A3C1F3730307E06",
        .nikonWbFineTune = {-2, 3}, .nikonIsoSetting = 6400, .nikonCropHiSpeed = 2,
        .nikonColorSpace = 2, .nikonVr = 1, .nikonVrMode = 2, .nikonActiveDLighting = 65535,
        .nikonIsoExpansion = 260, .nikonVignetteControl = 3, .nikonAutoDistortion = 1,
        .nikonShutterMode = 48, .nikonHdr = 1, .nikonHdrLevel = 2, .nikonHdrSmoothing = 3,
        .nikonMechanicalShutterCount = 1234, .nikonLensType = 14, .nikonFlashMode = 9,
        .nikonAfAreaMode = 1, .nikonAfPoint = 3, .nikonAfPointsInFocus = 0x408,
        .nikonShootingMode = 33, .nikonHueAdjustment = -9, .nikonNefCompression = 3,
        .nikonSaturationStep = -3, .nikonDateStamp = 2, .nikonImageCount = 77,
        .nikonDeletedImageCount = 7, .nikonShutterCount = 4044, .nikonMultiExposureMode = 1,
        .nikonMultiExposureShots = 3, .nikonHighIsoNr = 4, .nikonAfInfo2Method = 0,
        .nikonAfAreaMode2 = 8, .nikonPrimaryAfPoint = 23, .nikonFolderNumber = 101,
        .nikonFileNumber = 42, .nikonAfTune = 1, .nikonAfTuneStep = -5, .nikonSilent = 1,
        .nikonPictureControlAdjust = 2, .nikonPictureControlQuick = 4, .nikonPcSharpness = 5,
        .nikonPcClarity = -2, .nikonPcContrast = kNikonStepAuto,
        .nikonPcBrightness = kNikonStepUser, .nikonPcSaturation = 0, .nikonPcHue = -4,
        .nikonFilterEffect = 129, .nikonToningEffect = 130, .nikonProgramShift = -2.0f / 6,
        .nikonExposureDifference = 5.0f / 12, .nikonFlashComp = -5.0f / 3,
        .nikonExternalFlashComp = 0, .nikonFlashBracket = 1, .nikonExposureBracket = 0.5f,
        .nikonLensFStops = 5.34f, .nikonLensRange = {12, 24, 4, 4},
        .nikonManualFocusDistance = 1.5f, .nikonDigitalZoom = 2,
        .nikonRetouchHistory = {3, 0, 99, 5}, .nikonPowerUpTime = {2008, 7, 31, 12, 4, 6}};
    const Lines expected = {
        "バージョン=0210", "画質モード=ファイン", "　+ RAW圧縮=ロスレス圧縮",
        "ホワイトバランス=オート1 (青-赤 -2, 緑-赤紫 +3)", "　+ 光源=スピードライト",
        "撮影モード=オート（発光禁止）", "　+ シーン補助=GUIDE", "フォーカスモード=シングルAF",
        "AFエリアモード=オートエリアAF", "　+ フォーカスポイント=23", "　+ 合焦ポイント=左+右端",
        "　+ AF微調節=オン1(-5)", "AF応答=標準", "撮影距離=1.5m",
        "フラッシュモード=赤目緩和スローシンクロ", "　+ フラッシュ=TTL発光",
        "　+ 発光方式=内蔵（TTL+コマンダー）", "フラッシュ光量補正=-1.7EV",
        "　+ 外部ストロボ補正=±0", "　+ フラッシュブラケット=+1.0EV", "露出差=+0.4EV",
        "プログラムシフト=-0.3EV", "露出ブラケット=+0.5EV",
        "ドライブモード=連続撮影+感度自動制御", "ISOセッティング=6400", "　+ 拡張ISO=Hi 1.0",
        "シャープネス=やや強", "階調補正=カスタム", "色の濃さ=高い", "色相=-9度",
        "カラーモード=カラー", "カラースペース=Adobe RGB", "画像調整=コントラスト強",
        "画像最適化=より鮮やか", "ピクチャーコントロール=VIVID", "　+ ベース=STANDARD",
        "　+ 調整=詳細調整", "　+ クイック調整=+1", "　+ 輪郭強調=+1.25", "　+ 明瞭度=-0.50",
        "　+ コントラスト=オート", "　+ 明るさ=ユーザー設定", "　+ 彩度=±0", "　+ 色合い=-1",
        "　+ フィルター効果=黄", "　+ 調色=青写真", "アクティブD-ライティング=オート", "HDR=オン",
        "　+ 露出差=2EV", "　+ スムージング=強め", "高感度ノイズ低減=標準",
        "長秒時ノイズ低減=オン", "手ブレ補正=オン", "　+ モード=アクティブ",
        "ヴィネットコントロール=標準", "自動ゆがみ補正=オン", "撮像範囲=DXクロップ",
        "デジタルズーム=2.0倍",
        "レンズ情報=AF-S DX 12-24mm F4G / Tokina AT-X 124 AF PRO DX II 12-24mm F4",
        "　+ レンズ種類=D+G+VR", "　+ 焦点距離=12-24mm F4.0", "　+ 絞り段数=5.3段",
        "コンバーター=フィッシュアイ1", "多重露出=多重露出", "　+ コマ数=3",
        "日付写し込み=日付", "画像編集=白黒+(99)+トリミング", "シャッター方式=電子先幕シャッター",
        "　+ メカシャッター回数=1234", "静音撮影=オン", "シリアル番号=2188172",
        "レリーズ回数=4044", "　+ 削除画像数=7", "ファイル番号=101-0042",
        "電源オン日時=2008/07/31 12:04:06"};
    EXPECT_EQ(List(fields), expected);
    EXPECT_EQ(List({}), Lines());
}

TEST(NikonSection, ConditionsAndFallbacks) {
    struct Case {
        Fields fields;
        Lines lines;
        std::int32_t modelId = kD80;
    };
    const Case cases[] = {
        {{.nikonVersion = {0, 2, 0, 0}}, {"バージョン=2.0"}},
        {{.nikonQuality = "VGA BASIC"}, {"画質モード=(VGA BASIC)"}},
        {{.nikonQuality = "NRW"}, {"画質モード=RAW"}},
        {{.nikonFlashMode = 0, .nikonNefCompression = 3}, {"RAW圧縮=ロスレス圧縮", "フラッシュ=発光せず"}},
        {{.nikonVrMode = 2, .nikonPcHue = 4}, {}},  // details that say nothing without their items
        {{.nikonWhiteBalance = "5000K", .nikonWbFineTune = {0, INT_UNSET}},
         {"ホワイトバランス=(5000K) (±0)"}},
        {{.nikonWbFineTune = {1, 1}}, {}},
        {{.nikonSceneMode = "NIGHT PORTRAIT"}, {"撮影モード=夜景ポートレート"}},
        {{.nikonAfAreaMode = 1, .nikonAfPoint = 3, .nikonAfPointsInFocus = 0},
         {"AFエリアモード=ダイナミックAF", "　+ フォーカスポイント=左"}},
        {{.nikonAfInfo2Method = 1, .nikonAfAreaMode2 = 1, .nikonPrimaryAfPoint = 0},
         {"AFエリアモード=ノーマルエリアAF"}},
        {{.nikonAfInfo2Method = 0, .nikonAfAreaMode2 = 77, .nikonPrimaryAfPoint = 1,
          .nikonAfTune = 0, .nikonAfTuneStep = 4},
         {"AFエリアモード=(77)", "　+ フォーカスポイント=中央", "　+ AF微調節=オフ"}},
        {{.nikonShootingMode = 0}, {"ドライブモード=1コマ撮影"}},
        {{.nikonShootingMode = 32}, {"ドライブモード=感度自動制御"}},
        {{.nikonShootingMode = 32}, {"ドライブモード=1コマ撮影"}, 4102},
        {{.nikonShootingMode = 33}, {"ドライブモード=連続撮影"}, 4106},
        {{.nikonShootingMode = 512}, {}},
        {{.nikonIsoSelection = "AUTO", .nikonIsoExpansion = 0}, {"ISOセッティング=オート"}},
        {{.nikonSaturationStep = -3}, {"色の濃さ=-3"}},
        {{.nikonColorHue = "MODE3"}, {"カラーモード=モードIII（sRGB）"}},
        {{.nikonPictureControlName = "FLAT", .nikonPictureControlBase = "FLAT"},
         {"ピクチャーコントロール=FLAT"}},
        {{.nikonVrText = "VR-HYBRID"}, {"手ブレ補正=ハイブリッド"}},
        {{.nikonDigitalZoom = 1}, {}},
        {{.nikonLensType = 0, .nikonLensRange = {50, 50, 1.8f, 1.8f}},
         {"レンズ情報=AF 50mm F1.8", "　+ 焦点距離=50mm F1.8"}},
        {{.nikonSerialNumber2 = "NO= 00002539", .nikonImageCount = 5},
         {"シリアル番号=NO= 00002539", "レリーズ回数=5"}},
        {{.nikonFolderNumber = 100}, {}},
    };
    for (const Case& c : cases) EXPECT_EQ(List(c.fields, c.modelId), c.lines);
}

TEST(NikonSection, LensBySources) {
    struct Case {
        Fields fields;
        const char* text;
    };
    const Case cases[] = {
        {{.nikonLensIdText = "0158505014140200", .nikonLensIdNumber = 2}, "AF 50mm F1.8"},
        {{.nikonLensIdText = "FFFFFFFFFFFFFFFF", .nikonLensIdNumber = 1}, "(FFFFFFFFFFFFFFFF)"},
        {{.nikonLensText = "none", .nikonLensIdNumber = 1}, "AF 50mm F1.8"},
        {{.nikonLensIdNumber = 12}, "(12)"},
        {{.nikonLensText = "1 NIKKOR 10mm f/2.8", .nikonLensIdNumber = 0}, "1 NIKKOR 10mm f/2.8"},
        {{.nikonLensIdNumber = 3}, ""},
        {{.nikonLensIdNumber = 38}, ""},
        {{.nikonZLensNumber = 13}, "Z 24-70mm F2.8 S"},
        {{.nikonLensType = 14, .nikonZLensNumber = 9999, .nikonLensRange = {24, 70, 2.8f, 2.8f}},
         "AF VR 24-70mm F2.8G"},
        {{.nikonLensType = 1, .nikonLensRange = {18, 55, 3.5f, 3.5f}}, "MF 18-55mm F3.5"},
        {{.nikonLensType = 1}, ""},
        {{.nikonLensType = 1, .nikonLensRange = {50, 50, FLOAT_UNSET, FLOAT_UNSET}}, ""},
    };
    for (const Case& c : cases) EXPECT_EQ(Word(AppendNikonLens, c.fields), c.text);
}

TEST(NikonSection, WhiteBalance) {
    constexpr std::pair<const char*, const char*> kCases[] = {
        {"AUTO", "オート"}, {"AUTO2", "オート2"}, {"INCANDESCENT", "電球"}, {"SUNNY", "晴天"},
        {"PRESET0", "プリセット0"}, {"PRESET", "プリセット"}, {"4500K", "(4500K)"}};
    for (const auto& [stored, text] : kCases) {
        Fields fields = {.nikonWbFineTune = {2, 2}};
        std::string(stored).copy(fields.nikonWhiteBalance, sizeof fields.nikonWhiteBalance - 1);
        EXPECT_EQ(Word(AppendNikonWhiteBalance, fields), text);
    }
    EXPECT_EQ(Word(AppendNikonWhiteBalance, {}), "");
}

// clang-format on

// Rows that an earlier row's key begins can never be reached.
std::size_t CountReachable(const PrefixName* table) {
    std::size_t count = 0;
    for (; table[count].key != nullptr; ++count) {
        for (std::size_t i = 0; i < count; ++i)
            EXPECT_FALSE(std::string(table[count].key).starts_with(table[i].key)) << table[i].key;
    }
    return count;
}

TEST(NikonSection, TablesAreSound) {
    EXPECT_GE(CountReachable(kNikonLensIdNames), 197u);
    for (const PrefixName* row = kNikonLensIdNames; row->key != nullptr; ++row)
        EXPECT_EQ(std::string(row->key).find_first_not_of("0123456789ABCDEF"), std::string::npos);
    EXPECT_GE(CountReachable(kNikonWhiteBalanceNames), 10u);
    for (const PrefixName* table :
         {kNikonFlashSettingNames, kNikonFlashTypeNames, kNikonColorHueNames, kNikonSceneModeNames,
          kNikonImageOptimizationNames, kNikonVariProgramNames, kNikonAuxiliaryLensNames,
          kNikonToneCompNames, kNikonQualityNames})
        CountReachable(table);

    EXPECT_GE(kNikonLensNumberCount, 157);
    std::set<std::int32_t> numbers;
    for (std::int32_t i = 0; i < kNikonLensNumberCount; ++i)
        EXPECT_TRUE(numbers.insert(kNikonLensNumberNames[i].key).second);
    numbers.clear();
    for (std::int32_t i = 0; i < kNikonZLensCount; ++i)
        EXPECT_TRUE(numbers.insert(kNikonZLensNames[i].key).second);
}

}  // namespace
}  // namespace qmx::test
