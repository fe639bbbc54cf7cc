// Ricoh's MakerNote, the block of image information and the tags that replace it, and its section.

#include <gtest/gtest.h>

#include "makernote/ricoh_fields.h"
#include "support/listing.h"
#include "support/note_file.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = RicohMakerFields;

constexpr std::string_view kHeader = "Ricoh\0\0\0"sv;

// Big-endian in every file.
BareNote RicohNote() { return BareNote(kMakerRicoh, kHeader, 0, Order::kBig, 0, Order::kLittle); }

// The first `size` bytes of a block with every value in its place.
Bytes Block(std::size_t size, std::uint32_t imageSetting = 6, std::uint32_t isoSetting = 7,
            std::uint32_t previewOffset = 0, std::uint32_t previewLength = 0) {
    ByteWriter block(Order::kBig);
    block.U16(3264).U16(2448).Pad(28).U16(previewOffset).U16(previewLength);
    block.U8(2).U8(1).U8(0).Pad(38).U8(3).U8(isoSetting).U8(imageSetting).U8(4).Pad(44);
    return {block.bytes.begin(), block.bytes.begin() + static_cast<std::ptrdiff_t>(size)};
}

// clang-format off

TEST(RicohNote, BlockGivesWhatItReaches) {
    const std::pair<std::size_t, Fields> cases[] = {
        {1, {}},
        {3, {.width = 3264}},
        {28, {.width = 3264, .height = 2448}},
        {33, {.width = 3264, .height = 2448, .flashMode = 2}},
        {38, {.width = 3264, .height = 2448, .flashMode = 2, .macro = 1, .sharpness = 0}},
        {41, {.width = 3264, .height = 2448, .isoSetting = 7, .whiteBalance = 3, .flashMode = 2,
              .macro = 1, .sharpness = 0, .imageSetting = 6}},
        {44, {.width = 3264, .height = 2448, .isoSetting = 7, .whiteBalance = 3, .flashMode = 2,
              .macro = 1, .sharpness = 0, .imageSetting = 6, .toning = 4}},
    };
    for (const auto& [size, fields] : cases) {
        BareNote note = RicohNote();
        note.Entries().Undefined(0x1001, Block(size));
        EXPECT_TRUE(HoldsRecord(note.Decode(), fields)) << size;
    }
}

TEST(RicohNote, RulesOfSingleTags) {
    const Fields size = {.width = 3264, .height = 2448};
    Fields sharp = size, soft = size;
    sharp.flashMode = 2, sharp.macro = 1, sharp.sharpness = 0;
    soft.sharpness = 2;
    Fields vivid = sharp;
    vivid.isoSetting = 7, vivid.whiteBalance = 3, vivid.imageSetting = 9;
    Fields grey = vivid;
    grey.imageSetting = 3, grey.toning = 4;
    struct Case { const char* what; void (*fill)(IfdBuilder&); Fields fields; };
    const Case cases[] = {
        {"sharpness without a block", [](IfdBuilder& n) { n.Long(0x1003, {2}); }, {.sharpness = 2}},
        {"the block's sharpness wins",
         [](IfdBuilder& n) { n.Undefined(0x1001, Block(35)).Long(0x1003, {2}); }, sharp},
        {"whichever comes first",
         [](IfdBuilder& n) { n.Long(0x1003, {2}).Undefined(0x1001, Block(35)); }, sharp},
        {"a short block leaves the tag's",
         [](IfdBuilder& n) { n.Long(0x1003, {2}).Undefined(0x1001, Block(28)); }, soft},
        {"words of later cameras mean something else",
         [](IfdBuilder& n) { n.Short(0x1001, {2, 3, 4}).Short(0x1003, {1}); }, {}},
        {"toning belongs to toned pictures",
         [](IfdBuilder& n) { n.Undefined(0x1001, Block(42, 9)); }, vivid},
        {"and to black and white ones",
         [](IfdBuilder& n) { n.Undefined(0x1001, Block(42, 3)); }, grey},
    };
    for (const Case& c : cases) {
        BareNote note = RicohNote();
        c.fill(note.Entries());
        EXPECT_TRUE(HoldsRecord(note.Decode(), c.fields)) << c.what;
    }
}

// clang-format on

TEST(RicohNote, IsBigEndianInEveryFileAndFillsTheIso) {
    constexpr std::pair<std::uint32_t, std::int32_t> kSpeeds[] = {
        {0, INT_UNSET}, {1, 64},   {2, 100},       {3, INT_UNSET}, {4, 200},  {6, 400},
        {7, 800},       {8, 1600}, {9, INT_UNSET}, {10, 3200},     {11, 100}, {12, INT_UNSET}};
    for (const auto& [setting, speed] : kSpeeds) {
        BareNote note(kMakerRicoh, kHeader, 0, Order::kBig, 0, Order::kBig);
        note.Entries().Undefined(0x1001, Block(42, 6, setting));
        EXPECT_EQ(note.Decode().isoSpeed, speed) << setting;
        note.before.isoSpeed = 125;
        EXPECT_EQ(note.Decode().isoSpeed, 125) << setting;
    }
}

TEST(RicohNote, PreviewOfTheBlockIsAnImageOfTheFile) {
    const Bytes jpeg = JpegStream({}, 320, 240);
    ExpectPreview(jpeg, [&](std::uint32_t offset, std::uint32_t length) {
        NoteFile file(Order::kBig, "RICOH", kHeader);
        file.Note().Undefined(0x1001, Block(42, 6, 7, offset, length));
        return file.Tiff().Trailer(jpeg).Build();
    });
}

TEST(RicohNote, HostileBytes) {
    BareNote note = RicohNote();
    note.Entries().Undefined(0x1001, Block(44, 6, 7, 20, 30)).Long(0x1003, {1});
    note.ExpectHarmless(sizeof(Fields));
}

// clang-format off

TEST(RicohSection, EveryItemInOrder) {
    const Fields fields = {
        .width = 3264, .height = 2448, .isoSetting = 9, .whiteBalance = 1, .flashMode = 2,
        .macro = 1, .sharpness = 0, .imageSetting = 6, .toning = 6};
    const Lines expected = {
        "イメージサイズ=3264, 2448", "ISOセッティング=オートHI", "ホワイトバランス=屋外",
        "フラッシュモード=オン", "マクロモード=オン", "シャープネス=シャープ",
        "画像設定=白黒（調色：セピア）"};
    ExpectLists<Fields>(kMakerRicoh, {
        {fields, expected},
        {{}, {}},
        {{.width = 640}, {}},
        {{.imageSetting = 5}, {"画像設定=(5)"}},
        {{.imageSetting = 6, .toning = 0}, {"画像設定=白黒"}},
        {{.imageSetting = 3, .toning = 1}, {"画像設定=白黒（調色：レッド）"}},
        {{.imageSetting = 6, .toning = 5}, {"画像設定=白黒（調色：(5)）"}},
        {{.toning = 1}, {}},
    });
}

// clang-format on

}  // namespace
}  // namespace qmx::test
