#include "parse/core/preview.h"

#include <algorithm>
#include <cstring>

#include "parse/core/bitmap.h"
#include "parse/core/cursor.h"
#include "parse/core/jpeg.h"
#include "parse/core/output_stream.h"

namespace qmx {
namespace {

constexpr std::uint8_t kStartOfImage[2] = {0xFF, kJpegSoi};

// The `length` bytes at a position, or null when the file ends before.
const std::uint8_t* BytesAt(ParseContext& ctx, std::uint32_t position, std::uint32_t length) {
    const CursorScope restoreCursor(ctx);
    SeekTo(ctx, static_cast<std::int32_t>(position));
    return BytesLeft(ctx) >= length ? ctx.cursor : nullptr;
}

// Null when no record has a size.  The first of equals wins.
ImageRecord* ChooseRecord(ParseContext& ctx) {
    ImageRecord* chosen = nullptr;
    std::int64_t chosenArea = 0;
    for (ImageRecord& record : ctx.imageRecords) {
        if (record.width < 1 || record.height < 1) continue;
        const std::int64_t area = std::int64_t{record.width} * record.height;
        if (chosen == nullptr || (ctx.wantPrimary ? area > chosenArea : area < chosenArea)) {
            chosen = &record;
            chosenArea = area;
        }
    }
    return chosen;
}

bool DeliverJpeg(ParseContext& ctx, const ImageRecord& record) {
    if (record.jpegOffset != 0 && record.jpegLength != 0)
        return WriteEmbeddedJpeg(ctx, record.jpegOffset, record.jpegLength, true);
    return WriteEmbeddedJpeg(ctx, record.stripOffset, record.stripByteCount, true);
}

void FillPicture(const ParseContext& ctx, const ImageRecord& record, const BitmapLayout& layout,
                 const std::uint8_t* src, std::uint8_t* dst) {
    if (record.photometric == kPhotometricYCbCr) return FillYCbCrRows(layout, src, record, dst);
    if (ctx.info.makerId != kMakerMamiya || ctx.isJpegContainer)
        return FillRgbRows(layout, src, nullptr, dst);
    // Mamiya's thumbnails are stored dark and flat.
    std::uint8_t lut[256];
    EqualiseLuminance(src, RgbSourceBytes(layout) / 3, lut);
    FillRgbRows(layout, src, lut, dst);
}

bool DeliverBitmap(ParseContext& ctx, const ImageRecord& record) {
    const bool rgb = record.photometric == kPhotometricRgb;
    const bool ycbcr =
        record.photometric == kPhotometricYCbCr && record.planarConfig == kPlanarChunky;
    BitmapLayout layout;
    if (!(rgb || ycbcr) || !LayOutBitmap(record.width, record.height, layout)) return false;

    const std::uint64_t needed = rgb ? RgbSourceBytes(layout) : YCbCrSourceBytes(layout);
    const std::uint8_t* src = BytesAt(ctx, record.stripOffset, record.stripByteCount);
    if (src == nullptr || record.stripByteCount < needed) return false;

    const std::size_t fileBytes = std::size_t{kBitmapHeaderBytes} + layout.imageBytes;
    std::uint8_t* file = AllocateWorkBuffer(ctx, fileBytes);
    if (file == nullptr) return false;
    FillBitmapHeader(layout, file);
    std::uint8_t* rows = file + kBitmapHeaderBytes;
    std::memset(rows, 0, layout.imageBytes);  // the padding
    FillPicture(ctx, record, layout, src, rows);
    RewindStream(ctx);
    WriteToStream(ctx, file, static_cast<std::uint32_t>(fileBytes));
    FreeWorkBuffer(ctx);
    return true;
}

// Three planes become pixels; bytes beyond three whole planes stay where the rule puts them.
void InterleavePlanes(const std::uint8_t* src, std::uint32_t length, std::uint8_t* dst) {
    const std::uint32_t plane = length / 3;
    std::memset(dst, 0, length);
    for (std::uint32_t i = 0; i < length; ++i) dst[i / plane + i % plane * 3] = src[i];
}

}  // namespace

bool WriteEmbeddedJpeg(ParseContext& ctx, std::uint32_t position, std::uint32_t length,
                       bool rewind) {
    if (ctx.outStream == nullptr || length == 0) return false;
    const std::uint8_t* src = BytesAt(ctx, position, length);
    if (src == nullptr) return false;

    const std::uint32_t patched = std::min<std::uint32_t>(length, sizeof kStartOfImage);
    if (std::memcmp(src, kStartOfImage, patched) != 0) {
        std::uint8_t* copy = AllocateWorkBuffer(ctx, length);
        if (copy == nullptr) return false;
        std::memcpy(copy, src, length);
        std::memcpy(copy, kStartOfImage, patched);
        src = copy;
    } else {
        TouchPages(src, length);
    }
    if (rewind) RewindStream(ctx);
    WriteToStream(ctx, src, length);
    FreeWorkBuffer(ctx);
    return true;
}

void DeliverImage(ParseContext& ctx) {
    if (ctx.outStream == nullptr || ctx.thumbDone || ctx.info.cameraModel[0] == 0) return;
    const ImageRecord* record = ChooseRecord(ctx);
    if (record == nullptr) return;
    const bool jpeg =
        record->compression == kCompressionOldJpeg || record->compression == kCompressionJpeg;
    const bool delivered = jpeg                                      ? DeliverJpeg(ctx, *record)
                           : record->compression == kCompressionNone ? DeliverBitmap(ctx, *record)
                                                                     : false;
    if (!delivered) return;
    ctx.thumbDone = 1;
    ctx.thumbOrientation = record->orientation;
}

bool WriteRecordedThumbnail(ParseContext& ctx, std::int32_t containerPosition) {
    const std::uint32_t length = ctx.thumbLength;
    if (length == 0 || (ctx.thumbPlanar && length < 3)) return false;
    const std::int32_t position =
        WrappingAdd(containerPosition, static_cast<std::uint32_t>(ctx.thumbOffset));
    const std::uint8_t* src = BytesAt(ctx, static_cast<std::uint32_t>(position), length);
    if (src == nullptr) return false;
    BitmapLayout layout = {};
    if (ctx.thumbIsRgb &&
        (!LayOutBitmap(ctx.thumbWidth, ctx.thumbHeight, layout) || RgbSourceBytes(layout) > length))
        return false;

    // First the interleaved planes, then the rows.
    std::uint8_t* buffer = AllocateWorkBuffer(ctx, std::size_t{length} + layout.imageBytes);
    if (buffer == nullptr) return false;
    if (ctx.thumbPlanar) {
        InterleavePlanes(src, length, buffer);
        src = buffer;
    }
    std::uint32_t pictureBytes = length;
    if (ctx.thumbIsRgb) {
        std::uint8_t* rows = buffer + length;
        std::memset(rows, 0, layout.imageBytes);
        FillRgbRows(layout, src, nullptr, rows);
        src = rows;
        pictureBytes = layout.imageBytes;
    }
    TouchPages(src, pictureBytes);
    WriteToStream(ctx, ctx.thumbHeader,
                  std::min<std::uint32_t>(ctx.thumbHeaderLength, sizeof ctx.thumbHeader));
    WriteToStream(ctx, src, pictureBytes);
    FreeWorkBuffer(ctx);
    return true;
}

}  // namespace qmx
