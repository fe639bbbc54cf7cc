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

// A camera's directory, and an uncompressed picture behind it.
Bytes WithPicture(std::uint32_t width, std::uint32_t height, std::uint32_t photometric,
                  const Bytes& pixels, Order order = Order::kLittle, const char* make = "ACME") {
    TiffBuilder tiff(order);
    tiff.Ifd().Camera(make);
    tiff.Ifd().Picture(width, height, photometric, pixels);
    return tiff.Build();
}

TEST(Preview, ChoosesTheSmallestOrTheLargest) {
    const Bytes small = JpegStream({}, 160, 120);
    const Bytes large = JpegStream({}, 1600, 1200);
    const Bytes twin = JpegStream(Segment(0xDB, Bytes(3)), 160, 120);
    TiffBuilder tiff;
    tiff.Ifd().Camera();
    for (const Bytes& jpeg : {small, large, twin}) tiff.Ifd().Preview(jpeg);
    const Bytes file = tiff.Build();
    EXPECT_EQ(Deliver(file).bytes, small);
    EXPECT_EQ(Deliver(file, 1).bytes, large);
}

TEST(Preview, ComesFromStripsAndSubIfdsToo) {
    const Bytes jpeg = {0x12, 0x34, 0xFF, 0xDB, 0, 3, 1, 0xFF, 0xD9};
    TiffBuilder tiff;
    IfdBuilder& sub = tiff.SubIfd().Picture(16, 8, 2, jpeg).Short(0x0103, {6});
    tiff.Ifd().Camera().Link(0x014A, {&sub});
    // A start-of-image marker whatever stood there.
    EXPECT_EQ(Deliver(tiff.Build()).bytes, (Bytes{0xFF, 0xD8, 0xFF, 0xDB, 0, 3, 1, 0xFF, 0xD9}));
}

TEST(Preview, RgbBecomesABottomUpBitmap) {
    const Bytes pixels = {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13, 14, 15, 16, 17, 18, 19};
    EXPECT_EQ(Deliver(WithPicture(3, 2, 2, pixels, Order::kBig)).bytes,
              Bmp(3, 2, {13, 12, 11, 16, 15, 14, 19, 18, 17, 0, 0, 0,  //
                         3,  2,  1,  6,  5,  4,  9,  8,  7,  0, 0, 0}));
}

TEST(Preview, MamiyaRgbIsEqualised) {
    const Bytes pixels = {10, 10, 10, 20, 20, 20, 30, 30, 30, 30, 30, 30};
    const Bytes equalised = {63, 63, 63, 127, 127, 127, 255, 255, 255, 255, 255, 255};
    const Bytes file = WithPicture(4, 1, 2, pixels, Order::kLittle, "Mamiya");
    EXPECT_EQ(Deliver(file).bytes, Bmp(4, 1, equalised));
    EXPECT_EQ(Deliver(ExifJpeg(file)).bytes, Bmp(4, 1, pixels));
}

TEST(Preview, YCbCrIsReadInGroupsOfTwoPixels) {
    // Three pixels a row: the second group's second pixel is not shown.
    const Bytes groups = {100, 110, 128, 128, 120, 99, 128, 228, 50, 60, 28, 128, 70, 99, 128, 128};
    for (const bool withWeights : {false, true}) {
        TiffBuilder tiff;
        tiff.Ifd().Camera();
        IfdBuilder& ifd = tiff.Ifd().Picture(3, 2, 6, groups);
        if (withWeights) ifd.Rational(0x0211, {{299, 1000}, {587, 1000}, {114, 1000}});
        // Truncated, not rounded: the green of the grey 100 comes to 99.99.
        EXPECT_EQ(Deliver(tiff.Build()).bytes,
                  Bmp(3, 2, {0,   84, 50,  0,   94,  60,  70,  70, 70,  0, 0, 0,  //
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
        const Delivery delivery =
            Deliver(WithPicture(c.width, c.height, c.photometric, Bytes(c.bytes, 9)));
        EXPECT_EQ(delivery.result, 0u) << c.name;
        EXPECT_TRUE(delivery.bytes.empty()) << c.name;
    }
    TiffBuilder planar;
    planar.Ifd().Camera();
    planar.Ifd().Picture(2, 1, 6, Bytes(8)).Short(0x011C, {2});
    EXPECT_EQ(Deliver(planar.Build()).result, 0u);
    for (const std::uint32_t length : {0xFFFFFFFFu, 0x7FFFFFFFu, 1000u}) {
        TiffBuilder tiff;
        tiff.Ifd().Camera();
        tiff.Ifd().Preview(JpegStream({}, 8, 8)).Long(0x0202, {length});
        EXPECT_EQ(Deliver(tiff.Build()).result, 0u) << length;
    }
    TiffBuilder noModel;
    noModel.Ifd().Ascii(0x010F, "ACME");
    noModel.Ifd().Picture(1, 1, 2, Bytes(3));
    EXPECT_EQ(Deliver(noModel.Build()).result, 0u);
}

TEST(Preview, OfPanasonicRawsIsATagsValue) {
    const Bytes jpeg = JpegStream({}, 1920, 1440);
    for (const UINT32 flag : {0u, 1u}) {
        TiffBuilder tiff;
        tiff.Ifd().Camera("Panasonic", "DMC-LX3").Short(0x0112, {8}).Undefined(0x002E, jpeg);
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
    tiff.Ifd().Camera("FUJIFILM", "FinePix S2Pro");
    Bytes jpeg = ExifJpeg(tiff.Build());
    const auto wrap = [&](std::uint32_t length) {
        ByteWriter raf(Order::kBig);
        return raf.Raw(FromText("FUJIFILM")).Pad(84).U32(92).U32(length).Raw(jpeg).bytes;
    };
    EXPECT_EQ(Deliver(wrap(0), 1, ".raf").result, 0u);  // no bytes are no picture
    tiff.Ifd().Preview(thumbnail);
    jpeg = ExifJpeg(tiff.Build());
    jpeg[0] = 0;  // repaired on the way out
    const auto size = static_cast<std::uint32_t>(jpeg.size());
    EXPECT_EQ(Deliver(wrap(size), 0, ".raf").bytes, thumbnail);
    const Bytes primary = Deliver(wrap(size), 1, ".raf").bytes;
    jpeg[0] = 0xFF;
    EXPECT_EQ(primary, jpeg);
    EXPECT_EQ(Deliver(wrap(size + 1), 1, ".raf").bytes, thumbnail);  // cut off: what there is
}

}  // namespace
}  // namespace qmx::test
