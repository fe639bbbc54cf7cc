#pragma once
// The road of one raw file from its path to the bitmap.

#include "parse/core/win32.h"
#include "rawdev/raw_decode_state.h"

namespace qmx {

// Develops a file into a BMP in `stream`.  `shrinkLevel` 1 halves the sensor's size, 3 makes it an
// eighth, 0 keeps it.  1 when a picture was written; 0, with the stream untouched, when the file
// cannot be opened or is not raw, or when memory is short (then `state.error` is E_OUTOFMEMORY).
std::uint32_t RunRawPipeline(RawDecodeState& state, const wchar_t* path, IStream* stream,
                             std::uint32_t shrinkLevel);

// The same for a file in memory, which `state.file` names.
std::uint32_t DevelopView(RawDecodeState& state, IStream* stream, std::uint32_t shrinkLevel);

// Its first half: identifies the file in `state.file` and fills `image`.  At full size each cell
// holds its one sample as stored, else the cells are finished.  False for what is refused.
bool LoadCells(RawDecodeState& state, std::uint32_t shrinkLevel);

}  // namespace qmx
