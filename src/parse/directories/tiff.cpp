#include "parse/directories/tiff.h"

#include "parse/core/cursor.h"
#include "parse/core/preview.h"

namespace qmx {

void ReadTiffHeader(ParseContext& ctx, std::uint32_t base) {
    ctx.tiffBase = base;
    SeekToOffset(ctx, 0);
    ctx.byteOrder = ReadU16(ctx);  // the two marks read the same in either order
    ReadU16(ctx);                  // the magic number: raw formats put their own here

    // Directories must follow each other forward in the file, so the chain cannot loop.
    std::int32_t previous = 0;
    for (;;) {
        if (BytesLeft(ctx) < 4) break;
        const std::uint32_t offset = ReadU32(ctx);
        if (offset == 0) break;
        SeekToOffset(ctx, offset);
        if (AtEnd(ctx) || Position(ctx) <= previous) break;
        previous = Position(ctx);
        if (!WalkIfd(ctx, base)) break;
    }
    DeliverImage(ctx);
    ctx.imageRecords.Clear();
}

}  // namespace qmx
