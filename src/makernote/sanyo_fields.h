#pragma once
// What is kept of a Sanyo MakerNote.  Fields are named by tag; text/sanyo_section.cpp says what
// they mean.

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

struct SanyoMakerFields {
    std::int32_t sanyoTag201 = INT_UNSET;
    std::int32_t sanyoTag202 = INT_UNSET;
    float sanyoTag204 = FLOAT_UNSET;
    std::int32_t sanyoTag20E = INT_UNSET;
    std::int32_t sanyoTag20F = INT_UNSET;
    std::int32_t sanyoTag210 = INT_UNSET;
    std::int32_t sanyoTag213 = INT_UNSET;
    std::int32_t sanyoTag214 = INT_UNSET;
    std::int32_t sanyoTag215 = INT_UNSET;
    std::int32_t sanyoTag218 = INT_UNSET;
    std::int32_t sanyoTag219 = INT_UNSET;
    std::int32_t sanyoTag21A = INT_UNSET;
    std::int32_t sanyoTag21B = INT_UNSET;
    std::int32_t sanyoTag225 = INT_UNSET;
};

static_assert(sizeof(SanyoMakerFields) == 56);

}  // namespace qmx
