// Nikon's MakerNote, as whole files and alone.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "makernote/maker_record.h"
#include "makernote/nikon_cipher.h"
#include "makernote/nikon_fields.h"
#include "parse/containers/container.h"
#include "support/memory_stream.h"
#include "support/parse.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = NikonMakerFields;

constexpr std::string_view kHeader = "Nikon\0\2\x10\0\0"sv;

// A photo whose note has this byte order; the file's own is the other one.
class NikonFile {
public:
    explicit NikonFile(Order order = Order::kBig, std::string_view model = "NIKON D80")
        : order_(order), model_(model), inner_(order), note_(inner_.Ifd()) {}

    IfdBuilder& Note() { return note_; }
    IfdBuilder& Below() { return inner_.SubIfd(); }
    NikonFile& Iso(std::uint32_t iso) {
        iso_ = iso;
        return *this;
    }
    Bytes Build() {
        TiffBuilder tiff(order_ == Order::kBig ? Order::kLittle : Order::kBig);
        IfdBuilder& ifd = tiff.Ifd();
        IfdBuilder& exif = tiff.SubIfd();
        ifd.Ascii(0x010F, "NIKON CORPORATION").Ascii(0x0110, model_).Link(0x8769, {&exif});
        if (iso_ != 0) exif.Short(0x8827, {iso_});
        exif.Undefined(0x927C, FromText(kHeader) + inner_.Build()).Long(0xA002, {4000});
        return tiff.Build();
    }
    ImageInfo Info() {
        const ImageInfo info = Parse(Build()).info;
        EXPECT_EQ(info.pixelXDimension, 4000);  // the Exif directory goes on
        return info;
    }

private:
    Order order_;
    std::string model_;
    TiffBuilder inner_;
    IfdBuilder& note_;
    std::uint32_t iso_ = 0;
};

const Fields& FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

// Bytes that stand in no byte order of the note.
Bytes PictureControl(std::string_view version, const Bytes& settings) {
    return ByteWriter(Order::kBig)
        .Raw(FromText(version))
        .Raw(FromText("VIVID"))
        .Pad(24)
        .Raw(FromText("STANDARD  "))
        .Pad(48)
        .Raw(settings)
        .bytes;
}

void AddEveryTag(IfdBuilder& note, Order order) {
    const auto words = [order] { return ByteWriter(order); };
    // clang-format off
    note.Undefined(0x0001, FromText("0210")).Short(0x0002, {0, 320}).Ascii(0x0003, "COLOR ")
        .Ascii(0x0004, "FINE   ").Ascii(0x0005, "AUTO        ").Ascii(0x0006, "MED.H ")
        .Ascii(0x0007, "AF-S  ").Ascii(0x0008, "NORMAL      ").Ascii(0x0009, "Built-in,TTL&Comdr.")
        .Value(0x000B, 8, 2, words().U16(0xFFFE).U16(3).bytes)
        .Undefined(0x000D, {0xFE, 1, 6, 0}).Undefined(0x000E, {5, 1, 12, 0})
        .Ascii(0x000F, "MANUAL").Undefined(0x0012, {0xFB, 1, 3, 0}).Short(0x0013, {1, 6400})
        .Undefined(0x0017, {1, 1, 0, 0}).Undefined(0x0018, {0x80, 2, 0xFF, 0})
        .SRational(0x0019, {{-2, 6}}).Short(0x001B, {2, 1, 1, 1, 1, 0, 0}).Ascii(0x001D, "2188172 ")
        .Short(0x001E, {2}).Undefined(0x001F, {48, 49, 48, 48, 1, 0, 2, 0}).Short(0x0022, {65535})
        .Undefined(0x0023, PictureControl("0100", {2, 0x81, 0x84, 0, 1, 0xFF, 0x7F, 0x80, 0xFF}))
        .Undefined(0x0025, {60, 1, 12, 0, 1, 4, 0, 0}).Short(0x002A, {3})
        .Undefined(0x002B, {48, 49, 48, 48, 1, 0, 0, 0}).Short(0x0034, {48})
        .Undefined(0x0035, {48, 49, 48, 48, 1, 2, 3, 0}).Long(0x0037, {1234})
        .Ascii(0x0080, "CONTRAST(+)").Ascii(0x0081, "CS").Ascii(0x0082, "FISHEYE 1    ")
        .Byte(0x0083, {14}).Rational(0x0084, {{18}, {200}, {35, 10}, {56, 10}})
        .Rational(0x0085, {{15, 10}}).Rational(0x0086, {{2}}).Byte(0x0087, {9})
        .Undefined(0x0088, {1, 3, 4, 8}).Short(0x0089, {33}).Undefined(0x008B, {0x80, 1, 12, 0})
        .Ascii(0x008D, "MODE1a  ").Ascii(0x008F, "BEACH/SNOW").Ascii(0x0090, "SPEEDLIGHT ")
        .Value(0x0092, 8, 1, words().U16(0xFFF7).U16(0).bytes).Short(0x0093, {3})
        .Value(0x0094, 8, 1, words().U16(0xFFFD).U16(0).bytes).Ascii(0x0095, "FPNR")
        .Undefined(0x0098, {}).Ascii(0x009C, "GUIDE").Short(0x009D, {2})
        .Short(0x009E, {3, 7, 0, 0, 0, 0, 0, 0, 0, 5}).Ascii(0x00A0, "NO= 00002539 ")
        .Long(0x00A5, {77}).Long(0x00A6, {4294965247}).Long(0x00A7, {4044})
        .Ascii(0x00A9, "MORE VIVID").Ascii(0x00AA, "ENHANCED").Ascii(0x00AB, "SPORT")
        .Ascii(0x00AC, "VR-ON").Ascii(0x00AD, "STANDARD")
        .Undefined(0x00B0, words().Raw(FromText("0100")).U32(1).U32(3).U32(0).bytes)
        .Short(0x00B1, {4}).Undefined(0x00B6, words().U16(2008).Raw({7, 31, 12, 34, 56, 0}).bytes)
        .Undefined(0x00B7, {48, 49, 48, 48, 0, 8, 1, 23})
        .Undefined(0x00B8, {48, 49, 48, 48, 0, 0, 0, 101, 0x12, 0x34})
        .Undefined(0x00B9, {1, 0, 0xFB, 0}).Short(0x00BF, {1});
    // clang-format on
}

// clang-format off
constexpr Fields kEveryField = {
    .nikonVersion = {'0', '2', '1', '0'}, .nikonColorMode = "COLOR", .nikonQuality = "FINE",
    .nikonWhiteBalance = "AUTO", .nikonSharpening = "MED.H", .nikonFocusMode = "AF-S",
    .nikonFlashSetting = "NORMAL", .nikonFlashType = "Built-in,TTL&Comdr.",
    .nikonIsoSelection = "MANUAL", .nikonSerialNumber = "2188172",
    .nikonImageAdjustment = "CONTRAST(+)", .nikonToneComp = "CS",
    .nikonAuxiliaryLens = "FISHEYE 1", .nikonColorHue = "MODE1a", .nikonSceneMode = "BEACH/SNOW",
    .nikonLightSource = "SPEEDLIGHT", .nikonNoiseReduction = "FPNR", .nikonSceneAssist = "GUIDE",
    .nikonSerialNumber2 = "NO= 00002539", .nikonImageOptimization = "MORE VIVID",
    .nikonSaturation = "ENHANCED", .nikonVariProgram = "SPORT", .nikonVrText = "VR-ON",
    .nikonAfResponse = "STANDARD", .nikonPictureControlName = "VIVID",
    .nikonPictureControlBase = "STANDARD", .nikonWbFineTune = {-2, 3}, .nikonIsoSetting = 6400,
    .nikonCropHiSpeed = 2, .nikonColorSpace = 2, .nikonVr = 1, .nikonVrMode = 2,
    .nikonActiveDLighting = 65535, .nikonIsoExpansion = 260, .nikonVignetteControl = 3,
    .nikonAutoDistortion = 1, .nikonShutterMode = 48, .nikonHdr = 1, .nikonHdrLevel = 2,
    .nikonHdrSmoothing = 3, .nikonMechanicalShutterCount = 1234, .nikonLensType = 14,
    .nikonFlashMode = 9, .nikonAfAreaMode = 1, .nikonAfPoint = 3, .nikonAfPointsInFocus = 0x408,
    .nikonShootingMode = 33, .nikonHueAdjustment = -9, .nikonNefCompression = 3,
    .nikonSaturationStep = -3, .nikonDateStamp = 2, .nikonImageCount = 77,
    .nikonShutterCount = 4044, .nikonMultiExposureMode = 1, .nikonMultiExposureShots = 3,
    .nikonHighIsoNr = 4, .nikonAfInfo2Method = 0, .nikonAfAreaMode2 = 8, .nikonPrimaryAfPoint = 23,
    .nikonFolderNumber = 101, .nikonFileNumber = 0x1234, .nikonAfTune = 1, .nikonAfTuneStep = -5,
    .nikonSilent = 1, .nikonPictureControlAdjust = 2, .nikonPictureControlQuick = 4,
    .nikonPcSharpness = 16, .nikonPcContrast = kNikonStepAuto, .nikonPcBrightness = kNikonStepUser,
    .nikonPcHue = -4, .nikonFilterEffect = 128, .nikonProgramShift = -2.0f / 6,
    .nikonExposureDifference = 5.0f / 12, .nikonFlashComp = -5.0f / 3,
    .nikonExternalFlashComp = 0, .nikonFlashBracket = 256, .nikonExposureBracket = -2.0f / 6,
    .nikonLensFStops = 128.0f / 12, .nikonLensRange = {18, 200, 3.5f, 5.6f},
    .nikonManualFocusDistance = 1.5f, .nikonDigitalZoom = 2,
    .nikonRetouchHistory = {3, 7, 0, 0, 0, 0, 0, 0, 0, 5},
    .nikonPowerUpTime = {2008, 7, 31, 12, 34, 56}};
// clang-format on

TEST(NikonNote, EveryTagHasItsField) {
    for (const Order order : {Order::kLittle, Order::kBig}) {
        NikonFile file(order);
        AddEveryTag(file.Note(), order);
        const ImageInfo info = file.Info();
        EXPECT_EQ(info.hasMakerNote, 1);
        EXPECT_EQ(info.isoSpeed, 320);
        EXPECT_TRUE(HoldsRecord(info, kEveryField));
        EXPECT_EQ(file.Iso(200).Info().isoSpeed, 200);
    }
    EXPECT_TRUE(HoldsRecord(NikonFile().Info(), Fields{}));
}

TEST(NikonNote, RulesOfSingleTags) {
    using Note = IfdBuilder;
    struct Case {
        const char* what;
        void (*fill)(Note&);
        Fields fields;
        const char* model = "NIKON D80";
    };
    // clang-format off
    const Case cases[] = {
        {"texts fill their fields",
         [](Note& n) { n.Ascii(0x0004, "01234567890123").Ascii(0x0007, "AF-C  "); },
         {.nikonQuality = "01234567890", .nikonFocusMode = "AF-C"}},
        {"a speed of 0", [](Note& n) { n.Short(0x0002, {0, 0}).Short(0x0013, {1, 0}); }, {}},
        {"half a speed", [](Note& n) { n.Short(0x0002, {200}).Short(0x0013, {200}); }, {}},
        {"one step of fine tuning", [](Note& n) { n.Short(0x000B, {4}); },
         {.nikonWbFineTune = {4, INT_UNSET}}},
        {"a value without its divisor",
         [](Note& n) { n.Undefined(0x000D, {1, 1}).Undefined(0x0012, {1, 1, 3}); },
         {.nikonFlashComp = 1.0f / 3}},
        {"distances of 0",
         [](Note& n) {
             n.Rational(0x0084, {{50}, {50}, {18, 10}, {0, 0}}).Rational(0x0085, {{0, 0}});
         },
         {.nikonLensRange = {50, 50, 1.8f, FLOAT_UNSET}}},
        {"three numbers of a range",
         [](Note& n) { n.Rational(0x0084, {{50}, {50}, {18, 10}}); }, {}},
        {"points of a reflex camera", [](Note& n) { n.Raw(0x0088, 4, 1, 0x00010203); },
         {.nikonAfAreaMode = 0, .nikonAfPoint = 1, .nikonAfPointsInFocus = 0x203}, "NIKON Df"},
        {"points of a compact camera", [](Note& n) { n.Undefined(0x0088, {0, 1, 2, 3}); },
         {.nikonAfAreaMode = 0, .nikonAfPoint = 1, .nikonAfPointsInFocus = 0x302}, "E5700"},
        {"a short block of points", [](Note& n) { n.Undefined(0x0088, {0, 1, 2}); },
         {.nikonAfAreaMode = 0, .nikonAfPoint = 1}},
        {"a short block of HDR", [](Note& n) { n.Undefined(0x0035, {48, 49, 48, 48, 1, 2}); }, {}},
        {"steps in quarters",
         [](Note& n) {
             n.Undefined(0x0023, PictureControl("0200", {1, 0x7F, 0, 0x85, 0, 0xFF, 0, 0x7B, 0, 0,
                                                         0, 0x80, 0, 0x81, 0, 129, 255}));
         },
         {.nikonPictureControlName = "VIVID", .nikonPictureControlBase = "STANDARD",
          .nikonPictureControlAdjust = 1, .nikonPictureControlQuick = -4, .nikonPcSharpness = 5,
          .nikonPcContrast = -5, .nikonPcBrightness = kNikonStepAuto, .nikonPcSaturation = 0,
          .nikonPcHue = 1, .nikonFilterEffect = 129}},
        {"names of a third version",
         [](Note& n) {
             const Bytes names = ByteWriter(Order::kBig).Raw(FromText("0300")).Pad(8)
                 .Raw(FromText("FLAT")).Pad(28).Raw(Bytes(20, 'B')).Pad(108).bytes;
             n.Undefined(0x0023, names);
         },
         {.nikonPictureControlName = "FLAT", .nikonPictureControlBase = "BBBBBBBBBBBBBBBBBBBB"}},
        {"settings of a compact camera",
         [](Note& n) { n.Undefined(0x00BD, PictureControl("0100", {0})); },
         {.nikonPictureControlName = "VIVID", .nikonPictureControlBase = "STANDARD",
          .nikonPictureControlAdjust = 0}},
        {"unknown versions",
         [](Note& n) {
             n.Undefined(0x0023, PictureControl("0400", {1, 2}));
             n.Undefined(0x00B7, {48, 51, 48, 48, 0, 8, 1, 23});
         }, {}},
        {"exposures in little-endian",
         [](Note& n) { n.Undefined(0x00B0, FromText("0101\2\0\0\0\5\0\0\0"sv)); },
         {.nikonMultiExposureMode = 2, .nikonMultiExposureShots = 5}},
        {"files in little-endian",
         [](Note& n) { n.Undefined(0x00B8, {0, 0, 0, 0, 0, 0, 100, 0, 42, 0}); },
         {.nikonFolderNumber = 100, .nikonFileNumber = 42}},
        {"no such folder",
         [](Note& n) { n.Undefined(0x00B8, {0, 0, 0, 0, 0, 0, 9, 9, 42, 0}); }, {}},
        {"releases not known", [](Note& n) { n.Long(0x00A7, {4294965247}); }, {}},
        {"values past the end",
         [](Note& n) {
             n.Raw(0x0004, 2, 9, 0x70000000).Raw(0x0023, 7, 58, 0x70000000);
             n.Raw(0x0098, 7, 31, 0xFFFFFFFF);
         }, {}},
        {"negative and wrapping counts",
         [](Note& n) {
             n.Raw(0x0004, 2, 0x80000000, 0).Raw(0x001E, 4, 0x40000000, 2).EntryCount(65535);
         },
         {.nikonColorSpace = 2}},
    };
    // clang-format on
    for (const Case& c : cases) {
        NikonFile file(Order::kBig, c.model);
        c.fill(file.Note());
        const ImageInfo info = file.Info();
        EXPECT_TRUE(HoldsRecord(info, c.fields)) << c.what;
        EXPECT_EQ(info.isoSpeed, INT_UNSET) << c.what;
    }
}

Bytes FromHex(std::string_view text) {
    Bytes bytes;
    for (std::size_t i = 0; i < text.size(); i += 2)
        bytes.push_back(
            static_cast<std::uint8_t>(std::stoi(std::string(text.substr(i, 2)), nullptr, 16)));
    return bytes;
}

// From photos of four cameras.
TEST(NikonNote, LensDataOfRealCameras) {
    struct Case {
        const char* model;
        const char* serial;
        std::uint32_t count;
        std::uint32_t lensType;
        const char* stored;
        const char* plain;
        const char* idText;
    };
    // clang-format off
    const Case cases[] = {
        {"NIKON D2Hs", "3001006", 2, 2,
         "30323031cbcab032b6aca8abcd702ebba7f020a7420a5ded7fee30452de876",
         "3032303122161209114a507658505014147a1416432e470e00000000000000", "7658505014147A02"},
        {"NIKON D90", "2188172", 4044, 2,
         "303230342abd0780f10b21b990e594bf783be55615d0c61f98d3fd161e15fbd094",
         "303230342024100411204437364837372424342417512953000000000000000000", "3648373724243402"},
        {"NIKON D300", "3105364", 241575, 14,
         "3032303364f38b3d96fd16d61b08709559a5ab1c14f75bf4a9cee5e8e6cca671",
         "30323033133b8100f78b6aa5403c8e2c3ca73b136b1769810000010305000000", "A5403C8E2C3CA70E"},
        {"NIKON Z 6", "6078248", 174, 14,
         "30383031fe6f66361314c725551895daeaadc7036c5aca0985cd796c14f7156e02d1db20a05b5182",
         "30383031 0e248784ad1140616977485c8024247b2409531353008600000000000000000000000000",
         "77485C8024247B0E"},
    };
    // clang-format on
    for (const Case& c : cases) {
        std::string plain = c.plain;
        plain.erase(std::remove(plain.begin(), plain.end(), ' '), plain.end());
        const Bytes stored = FromHex(c.stored);
        Bytes deciphered = stored;
        DecipherNikon(std::span(deciphered).subspan(4),
                      static_cast<std::uint32_t>(std::stoul(c.serial)), c.count);
        EXPECT_EQ(deciphered, FromHex(plain)) << c.model;

        int order[] = {0, 1, 2, 3};
        do {
            NikonFile file(Order::kBig, c.model);
            for (const int tag : order) {
                if (tag == 0) file.Note().Ascii(0x001D, c.serial);
                if (tag == 1) file.Note().Byte(0x0083, {c.lensType});
                if (tag == 2) file.Note().Undefined(0x0098, stored);
                if (tag == 3) file.Note().Long(0x00A7, {c.count});
            }
            const ImageInfo info = file.Info();
            EXPECT_EQ(FieldText(FieldsOf(info).nikonLensIdText), c.idText) << c.model;
            EXPECT_EQ(FieldsOf(info).nikonLensIdNumber, FromHex(c.idText)[0]) << c.model;
        } while (std::next_permutation(std::begin(order), std::end(order)));
    }
}

TEST(NikonNote, LensDataOfEveryVersion) {
    constexpr std::uint32_t kCount = 4294965247;  // a key all the same
    struct Case {
        const char* version;
        std::size_t lens, name, zNumber;  // 0: none
        const char* serial = "1234567";
        std::uint32_t key = 1234567;
        const char* model = "NIKON D80";
    };
    const Case cases[] = {
        {"0100", 6, 0, 0},
        {"0101", 11, 0, 0},
        {"0201", 11, 0, 0},
        {"0202", 11, 0, 0},
        {"0203", 11, 0, 0},
        {"0204", 12, 0, 0},
        {"0400", 0, 394, 0},
        {"0401", 0, 394, 0},
        {"0402", 0, 395, 0},
        {"0403", 0, 684, 0},
        {"0800", 13, 0, 48},
        {"0801", 13, 0, 48},
        {"0802", 13, 0, 48},
        {"0201", 11, 0, 0, "D50", 0x22, "NIKON D50"},
        {"0201", 11, 0, 0, "       ", 0x60, "NIKON D200"},
        {"0201", 11, 0, 0, "12A4567", 0x60},
        {"0201", 11, 0, 0, "1234567 ", 0x60},
        {"0205", 0, 0, 0},
        {"0900", 0, 0, 0},
    };
    for (const Case& c : cases) {
        const std::size_t end = std::max(
            {c.lens + 7, c.name != 0 ? c.name + 64 : 0, c.zNumber != 0 ? c.zNumber + 2 : 0});
        Bytes block(end, 0);
        std::copy_n(c.version, 4, block.begin());
        const Bytes lens = {0x7A, 0x3C, 0x1F, 0x37, 0x30, 0x30, 0x7E};
        const std::string name = "1 NIKKOR 10mm f/2.8   ";
        if (c.lens != 0)
            std::copy(lens.begin(), lens.end(), block.begin() + static_cast<int>(c.lens));
        if (c.name != 0)
            std::copy(name.begin(), name.end(), block.begin() + static_cast<int>(c.name));
        if (c.zNumber != 0) block[c.zNumber] = 0x01, block[c.zNumber + 1] = 0x09;
        if (c.version[1] >= '2') DecipherNikon(std::span(block).subspan(4), c.key, kCount);
        const auto decode = [&](const Bytes& data, bool hasSerial, bool hasCount, bool hasType) {
            NikonFile file(Order::kLittle, c.model);
            file.Note().Undefined(0x0098, data);
            if (hasSerial) file.Note().Ascii(0x001D, c.serial);
            if (hasCount) file.Note().Long(0x00A7, {kCount});
            if (hasType) file.Note().Byte(0x0083, {6});
            return FieldsOf(file.Info());
        };
        const Fields whole = decode(block, true, true, true);
        EXPECT_EQ(FieldText(whole.nikonLensIdText), c.lens != 0 ? "7A3C1F3730307E06" : "")
            << c.version;
        EXPECT_EQ(whole.nikonLensIdNumber, c.lens != 0 ? 0x7A : INT_UNSET) << c.version;
        EXPECT_EQ(FieldText(whole.nikonLensText), c.name != 0 ? "1 NIKKOR 10mm f/2.8" : "")
            << c.version;
        EXPECT_EQ(whole.nikonZLensNumber, c.zNumber != 0 ? 0x0901 : INT_UNSET) << c.version;

        const Fields untyped = decode(block, true, true, false);
        EXPECT_EQ(FieldText(untyped.nikonLensIdText), "") << c.version;
        EXPECT_EQ(untyped.nikonLensIdNumber, whole.nikonLensIdNumber) << c.version;

        const Fields cut = decode(Bytes(block.begin(), block.end() - 1), true, true, true);
        EXPECT_EQ(FieldText(cut.nikonLensText), "") << c.version;
        EXPECT_EQ(cut.nikonZLensNumber, INT_UNSET) << c.version;
        if (c.zNumber == 0) {
            EXPECT_EQ(cut.nikonLensIdNumber, INT_UNSET) << c.version;
        }

        if (c.version[1] < '2') continue;
        for (const bool hasSerial : {false, true}) {
            const Fields keyless = decode(block, hasSerial, !hasSerial, true);
            EXPECT_EQ(keyless.nikonLensIdNumber, INT_UNSET) << c.version;
            EXPECT_EQ(FieldText(keyless.nikonLensText), "") << c.version;
            EXPECT_EQ(keyless.nikonZLensNumber, INT_UNSET) << c.version;
        }
    }
}

// No lens, or a manual one without contacts; a name under another cipher.
TEST(NikonNote, LensDataThatSayNothing) {
    for (const std::uint32_t lensType : {6u, 1u}) {
        NikonFile empty;
        empty.Note().Byte(0x0083, {lensType}).Undefined(0x0098, FromText("0100") + Bytes(16, 0));
        const Fields fields = FieldsOf(empty.Info());
        EXPECT_EQ(fields.nikonLensIdNumber, lensType == 1 ? 0 : INT_UNSET);
        EXPECT_EQ(FieldText(fields.nikonLensIdText), lensType == 1 ? "0000000000000001" : "");
    }
    Bytes native = FromText("0800") + Bytes(104, 0);
    DecipherNikon(std::span(native).subspan(4), 1, 1);
    NikonFile z;
    z.Note().Ascii(0x001D, "1").Byte(0x0083, {1}).Undefined(0x0098, native).Long(0x00A7, {1});
    EXPECT_EQ(FieldText(FieldsOf(z.Info()).nikonLensIdText), "");

    NikonFile garbled;
    garbled.Note().Ascii(0x001D, "1").Undefined(0x0098, FromText("0400") + Bytes(454, 0x55));
    garbled.Note().Long(0x00A7, {1});
    EXPECT_EQ(FieldText(FieldsOf(garbled.Info()).nikonLensText), "");
}

Bytes Deliver(const Bytes& file) {
    BytesContext context(file);
    context.ctx.wantPrimary = 1;
    MemoryStream stream;
    context.ctx.outStream = &stream;
    ParseContainer(context.ctx, false);
    return stream.bytes;
}

TEST(NikonNote, PreviewIsDelivered) {
    const Bytes jpeg = JpegStream(Segment(0xDB, Bytes(6)), 570, 375);
    const auto length = static_cast<std::uint32_t>(jpeg.size());
    const auto photo = [&](const Bytes& picture, std::uint32_t stated, int links) {
        NikonFile file;
        IfdBuilder& preview = file.Below();
        for (int i = 0; i < links; ++i) file.Note().Link(0x0011, {&preview});
        preview.Long(0x0103, {6}).Data(0x0201, picture).Long(0x0202, {stated});
        return file.Build();
    };
    EXPECT_EQ(Deliver(photo(jpeg, length, 1)), jpeg);
    EXPECT_EQ(Deliver(ExifJpeg(photo(jpeg, length, 1))), jpeg);
    EXPECT_EQ(Deliver(photo(jpeg, length, 3)), jpeg);  // one record
    EXPECT_EQ(Deliver(photo(jpeg, 0, 1)), Bytes());
    EXPECT_EQ(Deliver(photo(jpeg, 0x7FFFFFFF, 1)), Bytes());
    EXPECT_EQ(Deliver(photo(Bytes(40, 0), 40, 1)), Bytes());
    NikonFile two;  // the larger one is cut off: the choice is among the others
    IfdBuilder& cut = two.Below();
    IfdBuilder& whole = two.Below();
    two.Note().Link(0x0011, {&cut}).Link(0x0011, {&whole});
    cut.Data(0x0201, JpegStream({}, 3000, 2000)).Long(0x0202, {1 << 20});
    whole.Data(0x0201, jpeg).Long(0x0202, {length});
    EXPECT_EQ(Deliver(two.Build()), jpeg);
    for (const std::uint32_t nowhere : {0u, 8u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        NikonFile file;
        file.Note().Long(0x0011, {nowhere}).Short(0x001E, {1});
        EXPECT_EQ(Deliver(file.Build()), Bytes()) << nowhere;
        EXPECT_EQ(FieldsOf(file.Info()).nikonColorSpace, 1) << nowhere;
    }
}

// The E950's note: entries right behind 8 bytes, of another numbering.
TEST(NikonNote, NotesOfTheOldestFormAreLeftAlone) {
    const Bytes note = FromText("Nikon\0\1\0\2\0"sv) + Bytes(200, 0x11);
    TiffBuilder tiff(Order::kLittle);
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    ifd.Ascii(0x010F, "NIKON").Ascii(0x0110, "E950").Link(0x8769, {&exif});
    exif.Undefined(0x927C, note).Long(0xA002, {4000});
    const ImageInfo info = Parse(tiff.Build()).info;
    EXPECT_EQ(info.hasMakerNote, 1);
    EXPECT_EQ(info.pixelXDimension, 4000);
    EXPECT_TRUE(HoldsRecord(info, Fields{}));
}

TEST(NikonNote, SurvivesEveryCutAndChange) {
    for (const Order order : {Order::kLittle, Order::kBig}) {
        constexpr std::string_view kLittle = "Nikon\0\2\x10\0\0II*\0\10\0\0\0"sv;
        constexpr std::string_view kBig = "Nikon\0\2\x10\0\0MM\0*\0\0\0\10"sv;
        BareNote note(kMakerNikon, order == Order::kLittle ? kLittle : kBig, 4108, order);
        AddEveryTag(note.Entries(), order);
        note.Entries().Long(0x0011, {8}).Undefined(0x0098, FromText("0204") + Bytes(29, 0xA5));
        EXPECT_EQ(FieldsOf(note.Decode()).nikonShutterCount, 4044);
        note.ExpectHarmless(sizeof(Fields));
    }
}

}  // namespace
}  // namespace qmx::test
