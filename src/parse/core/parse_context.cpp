#include "parse/core/parse_context.h"

#include <algorithm>
#include <new>

namespace qmx {
namespace {

// Room for honest files smaller than a handful of directories whose values overlap.
constexpr std::int64_t kWorkFloor = 4096;

// Far more than the directories of any honest file; keeps hostile ones of any size to a few
// milliseconds.
constexpr std::int64_t kMostWork = 16 << 20;

}  // namespace

void ResetParse(ParseContext& ctx) {
    ctx.thumbHeaderLength = 0;
    ctx.thumbHeader[0] = 0;
    ctx.thumbIsRgb = 0;
    ctx.tiffBase = 0;
    ctx.thumbWidth = 0;
    ctx.thumbHeight = 0;
    ctx.thumbOffset = 0;
    ctx.thumbLength = 0;
    ctx.thumbPlanar = 0;
    ctx.thumbOrientation = 0;
    ctx.wantPrimary = 0;
    ctx.thumbDone = 0;
    ctx.isJpegContainer = 0;
    ::new (static_cast<void*>(&ctx.info)) ImageInfo{};
    ctx.readEnd = ctx.viewBase + ctx.fileSize;
    ctx.workLeft = std::min(ctx.fileSize, kMostWork) + kWorkFloor;
    ctx.ifdDepth = 0;
}

std::uint8_t* AllocateWorkBuffer(ParseContext& ctx, std::size_t size) {
    FreeWorkBuffer(ctx);
    ctx.workBuffer = new (std::nothrow) std::uint8_t[size];
    return ctx.workBuffer;
}

void FreeWorkBuffer(ParseContext& ctx) {
    delete[] ctx.workBuffer;
    ctx.workBuffer = nullptr;
}

}  // namespace qmx
