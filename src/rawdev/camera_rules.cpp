#include "rawdev/camera_rules.h"

#include <string_view>

#include "rawdev/color_matrix.h"
#include "rawdev/loaders.h"
#include "rawdev/split_rows.h"

namespace qmx {
namespace {

constexpr std::uint32_t kGreenBlueFirst = 0x49494949;  // G B / R G

// Panasonic's levels are those of 12 bits shifted left by 4.
constexpr std::uint32_t kPanasonicMaximum = 65520;

// The visible area by the width of the stored rows.
struct PanasonicGeometry {
    std::uint16_t rawWidth;
    std::uint16_t width;  // 0: as stored
    std::int16_t heightChange;
    std::uint16_t leftMargin;
    std::uint16_t tallAbove;     // greater heights are tall; 0: none is
    std::uint16_t tallHeight;    // what they become
    std::uint16_t tallTop;       // their top margin
    std::uint16_t marginHeight;  // the height, once changed, that has a top margin of 15; 0: none
    std::uint32_t maximum;       // 0: the common one
    bool repairZeros;
    bool patternSet;          // the pattern begins with green and blue
    bool tallPattern;         // it does so for tall ones only
    const char* matrixModel;  // null: that of the file
};

// Stored width, width, height, left, tall above, height, top, height with top 15, maximum, zeros,
// pattern, pattern of tall ones, model.
// clang-format off
constexpr PanasonicGeometry kPanasonic[] = {
    {2568,    0,   0,  0,    0,    0,  0,    0, 0,      false, false, false, "DMC-LC1"},
    {3130, 3096,   0,  4, 2326, 2326, 13,    0, 0xF7F0, true,  false, true,  "DMC-FZ8"},
    {3170, 3096,   0, 18, 2326, 2326, 13,    0, 0xF7F0, true,  false, true,  "DMC-FZ8"},
    {3177, 3167,   0,  0,    0,    0,  0,    0, 0xF7FC, true,  true,  false, "DMC-L1"},
    {3304, 3288,   0,  0,    0,    0,  0,    0, 0xF94C, true,  false, false, "DMC-FZ30"},
    {3330, 3291,   0,  9, 2480, 2470, 10,    0, 0xF7F0, true,  true,  false, nullptr},
    {3370, 3288,   0, 15, 2480, 2470, 10,    0, 0,      true,  true,  false, nullptr},
    {3690, 3672,  -3,  3,    0,    0,  0, 2760, 0xF7F0, true,  true,  false, "DMC-FZ50"},
    {3710, 3682,   0,  0,    0,    0,  0,    0, 0,      false, true,  false, nullptr},
    {3770, 3672, -39, 17,    0,    0,  0, 2760, 0,      true,  false, false, "DMC-FZ50"},
    {3880, 3858,   0,  6,    0,    0,  0,    0, 0xF7F0, true,  false, false, "DMC-LX1"},
    {4290, 4248,  -1,  3,    0,    0,  0, 2400, 0,      false, true,  false, "DMC-LX2"},
    {4330, 4248, -39, 17,    0,    0,  0, 2400, 0,      false, false, false, "DMC-LX2"},
};
// clang-format on

void ApplyGeometry(RawDecodeState& state, const PanasonicGeometry& row) {
    if (row.width != 0) state.width = row.width;
    state.leftMargin = row.leftMargin;
    state.height = static_cast<std::uint16_t>(state.height + row.heightChange);
    if (row.marginHeight != 0 && state.height == row.marginHeight) state.topMargin = 15;
    const bool isTall = row.tallAbove != 0 && state.height > row.tallAbove;
    if (isTall) {
        state.height = row.tallHeight;
        state.topMargin = row.tallTop;
    }
    if (row.patternSet || (row.tallPattern && isTall)) state.cfaPattern = kGreenBlueFirst;
    if (row.maximum != 0) state.maximum = row.maximum;
    state.repairZeros = row.repairZeros;
    if (row.matrixModel != nullptr) SetMatrixByName(state, "Panasonic", row.matrixModel);
}

// Blocks hold 7 samples in 8 bytes, and nothing follows them.  Of split blocks the last one is
// stored whole, which may be more than the rows need.
bool HoldsPanasonicBlocks(const RawDecodeState& state) {
    const std::uint64_t rowBytes = std::uint64_t{state.width} * 8 / 7;
    const std::uint64_t there = state.file.BytesFrom(state.dataOffset);
    if (rowBytes == 0) return false;
    if (there / rowBytes == state.height) return true;
    const std::uint64_t blocks =
        (rowBytes * state.height + SplitRows::kBlock - 1) / SplitRows::kBlock;
    return state.splitBlocks && there == blocks * SplitRows::kBlock;
}

void ApplyPanasonicRules(RawDecodeState& state) {
    state.maximum = kPanasonicMaximum;
    if (HoldsPanasonicBlocks(state)) {
        state.loader = &kPanasonicBlocks;
    } else if (state.loader == nullptr) {
        state.loader = &kUnpacked16;
    }
    for (const PanasonicGeometry& row : kPanasonic)
        if (row.rawWidth == state.width) return ApplyGeometry(state, row);
}

void ApplyHasselbladRules(RawDecodeState& state) {
    if (state.loader == &kLosslessJpeg) state.loader = &kHasselblad;
    if (state.rawWidth != 7262) return;
    state.height = 5444;
    state.width = 7248;
    state.topMargin = 4;
    state.leftMargin = 7;
    state.cfaPattern = 0x61616161;  // G R / B G
}

// A camera that its files do not name: 1737 rows of 2324 packed samples, 3520 bytes apart.
constexpr std::uint64_t kNamelessFileSize = 6114240;

void ApplyNamelessRules(RawDecodeState& state) {
    state.maximum = 3962;
    state.presetMultipliers[0] = 1.98f;
    state.presetMultipliers[2] = 1.57f;
    state.presetsFixed = true;
    state.height = 1737;
    state.width = 2324;
    if (state.rawHeight < state.height) state.rawHeight = state.height;
    // Deliberate: the pitch in bytes is what counts as this camera's raw width.
    state.rawWidth = 3520;
    state.rowPitch = 3520;
    state.storedWidth = 2324;
    state.samplesPerPixel = 1;
    state.loader = &kPacked12;
}

}  // namespace

void ApplyCameraRules(RawDecodeState& state) {
    if (state.file.size == kNamelessFileSize) ApplyNamelessRules(state);
    const std::string_view make = state.makeText;
    if (make == "Hasselblad") ApplyHasselbladRules(state);
    // A DNG of these bodies has been brought into the common form.
    if (!state.isDng && (make == "LEICA" || make == "Panasonic")) ApplyPanasonicRules(state);
}

}  // namespace qmx
