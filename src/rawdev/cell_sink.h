#pragma once
// Where loaders put their rows.  Rows are reduced to output cells as they come: a shrunken picture
// never exists at full size, only a ring of a few rows does.

#include <cstdint>
#include <cstring>

#include "rawdev/cell_color.h"
#include "rawdev/raw_decode_state.h"

namespace qmx {

class CellSink {
public:
    // Takes the ring from the run's scratch memory.  False when memory is short.
    bool Start(RawDecodeState& state);

    // The place of the next stored row, left margin included; it may hold an earlier row's samples.
    std::uint16_t* NextRow();

    // The row that NextRow named is complete and is the next of the visible area.
    void FinishRow();

private:
    static constexpr std::uint32_t kMostRows = 16;

    std::uint16_t* VisibleRow(std::uint32_t y);
    void RepairRow(std::uint32_t y, std::uint32_t rowsThere);
    std::uint16_t RepairedSample(std::uint32_t y, std::uint32_t x, std::uint32_t rowsThere);
    void PassRow(std::uint32_t y);
    void ReduceBlock(std::uint32_t outRow);
    void StoreMosaicRow(std::uint32_t y);
    void StoreFullRow(std::uint32_t y);

    RawDecodeState* state_ = nullptr;
    CellColor color_;
    std::uint16_t* ring_ = nullptr;
    std::size_t ringStride_ = 0;  // samples from row to row
    std::uint32_t ringRows_ = 0;
    std::uint32_t rowsIn_ = 0;  // visible rows that have come
};

// Fetches the visible rows one by one with `read(rawRow, dst)`; what is not stored is black.  With
// `inOrder` the rows above the visible area are read as well.
template <class Read>
void StreamRows(RawDecodeState& state, CellSink& sink, bool inOrder, Read&& read) {
    for (std::uint32_t row = 0; inOrder && row < state.topMargin && row < state.rawHeight; ++row)
        read(row, sink.NextRow());
    for (std::uint32_t y = 0; y < state.height; ++y) {
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
