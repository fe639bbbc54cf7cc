#pragma once
// What Sigma cameras write about a picture, nearly all of it as text.  The MakerNote of a JPEG and
// the property list of an X3F file tell the same things, so both fill this one record.

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

// The texts fill their fields to the last byte, so read them with FieldText.
struct SigmaMakerFields {
    // By tag of the MakerNote.
    char sigmaTag02[16] = {};
    char sigmaTag03[16] = {};
    char sigmaTag04[16] = {};
    char sigmaTag05[16] = {};
    char sigmaTag06[16] = {};
    char sigmaTag07[16] = {};
    char sigmaTag08[8] = {};
    char sigmaTag09[8] = {};
    char sigmaTag0A[16] = {};
    char sigmaTag0B[16] = {};
    char sigmaTag0C[16] = {};
    char sigmaTag0D[16] = {};
    char sigmaTag0E[16] = {};
    char sigmaTag0F[16] = {};
    char sigmaTag10[16] = {};
    char sigmaTag11[16] = {};
    char sigmaTag12[16] = {};
    char sigmaTag14[16] = {};
    char sigmaTag15[24] = {};
    char sigmaTag16[16] = {};
    char sigmaTag17[32] = {};
    char sigmaTag18[32] = {};
    char sigmaTag19[16] = {};
    char sigmaTag1D[8] = {};
    char sigmaTag22[16] = {};
    char sigmaTag30[16] = {};
    float sigmaTag31 = FLOAT_UNSET;  // f-number
    float sigmaTag32 = FLOAT_UNSET;  // seconds
    float sigmaTag35 = FLOAT_UNSET;  // EV
    float sigmaTag3A = FLOAT_UNSET;  // EV, flash
    char sigmaTag3B[16] = {};
    char sigmaTag3C[16] = {};

    // Only X3F files tell these.
    std::int32_t sigmaFormatVersion = 0;  // 0x20002 is version 2.2
    char sigmaLensApertureRange[16] = {};
    char sigmaAfArea[16] = {};
    char sigmaAfInFocus[16] = {};
    char sigmaBracket[16] = {};
    char sigmaLensModel[8] = {};
    char sigmaBurst[8] = {};
    char sigmaRotation[8] = {};
};

static_assert(offsetof(SigmaMakerFields, sigmaFormatVersion) == 480);
static_assert(sizeof(SigmaMakerFields) == 572);

// The same members by what they mean.
inline constexpr auto sigmaCameraSerial = &SigmaMakerFields::sigmaTag02;
inline constexpr auto sigmaDriveMode = &SigmaMakerFields::sigmaTag03;
inline constexpr auto sigmaResolution = &SigmaMakerFields::sigmaTag04;
inline constexpr auto sigmaAfMode = &SigmaMakerFields::sigmaTag05;
inline constexpr auto sigmaFocus = &SigmaMakerFields::sigmaTag06;
inline constexpr auto sigmaWhiteBalance = &SigmaMakerFields::sigmaTag07;
inline constexpr auto sigmaProgramMode = &SigmaMakerFields::sigmaTag08;
inline constexpr auto sigmaMetering = &SigmaMakerFields::sigmaTag09;
inline constexpr auto sigmaLensFocalRange = &SigmaMakerFields::sigmaTag0A;
inline constexpr auto sigmaColorSpace = &SigmaMakerFields::sigmaTag0B;
inline constexpr auto sigmaExposureAdjust = &SigmaMakerFields::sigmaTag0C;
inline constexpr auto sigmaContrastAdjust = &SigmaMakerFields::sigmaTag0D;
inline constexpr auto sigmaShadowAdjust = &SigmaMakerFields::sigmaTag0E;
inline constexpr auto sigmaHighlightAdjust = &SigmaMakerFields::sigmaTag0F;
inline constexpr auto sigmaSaturationAdjust = &SigmaMakerFields::sigmaTag10;
inline constexpr auto sigmaSharpnessAdjust = &SigmaMakerFields::sigmaTag11;
inline constexpr auto sigmaFillLight = &SigmaMakerFields::sigmaTag12;
inline constexpr auto sigmaColorAdjust = &SigmaMakerFields::sigmaTag14;
inline constexpr auto sigmaAdjustmentMode = &SigmaMakerFields::sigmaTag15;
inline constexpr auto sigmaQuality = &SigmaMakerFields::sigmaTag16;
inline constexpr auto sigmaFirmware = &SigmaMakerFields::sigmaTag17;
inline constexpr auto sigmaSoftware = &SigmaMakerFields::sigmaTag18;
inline constexpr auto sigmaAutoBracket = &SigmaMakerFields::sigmaTag19;
inline constexpr auto sigmaAperture = &SigmaMakerFields::sigmaTag31;
inline constexpr auto sigmaExposureTime = &SigmaMakerFields::sigmaTag32;
inline constexpr auto sigmaExposureBias = &SigmaMakerFields::sigmaTag35;

}  // namespace qmx
