#include "rawdev/levels.h"

#include <algorithm>
#include <cmath>

namespace qmx {
namespace {

constexpr double kLargestLevel = 65535;
constexpr std::uint32_t kMostPatternSide = 8;  // no sensor repeats after more cells
constexpr std::uint32_t kMostPatternCells = kMostPatternSide * kMostPatternSide;

// A repeating pattern of black levels; one cell where the file gives no other.
struct BlackPattern {
    std::uint32_t rows = 1;
    std::uint32_t columns = 1;
    std::uint32_t planes = 1;

    std::uint32_t Cells() const { return rows * columns * planes; }
};

BlackPattern ReadBlackPattern(const RawDecodeState& state) {
    const RawIfd& ifd = state.ifd;
    BlackPattern pattern;
    if (ifd.blackRepeat.count == 2) {
        pattern.rows = ReadUnsigned(state.file, ifd.blackRepeat, 0);
        pattern.columns = ReadUnsigned(state.file, ifd.blackRepeat, 1);
    }
    const bool fits = pattern.rows >= 1 && pattern.rows <= kMostPatternSide &&
                      pattern.columns >= 1 && pattern.columns <= kMostPatternSide;
    if (!fits) return {};
    if (state.samplesPerPixel == 3 && ifd.blackLevel.count == 3 * pattern.Cells())
        pattern.planes = 3;
    const bool whole = pattern.Cells() <= std::min(kMostPatternCells, ifd.blackLevel.count);
    return whole ? pattern : BlackPattern{};
}

double LevelAt(const FileView& file, const TagValues& values, std::uint32_t index) {
    const double level = ReadNumber(file, values, index);
    return level > -kLargestLevel && level < kLargestLevel ? level : 0;  // NaN too
}

double MeanOf(const FileView& file, const TagValues& values, std::uint32_t count) {
    double sum = 0;
    for (std::uint32_t i = 0; i < count; ++i) sum += LevelAt(file, values, i);
    return count == 0 ? 0 : sum / count;
}

std::int32_t Round(double value) { return static_cast<std::int32_t>(std::lround(value)); }

}  // namespace

void TakeLevels(RawDecodeState& state) {
    const RawIfd& ifd = state.ifd;
    if (state.loader->sampleBits != 0) state.bitsPerSample = state.loader->sampleBits;
    const std::uint32_t bits = std::clamp(state.bitsPerSample, 1u, 16u);
    const std::uint32_t white = ReadUnsigned(state.file, ifd.whiteLevel, 0);
    if (white != 0 && (state.isDng || state.maximum == 0)) state.maximum = std::min(white, 0xFFFFu);
    if (state.maximum == 0) state.maximum = (1u << bits) - 1;

    const double mean = MeanOf(state.file, ifd.blackLevel, ReadBlackPattern(state).Cells());
    state.black = static_cast<std::uint32_t>(std::max(0, Round(mean)));
}

bool RowLevels::Prepare(RawDecodeState& state) {
    state_ = &state;
    const TagValues& table = state.ifd.linearization;
    // Codes of 15 and 16 bits lie beyond the curve and are linear in practice.
    if (table.count != 0 && state.bitsPerSample <= 14) {
        const std::uint32_t last = std::min(table.count, kCurveEntries) - 1;
        for (std::uint32_t code = 0; code < kCurveEntries; ++code)
            state.sampleCurve[code] = static_cast<std::uint16_t>(
                std::min(ReadUnsigned(state.file, table, std::min(code, last)), 0xFFFFu));
        curve_ = state.sampleCurve.get();
    }
    return PrepareBlack(state);
}

bool RowLevels::PrepareBlack(RawDecodeState& state) {
    const BlackPattern pattern = ReadBlackPattern(state);
    const RawIfd& ifd = state.ifd;
    const bool flat = pattern.Cells() == 1;
    if (flat && ifd.blackDeltaH.count == 0 && ifd.blackDeltaV.count == 0) return true;

    phases_ = pattern.rows;
    const std::uint32_t samples = state.width * state.samplesPerPixel;
    auto* offsets = state.scratch.Take<std::int32_t>(std::uint64_t{samples} * phases_);
    if (offsets == nullptr) return false;
    for (std::uint32_t phase = 0; phase < phases_; ++phase)
        FillOffsets(state, phase, offsets + std::size_t{samples} * phase);
    offsets_ = offsets;
    return true;
}

// What a sample's black has beyond `black`, the columns' own share included.
void RowLevels::FillOffsets(const RawDecodeState& state, std::uint32_t phase,
                            std::int32_t* offsets) const {
    const BlackPattern pattern = ReadBlackPattern(state);
    double levels[kMostPatternCells];
    for (std::uint32_t i = 0; i < pattern.Cells(); ++i)
        levels[i] = LevelAt(state.file, state.ifd.blackLevel, i);
    for (std::uint32_t x = 0; x < state.width; ++x) {
        const double delta = LevelAt(state.file, state.ifd.blackDeltaH, x);
        for (std::uint32_t s = 0; s < state.samplesPerPixel; ++s) {
            const std::uint32_t cell = phase * pattern.columns + x % pattern.columns;
            const double level = levels[cell * pattern.planes + s % pattern.planes];
            *offsets++ = Round(level + delta - state.black);
        }
    }
}

void RowLevels::Apply(std::uint32_t rawRow, std::uint16_t* row) const {
    if (curve_ == nullptr && offsets_ == nullptr) return;
    const RawDecodeState& state = *state_;
    const std::uint32_t samples = state.width * state.samplesPerPixel;
    std::uint16_t* visible = row + std::size_t{state.leftMargin} * state.samplesPerPixel;
    if (curve_ != nullptr) {
        for (std::uint32_t i = 0; i < samples; ++i)
            visible[i] = curve_[std::min<std::uint32_t>(visible[i], kCurveEntries - 1)];
    }
    if (offsets_ == nullptr || rawRow < state.topMargin) return;
    const std::uint32_t y = rawRow - state.topMargin;
    const std::int32_t rowOffset = Round(LevelAt(state.file, state.ifd.blackDeltaV, y));
    const std::int32_t* offsets = offsets_ + std::size_t{samples} * (y % phases_);
    for (std::uint32_t i = 0; i < samples; ++i)
        visible[i] =
            static_cast<std::uint16_t>(std::clamp(visible[i] - offsets[i] - rowOffset, 0, 0xFFFF));
}

}  // namespace qmx
