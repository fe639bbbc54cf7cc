#include "support/raw_seeds.h"

namespace qmx::test {
namespace {

RawForm SeedForm(const Samples& samples, std::uint32_t bits, std::uint32_t compression) {
    RawForm form = FormOf(samples.width, samples.height, bits, compression);
    form.more = [](TiffBuilder& tiff, IfdBuilder& ifd) {
        IfdBuilder& exif = tiff.SubIfd();
        exif.Rational(33434, {{1, 60}}).Short(34855, {100}).Ascii(36867, "2008:07:31 12:34:56");
        ifd.Short(274, {6}).Link(34665, {&exif}).Ascii(50454, "MATRIX\nNeutral 2 1 1.5\n");
    };
    return form;
}

Bytes DngSeed(const Samples& samples, std::uint32_t bits, std::uint32_t compression) {
    DngForm form;
    static_cast<RawForm&>(form) = SeedForm(samples, bits, compression);
    form.tileWidth = 24;
    form.tileHeight = 16;
    form.more = [](TiffBuilder&, IfdBuilder& ifd) {
        ifd.Short(50829, {2, 3, 26, 50}).Short(50712, {0, 5, 12, 500, 4000}).Short(50713, {2, 2});
        ifd.Short(50714, {1, 2, 3, 4}).SRational(50715, {{1, 2}, {2}}).Short(50717, {3000});
        ifd.Rational(50728, {{1, 2}, {1}, {2, 3}});
        ifd.SRational(50721, {{1}, {0}, {0}, {0}, {1}, {0}, {0}, {0}, {1}});
    };
    return BuildDng(form, samples, [&](const Samples& part) {
        return compression == 7 ? WriteLosslessJpeg(part, {.components = 2, .restartUnits = 36})
                                : PackBits(part, bits);
    });
}

Bytes PanasonicSeed(std::uint32_t width, const Bytes& data) {
    TiffBuilder tiff;
    tiff.Ifd()
        .Short(2, {width})
        .Short(3, {22})
        .Short(36, {500})
        .Short(37, {256})
        .Short(38, {400})
        .Ascii(271, "Panasonic")
        .Ascii(272, "DMC-FZ30")
        .Long(273, {256});
    return ByteWriter(Order::kLittle).Raw(tiff.Build()).Pad(256).Raw(data).bytes;
}

}  // namespace

std::vector<SeedFile> RawSeeds() {
    const Samples twelve = SmoothSamples(60, 28, 12);
    const Samples bytes = SmoothSamples(60, 28, 8);
    Samples blocks = SmoothSamples(56, 22, 12);
    RawForm hasselblad = SeedForm(twelve, 12, 7);
    hasselblad.make = "Hasselblad";
    const Bytes blockData = PackBlocks(blocks);
    return {
        {"eight.raw", BuildRaw(SeedForm(bytes, 8, 1), PackBits(bytes, 8))},
        {"packed.raw", BuildRaw(SeedForm(twelve, 12, 1), PackBits(twelve, 12))},
        {"padded.raw", BuildRaw(SeedForm(twelve, 12, 32769), PackPadded12(twelve))},
        {"words.raw", BuildRaw(SeedForm(twelve, 16, 0), PackWords(twelve, Order::kLittle))},
        {"jpeg.raw", BuildRaw(SeedForm(twelve, 12, 7),
                              WriteLosslessJpeg(twelve, {.components = 2, .predictor = 6}))},
        {"squares.raw", BuildRaw(SeedForm(twelve, 12, 7),
                                 WriteLosslessJpeg(twelve, {.components = 4, .inSquares = true}))},
        {"restarts.raw",
         BuildRaw(SeedForm(twelve, 12, 6), WriteLosslessJpeg(twelve, {.restartUnits = 60}))},
        {"paired.raw", BuildRaw(hasselblad, WritePairedJpeg(twelve, 12))},
        {"blocks.raw", PanasonicSeed(56, blockData)},
        {"mended.raw", PanasonicSeed(3304, PackWords(SmoothSamples(3304, 22, 16), Order::kLittle))},
        {"tiles.raw", DngSeed(twelve, 12, 1)},
        {"lossless_tiles.raw", DngSeed(twelve, 12, 7)},
    };
}

}  // namespace qmx::test
