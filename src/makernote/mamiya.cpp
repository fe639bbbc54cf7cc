// Mamiya's MakerNote: plain entries without a header, offsets from the TIFF header.

#include "makernote/decoders.h"
#include "makernote/maker_record.h"
#include "makernote/mamiya_fields.h"
#include "parse/core/entry_walk.h"

namespace qmx {
namespace {

using Fields = MamiyaMakerFields;

constexpr TagRow<Fields> kTags[] = {
    {0x0090, StoreInteger<&Fields::mamiyaTag90>}, {0x0095, StoreInteger<&Fields::mamiyaTag95>},
    {0x0098, StoreInteger<&Fields::mamiyaTag98>}, {0x00A2, StoreInteger<&Fields::mamiyaTagA2>},
    {0x00A5, StoreInteger<&Fields::mamiyaTagA5>},
};
static_assert(TagsAscend(kTags));

}  // namespace

void ParseMamiyaMakerNote(ParseContext& ctx, std::uint32_t) {
    Fields& fields = ResetMakerRecord<Fields>(ctx.info);
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, fields, kTags);
}

}  // namespace qmx
