// Panasonic's MakerNote: plain entries in the file's byte order, offsets from the TIFF header.

#include "makernote/decoders.h"
#include "makernote/maker_record.h"
#include "makernote/panasonic_fields.h"
#include "parse/core/entry_walk.h"

namespace qmx {
namespace {

using Fields = PanasonicMakerFields;

// Deliberate: two single bytes make the code, the first one high in either byte order.
void StoreAfMode(ParseContext& ctx, const DirEntry&, Fields& fields) {
    fields.panasonicTag0F = ReadU16BE(ctx);
}

// Written as SHORT, meant as signed.
void StoreWhiteBalanceShift(ParseContext& ctx, const DirEntry& entry, Fields& fields) {
    fields.panasonicTag23 = static_cast<std::int16_t>(ReadInteger(ctx, entry));
}

// A signed step, whatever type the entry states.
template <auto Field>
void StoreSignedWord(ParseContext& ctx, const DirEntry&, Fields& fields) {
    fields.*Field = static_cast<std::int16_t>(ReadU16(ctx));
}

constexpr TagRow<Fields> kTags[] = {
    {0x0001, StoreInteger<&Fields::panasonicTag01>},
    {0x0003, StoreInteger<&Fields::panasonicTag03>},
    {0x0007, StoreInteger<&Fields::panasonicTag07>},
    {0x000F, StoreAfMode},
    {0x001A, StoreInteger<&Fields::panasonicTag1A>},
    {0x001C, StoreInteger<&Fields::panasonicTag1C>},
    {0x001F, StoreInteger<&Fields::panasonicTag1F>},
    {0x0023, StoreWhiteBalanceShift},
    {0x0024, StoreInteger<&Fields::panasonicTag24>},
    {0x0025, StoreText<&Fields::panasonicTag25>},
    {0x0028, StoreInteger<&Fields::panasonicTag28>},
    {0x002A, StoreInteger<&Fields::panasonicTag2A>},
    {0x002B, StoreInteger<&Fields::panasonicTag2B>},
    {0x002C, StoreInteger<&Fields::panasonicTag2C>},
    {0x002D, StoreInteger<&Fields::panasonicTag2D>},
    {0x002E, StoreInteger<&Fields::panasonicTag2E>},
    {0x0031, StoreInteger<&Fields::panasonicTag31>},
    {0x0032, StoreInteger<&Fields::panasonicTag32>},
    {0x0039, StoreSignedWord<&Fields::panasonicTag39>},
    {0x003D, StoreSignedWord<&Fields::panasonicTag3D>},
    {0x0040, StoreSignedWord<&Fields::panasonicTag40>},
    {0x0041, StoreSignedWord<&Fields::panasonicTag41>},
    {0x0042, StoreInteger<&Fields::panasonicTag42>},
    {0x0051, StoreText<&Fields::panasonicTag51>},
    {0x0053, StoreText<&Fields::panasonicTag53>},
    {0x005D, StoreInteger<&Fields::panasonicTag5D>},
};
static_assert(TagsAscend(kTags));

}  // namespace

void ParsePanasonicMakerNote(ParseContext& ctx, std::uint32_t) {
    Fields& fields = ResetMakerRecord<Fields>(ctx.info);
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, fields, kTags);
}

}  // namespace qmx
