#include "parse/containers/raf.h"

#include "parse/core/cursor.h"
#include "parse/core/preview.h"
#include "parse/directories/tiff.h"

namespace qmx {
namespace {

constexpr std::uint32_t kJpegOffsetPosition = 84;  // offset and length, both big-endian
// Start-of-image marker, APP1 marker, segment length, "Exif" and two zeros.
constexpr std::uint32_t kTiffHeaderInJpeg = 12;

}  // namespace

void ReadRaf(ParseContext& ctx, std::int32_t start) {
    ctx.info.makerId = kMakerFujifilm;
    SeekTo(ctx, WrappingAdd(start, kJpegOffsetPosition));
    const std::uint32_t jpegOffset = ReadU32BE(ctx);
    const std::uint32_t jpegLength = ReadU32BE(ctx);
    // First, so that the thumbnail is not delivered too; it still is when the JPEG is cut off.
    if (ctx.wantPrimary && WriteEmbeddedJpeg(ctx, jpegOffset, jpegLength, true)) ctx.thumbDone = 1;
    ReadTiffHeader(ctx, jpegOffset + kTiffHeaderInJpeg);
}

}  // namespace qmx
