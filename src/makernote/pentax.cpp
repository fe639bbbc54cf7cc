// Pentax's MakerNote: a directory in a byte order of its own.  Settings that the Exif directory
// leaves out are taken over from here.

#include <algorithm>
#include <iterator>
#include <string_view>

#include "makernote/decoders.h"
#include "makernote/maker_record.h"
#include "makernote/pentax_fields.h"
#include "makernote/preview_record.h"
#include "parse/core/entry_walk.h"

namespace qmx {
namespace {

using Fields = PentaxMakerFields;

constexpr std::size_t kDateBytes = 4;  // year, month, day
constexpr std::size_t kTimeBytes = 3;

// One note being read.
struct PentaxNote {
    Fields& fields;
    std::uint32_t previewOffset = 0;
    std::uint32_t previewLength = 0;
    // The camera enciphers the shutter count with the moment of the picture.
    std::uint8_t date[kDateBytes] = {};
    std::uint8_t time[kTimeBytes] = {};
    std::uint8_t shutterCount[4] = {};
    bool hasDate = false, hasTime = false, hasShutterCount = false;
};

template <auto Field>
void Code(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    note.fields.*Field = ReadInteger(ctx, entry);
}

// Bytes as they stand, whatever type the entry states; the count of those that are there.
template <std::size_t Size>
std::size_t ReadItems(ParseContext& ctx, const DirEntry& entry, std::uint8_t (&bytes)[Size]) {
    return ReadBytes(ctx, bytes, std::min<std::size_t>(entry.count, Size));
}

// Successive bytes into successive members.
template <auto... Members>
void ByteCodes(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    std::uint8_t bytes[sizeof...(Members)];
    const std::size_t count = ReadItems(ctx, entry, bytes);
    std::size_t i = 0;
    ((i < count ? void(note.fields.*Members = bytes[i]) : void(), ++i), ...);
}

template <std::uint32_t PentaxNote::*Field>
void Unsigned(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    note.*Field = ReadUnsigned(ctx, entry);
}

// The whole value or nothing.
template <auto Bytes, auto Has>
void KeyBytes(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    note.*Has = ReadItems(ctx, entry, note.*Bytes) == std::size(note.*Bytes);
}

template <auto Field, int Divisor>
void Scaled(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    note.fields.*Field = ToField(ReadValue(ctx, entry.type) / Divisor);
}

// Tenths of EV around 50.
template <auto Field>
void Compensation(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    note.fields.*Field = ToField((ReadValue(ctx, entry.type) - 50) / 10);
}

void StoreFlashMode(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    note.fields.flashMode = ReadInteger(ctx, entry);
    if (entry.count >= 2) note.fields.flashUnit = ReadInteger(ctx, entry);
}

// Old compacts write tenths of mm, all others hundredths.
bool WritesTenthsOfMm(std::string_view model) {
    constexpr std::string_view kSeries = "Optio ";
    constexpr std::string_view kModels[] = {"30", "33WR", "43WR", "450", "550", "555", "750Z", "X"};
    const std::size_t series = model.find(kSeries);
    if (series == std::string_view::npos) return false;
    model.remove_prefix(series + kSeries.size());
    model = model.substr(0, model.find(' '));
    return std::find(std::begin(kModels), std::end(kModels), model) != std::end(kModels);
}

void StoreFocalLength(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    const int unitsPerMm = WritesTenthsOfMm(FieldText(ctx.info.cameraModel)) ? 10 : 100;
    note.fields.focalLength = ToField(ReadValue(ctx, entry.type) / unitsPerMm);
}

template <auto Field>
void PictureSetting(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    note.fields.*Field = ReadInteger(ctx, entry);
    if (entry.count >= 2) note.fields.hasTwoWordSettings = 1;
}

// Stored inverted.
template <auto Field>
void Firmware(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    std::uint8_t bytes[4];
    if (ReadItems(ctx, entry, bytes) < std::size(bytes)) return;
    std::uint32_t version = 0;
    for (const std::uint8_t byte : bytes) version = version << 8 | (byte ^ 0xFFu);
    note.fields.*Field = static_cast<std::int32_t>(version);
}

// A filter alone stands in the last byte.
void StoreImageProcessing(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    std::uint8_t bytes[4] = {};
    if (ReadItems(ctx, entry, bytes) == 0) return;
    note.fields.imageProcessing = bytes[0] != 0 ? bytes[0] : bytes[3];
}

void StorePictureMode(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    std::uint8_t bytes[3];
    const std::size_t count = ReadItems(ctx, entry, bytes);
    if (count >= 2) note.fields.pictureMode = bytes[0] << 8 | bytes[1];
    if (count >= 3) note.fields.exposureStep = bytes[2];
}

void StoreLens(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    std::uint8_t bytes[2];
    if (ReadItems(ctx, entry, bytes) == std::size(bytes))
        note.fields.lensId = bytes[0] << 8 | bytes[1];
}

void StoreFlashCompensation(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    const int stepsPerEv = entry.type == kTypeSByte ? 6 : 256;
    note.fields.flashCompensation = ToField(ReadValue(ctx, entry.type) / stepsPerEv);
}

void StoreShakeReduction(ParseContext& ctx, const DirEntry& entry, PentaxNote& note) {
    std::uint8_t bytes[2];
    if (ReadItems(ctx, entry, bytes) == std::size(bytes)) note.fields.shakeReduction = bytes[1];
}

// clang-format off
constexpr TagRow<PentaxNote> kTags[] = {
    {0x0003, Unsigned<&PentaxNote::previewLength>},
    {0x0004, Unsigned<&PentaxNote::previewOffset>},
    {0x0006, KeyBytes<&PentaxNote::date, &PentaxNote::hasDate>},
    {0x0007, KeyBytes<&PentaxNote::time, &PentaxNote::hasTime>},
    {0x0008, Code<&Fields::quality>},
    {0x0009, Code<&Fields::imageSize>},
    {0x000B, Code<&Fields::compactMode>},
    {0x000C, StoreFlashMode},
    {0x000D, Code<&Fields::focusMode>},
    {0x000E, Code<&Fields::afPointSelected>},
    {0x000F, Code<&Fields::afPointInFocus>},
    {0x0012, Scaled<&Fields::exposureTime, 100000>},
    {0x0013, Scaled<&Fields::fNumber, 10>},
    {0x0014, Code<&Fields::iso>},
    {0x0016, Compensation<&Fields::exposureCompensation>},
    {0x0017, Code<&Fields::metering>},
    {0x0018, Code<&Fields::autoBracket>},
    {0x0019, Code<&Fields::whiteBalance>},
    {0x001A, Code<&Fields::whiteBalanceMode>},
    {0x001D, StoreFocalLength},
    {0x001E, Scaled<&Fields::digitalZoom, 100>},
    {0x001F, PictureSetting<&Fields::saturation>},
    {0x0020, PictureSetting<&Fields::contrast>},
    {0x0021, PictureSetting<&Fields::sharpness>},
    {0x0022, Code<&Fields::worldTime>},
    {0x0023, Code<&Fields::homeCity>},
    {0x0024, Code<&Fields::destinationCity>},
    {0x0025, Code<&Fields::homeDaylightSaving>},
    {0x0026, Code<&Fields::destinationDaylightSaving>},
    {0x0027, Firmware<&Fields::dspFirmware>},
    {0x0028, Firmware<&Fields::cpuFirmware>},
    {0x0029, Code<&Fields::frameNumber>},
    {0x0032, StoreImageProcessing},
    {0x0033, StorePictureMode},
    {0x0034, ByteCodes<&Fields::drive, &Fields::selfTimer, &Fields::remote,
                       &Fields::exposureCount>},
    {0x0037, Code<&Fields::colorSpace>},
    {0x003F, StoreLens},
    {0x0040, Compensation<&Fields::sensitivityAdjust>},
    {0x0047, Code<&Fields::temperature>},
    {0x0048, Code<&Fields::aeLock>},
    {0x0049, Code<&Fields::noiseReduction>},
    {0x004D, StoreFlashCompensation},
    {0x004F, Code<&Fields::imageTone>},
    {0x0050, Code<&Fields::colorTemperature>},
    {0x005C, StoreShakeReduction},
    {0x005D, KeyBytes<&PentaxNote::shutterCount, &PentaxNote::hasShutterCount>},
    {0x0067, Code<&Fields::hue>},
    {0x0069, ByteCodes<&Fields::dynamicRange>},
    {0x0070, ByteCodes<&Fields::fineSharpness>},
    {0x0071, ByteCodes<&Fields::highIsoReduction>},
    {0x0079, ByteCodes<&Fields::shadowCorrection>},
};
// clang-format on
static_assert(TagsAscend(kTags));

// Big-endian; each byte is mixed with the date's and the inverted time's.
void DecipherShutterCount(PentaxNote& note) {
    if (!note.hasDate || !note.hasTime || !note.hasShutterCount) return;
    std::uint32_t count = 0;
    for (std::size_t i = 0; i < std::size(note.shutterCount); ++i) {
        const std::uint8_t time = i < kTimeBytes ? note.time[i] : 0;
        const auto key = static_cast<std::uint8_t>(note.date[i] ^ ~time);
        count = count << 8 | static_cast<std::uint8_t>(note.shutterCount[i] ^ key);
    }
    note.fields.shutterCount = static_cast<std::int32_t>(count);
}

// Steps of a third from ISO 50 on, steps of a half, or the speed itself.
std::int32_t IsoSpeed(std::int32_t code) {
    constexpr std::int32_t kThirds[] = {
        50,     64,     80,     100,    125,    160,    200,    250,    320,    400,   500,
        640,    800,    1000,   1250,   1600,   2000,   2500,   3200,   4000,   5000,  6400,
        8000,   10000,  12800,  16000,  20000,  25600,  32000,  40000,  51200,  64000, 80000,
        102400, 128000, 160000, 204800, 256000, 320000, 409600, 512000, 640000, 819200};
    constexpr std::int32_t kHalves[] = {
        50,    70,    100,    140,    200,    280,    400,    560,    800,   1100,
        1600,  2200,  3200,   4500,   6400,   9000,   12800,  18000,  25600, 36000,
        51200, 72000, 102400, 144000, 204800, 288000, 409600, 576000, 819200};
    constexpr std::int32_t kFirstThird = 3;
    constexpr std::int32_t kFirstHalf = 258;
    if (code >= kFirstThird && code < kFirstThird + std::ssize(kThirds))
        return kThirds[code - kFirstThird];
    if (code >= kFirstHalf && code < kFirstHalf + std::ssize(kHalves))
        return kHalves[code - kFirstHalf];
    for (std::int32_t speed = 50; speed <= 3200; speed *= 2)
        if (code == speed) return code;
    return INT_UNSET;
}

// As Exif codes it.
std::int32_t ExifMetering(std::int32_t metering) {
    constexpr std::int32_t kModes[] = {5, 2, 3};
    return metering >= 0 && metering < std::ssize(kModes) ? kModes[metering] : INT_UNSET;
}

template <class Number>
void FillUnset(Number& field, Number value) {
    if (!IsSet(field)) field = value;
}

// A body that cannot know the value, of a lens without contacts say, writes 0.
void FillUnlessZero(float& field, float value) {
    if (value > 0.0f) FillUnset(field, value);
}

void FillExif(const Fields& fields, ImageInfo& info) {
    FillUnlessZero(info.exposureTime, fields.exposureTime);
    FillUnlessZero(info.fNumber, fields.fNumber);
    FillUnset(info.exposureBias, fields.exposureCompensation);
    FillUnlessZero(info.focalLength, fields.focalLength);
    FillUnset(info.isoSpeed, IsoSpeed(fields.iso));
    FillUnset(info.meteringMode, ExifMetering(fields.metering));
}

// The preview's offset may count from the TIFF header even where the values' do not: the picture is
// where a JPEG stream answers.  Its frame header tells the size better than tag 0x0002.
void AddPreview(ParseContext& ctx, const PentaxNote& note, std::uint32_t ifdBase) {
    if (note.previewOffset == 0) return;
    for (const std::uint32_t base : {ctx.tiffBase, ifdBase})
        if (AddJpegPreview(ctx, base + note.previewOffset, note.previewLength)) return;
}

}  // namespace

void ParsePentaxMakerNote(ParseContext& ctx, std::uint32_t ifdBase) {
    PentaxNote note = {ResetMakerRecord<Fields>(ctx.info)};
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, note, kTags);
    DecipherShutterCount(note);
    FillExif(note.fields, ctx.info);
    AddPreview(ctx, note, ifdBase);
}

}  // namespace qmx
