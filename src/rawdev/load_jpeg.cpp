// The whole picture as one stream of lossless JPEG (ITU-T T.81, annex H), its samples row by row
// from the first column.

#include "rawdev/cell_sink.h"
#include "rawdev/loaders.h"
#include "rawdev/lossless_rows.h"

namespace qmx {
namespace {

bool LoadLosslessJpeg(RawDecodeState& state, CellSink& sink) {
    const std::uint64_t there = state.file.BytesFrom(state.dataOffset);
    auto* decoder = state.scratch.Take<LosslessRows>(1);
    if (decoder == nullptr || there == 0) return false;
    const std::uint8_t* stream = state.file.data + state.dataOffset;
    const std::uint32_t count = SamplesPerRow(state);
    if (!decoder->Open({stream, static_cast<std::size_t>(there)}, {}, count, state.rawHeight))
        return false;
    auto* lines =
        state.scratch.Take<std::uint16_t>(std::uint64_t{2} * decoder->Header().LineSamples());
    if (lines == nullptr) return false;
    decoder->Start(lines);

    StreamRows(state, sink, true,
               [&](std::uint32_t, std::uint16_t* dst) { decoder->Take(dst, count); });
    return true;
}

}  // namespace

const Loader kLosslessJpeg = {LoadLosslessJpeg, nullptr, 0};

}  // namespace qmx
