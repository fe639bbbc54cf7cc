#include "rawdev/tone_curve.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace qmx {
namespace {

constexpr std::uint32_t kLowestBin = 32;

// The highest bin above which no more than `mayClip` pixels lie.
std::uint32_t FindChannelWhite(const std::uint32_t* bins, double mayClip) {
    std::uint64_t count = 0;
    std::uint32_t bin = kHistogramBins - 1;
    for (; bin > kLowestBin; --bin) {
        count += bins[bin];
        if (static_cast<double>(count) > mayClip) break;
    }
    return bin;
}

std::uint8_t ToneByte(std::uint32_t level, double whiteLevel) {
    const double light = level / whiteLevel;
    const double value = light <= 0.018 ? 4.5 * light : 1.099 * std::pow(light, 0.45) - 0.099;
    return static_cast<std::uint8_t>(std::min(255.0, 256 * value));
}

struct TonePoint {
    std::uint32_t level;
    std::uint8_t byte;
};

// The curve rises: between levels of the same byte nothing has to be computed.
void FillBetween(double whiteLevel, TonePoint low, TonePoint high, std::uint8_t* bytes) {
    if (low.byte == high.byte || high.level - low.level <= 1) {
        std::memset(bytes + low.level, low.byte, high.level - low.level);
        bytes[high.level] = high.byte;
        return;
    }
    const std::uint32_t level = (low.level + high.level) / 2;
    const TonePoint middle = {level, ToneByte(level, whiteLevel)};
    FillBetween(whiteLevel, low, middle, bytes);
    FillBetween(whiteLevel, middle, high, bytes);
}

}  // namespace

std::uint32_t FindWhiteBin(const RawDecodeState& state) {
    double mayClip = 0.01 * state.outputWidth * state.outputHeight;
    // Modes that keep highlights let nothing clip.
    if (state.highlightMode != 0 && state.highlightMode != 2) mayClip = -1;
    std::uint32_t white = 0;
    for (std::uint32_t color = 0; color < state.colorCount; ++color)
        white = std::max(white, FindChannelWhite(state.channelHistogram[color], mayClip));
    return white;
}

double FindWhiteLevel(const RawDecodeState& state) {
    return FindWhiteBin(state) * kLevelsPerBin / static_cast<double>(state.brightness);
}

void FillToneCurve(double whiteLevel, std::uint8_t* bytes) {
    FillBetween(whiteLevel, {0, ToneByte(0, whiteLevel)},
                {kToneEntries - 1, ToneByte(kToneEntries - 1, whiteLevel)}, bytes);
}

}  // namespace qmx
