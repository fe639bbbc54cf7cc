// Strips and tiles that are streams of lossless JPEG each (DNG 1.4, tag Compression; ITU-T T.81).

#include <algorithm>

#include "rawdev/cell_sink.h"
#include "rawdev/dng_tiles.h"
#include "rawdev/levels.h"
#include "rawdev/loaders.h"
#include "rawdev/lossless_rows.h"

namespace qmx {
namespace {

// Every tile of a row of tiles has a decoder of its own.
constexpr std::uint32_t kMostDecoders = 256;

// A stream's line may cover several rows of its tile.
constexpr std::uint64_t kMostRowsPerLine = 8;

constexpr std::uint32_t kWidestTile = 0xFFFF;

// One row of tiles, decoded side by side.
class TileDecoders {
public:
    bool Start(RawDecodeState& state, const DngTiles& tiles) {
        state_ = &state;
        tiles_ = &tiles;
        const std::uint64_t width = std::min(tiles.Width(), kWidestTile);
        lineRoom_ = kMostRowsPerLine * width * state.samplesPerPixel;
        // Honest tiles do not overlap: what is charged for one is no more than twice its bytes.
        workLeft_ = static_cast<std::int64_t>(state.file.size) * 2;
        // Version 1.0 wrote 16 bits too many behind the largest category.
        options_.longCategory16 = state.dngMajor == 1 && state.dngMinor == 0;
        if (tiles.Across() > kMostDecoders) return false;
        decoders_ = state.scratch.Take<LosslessRows>(tiles.Across());
        lines_ = state.scratch.Take<std::uint16_t>(2 * lineRoom_ * tiles.Across());
        isOpen_ = state.scratch.Take<bool>(tiles.Across());
        return decoders_ != nullptr && lines_ != nullptr && isOpen_ != nullptr;
    }

    bool Open(std::uint32_t row, std::uint32_t column) {
        const std::uint64_t length = tiles_->BytesOf(row, column);
        LosslessRows& decoder = decoders_[column];
        if (isOpen_[column]) workLeft_ -= static_cast<std::int64_t>(decoder.BytesRead());
        isOpen_[column] = false;
        if (length == 0 || workLeft_ <= 0) return false;
        const std::uint8_t* stream = state_->file.data + tiles_->Position(row, column);
        const std::uint64_t width = std::uint64_t{tiles_->Width()} * state_->samplesPerPixel;
        const bool sound = decoder.Open({stream, static_cast<std::size_t>(length)}, options_, width,
                                        tiles_->RowsStored(row));
        const LosslessHeader& header = decoder.Header();
        workLeft_ -= static_cast<std::int64_t>(header.scanStart + kLeastHeader +
                                               header.LineSamples() / kMostSamplesPerByte);
        if (!sound || header.LineSamples() > lineRoom_) return false;
        decoder.Start(lines_ + 2 * lineRoom_ * column);
        isOpen_[column] = true;
        return true;
    }

    // The next row of every tile.
    void TakeRow(std::uint16_t* dst) {
        for (std::uint32_t column = 0; column < tiles_->Across(); ++column) {
            const std::uint32_t inside = tiles_->SamplesInside(column);
            if (isOpen_[column]) {
                // Edge tiles are wider than what the image shows of them.
                decoders_[column].Take(dst, inside);
            } else {
                std::memset(dst, 0, inside * sizeof *dst);
            }
            dst += inside;
        }
    }

private:
    static constexpr std::uint64_t kLeastHeader = 32;  // bytes of the shortest header, roundly
    static constexpr std::uint64_t kMostSamplesPerByte = 64;

    RawDecodeState* state_ = nullptr;
    const DngTiles* tiles_ = nullptr;
    LosslessOptions options_;
    std::uint64_t lineRoom_ = 0;
    LosslessRows* decoders_ = nullptr;
    std::uint16_t* lines_ = nullptr;
    bool* isOpen_ = nullptr;
    std::int64_t workLeft_ = 0;  // bytes that may still be decoded
};

bool LoadTiles(RawDecodeState& state, CellSink& sink) {
    const DngTiles tiles(state);
    TileDecoders decoders;
    RowLevels levels;
    if (!decoders.Start(state, tiles) || !levels.Prepare(state)) return false;
    bool anyOpen = false;
    StreamRows(state, sink, true, [&](std::uint32_t rawRow, std::uint16_t* dst) {
        if (rawRow % tiles.Height() == 0) {
            for (std::uint32_t column = 0; column < tiles.Across(); ++column)
                anyOpen |= decoders.Open(rawRow / tiles.Height(), column);
        }
        decoders.TakeRow(dst);
        levels.Apply(rawRow, dst);
    });
    return anyOpen;
}

}  // namespace

const Loader kDngLosslessJpeg = {LoadTiles, nullptr, 0};

}  // namespace qmx
