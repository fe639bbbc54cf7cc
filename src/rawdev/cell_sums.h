#pragma once
// Sums of the samples of each colour in square cells: the hot loop of shrunken pictures.

#include <cstdint>

#include "rawdev/raw_decode_state.h"

namespace qmx {

inline constexpr std::uint32_t kSumSlack = 4;   // sums that must fit behind those of a row
inline constexpr std::uint32_t kRowSlack = 32;  // samples that must be readable behind a row

// Sums `rowCount` (at most `side`) rows of `width` samples into cells `side` (2 or 8) samples wide,
// the last of which may be narrower.  `rowColors` holds each row's colours of the even and, 2 bits
// higher, the odd columns.
void SumBlock(const std::uint16_t* const* rows, const std::uint32_t* rowColors,
              std::uint32_t rowCount, std::uint32_t side, std::uint32_t width,
              std::uint32_t* const (&sums)[kColors]);

}  // namespace qmx
