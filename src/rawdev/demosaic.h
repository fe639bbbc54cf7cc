#pragma once
// The colours that each cell of a full-size picture lacks, by homogeneity-directed interpolation
// (Hirakawa and Parks, "Adaptive homogeneity-directed demosaicing algorithm", IEEE Transactions on
// Image Processing 14(3), 2005).

#include "rawdev/raw_decode_state.h"

namespace qmx {

// Makes one green of two: cells of the second green hold the first.
void FoldGreens(RawDecodeState& state);

// Fills the missing colours of `image`.  False when memory is short.
bool Demosaic(RawDecodeState& state);

}  // namespace qmx
