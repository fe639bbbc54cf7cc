#include "makernote/photoshop.h"

#include <algorithm>

#include "makernote/preview_record.h"
#include "parse/core/cursor.h"

namespace qmx {
namespace {

constexpr std::uint16_t kThumbnailResource = 1036;
constexpr std::uint32_t kThumbnailHeaderBytes = 28;  // format, sizes, depth; then the stream
constexpr std::uint32_t kThumbnailIsJpeg = 1;

// Signature, id, an empty name, size.
constexpr std::uint32_t kSmallestBlockBytes = 12;

// Names and data are filled up to an even number of bytes.
constexpr std::uint64_t RoundUpToEven(std::uint64_t bytes) { return bytes + (bytes & 1); }

// Goes on by at most what is left; false when that was not enough.
bool Advance(ParseContext& ctx, std::uint64_t bytes) {
    const std::uint64_t step = std::min<std::uint64_t>(bytes, BytesLeft(ctx));
    SeekTo(ctx, WrappingAdd(Position(ctx), static_cast<std::uint32_t>(step)));
    return step == bytes;
}

// A length byte and that many characters.
bool SkipName(ParseContext& ctx) { return Advance(ctx, RoundUpToEven(1u + *ctx.cursor)); }

// At the data of a thumbnail resource.
void AddThumbnail(ParseContext& ctx, std::uint64_t bytes) {
    if (bytes <= kThumbnailHeaderBytes) return;
    const std::uint32_t stream = static_cast<std::uint32_t>(Position(ctx)) + kThumbnailHeaderBytes;
    if (ReadU32BE(ctx) != kThumbnailIsJpeg) return;
    AddJpegPreview(ctx, stream, static_cast<std::uint32_t>(bytes - kThumbnailHeaderBytes));
}

}  // namespace

void ReadPhotoshopResources(ParseContext& ctx, std::uint64_t length) {
    const std::uint8_t* const end = ctx.cursor + std::min<std::uint64_t>(length, BytesLeft(ctx));
    while (ctx.cursor < end && end - ctx.cursor >= kSmallestBlockBytes && !AtEnd(ctx)) {
        SpendWork(ctx, kSmallestBlockBytes);
        if (!ReadMagic(ctx, "8BIM")) return;
        const std::uint16_t id = ReadU16BE(ctx);
        if (AtEnd(ctx) || !SkipName(ctx)) return;
        const std::uint32_t size = ReadU32BE(ctx);
        if (ctx.cursor > end) return;
        const std::uint64_t there =
            std::min<std::uint64_t>(size, static_cast<std::uint64_t>(end - ctx.cursor));
        if (id == kThumbnailResource) {
            const CursorScope restoreCursor(ctx);
            AddThumbnail(ctx, there);
        }
        if (!Advance(ctx, RoundUpToEven(size))) return;
    }
}

}  // namespace qmx
