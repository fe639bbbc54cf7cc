// Casio's MakerNote of the "QVC" form, and its section.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "makernote/casio_fields.h"
#include "support/listing.h"
#include "support/note_file.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = CasioMakerFields;

constexpr std::string_view kHeader = "QVC\0\0\0"sv;

BareNote CasioNote() { return BareNote(kMakerCasio, kHeader, 0, Order::kBig); }

Fields FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

// clang-format off

void AddEveryTag(IfdBuilder& note) {
    note.Long(0x0003, {30}).Long(0x0004, {40}).Short(0x2011, {487, 435}).Short(0x2012, {12})
        .Long(0x2022, {1500}).Short(0x2034, {806}).Short(0x3000, {6}).Short(0x3001, {1})
        .Short(0x3002, {3}).Short(0x3003, {6}).Ascii(0x3006, "New York").Short(0x3007, {5})
        .Undefined(0x3011, {0xFF, 0xFC}).Undefined(0x3012, {0x00, 0x02})
        .Undefined(0x3013, {0x00, 0x00}).Short(0x3014, {50}).Short(0x3015, {3})
        .Short(0x3016, {9}).Short(0x3017, {7});
}

TEST(CasioNote, EveryTagHasItsFieldAndEveryFieldItsLine) {
    const Fields expected = {
        .casioTag2011a = 487, .casioTag2011b = 435, .casioTag2012 = 12, .casioTag2022 = 1500,
        .casioTag2034 = 806, .casioTag3000 = 6, .casioTag3001 = 1, .casioTag3002 = 3,
        .casioTag3003 = 6, .casioTag3006 = "New York", .casioTag3007 = 5, .casioTag3011 = 65532,
        .casioTag3013 = 0, .casioTag3012 = 2, .casioTag3014 = 50, .casioTag3015 = 3,
        .casioTag3016 = 9, .casioTag3017 = 7};
    const Lines lines = {
        "撮影モード=ベストショット", "ベストショット=5", "レリーズモード=ノーマル",
        "画質モード=ファイン", "フォーカスモード=マルチエリアAF", "撮影距離=1.5m",
        "フラッシュ距離=80.6cm", "ISO感度=50", "ホワイトバランス=フラッシュ",
        "ホワイトバランス補正=487, 435", "コントラスト=+2", "色の濃さ=±0", "シャープネス=-4",
        "カラーモード=セピア", "カラー強調=肌色", "カラーフィルター=ピンク",
        "ホームタウン=New York"};
    BareNote note = CasioNote();
    AddEveryTag(note.Entries());
    const ImageInfo info = note.Decode();
    EXPECT_TRUE(HoldsRecord(info, expected));
    EXPECT_TRUE(Lists(info, lines));
    EXPECT_EQ(info.isoSpeed, 50);
    note.ExpectHarmless(sizeof(Fields));
    note.before.isoSpeed = 200;  // Exif's
    EXPECT_EQ(note.Decode().isoSpeed, 200);
    const Fields reset;
    EXPECT_TRUE(HoldsRecord(CasioNote().Decode(), reset));
    EXPECT_EQ(reset.casioTag2011a, INT_UNSET);
    EXPECT_EQ(reset.casioTag2011b, 0);
    EXPECT_TRUE(Lists(InfoOf(kMakerCasio, reset), Lines()));
}

TEST(CasioNote, EntriesOfNoDirectoryEndIt) {
    struct Case { const char* what; std::uint16_t tag, type; std::uint32_t count; bool ends; };
    constexpr Case kCases[] = {
        {"tag 0", 0, 3, 1, true},
        {"type 0", 0x2040, 0, 1, true},
        {"type 13", 0x2040, 13, 1, true},
        {"count 0", 0x2040, 3, 0, true},
        {"negative count", 0x2040, 3, 0x80000000, false},
        {"flash distance 0", 0x2034, 3, 1, false},
    };
    for (const Case& c : kCases) {
        BareNote note = CasioNote();
        note.Entries().Short(0x2034, {9}).Raw(c.tag, c.type, c.count, 0).Short(0x3002, {1});
        const Fields fields = FieldsOf(note.Decode());
        EXPECT_EQ(fields.casioTag2034, 9) << c.what;
        EXPECT_EQ(fields.casioTag3002, c.ends ? INT_UNSET : 1) << c.what;
    }
}

// The count alone is in the file's order.
TEST(CasioNote, EntriesAreBigEndianInEveryFile) {
    const Bytes directory = {1, 0, 0x30, 2, 0, 3, 0, 0, 0, 1, 0, 2, 0, 0};
    const BareNote note(kMakerCasio, kHeader);
    const Bytes bytes = Bytes(BareNote::kPosition) + FromText(kHeader) + directory;
    EXPECT_EQ(FieldsOf(note.Decode(bytes)).casioTag3002, 2);
}

// clang-format on

TEST(CasioNote, HomeTownIsBoundedByItsField) {
    for (const std::size_t length : {24u, 31u, 32u, 33u, 4000u}) {
        BareNote note = CasioNote();
        note.Entries().Undefined(0x3006, Bytes(length, 'T')).Short(0x3007, {4});
        const ImageInfo info = note.Decode();
        const std::string town(std::min<std::size_t>(length, 32), 'T');
        EXPECT_TRUE(Lists(info, Lines({"ホームタウン=" + town})));
        EXPECT_EQ(FieldsOf(info).casioTag3007, 4);
    }
}

// In a JPEG file the TIFF header stands at 12: the offset counts from it, or from the file's start.
TEST(CasioNote, PreviewIsWhereAFrameHeaderAnswers) {
    constexpr std::uint32_t kTiffHeader = 12;
    const Bytes jpeg = JpegStream(Segment(0xDB, Bytes(6)), 320, 240);
    const auto length = static_cast<std::uint32_t>(jpeg.size());
    const auto photo = [&](std::uint32_t offset) {
        NoteFile file(Order::kBig, "CASIO COMPUTER CO.,LTD.", kHeader);
        file.Note().Short(0x0002, {320, 240}).Long(0x0003, {length}).Long(0x0004, {offset});
        return file.Tiff().Trailer(jpeg).Build();
    };
    const std::uint32_t position = static_cast<std::uint32_t>(photo(0).size()) - length;
    EXPECT_EQ(DeliveredBytes(ExifJpeg(photo(position))), jpeg);
    EXPECT_EQ(DeliveredBytes(ExifJpeg(photo(position + kTiffHeader))), jpeg);
    EXPECT_EQ(DeliveredBytes(photo(position)), jpeg);
    for (const std::uint32_t nowhere : {0u, position - 7, position + 400, 0x7FFFFFFFu, 0xFFFFFFF4u})
        EXPECT_EQ(DeliveredBytes(ExifJpeg(photo(nowhere))), Bytes()) << nowhere;
}

// clang-format off
TEST(CasioSection, ConditionsAndFallbacks) {
    ExpectLists<Fields>(kMakerCasio, {
        {{.casioTag3000 = 2, .casioTag3007 = 5}, {"撮影モード=プログラムAE"}},
        {{.casioTag3000 = 6, .casioTag3007 = 0}, {"撮影モード=ベストショット", "ベストショット=オフ"}},
        {{.casioTag3000 = 99}, {"撮影モード=(99)"}},
        {{.casioTag2022 = 0x1FFFFFFF}, {"撮影距離=536871.0m"}},
        {{.casioTag2022 = 0x20000000}, {"撮影距離=∞"}},
        {{.casioTag2022 = INT32_MIN}, {"撮影距離=∞"}},
        {{.casioTag3014 = 0}, {"ISO感度=オート"}},
        {{.casioTag2011b = 93}, {}},
        {{.casioTag3012 = 0x12345}, {"コントラスト=+9029"}},
    });
}
// clang-format on

}  // namespace
}  // namespace qmx::test
