#include "parse/core/jpeg.h"

#include <cstring>

#include "parse/core/cursor.h"

namespace qmx {
namespace {

constexpr std::uint32_t kSegmentHeaderBytes = 4;
constexpr char kExifIdentifier[6] = {'E', 'x', 'i', 'f', 0, 0};

// Goes behind entropy-coded data to the next marker that is neither a stuffed zero, a restart nor
// a fill byte.  False at the end of the file.
bool SkipEntropyCodedData(ParseContext& ctx) {
    const std::uint8_t* from = ctx.cursor;
    for (;;) {
        const auto* mark =
            static_cast<const std::uint8_t*>(std::memchr(ctx.cursor, 0xFF, BytesLeft(ctx)));
        if (mark == nullptr || ctx.readEnd - mark < 2) break;
        ctx.cursor = mark;
        const std::uint8_t code = mark[1];
        const bool restart = code >= kJpegRst0 && code < kJpegSoi;
        if (code != 0x00 && code != 0xFF && !restart) {
            SpendWork(ctx, static_cast<std::uint32_t>(mark - from));
            return true;
        }
        ctx.cursor += code == 0xFF ? 1 : 2;
    }
    SpendWork(ctx, static_cast<std::uint32_t>(ctx.viewBase + ctx.fileSize - from));
    ctx.cursor = ctx.viewBase + ctx.fileSize;
    return false;
}

}  // namespace

bool ReadJpegSegment(ParseContext& ctx, JpegSegment& segment) {
    if (BytesLeft(ctx) < kSegmentHeaderBytes || ctx.cursor[0] != 0xFF) return false;
    segment.marker = static_cast<std::uint8_t>(ReadU16BE(ctx) & 0xFF);
    segment.length = ReadU16BE(ctx);
    return true;
}

void SkipJpegSegment(ParseContext& ctx, const JpegSegment& segment) {
    SeekTo(ctx, WrappingAdd(Position(ctx), segment.length - 2u));
}

bool FindExifSegment(ParseContext& ctx) {
    JpegSegment segment;
    while (ReadJpegSegment(ctx, segment)) {
        if (segment.marker < kJpegRst0 || segment.marker == kJpegEoi) return false;
        if (segment.marker == kJpegApp1)
            return ReadMagic(ctx, {kExifIdentifier, sizeof kExifIdentifier});
        SkipJpegSegment(ctx, segment);
    }
    return false;
}

bool ProbeJpegFrame(ParseContext& ctx, std::uint32_t position, ImageRecord& record) {
    if (!WantsPicture(ctx)) return false;
    const CursorScope restoreCursor(ctx);
    SeekTo(ctx, WrappingAdd(static_cast<std::int32_t>(position), 2));
    JpegSegment segment;
    while (ReadJpegSegment(ctx, segment)) {
        SpendWork(ctx, kSegmentHeaderBytes);
        if (segment.marker == kJpegEoi) return false;
        if (segment.marker >= kJpegSof0 && segment.marker <= kJpegSof3) {
            SeekTo(ctx, WrappingAdd(Position(ctx), 1));  // the sample precision
            record.height = BytesLeft(ctx) < 2 ? -1 : ReadU16BE(ctx);
            record.width = BytesLeft(ctx) < 2 ? -1 : ReadU16BE(ctx);
            return true;
        }
        SkipJpegSegment(ctx, segment);
    }
    return false;
}

std::uint32_t MeasureJpeg(ParseContext& ctx, std::uint32_t position) {
    const CursorScope restoreCursor(ctx);
    SeekTo(ctx, static_cast<std::int32_t>(position));
    const std::uint8_t* start = ctx.cursor;
    SeekTo(ctx, WrappingAdd(Position(ctx), 2));
    for (;;) {
        SpendWork(ctx, kSegmentHeaderBytes);
        const bool atMarker = BytesLeft(ctx) >= 2 && ctx.cursor[0] == 0xFF;
        if (atMarker && ctx.cursor[1] == kJpegEoi) {
            ctx.cursor += 2;
            break;
        }
        JpegSegment segment;
        if (ReadJpegSegment(ctx, segment)) {
            SkipJpegSegment(ctx, segment);
            if (segment.marker != kJpegSos) continue;
        } else {
            SeekTo(ctx, WrappingAdd(Position(ctx), 1));  // resynchronise
        }
        if (!SkipEntropyCodedData(ctx)) break;
    }
    return static_cast<std::uint32_t>(ctx.cursor - start);
}

}  // namespace qmx
