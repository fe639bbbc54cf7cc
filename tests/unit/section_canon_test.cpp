// Canon's part of the texts: section, lens, white balance and picture style.

#include <gtest/gtest.h>

#include <cstring>

#include "makernote/canon_fields.h"
#include "makernote/maker_record.h"
#include "support/listing.h"
#include "text/canon_lenses.h"
#include "text/canon_names.h"
#include "text/maker_text.h"

namespace qmx::test {
namespace {

using Fields = CanonMakerFields;

ImageInfo InfoOf(std::int32_t modelId, const Fields& fields) {
    ImageInfo info;
    info.makerId = kMakerCanon;
    info.modelId = modelId;
    info.hasMakerNote = 1;
    ResetMakerRecord<Fields>(info) = fields;
    return info;
}

// What a maker's wording says, or "-" for nothing.
std::string Wording(MakerWording MakerText::*column, std::int32_t modelId, const Fields& fields) {
    wchar_t storage[kValueCapacity];
    TextBuffer text(storage);
    const bool written = (FindMakerText(kMakerCanon).*column)(InfoOf(modelId, fields), text);
    return written ? Utf8(text.Text()) : text.IsEmpty() ? "-" : "left over";
}

// clang-format off

TEST(CanonSection, EveryItemInOrder) {
    const Fields fields = {
        .macroMode = 2, .selfTimer = 0x4064, .quality = 4, .flashMode = 1, .driveMode = 5,
        .focusMode = 2, .imageSize = -1, .easyMode = 8, .digitalZoom = 0, .contrast = -2,
        .saturation = 1, .sharpness = 0, .isoCode = 0x4064, .meteringMode = 3, .focusRange = 2,
        .afPoint = 8197, .exposureMode = 2, .maxFocalLength = 135, .minFocalLength = 18,
        .focalUnits = 1, .maxAperture = 4.0f, .minAperture = 32.0f, .flashActivity = 145,
        .focusContinuous = 8, .aeSetting = 2, .imageStabilization = 257, .photoEffect = 6,
        .colorTone = -3, .focalType = 2, .focalLength = 50, .focalPlaneSize = 605, .baseIso = 100,
        .targetAperture = 8.0f, .targetExposureTime = 0.5f, .exposureCompensation = -12,
        .whiteBalance = 8, .slowShutter = 3, .sequenceNumber = 6, .flashGuideNumber = 80,
        .flashExposureComp = 20, .autoExposureBracketing = 1, .aebBracketValue = -32,
        .focusDistanceUpper = -1, .focusDistanceLower = 546, .bulbDuration = 305,
        .cameraType = 248, .autoRotate = 1, .ndFilter = 1, .selfTimer2 = 20,
        .panoramaFrameNumber = 3, .panoramaDirection = 1, .imageType = "Canon EOS 500D",
        .firmwareVersion = "Firmware Version 1.1.1", .fileNumber = 1181861, .ownerName = "Owner",
        .serialNumber = static_cast<std::int32_t>(3120502342u), .cameraInfoByte7 = 1,
        .lensType = 51, .cameraInfoA = 2, .cameraInfoB = 3, .afValidPoints = 4752,
        .tag1DWords = {16, 1, 13, 0, 0, 0}, .tag1FWord13 = 1, .fileIndex = 100000,
        .fileInfo3 = 1, .fileInfo4 = 2, .fileInfo5 = 3, .fileInfo8 = 4, .fileInfo9 = 1,
        .fileInfo12 = 0xFFFD, .fileInfo13 = 5, .fileInfo14 = 3, .fileInfo15 = 2,
        .lensModel = "EF-S18-135mm f/3.5-5.6 IS", .processingInfo1 = 2, .processingInfo2 = 5,
        .processingInfo3 = 1, .processingInfo9 = 5200, .processingInfo10 = 134,
        .processingInfo11 = 12, .processingInfo12 = -9, .processingInfo13 = 9, .colorSpace = 2,
        .afPointsInFocus = 0x0111};
    const Lines expected = {
        "画像タイプ=Canon EOS 500D", "撮影モード=シャッター速度優先AE",
        "イメージゾーン=ポートレート", "画質モード=RAW", "イメージサイズ=なし",
        "ドライブモード=高速連続撮影", "セルフタイマー=10.0秒（カスタム）",
        "連続撮影時の連番=6", "ISOセッティング=100", "ベースISO=100", "測光モード=評価測光",
        "露出補正=-0.3EV", "AE設定=AEロック", "自動露出ブラケット=オン（1枚目）",
        "　+ 補正量=-1.0EV", "ブラケットモード=AEB", "　+ 補正量=2", "　+ 撮影枚数=3",
        "スローシャッター=なし", "バルブ撮影時間=30.5秒", "NDフィルター=オン",
        "フラッシュモード=オート", "使用ストロボ=580EX II", "フラッシュ光量補正=+0.7EV",
        "ガイドナンバー=2.5", "マクロモード=標準", "フォーカスモード=AIフォーカスAF",
        "連続AF=マニュアル", "AFフレーム=任意選択", "合焦AFフレーム=上+中央+下",
        "撮影距離=5.46m-∞", "デジタルズーム=オフ", "手ブレ補正=オン", "ホワイトバランス=日陰",
        "色温度=5200K", "ホワイトバランス補正=A-B -9, G-M +9",
        "WBブラケット=オン（アンバー・ブルー）", "　+ 補正量(A-B)=-3", "　+ 補正量(G-M)=+5",
        "ピクチャースタイル=モノクロ", "　+ コントラスト=-2", "　+ シャープネス=±0",
        "　+ 色の濃さ=+1", "　+ 色あい=-3", "　+ フィルター効果=赤", "　+ 調色=青",
        "写真効果=カスタム", "マイカラー=すっきりカラー", "トーンカーブ=カスタム",
        "シャープネス周波数=最低", "デジタルゲイン=1.2", "カラースペース=Adobe RGB",
        "長秒時露光のノイズ低減=オート", "高輝度側・階調優先=する",
        "高感度撮影時のノイズ低減=強め", "オートライティングオプティマイザ=しない",
        "レンズ情報=EF-S18-135mm f/3.5-5.6 IS", "レンズタイプ=ズーム", "焦点距離=50mm",
        "開放絞り=F4", "最小絞り=F32", "パノラマ=右→左", "　+ 撮影枚数=3", "自動回転=右90度",
        "カメラタイプ=EOS（上級機）", "ファイル番号=118-1861", "シャッター回数=100000",
        "所有者名=Owner", "ファームウェア=Firmware Version 1.1.1", "シリアル番号=3120502342"};
    EXPECT_EQ(ListMakerNote(InfoOf(4110, fields)), expected);
    EXPECT_EQ(ListMakerNote(InfoOf(4110, {})), Lines());
}

// clang-format on

TEST(CanonSection, ConditionsAndFallbacks) {
    struct Case {
        std::int32_t modelId;
        void (*change)(Fields&);
        Lines lines;
    };
    const Case cases[] = {
        {512, [](Fields& f) { f.exposureMode = 0, f.easyMode = 5; }, {"撮影モード=夜景"}},
        {512, [](Fields& f) { f.exposureMode = 0; }, {"撮影モード=かんたん撮影"}},
        {512, [](Fields& f) { f.exposureMode = 4, f.easyMode = 1; }, {"撮影モード=マニュアル"}},
        {512, [](Fields& f) { f.exposureMode = 99; }, {"撮影モード=(99)"}},
        {512,
         [](Fields& f) { f.driveMode = 0, f.selfTimer = 0; },
         {"ドライブモード=1コマ撮影", "セルフタイマー=オフ"}},
        {512,
         [](Fields& f) { f.driveMode = 0, f.selfTimer = 20; },
         {"ドライブモード=セルフタイマー", "セルフタイマー=2.0秒"}},
        {512, [](Fields& f) { f.selfTimer = -1; }, {}},
        {512, [](Fields& f) { f.sequenceNumber = 0; }, {}},
        {512, [](Fields& f) { f.isoCode = 15; }, {"ISOセッティング=オート"}},
        {512, [](Fields& f) { f.isoCode = 0; }, {}},
        {512, [](Fields& f) { f.isoCode = -1; }, {"ISOセッティング=(-1)"}},
        {512, [](Fields& f) { f.baseIso = INT32_MIN; }, {}},
        {512, [](Fields& f) { f.exposureCompensation = 0; }, {"露出補正=±0"}},
        {512,
         [](Fields& f) { f.autoExposureBracketing = 0, f.aebBracketValue = 32; },
         {"自動露出ブラケット=オフ"}},
        {512, [](Fields& f) { f.aebBracketValue = 32; }, {}},
        {4108, [](Fields& f) { f.fileInfo3 = 0, f.fileInfo4 = 1, f.fileInfo5 = 2; }, {}},
        {4108, [](Fields& f) { f.fileInfo3 = 0xFFFF, f.fileInfo4 = 1; }, {}},
        {4108, [](Fields& f) { f.fileInfo9 = 0, f.fileInfo12 = 1, f.fileInfo13 = 2; }, {}},
        {512, [](Fields& f) { f.bulbDuration = 0; }, {}},
        {512, [](Fields& f) { f.flashActivity = 0; }, {}},
        {512, [](Fields& f) { f.flashActivity = -1; }, {}},
        {4097, [](Fields& f) { f.flashActivity = 255; }, {}},
        {4097, [](Fields& f) { f.flashActivity = 134; }, {"使用ストロボ=550EX"}},
        {4097, [](Fields& f) { f.flashActivity = 3; }, {"使用ストロボ=(3)"}},
        {512, [](Fields& f) { f.macroMode = 0; }, {}},
        {512, [](Fields& f) { f.focusRange = 1; }, {"フォーカスレンジ=オート"}},
        {4097, [](Fields& f) { f.focusRange = 1; }, {}},
        {512, [](Fields& f) { f.afPoint = 0; }, {}},
        {512, [](Fields& f) { f.afPointsInFocus = 12293; }, {"合焦AFフレーム=左+右"}},
        {512, [](Fields& f) { f.afPointsInFocus = 0x300; }, {"合焦AFフレーム=(768)"}},
        {512, [](Fields& f) { f.afPointsInFocus = 0; }, {}},
        {4099, [](Fields& f) { f.afPointsInFocus = 0x300; }, {}},
        {4108, [](Fields& f) { f.afPointsInFocus = 0x200; }, {}},
        {4108, [](Fields& f) { f.afPointsInFocus = 0x305; }, {"合焦AFフレーム=上+右上+下"}},
        {512,
         [](Fields& f) { f.focusDistanceUpper = 782, f.focusDistanceLower = 0; },
         {"撮影距離=7.82m"}},
        {512, [](Fields& f) { f.focusDistanceUpper = 219; }, {"撮影距離=2.19m"}},
        {512, [](Fields& f) { f.focusDistanceUpper = 0, f.focusDistanceLower = 5; }, {}},
        {4108,
         [](Fields& f) { f.focusDistanceUpper = 105, f.focusDistanceLower = 40000 - 65536; },
         {"撮影距離=1.05m-400.00m"}},
        {4108,
         [](Fields& f) { f.focusDistanceUpper = 400, f.focusDistanceLower = 100; },
         {"撮影距離=1.00m-4.00m"}},
        {512,
         [](Fields& f) { f.processingInfo9 = 5200, f.whiteBalance = 0; },
         {"ホワイトバランス=オート"}},
        {512,
         [](Fields& f) { f.processingInfo9 = 5200, f.whiteBalance = 9; },
         {"ホワイトバランス=色温度直接指定", "色温度=5200K"}},
        {4097,
         [](Fields& f) { f.processingInfo9 = 0, f.canonColorTemperature = 4300; },
         {"色温度=4300K"}},
        {512, [](Fields& f) { f.whiteBalance = 23; }, {"ホワイトバランス=(23)"}},
        {512, [](Fields& f) { f.processingInfo12 = 1, f.processingInfo13 = 0; }, {}},
        {4097,
         [](Fields& f) { f.processingInfo12 = 1, f.processingInfo13 = 0; },
         {"ホワイトバランス補正=A-B +1, G-M ±0"}},
        {4103, [](Fields& f) { f.processingInfo10 = 1; }, {}},
        {4107,
         [](Fields& f) { f.processingInfo10 = 4, f.contrast = 1; },
         {"カラーマトリックス=Adobe RGB", "コントラスト=+1"}},
        {4108,
         [](Fields& f) { f.processingInfo10 = 200, f.saturation = 1; },
         {"ピクチャースタイル=(200)", "　+ 色の濃さ=+1"}},
        {4108, [](Fields& f) { f.processingInfo2 = 3; }, {"シャープネス=+3"}},
        {512,
         [](Fields& f) { f.contrast = -2, f.saturation = 1, f.sharpness = 2; },
         {"コントラスト=とても低い", "シャープネス=ハード2", "色の濃さ=高い"}},
        {512, [](Fields& f) { f.contrast = 3, f.colorTone = 1; }, {"コントラスト=(3)"}},
        {4108,
         [](Fields& f) { f.processingInfo10 = 129, f.fileInfo14 = 1, f.fileInfo15 = 1; },
         {"ピクチャースタイル=スタンダード"}},
        {4108,
         [](Fields& f) { f.processingInfo10 = 134, f.fileInfo14 = 65535, f.fileInfo15 = 0; },
         {"ピクチャースタイル=モノクロ", "　+ 調色=なし"}},
        {512, [](Fields& f) { f.tag1DWords[2] = 0; }, {}},
        {512, [](Fields& f) { f.colorSpace = 65535; }, {}},
        {4108, [](Fields& f) { f.fileInfo8 = 65535; }, {}},
        {512, [](Fields& f) { f.cameraType = 0; }, {}},
        {512, [](Fields& f) { f.focalLength = 227; }, {}},
        {512, [](Fields& f) { f.focalLength = 227, f.focalUnits = 32; }, {"焦点距離=7.1mm"}},
        {512,
         [](Fields& f) { f.focalLength = 34800 - 65536, f.focalUnits = 1000; },
         {"焦点距離=34.8mm"}},
        {512, [](Fields& f) { f.focalLength = 50, f.focalUnits = 0; }, {}},
        {512, [](Fields& f) { f.focalLength = 50, f.focalUnits = -1; }, {}},
        {512, [](Fields& f) { f.panoramaFrameNumber = 3; }, {}},
        {512, [](Fields& f) { f.fileNumber = 0; }, {}},
        {512, [](Fields& f) { f.fileNumber = INT32_MIN; }, {}},
        {512, [](Fields& f) { f.fileNumber = 1000005; }, {"ファイル番号=100-0005"}},
        {4108, [](Fields& f) { f.fileIndex = 1290016; }, {"ファイル番号=129-0016"}},
        {4108, [](Fields& f) { f.fileIndex = 1280000; }, {}},
        {4102,
         [](Fields& f) { f.fileNumber = 0, f.fileIndex = 1000024; },
         {"ファイル番号=100-0024"}},
        {4104, [](Fields& f) { f.fileIndex = 232; }, {"シャッター回数=232"}},
        {4104, [](Fields& f) { f.fileIndex = -1; }, {}},
        {4097, [](Fields& f) { f.serialNumber = 0x01230045; }, {"シリアル番号=012300069"}},
        {4104, [](Fields& f) { f.serialNumber = 292; }, {"シリアル番号=000292"}},
        {4129, [](Fields& f) { f.serialNumber = 500292; }, {"シリアル番号=500292"}},
        {4108, [](Fields& f) { f.serialNumber = 560018150; }, {"シリアル番号=0560018150"}},
        {512, [](Fields& f) { f.serialNumber = 0; }, {}},
        {512,
         [](Fields& f) { std::memset(f.ownerName, 'x', sizeof f.ownerName); },
         {"所有者名=" + std::string(40, 'x')}},
    };
    for (const Case& c : cases) {
        Fields fields;
        c.change(fields);
        EXPECT_EQ(ListMakerNote(InfoOf(c.modelId, fields)), c.lines);
    }
}

TEST(CanonWording, LensByNameTypeOrRange) {
    const auto lens = [](const Fields& fields) {
        return Wording(&MakerText::lensText, 4108, fields);
    };
    Fields fields = {.maxFocalLength = 55, .minFocalLength = 18, .focalUnits = 1};
    EXPECT_EQ(lens(fields), "18-55mm");
    fields.lensType = 124;
    EXPECT_EQ(lens(fields), "MP-E65mm f/2.8 1-5x Macro Photo");
    fields.lensType = 12;
    EXPECT_EQ(lens(fields), "(12)");
    std::strcpy(fields.lensModel, "EF50mm f/1.8 II");
    EXPECT_EQ(lens(fields), "EF50mm f/1.8 II");
    EXPECT_EQ(lens({.lensType = 1}), "EF50mm f/1.8");
    EXPECT_EQ(lens({.maxFocalLength = 50, .minFocalLength = 50, .focalUnits = 1}), "50mm");
    EXPECT_EQ(lens({.maxFocalLength = 682, .minFocalLength = 227, .focalUnits = 32}), "7.1-21.3mm");
    EXPECT_EQ(lens({.maxFocalLength = 34800 - 65536, .minFocalLength = 5800, .focalUnits = 1000}),
              "5.8-34.8mm");
    EXPECT_EQ(lens({.maxFocalLength = 55, .minFocalLength = 18}), "-");
    EXPECT_EQ(lens({.minFocalLength = 18, .focalUnits = 1}), "-");
    EXPECT_EQ(lens({.maxFocalLength = 55, .minFocalLength = 18, .focalUnits = 0}), "-");
}

TEST(CanonWording, WhiteBalanceAndPictureStyle) {
    const auto balance = [](const Fields& fields) {
        return Wording(&MakerText::whiteBalanceText, 512, fields);
    };
    EXPECT_EQ(balance({.whiteBalance = 9}), "色温度直接指定");
    EXPECT_EQ(balance({.whiteBalance = 13}), "(13)");
    EXPECT_EQ(balance({}), "-");
    const auto style = [](std::int32_t modelId, const Fields& fields) {
        return Wording(&MakerText::summaryLine, modelId, fields);
    };
    EXPECT_EQ(style(4108, {.processingInfo10 = 132}), "ピクチャースタイル: ニュートラル");
    EXPECT_EQ(style(4108, {.processingInfo10 = -1}), "ピクチャースタイル: なし");
    EXPECT_EQ(style(4108, {.processingInfo10 = 200}), "ピクチャースタイル: (200)");
    EXPECT_EQ(style(4107, {.processingInfo10 = 132}), "-");
    EXPECT_EQ(style(4108, {}), "-");
}

TEST(CanonNames, TablesHaveTheirRows) {
    EXPECT_EQ(std::size(kCanonWhiteBalanceNames), 17u);
    EXPECT_EQ(std::size(kCanonPictureStyleNames), 25u);
    EXPECT_GE(kCanonLensCount, 221);
    for (std::int32_t i = 1; i < kCanonLensCount; ++i)
        EXPECT_LT(kCanonLensNames[i - 1].key, kCanonLensNames[i].key) << "an id that never answers";
}

}  // namespace
}  // namespace qmx::test
