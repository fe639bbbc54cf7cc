// Seiko Epson's MakerNote: plain entries in the file's byte order, offsets from the TIFF header,
// and a JPEG preview.

#include "makernote/decoders.h"
#include "makernote/maker_record.h"
#include "makernote/note_preview.h"
#include "makernote/seiko_fields.h"
#include "parse/core/entry_walk.h"
#include "parse/core/jpeg.h"

namespace qmx {
namespace {

using Fields = SeikoMakerFields;

// One note being read.
struct SeikoNote {
    Fields& fields;
    NotePreview preview;
};

template <void (*Store)(ParseContext&, const DirEntry&, Fields&)>
void InFields(ParseContext& ctx, const DirEntry& entry, SeikoNote& note) {
    Store(ctx, entry, note.fields);
}

// The value itself is the JPEG stream.  Of several previews the last one counts, with its own size.
void StorePreview(ParseContext& ctx, const DirEntry& entry, SeikoNote& note) {
    ImageRecord* const record = note.preview.Record(ctx);
    if (record == nullptr) return;
    record->compression = kCompressionOldJpeg;
    record->jpegOffset = static_cast<std::uint32_t>(Position(ctx));
    record->jpegLength = entry.count;
    record->width = record->height = 0;
    ProbeJpegFrame(ctx, record->jpegOffset, *record);
}

constexpr TagRow<SeikoNote> kTags[] = {
    {0x0201, InFields<StoreInteger<&Fields::seikoTag201>>},
    {0x0209, InFields<StoreText<&Fields::seikoTag209>>},
    {0x020B, InFields<StoreInteger<&Fields::seikoTag20B>>},
    {0x020C, InFields<StoreInteger<&Fields::seikoTag20C>>},
    {0x020D, InFields<StoreText<&Fields::seikoTag20D>>},
    {0x0280, StorePreview},
};
static_assert(TagsAscend(kTags));

}  // namespace

void ParseSeikoMakerNote(ParseContext& ctx, std::uint32_t) {
    SeikoNote note = {ResetMakerRecord<Fields>(ctx.info), {}};
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, note, kTags);
}

}  // namespace qmx
