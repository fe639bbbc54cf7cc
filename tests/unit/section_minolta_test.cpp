// Minolta's part of the texts.

#include <gtest/gtest.h>

#include "makernote/maker_record.h"
#include "makernote/minolta_fields.h"
#include "support/listing.h"
#include "text/maker_sections.h"

namespace qmx::test {
namespace {

using Fields = MinoltaMakerFields;

ImageInfo InfoOf(const Fields& fields, std::int32_t modelId = 0) {
    ImageInfo info;
    info.makerId = kMakerMinolta;
    info.modelId = modelId;
    info.hasMakerNote = 1;
    ResetMakerRecord<Fields>(info) = fields;
    return info;
}

std::string Wording(bool (*append)(const ImageInfo&, TextBuffer&), const ImageInfo& info) {
    wchar_t storage[kValueCapacity];
    TextBuffer text(storage);
    return append(info, text) ? Utf8(text.Text()) : "-";
}

// clang-format off

TEST(MinoltaSection, EveryItemInOrder) {
    const Fields compact = {
        .minoltaSceneMode = 1, .minoltaExposureMode = 2, .minoltaImageSize = 7, .minoltaQuality = 5,
        .minoltaRawJpeg = 1, .minoltaWhiteBalance = 0x00800000, .minoltaWbFineTune = -2,
        .minoltaColorTemp = 5500, .minoltaColorFilter = 3, .minoltaMetering = 1,
        .minoltaExposureComp = -0.33f, .minoltaBracketStep = 1, .minoltaIsoSetting = 4,
        .minoltaFlashMode = 1, .minoltaFlashFired = 1, .minoltaFlashMetering = 0,
        .minoltaFlashComp = 0, .minoltaDriveMode = 5, .minoltaIntervalNumber = 10,
        .minoltaIntervalLength = 2, .minoltaFocusMode = 0, .minoltaFocusArea = 1,
        .minoltaFocusZone = 3, .minoltaAfPoints7D = 0x103, .minoltaMacro = 1,
        .minoltaFocusDistance = 1500, .minoltaSharpness = 2, .minoltaContrast = 0,
        .minoltaSaturation = 2, .minoltaHue = -1, .minoltaColorMode = 13, .minoltaPictureFinish = 3,
        .minoltaColorProfile = 1, .minoltaDigitalZoom = 2, .minoltaZoneMatching = 1,
        .minoltaNoiseReduction = 1, .minoltaStabilizer2 = 5, .minoltaLensId = 25881,
        .minoltaTeleconverter = 72, .minoltaDataImprint = 2, .minoltaLastFileNumber = 32};
    const Lines expected = {
        "撮影モード=ポートレート", "露出モード=シャッター速度優先", "イメージサイズ=2560 x 1920",
        "画質モード=エクストラファイン", "　+ RAW+JPEG=オン", "ホワイトバランス=オート",
        "　+ WB微調整=-2", "色温度=5500K", "　+ カラーフィルター=+3", "測光モード=中央重点測光",
        "露出補正=-0.3EV", "　+ ブラケット=2/3EV", "ISOセッティング=オート",
        "フラッシュモード=赤目緩和", "　+ フラッシュ=発光", "　+ 調光方式=ADI調光",
        "フラッシュ光量補正=±0", "ドライブモード=インターバル", "　+ インターバル=10回 2分",
        "フォーカスモード=オートフォーカス", "　+ フォーカスエリア=スポット",
        "　+ フォーカス位置=左", "　+ フォーカスポイント=中央+上+左上", "マクロモード=オン",
        "撮影距離=1.5m", "シャープネス=ソフト", "コントラスト=±0", "色の濃さ=+2", "　+ 色相=-1",
        "カラーモード=ナチュラル（sRGB）", "　+ 仕上がり設定=風景", "　+ カラープロファイル=埋込",
        "デジタルズーム=2倍", "ゾーンマッチング=ハイキー", "ノイズリダクション=オン",
        "手ブレ補正=オン", "レンズ情報=AF 70-210mm F3.5-4.5", "テレコンバーター=AF 2x APO (D)",
        "日付写し込み=月/日/時:分", "ファイル番号=32"};
    EXPECT_EQ(ListMakerNote(InfoOf(compact)), expected);

    const Fields reflex = {
        .minoltaImageSize7D = 1, .minoltaQuality7D = 34, .minoltaWhiteBalance = 2,
        .minoltaIsoSetting7D = 8, .minoltaFlashMode7D = 2, .minoltaInternalFlash = 0,
        .minoltaDriveModeA100 = 770, .minoltaFocusMode7D = 4, .minoltaFocusDistance = 0,
        .minoltaSharpnessStep = -1, .minoltaColorSpace5D = 2, .minoltaZoneMatchingOn = 0,
        .minoltaStabilizer = 1, .minoltaImageNumber = 7};
    const Lines reflexLines = {
        "イメージサイズ=M", "画質モード=RAW+JPEG", "ホワイトバランス=日陰",
        "ISOセッティング=200（ハイキー）", "フラッシュモード=後幕シンクロ", "　+ フラッシュ=発光せず",
        "ドライブモード=1コマブラケット（弱）", "フォーカスモード=AF自動切替", "撮影距離=無限遠",
        "シャープネス=-1", "カラーモード=モノクロ", "ゾーンマッチング=オフ", "手ブレ補正=オン",
        "ファイル番号=7"};
    EXPECT_EQ(ListMakerNote(InfoOf(reflex, kMinolta7D)), reflexLines);
    EXPECT_EQ(ListMakerNote(InfoOf({})), Lines());
}

TEST(MinoltaSection, ConditionsAndFallbacks) {
    struct Case { Fields fields; Lines lines; };
    const Case cases[] = {
        {{.minoltaSceneMode = 0, .minoltaSubjectProgram = 1}, {}},
        {{.minoltaSubjectProgram = 1}, {"撮影モード=ポートレート"}},
        {{.minoltaWbFineTune = 2}, {}},  // a detail without its item
        {{.minoltaColorTemp = 0, .minoltaColorFilter = 1}, {"カラーフィルター=+1"}},
        {{.minoltaImageSizeTag = 6}, {"イメージサイズ=2272 x 1704"}},
        {{.minoltaDriveMode = 1, .minoltaIntervalNumber = 2, .minoltaIntervalLength = 2}, {"ドライブモード=連続撮影"}},
        {{.minoltaMetering = 77}, {"測光モード=(77)"}},
        {{.minoltaTeleconverter = 0}, {}},
    };
    for (const Case& c : cases) EXPECT_EQ(ListMakerNote(InfoOf(c.fields)), c.lines);
}

// clang-format on

TEST(MinoltaWordings, LensAndWhiteBalance) {
    const auto lens = [](std::int32_t id) {
        return Wording(AppendMinoltaLens, InfoOf({.minoltaLensId = id}));
    };
    EXPECT_EQ(lens(0), "AF 28-85mm F3.5-4.5 New");
    EXPECT_EQ(lens(25501), "AF 50mm F1.7");
    EXPECT_EQ(lens(25500), "AF 50mm F1.7");
    EXPECT_EQ(lens(26210), "AF 100-300mm F4.5-5.6 xi");
    EXPECT_EQ(lens(26240), "(26240)");
    EXPECT_EQ(lens(25590), "(25590)");
    EXPECT_EQ(lens(INT_UNSET), "-");
    const auto balance = [](std::int32_t code, std::int32_t model) {
        return Wording(AppendMinoltaWhiteBalance, InfoOf({.minoltaWhiteBalance = code}, model));
    };
    EXPECT_EQ(balance(2, kMinolta7D), "日陰");
    EXPECT_EQ(balance(2, kMinolta5D), "曇り");
    EXPECT_EQ(balance(16, kMinolta7D), "(16)");
    EXPECT_EQ(balance(0x100, kMinolta5D), "色温度指定");
    EXPECT_EQ(balance(INT_UNSET, kMinolta7D), "-");
}

}  // namespace
}  // namespace qmx::test
