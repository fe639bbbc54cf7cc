#pragma once
// White balance in the text blocks that the backs of some medium-format cameras write.

#include <cstdint>
#include <string_view>

#include "rawdev/raw_decode_state.h"

namespace qmx {

inline constexpr std::uint64_t kMaxBalanceText = 1 << 20;  // bytes that are looked at

// Tags 50454 and 50455: lines of words, among them "Neutral 1.5 1 1.25".
// Sets the camera's multipliers.  Only a block of the kind "MATRIX" leaves the raw colours alone.
void ReadBalanceText(std::string_view text, RawDecodeState& state);

// Leaf's tag 34310: records of a name and a text.  The neutral is four whole numbers, the first of
// them what the others are relative to.
void ReadLeafBlock(std::string_view block, RawDecodeState& state);

}  // namespace qmx
