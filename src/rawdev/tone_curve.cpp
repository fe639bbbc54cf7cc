#include "rawdev/tone_curve.h"

#include <algorithm>
#include <cmath>

namespace qmx {
namespace {

constexpr std::uint32_t kLevelsPerBin = 8;
constexpr std::uint32_t kLowestBin = 32;

// The highest bin above which no more than `mayClip` pixels lie.
std::uint32_t FindWhiteBin(const std::uint32_t* bins, double mayClip) {
    std::uint64_t count = 0;
    std::uint32_t bin = kHistogramBins - 1;
    for (; bin > kLowestBin; --bin) {
        count += bins[bin];
        if (static_cast<double>(count) > mayClip) break;
    }
    return bin;
}

}  // namespace

double FindWhiteLevel(const RawDecodeState& state) {
    double mayClip = 0.01 * state.outputWidth * state.outputHeight;
    // Modes that keep highlights let nothing clip.
    if (state.highlightMode != 0 && state.highlightMode != 2) mayClip = -1;
    std::uint32_t white = 0;
    for (std::uint32_t color = 0; color < state.colorCount; ++color)
        white = std::max(white, FindWhiteBin(state.channelHistogram[color], mayClip));
    return white * kLevelsPerBin / static_cast<double>(state.brightness);
}

void FillToneCurve(double whiteLevel, std::uint8_t* bytes) {
    for (std::uint32_t level = 0; level < kToneEntries; ++level) {
        const double light = level / whiteLevel;
        const double value = light <= 0.018 ? 4.5 * light : 1.099 * std::pow(light, 0.45) - 0.099;
        bytes[level] = static_cast<std::uint8_t>(std::min(255.0, 256 * value));
    }
}

}  // namespace qmx
