#include "rawdev/kernels.h"

#include "rawdev/avx2.h"
#include "rawdev/portable_kernels.h"

#ifdef _MSC_VER
#include <intrin.h>
#define QMX_XSAVE
#else
#include <cpuid.h>
#define QMX_XSAVE __attribute__((target("xsave")))
#endif

namespace qmx {
namespace {

// What CPUID says: eax, ebx, ecx, edx.
using Registers = std::uint32_t[4];

void ReadCpuid(std::uint32_t leaf, Registers& registers) {
#ifdef _MSC_VER
    __cpuidex(reinterpret_cast<int*>(registers), static_cast<int>(leaf), 0);
#else
    __cpuid_count(leaf, 0, registers[0], registers[1], registers[2], registers[3]);
#endif
}

// The registers that the system saves when it switches between threads.
QMX_XSAVE std::uint64_t ReadSavedRegisters() { return static_cast<std::uint64_t>(_xgetbv(0)); }

}  // namespace

bool HasAvx2() {
    constexpr std::uint32_t kSystemSaves = 1u << 27 | 1u << 28;  // ecx of leaf 1: OSXSAVE, AVX
    constexpr std::uint32_t kAvx2 = 1u << 5;                     // ebx of leaf 7
    constexpr std::uint64_t kVectors = 6;                        // XMM and YMM
    Registers registers;
    ReadCpuid(0, registers);
    if (registers[0] < 7) return false;
    ReadCpuid(1, registers);
    if ((registers[2] & kSystemSaves) != kSystemSaves) return false;
    if ((ReadSavedRegisters() & kVectors) != kVectors) return false;
    ReadCpuid(7, registers);
    return (registers[1] & kAvx2) != 0;
}

const Kernels kPortableKernels = {Unpack12,   Unpack12Padded, UnpackBits, UnpackGroups,
                                  AddPairs,   AddOctets,      FinishSums, FinishSamples,
                                  CountCells, ToneCells};
const Kernels kAvx2Kernels = {Unpack12Avx2,   Unpack12PaddedAvx2, UnpackBitsAvx2, UnpackGroupsAvx2,
                              AddPairsAvx2,   AddOctetsAvx2,      FinishSumsAvx2, FinishSamplesAvx2,
                              CountCellsAvx2, ToneCellsAvx2};

const Kernels& ChooseKernels() {
    static const bool hasAvx2 = HasAvx2();
    return hasAvx2 ? kAvx2Kernels : kPortableKernels;
}

}  // namespace qmx
