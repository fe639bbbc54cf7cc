// One byte per sample (TIFF 6.0, section 3: BitsPerSample 8).

#include "rawdev/loaders.h"
#include "rawdev/plain_rows.h"
#include "rawdev/unpack.h"

namespace qmx {
namespace {

std::uint64_t EightBitRow(const RawDecodeState& state) { return SamplesPerRow(state); }

// `sampleCurve` stays the identity without a table of levels, which only DNGs have.
bool LoadEightBit(RawDecodeState& state, CellSink& sink) {
    return LoadRows(state, sink, EightBitRow(state), UnpackBytes);
}

}  // namespace

const Loader kEightBit = {LoadEightBit, EightBitRow, 8};

}  // namespace qmx
