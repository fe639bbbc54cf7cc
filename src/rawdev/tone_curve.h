#pragma once
// From 16-bit levels to bytes: the white point of the histogram and the transfer curve of ITU-R
// BT.709.

#include <cstdint>

#include "rawdev/raw_decode_state.h"

namespace qmx {

inline constexpr std::uint32_t kLevelsPerBin = 8;

// The highest bin of any channel above which no more than a hundredth of the pixels lies, of those
// that are counted.
std::uint32_t FindWhiteBin(const RawDecodeState& state);

// The level that becomes white: the brightest hundredth of the pixels may clip.
double FindWhiteLevel(const RawDecodeState& state);

// Fills the table that gives the byte of every level.
void FillToneTable(double whiteLevel, ToneTable& tone);

}  // namespace qmx
