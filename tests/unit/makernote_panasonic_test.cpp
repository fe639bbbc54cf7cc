// Panasonic's MakerNote and its texts, which the Leica cameras that Panasonic built share.

#include <gtest/gtest.h>

#include "makernote/leica_fields.h"
#include "makernote/panasonic_fields.h"
#include "support/listing.h"
#include "text/summary.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = PanasonicMakerFields;

constexpr std::string_view kHeader = "Panasonic\0\0\0"sv;
constexpr std::string_view kLeicaHeader = "LEICA\0\0\0"sv;

// clang-format off

// Every tag once, and the neighbours of the first and the last.
void AddEveryTag(IfdBuilder& entries) {
    entries.Short(0x0000, {99}).Short(0x0001, {6}).Short(0x0002, {99}).Short(0x0003, {13})
        .Short(0x0007, {2}).Byte(0x000F, {16, 16}).Short(0x001A, {4}).Short(0x001C, {257})
        .Short(0x001F, {45}).Short(0x0023, {65535}).Short(0x0024, {1})
        .Undefined(0x0025, FromText("S040408080427\0\0\0"sv)).Short(0x0028, {5})
        .Short(0x002A, {1}).Long(0x002B, {3}).Short(0x002C, {18}).Short(0x002D, {1})
        .Short(0x002E, {257}).Short(0x0031, {2}).Short(0x0032, {2}).Short(0x0039, {0xFFFE})
        .Short(0x003D, {13}).Short(0x0040, {0}).Short(0x0041, {0xFFFF}).Short(0x0042, {11})
        .Ascii(0x0051, "LUMIX G 20/F1.7").Ascii(0x0053, "NO-ACCESSORY").Short(0x005D, {3})
        .Short(0x005E, {99});
}

constexpr Fields kEveryField = {
    .panasonicTag01 = 6, .panasonicTag03 = 13, .panasonicTag07 = 2, .panasonicTag0F = 4112,
    .panasonicTag1C = 257, .panasonicTag1A = 4, .panasonicTag1F = 45, .panasonicTag23 = -1,
    .panasonicTag24 = 1, .panasonicTag25 = "S040408080427", .panasonicTag28 = 5,
    .panasonicTag2A = 1, .panasonicTag2B = 3, .panasonicTag2C = 18, .panasonicTag2D = 1,
    .panasonicTag2E = 257, .panasonicTag31 = 2, .panasonicTag32 = 2, .panasonicTag39 = -2,
    .panasonicTag3D = 13, .panasonicTag40 = 0, .panasonicTag41 = -1, .panasonicTag42 = 11,
    .panasonicTag51 = "LUMIX G 20/F1.7", .panasonicTag53 = "NO-ACCESSORY", .panasonicTag5D = 3};

const Lines kEveryLine = {
    "画質モード=スーパーファイン", "ホワイトバランス=ホワイトセット2", "WB微調整=-1 (-150K)",
    "フォーカスモード=マニュアル", "AFモード=オートフォーカス（1点）高速",
    "手ブレ補正=オン/モード2", "マクロモード=AFマクロ", "フィルムモード=バイブラント",
    "シーンモード=マイカラーモード", "マイカラー=ダイナミックアート",
    "シリアル番号=S040408080427", "連続撮影=連射 (3枚目)", "コントラスト=-2", "シャープネス=-1",
    "色の濃さ=±0", "カラ－エフェクト=セピア", "画質調整=ビビッド", "暗部補正=強",
    "セルフタイマー=シャッターリモコン", "使用レンズ名=LUMIX G 20/F1.7",
    "アクセサリ=NO-ACCESSORY"};

TEST(PanasonicNote, EveryTagHasItsFieldAndEveryFieldItsLine) {
    struct Case { MakerId maker; std::string_view header; std::int32_t modelId; };
    const Case cases[] = {{kMakerPanasonic, kHeader, 0}, {kMakerLeica, kLeicaHeader, 0},
                          {kMakerLeica, kLeicaHeader, 262}, {kMakerLeica, kLeicaHeader, 767}};
    for (const auto& [maker, header, modelId] : cases) {
        for (const Order order : {Order::kLittle, Order::kBig}) {
            BareNote note(maker, header, modelId, order);
            AddEveryTag(note.Entries());
            const ImageInfo info = note.Decode();
            EXPECT_TRUE(HoldsRecord(info, kEveryField)) << modelId;
            EXPECT_TRUE(Lists(info, kEveryLine)) << modelId;
            note.ExpectHarmless(sizeof(Fields));
        }
        const ImageInfo empty = BareNote(maker, header, modelId).Decode();
        EXPECT_TRUE(HoldsRecord(empty, Fields{}));
        EXPECT_TRUE(Lists(empty, {}));
    }
}

TEST(PanasonicNote, OddTypesAndCounts) {
    for (const Order order : {Order::kLittle, Order::kBig}) {
        BareNote note(kMakerPanasonic, kHeader, 0, order);
        note.Entries()
            .Ascii(0x0001, "2")  // a text is no number
            .Byte(0x000F, {16})  // the second byte is the field's next
            .SRational(0x001C, {{-7, 2}})
            .Long(0x0023, {0x12348000})
            .Long(0x002B, {0xFFFFFFFF})
            .Ascii(0x0039, "\x01\x02");  // two bytes, whatever the type
        const Fields expected = {
            .panasonicTag01 = 0, .panasonicTag0F = 4096, .panasonicTag1C = -3,
            .panasonicTag23 = -32768, .panasonicTag2B = INT32_MIN,
            .panasonicTag39 = order == Order::kLittle ? 0x0201 : 0x0102};
        EXPECT_TRUE(HoldsRecord(note.Decode(), expected));
    }
}

TEST(PanasonicSection, ConditionsAndFallbacks) {
    ExpectLists<Fields>(kMakerPanasonic, {
        {{.panasonicTag23 = 2}, {"WB微調整=+2 (+300K)"}},
        {{.panasonicTag23 = 0}, {"WB微調整=±0"}},
        {{.panasonicTag23 = -1}, {"WB微調整=-1 (-150K)"}},
        {{.panasonicTag0F = 3}, {"AFモード=(3)"}},
        {{.panasonicTag2A = 0, .panasonicTag2B = 5}, {"連続撮影=なし"}},
        {{.panasonicTag2A = -1}, {"連続撮影=なし"}},
        {{.panasonicTag2A = 2}, {"連続撮影=オートブラケット"}},
        {{.panasonicTag2A = 4, .panasonicTag2B = 0}, {"連続撮影=フリー連射"}},
        {{.panasonicTag2A = 3, .panasonicTag2B = 1}, {"連続撮影=(3) (1枚目)"}},
        {{.panasonicTag2A = 1, .panasonicTag2B = INT32_MIN}, {"連続撮影=連射"}},
        {{.panasonicTag2B = 5}, {}},
        {{.panasonicTag2C = 272}, {"コントラスト=標準"}},
        {{.panasonicTag2C = 272, .panasonicTag39 = 0}, {"コントラスト=±0"}},
        {{.panasonicTag1F = 1}, {"シーンモード=標準"}},
        {{.panasonicTag25 = "\xE3"}, {"シリアル番号=E3,"}},
        {{.panasonicTag24 = 1, .panasonicTag2D = 1, .panasonicTag31 = 1}, {}},
    });
}

TEST(PanasonicWordings, LensWhiteBalanceAndSceneMode) {
    constexpr Fields kScene = {.panasonicTag1F = 26};
    constexpr Fields kUnknown = {.panasonicTag1F = 99};
    for (const MakerId maker : {kMakerPanasonic, kMakerLeica}) {
        const ImageInfo every = InfoOf(maker, kEveryField, 262);
        EXPECT_EQ(Wording(&MakerText::lensText, every), "LUMIX G 20/F1.7");
        EXPECT_EQ(Wording(&MakerText::whiteBalanceText, every), "ホワイトセット2");
        const ImageInfo scene = InfoOf(maker, kScene, 262);
        EXPECT_EQ(Wording(&MakerText::lensText, scene), "-");
        EXPECT_EQ(Wording(&MakerText::whiteBalanceText, scene), "-");
        EXPECT_EQ(Wording(&MakerText::summaryLine, scene), "シーンモード: 星空");
        EXPECT_EQ(Wording(&MakerText::summaryLine, InfoOf(maker, kUnknown)), "シーンモード: (99)");
        EXPECT_EQ(Wording(&MakerText::summaryLine, InfoOf(maker, Fields{})), "-");
    }
    // The record of Leica's own cameras is another one: nothing of it may be taken for Panasonic's.
    constexpr LeicaMakerFields kOwn = {2, 2, 5200, 4711};
    const ImageInfo own = InfoOf(kMakerLeica, kOwn, kFirstOwnLeicaModel);
    for (const auto wording :
         {&MakerText::lensText, &MakerText::whiteBalanceText, &MakerText::summaryLine})
        EXPECT_EQ(Wording(wording, own), "-");
}

// A maker's wordings stand in for Exif's; where it has none, or its note is closed, Exif's stay.
TEST(PanasonicSummary, WordingsStandInTheTexts) {
    struct Case {
        Fields fields; std::uint8_t hasMakerNote; const char *lens, *whiteBalance, *longText;
    };
    const Case cases[] = {
        {kEveryField, 1, "LUMIX G 20/F1.7", "ホワイトセット2", "レンズ: LUMIX G 20/F1.7"},
        {{.panasonicTag1F = 26}, 1, "", "マニュアル", "シーンモード: 星空"},
        {kEveryField, 0, "", "マニュアル", ""},
    };
    for (const Case& c : cases) {
        ImageInfo info = InfoOf(kMakerPanasonic, c.fields);
        info.hasMakerNote = c.hasMakerNote;
        info.whiteBalance = 1;
        wchar_t longText[256];
        InfoRequest request = {};
        request.longText = longText;
        request.longTextCapacity = 256;
        BuildSummary(info, &request);
        EXPECT_EQ(Utf8(request.lensText), c.lens);
        EXPECT_EQ(Utf8(request.whiteBalanceText), c.whiteBalance);
        EXPECT_EQ(Utf8(longText), c.longText);
    }
}

// clang-format on

}  // namespace
}  // namespace qmx::test
