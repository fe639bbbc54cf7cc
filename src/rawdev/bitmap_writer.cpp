#include "rawdev/bitmap_writer.h"

#include <algorithm>
#include <cstring>

#include "parse/core/bitmap.h"
#include "rawdev/tone_curve.h"

namespace qmx {
namespace {

constexpr std::uint32_t kFileHeaderBytes = 14;

enum FlipBit : std::int32_t { kReverseColumns = 1, kReverseRows = 2, kTranspose = 4 };

using Cell = std::uint16_t[kColors];

// Steps through the source cells as the rows of the upright picture run.
struct SourceWalk {
    const Cell* first;
    std::ptrdiff_t toNextColumn;
    std::ptrdiff_t toNextRow;
};

SourceWalk WalkUpright(const RawDecodeState& state) {
    const auto height = static_cast<std::ptrdiff_t>(state.outputHeight);
    const auto width = static_cast<std::ptrdiff_t>(state.outputWidth);
    const bool reverseRows = (state.flip & kReverseRows) != 0;
    const bool reverseColumns = (state.flip & kReverseColumns) != 0;
    SourceWalk walk;
    walk.first = state.image.get() + (reverseRows ? (height - 1) * width : 0) +
                 (reverseColumns ? width - 1 : 0);
    walk.toNextColumn = reverseColumns ? -1 : 1;
    walk.toNextRow = reverseRows ? -width : width;
    if ((state.flip & kTranspose) != 0) std::swap(walk.toNextColumn, walk.toNextRow);
    return walk;
}

// The bytes blue, green, red of a cell.
std::uint32_t ToPixel(const Cell& cell, const std::uint8_t* tone) {
    std::uint64_t levels = 0;
    std::memcpy(&levels, &cell, sizeof levels);  // x64 is little-endian
    return std::uint32_t{tone[levels >> 32 & 0xFFFF]} |
           std::uint32_t{tone[levels >> 16 & 0xFFFF]} << 8 |
           std::uint32_t{tone[levels & 0xFFFF]} << 16;
}

void PutPixels(const SourceWalk& walk, std::ptrdiff_t row, std::int32_t from, std::int32_t to,
               const std::uint8_t* tone, std::uint8_t* out) {
    const Cell* cell = walk.first + row * walk.toNextRow + from * walk.toNextColumn;
    out += 3 * std::ptrdiff_t{from};
    // Every store but the last reaches into the next pixel.
    for (std::int32_t x = from; x < to - 1; ++x, cell += walk.toNextColumn, out += 3) {
        const std::uint32_t pixel = ToPixel(*cell, tone);
        std::memcpy(out, &pixel, sizeof pixel);
    }
    const std::uint32_t pixel = ToPixel(*cell, tone);
    std::memcpy(out, &pixel, 3);
}

// In stripes, so that of a transposed picture both sides stay in the cache.
void FillRows(const SourceWalk& walk, const BitmapLayout& layout, const std::uint8_t* tone,
              std::uint8_t* rows) {
    const std::size_t pixelBytes = 3 * static_cast<std::size_t>(layout.width);
    for (std::int32_t y = 0; y < layout.height; ++y)
        std::memset(rows + static_cast<std::size_t>(y) * layout.rowBytes + pixelBytes, 0,
                    layout.rowBytes - pixelBytes);
    const bool transposed = walk.toNextColumn != 1 && walk.toNextColumn != -1;
    const std::int32_t stripe = transposed ? 32 : layout.width;
    for (std::int32_t from = 0; from < layout.width; from += stripe) {
        const std::int32_t to = std::min(from + stripe, layout.width);
        for (std::int32_t y = 0; y < layout.height; ++y) {
            const auto fromBottom = static_cast<std::size_t>(layout.height - 1 - y);
            PutPixels(walk, y, from, to, tone, rows + fromBottom * layout.rowBytes);
        }
    }
}

void SeekToStart(IStream* stream) {
    LARGE_INTEGER start = {};
    stream->Seek(start, STREAM_SEEK_SET, nullptr);
}

}  // namespace

bool WriteBitmap(RawDecodeState& state, IStream* stream) {
    std::int32_t width = state.outputWidth;
    std::int32_t height = state.outputHeight;
    if ((state.flip & kTranspose) != 0) std::swap(width, height);
    BitmapLayout layout;
    if (!LayOutBitmap(width, height, layout)) return false;
    auto* tone = state.scratch.Take<std::uint8_t>(kToneEntries);
    state.bitmap = AllocateUnset<std::uint8_t>(layout.imageBytes);
    if (state.bitmap == nullptr) state.error = E_OUTOFMEMORY;
    if (tone == nullptr || state.bitmap == nullptr) return false;
    FillToneCurve(FindWhiteLevel(state), tone);
    FillRows(WalkUpright(state), layout, tone, state.bitmap.get());
    std::uint8_t header[kBitmapHeaderBytes];
    FillBitmapHeader(layout, header);

    SeekToStart(stream);
    ULARGE_INTEGER size = {};
    size.QuadPart = std::uint64_t{layout.imageBytes} + kBitmapHeaderBytes;
    stream->SetSize(size);
    stream->Write(header, kFileHeaderBytes, nullptr);
    stream->Write(header + kFileHeaderBytes, kBitmapHeaderBytes - kFileHeaderBytes, nullptr);
    stream->Write(state.bitmap.get(), layout.imageBytes, nullptr);
    SeekToStart(stream);
    return true;
}

}  // namespace qmx
