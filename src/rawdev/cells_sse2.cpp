// The loops over cells for every x64 processor: SSE2.

#include <emmintrin.h>

#include <cstring>

#include "rawdev/portable_kernels.h"

namespace qmx {
namespace {

constexpr std::uint32_t kLanes = 4;

using Ints = __m128i;
using Floats = __m128;

Ints Load(const void* p) { return _mm_loadu_si128(static_cast<const Ints*>(p)); }
void Store(void* p, Ints value) { _mm_storeu_si128(static_cast<Ints*>(p), value); }

void AddTo(std::uint32_t* sums, Ints more) { Store(sums, _mm_add_epi32(Load(sums), more)); }

// A lane holds two neighbouring samples, the even one in the low half.
Ints Evens(Ints samples) { return _mm_and_si128(samples, _mm_set1_epi32(0xFFFF)); }
Ints Odds(Ints samples) { return _mm_srli_epi32(samples, 16); }

struct EvenOdd {
    Ints even;
    Ints odd;
};

// One cell of 8 columns, summed over the rows.
EvenOdd SumRows(const std::uint16_t* const* rows, std::uint32_t rowCount, std::size_t x) {
    EvenOdd sums = {_mm_setzero_si128(), _mm_setzero_si128()};
    for (std::uint32_t i = 0; i < rowCount; ++i) {
        const Ints samples = Load(rows[i] + x);
        sums.even = _mm_add_epi32(sums.even, Evens(samples));
        sums.odd = _mm_add_epi32(sums.odd, Odds(samples));
    }
    return sums;
}

// The sum of each vector's lanes.
Ints SumLanes(Ints a, Ints b, Ints c, Ints d) {
    const Ints ab = _mm_add_epi32(_mm_unpacklo_epi32(a, b), _mm_unpackhi_epi32(a, b));
    const Ints cd = _mm_add_epi32(_mm_unpacklo_epi32(c, d), _mm_unpackhi_epi32(c, d));
    return _mm_add_epi32(_mm_unpacklo_epi64(ab, cd), _mm_unpackhi_epi64(ab, cd));
}

Ints ToLevels(Floats values) {
    const Floats guarded = _mm_add_ps(values, _mm_set1_ps(kRoundingGuard));
    return _mm_cvttps_epi32(
        _mm_min_ps(_mm_max_ps(guarded, _mm_setzero_ps()), _mm_set1_ps(kFullScale)));
}

Ints Scale(const CellRun& run, std::uint32_t color, std::uint32_t i) {
    const Floats values = _mm_cvtepi32_ps(Load(run.sums[color] + i));
    return ToLevels(_mm_sub_ps(_mm_mul_ps(values, _mm_set1_ps(run.factor[color])),
                               _mm_set1_ps(run.black[color])));
}

Ints Mix(const float (&weights)[3], Floats red, Floats green, Floats blue) {
    const Floats redGreen = _mm_add_ps(_mm_mul_ps(_mm_set1_ps(weights[0]), red),
                                       _mm_mul_ps(_mm_set1_ps(weights[1]), green));
    return ToLevels(_mm_add_ps(redGreen, _mm_mul_ps(_mm_set1_ps(weights[2]), blue)));
}

// Four cells.
void FinishLanes(const CellRun& run, std::uint32_t i, std::uint16_t (*cells)[kColors]) {
    const Ints greens = _mm_add_epi32(Scale(run, 1, i), Scale(run, 3, i));
    const Floats red = _mm_cvtepi32_ps(Scale(run, 0, i));
    const Floats green = _mm_cvtepi32_ps(_mm_srli_epi32(greens, 1));
    const Floats blue = _mm_cvtepi32_ps(Scale(run, 2, i));
    const Ints redGreen = _mm_or_si128(Mix(run.matrix[0], red, green, blue),
                                       _mm_slli_epi32(Mix(run.matrix[1], red, green, blue), 16));
    const Ints last = Mix(run.matrix[2], red, green, blue);
    Store(cells, _mm_unpacklo_epi32(redGreen, last));
    Store(cells + 2, _mm_unpackhi_epi32(redGreen, last));
}

}  // namespace

void AddPairs(const std::uint16_t* row, std::uint32_t cells, std::uint32_t* even,
              std::uint32_t* odd) {
    for (std::size_t x = 0; x < cells; x += kLanes) {
        const Ints samples = Load(row + 2 * x);
        AddTo(even + x, Evens(samples));
        AddTo(odd + x, Odds(samples));
    }
}

void AddOctets(const std::uint16_t* const* rows, std::uint32_t rowCount, std::uint32_t cells,
               std::uint32_t* even, std::uint32_t* odd) {
    for (std::size_t x = 0; x < cells; x += kLanes) {
        const EvenOdd a = SumRows(rows, rowCount, 8 * x);
        const EvenOdd b = SumRows(rows, rowCount, 8 * x + 8);
        const EvenOdd c = SumRows(rows, rowCount, 8 * x + 16);
        const EvenOdd d = SumRows(rows, rowCount, 8 * x + 24);
        AddTo(even + x, SumLanes(a.even, b.even, c.even, d.even));
        AddTo(odd + x, SumLanes(a.odd, b.odd, c.odd, d.odd));
    }
}

void FinishCells(const CellRun& run) {
    std::uint32_t i = 0;
    for (; i + kLanes <= run.count; i += kLanes) FinishLanes(run, i, run.cells + i);
    if (i == run.count) return;
    std::uint16_t last[kLanes][kColors];
    FinishLanes(run, i, last);
    std::memcpy(run.cells + i, last, (run.count - i) * sizeof *last);
}

// Channel by channel over many cells, so that the bins of one stay in the first cache.
void CountCells(const std::uint16_t (*cells)[kColors], std::uint32_t count, std::uint32_t,
                std::uint32_t (*histogram)[kHistogramBins]) {
    for (std::uint32_t channel = 0; channel < 3; ++channel)
        for (std::size_t i = 0; i < count; ++i) ++histogram[channel][cells[i][channel] >> 3];
}

}  // namespace qmx
