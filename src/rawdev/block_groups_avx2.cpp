// Sixteen groups of Panasonic's block code at a time, one per lane of 16 bits.

#include <algorithm>
#include <cstddef>

#include "rawdev/avx2.h"
#include "rawdev/block_groups.h"
#include "rawdev/portable_kernels.h"

namespace qmx {
namespace {

constexpr std::uint32_t kLanes = 16;

using Words = __m256i;

QMX_AVX2_INLINE Words All(int value) { return _mm256_set1_epi16(static_cast<std::int16_t>(value)); }

// Of each half: 8 words of 8 rows become 8 rows of 8 words.
QMX_AVX2_INLINE void Transpose(Words (&w)[8]) {
    Words pairs[8], quads[8];
    for (std::size_t i = 0; i < 4; ++i) {
        pairs[2 * i] = _mm256_unpacklo_epi16(w[2 * i], w[2 * i + 1]);
        pairs[2 * i + 1] = _mm256_unpackhi_epi16(w[2 * i], w[2 * i + 1]);
    }
    for (std::size_t i = 0; i < 2; ++i) {
        for (std::size_t k = 0; k < 2; ++k) {
            const std::size_t to = 4 * i + 2 * k;
            quads[to] = _mm256_unpacklo_epi32(pairs[4 * i + k], pairs[4 * i + k + 2]);
            quads[to + 1] = _mm256_unpackhi_epi32(pairs[4 * i + k], pairs[4 * i + k + 2]);
        }
    }
    for (std::size_t i = 0; i < 4; ++i) {
        w[2 * i] = _mm256_unpacklo_epi64(quads[i], quads[i + 4]);
        w[2 * i + 1] = _mm256_unpackhi_epi64(quads[i], quads[i + 4]);
    }
}

// Word k of the groups, groups 0 to 7 in the low half.
QMX_AVX2_INLINE void LoadGroups(const std::uint8_t* src, Words (&w)[8]) {
    for (std::size_t i = 0; i < 8; ++i) {
        const auto* low = reinterpret_cast<const __m128i*>(src + kGroupBytes * i);
        const auto* high = reinterpret_cast<const __m128i*>(src + kGroupBytes * (i + 8));
        w[i] = _mm256_inserti128_si256(_mm256_castsi128_si256(_mm_loadu_si128(low)),
                                       _mm_loadu_si128(high), 1);
    }
    Transpose(w);
}

// Columns 0 to 7 and 8 to 13 of the groups, to their places in the row.
QMX_AVX2_INLINE void StoreGroup(__m128i left, __m128i right, std::uint16_t* dst) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), left);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(dst + 8), right);
    _mm_storeu_si32(dst + 12, _mm_srli_si128(right, 8));
}
QMX_AVX2_INLINE void StoreGroups(const Words (&samples)[kGroupSamples], std::uint16_t* dst) {
    Words left[8], right[8];
    for (std::size_t i = 0; i < 8; ++i) {
        left[i] = samples[i];
        right[i] = i < 6 ? samples[8 + i] : _mm256_setzero_si256();
    }
    Transpose(left);
    Transpose(right);
    for (std::size_t i = 0; i < 8; ++i) {
        StoreGroup(_mm256_castsi256_si128(left[i]), _mm256_castsi256_si128(right[i]),
                   dst + kGroupSamples * i);
        StoreGroup(_mm256_extracti128_si256(left[i], 1), _mm256_extracti128_si256(right[i], 1),
                   dst + kGroupSamples * (i + 8));
    }
}

// The field whose lowest bit is `Bit` of the 128.
template <int Bit, int Count>
QMX_AVX2_INLINE Words Field(const Words (&w)[8]) {
    constexpr int kWord = Bit / 16;
    constexpr int kBelow = Bit % 16;
    Words field = _mm256_srli_epi16(w[kWord], kBelow);
    if constexpr (kBelow + Count > 16)
        field = _mm256_or_si256(field, _mm256_slli_epi16(w[kWord + 1], 16 - kBelow));
    return _mm256_and_si256(field, All((1 << Count) - 1));
}

// The shift of three samples as the number to multiply by.
struct Shift {
    Words factor;
    Words largest;  // all ones where the shift is 4
};
QMX_AVX2_INLINE Shift ReadShift(Words code) {
    // The high byte of each lane reads 0.
    const Words factors =
        _mm256_broadcastsi128_si256(_mm_setr_epi8(1, 2, 4, 16, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
    const Words factor = _mm256_shuffle_epi8(factors, _mm256_or_si256(code, All(0x8000)));
    return {factor, _mm256_cmpeq_epi16(code, All(3))};
}

QMX_AVX2_INLINE void Step(Words& predictor, Words delta, const Shift& shift) {
    Words base = _mm256_sub_epi16(predictor, _mm256_slli_epi16(shift.factor, 7));
    // Of a negative base and of the largest shift only the low bits stay.
    const Words cut = _mm256_or_si256(_mm256_srai_epi16(base, 15), shift.largest);
    const Words lowBits = _mm256_sub_epi16(shift.factor, All(1));
    base = _mm256_andnot_si256(_mm256_andnot_si256(lowBits, cut), base);
    const Words next = _mm256_add_epi16(base, _mm256_mullo_epi16(delta, shift.factor));
    const Words unchanged = _mm256_cmpeq_epi16(delta, _mm256_setzero_si256());
    predictor = _mm256_blendv_epi8(next, predictor, unchanged);
}

QMX_AVX2_INLINE Words ToSample(Words predictor) {
    return _mm256_slli_epi16(_mm256_min_epi16(predictor, All(0xFFF)), kLevelShift);
}

// Three samples from column `Column` on, their shift's lowest bit at `Bit`.
template <int Column, int Bit>
QMX_AVX2_INLINE void DecodeTriplet(const Words (&w)[8], Words& first, Words& second,
                                   Words (&samples)[kGroupSamples]) {
    const Shift shift = ReadShift(Field<Bit, 2>(w));
    Step(first, Field<Bit - 8, 8>(w), shift);
    samples[Column] = ToSample(first);
    Step(second, Field<Bit - 16, 8>(w), shift);
    samples[Column + 1] = ToSample(second);
    Step(first, Field<Bit - 24, 8>(w), shift);
    samples[Column + 2] = ToSample(first);
}

// The fields stand where both predictors start at once.  A bit for each group where they do not:
// two bits per lane, the groups 0 to 7 in the low half.
QMX_AVX2_INLINE std::uint32_t DecodeLanes(const std::uint8_t* src, std::uint16_t* dst) {
    Words w[8];
    LoadGroups(src, w);
    Words even = Field<116, 12>(w);
    Words odd = Field<104, 12>(w);
    const Words atRest =
        _mm256_or_si256(_mm256_cmpgt_epi16(All(16), even), _mm256_cmpgt_epi16(All(16), odd));
    Words samples[kGroupSamples];
    samples[0] = ToSample(even);
    samples[1] = ToSample(odd);
    DecodeTriplet<2, 102>(w, even, odd, samples);
    DecodeTriplet<5, 76>(w, odd, even, samples);
    DecodeTriplet<8, 50>(w, even, odd, samples);
    DecodeTriplet<11, 24>(w, odd, even, samples);
    StoreGroups(samples, dst);
    return static_cast<std::uint32_t>(_mm256_movemask_epi8(atRest));
}

}  // namespace

QMX_AVX2 void UnpackGroupsAvx2(const std::uint8_t* src, std::uint32_t groups, std::uint16_t* dst) {
    if (groups < kLanes) return UnpackGroups(src, groups, dst);
    for (std::size_t done = 0; done < groups; done += kLanes) {
        // The last run begins in the one before it.
        const std::size_t first = std::min<std::size_t>(done, groups - kLanes);
        const std::uint8_t* run = src + kGroupBytes * first;
        std::uint16_t* samples = dst + kGroupSamples * first;
        const std::uint32_t others = DecodeLanes(run, samples);
        for (std::size_t i = 0; others != 0 && i < kLanes; ++i)
            if ((others >> (2 * i) & 1) != 0)
                DecodeGroup(run + kGroupBytes * i, samples + kGroupSamples * i);
    }
}

}  // namespace qmx
