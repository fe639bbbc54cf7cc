#pragma once
// The finished picture as a 24-bit BMP in the caller's stream.

#include "parse/core/win32.h"
#include "rawdev/raw_decode_state.h"

namespace qmx {

// Turns the cells upright and writes them.  False, with the stream untouched, when the picture is
// too large for a BMP or memory is short.  What the stream answers is ignored.
bool WriteBitmap(RawDecodeState& state, IStream* stream);

}  // namespace qmx
