// Photoshop's image resources: the thumbnail among them, and sizes that lie.

#include "makernote/photoshop.h"

#include "support/deliver.h"

namespace qmx::test {
namespace {

constexpr std::uint32_t kThumbnail = 1036;

Bytes Resource(std::uint32_t id, const Bytes& data, std::string_view name = {}) {
    ByteWriter block(Order::kBig);
    block.Raw(FromText("8BIM")).U16(id);
    block.U8(static_cast<std::uint32_t>(name.size())).Raw(FromText(name));
    block.Pad((block.bytes.size() + 1) & ~std::size_t{1}).Sized(data);
    return block.Pad((block.bytes.size() + 1) & ~std::size_t{1}).bytes;
}

Bytes Jpeg() { return JpegStream(Segment(0xDB, Bytes(5)), 160, 107); }

Bytes ThumbnailData(const Bytes& stream, std::uint32_t format = 1) {
    return ByteWriter(Order::kBig).U32(format).Pad(28).Raw(stream).bytes;
}

Bytes Thumbnail() { return Resource(kThumbnail, ThumbnailData(Jpeg())); }

struct Found {
    std::size_t records;
    ImageRecord first;
};

Found Read(const Bytes& bytes, std::uint64_t length) {
    BytesContext context(bytes);
    ParseContext& ctx = context.ctx;
    MemoryStream stream;
    ctx.outStream = &stream;
    ReadPhotoshopResources(ctx, length);
    EXPECT_LE(ctx.cursor, ctx.viewBase + ctx.fileSize);
    const std::size_t records = ctx.imageRecords.size();
    return {records, records != 0 ? ctx.imageRecords[0] : ImageRecord{}};
}

TEST(PhotoshopResources, ThumbnailBecomesARecord) {
    const Found found = Read(Thumbnail(), Thumbnail().size());
    ASSERT_EQ(found.records, 1u);
    EXPECT_EQ(found.first.width, 160);
    EXPECT_EQ(found.first.height, 107);
    EXPECT_EQ(found.first.compression, kCompressionOldJpeg);
    EXPECT_EQ(found.first.jpegOffset, 12u + 28u);
    EXPECT_EQ(found.first.jpegLength, Jpeg().size());
}

TEST(PhotoshopResources, WhichBlocksCount) {
    struct Case {
        const char* what;
        Bytes bytes;
        std::size_t records;
    };
    Bytes truncatedSize = Thumbnail();
    truncatedSize.resize(11);
    const Bytes odd(3, 0xAB);
    const Case cases[] = {
        {"nothing", {}, 0},
        {"behind names and data of any parity",
         Resource(1005, odd, "a") + Resource(1006, Bytes(4), "ab") + Resource(1007, {}) +
             Thumbnail(),
         1},
        {"two", Thumbnail() + Resource(1007, odd) + Thumbnail(), 2},
        {"thumbnail of older versions", Resource(1033, ThumbnailData(Jpeg())), 0},
        {"raw pixels", Resource(kThumbnail, ThumbnailData(Jpeg(), 0)), 0},
        {"no stream", Resource(kThumbnail, ThumbnailData({})), 0},
        {"half a header", Resource(kThumbnail, Bytes(20)), 0},
        {"no JPEG", Resource(kThumbnail, ThumbnailData(Bytes(60, 0x11))), 0},
        {"no frame header", Resource(kThumbnail, ThumbnailData({0xFF, 0xD8, 0xFF, 0xD9})), 0},
        {"other signature ends", FromText("MeSa") + Bytes(8) + Thumbnail(), 0},
        {"block cut before its size", truncatedSize, 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Read(c.bytes, c.bytes.size()).records, c.records) << c.what;
}

TEST(PhotoshopResources, SizesAreBounded) {
    const auto stated = [](std::uint32_t size) {
        Bytes block = Thumbnail();
        const Bytes field = ByteWriter(Order::kBig).U32(size).bytes;
        std::copy(field.begin(), field.end(), block.begin() + 8);
        return block;
    };
    const std::size_t whole = Thumbnail().size();
    for (const std::uint32_t size : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFEu, 0xFFFFFFFFu}) {
        const Found found = Read(stated(size) + Thumbnail(), whole);
        ASSERT_EQ(found.records, 1u) << size;
        EXPECT_EQ(found.first.jpegOffset + found.first.jpegLength, whole) << size;
    }
    EXPECT_EQ(Read(stated(0) + Thumbnail(), 2 * whole).records, 0u);
    // What the tag's count leaves out is not read, and a count beyond the file's end does no harm.
    EXPECT_EQ(Read(Resource(1005, {}) + Thumbnail(), Resource(1005, {}).size()).records, 0u);
    EXPECT_EQ(Read(Thumbnail(), UINT64_MAX).records, 1u);
    Bytes longName = Thumbnail();
    longName[6] = 0xFF;
    EXPECT_EQ(Read(longName, whole).records, 0u);
}

TEST(PhotoshopResources, SurviveHostileBytes) {
    const Bytes bytes = Resource(1005, {1, 2, 3}, "ab") + Thumbnail();
    ForEachDamage(bytes, [&](const Bytes& damaged) { Read(damaged, bytes.size()); });
}

TEST(PhotoshopResources, GiveATiffItsThumbnail) {
    TiffBuilder tiff;
    tiff.Ifd().Camera().Undefined(0x8649, Thumbnail());
    EXPECT_EQ(Deliver(tiff.Build()).bytes, Jpeg());
}

}  // namespace
}  // namespace qmx::test
