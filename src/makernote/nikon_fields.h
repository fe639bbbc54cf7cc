#pragma once
// What Nikon's MakerNote tells about a picture, by the names of the public tag lists.  Texts stand
// without the blanks that the cameras fill them up with.

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

// Steps of a Picture Control, in quarters, and what the camera may say instead of a step.
inline constexpr std::int32_t kNikonStepQuarters = 4;
inline constexpr std::int32_t kNikonStepAuto = -128 * kNikonStepQuarters;
inline constexpr std::int32_t kNikonStepUser = -127 * kNikonStepQuarters;

struct NikonMakerFields {
    std::uint8_t nikonVersion[4] = {};  // "0210", or a number each; all 0: not given
    char nikonColorMode[12] = {};
    char nikonQuality[12] = {};
    char nikonWhiteBalance[20] = {};
    char nikonSharpening[12] = {};
    char nikonFocusMode[12] = {};
    char nikonFlashSetting[16] = {};
    char nikonFlashType[24] = {};
    char nikonIsoSelection[12] = {};
    char nikonSerialNumber[24] = {};
    char nikonImageAdjustment[20] = {};
    char nikonToneComp[12] = {};
    char nikonAuxiliaryLens[20] = {};
    char nikonColorHue[12] = {};
    char nikonSceneMode[20] = {};
    char nikonLightSource[16] = {};
    char nikonNoiseReduction[8] = {};
    char nikonSceneAssist[24] = {};
    char nikonSerialNumber2[24] = {};
    char nikonImageOptimization[20] = {};
    char nikonSaturation[20] = {};
    char nikonVariProgram[20] = {};
    char nikonVrText[16] = {};
    char nikonAfResponse[12] = {};
    char nikonPictureControlName[24] = {};
    char nikonPictureControlBase[24] = {};
    char nikonLensIdText[20] = {};  // 16 hexadecimal digits: 7 bytes of lens data, the lens type
    char nikonLensText[68] = {};    // the name as Nikon 1 cameras write it

    std::int32_t nikonWbFineTune[2] = {INT_UNSET, INT_UNSET};  // one step, or amber-blue and green
    std::int32_t nikonIsoSetting = INT_UNSET;
    std::int32_t nikonCropHiSpeed = INT_UNSET;
    std::int32_t nikonColorSpace = INT_UNSET;
    std::int32_t nikonVr = INT_UNSET;
    std::int32_t nikonVrMode = INT_UNSET;
    std::int32_t nikonActiveDLighting = INT_UNSET;
    std::int32_t nikonIsoExpansion = INT_UNSET;
    std::int32_t nikonVignetteControl = INT_UNSET;
    std::int32_t nikonAutoDistortion = INT_UNSET;
    std::int32_t nikonShutterMode = INT_UNSET;
    std::int32_t nikonHdr = INT_UNSET;
    std::int32_t nikonHdrLevel = INT_UNSET;
    std::int32_t nikonHdrSmoothing = INT_UNSET;
    std::int32_t nikonMechanicalShutterCount = INT_UNSET;
    std::int32_t nikonLensType = INT_UNSET;  // bit 0 manual focus, 1 D, 2 G, 3 VR
    std::int32_t nikonFlashMode = INT_UNSET;
    std::int32_t nikonAfAreaMode = INT_UNSET;
    std::int32_t nikonAfPoint = INT_UNSET;
    std::int32_t nikonAfPointsInFocus = INT_UNSET;  // a bit per point
    std::int32_t nikonShootingMode = INT_UNSET;     // bits
    std::int32_t nikonHueAdjustment = INT_UNSET;    // degrees
    std::int32_t nikonNefCompression = INT_UNSET;
    std::int32_t nikonSaturationStep = INT_UNSET;
    std::int32_t nikonLensIdNumber = INT_UNSET;
    std::int32_t nikonZLensNumber = INT_UNSET;
    std::int32_t nikonDateStamp = INT_UNSET;
    std::int32_t nikonImageCount = INT_UNSET;
    std::int32_t nikonDeletedImageCount = INT_UNSET;
    std::int32_t nikonShutterCount = INT_UNSET;
    std::int32_t nikonMultiExposureMode = INT_UNSET;
    std::int32_t nikonMultiExposureShots = INT_UNSET;
    std::int32_t nikonHighIsoNr = INT_UNSET;
    std::int32_t nikonAfInfo2Method = INT_UNSET;  // 0 phase detection
    std::int32_t nikonAfAreaMode2 = INT_UNSET;    // its codes depend on the method
    std::int32_t nikonPrimaryAfPoint = INT_UNSET;
    std::int32_t nikonFolderNumber = INT_UNSET;
    std::int32_t nikonFileNumber = INT_UNSET;
    std::int32_t nikonAfTune = INT_UNSET;
    std::int32_t nikonAfTuneStep = INT_UNSET;
    std::int32_t nikonSilent = INT_UNSET;

    std::int32_t nikonPictureControlAdjust = INT_UNSET;
    std::int32_t nikonPictureControlQuick = INT_UNSET;  // steps, from here on
    std::int32_t nikonPcSharpness = INT_UNSET;
    std::int32_t nikonPcClarity = INT_UNSET;
    std::int32_t nikonPcContrast = INT_UNSET;
    std::int32_t nikonPcBrightness = INT_UNSET;
    std::int32_t nikonPcSaturation = INT_UNSET;
    std::int32_t nikonPcHue = INT_UNSET;  // to here
    std::int32_t nikonFilterEffect = INT_UNSET;
    std::int32_t nikonToningEffect = INT_UNSET;

    float nikonProgramShift = FLOAT_UNSET;  // EV, as the six after it
    float nikonExposureDifference = FLOAT_UNSET;
    float nikonFlashComp = FLOAT_UNSET;
    float nikonExternalFlashComp = FLOAT_UNSET;
    float nikonFlashBracket = FLOAT_UNSET;
    float nikonExposureBracket = FLOAT_UNSET;
    float nikonLensFStops = FLOAT_UNSET;
    // Shortest and longest focal length in mm, largest aperture at each.
    float nikonLensRange[4] = {FLOAT_UNSET, FLOAT_UNSET, FLOAT_UNSET, FLOAT_UNSET};
    float nikonManualFocusDistance = FLOAT_UNSET;  // metres
    float nikonDigitalZoom = FLOAT_UNSET;

    std::uint16_t nikonRetouchHistory[10] = {};  // 0: no entry
    // Year, month, day, hour, minute, second; the year 0: not given.
    std::uint16_t nikonPowerUpTime[6] = {};
};

static_assert(sizeof(NikonMakerFields) == 820);

}  // namespace qmx
