#include "makernote/preview_record.h"

#include "parse/core/cursor.h"
#include "parse/core/jpeg.h"

namespace qmx {
namespace {

// Minolta's and Sony's cameras damage the first byte; delivering the picture mends it.
bool HoldsImage(ParseContext& ctx, std::uint32_t position, std::uint32_t length) {
    const CursorScope restoreCursor(ctx);
    SeekTo(ctx, static_cast<std::int32_t>(position));
    return length != 0 && BytesLeft(ctx) >= length && (ReadU16BE(ctx) & 0xFF) == kJpegSoi;
}

}  // namespace

bool AddJpegPreview(ParseContext& ctx, std::uint32_t position, std::uint32_t length) {
    if (!WantsPicture(ctx)) return false;
    ImageRecord frame = {};
    if (!HoldsImage(ctx, position, length) || !ProbeJpegFrame(ctx, position, frame)) return false;
    const std::size_t index = ctx.imageRecords.Add();
    if (index == ImageRecordList::kNone) return false;
    ImageRecord& record = ctx.imageRecords[index];
    record.width = frame.width;
    record.height = frame.height;
    record.compression = kCompressionOldJpeg;
    record.jpegOffset = position;
    record.jpegLength = length;
    return true;
}

}  // namespace qmx
