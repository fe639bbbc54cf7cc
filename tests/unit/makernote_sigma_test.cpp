// Sigma's MakerNote and the texts.

#include <gtest/gtest.h>

#include <string>

#include "makernote/sigma_fields.h"
#include "support/listing.h"
#include "support/note_file.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = SigmaMakerFields;

constexpr std::string_view kHeader = "SIGMA\0\0\0\1\0"sv;

// clang-format off

// Every tag once, and tags that mean nothing.
void AddEveryTag(IfdBuilder& note) {
    note.Ascii(0x0001, "below").Ascii(0x0002, "1001403").Ascii(0x0003, "2S").Ascii(0x0004, "HI")
        .Ascii(0x0005, "AF-S").Ascii(0x0006, "AF").Ascii(0x0007, "Sunlight").Ascii(0x0008, "P")
        .Ascii(0x0009, "8").Ascii(0x000A, "24 to 70").Ascii(0x000B, "sRGB")
        .Ascii(0x000C, "Expo:+0.8").Ascii(0x000D, "Cont:+0.1").Ascii(0x000E, "Shad:+0.2")
        .Ascii(0x000F, "High:+0.3").Ascii(0x0010, "Satu:+0.4").Ascii(0x0011, "Shar:+1.0")
        .Ascii(0x0012, "Fill:+0.5").Ascii(0x0013, "nothing").Ascii(0x0014, "+0.1, +0.2, +0.3")
        .Ascii(0x0015, "X3F Setting Mode").Ascii(0x0016, "Qual:12")
        .Ascii(0x0017, "2.0.4.1642 Release").Ascii(0x0018, "SIGMA PhotoPro 2.0.0.1586")
        .Ascii(0x0019, "1 of 3").Ascii(0x001D, "tag 1D").Ascii(0x001E, "nothing")
        .Ascii(0x0022, "tag 22").Ascii(0x0030, "tag 30").Rational(0x0031, {{110, 10}})
        .Rational(0x0032, {{4, 10}}).SRational(0x0035, {{-3, 10}}).SRational(0x003A, {{7, 10}})
        .Ascii(0x003B, "tag 3B").Ascii(0x003C, "tag 3C").Ascii(0x003D, "above");
}

TEST(SigmaNote, EveryTagHasItsFieldAndEveryFieldItsLine) {
    const Fields expected = {
        .sigmaTag02 = "1001403", .sigmaTag03 = "2S", .sigmaTag04 = "HI", .sigmaTag05 = "AF-S",
        .sigmaTag06 = "AF", .sigmaTag07 = "Sunlight", .sigmaTag08 = "P", .sigmaTag09 = "8",
        .sigmaTag0A = "24 to 70", .sigmaTag0B = "sRGB", .sigmaTag0C = "Expo:+0.8",
        .sigmaTag0D = "Cont:+0.1", .sigmaTag0E = "Shad:+0.2", .sigmaTag0F = "High:+0.3",
        .sigmaTag10 = "Satu:+0.4", .sigmaTag11 = "Shar:+1.0", .sigmaTag12 = "Fill:+0.5",
        .sigmaTag14 = "+0.1, +0.2, +0.", .sigmaTag15 = "X3F Setting Mode", .sigmaTag16 = "Qual:12",
        .sigmaTag17 = "2.0.4.1642 Release", .sigmaTag18 = "SIGMA PhotoPro 2.0.0.1586",
        .sigmaTag19 = "1 of 3", .sigmaTag1D = "tag 1D", .sigmaTag22 = "tag 22",
        .sigmaTag30 = "tag 30", .sigmaTag31 = 11.0f, .sigmaTag32 = 0.4f, .sigmaTag35 = -0.3f,
        .sigmaTag3A = 0.7f, .sigmaTag3B = "tag 3B", .sigmaTag3C = "tag 3C"};
    const Lines lines = {
        "露出時間=0.4秒", "絞り値=F11", "露出補正=-0.3EV", "シリアル番号=1001403",
        "ドライブモード=2秒セルフタイマー", "解像度=HI", "AFモード=AF-S", "フォーカスモード=AF",
        "ホワイトバランス=Sunlight", "撮影モード=プログラム", "測光モード=8分割式評価測光",
        "レンズ焦点範囲=24 to 70", "カラースペース=sRGB", "階調", "　+ 露出=Expo:+0.8",
        "　+ コントラスト=Cont:+0.1", "　+ シャドウ=Shad:+0.2", "　+ ハイライト=High:+0.3",
        "　+ 彩度=Satu:+0.4", "　+ シャープネス=Shar:+1.0", "　+ X3 Fill Light=Fill:+0.5",
        "カラー調整=+0.1, +0.2, +0.", "調整モード=X3F Setting Mode", "画質モード=Qual:12",
        "ファームウェア=2.0.4.1642 Release", "ソフトウェア=SIGMA PhotoPro 2.0.0.1586",
        "オートブラケット=1 of 3"};
    for (const Order order : {Order::kLittle, Order::kBig}) {
        BareNote note(kMakerSigma, kHeader, 0, order);
        AddEveryTag(note.Entries());
        const ImageInfo info = note.Decode();
        EXPECT_TRUE(HoldsRecord(info, expected));
        EXPECT_TRUE(Lists(info, lines));
        EXPECT_EQ(Wording(&MakerText::whiteBalanceText, info), "Sunlight");
        note.Entries().Long(0x001A, {20}).Long(0x001B, {30}).Short(0x001C, {64, 48});
        note.ExpectHarmless(sizeof(Fields));
    }
    const ImageInfo closed = BareNote(kMakerSigma, "SIGMU\0\0\0\1\0"sv).Decode();
    EXPECT_EQ(closed.hasMakerNote, 0);
}

// clang-format on

// Both pictures within a JPEG file, so that the base of the offsets counts.
TEST(SigmaNote, PreviewsOfTagsAndBehindTheLastValue) {
    const Bytes tagged = JpegStream(Segment(0xDB, Bytes(8)), 64, 48);
    const Bytes trailing = JpegStream({}, 160, 120);
    for (const bool hasTrailing : {false, true}) {
        NoteFile file(Order::kLittle, "SIGMA", kHeader);
        file.Note()
            .Data(0x001A, tagged)
            .Long(0x001B, {static_cast<std::uint32_t>(tagged.size())})
            .Short(0x001C, {64, 48})
            .Ascii(0x003C, "Sunlight+");  // of an even size: nothing pads it
        if (hasTrailing) file.Tiff().Trailer(trailing);
        const Bytes photo = ExifJpeg(file.Tiff().Build());
        EXPECT_EQ(DeliveredBytes(photo, false), tagged);
        EXPECT_EQ(DeliveredBytes(photo, true), hasTrailing ? trailing : tagged);
    }
    NoteFile ignored(Order::kLittle, "SIGMA", kHeader);
    ignored.Note().Undefined(0x003D, trailing);  // no tag that means anything
    EXPECT_EQ(DeliveredBytes(ignored.Tiff().Build()), trailing);
}

// clang-format off

TEST(SigmaSection, ConditionsAndFallbacks) {
    ExpectLists<Fields>(kMakerSigma, {
        {{}, {"階調"}},  // the group stands even when it is empty
        {{.sigmaTag32 = 0.0f}, {"階調"}},
        {{.sigmaTag08 = "A", .sigmaTag09 = "C"},
         {"撮影モード=絞り優先", "測光モード=中央部重点平均測光", "階調"}},
        {{.sigmaTag08 = "S", .sigmaTag09 = "A"},
         {"撮影モード=シャッター速度優先", "測光モード=中央部分測光", "階調"}},
        {{.sigmaTag08 = "Program", .sigmaTag09 = "8 Seg"},
         {"撮影モード=プログラム", "測光モード=8分割式評価測光", "階調"}},
        {{.sigmaTag08 = "x", .sigmaTag09 = "x"}, {"撮影モード=(x)", "測光モード=(x)", "階調"}},
        {{.sigmaTag03 = "SINGLE"}, {"ドライブモード=1コマ撮影", "階調"}},
        {{.sigmaTag03 = "OFF"}, {"ドライブモード=オフ", "階調"}},
        {{.sigmaTag03 = "X"}, {"ドライブモード=(X)", "階調"}},
        // Only X3F files tell these; texts may fill their fields.
        {{.sigmaAfArea = "CENTER_V", .sigmaAfInFocus = "H", .sigmaBracket = "2 of 3"},
         {"AFエリア=CENTER_V", "AF-In-Focus=H", "階調", "オートブラケット=2 of 3"}},
        {{.sigmaTag08 = {'1', '2', '3', '4', '5', '6', '7', '8'}, .sigmaTag09 = "A"},
         {"撮影モード=(12345678)", "測光モード=中央部分測光", "階調"}},
    });
    const ImageInfo empty = InfoOf(kMakerSigma, Fields{});
    EXPECT_EQ(Wording(&MakerText::whiteBalanceText, empty), "-");
    EXPECT_EQ(FindMakerText(kMakerSigma).lensText, nullptr);
}

// clang-format on

}  // namespace
}  // namespace qmx::test
