// Fujifilm's MakerNote: always little-endian, with offsets from its own start.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "makernote/fujifilm_fields.h"
#include "makernote/maker_record.h"
#include "unit/bare_note.h"
#include "support/parse.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = FujifilmMakerFields;

// The header's 16-bit number says that the entries start at 20.
constexpr std::string_view kHeader = "FUJIFILM\x14\0........\0\0"sv;

class Note : public BareNote {
public:
    Note() : BareNote(kMakerFujifilm, kHeader, 0, Order::kLittle, 2) {}
};

Fields FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

// Every tag once; the values of the numbers count up with the fields.
void AddEveryTag(IfdBuilder& entries) {
    // clang-format off
    entries.Undefined(0x0000, FromText("0130")).Ascii(0x1000, "NORMAL ").Short(0x1001, {1})
        .Short(0x1002, {2}).Short(0x1003, {3}).Short(0x1004, {4}).Short(0x1005, {5})
        .Short(0x1006, {6})
        .Value(0x100A, 9, 2, ByteWriter(Order::kLittle).U32(7).U32(0xFFFFFFF8).bytes)
        .Short(0x100B, {9}).Short(0x1010, {10}).SRational(0x1011, {{-2, 3}}).Short(0x1020, {12})
        .Short(0x1021, {13}).Short(0x1022, {14}).Short(0x1023, {15, 16}).Short(0x1030, {17})
        .Short(0x1031, {18}).Short(0x1100, {19}).Short(0x1101, {20}).Short(0x1210, {21})
        .Short(0x1300, {22}).Short(0x1301, {23}).Short(0x1302, {24}).Short(0x1400, {25})
        .Short(0x1401, {26}).Short(0x1402, {27}).Short(0x1403, {28}).Rational(0x1404, {{299, 10}})
        .Rational(0x1405, {{300, 10}}).Rational(0x1406, {{28, 10}}).Rational(0x1407, {{4, 1}})
        .Long(0x4005, {33, 34, 35, 36}).Short(0x4006, {99});
    // clang-format on
}

// clang-format off
constexpr Fields kEveryField = {
    .fujiVersion = "0130", .fujiQuality = "NORMAL ", .fujiSharpness = 1, .fujiWhiteBalance = 2,
    .fujiSaturation = 3, .fujiContrast = 4, .fujiColorTemperature = 5, .fujiContrast2 = 6,
    .fujiWbFineTune1 = 7, .fujiWbFineTune2 = -8, .fujiNoiseReduction = 9, .fujiFlashMode = 10,
    .fujiFlashExposureComp = -2.0f / 3, .fujiMacro = 12, .fujiFocusMode = 13, .fujiAfMode = 14,
    .fujiFocusPixel1 = 15, .fujiFocusPixel2 = 16, .fujiSlowSync = 17, .fujiPictureMode = 18,
    .fujiAutoBracketing = 19, .fujiSequenceNumber = 20, .fujiTag1210 = 21, .fujiBlurWarning = 22,
    .fujiFocusWarning = 23, .fujiExposureWarning = 24, .fujiDynamicRange = 25,
    .fujiFilmMode = 26, .fujiDynamicRangeSetting = 27, .fujiDevelopmentDynamicRange = 28,
    .fujiMinFocalLength = 29, .fujiMaxFocalLength = 30, .fujiMaxApertureAtMinFocal = 2.8f,
    .fujiMaxApertureAtMaxFocal = 4.0f, .fujiTag4005 = {33, 34, 35, 36},
    .fujiReserved = INT_UNSET};
// clang-format on

TEST(FujifilmNote, EveryTagHasItsField) {
    Note note;
    AddEveryTag(note.Entries());
    const ImageInfo info = note.Decode();
    EXPECT_EQ(info.hasMakerNote, 1);
    EXPECT_TRUE(HoldsRecord(info, kEveryField));
}

TEST(FujifilmNote, BigEndianFileGoesOnBigEndian) {
    Note note;
    AddEveryTag(note.Entries());
    Bytes bytes = note.Build();
    bytes.erase(bytes.begin(), bytes.begin() + Note::kPosition);
    TiffBuilder tiff(Order::kBig);
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    ifd.Ascii(0x010F, "FUJIFILM").Ascii(0x0110, "FinePix S5Pro").Link(0x8769, {&exif});
    exif.Undefined(0x927C, bytes).Rational(0x829A, {{1, 8}}).Long(0xA002, {0x01020304});
    const ImageInfo info = Parse(tiff.Build()).info;
    EXPECT_TRUE(HoldsRecord(info, kEveryField));
    EXPECT_EQ(info.pixelXDimension, 0x01020304);
    EXPECT_EQ(info.exposureTime, 0.125f);
}

TEST(FujifilmNote, StartValues) {
    Note note;
    const Fields fields = FieldsOf(note.Decode());
    EXPECT_EQ(fields.fujiVersion[0], 0);
    EXPECT_EQ(fields.fujiSharpness, INT_UNSET);
    EXPECT_EQ(fields.fujiWbFineTune1, INT_UNSET);
    EXPECT_EQ(fields.fujiWbFineTune2, 0);
    EXPECT_EQ(fields.fujiFlashExposureComp, FLOAT_UNSET);
    EXPECT_EQ(fields.fujiFocusPixel2, INT_UNSET);
    EXPECT_EQ(fields.fujiTag4005[0], INT_UNSET);
    EXPECT_EQ(fields.fujiTag4005[3], 0);
    EXPECT_EQ(fields.fujiReserved, INT_UNSET);
}

TEST(FujifilmNote, HeaderSaysWhereTheEntriesStart) {
    const auto sharpness = [](std::string_view header) {
        BareNote note(kMakerFujifilm, header);
        note.Entries().Short(0x1001, {3});
        const ImageInfo info = note.Decode();
        EXPECT_EQ(info.hasMakerNote, 1);
        return FieldsOf(info).fujiSharpness;
    };
    EXPECT_EQ(sharpness("FUJIFILM\x0C\0\0\0"sv), 3);
    EXPECT_EQ(sharpness("FUJIFILM\x14\0\0\0\0\0\0\0\0\0\0\0"sv), 3);
    EXPECT_EQ(sharpness("FUJIFILM\x14\0\0\0"sv), INT_UNSET);
    EXPECT_EQ(sharpness("FUJIFILM\xFF\x7F\0\0"sv), INT_UNSET);  // past the end
}

TEST(FujifilmNote, TextsFillTheirFields) {
    for (const std::size_t length : {15u, 16u, 17u, 31u, 32u, 33u, 300u}) {
        Note note;
        note.Entries().Undefined(0x0000, FromText(std::string(length, 'v')));
        note.Entries().Undefined(0x1000, FromText(std::string(length, 'q')));
        const Fields fields = FieldsOf(note.Decode());
        EXPECT_EQ(fields.fujiVersion, std::string(std::min<std::size_t>(length, 15), 'v'));
        EXPECT_EQ(fields.fujiQuality, std::string(std::min<std::size_t>(length, 31), 'q'));
        EXPECT_EQ(fields.fujiSharpness, INT_UNSET);
    }
    Note blank;
    blank.Entries().Ascii(0x1000, "       ");
    EXPECT_EQ(FieldsOf(blank.Decode()).fujiQuality[0], 0);
}

TEST(FujifilmNote, OddTypesAndCounts) {
    Note note;
    note.Entries()
        .Ascii(0x1001, "3")                // a text is no number
        .Raw(0x1002, 3, 0, 256)            // a single value is read all the same
        .Raw(0x1003, 3, 0x80000000, 1)     // a negative count skips the entry
        .Raw(0x1004, 3, 3, 0x7FFFFF00)     // as does a value that lies nowhere
        .Raw(0x1005, 3, 0x40000000, 5600)  // a size beyond 31 bits counts as fitting
        .Raw(0x100A, 9, 0, 5)              // an array of nothing
        .Raw(0x1023, 3, 0, 5)
        .Raw(0x1031, 99, 1, 5)  // an unknown type
        .Rational(0x1400, {{7, 2}})
        .Raw(0x4005, 4, 0, 5);
    const Fields fields = FieldsOf(note.Decode());
    EXPECT_EQ(fields.fujiSharpness, 0);
    EXPECT_EQ(fields.fujiWhiteBalance, 256);
    EXPECT_EQ(fields.fujiSaturation, INT_UNSET);
    EXPECT_EQ(fields.fujiContrast, INT_UNSET);
    EXPECT_EQ(fields.fujiColorTemperature, 5600);
    EXPECT_EQ(fields.fujiWbFineTune1, INT_UNSET);
    EXPECT_EQ(fields.fujiWbFineTune2, 0);
    EXPECT_EQ(fields.fujiFocusPixel1, INT_UNSET);
    EXPECT_EQ(fields.fujiPictureMode, 0);
    EXPECT_EQ(fields.fujiDynamicRange, 3);
    EXPECT_EQ(fields.fujiTag4005[0], INT_UNSET);
}

TEST(FujifilmNote, HostileBytes) {
    Note note;
    AddEveryTag(note.Entries());
    note.ExpectHarmless(sizeof(Fields));
}

}  // namespace
}  // namespace qmx::test
