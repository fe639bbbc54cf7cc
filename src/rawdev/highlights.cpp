#include "rawdev/highlights.h"

#include <algorithm>
#include <cmath>

#include "rawdev/color_matrix.h"

namespace qmx {
namespace {

constexpr float kFullScale = 65535;
constexpr std::uint32_t kChannels = 3;
constexpr std::uint32_t kSide = 4;  // cells of a block that shares its colour

using Cell = std::uint16_t[kColors];

std::uint16_t ToLevel(float value) {
    return static_cast<std::uint16_t>(std::clamp(value, 0.0f, kFullScale));
}

// The level at which each channel saturates: the largest multiplier fills the scale.
struct Saturation {
    float level[kChannels];

    explicit Saturation(const RawDecodeState& state) {
        float multipliers[kColors];
        ChooseMultipliers(state, multipliers);
        const float largest = *std::max_element(multipliers, multipliers + kChannels);
        for (std::uint32_t c = 0; c < kChannels; ++c)
            level[c] = kFullScale * multipliers[c] / largest;
    }
};

// Keeps the lightness of the cell and takes the strength of its colour from the cell as it were
// with all channels clipped at the same level.
void BlendCell(Cell& cell, float limit) {
    if (static_cast<float>(std::max({cell[0], cell[1], cell[2]})) <= limit) return;
    float mean = 0;
    float limitedMean = 0;
    for (std::uint32_t c = 0; c < kChannels; ++c) {
        mean += static_cast<float>(cell[c]) / kChannels;
        limitedMean += std::min(static_cast<float>(cell[c]), limit) / kChannels;
    }
    float spread = 0;
    float limitedSpread = 0;
    for (std::uint32_t c = 0; c < kChannels; ++c) {
        const float away = static_cast<float>(cell[c]) - mean;
        const float limitedAway = std::min(static_cast<float>(cell[c]), limit) - limitedMean;
        spread += away * away;
        limitedSpread += limitedAway * limitedAway;
    }
    if (!(spread > 0)) return;
    const float strength = std::min(1.0f, std::sqrt(limitedSpread / spread));
    for (std::uint32_t c = 0; c < kChannels; ++c)
        cell[c] = ToLevel(mean + strength * (static_cast<float>(cell[c]) - mean));
}

// Rebuilds one channel from the channel that saturates last: the ratio of both, found in blocks
// where neither is saturated, spreads into those where it cannot be seen.
class ChannelRebuilder {
public:
    explicit ChannelRebuilder(RawDecodeState& state)
        : saturation_(state),
          image_(state.image.get()),
          width_(state.outputWidth),
          height_(state.outputHeight),
          across_((width_ - 1) / kSide + 1),
          down_((height_ - 1) / kSide + 1) {
        const float* level = saturation_.level;
        guide_ = static_cast<std::uint32_t>(std::max_element(level, level + kChannels) - level);
    }

    // False when memory is short.
    bool Start(RawDecodeState& state) {
        const std::uint64_t blocks = std::uint64_t{across_} * down_;
        ratios_ = state.scratch.Take<float>(blocks);
        queue_ = state.scratch.Take<std::uint32_t>(blocks);
        return ratios_ != nullptr && queue_ != nullptr;
    }

    void Rebuild(std::uint32_t channel) {
        if (channel == guide_) return;
        channel_ = channel;
        MeasureBlocks();
        SpreadRatios();
        for (std::uint32_t y = 0; y < height_; ++y) {
            Cell* row = image_ + std::size_t{y} * width_;
            const float* ratios = ratios_ + std::size_t{y / kSide} * across_;
            for (std::uint32_t x = 0; x < width_; ++x) RebuildCell(row[x], ratios[x / kSide]);
        }
    }

private:
    static constexpr float kNearlySaturated = 0.98f;
    static constexpr float kBright = 0.25f;  // darker cells say little about highlights

    float Share(const Cell& cell, std::uint32_t channel) const {
        return static_cast<float>(cell[channel]) / saturation_.level[channel];
    }

    void RebuildCell(Cell& cell, float ratio) const {
        if (Share(cell, channel_) < kNearlySaturated) return;
        // Nothing unsaturated anywhere: neutral.
        const float wanted = static_cast<float>(cell[guide_]) * (ratio == 0 ? 1 : ratio);
        cell[channel_] = std::max(cell[channel_], ToLevel(wanted));
    }

    // Ratios of blocks that show them; 0 in the others.
    void MeasureBlocks() {
        queued_ = 0;
        for (std::uint32_t block = 0; block < across_ * down_; ++block) {
            ratios_[block] = MeasureBlock(block / across_ * kSide, block % across_ * kSide);
            if (ratios_[block] != 0) queue_[queued_++] = block;
        }
    }
    float MeasureBlock(std::uint32_t top, std::uint32_t left) const {
        float sum = 0;
        float guideSum = 0;
        for (std::uint32_t y = top; y < std::min(top + kSide, height_); ++y) {
            for (std::uint32_t x = left; x < std::min(left + kSide, width_); ++x) {
                const Cell& cell = image_[std::size_t{y} * width_ + x];
                const float share = Share(cell, channel_);
                if (share < kBright || share >= kNearlySaturated ||
                    Share(cell, guide_) >= kNearlySaturated)
                    continue;
                sum += static_cast<float>(cell[channel_]);
                guideSum += static_cast<float>(cell[guide_]);
            }
        }
        return guideSum > 0 ? sum / guideSum : 0;
    }

    // Breadth first, so that every block is visited once.
    void SpreadRatios() {
        for (std::uint32_t next = 0; next < queued_; ++next) {
            const std::uint32_t row = queue_[next] / across_;
            const std::uint32_t column = queue_[next] % across_;
            if (row > 0) FillBlock(row - 1, column);
            if (row + 1 < down_) FillBlock(row + 1, column);
            if (column > 0) FillBlock(row, column - 1);
            if (column + 1 < across_) FillBlock(row, column + 1);
        }
    }
    // The mean of the blocks around that are known.
    void FillBlock(std::uint32_t row, std::uint32_t column) {
        const std::uint32_t block = row * across_ + column;
        if (ratios_[block] != 0) return;
        float sum = 0;
        float count = 0;
        for (std::uint32_t r = row == 0 ? 0 : row - 1; r <= std::min(row + 1, down_ - 1); ++r) {
            for (std::uint32_t c = column == 0 ? 0 : column - 1;
                 c <= std::min(column + 1, across_ - 1); ++c) {
                const float ratio = ratios_[r * across_ + c];
                sum += ratio;
                count += ratio != 0 ? 1.0f : 0.0f;
            }
        }
        ratios_[block] = sum / count;
        queue_[queued_++] = block;
    }

    Saturation saturation_;
    Cell* image_;
    std::uint32_t width_;
    std::uint32_t height_;
    std::uint32_t across_;  // blocks
    std::uint32_t down_;
    std::uint32_t guide_ = 0;
    std::uint32_t channel_ = 0;
    float* ratios_ = nullptr;
    std::uint32_t* queue_ = nullptr;  // blocks whose neighbours are to be filled
    std::uint32_t queued_ = 0;
};

}  // namespace

bool MendHighlights(RawDecodeState& state) {
    if (state.highlightMode == 2) {
        const Saturation saturation(state);
        const float limit = *std::min_element(saturation.level, saturation.level + kChannels);
        const std::uint64_t cells = std::uint64_t{state.outputHeight} * state.outputWidth;
        for (std::uint64_t i = 0; i < cells; ++i) BlendCell(state.image[i], limit);
        return true;
    }
    ChannelRebuilder rebuilder(state);
    if (!rebuilder.Start(state)) return false;
    for (std::uint32_t channel = 0; channel < kChannels; ++channel) rebuilder.Rebuild(channel);
    return true;
}

}  // namespace qmx
