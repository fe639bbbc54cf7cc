#pragma once
// The text block with the white balance that the backs of some medium-format cameras write (tags
// 50454 and 50455): lines of words, among them "Neutral 1.5 1 1.25".

#include <cstdint>
#include <string_view>

#include "rawdev/raw_decode_state.h"

namespace qmx {

inline constexpr std::uint64_t kMaxBalanceText = 65536;  // bytes that are looked at

// Sets the camera's multipliers.  Only a block of the kind "MATRIX" leaves the raw colours alone.
void ReadBalanceText(std::string_view text, RawDecodeState& state);

}  // namespace qmx
