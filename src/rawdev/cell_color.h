#pragma once
// The colour stages of one run of cells: black, white balance, the matrix and the histogram.

#include <cstdint>

#include "rawdev/cell_sums.h"
#include "rawdev/raw_decode_state.h"
#include "rawdev/tone_curve.h"

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
    void FinishSums(const CellSums& sums, const CellCounts& counts, std::uint32_t first,
                    std::uint32_t cellCount, std::uint16_t (*cells)[kColors]) const;

    // The same for cells of one sample of each colour, `samples` being those of the first cell.
    void FinishSamples(const std::uint16_t* const (&samples)[kColors], std::uint32_t cellCount,
                       std::uint16_t (*cells)[kColors]) const;

    // Black and white balance of cells that still wait for their missing colours.
    void BalanceCells(std::uint16_t (*cells)[kColors], std::uint64_t cellCount) const;

    // The matrix over finished cells in place, and their count.
    void ConvertCells(std::uint16_t (*cells)[kColors], std::uint64_t cellCount);

    // Counts finished cells in the histogram.  There the bins that cannot hold the white point any
    // more stay incomplete.
    void Count(const std::uint16_t (*cells)[kColors], std::uint32_t cellCount);

    // No further cell can change the white point.
    bool KnowsWhite() const { return bound_ == (kHistogramBins - 1) * kLevelsPerBin; }

private:
    RawDecodeState* state_ = nullptr;
    CellBalance balance_ = {};  // of single samples
    float black_ = 0;
    std::uint32_t bound_ = 0;      // levels below it need not be counted
    std::uint64_t sinceLook_ = 0;  // cells counted since it was set
    std::uint64_t lookAfter_ = 0;
};

}  // namespace qmx
