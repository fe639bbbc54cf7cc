// Strips and tiles of uncompressed samples of 8 to 16 bits (DNG 1.4, tag Compression).

#include "rawdev/cell_sink.h"
#include "rawdev/dng_tiles.h"
#include "rawdev/levels.h"
#include "rawdev/loaders.h"
#include "rawdev/stored_row.h"
#include "rawdev/unpack.h"

namespace qmx {
namespace {

// Rows begin on a byte whatever the depth.
std::uint64_t TileRowBytes(const RawDecodeState& state, const DngTiles& tiles) {
    const std::uint64_t samples = std::uint64_t{tiles.Width()} * state.samplesPerPixel;
    return (samples * state.bitsPerSample + 7) / 8;
}

std::uint64_t DngRow(const RawDecodeState& state) {
    const DngTiles tiles(state);
    return TileRowBytes(state, tiles) * tiles.Across();
}

void UnpackSamples(const RawDecodeState& state, const std::uint8_t* src, std::uint32_t count,
                   std::uint16_t* dst) {
    switch (state.bitsPerSample) {
        case 8: return UnpackBytes(src, count, dst);
        case 12: return state.kernels->unpack12(src, count, dst);
        case 16: return UnpackWords(src, count, state.file.bigEndian, dst);
        default: return state.kernels->unpackBits(src, count, state.bitsPerSample, dst);
    }
}

bool LoadUncompressed(RawDecodeState& state, CellSink& sink) {
    const DngTiles tiles(state);
    const std::uint64_t tileRowBytes = TileRowBytes(state, tiles);
    // The columns of a tile beyond the image are not read.
    const std::uint64_t wantedBytes =
        (std::uint64_t{tiles.SamplesInside(0)} * state.bitsPerSample + 7) / 8;
    StoredRows rows;
    RowLevels levels;
    if (!rows.Start(state, wantedBytes) || !levels.Prepare(state)) return false;

    StreamRows(state, sink, false, [&](std::uint32_t rawRow, std::uint16_t* dst) {
        const std::uint32_t tileRow = rawRow / tiles.Height();
        const std::uint64_t inTile = rawRow % tiles.Height() * tileRowBytes;
        std::uint16_t* samples = dst;
        for (std::uint32_t column = 0; column < tiles.Across(); ++column) {
            const std::uint32_t count = tiles.SamplesInside(column);
            const std::uint64_t position = tiles.Position(tileRow, column);
            if (position == 0) {
                std::memset(samples, 0, count * sizeof *samples);
            } else {
                UnpackSamples(state, rows.At(position + inTile), count, samples);
            }
            samples += count;
        }
        levels.Apply(rawRow, dst);
    });
    return true;
}

}  // namespace

const Loader kDngUncompressed = {LoadUncompressed, DngRow, 0};

}  // namespace qmx
