// Minolta's MakerNote and the texts.

#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "makernote/minolta_fields.h"
#include "support/listing.h"
#include "support/note_file.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using Fields = MinoltaMakerFields;

// A block of settings in which every element is its own index, or what `words` says; big-endian.
Bytes Settings(std::size_t elementBytes, std::size_t bytes,
               const std::map<std::uint32_t, std::uint32_t>& words = {}) {
    ByteWriter block(Order::kBig);
    for (std::uint32_t i = 0; i < bytes / elementBytes; ++i) {
        const std::uint32_t word = words.contains(i) ? words.at(i) : i;
        elementBytes == 4 ? block.U32(word) : block.U16(word);
    }
    return block.bytes;
}

Fields FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

// clang-format off

TEST(MinoltaNote, EveryTagHasItsField) {
    BareNote note(kMakerMinolta, "", kMinolta5D, Order::kBig);
    note.Entries().Long(0x0100, {7}).Long(0x0101, {13}).Long(0x0102, {5}).Long(0x0103, {6})
        .SRational(0x0104, {{-10, 20}}).Long(0x0105, {72}).Long(0x0107, {5}).Long(0x0109, {1})
        .Long(0x010A, {2}).Long(0x010B, {5500}).Long(0x010C, {25881})
        .Value(0x0111, 9, 1, {0xFF, 0xFF, 0xFF, 0xFE}).Long(0x0112, {0xFFFFFFFD})
        .Long(0x0113, {1}).Long(0x0115, {1});
    const Fields expected = {
        .minoltaSceneMode = 7, .minoltaImageSizeTag = 6, .minoltaQuality = 5, .minoltaRawJpeg = 1,
        .minoltaWhiteBalance = 0x100, .minoltaWbFineTune = -3, .minoltaColorTemp = 5500,
        .minoltaColorFilter = -2, .minoltaFlashComp = -0.5f, .minoltaColorMode = 13,
        .minoltaZoneMatching = 2, .minoltaStabilizer2 = 5, .minoltaStabilizer3 = 1,
        .minoltaLensId = 25881, .minoltaTeleconverter = 72};
    EXPECT_TRUE(HoldsRecord(note.Decode(), expected));
}

TEST(MinoltaNote, SettingsAreBigEndianInEveryFile) {
    const Fields expected = {
        .minoltaSubjectProgram = 34, .minoltaExposureMode = 1, .minoltaImageSize = 4,
        .minoltaQuality = 5, .minoltaWhiteBalance = 3, .minoltaMetering = 7,
        .minoltaExposureComp = 7 / 3.0f, .minoltaBracketStep = 14, .minoltaIsoSetting = 36,
        .minoltaFlashMode = 2, .minoltaFlashFired = 20, .minoltaInternalFlash = 43,
        .minoltaFlashMetering = 63, .minoltaFlashComp = 29 / 3.0f, .minoltaDriveMode = 6,
        .minoltaIntervalNumber = 17, .minoltaIntervalLength = 16, .minoltaFocusMode = 48,
        .minoltaFocusArea = 49, .minoltaFocusZone = 47, .minoltaMacro = 11,
        .minoltaFocusDistance = 19, .minoltaSharpness = 33, .minoltaContrast = -2,
        .minoltaSaturation = 2, .minoltaColorMode = 40, .minoltaColorProfile = 51,
        .minoltaDigitalZoom = 12, .minoltaDataImprint = 52, .minoltaLastFileNumber = 27};
    for (const Order order : {Order::kLittle, Order::kBig}) {
        BareNote note(kMakerMinolta, "", kMinolta7Hi, order);
        note.Entries().Undefined(0x0003, Settings(4, 256, {{31, 5}, {32, 1}, {44, 48}}));
        const ImageInfo info = note.Decode();
        EXPECT_TRUE(HoldsRecord(info, expected));
        EXPECT_EQ(info.isoSpeed, 3);  // 100 * 2^-5
        EXPECT_FLOAT_EQ(info.exposureTime, std::exp2(39 / 8.0f));
        EXPECT_FLOAT_EQ(info.fNumber, std::exp2(1 / 8.0f));
        EXPECT_FLOAT_EQ(info.focalLength, 18 / 256.0f);
        EXPECT_FLOAT_EQ(info.maxAperture, std::exp2(15 / 16.0f));
    }
}

TEST(MinoltaNote, SettingsOfTheReflexCameras) {
    BareNote seven(kMakerMinolta, "", kMinolta7D);
    seven.Entries()
        .Undefined(0x0004, Settings(2, 294, {{4, 2}, {30, 0xFFF4}, {63, 52}, {70, 76}}))
        .Undefined(0x0018, Bytes(8200));
    ImageInfo info = seven.Decode();
    Fields fields = FieldsOf(info);
    EXPECT_EQ(fields.minoltaWhiteBalance, 2);
    EXPECT_EQ(fields.minoltaExposureComp, -0.5f);
    EXPECT_EQ(fields.minoltaColorTemp, 5200);
    EXPECT_EQ(fields.minoltaImageNumber, 95);
    EXPECT_EQ(fields.minoltaStabilizer, 113);
    EXPECT_EQ(info.orientation, 6);

    // The order of block and tag does not matter: the tag wins.
    BareNote five(kMakerMinolta, "", kMinolta5D);
    five.Entries().Undefined(0x0114, Settings(2, 448, {{14, 3}, {80, 82}, {83, 250}}))
        .Long(0x010B, {0});
    info = five.Decode();
    fields = FieldsOf(info);
    EXPECT_EQ(fields.minoltaWhiteBalance, 48);
    EXPECT_EQ(fields.minoltaExposureComp, -0.5f);
    EXPECT_EQ(fields.minoltaColorTemp, 7300);
    EXPECT_EQ(fields.minoltaPictureFinish, 113);
    EXPECT_EQ(info.orientation, 8);
    five.Entries().Long(0x0115, {96});
    EXPECT_EQ(FieldsOf(five.Decode()).minoltaWhiteBalance, 96);
}

TEST(MinoltaNote, RulesOfSingleModels) {
    struct Case {
        std::int32_t model; std::uint32_t balance;
        std::int32_t whiteBalance, fineTune, saturation, stabilizer, imageSize, filter;
    };
    const Case cases[] = {
        {kMinoltaA1, 0x00800000, 0x00800000, 0, 0, 1, 4, 1},
        {kMinoltaA2, 0x037E0000, 0x03800000, -2, 0, 1, INT_UNSET, 1},
        {kMinolta7Hi, 12, 12, INT_UNSET, 2, INT_UNSET, INT_UNSET, 3},
        {771, 0, 0, INT_UNSET, 2, INT_UNSET, 4, 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.model);
        BareNote note(kMakerMinolta, "", c.model);
        note.Entries().Undefined(0x0003, Settings(4, 228, {{3, c.balance}, {31, 5}, {41, 6}}))
            .Undefined(0x0018, Bytes(272)).Long(0x0103, {4}).SRational(0x0104, {{0, 0}})
            .Raw(0x0107, 4, 0, 0);
        const Fields fields = FieldsOf(note.Decode());
        EXPECT_EQ(fields.minoltaWhiteBalance, c.whiteBalance);
        EXPECT_EQ(fields.minoltaWbFineTune, c.fineTune);
        EXPECT_EQ(fields.minoltaSaturation, c.saturation);
        EXPECT_EQ(fields.minoltaStabilizer, c.stabilizer);
        EXPECT_EQ(fields.minoltaImageSizeTag, c.imageSize);
        EXPECT_EQ(fields.minoltaColorFilter, c.filter);
        EXPECT_FLOAT_EQ(fields.minoltaFlashComp, 29 / 3.0f);  // the block's
        EXPECT_EQ(fields.minoltaStabilizer2, INT_UNSET);
        EXPECT_EQ(fields.minoltaDataImprint, c.model == kMinolta7Hi ? 52 : INT_UNSET);
    }
}

TEST(MinoltaNote, PreviewsWithADamagedStartAreDelivered) {
    const Bytes whole = JpegStream(Segment(0xDB, Bytes(400)), 640, 480);
    Bytes damaged = whole;
    damaged[0] = 0;
    ExpectPreview(whole, [&](std::uint32_t offset, std::uint32_t length) {
        NoteFile file(Order::kLittle, "Minolta Co., Ltd.", "", "DiMAGE 7i");
        file.Note().Long(0x0088, {offset}).Long(0x0089, {length});
        return file.Tiff().Trailer(damaged).Build();
    });
    // Shorter ones are stubs.
    NoteFile stub(Order::kLittle, "Minolta Co., Ltd.", "", "DiMAGE 7i");
    stub.Note().Undefined(0x0081, JpegStream({}, 16, 16));
    EXPECT_EQ(DeliveredBytes(stub.Build()), Bytes());
}

TEST(MinoltaNote, HostileBytes) {
    BareNote note(kMakerMinolta, "", kMinolta5D, Order::kBig);
    note.Entries().Undefined(0x0081, JpegStream({}, 16, 16)).Long(0x0088, {20})
        .Long(0x0089, {300}).Long(0x0102, {2}).SRational(0x0104, {{1, 3}})
        .Undefined(0x0114, Settings(2, 448));
    note.ExpectHarmless(sizeof(Fields));
}

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
    EXPECT_TRUE(Lists(InfoOf(kMakerMinolta, compact), expected));

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
    EXPECT_TRUE(Lists(InfoOf(kMakerMinolta, reflex, kMinolta7D), reflexLines));
    EXPECT_TRUE(Lists(InfoOf(kMakerMinolta, Fields{}), Lines()));
}

TEST(MinoltaSection, ConditionsAndFallbacks) {
    ExpectLists<Fields>(kMakerMinolta, {
        {{.minoltaSceneMode = 0, .minoltaSubjectProgram = 1}, {}},
        {{.minoltaSubjectProgram = 1}, {"撮影モード=ポートレート"}},
        {{.minoltaWbFineTune = 2}, {}},  // a detail without its item
        {{.minoltaColorTemp = 0, .minoltaColorFilter = 1}, {"カラーフィルター=+1"}},
        {{.minoltaImageSizeTag = 6}, {"イメージサイズ=2272 x 1704"}},
        {{.minoltaDriveMode = 1, .minoltaIntervalNumber = 2, .minoltaIntervalLength = 2},
         {"ドライブモード=連続撮影"}},
        {{.minoltaMetering = 77}, {"測光モード=(77)"}},
        {{.minoltaTeleconverter = 0}, {}},
    });
}

TEST(MinoltaWordings, LensAndWhiteBalance) {
    const std::pair<std::int32_t, const char*> lenses[] = {
        {0, "AF 28-85mm F3.5-4.5 New"}, {25501, "AF 50mm F1.7"}, {25500, "AF 50mm F1.7"},
        {26210, "AF 100-300mm F4.5-5.6 xi"}, {26240, "(26240)"}, {25590, "(25590)"},
        {INT_UNSET, "-"}};
    for (const auto& [id, text] : lenses) {
        const ImageInfo info = InfoOf(kMakerMinolta, Fields{.minoltaLensId = id});
        EXPECT_EQ(Wording(&MakerText::lensText, info), text);
    }
    struct Case { std::int32_t code, model; const char* text; };
    const Case balances[] = {
        {2, kMinolta7D, "日陰"}, {2, kMinolta5D, "曇り"}, {16, kMinolta7D, "(16)"},
        {0x100, kMinolta5D, "色温度指定"}, {INT_UNSET, kMinolta7D, "-"}};
    for (const Case& c : balances) {
        const Fields fields = {.minoltaWhiteBalance = c.code};
        const ImageInfo info = InfoOf(kMakerMinolta, fields, c.model);
        EXPECT_EQ(Wording(&MakerText::whiteBalanceText, info), c.text);
    }
}

// clang-format on

}  // namespace
}  // namespace qmx::test
