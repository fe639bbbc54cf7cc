// Developed pictures, from the file to the bytes of the bitmap, and what the caller is told.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "rawdev/bitmap_painter.h"
#include "rawdev/bitmap_writer.h"
#include "rawdev/develop.h"
#include "rawdev/pipeline.h"
#include "rawdev/tone_curve.h"
#include "support/api.h"
#include "support/memory_stream.h"
#include "support/raw_builder.h"
#include "support/utf8.h"

namespace qmx::test {
namespace {

struct Pixel {
    int red, green, blue;
    bool operator==(const Pixel&) const = default;
};

// A 24-bit BMP, top row first.
struct Picture {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::vector<Pixel> pixels;

    const Pixel& At(std::uint32_t row, std::uint32_t column) const {
        return pixels[std::size_t{row} * width + column];
    }
};

std::uint32_t U32At(const Bytes& bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;) value = value << 8 | bytes[at + i];
    return value;
}

Picture ReadBitmap(const Bytes& bytes) {
    Picture picture;
    if (bytes.size() < 54) return picture;
    picture.width = U32At(bytes, 18);
    picture.height = U32At(bytes, 22);
    const std::size_t rowBytes = (std::size_t{picture.width} * 3 + 3) / 4 * 4;
    EXPECT_EQ(bytes.size(), 54 + rowBytes * picture.height);
    for (std::size_t row = 0; row < picture.height; ++row) {
        const std::uint8_t* p = &bytes[54 + (picture.height - 1 - row) * rowBytes];
        for (std::size_t x = 0; x < picture.width; ++x)
            picture.pixels.push_back({p[3 * x + 2], p[3 * x + 1], p[3 * x]});
        for (std::size_t i = 3 * std::size_t{picture.width}; i < rowBytes; ++i) EXPECT_EQ(p[i], 0);
    }
    return picture;
}

Bytes DevelopBytes(const Bytes& file, std::uint32_t shrinkLevel) {
    RawDecodeState state = StateOf(file);
    MemoryStream stream;
    return DevelopView(state, &stream, shrinkLevel) == 0 ? Bytes() : stream.bytes;
}

Picture Develop(const Bytes& file, std::uint32_t shrinkLevel) {
    return ReadBitmap(DevelopBytes(file, shrinkLevel));
}

Bytes MosaicFile(const Samples& samples, std::function<void(TiffBuilder&, IfdBuilder&)> more = {}) {
    RawForm form = FormOf(samples.width, samples.height);
    form.more = std::move(more);
    return BuildRaw(form, PackWords(samples, Order::kLittle));
}

TEST(Bitmap, IsWrittenAsOneSequence) {
    const Bytes file = MosaicFile(NoiseSamples(65, 30, 16));
    RawDecodeState state = StateOf(file);
    MemoryStream stream;
    stream.position = 17;
    ASSERT_EQ(DevelopView(state, &stream, 1), 1u);
    EXPECT_EQ(stream.seeks, 2);
    EXPECT_EQ(stream.writes, 3);
    EXPECT_EQ(stream.position, 0u);
    ASSERT_EQ(stream.bytes.size(), 54u + 100 * 15);  // 33 pixels, rows padded to 4 bytes
    EXPECT_EQ(stream.bytes[0], 'B');
    EXPECT_EQ(U32At(stream.bytes, 2), stream.bytes.size());
    EXPECT_EQ(U32At(stream.bytes, 10), 54u);
    EXPECT_EQ(U32At(stream.bytes, 14), 40u);
    EXPECT_EQ(U32At(stream.bytes, 26), 1u | 24 << 16);
    EXPECT_EQ(U32At(stream.bytes, 34), 1500u);
}

TEST(Bitmap, SizesRoundUp) {
    struct Case {
        std::uint32_t width, height, level, outWidth, outHeight;
    };
    const Case cases[] = {
        {64, 32, 1, 32, 16}, {64, 32, 3, 8, 4}, {65, 33, 1, 33, 17}, {65, 33, 3, 9, 5},
        {71, 39, 3, 9, 5},   {1, 22, 1, 1, 11}, {1, 22, 3, 1, 3},    {2, 22, 3, 1, 3},
        {64, 32, 0, 64, 32}, {7, 23, 0, 7, 23},
    };
    for (const Case& c : cases) {
        const Picture picture = Develop(MosaicFile(NoiseSamples(c.width, c.height, 16)), c.level);
        EXPECT_EQ(picture.width, c.outWidth) << c.width << ' ' << c.level;
        EXPECT_EQ(picture.height, c.outHeight) << c.width << ' ' << c.level;
    }
}

TEST(Bitmap, EveryOrientationStandsUpright) {
    const std::uint32_t width = 25;
    const std::uint32_t height = 23;
    const Samples samples = NoiseSamples(3 * width, height, 16);
    const auto develop = [&](std::uint32_t orientation) {
        RawForm form = FormOf(width, height);
        form.samplesPerPixel = 3;
        form.more = [&](TiffBuilder&, IfdBuilder& ifd) { ifd.Short(274, {orientation}); };
        return Develop(BuildRaw(form, PackWords(samples, Order::kLittle)), 1);
    };
    const Picture upright = develop(1);
    ASSERT_EQ(upright.width, width);  // three samples per pixel are never shrunk
    for (std::uint32_t orientation = 2; orientation <= 8; ++orientation) {
        const Picture turned = develop(orientation);
        ASSERT_EQ(turned.width, orientation >= 5 ? height : width) << orientation;
        ASSERT_EQ(turned.height, orientation >= 5 ? width : height) << orientation;
        for (std::uint32_t r = 0; r < turned.height; ++r) {
            for (std::uint32_t c = 0; c < turned.width; ++c) {
                const std::uint32_t lastRow = height - 1;
                const std::uint32_t lastColumn = width - 1;
                // Where Exif says that the upright picture's pixel is stored.
                const std::uint32_t rows[] = {
                    0, 0, r, lastRow - r, lastRow - r, c, lastRow - c, lastRow - c, c};
                const std::uint32_t columns[] = {0, 0, lastColumn - c, lastColumn - c, c,
                                                 r, r, lastColumn - r, lastColumn - r};
                ASSERT_EQ(turned.At(r, c), upright.At(rows[orientation], columns[orientation]))
                    << orientation << ' ' << r << ' ' << c;
            }
        }
    }
}

TEST(ToneCurve, IsThatOfBt709) {
    struct Case {
        double white;
        std::uint32_t level;
        int byte;
    };
    const Case cases[] = {
        {65528, 0, 0},       {65528, 57, 1},      {65528, 56, 0},      {65528, 1150, 20},
        {65528, 4096, 55},   {65528, 11796, 104}, {65528, 32764, 180}, {65528, 65011, 254},
        {65528, 65012, 255}, {65528, 65535, 255}, {8000, 143, 20},     {8000, 2000, 125},
        {8000, 7936, 254},   {8000, 12000, 255},  {256, 1, 4},         {256, 128, 180},
        {256, 300, 255},
    };
    for (const Case& c : cases) {
        ToneTable tone;
        FillToneTable(c.white, tone);
        EXPECT_EQ(tone.ByteOf(c.level), c.byte) << c.white << ' ' << c.level;
    }
}

TEST(ToneCurve, HoldsItsFormulaAtEveryLevel) {
    ToneTable tone;
    for (const double white : {256.0, 1234.5, 8000.0, 8184.0, 8192.0, 40000.0, 65528.0, 2e6}) {
        FillToneTable(white, tone);
        for (std::uint32_t level = 0; level <= 0xFFFF; ++level) {
            const double light = level / white;
            const double value =
                light > 0.018 ? 1.099 * std::pow(light, 0.45) - 0.099 : 4.5 * light;
            ASSERT_EQ(tone.ByteOf(level), static_cast<int>(std::min(255.0, 256 * value))) << level;
        }
    }
}

// A flat picture is as bright as its white point allows; nothing darker than bin 32 becomes white.
TEST(ToneCurve, BrightestHundredthMayClip) {
    struct Case {
        std::uint16_t level;
        int byte;
    };
    for (const Case& c : {Case{8000, 255}, Case{128, 180}, Case{65535, 255}, Case{0, 0}}) {
        Samples flat = {64, 64, std::vector<std::uint16_t>(64 * 64, c.level)};
        for (const Pixel& pixel : Develop(MosaicFile(flat), 1).pixels)
            ASSERT_EQ(pixel, (Pixel{c.byte, c.byte, c.byte})) << c.level;
    }
    // Of 1024 cells ten may clip, eleven may not.
    for (const std::size_t bright : {10u, 11u}) {
        Samples samples = {64, 64, std::vector<std::uint16_t>(64 * 64, 8000)};
        for (std::size_t i = 0; i < bright; ++i)
            for (const std::size_t at : {0u, 1u, 64u, 65u}) samples.values[2 * i + at] = 60000;
        EXPECT_EQ(Develop(MosaicFile(samples), 1).At(20, 20).red, bright == 10 ? 255 : 88);
    }
}

// The cells as they should be: means of each colour over the visible samples of a block, black off,
// balanced, the greens averaged.
TEST(Cells, AreMeansOfTheirVisibleSamples) {
    struct Case {
        std::uint32_t width, height, level, left, top;
    };
    const Case cases[] = {{64, 48, 1, 0, 0},  {64, 48, 3, 0, 0}, {61, 47, 1, 3, 1},
                          {61, 47, 3, 3, 1},  {57, 41, 3, 0, 5}, {300, 31, 3, 7, 0},
                          {1111, 29, 1, 1, 1}};
    for (const Case& c : cases) {
        const Samples samples = NoiseSamples(c.width + c.left + 2, c.height + c.top + 3, 14);
        DngForm form;
        static_cast<RawForm&>(form) = FormOf(samples.width, samples.height, 14);
        form.more = [&](TiffBuilder&, IfdBuilder& ifd) {
            ifd.Short(50829, {c.top, c.left, c.top + c.height, c.left + c.width});
            ifd.Short(50714, {100}).Short(50717, {16000});
            ifd.Rational(50728, {{1, 2}, {1}, {2, 3}});
        };
        const Bytes file =
            BuildDng(form, samples, [](const Samples& part) { return PackBits(part, 14); });
        RawDecodeState state = StateOf(file);
        ASSERT_TRUE(LoadCells(state, c.level));
        const std::uint32_t side = 1u << c.level;
        constexpr double kMultipliers[] = {2, 1, 1.5, 1};
        for (std::uint32_t y = 0; y < state.outputHeight; ++y) {
            for (std::uint32_t x = 0; x < state.outputWidth; ++x) {
                double sums[4] = {};
                int counts[4] = {};
                for (std::uint32_t r = y * side; r < std::min((y + 1) * side, c.height); ++r) {
                    for (std::uint32_t k = x * side; k < std::min((x + 1) * side, c.width); ++k) {
                        const std::uint32_t color = CfaColor(0xB4B4B4B4, r, k);
                        sums[color] += samples.At(r + c.top, k + c.left);
                        ++counts[color];
                    }
                }
                double levels[4] = {};
                for (int i = 0; i < 4; ++i)
                    if (counts[i] != 0)
                        levels[i] = std::clamp(
                            (sums[i] / counts[i] - 100) * kMultipliers[i] * 65535 / 15900, 0.0,
                            65535.0);
                if (counts[1] == 0) levels[1] = levels[3];
                if (counts[1] != 0 && counts[3] != 0) levels[1] = (levels[1] + levels[3]) / 2;
                const auto& cell = state.image[std::size_t{y} * state.outputWidth + x];
                for (int i = 0; i < 3; ++i)
                    ASSERT_NEAR(cell[i], levels[i], 1.52)  // cut three times

                        << c.width << ' ' << c.level << " row " << y << " column " << x;
            }
        }
    }
}

// Uncompressed samples are read twice for the half size, once for white and once for the pixels;
// the picture is that of the cells that a single reading keeps.
TEST(Cells, ReadTwiceGiveThePictureOfThoseKept) {
    for (const std::uint32_t width : {64u, 61u, 1300u}) {
        for (std::uint32_t orientation = 1; orientation <= 8; ++orientation) {
            const Samples samples = NoiseSamples(width, 150, 16, orientation);
            const Bytes file = MosaicFile(samples, [&](TiffBuilder&, IfdBuilder& ifd) {
                ifd.Short(274, {orientation}).Short(50717, {60000});
            });
            RawDecodeState state = StateOf(file);
            ASSERT_TRUE(LoadCells(state, 1));
            BitmapPainter painter;
            ASSERT_TRUE(painter.Start(state));
            for (std::uint32_t row = 0; row < state.outputHeight; ++row)
                painter.Paint(row, 0, &state.image[std::size_t{row} * state.outputWidth],
                              state.outputWidth);
            MemoryStream kept;
            WriteBitmap(painter.Layout(), state.bitmap.get(), &kept);
            EXPECT_EQ(kept.bytes, DevelopBytes(file, 1)) << width << ' ' << orientation;
            MemoryStream again;  // a further run counts anew
            EXPECT_EQ(DevelopView(state, &again, 1), 1u);
            EXPECT_EQ(again.bytes, kept.bytes) << width << ' ' << orientation;
        }
    }
}

TEST(Cells, DeadOnesTakeTheMeanOfTheirLikes) {
    const std::uint32_t width = 3304;  // a body that has them; 3288 of them visible
    const std::uint32_t height = 24;
    Samples samples = SmoothSamples(width, height, 15, 3);
    const Samples sound = samples;
    struct Place {
        std::uint32_t row, column;
    };
    const Place dead[] = {{0, 0}, {5, 7}, {5, 9}, {6, 8}, {23, 3287}, {12, 100}, {14, 100}};
    for (const Place& place : dead) samples.values[place.row * width + place.column] = 0;
    TiffBuilder tiff;
    tiff.Ifd()
        .Short(2, {width})
        .Short(3, {height})
        .Ascii(271, "Panasonic")
        .Ascii(272, "DMC-FZ30")
        .Long(273, {512});
    const Bytes file = ByteWriter(Order::kLittle)
                           .Raw(tiff.Build())
                           .Pad(512)
                           .Raw(PackWords(samples, Order::kLittle))
                           .bytes;
    RawDecodeState state = StateOf(file);
    ASSERT_TRUE(LoadCells(state, 0));
    Samples mended = samples;
    for (const Place& place : dead) {  // in scan order
        std::uint32_t sum = 0;
        std::uint32_t count = 0;
        const std::uint32_t color = CfaColor(state.cfaPattern, place.row, place.column);
        for (std::uint32_t r = place.row < 2 ? 0 : place.row - 2;
             r <= std::min(place.row + 2, height - 1); ++r) {
            for (std::uint32_t c = place.column < 2 ? 0 : place.column - 2;
                 c <= std::min(place.column + 2, 3287u); ++c) {
                if (mended.At(r, c) == 0 || CfaColor(state.cfaPattern, r, c) != color) continue;
                sum += mended.At(r, c);
                ++count;
            }
        }
        mended.values[place.row * width + place.column] = static_cast<std::uint16_t>(sum / count);
    }
    for (std::uint32_t y = 0; y < height; ++y)
        for (std::uint32_t x = 0; x < 3288; ++x)
            ASSERT_EQ(state.image[y * 3288 + x][CfaColor(state.cfaPattern, y, x)], mended.At(y, x))
                << y << ' ' << x;
    EXPECT_NE(mended.At(5, 7), 0);
}

TEST(Colors, NeutralStaysNeutralUnderItsBalance) {
    // A grey card as the camera sees it: each channel is weaker by its multiplier.
    constexpr double kNeutral[] = {0.45, 1, 0.6};
    Samples samples = {64, 48, {}};
    for (std::uint32_t y = 0; y < 48; ++y)
        for (std::uint32_t x = 0; x < 64; ++x) {
            const std::uint32_t color = y % 2 == 0 ? x % 2 : 1 + x % 2;
            const double light = x < 32 ? 12000 : 3000;
            samples.values.push_back(static_cast<std::uint16_t>(light * kNeutral[color]));
        }
    DngForm form;
    static_cast<RawForm&>(form) = FormOf(64, 48);
    form.make = "Panasonic";
    form.model = "DMC-LX1";
    form.more = [](TiffBuilder&, IfdBuilder& ifd) {
        ifd.Rational(50728, {{45, 100}, {1}, {6, 10}}).Short(50717, {16000});
    };
    const Bytes file = BuildDng(
        form, samples, [](const Samples& part) { return PackWords(part, Order::kLittle); });
    for (const std::uint32_t level : {0u, 1u, 3u}) {
        const Picture picture = Develop(file, level);
        ASSERT_NE(picture.width, 0u);
        const Pixel& bright = picture.At(1, 1);
        const Pixel& dark = picture.At(1, picture.width - 2);
        EXPECT_GT(bright.green, dark.green + 80) << level;
        for (const Pixel& pixel : {bright, dark}) {
            EXPECT_NEAR(pixel.red, pixel.green, 1) << level;
            EXPECT_NEAR(pixel.blue, pixel.green, 1) << level;
        }
    }
}

TEST(Colors, BalancedCameraColorsBecomeOutputColors) {
    // (0.5, 0.6, 0.3) of a DMC-LX1 under its daylight presets.
    constexpr double kPresets[] = {2.317988, 1, 1.100409};
    constexpr double kBalanced[] = {0.5, 0.6, 0.3};
    Samples samples = {64, 48, {}};
    for (std::uint32_t y = 0; y < 48; ++y)
        for (std::uint32_t x = 0; x < 64; ++x) {
            const std::uint32_t color = y % 2 == 0 ? x % 2 : 1 + x % 2;
            samples.values.push_back(
                static_cast<std::uint16_t>(65535 * kBalanced[color] / kPresets[color] + 0.5));
        }
    RawForm form = FormOf(64, 48);
    form.make = "Panasonic";
    form.model = "DMC-LX1";
    form.more = [](TiffBuilder&, IfdBuilder& ifd) { ifd.Short(50717, {65535}); };
    const Bytes file = BuildRaw(form, PackWords(samples, Order::kLittle));
    RawDecodeState state = StateOf(file);
    ASSERT_TRUE(LoadCells(state, 1));
    EXPECT_NEAR(state.image[100][0] / 65535.0, 0.498551, 0.0005);
    EXPECT_NEAR(state.image[100][1] / 65535.0, 0.684791, 0.0005);
    EXPECT_NEAR(state.image[100][2] / 65535.0, 0.235392, 0.0005);
}

// A grey wall that grows brighter to the right until green saturates.
TEST(Colors, HighlightsFadeOrAreRebuilt) {
    constexpr std::uint32_t kWidth = 128, kHeight = 32, kWhite = 16000;
    constexpr double kNeutral[] = {0.5, 1, 0.6};
    Samples samples = {kWidth, kHeight, {}};
    for (std::uint32_t y = 0; y < kHeight; ++y)
        for (std::uint32_t x = 0; x < kWidth; ++x) {
            const std::uint32_t color = y % 2 == 0 ? x % 2 : 1 + x % 2;
            const double light = 4000 + 20000.0 * (x / 8 * 8) / kWidth;
            samples.values.push_back(
                static_cast<std::uint16_t>(std::min<double>(kWhite, light * kNeutral[color])));
        }
    DngForm form;
    static_cast<RawForm&>(form) = FormOf(kWidth, kHeight);
    form.more = [](TiffBuilder&, IfdBuilder& ifd) {
        ifd.Rational(50728, {{5, 10}, {1}, {6, 10}}).Short(50717, {kWhite});
    };
    const Bytes file = BuildDng(
        form, samples, [](const Samples& part) { return PackWords(part, Order::kLittle); });
    const auto develop = [&](std::int32_t mode, std::uint32_t level) {
        RawDecodeState state = StateOf(file);
        state.highlightMode = mode;
        MemoryStream stream;
        EXPECT_EQ(DevelopView(state, &stream, level), 1u);
        return ReadBitmap(stream.bytes);
    };
    for (const std::uint32_t level : {0u, 1u, 3u}) {
        const Picture kept = develop(1, level);
        const Picture blended = develop(2, level);
        const Picture rebuilt = develop(3, level);
        const std::uint32_t row = kept.height / 2;
        const std::uint32_t last = kept.width - 1 - (8u >> level);
        const std::uint32_t dark = kept.width / 4 + (4u >> level);
        // Magenta, less of it, grey.
        const auto cast = [&](const Picture& p) {
            return p.At(row, last).red - p.At(row, last).green;
        };
        EXPECT_GT(cast(kept), 20) << level;
        EXPECT_LT(cast(blended), cast(kept) - 10) << level;
        EXPECT_NEAR(cast(rebuilt), 0, 2) << level;
        EXPECT_GT(rebuilt.At(row, last).green, kept.At(row, last).green + 10) << level;
        for (const Picture* picture : {&kept, &blended, &rebuilt})
            EXPECT_NEAR(picture->At(row, dark).red, picture->At(row, dark).green, 2) << level;
    }
}

// A picture that grows brighter to the right, as a sensor turned by 45 degrees stores it.
TEST(Shape, DiagonalPicturesStandUpright) {
    constexpr std::uint32_t kHeight = 140, kWidth = 140, kCorner = 60;
    const double step = std::sqrt(0.5);
    Samples samples = {3 * kWidth, kHeight, {}};
    for (std::uint32_t y = 0; y < kHeight; ++y)
        for (std::uint32_t x = 0; x < kWidth; ++x) {
            const double column = (static_cast<double>(x + kCorner) - y) / 2 / step;
            const double light = std::clamp(500 * column, 0.0, 60000.0);
            samples.values.insert(samples.values.end(), 3, static_cast<std::uint16_t>(light));
        }
    RawForm form = FormOf(kWidth, kHeight);
    form.samplesPerPixel = 3;
    const Bytes file = BuildRaw(form, PackWords(samples, Order::kLittle));
    RawDecodeState state = StateOf(file);
    state.diagonalWidth = kCorner;
    MemoryStream stream;
    ASSERT_EQ(DevelopView(state, &stream, 1), 1u);
    const Picture picture = ReadBitmap(stream.bytes);
    ASSERT_EQ(picture.width, static_cast<std::uint32_t>(kCorner / step));
    ASSERT_EQ(picture.height, static_cast<std::uint32_t>((kHeight - kCorner) / step));
    ToneTable tone;
    FillToneTable(FindWhiteLevel(state), tone);
    for (std::uint32_t y = 0; y < picture.height; ++y)
        for (std::uint32_t x = 2; x + 2 < picture.width; ++x)
            ASSERT_NEAR(picture.At(y, x).green, tone.ByteOf(500 * x), 1) << y << ' ' << x;
}

// Rows and columns that say which they are, stored at half their height or width.
TEST(Shape, PixelsBecomeSquare) {
    struct Case {
        std::uint32_t across, down, width, height;
    };
    for (const Case& c : {Case{1, 1, 48, 40}, Case{1, 2, 48, 80}, Case{4, 2, 96, 40},
                          Case{9, 1, 48, 40}, Case{0, 1, 48, 40}}) {
        Samples samples = {3 * 48, 40, {}};
        for (std::uint32_t y = 0; y < 40; ++y)
            for (std::uint32_t x = 0; x < 48; ++x)
                for (const std::uint32_t level : {1000 * y, 1000 * x, 0u})
                    samples.values.push_back(static_cast<std::uint16_t>(level));
        DngForm form;
        static_cast<RawForm&>(form) = FormOf(48, 40);
        form.samplesPerPixel = 3;
        form.more = [&c](TiffBuilder&, IfdBuilder& ifd) {
            ifd.Rational(50718, {{c.across, 1}, {c.down, 1}});
        };
        const Bytes file = BuildDng(
            form, samples, [](const Samples& part) { return PackWords(part, Order::kLittle); });
        RawDecodeState state = StateOf(file);
        MemoryStream stream;
        ASSERT_EQ(DevelopView(state, &stream, 3), 1u);
        const Picture picture = ReadBitmap(stream.bytes);
        ASSERT_EQ(picture.width, c.width);
        ASSERT_EQ(picture.height, c.height);
        ToneTable tone;
        FillToneTable(FindWhiteLevel(state), tone);
        for (std::uint32_t y = 1; y + 1 < c.height; ++y)
            for (std::uint32_t x = 1; x + 1 < c.width; ++x) {
                const double row = (y + 0.5) * 40 / c.height - 0.5;
                const double column = (x + 0.5) * 48 / c.width - 0.5;
                const Pixel expected = {tone.ByteOf(static_cast<std::uint32_t>(1000 * row)),
                                        tone.ByteOf(static_cast<std::uint32_t>(1000 * column)), 0};
                ASSERT_EQ(picture.At(y, x), expected) << y << ' ' << x;
            }
    }
}

struct Told {
    UINT32 result;
    InfoRequest record;
    std::string longText, shortText;
};

Told DevelopFile(const Bytes& bytes, std::uint32_t largerSize = 0) {
    const TestFile file(bytes, ".raw");
    wchar_t longText[1024] = {};
    wchar_t shortText[256] = {};
    Told told = {};
    told.record.longText = longText;
    told.record.longTextCapacity = 1024;
    told.record.shortText = shortText;
    told.record.shortTextCapacity = 256;
    MemoryStream stream;
    told.result = DevelopRawFile(file.path(), &stream, largerSize, &told.record);
    EXPECT_EQ(told.result == 0, stream.bytes.empty());
    told.longText = Utf8(longText);
    told.shortText = Utf8(shortText);
    return told;
}

TEST(ShotRecord, TellsWhatTheTagsSay) {
    const Bytes file = MosaicFile(NoiseSamples(64, 48, 16), [](TiffBuilder& tiff, IfdBuilder& ifd) {
        IfdBuilder& exif = tiff.SubIfd();
        ifd.Ascii(306, "2009:09:09 09:09:09").Link(34665, {&exif});
        exif.Rational(33434, {{1, 250}}).Rational(33437, {{28, 5}}).Short(34850, {2});
        exif.Short(34855, {200}).Ascii(36867, "2008:07:31 12:34:56").SRational(37380, {{1, 3}});
        exif.Short(37383, {5}).Short(37385, {1}).Rational(37386, {{24}}).Short(41987, {1});
    });
    const Told told = DevelopFile(file);
    const InfoRequest& record = told.record;
    ASSERT_EQ(told.result, 1u);
    EXPECT_EQ(Utf8(record.modelText), "One");
    EXPECT_EQ(Utf8(record.makeText), "ACME");
    EXPECT_EQ(record.captureTime.wYear, 2008);
    EXPECT_EQ(record.imageWidth, 64);
    EXPECT_EQ(record.imageHeight, 48);
    EXPECT_EQ(record.exposureProgram, 2);
    EXPECT_EQ(record.focalLength, 24);
    EXPECT_EQ(record.exposureTime, 0.004f);
    EXPECT_EQ(record.fNumber, 5.6f);
    EXPECT_EQ(record.isoSpeed, 200);
    EXPECT_EQ(record.flashFired, 1u);
    EXPECT_EQ(record.meteringMode, 5);
    EXPECT_EQ(record.whiteBalance, 1);
    EXPECT_EQ(record.orientation, 1u);
    EXPECT_EQ(record.focalLength35mm, QMXEXIF_FLOAT_UNSET);
    EXPECT_EQ(record.maxAperture, QMXEXIF_FLOAT_UNSET);
    EXPECT_TRUE(told.longText.starts_with("モデル名: One\n大きさ: 64 x 48\n撮影日時: "));
    EXPECT_TRUE(told.longText.ends_with("\n撮影情報: P 1/250秒秒 F5.6 +0.3EV ISO200"));
    EXPECT_EQ(told.shortText, "250 F5.6 +0.3 200 * ");
}

TEST(ShotRecord, LeavesOutOnlyTheTimeAndTheDate) {
    const Told bare = DevelopFile(MosaicFile(NoiseSamples(64, 48, 16)));
    EXPECT_EQ(bare.longText, "モデル名: One\n大きさ: 64 x 48\n撮影日時:  \n撮影情報: F0 ISOオート");
    EXPECT_EQ(bare.shortText, "F0 Auto ");
    EXPECT_EQ(bare.record.captureTime.wYear, 0);

    const Told slow =
        DevelopFile(MosaicFile(NoiseSamples(64, 48, 16), [](TiffBuilder&, IfdBuilder& ifd) {
            ifd.Rational(33434, {{13, 10}}).Rational(33437, {{11}}).SRational(37380, {{-1}});
        }));
    EXPECT_TRUE(slow.longText.ends_with("撮影情報: 1.3秒秒 F11 -1.0EV ISOオート"));
    EXPECT_EQ(slow.shortText, "1\"3 F11 -1.0 Auto ");
}

TEST(Refusal, TouchesNothing) {
    RawForm low = FormOf(64, 21);
    RawForm short1 = FormOf(64, 320);
    const Bytes rows = PackWords(NoiseSamples(64, 320, 16), Order::kLittle);
    RawForm jpeg = FormOf(64, 48, 12);
    jpeg.compression = 7;
    struct Case {
        const char* name;
        Bytes file;
        bool raw;
    };
    const Case cases[] = {
        {"empty order", Bytes(100), false},
        {"too low", BuildRaw(low, Bytes(64 * 21 * 2)), false},
        {"nineteen of 320 rows", BuildRaw(short1, Bytes(rows.begin(), rows.begin() + 19 * 128)),
         false},
        {"a sixteenth", BuildRaw(short1, Bytes(rows.begin(), rows.begin() + 20 * 128)), true},
        {"no lossless frame", BuildRaw(jpeg, JpegStream({}, 64, 48) + Bytes(100)), false},
        {"huge", BuildRaw(FormOf(65535, 65535), Bytes(1000)), false},
        {"wider than 16 bits", BuildRaw(FormOf(65536, 30), Bytes(1 << 18)), false},
    };
    for (const Case& c : cases) {
        InfoRequest record;
        std::memset(static_cast<void*>(&record), 0x55, sizeof record);
        record.longText = nullptr;
        record.shortText = nullptr;
        const InfoRequest before = record;
        const TestFile file(c.file, ".raw");
        MemoryStream stream;
        EXPECT_EQ(DevelopRawFile(file.path(), &stream, 1, &record), c.raw ? 1u : 0u) << c.name;
        if (c.raw) continue;
        EXPECT_EQ(std::memcmp(&record, &before, sizeof record), 0) << c.name;
        EXPECT_EQ(stream.seeks + stream.writes, 0) << c.name;
    }
    MemoryStream stream;
    EXPECT_EQ(DevelopRawFile(L"no such file.raw", &stream, 1, nullptr), 0u);
}

TEST(EarlyEnd, LeavesBlackRows) {
    const Samples flat = {64, 64, std::vector<std::uint16_t>(64 * 64, 20000)};
    Bytes rows = PackWords(flat, Order::kLittle);
    rows.resize(32 * 128);
    const Picture picture = Develop(BuildRaw(FormOf(64, 64), rows), 1);
    ASSERT_EQ(picture.height, 32u);
    EXPECT_EQ(picture.At(15, 3), (Pixel{255, 255, 255}));
    EXPECT_EQ(picture.At(16, 3), (Pixel{0, 0, 0}));
}

}  // namespace
}  // namespace qmx::test
