#pragma once
// What is kept of a Fujifilm MakerNote.  Fields are in the order of the record; each starts at the
// value given here.

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

struct FujifilmMakerFields {
    char fujiVersion[16] = {};
    char fujiQuality[32] = {};
    std::int32_t fujiSharpness = INT_UNSET;
    std::int32_t fujiWhiteBalance = INT_UNSET;
    std::int32_t fujiSaturation = INT_UNSET;
    std::int32_t fujiContrast = INT_UNSET;
    std::int32_t fujiColorTemperature = INT_UNSET;  // K
    std::int32_t fujiContrast2 = INT_UNSET;
    std::int32_t fujiWbFineTune1 = INT_UNSET;  // red
    std::int32_t fujiWbFineTune2 = 0;          // blue, told apart by the first
    std::int32_t fujiNoiseReduction = INT_UNSET;
    std::int32_t fujiFlashMode = INT_UNSET;
    float fujiFlashExposureComp = FLOAT_UNSET;  // EV
    std::int32_t fujiMacro = INT_UNSET;
    std::int32_t fujiFocusMode = INT_UNSET;
    std::int32_t fujiAfMode = INT_UNSET;
    std::int32_t fujiFocusPixel1 = INT_UNSET;  // x
    std::int32_t fujiFocusPixel2 = INT_UNSET;  // y
    std::int32_t fujiSlowSync = INT_UNSET;
    std::int32_t fujiPictureMode = INT_UNSET;
    std::int32_t fujiAutoBracketing = INT_UNSET;
    std::int32_t fujiSequenceNumber = INT_UNSET;
    std::int32_t fujiTag1210 = INT_UNSET;
    std::int32_t fujiBlurWarning = INT_UNSET;
    std::int32_t fujiFocusWarning = INT_UNSET;
    std::int32_t fujiExposureWarning = INT_UNSET;
    std::int32_t fujiDynamicRange = INT_UNSET;
    std::int32_t fujiFilmMode = INT_UNSET;
    std::int32_t fujiDynamicRangeSetting = INT_UNSET;
    std::int32_t fujiDevelopmentDynamicRange = INT_UNSET;  // percent
    std::int32_t fujiMinFocalLength = INT_UNSET;           // whole mm
    std::int32_t fujiMaxFocalLength = INT_UNSET;
    float fujiMaxApertureAtMinFocal = FLOAT_UNSET;  // f-number
    float fujiMaxApertureAtMaxFocal = FLOAT_UNSET;
    std::int32_t fujiTag4005[4] = {INT_UNSET, 0, 0, 0};  // told apart by the first
    std::int32_t fujiReserved = INT_UNSET;               // filled by no tag
};

static_assert(sizeof(FujifilmMakerFields) == 196);

}  // namespace qmx
