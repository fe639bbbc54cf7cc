// Casio's MakerNote of the "QVC" form: a big-endian directory, whatever the file's byte order.

#include <algorithm>

#include "makernote/casio_fields.h"
#include "makernote/decoders.h"
#include "makernote/maker_record.h"
#include "makernote/note_preview.h"
#include "parse/core/entry_walk.h"
#include "parse/core/jpeg.h"

namespace qmx {
namespace {

using Fields = CasioMakerFields;

// One note being read.
struct CasioNote {
    Fields& fields;
    NotePreview preview;
};

template <void (*Store)(ParseContext&, const DirEntry&, Fields&)>
void InFields(ParseContext& ctx, const DirEntry& entry, CasioNote& note) {
    Store(ctx, entry, note.fields);
}

// The type says "undefined"; it is a word.
template <auto Field>
void StoreWord(ParseContext& ctx, const DirEntry&, CasioNote& note) {
    note.fields.*Field = ReadU16(ctx);
}

void StorePreviewSize(ParseContext& ctx, const DirEntry& entry, CasioNote& note) {
    ImageRecord* record = note.preview.Record(ctx);
    if (record == nullptr) return;
    record->width = ReadInteger(ctx, entry);
    record->height = ReadInteger(ctx, entry);
}

void StorePreviewLength(ParseContext& ctx, const DirEntry& entry, CasioNote& note) {
    if (ImageRecord* record = note.preview.Record(ctx))
        record->jpegLength = ReadUnsigned(ctx, entry);
}

// Some writers count the offset from the file's start, most from the TIFF header: the picture is
// where a frame header answers.
void StorePreviewOffset(ParseContext& ctx, const DirEntry& entry, CasioNote& note) {
    ImageRecord* record = note.preview.Record(ctx);
    if (record == nullptr) return;
    const std::uint32_t stored = ReadUnsigned(ctx, entry);
    record->jpegOffset = stored;
    for (const std::uint32_t position : {stored, ctx.tiffBase + stored}) {
        if (!ProbeJpegFrame(ctx, position, *record)) continue;
        record->jpegOffset = position;
        record->compression = kCompressionOldJpeg;
        return;
    }
}

void StoreWhiteBalanceGains(ParseContext& ctx, const DirEntry& entry, CasioNote& note) {
    note.fields.casioTag2011a = ReadInteger(ctx, entry);
    note.fields.casioTag2011b = ReadInteger(ctx, entry);
}

void StoreFlashDistance(ParseContext& ctx, const DirEntry& entry, CasioNote& note) {
    const std::int32_t distance = ReadInteger(ctx, entry);
    if (distance != 0) note.fields.casioTag2034 = distance;
}

void StoreHomeTown(ParseContext& ctx, const DirEntry& entry, CasioNote& note) {
    auto& town = note.fields.casioTag3006;
    ReadBytes(ctx, town, std::min<std::size_t>(entry.count, sizeof town));
}

void StoreIso(ParseContext& ctx, const DirEntry& entry, CasioNote& note) {
    note.fields.casioTag3014 = ReadInteger(ctx, entry);
    if (!IsSet(ctx.info.isoSpeed)) ctx.info.isoSpeed = note.fields.casioTag3014;
}

constexpr TagRow<CasioNote> kTags[] = {
    {0x0002, StorePreviewSize},
    {0x0003, StorePreviewLength},
    {0x0004, StorePreviewOffset},
    {0x2011, StoreWhiteBalanceGains},
    {0x2012, InFields<StoreInteger<&Fields::casioTag2012>>},
    {0x2022, InFields<StoreInteger<&Fields::casioTag2022>>},
    {0x2034, StoreFlashDistance},
    {0x3000, InFields<StoreInteger<&Fields::casioTag3000>>},
    {0x3001, InFields<StoreInteger<&Fields::casioTag3001>>},
    {0x3002, InFields<StoreInteger<&Fields::casioTag3002>>},
    {0x3003, InFields<StoreInteger<&Fields::casioTag3003>>},
    {0x3006, StoreHomeTown},
    {0x3007, InFields<StoreInteger<&Fields::casioTag3007>>},
    {0x3011, StoreWord<&Fields::casioTag3011>},
    {0x3012, StoreWord<&Fields::casioTag3012>},
    {0x3013, StoreWord<&Fields::casioTag3013>},
    {0x3014, StoreIso},
    {0x3015, InFields<StoreInteger<&Fields::casioTag3015>>},
    {0x3016, InFields<StoreInteger<&Fields::casioTag3016>>},
    {0x3017, InFields<StoreInteger<&Fields::casioTag3017>>},
};
static_assert(TagsAscend(kTags));

// The stated count may be too high: what no directory holds ends the entries.
bool EndsDirectory(const DirEntry& entry) {
    return entry.tag == 0 || entry.type < kTypeByte || entry.type > kTypeDouble || entry.count == 0;
}

}  // namespace

void ParseCasioMakerNote(ParseContext& ctx, std::uint32_t) {
    CasioNote note = {ResetMakerRecord<Fields>(ctx.info), {}};
    const std::uint32_t count = ReadU16(ctx);  // the count alone follows the file's order
    ctx.byteOrder = kBigEndian;
    WalkTable(ctx, count, note, kTags, EndsDirectory);
}

}  // namespace qmx
