// Pentax's MakerNote in its forms: of photos, and as the private data of DNGs.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "makernote/maker_record.h"
#include "makernote/pentax_fields.h"
#include "parse/containers/container.h"
#include "support/memory_stream.h"
#include "support/note_file.h"
#include "support/parse.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = PentaxMakerFields;

const Fields& FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

BareNote PentaxNote() { return BareNote(kMakerPentax, "AOC\0MM"sv, 0, Order::kBig); }

constexpr std::uint8_t kDate[] = {0x07, 0xD8, 3, 2};
constexpr std::uint8_t kTime[] = {12, 1, 23};
constexpr std::uint8_t kCipheredCount[] = {0xF4, 0x26, 0xED, 0x8D};  // 1648

// clang-format off
void FillEveryTag(IfdBuilder& note) {
    note.Undefined(0x0006, {std::begin(kDate), std::end(kDate)})
        .Undefined(0x0007, {std::begin(kTime), std::end(kTime)}).Short(0x0008, {2})
        .Short(0x0009, {34, 7}).Short(0x000B, {6}).Short(0x000C, {258, 63}).Short(0x000D, {16})
        .Short(0x000E, {65534}).Short(0x000F, {5}).Long(0x0012, {1000}).Short(0x0013, {56})
        .Short(0x0014, {6}).Short(0x0016, {43, 0}).Short(0x0017, {1}).Short(0x0018, {3, 0})
        .Short(0x0019, {10}).Short(0x001A, {4}).Long(0x001D, {1850}).Short(0x001E, {200})
        .Short(0x001F, {1, 0}).Short(0x0020, {2, 0}).Short(0x0021, {3, 0}).Short(0x0022, {1})
        .Short(0x0023, {56}).Short(0x0024, {20}).Short(0x0025, {0}).Short(0x0026, {1})
        .Undefined(0x0027, {0xFE, 0xE1, 0xFF, 0xED}).Undefined(0x0028, {0xFD, 0xFE, 0xFF, 0xFC})
        .Long(0x0029, {1234}).Undefined(0x0032, {2, 0, 0, 4}).Byte(0x0033, {5, 1, 1})
        .Byte(0x0034, {1, 2, 4, 16}).Short(0x0037, {1}).Byte(0x003F, {3, 17, 0})
        .Short(0x0040, {47}).Value(0x0047, kTypeSByte, 1, {0xFB}).Short(0x0048, {1})
        .Short(0x0049, {0}).Value(0x004D, kTypeSLong, 1, {0xFF, 0xFF, 0xFF, 0x80})
        .Short(0x004F, {4}).Short(0x0050, {48190}).Byte(0x005C, {1, 7, 0, 0})
        .Undefined(0x005D, {std::begin(kCipheredCount), std::end(kCipheredCount)})
        .Short(0x0067, {4}).Byte(0x0069, {1, 0, 2, 0}).Byte(0x0070, {0}).Byte(0x0071, {3, 0, 0})
        .Byte(0x0079, {2});
}
// clang-format on

TEST(PentaxNote, EveryTagHasItsField) {
    BareNote note = PentaxNote();
    FillEveryTag(note.Entries());
    // clang-format off
    const Fields expected = {
        .pictureMode = 0x0501, .exposureStep = 1, .compactMode = 6, .quality = 2, .imageSize = 34,
        .drive = 1, .selfTimer = 2, .remote = 4, .exposureCount = 16, .iso = 6,
        .sensitivityAdjust = -0.3f, .exposureTime = 0.01f, .fNumber = 5.6f,
        .exposureCompensation = -0.7f, .autoBracket = 3, .metering = 1, .aeLock = 1,
        .flashMode = 258, .flashUnit = 63, .flashCompensation = -0.5f, .focusMode = 16,
        .afPointSelected = 65534, .afPointInFocus = 5, .focalLength = 18.5f, .digitalZoom = 2,
        .shakeReduction = 7, .whiteBalance = 10, .whiteBalanceMode = 4, .colorTemperature = 48190,
        .imageTone = 4, .saturation = 1, .contrast = 2, .sharpness = 3, .hasTwoWordSettings = 1,
        .hue = 4, .dynamicRange = 1, .fineSharpness = 0, .shadowCorrection = 2,
        .noiseReduction = 0, .highIsoReduction = 3, .colorSpace = 1, .imageProcessing = 2,
        .lensId = 785, .worldTime = 1, .homeCity = 56, .homeDaylightSaving = 0,
        .destinationCity = 20, .destinationDaylightSaving = 1, .temperature = -5,
        .shutterCount = 1648, .frameNumber = 1234, .dspFirmware = 0x011E0012,
        .cpuFirmware = 0x02010003};
    // clang-format on
    EXPECT_TRUE(HoldsRecord(note.Decode(), expected));
    EXPECT_TRUE(HoldsRecord(PentaxNote().Decode(), Fields{}));
}

TEST(PentaxNote, RulesOfSingleTags) {
    struct Case {
        const char* what;
        void (*fill)(IfdBuilder&);
        void (*expect)(Fields&);
    };
    const Case cases[] = {
        {"flash compensation in sixths",
         [](IfdBuilder& n) {
             n.Value(0x004D, kTypeSByte, 2, {0xFD, 0});
         },
         [](Fields& f) { f.flashCompensation = -0.5f; }},
        {"flash mode alone", [](IfdBuilder& n) { n.Short(0x000C, {1}); },
         [](Fields& f) { f.flashMode = 1; }},
        {"settings of a compact",
         [](IfdBuilder& n) { n.Short(0x001F, {1}).Short(0x0020, {2}).Short(0x0021, {0}); },
         [](Fields& f) { f.saturation = 1, f.contrast = 2, f.sharpness = 0; }},
        {"filter alone",
         [](IfdBuilder& n) {
             n.Undefined(0x0032, {0, 0, 0, 4});
         },
         [](Fields& f) { f.imageProcessing = 4; }},
        {"picture mode without step",
         [](IfdBuilder& n) {
             n.Byte(0x0033, {3, 0});
         },
         [](Fields& f) { f.pictureMode = 768; }},
        {"one byte is no picture mode", [](IfdBuilder& n) { n.Byte(0x0033, {3}); }, [](Fields&) {}},
        {"half a drive",
         [](IfdBuilder& n) {
             n.Byte(0x0034, {1, 2});
         },
         [](Fields& f) { f.drive = 1, f.selfTimer = 2; }},
        {"half a lens", [](IfdBuilder& n) { n.Byte(0x003F, {3}); }, [](Fields&) {}},
        {"no values",
         [](IfdBuilder& n) { n.Byte(0x0032, {}).Byte(0x0034, {}).Byte(0x005C, {}).Byte(0x28, {}); },
         [](Fields&) {}},
        {"more than the field takes",
         [](IfdBuilder& n) {
             n.Byte(0x0071, {3, 1, 1, 1, 1, 1, 1});
         },
         [](Fields& f) { f.highIsoReduction = 3; }},
        {"counts above 31 bits", [](IfdBuilder& n) { n.Long(0x0029, {0x90000000}); },
         [](Fields& f) { f.frameNumber = INT32_MIN; }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        BareNote note = PentaxNote();
        c.fill(note.Entries());
        Fields expected;
        c.expect(expected);
        EXPECT_TRUE(HoldsRecord(note.Decode(), expected));
    }
}

TEST(PentaxNote, ShutterCountNeedsTheWholeMoment) {
    const auto decode = [](std::size_t date, std::size_t time, std::size_t count) {
        BareNote note = PentaxNote();
        note.Entries()
            .Undefined(0x005D, {kCipheredCount, kCipheredCount + count})
            .Undefined(0x0007, {kTime, kTime + time})
            .Undefined(0x0006, {kDate, kDate + date});
        return FieldsOf(note.Decode()).shutterCount;
    };
    EXPECT_EQ(decode(4, 3, 4), 1648);
    EXPECT_EQ(decode(3, 3, 4), INT_UNSET);
    EXPECT_EQ(decode(4, 2, 4), INT_UNSET);
    EXPECT_EQ(decode(4, 3, 3), INT_UNSET);
}

// A photo whose note stands right behind the Exif directory's entry for it.
struct Photo {
    explicit Photo(std::string_view model = "PENTAX K10D", std::string_view make = "PENTAX",
                   std::string_view header = "AOC\0II"sv)
        : ifd(tiff.Ifd()), exif(tiff.SubIfd()), note(tiff.SubIfd()) {
        ifd.Ascii(0x010F, make).Ascii(0x0110, model).Link(0x8769, {&exif});
        exif.Undefined(0x927C, FromText(header));
    }
    ImageInfo Info() { return Parse(tiff.Build()).info; }

    TiffBuilder tiff;
    IfdBuilder& ifd;
    IfdBuilder& exif;
    IfdBuilder& note;
};

TEST(PentaxNote, OldCompactsWriteTenthsOfMillimetres) {
    constexpr std::pair<const char*, float> kCases[] = {
        {"PENTAX Optio 30", 100},   {"PENTAX Optio 33WR", 100}, {"PENTAX Optio 43WR  ", 100},
        {"PENTAX Optio 450", 100},  {"PENTAX Optio 550", 100},  {"PENTAX Optio 555", 100},
        {"PENTAX Optio 750Z", 100}, {"PENTAX Optio X", 100},    {"PENTAX Optio X70", 10},
        {"PENTAX Optio 330", 10},   {"PENTAX Optio S", 10},     {"PENTAX Optio ", 10},
        {"PENTAX K10D", 10},        {"PENTAX X 30", 10},
    };
    for (const auto& [model, focalLength] : kCases) {
        Photo photo(model);
        photo.note.Long(0x001D, {1000});
        EXPECT_EQ(FieldsOf(photo.Info()).focalLength, focalLength) << model;
    }
}

TEST(PentaxNote, FillsWhatExifLeavesOut) {
    Photo bare;
    FillEveryTag(bare.note);
    ImageInfo info = bare.Info();
    EXPECT_FLOAT_EQ(info.exposureTime, 0.01f);
    EXPECT_FLOAT_EQ(info.fNumber, 5.6f);
    EXPECT_FLOAT_EQ(info.exposureBias, -0.7f);
    EXPECT_FLOAT_EQ(info.focalLength, 18.5f);
    EXPECT_EQ(info.isoSpeed, 100);
    EXPECT_EQ(info.meteringMode, 2);

    Photo unknown;
    unknown.note.Long(0x0012, {0}).Short(0x0013, {0}).Long(0x001D, {0});
    info = unknown.Info();
    EXPECT_EQ(info.exposureTime, FLOAT_UNSET);
    EXPECT_EQ(info.fNumber, FLOAT_UNSET);
    EXPECT_EQ(info.focalLength, FLOAT_UNSET);

    TiffBuilder tiff;
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    IfdBuilder& note = tiff.SubIfd();
    ifd.Ascii(0x010F, "PENTAX").Link(0x8769, {&exif});
    exif.Short(0x8827, {800}).Short(0x9207, {1}).Undefined(0x927C, FromText("AOC\0II"sv));
    FillEveryTag(note);
    info = Parse(tiff.Build()).info;
    EXPECT_EQ(info.isoSpeed, 800);
    EXPECT_EQ(info.meteringMode, 1);
    EXPECT_FLOAT_EQ(info.fNumber, 5.6f);
}

TEST(PentaxNote, IsoCodes) {
    constexpr std::pair<std::uint32_t, std::int32_t> kCases[] = {
        {2, INT_UNSET},    {3, 50},          {6, 100},         {9, 200},       {30, 25600},
        {45, 819200},      {46, INT_UNSET},  {50, 50},         {1600, 1600},   {3200, 3200},
        {6400, INT_UNSET}, {150, INT_UNSET}, {257, INT_UNSET}, {258, 50},      {262, 200},
        {272, 6400},       {286, 819200},    {287, INT_UNSET}, {0, INT_UNSET}, {65535, INT_UNSET}};
    for (const auto& [code, speed] : kCases) {
        BareNote note = PentaxNote();
        note.Entries().Short(0x0014, {code});
        const ImageInfo info = note.Decode();
        EXPECT_EQ(info.isoSpeed, speed) << code;
        EXPECT_EQ(FieldsOf(info).iso, static_cast<std::int32_t>(code));
    }
}

// A block in the form of newer cameras, with one value, six bytes of lens data, behind it.
constexpr std::uint32_t kValueInBlock = 28;
Bytes Block(std::string_view magic, std::uint32_t offset) {
    return ByteWriter(Order::kBig)
        .Raw(FromText(magic))
        .Raw(FromText("MM"))
        .U16(1)
        .U16(0x003F)
        .U16(kTypeByte)
        .U32(6)
        .U32(offset)
        .U32(0)
        .Raw({3, 44, 0, 0, 0, 0})
        .bytes;
}

std::uint32_t PositionOf(const Bytes& part, const Bytes& whole) {
    return static_cast<std::uint32_t>(
        std::search(whole.begin(), whole.end(), part.begin(), part.end()) - whole.begin());
}

TEST(PentaxNote, OffsetsCountFromWhereTheyMakeSense) {
    struct Case {
        std::string_view magic;
        std::string_view make, model;
        std::uint16_t tag;
    };
    constexpr Case kCases[] = {
        {"PENTAX \0"sv, "PENTAX", "PENTAX K-7", 0x927C},
        {"PENTAX \0"sv, "PENTAX", "PENTAX K-7", 0xC634},
        {"SAMSUNG\0"sv, "SAMSUNG", "SAMSUNG GX20", 0xC634},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.tag);
        const auto lens = [&](std::uint32_t offset, std::uint32_t* position = nullptr) {
            TiffBuilder tiff;
            IfdBuilder& ifd = tiff.Ifd();
            IfdBuilder& exif = tiff.SubIfd();
            ifd.Ascii(0x010F, c.make).Ascii(0x0110, c.model).Link(0x8769, {&exif});
            (c.tag == 0xC634 ? ifd : exif).Undefined(c.tag, Block(c.magic, offset));
            const Bytes file = tiff.Build();
            if (position != nullptr) *position = PositionOf(Block(c.magic, offset), file);
            const ImageInfo info = Parse(file).info;
            EXPECT_EQ(info.hasMakerNote, 1);
            return FieldsOf(info).lensId;
        };
        std::uint32_t position = 0;
        EXPECT_EQ(lens(kValueInBlock, &position), 812);
        EXPECT_EQ(lens(position + kValueInBlock), 812);
        // Neither: the header's base stands, whatever is there.
        for (const std::uint32_t offset : {0u, 10u, 0x7FFFFFFFu, 0xFFFFFFFFu})
            EXPECT_NE(lens(offset), 812) << offset;
    }
}

Bytes Deliver(const Bytes& file) {
    BytesContext context(file);
    MemoryStream stream;
    context.ctx.outStream = &stream;
    ParseContainer(context.ctx, false);
    return stream.bytes;
}

TEST(PentaxNote, PreviewIsAnImageOfTheFile) {
    const Bytes jpeg = JpegStream(Segment(0xDB, Bytes(6)), 640, 480);
    const auto file = [&](std::uint32_t offset, std::uint32_t length) {
        Photo photo;
        photo.note.Short(0x0002, {640, 480}).Long(0x0003, {length}).Long(0x0004, {offset});
        photo.tiff.Trailer(jpeg);
        return photo.tiff.Build();
    };
    const auto length = static_cast<std::uint32_t>(jpeg.size());
    const std::uint32_t position = static_cast<std::uint32_t>(file(0, 0).size()) - length;
    EXPECT_EQ(Deliver(file(position, length)), jpeg);
    EXPECT_EQ(Deliver(ExifJpeg(file(position, length))), jpeg);
    EXPECT_EQ(Deliver(file(position, 0)), Bytes());
    for (const std::uint32_t nowhere : {0u, position - 7, position + 1, 0x7FFFFFFFu, 0xFFFFFFFFu})
        EXPECT_EQ(Deliver(file(nowhere, length)), Bytes()) << nowhere;
}

TEST(PentaxNote, SurvivesHostileBytes) {
    for (const std::string_view header : {"AOC\0MM"sv, "PENTAX \0MM"sv}) {
        BareNote note(kMakerPentax, header, 0, Order::kBig);
        note.Entries()
            .Long(0x0003, {30})
            .Long(0x0004, {40})
            .Short(0x000C, {1, 63})
            .Short(0x0021, {1, 0, 0})
            .Byte(0x0034, {1, 2, 3, 4, 5})
            .Byte(0x003F, {3, 17, 0})
            .Undefined(0x005D, {1, 2, 3, 4});
        note.ExpectHarmless(sizeof(Fields));
    }
}

}  // namespace
}  // namespace qmx::test
