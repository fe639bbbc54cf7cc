// The MakerNotes of Sanyo, Seiko Epson, Mamiya, Leica's own cameras, KDDI and Hasselblad, and their
// sections.

#include <gtest/gtest.h>

#include <string>

#include "makernote/leica_fields.h"
#include "makernote/mamiya_fields.h"
#include "makernote/sanyo_fields.h"
#include "makernote/seiko_fields.h"
#include "support/listing.h"
#include "support/note_file.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kLeicaHeader = "LEICA\0\0\0"sv;
constexpr std::string_view kSeikoHeader = "EPSON\0\1\0"sv;

// A note with every tag of the record and the neighbours of the first and the last: what becomes
// of it in either byte order, of one without entries, and of damaged ones.
template <class Fields>
void ExpectNote(MakerId maker, std::string_view header, void (*addTags)(IfdBuilder&),
                const Fields& expected, const Lines& lines, std::int32_t modelId = 0) {
    for (const Order order : {Order::kLittle, Order::kBig}) {
        BareNote note(maker, header, modelId, order);
        addTags(note.Entries());
        const ImageInfo info = note.Decode();
        EXPECT_EQ(info.hasMakerNote, 1);
        EXPECT_TRUE(HoldsRecord(info, expected));
        EXPECT_TRUE(Lists(info, lines));
        note.Entries().Undefined(0x0280, JpegStream({}, 8, 8));
        note.ExpectHarmless(sizeof(Fields));
    }
    EXPECT_TRUE(HoldsRecord(BareNote(maker, header, modelId).Decode(), Fields{}));
}

// clang-format off

TEST(Sanyo, NoteAndSection) {
    using Fields = SanyoMakerFields;
    const auto addTags = [](IfdBuilder& entries) {
        entries.Short(0x0200, {99}).Short(0x0201, {0x0102}).Short(0x0202, {1}).Short(0x0203, {99})
            .Rational(0x0204, {{3, 2}}).Short(0x020E, {2}).Short(0x020F, {1}).Short(0x0210, {0})
            .Short(0x0213, {1}).Short(0x0214, {0}).Short(0x0215, {1}).Short(0x0216, {99})
            .Short(0x0218, {0}).Short(0x0219, {1}).Short(0x021A, {3}).Rational(0x021B, {{27, 2}})
            .Short(0x0225, {2}).Short(0x0226, {99});
    };
    const Fields expected = {
        .sanyoTag201 = 0x0102, .sanyoTag202 = 1, .sanyoTag204 = 1.5f, .sanyoTag20E = 2,
        .sanyoTag20F = 1, .sanyoTag210 = 0, .sanyoTag213 = 1, .sanyoTag214 = 0, .sanyoTag215 = 1,
        .sanyoTag218 = 0, .sanyoTag219 = 1, .sanyoTag21A = 3, .sanyoTag21B = 13, .sanyoTag225 = 2};
    const Lines lines = {
        "画質モード=ファイン(2)", "撮影モード=マクロ", "デジタルズーム=1.5倍",
        "連写モード=ベストセレクト", "ワイドレンジショット=オン",
        "リアルカラーイコライザ=オフ", "クイックショット=オン", "セルフタイマー=オフ",
        "ボイスメモ=オン", "フリッカー軽減=オフ", "フォーカスモード=スーパーマクロ",
        "フラッシュモード=禁止"};
    ExpectNote<Fields>(kMakerSanyo, "SANYO\0\1\0"sv, addTags, expected, lines);
    ExpectLists<Fields>(kMakerSanyo, {
        {{}, {}},
        {{.sanyoTag201 = 0x0300}, {"画質モード=(3)(0)"}},
        {{.sanyoTag201 = 7}, {"画質モード=標準(7)"}},
        {{.sanyoTag201 = -1}, {"画質モード=(-1)(255)"}},
        {{.sanyoTag202 = 0}, {"撮影モード=標準", "連写モード=(2147483647)"}},
        {{.sanyoTag20E = 1}, {}},
        {{.sanyoTag20F = 0}, {"ワイドレンジショット=オフ", "リアルカラーイコライザ=(2147483647)"}},
        {{.sanyoTag210 = 1}, {}},
        {{.sanyoTag204 = 0.0f}, {"デジタルズーム=オフ"}},
        {{.sanyoTag204 = 1.0f}, {"デジタルズーム=1.0倍"}},
    });
}

// A note that the file cuts short keeps what stands before the cut.
TEST(Sanyo, CutShortKeepsWhatCameBefore) {
    const std::int32_t SanyoMakerFields::*const fields[] = {
        &SanyoMakerFields::sanyoTag20E, &SanyoMakerFields::sanyoTag213,
        &SanyoMakerFields::sanyoTag215, &SanyoMakerFields::sanyoTag225};
    BareNote note(kMakerSanyo, "SANYO\0\1\0"sv);
    note.Entries().Short(0x020E, {1}).Short(0x0213, {1}).Short(0x0215, {1}).Short(0x0225, {1});
    const Bytes bytes = note.Build();
    constexpr std::size_t kFirstValueEnd = BareNote::kPosition + 8 + 2 + 10;
    for (std::size_t i = 0; i < std::size(fields); ++i) {
        const auto end = bytes.begin() + static_cast<std::ptrdiff_t>(kFirstValueEnd + 12 * i);
        const ImageInfo info = note.Decode(Bytes(bytes.begin(), end));
        for (std::size_t j = 0; j < std::size(fields); ++j)
            EXPECT_EQ(MakerRecord<SanyoMakerFields>(info).*fields[j], j <= i ? 1 : INT_UNSET);
    }
}

TEST(Seiko, NoteAndSection) {
    using Fields = SeikoMakerFields;
    const auto addTags = [](IfdBuilder& entries) {
        entries.Short(0x0200, {99}).Short(0x0201, {3}).Ascii(0x0209, "EPSON DIGITAL CAMERA")
            .Short(0x020B, {3008}).Short(0x020C, {2000}).Ascii(0x020D, "R-D1").Short(0x0281, {99});
    };
    const Fields expected = {
        .seikoTag201 = 3, .seikoTag209 = "EPSON DIGITAL CAMERA", .seikoTag20B = 3008,
        .seikoTag20C = 2000, .seikoTag20D = "R-D1"};
    const Lines lines = {"画質モード=高詳細", "カメラID=EPSON DIGITAL CAMERA",
                         "イメージサイズ=3008, 2000", "ハードウェアタイプ=R-D1"};
    ExpectNote<Fields>(kMakerSeiko, kSeikoHeader, addTags, expected, lines);
    ExpectLists<Fields>(kMakerSeiko, {
        {{}, {}},
        {{.seikoTag201 = 0}, {"画質モード=(0)"}},
        {{.seikoTag20B = 3008}, {}},
    });
}

TEST(Mamiya, NoteAndSection) {
    using Fields = MamiyaMakerFields;
    const auto addTags = [](IfdBuilder& entries) {
        entries.Short(0x008F, {99}).Short(0x0090, {8}).Short(0x0095, {100}).Short(0x0098, {6})
            .Short(0x00A2, {3}).Rational(0x00A5, {{5, 2}}).Short(0x00A6, {99});
    };
    const Fields expected = {
        .mamiyaTag90 = 8, .mamiyaTag95 = 100, .mamiyaTag98 = 6, .mamiyaTagA2 = 3, .mamiyaTagA5 = 2};
    const Lines lines = {"露出モード=絞り優先AE", "ISOセッティング=100", "ホワイトバランス=電球",
                         "カラーモード=商品", "トーン=低い"};
    ExpectNote<Fields>(kMakerMamiya, "", addTags, expected, lines);
    ExpectLists<Fields>(kMakerMamiya, {
        {{}, {}},
        {{.mamiyaTag95 = 0}, {"ISOセッティング=オート"}},
        {{.mamiyaTag90 = 1, .mamiyaTag98 = 1}, {"露出モード=(1)", "ホワイトバランス=(1)"}},
    });
}

TEST(Leica, NoteAndSection) {
    using Fields = LeicaMakerFields;
    const auto addTags = [](IfdBuilder& entries) {
        entries.Short(0x0003, {99}).Short(0x0304, {3}).Long(0x0310, {97}).Long(0x0321, {5200})
            .Long(0x0340, {4711}).Short(0x0341, {99});
    };
    const Lines lines = {"ホワイトバランス=白熱灯", "色温度=5200K", "レンズ情報=21mm F2.8",
                         "イメージID=4711"};
    constexpr Fields kExpected = {3, 97, 5200, 4711};
    ExpectNote(kMakerLeica, kLeicaHeader, addTags, kExpected, lines, kFirstOwnLeicaModel);
    ExpectLists<Fields>(kMakerLeica, {
        {{}, {"ホワイトバランス=オート"}},  // Deliberate: without its tag it is 0, not unset.
        {{.leicaTag304 = 1, .leicaTag310 = 0}, {"ホワイトバランス=(1)", "レンズ情報=オフ"}},
        {{.leicaTag310 = 98}, {"ホワイトバランス=オート", "レンズ情報=(98)"}},
    }, kFirstOwnLeicaModel);
}

// clang-format on

TEST(Seiko, PreviewIsDelivered) {
    const Bytes large = JpegStream(Segment(0xDB, Bytes(6)), 640, 480);
    const Bytes small = JpegStream(Segment(0xDB, Bytes(8)), 160, 120);
    const std::pair<std::vector<Bytes>, Bytes> cases[] = {
        {{large}, large},
        {{large, small}, small},  // one record, of the last
        {{small, large}, large},
        {{large, Bytes(large.size(), 0x20)}, {}},  // the first one's size is not kept
        {{{}}, {}},
        {{{0xFF, 0xD8, 0xFF}}, {}},
        {{Bytes(large.begin(), large.begin() + 12)}, {}},
    };
    for (const auto& [previews, delivered] : cases) {
        NoteFile file(Order::kLittle, "SEIKO EPSON CORP.", kSeikoHeader);
        for (const Bytes& preview : previews) file.Note().Undefined(0x0280, preview);
        const Bytes photo = file.Tiff().Build();
        EXPECT_EQ(DeliveredBytes(photo, false), delivered);
        EXPECT_EQ(DeliveredBytes(photo, true), delivered);
    }
    // Beside the file's own thumbnail: the smallest and the largest are still told apart.
    NoteFile file(Order::kBig, "SEIKO EPSON CORP.", kSeikoHeader);
    file.Note().Undefined(0x0280, large);
    file.Tiff().Ifd().Data(0x0201, small).Long(0x0202, {static_cast<std::uint32_t>(small.size())});
    const Bytes photo = file.Tiff().Build();
    EXPECT_EQ(DeliveredBytes(photo, false), small);
    EXPECT_EQ(DeliveredBytes(photo, true), large);
}

TEST(WalkedNotes, KeepNothing) {
    const std::pair<MakerId, std::string_view> cases[] = {{kMakerKddi, "KDDI\0\0\0\0"sv},
                                                          {kMakerHasselblad, ""sv}};
    for (const auto& [maker, header] : cases) {
        BareNote note(maker, header);
        note.Entries().Short(0x0001, {5}).Ascii(0x0002, "some text").Rational(0x0011, {{1, 2}});
        const ImageInfo info = note.Decode();
        EXPECT_EQ(info.hasMakerNote, 1);
        EXPECT_TRUE(Lists(info, {}));
        note.ExpectHarmless(0);
    }
    EXPECT_EQ(BareNote(kMakerKddi, "KDDX\0\0\0\0"sv).Decode().hasMakerNote, 0);
}

}  // namespace
}  // namespace qmx::test
