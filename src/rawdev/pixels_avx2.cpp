// What becomes of cells, for processors with AVX2: their count and their pixels.

#include <algorithm>
#include <cstring>

#include "rawdev/avx2.h"
#include "rawdev/portable_kernels.h"

namespace qmx {
namespace {

constexpr std::uint32_t kStep = 8;   // cells
constexpr std::uint32_t kRun = 256;  // cells whose bins or entries are noted at a time

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

// The bins of two cells' wanted levels, those of each channel behind those of the one before it.
QMX_AVX2_INLINE std::uint32_t PutBins(__m128i levels, std::uint32_t wanted, std::uint16_t* bins) {
    constexpr std::int16_t kBins = kHistogramBins;
    const __m128i tables = _mm_setr_epi16(0, kBins, 2 * kBins, 0, 0, kBins, 2 * kBins, 0);
    const __m128i all = _mm_or_si128(_mm_srli_epi16(levels, 3), tables);
    const auto* order = reinterpret_cast<const __m128i*>(kFrontOrders.bytes[wanted]);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(bins),
                     _mm_shuffle_epi8(all, _mm_loadu_si128(order)));
    return static_cast<std::uint32_t>(_mm_popcnt_u32(wanted));
}

// The bins of the levels from `bound` up.  Eight cells at a time, most of which are darker when the
// bound has risen.
QMX_AVX2_INLINE std::uint32_t CollectBins(const std::uint16_t (*cells)[kColors],
                                          std::uint32_t count, std::uint32_t bound,
                                          std::uint16_t* bins) {
    constexpr std::uint32_t kThreeOfFour = 0x77777777;
    const Ints bounds = _mm256_set1_epi16(static_cast<std::int16_t>(bound));
    std::uint32_t found = 0;
    for (std::uint32_t i = 0; i < count; i += kStep) {
        const Ints first = LoadInts(cells[i]);       // cells 0 1, 2 3
        const Ints second = LoadInts(cells[i + 4]);  // cells 4 5, 6 7
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

QMX_AVX2_INLINE void StoreTwelve(std::uint8_t* dst, __m128i bytes) {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(dst), bytes);
    const std::int32_t last = _mm_extract_epi32(bytes, 2);
    std::memcpy(dst + 8, &last, sizeof last);
}

}  // namespace

QMX_AVX2 void CountCellsAvx2(const std::uint16_t (*cells)[kColors], std::uint32_t count,
                             std::uint32_t bound, std::uint32_t (*histogram)[kHistogramBins]) {
    std::uint16_t bins[3 * kRun + 8];
    std::uint32_t* counts = &histogram[0][0];
    const std::uint32_t whole = count / kStep * kStep;
    for (std::uint32_t done = 0; done < whole; done += kRun) {
        const std::uint32_t run = std::min(kRun, whole - done);
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
    std::uint16_t entries[kRun][kColors];
    while (count >= kStep) {
        const std::uint32_t run = std::min(kRun, count / kStep * kStep);
        for (std::uint32_t i = 0; i < run; i += 4)
            StoreInts(entries[i],
                      _mm256_min_epu16(_mm256_srl_epi16(LoadInts(cells[i]), shift), lastEntry));
        for (std::uint32_t i = 0; i < run; ++i)
            for (std::uint32_t channel = 0; channel < 3; ++channel)
                entries[i][channel] = tone.entries[entries[i][channel]];
        for (std::uint32_t i = 0; i < run; i += kStep) {
            const Ints first = _mm256_add_epi16(LoadInts(entries[i]),
                                                _mm256_and_si256(LoadInts(cells[i]), lowBits));
            const Ints second = _mm256_add_epi16(LoadInts(entries[i + 4]),
                                                 _mm256_and_si256(LoadInts(cells[i + 4]), lowBits));
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
