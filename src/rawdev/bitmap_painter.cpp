#include "rawdev/bitmap_painter.h"

#include <algorithm>
#include <cstring>

#include "rawdev/tone_curve.h"

namespace qmx {
namespace {

constexpr std::size_t kPixelBytes = 3;

// Rows that become columns together, so that both sides of the turn stay in the cache.
constexpr std::uint32_t kBandRows = 32;

enum FlipBit : std::int32_t { kReverseColumns = 1, kReverseRows = 2, kTranspose = 4 };

void ReversePixels(std::uint8_t* pixels, std::uint32_t count) {
    std::uint8_t* last = pixels + kPixelBytes * (std::size_t{count} - 1);
    for (; pixels < last; pixels += kPixelBytes, last -= kPixelBytes)
        std::swap_ranges(pixels, pixels + kPixelBytes, last);
}

}  // namespace

bool BitmapPainter::Start(RawDecodeState& state) {
    state_ = &state;
    std::int32_t width = state.outputWidth;
    std::int32_t height = state.outputHeight;
    const bool transposed = (state.flip & kTranspose) != 0;
    if (transposed) std::swap(width, height);
    if (!LayOutBitmap(width, height, layout_)) return false;
    tone_ = state.scratch.Take<ToneTable>(1);
    bandStride_ = kPixelBytes * state.outputWidth;
    if (transposed) band_ = state.scratch.Take<std::uint8_t>(bandStride_ * kBandRows);
    state.bitmap = AllocateUnset<std::uint8_t>(layout_.imageBytes);
    if (state.bitmap == nullptr) state.error = E_OUTOFMEMORY;
    if (tone_ == nullptr || (transposed && band_ == nullptr) || state.bitmap == nullptr)
        return false;
    FillToneTable(FindWhiteLevel(state), *tone_);
    // Pixels are stored as a whole; what pads a row is not.
    const std::size_t rowEnd = kPixelBytes * static_cast<std::size_t>(layout_.width);
    for (std::size_t at = 0; at < layout_.imageBytes; at += layout_.rowBytes)
        std::memset(state.bitmap.get() + at + rowEnd, 0, layout_.rowBytes - rowEnd);
    return true;
}

void BitmapPainter::Paint(std::uint32_t row, std::uint32_t column,
                          const std::uint16_t (*cells)[kColors], std::uint32_t count) {
    if ((state_->flip & kTranspose) == 0) return PaintAlong(row, column, cells, count);
    const std::uint32_t inBand = row % kBandRows;
    std::uint8_t* const pixels = band_ + bandStride_ * inBand + kPixelBytes * column;
    state_->kernels->toneCells(cells, count, *tone_, pixels);
    const bool lastOfBand = inBand + 1 == kBandRows || row + 1 == state_->outputHeight;
    if (lastOfBand && column + count == state_->outputWidth) StandUp(row - inBand, inBand + 1);
}

std::uint8_t* BitmapPainter::PixelAt(std::uint32_t x, std::uint32_t fromBottom) const {
    return state_->bitmap.get() + std::size_t{fromBottom} * layout_.rowBytes + kPixelBytes * x;
}

void BitmapPainter::PaintAlong(std::uint32_t row, std::uint32_t column,
                               const std::uint16_t (*cells)[kColors], std::uint32_t count) const {
    const bool reverseRows = (state_->flip & kReverseRows) != 0;
    const bool reverseColumns = (state_->flip & kReverseColumns) != 0;
    const std::uint32_t fromBottom = reverseRows ? row : state_->outputHeight - 1 - row;
    const std::uint32_t x = reverseColumns ? state_->outputWidth - column - count : column;
    std::uint8_t* const pixels = PixelAt(x, fromBottom);
    state_->kernels->toneCells(cells, count, *tone_, pixels);
    if (reverseColumns) ReversePixels(pixels, count);
}

// The band's rows become columns.
void BitmapPainter::StandUp(std::uint32_t firstRow, std::uint32_t rowCount) const {
    const bool reverseRows = (state_->flip & kReverseRows) != 0;
    const bool reverseColumns = (state_->flip & kReverseColumns) != 0;
    const std::uint32_t left = reverseRows ? state_->outputHeight - firstRow - rowCount : firstRow;
    for (std::uint32_t column = 0; column < state_->outputWidth; ++column) {
        std::uint8_t* pixel =
            PixelAt(left, reverseColumns ? column : state_->outputWidth - 1 - column);
        for (std::uint32_t i = 0; i < rowCount; ++i, pixel += kPixelBytes) {
            const std::uint32_t inBand = reverseRows ? rowCount - 1 - i : i;
            std::memcpy(pixel, band_ + bandStride_ * inBand + kPixelBytes * column, kPixelBytes);
        }
    }
}

}  // namespace qmx
