// The Exif directory: how the picture was taken.

#include <cmath>
#include <numbers>

#include "makernote/dispatch.h"
#include "parse/core/entry_walk.h"
#include "parse/directories/tiff.h"

namespace qmx {
namespace {

// APEX values are binary logarithms.
double Exp2(double value) { return std::exp(value * std::numbers::ln2); }

void StoreShutterSpeed(ParseContext& ctx, const DirEntry& entry, ImageInfo& info) {
    info.shutterSpeed = ToField(1.0 / Exp2(ReadValue(ctx, entry.type)));
}

// APEX aperture to f-number.
template <auto Field>
void StoreAperture(ParseContext& ctx, const DirEntry& entry, ImageInfo& info) {
    info.*Field = ToField(Exp2(ReadValue(ctx, entry.type) / 2));
}

// Some cameras write the gain factor in place of the speed: below 50 it counts in steps of 200.
std::int32_t ReadIso(ParseContext& ctx, const DirEntry& entry) {
    const std::int32_t value = ReadInteger(ctx, entry);
    return value < 50 ? WrappingMultiply(value, 200) : value;
}

void StoreIso(ParseContext& ctx, const DirEntry& entry, ImageInfo& info) {
    info.isoSpeed = ReadIso(ctx, entry);
}

void StoreExposureIndex(ParseContext& ctx, const DirEntry& entry, ImageInfo& info) {
    if (!IsSet(info.isoSpeed)) info.isoSpeed = ReadIso(ctx, entry);
}

void StoreFocalPlaneUnit(ParseContext& ctx, const DirEntry& entry, ImageInfo& info) {
    const std::int32_t unit = ReadInteger(ctx, entry);
    if (unit < 1 || unit > 5) return;
    constexpr float kMmPerUnit[] = {25.4f, 25.4f, 10.0f, 1.0f, 0.001f};  // from unit 1
    info.focalPlaneUnitMm = kMmPerUnit[unit - 1];
}

void StoreFocalLengthIn35mm(ParseContext& ctx, const DirEntry& entry, ImageInfo& info) {
    const float value = ReadFloat(ctx, entry);
    info.focalLengthIn35mm = value == 0 ? FLOAT_UNSET : value;  // 0 means unknown
}

void EnterMakerNote(ParseContext& ctx, const DirEntry&, ImageInfo&) {
    ParseMakerNote(ctx, ctx.tiffBase);
}

using Info = ImageInfo;

constexpr TagRow<Info> kTags[] = {
    {0x829A, StoreFloat<&Info::exposureTime>},
    {0x829D, StoreFloat<&Info::fNumber>},
    {0x8822, StoreInteger<&Info::exposureProgram>},
    {0x8827, StoreIso},
    {0x9003, StoreText<&Info::dateTimeOriginal>},
    {0x9004, StoreText<&Info::dateTimeDigitized>},
    {0x9201, StoreShutterSpeed},
    {0x9202, StoreAperture<&Info::aperture>},
    {0x9203, StoreFloat<&Info::brightness>},
    {0x9204, StoreFloat<&Info::exposureBias>},
    {0x9205, StoreAperture<&Info::maxAperture>},
    {0x9206, StoreFloat<&Info::subjectDistance>},
    {0x9207, StoreInteger<&Info::meteringMode>},
    {0x9208, StoreInteger<&Info::lightSource>},
    {0x9209, StoreInteger<&Info::flash>},
    {0x920A, StoreFloat<&Info::focalLength>},
    {0x927C, EnterMakerNote},
    {0xA001, StoreInteger<&Info::colorSpace>},
    {0xA002, StoreInteger<&Info::pixelXDimension>},
    {0xA003, StoreInteger<&Info::pixelYDimension>},
    {0xA20E, StoreFloat<&Info::focalPlaneXResolution>},
    {0xA20F, StoreFloat<&Info::focalPlaneYResolution>},
    {0xA210, StoreFocalPlaneUnit},
    {0xA215, StoreExposureIndex},
    {0xA402, StoreInteger<&Info::exposureMode>},
    {0xA403, StoreInteger<&Info::whiteBalance>},
    {0xA404, StoreFloat<&Info::digitalZoomRatio>},
    {0xA405, StoreFocalLengthIn35mm},
    {0xA406, StoreInteger<&Info::sceneCaptureType>},
    {0xA407, StoreInteger<&Info::gainControl>},
    {0xA408, StoreInteger<&Info::contrast>},
    {0xA409, StoreInteger<&Info::saturation>},
    {0xA40A, StoreInteger<&Info::sharpness>},
    {0xA40C, StoreInteger<&Info::subjectDistanceRange>},
    {0xA500, StoreFloat<&Info::gamma>},
};
static_assert(TagsAscend(kTags));

}  // namespace

void WalkExifIfd(ParseContext& ctx, std::uint32_t) {
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, ctx.info, kTags);
}

}  // namespace qmx
