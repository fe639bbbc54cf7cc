#include "makernote/olympus_directories.h"

#include <algorithm>
#include <cmath>

namespace qmx {
namespace {

using Fields = OlympusMakerFields;
using Note = OlympusNote;

void Walk(ParseContext& ctx, Note& note, const auto& rows) {
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, note, rows);
}

// ---- Equipment.

// The bytes that identify a lens or an extender: maker, then, behind one without a part in it,
// kind and number.
struct ProductBytes {
    std::uint8_t bytes[4] = {};
    bool isWhole = false;
};

ProductBytes ReadProduct(ParseContext& ctx, const DirEntry& entry) {
    ProductBytes product;
    const std::size_t wanted = std::min<std::size_t>(entry.count, sizeof product.bytes);
    product.isWhole = ReadBytes(ctx, product.bytes, wanted) == sizeof product.bytes;
    return product;
}

void StoreLensId(ParseContext& ctx, const DirEntry& entry, Note& note) {
    const auto [bytes, isWhole] = ReadProduct(ctx, entry);
    if (isWhole) note.fields.lensId = bytes[0] << 16 | bytes[2] << 8 | bytes[3];
}

void StoreExtender(ParseContext& ctx, const DirEntry& entry, Note& note) {
    const auto [bytes, isWhole] = ReadProduct(ctx, entry);
    if (isWhole) note.fields.extender = bytes[0] << 8 | bytes[2];
}

// Lenses that do not talk to the body leave their range 0.
template <auto Field>
void StoreAboveZero(ParseContext& ctx, const DirEntry& entry, Note& note) {
    const std::int32_t value = ReadInteger(ctx, entry);
    if (value > 0) note.fields.*Field = value;
}

// The widest aperture at the focal length in use, 256ths of a stop.
void FillMaxAperture(ParseContext& ctx, const DirEntry& entry, Note&) {
    const double raw = ReadValue(ctx, entry.type);
    if (!IsSet(ctx.info.maxAperture) && raw > 0.0)
        ctx.info.maxAperture = ToField(std::exp2(raw / 512.0));
}

constexpr TagRow<Note> kEquipmentTags[] = {
    {0x0100, StoreOlympusText<&Fields::cameraType>},
    {0x0101, StoreOlympusText<&Fields::serialNumber>},
    {0x0104, InOlympusFields<StoreInteger<&Fields::bodyFirmware>>},
    {0x0201, StoreLensId},
    {0x0202, StoreOlympusText<&Fields::lensSerial>},
    {0x0203, StoreOlympusText<&Fields::lensModel>},
    {0x0204, InOlympusFields<StoreInteger<&Fields::lensFirmware>>},
    {0x0205, StoreAboveZero<&Fields::widestAtMinFocal>},
    {0x0206, StoreAboveZero<&Fields::widestAtMaxFocal>},
    {0x0207, StoreAboveZero<&Fields::minFocalLength>},
    {0x0208, StoreAboveZero<&Fields::maxFocalLength>},
    {0x020A, FillMaxAperture},
    {0x0301, StoreExtender},
    {0x0403, StoreOlympusText<&Fields::conversionLens>},
    {0x1000, InOlympusFields<StoreInteger<&Fields::flashType>>},
    {0x1001, InOlympusFields<StoreInteger<&Fields::flashModel>>},
};
static_assert(TagsAscend(kEquipmentTags));

// ---- CameraSettings.

// The first area in use of a list of 64.
void StoreFocusArea(ParseContext& ctx, const DirEntry& entry, Note& note) {
    constexpr std::uint32_t kAreas = 64;
    for (std::uint32_t i = 0; i < std::min(entry.count, kAreas) && BytesLeft(ctx) >= 4; ++i) {
        const std::uint32_t area = ReadU32(ctx);
        if (area == 0) continue;
        note.fields.focusArea = static_cast<std::int32_t>(area);
        return;
    }
}

constexpr TagRow<Note> kSettingsTags[] = {
    {0x0100, StoreOlympusPart<&Note::settingsPreview, &OlympusPreview::isValid>},
    {0x0101, StoreOlympusPart<&Note::settingsPreview, &OlympusPreview::offset>},
    {0x0102, StoreOlympusPart<&Note::settingsPreview, &OlympusPreview::length>},
    {0x0200, InOlympusFields<StoreInteger<&Fields::exposureMode>>},
    {0x0201, InOlympusFields<StoreInteger<&Fields::aeLock>>},
    {0x0202, InOlympusFields<StoreInteger<&Fields::meteringMode>>},
    {0x0203, InOlympusFields<StoreFloat<&Fields::exposureShift>>},
    {0x0300, InOlympusFields<StoreInteger<&Fields::macroMode>>},
    {0x0301, StoreOlympusNumbers<&Fields::focusMode, &Fields::focusBits>},
    {0x0302, InOlympusFields<StoreInteger<&Fields::focusProcess>>},
    {0x0303, InOlympusFields<StoreInteger<&Fields::focusSearch>>},
    {0x0304, StoreFocusArea},
    {0x0400, InOlympusFields<StoreInteger<&Fields::flashMode>>},
    {0x0401, InOlympusFields<StoreFloat<&Fields::flashCompensation>>},
    {0x0404, InOlympusFields<StoreInteger<&Fields::flashControl>>},
    {0x0500, InOlympusFields<StoreInteger<&Fields::whiteBalance>>},
    {0x0501, InOlympusFields<StoreInteger<&Fields::colorTemperature>>},
    {0x0502, StoreOlympusNumbers<&Fields::balanceBracketAmber, &Fields::balanceBracketGreen>},
    {0x0503, StoreOlympusNumbers<&Fields::saturation, &Fields::saturationLowest>},
    {0x0504, InOlympusFields<StoreInteger<&Fields::modifiedSaturation>>},
    {0x0505, InOlympusFields<StoreInteger<&Fields::contrast>>},
    {0x0506, InOlympusFields<StoreInteger<&Fields::sharpness>>},
    {0x0507, InOlympusFields<StoreInteger<&Fields::colorSpace>>},
    {0x0509, InOlympusFields<StoreInteger<&Fields::sceneMode>>},
    {0x050A, InOlympusFields<StoreInteger<&Fields::noiseReduction>>},
    {0x050B, InOlympusFields<StoreInteger<&Fields::distortionCorrection>>},
    {0x050C, InOlympusFields<StoreInteger<&Fields::shadingCompensation>>},
    {0x050D, InOlympusFields<StoreFloat<&Fields::compression>>},
    {0x050F, StoreOlympusNumbers<&Fields::gradation, &Fields::gradationLowest,
                                 &Fields::gradationHighest, &Fields::gradationAuto>},
    {0x0520, InOlympusFields<StoreInteger<&Fields::pictureMode>>},
    {0x0521, InOlympusFields<StoreInteger<&Fields::pictureSaturation>>},
    {0x0523, InOlympusFields<StoreInteger<&Fields::pictureContrast>>},
    {0x0524, InOlympusFields<StoreInteger<&Fields::pictureSharpness>>},
    {0x0525, InOlympusFields<StoreInteger<&Fields::monochromeFilter>>},
    {0x0526, InOlympusFields<StoreInteger<&Fields::monochromeTone>>},
    {0x0527, StoreOlympusNumbers<&Fields::noiseFilter, &Fields::noiseFilterLowest,
                                 &Fields::noiseFilterHighest>},
    {0x0529, InOlympusFields<StoreInteger<&Fields::artFilter>>},
    {0x0600, StoreOlympusNumbers<&Fields::driveMode, &Fields::driveShot, &Fields::bracketBits>},
    {0x0601, StoreOlympusNumbers<&Fields::panoramaMode, &Fields::panoramaShot>},
    {0x0603, InOlympusFields<StoreInteger<&Fields::imageQuality>>},
    {0x0604, InOlympusFields<StoreInteger<&Fields::imageStabilization>>},
};
static_assert(TagsAscend(kSettingsTags));

// ---- ImageProcessing and RawInfo.

constexpr TagRow<Note> kProcessingTags[] = {
    {0x0614, StoreOlympusPart<&Note::crop, &OlympusSize::width>},
    {0x0615, StoreOlympusPart<&Note::crop, &OlympusSize::height>},
};
static_assert(TagsAscend(kProcessingTags));

constexpr TagRow<Note> kRawInfoTags[] = {
    {0x0614, StoreOlympusPart<&Note::crop, &OlympusSize::width>},
    {0x0615, StoreOlympusPart<&Note::crop, &OlympusSize::height>},
    {0x1000, InOlympusFields<StoreInteger<&Fields::lightSource>>},
};
static_assert(TagsAscend(kRawInfoTags));

}  // namespace

void DecodeOlympusEquipment(ParseContext& ctx, OlympusNote& note) {
    Walk(ctx, note, kEquipmentTags);
}

void DecodeOlympusSettings(ParseContext& ctx, OlympusNote& note) { Walk(ctx, note, kSettingsTags); }

void DecodeOlympusProcessing(ParseContext& ctx, OlympusNote& note) {
    Walk(ctx, note, kProcessingTags);
}

void DecodeOlympusRawInfo(ParseContext& ctx, OlympusNote& note) { Walk(ctx, note, kRawInfoTags); }

}  // namespace qmx
