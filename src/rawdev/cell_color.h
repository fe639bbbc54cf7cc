#pragma once
// The colour stages of one run of cells: black, white balance, the matrix and the histogram.

#include <cstdint>

#include "rawdev/raw_decode_state.h"

namespace qmx {

// How many samples of each colour a cell has collected.
struct CellCounts {
    std::uint32_t of[kColors] = {1, 1, 1, 1};
};

class CellColor {
public:
    CellColor() = default;
    explicit CellColor(RawDecodeState& state);

    // Turns sums of samples into finished cells: the means, balanced and converted, the greens
    // averaged.  A colour without samples is black.  The sums are readable for four cells beyond.
    void FinishCells(const std::uint32_t* const (&sums)[kColors], const CellCounts& counts,
                     std::uint32_t cellCount, std::uint16_t (*cells)[kColors]) const;

    // Black and white balance of cells that still wait for their missing colours.
    void BalanceCells(std::uint16_t (*cells)[kColors], std::uint64_t cellCount) const;

    // The matrix over finished cells in place, and their count in the histogram.
    void ConvertCells(std::uint16_t (*cells)[kColors], std::uint64_t cellCount) const;

private:
    float scale_[kColors] = {};
    float black_ = 0;
    float matrix_[3][3] = {};
    std::uint32_t (*histogram_)[kHistogramBins] = nullptr;
};

}  // namespace qmx
