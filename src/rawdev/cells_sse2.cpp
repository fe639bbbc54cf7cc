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
    return _mm_cvtps_epi32(
        _mm_min_ps(_mm_max_ps(values, _mm_setzero_ps()), _mm_set1_ps(kFullScale)));
}

// The source's numbers for four cells from the `i`-th.
Ints Numbers(const SumRun& run, std::uint32_t color, std::uint32_t i) {
    return Load(run.source[color] + i);
}
Ints Numbers(const SampleRun& run, std::uint32_t color, std::uint32_t i) {
    return Evens(Load(run.source[color] + 2 * std::size_t{i}));
}

Ints Scale(const CellBalance& balance, std::uint32_t color, Ints numbers) {
    return ToLevels(
        _mm_sub_ps(_mm_mul_ps(_mm_cvtepi32_ps(numbers), _mm_set1_ps(balance.factor[color])),
                   _mm_set1_ps(balance.black[color])));
}

struct Channels {
    Ints red, green, blue;
};

template <class Run>
Channels Balanced(const CellBalance& balance, const Run& run, std::uint32_t i) {
    const Ints greens =
        _mm_add_epi32(Scale(balance, 1, Numbers(run, 1, i)), Scale(balance, 3, Numbers(run, 3, i)));
    return {Scale(balance, 0, Numbers(run, 0, i)), _mm_srli_epi32(greens, 1),
            Scale(balance, 2, Numbers(run, 2, i))};
}

Ints Mix(const float (&weights)[3], Floats red, Floats green, Floats blue) {
    const Floats redGreen = _mm_add_ps(_mm_mul_ps(_mm_set1_ps(weights[0]), red),
                                       _mm_mul_ps(_mm_set1_ps(weights[1]), green));
    return ToLevels(_mm_add_ps(redGreen, _mm_mul_ps(_mm_set1_ps(weights[2]), blue)));
}

Channels Mixed(const CellBalance& balance, const Channels& from) {
    const Floats red = _mm_cvtepi32_ps(from.red);
    const Floats green = _mm_cvtepi32_ps(from.green);
    const Floats blue = _mm_cvtepi32_ps(from.blue);
    return {Mix(balance.matrix[0], red, green, blue), Mix(balance.matrix[1], red, green, blue),
            Mix(balance.matrix[2], red, green, blue)};
}

// Four cells.
template <bool kMixes, class Run>
void FinishLanes(const CellBalance& balance, const Run& run, std::uint32_t i,
                 std::uint16_t (*cells)[kColors]) {
    Channels channels = Balanced(balance, run, i);
    if constexpr (kMixes) channels = Mixed(balance, channels);
    const Ints redGreen = _mm_or_si128(channels.red, _mm_slli_epi32(channels.green, 16));
    Store(cells, _mm_unpacklo_epi32(redGreen, channels.blue));
    Store(cells + 2, _mm_unpackhi_epi32(redGreen, channels.blue));
}

template <bool kMixes, class Run>
void Finish(const CellBalance& balance, const Run& run) {
    std::uint32_t i = 0;
    for (; i + kLanes <= run.count; i += kLanes)
        FinishLanes<kMixes>(balance, run, i, run.cells + i);
    if (i == run.count) return;
    std::uint16_t last[kLanes][kColors];
    FinishLanes<kMixes>(balance, run, i, last);
    std::memcpy(run.cells + i, last, (run.count - i) * sizeof *last);
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

void FinishSums(const CellBalance& balance, const SumRun& run) {
    balance.mixes ? Finish<true>(balance, run) : Finish<false>(balance, run);
}

void FinishSamples(const CellBalance& balance, const SampleRun& run) {
    balance.mixes ? Finish<true>(balance, run) : Finish<false>(balance, run);
}

// Channel by channel over many cells, so that the bins of one stay in the first cache.
void CountCells(const std::uint16_t (*cells)[kColors], std::uint32_t count, std::uint32_t,
                std::uint32_t (*histogram)[kHistogramBins]) {
    for (std::uint32_t channel = 0; channel < 3; ++channel)
        for (std::size_t i = 0; i < count; ++i) ++histogram[channel][cells[i][channel] >> 3];
}

void ToneCells(const std::uint16_t (*cells)[kColors], std::uint32_t count, const ToneTable& tone,
               std::uint8_t* pixels) {
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t channel = 0; channel < 3; ++channel)
            pixels[3 * i + 2 - channel] = tone.ByteOf(cells[i][channel]);
}

}  // namespace qmx
