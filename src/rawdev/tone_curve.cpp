#include "rawdev/tone_curve.h"

#include <algorithm>
#include <cmath>

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

// From this white on the curve rises by one byte at most within an entry of the table; below, no
// level from the table's last entry on is darker than white.
constexpr double kGentleWhite = ToneTable::kEntries;
constexpr std::uint32_t kGentleShift = 3;

std::uint32_t ToneByte(std::uint32_t level, double whiteLevel) {
    const double light = level / whiteLevel;
    const double value = light <= 0.018 ? 4.5 * light : 1.099 * std::pow(light, 0.45) - 0.099;
    return static_cast<std::uint32_t>(std::min(255.0, 256 * value));
}

struct ToneEntry {
    std::uint32_t index;
    std::uint32_t byte;  // of its first level
};

// The curve rises: between entries of the same byte nothing has to be computed.
void FillBetween(double whiteLevel, ToneEntry low, ToneEntry high, ToneTable& tone) {
    const bool isFlat = low.byte == high.byte;
    if (!isFlat && high.index - low.index > 1) {
        const std::uint32_t index = (low.index + high.index) / 2;
        const ToneEntry middle = {index, ToneByte(index << tone.shift, whiteLevel)};
        FillBetween(whiteLevel, low, middle, tone);
        FillBetween(whiteLevel, middle, high, tone);
        return;
    }
    // How many of an entry's levels are brighter than its first.
    std::uint32_t brighter = 0;
    const std::uint32_t last = (high.index << tone.shift) - 1;
    while (!isFlat && ToneByte(last - brighter, whiteLevel) > low.byte) ++brighter;
    std::fill(tone.entries + low.index, tone.entries + high.index,
              static_cast<std::uint16_t>((low.byte << tone.shift) + brighter));
}

}  // namespace

std::uint32_t FindWhiteBin(const RawDecodeState& state) {
    double mayClip = 0.01 * state.outputWidth * state.outputHeight;
    if (state.diagonalWidth != 0) mayClip /= 2;  // half of its cells lie outside the picture
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

void FillToneTable(double whiteLevel, ToneTable& tone) {
    tone.shift = whiteLevel >= kGentleWhite ? kGentleShift : 0;
    const std::uint32_t end = ToneTable::kEntries;
    FillBetween(whiteLevel, {0, ToneByte(0, whiteLevel)},
                {end, ToneByte(end << tone.shift, whiteLevel)}, tone);
}

}  // namespace qmx
