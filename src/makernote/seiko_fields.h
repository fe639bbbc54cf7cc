#pragma once
// What is kept of a Seiko Epson MakerNote.  Fields are named by tag; text/seiko_section.cpp says
// what they mean.

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

struct SeikoMakerFields {
    std::int32_t seikoTag201 = INT_UNSET;
    char seikoTag209[32] = {};
    std::int32_t seikoTag20B = INT_UNSET;
    std::int32_t seikoTag20C = INT_UNSET;
    char seikoTag20D[16] = {};
};

static_assert(sizeof(SeikoMakerFields) == 60);

}  // namespace qmx
