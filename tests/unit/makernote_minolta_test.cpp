// Minolta's MakerNote.

#include <gtest/gtest.h>

#include <cmath>

#include "makernote/minolta_fields.h"
#include "parse/containers/container.h"
#include "support/memory_stream.h"
#include "support/note_file.h"
#include "support/parse.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using Fields = MinoltaMakerFields;

// A block of settings in which every element is its own index, or what `words` says; big-endian.
Bytes Settings(std::size_t elementBytes, std::size_t bytes,
               std::initializer_list<std::pair<std::uint32_t, std::uint32_t>> words = {}) {
    ByteWriter block(Order::kBig);
    for (std::uint32_t i = 0; i < bytes / elementBytes; ++i) {
        std::uint32_t word = i;
        for (const auto& [index, value] : words)
            if (index == i) word = value;
        elementBytes == 4 ? block.U32(word) : block.U16(word);
    }
    return block.bytes;
}

Fields FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

TEST(MinoltaNote, EveryTagHasItsField) {
    BareNote note(kMakerMinolta, "", kMinolta5D, Order::kBig);
    note.Entries()
        .Long(0x0100, {7})
        .Long(0x0101, {13})
        .Long(0x0102, {5})
        .Long(0x0103, {6})
        .SRational(0x0104, {{-10, 20}})
        .Long(0x0105, {72})
        .Long(0x0107, {5})
        .Long(0x0109, {1})
        .Long(0x010A, {2})
        .Long(0x010B, {5500})
        .Long(0x010C, {25881})
        .Value(0x0111, 9, 1, {0xFF, 0xFF, 0xFF, 0xFE})
        .Long(0x0112, {0xFFFFFFFD})
        .Long(0x0113, {1})
        .Long(0x0115, {1});
    const Fields expected = {.minoltaSceneMode = 7,
                             .minoltaImageSizeTag = 6,
                             .minoltaQuality = 5,
                             .minoltaRawJpeg = 1,
                             .minoltaWhiteBalance = 0x100,
                             .minoltaWbFineTune = -3,
                             .minoltaColorTemp = 5500,
                             .minoltaColorFilter = -2,
                             .minoltaFlashComp = -0.5f,
                             .minoltaColorMode = 13,
                             .minoltaZoneMatching = 2,
                             .minoltaStabilizer2 = 5,
                             .minoltaStabilizer3 = 1,
                             .minoltaLensId = 25881,
                             .minoltaTeleconverter = 72};
    EXPECT_TRUE(HoldsRecord(note.Decode(), expected));
}

TEST(MinoltaNote, SettingsAreBigEndianInEveryFile) {
    for (const Order order : {Order::kLittle, Order::kBig}) {
        BareNote note(kMakerMinolta, "", 262, order);
        note.Entries().Undefined(0x0003, Settings(4, 256, {{31, 5}, {32, 1}, {44, 48}}));
        const ImageInfo info = note.Decode();
        const Fields expected = {.minoltaSubjectProgram = 34,
                                 .minoltaExposureMode = 1,
                                 .minoltaImageSize = 4,
                                 .minoltaQuality = 5,
                                 .minoltaWhiteBalance = 3,
                                 .minoltaMetering = 7,
                                 .minoltaExposureComp = 7 / 3.0f,
                                 .minoltaBracketStep = 14,
                                 .minoltaIsoSetting = 36,
                                 .minoltaFlashMode = 2,
                                 .minoltaFlashFired = 20,
                                 .minoltaInternalFlash = 43,
                                 .minoltaFlashMetering = 63,
                                 .minoltaFlashComp = 29 / 3.0f,
                                 .minoltaDriveMode = 6,
                                 .minoltaIntervalNumber = 17,
                                 .minoltaIntervalLength = 16,
                                 .minoltaFocusMode = 48,
                                 .minoltaFocusArea = 49,
                                 .minoltaFocusZone = 47,
                                 .minoltaMacro = 11,
                                 .minoltaFocusDistance = 19,
                                 .minoltaSharpness = 33,
                                 .minoltaContrast = -2,
                                 .minoltaSaturation = 2,
                                 .minoltaColorMode = 40,
                                 .minoltaColorProfile = 51,
                                 .minoltaDigitalZoom = 12,
                                 .minoltaDataImprint = 52,
                                 .minoltaLastFileNumber = 27};
        EXPECT_TRUE(HoldsRecord(info, expected));
        EXPECT_EQ(info.isoSpeed, 3);  // 100 * 2^-5
        EXPECT_FLOAT_EQ(info.exposureTime, std::exp2(39 / 8.0f));
        EXPECT_FLOAT_EQ(info.fNumber, std::exp2(1 / 8.0f));
        EXPECT_FLOAT_EQ(info.focalLength, 18 / 256.0f);
        EXPECT_FLOAT_EQ(info.maxAperture, std::exp2(15 / 16.0f));
    }
}

TEST(MinoltaNote, SettingsOfTheReflexCameras) {
    BareNote seven(kMakerMinolta, "", kMinolta7D);
    seven.Entries()
        .Undefined(0x0004, Settings(2, 294, {{4, 2}, {30, 0xFFF4}, {63, 52}, {70, 76}}))
        .Undefined(0x0018, Bytes(8200));
    ImageInfo info = seven.Decode();
    Fields fields = FieldsOf(info);
    EXPECT_EQ(fields.minoltaWhiteBalance, 2);
    EXPECT_EQ(fields.minoltaExposureComp, -0.5f);
    EXPECT_EQ(fields.minoltaColorTemp, 5200);
    EXPECT_EQ(fields.minoltaImageNumber, 95);
    EXPECT_EQ(fields.minoltaStabilizer, 113);
    EXPECT_EQ(info.orientation, 6);

    // The order of block and tag does not matter: the tag wins.
    BareNote five(kMakerMinolta, "", kMinolta5D);
    five.Entries()
        .Undefined(0x0114, Settings(2, 448, {{14, 3}, {80, 82}, {83, 250}}))
        .Long(0x010B, {0});
    info = five.Decode();
    fields = FieldsOf(info);
    EXPECT_EQ(fields.minoltaWhiteBalance, 48);
    EXPECT_EQ(fields.minoltaExposureComp, -0.5f);
    EXPECT_EQ(fields.minoltaColorTemp, 7300);
    EXPECT_EQ(fields.minoltaPictureFinish, 113);
    EXPECT_EQ(info.orientation, 8);
    five.Entries().Long(0x0115, {96});
    EXPECT_EQ(FieldsOf(five.Decode()).minoltaWhiteBalance, 96);
}

TEST(MinoltaNote, RulesOfSingleModels) {
    struct Case {
        std::int32_t model;
        std::uint32_t balance;
        std::int32_t whiteBalance, fineTune, saturation, stabilizer, imageSize, filter;
    };
    const Case cases[] = {
        {kMinoltaA1, 0x00800000, 0x00800000, 0, 0, 1, 4, 1},
        {kMinoltaA2, 0x037E0000, 0x03800000, -2, 0, 1, INT_UNSET, 1},
        {kMinolta7Hi, 12, 12, INT_UNSET, 2, INT_UNSET, INT_UNSET, 3},
        {771, 0, 0, INT_UNSET, 2, INT_UNSET, 4, 3},
    };
    for (const Case& c : cases) {
        BareNote note(kMakerMinolta, "", c.model);
        note.Entries()
            .Undefined(0x0003, Settings(4, 228, {{3, c.balance}, {31, 5}, {41, 6}}))
            .Undefined(0x0018, Bytes(272))
            .Long(0x0103, {4})
            .SRational(0x0104, {{0, 0}})
            .Raw(0x0107, 4, 0, 0);
        const Fields fields = FieldsOf(note.Decode());
        EXPECT_EQ(fields.minoltaWhiteBalance, c.whiteBalance) << c.model;
        EXPECT_EQ(fields.minoltaWbFineTune, c.fineTune) << c.model;
        EXPECT_EQ(fields.minoltaSaturation, c.saturation) << c.model;
        EXPECT_EQ(fields.minoltaStabilizer, c.stabilizer) << c.model;
        EXPECT_EQ(fields.minoltaImageSizeTag, c.imageSize) << c.model;
        EXPECT_EQ(fields.minoltaColorFilter, c.filter) << c.model;
        EXPECT_FLOAT_EQ(fields.minoltaFlashComp, 29 / 3.0f) << c.model;  // the block's
        EXPECT_EQ(fields.minoltaStabilizer2, INT_UNSET) << c.model;
        EXPECT_EQ(fields.minoltaDataImprint, c.model == kMinolta7Hi ? 52 : INT_UNSET) << c.model;
    }
}

Bytes Deliver(const Bytes& file) {
    BytesContext context(file);
    MemoryStream stream;
    context.ctx.outStream = &stream;
    ParseContainer(context.ctx, false);
    return stream.bytes;
}

TEST(MinoltaNote, PreviewsWithADamagedStartAreDelivered) {
    const Bytes whole = JpegStream(Segment(0xDB, Bytes(400)), 640, 480);
    const auto length = static_cast<std::uint32_t>(whole.size());
    Bytes damaged = whole;
    damaged[0] = 0;
    const auto photo = [&](const Bytes& jpeg, std::uint32_t offset, std::uint32_t stated) {
        TiffBuilder tiff;
        IfdBuilder& ifd = tiff.Ifd();
        IfdBuilder& exif = tiff.SubIfd();
        ifd.Ascii(0x010F, "Minolta Co., Ltd.").Ascii(0x0110, "DiMAGE 7i").Link(0x8769, {&exif});
        exif.Undefined(0x927C, ByteWriter(Order::kLittle)
                                   .U16(2)
                                   .U16(0x88)
                                   .U16(4)
                                   .U32(1)
                                   .U32(offset)
                                   .U16(0x89)
                                   .U16(4)
                                   .U32(1)
                                   .U32(stated)
                                   .bytes);
        tiff.Trailer(jpeg);
        return tiff.Build();
    };
    const auto position = static_cast<std::uint32_t>(photo(whole, 0, 0).size()) - length;
    EXPECT_EQ(Deliver(photo(damaged, position, length)), whole);
    EXPECT_EQ(Deliver(ExifJpeg(photo(damaged, position, length))), whole);
    for (const std::uint32_t stated : {0u, 26u, length + 100, 0xFFFFFFFFu})
        EXPECT_EQ(Deliver(photo(damaged, position, stated)), Bytes()) << stated;
    for (const std::uint32_t offset : {0u, position - 3, 0x7FFFFFFFu, 0xFFFFFFFFu})
        EXPECT_EQ(Deliver(photo(damaged, offset, length)), Bytes()) << offset;
}

TEST(MinoltaNote, HostileNotesWriteNothingElse) {
    BareNote note(kMakerMinolta, "", kMinolta5D, Order::kBig);
    note.Entries()
        .Undefined(0x0081, JpegStream({}, 16, 16))
        .Long(0x0088, {20})
        .Long(0x0089, {300})
        .Long(0x0102, {2})
        .SRational(0x0104, {{1, 3}})
        .Undefined(0x0114, Settings(2, 448));
    note.ExpectHarmless(sizeof(Fields));
}

}  // namespace
}  // namespace qmx::test
