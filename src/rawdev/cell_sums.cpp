#include "rawdev/cell_sums.h"

#include <emmintrin.h>

#include <cstring>

namespace qmx {
namespace {

// SSE2, which every x64 processor has.  A lane holds two neighbouring samples, the even one in the
// low half.
using Lanes = __m128i;

Lanes Load(const void* p) { return _mm_loadu_si128(static_cast<const Lanes*>(p)); }

Lanes Evens(Lanes samples) { return _mm_and_si128(samples, _mm_set1_epi32(0xFFFF)); }
Lanes Odds(Lanes samples) { return _mm_srli_epi32(samples, 16); }

void AddTo(std::uint32_t* sums, Lanes more) {
    _mm_storeu_si128(reinterpret_cast<Lanes*>(sums), _mm_add_epi32(Load(sums), more));
}

// The sum of each vector's lanes.
Lanes SumLanes(Lanes a, Lanes b, Lanes c, Lanes d) {
    const Lanes ab = _mm_add_epi32(_mm_unpacklo_epi32(a, b), _mm_unpackhi_epi32(a, b));
    const Lanes cd = _mm_add_epi32(_mm_unpacklo_epi32(c, d), _mm_unpackhi_epi32(c, d));
    return _mm_add_epi32(_mm_unpacklo_epi64(ab, cd), _mm_unpackhi_epi64(ab, cd));
}

// Both work on four cells at a time, up to three beyond `cells`.  `even` and `odd` may be the same.

void AddPairs(const std::uint16_t* row, std::uint32_t cells, std::uint32_t* even,
              std::uint32_t* odd) {
    for (std::size_t x = 0; x < cells; x += 4) {
        const Lanes samples = Load(row + 2 * x);
        AddTo(even + x, Evens(samples));
        AddTo(odd + x, Odds(samples));
    }
}

void AddOctets(const std::uint16_t* row, std::uint32_t cells, std::uint32_t* even,
               std::uint32_t* odd) {
    for (std::size_t x = 0; x < cells; x += 4) {
        const std::uint16_t* cell = row + 8 * x;
        const Lanes a = Load(cell), b = Load(cell + 8), c = Load(cell + 16), d = Load(cell + 24);
        AddTo(even + x, SumLanes(Evens(a), Evens(b), Evens(c), Evens(d)));
        AddTo(odd + x, SumLanes(Odds(a), Odds(b), Odds(c), Odds(d)));
    }
}

// What a run of four wrote beyond the whole cells.
void ClearBeyond(std::uint32_t* sum, std::uint32_t cells) {
    std::memset(sum + cells, 0, kSumSlack * sizeof *sum);
}

}  // namespace

void SumBlock(const std::uint16_t* const* rows, const std::uint32_t* rowColors,
              std::uint32_t rowCount, std::uint32_t side, std::uint32_t width,
              std::uint32_t* const (&sums)[kColors]) {
    const std::uint32_t wholeCells = width / side;
    const std::uint32_t cells = (width + side - 1) / side;
    for (std::uint32_t* sum : sums) std::memset(sum, 0, cells * sizeof *sum);
    for (std::uint32_t i = 0; i < rowCount; ++i) {
        std::uint32_t* even = sums[rowColors[i] & 3];
        std::uint32_t* odd = sums[rowColors[i] >> 2 & 3];
        if (side == 2) {
            AddPairs(rows[i], wholeCells, even, odd);
        } else {
            AddOctets(rows[i], wholeCells, even, odd);
        }
    }
    for (std::uint32_t* sum : sums) ClearBeyond(sum, wholeCells);
    for (std::uint32_t i = 0; i < rowCount; ++i)
        for (std::uint32_t x = wholeCells * side; x < width; ++x)
            sums[rowColors[i] >> (x % 2 == 0 ? 0 : 2) & 3][wholeCells] += rows[i][x];
}

}  // namespace qmx
