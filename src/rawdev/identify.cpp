#include "rawdev/identify.h"

#include <charconv>
#include <cstring>
#include <string_view>

#include "rawdev/camera_rules.h"
#include "rawdev/color_matrix.h"
#include "rawdev/levels.h"
#include "rawdev/loaders.h"
#include "rawdev/raw_tags.h"

namespace qmx {
namespace {

constexpr std::uint32_t kLargestSide = 0xFFFF;
constexpr std::uint32_t kSmallestHeight = 22;
constexpr std::uint32_t kDefaultPattern = 0x94949494;  // R G / G B

constexpr std::uint32_t kPhotometricYCbCr = 6;
constexpr std::uint32_t kReducedImage = 1;  // bit of the new subfile type

enum Compression : std::uint32_t {
    kOldUncompressed = 0,
    kUncompressed = 1,
    kOldJpeg = 6,
    kJpeg = 7,
    kJpeg99 = 99,
    kEpson = 32769,
    kPacked = 32773,
};

bool ReadByteOrder(FileView& file) {
    if (file.size < 2 || file.data[0] != file.data[1]) return false;
    file.bigEndian = file.data[0] == 'M';
    return file.bigEndian || file.data[0] == 'I';
}

// The largest image that is no preview; null when there is none.
const RawIfd* FindRawIfd(const RawTags& tags, bool isDng) {
    const RawIfd* best = nullptr;
    std::uint64_t bestArea = 0;
    for (std::uint32_t i = 0; i < tags.ifdCount; ++i) {
        const RawIfd& ifd = tags.ifds[i];
        const std::uint64_t area = std::uint64_t{ifd.width} * ifd.height;
        if (ifd.photometric == kPhotometricYCbCr && ifd.samplesPerPixel == 3) continue;
        if (isDng && (ifd.subfileType & kReducedImage) != 0) continue;
        if (area <= bestArea) continue;
        best = &ifd;
        bestArea = area;
    }
    return best;
}

const Loader* ChooseDngLoader(const RawIfd& ifd) {
    if (ifd.bitsPerSample < 8 || ifd.bitsPerSample > 16) return nullptr;
    if (ifd.compression == kUncompressed) return &kDngUncompressed;
    return ifd.compression == kJpeg ? &kDngLosslessJpeg : nullptr;
}

// Ten samples in 16 bytes for the whole picture.
bool IsPadded(const FileView& file, const RawIfd& ifd) {
    const std::uint64_t stripBytes = ReadUnsigned(file, ifd.byteCounts, 0);
    return stripBytes != 0 && stripBytes * 5 == std::uint64_t{ifd.width} * ifd.height * 8;
}

const Loader* ChooseUncompressedLoader(const FileView& file, const RawIfd& ifd) {
    const Loader* loader = nullptr;
    switch (ifd.bitsPerSample) {
        case 8: loader = &kEightBit; break;
        case 12: loader = &kPacked12; break;
        case 14:
        case 16: loader = &kUnpacked16; break;
        default: return nullptr;
    }
    return IsPadded(file, ifd) ? &kPadded12 : loader;
}

// By the raw directory's own depth: 0 where the file gives none.  False for a compression that is
// not known, whatever a camera's rules would make of the file; null where they may still choose.
bool ChooseLoader(const FileView& file, const RawIfd& ifd, const Loader*& loader) {
    switch (ifd.compression) {
        case kOldUncompressed:
        case kUncompressed: loader = ChooseUncompressedLoader(file, ifd); return true;
        case kOldJpeg:
        case kJpeg:
        case kJpeg99: loader = &kLosslessJpeg; return true;
        case kEpson: loader = &kEpson12; return true;
        case kPacked: loader = &kPacked12; return true;
        default: return false;
    }
}

// Patterns that repeat within 8 rows and 2 columns and name red, green and blue.
std::uint32_t ReadCfaPattern(const FileView& file, const RawIfd& ifd) {
    std::uint32_t rows = 2;
    std::uint32_t columns = 2;
    if (ifd.cfaRepeat.count >= 2) {
        rows = ReadUnsigned(file, ifd.cfaRepeat, 0);
        columns = ReadUnsigned(file, ifd.cfaRepeat, 1);
    }
    const bool fits = (rows == 1 || rows == 2 || rows == 4 || rows == 8) &&
                      (columns == 1 || columns == 2) && ifd.cfaPattern.count >= rows * columns;
    if (!fits) return kCfaUnset;
    std::uint32_t pattern = 0;
    for (std::uint32_t row = 0; row < 8; ++row) {
        for (std::uint32_t column = 0; column < 2; ++column) {
            const std::uint32_t color =
                ReadUnsigned(file, ifd.cfaPattern, row % rows * columns + column % columns);
            if (color > 2) return kCfaUnset;
            pattern |= color << (4 * row + 2 * column);
        }
    }
    return pattern == 0 ? kCfaUnset : pattern;
}

// The second green of each 2 x 2 block becomes color 3: nibbles 9 (G B) and 6 (B G).
std::uint32_t SplitGreens(std::uint32_t pattern) {
    for (std::uint32_t shift = 0; shift < 32; shift += 4) {
        const std::uint32_t nibble = pattern >> shift & 15;
        if (nibble == 9) pattern |= std::uint32_t{2} << shift;
        if (nibble == 6) pattern |= std::uint32_t{8} << shift;
    }
    return pattern;
}

void TakeActiveArea(RawDecodeState& state) {
    const TagValues& area = state.ifd.activeArea;
    if (area.count != 4) return;
    const std::uint32_t top = ReadUnsigned(state.file, area, 0);
    const std::uint32_t left = ReadUnsigned(state.file, area, 1);
    const std::uint32_t bottom = ReadUnsigned(state.file, area, 2);
    const std::uint32_t right = ReadUnsigned(state.file, area, 3);
    if (top >= bottom || bottom > state.rawHeight || left >= right || right > state.rawWidth)
        return;
    state.topMargin = static_cast<std::uint16_t>(top);
    state.leftMargin = static_cast<std::uint16_t>(left);
    state.height = static_cast<std::uint16_t>(bottom - top);
    state.width = static_cast<std::uint16_t>(right - left);
}

// How much wider than high a DNG says its pixels are.
void TakePixelAspect(RawDecodeState& state) {
    const double across = ReadNumber(state.file, state.ifd.defaultScale, 0);
    const double down = ReadNumber(state.file, state.ifd.defaultScale, 1);
    if (across > 0 && down > 0) state.pixelAspect = across / down;
}

// Takes size, depth, loader and pattern from the raw directory.  False for sizes that no camera
// has and for compressions that are not known.
bool TakeRawIfd(RawDecodeState& state, const RawIfd& ifd) {
    if (ifd.width > kLargestSide || ifd.height > kLargestSide) return false;
    state.ifd = ifd;
    state.rawWidth = state.width = static_cast<std::uint16_t>(ifd.width);
    state.rawHeight = state.height = static_cast<std::uint16_t>(ifd.height);
    state.dataOffset = ReadUnsigned(state.file, ifd.offsets, 0);
    state.samplesPerPixel = ifd.samplesPerPixel == 0 ? 1 : ifd.samplesPerPixel;
    if (ifd.bitsPerSample != 0) state.bitsPerSample = ifd.bitsPerSample;
    // Samples of one colour after the other are no layout of raw data.
    const bool separate = ifd.planarConfig == 2 && state.samplesPerPixel > 1;
    const bool known = state.samplesPerPixel == 1 || state.samplesPerPixel == 3;
    if (separate || !known) return false;
    if (state.isDng) {
        state.loader = ChooseDngLoader(ifd);
    } else if (!ChooseLoader(state.file, ifd, state.loader)) {
        return false;
    }
    state.cfaPattern = ReadCfaPattern(state.file, ifd);
    if (state.isDng) TakeActiveArea(state);
    if (state.isDng) TakePixelAspect(state);
    return true;
}

void TakeFlip(RawDecodeState& state, const RawTags& tags) {
    if (state.flip < 0) state.flip = state.ifd.flip;
    // A raw image below the first directory is oriented as that one says.
    for (std::uint32_t i = 0; i < tags.ifdCount && state.flip < 0; ++i)
        state.flip = tags.ifds[i].flip;
    if (state.flip < 0) state.flip = 0;
}

// "ACME ACME One" reads "ACME", "One".
void DropMakeFromModel(RawDecodeState& state) {
    const std::string_view make = state.makeText;
    const std::string_view model = state.modelText;
    if (make.empty() || !model.starts_with(make) || model.size() <= make.size() ||
        model[make.size()] != ' ')
        return;
    const std::size_t dropped = make.size() + 1;
    std::memmove(state.modelText, state.modelText + dropped, model.size() - dropped + 1);
}

// What these bodies say in tags of their own.
void TakePanasonicTags(RawDecodeState& state, const RawTags& tags) {
    constexpr std::uint32_t kElsewhere = 0xFFFFFFFF;
    constexpr std::uint32_t kSplitBlocks = 4;  // a raw format
    const std::string_view make = state.makeText;
    if (state.isDng || (make != "Panasonic" && make != "LEICA")) return;
    const FileView& file = state.file;
    if (state.shot.isoSpeed == 0)
        state.shot.isoSpeed = static_cast<float>(ReadUnsigned(file, tags.panasonicIso, 0));
    if (tags.panasonicData.count == 0) return;
    if (state.dataOffset == 0 || state.dataOffset == kElsewhere)
        state.dataOffset = ReadUnsigned(file, tags.panasonicData, 0);
    state.splitBlocks = ReadUnsigned(file, tags.panasonicFormat, 0) == kSplitBlocks;
}

void TakePattern(RawDecodeState& state) {
    if (state.samplesPerPixel == 3) {
        state.cfaPattern = 0;
        return;
    }
    if (state.cfaPattern == kCfaUnset) state.cfaPattern = kDefaultPattern;
    if (state.colorCount == 3) state.cfaPattern = SplitGreens(state.cfaPattern);
}

// A camera without a name: "3008x2000".
void NameBySize(RawDecodeState& state) {
    char* const end = std::end(state.modelText);
    char* x = std::to_chars(state.modelText, end, state.width).ptr;
    *x++ = 'x';
    *std::to_chars(x, end, state.height).ptr = 0;
}

}  // namespace

bool IdentifyRaw(RawDecodeState& state) {
    if (!ReadByteOrder(state.file)) return false;
    RawTags tags;
    ReadRawTags(state, tags);
    if (tags.isProcessed) return false;
    DropMakeFromModel(state);

    state.isDng = tags.color.dngVersion.count != 0;
    state.dngMajor = ReadUnsigned(state.file, tags.color.dngVersion, 0);
    state.dngMinor = ReadUnsigned(state.file, tags.color.dngVersion, 1);
    const RawIfd* ifd = FindRawIfd(tags, state.isDng);
    if (ifd != nullptr && !TakeRawIfd(state, *ifd)) return false;
    TakePanasonicTags(state, tags);
    ApplyCameraRules(state);
    ReadColorTags(state, tags.color);
    if (state.modelText[0] == 0) NameBySize(state);
    if (state.rawColor) SetMatrixByName(state, state.makeText, state.modelText);
    if (state.loader == nullptr || state.height < kSmallestHeight || state.width == 0) return false;
    TakeLevels(state);
    TakePattern(state);
    TakeFlip(state, tags);
    return true;
}

}  // namespace qmx
