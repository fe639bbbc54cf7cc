#pragma once
// What the caller is told about a developed file.

#include <qmxexif.h>

#include "rawdev/raw_decode_state.h"

namespace qmx {

// Fills the record and, where it has room for them, both texts.
void FillShotRecord(const RawDecodeState& state, InfoRequest& info);

}  // namespace qmx
