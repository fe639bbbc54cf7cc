#include "parse/containers/mrw.h"

#include "parse/core/cursor.h"
#include "parse/directories/tiff.h"

namespace qmx {
namespace {

constexpr std::uint32_t kLengthPosition = 4;
constexpr std::uint32_t kBlockHeaderBytes = 8;  // tag and length of the data; the file has the same
constexpr std::uint32_t kDimensionsTag = 0x00505244;  // "PRD"
constexpr std::uint32_t kTiffTag = 0x00545457;        // "TTW"
constexpr std::uint32_t kPictureSize = 12;  // in the PRD data, behind version and sensor size

void ReadDimensions(ParseContext& ctx) {
    SeekTo(ctx, WrappingAdd(Position(ctx), kPictureSize));
    ctx.info.pixelYDimension = ReadU16BE(ctx);
    ctx.info.pixelXDimension = ReadU16BE(ctx);
}

}  // namespace

// Everything outside the TIFF structure is big-endian, whatever order that left in force.
void ParseMrwBlocks(ParseContext& ctx) {
    ctx.info.makerId = kMakerMinolta;
    const std::int32_t start = Position(ctx);
    SeekTo(ctx, WrappingAdd(start, kLengthPosition));
    const std::int64_t end = std::int64_t{start} + kBlockHeaderBytes + ReadU32BE(ctx);
    SeekTo(ctx, WrappingAdd(start, kBlockHeaderBytes));
    while (Position(ctx) < end && !AtEnd(ctx)) {
        SpendWork(ctx, kBlockHeaderBytes);
        const std::int32_t data = WrappingAdd(Position(ctx), kBlockHeaderBytes);
        const std::uint32_t tag = ReadU32BE(ctx);
        const std::int32_t next = WrappingAdd(data, ReadU32BE(ctx));
        if (tag == kDimensionsTag) ReadDimensions(ctx);
        if (tag == kTiffTag) ReadTiffHeader(ctx, static_cast<std::uint32_t>(data));
        if (next < data) break;  // a length past 2 GiB would lead back
        SeekTo(ctx, next);
    }
}

}  // namespace qmx
