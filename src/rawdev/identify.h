#pragma once
// Finds out what a raw file holds and how it is to be developed.

#include "rawdev/raw_decode_state.h"

namespace qmx {

// Fills the names, shot data, geometry, levels, colours and the loader of `state` from its file.
// False for files that are not raw or that no loader reads.
bool IdentifyRaw(RawDecodeState& state);

}  // namespace qmx
