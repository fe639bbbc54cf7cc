#pragma once
// What Canon's MakerNote, and the heap of a CRW file, tell about a picture.  Tags and arrays are
// those that the public tag lists of Canon's notes describe; words stand as the file has them.

#include <cstdint>

#include "makernote/canon_ev.h"  // the unit of the exposure words below
#include "parse/core/image_info.h"

namespace qmx {

struct CanonMakerFields {
    // Camera settings, tag 0x0001.
    std::int32_t macroMode = INT_UNSET;
    std::int32_t selfTimer = INT_UNSET;  // 1/10 s in the low 12 bits
    std::int32_t quality = INT_UNSET;
    std::int32_t flashMode = INT_UNSET;
    std::int32_t driveMode = INT_UNSET;
    std::int32_t focusMode = INT_UNSET;
    std::int32_t imageSize = INT_UNSET;
    std::int32_t easyMode = INT_UNSET;
    std::int32_t digitalZoom = INT_UNSET;
    std::int32_t contrast = INT_UNSET;
    std::int32_t saturation = INT_UNSET;
    std::int32_t sharpness = INT_UNSET;
    std::int32_t isoCode = INT_UNSET;  // with kCanonIsoNumber: the speed itself
    std::int32_t meteringMode = INT_UNSET;
    std::int32_t focusRange = INT_UNSET;
    std::int32_t afPoint = INT_UNSET;
    std::int32_t exposureMode = INT_UNSET;
    std::int32_t maxFocalLength = INT_UNSET;  // 1 / focalUnits mm; signed, the file means unsigned
    std::int32_t minFocalLength = INT_UNSET;
    std::int32_t focalUnits = INT_UNSET;  // per mm
    float maxAperture = FLOAT_UNSET;      // f-number
    float minAperture = FLOAT_UNSET;
    std::int32_t flashActivity = INT_UNSET;
    std::int32_t focusContinuous = INT_UNSET;
    std::int32_t aeSetting = INT_UNSET;
    std::int32_t imageStabilization = INT_UNSET;
    std::int32_t photoEffect = INT_UNSET;
    std::int32_t colorTone = INT_UNSET;
    // Focal length, tag 0x0002.
    std::int32_t focalType = INT_UNSET;
    std::int32_t focalLength = INT_UNSET;     // 1 / focalUnits mm
    std::int32_t focalPlaneSize = INT_UNSET;  // 1/1000 inch
    // Shot information, tag 0x0004.
    std::int32_t baseIso = INT_UNSET;
    float targetAperture = FLOAT_UNSET;             // f-number
    float targetExposureTime = FLOAT_UNSET;         // seconds
    std::int32_t exposureCompensation = INT_UNSET;  // 1/32 EV
    std::int32_t whiteBalance = INT_UNSET;
    std::int32_t slowShutter = INT_UNSET;
    std::int32_t sequenceNumber = INT_UNSET;
    std::int32_t flashGuideNumber = INT_UNSET;   // 1/32
    std::int32_t flashExposureComp = INT_UNSET;  // 1/32 EV
    std::int32_t autoExposureBracketing = INT_UNSET;
    std::int32_t aebBracketValue = INT_UNSET;     // 1/32 EV
    std::int32_t focusDistanceUpper = INT_UNSET;  // cm; signed, the file means unsigned
    std::int32_t focusDistanceLower = INT_UNSET;
    std::int32_t bulbDuration = INT_UNSET;  // 1/10 s
    std::int32_t cameraType = INT_UNSET;
    std::int32_t autoRotate = INT_UNSET;
    std::int32_t ndFilter = INT_UNSET;
    std::int32_t selfTimer2 = INT_UNSET;  // 1/10 s
    // Panorama, tag 0x0005.
    std::int32_t panoramaFrameNumber = INT_UNSET;
    std::int32_t panoramaDirection = INT_UNSET;
    char imageType[40] = {};
    char firmwareVersion[40] = {};
    std::int32_t fileNumber = INT_UNSET;  // folder * 10000 + file
    char ownerName[40] = {};
    std::int32_t serialNumber = INT_UNSET;     // the bits of an unsigned number
    std::int32_t cameraInfoByte7 = INT_UNSET;  // highlight tone priority
    std::int32_t lensType = INT_UNSET;
    std::int32_t cameraInfoA = INT_UNSET;    // high-ISO noise reduction
    std::int32_t cameraInfoB = INT_UNSET;    // auto lighting optimizer
    std::int32_t afValidPoints = INT_UNSET;  // AF word 2; newer bodies keep the image width there
    std::int32_t tag1DWords[6] = {INT_UNSET, INT_UNSET, INT_UNSET, INT_UNSET, INT_UNSET, INT_UNSET};
    std::int32_t tag1FWord13 = INT_UNSET;
    std::int32_t fileIndex = INT_UNSET;  // by model: folder * 10000 + file, or the shutter count
    // File information, tag 0x0093, by the place in the array.
    std::int32_t fileInfo3 = INT_UNSET;   // bracket mode
    std::int32_t fileInfo4 = INT_UNSET;   // bracket value
    std::int32_t fileInfo5 = INT_UNSET;   // shot of the bracket
    std::int32_t fileInfo8 = INT_UNSET;   // long-exposure noise reduction
    std::int32_t fileInfo9 = INT_UNSET;   // white-balance bracket
    std::int32_t fileInfo12 = INT_UNSET;  // its amber-blue value
    std::int32_t fileInfo13 = INT_UNSET;  // its green-magenta value
    std::int32_t fileInfo14 = INT_UNSET;  // monochrome filter
    std::int32_t fileInfo15 = INT_UNSET;  // monochrome toning
    char lensModel[64] = {};
    // Processing information, tag 0x00A0, by the place in the array.
    std::int32_t processingInfo1 = INT_UNSET;   // tone curve
    std::int32_t processingInfo2 = INT_UNSET;   // sharpness
    std::int32_t processingInfo3 = INT_UNSET;   // sharpness frequency
    std::int32_t processingInfo9 = INT_UNSET;   // colour temperature, K
    std::int32_t processingInfo10 = INT_UNSET;  // picture style
    std::int32_t processingInfo11 = INT_UNSET;  // digital gain, tenths
    std::int32_t processingInfo12 = INT_UNSET;  // white-balance shift, amber-blue
    std::int32_t processingInfo13 = INT_UNSET;  // white-balance shift, green-magenta
    std::int32_t colorSpace = INT_UNSET;
    std::int32_t afPointsInFocus = INT_UNSET;
    // Only in the heap of a CRW file.
    std::int32_t canonColorTemperature = INT_UNSET;  // K
    std::int32_t canonImageWidth = INT_UNSET;
    std::int32_t canonImageHeight = INT_UNSET;
};
static_assert(sizeof(CanonMakerFields) == 536);

// A bit of `isoCode`.
inline constexpr std::int32_t kCanonIsoNumber = 0x4000;

// The model ids (makernote/model_identity.h) from which on rules of Canon's notes change.
inline constexpr std::int32_t kCanonFirstEos = 4097;
inline constexpr std::int32_t kCanonFirstShutterCount = 4104;
inline constexpr std::int32_t kCanonFirstPictureStyle = 4108;

// Bodies whose AF word 26 holds the nine points in focus as bits.
constexpr bool HasCanonPointBits(std::int32_t modelId) {
    return modelId == 4102 || (modelId >= 4108 && modelId <= 4111) ||
           (modelId >= 4120 && modelId <= 4122);
}

// Bodies that spread folder and file over the bits of `fileIndex` as the 30D does.
constexpr bool HasCanon30DFileIndex(std::int32_t modelId) {
    return modelId == 4108 || modelId == 4109 || modelId == 4111 || modelId == 4120 ||
           modelId == 4121;
}

}  // namespace qmx
