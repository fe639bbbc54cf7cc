// Sony's part of the texts.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "makernote/maker_record.h"
#include "makernote/sony_fields.h"
#include "support/listing.h"
#include "text/maker_sections.h"
#include "text/sony_lens_spec.h"

namespace qmx::test {
namespace {

using Fields = SonyMakerFields;

ImageInfo InfoOf(const Fields& fields, const char* model = "") {
    ImageInfo info;
    info.makerId = kMakerSony;
    info.hasMakerNote = 1;
    std::strcpy(info.cameraModel, model);
    ResetMakerRecord<Fields>(info) = fields;
    return info;
}

std::string Wording(bool (*append)(const ImageInfo&, TextBuffer&), const ImageInfo& info) {
    wchar_t storage[kValueCapacity];
    TextBuffer text(storage);
    return append(info, text) ? Utf8(text.Text()) : "-";
}

// clang-format off

TEST(SonySection, EveryItemInOrder) {
    const Fields fields = {
        .sonySceneMode = 16, .sonyQuality = 2, .sonyRawFileType = 1, .sonyWhiteBalance = 48,
        .sonyWbFineTune = -1, .sonyAwbPriority = 1, .sonyWbShiftAmber = 2, .sonyWbShiftMagenta = -1,
        .sonyColorTemp = 5500, .sonyColorFilter = -3, .sonyMetering2 = 769, .sonyReleaseMode = 2,
        .sonySequenceNumber = 4, .sonyFocusMode2 = 6, .sonyAfAreaMode2 = 9, .sonyAfTracking = 1,
        .sonyAfIlluminator = 1, .sonyMacro = 0, .sonyFlashAction = 1, .sonyFlashComp = 0.33f,
        .sonyElectronicFirstCurtain = 1, .sonyCreativeStyle = "Autumnleaves", .sonyContrast = 0,
        .sonySaturation = 1, .sonySharpness = -1, .sonyBrightness = 2, .sonyPictureEffect = 50,
        .sonyDro = 3, .sonyHdr = 1, .sonyHdrImage = 2, .sonyZoneMatching = 1, .sonyHighIsoNr = 256,
        .sonyLongExposureNr = 65537, .sonyMultiFrameNr = 0, .sonyStabilizer = 1, .sonySoftSkin = 2,
        .sonyAutoPortraitFramed = 1, .sonyVignetting = 2, .sonyChromatic = 0, .sonyDistortion = 2,
        .sonyLensId = 32784, .sonyMount = kSonyEMount,
        .sonyLensSpec = {0xC3, 0, 0x16, 0, 0x50, 0x35, 0x56, 0}, .sonyTeleconverter = 72,
        .sonyIntelligentAuto = 2, .sonyRating = 5, .sonyFileFormat = 0x03030100,
        .sonyFullImageHeight = 4000, .sonyFullImageWidth = 6000, .sonyExposureCompSet = -1.0f,
        .sonyIsoSetting = 0, .sonyAfPoint = 11, .sonyFlashControl = 1, .sonyAspect = 2};
    const Lines expected = {
        "撮影モード=オート", "画質モード=ファイン", "　+ RAW形式=非圧縮RAW", "ホワイトバランス=日陰",
        "　+ WB微調整=-1", "　+ オートWB優先=雰囲気優先", "　+ WBシフト=2, -1", "色温度=5500K",
        "　+ カラーフィルター=-3", "測光モード=スポット測光（標準）", "露出補正=-1.0EV",
        "ISOセッティング=オート", "ドライブモード=連続撮影", "　+ 連続撮影時の連番=4",
        "フォーカスモード=DMF", "AFエリアモード=スポット", "　+ フォーカスポイント=左端",
        "　+ AF追尾=顔追尾", "　+ AF補助光=オート", "マクロモード=オフ", "フラッシュモード=発光",
        "　+ 調光方式=P-TTL調光", "フラッシュ光量補正=+0.3EV", "電子先幕シャッター=オン",
        "クリエイティブスタイル=紅葉", "　+ コントラスト=±0", "　+ 色の濃さ=+1",
        "　+ シャープネス=-1", "　+ 明るさ=+2", "ピクチャーエフェクト=ミニチュア（中央・横）",
        "Dレンジオプティマイザー=オート", "オートHDR=オート（HDR失敗1）", "ゾーンマッチング=ハイキー",
        "高感度ノイズ低減=オート", "長秒時ノイズ低減=オン", "　+ 連写合成ノイズ低減=オフ",
        "手ブレ補正=オン", "ソフトスキン効果=中", "オートポートレートフレーミング=はい",
        "周辺光量補正=オート", "倍率色収差補正=オフ", "ゆがみ補正=オート",
        "レンズ情報=E 16mm F2.8", "　+ レンズ仕様=E PZ 16-50mm F3.5-5.6 OSS",
        "テレコンバーター=AF 2x APO (D)", "おまかせオート=アドバンス", "レーティング=5",
        "ファイル形式=ARW 2.3.1", "イメージサイズ=6000 x 4000", "　+ 縦横比=16:9"};
    EXPECT_EQ(ListMakerNote(InfoOf(fields, "SLT-A77V")), expected);
    EXPECT_EQ(ListMakerNote(InfoOf({})), Lines());
}

TEST(SonySection, SourcesAndCodeSets) {
    struct Case { Fields fields; Lines lines; const char* model = ""; };
    const Case cases[] = {
        {{.sonySceneMode = 0, .sonyExposureMode = 35}, {"撮影モード=手持ち夜景"}},
        {{.minoltaExposureMode = 4131}, {"撮影モード=スポーツ"}},
        {{.sonyAfAreaMode2 = 9}, {"AFエリアモード=中央"}, "ILCA-68"},
        {{.sonyAfAreaMode2 = 11}, {"AFエリアモード=ゾーン"}, "ILCE-6000"},
        {{.sonySettingsForm = 1, .sonyMetering = 4}, {"測光モード=スポット測光"}},
        {{.sonySettingsForm = 3, .sonyMetering = 4}, {"測光モード=(4)"}},
        {{.sonySettingsForm = 1, .sonyDriveMode = 11}, {"ドライブモード=ミラーアップ"}},
        {{.sonySettingsForm = 2, .sonyDriveMode = 11}, {"ドライブモード=連続セルフタイマー"}},
        {{.sonySettingsForm = 1, .sonyHighNrSet = 0}, {"高感度ノイズ低減=標準"}},
        {{.sonySettingsForm = 2, .sonyHighNrSet = 0}, {"高感度ノイズ低減=オフ"}},
        {{.sonySettingsForm = 3, .sonyHighNrSet = 19}, {"高感度ノイズ低減=オート"}},
        {{.sonySettingsForm = 3, .sonyStyleSetting = 160}, {"クリエイティブスタイル=夕景"}},
        {{.sonyWbSetting = 17, .sonyColorTempSet = 0}, {"ホワイトバランス=日陰", "色温度=オート"}},
        {{.sonyFlashLevel = -32768}, {"フラッシュ光量補正=弱"}},
        {{.sonyCreativeStyle = "Odd"}, {"クリエイティブスタイル=(Odd)"}},
        {{.sonyFileFormat = static_cast<std::int32_t>(0xFFFEFDFC)}, {"ファイル形式=(255 254 253 252)"}},
        {{.sonyLensSpec = {0, 0, 0x50, 0, 0, 0x18, 0, 0}}, {"レンズ仕様=50mm F1.8"}},  // a fixed one
        {{.sonyAfPoint = 1}, {}},  // a detail without its item
        {{.sonySequenceNumber = 0, .sonyRating = 0}, {}},
    };
    for (const Case& c : cases) EXPECT_EQ(ListMakerNote(InfoOf(c.fields, c.model)), c.lines);
}

TEST(SonyLensSpec, Composes) {
    const std::pair<std::array<std::uint8_t, 8>, const char*> cases[] = {
        {{0x83, 0x00, 0x50, 0x00, 0x00, 0x18, 0x00, 0x00}, "E 50mm F1.8 OSS"},
        {{0x02, 0x00, 0x85, 0x00, 0x00, 0x14, 0x00, 0x00}, "FE 85mm F1.4"},
        {{0x08, 0x00, 0x24, 0x00, 0x70, 0x28, 0x00, 0x05}, "24-70mm F2.8 ZA SSM II"},
        {{0x09, 0x00, 0x18, 0x00, 0x55, 0x35, 0x56, 0x02}, "DT 18-55mm F3.5-5.6 SAM II"},
        {{0x00, 0x00, 0x70, 0x03, 0x00, 0x40, 0x56, 0x00}, "70-300mm F4-5.6"},
        {{0x00, 0x05, 0x00, 0x00, 0x00, 0xB0, 0x00, 0x48}, "500mm F11 Reflex G"},
        {{0, 0, 0, 0, 0, 0, 0, 0}, ""},
        {{0x00, 0x00, 0x7A, 0x00, 0x00, 0x28, 0x00, 0x00}, ""},
        {{0x00, 0x00, 0x70, 0x00, 0x24, 0x28, 0x00, 0x00}, ""},
    };
    for (const auto& [bytes, text] : cases) {
        std::uint8_t spec[8];
        std::copy(bytes.begin(), bytes.end(), spec);
        wchar_t storage[kValueCapacity];
        TextBuffer dst(storage);
        EXPECT_EQ(FormatSonyLensSpec(dst, spec), *text != 0) << text;
        EXPECT_EQ(Utf8(dst.Text()), text);
    }
}

// clang-format on

TEST(SonyWordings, LensAndWhiteBalance) {
    const auto lens = [](std::int32_t id, std::int32_t mount) {
        return Wording(AppendSonyLens, InfoOf({.sonyLensId = id, .sonyMount = mount}));
    };
    EXPECT_EQ(lens(0, kSonyEMount), "Unknown E-Mount lens or other lens");
    EXPECT_EQ(lens(0, kSonyAMount), "AF 28-85mm F3.5-4.5 New");
    EXPECT_EQ(lens(25500, kSonyAMount), "AF 50mm F1.7");
    EXPECT_EQ(lens(32784, kSonyAMount), "(32784)");
    EXPECT_EQ(lens(INT_UNSET, kSonyEMount), "-");
    EXPECT_EQ(
        Wording(AppendSonyWhiteBalance, InfoOf({.sonyWhiteBalance = 64, .sonyWhiteBalance2 = 5})),
        "電球");
    EXPECT_EQ(Wording(AppendSonyWhiteBalance, InfoOf({.sonyWhiteBalance2 = 8})),
              "蛍光灯（昼白色）");
    EXPECT_EQ(Wording(AppendSonyWhiteBalance, InfoOf({.sonyWbSetting = 4})), "-");
}

}  // namespace
}  // namespace qmx::test
