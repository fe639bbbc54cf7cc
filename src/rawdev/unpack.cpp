#include "rawdev/unpack.h"

#include <emmintrin.h>

#include <cstddef>
#include <cstring>

#include "rawdev/portable_kernels.h"

namespace qmx {

namespace {

constexpr std::uint32_t kQuadBytes = 6;  // of four samples

std::uint64_t LoadBigEndian(const std::uint8_t* p) {
    return std::uint64_t{p[0]} << 56 | std::uint64_t{p[1]} << 48 | std::uint64_t{p[2]} << 40 |
           std::uint64_t{p[3]} << 32 | std::uint64_t{p[4]} << 24 | std::uint64_t{p[5]} << 16 |
           std::uint64_t{p[6]} << 8 | p[7];
}

// Four samples from the top 48 bits, in one store; x64 is little-endian.
void StoreQuad(std::uint64_t bits, std::uint16_t* dst) {
    const std::uint64_t quad = bits >> 52 | (bits >> 40 & 0xFFF) << 16 |
                               (bits >> 28 & 0xFFF) << 32 | (bits >> 16 & 0xFFF) << 48;
    std::memcpy(dst, &quad, sizeof quad);
}

// SSE2, which every x64 processor has.
__m128i Load(const void* p) { return _mm_loadu_si128(static_cast<const __m128i*>(p)); }
void Store(void* p, __m128i value) { _mm_storeu_si128(static_cast<__m128i*>(p), value); }

}  // namespace

void Unpack12(const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst) {
    // A quad's load takes in two bytes of the next one.
    for (; count >= 6; count -= 4, src += kQuadBytes, dst += 4) StoreQuad(LoadBigEndian(src), dst);
    for (; count >= 2; count -= 2, src += 3) {
        *dst++ = static_cast<std::uint16_t>(src[0] << 4 | src[1] >> 4);
        *dst++ = static_cast<std::uint16_t>((src[1] & 15) << 8 | src[2]);
    }
    if (count != 0) *dst = static_cast<std::uint16_t>(src[0] << 4 | src[1] >> 4);
}

void Unpack12Padded(const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst) {
    constexpr std::uint32_t kGroupSamples = 10;
    constexpr std::uint32_t kGroupBytes = 16;
    for (; count >= kGroupSamples; count -= kGroupSamples) {
        Unpack12(src, kGroupSamples, dst);
        src += kGroupBytes;
        dst += kGroupSamples;
    }
    Unpack12(src, count, dst);
}

void UnpackBits(const std::uint8_t* src, std::uint32_t count, std::uint32_t bits,
                std::uint16_t* dst) {
    std::uint32_t buffer = 0;
    std::uint32_t held = 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        for (; held < bits; held += 8) buffer = buffer << 8 | *src++;
        held -= bits;
        dst[i] = static_cast<std::uint16_t>(buffer >> held & ((1u << bits) - 1));
    }
}

void UnpackBytes(const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst) {
    std::size_t i = 0;
    for (; i + 16 <= count; i += 16) {
        const __m128i bytes = Load(src + i);
        Store(dst + i, _mm_unpacklo_epi8(bytes, _mm_setzero_si128()));
        Store(dst + i + 8, _mm_unpackhi_epi8(bytes, _mm_setzero_si128()));
    }
    for (; i < count; ++i) dst[i] = src[i];
}

void UnpackWords(const std::uint8_t* src, std::uint32_t count, bool bigEndian, std::uint16_t* dst) {
    if (!bigEndian) {
        std::memcpy(dst, src, count * sizeof *dst);  // x64 is little-endian
        return;
    }
    std::size_t i = 0;
    for (; i + 8 <= count; i += 8) {
        const __m128i words = Load(src + 2 * i);
        Store(dst + i, _mm_or_si128(_mm_slli_epi16(words, 8), _mm_srli_epi16(words, 8)));
    }
    for (; i < count; ++i) dst[i] = static_cast<std::uint16_t>(src[2 * i] << 8 | src[2 * i + 1]);
}

}  // namespace qmx
