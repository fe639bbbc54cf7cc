// Olympus' MakerNote, old form and new, with the directories in it.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "makernote/dispatch.h"
#include "makernote/olympus_fields.h"
#include "parse/containers/container.h"
#include "support/memory_stream.h"
#include "support/note_file.h"
#include "support/parse.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = OlympusMakerFields;

const Fields& FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

// A photo with a note of the old form; `Directory` adds one to the note, by its offset.
class OlympusFile : public NoteFile {
public:
    explicit OlympusFile(Order order = Order::kLittle)
        : NoteFile(order, "OLYMPUS CORPORATION", "OLYMP\0\1\0"sv) {}
    IfdBuilder& Directory(std::uint16_t tag) {
        IfdBuilder& directory = Tiff().SubIfd();
        Note().Link(tag, {&directory});
        return directory;
    }
    ImageInfo Info() { return Parse(Build()).info; }
};

// clang-format off

void FillEveryTag(OlympusFile& file) {
    file.Note()
        .Ascii(0x0104, "1.2").Long(0x0200, {3, 4, 2}).Short(0x0201, {33}).Short(0x0202, {2})
        .Short(0x0203, {6}).Rational(0x0204, {{5, 2}}).Ascii(0x0207, "SX756")
        .Undefined(0x0209, FromText("OLYMPUS DIGITAL CAMERA         \0"sv)).Short(0x0302, {1})
        .Short(0x0303, {5}).Short(0x0403, {17}).Ascii(0x0404, "S-0404").Ascii(0x0405, "F-0405")
        .Short(0x1004, {2}).Short(0x1005, {5, 0}).Short(0x100A, {1}).Short(0x100B, {1})
        .Rational(0x100C, {{3500, 1}}).Short(0x100F, {2}).Short(0x1015, {2, 5})
        .Ascii(0x101A, "S-101A  ").SRational(0x1023, {{-1, 2}}).Short(0x1026, {1})
        .Short(0x1029, {2}).Long(0x102E, {2560}).Long(0x102F, {1920}).Rational(0x1034, {{27, 10}})
        .Short(0x1039, {1}).Short(0x103A, {1});
    file.Directory(0x2010)
        .Ascii(0x0100, "D4040").Ascii(0x0101, "143008611                      ")
        .Long(0x0104, {0x1300}).Byte(0x0201, {1, 0xEE, 2, 0x10, 0xEE, 0xEE})
        .Ascii(0x0202, "050105886").Ascii(0x0203, "A lens").Long(0x0204, {0x1100})
        .Short(0x0205, {760}).Short(0x0206, {925}).Short(0x0207, {14}).Short(0x0208, {54})
        .Byte(0x0301, {2, 0xEE, 8, 0, 0, 0}).Ascii(0x0403, "WCON").Short(0x1000, {3})
        .Short(0x1001, {2});
    file.Directory(0x2020)
        .Short(0x0200, {3}).Short(0x0201, {1}).Short(0x0202, {261}).SRational(0x0203, {{1, 3}})
        .Short(0x0300, {1}).Short(0x0301, {2, 68}).Short(0x0302, {1, 9}).Short(0x0303, {1})
        .Long(0x0304, {0, 0, 0x79798585, 1}).Short(0x0400, {18}).SRational(0x0401, {{-2, 3}})
        .Short(0x0404, {3, 0, 0, 0}).Short(0x0500, {20}).Short(0x0501, {3000})
        .Value(0x0502, kTypeSShort, 2, ByteWriter(Order::kLittle).U16(0xFFFE).U16(3).bytes)
        .Short(0x0503, {2, 1, 5}).Short(0x0504, {4}).Short(0x0505, {6, 0, 9})
        .Short(0x0506, {7, 0, 9}).Short(0x0507, {1}).Short(0x0509, {142}).Short(0x050A, {9})
        .Short(0x050B, {1}).Short(0x050C, {0}).Rational(0x050D, {{4, 1}})
        .Short(0x050F, {1, 2, 3, 4}).Short(0x0520, {256, 7}).Short(0x0521, {8}).Short(0x0523, {9})
        .Short(0x0524, {10}).Short(0x0525, {5}).Short(0x0526, {2}).Short(0x0527, {1, 2, 3})
        .Short(0x0529, {9, 0, 0, 0}).Short(0x0600, {5, 2, 65}).Short(0x0601, {3, 6})
        .Short(0x0603, {4}).Long(0x0604, {2});
    file.Directory(0x2040).Long(0x0614, {4000}).Long(0x0615, {3000});
    file.Directory(0x3000).Short(0x1000, {22});
}

TEST(OlympusNote, EveryTagHasItsField) {
    const Fields expected = {
        .cameraId = "OLYMPUS DIGITAL CAMERA", .mainType = "SX756", .mainSerial = "S-101A",
        .compactSerial = "S-0404", .mainFirmware = "1.2", .compactFirmware = "F-0405",
        .specialMode = 3, .specialSequence = 4, .specialPanorama = 2, .mainQuality = 33,
        .mainMacro = 2, .blackAndWhite = 6, .digitalZoom = 2.5f, .oneTouchBalance = 1,
        .mainBalanceBracket = 5, .compactScene = 17, .mainFlash = 2, .flashDevice = 5,
        .focusRange = 1, .mainFocusMode = 1, .manualFocusDistance = 3500, .mainSharpness = 2,
        .whiteBalanceCode = 2, .whiteBalanceSubCode = 5, .mainFlashCompensation = -0.5f,
        .flashBounce = 1, .mainContrast = 2, .mainCompression = 2.7f, .scanMode = 1,
        .mainNoiseReduction = 1, .imageWidth = 2560, .imageHeight = 1920, .cameraType = "D4040",
        .serialNumber = "143008611", .lensSerial = "050105886", .lensModel = "A lens",
        .conversionLens = "WCON", .bodyFirmware = 0x1300, .lensFirmware = 0x1100,
        .lensId = 0x010210, .widestAtMinFocal = 760, .widestAtMaxFocal = 925,
        .minFocalLength = 14, .maxFocalLength = 54, .extender = 0x0208, .flashType = 3,
        .flashModel = 2, .exposureMode = 3, .aeLock = 1, .meteringMode = 261,
        .exposureShift = 1.0f / 3, .macroMode = 1, .focusMode = 2, .focusBits = 68,
        .focusProcess = 1, .focusSearch = 1, .focusArea = 0x79798585, .flashMode = 18,
        .flashCompensation = -2.0f / 3, .flashControl = 3, .whiteBalance = 20,
        .colorTemperature = 3000, .balanceBracketAmber = -2, .balanceBracketGreen = 3,
        .saturation = 2, .saturationLowest = 1, .modifiedSaturation = 4, .contrast = 6,
        .sharpness = 7, .colorSpace = 1, .sceneMode = 142, .noiseReduction = 9,
        .distortionCorrection = 1, .shadingCompensation = 0, .compression = 4, .gradation = 1,
        .gradationLowest = 2, .gradationHighest = 3, .gradationAuto = 4, .pictureMode = 256,
        .pictureSaturation = 8, .pictureContrast = 9, .pictureSharpness = 10,
        .monochromeFilter = 5, .monochromeTone = 2, .noiseFilter = 1, .noiseFilterLowest = 2,
        .noiseFilterHighest = 3, .artFilter = 9, .driveMode = 5, .driveShot = 2,
        .bracketBits = 65, .panoramaMode = 3, .panoramaShot = 6, .imageQuality = 4,
        .imageStabilization = 2, .lightSource = 22};
    OlympusFile file;
    FillEveryTag(file);
    const ImageInfo info = file.Info();
    EXPECT_TRUE(HoldsRecord(info, expected));
    EXPECT_EQ(info.pixelYDimension, static_cast<std::int32_t>(NoteFile::kHeight));
    EXPECT_TRUE(HoldsRecord(OlympusFile(Order::kBig).Info(), Fields()));
}

// clang-format on

TEST(OlympusNote, RulesOfSingleTags) {
    struct Case {
        const char* what;
        void (*fill)(OlympusFile&);
        std::int32_t Fields::*field;
        std::int32_t value;
    };
    const auto area65 = [](OlympusFile& f) {
        std::vector<std::uint32_t> areas(65);
        areas[64] = 5;
        f.Directory(0x2020).Long(0x0304, areas);
    };
    // clang-format off
    const Case cases[] = {
        {"three bytes are no lens",
         [](OlympusFile& f) { f.Directory(0x2010).Byte(0x0201, {0, 0, 1}); },
         &Fields::lensId, INT_UNSET},
        {"no lens",
         [](OlympusFile& f) { f.Directory(0x2010).Byte(0x0201, {0, 1, 0, 0, 9, 9}); },
         &Fields::lensId, 0},
        {"range 0", [](OlympusFile& f) { f.Directory(0x2010).Short(0x0207, {0}); },
         &Fields::minFocalLength, INT_UNSET},
        {"no area in use", [](OlympusFile& f) { f.Directory(0x2020).Long(0x0304, {0, 0}); },
         &Fields::focusArea, INT_UNSET},
        {"area behind the list", area65, &Fields::focusArea, INT_UNSET},
        {"one word of two", [](OlympusFile& f) { f.Note().Short(0x1015, {3}); },
         &Fields::whiteBalanceSubCode, 0},
        {"crop of the raw data",
         [](OlympusFile& f) { f.Directory(0x3000).Long(0x0614, {3264}).Long(0x0615, {2448}); },
         &Fields::imageHeight, 2448},
        {"size 0 gives way",
         [](OlympusFile& f) {
             f.Note().Long(0x102E, {0}).Long(0x102F, {1920});
             f.Directory(0x2040).Long(0x0614, {4032}).Long(0x0615, {3024});
         },
         &Fields::imageHeight, 3024},
        {"half a size", [](OlympusFile& f) { f.Note().Long(0x102E, {2560}); },
         &Fields::imageWidth, INT_UNSET},
        {"negative size", [](OlympusFile& f) { f.Note().Long(0x102E, {1}).Long(0x102F, {~0u}); },
         &Fields::imageWidth, INT_UNSET},
    };
    // clang-format on
    for (const Case& c : cases) {
        OlympusFile file;
        c.fill(file);
        EXPECT_EQ(FieldsOf(file.Info()).*c.field, c.value) << c.what;
    }
}

TEST(OlympusNote, ExifTakesWhatItLacks) {
    const auto fill = [](OlympusFile& file) {
        file.Note()
            .SRational(0x1000, {{7, 1}})
            .SRational(0x1001, {{6, 1}})
            .SRational(0x1002, {{4, 1}})
            .SRational(0x1003, {{-3, 2}})
            .SRational(0x1006, {{-1, 2}});
        file.Directory(0x2010).Short(0x020A, {1024});
    };
    OlympusFile lacking;
    fill(lacking);
    const ImageInfo filled = lacking.Info();
    EXPECT_EQ(filled.shutterSpeed, 1.0f / 128);
    EXPECT_EQ(filled.isoSpeed, 200);
    EXPECT_EQ(filled.aperture, 4.0f);
    EXPECT_EQ(filled.brightness, -1.5f);
    EXPECT_EQ(filled.exposureBias, -0.5f);
    EXPECT_EQ(filled.maxAperture, 4.0f);

    ImageInfo given;
    given.makerId = kMakerOlympus;
    given.shutterSpeed = given.aperture = given.brightness = given.exposureBias = 9.0f;
    given.maxAperture = 9.0f;
    given.isoSpeed = 9;
    const Bytes file = lacking.Build();
    BytesContext context(file);
    context.ctx.info = given;
    const auto note = std::search(file.begin(), file.end(), "OLYMP\0"sv.begin(), "OLYMP\0"sv.end());
    SeekTo(context.ctx, static_cast<std::int32_t>(note - file.begin()));
    ParseMakerNote(context.ctx, 0);
    const ImageInfo& info = context.ctx.info;
    for (const float kept :
         {info.shutterSpeed, info.aperture, info.brightness, info.exposureBias, info.maxAperture})
        EXPECT_EQ(kept, 9.0f);
    EXPECT_EQ(info.isoSpeed, 9);
    EXPECT_EQ(FieldsOf(info).mainQuality, INT_UNSET);
    // What reads as 0 says nothing.
    OlympusFile empty;
    empty.Note().SRational(0x1000, {{0, 0}}).SRational(0x1001, {{0, 0}});
    EXPECT_EQ(empty.Info().shutterSpeed, FLOAT_UNSET);
    EXPECT_EQ(empty.Info().isoSpeed, INT_UNSET);
    for (const std::int64_t apex : {-2000, -4, 30, 2000}) {
        OlympusFile wild;
        wild.Note().SRational(0x1001, {{apex, 1}});
        EXPECT_EQ(wild.Info().isoSpeed, INT_UNSET) << apex;
    }
}

// A note of one directory in another: Equipment with a serial number, behind the offset base by
// `start` and the header's length.
Bytes NestedNote(Order order, std::string_view header, std::uint32_t start, std::uint16_t type) {
    constexpr std::uint32_t kOneEntry = 2 + 12 + 4;
    const std::uint32_t main = start + static_cast<std::uint32_t>(header.size());
    const std::uint32_t equipment = main + kOneEntry;
    const std::uint32_t serial = equipment + kOneEntry;
    const std::uint32_t count = type == kTypeUndefined ? kOneEntry : 1;
    ByteWriter writer(order);
    writer.Raw(FromText(header));
    writer.U16(1).U16(0x2010).U16(type).U32(count).U32(equipment).U32(0);
    writer.U16(1).U16(0x0101).U16(kTypeAscii).U32(10).U32(serial).U32(0);
    return writer.Raw(FromText("143008611\0"sv)).bytes;
}

TEST(OlympusNote, FormsAndBases) {
    constexpr std::uint16_t kTypes[] = {13, kTypeLong, kTypeUndefined};
    struct Case {
        const char* what;
        std::string_view header;
        Order fileOrder, noteOrder;
        bool isNew;
        const char* serial;
    };
    const Case cases[] = {
        {"new", "OLYMPUS\0II\3\0"sv, Order::kLittle, Order::kLittle, true, "143008611"},
        {"new in MM", "OLYMPUS\0II\3\0"sv, Order::kBig, Order::kLittle, true, "143008611"},
        {"new big", "OLYMPUS\0MM\0\3"sv, Order::kLittle, Order::kBig, true, "143008611"},
        {"old", "OLYMP\0\1\0"sv, Order::kLittle, Order::kLittle, false, "143008611"},
        {"old big", "OLYMP\0\2\0"sv, Order::kBig, Order::kBig, false, "143008611"},
        {"eighth byte", "OLYMPUS\1"sv, Order::kBig, Order::kBig, false, "143008611"},
        {"old offsets in a new note", "OLYMPUS\0II\3\0"sv, Order::kLittle, Order::kLittle, false,
         ""},
        {"new offsets in an old note", "OLYMP\0\1\0"sv, Order::kLittle, Order::kLittle, true, ""},
    };
    constexpr std::uint32_t kPosition = 40;
    constexpr std::uint32_t kTiff = 12;
    for (const Case& c : cases) {
        for (const std::uint16_t type : kTypes) {
            const std::uint32_t start = c.isNew ? 0 : kPosition - kTiff;
            const Bytes file =
                Bytes(kPosition, 0xEE) + NestedNote(c.noteOrder, c.header, start, type);
            const auto order = c.fileOrder == Order::kLittle ? kLittleEndian : kBigEndian;
            BytesContext context(file, order);
            context.ctx.info.makerId = kMakerOlympus;
            context.ctx.tiffBase = kTiff;
            SeekTo(context.ctx, kPosition);
            ParseMakerNote(context.ctx, kTiff);
            EXPECT_EQ(FieldText(FieldsOf(context.ctx.info).serialNumber), c.serial)
                << c.what << ' ' << type;
            EXPECT_EQ(context.ctx.byteOrder, order);
            EXPECT_EQ(context.ctx.tiffBase, kTiff);
        }
    }
}

TEST(OlympusNote, OtherHeadersStayClosed) {
    for (const std::string_view header : {"OM SYSTEM\0"sv, "olympus\0"sv, "OLYM"sv, ""sv}) {
        const ImageInfo info = BareNote(kMakerOlympus, header).Decode();
        EXPECT_EQ(info.hasMakerNote, 0) << header;
        EXPECT_EQ(info.makerFields[0], 0);
    }
}

Bytes Deliver(const Bytes& file) {
    BytesContext context(file);
    MemoryStream stream;
    context.ctx.outStream = &stream;
    ParseContainer(context.ctx, false);
    return stream.bytes;
}

void AddSettingsPreview(OlympusFile& file, std::uint32_t valid, std::uint32_t offset,
                        std::uint32_t length) {
    file.Directory(0x2020).Long(0x0100, {valid}).Long(0x0101, {offset}).Long(0x0102, {length});
}

TEST(OlympusNote, PreviewsAreDelivered) {
    static const Bytes jpeg = JpegStream(Segment(0xDB, Bytes(6)), 320, 240);
    static const auto size = static_cast<std::uint32_t>(jpeg.size());
    struct Case {
        const char* what;
        void (*fill)(OlympusFile&, std::uint32_t at);
        bool delivered;
    };
    using File = OlympusFile;
    using At = std::uint32_t;
    // clang-format off
    const Case cases[] = {
        {"settings", [](File& f, At at) { AddSettingsPreview(f, 1, at, size); }, true},
        {"invalid", [](File& f, At at) { AddSettingsPreview(f, 0, at, size); }, false},
        {"empty", [](File& f, At at) { AddSettingsPreview(f, 1, at, 0); }, false},
        {"far away", [](File& f, At) { AddSettingsPreview(f, 1, 0xFFFFFFF0, 0xFFFFFFFF); }, false},
        {"no frame there", [](File& f, At at) { AddSettingsPreview(f, 1, at - 7, size); }, false},
        {"main",
         [](File& f, At at) { f.Note().Short(0x1035, {1}).Long(0x1036, {at}).Long(0x1037, {size}); },
         true},
        {"length before offset",
         [](File& f, At at) { f.Note().Long(0x1037, {size}).Long(0x1036, {at}); }, true},
        {"zoomed", [](File& f, At at) { f.Note().Long(0x0F04, {at}).Long(0x0F05, {size}); }, true},
        {"Minolta-built",
         [](File& f, At at) { f.Note().Long(0x0088, {at}).Long(0x0089, {size}); }, true},
        {"inline", [](File& f, At) { f.Note().Undefined(0x0081, jpeg); }, true},
        {"thumbnail", [](File& f, At) { f.Note().Undefined(0x0100, jpeg); }, true},
        {"no picture", [](File& f, At) { f.Note().Undefined(0x0100, Bytes(20)); }, false},
    };
    // clang-format on
    for (const Case& c : cases) {
        const auto photo = [&](std::uint32_t offset) {
            OlympusFile file;
            c.fill(file, offset);
            file.Tiff().Trailer(jpeg);
            return file.Build();
        };
        const auto offset = static_cast<std::uint32_t>(photo(0).size() - jpeg.size());
        EXPECT_EQ(Deliver(photo(offset)), c.delivered ? jpeg : Bytes()) << c.what;
    }
}

// Cut at every byte, every byte altered: only the record is written, and a directory that leads to
// itself or says that it has the most entries ends.
TEST(OlympusNote, HostileNotes) {
    OlympusFile file;
    FillEveryTag(file);
    const Bytes whole = file.Build();
    const auto expectOnlyRecord = [](const Bytes& bytes) {
        const ImageInfo info = Parse(bytes).info;
        if (info.makerId != kMakerOlympus) return;
        EXPECT_TRUE(std::all_of(info.makerFields + sizeof(Fields), std::end(info.makerFields),
                                [](std::uint8_t byte) { return byte == 0; }));
    };
    for (std::size_t i = 0; i < whole.size(); ++i) {
        expectOnlyRecord({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(i)});
        Bytes altered = whole;
        for (const int value : {0x00, 0x7F, 0x80, 0xFF}) {
            altered[i] = static_cast<std::uint8_t>(value);
            expectOnlyRecord(altered);
        }
    }
    OlympusFile loop;
    IfdBuilder& self = loop.Directory(0x2010).Ascii(0x0101, "S").EntryCount(0xFFFF);
    constexpr std::uint16_t kDirectories[] = {0x2010, 0x2020, 0x2040, 0x3000};
    for (const std::uint16_t tag : kDirectories) {
        loop.Note().Link(tag, {&self});
        self.Link(tag, {&self});
    }
    loop.Note().EntryCount(0xFFFF);
    EXPECT_EQ(FieldText(FieldsOf(loop.Info()).serialNumber), "S");
}

}  // namespace
}  // namespace qmx::test
