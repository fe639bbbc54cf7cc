// Panasonic's section of the labelled list and its wordings, which Leica shares.

#include <gtest/gtest.h>

#include <string>

#include "makernote/leica_fields.h"
#include "makernote/maker_record.h"
#include "makernote/panasonic_fields.h"
#include "support/listing.h"
#include "text/summary.h"

namespace qmx::test {
namespace {

using Fields = PanasonicMakerFields;

ImageInfo InfoOf(const Fields& fields, MakerId maker = kMakerPanasonic, std::int32_t modelId = 0) {
    ImageInfo info;
    info.makerId = maker;
    info.modelId = modelId;
    info.hasMakerNote = 1;
    ResetMakerRecord<Fields>(info) = fields;
    return info;
}

Lines List(const Fields& fields) { return ListMakerNote(InfoOf(fields)); }

// clang-format off

constexpr Fields kFull = {
    .panasonicTag01 = 6, .panasonicTag03 = 13, .panasonicTag07 = 2, .panasonicTag0F = 4112,
    .panasonicTag1C = 257, .panasonicTag1A = 4, .panasonicTag1F = 45, .panasonicTag23 = 2,
    .panasonicTag24 = 1, .panasonicTag25 = "S040408080427", .panasonicTag28 = 5,
    .panasonicTag2A = 1, .panasonicTag2B = 3, .panasonicTag2C = 18, .panasonicTag2D = 1,
    .panasonicTag2E = 257, .panasonicTag31 = 2, .panasonicTag32 = 2, .panasonicTag39 = -2,
    .panasonicTag3D = 13, .panasonicTag40 = 0, .panasonicTag41 = 1, .panasonicTag42 = 11,
    .panasonicTag51 = "LUMIX G 20/F1.7", .panasonicTag53 = "NO-ACCESSORY", .panasonicTag5D = 3};

const Lines kFullLines = {
    "画質モード=スーパーファイン", "ホワイトバランス=ホワイトセット2", "WB微調整=+2 (+300K)",
    "フォーカスモード=マニュアル", "AFモード=オートフォーカス（1点）高速",
    "手ブレ補正=オン/モード2", "マクロモード=AFマクロ", "フィルムモード=バイブラント",
    "シーンモード=マイカラーモード", "マイカラー=ダイナミックアート",
    "シリアル番号=S040408080427", "連続撮影=連射 (3枚目)", "コントラスト=-2", "シャープネス=+1",
    "色の濃さ=±0", "カラ－エフェクト=セピア", "画質調整=ビビッド", "暗部補正=強",
    "セルフタイマー=シャッターリモコン", "使用レンズ名=LUMIX G 20/F1.7",
    "アクセサリ=NO-ACCESSORY"};

TEST(PanasonicSection, EveryItemInOrder) {
    EXPECT_EQ(List(kFull), kFullLines);
    EXPECT_EQ(List({}), Lines());
}

TEST(PanasonicSection, ConditionsAndFallbacks) {
    struct Case {
        Fields fields;
        Lines lines;
    };
    const Case cases[] = {
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
        {{.panasonicTag2C = 5}, {"コントラスト=(5)"}},
        {{.panasonicTag1F = 1}, {"シーンモード=標準"}},
        {{.panasonicTag25 = "\xE3"}, {"シリアル番号=E3,"}},
        {{.panasonicTag24 = 1, .panasonicTag2D = 1, .panasonicTag31 = 1}, {}},
    };
    for (const Case& c : cases) EXPECT_EQ(List(c.fields), c.lines);
}

// clang-format on

TEST(PanasonicSection, ServesTheLeicasThatPanasonicBuilt) {
    EXPECT_EQ(ListMakerNote(InfoOf(kFull, kMakerLeica, 0)), kFullLines);
    EXPECT_EQ(ListMakerNote(InfoOf(kFull, kMakerLeica, 767)), kFullLines);
}

struct Texts {
    std::string lens, whiteBalance, longText;
};

Texts TextsOf(const ImageInfo& info) {
    InfoRequest request = {};
    wchar_t longText[256];
    request.longText = longText;
    request.longTextCapacity = 256;
    BuildSummary(info, &request);
    return {Utf8(request.lensText), Utf8(request.whiteBalanceText), Utf8(longText)};
}

TEST(PanasonicSummary, LensWhiteBalanceAndSceneMode) {
    for (const MakerId maker : {kMakerPanasonic, kMakerLeica}) {
        const Texts full = TextsOf(InfoOf(kFull, maker, 262));
        EXPECT_EQ(full.lens, "LUMIX G 20/F1.7");
        EXPECT_EQ(full.whiteBalance, "ホワイトセット2");
        EXPECT_EQ(full.longText, "レンズ: LUMIX G 20/F1.7");
        const Texts compact = TextsOf(InfoOf({.panasonicTag1F = 26}, maker, 262));
        EXPECT_EQ(compact.lens + compact.whiteBalance, "");
        EXPECT_EQ(compact.longText, "シーンモード: 星空");
        EXPECT_EQ(TextsOf(InfoOf({.panasonicTag1F = 99}, maker)).longText, "シーンモード: (99)");
        EXPECT_EQ(TextsOf(InfoOf({}, maker)).longText, "");
    }
    ImageInfo closed = InfoOf(kFull);
    closed.hasMakerNote = 0;
    EXPECT_EQ(TextsOf(closed).longText, "");
}

// Their record is another one: nothing of it may be taken for Panasonic's.
TEST(PanasonicSummary, LeavesLeicasOwnCamerasAlone) {
    ImageInfo info;
    info.makerId = kMakerLeica;
    info.modelId = kFirstOwnLeicaModel;
    info.hasMakerNote = 1;
    info.whiteBalance = 1;
    ResetMakerRecord<LeicaMakerFields>(info) = {2, 2, 5200, 4711};
    const Texts texts = TextsOf(info);
    EXPECT_EQ(texts.lens, "");
    EXPECT_EQ(texts.whiteBalance, "マニュアル");
    EXPECT_EQ(texts.longText, "");
}

}  // namespace
}  // namespace qmx::test
