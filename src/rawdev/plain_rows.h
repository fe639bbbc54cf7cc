#pragma once
// Rows of samples that are packed, not compressed: they follow each other, each from a byte of its
// own.

#include <cstdint>

#include "rawdev/cell_sink.h"
#include "rawdev/stored_row.h"

namespace qmx {

// Two samples in 3 bytes; half a byte is left over behind an odd number of samples.
inline std::uint64_t PackedRowBytes(const RawDecodeState& state) {
    return (std::uint64_t{3} * SamplesPerRow(state) + 1) / 2;
}

// The same with a byte behind every ten samples.
inline std::uint64_t PaddedRowBytes(const RawDecodeState& state) {
    return PackedRowBytes(state) + (std::uint64_t{SamplesPerRow(state)} + 2) / 10;
}

// Unpacks the rows with `unpack(src, count, dst)`.  False when memory is short.
template <class Unpack>
bool LoadRows(RawDecodeState& state, CellSink& sink, std::uint64_t rowBytes, Unpack&& unpack) {
    StoredRows rows;
    if (!rows.Start(state, rowBytes)) return false;
    const std::uint64_t pitch = state.rowPitch != 0 ? state.rowPitch : rowBytes;
    const std::uint32_t count = SamplesPerRow(state);
    StreamRows(state, sink, false, [&](std::uint32_t rawRow, std::uint16_t* dst) {
        unpack(rows.At(state.dataOffset + rawRow * pitch), count, dst);
    });
    return true;
}

}  // namespace qmx
