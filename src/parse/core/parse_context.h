#pragma once
// ParseContext: the state of one parse of one file, owned by the call that made it.

#include <cstdint>

#include "parse/core/image_info.h"
#include "parse/core/image_records.h"
#include "parse/core/page_guard.h"
#include "parse/core/win32.h"

namespace qmx {

inline constexpr std::uint16_t kLittleEndian = 0x4949;  // "II"
inline constexpr std::uint16_t kBigEndian = 0x4D4D;     // "MM"; so is everything else

inline constexpr std::size_t kPathCapacity = 260;

struct ParseContext {
    HANDLE mappingHandle = nullptr;  // null: no file is mapped
    const std::uint8_t* viewBase = nullptr;
    const std::uint8_t* cursor = nullptr;  // within [viewBase, viewBase + fileSize]
    std::int64_t fileSize = 0;
    wchar_t filePath[kPathCapacity];  // as much of the path as fits
    std::uint16_t byteOrder = 0;
    std::uint32_t thumbHeaderLength = 0;
    std::uint8_t thumbHeader[128];  // written before the thumbnail bytes
    std::uint8_t thumbIsRgb = 0;    // 0: JPEG; 1: RGB pixels whose bitmap header is written already
    std::uint32_t tiffBase = 0;     // position that directory and value offsets count from
    ImageRecordList imageRecords;
    std::int32_t thumbWidth = 0;
    std::int32_t thumbHeight = 0;
    std::int32_t thumbOffset = 0;   // from the container's start
    std::uint32_t thumbLength = 0;  // 0: none found
    std::int32_t thumbPlanar = 0;   // nonzero: three planes instead of pixels
    std::int32_t thumbOrientation = 0;
    IStream* outStream = nullptr;  // the caller's; null when only information is wanted
    std::uint8_t wantPrimary = 0;  // the largest preview instead of the smallest
    std::uint8_t thumbDone = 0;    // the picture is in the stream
    std::uint8_t isJpegContainer = 0;
    union {
        ImageInfo info;  // not there before ResetParse
    };

    // End of what may be read: the view's end, or its base once the work budget is spent, from
    // when on everything reads as the end of the file.
    const std::uint8_t* readEnd = nullptr;
    std::int64_t workLeft = 0;           // bytes that directories and probes may still visit
    std::uint32_t ifdDepth = 0;          // directories open around the next one
    std::uint8_t* workBuffer = nullptr;  // see AllocateWorkBuffer
    PageGuard pageGuard;                 // of the view

    ParseContext() { filePath[0] = 0; }
    ParseContext(const ParseContext&) = delete;
    ParseContext& operator=(const ParseContext&) = delete;
};

// Whether pictures matter at all; where they lie is not looked up for nobody.
inline bool WantsPicture(const ParseContext& ctx) { return ctx.outStream != nullptr; }

// Puts back everything that a parse sets, to "nothing found".  Keeps the mapping and the stream.
void ResetParse(ParseContext& ctx);

// One block of `size` bytes that lives until the next call or FreeWorkBuffer; null when memory is
// short.  It belongs to the context so that readers own nothing.
std::uint8_t* AllocateWorkBuffer(ParseContext& ctx, std::size_t size);
void FreeWorkBuffer(ParseContext& ctx);

// Puts `byteOrder` and `tiffBase` back at the end of the scope.
class OffsetScope {
public:
    explicit OffsetScope(ParseContext& ctx)
        : ctx_(ctx), byteOrder_(ctx.byteOrder), tiffBase_(ctx.tiffBase) {}
    OffsetScope(const OffsetScope&) = delete;
    OffsetScope& operator=(const OffsetScope&) = delete;
    ~OffsetScope() {
        ctx_.byteOrder = byteOrder_;
        ctx_.tiffBase = tiffBase_;
    }

private:
    ParseContext& ctx_;
    std::uint16_t byteOrder_;
    std::uint32_t tiffBase_;
};

// Puts the cursor back at the end of the scope.
class CursorScope {
public:
    explicit CursorScope(ParseContext& ctx) : ctx_(ctx), cursor_(ctx.cursor) {}
    CursorScope(const CursorScope&) = delete;
    CursorScope& operator=(const CursorScope&) = delete;
    ~CursorScope() { ctx_.cursor = cursor_; }

private:
    ParseContext& ctx_;
    const std::uint8_t* cursor_;
};

}  // namespace qmx
