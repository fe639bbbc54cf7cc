#pragma once
// For the files that hold the AVX2 kernels.  Their functions alone are compiled for it, not the
// file, or the linker might take an inline function of theirs for the whole library.

#include <immintrin.h>

#include <cstdint>

#include "rawdev/kernels.h"

#if defined(__GNUC__)
#define QMX_AVX2 __attribute__((target("avx2,popcnt")))
#define QMX_AVX2_INLINE __attribute__((target("avx2,popcnt"), always_inline)) inline
#else  // the compiler takes the intrinsics as they come
#define QMX_AVX2
#define QMX_AVX2_INLINE __forceinline
#endif

namespace qmx {

using Ints = __m256i;

QMX_AVX2_INLINE Ints LoadInts(const void* p) {
    return _mm256_loadu_si256(static_cast<const Ints*>(p));
}
QMX_AVX2_INLINE void StoreInts(void* p, Ints value) {
    _mm256_storeu_si256(static_cast<Ints*>(p), value);
}

void Unpack12Avx2(const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst);
void Unpack12PaddedAvx2(const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst);
void UnpackBitsAvx2(const std::uint8_t* src, std::uint32_t count, std::uint32_t bits,
                    std::uint16_t* dst);
void UnpackGroupsAvx2(const std::uint8_t* src, std::uint32_t groups, std::uint16_t* dst);
void AddPairsAvx2(const std::uint16_t* row, std::uint32_t cells, std::uint32_t* even,
                  std::uint32_t* odd);
void AddOctetsAvx2(const std::uint16_t* const* rows, std::uint32_t rowCount, std::uint32_t cells,
                   std::uint32_t* even, std::uint32_t* odd);
void FinishSumsAvx2(const CellBalance& balance, const SumRun& run);
void FinishSamplesAvx2(const CellBalance& balance, const SampleRun& run);
void CountCellsAvx2(const std::uint16_t (*cells)[kColors], std::uint32_t count, std::uint32_t bound,
                    std::uint32_t (*histogram)[kHistogramBins]);
void ToneCellsAvx2(const std::uint16_t (*cells)[kColors], std::uint32_t count,
                   const ToneTable& tone, std::uint8_t* pixels);

}  // namespace qmx
