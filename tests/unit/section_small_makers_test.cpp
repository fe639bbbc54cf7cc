// The sections of Sanyo, Seiko Epson, Mamiya and Leica's own cameras.

#include <gtest/gtest.h>

#include "makernote/leica_fields.h"
#include "makernote/maker_record.h"
#include "makernote/mamiya_fields.h"
#include "makernote/sanyo_fields.h"
#include "makernote/seiko_fields.h"
#include "support/listing.h"

namespace qmx::test {
namespace {

template <class Fields>
Lines List(MakerId maker, const Fields& fields, std::int32_t modelId = 0) {
    ImageInfo info;
    info.makerId = maker;
    info.modelId = modelId;
    info.hasMakerNote = 1;
    ResetMakerRecord<Fields>(info) = fields;
    return ListMakerNote(info);
}

template <class Fields>
struct Case {
    Fields fields;
    Lines lines;
};

// clang-format off

TEST(SanyoSection, EveryItemInOrder) {
    const SanyoMakerFields full = {
        .sanyoTag201 = 0x0102, .sanyoTag202 = 1, .sanyoTag204 = 1.5f, .sanyoTag20E = 2,
        .sanyoTag20F = 1, .sanyoTag210 = 0, .sanyoTag213 = 1, .sanyoTag214 = 0, .sanyoTag215 = 1,
        .sanyoTag218 = 0, .sanyoTag219 = 1, .sanyoTag21A = 3, .sanyoTag21B = 1, .sanyoTag225 = 2};
    const Lines expected = {
        "画質モード=ファイン(2)", "撮影モード=マクロ", "デジタルズーム=1.5倍",
        "連写モード=ベストセレクト", "ワイドレンジショット=オン",
        "リアルカラーイコライザ=オフ", "クイックショット=オン", "セルフタイマー=オフ",
        "ボイスメモ=オン", "フリッカー軽減=オフ", "フォーカスモード=スーパーマクロ",
        "フラッシュモード=禁止"};
    EXPECT_EQ(List(kMakerSanyo, full), expected);
    EXPECT_EQ(List(kMakerSanyo, SanyoMakerFields{}), Lines());
}

TEST(SanyoSection, ConditionsAndFallbacks) {
    const Case<SanyoMakerFields> cases[] = {
        {{.sanyoTag201 = 0x0300}, {"画質モード=(3)(0)"}},
        {{.sanyoTag201 = 7}, {"画質モード=標準(7)"}},
        {{.sanyoTag201 = -1}, {"画質モード=(-1)(255)"}},
        {{.sanyoTag202 = 0}, {"撮影モード=標準", "連写モード=(2147483647)"}},
        {{.sanyoTag20E = 1}, {}},
        {{.sanyoTag20F = 0}, {"ワイドレンジショット=オフ", "リアルカラーイコライザ=(2147483647)"}},
        {{.sanyoTag210 = 1}, {}},
        {{.sanyoTag204 = 0.0f}, {"デジタルズーム=オフ"}},
        {{.sanyoTag204 = 1.0f}, {"デジタルズーム=1.0倍"}},
        {{.sanyoTag21A = 1}, {"フォーカスモード=(1)"}},
    };
    for (const auto& c : cases) EXPECT_EQ(List(kMakerSanyo, c.fields), c.lines);
}

TEST(SeikoSection, Items) {
    const Case<SeikoMakerFields> cases[] = {
        {{.seikoTag201 = 3, .seikoTag209 = "EPSON DIGITAL CAMERA", .seikoTag20B = 3008,
          .seikoTag20C = 2000, .seikoTag20D = "R-D1"},
         {"画質モード=高詳細", "カメラID=EPSON DIGITAL CAMERA", "イメージサイズ=3008, 2000",
          "ハードウェアタイプ=R-D1"}},
        {{}, {}},
        {{.seikoTag201 = 0}, {"画質モード=(0)"}},
        {{.seikoTag20B = 3008}, {}},
    };
    for (const auto& c : cases) EXPECT_EQ(List(kMakerSeiko, c.fields), c.lines);
}

TEST(MamiyaSection, Items) {
    const Case<MamiyaMakerFields> cases[] = {
        {{.mamiyaTag90 = 8, .mamiyaTag95 = 100, .mamiyaTag98 = 6, .mamiyaTagA2 = 3,
          .mamiyaTagA5 = 2},
         {"露出モード=絞り優先AE", "ISOセッティング=100", "ホワイトバランス=電球",
          "カラーモード=商品", "トーン=低い"}},
        {{}, {}},
        {{.mamiyaTag95 = 0}, {"ISOセッティング=オート"}},
        {{.mamiyaTag90 = 1, .mamiyaTag98 = 1}, {"露出モード=(1)", "ホワイトバランス=(1)"}},
    };
    for (const auto& c : cases) EXPECT_EQ(List(kMakerMamiya, c.fields), c.lines);
}

TEST(LeicaSection, Items) {
    const Case<LeicaMakerFields> cases[] = {
        {{.leicaTag304 = 3, .leicaTag310 = 97, .leicaTag321 = 5200, .leicaTag340 = 4711},
         {"ホワイトバランス=白熱灯", "色温度=5200K", "レンズ情報=21mm F2.8",
          "イメージID=4711"}},
        {{}, {"ホワイトバランス=オート"}},
        {{.leicaTag304 = 1, .leicaTag310 = 0}, {"ホワイトバランス=(1)", "レンズ情報=オフ"}},
        {{.leicaTag310 = 98}, {"ホワイトバランス=オート", "レンズ情報=(98)"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(List(kMakerLeica, c.fields, kFirstOwnLeicaModel), c.lines);
}

// clang-format on

TEST(WalkedNotesSection, IsEmpty) {
    struct Nothing {
        std::int32_t field = 0;
    };
    EXPECT_EQ(List(kMakerKddi, Nothing{}), Lines());
    EXPECT_EQ(List(kMakerHasselblad, Nothing{}), Lines());
}

}  // namespace
}  // namespace qmx::test
