// The quick test of ExifIsExifFile: a look at the file's start instead of a parse.

#include "parse/containers/container.h"
#include "parse/containers/signature.h"
#include "parse/core/entry_walk.h"
#include "parse/core/jpeg.h"
#include "parse/core/path_extension.h"

namespace qmx {
namespace {

constexpr std::uint16_t kExifPointerTag = 0x8769;

bool FirstDirectoryHasExif(ParseContext& ctx, std::int32_t start) {
    ctx.byteOrder = ReadU16(ctx);
    SeekTo(ctx, WrappingAdd(start, 4));
    const std::uint32_t offset = ReadU32(ctx);
    if (offset == 0) return false;
    SeekTo(ctx, WrappingAdd(start, offset));
    const std::uint32_t count = ReadU16(ctx);
    for (std::uint32_t i = 0; i < count && !AtEnd(ctx); ++i) {
        const std::int32_t next = WrappingAdd(Position(ctx), kEntryBytes);
        if (ReadU16(ctx) == kExifPointerTag) return true;
        SeekTo(ctx, next);
    }
    return false;
}

}  // namespace

std::uint32_t ProbeExifFile(ParseContext& ctx, const wchar_t* path) {
    const CursorScope restoreCursor(ctx);
    const std::int32_t start = Position(ctx);
    const auto isNamed = [path](std::string_view extension) {
        return HasExtension(path, extension);
    };
    switch (RecogniseContainer({ctx.cursor, BytesLeft(ctx)})) {
        case Container::kCiff:
            // A heap file under another name is tested as the TIFF that it looks like.
            return isNamed(".crw") || FirstDirectoryHasExif(ctx, start);
        case Container::kTiff: return FirstDirectoryHasExif(ctx, start);
        case Container::kMrw: return isNamed(".mrw");
        case Container::kRaf: return isNamed(".raf");
        case Container::kX3f: return isNamed(".x3f");
        case Container::kJpeg: SeekTo(ctx, WrappingAdd(start, 2)); return FindExifSegment(ctx);
        default: return 0;
    }
}

}  // namespace qmx
