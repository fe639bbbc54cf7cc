// Every layout of sample data, written by an encoder of the tests and read back to the sample.

#include <gtest/gtest.h>

#include <algorithm>

#include "rawdev/pipeline.h"
#include "support/raw_builder.h"

namespace qmx::test {
namespace {

// The visible samples as a loader delivers them; empty when the file is refused.
Samples Load(const Bytes& file) {
    RawDecodeState state = StateOf(file);
    if (!LoadCells(state, 0)) return {};
    const std::uint32_t planes = state.samplesPerPixel;
    Samples samples = {state.width * planes, state.height, {}};
    for (std::uint32_t y = 0; y < state.height; ++y) {
        for (std::uint32_t i = 0; i < samples.width; ++i) {
            const std::uint32_t x = i / planes;
            const std::uint32_t color = planes == 3 ? i % 3 : CfaColor(state.cfaPattern, y, x);
            samples.values.push_back(state.image[std::size_t{y} * state.width + x][color]);
        }
    }
    return samples;
}

void ExpectSame(const Samples& loaded, const Samples& expected, const std::string& name) {
    ASSERT_EQ(loaded.width, expected.width) << name;
    ASSERT_EQ(loaded.height, expected.height) << name;
    for (std::size_t i = 0; i < expected.values.size(); ++i)
        ASSERT_EQ(loaded.values[i], expected.values[i])
            << name << " row " << i / expected.width << " column " << i % expected.width;
}

RawForm FormOf(const Samples& samples, std::uint32_t bits, std::uint32_t compression) {
    return test::FormOf(samples.width, samples.height, bits, compression);
}

TEST(PlainLoaders, ReproduceEverySample) {
    const Samples twelve = NoiseSamples(50, 24, 12);
    const Samples odd = NoiseSamples(37, 23, 12);
    const Samples words = NoiseSamples(33, 24, 16);
    const Samples fourteen = NoiseSamples(33, 24, 14);
    const Samples bytes = NoiseSamples(31, 22, 8);
    RawForm big = FormOf(words, 16, 0);
    big.order = Order::kBig;
    struct Case {
        const char* name;
        RawForm form;
        Bytes data;
        const Samples& expected;
    };
    const Case cases[] = {
        {"8 bits", FormOf(bytes, 8, 1), PackBits(bytes, 8), bytes},
        {"packed 12", FormOf(twelve, 12, 1), PackBits(twelve, 12), twelve},
        {"packed 12, odd", FormOf(odd, 12, 0), PackBits(odd, 12), odd},
        {"padded 12 by its length", FormOf(twelve, 12, 1), PackPadded12(twelve), twelve},
        {"padded 12 of 16", FormOf(twelve, 16, 1), PackPadded12(twelve), twelve},
        {"unpacked", FormOf(words, 16, 1), PackWords(words, Order::kLittle), words},
        {"unpacked, big-endian", big, PackWords(words, Order::kBig), words},
        {"unpacked 14", FormOf(fourteen, 14, 1), PackWords(fourteen, Order::kLittle), fourteen},
        {"32769", FormOf(twelve, 12, 32769), PackPadded12(twelve), twelve},
        {"32769, odd", FormOf(odd, 12, 32769), PackPadded12(odd), odd},
        {"32773", FormOf(twelve, 12, 32773), PackBits(twelve, 12), twelve},
    };
    for (const Case& c : cases) ExpectSame(Load(BuildRaw(c.form, c.data)), c.expected, c.name);
}

TEST(PlainLoaders, ThreeSamplesPerPixelAreNoMosaic) {
    const Samples samples = NoiseSamples(3 * 20, 22, 16);
    RawForm form = FormOf(samples, 16, 1);
    form.width = 20;
    form.samplesPerPixel = 3;
    ExpectSame(Load(BuildRaw(form, PackWords(samples, Order::kLittle))), samples, "RGB");
}

TEST(PlainLoaders, PaddedSamplesStandAsWritten) {
    // Ten samples, a byte that says nothing, two more; rows repeat.
    const Bytes row = {0x00, 0x10, 0x02, 0x00, 0x30, 0x04, 0x00, 0x50, 0x06, 0x00,
                       0x70, 0x08, 0x00, 0x90, 0x0A, 0x77, 0x0B, 0x1F, 0xFF, 0x00};
    Samples expected = {12, 22, {}};
    Bytes data;
    for (int y = 0; y < 22; ++y) {
        for (const int v : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0xB1, 0xFFF})
            expected.values.push_back(static_cast<std::uint16_t>(v));
        data = data + Bytes(row.begin(), row.begin() + 19);
    }
    ExpectSame(Load(BuildRaw(FormOf(expected, 12, 32769), data)), expected, "by hand");
}

// The width of a Panasonic body without rules of its own, so that nothing is cut or mended.
Bytes PanasonicFile(std::uint32_t width, std::uint32_t height, const Bytes& data) {
    TiffBuilder tiff;
    tiff.Ifd()
        .Short(2, {width})
        .Short(3, {height})
        .Ascii(271, "Panasonic")
        .Ascii(272, "DMC-X")
        .Long(273, {512});
    return ByteWriter(Order::kLittle).Raw(tiff.Build()).Pad(512).Raw(data).bytes;
}

TEST(PanasonicLoader, ReproducesWhatTheCodeCanExpress) {
    for (const std::uint32_t width : {28u, 42u, 280u}) {
        for (const std::uint32_t seed : {1u, 2u, 3u}) {
            Samples samples =
                seed == 3 ? NoiseSamples(width, 30, 12, seed) : SmoothSamples(width, 30, 12, seed);
            const Bytes data = PackBlocks(samples);
            Samples expected = samples;
            for (std::uint16_t& value : expected.values)
                value = static_cast<std::uint16_t>(value << 4);
            ExpectSame(Load(PanasonicFile(width, 30, data)), expected, std::to_string(width));
        }
    }
}

TEST(PanasonicLoader, ReadsGroupsWrittenByHand) {
    const Bytes bright = {0x01, 0x7D, 0x83, 0x85, 0x40, 0x82, 0x0C, 0xF8,
                          0xA7, 0xE8, 0x1E, 0x80, 0x20, 0x00, 0x58, 0x40};
    const Bytes dark = {0x07, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x04, 0x02, 0xE4, 0, 0, 0};
    const std::vector<std::uint16_t> values = {
        1029, 2048, 1031, 2048, 1026, 2088, 1022, 2088, 526, 2312, 542, 2318, 536, 2064,
        0,    0,    57,   0,    129,  0,    129,  0,    129, 0,    129, 0,    129, 7};
    Bytes data;
    Samples expected = {28, 22, {}};
    for (int y = 0; y < 22; ++y) {
        data = data + bright + dark;
        for (const std::uint16_t v : values)
            expected.values.push_back(static_cast<std::uint16_t>(v << 4));
    }
    ExpectSame(Load(PanasonicFile(28, 22, data)), expected, "by hand");
}

// The last 0x1FF8 bytes of each block come first, and the last block is whole.  The widths put the
// seams within groups, between rows and within them.
TEST(PanasonicLoader, JoinsSplitBlocks) {
    constexpr std::ptrdiff_t kBlock = 0x4000, kHead = 0x2008;
    struct Case {
        std::uint32_t width, height;
    };
    for (const Case& c : {Case{28, 512}, Case{42, 1024}, Case{28672, 24}, Case{56, 300}}) {
        Bytes data = PackBits(NoiseSamples(c.width / 14 * 16, c.height, 8), 8);
        const Samples expected = Load(PanasonicFile(c.width, c.height, data));
        ASSERT_EQ(expected.width, c.width);
        data.resize((data.size() + kBlock - 1) / kBlock * kBlock);
        for (auto block = data.begin(); block != data.end(); block += kBlock)
            std::rotate(block, block + kHead, block + kBlock);
        TiffBuilder tiff;
        tiff.Ifd()
            .Short(2, {c.width})
            .Short(3, {c.height})
            .Short(45, {4})
            .Ascii(271, "Panasonic")
            .Ascii(272, "DMC-X")
            .Long(273, {0xFFFFFFFF})
            .Long(280, {512});
        ExpectSame(Load(ByteWriter(Order::kLittle).Raw(tiff.Build()).Pad(512).Raw(data).bytes),
                   expected, std::to_string(c.width));
    }
}

TEST(PanasonicLoader, PlainWordsStayAsStored) {
    const Samples samples = NoiseSamples(40, 22, 16);
    ExpectSame(Load(PanasonicFile(40, 22, PackWords(samples, Order::kLittle))), samples, "words");
}

TEST(LosslessJpeg, ReproducesEverySample) {
    for (const std::uint32_t components : {1u, 2u, 3u, 4u}) {
        for (std::uint32_t predictor = 1; predictor <= 7; ++predictor) {
            for (const std::uint32_t precision : {2u, 8u, 12u, 16u}) {
                JpegForm form;
                form.precision = precision;
                form.components = components;
                form.predictor = predictor;
                const Samples samples = predictor % 2 == 0
                                            ? NoiseSamples(48, 24, precision, predictor)
                                            : SmoothSamples(48, 24, precision, predictor);
                const Bytes data = WriteLosslessJpeg(samples, form);
                const std::string name = std::to_string(components) + " components, predictor " +
                                         std::to_string(predictor) + ", " +
                                         std::to_string(precision) + " bits";
                ExpectSame(Load(BuildRaw(FormOf(samples, precision, 7), data)), samples, name);
            }
        }
    }
}

TEST(LosslessJpeg, RestartsShiftsAndLongLines) {
    struct Case {
        const char* name;
        JpegForm form;
        std::uint32_t compression;
    };
    const Case cases[] = {
        {"restart every line", {.restartUnits = 48}, 6},
        {"restart every third line", {.predictor = 4, .restartUnits = 3 * 48}, 7},
        {"restart within lines", {.predictor = 1, .restartUnits = 13}, 99},
        {"two components, restarts", {.components = 2, .predictor = 7, .restartUnits = 24}, 7},
        {"two rows per line", {.components = 2, .linesPerRow = 2}, 7},
        {"three rows per line", {.components = 4, .linesPerRow = 3}, 7},
        {"squares", {.components = 4, .predictor = 6, .inSquares = true}, 7},
        {"squares, restarts", {.components = 4, .restartUnits = 48, .inSquares = true}, 99},
    };
    const Samples samples = NoiseSamples(48, 24, 12);
    for (const Case& c : cases)
        ExpectSame(
            Load(BuildRaw(FormOf(samples, 12, c.compression), WriteLosslessJpeg(samples, c.form))),
            samples, c.name);

    Samples shifted = samples;
    for (std::uint16_t& value : shifted.values) value = static_cast<std::uint16_t>(value & ~3);
    for (const JpegForm& form : {JpegForm{.predictor = 4, .pointTransform = 2},
                                 JpegForm{.components = 4, .pointTransform = 2, .inSquares = true}})
        ExpectSame(Load(BuildRaw(FormOf(samples, 12, 7), WriteLosslessJpeg(samples, form))),
                   shifted, "point transform");
}

TEST(LosslessJpeg, ReadsAStreamWrittenByHand) {
    const Bytes stream = {0xFF, 0xD8, 0xFF, 0xC4, 0x00, 0x19, 0x00, 0x00, 0x03, 0x01, 0x01,
                          0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
                          0x00, 0x00, 0x01, 0x02, 0x03, 0x04, 0x0C, 0xFF, 0xC3, 0x00, 0x0E,
                          0x0C, 0x00, 0x02, 0x00, 0x02, 0x02, 0x00, 0x11, 0x00, 0x01, 0x11,
                          0x00, 0xFF, 0xDA, 0x00, 0x0A, 0x02, 0x00, 0x00, 0x01, 0x00, 0x01,
                          0x00, 0x00, 0xAC, 0x2D, 0x26, 0x74, 0x7F, 0xFF, 0xD9};
    Samples expected = {4, 22, {2050, 2041, 2053, 2040, 2049, 2042, 2049, 2050}};
    expected.values.resize(4 * 22);  // the stream has two lines; the rest is black
    Samples shape = {4, 22, {}};
    ExpectSame(Load(BuildRaw(FormOf(shape, 12, 7), stream)), expected, "by hand");
}

TEST(HasselbladLoader, ReproducesEverySample) {
    for (const std::uint32_t width : {48u, 31u}) {
        for (const std::uint32_t bits : {12u, 16u}) {
            const Samples samples = NoiseSamples(width, 24, bits, width);
            RawForm form = FormOf(samples, bits, 7);
            form.make = "Hasselblad";
            ExpectSame(Load(BuildRaw(form, WritePairedJpeg(samples, bits))), samples,
                       std::to_string(width));
        }
    }
}

TEST(HasselbladLoader, SixteenOnesAreTheLargestStepDown) {
    Samples samples = {2, 22, {}};
    for (int y = 0; y < 22; ++y) {
        samples.values.push_back(0);  // 32768 below the start
        samples.values.push_back(32768);
    }
    RawForm form = FormOf(samples, 16, 7);
    form.make = "Hasselblad";
    ExpectSame(Load(BuildRaw(form, WritePairedJpeg(samples, 16))), samples, "step");
}

TEST(DngLoader, UncompressedStripsAndTiles) {
    for (const Order order : {Order::kLittle, Order::kBig}) {
        for (const std::uint32_t bits : {8u, 10u, 12u, 14u, 16u}) {
            const Samples samples = NoiseSamples(45, 33, bits);
            for (const std::uint32_t tile : {0u, 7u, 20u}) {
                DngForm form;
                static_cast<RawForm&>(form) = FormOf(samples, bits, 1);
                form.order = order;
                form.tileWidth = tile;
                form.tileHeight = tile == 20 ? 16 : 0;
                const Bytes file = BuildDng(form, samples, [&](const Samples& part) {
                    return bits == 16 ? PackWords(part, order) : PackBits(part, bits);
                });
                ExpectSame(Load(file), samples,
                           std::to_string(bits) + " bits, tile " + std::to_string(tile));
            }
        }
    }
}

TEST(DngLoader, LosslessTiles) {
    struct Case {
        const char* name;
        JpegForm jpeg;
        std::uint32_t planes, tileWidth, tileHeight, minorVersion;
    };
    const Case cases[] = {
        {"one strip", {.precision = 14, .components = 2}, 1, 0, 0, 4},
        {"strips", {.precision = 14}, 1, 10, 0, 4},
        {"tiles", {.precision = 14, .components = 2, .predictor = 6}, 1, 20, 16, 4},
        {"tiles of lines of two rows",
         {.precision = 14, .components = 2, .linesPerRow = 2},
         1,
         20,
         16,
         4},
        {"tiles of squares", {.precision = 14, .components = 4, .inSquares = true}, 1, 20, 16, 4},
        {"strips of squares", {.precision = 14, .components = 4, .inSquares = true}, 1, 12, 0, 4},
        {"three planes", {.precision = 16, .components = 3}, 3, 16, 16, 4},
        {"old category 16", {.precision = 16, .longCategory16 = true}, 1, 16, 16, 0},
    };
    for (const Case& c : cases) {
        Samples samples = NoiseSamples(46 * c.planes, 34, c.jpeg.precision);
        if (c.jpeg.longCategory16)
            for (std::size_t i = 0; i < samples.values.size(); i += 3)
                samples.values[i] = static_cast<std::uint16_t>(i % 2 == 0 ? 0 : 32768);
        DngForm form;
        static_cast<RawForm&>(form) = FormOf(samples, c.planes == 3 ? 16 : c.jpeg.precision, 7);
        form.width = 46;
        form.samplesPerPixel = c.planes;
        form.tileWidth = c.tileWidth;
        form.tileHeight = c.tileHeight;
        form.minorVersion = c.minorVersion;
        const Bytes file = BuildDng(
            form, samples, [&](const Samples& part) { return WriteLosslessJpeg(part, c.jpeg); });
        ExpectSame(Load(file), samples, c.name);
    }
}

TEST(DngLoader, LevelsMakeSamplesLinear) {
    const Samples samples = NoiseSamples(40, 24, 8);
    DngForm form;
    static_cast<RawForm&>(form) = FormOf(samples, 8, 1);
    std::vector<std::uint32_t> curve;
    for (std::uint32_t code = 0; code < 200; ++code) curve.push_back(code * code / 4);
    form.more = [&](TiffBuilder&, IfdBuilder& ifd) {
        ifd.Short(50712, curve)
            .Short(50713, {2, 2})
            .Short(50714, {100, 102, 98, 120})  // 105 in the mean
            .SRational(50715, std::vector<Ratio>(40, {2}))
            .SRational(50716, std::vector<Ratio>(24, {-1}))
            .Short(50717, {10000});
    };
    const Bytes file =
        BuildDng(form, samples, [](const Samples& part) { return PackBits(part, 8); });
    Samples expected = samples;
    constexpr std::int32_t kBlacks[] = {100, 102, 98, 120};
    for (std::uint32_t y = 0; y < 24; ++y) {
        for (std::uint32_t x = 0; x < 40; ++x) {
            const std::int32_t linear =
                static_cast<std::int32_t>(curve[std::min<std::uint32_t>(samples.At(y, x), 199)]);
            const std::int32_t offset = kBlacks[y % 2 * 2 + x % 2] - 105 + 2 - 1;
            expected.values[y * 40 + x] = static_cast<std::uint16_t>(std::max(0, linear - offset));
        }
    }
    ExpectSame(Load(file), expected, "levels");
}

TEST(DngLoader, ShowsTheActiveArea) {
    const Samples samples = NoiseSamples(50, 40, 12);
    DngForm form;
    static_cast<RawForm&>(form) = FormOf(samples, 12, 1);
    form.more = [](TiffBuilder&, IfdBuilder& ifd) { ifd.Short(50829, {3, 5, 36, 44}); };
    const Bytes file =
        BuildDng(form, samples, [](const Samples& part) { return PackBits(part, 12); });
    ExpectSame(Load(file), samples.Cut(3, 5, 33, 39), "active area");
}

}  // namespace
}  // namespace qmx::test
