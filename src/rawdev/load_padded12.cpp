// Ten samples in 15 bytes, packed high bits first (TIFF 6.0: FillOrder 1), and a sixteenth byte
// that says nothing, as Epson's bodies store them.

#include "rawdev/loaders.h"
#include "rawdev/plain_rows.h"

namespace qmx {
namespace {

bool LoadPadded12(RawDecodeState& state, CellSink& sink) {
    return LoadRows(state, sink, PaddedRowBytes(state), state.kernels->unpack12Padded);
}

}  // namespace

const Loader kPadded12 = {LoadPadded12, PaddedRowBytes, 12};

}  // namespace qmx
