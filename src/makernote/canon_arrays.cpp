#include "makernote/canon_arrays.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "makernote/canon_fields.h"
#include "makernote/maker_record.h"
#include "parse/core/cursor.h"

namespace qmx {
namespace {

using Fields = CanonMakerFields;

// What to do with one element of an array.
struct WordRow {
    std::uint32_t index;
    void (*store)(ImageInfo& info, Fields& fields, std::int32_t word);
};

enum class Words { kSigned, kUnsigned };

// In a signed array: the camera has no value for this element.
constexpr std::uint16_t kNoValue = 0x7FFF;

// Hands the elements that have a row, ascending, to it.
template <Words Kind, std::size_t Size>
void ReadWords(ParseContext& ctx, std::uint32_t count, const WordRow (&rows)[Size]) {
    auto& fields = MakerRecord<Fields>(ctx.info);
    SpendWork(ctx, 2 * std::min(count, rows[Size - 1].index + 1));
    std::uint32_t index = 0;
    for (const WordRow& row : rows) {
        if (row.index >= count) return;
        std::uint16_t word = 0;
        for (; index <= row.index; ++index) word = ReadU16(ctx);
        if (Kind == Words::kUnsigned) {
            row.store(ctx.info, fields, word);
        } else if (word != kNoValue) {
            row.store(ctx.info, fields, static_cast<std::int16_t>(word));
        }
    }
}

template <std::size_t Size>
constexpr bool IndexesAscend(const WordRow (&rows)[Size]) {
    for (std::size_t i = 1; i < Size; ++i)
        if (rows[i - 1].index >= rows[i].index) return false;
    return true;
}

template <auto Field>
void Store(ImageInfo&, Fields& fields, std::int32_t word) {
    fields.*Field = word;
}

template <auto Field>
void StoreIfNotNegative(ImageInfo&, Fields& fields, std::int32_t word) {
    if (word >= 0) fields.*Field = word;
}

template <auto Field>
void StoreIfPositive(ImageInfo&, Fields& fields, std::int32_t word) {
    if (word > 0) fields.*Field = word;
}

// An APEX aperture in 1/32 EV as an f-number.
template <auto Field>
void StoreFNumber(ImageInfo&, Fields& fields, std::int32_t word) {
    fields.*Field = ToField(std::exp2(word * 0.015625));
}

template <auto Field>
void StoreFNumberIfNotNegative(ImageInfo& info, Fields& fields, std::int32_t word) {
    if (word >= 0) StoreFNumber<Field>(info, fields, word);
}

// The speed that a code of the camera stands for.  Negative codes are words that are not there.
std::int32_t IsoFromCode(std::int32_t code) {
    switch (code) {
        case 14:
        case 15: return 0;
        case 16: return 50;
        case 17: return 100;
        case 18: return 200;
        case 19: return 400;
        default: return code >= kCanonIsoNumber ? code - kCanonIsoNumber : INT_UNSET;
    }
}

void StoreIsoCode(ImageInfo& info, Fields& fields, std::int32_t word) {
    fields.isoCode = word;
    if (!IsSet(info.isoSpeed)) info.isoSpeed = IsoFromCode(word);
}

// Canon's program, time, aperture and manual modes, 1 to 4, as Exif counts them.
void StoreExposureMode(ImageInfo& info, Fields& fields, std::int32_t word) {
    constexpr std::int32_t kExifPrograms[] = {2, 4, 3, 1};
    fields.exposureMode = word;
    if (!IsSet(info.exposureProgram) && word >= 1 && word <= 4) {
        info.exposureProgram = kExifPrograms[word - 1];
    }
}

// Compacts keep something else there.
void StoreLensType(ImageInfo& info, Fields& fields, std::int32_t word) {
    if (word >= 1 && info.modelId >= kCanonFirstEos) fields.lensType = word;
}

void StoreBaseIso(ImageInfo&, Fields& fields, std::int32_t word) {
    fields.baseIso = TruncateToI32(std::exp2(double{CanonEv(word)}) * 100.0 * 0.03125);
}

void StoreTargetExposureTime(ImageInfo&, Fields& fields, std::int32_t word) {
    fields.targetExposureTime = ToField(std::exp2(word * -0.03125));
}

void StoreExposureCompensation(ImageInfo& info, Fields& fields, std::int32_t word) {
    fields.exposureCompensation = word;
    if (!IsSet(info.exposureBias)) info.exposureBias = CanonEv(word);
}

void StorePointsOfShot(ImageInfo&, Fields& fields, std::int32_t word) {
    if (word != 0) fields.afPointsInFocus = word;
}

// Deliberate: the low byte is dropped; a high byte of ones says nothing.
void StoreHighPoints(ImageInfo&, Fields& fields, std::int32_t word) {
    const std::int32_t high = word & 0xFF00;
    if (high != 0xFF00) fields.afPointsInFocus = high;
}

void StorePointBits(ImageInfo& info, Fields& fields, std::int32_t word) {
    if (HasCanonPointBits(info.modelId)) fields.afPointsInFocus = word;
}

template <std::size_t Element>
void StoreTag1D(ImageInfo&, Fields& fields, std::int32_t word) {
    fields.tag1DWords[Element] = word;
}

constexpr WordRow kCameraSettings[] = {
    {1, Store<&Fields::macroMode>},
    {2, Store<&Fields::selfTimer>},
    {3, Store<&Fields::quality>},
    {4, Store<&Fields::flashMode>},
    {5, Store<&Fields::driveMode>},
    {7, Store<&Fields::focusMode>},
    {10, Store<&Fields::imageSize>},
    {11, Store<&Fields::easyMode>},
    {12, Store<&Fields::digitalZoom>},
    {13, Store<&Fields::contrast>},
    {14, Store<&Fields::saturation>},
    {15, Store<&Fields::sharpness>},
    {16, StoreIsoCode},
    {17, Store<&Fields::meteringMode>},
    {18, Store<&Fields::focusRange>},
    {19, Store<&Fields::afPoint>},
    {20, StoreExposureMode},
    {22, StoreLensType},
    {23, Store<&Fields::maxFocalLength>},
    {24, Store<&Fields::minFocalLength>},
    {25, Store<&Fields::focalUnits>},
    {26, StoreFNumberIfNotNegative<&Fields::maxAperture>},
    {27, StoreFNumberIfNotNegative<&Fields::minAperture>},
    {28, Store<&Fields::flashActivity>},
    {32, StoreIfNotNegative<&Fields::focusContinuous>},
    {33, StoreIfNotNegative<&Fields::aeSetting>},
    {34, StoreIfNotNegative<&Fields::imageStabilization>},
    {40, StoreIfNotNegative<&Fields::photoEffect>},
    {42, Store<&Fields::colorTone>},
};

// The sensor's size across, then the one upwards, which stays.
constexpr WordRow kFocalLength[] = {
    {0, Store<&Fields::focalType>},
    {1, Store<&Fields::focalLength>},
    {2, Store<&Fields::focalPlaneSize>},
    {3, Store<&Fields::focalPlaneSize>},
};

constexpr WordRow kShotInfo[] = {
    {2, StoreBaseIso},
    {4, StoreFNumber<&Fields::targetAperture>},
    {5, StoreTargetExposureTime},
    {6, StoreExposureCompensation},
    {7, Store<&Fields::whiteBalance>},
    {8, Store<&Fields::slowShutter>},
    {9, Store<&Fields::sequenceNumber>},
    {13, StoreIfPositive<&Fields::flashGuideNumber>},
    {14, StorePointsOfShot},
    {15, Store<&Fields::flashExposureComp>},
    {16, Store<&Fields::autoExposureBracketing>},
    {17, Store<&Fields::aebBracketValue>},
    {19, Store<&Fields::focusDistanceUpper>},
    {20, Store<&Fields::focusDistanceLower>},
    {24, Store<&Fields::bulbDuration>},
    {26, Store<&Fields::cameraType>},
    {27, Store<&Fields::autoRotate>},
    {28, StoreIfNotNegative<&Fields::ndFilter>},
    {29, Store<&Fields::selfTimer2>},
};

constexpr WordRow kPanorama[] = {
    {2, Store<&Fields::panoramaFrameNumber>},
    {5, Store<&Fields::panoramaDirection>},
};

constexpr WordRow kAfInfo[] = {
    {2, Store<&Fields::afValidPoints>},
    {22, StoreHighPoints},
    {26, StorePointBits},
};

constexpr WordRow kTag1D[] = {
    {0, StoreTag1D<0>}, {1, StoreTag1D<1>}, {2, StoreTag1D<2>},
    {3, StoreTag1D<3>}, {4, StoreTag1D<4>}, {5, StoreTag1D<5>},
};

constexpr WordRow kTag1F[] = {
    {13, Store<&Fields::tag1FWord13>},
};

constexpr WordRow kFileInfo[] = {
    {3, Store<&Fields::fileInfo3>},   {4, Store<&Fields::fileInfo4>},
    {5, Store<&Fields::fileInfo5>},   {8, Store<&Fields::fileInfo8>},
    {9, Store<&Fields::fileInfo9>},   {12, Store<&Fields::fileInfo12>},
    {13, Store<&Fields::fileInfo13>}, {14, Store<&Fields::fileInfo14>},
    {15, Store<&Fields::fileInfo15>},
};

constexpr WordRow kProcessingInfo[] = {
    {1, Store<&Fields::processingInfo1>},   {2, Store<&Fields::processingInfo2>},
    {3, Store<&Fields::processingInfo3>},   {8, StoreIfNotNegative<&Fields::whiteBalance>},
    {9, Store<&Fields::processingInfo9>},   {10, Store<&Fields::processingInfo10>},
    {11, Store<&Fields::processingInfo11>}, {12, Store<&Fields::processingInfo12>},
    {13, Store<&Fields::processingInfo13>},
};

static_assert(IndexesAscend(kCameraSettings) && IndexesAscend(kFocalLength) &&
              IndexesAscend(kShotInfo) && IndexesAscend(kPanorama) && IndexesAscend(kAfInfo) &&
              IndexesAscend(kTag1D) && IndexesAscend(kFileInfo) && IndexesAscend(kProcessingInfo));

// The file number that the 30D and its relatives spread over the two words.  They drop folder
// bits, so the folder is the first one from 100 up that has the others.
std::int32_t FileIndexOf30D(std::uint32_t words) {
    std::uint32_t folder = words >> 10 & 0x3FF;
    do {
        folder += 64;
    } while (folder < 100);
    const std::uint32_t file = (words & 0x3FF) * 16 + (words >> 20 & 0xF);
    return static_cast<std::int32_t>(folder * 10000 + file);
}

// The file number of the bodies before the 1D.
std::int32_t FileIndexOf20D(std::uint32_t words) {
    const std::uint32_t file = (words >> 16 & 0xFF) + (words & 0x3F) * 256;
    return static_cast<std::int32_t>((words >> 6 & 0x3FF) * 10000 + file);
}

// Words 1 and 2: what they count, and which of them comes first, is up to the model.
void StoreFileIndex(ParseContext& ctx, std::uint16_t first, std::uint16_t second) {
    const std::int32_t modelId = ctx.info.modelId;
    const std::uint32_t highFirst = std::uint32_t{first} << 16 | second;
    const std::uint32_t lowFirst = std::uint32_t{second} << 16 | first;
    const std::uint32_t words = ctx.byteOrder == kLittleEndian ? lowFirst : highFirst;
    std::int32_t& fileIndex = MakerRecord<Fields>(ctx.info).fileIndex;
    if (HasCanon30DFileIndex(modelId)) {
        fileIndex = FileIndexOf30D(words);
    } else if (modelId >= kCanonFirstShutterCount) {
        fileIndex = static_cast<std::int32_t>(highFirst);
    } else if (modelId >= kCanonFirstEos && first != 0 && second != 0) {
        fileIndex = FileIndexOf20D(words);
    }
}

// Where the camera-information bytes of a model stand.
struct CameraInfoPlaces {
    std::int32_t modelId;
    std::uint8_t tonePriority;
    std::uint8_t noiseReduction;
    std::uint8_t lightingOptimizer;
};

constexpr CameraInfoPlaces kCameraInfoPlaces[] = {
    {4110, 7, 187, 190},
    {4122, 7, 189, 191},
    {4126, 7, 189, 191},
};
constexpr std::size_t kCameraInfoBytes = 192;  // up to the last of those places

}  // namespace

void DecodeCanonCameraSettings(ParseContext& ctx, std::uint32_t count) {
    ReadWords<Words::kSigned>(ctx, count, kCameraSettings);
}

void DecodeCanonFocalLength(ParseContext& ctx, std::uint32_t count) {
    ReadWords<Words::kSigned>(ctx, count, kFocalLength);
}

void DecodeCanonShotInfo(ParseContext& ctx, std::uint32_t count) {
    ReadWords<Words::kSigned>(ctx, count, kShotInfo);
}

void DecodeCanonPanorama(ParseContext& ctx, std::uint32_t count) {
    ReadWords<Words::kUnsigned>(ctx, count, kPanorama);
}

void DecodeCanonAfInfo(ParseContext& ctx, std::uint32_t count) {
    ReadWords<Words::kUnsigned>(ctx, count, kAfInfo);
}

void DecodeCanonTag1D(ParseContext& ctx, std::uint32_t count) {
    ReadWords<Words::kUnsigned>(ctx, count, kTag1D);
}

void DecodeCanonTag1F(ParseContext& ctx, std::uint32_t count) {
    ReadWords<Words::kUnsigned>(ctx, count, kTag1F);
}

void DecodeCanonFileInfo(ParseContext& ctx, std::uint32_t count) {
    if (count >= 3) {
        const CursorScope restoreCursor(ctx);
        ReadU16(ctx);
        const std::uint16_t first = ReadU16(ctx);
        StoreFileIndex(ctx, first, ReadU16(ctx));
    }
    ReadWords<Words::kUnsigned>(ctx, count, kFileInfo);
}

void DecodeCanonProcessingInfo(ParseContext& ctx, std::uint32_t count) {
    ReadWords<Words::kSigned>(ctx, count, kProcessingInfo);
}

void DecodeCanonCameraInfo(ParseContext& ctx, std::uint32_t count) {
    const auto* places =
        std::find_if(std::begin(kCameraInfoPlaces), std::end(kCameraInfoPlaces),
                     [&](const CameraInfoPlaces& row) { return row.modelId == ctx.info.modelId; });
    if (places == std::end(kCameraInfoPlaces)) return;
    SpendWork(ctx, kCameraInfoBytes);
    std::uint8_t bytes[kCameraInfoBytes];
    const std::size_t read = ReadBytes(ctx, bytes, std::min<std::size_t>(count, sizeof bytes));
    auto& fields = MakerRecord<Fields>(ctx.info);
    const auto store = [&](std::int32_t& field, std::uint8_t place) {
        if (place < read) field = bytes[place];
    };
    store(fields.cameraInfoByte7, places->tonePriority);
    store(fields.cameraInfoA, places->noiseReduction);
    store(fields.cameraInfoB, places->lightingOptimizer);
}

}  // namespace qmx
