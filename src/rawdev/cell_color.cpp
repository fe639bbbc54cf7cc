#include "rawdev/cell_color.h"

#include <emmintrin.h>

#include <algorithm>

#include "rawdev/color_matrix.h"

namespace qmx {
namespace {

constexpr float kFullScale = 65535;

// Keeps a product that should be whole from falling below its number.
constexpr float kRoundingGuard = 1.0f / 128;

constexpr std::uint32_t kRun = 256;  // cells worked on at a time, all within the first cache
constexpr std::uint32_t kLanes = 4;  // cells worked on at once; runs are rounded up to them

using Levels = std::int32_t[kRun];

std::int32_t ToLevel(float value) {
    return static_cast<std::int32_t>(std::clamp(value + kRoundingGuard, 0.0f, kFullScale));
}

// SSE2, which every x64 processor has.
__m128i ToLevels(__m128 values) {
    const __m128 guarded = _mm_add_ps(values, _mm_set1_ps(kRoundingGuard));
    return _mm_cvttps_epi32(
        _mm_min_ps(_mm_max_ps(guarded, _mm_setzero_ps()), _mm_set1_ps(kFullScale)));
}

__m128i Load(const void* p) { return _mm_loadu_si128(static_cast<const __m128i*>(p)); }
__m128 LoadFloats(const std::int32_t* p) { return _mm_cvtepi32_ps(Load(p)); }
void Store(void* p, __m128i value) { _mm_storeu_si128(static_cast<__m128i*>(p), value); }

// `sums` is readable up to whole lanes.
void ScaleSums(const std::uint32_t* sums, float factor, float black, std::uint32_t count,
               Levels& levels) {
    const __m128 factors = _mm_set1_ps(factor);
    const __m128 blacks = _mm_set1_ps(black);
    for (std::uint32_t i = 0; i < count; i += kLanes) {
        const __m128 values = _mm_cvtepi32_ps(Load(sums + i));
        Store(levels + i, ToLevels(_mm_sub_ps(_mm_mul_ps(values, factors), blacks)));
    }
}

void MeanOfGreens(Levels& first, const Levels& second, std::uint32_t count) {
    for (std::uint32_t i = 0; i < count; i += kLanes)
        Store(first + i, _mm_srli_epi32(_mm_add_epi32(Load(first + i), Load(second + i)), 1));
}

void Convert(const float (&matrix)[3][3], const Levels (&in)[kColors], std::uint32_t count,
             Levels (&out)[3]) {
    for (int channel = 0; channel < 3; ++channel) {
        const __m128 red = _mm_set1_ps(matrix[channel][0]);
        const __m128 green = _mm_set1_ps(matrix[channel][1]);
        const __m128 blue = _mm_set1_ps(matrix[channel][2]);
        for (std::uint32_t i = 0; i < count; i += kLanes) {
            const __m128 redGreen = _mm_add_ps(_mm_mul_ps(red, LoadFloats(in[0] + i)),
                                               _mm_mul_ps(green, LoadFloats(in[1] + i)));
            Store(out[channel] + i,
                  ToLevels(_mm_add_ps(redGreen, _mm_mul_ps(blue, LoadFloats(in[2] + i)))));
        }
    }
}

void StoreCell(const Levels (&levels)[3], std::uint32_t i, std::uint16_t (&cell)[kColors]) {
    for (int channel = 0; channel < 3; ++channel)
        cell[channel] = static_cast<std::uint16_t>(levels[channel][i]);
    cell[3] = 0;
}

void StoreCells(const Levels (&levels)[3], std::uint32_t count, std::uint16_t (*cells)[kColors]) {
    std::uint32_t i = 0;
    for (; i + kLanes <= count; i += kLanes) {
        const __m128i redGreen =
            _mm_or_si128(Load(levels[0] + i), _mm_slli_epi32(Load(levels[1] + i), 16));
        const __m128i blue = Load(levels[2] + i);
        Store(cells[i], _mm_unpacklo_epi32(redGreen, blue));
        Store(cells[i + 2], _mm_unpackhi_epi32(redGreen, blue));
    }
    for (; i < count; ++i) StoreCell(levels, i, cells[i]);
}

// Channel by channel over many cells, so that the bins of one stay in the first cache.
void CountCells(const std::uint16_t (*cells)[kColors], std::uint64_t count,
                std::uint32_t (*histogram)[kHistogramBins]) {
    for (int channel = 0; channel < 3; ++channel)
        for (std::uint64_t i = 0; i < count; ++i) ++histogram[channel][cells[i][channel] >> 3];
}

}  // namespace

CellColor::CellColor(RawDecodeState& state)
    : black_(static_cast<float>(state.black)), histogram_(state.channelHistogram.get()) {
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

void CellColor::FinishCells(const std::uint32_t* const (&sums)[kColors], const CellCounts& counts,
                            std::uint32_t cellCount, std::uint16_t (*cells)[kColors]) const {
    Levels levels[kColors];
    Levels converted[3];
    for (std::uint32_t done = 0; done < cellCount; done += kRun) {
        const std::uint32_t run = std::min(kRun, cellCount - done);
        for (std::uint32_t color = 0; color < kColors; ++color) {
            const std::uint32_t samples = counts.of[color];
            const float factor = samples == 0 ? 0 : scale_[color] / static_cast<float>(samples);
            ScaleSums(sums[color] + done, factor, black_ * scale_[color], run, levels[color]);
        }
        if (counts.of[1] != 0 && counts.of[3] != 0) {
            MeanOfGreens(levels[1], levels[3], run);
        } else if (counts.of[3] != 0) {
            std::copy_n(levels[3], run, levels[1]);
        }
        Convert(matrix_, levels, run, converted);
        StoreCells(converted, run, cells + done);
    }
    CountCells(cells, cellCount, histogram_);
}

void CellColor::BalanceCells(std::uint16_t (*cells)[kColors], std::uint64_t cellCount) const {
    for (std::uint64_t i = 0; i < cellCount; ++i)
        for (std::uint32_t color = 0; color < kColors; ++color)
            cells[i][color] = static_cast<std::uint16_t>(
                ToLevel((static_cast<float>(cells[i][color]) - black_) * scale_[color]));
}

void CellColor::ConvertCells(std::uint16_t (*cells)[kColors], std::uint64_t cellCount) const {
    Levels levels[kColors] = {};
    Levels converted[3];
    for (std::uint64_t done = 0; done < cellCount; done += kRun) {
        const auto run =
            static_cast<std::uint32_t>(std::min<std::uint64_t>(kRun, cellCount - done));
        for (std::uint32_t i = 0; i < run; ++i)
            for (std::uint32_t color = 0; color < 3; ++color)
                levels[color][i] = cells[done + i][color];
        Convert(matrix_, levels, run, converted);
        StoreCells(converted, run, cells + done);
    }
    CountCells(cells, cellCount, histogram_);
}

}  // namespace qmx
