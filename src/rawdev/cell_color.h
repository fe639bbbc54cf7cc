#pragma once
// The colour stages of one run of cells: black, white balance, the matrix and the histogram.

#include <cstdint>

#include "rawdev/cell_sums.h"
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

    // Turns sums of samples, from the `first` of a run, into finished cells: the means, balanced
    // and converted, the greens averaged.  A colour without samples is black.
    void FinishCells(const CellSums& sums, const CellCounts& counts, std::uint32_t first,
                     std::uint32_t cellCount, std::uint16_t (*cells)[kColors]);

    // Black and white balance of cells that still wait for their missing colours.
    void BalanceCells(std::uint16_t (*cells)[kColors], std::uint64_t cellCount) const;

    // The matrix over finished cells in place, and their count in the histogram.  There the bins
    // that cannot hold the white point any more stay incomplete.
    void ConvertCells(std::uint16_t (*cells)[kColors], std::uint64_t cellCount);

private:
    void Count(const std::uint16_t (*cells)[kColors], std::uint32_t cellCount);
    void Convert(CellRun& run, std::uint32_t cellCount, std::uint16_t (*cells)[kColors]);

    RawDecodeState* state_ = nullptr;
    float scale_[kColors] = {};
    float black_ = 0;
    float matrix_[3][3] = {};
    std::uint32_t bound_ = 0;      // levels below it need not be counted
    std::uint64_t sinceLook_ = 0;  // cells counted since it was set
    std::uint64_t lookAfter_ = 0;
};

}  // namespace qmx
