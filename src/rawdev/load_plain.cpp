// Rows of samples that are only packed, not compressed (TIFF 6; TIFF/EP for the packed forms).

#include <algorithm>

#include "rawdev/cell_sink.h"
#include "rawdev/loaders.h"
#include "rawdev/stored_row.h"
#include "rawdev/unpack.h"

namespace qmx {
namespace {

std::uint64_t EightBitRow(const RawDecodeState& state) { return SamplesPerRow(state); }

std::uint64_t WordRow(const RawDecodeState& state) {
    return std::uint64_t{2} * SamplesPerRow(state);
}

// Rows begin on a byte; half a byte is left over behind an odd number of samples.
std::uint64_t PackedRow(const RawDecodeState& state) {
    return (std::uint64_t{3} * SamplesPerRow(state) + 1) / 2;
}

std::uint64_t PaddedRow(const RawDecodeState& state) {
    return PackedRow(state) + (std::uint64_t{SamplesPerRow(state)} + 2) / 10;
}

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

// `sampleCurve` stays the identity without a table of levels, which only DNGs have.
bool LoadEightBit(RawDecodeState& state, CellSink& sink) {
    return LoadRows(state, sink, EightBitRow(state), UnpackBytes);
}

bool LoadPacked12(RawDecodeState& state, CellSink& sink) {
    return LoadRows(state, sink, PackedRow(state), state.kernels->unpack12);
}

bool LoadPadded12(RawDecodeState& state, CellSink& sink) {
    return LoadRows(state, sink, PaddedRow(state), state.kernels->unpack12Padded);
}

bool LoadUnpacked16(RawDecodeState& state, CellSink& sink) {
    const bool bigEndian = state.file.bigEndian;
    return LoadRows(state, sink, WordRow(state),
                    [bigEndian](const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst) {
                        UnpackWords(src, count, bigEndian, dst);
                    });
}

}  // namespace

const Loader kEightBit = {LoadEightBit, EightBitRow, 8};
const Loader kPacked12 = {LoadPacked12, PackedRow, 12};
const Loader kPadded12 = {LoadPadded12, PaddedRow, 12};
const Loader kUnpacked16 = {LoadUnpacked16, WordRow, 0};
// Written by one maker's bodies under a number of its own, in the padded form.
const Loader kEpson12 = {LoadPadded12, PaddedRow, 12};

}  // namespace qmx
