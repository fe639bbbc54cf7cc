#include "rawdev/cell_sums.h"

#include <cstring>

namespace qmx {
namespace {

constexpr std::uint32_t kMostRows = 8;

// Rows with the same colours are summed together.
void AddRows(const Kernels& kernels, const std::uint16_t* const* rows,
             const std::uint32_t* rowColors, std::uint32_t rowCount, std::uint32_t cells,
             CellSums& sums) {
    std::uint32_t done = 0;  // a bit per row
    for (std::uint32_t first = 0; first < rowCount; ++first) {
        const std::uint16_t* alike[kMostRows];
        std::uint32_t count = 0;
        for (std::uint32_t i = first; i < rowCount; ++i) {
            if ((done >> i & 1) != 0 || rowColors[i] != rowColors[first]) continue;
            alike[count++] = rows[i];
            done |= 1u << i;
        }
        if (count == 0) continue;
        kernels.addOctets(alike, count, cells, sums[rowColors[first] & 3],
                          sums[rowColors[first] >> 2 & 3]);
    }
}

}  // namespace

void SumBlock(const Kernels& kernels, const std::uint16_t* const* rows,
              const std::uint32_t* rowColors, std::uint32_t rowCount, std::uint32_t side,
              std::uint32_t width, CellSums& sums) {
    const std::uint32_t wholeCells = width / side;
    for (auto& sum : sums) std::memset(sum, 0, wholeCells * sizeof *sum);
    if (side == 2) {
        for (std::uint32_t i = 0; i < rowCount; ++i)
            kernels.addPairs(rows[i], wholeCells, sums[rowColors[i] & 3],
                             sums[rowColors[i] >> 2 & 3]);
    } else {
        AddRows(kernels, rows, rowColors, rowCount, wholeCells, sums);
    }
    // What was worked on beyond the whole cells.
    for (auto& sum : sums) std::memset(sum + wholeCells, 0, kSumSlack * sizeof *sum);
    for (std::uint32_t i = 0; i < rowCount; ++i)
        for (std::uint32_t x = wholeCells * side; x < width; ++x)
            sums[rowColors[i] >> (x % 2 == 0 ? 0 : 2) & 3][wholeCells] += rows[i][x];
}

}  // namespace qmx
