#pragma once
// What becomes of highlights in which some channels are saturated, for the modes that do not clip
// them.

#include "rawdev/raw_decode_state.h"

namespace qmx {

// Whether the mode asks for `MendHighlights`, which works on balanced cells in the camera's
// colours.
constexpr bool MendsHighlights(const RawDecodeState& state) { return state.highlightMode > 1; }

// Mode 2 lets saturated cells fade to white, the modes above it rebuild their saturated channels
// from the colours around.  False when memory is short.
bool MendHighlights(RawDecodeState& state);

}  // namespace qmx
