#pragma once
// RawDecodeState: everything that one development of one raw file knows and owns.

#include <cstdint>

#include "parse/core/image_info.h"
#include "parse/core/win32.h"
#include "rawdev/file_view.h"
#include "rawdev/kernels.h"
#include "rawdev/raw_ifd.h"
#include "rawdev/scratch_pool.h"

namespace qmx {

struct RawDecodeState;
class CellSink;

// One layout of sample data.
struct Loader {
    // Delivers every visible row; false when nothing of the data can be decoded.
    bool (*load)(RawDecodeState& state, CellSink& sink);
    // Bytes per stored row; null for compressed data.
    std::uint64_t (*rowBytes)(const RawDecodeState& state);
    std::uint32_t sampleBits;  // depth of what it delivers; 0: that of the file's samples
};

// What the tags say about the exposure.  Numbers that the file does not give are 0; the two codes
// of which 0 says something are INT_UNSET.
struct ShotData {
    char dateTime[20] = {};  // "2008:07:31 12:34:56"
    char dateTimeOriginal[20] = {};
    float isoSpeed = 0;
    float exposureTime = 0;  // seconds
    float fNumber = 0;
    float focalLength = 0;   // mm
    float exposureBias = 0;  // EV
    std::int32_t exposureProgram = 0;
    bool flashFired = false;
    std::int32_t meteringMode = INT_UNSET;
    std::int32_t whiteBalance = INT_UNSET;
};

inline constexpr std::uint32_t kCfaUnset = 0xFFFFFFFF;  // 0 means three full samples per pixel
inline constexpr std::uint32_t kCurveEntries = 0x4000;

struct RawDecodeState {
    FileView file;
    const Kernels* kernels = &ChooseKernels();
    HRESULT error = S_OK;  // E_OUTOFMEMORY when memory was short

    char makeText[64] = {};
    char modelText[64] = {};
    ShotData shot;

    // Samples.  The visible area begins at the margins and may reach beyond the stored samples,
    // which then count as black.
    std::uint16_t rawHeight = 0;
    std::uint16_t rawWidth = 0;
    std::uint16_t height = 0;
    std::uint16_t width = 0;
    std::uint16_t topMargin = 0;
    std::uint16_t leftMargin = 0;
    std::uint16_t outputHeight = 0;
    std::uint16_t outputWidth = 0;
    std::uint32_t shrinkShift = 0;

    RawIfd ifd;  // of the raw image
    bool isDng = false;
    std::uint32_t dngMajor = 0;
    std::uint32_t dngMinor = 0;
    const Loader* loader = nullptr;
    std::uint64_t dataOffset = 0;
    bool splitBlocks = false;       // Panasonic's blocks stand with their parts exchanged
    std::uint32_t rowPitch = 0;     // bytes from row to row; 0: rows follow each other
    std::uint32_t storedWidth = 0;  // samples per stored row where `rawWidth` does not tell; else 0

    // 2 bits per cell of 8 rows x 2 columns from the visible corner, lowest bits first:
    // 0 red, 1 green, 2 blue, 3 the green that shares its rows with blue.
    std::uint32_t cfaPattern = kCfaUnset;
    std::uint32_t colorCount = 3;
    std::uint32_t samplesPerPixel = 1;
    std::uint32_t black = 0;
    std::uint32_t maximum = 0;  // 0: not yet known
    std::uint32_t bitsPerSample = 12;
    bool repairZeros = false;  // samples of 0 are dead cells

    std::uint16_t diagonalWidth = 0;  // sensor cells from a diagonal picture's corner; 0: upright
    double pixelAspect = 1;           // a pixel's width over its height

    std::int32_t flip = -1;  // bit 4 transposes, 2 reverses rows, 1 reverses columns; -1 unknown

    float cameraMultipliers[kColors] = {};
    float presetMultipliers[kColors] = {1, 1, 1, 1};
    bool presetsFixed = false;  // by a camera rule
    float cameraToOutput[3][kColors] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}};
    float cameraMatrix[3][kColors] = {};
    bool rawColor = true;  // no matrix is known

    // Settings.
    float brightness = 1;
    std::int32_t useCameraMatrix = -1;
    std::int32_t highlightMode = 0;

    OwnedArray<std::uint16_t> sampleCurve;                       // kCurveEntries, identity
    OwnedArray<std::uint32_t[kHistogramBins]> channelHistogram;  // kColors
    OwnedArray<std::uint16_t[kColors]> image;                    // output cells
    OwnedArray<std::uint8_t> bitmap;
    ScratchPool scratch;
};

// Colour index of a cell of the visible area.
constexpr std::uint32_t CfaColor(std::uint32_t pattern, std::uint32_t row, std::uint32_t column) {
    return pattern >> (4 * (row % 8) + 2 * (column % 2)) & 3;
}

// Samples in a stored row.
inline std::uint32_t SamplesPerRow(const RawDecodeState& state) {
    const std::uint32_t width = state.storedWidth != 0 ? state.storedWidth : state.rawWidth;
    return width * state.samplesPerPixel;
}

}  // namespace qmx
