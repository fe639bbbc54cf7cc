// Nikon's MakerNote: a TIFF structure of its own, with byte order, offsets from its own header, a
// preview in a directory below, and lens data under a cipher.

#include <algorithm>
#include <iterator>
#include <string_view>

#include "makernote/decoders.h"
#include "makernote/maker_record.h"
#include "makernote/nikon_note.h"
#include "makernote/preview_record.h"

namespace qmx {
namespace {

using Fields = NikonMakerFields;

template <void (*Store)(ParseContext&, const DirEntry&, Fields&)>
void InFields(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    Store(ctx, entry, note.fields);
}

// Texts are filled up with blanks to a fixed length.
template <std::size_t Size>
void TrimBlanks(char (&field)[Size]) {
    for (std::size_t end = FieldText(field).size(); end > 0 && field[end - 1] == ' '; --end)
        field[end - 1] = 0;
}

template <auto Field>
void StoreTrimmed(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    ReadString(ctx, note.fields.*Field, entry.count);
    TrimBlanks(note.fields.*Field);
}

// What a signed number cannot hold is the camera's way of saying that it does not know.
constexpr std::int32_t ToCount(std::uint32_t count) {
    return count <= 0x7FFFFFFF ? static_cast<std::int32_t>(count) : INT_UNSET;
}

template <auto Field>
void StoreCount(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    note.fields.*Field = ToCount(ReadUnsigned(ctx, entry));
}

// Exposure values as three bytes a, b, c: a x b / c.
template <class ByteAs>
float ReadEv(ParseContext& ctx, const DirEntry& entry) {
    std::uint8_t bytes[3];
    if (entry.count < std::size(bytes) || BytesLeft(ctx) < std::size(bytes)) return FLOAT_UNSET;
    ReadBytes(ctx, bytes, std::size(bytes));
    const float product = static_cast<float>(static_cast<ByteAs>(bytes[0])) *
                          static_cast<float>(static_cast<ByteAs>(bytes[1]));
    return bytes[2] == 0 ? 0.0f : product / static_cast<float>(static_cast<ByteAs>(bytes[2]));
}

template <auto Field, class ByteAs = std::int8_t>
void StoreEv(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    note.fields.*Field = ReadEv<ByteAs>(ctx, entry);
}

// Distances and focal lengths of 0 are unknown ones.
float ReadMeasure(ParseContext& ctx, const DirEntry& entry) {
    const float measure = ReadFloat(ctx, entry);
    return measure == 0.0f ? FLOAT_UNSET : measure;
}

void StoreVersion(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    auto& version = note.fields.nikonVersion;
    ReadBytes(ctx, version, std::min<std::size_t>(entry.count, std::size(version)));
}

// A word that marks extended speeds, then the speed; 0 says nothing.
std::int32_t ReadSpeed(ParseContext& ctx, const DirEntry& entry) {
    if (entry.count < 2) return INT_UNSET;
    ReadInteger(ctx, entry);
    const std::int32_t speed = ReadInteger(ctx, entry);
    return speed > 0 ? speed : INT_UNSET;
}

void StoreIso(ParseContext& ctx, const DirEntry& entry, NikonNote&) {
    if (!IsSet(ctx.info.isoSpeed)) ctx.info.isoSpeed = ReadSpeed(ctx, entry);
}

void StoreIsoSetting(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    note.fields.nikonIsoSetting = ReadSpeed(ctx, entry);
}

void StoreFineTune(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    auto& steps = note.fields.nikonWbFineTune;
    const std::size_t count = std::min<std::size_t>(entry.count, std::size(steps));
    for (std::size_t i = 0; i < count; ++i) steps[i] = ReadInteger(ctx, entry);
}

void StoreLensRange(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    auto& range = note.fields.nikonLensRange;
    if (entry.count < std::size(range)) return;
    for (float& measure : range) measure = ReadMeasure(ctx, entry);
}

void StoreFocusDistance(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    note.fields.nikonManualFocusDistance = ReadMeasure(ctx, entry);
}

void StoreRetouchHistory(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    auto& history = note.fields.nikonRetouchHistory;
    const std::size_t count = std::min<std::size_t>(entry.count, std::size(history));
    for (std::size_t i = 0; i < count; ++i)
        history[i] = static_cast<std::uint16_t>(ReadInteger(ctx, entry));
}

void StoreSerialNumber(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    auto& serial = note.fields.nikonSerialNumber;
    ReadString(ctx, serial, entry.count);
    const std::string_view text = FieldText(serial);
    note.lens.hasSerialNumber = true;
    note.lens.isSerialNumeric = !text.empty() && text.find_first_not_of("0123456789") == text.npos;
    TrimBlanks(serial);
}

void StoreShutterCount(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    note.lens.shutterCount = ReadUnsigned(ctx, entry);
    note.lens.hasShutterCount = true;
    note.fields.nikonShutterCount = ToCount(note.lens.shutterCount);
}

void RememberLensData(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    note.lens.position = Position(ctx);
    note.lens.length = entry.count;
}

struct PreviewDirectory {
    std::uint32_t jpegOffset = 0;
    std::uint32_t jpegLength = 0;
};

template <auto Field>
void StorePreviewNumber(ParseContext& ctx, const DirEntry& entry, PreviewDirectory& preview) {
    preview.*Field = ReadUnsigned(ctx, entry);
}

constexpr TagRow<PreviewDirectory> kPreviewTags[] = {
    {0x0201, StorePreviewNumber<&PreviewDirectory::jpegOffset>},
    {0x0202, StorePreviewNumber<&PreviewDirectory::jpegLength>},
};
static_assert(TagsAscend(kPreviewTags));

void StorePreview(ParseContext& ctx, const DirEntry& entry, NikonNote&) {
    if (!WantsPicture(ctx)) return;
    PreviewDirectory found;
    SeekToOffset(ctx, ReadUnsigned(ctx, entry));
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, found, kPreviewTags);
    AddJpegPreview(ctx, ctx.tiffBase + found.jpegOffset, found.jpegLength);
}

// clang-format off
constexpr TagRow<NikonNote> kTags[] = {
    {0x0001, StoreVersion},
    {0x0002, StoreIso},
    {0x0003, StoreTrimmed<&Fields::nikonColorMode>},
    {0x0004, StoreTrimmed<&Fields::nikonQuality>},
    {0x0005, StoreTrimmed<&Fields::nikonWhiteBalance>},
    {0x0006, StoreTrimmed<&Fields::nikonSharpening>},
    {0x0007, StoreTrimmed<&Fields::nikonFocusMode>},
    {0x0008, StoreTrimmed<&Fields::nikonFlashSetting>},
    {0x0009, StoreTrimmed<&Fields::nikonFlashType>},
    {0x000B, StoreFineTune},
    {0x000D, StoreEv<&Fields::nikonProgramShift>},
    {0x000E, StoreEv<&Fields::nikonExposureDifference>},
    {0x000F, StoreTrimmed<&Fields::nikonIsoSelection>},
    {0x0011, StorePreview},
    {0x0012, StoreEv<&Fields::nikonFlashComp>},
    {0x0013, StoreIsoSetting},
    {0x0017, StoreEv<&Fields::nikonExternalFlashComp>},
    {0x0018, StoreEv<&Fields::nikonFlashBracket>},
    {0x0019, InFields<StoreFloat<&Fields::nikonExposureBracket>>},
    {0x001B, InFields<StoreInteger<&Fields::nikonCropHiSpeed>>},
    {0x001D, StoreSerialNumber},
    {0x001E, InFields<StoreInteger<&Fields::nikonColorSpace>>},
    {0x001F, StoreNikonVrInfo},
    {0x0022, InFields<StoreInteger<&Fields::nikonActiveDLighting>>},
    {0x0023, StoreNikonPictureControl},
    {0x0025, StoreNikonIsoInfo},
    {0x002A, InFields<StoreInteger<&Fields::nikonVignetteControl>>},
    {0x002B, StoreNikonDistortInfo},
    {0x0034, InFields<StoreInteger<&Fields::nikonShutterMode>>},
    {0x0035, StoreNikonHdrInfo},
    {0x0037, StoreCount<&Fields::nikonMechanicalShutterCount>},
    {0x0080, StoreTrimmed<&Fields::nikonImageAdjustment>},
    {0x0081, StoreTrimmed<&Fields::nikonToneComp>},
    {0x0082, StoreTrimmed<&Fields::nikonAuxiliaryLens>},
    {0x0083, InFields<StoreInteger<&Fields::nikonLensType>>},
    {0x0084, StoreLensRange},
    {0x0085, StoreFocusDistance},
    {0x0086, InFields<StoreFloat<&Fields::nikonDigitalZoom>>},
    {0x0087, InFields<StoreInteger<&Fields::nikonFlashMode>>},
    {0x0088, StoreNikonAfInfo},
    {0x0089, InFields<StoreInteger<&Fields::nikonShootingMode>>},
    {0x008B, StoreEv<&Fields::nikonLensFStops, std::uint8_t>},
    {0x008D, StoreTrimmed<&Fields::nikonColorHue>},
    {0x008F, StoreTrimmed<&Fields::nikonSceneMode>},
    {0x0090, StoreTrimmed<&Fields::nikonLightSource>},
    {0x0092, InFields<StoreInteger<&Fields::nikonHueAdjustment>>},
    {0x0093, InFields<StoreInteger<&Fields::nikonNefCompression>>},
    {0x0094, InFields<StoreInteger<&Fields::nikonSaturationStep>>},
    {0x0095, StoreTrimmed<&Fields::nikonNoiseReduction>},
    {0x0098, RememberLensData},
    {0x009C, StoreTrimmed<&Fields::nikonSceneAssist>},
    {0x009D, InFields<StoreInteger<&Fields::nikonDateStamp>>},
    {0x009E, StoreRetouchHistory},
    {0x00A0, StoreTrimmed<&Fields::nikonSerialNumber2>},
    {0x00A5, StoreCount<&Fields::nikonImageCount>},
    {0x00A6, StoreCount<&Fields::nikonDeletedImageCount>},
    {0x00A7, StoreShutterCount},
    {0x00A9, StoreTrimmed<&Fields::nikonImageOptimization>},
    {0x00AA, StoreTrimmed<&Fields::nikonSaturation>},
    {0x00AB, StoreTrimmed<&Fields::nikonVariProgram>},
    {0x00AC, StoreTrimmed<&Fields::nikonVrText>},
    {0x00AD, StoreTrimmed<&Fields::nikonAfResponse>},
    {0x00B0, StoreNikonMultiExposure},
    {0x00B1, InFields<StoreInteger<&Fields::nikonHighIsoNr>>},
    {0x00B6, StoreNikonPowerUpTime},
    {0x00B7, StoreNikonAfInfo2},
    {0x00B8, StoreNikonFileInfo},
    {0x00B9, StoreNikonAfTune},
    {0x00BD, StoreNikonPictureControl},  // of compacts
    {0x00BF, InFields<StoreInteger<&Fields::nikonSilent>>},
};
// clang-format on
static_assert(TagsAscend(kTags));

}  // namespace

void ParseNikonMakerNote(ParseContext& ctx, std::uint32_t) {
    NikonNote note = {ResetMakerRecord<Fields>(ctx.info)};
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, note, kTags);
    if (note.lens.length != 0) DecodeNikonLensData(ctx, note.lens, note.fields);
}

}  // namespace qmx
