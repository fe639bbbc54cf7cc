#include "makernote/pentax_base.h"

#include <algorithm>

#include "parse/core/entry_walk.h"

namespace qmx {
namespace {

constexpr std::uint32_t kNoOffset = 0xFFFFFFFF;
constexpr std::uint32_t kSurroundings = 0x10000;  // what one JPEG segment holds
constexpr std::uint32_t kLargestGap = 16;         // next-directory offset and filling

// The lowest offset in the directory at the cursor.
std::uint32_t LowestOffset(ParseContext& ctx, std::uint32_t count) {
    std::uint32_t lowest = kNoOffset;
    for (std::uint32_t i = 0; i < count && !AtEnd(ctx); ++i) {
        const std::int32_t next = WrappingAdd(Position(ctx), kEntryBytes);
        SpendWork(ctx, kEntryBytes);
        const DirEntry entry = ReadEntry(ctx);
        if (static_cast<std::int32_t>(FieldTypeSize(entry.type) * entry.count) > 4)
            lowest = std::min(lowest, ReadU32(ctx));
        SeekTo(ctx, next);
    }
    return lowest;
}

}  // namespace

void ChoosePentaxBase(ParseContext& ctx, std::uint32_t headerBytes) {
    const CursorScope restoreCursor(ctx);
    const auto note = static_cast<std::uint32_t>(Position(ctx)) - headerBytes;
    const std::uint32_t count = ReadU16(ctx);
    const std::uint32_t lowest = LowestOffset(ctx, count);
    if (lowest == kNoOffset) return;
    const std::uint32_t behind = headerBytes + 2 + count * kEntryBytes;  // counted from the note
    const std::uint32_t fromTiff = ctx.tiffBase + lowest - note;
    if (fromTiff >= behind && fromTiff < kSurroundings) return;
    if (lowest >= behind && lowest - behind <= kLargestGap) ctx.tiffBase = note;
}

}  // namespace qmx
