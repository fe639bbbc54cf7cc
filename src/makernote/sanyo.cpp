// Sanyo's MakerNote: plain entries in the file's byte order, offsets from the TIFF header.

#include "makernote/decoders.h"
#include "makernote/maker_record.h"
#include "makernote/sanyo_fields.h"
#include "parse/core/entry_walk.h"

namespace qmx {
namespace {

using Fields = SanyoMakerFields;

constexpr TagRow<Fields> kTags[] = {
    {0x0201, StoreInteger<&Fields::sanyoTag201>}, {0x0202, StoreInteger<&Fields::sanyoTag202>},
    {0x0204, StoreFloat<&Fields::sanyoTag204>},   {0x020E, StoreInteger<&Fields::sanyoTag20E>},
    {0x020F, StoreInteger<&Fields::sanyoTag20F>}, {0x0210, StoreInteger<&Fields::sanyoTag210>},
    {0x0213, StoreInteger<&Fields::sanyoTag213>}, {0x0214, StoreInteger<&Fields::sanyoTag214>},
    {0x0215, StoreInteger<&Fields::sanyoTag215>}, {0x0218, StoreInteger<&Fields::sanyoTag218>},
    {0x0219, StoreInteger<&Fields::sanyoTag219>}, {0x021A, StoreInteger<&Fields::sanyoTag21A>},
    {0x021B, StoreInteger<&Fields::sanyoTag21B>}, {0x0225, StoreInteger<&Fields::sanyoTag225>},
};
static_assert(TagsAscend(kTags));

}  // namespace

void ParseSanyoMakerNote(ParseContext& ctx, std::uint32_t) {
    Fields& fields = ResetMakerRecord<Fields>(ctx.info);
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, fields, kTags);
}

}  // namespace qmx
