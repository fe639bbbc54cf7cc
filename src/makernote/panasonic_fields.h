#pragma once
// What is kept of a Panasonic MakerNote, which the Leica cameras that Panasonic built write too.
// Fields are named by tag; text/panasonic_section.cpp says what they mean.

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

struct PanasonicMakerFields {
    std::int32_t panasonicTag01 = INT_UNSET;
    std::int32_t panasonicTag03 = INT_UNSET;
    std::int32_t panasonicTag07 = INT_UNSET;
    std::int32_t panasonicTag0F = INT_UNSET;
    std::int32_t panasonicTag1C = INT_UNSET;  // Deliberate: before 1A in this record.
    std::int32_t panasonicTag1A = INT_UNSET;
    std::int32_t panasonicTag1F = INT_UNSET;
    std::int32_t panasonicTag23 = INT_UNSET;
    std::int32_t panasonicTag24 = INT_UNSET;
    char panasonicTag25[24] = {};
    std::int32_t panasonicTag28 = INT_UNSET;
    std::int32_t panasonicTag2A = INT_UNSET;
    std::int32_t panasonicTag2B = INT_UNSET;
    std::int32_t panasonicTag2C = INT_UNSET;
    std::int32_t panasonicTag2D = INT_UNSET;
    std::int32_t panasonicTag2E = INT_UNSET;
    std::int32_t panasonicTag31 = INT_UNSET;
    std::int32_t panasonicTag32 = INT_UNSET;
    std::int32_t panasonicTag39 = INT_UNSET;
    std::int32_t panasonicTag3D = INT_UNSET;
    std::int32_t panasonicTag40 = INT_UNSET;
    std::int32_t panasonicTag41 = INT_UNSET;
    std::int32_t panasonicTag42 = INT_UNSET;
    char panasonicTag51[48] = {};
    char panasonicTag53[48] = {};
    std::int32_t panasonicTag5D = INT_UNSET;
};

static_assert(sizeof(PanasonicMakerFields) == 212);

}  // namespace qmx
