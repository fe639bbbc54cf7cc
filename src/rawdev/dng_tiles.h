#pragma once
// The strips or tiles that a DNG's raw image is cut into (DNG 1.4).  A strip is a tile as wide as
// the image; edge tiles are stored whole.

#include <algorithm>
#include <cstdint>

#include "rawdev/raw_decode_state.h"

namespace qmx {

class DngTiles {
public:
    explicit DngTiles(const RawDecodeState& state) : state_(state) {
        const RawIfd& ifd = state.ifd;
        isTiled_ = ifd.tileWidth != 0 && ifd.tileHeight != 0;
        width_ = isTiled_ ? ifd.tileWidth : state.rawWidth;
        height_ = isTiled_ ? ifd.tileHeight : ifd.rowsPerStrip;
        if (height_ == 0) height_ = state.rawHeight;
        // Nothing beyond the image is wanted of a tile.
        across_ = state.rawWidth == 0 ? 0 : (state.rawWidth - 1) / width_ + 1;
        down_ = state.rawHeight == 0 ? 0 : (state.rawHeight - 1) / height_ + 1;
    }

    std::uint32_t Width() const { return width_; }
    std::uint32_t Height() const { return height_; }
    std::uint32_t Across() const { return across_; }
    std::uint32_t Down() const { return down_; }

    // Rows that are stored of row `row` of tiles: the last strip is cut, tiles are not.
    std::uint32_t RowsStored(std::uint32_t row) const {
        return isTiled_ ? height_ : std::min(height_, state_.rawHeight - row * height_);
    }

    // Samples of column `column` of tiles that belong to the image.
    std::uint32_t SamplesInside(std::uint32_t column) const {
        const std::uint32_t left = column * width_;
        return std::min(width_, state_.rawWidth - left) * state_.samplesPerPixel;
    }

    // Where a tile's data begin; 0 when the file does not say.
    std::uint64_t Position(std::uint32_t row, std::uint32_t column) const {
        return ReadUnsigned(state_.file, state_.ifd.offsets, row * across_ + column);
    }

    // Bytes that the file holds of a tile.
    std::uint64_t BytesOf(std::uint32_t row, std::uint32_t column) const {
        return BytesOf(row * across_ + column);
    }

    // Bytes of all tiles, at most the file's: tiles that share theirs do not count twice.
    std::uint64_t AllBytes() const {
        const TagValues& offsets = state_.ifd.offsets;
        // Offsets beyond the file's end are not there, whatever their count says.
        const std::uint64_t stored =
            state_.file.BytesFrom(offsets.position) / RawTypeSize(offsets.type);
        const std::uint64_t count =
            std::min({std::uint64_t{across_} * down_, stored, std::uint64_t{offsets.count}});
        std::uint64_t sum = 0;
        for (std::uint64_t i = 0; i < count && sum < state_.file.size; ++i)
            sum += BytesOf(static_cast<std::uint32_t>(i));
        return std::min(sum, state_.file.size);
    }

private:
    std::uint64_t BytesOf(std::uint32_t index) const {
        const std::uint64_t position = ReadUnsigned(state_.file, state_.ifd.offsets, index);
        if (position == 0) return 0;
        const std::uint64_t there = state_.file.BytesFrom(position);
        const std::uint32_t stated = ReadUnsigned(state_.file, state_.ifd.byteCounts, index);
        return stated == 0 ? there : std::min<std::uint64_t>(there, stated);
    }

    const RawDecodeState& state_;
    bool isTiled_;
    std::uint32_t width_;
    std::uint32_t height_;
    std::uint32_t across_;
    std::uint32_t down_;
};

}  // namespace qmx
