#include "rawdev/pipeline.h"

#include <algorithm>
#include <cstring>

#include "parse/core/mapped_file.h"
#include "parse/core/page_guard.h"
#include "rawdev/bitmap_painter.h"
#include "rawdev/bitmap_writer.h"
#include "rawdev/cell_color.h"
#include "rawdev/cell_sink.h"
#include "rawdev/demosaic.h"
#include "rawdev/dng_tiles.h"
#include "rawdev/highlights.h"
#include "rawdev/identify.h"
#include "rawdev/reshape.h"

namespace qmx {
namespace {

// Samples that a byte of compressed data may at most stand for.
constexpr std::uint64_t kMostSamplesPerByte = 64;

// The part of uncompressed data that must be there.
constexpr std::uint64_t kLeastShare = 16;

// Whether the file holds enough of the picture to be worth the memory that its dimensions ask for.
bool HoldsEnoughData(const RawDecodeState& state) {
    const std::uint64_t there =
        state.isDng ? DngTiles(state).AllBytes() : state.file.BytesFrom(state.dataOffset);
    // Rules may show more rows than the file says that it has.
    const std::uint64_t rows = std::max(state.rawHeight, state.height);
    if (state.loader->rowBytes == nullptr) {
        const std::uint64_t shown = std::uint64_t{state.width} * state.samplesPerPixel;
        const std::uint64_t samples = std::max<std::uint64_t>(SamplesPerRow(state), shown) * rows;
        return there != 0 && there * kMostSamplesPerByte >= samples;
    }
    const std::uint64_t rowBytes = state.loader->rowBytes(state);
    return rowBytes != 0 && there >= rowBytes && there * kLeastShare >= rowBytes * rows;
}

// Degrees become the code of the same turn; codes stay.
std::int32_t NormaliseFlip(std::int32_t flip) {
    switch ((flip + 3600) % 360) {
        case 90: return 6;
        case 180: return 3;
        case 270: return 5;
        default: return flip;
    }
}

void SetOutputSize(RawDecodeState& state, std::uint32_t shrinkLevel) {
    state.flip = NormaliseFlip(state.flip);
    state.shrinkShift = state.cfaPattern != 0 ? shrinkLevel : 0;
    state.outputHeight = static_cast<std::uint16_t>(((state.height - 1) >> state.shrinkShift) + 1);
    state.outputWidth = static_cast<std::uint16_t>(((state.width - 1) >> state.shrinkShift) + 1);
    if (state.useCameraMatrix == 0 || !(state.cameraMatrix[0][0] > 0.25f)) return;
    std::memcpy(state.cameraToOutput, state.cameraMatrix, sizeof state.cameraToOutput);
    state.rawColor = false;
}

bool IsMosaic(const RawDecodeState& state) {
    return state.cfaPattern != 0 && state.shrinkShift == 0;
}

// Highlights look at the cells around, and so do cells that move.
bool NeedsAllCells(const RawDecodeState& state) {
    return MendsHighlights(state) || IsReshaped(state);
}

void ClearHistogram(RawDecodeState& state) {
    std::memset(state.channelHistogram.get(), 0, kColors * sizeof state.channelHistogram[0]);
}

// What lives as long as the state is made by its first run.
bool AllocateBuffers(RawDecodeState& state) {
    if (state.sampleCurve == nullptr)
        state.sampleCurve = AllocateZeroed<std::uint16_t>(kCurveEntries);
    if (state.channelHistogram == nullptr)
        state.channelHistogram = AllocateZeroed<std::uint32_t[kHistogramBins]>(kColors);
    else
        ClearHistogram(state);
    if (state.sampleCurve == nullptr || state.channelHistogram == nullptr) {
        state.error = E_OUTOFMEMORY;
        return false;
    }
    for (std::uint32_t code = 0; code < kCurveEntries; ++code)
        state.sampleCurve[code] = static_cast<std::uint16_t>(code);
    return true;
}

// Shrunken cells are written as a whole, those of a mosaic one colour at a time.
bool AllocateImage(RawDecodeState& state) {
    const std::uint64_t cells = std::uint64_t{state.outputHeight} * state.outputWidth;
    state.image = IsMosaic(state) ? AllocateZeroed<std::uint16_t[kColors]>(cells)
                                  : AllocateUnset<std::uint16_t[kColors]>(cells);
    if (state.image == nullptr) state.error = E_OUTOFMEMORY;
    return state.image != nullptr;
}

// Identifies the file and settles what its picture will be.
bool Prepare(RawDecodeState& state, std::uint32_t shrinkLevel) {
    if (state.useCameraMatrix < 0) state.useCameraMatrix = 1;
    if (!IdentifyRaw(state) || !HoldsEnoughData(state)) return false;
    SetOutputSize(state, shrinkLevel);
    return AllocateBuffers(state);
}

bool Load(RawDecodeState& state, CellUse use, BitmapPainter* painter = nullptr) {
    CellSink sink;
    return sink.Start(state, use, painter) && state.loader->load(state, sink);
}

bool LoadImage(RawDecodeState& state) {
    if (!AllocateImage(state)) return false;
    // What needs all cells works in the camera's colours: until then the matrix waits.
    const bool rawColor = state.rawColor;
    state.rawColor |= NeedsAllCells(state);
    const bool loaded = Load(state, CellUse::kKeep);
    state.rawColor = rawColor;
    return loaded;
}

// What was left to do until all cells were there; at full size each still lacks the colours that
// its sensor cell did not see.
bool FinishColors(RawDecodeState& state) {
    if (!IsMosaic(state) && !NeedsAllCells(state)) return true;
    const auto cells = [&state] { return std::uint64_t{state.outputHeight} * state.outputWidth; };
    if (IsMosaic(state)) {
        CellColor(state).BalanceCells(state.image.get(), cells());
        FoldGreens(state);
        if (!Demosaic(state)) return false;
    }
    if (MendsHighlights(state) && !MendHighlights(state)) return false;
    if (!Reshape(state)) return false;
    ClearHistogram(state);
    CellColor(state).ConvertCells(state.image.get(), cells());
    return true;
}

// Whether the samples are read twice, once for the white point and once for the pixels, instead of
// keeping the cells in between: where samples need no decoding, a new reading costs less than the
// first touch of the memory for so many cells.
bool ReadsTwice(const RawDecodeState& state) {
    return state.shrinkShift == 1 && state.loader->rowBytes != nullptr && !NeedsAllCells(state);
}

bool PaintTwiceRead(RawDecodeState& state, BitmapPainter& painter) {
    if (!Load(state, CellUse::kCount)) return false;
    state.scratch.Clear();
    return painter.Start(state) && Load(state, CellUse::kPaint, &painter);
}

bool PaintImage(RawDecodeState& state, BitmapPainter& painter) {
    if (!LoadImage(state) || !FinishColors(state) || !painter.Start(state)) return false;
    for (std::uint32_t row = 0; row < state.outputHeight; ++row)
        painter.Paint(row, 0, state.image.get() + std::size_t{row} * state.outputWidth,
                      state.outputWidth);
    return true;
}

}  // namespace

bool LoadCells(RawDecodeState& state, std::uint32_t shrinkLevel) {
    return Prepare(state, shrinkLevel) && LoadImage(state);
}

std::uint32_t DevelopView(RawDecodeState& state, IStream* stream, std::uint32_t shrinkLevel) {
    BitmapPainter painter;
    const PageGuard guard = {state.file.data, state.file.size};
    const auto paint = [&] {
        if (!Prepare(state, shrinkLevel)) return false;
        return ReadsTwice(state) ? PaintTwiceRead(state, painter) : PaintImage(state, painter);
    };
    const bool painted = RunGuarded(guard, paint) != 0;
    if (state.scratch.RanShort()) state.error = E_OUTOFMEMORY;
    state.image.reset();
    state.scratch.Clear();
    // The stream's code comes after the last read of the file.
    if (painted) WriteBitmap(painter.Layout(), state.bitmap.get(), stream);
    state.bitmap.reset();
    return painted ? 1 : 0;
}

std::uint32_t RunRawPipeline(RawDecodeState& state, const wchar_t* path, IStream* stream,
                             std::uint32_t shrinkLevel) {
    ParseContext mapping;
    const MappedFile file(mapping, path);
    if (!file) return 0;
    state.file.data = mapping.viewBase;
    state.file.size = static_cast<std::uint64_t>(mapping.fileSize);
    const std::uint32_t written = DevelopView(state, stream, shrinkLevel);
    state.file = {};
    return written;
}

}  // namespace qmx
