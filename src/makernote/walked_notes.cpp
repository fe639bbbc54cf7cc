// MakerNotes of a known form whose tags have no known meaning: KDDI's and Hasselblad's.  Their
// entries are walked and nothing is kept.

#include "makernote/decoders.h"
#include "makernote/hasselblad_fields.h"
#include "makernote/maker_record.h"
#include "parse/core/entry_walk.h"

namespace qmx {
namespace {

void WalkOnly(ParseContext& ctx) {
    const std::uint32_t count = ReadU16(ctx);
    WalkEntries(ctx, count, [](const DirEntry&) {});
}

}  // namespace

void ParseKddiMakerNote(ParseContext& ctx, std::uint32_t) { WalkOnly(ctx); }

void ParseHasselbladMakerNote(ParseContext& ctx, std::uint32_t) {
    ResetMakerRecord<HasselbladMakerFields>(ctx.info);
    WalkOnly(ctx);
}

}  // namespace qmx
