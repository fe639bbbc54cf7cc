// Fujifilm's MakerNote: plain entries, little-endian, offsets from the note's own start.

#include "makernote/decoders.h"
#include "makernote/fujifilm_fields.h"
#include "makernote/maker_record.h"
#include "parse/core/entry_walk.h"

namespace qmx {
namespace {

using Fields = FujifilmMakerFields;

// Two numbers, one after the other; a value of none stores nothing.
template <auto First, auto Second>
void StoreIntegers(ParseContext& ctx, const DirEntry& entry, Fields& fields) {
    if (entry.count == 0) return;
    fields.*First = ReadInteger(ctx, entry);
    fields.*Second = ReadInteger(ctx, entry);
}

void StoreFaceArea(ParseContext& ctx, const DirEntry& entry, Fields& fields) {
    if (entry.count == 0) return;
    for (std::int32_t& edge : fields.fujiTag4005) edge = ReadInteger(ctx, entry);
}

constexpr TagRow<Fields> kTags[] = {
    {0x0000, StoreText<&Fields::fujiVersion>},
    {0x1000, StoreText<&Fields::fujiQuality>},
    {0x1001, StoreInteger<&Fields::fujiSharpness>},
    {0x1002, StoreInteger<&Fields::fujiWhiteBalance>},
    {0x1003, StoreInteger<&Fields::fujiSaturation>},
    {0x1004, StoreInteger<&Fields::fujiContrast>},
    {0x1005, StoreInteger<&Fields::fujiColorTemperature>},
    {0x1006, StoreInteger<&Fields::fujiContrast2>},
    {0x100A, StoreIntegers<&Fields::fujiWbFineTune1, &Fields::fujiWbFineTune2>},
    {0x100B, StoreInteger<&Fields::fujiNoiseReduction>},
    {0x1010, StoreInteger<&Fields::fujiFlashMode>},
    {0x1011, StoreFloat<&Fields::fujiFlashExposureComp>},
    {0x1020, StoreInteger<&Fields::fujiMacro>},
    {0x1021, StoreInteger<&Fields::fujiFocusMode>},
    {0x1022, StoreInteger<&Fields::fujiAfMode>},
    {0x1023, StoreIntegers<&Fields::fujiFocusPixel1, &Fields::fujiFocusPixel2>},
    {0x1030, StoreInteger<&Fields::fujiSlowSync>},
    {0x1031, StoreInteger<&Fields::fujiPictureMode>},
    {0x1100, StoreInteger<&Fields::fujiAutoBracketing>},
    {0x1101, StoreInteger<&Fields::fujiSequenceNumber>},
    {0x1210, StoreInteger<&Fields::fujiTag1210>},
    {0x1300, StoreInteger<&Fields::fujiBlurWarning>},
    {0x1301, StoreInteger<&Fields::fujiFocusWarning>},
    {0x1302, StoreInteger<&Fields::fujiExposureWarning>},
    {0x1400, StoreInteger<&Fields::fujiDynamicRange>},
    {0x1401, StoreInteger<&Fields::fujiFilmMode>},
    {0x1402, StoreInteger<&Fields::fujiDynamicRangeSetting>},
    {0x1403, StoreInteger<&Fields::fujiDevelopmentDynamicRange>},
    {0x1404, StoreInteger<&Fields::fujiMinFocalLength>},
    {0x1405, StoreInteger<&Fields::fujiMaxFocalLength>},
    {0x1406, StoreFloat<&Fields::fujiMaxApertureAtMinFocal>},
    {0x1407, StoreFloat<&Fields::fujiMaxApertureAtMaxFocal>},
    {0x4005, StoreFaceArea},
};
static_assert(TagsAscend(kTags));

}  // namespace

void ParseFujifilmMakerNote(ParseContext& ctx, std::uint32_t) {
    Fields& fields = ResetMakerRecord<Fields>(ctx.info);
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, fields, kTags);
}

}  // namespace qmx
