#include <cstddef>
#include <cstring>

#include "rawdev/avx2.h"
#include "rawdev/portable_kernels.h"

namespace qmx {
namespace {

constexpr std::uint32_t kLoadBytes = 16;

__m128i Load(const std::uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }

// Two loads side by side.
QMX_AVX2_INLINE __m256i LoadBoth(const std::uint8_t* low, const std::uint8_t* high) {
    return _mm256_inserti128_si256(_mm256_castsi128_si256(Load(low)), Load(high), 1);
}

// Of each 12 bytes the two that hold each of 8 samples, high byte first as they are stored; the
// odd samples stand 4 bits lower.
QMX_AVX2_INLINE __m128i PairsOf12() {
    return _mm_setr_epi8(1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10);
}
QMX_AVX2_INLINE __m128i LiftOdd() { return _mm_set1_epi32(16 << 16 | 1); }

QMX_AVX2_INLINE __m128i EightOf12(__m128i bytes) {
    const __m128i pairs = _mm_shuffle_epi8(bytes, PairsOf12());
    return _mm_srli_epi16(_mm_mullo_epi16(pairs, LiftOdd()), 4);
}

constexpr std::uint32_t kStep = 8;  // samples, in as many bytes as each has bits
constexpr std::uint32_t kLeastBits = 9;
constexpr std::uint32_t kMostBits = 16;

// Where eight samples stand in two loads, the second of which begins bits / 2 bytes behind the
// first: to each lane the 4 bytes that its sample begins in, and the bits before it.
struct BitPlaces {
    std::uint8_t bytes[4 * kStep];
    std::uint32_t before[kStep];
};
struct AllBitPlaces {
    BitPlaces of[kMostBits + 1];
};
constexpr AllBitPlaces FindBitPlaces() {
    AllBitPlaces places = {};
    for (std::uint32_t bits = kLeastBits; bits <= kMostBits; ++bits) {
        for (std::uint32_t i = 0; i < kStep; ++i) {
            const std::uint32_t first = i * bits - (i < kStep / 2 ? 0 : bits / 2 * 8);
            places.of[bits].before[i] = first % 8;
            for (std::uint32_t k = 0; k < 4; ++k)
                places.of[bits].bytes[4 * i + k] = static_cast<std::uint8_t>(first / 8 + 3 - k);
        }
    }
    return places;
}
constexpr AllBitPlaces kBitPlaces = FindBitPlaces();

// Steps of samples while the loads stay within `bytes`; how many samples that were.
QMX_AVX2_INLINE std::uint32_t UnpackSteps(const std::uint8_t* src, std::size_t bytes,
                                          std::uint32_t count, std::uint32_t bits,
                                          std::uint16_t* dst) {
    const BitPlaces& places = kBitPlaces.of[bits];
    const __m256i order = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(places.bytes));
    const __m256i before = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(places.before));
    const __m128i behind = _mm_cvtsi32_si128(static_cast<int>(32 - bits));
    const std::size_t half = bits / 2;
    std::uint32_t done = 0;
    for (; done + kStep <= count && bytes >= half + kLoadBytes; done += kStep, bytes -= bits) {
        const __m256i lanes = _mm256_shuffle_epi8(LoadBoth(src, src + half), order);
        const __m256i samples = _mm256_srl_epi32(_mm256_sllv_epi32(lanes, before), behind);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + done),
                         _mm_packus_epi32(_mm256_castsi256_si128(samples),
                                          _mm256_extracti128_si256(samples, 1)));
        src += bits;
    }
    return done;
}

}  // namespace

QMX_AVX2 void Unpack12Avx2(const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst) {
    constexpr std::uint32_t kSamples = 16;  // of two loads
    constexpr std::uint32_t kHalfBytes = 12;
    constexpr std::uint32_t kBytes = 24;
    const __m256i pairsOf12 = _mm256_broadcastsi128_si256(PairsOf12());
    const __m256i liftOdd = _mm256_broadcastsi128_si256(LiftOdd());
    // The second load takes in 4 bytes of the next step.
    for (; count >= kSamples + 3; count -= kSamples, src += kBytes, dst += kSamples) {
        const __m256i pairs = _mm256_shuffle_epi8(LoadBoth(src, src + kHalfBytes), pairsOf12);
        const __m256i samples = _mm256_srli_epi16(_mm256_mullo_epi16(pairs, liftOdd), 4);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst), samples);
    }
    Unpack12(src, count, dst);
}

QMX_AVX2 void Unpack12PaddedAvx2(const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst) {
    constexpr std::uint32_t kGroupSamples = 10;
    constexpr std::uint32_t kGroupBytes = 16;
    for (; count > kGroupSamples; count -= kGroupSamples) {
        const __m128i bytes = Load(src);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), EightOf12(bytes));
        _mm_storeu_si32(dst + 8, EightOf12(_mm_srli_si128(bytes, 12)));
        src += kGroupBytes;
        dst += kGroupSamples;
    }
    Unpack12Padded(src, count, dst);
}

QMX_AVX2 void UnpackBitsAvx2(const std::uint8_t* src, std::uint32_t count, std::uint32_t bits,
                             std::uint16_t* dst) {
    if (bits < kLeastBits) return UnpackBits(src, count, bits, dst);
    const std::size_t bytes = (std::size_t{count} * bits + 7) / 8;
    const std::uint32_t done = UnpackSteps(src, bytes, count, bits, dst);
    // The last ones from a place with room behind them.
    const std::size_t start = std::size_t{done} * bits / 8;
    std::uint8_t rest[64] = {};
    std::uint16_t samples[24];
    std::memcpy(rest, src + start, bytes - start);
    UnpackSteps(rest, sizeof rest, sizeof samples / sizeof *samples, bits, samples);
    std::memcpy(dst + done, samples, (count - done) * sizeof *samples);
}

}  // namespace qmx
