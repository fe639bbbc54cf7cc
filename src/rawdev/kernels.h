#pragma once
// The innermost loops of development, once for every x64 processor and once for those with AVX2.
// Both give equal results.

#include <cstdint>

namespace qmx {

inline constexpr std::uint32_t kColors = 4;
inline constexpr std::uint32_t kHistogramBins = 0x2000;  // a bin holds 8 levels of 16 bits

// Sums of samples that become finished cells: `sums` x `factor` - `black`, the greens' mean, the
// matrix.  Both greens may name the same sums.
struct CellRun {
    static constexpr std::uint32_t kSlack = 8;  // sums that must be readable behind the last

    const std::uint32_t* sums[kColors];
    float factor[kColors];
    float black[kColors];
    float matrix[3][3];
    std::uint32_t count;
    std::uint16_t (*cells)[kColors];
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
    // rows, added to what is there.  Up to kSlack - 1 cells beyond `cells` are worked on as well.
    void (*addPairs)(const std::uint16_t* row, std::uint32_t cells, std::uint32_t* even,
                     std::uint32_t* odd);
    void (*addOctets)(const std::uint16_t* const* rows, std::uint32_t rowCount, std::uint32_t cells,
                      std::uint32_t* even, std::uint32_t* odd);

    void (*finishCells)(const CellRun& run);

    // Counts the first three levels of each cell; those below `bound` need not be counted.
    void (*countCells)(const std::uint16_t (*cells)[kColors], std::uint32_t count,
                       std::uint32_t bound, std::uint32_t (*histogram)[kHistogramBins]);
};

extern const Kernels kPortableKernels;
extern const Kernels kAvx2Kernels;  // only where HasAvx2() holds

// Whether processor and system keep the registers of AVX2.
bool HasAvx2();

// What suits this processor.
const Kernels& ChooseKernels();

}  // namespace qmx
