#pragma once
// Sums of the samples of each colour in square cells.

#include <cstdint>

#include "rawdev/kernels.h"

namespace qmx {

inline constexpr std::uint32_t kRunCells = 256;  // worked on at a time, all within the first cache

// The cells of a run, per colour.
using CellSums = std::uint32_t[kColors][kRunCells + kSumSlack];

// Sums `rowCount` (at most `side`) rows of `width` samples, a run at most, into cells `side` (2 or
// 8) samples wide, the last of which may be narrower.  `rowColors` holds each row's colours of the
// even and, 2 bits higher, the odd columns.
void SumBlock(const Kernels& kernels, const std::uint16_t* const* rows,
              const std::uint32_t* rowColors, std::uint32_t rowCount, std::uint32_t side,
              std::uint32_t width, CellSums& sums);

}  // namespace qmx
