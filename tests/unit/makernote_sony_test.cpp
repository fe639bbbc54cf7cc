// Sony's MakerNote and the texts.

#include <gtest/gtest.h>

#include <cstring>
#include <tuple>

#include "makernote/sony_cipher.h"
#include "makernote/sony_fields.h"
#include "support/listing.h"
#include "support/note_file.h"
#include "support/parse.h"
#include "text/sony_lens_spec.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = SonyMakerFields;

constexpr std::string_view kHeader = "SONY DSC \0\0\0"sv;
constexpr std::uint32_t kNone32 = 0xFFFFFFFF;

Fields FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

TEST(SonyCipher, IsCubingModulo249) {
    EXPECT_EQ(SonyPlainByte(0x08), 0x02);
    EXPECT_EQ(SonyPlainByte(0x40), 0x04);
    EXPECT_EQ(SonyPlainByte(0x1B), 0x03);
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        const std::uint32_t stored = byte < 249 ? byte * byte * byte % 249 : byte;
        EXPECT_EQ(SonyPlainByte(static_cast<std::uint8_t>(stored)), byte);
    }
}

// clang-format off

TEST(SonyNote, EveryTagHasItsField) {
    BareNote note(kMakerSony, kHeader);
    note.Entries().Long(0x0102, {2}).SRational(0x0104, {{-3, 10}}).Long(0x0105, {72})
        .Long(0x0112, {kNone32}).Long(0x0115, {48}).Long(0x2002, {4})
        .Value(0x2004, 9, 1, {0xFE, 0xFF, 0xFF, 0xFF}).Long(0x2008, {65537}).Short(0x2009, {256})
        .Long(0x200A, {0x00010011}).Short(0x200E, {65535}).Long(0x2011, {2})
        .Long(0x2014, {kNone32, 3}).Byte(0x201B, {6}).Byte(0x201C, {11}).Short(0x202C, {769})
        .Short(0x202E, {1, 3}).Byte(0xB000, {3, 1, 0, 0})
        .Value(0xB020, 2, 16, FromText("Standard\0\0\0\0\0\0\0\0"sv)).Long(0xB021, {kNone32})
        .Long(0xB022, {kNone32}).Long(0xB023, {16}).Long(0xB027, {49})
        .Byte(0xB02A, {0xC3, 0, 0x16, 0, 0x50, 0x35, 0x56, 0}).Long(0xB02B, {4000, 6000})
        .Short(0xB042, {2}).Short(0xB048, {0xFFFD}).Short(0xB04A, {65535}).Short(0xB054, {5});
    const Fields expected = {
        .sonySceneMode = 16, .sonyQuality = 2, .sonyQuality2 = 259, .sonyWhiteBalance = 48,
        .sonyWhiteBalance2 = 5, .sonyWbFineTune = -1, .sonyWbShiftAmber = -1,
        .sonyWbShiftMagenta = 3, .sonyColorFilter = -1, .sonyMetering2 = 769, .sonyFocusMode = 2,
        .sonyFocusMode2 = 6, .sonyAfAreaMode2 = 11, .sonyFlashComp = -0.3f, .sonyFlashLevel = -3,
        .sonyCreativeStyle = "Standard", .sonyContrast = -2, .sonyHdr = 17, .sonyHdrImage = 1,
        .sonyHighIsoNr = 256, .sonyLongExposureNr = 65537, .sonyVignetting = 2, .sonyLensId = 49,
        .sonyMount = kSonyAMount, .sonyLensSpec = {0xC3, 0, 0x16, 0, 0x50, 0x35, 0x56, 0},
        .sonyTeleconverter = 72, .sonyRating = 4, .sonyFileFormat = 0x03010000,
        .sonyFullImageHeight = 4000, .sonyFullImageWidth = 6000};
    EXPECT_TRUE(HoldsRecord(note.Decode(), expected));
}

TEST(SonyNote, AllOnesSayNothing) {
    BareNote note(kMakerSony, kHeader, kSonyA100);
    note.Entries().Long(0x0115, {kNone32}).Long(0x200A, {kNone32}).Short(0x202E, {1, 0xFFFF})
        .Short(0xB041, {0xFFFF}).Value(0xB048, 8, 1, {0xFF, 0xFF});
    EXPECT_TRUE(HoldsRecord(note.Decode(), Fields{}));
}

TEST(SonyNote, HeaderIsTestedFirstTheModelOnlyWithoutIt) {
    for (const auto& [header, model, decoded] : {std::tuple{kHeader, 0, true},
                                                 {kHeader, 8504, true},
                                                 {""sv, 8192, true},
                                                 {""sv, 8191, false},
                                                 {"SONY CAM \0\0\0"sv, 1024, false}}) {
        BareNote note(kMakerSony, header, model);
        note.Entries().Long(0x0102, {2});
        const ImageInfo info = note.Decode();
        EXPECT_EQ(info.hasMakerNote, decoded ? 1 : 0) << header << model;
        if (decoded) {
            EXPECT_EQ(FieldsOf(info).sonyQuality, 2) << header << model;
        }
    }
}

TEST(SonyNote, FormsOfTheSettings) {
    using Elements = std::vector<std::pair<std::size_t, std::uint32_t>>;
    struct Case {
        std::size_t bytes, element; Elements elements; std::int32_t orientation; Fields fields;
    };
    const Elements set1 = {
        {3, 152}, {4, 0x1218}, {5, 33}, {6, 2}, {7, 43}, {16, 3}, {17, 2}, {18, 7}, {19, 4},
        {20, 104}, {21, 2}, {22, 80}, {24, 1}, {26, 6}, {28, 13}, {29, 7}, {30, 10}, {34, 9},
        {35, 2}, {43, 1}, {44, 2}, {60, 3}, {61, 1}, {63, 1}, {84, 3}, {85, 1}, {86, 35}};
    const Fields fields1 = {
        .sonyWbFineTune = 2, .sonyContrast = -3, .sonySaturation = 0, .sonySharpness = 3,
        .sonyBrightness = -1, .sonySettingsForm = kSonyWordsSet1, .sonyProgram = 3,
        .sonyQualitySetting = 35, .sonyWbSetting = 33, .sonyColorTempSet = 4300, .sonyMetering = 2,
        .sonyExposureCompSet = 1, .sonyIsoSetting = 1600, .sonyDriveMode = 24,
        .sonyFocusModeSetting = 3, .sonyAfArea = 2, .sonyAfPoint = 7, .sonyFlashModeSetting = 4,
        .sonyFlashControl = 2, .sonyFlashCompSet = -1, .sonyStyle = 6, .sonyDroMode = 1,
        .sonyHighNrSet = 2, .sonyLongNrSet = 1, .sonyStabilizerSet = 1, .sonyImageSizeSetting = 3,
        .sonyAspect = 1};
    const Case cases[] = {
        {280, 2, set1, 6, fields1},
        {364, 2, set1, 6, fields1},
        {332, 2,
         {{3, 104}, {4, 18}, {5, 254}, {6, 55}, {15, 2}, {16, 1}, {17, 9}, {18, 136}, {19, 4},
          {20, 72}, {22, 3}, {24, 13}, {25, 8}, {26, 12}, {27, 11}, {31, 1}, {37, 1}, {38, 3},
          {60, 20}, {61, 1}, {63, 2}, {84, 2}, {85, 2}, {86, 34}, {126, 11}, {127, 6}},
         8,
         {.sonyWbFineTune = -2, .sonyContrast = 2, .sonySaturation = 1, .sonySharpness = -2,
          .sonySettingsForm = kSonyWordsSet2, .sonyProgram = 20, .sonyQualitySetting = 34,
          .sonyWbSetting = 18, .sonyColorTempSet = 5500, .sonyMetering = 4,
          .sonyExposureCompSet = -1, .sonyIsoSetting = 800, .sonyDriveMode = 11,
          .sonyFocusModeSetting = 2, .sonyAfArea = 1, .sonyAfPoint = 9, .sonyFlashModeSetting = 6,
          .sonyFlashControl = 1, .sonyFlashCompSet = 8 / 24.0f, .sonyStyle = 13, .sonyDroMode = 3,
          .sonyHighNrSet = 3, .sonyLongNrSet = 1, .sonyStabilizerSet = 1,
          .sonyImageSizeSetting = 2, .sonyAspect = 2}},
        {1536, 1,
         {{2, 254}, {3, 104}, {4, 213}, {6, 48}, {7, 3}, {9, 25}, {10, 8}, {11, 4}, {12, 17},
          {15, 160}, {32, 20}, {33, 1}, {35, 152}, {36, 4}, {37, 16}, {38, 19}},
         INT_UNSET,
         {.sonySettingsForm = kSonyBytesSet3, .sonyQualitySetting = 4, .sonyMetering = 3,
          .sonyExposureCompSet = -1, .sonyDriveMode = 213, .sonyFocusModeSetting = 48,
          .sonyAfArea = 4, .sonyFlashModeSetting = 20, .sonyFlashControl = 1,
          .sonyFlashCompSet = 1, .sonyStyleSetting = 160, .sonyDroSetting = 17,
          .sonyHighNrSet = 19, .sonyLongNrSet = 16, .sonyImageSizeSetting = 25, .sonyAspect = 8}},
        {300, 2, set1, INT_UNSET, {}},
    };
    for (const Case& c : cases) {
        Bytes block(c.bytes, 0);
        for (const auto& [index, value] : c.elements) {
            const std::size_t end = (index + 1) * c.element;
            block[end - 1] = static_cast<std::uint8_t>(value & 0xFF);
            if (c.element == 2) block[end - 2] = static_cast<std::uint8_t>(value >> 8);
        }
        BareNote note(kMakerSony, kHeader);
        note.Entries().Undefined(0x0114, block);
        const ImageInfo info = note.Decode();
        EXPECT_TRUE(HoldsRecord(info, c.fields)) << c.bytes;
        EXPECT_EQ(info.orientation, c.orientation) << c.bytes;
    }
}

// A block that holds these plain bytes, enciphered.
Bytes Enciphered(std::size_t size, std::uint32_t at, const Bytes& plain) {
    Bytes block(size, 0);
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const std::uint32_t byte = plain[i];
        block[at + i] = static_cast<std::uint8_t>(byte < 249 ? byte * byte * byte % 249 : byte);
    }
    return block;
}

Bytes WithFirst(std::uint8_t first, Bytes block) {
    block[0] = first;
    return block;
}

TEST(SonyNote, LensComesFromTheMostTrustedBlock) {
    const Bytes late = WithFirst(0x3A, Enciphered(0x100, 0x5E, {2, 0, 0x19, 0x80}));
    const Bytes early = WithFirst(0x1B, Enciphered(0x700, 0x604, {1, 0, 0, 0, 0x31, 0}));
    const Bytes c94 = Enciphered(64, 0x08, {4, 0x10, 0x80});
    const Bytes of9050 = Enciphered(944, 0x105, {2, 0, 0x11, 0x80});
    const Bytes of9416 = Enciphered(0x60, 0x4A, {2, 0x22, 0x80});
    const Bytes noMount = Enciphered(64, 0x08, {0, 0x10, 0x80});
    Bytes plain(1536);
    plain[0x99] = 17, plain[0x3F7] = 0x10, plain[0x3F8] = 0x80;
    struct Case {
        const char* model; std::int32_t modelId, tagId;
        std::vector<std::pair<std::uint16_t, Bytes>> blocks; std::int32_t id, mount;
    };
    const Case cases[] = {
        {"SLT-A58", 8495, 49, {{0x9405, late}}, 49, 0},
        {"ILCE-7M3", 8555, 65535, {{0x9405, late}, {0x940C, c94}, {0x9050, of9050}}, 32793, 1},
        {"ILCE-7M4", 8580, 65535, {{0x9405, late}, {0x9416, of9416}}, 32802, 1},
        {"ILCE-6000", 8504, 65535, {{0x9405, early}}, 49, 0},
        {"NEX-6", 8487, 65535, {{0x940C, c94}, {0x9050, of9050}}, 32784, 1},
        {"NEX-6", 8487, 65535, {{0x940C, noMount}, {0x9050, of9050}}, 32785, 1},
        {"SLT-A77V", 8479, 65535, {{0x940C, c94}}, 0, 1},
        {"ILCE-7SM3", 8575, 65535, {{0x9050, of9050}}, 0, 1},
        {"NEX-5", 8470, 65535, {{0x0114, plain}}, 32784, 1},
        {"DSC-RX100", 8489, 65535, {{0x9405, late}}, INT_UNSET, INT_UNSET},
        {"ZV-1", 8572, 65535, {{0x9405, late}}, INT_UNSET, INT_UNSET},
        {"ZV-E10", 8574, 65535, {{0x940C, c94}}, 32784, 1},
        {"DSC-W1", 256, INT_UNSET, {}, INT_UNSET, INT_UNSET},
        {"ILCE-7M3", 8555, 65535, {{0x9405, Bytes(0x5F, 0x3A)}}, 0, 1},
    };
    for (const Case& c : cases) {
        NoteFile file(Order::kLittle, "SONY", kHeader, c.model);
        if (IsSet(c.tagId)) file.Note().Long(0xB027, {static_cast<std::uint32_t>(c.tagId)});
        for (const auto& [tag, block] : c.blocks) file.Note().Undefined(tag, block);
        const ImageInfo info = Parse(file.Build()).info;
        EXPECT_EQ(info.modelId, c.modelId) << c.model;
        EXPECT_EQ(FieldsOf(info).sonyLensId, c.id) << c.model;
        EXPECT_EQ(FieldsOf(info).sonyMount, c.mount) << c.model;
    }
}

// The A100 keeps some values in a directory of Minolta's outside the note.
TEST(SonyNote, PartInMinoltasLayout) {
    for (const bool isA100 : {true, false}) {
        BareNote note(kMakerSony, kHeader, isA100 ? kSonyA100 : kSonyA100 + 1);
        Bytes settings(260);
        settings[21] = 5;
        note.Directory(0xB028).Long(0x010C, {24}).Undefined(0x0114, settings).Long(0x0115, {1});
        note.Entries().Value(0xB048, 8, 1, {0xFF, 0xFF});
        const Fields fields = FieldsOf(note.Decode());
        EXPECT_EQ(fields.sonyWhiteBalance, isA100 ? 1 : INT_UNSET);
        EXPECT_EQ(fields.sonyLensId, isA100 ? 24 : INT_UNSET);
        EXPECT_EQ(fields.minoltaDriveModeA100, isA100 ? 5 : INT_UNSET);
        EXPECT_EQ(fields.sonyFlashLevel, isA100 ? INT_UNSET : -1);
    }
}

TEST(SonyNote, PreviewStandsBehindAHeaderOfItsOwn) {
    const Bytes whole = JpegStream(Segment(0xDB, Bytes(400)), 1616, 1080);
    Bytes damaged = whole;
    damaged[0] = 0;
    const std::pair<Bytes, Bytes> cases[] = {
        {Bytes(32) + damaged, whole}, {Bytes(31) + damaged, {}}, {Bytes(32), {}}, {{}, {}}};
    for (const auto& [value, delivered] : cases) {
        NoteFile file(Order::kLittle, "SONY", kHeader);
        file.Note().Undefined(0x2001, value);
        EXPECT_EQ(DeliveredBytes(file.Build()), delivered);
    }
}

TEST(SonyNote, HostileBytes) {
    BareNote note(kMakerSony, kHeader, kSonyA100);
    note.Entries().SRational(0x0104, {{1, 3}}).Undefined(0x0114, Bytes(280, 7))
        .Undefined(0x2001, Bytes(32) + JpegStream({}, 16, 16))
        .Undefined(0x9405, WithFirst(0x3A, Bytes(0x64, 8))).Long(0xB027, {65535})
        .Long(0xB028, {20});
    note.ExpectHarmless(sizeof(Fields));
}

// ---- The texts.

ImageInfo InfoOf(const Fields& fields, const char* model = "") {
    ImageInfo info = test::InfoOf(kMakerSony, fields);
    std::strcpy(info.cameraModel, model);
    return info;
}

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
    EXPECT_TRUE(Lists(InfoOf(fields, "SLT-A77V"), expected));
    EXPECT_TRUE(Lists(InfoOf({}), {}));
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
    for (const Case& c : cases)
        EXPECT_TRUE(Lists(InfoOf(c.fields, c.model), c.lines)) << "row " << &c - cases;
}

TEST(SonyLensSpec, Composes) {
    struct Case { std::uint8_t spec[8]; const char* text; };
    const Case cases[] = {
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
    for (const auto& [spec, text] : cases) {
        wchar_t storage[kValueCapacity];
        TextBuffer dst(storage);
        EXPECT_EQ(FormatSonyLensSpec(dst, spec), *text != 0) << text;
        EXPECT_EQ(Utf8(dst.Text()), text);
    }
}

TEST(SonyWordings, LensAndWhiteBalance) {
    const std::pair<Fields, const char*> lenses[] = {
        {{.sonyLensId = 0, .sonyMount = kSonyEMount}, "Unknown E-Mount lens or other lens"},
        {{.sonyLensId = 0, .sonyMount = kSonyAMount}, "AF 28-85mm F3.5-4.5 New"},
        {{.sonyLensId = 25500, .sonyMount = kSonyAMount}, "AF 50mm F1.7"},
        {{.sonyLensId = 32784, .sonyMount = kSonyAMount}, "(32784)"},
        {{.sonyMount = kSonyEMount}, "-"}};
    for (const auto& [fields, text] : lenses)
        EXPECT_EQ(Wording(&MakerText::lensText, InfoOf(fields)), text);
    const std::pair<Fields, const char*> balances[] = {
        {{.sonyWhiteBalance = 64, .sonyWhiteBalance2 = 5}, "電球"},
        {{.sonyWhiteBalance2 = 8}, "蛍光灯（昼白色）"},
        {{.sonyWbSetting = 4}, "-"}};
    for (const auto& [fields, text] : balances)
        EXPECT_EQ(Wording(&MakerText::whiteBalanceText, InfoOf(fields)), text);
}

// clang-format on

}  // namespace
}  // namespace qmx::test
