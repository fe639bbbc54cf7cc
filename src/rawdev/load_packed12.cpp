// Two samples in 3 bytes, high bits first (TIFF 6.0: FillOrder 1 over samples of 12 bits; TIFF/EP,
// ISO 12234-2), also under compression 32773, the number that elsewhere means PackBits.

#include "rawdev/loaders.h"
#include "rawdev/plain_rows.h"

namespace qmx {
namespace {

bool LoadPacked12(RawDecodeState& state, CellSink& sink) {
    return LoadRows(state, sink, PackedRowBytes(state), state.kernels->unpack12);
}

}  // namespace

const Loader kPacked12 = {LoadPacked12, PackedRowBytes, 12};

}  // namespace qmx
