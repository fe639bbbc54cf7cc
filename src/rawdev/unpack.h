#pragma once
// Samples in whole bytes, one row at a time; for the others see the kernels.

#include <cstdint>

namespace qmx {

// One byte per sample.
void UnpackBytes(const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst);

// One word per sample.
void UnpackWords(const std::uint8_t* src, std::uint32_t count, bool bigEndian, std::uint16_t* dst);

}  // namespace qmx
