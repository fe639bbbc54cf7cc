// Which picture is delivered, and its bytes.

#include <gtest/gtest.h>

#include "support/api.h"
#include "support/memory_stream.h"

namespace qmx::test {
namespace {

struct Delivery {
    UINT32 result;
    Bytes bytes;
};

Delivery Deliver(const Bytes& bytes, UINT32 flag = 0, const char* extension = ".tif") {
    const TestFile file(bytes, extension);
    MemoryStream stream;
    const UINT32 result =
        Library().getThumbnailImage(file.path(), &stream, nullptr, flag, nullptr, 0);
    return {result, stream.bytes};
}

// The rows of a BMP, after a look at its header.
Bytes RowsOf(const Bytes& bmp, std::uint32_t width, std::uint32_t height, std::uint32_t rowBytes) {
    const std::uint32_t size = rowBytes * height;
    const Bytes header = ByteWriter(Order::kLittle)
                             .Raw(FromText("BM"))
                             .U32(size + 54)
                             .U32(0)
                             .U32(54)
                             .U32(40)
                             .U32(width)
                             .U32(height)
                             .U16(1)
                             .U16(24)
                             .U32(0)
                             .U32(size)
                             .Pad(54)
                             .bytes;
    if (bmp.size() != header.size() + size) return {};
    EXPECT_EQ(Bytes(bmp.begin(), bmp.begin() + 54), header);
    return {bmp.begin() + 54, bmp.end()};
}

IfdBuilder& Camera(TiffBuilder& tiff, const char* make = "ACME", const char* model = "One") {
    return tiff.Ifd().Ascii(0x010F, make).Ascii(0x0110, model);
}

// An uncompressed picture behind the camera's directory.
IfdBuilder& AddStrip(TiffBuilder& tiff, std::uint32_t width, std::uint32_t height,
                     std::uint32_t photometric, const Bytes& pixels) {
    return tiff.Ifd()
        .Long(0x0100, {width})
        .Long(0x0101, {height})
        .Short(0x0102, {8, 8, 8})
        .Short(0x0103, {1})
        .Short(0x0106, {photometric})
        .Data(0x0111, pixels)
        .Long(0x0117, {static_cast<std::uint32_t>(pixels.size())})
        .Short(0x011C, {1});
}

TEST(Preview, ChoosesTheSmallestOrTheLargest) {
    const Bytes small = JpegStream({}, 160, 120);
    const Bytes large = JpegStream({}, 1600, 1200);
    const Bytes twin = JpegStream(Segment(0xDB, Bytes(3)), 160, 120);
    TiffBuilder tiff;
    Camera(tiff);
    const auto add = [&](const Bytes& jpeg) {
        tiff.Ifd().Data(0x0201, jpeg).Long(0x0202, {static_cast<std::uint32_t>(jpeg.size())});
    };
    add(small);
    add(large);
    add(twin);
    const Bytes file = tiff.Build();
    EXPECT_EQ(Deliver(file).bytes, small);
    EXPECT_EQ(Deliver(file, 1).bytes, large);
}

TEST(Preview, ComesFromStripsAndSubIfdsToo) {
    const Bytes jpeg = {0x12, 0x34, 0xFF, 0xDB, 0, 3, 1, 0xFF, 0xD9};
    TiffBuilder tiff;
    IfdBuilder& sub = tiff.SubIfd();
    Camera(tiff).Link(0x014A, {&sub});
    sub.Long(0x0100, {16})
        .Long(0x0101, {8})
        .Short(0x0102, {8})
        .Short(0x0103, {6})
        .Data(0x0111, jpeg)
        .Long(0x0117, {static_cast<std::uint32_t>(jpeg.size())});
    const Delivery delivery = Deliver(tiff.Build());
    Bytes patched = jpeg;
    patched[0] = 0xFF;
    patched[1] = 0xD8;
    EXPECT_EQ(delivery.bytes, patched);  // a start-of-image marker whatever stood there
}

TEST(Preview, RgbBecomesABottomUpBitmap) {
    TiffBuilder tiff(Order::kBig);
    Camera(tiff);
    AddStrip(tiff, 3, 2, 2, {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13, 14, 15, 16, 17, 18, 19});
    EXPECT_EQ(
        RowsOf(Deliver(tiff.Build()).bytes, 3, 2, 12),
        (Bytes{13, 12, 11, 16, 15, 14, 19, 18, 17, 0, 0, 0, 3, 2, 1, 6, 5, 4, 9, 8, 7, 0, 0, 0}));
}

TEST(Preview, MamiyaRgbIsEqualised) {
    const Bytes pixels = {10, 10, 10, 20, 20, 20, 30, 30, 30, 30, 30, 30};
    for (const bool jpegContainer : {false, true}) {
        TiffBuilder tiff;
        Camera(tiff, "Mamiya", "ZD");
        AddStrip(tiff, 4, 1, 2, pixels);
        const Bytes file = jpegContainer ? ExifJpeg(tiff.Build()) : tiff.Build();
        const Bytes rows = RowsOf(Deliver(file).bytes, 4, 1, 12);
        const Bytes equalised = {63, 63, 63, 127, 127, 127, 255, 255, 255, 255, 255, 255};
        EXPECT_EQ(rows, jpegContainer ? pixels : equalised);
    }
}

TEST(Preview, YCbCrIsReadInGroupsOfTwoPixels) {
    // Three pixels a row: the second group's second pixel is not shown.
    const Bytes groups = {100, 110, 128, 128, 120, 99, 128, 228, 50, 60, 28, 128, 70, 99, 128, 128};
    for (const bool withWeights : {false, true}) {
        TiffBuilder tiff;
        Camera(tiff);
        IfdBuilder& ifd = AddStrip(tiff, 3, 2, 6, groups);
        if (withWeights) ifd.Rational(0x0211, {{299, 1000}, {587, 1000}, {114, 1000}});
        const Bytes rows = RowsOf(Deliver(tiff.Build()).bytes, 3, 2, 12);
        // Truncated, not rounded: the green of the grey 100 comes to 99.99.
        EXPECT_EQ(rows, (Bytes{0,   84, 50,  0,   94,  60,  70,  70, 70,  0, 0, 0,  //
                               100, 99, 100, 110, 110, 110, 120, 48, 255, 0, 0, 0}));
    }
}

TEST(Preview, IsRefusedWhenTheBytesDoNotBackIt) {
    struct Case {
        const char* name;
        std::uint32_t width, height, photometric;
        std::size_t bytes;
    };
    const Case cases[] = {
        {"a byte short", 3, 2, 2, 17},
        {"groups a byte short", 3, 2, 6, 15},
        {"product overflows", 0x10000, 0x10000, 2, 30},
        {"negative", 0x80000001, 1, 2, 30},
        {"both negative", 0xFFFFFFFF, 0xFFFFFFFF, 2, 30},
        {"too large", 30000, 30000, 2, 30},
        {"other photometric", 2, 2, 3, 30},
    };
    for (const Case& c : cases) {
        TiffBuilder tiff;
        Camera(tiff);
        AddStrip(tiff, c.width, c.height, c.photometric, Bytes(c.bytes, 9));
        const Delivery delivery = Deliver(tiff.Build());
        EXPECT_EQ(delivery.result, 0u) << c.name;
        EXPECT_TRUE(delivery.bytes.empty()) << c.name;
    }
    TiffBuilder planar;
    Camera(planar);
    AddStrip(planar, 2, 1, 6, Bytes(8)).Short(0x011C, {2});
    EXPECT_EQ(Deliver(planar.Build()).result, 0u);
    for (const std::uint32_t length : {0xFFFFFFFFu, 0x7FFFFFFFu, 1000u}) {
        TiffBuilder tiff;
        Camera(tiff);
        tiff.Ifd().Data(0x0201, JpegStream({}, 8, 8)).Long(0x0202, {length});
        EXPECT_EQ(Deliver(tiff.Build()).result, 0u) << length;
    }
    TiffBuilder noModel;
    noModel.Ifd().Ascii(0x010F, "ACME");
    AddStrip(noModel, 1, 1, 2, Bytes(3));
    EXPECT_EQ(Deliver(noModel.Build()).result, 0u);
}

TEST(Preview, OfPanasonicRawsIsATagsValue) {
    const Bytes jpeg = JpegStream({}, 1920, 1440);
    for (const UINT32 flag : {0u, 1u}) {
        TiffBuilder tiff;
        Camera(tiff, "Panasonic", "DMC-LX3").Short(0x0112, {8}).Undefined(0x002E, jpeg);
        const TestFile file(tiff.Build(), ".rw2");
        MemoryStream stream;
        UINT32 orientation = 0;
        EXPECT_EQ(Library().getThumbnailImage(file.path(), &stream, &orientation, flag, nullptr, 0),
                  1u);
        EXPECT_EQ(stream.bytes, jpeg);
        EXPECT_EQ(orientation, flag == 1 ? 1u : 8u);  // the large preview stands upright
    }
}

TEST(Preview, OfRafIsTheEmbeddedJpeg) {
    const Bytes thumbnail = JpegStream({}, 160, 120);
    TiffBuilder tiff;
    Camera(tiff, "FUJIFILM", "FinePix S2Pro");
    tiff.Ifd().Data(0x0201, thumbnail).Long(0x0202, {static_cast<std::uint32_t>(thumbnail.size())});
    Bytes jpeg = ExifJpeg(tiff.Build());
    jpeg[0] = 0;  // repaired on the way out
    const auto wrap = [&](std::uint32_t length) {
        return ByteWriter(Order::kBig)
            .Raw(FromText("FUJIFILM"))
            .Pad(84)
            .U32(92)
            .U32(length)
            .Raw(jpeg)
            .bytes;
    };
    const auto size = static_cast<std::uint32_t>(jpeg.size());
    EXPECT_EQ(Deliver(wrap(size), 0, ".raf").bytes, thumbnail);
    const Bytes primary = Deliver(wrap(size), 1, ".raf").bytes;
    jpeg[0] = 0xFF;
    EXPECT_EQ(primary, jpeg);
    EXPECT_EQ(Deliver(wrap(size + 1), 1, ".raf").bytes, thumbnail);  // cut off: what there is
    TiffBuilder bare;
    Camera(bare, "FUJIFILM", "FinePix S2Pro");
    jpeg = ExifJpeg(bare.Build());
    EXPECT_EQ(Deliver(wrap(0), 1, ".raf").result, 0u);  // no bytes are no picture
}

}  // namespace
}  // namespace qmx::test
