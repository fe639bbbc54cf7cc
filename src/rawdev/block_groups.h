#pragma once
// Panasonic's block code: 14 samples of 12 bits in groups of 16 bytes (publicly described in 2011
// by users of these cameras).  A group is one little-endian number of 128 bits that is read from
// its top; two predictors serve the even and the odd columns.

#include <cstdint>

namespace qmx {

inline constexpr std::uint32_t kGroupBytes = 16;
inline constexpr std::uint32_t kGroupSamples = 14;

// The samples stand on the scale of 16-bit words, as this maker's plain files have them.
inline constexpr int kLevelShift = 4;

// Decodes one group, whatever it holds.
void DecodeGroup(const std::uint8_t* group, std::uint16_t* dst);

}  // namespace qmx
