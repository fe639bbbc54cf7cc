#pragma once
// What Casio's "QVC" MakerNote says about a picture, by tag.

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

struct CasioMakerFields {
    std::int32_t casioTag2011a = INT_UNSET;  // white-balance gain, red
    std::int32_t casioTag2011b = 0;          // and blue
    std::int32_t casioTag2012 = INT_UNSET;   // white balance
    std::int32_t casioTag2022 = INT_UNSET;   // distance of the object, mm; 0x20000000 up: infinite
    std::int32_t casioTag2034 = INT_UNSET;   // distance of the flash, mm; never 0
    std::int32_t casioTag3000 = INT_UNSET;   // record mode
    std::int32_t casioUnsetField = INT_UNSET;
    std::int32_t casioTag3001 = INT_UNSET;  // release mode
    std::int32_t casioTag3002 = INT_UNSET;  // quality
    std::int32_t casioTag3003 = INT_UNSET;  // focus mode
    char casioTag3006[32] = {};             // home town; read it with FieldText
    std::int32_t casioTag3007 = INT_UNSET;  // best-shot scene, numbered by model
    std::int32_t casioTag3011 = INT_UNSET;  // sharpness; this and the next two: signed 16-bit steps
    std::int32_t casioTag3013 = INT_UNSET;  // saturation
    std::int32_t casioTag3012 = INT_UNSET;  // contrast
    std::int32_t casioTag3014 = INT_UNSET;  // ISO speed, 0 automatic
    std::int32_t casioTag3015 = INT_UNSET;  // colour mode
    std::int32_t casioTag3016 = INT_UNSET;  // enhancement
    std::int32_t casioTag3017 = INT_UNSET;  // colour filter
};

static_assert(sizeof(CasioMakerFields) == 104);

}  // namespace qmx
