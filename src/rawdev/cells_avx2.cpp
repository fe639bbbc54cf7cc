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

// The source's numbers for eight cells from the `i`-th.
QMX_AVX2_INLINE Ints Numbers(const SumRun& run, std::uint32_t color, std::uint32_t i) {
    return Load(run.source[color] + i);
}
QMX_AVX2_INLINE Ints Numbers(const SampleRun& run, std::uint32_t color, std::uint32_t i) {
    return Evens(Load(run.source[color] + 2 * std::size_t{i}));
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
    Store(cells, _mm256_permute2x128_si256(low, high, 0x20));
    Store(cells + 4, _mm256_permute2x128_si256(low, high, 0x31));
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

QMX_AVX2_INLINE void StoreTwelve(std::uint8_t* dst, __m128i bytes) {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(dst), bytes);
    const std::int32_t last = _mm_extract_epi32(bytes, 2);
    std::memcpy(dst + 8, &last, sizeof last);
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

// The bins of two cells' levels from `bounds` up, those of each channel behind those of the one
// before it.
QMX_AVX2_INLINE std::uint32_t PutBins(__m128i levels, std::uint32_t wanted, std::uint16_t* bins) {
    constexpr std::int16_t kBins = kHistogramBins;
    const __m128i tables = _mm_setr_epi16(0, kBins, 2 * kBins, 0, 0, kBins, 2 * kBins, 0);
    const __m128i all = _mm_or_si128(_mm_srli_epi16(levels, 3), tables);
    const auto* order = reinterpret_cast<const __m128i*>(kFrontOrders.bytes[wanted]);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(bins),
                     _mm_shuffle_epi8(all, _mm_loadu_si128(order)));
    return static_cast<std::uint32_t>(_mm_popcnt_u32(wanted));
}

// Eight cells at a time, most of which are darker when the bound has risen.
QMX_AVX2_INLINE std::uint32_t CollectBins(const std::uint16_t (*cells)[kColors],
                                          std::uint32_t count, std::uint32_t bound,
                                          std::uint16_t* bins) {
    constexpr std::uint32_t kThreeOfFour = 0x77777777;
    const Ints bounds = _mm256_set1_epi16(static_cast<std::int16_t>(bound));
    std::uint32_t found = 0;
    for (std::uint32_t i = 0; i < count; i += kLanes) {
        const Ints first = Load(cells[i]);       // cells 0 1, 2 3
        const Ints second = Load(cells[i + 4]);  // cells 4 5, 6 7
        const Ints wanted =
            _mm256_packs_epi16(_mm256_cmpeq_epi16(_mm256_max_epu16(first, bounds), first),
                               _mm256_cmpeq_epi16(_mm256_max_epu16(second, bounds), second));
        const std::uint32_t set =
            static_cast<std::uint32_t>(_mm256_movemask_epi8(wanted)) & kThreeOfFour;
        if (set == 0) continue;
        found += PutBins(_mm256_castsi256_si128(first), set & 0xFF, bins + found);
        found += PutBins(_mm256_castsi256_si128(second), set >> 8 & 0xFF, bins + found);
        found += PutBins(_mm256_extracti128_si256(first, 1), set >> 16 & 0xFF, bins + found);
        found += PutBins(_mm256_extracti128_si256(second, 1), set >> 24, bins + found);
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

QMX_AVX2 void FinishSumsAvx2(const CellBalance& balance, const SumRun& run) {
    balance.mixes ? Finish<true>(balance, run) : Finish<false>(balance, run);
}

QMX_AVX2 void FinishSamplesAvx2(const CellBalance& balance, const SampleRun& run) {
    balance.mixes ? Finish<true>(balance, run) : Finish<false>(balance, run);
}

QMX_AVX2 void CountCellsAvx2(const std::uint16_t (*cells)[kColors], std::uint32_t count,
                             std::uint32_t bound, std::uint32_t (*histogram)[kHistogramBins]) {
    std::uint16_t bins[3 * kCountRun + 8];
    std::uint32_t* counts = &histogram[0][0];
    const std::uint32_t whole = count / kLanes * kLanes;
    for (std::uint32_t done = 0; done < whole; done += kCountRun) {
        const std::uint32_t run = std::min(kCountRun, whole - done);
        const std::uint32_t found = CollectBins(cells + done, run, bound, bins);
        for (std::uint32_t i = 0; i < found; ++i) ++counts[bins[i]];
    }
    CountCells(cells + whole, count - whole, bound, histogram);
}

QMX_AVX2 void ToneCellsAvx2(const std::uint16_t (*cells)[kColors], std::uint32_t count,
                            const ToneTable& tone, std::uint8_t* pixels) {
    const __m128i shift = _mm_cvtsi32_si128(static_cast<int>(tone.shift));
    const Ints lowBits = _mm256_set1_epi16(static_cast<std::int16_t>((1 << tone.shift) - 1));
    const Ints lastEntry = _mm256_set1_epi16(ToneTable::kEntries - 1);
    const Ints reversed = _mm256_broadcastsi128_si256(
        _mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1));
    alignas(32) std::uint16_t entries[kCountRun][kColors];
    while (count >= kLanes) {
        const std::uint32_t run = std::min(kCountRun, count / kLanes * kLanes);
        for (std::uint32_t i = 0; i < run; i += 4)
            Store(entries[i], _mm256_min_epu16(_mm256_srl_epi16(Load(cells[i]), shift), lastEntry));
        for (std::uint32_t i = 0; i < run; ++i)
            for (std::uint32_t channel = 0; channel < 3; ++channel)
                entries[i][channel] = tone.entries[entries[i][channel]];
        for (std::uint32_t i = 0; i < run; i += kLanes) {
            const Ints first =
                _mm256_add_epi16(Load(entries[i]), _mm256_and_si256(Load(cells[i]), lowBits));
            const Ints second = _mm256_add_epi16(Load(entries[i + 4]),
                                                 _mm256_and_si256(Load(cells[i + 4]), lowBits));
            const Ints bytes =
                _mm256_permute4x64_epi64(_mm256_packus_epi16(_mm256_srl_epi16(first, shift),
                                                             _mm256_srl_epi16(second, shift)),
                                         0xD8);
            const Ints quads = _mm256_shuffle_epi8(bytes, reversed);
            StoreTwelve(pixels + 3 * std::size_t{i}, _mm256_castsi256_si128(quads));
            StoreTwelve(pixels + 3 * std::size_t{i} + 12, _mm256_extracti128_si256(quads, 1));
        }
        cells += run;
        pixels += 3 * std::size_t{run};
        count -= run;
    }
    ToneCells(cells, count, tone, pixels);
}

}  // namespace qmx
