// Sigma's section of the labelled list and its white-balance wording.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "makernote/maker_record.h"
#include "makernote/sigma_fields.h"
#include "support/listing.h"
#include "text/maker_text.h"

namespace qmx::test {
namespace {

using Fields = SigmaMakerFields;

template <std::size_t Size>
void Put(char (&field)[Size], const char* text) {
    std::memcpy(field, text, std::min(std::strlen(text) + 1, Size));
}

ImageInfo SigmaInfo(void (*fill)(Fields&)) {
    ImageInfo info;
    info.makerId = kMakerSigma;
    info.hasMakerNote = 1;
    fill(ResetMakerRecord<Fields>(info));
    return info;
}

// clang-format off

TEST(SigmaSection, EveryItemInOrder) {
    const ImageInfo info = SigmaInfo([](Fields& f) {
        f.sigmaTag32 = 0.4f;
        f.sigmaTag31 = 11.0f;
        f.sigmaTag35 = 0.3f;
        Put(f.sigmaTag02, "1001403");
        Put(f.sigmaTag03, "2S");
        Put(f.sigmaTag04, "HI");
        Put(f.sigmaTag05, "AF-S");
        Put(f.sigmaTag06, "AF");
        Put(f.sigmaAfArea, "CENTER_V");
        Put(f.sigmaAfInFocus, "H");
        Put(f.sigmaTag07, "Sunlight");
        Put(f.sigmaTag08, "P");
        Put(f.sigmaTag09, "8");
        Put(f.sigmaTag0A, "24 to 70");
        Put(f.sigmaTag0B, "sRGB");
        Put(f.sigmaTag0C, "Expo:+0.8");
        Put(f.sigmaTag0D, "Cont:+0.1");
        Put(f.sigmaTag0E, "Shad:+0.2");
        Put(f.sigmaTag0F, "High:+0.3");
        Put(f.sigmaTag10, "Satu:+0.4");
        Put(f.sigmaTag11, "Shar:+1.0");
        Put(f.sigmaTag12, "Fill:+0.5");
        Put(f.sigmaTag14, "+0.0, +0.0, +0.0");  // without a terminator
        Put(f.sigmaTag15, "X3F Setting Mode");
        Put(f.sigmaTag16, "Qual:12");
        Put(f.sigmaTag17, "2.0.4.1642 Release");
        Put(f.sigmaTag18, "SIGMA PhotoPro 2.0.0.1586");
        Put(f.sigmaTag19, "1 of 3");
        Put(f.sigmaTag3B, "not shown");
        Put(f.sigmaTag22, "not shown");
    });
    const Lines expected = {
        "露出時間=0.4秒", "絞り値=F11", "露出補正=+0.3EV", "シリアル番号=1001403",
        "ドライブモード=2秒セルフタイマー", "解像度=HI", "AFモード=AF-S", "フォーカスモード=AF",
        "AFエリア=CENTER_V", "AF-In-Focus=H", "ホワイトバランス=Sunlight",
        "撮影モード=プログラム", "測光モード=8分割式評価測光", "レンズ焦点範囲=24 to 70",
        "カラースペース=sRGB", "階調", "　+ 露出=Expo:+0.8", "　+ コントラスト=Cont:+0.1",
        "　+ シャドウ=Shad:+0.2", "　+ ハイライト=High:+0.3", "　+ 彩度=Satu:+0.4",
        "　+ シャープネス=Shar:+1.0", "　+ X3 Fill Light=Fill:+0.5",
        "カラー調整=+0.0, +0.0, +0.0", "調整モード=X3F Setting Mode", "画質モード=Qual:12",
        "ファームウェア=2.0.4.1642 Release", "ソフトウェア=SIGMA PhotoPro 2.0.0.1586",
        "オートブラケット=1 of 3"};
    EXPECT_EQ(ListMakerNote(info), expected);
}

// clang-format on

TEST(SigmaSection, EmptyRecordStillHasTheGroup) {
    EXPECT_EQ(ListMakerNote(SigmaInfo([](Fields&) {})), Lines{"階調"});
    EXPECT_EQ(ListMakerNote(SigmaInfo([](Fields& f) { f.sigmaTag32 = 0.0f; })), Lines{"階調"});
}

TEST(SigmaSection, CodesHaveNamesByTheirBeginning) {
    struct Case {
        const char* drive;
        const char* program;
        const char* metering;
        Lines lines;
    };
    // clang-format off
    const Case cases[] = {
        {"SINGLE", "P", "8",
         {"ドライブモード=1コマ撮影", "撮影モード=プログラム", "測光モード=8分割式評価測光"}},
        {"MULTI", "A", "C",
         {"ドライブモード=連続撮影", "撮影モード=絞り優先", "測光モード=中央部重点平均測光"}},
        {"2S", "S", "A",
         {"ドライブモード=2秒セルフタイマー", "撮影モード=シャッター速度優先",
          "測光モード=中央部分測光"}},
        {"10S", "M", "S",
         {"ドライブモード=10秒セルフタイマー", "撮影モード=マニュアル",
          "測光モード=スポット測光"}},
        {"UP", "Program", "8 Segment",
         {"ドライブモード=ミラーアップ", "撮影モード=プログラム", "測光モード=8分割式評価測光"}},
        {"AB", "x", "x", {"ドライブモード=オートブラケット", "撮影モード=(x)", "測光モード=(x)"}},
        {"OFF", "Auto", "Spot",
         {"ドライブモード=オフ", "撮影モード=絞り優先", "測光モード=スポット測光"}},
        {"X", "", "", {"ドライブモード=(X)"}},
        {"0123456789ABCDEFG", "12345678", "87654321",
         {"ドライブモード=(0123456789ABCDEF)", "撮影モード=(12345678)",
          "測光モード=8分割式評価測光"}},
    };
    // clang-format on
    for (const Case& c : cases) {
        ImageInfo info = SigmaInfo([](Fields&) {});
        auto& fields = MakerRecord<Fields>(info);
        Put(fields.sigmaTag03, c.drive);
        Put(fields.sigmaTag08, c.program);
        Put(fields.sigmaTag09, c.metering);
        Lines expected = c.lines;
        expected.emplace_back("階調");
        EXPECT_EQ(ListMakerNote(info), expected);
    }
}

TEST(SigmaSection, BracketOfAnX3fFile) {
    const ImageInfo info = SigmaInfo([](Fields& f) { Put(f.sigmaBracket, "2 of 3"); });
    EXPECT_EQ(ListMakerNote(info), Lines({"階調", "オートブラケット=2 of 3"}));
}

TEST(SigmaSection, WhiteBalanceWordingIsTheText) {
    wchar_t storage[kValueCapacity];
    TextBuffer text(storage);
    const MakerText& maker = FindMakerText(kMakerSigma);
    EXPECT_EQ(maker.lensText, nullptr);
    EXPECT_FALSE(maker.whiteBalanceText(SigmaInfo([](Fields&) {}), text));
    const ImageInfo info = SigmaInfo([](Fields& f) { Put(f.sigmaTag07, "Sunlight"); });
    EXPECT_TRUE(maker.whiteBalanceText(info, text));
    EXPECT_EQ(Utf8(text.Text()), "Sunlight");
}

}  // namespace
}  // namespace qmx::test
