#include "rawdev/cell_color.h"

#include <emmintrin.h>

#include <algorithm>

#include "rawdev/color_matrix.h"
#include "rawdev/portable_kernels.h"

namespace qmx {
namespace {

// As the kernels round.
std::uint16_t ToLevel(float value) {
    return static_cast<std::uint16_t>(
        _mm_cvtss_si32(_mm_set_ss(std::clamp(value, 0.0f, kFullScale))));
}

// The white point is looked for so often while a picture is counted, if that is worth a look.
constexpr std::uint32_t kLooks = 64;
constexpr std::uint64_t kLeastCells = 0x4000;

}  // namespace

CellColor::CellColor(RawDecodeState& state)
    : state_(&state), black_(static_cast<float>(state.black)) {
    const std::uint64_t cells = std::uint64_t{state.outputHeight} * state.outputWidth;
    lookAfter_ = std::max(cells / kLooks, kLeastCells);
    float multipliers[kColors];
    ChooseMultipliers(state, multipliers);
    // Clipped highlights are white; those that are mended keep all that the sensor saw.
    const auto [smallest, largest] = std::minmax_element(multipliers, multipliers + 3);
    const float unity = state.highlightMode == 0 ? *smallest : *largest;
    const std::uint32_t range = state.maximum > state.black ? state.maximum - state.black : 1;
    for (std::uint32_t color = 0; color < kColors; ++color) {
        balance_.factor[color] =
            multipliers[color] / unity * (kFullScale / static_cast<float>(range));
        balance_.black[color] = black_ * balance_.factor[color];
    }
    balance_.mixes = !state.rawColor;
    for (int row = 0; row < 3; ++row)
        std::copy_n(state.cameraToOutput[row], 3, balance_.matrix[row]);
}

void CellColor::FinishSums(const CellSums& sums, const CellCounts& counts, std::uint32_t first,
                           std::uint32_t cellCount, std::uint16_t (*cells)[kColors]) const {
    CellBalance balance = balance_;
    SumRun run = {{}, cellCount, cells};
    for (std::uint32_t color = 0; color < kColors; ++color) {
        // Of two greens of which one is missing the other counts twice.
        const bool isLoneGreen = color % 2 == 1 && counts.of[color] == 0;
        const std::uint32_t source = isLoneGreen ? 4 - color : color;
        const std::uint32_t samples = counts.of[source];
        run.source[color] = sums[source] + first;
        balance.factor[color] =
            samples == 0 ? 0 : balance_.factor[source] / static_cast<float>(samples);
        balance.black[color] = balance_.black[source];
    }
    state_->kernels->finishSums(balance, run);
}

void CellColor::FinishSamples(const std::uint16_t* const (&samples)[kColors],
                              std::uint32_t cellCount, std::uint16_t (*cells)[kColors]) const {
    SampleRun run = {{}, cellCount, cells};
    std::copy_n(samples, kColors, run.source);
    state_->kernels->finishSamples(balance_, run);
}

void CellColor::BalanceCells(std::uint16_t (*cells)[kColors], std::uint64_t cellCount) const {
    for (std::uint64_t i = 0; i < cellCount; ++i)
        for (std::uint32_t color = 0; color < kColors; ++color)
            cells[i][color] =
                ToLevel((static_cast<float>(cells[i][color]) - black_) * balance_.factor[color]);
}

void CellColor::ConvertCells(std::uint16_t (*cells)[kColors], std::uint64_t cellCount) {
    CellBalance balance = balance_;
    std::fill_n(balance.factor, kColors, 1.0f);
    std::fill_n(balance.black, kColors, 0.0f);
    CellSums levels;
    SumRun run = {{levels[0], levels[1], levels[2], levels[1]}, 0, cells};
    for (std::uint64_t done = 0; done < cellCount; done += kRunCells) {
        run.count =
            static_cast<std::uint32_t>(std::min<std::uint64_t>(kRunCells, cellCount - done));
        run.cells = cells + done;
        for (std::uint32_t i = 0; i < run.count; ++i)
            for (std::uint32_t color = 0; color < 3; ++color)
                levels[color][i] = run.cells[i][color];
        state_->kernels->finishSums(balance, run);
        Count(run.cells, run.count);
    }
}

// White only rises while cells are counted: what is darker than white so far does not matter.
void CellColor::Count(const std::uint16_t (*cells)[kColors], std::uint32_t cellCount) {
    if (KnowsWhite()) return;
    state_->kernels->countCells(cells, cellCount, bound_, state_->channelHistogram.get());
    sinceLook_ += cellCount;
    if (sinceLook_ < lookAfter_) return;
    sinceLook_ = 0;
    bound_ = FindWhiteBin(*state_) * kLevelsPerBin;
}

}  // namespace qmx
