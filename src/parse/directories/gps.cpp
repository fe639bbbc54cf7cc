// The GPS directory: where the picture was taken.

#include "parse/core/entry_walk.h"
#include "parse/directories/tiff.h"

namespace qmx {
namespace {

void StoreVersion(ParseContext& ctx, const DirEntry& entry, ImageInfo& info) {
    ReadBytes(ctx, info.gpsVersionId, std::min<std::size_t>(entry.count, sizeof info.gpsVersionId));
}

// Up to three values: degrees or hours, minutes, seconds.
template <auto Field>
void StoreTriple(ParseContext& ctx, const DirEntry& entry, ImageInfo& info) {
    const std::uint32_t count = std::min<std::uint32_t>(entry.count, 3);
    for (std::uint32_t i = 0; i < count; ++i) (info.*Field)[i] = ReadFloat(ctx, entry);
}

// Deliberate: less than one degree counts as no position, since receivers without a fix write 0.
template <auto Field>
void StoreCoordinate(ParseContext& ctx, const DirEntry& entry, ImageInfo& info) {
    StoreTriple<Field>(ctx, entry, info);
    float& degrees = (info.*Field)[0];
    if (TruncateToI32(degrees) == 0) degrees = FLOAT_UNSET;
}

void StoreAltitudeRef(ParseContext& ctx, const DirEntry& entry, ImageInfo& info) {
    info.gpsAltitudeRef = static_cast<std::uint8_t>(ReadInteger(ctx, entry));
}

using Info = ImageInfo;

constexpr TagRow<Info> kTags[] = {
    {0, StoreVersion},
    {1, StoreText<&Info::gpsLatitudeRef>},
    {2, StoreCoordinate<&Info::gpsLatitude>},
    {3, StoreText<&Info::gpsLongitudeRef>},
    {4, StoreCoordinate<&Info::gpsLongitude>},
    {5, StoreAltitudeRef},
    {6, StoreFloat<&Info::gpsAltitude>},
    {7, StoreTriple<&Info::gpsTimeStamp>},
    {8, StoreText<&Info::gpsSatellites>},
    {18, StoreText<&Info::gpsMapDatum>},
    {29, StoreText<&Info::gpsDateStamp>},
};
static_assert(TagsAscend(kTags));

}  // namespace

void WalkGpsIfd(ParseContext& ctx, std::uint32_t) {
    ctx.info.hasGps = 1;
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, ctx.info, kTags);
}

}  // namespace qmx
