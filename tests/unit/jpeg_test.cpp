// Sizes and lengths of JPEG streams, and the pictures made for streams.

#include <gtest/gtest.h>

#include "parse/core/bitmap.h"
#include "parse/core/jpeg.h"
#include "parse/core/preview.h"
#include "support/memory_stream.h"
#include "support/parse.h"

namespace qmx::test {
namespace {

const Bytes kHuffmanTable = Segment(0xC4, Bytes(19));
const Bytes kQuantisation = Segment(0xDB, Bytes(65));

TEST(Jpeg, FindsTheFrameHeaderBehindEverySegment) {
    struct Case {
        const char* name;
        Bytes stream;
        bool found;
        std::int32_t width, height;
    };
    const Bytes plain = JpegStream({}, 160, 120);
    const Bytes frameOnly = Bytes{0xFF, 0xD8, 0xFF, 0xC0, 0, 17, 8, 0, 99};
    const Case cases[] = {
        {"plain", plain, true, 160, 120},
        {"tables first", JpegStream(kHuffmanTable + kQuantisation, 80, 60), true, 80, 60},
        {"Exif first", JpegStream(Segment(0xE1, Bytes(40)) + kQuantisation, 70, 50), true, 70, 50},
        {"end of image first", Bytes{0xFF, 0xD8, 0xFF, 0xD9, 0, 2} + plain, false, 0, 0},
        {"no marker", Bytes{0xFF, 0xD8, 0x12, 0xC0, 0, 17, 8, 0, 1, 0, 1}, false, 0, 0},
        {"width cut off", frameOnly, true, -1, 99},
        {"empty", {}, false, 0, 0},
    };
    for (const Case& c : cases) {
        BytesContext context(Bytes(5, 0xAA) + c.stream);
        SeekTo(context.ctx, 3);
        ImageRecord record = {};
        EXPECT_FALSE(ProbeJpegFrame(context.ctx, 5, record)) << "for nobody: " << c.name;
        EXPECT_EQ(record.height, 0) << c.name;
        MemoryStream stream;
        context.ctx.outStream = &stream;
        EXPECT_EQ(ProbeJpegFrame(context.ctx, 5, record), c.found) << c.name;
        EXPECT_EQ(record.width, c.width) << c.name;
        EXPECT_EQ(record.height, c.height) << c.name;
        EXPECT_EQ(Position(context.ctx), 3) << c.name;
    }
}

TEST(Jpeg, MeasuresUpToTheEndOfImage) {
    const Bytes stream = JpegStream(kQuantisation, 8, 8);
    const Bytes twoScans = Bytes{0xFF, 0xD8} + Segment(0xDA, Bytes(6)) + Bytes{1, 0xFF} +
                           Segment(0xC4, Bytes(3)) + Segment(0xDA, Bytes(6)) + Bytes{2, 0xFF, 0xD9};
    const Bytes unended(stream.begin(), stream.end() - 2);
    struct Case {
        const char* name;
        Bytes stream;
        std::size_t length;
    };
    const Case cases[] = {
        {"whole", stream + Bytes{1, 2, 3}, stream.size()},
        {"tables between scans", twoScans + Bytes{7}, twoScans.size()},
        {"no end", unended, unended.size()},
        {"garbage between segments", Bytes{0xFF, 0xD8, 0, 0, 0xFF, 0xD9, 5}, 6},
        {"cut inside a marker", Bytes{0xFF, 0xD8, 0xFF, 0xE0, 0}, 5},
        {"start only", Bytes{0xFF, 0xD8}, 2},
    };
    for (const Case& c : cases) {
        BytesContext context(Bytes(4, 0xAA) + c.stream);
        EXPECT_EQ(MeasureJpeg(context.ctx, 4), c.length) << c.name;
    }
}

TEST(Preview, RecordedPlanesBecomeBottomUpRows) {
    // 1 x 2 pixels in planes R R G G B B.
    BytesContext context({0, 0, 10, 11, 20, 21, 30, 31});
    MemoryStream stream;
    context.ctx.outStream = &stream;
    context.ctx.thumbOffset = 1;
    context.ctx.thumbLength = 6;
    context.ctx.thumbPlanar = 1;
    context.ctx.thumbIsRgb = 1;
    context.ctx.thumbWidth = 1;
    context.ctx.thumbHeight = 2;
    EXPECT_TRUE(WriteRecordedThumbnail(context.ctx, 1));
    EXPECT_EQ(stream.bytes, (Bytes{31, 21, 11, 0, 30, 20, 10, 0}));

    stream.bytes.clear();
    stream.position = 0;
    context.ctx.thumbIsRgb = 0;
    context.ctx.thumbHeader[0] = 77;
    context.ctx.thumbHeaderLength = 1;
    EXPECT_TRUE(WriteRecordedThumbnail(context.ctx, 1));
    EXPECT_EQ(stream.bytes, (Bytes{77, 10, 20, 30, 11, 21, 31}));

    for (const std::uint32_t length : {0u, 2u, 7u}) {  // none, too short for planes, cut off
        context.ctx.thumbLength = length;
        EXPECT_FALSE(WriteRecordedThumbnail(context.ctx, 1)) << length;
    }
}

TEST(Bitmap, RefusesWhatCannotBeABitmap) {
    BitmapLayout layout;
    EXPECT_FALSE(LayOutBitmap(0, 5, layout));
    EXPECT_FALSE(LayOutBitmap(5, -1, layout));
    EXPECT_FALSE(LayOutBitmap(INT32_MAX, INT32_MAX, layout));
    EXPECT_FALSE(LayOutBitmap(37838, 37838, layout));  // just above 4 GiB
    ASSERT_TRUE(LayOutBitmap(3, 2, layout));
    EXPECT_EQ(layout.rowBytes, 12u);
    EXPECT_EQ(layout.imageBytes, 24u);
}

}  // namespace
}  // namespace qmx::test
