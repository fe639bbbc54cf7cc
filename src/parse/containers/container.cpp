#include "parse/containers/container.h"

#include "parse/containers/ciff.h"
#include "parse/containers/mrw.h"
#include "parse/containers/raf.h"
#include "parse/containers/signature.h"
#include "parse/containers/x3f.h"
#include "parse/core/cursor.h"
#include "parse/core/jpeg.h"
#include "parse/core/preview.h"
#include "parse/directories/tiff.h"

namespace qmx {
namespace {

bool ReadJpegContainer(ParseContext& ctx, std::int32_t start) {
    ctx.isJpegContainer = 1;
    SeekTo(ctx, WrappingAdd(start, 2));
    if (!FindExifSegment(ctx)) return false;
    ReadTiffHeader(ctx, static_cast<std::uint32_t>(Position(ctx)));
    return true;
}

// Metadata without a camera's make does not count, and a request with a stream wants its picture.
std::uint8_t FinishParse(ParseContext& ctx, std::int32_t start) {
    if (ctx.info.cameraMake[0] == 0) return 0;
    if (ctx.outStream == nullptr || ctx.thumbDone) return 1;
    return WriteRecordedThumbnail(ctx, start) ? 1 : 0;
}

}  // namespace

std::uint8_t ParseContainer(ParseContext& ctx, bool wantPrimary) {
    ResetParse(ctx);
    ctx.wantPrimary = wantPrimary;
    const std::int32_t start = Position(ctx);
    switch (RecogniseContainer({ctx.cursor, BytesLeft(ctx)})) {
        case Container::kTiff: ReadTiffHeader(ctx, static_cast<std::uint32_t>(start)); break;
        case Container::kCiff: ReadCiff(ctx, start); break;
        case Container::kMrw: ParseMrwBlocks(ctx); break;
        case Container::kRaf: ReadRaf(ctx, start); break;
        case Container::kX3f: return ParseX3f(ctx);
        case Container::kJpeg:
            if (!ReadJpegContainer(ctx, start)) return 0;
            break;
        default: return 0;
    }
    return FinishParse(ctx, start);
}

}  // namespace qmx
