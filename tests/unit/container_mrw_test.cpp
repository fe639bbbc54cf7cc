// Minolta MRW: the chain of blocks.

#include "support/deliver.h"

namespace qmx::test {
namespace {

constexpr std::uint32_t kPrd = 0x00505244;
constexpr std::uint32_t kTtw = 0x00545457;
constexpr std::uint32_t kRif = 0x00524946;

Bytes Block(std::uint32_t tag, const Bytes& data) {
    return ByteWriter(Order::kBig).U32(tag).Sized(data).bytes;
}

Bytes Mrw(const Bytes& blocks, std::size_t length) {
    const auto stated = static_cast<std::uint32_t>(length);
    return ByteWriter(Order::kBig).U8(0).Raw(FromText("MRM")).U32(stated).Raw(blocks).bytes;
}

Bytes Mrw(const Bytes& blocks) { return Mrw(blocks, blocks.size()); }

// Version and sensor size, then the picture's height and width.
Bytes Prd(std::uint32_t height, std::uint32_t width) {
    return Block(kPrd, ByteWriter(Order::kBig).Pad(12).U16(height).U16(width).U32(0).bytes);
}

Bytes Ttw(bool withSize) {
    TiffBuilder tiff(Order::kLittle);
    IfdBuilder& exif = tiff.SubIfd();
    tiff.Ifd().Camera("KONICA MINOLTA", "DiMAGE A2").Link(0x8769, {&exif});
    exif.Short(0x8827, {64});
    if (withSize) exif.Long(0xA002, {3264}).Long(0xA003, {2448});
    return Block(kTtw, tiff.Build());
}

TEST(Mrw, BlocksAreReadInTheirOrder) {
    struct Case {
        const char* what;
        Bytes file;
        std::int32_t width, height, isoSpeed;
    };
    const Bytes rif = Block(kRif, Bytes(5));
    const Case cases[] = {
        {"no blocks", Mrw(Prd(1, 2), 0), INT_UNSET, INT_UNSET, INT_UNSET},
        {"size alone", Mrw(Prd(2456, 3272)), 3272, 2456, INT_UNSET},
        {"Exif says nothing", Mrw(Prd(2456, 3272) + Ttw(false)), 3272, 2456, 64},
        {"Exif comes later", Mrw(Prd(2456, 3272) + rif + Ttw(true)), 3264, 2448, 64},
        // Big-endian after a little-endian TIFF structure, too.
        {"Exif comes first", Mrw(Ttw(true) + rif + Prd(2456, 3272)), 3272, 2456, 64},
        {"behind the stated end", Mrw(Prd(5, 6) + Ttw(true), Prd(5, 6).size()), 6, 5, INT_UNSET},
        {"cut picture size", Mrw(Block(kPrd, Bytes(11)), 100), 0xFFFF, 0xFFFF, INT_UNSET},
        {"length past the end", Mrw(Prd(5, 6) + Ttw(true), 0xFFFFFFFF), 3264, 2448, 64},
    };
    for (const Case& c : cases) {
        const ImageInfo info = Parse(c.file).info;
        EXPECT_EQ(info.makerId, kMakerMinolta) << c.what;
        EXPECT_EQ(info.pixelXDimension, c.width) << c.what;
        EXPECT_EQ(info.pixelYDimension, c.height) << c.what;
        EXPECT_EQ(info.isoSpeed, c.isoSpeed) << c.what;
    }
}

TEST(Mrw, WithoutAMakeThereIsNoMetadata) {
    EXPECT_FALSE(Parse(Mrw(Prd(5, 6))).parsed);
    EXPECT_TRUE(Parse(Mrw(Prd(5, 6) + Ttw(false))).parsed);
}

TEST(Mrw, LengthsThatLeadBackEnd) {
    for (const std::uint32_t length :
         {0xFFFFFFFFu, 0xFFFFFFF8u, 0xFFFFFFF0u, 0x80000000u, 0x7FFFFFFFu, 0x7FFFFFE0u}) {
        const Bytes loop = ByteWriter(Order::kBig).U32(kPrd).U32(length).Pad(40).bytes;
        EXPECT_EQ(Parse(Mrw(Ttw(false) + loop, 0x7FFFFFFF)).info.isoSpeed, 64) << length;
    }
}

TEST(Mrw, DeliversOnePicture) {
    const auto withPreview = [](const Bytes& jpeg) {
        TiffBuilder tiff;
        tiff.Ifd().Camera().Preview(jpeg);
        return Block(kTtw, tiff.Build());
    };
    const Bytes jpeg = JpegStream({}, 640, 480);
    const Delivered delivered =
        Deliver(Mrw(withPreview(jpeg) + withPreview(JpegStream({}, 64, 48))));
    EXPECT_EQ(delivered.result, 1);
    EXPECT_EQ(delivered.bytes, jpeg);
}

// Blocks whose TIFF headers all lead to the one large directory behind them.
TEST(Mrw, WorkIsBoundedByTheFilesSize) {
    constexpr std::uint32_t kBlocks = 20000;
    constexpr std::uint32_t kBlockBytes = 16;
    ByteWriter blocks(Order::kBig);
    for (std::uint32_t i = 0; i < kBlocks; ++i) {
        const std::uint32_t toDirectory = (kBlocks - i) * kBlockBytes - 8;
        blocks.U32(kTtw).U32(8).Raw(FromText("MM")).U16(42).U32(toDirectory);
    }
    blocks.U16(500);
    for (int i = 0; i < 500; ++i) blocks.U16(0x0100).U16(3).U32(1).U32(0);
    BytesContext context(Mrw(blocks.bytes));
    ParseContainer(context.ctx, false);
    EXPECT_EQ(context.ctx.readEnd, context.ctx.viewBase);
}

}  // namespace
}  // namespace qmx::test
