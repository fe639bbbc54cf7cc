// Fujifilm's MakerNote, always little-endian with offsets from its own start, and the texts.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "makernote/fujifilm_fields.h"
#include "support/listing.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = FujifilmMakerFields;

// The header's 16-bit number says that the entries start at 20.
BareNote FujifilmNote(Order fileOrder = Order::kLittle) {
    constexpr std::string_view kHeader = "FUJIFILM\x14\0........\0\0"sv;
    return BareNote(kMakerFujifilm, kHeader, 0, Order::kLittle, 2, fileOrder);
}

Fields FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

// clang-format off

void AddEveryTag(IfdBuilder& entries) {
    entries.Undefined(0x0000, FromText("0130")).Ascii(0x1000, "NORMAL ").Short(0x1001, {132})
        .Short(0x1002, {256}).Short(0x1003, {256}).Short(0x1004, {512}).Short(0x1005, {5600})
        .Short(0x1006, {768})
        .Value(0x100A, 9, 2, ByteWriter(Order::kLittle).U32(2).U32(0xFFFFFFFF).bytes)
        .Short(0x100B, {64}).Short(0x1010, {4}).SRational(0x1011, {{2, 3}}).Short(0x1020, {1})
        .Short(0x1021, {1}).Short(0x1022, {0}).Short(0x1023, {1152, 864}).Short(0x1030, {1})
        .Short(0x1031, {15}).Short(0x1100, {3}).Short(0x1101, {7}).Short(0x1210, {16})
        .Short(0x1300, {1}).Short(0x1301, {0}).Short(0x1302, {2}).Short(0x1400, {3})
        .Short(0x1401, {512}).Short(0x1402, {512}).Short(0x1403, {200})
        .Rational(0x1404, {{189, 10}}).Rational(0x1405, {{550, 10}}).Rational(0x1406, {{28, 10}})
        .Rational(0x1407, {{4, 1}}).Long(0x4005, {10, 20, 30, 0xFFFFFFFF}).Short(0x4006, {99});
}

constexpr Fields kEveryField = {
    .fujiVersion = "0130", .fujiQuality = "NORMAL ", .fujiSharpness = 132, .fujiWhiteBalance = 256,
    .fujiSaturation = 256, .fujiContrast = 512, .fujiColorTemperature = 5600, .fujiContrast2 = 768,
    .fujiWbFineTune1 = 2, .fujiWbFineTune2 = -1, .fujiNoiseReduction = 64, .fujiFlashMode = 4,
    .fujiFlashExposureComp = 2.0f / 3, .fujiMacro = 1, .fujiFocusMode = 1, .fujiAfMode = 0,
    .fujiFocusPixel1 = 1152, .fujiFocusPixel2 = 864, .fujiSlowSync = 1, .fujiPictureMode = 15,
    .fujiAutoBracketing = 3, .fujiSequenceNumber = 7, .fujiTag1210 = 16, .fujiBlurWarning = 1,
    .fujiFocusWarning = 0, .fujiExposureWarning = 2, .fujiDynamicRange = 3, .fujiFilmMode = 512,
    .fujiDynamicRangeSetting = 512, .fujiDevelopmentDynamicRange = 200, .fujiMinFocalLength = 18,
    .fujiMaxFocalLength = 55, .fujiMaxApertureAtMinFocal = 2.8f, .fujiMaxApertureAtMaxFocal = 4.0f,
    .fujiTag4005 = {10, 20, 30, INT32_MIN}, .fujiReserved = INT_UNSET};

TEST(FujifilmNote, EveryTagHasItsFieldAndEveryFieldItsLine) {
    const Lines expected = {
        "バージョン=0130", "画質モード=NORMAL ", "撮影モード=高感度2枚撮り",
        "ホワイトバランス=晴天 ( 赤+2, 青-1 )", "色の濃さ=高い", "色温度=5600K",
        "シャープネス=ややハード", "トーン=低い", "コントラスト=低い", "ノイズリダクション=低い",
        "フラッシュモード=外部ストロボ", "フラッシュ光量補正=+0.7", "マクロモード=オン",
        "フォーカスモード=マニュアルフォーカス", "センター固定AF=オフ",
        "フォーカスポイント=1152, 864", "スローシンクロ=オン",
        "連写・自動ブラケットモード=サイクル連射", "連続撮影時の連番=7",
        "FinePixカラー=F-クローム", "手振れ警告=あり", "フォーカス警告=なし", "AE警告=不明(2)",
        "D-レンジ=ワイド (200%)", "D-レンジ モード=ワイド1 (230%)",
        "フィルムシミュレーション=フジクローム", "レンズ情報=18-55mm F2.8",
        "顔検出位置=(10,20)-(30,-2147483648)"};
    for (const Order order : {Order::kLittle, Order::kBig}) {
        BareNote note = FujifilmNote(order);
        AddEveryTag(note.Entries());
        const ImageInfo info = note.Decode();
        EXPECT_TRUE(HoldsRecord(info, kEveryField));
        EXPECT_TRUE(Lists(info, expected));
        EXPECT_EQ(Wording(&MakerText::lensText, info), "18-55mm F2.8-4.0");
        EXPECT_EQ(Wording(&MakerText::whiteBalanceText, info), "晴天");
        note.ExpectHarmless(sizeof(Fields));
    }
    const ImageInfo empty = FujifilmNote().Decode();
    EXPECT_TRUE(HoldsRecord(empty, Fields{}));
    EXPECT_TRUE(Lists(empty, Lines()));
    EXPECT_EQ(Wording(&MakerText::lensText, empty), "-");
    EXPECT_EQ(Wording(&MakerText::whiteBalanceText, empty), "-");
}

TEST(FujifilmNote, HeaderSaysWhereTheEntriesStart) {
    const std::pair<std::string_view, std::int32_t> cases[] = {
        {"FUJIFILM\x0C\0\0\0"sv, 3},
        {"FUJIFILM\x14\0\0\0\0\0\0\0\0\0\0\0"sv, 3},
        {"FUJIFILM\x14\0\0\0"sv, INT_UNSET},
        {"FUJIFILM\xFF\x7F\0\0"sv, INT_UNSET},  // past the end
    };
    for (const auto& [header, sharpness] : cases) {
        BareNote note(kMakerFujifilm, header);
        note.Entries().Short(0x1001, {3});
        EXPECT_EQ(FieldsOf(note.Decode()).fujiSharpness, sharpness) << header;
    }
}

// Every maker's texts are stored like these.
TEST(FujifilmNote, TextsFillTheirFields) {
    for (const std::size_t length : {15u, 16u, 17u, 31u, 32u, 33u, 300u}) {
        BareNote note = FujifilmNote();
        note.Entries().Undefined(0x0000, Bytes(length, 'v')).Undefined(0x1000, Bytes(length, 'q'));
        const Fields fields = FieldsOf(note.Decode());
        EXPECT_EQ(fields.fujiVersion, std::string(std::min<std::size_t>(length, 15), 'v'));
        EXPECT_EQ(fields.fujiQuality, std::string(std::min<std::size_t>(length, 31), 'q'));
        EXPECT_EQ(fields.fujiSharpness, INT_UNSET);
    }
    BareNote blank = FujifilmNote();
    blank.Entries().Ascii(0x1000, "       ");
    EXPECT_EQ(FieldsOf(blank.Decode()).fujiQuality[0], 0);
}

TEST(FujifilmNote, OddTypesAndCounts) {
    BareNote note = FujifilmNote();
    note.Entries()
        .Ascii(0x1001, "3")                // a text is no number
        .Raw(0x1002, 3, 0, 256)            // a single value is read all the same
        .Raw(0x1003, 3, 0x80000000, 1)     // a negative count skips the entry
        .Raw(0x1004, 3, 3, 0x7FFFFF00)     // as does a value that lies nowhere
        .Raw(0x1005, 3, 0x40000000, 5600)  // a size beyond 31 bits counts as fitting
        .Raw(0x100A, 9, 0, 5)              // an array of nothing
        .Raw(0x1023, 3, 0, 5)
        .Raw(0x1031, 99, 1, 5)  // an unknown type
        .Rational(0x1400, {{7, 2}})
        .Raw(0x4005, 4, 0, 5);
    const Fields expected = {.fujiSharpness = 0, .fujiWhiteBalance = 256,
                             .fujiColorTemperature = 5600, .fujiPictureMode = 0,
                             .fujiDynamicRange = 3};
    EXPECT_TRUE(HoldsRecord(note.Decode(), expected));
}

TEST(FujifilmSection, NamesThatDependOnTheModel) {
    struct Case { std::int32_t modelId, film; std::string saturation, tone, filmName; };
    const Case cases[] = {
        {0, 768, "高い", "低い", "スタジオポートレート"}, {257, 768, "高い", "低い", "ASTIA"},
        {257, 256, "高い", "低い", "PORTRAIT"}, {257, 0, "高い", "低い", "PROVIA"},
        {257, 288, "高い", "低い", "ASTIA"}, {257, 512, "高い", "低い", "Velvia"},
        {4103, 288, "高い", "低い", "ASTIA"}, {4103, 304, "高い", "低い", "PORTRAIT"},
        {8192, 0, "高い", "低い", "STD/なし"}, {8193, 256, "HIGH", "LOW", "ポートレート"},
        {8194, 272, "HIGH", "LOW", "(272)"}, {8195, 272, "HIGH", "LOW", "F1a"},
    };
    for (const Case& c : cases) {
        const Lines expected = {"色の濃さ=" + c.saturation, "トーン=" + c.tone,
                                "コントラスト=高い", "フィルムシミュレーション=" + c.filmName};
        const Fields fields = {.fujiSaturation = 256, .fujiContrast = 512, .fujiContrast2 = 256,
                               .fujiFilmMode = c.film};
        EXPECT_TRUE(Lists(InfoOf(kMakerFujifilm, fields, c.modelId), expected)) << c.modelId;
    }
}

TEST(FujifilmSection, ConditionsAndFallbacks) {
    ExpectLists<Fields>(kMakerFujifilm, {
        {{.fujiSaturation = 768, .fujiContrast = 768}, {"色の濃さ=B/W", "トーン=(768)"}, 8193},
        {{.fujiSharpness = 0}, {"シャープネス="}},
        {{.fujiWhiteBalance = 3844}, {"ホワイトバランス=カスタム5"}},
        {{.fujiWhiteBalance = 256, .fujiWbFineTune1 = 0}, {"ホワイトバランス=晴天"}},
        {{.fujiWhiteBalance = 256, .fujiWbFineTune1 = 0, .fujiWbFineTune2 = 3},
         {"ホワイトバランス=晴天 ( 赤+0, 青+3 )"}},
        {{.fujiWhiteBalance = 1, .fujiWbFineTune1 = INT32_MIN, .fujiWbFineTune2 = 0},
         {"ホワイトバランス=(1) ( 赤-2147483648, 青+0 )"}},
        {{.fujiWbFineTune1 = 2, .fujiWbFineTune2 = 2}, {}},
        {{.fujiWhiteBalance = 0, .fujiWbFineTune2 = 2}, {"ホワイトバランス=オート"}},
        {{.fujiFlashExposureComp = 0.0f}, {"フラッシュ光量補正=±0"}},
        {{.fujiFocusPixel1 = 5}, {}},
        {{.fujiAutoBracketing = 0, .fujiSequenceNumber = 7}, {"連写・自動ブラケットモード=オフ"}},
        {{.fujiAutoBracketing = 1}, {"連写・自動ブラケットモード=オン"}},
        {{.fujiAutoBracketing = 9, .fujiSequenceNumber = 0},
         {"連写・自動ブラケットモード=(9)", "連続撮影時の連番=0"}},
        {{.fujiSequenceNumber = 7}, {}},
        {{.fujiDynamicRange = 1}, {"D-レンジ=スタンダード"}},
        {{.fujiDevelopmentDynamicRange = 400}, {}},
        {{.fujiMinFocalLength = 28}, {}},
        {{.fujiMinFocalLength = 28, .fujiMaxFocalLength = 28}, {"レンズ情報=28mm"}},
        {{.fujiMinFocalLength = 28, .fujiMaxFocalLength = 70, .fujiMaxApertureAtMinFocal = 2.8f},
         {"レンズ情報=28-70mm F2.8"}},
        {{.fujiTag4005 = {INT_UNSET, 1, 1, 1}}, {}},
        {{.fujiTag4005 = {0, 0, 0, 0}}, {"顔検出位置=(0,0)-(0,0)"}},
    });
    Fields full;
    std::fill(std::begin(full.fujiVersion), std::end(full.fujiVersion), 'v');
    EXPECT_TRUE(Lists(InfoOf(kMakerFujifilm, full), {"バージョン=" + std::string(16, 'v')}));
    const ImageInfo unknown = InfoOf(kMakerFujifilm, Fields{.fujiWhiteBalance = 77});
    EXPECT_EQ(Wording(&MakerText::whiteBalanceText, unknown), "(77)");
}

// clang-format on

}  // namespace
}  // namespace qmx::test
