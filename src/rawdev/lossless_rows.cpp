#include "rawdev/lossless_rows.h"

#include <algorithm>

namespace qmx {

bool LosslessRows::Open(std::span<const std::uint8_t> stream, const LosslessOptions& options,
                        std::uint64_t width, std::uint32_t height) {
    if (!decoder_.Open(stream, options)) return false;
    const LosslessHeader& header = decoder_.Header();
    // Four components run along the row, or make squares of 2 x 2 cells.  Nothing in the stream
    // says which: half the size both ways is the only sign of squares.  Frames of the other kind
    // are a quarter as wide as the picture and just as high.
    inSquares_ = header.components == 4 && std::uint64_t{header.width} * 2 == width &&
                 std::uint64_t{header.height} * 2 == height;
    width_ = width;
    return true;
}

void LosslessRows::Start(std::uint16_t* lines) {
    decoder_.Start(lines);
    isLower_ = false;
    line_ = nullptr;
}

void LosslessRows::Take(std::uint16_t* dst, std::uint32_t count) {
    if (inSquares_) return TakeOfSquares(dst, count);
    decoder_.Take(dst, count);
    decoder_.Skip(width_ - count);
}

// Component j of a unit stands in row j / 2 and column j % 2 of its square.
void LosslessRows::TakeOfSquares(std::uint16_t* dst, std::uint32_t count) {
    if (!isLower_) line_ = decoder_.NextLine();
    const std::uint32_t shift = decoder_.Header().pointTransform;
    const std::size_t row = isLower_ ? 2 : 0;
    isLower_ = !isLower_;
    if (line_ == nullptr) {
        std::fill_n(dst, count, std::uint16_t{0});
        return;
    }
    for (std::uint32_t x = 0; x < count; ++x)
        dst[x] = static_cast<std::uint16_t>(line_[std::size_t{x} / 2 * 4 + row + x % 2] << shift);
}

}  // namespace qmx
