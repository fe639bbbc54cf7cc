#pragma once
// What Minolta's MakerNote tells about a picture, by the names of the public tag lists.  Codes
// stand as the file has them; fields ending in a model's name have codes of their own there.

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

struct MinoltaMakerFields {
    std::int32_t minoltaSceneMode = INT_UNSET;
    std::int32_t minoltaSubjectProgram = INT_UNSET;
    std::int32_t minoltaExposureMode = INT_UNSET;
    std::int32_t minoltaImageSize = INT_UNSET;
    std::int32_t minoltaImageSizeTag = INT_UNSET;  // tag 0x0103, with codes of its own
    std::int32_t minoltaImageSize7D = INT_UNSET;
    std::int32_t minoltaQuality = INT_UNSET;
    std::int32_t minoltaQuality7D = INT_UNSET;
    std::int32_t minoltaRawJpeg = INT_UNSET;
    std::int32_t minoltaWhiteBalance = INT_UNSET;  // see MinoltaTagWhiteBalance
    std::int32_t minoltaWbFineTune = INT_UNSET;
    std::int32_t minoltaColorTemp = INT_UNSET;    // K, 0 not given
    std::int32_t minoltaColorFilter = INT_UNSET;  // step
    std::int32_t minoltaMetering = INT_UNSET;
    float minoltaExposureComp = FLOAT_UNSET;  // EV
    std::int32_t minoltaBracketStep = INT_UNSET;
    std::int32_t minoltaIsoSetting = INT_UNSET;
    std::int32_t minoltaIsoSetting7D = INT_UNSET;
    std::int32_t minoltaFlashMode = INT_UNSET;
    std::int32_t minoltaFlashMode7D = INT_UNSET;
    std::int32_t minoltaFlashFired = INT_UNSET;
    std::int32_t minoltaInternalFlash = INT_UNSET;
    std::int32_t minoltaFlashMetering = INT_UNSET;
    float minoltaFlashComp = FLOAT_UNSET;  // EV
    std::int32_t minoltaDriveMode = INT_UNSET;
    std::int32_t minoltaDriveModeA100 = INT_UNSET;
    std::int32_t minoltaIntervalNumber = INT_UNSET;
    std::int32_t minoltaIntervalLength = INT_UNSET;  // minutes
    std::int32_t minoltaFocusMode = INT_UNSET;
    std::int32_t minoltaFocusMode7D = INT_UNSET;
    std::int32_t minoltaFocusModeA100 = INT_UNSET;
    std::int32_t minoltaFocusArea = INT_UNSET;
    std::int32_t minoltaFocusZone = INT_UNSET;
    std::int32_t minoltaAfPoints7D = INT_UNSET;  // bits
    std::int32_t minoltaMacro = INT_UNSET;
    std::int32_t minoltaFocusDistance = INT_UNSET;  // mm, 0 infinite
    std::int32_t minoltaSharpness = INT_UNSET;
    std::int32_t minoltaSharpnessStep = INT_UNSET;
    std::int32_t minoltaContrast = INT_UNSET;    // step
    std::int32_t minoltaSaturation = INT_UNSET;  // step
    std::int32_t minoltaHue = INT_UNSET;         // step
    std::int32_t minoltaColorMode = INT_UNSET;
    std::int32_t minoltaColorSpace7D = INT_UNSET;
    std::int32_t minoltaColorSpace5D = INT_UNSET;
    std::int32_t minoltaPictureFinish = INT_UNSET;
    std::int32_t minoltaColorProfile = INT_UNSET;
    std::int32_t minoltaDigitalZoom = INT_UNSET;
    std::int32_t minoltaZoneMatching = INT_UNSET;
    std::int32_t minoltaZoneMatchingOn = INT_UNSET;
    std::int32_t minoltaNoiseReduction = INT_UNSET;
    std::int32_t minoltaStabilizer = INT_UNSET;
    std::int32_t minoltaStabilizer2 = INT_UNSET;
    std::int32_t minoltaStabilizer3 = INT_UNSET;
    std::int32_t minoltaLensId = INT_UNSET;  // A-mount
    std::int32_t minoltaTeleconverter = INT_UNSET;
    std::int32_t minoltaDataImprint = INT_UNSET;
    std::int32_t minoltaLastFileNumber = INT_UNSET;
    std::int32_t minoltaImageNumber = INT_UNSET;
};
static_assert(sizeof(MinoltaMakerFields) == 232);

// The model ids (makernote/model_identity.h) that rules of Minolta's notes single out.
inline constexpr std::int32_t kMinolta7Hi = 262;
inline constexpr std::int32_t kMinoltaA1 = 263;
inline constexpr std::int32_t kMinoltaA2 = 264;
inline constexpr std::int32_t kMinoltaA200 = 266;
inline constexpr std::int32_t kMinoltaX1 = 513;
inline constexpr std::int32_t kMinolta5D = 4097;
inline constexpr std::int32_t kMinolta7D = 4098;

}  // namespace qmx
