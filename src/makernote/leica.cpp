// Leica's MakerNotes: the form of the bodies that Panasonic built, and Leica's own.

#include "makernote/decoders.h"
#include "makernote/leica_fields.h"
#include "makernote/maker_record.h"
#include "parse/core/entry_walk.h"

namespace qmx {
namespace {

using Fields = LeicaMakerFields;

constexpr TagRow<Fields> kTags[] = {
    {0x0304, StoreInteger<&Fields::leicaTag304>},
    {0x0310, StoreInteger<&Fields::leicaTag310>},
    {0x0321, StoreInteger<&Fields::leicaTag321>},
    {0x0340, StoreInteger<&Fields::leicaTag340>},
};
static_assert(TagsAscend(kTags));

}  // namespace

void ParseLeicaMakerNote(ParseContext& ctx, std::uint32_t ifdBase) {
    if (ctx.info.modelId < kFirstOwnLeicaModel) return ParsePanasonicMakerNote(ctx, ifdBase);
    Fields& fields = ResetMakerRecord<Fields>(ctx.info);
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, fields, kTags);
}

}  // namespace qmx
