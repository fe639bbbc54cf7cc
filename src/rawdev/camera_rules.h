#pragma once
// What single cameras need beyond what their files say.

#include "rawdev/raw_decode_state.h"

namespace qmx {

// Applies the rules of the camera that `state` names.  The file's directories have been read.
void ApplyCameraRules(RawDecodeState& state);

}  // namespace qmx
