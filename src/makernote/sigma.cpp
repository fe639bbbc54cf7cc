// Sigma's MakerNote: plain entries in the file's byte order, offsets from the TIFF header, and a
// preview that may follow the last value.

#include <algorithm>

#include "makernote/decoders.h"
#include "makernote/maker_record.h"
#include "makernote/note_preview.h"
#include "makernote/sigma_fields.h"
#include "parse/core/entry_walk.h"
#include "parse/core/jpeg.h"

namespace qmx {
namespace {

using Fields = SigmaMakerFields;

// One note being read.
struct SigmaNote {
    Fields& fields;
    NotePreview preview;
};

template <void (*Store)(ParseContext&, const DirEntry&, Fields&)>
void InFields(ParseContext& ctx, const DirEntry& entry, SigmaNote& note) {
    Store(ctx, entry, note.fields);
}

void StorePreviewOffset(ParseContext& ctx, const DirEntry& entry, SigmaNote& note) {
    ImageRecord* record = note.preview.Record(ctx);
    if (record == nullptr) return;
    record->jpegOffset = ctx.tiffBase + ReadUnsigned(ctx, entry);
    record->compression = kCompressionOldJpeg;
}

void StorePreviewLength(ParseContext& ctx, const DirEntry& entry, SigmaNote& note) {
    if (ImageRecord* record = note.preview.Record(ctx))
        record->jpegLength = ReadUnsigned(ctx, entry);
}

void StorePreviewSize(ParseContext& ctx, const DirEntry& entry, SigmaNote& note) {
    ImageRecord* record = note.preview.Record(ctx);
    if (record == nullptr) return;
    record->width = ReadInteger(ctx, entry);
    record->height = ReadInteger(ctx, entry);
}

constexpr TagRow<SigmaNote> kTags[] = {
    {0x0002, InFields<StoreText<&Fields::sigmaTag02>>},
    {0x0003, InFields<StoreText<&Fields::sigmaTag03>>},
    {0x0004, InFields<StoreText<&Fields::sigmaTag04>>},
    {0x0005, InFields<StoreText<&Fields::sigmaTag05>>},
    {0x0006, InFields<StoreText<&Fields::sigmaTag06>>},
    {0x0007, InFields<StoreText<&Fields::sigmaTag07>>},
    {0x0008, InFields<StoreText<&Fields::sigmaTag08>>},
    {0x0009, InFields<StoreText<&Fields::sigmaTag09>>},
    {0x000A, InFields<StoreText<&Fields::sigmaTag0A>>},
    {0x000B, InFields<StoreText<&Fields::sigmaTag0B>>},
    {0x000C, InFields<StoreText<&Fields::sigmaTag0C>>},
    {0x000D, InFields<StoreText<&Fields::sigmaTag0D>>},
    {0x000E, InFields<StoreText<&Fields::sigmaTag0E>>},
    {0x000F, InFields<StoreText<&Fields::sigmaTag0F>>},
    {0x0010, InFields<StoreText<&Fields::sigmaTag10>>},
    {0x0011, InFields<StoreText<&Fields::sigmaTag11>>},
    {0x0012, InFields<StoreText<&Fields::sigmaTag12>>},
    {0x0014, InFields<StoreText<&Fields::sigmaTag14>>},
    {0x0015, InFields<StoreText<&Fields::sigmaTag15>>},
    {0x0016, InFields<StoreText<&Fields::sigmaTag16>>},
    {0x0017, InFields<StoreText<&Fields::sigmaTag17>>},
    {0x0018, InFields<StoreText<&Fields::sigmaTag18>>},
    {0x0019, InFields<StoreText<&Fields::sigmaTag19>>},
    {0x001A, StorePreviewOffset},
    {0x001B, StorePreviewLength},
    {0x001C, StorePreviewSize},
    {0x001D, InFields<StoreText<&Fields::sigmaTag1D>>},
    {0x0022, InFields<StoreText<&Fields::sigmaTag22>>},
    {0x0030, InFields<StoreText<&Fields::sigmaTag30>>},
    {0x0031, InFields<StoreFloat<&Fields::sigmaTag31>>},
    {0x0032, InFields<StoreFloat<&Fields::sigmaTag32>>},
    {0x0035, InFields<StoreFloat<&Fields::sigmaTag35>>},
    {0x003A, InFields<StoreFloat<&Fields::sigmaTag3A>>},
    {0x003B, InFields<StoreText<&Fields::sigmaTag3B>>},
    {0x003C, InFields<StoreText<&Fields::sigmaTag3C>>},
};
static_assert(TagsAscend(kTags));

void StoreEntry(ParseContext& ctx, const DirEntry& entry, SigmaNote& note) {
    const auto row = std::find_if(std::begin(kTags), std::end(kTags), [&](const auto& candidate) {
        return candidate.tag == entry.tag;
    });
    if (row != std::end(kTags)) row->store(ctx, entry, note);
}

// A JPEG stream at `position` becomes an image record of its own.
void AddJpegAt(ParseContext& ctx, std::int32_t position) {
    // Records serve delivery alone, and measuring reads the stream from end to end.
    if (ctx.outStream == nullptr) return;
    SeekTo(ctx, position);
    if (BytesLeft(ctx) < 2 || ctx.cursor[0] != 0xFF || ctx.cursor[1] != kJpegSoi) return;
    const std::size_t index = ctx.imageRecords.Add();
    if (index == ImageRecordList::kNone) return;
    ImageRecord& record = ctx.imageRecords[index];
    record.jpegOffset = static_cast<std::uint32_t>(position);
    record.jpegLength = MeasureJpeg(ctx, record.jpegOffset);
    record.compression = kCompressionOldJpeg;
    ProbeJpegFrame(ctx, record.jpegOffset, record);
}

}  // namespace

void ParseSigmaMakerNote(ParseContext& ctx, std::uint32_t) {
    SigmaNote note = {ResetMakerRecord<Fields>(ctx.info), {}};
    // Behind the last value that was read, or at it when its tag means nothing.
    std::int32_t lastPosition = 0;
    const std::uint32_t count = ReadU16(ctx);
    WalkEntries(ctx, count, [&](const DirEntry& entry) {
        StoreEntry(ctx, entry, note);
        lastPosition = Position(ctx);
    });
    if (lastPosition != 0) AddJpegAt(ctx, lastPosition);
}

}  // namespace qmx
