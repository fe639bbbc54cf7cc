#pragma once
// Samples out of their packings, one row at a time.

#include <cstdint>

namespace qmx {

// Two samples in 3 bytes, high bits first: 12 34 56 reads 0x123 0x456.
void Unpack12(const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst);

// Five such triplets and a byte that says nothing.
void Unpack12Padded(const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst);

// One word per sample.
void UnpackWords(const std::uint8_t* src, std::uint32_t count, bool bigEndian, std::uint16_t* dst);

// Any depth of 1 to 16 bits, high bits first.
void UnpackBits(const std::uint8_t* src, std::uint32_t count, std::uint32_t bits,
                std::uint16_t* dst);

}  // namespace qmx
