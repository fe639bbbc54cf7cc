#pragma once
// What is kept of a Ricoh MakerNote; tags and codes: exiftool.org/TagNames/Ricoh.html.

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

struct RicohMakerFields {
    std::int32_t width = INT_UNSET;  // pixels
    std::int32_t height = INT_UNSET;
    std::int32_t isoSetting = INT_UNSET;  // a code
    std::int32_t whiteBalance = INT_UNSET;
    std::int32_t flashMode = INT_UNSET;
    std::int32_t macro = INT_UNSET;
    std::int32_t sharpness = INT_UNSET;
    std::int32_t imageSetting = INT_UNSET;
    std::int32_t toning = INT_UNSET;
};

static_assert(sizeof(RicohMakerFields) == 36);

}  // namespace qmx
