#include "rawdev/cell_color.h"

#include <algorithm>

#include "rawdev/color_matrix.h"
#include "rawdev/portable_kernels.h"
#include "rawdev/tone_curve.h"

namespace qmx {
namespace {

std::uint16_t ToLevel(float value) {
    return static_cast<std::uint16_t>(std::clamp(value + kRoundingGuard, 0.0f, kFullScale));
}

// Looks for the white point so far while a picture is counted.
constexpr std::uint32_t kLooks = 16;

}  // namespace

CellColor::CellColor(RawDecodeState& state)
    : state_(&state), black_(static_cast<float>(state.black)) {
    lookAfter_ = std::uint64_t{state.outputHeight} * state.outputWidth / kLooks;
    float multipliers[kColors];
    ChooseMultipliers(state, multipliers);
    // Clipped highlights are white; those that are mended keep all that the sensor saw.
    const auto [smallest, largest] = std::minmax_element(multipliers, multipliers + 3);
    const float unity = state.highlightMode == 0 ? *smallest : *largest;
    const std::uint32_t range = state.maximum > state.black ? state.maximum - state.black : 1;
    for (std::uint32_t color = 0; color < kColors; ++color)
        scale_[color] = multipliers[color] / unity * (kFullScale / static_cast<float>(range));
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            matrix_[row][column] = state.rawColor ? static_cast<float>(row == column)
                                                  : state.cameraToOutput[row][column];
}

void CellColor::FinishCells(const CellSums& sums, const CellCounts& counts, std::uint32_t first,
                            std::uint32_t cellCount, std::uint16_t (*cells)[kColors]) {
    CellRun run = {};
    for (std::uint32_t color = 0; color < kColors; ++color) {
        // Of two greens of which one is missing the other counts twice.
        const bool isLoneGreen = color % 2 == 1 && counts.of[color] == 0;
        const std::uint32_t source = isLoneGreen ? 4 - color : color;
        const std::uint32_t samples = counts.of[source];
        run.sums[color] = sums[source] + first;
        run.factor[color] = samples == 0 ? 0 : scale_[source] / static_cast<float>(samples);
        run.black[color] = black_ * scale_[source];
    }
    Convert(run, cellCount, cells);
}

void CellColor::BalanceCells(std::uint16_t (*cells)[kColors], std::uint64_t cellCount) const {
    for (std::uint64_t i = 0; i < cellCount; ++i)
        for (std::uint32_t color = 0; color < kColors; ++color)
            cells[i][color] =
                ToLevel((static_cast<float>(cells[i][color]) - black_) * scale_[color]);
}

void CellColor::ConvertCells(std::uint16_t (*cells)[kColors], std::uint64_t cellCount) {
    CellSums levels;
    CellRun run = {};
    for (std::uint32_t color = 0; color < kColors; ++color) {
        run.sums[color] = levels[color == 3 ? 1 : color];
        run.factor[color] = 1;
    }
    for (std::uint64_t done = 0; done < cellCount; done += kRunCells) {
        const auto count =
            static_cast<std::uint32_t>(std::min<std::uint64_t>(kRunCells, cellCount - done));
        for (std::uint32_t i = 0; i < count; ++i)
            for (std::uint32_t color = 0; color < 3; ++color)
                levels[color][i] = cells[done + i][color];
        Convert(run, count, cells + done);
    }
}

void CellColor::Convert(CellRun& run, std::uint32_t cellCount, std::uint16_t (*cells)[kColors]) {
    std::copy_n(&matrix_[0][0], 9, &run.matrix[0][0]);
    run.count = cellCount;
    run.cells = cells;
    state_->kernels->finishCells(run);
    Count(cells, cellCount);
}

// White only rises while cells are counted: what is darker than white so far does not matter.
void CellColor::Count(const std::uint16_t (*cells)[kColors], std::uint32_t cellCount) {
    state_->kernels->countCells(cells, cellCount, bound_, state_->channelHistogram.get());
    sinceLook_ += cellCount;
    if (sinceLook_ < lookAfter_) return;
    sinceLook_ = 0;
    bound_ = FindWhiteBin(*state_) * kLevelsPerBin;
}

}  // namespace qmx
