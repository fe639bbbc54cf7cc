// Compression 32769: Epson's own number for rows of ten samples in 16 bytes, whatever length the
// strip says that it has.

#include "rawdev/loaders.h"
#include "rawdev/plain_rows.h"

namespace qmx {
namespace {

bool LoadEpson12(RawDecodeState& state, CellSink& sink) {
    return LoadRows(state, sink, PaddedRowBytes(state), state.kernels->unpack12Padded);
}

}  // namespace

const Loader kEpson12 = {LoadEpson12, PaddedRowBytes, 12};

}  // namespace qmx
