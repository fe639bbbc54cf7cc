#pragma once
// Where loaders put their rows.  Rows are reduced to output cells as they come: a shrunken picture
// never exists at full size, only a ring of a few rows does.

#include <cstdint>
#include <cstring>

#include "rawdev/bitmap_painter.h"
#include "rawdev/cell_color.h"
#include "rawdev/raw_decode_state.h"

namespace qmx {

// What becomes of the cells.
enum class CellUse {
    kKeep,   // they fill `image` and are counted
    kCount,  // they are counted
    kPaint,  // they become pixels with the tone of an earlier count
};

class CellSink {
public:
    // Takes the ring from the run's scratch memory.  False when memory is short.
    bool Start(RawDecodeState& state, CellUse use, BitmapPainter* painter = nullptr);

    // The place of the next stored row, left margin included; it may hold an earlier row's samples.
    std::uint16_t* NextRow();

    // The row that NextRow named is complete and is the next of the visible area.
    void FinishRow();

    // Further rows would change nothing.
    bool HasEnough() const { return use_ == CellUse::kCount && color_.KnowsWhite(); }

private:
    static constexpr std::uint32_t kMostRows = 16;

    std::uint16_t* VisibleRow(std::uint32_t y);
    void RepairRow(std::uint32_t y, std::uint32_t rowsThere);
    std::uint16_t RepairedSample(std::uint32_t y, std::uint32_t x, std::uint32_t rowsThere);
    void PassRow(std::uint32_t y);
    void ReduceBlock(std::uint32_t outRow);
    void ReduceQuads(std::uint32_t outRow);
    auto PlaceOf(std::uint32_t row, std::uint32_t column) -> std::uint16_t (*)[kColors];
    void UseCells(std::uint32_t row, std::uint32_t column, std::uint32_t count);
    void StoreMosaicRow(std::uint32_t y);
    void StoreFullRow(std::uint32_t y);

    RawDecodeState* state_ = nullptr;
    CellUse use_ = CellUse::kKeep;
    BitmapPainter* painter_ = nullptr;
    CellColor color_;
    bool isQuad_ = false;  // cells of 2 x 2 samples of four colours
    std::uint16_t* ring_ = nullptr;
    std::size_t ringStride_ = 0;  // samples from row to row
    std::uint32_t ringRows_ = 0;
    std::uint32_t rowsIn_ = 0;               // visible rows that have come
    std::uint16_t run_[kRunCells][kColors];  // cells that are not kept
};

// Fetches the visible rows one by one with `read(rawRow, dst)`; what is not stored is black.  With
// `inOrder` the rows above the visible area are read as well.
template <class Read>
void StreamRows(RawDecodeState& state, CellSink& sink, bool inOrder, Read&& read) {
    for (std::uint32_t row = 0; inOrder && row < state.topMargin && row < state.rawHeight; ++row)
        read(row, sink.NextRow());
    for (std::uint32_t y = 0; y < state.height && !sink.HasEnough(); ++y) {
        std::uint16_t* row = sink.NextRow();
        const std::uint32_t rawRow = y + state.topMargin;
        if (rawRow < state.rawHeight) {
            read(rawRow, row);
        } else {
            std::memset(row, 0, SamplesPerRow(state) * sizeof *row);
        }
        sink.FinishRow();
    }
}

}  // namespace qmx
