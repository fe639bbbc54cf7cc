// Canon's MakerNote, its arrays by themselves, and the texts.

#include <gtest/gtest.h>

#include <cstring>
#include <map>

#include "makernote/canon_arrays.h"
#include "makernote/canon_fields.h"
#include "support/listing.h"
#include "support/parse.h"
#include "text/canon_lenses.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using Fields = CanonMakerFields;

Fields FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

using Elements = std::map<std::size_t, std::int32_t>;

// An array of `size` zeros but for the elements given.
std::vector<std::uint32_t> Words(std::size_t size, const Elements& elements) {
    std::vector<std::uint32_t> words(size);
    for (const auto& [index, value] : elements) words[index] = static_cast<std::uint16_t>(value);
    return words;
}

// clang-format off

void FillNote(IfdBuilder& note) {
    Bytes cameraInfo(200);
    cameraInfo[7] = 1;
    cameraInfo[187] = 2;
    cameraInfo[190] = 3;
    note.Short(0x0001, Words(48, {{1, 2}, {2, 0x4064}, {3, 4}, {4, 1}, {5, 5}, {6, 99}, {7, 2},
                                  {10, -1}, {11, 8}, {13, -2}, {14, 1},
                                  {16, 0x4064}, {17, 3}, {18, 2}, {19, 8197}, {20, 2}, {22, 51},
                                  {23, 135}, {24, 18}, {25, 1}, {26, 128}, {27, 320}, {28, 145},
                                  {32, 8}, {33, 2}, {34, 257}, {40, 6}, {42, -3}}))
        .Short(0x0002, Words(4, {{0, 2}, {1, 50}, {2, 907}, {3, 605}}))
        .Short(0x0004, Words(34, {{2, 160}, {4, 192}, {5, 32}, {6, -12}, {7, 4}, {8, 3}, {9, 6},
                                  {13, 80}, {14, 0x3001}, {15, 20}, {16, 1}, {17, -32}, {19, -1},
                                  {20, 546}, {24, 305}, {26, 248}, {27, 1}, {28, 1}, {29, 20}}))
        .Short(0x0005, Words(6, {{2, 3}, {5, 1}}))
        .Ascii(0x0006, "Canon EOS 500D").Ascii(0x0007, "Firmware Version 1.1.1")
        .Long(0x0008, {1181861}).Ascii(0x0009, "Owner").Long(0x000C, {3120502342})
        .Undefined(0x000D, cameraInfo)
        .Short(0x0012, Words(27, {{2, 4752}, {22, 0x0312}, {26, 0x0111}}))
        .Short(0x001D, {16, 1, 13, 0xFFFF, 4, 5, 6, 7})
        .Short(0x001F, Words(69, {{13, 1}}))
        .Short(0x0093, Words(32, {{1, 0x0001}, {2, 0x86A0}, {3, 1}, {4, 2}, {5, 3}, {8, 4}, {9, 1},
                                  {12, 0xFFFD}, {13, 5}, {14, 3}, {15, 2}}))
        .Ascii(0x0095, "EF-S18-135mm f/3.5-5.6 IS")
        .Short(0x00A0, Words(14, {{1, 2}, {2, 5}, {3, 1}, {8, 8}, {9, 5200}, {10, 134}, {11, 12},
                                  {12, -9}, {13, 9}}))
        .Short(0x00B4, {2});
}

constexpr Fields kEveryField = {
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
    .tag1DWords = {16, 1, 13, 0xFFFF, 4, 5}, .tag1FWord13 = 1, .fileIndex = 100000,
    .fileInfo3 = 1, .fileInfo4 = 2, .fileInfo5 = 3, .fileInfo8 = 4, .fileInfo9 = 1,
    .fileInfo12 = 0xFFFD, .fileInfo13 = 5, .fileInfo14 = 3, .fileInfo15 = 2,
    .lensModel = "EF-S18-135mm f/3.5-5.6 IS", .processingInfo1 = 2, .processingInfo2 = 5,
    .processingInfo3 = 1, .processingInfo9 = 5200, .processingInfo10 = 134,
    .processingInfo11 = 12, .processingInfo12 = -9, .processingInfo13 = 9, .colorSpace = 2,
    .afPointsInFocus = 0x0111};

TEST(CanonNote, EveryTagHasItsFieldAndEveryFieldItsLine) {
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
    for (const Order order : {Order::kLittle, Order::kBig}) {
        BareNote note(kMakerCanon, "", 4110, order);
        FillNote(note.Entries());
        const ImageInfo info = note.Decode();
        EXPECT_TRUE(HoldsRecord(info, kEveryField));
        EXPECT_EQ(info.isoSpeed, 100);
        EXPECT_EQ(info.exposureProgram, 4);
        EXPECT_EQ(info.exposureBias, -0.33f);
        EXPECT_TRUE(Lists(info, expected));
        // Exif's own values stand.
        note.before.isoSpeed = 640;
        note.before.exposureProgram = 7;
        note.before.exposureBias = 0.5f;
        const ImageInfo given = note.Decode();
        EXPECT_EQ(given.isoSpeed, 640);
        EXPECT_EQ(given.exposureProgram, 7);
        EXPECT_EQ(given.exposureBias, 0.5f);
    }
    EXPECT_TRUE(Lists(InfoOf(kMakerCanon, Fields{}), Lines()));
}

TEST(CanonNote, EntryCountAndTagsDecide) {
    struct Case { const char* what; void (*fill)(IfdBuilder&); std::int32_t colorSpace; };
    const Case cases[] = {
        {"count 255", [](IfdBuilder& n) { n.Short(0xB4, {2}).EntryCount(255); }, 2},
        {"count 256", [](IfdBuilder& n) { n.Short(0xB4, {2}).EntryCount(256); }, INT_UNSET},
        {"count 65535", [](IfdBuilder& n) { n.Short(0xB4, {2}).EntryCount(65535); }, INT_UNSET},
        {"tag 0", [](IfdBuilder& n) { n.Short(0, {1}).Short(0xB4, {2}); }, 2},
        {"tag 0xB5", [](IfdBuilder& n) { n.Short(0xB5, {1}); }, INT_UNSET},
        {"huge array", [](IfdBuilder& n) { n.Raw(1, 3, 0x7FFFFFFF, 8).Short(0xB4, {2}); }, 2},
    };
    for (const Case& c : cases) {
        BareNote note(kMakerCanon, "", 4102);
        c.fill(note.Entries());
        EXPECT_EQ(FieldsOf(note.Decode()).colorSpace, c.colorSpace) << c.what;
    }
}

// clang-format on

TEST(CanonNote, HostileBytes) {
    BareNote note(kMakerCanon, "", 4110);
    FillNote(note.Entries());
    note.ExpectHarmless(sizeof(Fields));
    // What a cut leaves is what the camera wrote, or nothing.
    const Bytes whole = note.Build();
    constexpr std::size_t kValues = BareNote::kPosition + 2 + 17 * 12;
    for (std::size_t size = kValues; size < whole.size(); ++size) {
        const auto end = whole.begin() + static_cast<std::ptrdiff_t>(size);
        const ImageInfo info = note.Decode(Bytes(whole.begin(), end));
        const Fields fields = FieldsOf(info);
        EXPECT_TRUE(std::string_view("Owner").starts_with(FieldText(fields.ownerName))) << size;
        EXPECT_TRUE(!IsSet(fields.cameraInfoB) || fields.cameraInfoB == 3) << size;
        EXPECT_TRUE(!IsSet(info.isoSpeed) || info.isoSpeed == 100) << size;
        EXPECT_TRUE(!IsSet(fields.colorSpace) || fields.colorSpace == 2) << size;
    }
}

// ---- The arrays, as the note and a raw file's heap hand them over.

using Decode = void (*)(ParseContext&, std::uint32_t);
constexpr Decode kSettings = DecodeCanonCameraSettings;
constexpr Decode kShot = DecodeCanonShotInfo;
constexpr Decode kProcessing = DecodeCanonProcessingInfo;

// What an array leaves that says it has `count` elements.
ImageInfo Decoded(Decode decode, const std::vector<std::uint32_t>& words, std::size_t count,
                  std::int32_t modelId = 4097, Order order = Order::kLittle) {
    ByteWriter writer(order);
    for (const std::uint32_t word : words) writer.U16(word);
    BytesContext context(writer.bytes, order == Order::kLittle ? kLittleEndian : kBigEndian);
    context.ctx.info.modelId = modelId;
    ResetMakerRecord<Fields>(context.ctx.info);
    decode(context.ctx, static_cast<std::uint32_t>(count));
    return context.ctx.info;
}

// Of an array that ends with the last of these elements.
ImageInfo Decoded(Decode decode, const Elements& elements, std::int32_t modelId = 4097,
                  Order order = Order::kLittle) {
    const std::size_t count = elements.rbegin()->first + 1;
    return Decoded(decode, Words(count, elements), count, modelId, order);
}

// clang-format off

TEST(CanonArrays, WordsWithoutAValueDeriveNothing) {
    for (const Decode decode : {kSettings, kShot}) {
        const ImageInfo info = Decoded(decode, std::vector<std::uint32_t>(50, 0x7FFF), 50, 4102);
        EXPECT_TRUE(HoldsRecord(info, Fields{}));
        EXPECT_EQ(info.isoSpeed, INT_UNSET);
        EXPECT_EQ(info.exposureProgram, INT_UNSET);
        EXPECT_EQ(info.exposureBias, FLOAT_UNSET);
    }
    // Nor is anything taken from what an array before it said.
    BareNote note(kMakerCanon, "", 4108);
    note.Entries().Short(0x0004, Words(8, {{7, 3}})).Short(0x00A0, Words(14, {{8, 0x7FFF}}));
    EXPECT_EQ(FieldsOf(note.Decode()).whiteBalance, 3);
}

TEST(CanonArrays, Elements) {
    struct Case {
        Decode decode; Elements elements; std::int32_t Fields::*field, value;
        std::int32_t modelId = 4097; Order order = Order::kLittle;
    };
    constexpr Decode kPoints = DecodeCanonAfInfo, kFile = DecodeCanonFileInfo;
    const Case cases[] = {
        {kSettings, {{32, -1}}, &Fields::focusContinuous, INT_UNSET},
        {kSettings, {{33, -1}}, &Fields::aeSetting, INT_UNSET},
        {kSettings, {{34, -1}}, &Fields::imageStabilization, INT_UNSET},
        {kSettings, {{40, -1}}, &Fields::photoEffect, INT_UNSET},
        {kSettings, {{40, 0}}, &Fields::photoEffect, 0},
        {kSettings, {{28, -1}}, &Fields::flashActivity, -1},
        {kSettings, {{22, 0}}, &Fields::lensType, INT_UNSET},
        {kSettings, {{22, -1}}, &Fields::lensType, INT_UNSET},
        {kSettings, {{22, 1}}, &Fields::lensType, 1},
        {kSettings, {{22, 51}}, &Fields::lensType, INT_UNSET, 4096},
        {kSettings, {{23, 34800}}, &Fields::maxFocalLength, 34800 - 65536},
        {kShot, {{2, 0}}, &Fields::baseIso, 3},
        {kShot, {{2, 192}}, &Fields::baseIso, 200},
        {kShot, {{2, 172}}, &Fields::baseIso, 129},
        {kShot, {{2, 12}}, &Fields::baseIso, 3},
        {kShot, {{2, 0x7FFE}}, &Fields::baseIso, INT32_MIN},
        {kShot, {{13, 0}}, &Fields::flashGuideNumber, INT_UNSET},
        {kShot, {{13, -5}}, &Fields::flashGuideNumber, INT_UNSET},
        {kShot, {{14, 0}}, &Fields::afPointsInFocus, INT_UNSET},
        {kShot, {{14, 0x3001}}, &Fields::afPointsInFocus, 0x3001},
        {kShot, {{28, -1}}, &Fields::ndFilter, INT_UNSET},
        {kProcessing, {{8, -1}}, &Fields::whiteBalance, INT_UNSET},
        {kProcessing, {{8, 9}}, &Fields::whiteBalance, 9},
        // The points in focus: the high byte of word 22, or word 26, by model.
        {kPoints, {{2, 0x8001}, {26, 0}}, &Fields::afValidPoints, 0x8001},
        {kPoints, {{22, 0x0312}, {26, 0x0010}}, &Fields::afPointsInFocus, 0x0300, 512},
        {kPoints, {{22, 0xFF05}, {26, 0x0010}}, &Fields::afPointsInFocus, INT_UNSET, 512},
        {kPoints, {{22, 0xFEFF}, {26, 0x0010}}, &Fields::afPointsInFocus, 0xFE00, 512},
        {kPoints, {{22, 0x0012}, {26, 0x0010}}, &Fields::afPointsInFocus, 0, 512},
        {kPoints, {{22, 0xFF00}, {26, 0x01FF}}, &Fields::afPointsInFocus, INT_UNSET, 4101},
        {kPoints, {{22, 0xFF00}, {26, 0x01FF}}, &Fields::afPointsInFocus, 0x01FF, 4102},
        {kPoints, {{22, 0xFF00}, {26, 0x01FF}}, &Fields::afPointsInFocus, INT_UNSET, 4103},
        {kPoints, {{22, 0xFF00}, {26, 0x01FF}}, &Fields::afPointsInFocus, INT_UNSET, 4107},
        {kPoints, {{22, 0x0300}, {26, 0x8000}}, &Fields::afPointsInFocus, 0x8000, 4108},
        {kPoints, {{22, 0x0300}, {26, 0x01FF}}, &Fields::afPointsInFocus, 0x01FF, 4111},
        {kPoints, {{22, 0x0300}, {26, 0x01FF}}, &Fields::afPointsInFocus, 0x0300, 4112},
        {kPoints, {{22, 0x0300}, {26, 0x01FF}}, &Fields::afPointsInFocus, 0x0300, 4119},
        {kPoints, {{22, 0x0300}, {26, 0x01FF}}, &Fields::afPointsInFocus, 0x01FF, 4120},
        {kPoints, {{22, 0x0300}, {26, 0x01FF}}, &Fields::afPointsInFocus, 0x01FF, 4122},
        {kPoints, {{22, 0x0300}, {26, 0x01FF}}, &Fields::afPointsInFocus, 0x0300, 4123},
        {kFile, {{1, 1}, {2, 1}}, &Fields::fileIndex, INT_UNSET, 4096},
        // 20D: folder in bits 6 to 15, file in bits 16 to 23 and, above them, 0 to 5.
        {kFile, {{1, 0x1941}, {2, 0x0018}}, &Fields::fileIndex, 1010280, 4097},
        {kFile, {{1, 0x0018}, {2, 0x1941}}, &Fields::fileIndex, 1010280, 4103, Order::kBig},
        {kFile, {{1, 0}, {2, 0x0018}}, &Fields::fileIndex, INT_UNSET, 4102},
        {kFile, {{1, 0x1941}, {2, 0}}, &Fields::fileIndex, INT_UNSET, 4102},
        // 1D: a count, high word first in both orders.
        {kFile, {{1, 1}, {2, 2}}, &Fields::fileIndex, 65538, 4104},
        {kFile, {{1, 1}, {2, 2}}, &Fields::fileIndex, 65538, 4104, Order::kBig},
        {kFile, {{1, 0}, {2, 0}}, &Fields::fileIndex, 0, 4110},
        {kFile, {{1, 0xFFFF}, {2, 0xFFFF}}, &Fields::fileIndex, -1, 4126},
        // 30D: the folder counts from 64 or 128 up, four more bits of the file stand higher.
        {kFile, {{1, 0x0401}, {2, 0}}, &Fields::fileIndex, 1290016, 4108},
        {kFile, {{1, 0}, {2, 0x0401}}, &Fields::fileIndex, 1290016, 4108, Order::kBig},
        {kFile, {{1, 0x9001}, {2, 0x0050}}, &Fields::fileIndex, 1000021, 4109},
        {kFile, {{1, 0x0000}, {2, 0x0000}}, &Fields::fileIndex, 1280000, 4111},
        {kFile, {{1, 0xFFFF}, {2, 0xFFFF}}, &Fields::fileIndex, 1087 * 10000 + 16383, 4120},
        {kFile, {{1, 0x9001}, {2, 0x0050}}, &Fields::fileIndex, 1000021, 4121},
    };
    for (const Case& c : cases) {
        const ImageInfo info = Decoded(c.decode, c.elements, c.modelId, c.order);
        EXPECT_EQ(FieldsOf(info).*c.field, c.value) << "row " << &c - cases;
    }
    const Fields closed = FieldsOf(Decoded(kSettings, {{26, -64}, {27, 0}}));
    EXPECT_EQ(closed.maxAperture, FLOAT_UNSET);
    EXPECT_EQ(closed.minAperture, 1.0f);
    const Fields slow = FieldsOf(Decoded(kShot, {{4, -64}, {5, -160}}));
    EXPECT_EQ(slow.targetAperture, 0.5f);
    EXPECT_EQ(slow.targetExposureTime, 32.0f);
}

// Bytes or words of which each is its own index, so that a value tells where it was read.
TEST(CanonArrays, ElementsBehindTheCountStayUnset) {
    std::vector<std::uint32_t> bytes(100), words(200);
    for (std::uint32_t i = 0; i < 100; ++i) bytes[i] = 2 * i | (2 * i + 1) << 8;
    for (std::uint32_t i = 0; i < 200; ++i) words[i] = i;
    struct Case {
        Decode decode; std::size_t count; std::int32_t Fields::*field, value;
        std::int32_t modelId = 4097;
    };
    constexpr Decode kFocal = DecodeCanonFocalLength, kPanorama = DecodeCanonPanorama;
    constexpr Decode kCamera = DecodeCanonCameraInfo, kTag1F = DecodeCanonTag1F;
    const Case cases[] = {
        {kFocal, 0, &Fields::focalType, INT_UNSET},
        {kFocal, 1, &Fields::focalLength, INT_UNSET},
        {kFocal, 3, &Fields::focalPlaneSize, 2},
        {kFocal, 4, &Fields::focalPlaneSize, 3},
        {kFocal, 9, &Fields::focalPlaneSize, 3},
        {kPanorama, 5, &Fields::panoramaDirection, INT_UNSET},
        {kPanorama, 6, &Fields::panoramaDirection, 5},
        {DecodeCanonFileInfo, 2, &Fields::fileIndex, INT_UNSET},
        {kTag1F, 13, &Fields::tag1FWord13, INT_UNSET},
        {kTag1F, 14, &Fields::tag1FWord13, 13},
        {kSettings, 0xFFFFFFFF, &Fields::focusMode, 7},
        {kCamera, 200, &Fields::cameraInfoByte7, 7, 4110},
        {kCamera, 200, &Fields::cameraInfoA, 187, 4110},
        {kCamera, 200, &Fields::cameraInfoB, 190, 4110},
        {kCamera, 190, &Fields::cameraInfoA, 187, 4110},
        {kCamera, 190, &Fields::cameraInfoB, INT_UNSET, 4110},
        {kCamera, 200, &Fields::cameraInfoA, 189, 4122},
        {kCamera, 200, &Fields::cameraInfoB, 191, 4122},
        {kCamera, 0x7FFFFFFF, &Fields::cameraInfoB, 191, 4126},
        {kCamera, 8, &Fields::cameraInfoByte7, 7, 4122},
        {kCamera, 8, &Fields::cameraInfoA, INT_UNSET, 4122},
        {kCamera, 7, &Fields::cameraInfoByte7, INT_UNSET, 4122},
        {kCamera, 200, &Fields::cameraInfoByte7, INT_UNSET, 4121},
        {kCamera, 200, &Fields::cameraInfoA, INT_UNSET, 512},
    };
    for (const Case& c : cases) {
        const bool hasBytes = c.decode == kCamera;
        const ImageInfo info = Decoded(c.decode, hasBytes ? bytes : words, c.count, c.modelId);
        EXPECT_EQ(FieldsOf(info).*c.field, c.value) << "row " << &c - cases;
    }
    // The count goes on where the file has ended.
    EXPECT_EQ(FieldsOf(Decoded(kTag1F, Words(2, {}), 14)).tag1FWord13, 0xFFFF);
    const Fields cut = FieldsOf(Decoded(kSettings, Words(2, {}), 0xFFFFFFFF));
    EXPECT_EQ(cut.focusMode, -1);
    EXPECT_EQ(cut.photoEffect, INT_UNSET);
}

TEST(CanonArrays, CodesBecomeNumbers) {
    const Elements speeds = {
        {14, 0}, {15, 0}, {16, 50}, {17, 100}, {18, 200}, {19, 400}, {0x4064, 100}, {0x4000, 0},
        {0, INT_UNSET}, {20, INT_UNSET}, {0x3FFF, INT_UNSET}, {0xFFFF, INT_UNSET}};
    for (const auto& [code, speed] : speeds)
        EXPECT_EQ(Decoded(kSettings, {{16, static_cast<int>(code)}}).isoSpeed, speed) << code;
    const Elements programs = {
        {0, INT_UNSET}, {1, 2}, {2, 4}, {3, 3}, {4, 1}, {5, INT_UNSET}, {0xFFFF, INT_UNSET}};
    for (const auto& [mode, program] : programs)
        EXPECT_EQ(Decoded(kSettings, {{20, static_cast<int>(mode)}}).exposureProgram, program);
    const std::pair<std::int32_t, float> values[] = {
        {0, 0.0f},    {12, 0.33f},   {16, 0.5f},   {20, 0.67f},       {32, 1.0f}, {44, 1.33f},
        {48, 1.5f},   {52, 1.67f},   {64, 2.0f},   {11, 0.34375f},    {96, 3.0f}, {-12, -0.33f},
        {-16, -0.5f}, {-52, -1.67f}, {-96, -3.0f}, {-32768, -1024.0f}};
    for (const auto& [word, ev] : values) EXPECT_EQ(CanonEv(word), ev) << word;
}

// ---- The texts.

TEST(CanonSection, ConditionsAndFallbacks) {
    ExpectLists<Fields>(kMakerCanon, {
        {{.easyMode = 5, .exposureMode = 0}, {"撮影モード=夜景"}},
        {{.exposureMode = 0}, {"撮影モード=かんたん撮影"}},
        {{.easyMode = 1, .exposureMode = 4}, {"撮影モード=マニュアル"}},
        {{.exposureMode = 99}, {"撮影モード=(99)"}},
        {{.selfTimer = 0, .driveMode = 0}, {"ドライブモード=1コマ撮影", "セルフタイマー=オフ"}},
        {{.selfTimer = 20, .driveMode = 0}, {"ドライブモード=セルフタイマー", "セルフタイマー=2.0秒"}},
        {{.selfTimer = -1}, {}},
        {{.sequenceNumber = 0}, {}},
        {{.isoCode = 15}, {"ISOセッティング=オート"}},
        {{.isoCode = 0}, {}},
        {{.isoCode = -1}, {"ISOセッティング=(-1)"}},
        {{.baseIso = INT32_MIN}, {}},
        {{.exposureCompensation = 0}, {"露出補正=±0"}},
        {{.autoExposureBracketing = 0, .aebBracketValue = 32}, {"自動露出ブラケット=オフ"}},
        {{.aebBracketValue = 32}, {}},
        {{.fileInfo3 = 0, .fileInfo4 = 1, .fileInfo5 = 2}, {}, 4108},
        {{.fileInfo3 = 0xFFFF, .fileInfo4 = 1}, {}, 4108},
        {{.fileInfo9 = 0, .fileInfo12 = 1, .fileInfo13 = 2}, {}, 4108},
        {{.bulbDuration = 0}, {}},
        {{.flashActivity = 0}, {}},
        {{.flashActivity = -1}, {}},
        {{.flashActivity = 255}, {}, 4097},
        {{.flashActivity = 134}, {"使用ストロボ=550EX"}, 4097},
        {{.flashActivity = 3}, {"使用ストロボ=(3)"}, 4097},
        {{.macroMode = 0}, {}},
        {{.focusRange = 1}, {"フォーカスレンジ=オート"}},
        {{.focusRange = 1}, {}, 4097},
        {{.afPoint = 0}, {}},
        {{.afPointsInFocus = 12293}, {"合焦AFフレーム=左+右"}},
        {{.afPointsInFocus = 0x300}, {"合焦AFフレーム=(768)"}},
        {{.afPointsInFocus = 0}, {}},
        {{.afPointsInFocus = 0x300}, {}, 4099},
        {{.afPointsInFocus = 0x200}, {}, 4108},
        {{.afPointsInFocus = 0x305}, {"合焦AFフレーム=上+右上+下"}, 4108},
        {{.focusDistanceUpper = 782, .focusDistanceLower = 0}, {"撮影距離=7.82m"}},
        {{.focusDistanceUpper = 219}, {"撮影距離=2.19m"}},
        {{.focusDistanceUpper = 0, .focusDistanceLower = 5}, {}},
        {{.focusDistanceUpper = 105, .focusDistanceLower = 40000 - 65536},
         {"撮影距離=1.05m-400.00m"}, 4108},
        {{.focusDistanceUpper = 400, .focusDistanceLower = 100}, {"撮影距離=1.00m-4.00m"}, 4108},
        {{.whiteBalance = 0, .processingInfo9 = 5200}, {"ホワイトバランス=オート"}},
        {{.whiteBalance = 9, .processingInfo9 = 5200}, {"ホワイトバランス=色温度直接指定", "色温度=5200K"}},
        {{.processingInfo9 = 0, .canonColorTemperature = 4300}, {"色温度=4300K"}, 4097},
        {{.processingInfo12 = 1, .processingInfo13 = 0}, {}},
        {{.processingInfo12 = 1, .processingInfo13 = 0}, {"ホワイトバランス補正=A-B +1, G-M ±0"}, 4097},
        {{.processingInfo10 = 1}, {}, 4103},
        {{.contrast = 1, .processingInfo10 = 4}, {"カラーマトリックス=Adobe RGB", "コントラスト=+1"}, 4107},
        {{.saturation = 1, .processingInfo10 = 200}, {"ピクチャースタイル=(200)", "　+ 色の濃さ=+1"}, 4108},
        {{.processingInfo2 = 3}, {"シャープネス=+3"}, 4108},
        {{.contrast = -2, .saturation = 1, .sharpness = 2},
         {"コントラスト=とても低い", "シャープネス=ハード2", "色の濃さ=高い"}},
        {{.contrast = 3, .colorTone = 1}, {"コントラスト=(3)"}},
        {{.fileInfo14 = 1, .fileInfo15 = 1, .processingInfo10 = 129}, {"ピクチャースタイル=スタンダード"}, 4108},
        {{.fileInfo14 = 65535, .fileInfo15 = 0, .processingInfo10 = 134},
         {"ピクチャースタイル=モノクロ", "　+ 調色=なし"}, 4108},
        {{.tag1DWords = {INT_UNSET, INT_UNSET, 0}}, {}},
        {{.colorSpace = 65535}, {}},
        {{.fileInfo8 = 65535}, {}, 4108},
        {{.cameraType = 0}, {}},
        {{.focalLength = 227}, {}},
        {{.focalUnits = 32, .focalLength = 227}, {"焦点距離=7.1mm"}},
        {{.focalUnits = 1000, .focalLength = 34800 - 65536}, {"焦点距離=34.8mm"}},
        {{.focalUnits = 0, .focalLength = 50}, {}},
        {{.focalUnits = -1, .focalLength = 50}, {}},
        {{.panoramaFrameNumber = 3}, {}},
        {{.fileNumber = 0}, {}},
        {{.fileNumber = INT32_MIN}, {}},
        {{.fileNumber = 1000005}, {"ファイル番号=100-0005"}},
        {{.fileIndex = 1290016}, {"ファイル番号=129-0016"}, 4108},
        {{.fileIndex = 1280000}, {}, 4108},
        {{.fileNumber = 0, .fileIndex = 1000024}, {"ファイル番号=100-0024"}, 4102},
        {{.fileIndex = 232}, {"シャッター回数=232"}, 4104},
        {{.fileIndex = -1}, {}, 4104},
        {{.serialNumber = 0x01230045}, {"シリアル番号=012300069"}, 4097},
        {{.serialNumber = 292}, {"シリアル番号=000292"}, 4104},
        {{.serialNumber = 500292}, {"シリアル番号=500292"}, 4129},
        {{.serialNumber = 560018150}, {"シリアル番号=0560018150"}, 4108},
        {{.serialNumber = 0}, {}},
    }, 512);
    Fields full;
    std::memset(full.ownerName, 'x', sizeof full.ownerName);
    EXPECT_TRUE(Lists(InfoOf(kMakerCanon, full), Lines({"所有者名=" + std::string(40, 'x')})));
}

TEST(CanonWording, LensByNameTypeOrRange) {
    const std::pair<Fields, const char*> cases[] = {
        {{.maxFocalLength = 55, .minFocalLength = 18, .focalUnits = 1}, "18-55mm"},
        {{.maxFocalLength = 55, .minFocalLength = 18, .focalUnits = 1, .lensType = 124},
         "MP-E65mm f/2.8 1-5x Macro Photo"},
        {{.maxFocalLength = 55, .minFocalLength = 18, .focalUnits = 1, .lensType = 12}, "(12)"},
        {{.lensType = 12, .lensModel = "EF50mm f/1.8 II"}, "EF50mm f/1.8 II"},
        {{.lensType = 1}, "EF50mm f/1.8"},
        {{.maxFocalLength = 50, .minFocalLength = 50, .focalUnits = 1}, "50mm"},
        {{.maxFocalLength = 682, .minFocalLength = 227, .focalUnits = 32}, "7.1-21.3mm"},
        {{.maxFocalLength = 34800 - 65536, .minFocalLength = 5800, .focalUnits = 1000},
         "5.8-34.8mm"},
        {{.maxFocalLength = 55, .minFocalLength = 18}, "-"},
        {{.minFocalLength = 18, .focalUnits = 1}, "-"},
        {{.maxFocalLength = 55, .minFocalLength = 18, .focalUnits = 0}, "-"},
    };
    for (const auto& [fields, text] : cases)
        EXPECT_EQ(Wording(&MakerText::lensText, InfoOf(kMakerCanon, fields, 4108)), text);
}

TEST(CanonWording, WhiteBalanceAndPictureStyle) {
    const auto balance = [](std::int32_t code) {
        const ImageInfo info = InfoOf(kMakerCanon, Fields{.whiteBalance = code});
        return Wording(&MakerText::whiteBalanceText, info);
    };
    EXPECT_EQ(balance(9), "色温度直接指定");
    EXPECT_EQ(balance(13), "(13)");
    EXPECT_EQ(balance(INT_UNSET), "-");
    const auto style = [](std::int32_t modelId, std::int32_t code) {
        const ImageInfo info = InfoOf(kMakerCanon, Fields{.processingInfo10 = code}, modelId);
        return Wording(&MakerText::summaryLine, info);
    };
    EXPECT_EQ(style(4108, 132), "ピクチャースタイル: ニュートラル");
    EXPECT_EQ(style(4108, -1), "ピクチャースタイル: なし");
    EXPECT_EQ(style(4108, 200), "ピクチャースタイル: (200)");
    EXPECT_EQ(style(4107, 132), "-");
    EXPECT_EQ(style(4108, INT_UNSET), "-");
}

TEST(CanonNames, EveryLensCanAnswer) {
    for (std::int32_t i = 1; i < kCanonLensCount; ++i)
        EXPECT_LT(kCanonLensNames[i - 1].key, kCanonLensNames[i].key);
}

// clang-format on

}  // namespace
}  // namespace qmx::test
