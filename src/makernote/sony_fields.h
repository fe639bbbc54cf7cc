#pragma once
// What Sony's MakerNote tells about a picture, by the names of the public tag lists.  Codes stand
// as the file has them; values that say "not available" stay unset.

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

struct SonyMakerFields {
    std::int32_t sonySceneMode = INT_UNSET;
    std::int32_t sonyExposureMode = INT_UNSET;
    std::int32_t sonyQuality = INT_UNSET;
    std::int32_t sonyQuality2 = INT_UNSET;  // kind of raw * 256 + kind of JPEG
    std::int32_t sonyJpegQuality = INT_UNSET;
    std::int32_t sonyRawFileType = INT_UNSET;
    std::int32_t sonyWhiteBalance = INT_UNSET;
    std::int32_t sonyWhiteBalance2 = INT_UNSET;
    std::int32_t sonyWbFineTune = INT_UNSET;
    std::int32_t sonyAwbPriority = INT_UNSET;
    std::int32_t sonyWbShiftAmber = INT_UNSET;
    std::int32_t sonyWbShiftMagenta = INT_UNSET;
    std::int32_t sonyColorTemp = INT_UNSET;  // K, 0 automatic
    std::int32_t sonyColorFilter = INT_UNSET;
    std::int32_t sonyMetering2 = INT_UNSET;
    std::int32_t sonyReleaseMode = INT_UNSET;
    std::int32_t sonySequenceNumber = INT_UNSET;
    std::int32_t sonyFocusMode = INT_UNSET;
    std::int32_t sonyFocusMode2 = INT_UNSET;
    std::int32_t sonyAfAreaMode = INT_UNSET;
    std::int32_t sonyAfAreaMode2 = INT_UNSET;  // codes differ between body families
    std::int32_t sonyAfTracking = INT_UNSET;
    std::int32_t sonyAfIlluminator = INT_UNSET;
    std::int32_t sonyMacro = INT_UNSET;
    std::int32_t sonyFlashAction = INT_UNSET;
    float sonyFlashComp = FLOAT_UNSET;        // EV
    std::int32_t sonyFlashLevel = INT_UNSET;  // 1/3 EV
    std::int32_t sonyElectronicFirstCurtain = INT_UNSET;
    char sonyCreativeStyle[20] = {};
    std::int32_t sonyColorMode = INT_UNSET;
    std::int32_t sonyContrast = INT_UNSET;    // step
    std::int32_t sonySaturation = INT_UNSET;  // step
    std::int32_t sonySharpness = INT_UNSET;   // step
    std::int32_t sonyBrightness = INT_UNSET;  // step
    std::int32_t sonyPictureEffect = INT_UNSET;
    std::int32_t sonyDro = INT_UNSET;
    std::int32_t sonyDro2 = INT_UNSET;
    std::int32_t sonyHdr = INT_UNSET;
    std::int32_t sonyHdrImage = INT_UNSET;
    std::int32_t sonyZoneMatching = INT_UNSET;
    std::int32_t sonyHighIsoNr = INT_UNSET;
    std::int32_t sonyHighIsoNr2 = INT_UNSET;
    std::int32_t sonyLongExposureNr = INT_UNSET;
    std::int32_t sonyMultiFrameNr = INT_UNSET;
    std::int32_t sonyStabilizer = INT_UNSET;
    std::int32_t sonyAntiBlur = INT_UNSET;
    std::int32_t sonySoftSkin = INT_UNSET;
    std::int32_t sonyAutoPortraitFramed = INT_UNSET;
    std::int32_t sonyVignetting = INT_UNSET;
    std::int32_t sonyChromatic = INT_UNSET;
    std::int32_t sonyDistortion = INT_UNSET;
    std::int32_t sonyLensId = INT_UNSET;  // numbered by mount
    std::int32_t sonyMount = INT_UNSET;   // 0 A-mount, 1 E-mount
    std::uint8_t sonyLensSpec[8] = {};    // all zero: none; see text/sony_lens_spec.h
    std::int32_t sonyTeleconverter = INT_UNSET;
    std::int32_t sonyIntelligentAuto = INT_UNSET;
    std::int32_t sonyRating = INT_UNSET;           // stars
    std::int32_t sonyFileFormat = INT_UNSET;       // four numbers, the first in the upper byte
    std::int32_t sonyFullImageHeight = INT_UNSET;  // pixels
    std::int32_t sonyFullImageWidth = INT_UNSET;
    // The block of settings, tag 0x0114; codes depend on its form.
    std::int32_t sonySettingsForm = INT_UNSET;  // a SonySettingsForm
    std::int32_t sonyProgram = INT_UNSET;
    std::int32_t sonyQualitySetting = INT_UNSET;
    std::int32_t sonyWbSetting = INT_UNSET;
    std::int32_t sonyColorTempSet = INT_UNSET;  // K
    std::int32_t sonyMetering = INT_UNSET;
    float sonyExposureCompSet = FLOAT_UNSET;  // EV
    std::int32_t sonyIsoSetting = INT_UNSET;  // speed, 0 automatic
    std::int32_t sonyDriveMode = INT_UNSET;
    std::int32_t sonyFocusModeSetting = INT_UNSET;
    std::int32_t sonyAfArea = INT_UNSET;
    std::int32_t sonyAfPoint = INT_UNSET;
    std::int32_t sonyFlashModeSetting = INT_UNSET;
    std::int32_t sonyFlashControl = INT_UNSET;
    float sonyFlashCompSet = FLOAT_UNSET;  // EV
    std::int32_t sonyStyle = INT_UNSET;
    std::int32_t sonyStyleSetting = INT_UNSET;
    std::int32_t sonyDroMode = INT_UNSET;
    std::int32_t sonyDroSetting = INT_UNSET;
    std::int32_t sonyHighNrSet = INT_UNSET;
    std::int32_t sonyLongNrSet = INT_UNSET;
    std::int32_t sonyStabilizerSet = INT_UNSET;
    std::int32_t sonyImageSizeSetting = INT_UNSET;
    std::int32_t sonyAspect = INT_UNSET;
    // The DSLR-A100, whose note has a part in Minolta's layout and codes.
    std::int32_t minoltaExposureMode = INT_UNSET;
    std::int32_t minoltaDriveModeA100 = INT_UNSET;
    std::int32_t minoltaFocusModeA100 = INT_UNSET;
};
static_assert(sizeof(SonyMakerFields) == 368);

// Forms of the block of settings.
enum SonySettingsForm : std::int32_t {
    kSonyWordsSet1 = 1,
    kSonyWordsSet2 = 2,
    kSonyBytesSet3 = 3,
};

enum SonyMount : std::int32_t { kSonyAMount = 0, kSonyEMount = 1 };

// The model id (makernote/model_identity.h) of the camera with a part in Minolta's layout.
inline constexpr std::int32_t kSonyA100 = 8448;

}  // namespace qmx
