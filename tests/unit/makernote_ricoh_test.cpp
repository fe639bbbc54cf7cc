// Ricoh's MakerNote: the block of image information, and the tags that replace it.

#include <gtest/gtest.h>

#include "makernote/maker_record.h"
#include "makernote/ricoh_fields.h"
#include "parse/containers/container.h"
#include "support/memory_stream.h"
#include "support/parse.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = RicohMakerFields;

BareNote RicohNote() { return BareNote(kMakerRicoh, "Ricoh\0\0\0"sv, 0, Order::kBig); }

// The first `size` bytes of a block with every value in its place.
Bytes Block(std::size_t size, std::uint32_t imageSetting = 6, std::uint32_t previewOffset = 0,
            std::uint32_t previewLength = 0) {
    ByteWriter block(Order::kBig);
    block.U16(3264).U16(2448).Pad(28).U16(previewOffset).U16(previewLength);
    block.U8(2).U8(1).U8(0).Pad(38).U8(3).U8(7).U8(imageSetting).U8(4).Pad(44);
    return {block.bytes.begin(), block.bytes.begin() + static_cast<std::ptrdiff_t>(size)};
}

// clang-format off

TEST(RicohNote, BlockGivesWhatItReaches) {
    struct Case {
        std::size_t size;
        Fields fields;
    };
    const Case cases[] = {
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
    for (const Case& c : cases) {
        SCOPED_TRACE(c.size);
        BareNote note = RicohNote();
        note.Entries().Undefined(0x1001, Block(c.size));
        EXPECT_TRUE(HoldsRecord(note.Decode(), c.fields));
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
    struct Case {
        const char* what;
        void (*fill)(IfdBuilder&);
        Fields fields;
    };
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
        SCOPED_TRACE(c.what);
        BareNote note = RicohNote();
        c.fill(note.Entries());
        EXPECT_TRUE(HoldsRecord(note.Decode(), c.fields));
    }
}

// clang-format on

// A little-endian photo, whose note is big-endian all the same, with a block and a picture at its
// end.  `blockAt` is where the note says that the block is.
Bytes PhotoWith(const Bytes& block, std::uint32_t blockAt, std::uint32_t exifIso,
                const Bytes& picture) {
    TiffBuilder tiff;
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    ifd.Ascii(0x010F, "RICOH").Ascii(0x0110, "Caplio R1").Link(0x8769, {&exif});
    if (exifIso != 0) exif.Short(0x8827, {exifIso});
    exif.Undefined(0x927C, ByteWriter(Order::kBig)
                               .Raw(FromText("Ricoh\0\0\0"sv))
                               .U16(1)
                               .U16(0x1001)
                               .U16(kTypeUndefined)
                               .U32(static_cast<std::uint32_t>(block.size()))
                               .U32(blockAt)
                               .bytes);
    exif.Long(0xA002, {4000});
    tiff.Trailer(block + picture);
    return tiff.Build();
}

Bytes Photo(const Bytes& block, std::uint32_t exifIso = 0, const Bytes& picture = {}) {
    const std::size_t behind = block.size() + picture.size();
    const std::size_t blockAt = PhotoWith(block, 0, exifIso, picture).size() - behind;
    return PhotoWith(block, static_cast<std::uint32_t>(blockAt), exifIso, picture);
}

TEST(RicohNote, IsBigEndianInEveryFileAndFillsTheIso) {
    ImageInfo info = Parse(Photo(Block(42))).info;
    EXPECT_EQ(MakerRecord<Fields>(info).height, 2448);
    EXPECT_EQ(info.isoSpeed, 800);
    EXPECT_EQ(info.pixelXDimension, 4000);
    info = Parse(Photo(Block(42), 125)).info;
    EXPECT_EQ(info.isoSpeed, 125);
    EXPECT_EQ(MakerRecord<Fields>(info).isoSetting, 7);

    constexpr std::pair<std::uint8_t, std::int32_t> kSpeeds[] = {
        {0, INT_UNSET}, {1, 64},        {2, 100},   {3, INT_UNSET}, {4, 200},       {6, 400},
        {8, 1600},      {9, INT_UNSET}, {10, 3200}, {11, 100},      {12, INT_UNSET}};
    for (const auto& [setting, speed] : kSpeeds) {
        Bytes block = Block(42);
        block[39] = setting;
        EXPECT_EQ(Parse(Photo(block)).info.isoSpeed, speed) << int{setting};
    }
}

Bytes Deliver(const Bytes& file) {
    BytesContext context(file);
    MemoryStream stream;
    context.ctx.outStream = &stream;
    ParseContainer(context.ctx, false);
    return stream.bytes;
}

TEST(RicohNote, PreviewOfTheBlockIsAnImageOfTheFile) {
    const Bytes jpeg = JpegStream({}, 320, 240);
    const auto length = static_cast<std::uint32_t>(jpeg.size());
    const auto position = static_cast<std::uint32_t>(Photo(Block(42)).size());
    EXPECT_EQ(Deliver(Photo(Block(42, 6, position, length), 0, jpeg)), jpeg);
    EXPECT_EQ(Deliver(ExifJpeg(Photo(Block(42, 6, position, length), 0, jpeg))), jpeg);
    EXPECT_EQ(Deliver(Photo(Block(42, 6, position, 0), 0, jpeg)), Bytes());
    for (const std::uint32_t nowhere : {0u, position - 2, position + 1, 0xFFFFu})
        EXPECT_EQ(Deliver(Photo(Block(42, 6, nowhere, length), 0, jpeg)), Bytes()) << nowhere;
}

TEST(RicohNote, SurvivesHostileBytes) {
    BareNote note = RicohNote();
    note.Entries().Undefined(0x1001, Block(44, 6, 20, 30)).Long(0x1003, {1});
    note.ExpectHarmless(sizeof(Fields));
}

}  // namespace
}  // namespace qmx::test
