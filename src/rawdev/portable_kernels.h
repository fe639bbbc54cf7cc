#pragma once
// The kernels for every x64 processor.

#include "rawdev/kernels.h"

namespace qmx {

inline constexpr float kFullScale = 65535;

void Unpack12(const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst);
void Unpack12Padded(const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst);
void UnpackBits(const std::uint8_t* src, std::uint32_t count, std::uint32_t bits,
                std::uint16_t* dst);
void UnpackGroups(const std::uint8_t* src, std::uint32_t groups, std::uint16_t* dst);
void AddPairs(const std::uint16_t* row, std::uint32_t cells, std::uint32_t* even,
              std::uint32_t* odd);
void AddOctets(const std::uint16_t* const* rows, std::uint32_t rowCount, std::uint32_t cells,
               std::uint32_t* even, std::uint32_t* odd);
void FinishSums(const CellBalance& balance, const SumRun& run);
void FinishSamples(const CellBalance& balance, const SampleRun& run);
void CountCells(const std::uint16_t (*cells)[kColors], std::uint32_t count, std::uint32_t bound,
                std::uint32_t (*histogram)[kHistogramBins]);
void ToneCells(const std::uint16_t (*cells)[kColors], std::uint32_t count, const ToneTable& tone,
               std::uint8_t* pixels);

}  // namespace qmx
