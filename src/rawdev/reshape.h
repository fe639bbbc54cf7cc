#pragma once
// Pictures whose cells do not stand on a square upright grid.

#include "rawdev/raw_decode_state.h"

namespace qmx {

constexpr bool IsReshaped(const RawDecodeState& state) {
    return state.diagonalWidth != 0 || state.pixelAspect != 1;
}

// Turns a picture that stands on its corner upright and makes pixels square that are not: `image`
// and the output size change.  Every cell must have all colours.  False when memory is short.
bool Reshape(RawDecodeState& state);

}  // namespace qmx
