// Canon's MakerNote, as whole files, and its arrays by themselves.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <string>

#include "makernote/canon_arrays.h"
#include "makernote/canon_fields.h"
#include "makernote/maker_record.h"
#include "support/parse.h"

namespace qmx::test {
namespace {

using Fields = CanonMakerFields;

const Fields& FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

// An array of `size` zeros but for the elements given.
std::vector<std::uint32_t> Words(std::size_t size,
                                 const std::map<std::size_t, std::int32_t>& elements) {
    std::vector<std::uint32_t> words(size);
    for (const auto& [index, value] : elements) words[index] = static_cast<std::uint16_t>(value);
    return words;
}

// A TIFF file whose Exif directory ends with the note, which has no header, and a width.
class CanonFile {
public:
    explicit CanonFile(std::string_view model, Order order = Order::kLittle)
        : order_(order),
          tiff_(order),
          ifd_(tiff_.Ifd()),
          exif_(tiff_.SubIfd()),
          note_(tiff_.SubIfd()) {
        ifd_.Ascii(0x010F, "Canon").Ascii(0x0110, model).Link(0x8769, {&exif_});
    }

    static constexpr std::uint32_t kWidth = 0x01020304;

    IfdBuilder& Exif() { return exif_; }
    IfdBuilder& Note() { return note_; }

    // Once: links the note by its position and makes a MakerNote of the link before it.
    Bytes Build() {
        exif_.Raw(0x927C, 7, 1000, 0).Link(0xFFF0, {&note_}).Long(0xA002, {kWidth});
        Bytes file = tiff_.Build();
        const std::size_t exif = U32(file, 8 + 2 + 2 * 12 + 8);
        const std::size_t entries = order_ == Order::kLittle ? file[exif] : file[exif + 1];
        const std::size_t link = exif + 2 + (entries - 2) * 12 + 8;
        std::copy_n(file.begin() + static_cast<std::ptrdiff_t>(link), 4,
                    file.begin() + static_cast<std::ptrdiff_t>(link - 12));
        notePosition_ = U32(file, link);
        return file;
    }
    ImageInfo Info() { return Parse(Build()).info; }
    std::size_t NotePosition() const { return notePosition_; }  // in the built file

private:
    std::size_t U32(const Bytes& file, std::size_t at) const {
        std::size_t value = 0;
        for (std::size_t i = 0; i < 4; ++i)
            value = value << 8 | file[at + (order_ == Order::kLittle ? 3 - i : i)];
        return value;
    }

    Order order_;
    TiffBuilder tiff_;
    IfdBuilder& ifd_;
    IfdBuilder& exif_;
    IfdBuilder& note_;
    std::size_t notePosition_ = 0;
};

// clang-format off

void FillNote(IfdBuilder& note) {
    Bytes cameraInfo(200);
    cameraInfo[7] = 1;
    cameraInfo[187] = 2;
    cameraInfo[190] = 3;
    note.Short(0x0001, Words(48, {{1, 2}, {2, 100}, {3, 4}, {4, 1}, {5, 5}, {6, 99}, {7, 2},
                                  {10, -1}, {11, 8}, {12, 3}, {13, -2}, {14, 1}, {15, 7},
                                  {16, 0x4064}, {17, 3}, {18, 2}, {19, 8197}, {20, 2}, {22, 51},
                                  {23, 135}, {24, 18}, {25, 1}, {26, 128}, {27, 320}, {28, 145},
                                  {32, 8}, {33, 2}, {34, 257}, {40, 6}, {42, -3}}))
        .Short(0x0002, Words(4, {{0, 2}, {1, 50}, {2, 907}, {3, 605}}))
        .Short(0x0004, Words(34, {{2, 160}, {4, 192}, {5, 224}, {6, -12}, {7, 4}, {8, 3}, {9, 6},
                                  {13, 64}, {14, 0x3001}, {15, 20}, {16, 1}, {17, -32}, {19, 750},
                                  {20, -1}, {24, 300}, {26, 248}, {27, 1}, {28, 1}, {29, 20}}))
        .Short(0x0005, Words(6, {{2, 3}, {5, 0xFFFE}}))
        .Ascii(0x0006, "Canon EOS 500D").Ascii(0x0007, "Firmware Version 1.1.1")
        .Long(0x0008, {1181861}).Ascii(0x0009, "Owner").Long(0x000C, {3120502342})
        .Undefined(0x000D, cameraInfo)
        .Short(0x0012, Words(27, {{2, 4752}, {22, 0x0312}, {26, 0x0111}}))
        .Short(0x001D, {16, 1, 13, 0xFFFF, 4, 5, 6, 7})
        .Short(0x001F, Words(69, {{13, 0xFFF0}}))
        .Short(0x0093, Words(32, {{1, 0x0001}, {2, 0x86A0}, {3, 1}, {4, 2}, {5, 3}, {8, 4}, {9, 1},
                                  {12, 0xFFFD}, {13, 5}, {14, 0xFFFF}, {15, 2}}))
        .Ascii(0x0095, "EF-S18-135mm f/3.5-5.6 IS")
        .Short(0x00A0, Words(14, {{1, 2}, {2, 5}, {3, 1}, {8, 8}, {9, 5200}, {10, 129}, {11, 10},
                                  {12, -9}, {13, 9}}))
        .Short(0x00B4, {1});
}

TEST(CanonNote, EveryTagHasItsField) {
    const Fields expected = {
        .macroMode = 2, .selfTimer = 100, .quality = 4, .flashMode = 1, .driveMode = 5,
        .focusMode = 2, .imageSize = -1, .easyMode = 8, .digitalZoom = 3, .contrast = -2,
        .saturation = 1, .sharpness = 7, .isoCode = 0x4064, .meteringMode = 3, .focusRange = 2,
        .afPoint = 8197, .exposureMode = 2, .maxFocalLength = 135, .minFocalLength = 18,
        .focalUnits = 1, .maxAperture = 4.0f, .minAperture = 32.0f, .flashActivity = 145,
        .focusContinuous = 8, .aeSetting = 2, .imageStabilization = 257, .photoEffect = 6,
        .colorTone = -3, .focalType = 2, .focalLength = 50, .focalPlaneSize = 605, .baseIso = 100,
        .targetAperture = 8.0f, .targetExposureTime = 1.0f / 128.0f, .exposureCompensation = -12,
        .whiteBalance = 8, .slowShutter = 3, .sequenceNumber = 6, .flashGuideNumber = 64,
        .flashExposureComp = 20, .autoExposureBracketing = 1, .aebBracketValue = -32,
        .focusDistanceUpper = 750, .focusDistanceLower = -1, .bulbDuration = 300,
        .cameraType = 248, .autoRotate = 1, .ndFilter = 1, .selfTimer2 = 20,
        .panoramaFrameNumber = 3, .panoramaDirection = 0xFFFE, .imageType = "Canon EOS 500D",
        .firmwareVersion = "Firmware Version 1.1.1", .fileNumber = 1181861, .ownerName = "Owner",
        .serialNumber = static_cast<std::int32_t>(3120502342u), .cameraInfoByte7 = 1,
        .lensType = 51, .cameraInfoA = 2, .cameraInfoB = 3, .afValidPoints = 4752,
        .tag1DWords = {16, 1, 13, 0xFFFF, 4, 5}, .tag1FWord13 = 0xFFF0, .fileIndex = 100000,
        .fileInfo3 = 1, .fileInfo4 = 2, .fileInfo5 = 3, .fileInfo8 = 4, .fileInfo9 = 1,
        .fileInfo12 = 0xFFFD, .fileInfo13 = 5, .fileInfo14 = 0xFFFF, .fileInfo15 = 2,
        .lensModel = "EF-S18-135mm f/3.5-5.6 IS", .processingInfo1 = 2, .processingInfo2 = 5,
        .processingInfo3 = 1, .processingInfo9 = 5200, .processingInfo10 = 129,
        .processingInfo11 = 10, .processingInfo12 = -9, .processingInfo13 = 9, .colorSpace = 1,
        .afPointsInFocus = 0x0111};
    for (const Order order : {Order::kLittle, Order::kBig}) {
        CanonFile file("Canon EOS 500D", order);
        FillNote(file.Note());
        const ImageInfo info = file.Info();
        const Fields& fields = FieldsOf(info);
        EXPECT_EQ(std::memcmp(&fields, &expected, sizeof expected), 0);
        EXPECT_EQ(info.isoSpeed, 100);
        EXPECT_EQ(info.exposureProgram, 4);
        EXPECT_EQ(info.exposureBias, -0.33f);
        EXPECT_EQ(info.pixelXDimension, static_cast<std::int32_t>(CanonFile::kWidth));
    }
}

// clang-format on

TEST(CanonNote, ExifValuesReadEarlierStand) {
    CanonFile file("Canon EOS 500D");
    file.Exif().Short(0x8822, {7}).Short(0x8827, {640}).SRational(0x9204, {{1, 2}});
    FillNote(file.Note());
    const ImageInfo info = file.Info();
    EXPECT_EQ(info.isoSpeed, 640);
    EXPECT_EQ(info.exposureProgram, 7);
    EXPECT_EQ(info.exposureBias, 0.5f);
}

TEST(CanonNote, EntryCountAndTagsDecide) {
    struct Case {
        const char* what;
        void (*fill)(IfdBuilder&);
        std::int32_t colorSpace;
    };
    const Case cases[] = {
        {"one entry", [](IfdBuilder& n) { n.Short(0xB4, {2}); }, 2},
        {"count 0", [](IfdBuilder& n) { n.Short(0xB4, {2}).EntryCount(0); }, INT_UNSET},
        {"count 2 of 1", [](IfdBuilder& n) { n.Short(0xB4, {2}).EntryCount(2); }, 2},
        {"count 255", [](IfdBuilder& n) { n.Short(0xB4, {2}).EntryCount(255); }, 2},
        {"count 256", [](IfdBuilder& n) { n.Short(0xB4, {2}).EntryCount(256); }, INT_UNSET},
        {"count 300", [](IfdBuilder& n) { n.Short(0xB4, {2}).EntryCount(300); }, INT_UNSET},
        {"count 65535", [](IfdBuilder& n) { n.Short(0xB4, {2}).EntryCount(65535); }, INT_UNSET},
        {"tag 0", [](IfdBuilder& n) { n.Short(0, {1}).Short(0xB4, {2}); }, 2},
        {"tag 0xB5", [](IfdBuilder& n) { n.Short(0xB5, {1}); }, INT_UNSET},
        {"negative count", [](IfdBuilder& n) { n.Raw(0xB4, 3, 0x80000001, 2); }, INT_UNSET},
        {"past the end", [](IfdBuilder& n) { n.Raw(0xB4, 3, 3, 0x7FFFFFF0); }, INT_UNSET},
        {"before the base", [](IfdBuilder& n) { n.Raw(0xB4, 3, 3, 0xFFFFFFF0); }, 0x4949},
        {"count x size wraps", [](IfdBuilder& n) { n.Raw(0xB4, 4, 0x40000001, 7); }, 7},
        {"no number", [](IfdBuilder& n) { n.Ascii(0xB4, "2"); }, 0},
        {"huge array", [](IfdBuilder& n) { n.Raw(1, 3, 0x7FFFFFFF, 8).Short(0xB4, {2}); }, 2},
    };
    for (const Case& c : cases) {
        CanonFile file("Canon EOS 20D");
        c.fill(file.Note());
        const ImageInfo info = file.Info();
        EXPECT_EQ(FieldsOf(info).colorSpace, c.colorSpace) << c.what;
        EXPECT_EQ(info.hasMakerNote, 1) << c.what;
        EXPECT_EQ(info.pixelXDimension, static_cast<std::int32_t>(CanonFile::kWidth)) << c.what;
    }
}

TEST(CanonNote, TextsAreBoundedByTheirFields) {
    for (const std::size_t length : {1u, 38u, 39u, 40u, 41u, 63u, 64u, 65u, 4000u}) {
        CanonFile file("Canon EOS 20D");
        const Bytes text(length, 'T');
        file.Note().Undefined(6, text).Undefined(7, text).Undefined(9, text).Undefined(0x95, text);
        const ImageInfo info = file.Info();
        const Fields& fields = FieldsOf(info);
        const std::string shortText(std::min<std::size_t>(length, 39), 'T');
        EXPECT_EQ(FieldText(fields.imageType), shortText);
        EXPECT_EQ(FieldText(fields.firmwareVersion), shortText);
        EXPECT_EQ(FieldText(fields.ownerName), shortText);
        EXPECT_EQ(FieldText(fields.lensModel), std::string(std::min<std::size_t>(length, 63), 'T'));
        EXPECT_EQ(fields.fileNumber, INT_UNSET);
        EXPECT_EQ(fields.processingInfo1, INT_UNSET);
    }
}

TEST(CanonNote, SurvivesBeingCutAnywhere) {
    constexpr std::size_t kEntries = 17;
    CanonFile file("Canon EOS 500D");
    FillNote(file.Note());
    const Bytes whole = file.Build();
    const std::size_t valuesStart = file.NotePosition() + 2 + kEntries * 12;
    const std::string owner = "Owner";
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const ImageInfo info =
            Parse({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)}).info;
        if (size < valuesStart) continue;
        const Fields& fields = FieldsOf(info);
        EXPECT_TRUE(owner.starts_with(FieldText(fields.ownerName))) << size;
        EXPECT_TRUE(!IsSet(fields.cameraInfoB) || fields.cameraInfoB == 3) << size;
        EXPECT_TRUE(!IsSet(info.isoSpeed) || info.isoSpeed == 100) << size;
        EXPECT_EQ(fields.colorSpace, 1) << size;
    }
}

// ---- The arrays, as the note and a raw file's heap hand them over.

using Decode = void (*)(ParseContext&, std::uint32_t);

class ArrayContext : public BytesContext {
public:
    ArrayContext(const std::vector<std::uint32_t>& words, std::int32_t modelId,
                 Order order = Order::kLittle)
        : BytesContext(Write(words, order), order == Order::kLittle ? kLittleEndian : kBigEndian) {
        ctx.info.modelId = modelId;
        ResetMakerRecord<Fields>(ctx.info);
    }
    const Fields& Run(Decode decode, std::size_t count) {
        decode(ctx, static_cast<std::uint32_t>(count));
        return FieldsOf(ctx.info);
    }

private:
    static Bytes Write(const std::vector<std::uint32_t>& words, Order order) {
        ByteWriter writer(order);
        for (const std::uint32_t word : words) writer.U16(word);
        return writer.bytes;
    }
};

TEST(CanonArrays, ElementsBehindTheCountStayUnset) {
    const std::vector<std::uint32_t> words = {10, 11, 12, 13, 14, 15};
    const auto at = [&](Decode decode, std::size_t count, std::int32_t Fields::*field) {
        return ArrayContext(words, 4097).Run(decode, count).*field;
    };
    EXPECT_EQ(at(DecodeCanonFocalLength, 0, &Fields::focalType), INT_UNSET);
    EXPECT_EQ(at(DecodeCanonFocalLength, 1, &Fields::focalLength), INT_UNSET);
    EXPECT_EQ(at(DecodeCanonFocalLength, 3, &Fields::focalPlaneSize), 12);
    EXPECT_EQ(at(DecodeCanonFocalLength, 4, &Fields::focalPlaneSize), 13);
    EXPECT_EQ(at(DecodeCanonFocalLength, 9, &Fields::focalPlaneSize), 13);
    EXPECT_EQ(at(DecodeCanonPanorama, 5, &Fields::panoramaDirection), INT_UNSET);
    EXPECT_EQ(at(DecodeCanonPanorama, 6, &Fields::panoramaDirection), 15);
    EXPECT_EQ(at(DecodeCanonFileInfo, 2, &Fields::fileIndex), INT_UNSET);
    EXPECT_EQ(at(DecodeCanonTag1F, 13, &Fields::tag1FWord13), INT_UNSET);
    // The count goes on where the file has ended.
    EXPECT_EQ(at(DecodeCanonTag1F, 14, &Fields::tag1FWord13), 0xFFFF);
    EXPECT_EQ(at(DecodeCanonCameraSettings, 0xFFFFFFFF, &Fields::focusMode), -1);
    EXPECT_EQ(at(DecodeCanonCameraSettings, 0xFFFFFFFF, &Fields::photoEffect), INT_UNSET);
}

TEST(CanonArrays, WordsWithoutAValueDeriveNothing) {
    ArrayContext settings(std::vector<std::uint32_t>(50, 0x7FFF), 4102);
    const Fields unset;
    EXPECT_EQ(std::memcmp(&settings.Run(DecodeCanonCameraSettings, 50), &unset, sizeof unset), 0);
    EXPECT_EQ(settings.ctx.info.isoSpeed, INT_UNSET);
    EXPECT_EQ(settings.ctx.info.exposureProgram, INT_UNSET);

    ArrayContext shot(std::vector<std::uint32_t>(34, 0x7FFF), 4102);
    EXPECT_EQ(std::memcmp(&shot.Run(DecodeCanonShotInfo, 34), &unset, sizeof unset), 0);
    EXPECT_EQ(shot.ctx.info.exposureBias, FLOAT_UNSET);

    // It takes nothing from what an array before it said.
    ArrayContext processing(Words(14, {{8, 0x7FFF}}), 4108);
    MakerRecord<Fields>(processing.ctx.info).whiteBalance = 3;
    EXPECT_EQ(processing.Run(DecodeCanonProcessingInfo, 14).whiteBalance, 3);
}

TEST(CanonArrays, RulesOfSignedElements) {
    struct Case {
        Decode decode;
        std::size_t index;
        std::int32_t word;
        std::int32_t Fields::*field;
        std::int32_t value;
    };
    const Case cases[] = {
        {DecodeCanonCameraSettings, 32, -1, &Fields::focusContinuous, INT_UNSET},
        {DecodeCanonCameraSettings, 33, -1, &Fields::aeSetting, INT_UNSET},
        {DecodeCanonCameraSettings, 34, -1, &Fields::imageStabilization, INT_UNSET},
        {DecodeCanonCameraSettings, 40, -1, &Fields::photoEffect, INT_UNSET},
        {DecodeCanonCameraSettings, 40, 0, &Fields::photoEffect, 0},
        {DecodeCanonCameraSettings, 28, -1, &Fields::flashActivity, -1},
        {DecodeCanonCameraSettings, 22, 0, &Fields::lensType, INT_UNSET},
        {DecodeCanonCameraSettings, 22, -1, &Fields::lensType, INT_UNSET},
        {DecodeCanonCameraSettings, 22, 1, &Fields::lensType, 1},
        {DecodeCanonCameraSettings, 23, 34800, &Fields::maxFocalLength, 34800 - 65536},
        {DecodeCanonShotInfo, 2, 0, &Fields::baseIso, 3},
        {DecodeCanonShotInfo, 2, 192, &Fields::baseIso, 200},
        {DecodeCanonShotInfo, 2, 172, &Fields::baseIso, 129},
        {DecodeCanonShotInfo, 2, 12, &Fields::baseIso, 3},
        {DecodeCanonShotInfo, 2, 0x7FFE, &Fields::baseIso, INT32_MIN},
        {DecodeCanonShotInfo, 13, 0, &Fields::flashGuideNumber, INT_UNSET},
        {DecodeCanonShotInfo, 13, -5, &Fields::flashGuideNumber, INT_UNSET},
        {DecodeCanonShotInfo, 14, 0, &Fields::afPointsInFocus, INT_UNSET},
        {DecodeCanonShotInfo, 14, 0x3001, &Fields::afPointsInFocus, 0x3001},
        {DecodeCanonShotInfo, 28, -1, &Fields::ndFilter, INT_UNSET},
        {DecodeCanonProcessingInfo, 8, -1, &Fields::whiteBalance, INT_UNSET},
        {DecodeCanonProcessingInfo, 8, 9, &Fields::whiteBalance, 9},
    };
    for (const Case& c : cases) {
        ArrayContext array(Words(c.index + 1, {{c.index, c.word}}), 4097);
        EXPECT_EQ(array.Run(c.decode, c.index + 1).*c.field, c.value) << c.index << ' ' << c.word;
    }
    ArrayContext compact(Words(23, {{22, 51}}), 4096);
    EXPECT_EQ(compact.Run(DecodeCanonCameraSettings, 23).lensType, INT_UNSET);
    ArrayContext closed(Words(28, {{26, -64}, {27, 0}}), 4097);
    EXPECT_EQ(closed.Run(DecodeCanonCameraSettings, 28).maxAperture, FLOAT_UNSET);
    EXPECT_EQ(FieldsOf(closed.ctx.info).minAperture, 1.0f);
    ArrayContext slow(Words(6, {{4, -64}, {5, -160}}), 4097);
    EXPECT_EQ(slow.Run(DecodeCanonShotInfo, 6).targetAperture, 0.5f);
    EXPECT_EQ(FieldsOf(slow.ctx.info).targetExposureTime, 32.0f);
}

TEST(CanonArrays, ExifTakesWhatItLacks) {
    for (const auto& [code, speed] : std::map<std::int32_t, std::int32_t>{{14, 0},
                                                                          {15, 0},
                                                                          {16, 50},
                                                                          {17, 100},
                                                                          {18, 200},
                                                                          {19, 400},
                                                                          {0x4064, 100},
                                                                          {0x4000, 0},
                                                                          {0, INT_UNSET},
                                                                          {20, INT_UNSET},
                                                                          {0x3FFF, INT_UNSET},
                                                                          {-1, INT_UNSET}}) {
        ArrayContext array(Words(17, {{16, code}}), 512);
        array.Run(DecodeCanonCameraSettings, 17);
        EXPECT_EQ(array.ctx.info.isoSpeed, speed) << code;
    }
    for (const auto& [mode, program] : std::map<std::int32_t, std::int32_t>{
             {0, INT_UNSET}, {1, 2}, {2, 4}, {3, 3}, {4, 1}, {5, INT_UNSET}, {-1, INT_UNSET}}) {
        ArrayContext array(Words(21, {{20, mode}}), 512);
        array.Run(DecodeCanonCameraSettings, 21);
        EXPECT_EQ(array.ctx.info.exposureProgram, program) << mode;
    }
}

TEST(CanonArrays, ExposureValuesReadAsThirds) {
    const std::pair<std::int32_t, float> cases[] = {
        {0, 0.0f},    {12, 0.33f},   {16, 0.5f},   {20, 0.67f},       {32, 1.0f}, {44, 1.33f},
        {48, 1.5f},   {52, 1.67f},   {64, 2.0f},   {11, 0.34375f},    {96, 3.0f}, {-12, -0.33f},
        {-16, -0.5f}, {-52, -1.67f}, {-96, -3.0f}, {-32768, -1024.0f}};
    for (const auto& [word, ev] : cases) EXPECT_EQ(CanonEv(word), ev) << word;
}

TEST(CanonArrays, PointsInFocusDependOnTheModel) {
    struct Case {
        std::int32_t modelId;
        std::int32_t word22, word26;
        std::int32_t points;
    };
    const Case cases[] = {
        {512, 0x0312, 0x0010, 0x0300},     {512, 0xFF05, 0x0010, INT_UNSET},
        {512, 0xFEFF, 0x0010, 0xFE00},     {512, 0x0012, 0x0010, 0},
        {4101, 0xFF00, 0x01FF, INT_UNSET}, {4102, 0xFF00, 0x01FF, 0x01FF},
        {4103, 0xFF00, 0x01FF, INT_UNSET}, {4107, 0xFF00, 0x01FF, INT_UNSET},
        {4108, 0x0300, 0x8000, 0x8000},    {4111, 0x0300, 0x01FF, 0x01FF},
        {4112, 0x0300, 0x01FF, 0x0300},    {4119, 0x0300, 0x01FF, 0x0300},
        {4120, 0x0300, 0x01FF, 0x01FF},    {4122, 0x0300, 0x01FF, 0x01FF},
        {4123, 0x0300, 0x01FF, 0x0300},
    };
    for (const Case& c : cases) {
        ArrayContext array(Words(27, {{2, 0x8001}, {22, c.word22}, {26, c.word26}}), c.modelId);
        EXPECT_EQ(array.Run(DecodeCanonAfInfo, 27).afPointsInFocus, c.points) << c.modelId;
        EXPECT_EQ(FieldsOf(array.ctx.info).afValidPoints, 0x8001);
    }
}

TEST(CanonArrays, FileIndexDependsOnModelAndByteOrder) {
    struct Case {
        std::int32_t modelId;
        Order order;
        std::int32_t word1, word2;
        std::int32_t fileIndex;
    };
    const Case cases[] = {
        {4096, Order::kLittle, 1, 1, INT_UNSET},
        // 20D: folder in bits 6 to 15, file in bits 16 to 23 and, above them, 0 to 5.
        {4097, Order::kLittle, 0x1941, 0x0018, 1010280},
        {4103, Order::kBig, 0x0018, 0x1941, 1010280},
        {4102, Order::kLittle, 0, 0x0018, INT_UNSET},
        {4102, Order::kLittle, 0x1941, 0, INT_UNSET},
        // 1D: a count, high word first in both orders.
        {4104, Order::kLittle, 1, 2, 65538},
        {4104, Order::kBig, 1, 2, 65538},
        {4110, Order::kLittle, 0, 0, 0},
        {4126, Order::kLittle, 0xFFFF, 0xFFFF, -1},
        // 30D: the folder counts from 64 or 128 up, four more bits of the file stand higher.
        {4108, Order::kLittle, 0x0401, 0, 1290016},
        {4108, Order::kBig, 0, 0x0401, 1290016},
        {4109, Order::kLittle, 0x9001, 0x0050, 1000021},
        {4111, Order::kLittle, 0x0000, 0x0000, 1280000},
        {4120, Order::kLittle, 0xFFFF, 0xFFFF, 1087 * 10000 + 16383},
        {4121, Order::kLittle, 0x9001, 0x0050, 1000021},
    };
    for (const Case& c : cases) {
        ArrayContext array(Words(3, {{1, c.word1}, {2, c.word2}}), c.modelId, c.order);
        EXPECT_EQ(array.Run(DecodeCanonFileInfo, 3).fileIndex, c.fileIndex) << c.modelId;
    }
}

TEST(CanonArrays, CameraInformationBytesDependOnTheModel) {
    std::vector<std::uint32_t> words;  // byte n is n
    for (std::uint32_t i = 0; i < 200; i += 2) words.push_back(i | (i + 1) << 8);
    struct Case {
        std::int32_t modelId;
        std::uint32_t count;
        std::int32_t byte7, a, b;
    };
    const Case cases[] = {
        {4110, 200, 7, 187, 190},
        {4122, 200, 7, 189, 191},
        {4126, 200, 7, 189, 191},
        {4126, 0x7FFFFFFF, 7, 189, 191},
        {4110, 190, 7, 187, INT_UNSET},
        {4122, 8, 7, INT_UNSET, INT_UNSET},
        {4122, 7, INT_UNSET, INT_UNSET, INT_UNSET},
        {4122, 0, INT_UNSET, INT_UNSET, INT_UNSET},
        {4121, 200, INT_UNSET, INT_UNSET, INT_UNSET},
        {512, 200, INT_UNSET, INT_UNSET, INT_UNSET},
    };
    for (const Case& c : cases) {
        ArrayContext array(words, c.modelId);
        const Fields& fields = array.Run(DecodeCanonCameraInfo, c.count);
        EXPECT_EQ(fields.cameraInfoByte7, c.byte7) << c.modelId << ' ' << c.count;
        EXPECT_EQ(fields.cameraInfoA, c.a) << c.modelId << ' ' << c.count;
        EXPECT_EQ(fields.cameraInfoB, c.b) << c.modelId << ' ' << c.count;
    }
}

}  // namespace
}  // namespace qmx::test
