#pragma once
// The rows of the developed bitmap: cells become pixels and take their upright places.

#include <cstdint>

#include "parse/core/bitmap.h"
#include "rawdev/raw_decode_state.h"

namespace qmx {

class BitmapPainter {
public:
    // Lays out `bitmap` for the output cells and the tone that the histogram asks for.  False when
    // the picture is too large for a BMP or memory is short.
    bool Start(RawDecodeState& state);

    // Paints cells of a source row.  Rows come from the top, each from the left and whole.
    void Paint(std::uint32_t row, std::uint32_t column, const std::uint16_t (*cells)[kColors],
               std::uint32_t count);

    const BitmapLayout& Layout() const { return layout_; }

private:
    std::uint8_t* PixelAt(std::uint32_t x, std::uint32_t fromBottom) const;
    void PaintAlong(std::uint32_t row, std::uint32_t column, const std::uint16_t (*cells)[kColors],
                    std::uint32_t count) const;
    void StandUp(std::uint32_t firstRow, std::uint32_t rowCount) const;

    RawDecodeState* state_ = nullptr;
    BitmapLayout layout_ = {};
    ToneTable* tone_ = nullptr;
    std::uint8_t* band_ = nullptr;  // pixels of a few source rows that become columns
    std::size_t bandStride_ = 0;
};

}  // namespace qmx
