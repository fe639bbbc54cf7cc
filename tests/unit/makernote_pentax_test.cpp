// Pentax's MakerNote in its forms, of photos and as the private data of DNGs, and the texts.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <set>
#include <string>

#include "makernote/pentax_fields.h"
#include "support/listing.h"
#include "support/note_file.h"
#include "support/parse.h"
#include "text/pentax_lenses.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = PentaxMakerFields;

Fields FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

BareNote PentaxNote() { return BareNote(kMakerPentax, "AOC\0MM"sv, 0, Order::kBig); }

// clang-format off

constexpr std::uint8_t kDate[] = {0x07, 0xD8, 3, 2};
constexpr std::uint8_t kTime[] = {12, 1, 23};
constexpr std::uint8_t kCipheredCount[] = {0xF4, 0x26, 0xED, 0x8D};  // 1648

void FillEveryTag(IfdBuilder& note) {
    note.Undefined(0x0006, {std::begin(kDate), std::end(kDate)})
        .Undefined(0x0007, {std::begin(kTime), std::end(kTime)}).Short(0x0008, {2})
        .Short(0x0009, {34, 7}).Short(0x000B, {6}).Short(0x000C, {258, 63}).Short(0x000D, {16})
        .Short(0x000E, {65534}).Short(0x000F, {5}).Long(0x0012, {1000}).Short(0x0013, {56})
        .Short(0x0014, {6}).Short(0x0016, {43, 0}).Short(0x0017, {1}).Short(0x0018, {3, 0})
        .Short(0x0019, {10}).Short(0x001A, {4}).Long(0x001D, {1850}).Short(0x001E, {200})
        .Short(0x001F, {1, 0}).Short(0x0020, {2, 0}).Short(0x0021, {3, 0}).Short(0x0022, {1})
        .Short(0x0023, {56}).Short(0x0024, {20}).Short(0x0025, {0}).Short(0x0026, {1})
        .Undefined(0x0027, {0xFE, 0xE1, 0xFF, 0xED}).Undefined(0x0028, {0xFD, 0xFE, 0xFF, 0xFC})
        .Long(0x0029, {1234}).Undefined(0x0032, {2, 0, 0, 4}).Byte(0x0033, {5, 0, 1})
        .Byte(0x0034, {1, 2, 4, 16}).Short(0x0037, {1}).Byte(0x003F, {3, 17, 0})
        .Short(0x0040, {47}).Value(0x0047, kTypeSByte, 1, {0xFB}).Short(0x0048, {1})
        .Short(0x0049, {0}).Value(0x004D, kTypeSLong, 1, {0xFF, 0xFF, 0xFF, 0x80})
        .Short(0x004F, {4}).Short(0x0050, {48190}).Byte(0x005C, {1, 7, 0, 0})
        .Undefined(0x005D, {std::begin(kCipheredCount), std::end(kCipheredCount)})
        .Short(0x0067, {4}).Byte(0x0069, {1, 0, 2, 0}).Byte(0x0070, {0}).Byte(0x0071, {3, 0, 0})
        .Byte(0x0079, {2});
}

TEST(PentaxNote, EveryTagHasItsFieldAndEveryFieldItsLine) {
    const Fields expected = {
        .pictureMode = 0x0500, .exposureStep = 1, .compactMode = 6, .quality = 2, .imageSize = 34,
        .drive = 1, .selfTimer = 2, .remote = 4, .exposureCount = 16, .iso = 6,
        .sensitivityAdjust = -0.3f, .exposureTime = 0.01f, .fNumber = 5.6f,
        .exposureCompensation = -0.7f, .autoBracket = 3, .metering = 1, .aeLock = 1,
        .flashMode = 258, .flashUnit = 63, .flashCompensation = -0.5f, .focusMode = 16,
        .afPointSelected = 65534, .afPointInFocus = 5, .focalLength = 18.5f, .digitalZoom = 2,
        .shakeReduction = 7, .whiteBalance = 10, .whiteBalanceMode = 4, .colorTemperature = 48190,
        .imageTone = 4, .saturation = 1, .contrast = 2, .sharpness = 3, .hasTwoWordSettings = 1,
        .hue = 4, .dynamicRange = 1, .fineSharpness = 0, .shadowCorrection = 2,
        .noiseReduction = 0, .highIsoReduction = 3, .colorSpace = 1, .imageProcessing = 2,
        .lensId = 785, .worldTime = 1, .homeCity = 56, .homeDaylightSaving = 0,
        .destinationCity = 20, .destinationDaylightSaving = 1, .temperature = -5,
        .shutterCount = 1648, .frameNumber = 1234, .dspFirmware = 0x011E0012,
        .cpuFirmware = 0x02010003};
    const Lines lines = {
        "撮影モード=絞り優先", "　+ 露出ステップ=1/3EV", "画質モード=ベスト",
        "イメージサイズ=1536 x 1024", "ドライブモード=連続撮影", "　+ セルフタイマー=2秒セルフタイマー",
        "　+ リモコン=リモコン連続", "　+ 多重露出=HDR", "ISO感度=100", "感度補正=-0.3EV",
        "露出時間=1/100秒", "絞り値=F5.6", "露出補正=-0.7EV", "オートブラケット=+1.0EV",
        "測光モード=中央重点測光", "AEロック=オン", "フラッシュモード=強制発光", "　+ ストロボ=内蔵",
        "フラッシュ光量補正=-0.5EV", "フォーカスモード=AF.S", "測距点=中央固定", "合焦測距点=中央",
        "焦点距離=18.5mm", "デジタルズーム=2.0倍", "手ブレ補正=オン", "ホワイトバランス=曇り",
        "ホワイトバランスモード=オート（白熱灯）", "色温度=5000K", "画像仕上=雅（MIYABI）",
        "色の濃さ=±0", "コントラスト=+2", "シャープネス=-1", "ファインシャープネス=オフ", "色相=+1",
        "ダイナミックレンジ拡大=オン", "シャドー補正=オート", "ノイズリダクション=オフ",
        "高感度ノイズリダクション=強", "カラースペース=Adobe RGB", "画像処理=トリミング",
        "レンズ情報=FA 85mm F2.8 SOFT", "ワールドタイム=目的地", "現在地=東京",
        "目的地=ロンドン", "　+ 夏時間=オン", "撮影時温度=-5℃", "シャッター回数=1648",
        "画像番号=1234", "ファームウェア=2.01.00.03"};
    BareNote note = PentaxNote();
    FillEveryTag(note.Entries());
    const ImageInfo info = note.Decode();
    EXPECT_TRUE(HoldsRecord(info, expected));
    EXPECT_TRUE(Lists(info, lines));
    // What Exif leaves out.
    EXPECT_FLOAT_EQ(info.exposureTime, 0.01f);
    EXPECT_FLOAT_EQ(info.fNumber, 5.6f);
    EXPECT_FLOAT_EQ(info.exposureBias, -0.7f);
    EXPECT_FLOAT_EQ(info.focalLength, 18.5f);
    EXPECT_EQ(info.isoSpeed, 100);
    EXPECT_EQ(info.meteringMode, 2);
    note.before.isoSpeed = 800;
    note.before.meteringMode = 1;
    EXPECT_EQ(note.Decode().isoSpeed, 800);
    EXPECT_EQ(note.Decode().meteringMode, 1);
    const ImageInfo empty = PentaxNote().Decode();
    EXPECT_TRUE(HoldsRecord(empty, Fields{}));
    EXPECT_TRUE(Lists(empty, {}));

    BareNote zeros = PentaxNote();
    zeros.Entries().Long(0x0012, {0}).Short(0x0013, {0}).Long(0x001D, {0});
    const ImageInfo unknown = zeros.Decode();
    for (const float value : {unknown.exposureTime, unknown.fNumber, unknown.focalLength})
        EXPECT_EQ(value, FLOAT_UNSET);
}

TEST(PentaxNote, RulesOfSingleTags) {
    using Note = IfdBuilder;
    struct Case { const char* what; void (*fill)(Note&); Fields fields; };
    const Case cases[] = {
        {"flash compensation in sixths",
         [](Note& n) { n.Value(0x004D, kTypeSByte, 2, {0xFD, 0}); }, {.flashCompensation = -0.5f}},
        {"flash mode alone", [](Note& n) { n.Short(0x000C, {1}); }, {.flashMode = 1}},
        {"settings of a compact",
         [](Note& n) { n.Short(0x001F, {1}).Short(0x0020, {2}).Short(0x0021, {0}); },
         {.saturation = 1, .contrast = 2, .sharpness = 0}},
        {"filter alone", [](Note& n) { n.Byte(0x0032, {0, 0, 0, 4}); }, {.imageProcessing = 4}},
        {"picture mode alone", [](Note& n) { n.Byte(0x0033, {3, 0}); }, {.pictureMode = 768}},
        {"one byte is no picture mode", [](Note& n) { n.Byte(0x0033, {3}); }, {}},
        {"half a drive", [](Note& n) { n.Byte(0x0034, {1, 2}); }, {.drive = 1, .selfTimer = 2}},
        {"half a lens", [](Note& n) { n.Byte(0x003F, {3}); }, {}},
        {"no values",
         [](Note& n) { n.Byte(0x0032, {}).Byte(0x0034, {}).Byte(0x005C, {}).Byte(0x28, {}); }, {}},
        {"more than the field takes",
         [](Note& n) { n.Byte(0x0071, {3, 1, 1, 1, 1, 1, 1}); }, {.highIsoReduction = 3}},
        {"counts above 31 bits",
         [](Note& n) { n.Long(0x0029, {0x90000000}); }, {.frameNumber = INT32_MIN}},
    };
    for (const Case& c : cases) {
        BareNote note = PentaxNote();
        c.fill(note.Entries());
        EXPECT_TRUE(HoldsRecord(note.Decode(), c.fields)) << c.what;
    }
}

// clang-format on

TEST(PentaxNote, ShutterCountNeedsTheWholeMoment) {
    const auto decode = [](std::size_t date, std::size_t time, std::size_t count) {
        BareNote note = PentaxNote();
        note.Entries()
            .Undefined(0x005D, {kCipheredCount, kCipheredCount + count})
            .Undefined(0x0007, {kTime, kTime + time})
            .Undefined(0x0006, {kDate, kDate + date});
        return FieldsOf(note.Decode()).shutterCount;
    };
    EXPECT_EQ(decode(4, 3, 4), 1648);
    EXPECT_EQ(decode(3, 3, 4), INT_UNSET);
    EXPECT_EQ(decode(4, 2, 4), INT_UNSET);
    EXPECT_EQ(decode(4, 3, 3), INT_UNSET);
}

TEST(PentaxNote, OldCompactsWriteTenthsOfMillimetres) {
    constexpr std::pair<const char*, float> kCases[] = {
        {"PENTAX Optio 30", 100},   {"PENTAX Optio 33WR", 100}, {"PENTAX Optio 43WR  ", 100},
        {"PENTAX Optio 450", 100},  {"PENTAX Optio 550", 100},  {"PENTAX Optio 555", 100},
        {"PENTAX Optio 750Z", 100}, {"PENTAX Optio X", 100},    {"PENTAX Optio X70", 10},
        {"PENTAX Optio 330", 10},   {"PENTAX Optio S", 10},     {"PENTAX Optio ", 10},
        {"PENTAX K10D", 10},        {"PENTAX X 30", 10},
    };
    for (const auto& [model, focalLength] : kCases) {
        BareNote note = PentaxNote();
        note.Entries().Long(0x001D, {1000});
        std::strcpy(note.before.cameraModel, model);
        EXPECT_EQ(FieldsOf(note.Decode()).focalLength, focalLength) << model;
    }
}

TEST(PentaxNote, IsoCodes) {
    constexpr std::pair<std::uint32_t, std::int32_t> kCases[] = {
        {2, INT_UNSET},    {3, 50},          {6, 100},         {9, 200},       {30, 25600},
        {45, 819200},      {46, INT_UNSET},  {50, 50},         {1600, 1600},   {3200, 3200},
        {6400, INT_UNSET}, {150, INT_UNSET}, {257, INT_UNSET}, {258, 50},      {262, 200},
        {272, 6400},       {286, 819200},    {287, INT_UNSET}, {0, INT_UNSET}, {65535, INT_UNSET}};
    for (const auto& [code, speed] : kCases) {
        BareNote note = PentaxNote();
        note.Entries().Short(0x0014, {code});
        EXPECT_EQ(note.Decode().isoSpeed, speed) << code;
    }
}

// A block in the form of newer cameras, with one value, six bytes of lens data, behind it.
constexpr std::uint32_t kValueInBlock = 28;
Bytes Block(std::string_view magic, std::uint32_t offset) {
    ByteWriter block(Order::kBig);
    block.Raw(FromText(magic)).Raw(FromText("MM"));
    block.U16(1).U16(0x003F).U16(kTypeByte).U32(6).U32(offset).U32(0);
    return block.Raw({3, 44, 0, 0, 0, 0}).bytes;
}

TEST(PentaxNote, OffsetsCountFromWhereTheyMakeSense) {
    struct Case {
        std::string_view magic, make, model;
        bool isDng;
    };
    constexpr Case kCases[] = {
        {"PENTAX \0"sv, "PENTAX", "PENTAX K-7", false},
        {"PENTAX \0"sv, "PENTAX", "PENTAX K-7", true},
        {"SAMSUNG\0"sv, "SAMSUNG", "SAMSUNG GX20", true},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.model);
        std::uint32_t position = 0;
        const auto lens = [&](std::uint32_t offset) {
            const Bytes block = Block(c.magic, offset);
            TiffBuilder dng;
            dng.Ifd().Ascii(0x010F, c.make).Ascii(0x0110, c.model).Undefined(0xC634, block);
            const Bytes file =
                c.isDng ? dng.Build() : NoteFile::Build(Order::kLittle, c.make, c.model, block);
            const auto found = std::search(file.begin(), file.end(), block.begin(), block.end());
            position = static_cast<std::uint32_t>(found - file.begin());
            const ImageInfo info = Parse(file).info;
            EXPECT_EQ(info.hasMakerNote, 1);
            return FieldsOf(info).lensId;
        };
        EXPECT_EQ(lens(kValueInBlock), 812);
        EXPECT_EQ(lens(position + kValueInBlock), 812);
        // Neither: the header's base stands, whatever is there.
        for (const std::uint32_t offset : {0u, 10u, 0x7FFFFFFFu, 0xFFFFFFFFu})
            EXPECT_NE(lens(offset), 812) << offset;
    }
}

TEST(PentaxNote, PreviewIsAnImageOfTheFile) {
    const Bytes jpeg = JpegStream(Segment(0xDB, Bytes(6)), 640, 480);
    ExpectPreview(jpeg, [&](std::uint32_t offset, std::uint32_t length) {
        NoteFile file(Order::kLittle, "PENTAX", "AOC\0II"sv);
        file.Note().Short(0x0002, {640, 480}).Long(0x0003, {length}).Long(0x0004, {offset});
        return file.Tiff().Trailer(jpeg).Build();
    });
}

TEST(PentaxNote, HostileBytes) {
    for (const std::string_view header : {"AOC\0MM"sv, "PENTAX \0MM"sv}) {
        BareNote note(kMakerPentax, header, 0, Order::kBig);
        note.Entries().Long(0x0003, {30}).Long(0x0004, {40});
        FillEveryTag(note.Entries());
        note.ExpectHarmless(sizeof(Fields));
    }
}

// clang-format off

TEST(PentaxSection, ConditionsAndFallbacks) {
    ExpectLists<Fields>(kMakerPentax, {
        {{.homeCity = 56, .homeDaylightSaving = 1}, {"現在地=東京", "　+ 夏時間=オン"}},
        {{.frameNumber = INT32_MIN}, {"画像番号=2147483648"}},
        {{.compactMode = 65}, {"撮影モード=バストアップ人物"}},
        {{.pictureMode = 9999}, {"撮影モード=(9999)"}},
        {{.quality = 65535}, {}},
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
    });
}

TEST(PentaxText, LensAndWhiteBalance) {
    const std::pair<std::int32_t, const char*> lenses[] = {
        {INT_UNSET, "-"}, {0, "M-42 or No Lens"}, {785, "FA 85mm F2.8 SOFT"}, {812, "Sigma"},
        {2303, "Sigma Lens (8 255)"}, {999, "(999)"}};
    for (const auto& [id, name] : lenses) {
        const ImageInfo info = InfoOf(kMakerPentax, Fields{.lensId = id});
        EXPECT_EQ(Wording(&MakerText::lensText, info), name);
    }
    std::set<std::int32_t> ids;
    for (std::int32_t i = 0; i < kPentaxLensCount; ++i) ids.insert(kPentaxLensNames[i].key);
    EXPECT_EQ(ids.size(), static_cast<std::size_t>(kPentaxLensCount)) << "an id has two rows";
    const std::pair<std::int32_t, const char*> balances[] = {
        {INT_UNSET, "-"}, {0, "オート"}, {3, "(3)"}, {17, "色温度指定"}, {65534, "(65534)"},
        {65535, "ユーザ設定"}};
    for (const auto& [code, name] : balances) {
        const ImageInfo info = InfoOf(kMakerPentax, Fields{.whiteBalance = code});
        EXPECT_EQ(Wording(&MakerText::whiteBalanceText, info), name);
    }
}

// clang-format on

}  // namespace
}  // namespace qmx::test
