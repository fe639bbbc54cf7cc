// The loops over cells for processors with AVX2, step by step as those of SSE2: every rounding is
// the same.

#include <algorithm>
#include <cstring>

#include "rawdev/avx2.h"
#include "rawdev/portable_kernels.h"

namespace qmx {
namespace {

constexpr std::uint32_t kLanes = 8;

using Ints = __m256i;
using Floats = __m256;

QMX_AVX2_INLINE Ints Load(const void* p) { return _mm256_loadu_si256(static_cast<const Ints*>(p)); }
QMX_AVX2_INLINE void Store(void* p, Ints value) {
    _mm256_storeu_si256(static_cast<Ints*>(p), value);
}

QMX_AVX2_INLINE void AddTo(std::uint32_t* sums, Ints more) {
    Store(sums, _mm256_add_epi32(Load(sums), more));
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
        const Ints samples = Load(rows[i] + x);
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

QMX_AVX2_INLINE Ints ToLevels(Floats values) {
    const Floats guarded = _mm256_add_ps(values, _mm256_set1_ps(kRoundingGuard));
    return _mm256_cvttps_epi32(
        _mm256_min_ps(_mm256_max_ps(guarded, _mm256_setzero_ps()), _mm256_set1_ps(kFullScale)));
}

QMX_AVX2_INLINE Ints Scale(const CellRun& run, std::uint32_t color, std::uint32_t i) {
    const Floats values = _mm256_cvtepi32_ps(Load(run.sums[color] + i));
    return ToLevels(_mm256_sub_ps(_mm256_mul_ps(values, _mm256_set1_ps(run.factor[color])),
                                  _mm256_set1_ps(run.black[color])));
}

QMX_AVX2_INLINE Ints Mix(const float (&weights)[3], Floats red, Floats green, Floats blue) {
    const Floats redGreen = _mm256_add_ps(_mm256_mul_ps(_mm256_set1_ps(weights[0]), red),
                                          _mm256_mul_ps(_mm256_set1_ps(weights[1]), green));
    return ToLevels(_mm256_add_ps(redGreen, _mm256_mul_ps(_mm256_set1_ps(weights[2]), blue)));
}

// Eight cells.
QMX_AVX2_INLINE void FinishLanes(const CellRun& run, std::uint32_t i,
                                 std::uint16_t (*cells)[kColors]) {
    const Ints greens = _mm256_add_epi32(Scale(run, 1, i), Scale(run, 3, i));
    const Floats red = _mm256_cvtepi32_ps(Scale(run, 0, i));
    const Floats green = _mm256_cvtepi32_ps(_mm256_srli_epi32(greens, 1));
    const Floats blue = _mm256_cvtepi32_ps(Scale(run, 2, i));
    const Ints redGreen =
        _mm256_or_si256(Mix(run.matrix[0], red, green, blue),
                        _mm256_slli_epi32(Mix(run.matrix[1], red, green, blue), 16));
    const Ints last = Mix(run.matrix[2], red, green, blue);
    const Ints low = _mm256_unpacklo_epi32(redGreen, last);   // cells 0 1, 4 5
    const Ints high = _mm256_unpackhi_epi32(redGreen, last);  // cells 2 3, 6 7
    Store(cells, _mm256_permute2x128_si256(low, high, 0x20));
    Store(cells + 4, _mm256_permute2x128_si256(low, high, 0x31));
}

// For each set of wanted words out of 8 the order that brings them to the front.
struct FrontOrders {
    std::uint8_t bytes[256][16];
};
constexpr FrontOrders MakeFrontOrders() {
    FrontOrders orders = {};
    for (std::uint32_t set = 0; set < 256; ++set) {
        std::uint32_t at = 0;
        for (std::uint32_t word = 0; word < 8; ++word) {
            if ((set >> word & 1) == 0) continue;
            orders.bytes[set][at++] = static_cast<std::uint8_t>(2 * word);
            orders.bytes[set][at++] = static_cast<std::uint8_t>(2 * word + 1);
        }
    }
    return orders;
}
constexpr FrontOrders kFrontOrders = MakeFrontOrders();

constexpr std::uint32_t kCountRun = 256;  // cells

// The bins of the levels from `bound` up, those of each channel behind those of the one before it.
QMX_AVX2_INLINE std::uint32_t CollectBins(const std::uint16_t (*cells)[kColors],
                                          std::uint32_t count, std::uint32_t bound,
                                          std::uint16_t* bins) {
    constexpr std::uint32_t kThreeOfFour = 0x77;
    constexpr std::int16_t kBins = kHistogramBins;
    const __m128i bounds = _mm_set1_epi16(static_cast<std::int16_t>(bound));
    const __m128i tables = _mm_setr_epi16(0, kBins, 2 * kBins, 0, 0, kBins, 2 * kBins, 0);
    std::uint32_t found = 0;
    for (std::uint32_t i = 0; i < count; i += 2) {
        const __m128i levels = _mm_loadu_si128(reinterpret_cast<const __m128i*>(cells[i]));
        const __m128i wanted = _mm_cmpeq_epi16(_mm_max_epu16(levels, bounds), levels);
        const std::uint32_t set =
            static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_packs_epi16(wanted, wanted))) &
            kThreeOfFour;
        const __m128i all = _mm_or_si128(_mm_srli_epi16(levels, 3), tables);
        const auto* order = reinterpret_cast<const __m128i*>(kFrontOrders.bytes[set]);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(bins + found),
                         _mm_shuffle_epi8(all, _mm_loadu_si128(order)));
        found += static_cast<std::uint32_t>(_mm_popcnt_u32(set));
    }
    return found;
}

}  // namespace

QMX_AVX2 void AddPairsAvx2(const std::uint16_t* row, std::uint32_t cells, std::uint32_t* even,
                           std::uint32_t* odd) {
    for (std::size_t x = 0; x < cells; x += kLanes) {
        const Ints samples = Load(row + 2 * x);
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

QMX_AVX2 void FinishCellsAvx2(const CellRun& run) {
    std::uint32_t i = 0;
    for (; i + kLanes <= run.count; i += kLanes) FinishLanes(run, i, run.cells + i);
    if (i == run.count) return;
    std::uint16_t last[kLanes][kColors];
    FinishLanes(run, i, last);
    std::memcpy(run.cells + i, last, (run.count - i) * sizeof *last);
}

QMX_AVX2 void CountCellsAvx2(const std::uint16_t (*cells)[kColors], std::uint32_t count,
                             std::uint32_t bound, std::uint32_t (*histogram)[kHistogramBins]) {
    std::uint16_t bins[3 * kCountRun + 8];
    std::uint32_t* counts = &histogram[0][0];
    const std::uint32_t paired = count & ~1u;
    for (std::uint32_t done = 0; done < paired; done += kCountRun) {
        const std::uint32_t run = std::min(kCountRun, paired - done);
        const std::uint32_t found = CollectBins(cells + done, run, bound, bins);
        for (std::uint32_t i = 0; i < found; ++i) ++counts[bins[i]];
    }
    CountCells(cells + paired, count - paired, bound, histogram);
}

}  // namespace qmx
