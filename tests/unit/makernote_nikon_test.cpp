// Nikon's MakerNote and the texts.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <span>
#include <string>

#include "makernote/nikon_cipher.h"
#include "makernote/nikon_fields.h"
#include "support/listing.h"
#include "support/note_file.h"
#include "text/nikon_lenses.h"
#include "text/nikon_names.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = NikonMakerFields;

constexpr std::int32_t kD80 = 4108;

// A note with a TIFF header of its own, in a file of the other byte order.
BareNote NikonNote(Order order = Order::kBig, std::int32_t modelId = kD80) {
    const bool isBig = order == Order::kBig;
    const auto header =
        isBig ? "Nikon\0\2\x10\0\0MM\0*\0\0\0\10"sv : "Nikon\0\2\x10\0\0II*\0\10\0\0\0"sv;
    const Order other = isBig ? Order::kLittle : Order::kBig;
    return BareNote(kMakerNikon, header, modelId, order, 0, other);
}

Fields FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

// Bytes that stand in no byte order of the note.
Bytes PictureControl(std::string_view version, const Bytes& settings) {
    ByteWriter block(Order::kBig);
    block.Raw(FromText(version)).Raw(FromText("VIVID")).Pad(24).Raw(FromText("STANDARD  "));
    return block.Pad(48).Raw(settings).bytes;
}

// clang-format off

void AddEveryTag(IfdBuilder& note, Order order) {
    const auto words = [order] { return ByteWriter(order); };
    note.Undefined(0x0001, FromText("0210")).Short(0x0002, {0, 320}).Ascii(0x0003, "COLOR ")
        .Ascii(0x0004, "FINE   ").Ascii(0x0005, "AUTO1       ").Ascii(0x0006, "MED.H ")
        .Ascii(0x0007, "AF-S  ").Ascii(0x0008, "RED-EYE SLOW").Ascii(0x0009, "Built-in,TTL&Comdr.")
        .Value(0x000B, 8, 2, words().U16(0xFFFE).U16(3).bytes)
        .Undefined(0x000D, {0xFE, 1, 6, 0}).Undefined(0x000E, {5, 1, 12, 0})
        .Ascii(0x000F, "MANUAL").Undefined(0x0012, {0xFB, 1, 3, 0}).Short(0x0013, {1, 6400})
        .Undefined(0x0017, {1, 1, 0, 0}).Undefined(0x0018, {1, 1, 1, 0})
        .SRational(0x0019, {{1, 2}}).Short(0x001B, {2, 1, 1, 1, 1, 0, 0}).Ascii(0x001D, "2188172 ")
        .Short(0x001E, {2}).Undefined(0x001F, {48, 49, 48, 48, 1, 0, 2, 0}).Short(0x0022, {65535})
        .Undefined(0x0023, PictureControl("0100", {2, 0x81, 0x84, 0, 1, 0x80, 0x7F, 129, 130}))
        .Undefined(0x0025, {60, 1, 12, 0, 1, 4, 0, 0}).Short(0x002A, {3})
        .Undefined(0x002B, {48, 49, 48, 48, 1, 0, 0, 0}).Short(0x0034, {48})
        .Undefined(0x0035, {48, 49, 48, 48, 1, 2, 3, 0}).Long(0x0037, {1234})
        .Ascii(0x0080, "CONTRAST(+)").Ascii(0x0081, "CS").Ascii(0x0082, "FISHEYE 1    ")
        .Byte(0x0083, {14}).Rational(0x0084, {{12}, {24}, {4}, {4}})
        .Rational(0x0085, {{15, 10}}).Rational(0x0086, {{2}}).Byte(0x0087, {9})
        .Undefined(0x0088, {1, 3, 4, 8}).Short(0x0089, {33}).Undefined(0x008B, {0x80, 1, 12, 0})
        .Ascii(0x008D, "MODE1a  ").Ascii(0x008F, "COPY").Ascii(0x0090, "SPEEDLIGHT ")
        .Value(0x0092, 8, 1, words().U16(0xFFF7).U16(0).bytes).Short(0x0093, {3})
        .Value(0x0094, 8, 1, words().U16(0xFFFD).U16(0).bytes).Ascii(0x0095, "FPNR")
        .Undefined(0x0098, {}).Ascii(0x009C, "GUIDE").Short(0x009D, {2})
        .Short(0x009E, {3, 0, 99, 5}).Ascii(0x00A0, "NO= 00002539 ")
        .Long(0x00A5, {77}).Long(0x00A6, {7}).Long(0x00A7, {4044})
        .Ascii(0x00A9, "MORE VIVID").Ascii(0x00AA, "ENHANCED").Ascii(0x00AB, "AUTO(FLASH OFF)")
        .Ascii(0x00AC, "VR-OFF").Ascii(0x00AD, "STANDARD")
        .Undefined(0x00B0, words().Raw(FromText("0100")).U32(1).U32(3).U32(0).bytes)
        .Short(0x00B1, {4}).Undefined(0x00B6, words().U16(2008).Raw({7, 31, 12, 4, 6, 0}).bytes)
        .Undefined(0x00B7, {48, 49, 48, 48, 0, 8, 1, 23})
        .Undefined(0x00B8, {48, 49, 48, 48, 0, 0, 0, 101, 0x12, 0x34})
        .Undefined(0x00B9, {1, 0, 0xFB, 0}).Short(0x00BF, {1});
}

constexpr Fields kEveryField = {
    .nikonVersion = {'0', '2', '1', '0'}, .nikonColorMode = "COLOR", .nikonQuality = "FINE",
    .nikonWhiteBalance = "AUTO1", .nikonSharpening = "MED.H", .nikonFocusMode = "AF-S",
    .nikonFlashSetting = "RED-EYE SLOW", .nikonFlashType = "Built-in,TTL&Comdr.",
    .nikonIsoSelection = "MANUAL", .nikonSerialNumber = "2188172",
    .nikonImageAdjustment = "CONTRAST(+)", .nikonToneComp = "CS",
    .nikonAuxiliaryLens = "FISHEYE 1", .nikonColorHue = "MODE1a", .nikonSceneMode = "COPY",
    .nikonLightSource = "SPEEDLIGHT", .nikonNoiseReduction = "FPNR", .nikonSceneAssist = "GUIDE",
    .nikonSerialNumber2 = "NO= 00002539", .nikonImageOptimization = "MORE VIVID",
    .nikonSaturation = "ENHANCED", .nikonVariProgram = "AUTO(FLASH OFF)", .nikonVrText = "VR-OFF",
    .nikonAfResponse = "STANDARD", .nikonPictureControlName = "VIVID",
    .nikonPictureControlBase = "STANDARD", .nikonWbFineTune = {-2, 3}, .nikonIsoSetting = 6400,
    .nikonCropHiSpeed = 2, .nikonColorSpace = 2, .nikonVr = 1, .nikonVrMode = 2,
    .nikonActiveDLighting = 65535, .nikonIsoExpansion = 260, .nikonVignetteControl = 3,
    .nikonAutoDistortion = 1, .nikonShutterMode = 48, .nikonHdr = 1, .nikonHdrLevel = 2,
    .nikonHdrSmoothing = 3, .nikonMechanicalShutterCount = 1234, .nikonLensType = 14,
    .nikonFlashMode = 9, .nikonAfAreaMode = 1, .nikonAfPoint = 3, .nikonAfPointsInFocus = 0x408,
    .nikonShootingMode = 33, .nikonHueAdjustment = -9, .nikonNefCompression = 3,
    .nikonSaturationStep = -3, .nikonDateStamp = 2, .nikonImageCount = 77,
    .nikonDeletedImageCount = 7,
    .nikonShutterCount = 4044, .nikonMultiExposureMode = 1, .nikonMultiExposureShots = 3,
    .nikonHighIsoNr = 4, .nikonAfInfo2Method = 0, .nikonAfAreaMode2 = 8, .nikonPrimaryAfPoint = 23,
    .nikonFolderNumber = 101, .nikonFileNumber = 0x1234, .nikonAfTune = 1, .nikonAfTuneStep = -5,
    .nikonSilent = 1, .nikonPictureControlAdjust = 2, .nikonPictureControlQuick = 4,
    .nikonPcSharpness = 16, .nikonPcContrast = kNikonStepAuto, .nikonPcBrightness = kNikonStepUser,
    .nikonPcSaturation = 0, .nikonPcHue = -4, .nikonFilterEffect = 129,
    .nikonToningEffect = 130, .nikonProgramShift = -2.0f / 6,
    .nikonExposureDifference = 5.0f / 12, .nikonFlashComp = -5.0f / 3,
    .nikonExternalFlashComp = 0, .nikonFlashBracket = 1, .nikonExposureBracket = 0.5f,
    .nikonLensFStops = 128.0f / 12, .nikonLensRange = {12, 24, 4, 4},
    .nikonManualFocusDistance = 1.5f, .nikonDigitalZoom = 2,
    .nikonRetouchHistory = {3, 0, 99, 5},
    .nikonPowerUpTime = {2008, 7, 31, 12, 4, 6}};

TEST(NikonNote, EveryTagHasItsFieldAndEveryFieldItsLine) {
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
        "　+ 調整=詳細調整", "　+ クイック調整=+1", "　+ 輪郭強調=+4",
        "　+ コントラスト=オート", "　+ 明るさ=ユーザー設定", "　+ 彩度=±0", "　+ 色合い=-1",
        "　+ フィルター効果=黄", "　+ 調色=青写真", "アクティブD-ライティング=オート", "HDR=オン",
        "　+ 露出差=2EV", "　+ スムージング=強め", "高感度ノイズ低減=標準",
        "長秒時ノイズ低減=オン", "手ブレ補正=オン", "　+ モード=アクティブ",
        "ヴィネットコントロール=標準", "自動ゆがみ補正=オン", "撮像範囲=DXクロップ",
        "デジタルズーム=2.0倍",
        "レンズ情報=AF VR 12-24mm F4.0G",
        "　+ レンズ種類=D+G+VR", "　+ 焦点距離=12-24mm F4.0", "　+ 絞り段数=10.6段",
        "コンバーター=フィッシュアイ1", "多重露出=多重露出", "　+ コマ数=3",
        "日付写し込み=日付", "画像編集=白黒+(99)+トリミング", "シャッター方式=電子先幕シャッター",
        "　+ メカシャッター回数=1234", "静音撮影=オン", "シリアル番号=2188172",
        "レリーズ回数=4044", "　+ 削除画像数=7", "ファイル番号=101-4660",
        "電源オン日時=2008/07/31 12:04:06"};
    for (const Order order : {Order::kLittle, Order::kBig}) {
        BareNote note = NikonNote(order);
        AddEveryTag(note.Entries(), order);
        const ImageInfo info = note.Decode();
        EXPECT_EQ(info.hasMakerNote, 1);
        EXPECT_EQ(info.isoSpeed, 320);
        EXPECT_TRUE(HoldsRecord(info, kEveryField));
        EXPECT_TRUE(Lists(info, expected));
        note.before.isoSpeed = 200;  // Exif's
        EXPECT_EQ(note.Decode().isoSpeed, 200);
        note.Entries().Long(0x0011, {8}).Undefined(0x0098, FromText("0204") + Bytes(29, 0xA5));
        note.ExpectHarmless(sizeof(Fields));
    }
    const ImageInfo empty = NikonNote().Decode();
    EXPECT_TRUE(HoldsRecord(empty, Fields{}));
    EXPECT_TRUE(Lists(empty, Lines()));
}

TEST(NikonNote, RulesOfSingleTags) {
    using Note = IfdBuilder;
    struct Case {
        const char* what; void (*fill)(Note&); Fields fields; std::int32_t modelId = kD80;
    };
    const Case cases[] = {
        {"texts fill their fields",
         [](Note& n) { n.Ascii(0x0004, "01234567890123").Ascii(0x0007, "AF-C  "); },
         {.nikonQuality = "01234567890", .nikonFocusMode = "AF-C"}},
        {"a speed of 0", [](Note& n) { n.Short(0x0002, {0, 0}).Short(0x0013, {1, 0}); }, {}},
        {"half a speed", [](Note& n) { n.Short(0x0002, {200}).Short(0x0013, {200}); }, {}},
        {"one step of fine tuning", [](Note& n) { n.Short(0x000B, {4}); },
         {.nikonWbFineTune = {4, INT_UNSET}}},
        {"a value without its divisor",
         [](Note& n) { n.Undefined(0x000D, {1, 1}).Undefined(0x0012, {1, 1, 3}); },
         {.nikonFlashComp = 1.0f / 3}},
        {"distances of 0",
         [](Note& n) {
             n.Rational(0x0084, {{50}, {50}, {18, 10}, {0, 0}}).Rational(0x0085, {{0, 0}});
         },
         {.nikonLensRange = {50, 50, 1.8f, FLOAT_UNSET}}},
        {"three numbers of a range",
         [](Note& n) { n.Rational(0x0084, {{50}, {50}, {18, 10}}); }, {}},
        {"points of a reflex camera", [](Note& n) { n.Raw(0x0088, 4, 1, 0x00010203); },
         {.nikonAfAreaMode = 0, .nikonAfPoint = 1, .nikonAfPointsInFocus = 0x203}, 4096},
        {"points of a compact camera", [](Note& n) { n.Undefined(0x0088, {0, 1, 2, 3}); },
         {.nikonAfAreaMode = 0, .nikonAfPoint = 1, .nikonAfPointsInFocus = 0x302}, 256},
        {"a short block of points", [](Note& n) { n.Undefined(0x0088, {0, 1, 2}); },
         {.nikonAfAreaMode = 0, .nikonAfPoint = 1}},
        {"a short block of HDR", [](Note& n) { n.Undefined(0x0035, {48, 49, 48, 48, 1, 2}); }, {}},
        {"steps in quarters",
         [](Note& n) {
             n.Undefined(0x0023, PictureControl("0200", {1, 0x7F, 0, 0x85, 0, 0xFF, 0, 0x7B, 0, 0,
                                                         0, 0x80, 0, 0x81, 0, 129, 255}));
         },
         {.nikonPictureControlName = "VIVID", .nikonPictureControlBase = "STANDARD",
          .nikonPictureControlAdjust = 1, .nikonPictureControlQuick = -4, .nikonPcSharpness = 5,
          .nikonPcContrast = -5, .nikonPcBrightness = kNikonStepAuto, .nikonPcSaturation = 0,
          .nikonPcHue = 1, .nikonFilterEffect = 129}},
        {"names of a third version",
         [](Note& n) {
             const Bytes names = ByteWriter(Order::kBig).Raw(FromText("0300")).Pad(8)
                 .Raw(FromText("FLAT")).Pad(28).Raw(Bytes(20, 'B')).Pad(108).bytes;
             n.Undefined(0x0023, names);
         },
         {.nikonPictureControlName = "FLAT", .nikonPictureControlBase = "BBBBBBBBBBBBBBBBBBBB"}},
        {"settings of a compact camera",
         [](Note& n) { n.Undefined(0x00BD, PictureControl("0100", {0})); },
         {.nikonPictureControlName = "VIVID", .nikonPictureControlBase = "STANDARD",
          .nikonPictureControlAdjust = 0}},
        {"unknown versions",
         [](Note& n) {
             n.Undefined(0x0023, PictureControl("0400", {1, 2}));
             n.Undefined(0x00B7, {48, 51, 48, 48, 0, 8, 1, 23});
         }, {}},
        {"exposures in little-endian",
         [](Note& n) { n.Undefined(0x00B0, FromText("0101\2\0\0\0\5\0\0\0"sv)); },
         {.nikonMultiExposureMode = 2, .nikonMultiExposureShots = 5}},
        {"files in little-endian",
         [](Note& n) { n.Undefined(0x00B8, {0, 0, 0, 0, 0, 0, 100, 0, 42, 0}); },
         {.nikonFolderNumber = 100, .nikonFileNumber = 42}},
        {"no such folder",
         [](Note& n) { n.Undefined(0x00B8, {0, 0, 0, 0, 0, 0, 9, 9, 42, 0}); }, {}},
        {"a negative divisor", [](Note& n) { n.Undefined(0x0018, {0x80, 2, 0xFF, 0}); },
         {.nikonFlashBracket = 256}},
        {"releases not known", [](Note& n) { n.Long(0x00A7, {4294965247}); }, {}},
        {"values past the end",
         [](Note& n) {
             n.Raw(0x0004, 2, 9, 0x70000000).Raw(0x0023, 7, 58, 0x70000000);
             n.Raw(0x0098, 7, 31, 0xFFFFFFFF);
         }, {}},
        {"negative and wrapping counts",
         [](Note& n) {
             n.Raw(0x0004, 2, 0x80000000, 0).Raw(0x001E, 4, 0x40000000, 2).EntryCount(65535);
         },
         {.nikonColorSpace = 2}},
    };
    for (const Case& c : cases) {
        BareNote note = NikonNote(Order::kBig, c.modelId);
        c.fill(note.Entries());
        const ImageInfo info = note.Decode();
        EXPECT_TRUE(HoldsRecord(info, c.fields)) << c.what;
        EXPECT_EQ(info.isoSpeed, INT_UNSET) << c.what;
    }
}

// From photos of a D2Hs, a D90, a D300 and a Z 6; in whatever order the tags come.
TEST(NikonNote, LensDataOfRealCameras) {
    struct Case {
        const char* serial; std::uint32_t count, lensType; std::string idText, stored;
    };
    const Case cases[] = {
        {"3001006", 2, 2, "7658505014147A02",
         "30323031cbcab032b6aca8abcd702ebba7f020a7420a5ded7fee30452de876"},
        {"2188172", 4044, 2, "3648373724243402",
         "303230342abd0780f10b21b990e594bf783be55615d0c61f98d3fd161e15fbd094"},
        {"3105364", 241575, 14, "A5403C8E2C3CA70E",
         "3032303364f38b3d96fd16d61b08709559a5ab1c14f75bf4a9cee5e8e6cca671"},
        {"6078248", 174, 14, "77485C8024247B0E",
         "30383031fe6f66361314c725551895daeaadc7036c5aca0985cd796c14f7156e02d1db20a05b5182"},
    };
    const auto byteAt = [](const std::string& hex, std::size_t at) {
        return static_cast<std::uint8_t>(std::stoi(hex.substr(at, 2), nullptr, 16));
    };
    for (const Case& c : cases) {
        Bytes stored;
        for (std::size_t i = 0; i < c.stored.size(); i += 2) stored.push_back(byteAt(c.stored, i));
        int order[] = {0, 1, 2, 3};
        do {
            BareNote note = NikonNote();
            for (const int tag : order) {
                if (tag == 0) note.Entries().Ascii(0x001D, c.serial);
                if (tag == 1) note.Entries().Byte(0x0083, {c.lensType});
                if (tag == 2) note.Entries().Undefined(0x0098, stored);
                if (tag == 3) note.Entries().Long(0x00A7, {c.count});
            }
            const Fields fields = FieldsOf(note.Decode());
            EXPECT_EQ(FieldText(fields.nikonLensIdText), c.idText) << c.serial;
            EXPECT_EQ(fields.nikonLensIdNumber, byteAt(c.idText, 0)) << c.serial;
        } while (std::next_permutation(std::begin(order), std::end(order)));
    }
}

TEST(NikonNote, LensDataOfEveryVersion) {
    constexpr std::uint32_t kCount = 4294965247;  // a key all the same
    struct Case {
        const char* version;
        std::size_t lens, name, zNumber;  // 0: none
        const char* serial = "1234567";
        std::uint32_t key = 1234567;
        std::int32_t modelId = kD80;
    };
    constexpr Case kCases[] = {
        {"0100", 6, 0, 0}, {"0101", 11, 0, 0}, {"0201", 11, 0, 0}, {"0202", 11, 0, 0},
        {"0203", 11, 0, 0}, {"0204", 12, 0, 0}, {"0400", 0, 394, 0}, {"0401", 0, 394, 0},
        {"0402", 0, 395, 0}, {"0403", 0, 684, 0}, {"0800", 13, 0, 48}, {"0801", 13, 0, 48},
        {"0802", 13, 0, 48}, {"0205", 0, 0, 0}, {"0900", 0, 0, 0},
        {"0201", 11, 0, 0, "D50", 0x22, 4105}, {"0201", 11, 0, 0, "       ", 0x60},
        {"0201", 11, 0, 0, "12A4567", 0x60}, {"0201", 11, 0, 0, "1234567 ", 0x60},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.version);
        const std::size_t end = std::max(
            {c.lens + 7, c.name != 0 ? c.name + 64 : 0, c.zNumber != 0 ? c.zNumber + 2 : 0});
        Bytes block(end, 0);
        const auto put = [&](std::size_t at, const Bytes& bytes) {
            std::copy(bytes.begin(), bytes.end(), block.begin() + static_cast<std::ptrdiff_t>(at));
        };
        put(0, FromText(c.version));
        if (c.lens != 0) put(c.lens, {0x7A, 0x3C, 0x1F, 0x37, 0x30, 0x30, 0x7E});
        if (c.name != 0) put(c.name, FromText("1 NIKKOR 10mm f/2.8   "));
        if (c.zNumber != 0) put(c.zNumber, {0x01, 0x09});
        if (c.version[1] >= '2') DecipherNikon(std::span(block).subspan(4), c.key, kCount);
        const auto decode = [&](const Bytes& data, bool hasSerial, bool hasCount, bool hasType) {
            BareNote note = NikonNote(Order::kLittle, c.modelId);
            note.Entries().Undefined(0x0098, data);
            if (hasSerial) note.Entries().Ascii(0x001D, c.serial);
            if (hasCount) note.Entries().Long(0x00A7, {kCount});
            if (hasType) note.Entries().Byte(0x0083, {6});
            return FieldsOf(note.Decode());
        };
        const Fields whole = decode(block, true, true, true);
        EXPECT_EQ(FieldText(whole.nikonLensIdText), c.lens != 0 ? "7A3C1F3730307E06" : "");
        EXPECT_EQ(whole.nikonLensIdNumber, c.lens != 0 ? 0x7A : INT_UNSET);
        EXPECT_EQ(FieldText(whole.nikonLensText), c.name != 0 ? "1 NIKKOR 10mm f/2.8" : "");
        EXPECT_EQ(whole.nikonZLensNumber, c.zNumber != 0 ? 0x0901 : INT_UNSET);

        const Fields untyped = decode(block, true, true, false);
        EXPECT_EQ(FieldText(untyped.nikonLensIdText), "");
        EXPECT_EQ(untyped.nikonLensIdNumber, whole.nikonLensIdNumber);

        const Fields cut = decode(Bytes(block.begin(), block.end() - 1), true, true, true);
        EXPECT_EQ(FieldText(cut.nikonLensText), "");
        EXPECT_EQ(cut.nikonZLensNumber, INT_UNSET);
        EXPECT_EQ(cut.nikonLensIdNumber, c.zNumber == 0 ? INT_UNSET : whole.nikonLensIdNumber);

        if (c.version[1] < '2') continue;
        for (const bool hasSerial : {false, true}) {
            const Fields keyless = decode(block, hasSerial, !hasSerial, true);
            EXPECT_EQ(FieldText(keyless.nikonLensText), "");
            EXPECT_EQ(keyless.nikonZLensNumber, INT_UNSET);
            EXPECT_EQ(keyless.nikonLensIdNumber, INT_UNSET);
        }
    }
}

// No lens, or a manual one without contacts; a Z lens, a name under another cipher.
TEST(NikonNote, LensDataThatSayNothing) {
    const Bytes none = FromText("0100") + Bytes(16, 0);
    Bytes native = FromText("0800") + Bytes(104, 0);
    DecipherNikon(std::span(native).subspan(4), 1, 1);
    const Bytes garbled = FromText("0400") + Bytes(454, 0x55);
    struct Case { Bytes data; std::uint32_t type; const char* idText; std::int32_t idNumber; };
    const Case cases[] = {
        {none, 6, "", INT_UNSET},
        {none, 1, "0000000000000001", 0},
        {native, 1, "", INT_UNSET},
        {garbled, 1, "", INT_UNSET},
    };
    for (const Case& c : cases) {
        BareNote note = NikonNote();
        note.Entries().Ascii(0x001D, "1").Byte(0x0083, {c.type}).Undefined(0x0098, c.data);
        note.Entries().Long(0x00A7, {1});
        const Fields fields = FieldsOf(note.Decode());
        EXPECT_EQ(FieldText(fields.nikonLensIdText), c.idText);
        EXPECT_EQ(fields.nikonLensIdNumber, c.idNumber);
        EXPECT_EQ(FieldText(fields.nikonLensText), "");
    }
}

// clang-format on

TEST(NikonNote, PreviewIsDelivered) {
    const Bytes jpeg = JpegStream(Segment(0xDB, Bytes(6)), 570, 375);
    const auto length = static_cast<std::uint32_t>(jpeg.size());
    // What a directory for each of these delivers, all of them linked.
    using Preview = std::pair<Bytes, std::uint32_t>;
    const auto deliver = [](const std::vector<Preview>& previews, int links, bool isJpegFile) {
        TiffBuilder inner(Order::kBig);
        IfdBuilder& note = inner.Ifd();
        for (const auto& [picture, stated] : previews) {
            IfdBuilder& preview = inner.SubIfd();
            for (int i = 0; i < links; ++i) note.Link(0x0011, {&preview});
            preview.Long(0x0103, {6}).Data(0x0201, picture).Long(0x0202, {stated});
        }
        const Bytes value = FromText("Nikon\0\2\x10\0\0"sv) + inner.Build();
        const Bytes file = NoteFile::Build(Order::kLittle, "NIKON CORPORATION", "NIKON D80", value);
        return DeliveredBytes(isJpegFile ? ExifJpeg(file) : file, true);
    };
    EXPECT_EQ(deliver({{jpeg, length}}, 1, false), jpeg);
    EXPECT_EQ(deliver({{jpeg, length}}, 1, true), jpeg);
    EXPECT_EQ(deliver({{jpeg, length}}, 3, false), jpeg);  // one record
    EXPECT_EQ(deliver({{jpeg, 0}}, 1, false), Bytes());
    EXPECT_EQ(deliver({{jpeg, 0x7FFFFFFF}}, 1, false), Bytes());
    EXPECT_EQ(deliver({{Bytes(40, 0), 40}}, 1, false), Bytes());
    // The larger one is cut off: the choice is among the others.
    EXPECT_EQ(deliver({{JpegStream({}, 3000, 2000), 1 << 20}, {jpeg, length}}, 1, false), jpeg);
    for (const std::uint32_t nowhere : {0u, 8u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        BareNote note = NikonNote();
        note.Entries().Long(0x0011, {nowhere}).Short(0x001E, {1});
        EXPECT_EQ(FieldsOf(note.Decode()).nikonColorSpace, 1) << nowhere;
    }
}

// The E950's note: entries right behind 8 bytes, of another numbering.
TEST(NikonNote, NotesOfTheOldestFormAreLeftAlone) {
    BareNote note(kMakerNikon, "Nikon\0\1\0"sv, 256);
    AddEveryTag(note.Entries(), Order::kLittle);
    const ImageInfo info = note.Decode();
    EXPECT_EQ(info.hasMakerNote, 1);
    EXPECT_TRUE(HoldsRecord(info, Fields{}));
}

// clang-format off

TEST(NikonSection, ConditionsAndFallbacks) {
    ExpectLists<Fields>(kMakerNikon, {
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
        {{.nikonPictureControlName = "FLAT", .nikonPcSharpness = 5, .nikonPcClarity = -2},
         {"ピクチャーコントロール=FLAT", "　+ 輪郭強調=+1.25", "　+ 明瞭度=-0.50"}},
    }, kD80);
}

TEST(NikonSection, LensBySources) {
    const std::pair<Fields, const char*> cases[] = {
        {{.nikonLensIdText = "0158505014140200", .nikonLensIdNumber = 2}, "AF 50mm F1.8"},
        {{.nikonLensIdText = "FFFFFFFFFFFFFFFF", .nikonLensIdNumber = 1}, "(FFFFFFFFFFFFFFFF)"},
        {{.nikonLensText = "none", .nikonLensIdNumber = 1}, "AF 50mm F1.8"},
        {{.nikonLensIdNumber = 12}, "(12)"},
        {{.nikonLensText = "1 NIKKOR 10mm f/2.8", .nikonLensIdNumber = 0}, "1 NIKKOR 10mm f/2.8"},
        {{.nikonLensIdNumber = 3}, "-"},
        {{.nikonLensIdNumber = 38}, "-"},
        {{.nikonZLensNumber = 13}, "Z 24-70mm F2.8 S"},
        {{.nikonLensType = 14, .nikonZLensNumber = 9999, .nikonLensRange = {24, 70, 2.8f, 2.8f}},
         "AF VR 24-70mm F2.8G"},
        {{.nikonLensType = 1, .nikonLensRange = {18, 55, 3.5f, 3.5f}}, "MF 18-55mm F3.5"},
        {{.nikonLensType = 1}, "-"},
        {{.nikonLensType = 1, .nikonLensRange = {50, 50, FLOAT_UNSET, FLOAT_UNSET}}, "-"},
        {{.nikonLensIdText = "7A3C1F3730307E06"},
         "AF-S DX 12-24mm F4G / Tokina AT-X 124 AF PRO DX II 12-24mm F4"},
    };
    for (const auto& [fields, text] : cases)
        EXPECT_EQ(Wording(&MakerText::lensText, InfoOf(kMakerNikon, fields, kD80)), text);
}

TEST(NikonSection, WhiteBalance) {
    const std::pair<Fields, const char*> cases[] = {
        {{.nikonWhiteBalance = "AUTO"}, "オート"}, {{.nikonWhiteBalance = "AUTO2"}, "オート2"},
        {{.nikonWhiteBalance = "INCANDESCENT"}, "電球"}, {{.nikonWhiteBalance = "SUNNY"}, "晴天"},
        {{.nikonWhiteBalance = "PRESET0", .nikonWbFineTune = {2, 2}}, "プリセット0"},
        {{.nikonWhiteBalance = "PRESET"}, "プリセット"},
        {{.nikonWhiteBalance = "4500K"}, "(4500K)"}, {{}, "-"}};
    for (const auto& [fields, text] : cases)
        EXPECT_EQ(Wording(&MakerText::whiteBalanceText, InfoOf(kMakerNikon, fields, kD80)), text);
}

// clang-format on

TEST(NikonSection, EveryRowOfItsTablesCanAnswer) {
    for (const PrefixName* table :
         {kNikonLensIdNames, kNikonWhiteBalanceNames, kNikonFlashSettingNames, kNikonFlashTypeNames,
          kNikonColorHueNames, kNikonSceneModeNames, kNikonImageOptimizationNames,
          kNikonVariProgramNames, kNikonAuxiliaryLensNames, kNikonToneCompNames,
          kNikonQualityNames}) {
        EXPECT_NE(table->key, nullptr);
        for (const PrefixName* row = table; row->key != nullptr; ++row)
            for (const PrefixName* earlier = table; earlier != row; ++earlier)
                EXPECT_FALSE(std::string(row->key).starts_with(earlier->key)) << row->key;
    }
    for (const PrefixName* row = kNikonLensIdNames; row->key != nullptr; ++row)
        EXPECT_EQ(std::string(row->key).find_first_not_of("0123456789ABCDEF"), std::string::npos);
    std::set<std::int32_t> numbers, zNumbers;
    for (std::int32_t i = 0; i < kNikonLensNumberCount; ++i)
        EXPECT_TRUE(numbers.insert(kNikonLensNumberNames[i].key).second);
    for (std::int32_t i = 0; i < kNikonZLensCount; ++i)
        EXPECT_TRUE(zNumbers.insert(kNikonZLensNames[i].key).second);
}

}  // namespace
}  // namespace qmx::test
