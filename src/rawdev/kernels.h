#pragma once
// The innermost loops of development, once for every x64 processor and once for those with AVX2.
// Both give equal results.

#include <cstdint>

namespace qmx {

inline constexpr std::uint32_t kColors = 4;
inline constexpr std::uint32_t kHistogramBins = 0x2000;  // a bin holds 8 levels of 16 bits

// What turns samples, or sums of them, into cells: x `factor` - `black`, the greens' mean, the
// matrix.
struct CellBalance {
    float factor[kColors];
    float black[kColors];
    bool mixes;          // else the matrix is the identity
    float matrix[3][3];  // numbers below 0x2000, so that nothing leaves the range of 32 bits
};

inline constexpr std::uint32_t kSumSlack = 8;   // sums that must be readable behind the last
inline constexpr std::uint32_t kRowSlack = 64;  // samples that must be readable behind a row

// A run of cells to be finished.  Both greens may name the same source.
template <class Number>
struct CellRun {
    const Number* source[kColors];
    std::uint32_t count;
    std::uint16_t (*cells)[kColors];
};
using SumRun = CellRun<std::uint32_t>;     // a sum for each cell
using SampleRun = CellRun<std::uint16_t>;  // every other sample of a row

// The byte of every level: (entries[level >> shift, at most the last] + the bits shifted out), all
// shifted by `shift`.  It is small enough for the first cache.
struct ToneTable {
    static constexpr std::uint32_t kEntries = 0x2000;

    std::uint32_t shift;
    std::uint16_t entries[kEntries];

    std::uint8_t ByteOf(std::uint32_t level) const {
        const std::uint32_t entry = level >> shift;
        const std::uint32_t shiftedOut = level & ((1u << shift) - 1);
        return static_cast<std::uint8_t>(
            (entries[entry < kEntries ? entry : kEntries - 1] + shiftedOut) >> shift);
    }
};

struct Kernels {
    // Samples out of their packings; nothing beyond the bytes that hold `count` samples is read.
    // Two samples in 3 bytes, high bits first: 12 34 56 reads 0x123 0x456.
    void (*unpack12)(const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst);
    // Five such triplets and a byte that says nothing.
    void (*unpack12Padded)(const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst);
    // Any depth of 1 to 16 bits, high bits first.
    void (*unpackBits)(const std::uint8_t* src, std::uint32_t count, std::uint32_t bits,
                       std::uint16_t* dst);
    // Panasonic's groups, 14 samples in 16 bytes each.
    void (*unpackGroups)(const std::uint8_t* src, std::uint32_t groups, std::uint16_t* dst);

    // The sums of the even and of the odd samples of each cell 2 or 8 samples wide, over `rowCount`
    // rows, added to what is there.  Up to kSumSlack - 1 cells beyond `cells` are worked on as
    // well.
    void (*addPairs)(const std::uint16_t* row, std::uint32_t cells, std::uint32_t* even,
                     std::uint32_t* odd);
    void (*addOctets)(const std::uint16_t* const* rows, std::uint32_t rowCount, std::uint32_t cells,
                      std::uint32_t* even, std::uint32_t* odd);

    void (*finishSums)(const CellBalance& balance, const SumRun& run);
    void (*finishSamples)(const CellBalance& balance, const SampleRun& run);

    // Counts the first three levels of each cell; those below `bound` need not be counted.
    void (*countCells)(const std::uint16_t (*cells)[kColors], std::uint32_t count,
                       std::uint32_t bound, std::uint32_t (*histogram)[kHistogramBins]);

    // The first three levels of each cell as bytes, in reverse order.
    void (*toneCells)(const std::uint16_t (*cells)[kColors], std::uint32_t count,
                      const ToneTable& tone, std::uint8_t* pixels);
};

extern const Kernels kPortableKernels;
extern const Kernels kAvx2Kernels;  // only where HasAvx2() holds

// Whether processor and system keep the registers of AVX2.
bool HasAvx2();

// What suits this processor.
const Kernels& ChooseKernels();

}  // namespace qmx
