// The loops over cells for processors with AVX2, step by step as those of SSE2: every rounding is
// the same.

#include <cstring>

#include "rawdev/avx2.h"
#include "rawdev/portable_kernels.h"

namespace qmx {
namespace {

constexpr std::uint32_t kLanes = 8;

using Floats = __m256;

QMX_AVX2_INLINE void AddTo(std::uint32_t* sums, Ints more) {
    StoreInts(sums, _mm256_add_epi32(LoadInts(sums), more));
}

// A lane holds two neighbouring samples, the even one in the low half.
QMX_AVX2_INLINE Ints Evens(Ints samples) {
    return _mm256_and_si256(samples, _mm256_set1_epi32(0xFFFF));
}
QMX_AVX2_INLINE Ints Odds(Ints samples) { return _mm256_srli_epi32(samples, 16); }

struct EvenOdd {
    Ints even;
    Ints odd;
};

// Two cells of 8 columns, summed over the rows.
QMX_AVX2_INLINE EvenOdd SumRows(const std::uint16_t* const* rows, std::uint32_t rowCount,
                                std::size_t x) {
    EvenOdd sums = {_mm256_setzero_si256(), _mm256_setzero_si256()};
    for (std::uint32_t i = 0; i < rowCount; ++i) {
        const Ints samples = LoadInts(rows[i] + x);
        sums.even = _mm256_add_epi32(sums.even, Evens(samples));
        sums.odd = _mm256_add_epi32(sums.odd, Odds(samples));
    }
    return sums;
}

// The sum of each half's lanes, in the order a low, a high, b low, ...
QMX_AVX2_INLINE Ints SumHalves(Ints a, Ints b, Ints c, Ints d) {
    const Ints sums = _mm256_hadd_epi32(_mm256_hadd_epi32(a, b), _mm256_hadd_epi32(c, d));
    return _mm256_permutevar8x32_epi32(sums, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
}

// The source's numbers for eight cells from the `i`-th.
QMX_AVX2_INLINE Ints Numbers(const SumRun& run, std::uint32_t color, std::uint32_t i) {
    return LoadInts(run.source[color] + i);
}
QMX_AVX2_INLINE Ints Numbers(const SampleRun& run, std::uint32_t color, std::uint32_t i) {
    return Evens(LoadInts(run.source[color] + 2 * std::size_t{i}));
}

// What all cells have in common, ready for use.
struct LaneBalance {
    Floats factor[kColors];
    Floats black[kColors];
    Floats matrix[3][3];
};

QMX_AVX2_INLINE void Spread(const CellBalance& balance, LaneBalance& lanes) {
    for (std::uint32_t color = 0; color < kColors; ++color) {
        lanes.factor[color] = _mm256_set1_ps(balance.factor[color]);
        lanes.black[color] = _mm256_set1_ps(balance.black[color]);
    }
    for (std::uint32_t i = 0; i < 9; ++i)
        lanes.matrix[i / 3][i % 3] = _mm256_set1_ps(balance.matrix[i / 3][i % 3]);
}

QMX_AVX2_INLINE Ints Scale(const LaneBalance& balance, std::uint32_t color, Ints numbers) {
    const Floats scaled = _mm256_mul_ps(_mm256_cvtepi32_ps(numbers), balance.factor[color]);
    const Floats level = _mm256_sub_ps(scaled, balance.black[color]);
    return _mm256_max_epi32(_mm256_cvtps_epi32(_mm256_min_ps(level, _mm256_set1_ps(kFullScale))),
                            _mm256_setzero_si256());
}

struct Channels {
    Ints red, green, blue;
};

template <class Run>
QMX_AVX2_INLINE Channels Balanced(const LaneBalance& balance, const Run& run, std::uint32_t i) {
    const Ints greens = _mm256_add_epi32(Scale(balance, 1, Numbers(run, 1, i)),
                                         Scale(balance, 3, Numbers(run, 3, i)));
    return {Scale(balance, 0, Numbers(run, 0, i)), _mm256_srli_epi32(greens, 1),
            Scale(balance, 2, Numbers(run, 2, i))};
}

// Packing limits what comes out.
QMX_AVX2_INLINE Ints Mix(const Floats (&weights)[3], Floats red, Floats green, Floats blue) {
    const Floats redGreen =
        _mm256_add_ps(_mm256_mul_ps(weights[0], red), _mm256_mul_ps(weights[1], green));
    return _mm256_cvtps_epi32(_mm256_add_ps(redGreen, _mm256_mul_ps(weights[2], blue)));
}

QMX_AVX2_INLINE Channels Mixed(const LaneBalance& balance, const Channels& from) {
    const Floats red = _mm256_cvtepi32_ps(from.red);
    const Floats green = _mm256_cvtepi32_ps(from.green);
    const Floats blue = _mm256_cvtepi32_ps(from.blue);
    return {Mix(balance.matrix[0], red, green, blue), Mix(balance.matrix[1], red, green, blue),
            Mix(balance.matrix[2], red, green, blue)};
}

// Eight cells.
template <bool kMixes, class Run>
QMX_AVX2_INLINE void FinishLanes(const LaneBalance& balance, const Run& run, std::uint32_t i,
                                 std::uint16_t (*cells)[kColors]) {
    Channels channels = Balanced(balance, run, i);
    if constexpr (kMixes) channels = Mixed(balance, channels);
    // Within each half: four reds, four blues; four greens, zeros.
    const Ints redBlue = _mm256_packus_epi32(channels.red, channels.blue);
    const Ints greens = _mm256_packus_epi32(channels.green, _mm256_setzero_si256());
    const Ints redGreen = _mm256_unpacklo_epi16(redBlue, greens);
    const Ints blues = _mm256_unpackhi_epi16(redBlue, greens);
    const Ints low = _mm256_unpacklo_epi32(redGreen, blues);   // cells 0 1, 4 5
    const Ints high = _mm256_unpackhi_epi32(redGreen, blues);  // cells 2 3, 6 7
    StoreInts(cells, _mm256_permute2x128_si256(low, high, 0x20));
    StoreInts(cells + 4, _mm256_permute2x128_si256(low, high, 0x31));
}

template <bool kMixes, class Run>
QMX_AVX2_INLINE void Finish(const CellBalance& cellBalance, const Run& run) {
    LaneBalance balance;
    Spread(cellBalance, balance);
    std::uint32_t i = 0;
    for (; i + kLanes <= run.count; i += kLanes)
        FinishLanes<kMixes>(balance, run, i, run.cells + i);
    if (i == run.count) return;
    std::uint16_t last[kLanes][kColors];
    FinishLanes<kMixes>(balance, run, i, last);
    std::memcpy(run.cells + i, last, (run.count - i) * sizeof *last);
}

}  // namespace

QMX_AVX2 void AddPairsAvx2(const std::uint16_t* row, std::uint32_t cells, std::uint32_t* even,
                           std::uint32_t* odd) {
    for (std::size_t x = 0; x < cells; x += kLanes) {
        const Ints samples = LoadInts(row + 2 * x);
        AddTo(even + x, Evens(samples));
        AddTo(odd + x, Odds(samples));
    }
}

QMX_AVX2 void AddOctetsAvx2(const std::uint16_t* const* rows, std::uint32_t rowCount,
                            std::uint32_t cells, std::uint32_t* even, std::uint32_t* odd) {
    for (std::size_t x = 0; x < cells; x += kLanes) {
        const EvenOdd a = SumRows(rows, rowCount, 8 * x);
        const EvenOdd b = SumRows(rows, rowCount, 8 * x + 16);
        const EvenOdd c = SumRows(rows, rowCount, 8 * x + 32);
        const EvenOdd d = SumRows(rows, rowCount, 8 * x + 48);
        AddTo(even + x, SumHalves(a.even, b.even, c.even, d.even));
        AddTo(odd + x, SumHalves(a.odd, b.odd, c.odd, d.odd));
    }
}

QMX_AVX2 void FinishSumsAvx2(const CellBalance& balance, const SumRun& run) {
    balance.mixes ? Finish<true>(balance, run) : Finish<false>(balance, run);
}

QMX_AVX2 void FinishSamplesAvx2(const CellBalance& balance, const SampleRun& run) {
    balance.mixes ? Finish<true>(balance, run) : Finish<false>(balance, run);
}

}  // namespace qmx
