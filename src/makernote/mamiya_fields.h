#pragma once
// What is kept of a Mamiya MakerNote.  Fields are named by tag; text/mamiya_section.cpp says what
// they mean.

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

struct MamiyaMakerFields {
    std::int32_t mamiyaTag90 = INT_UNSET;
    std::int32_t mamiyaTag95 = INT_UNSET;
    std::int32_t mamiyaTag98 = INT_UNSET;
    std::int32_t mamiyaTagA2 = INT_UNSET;
    std::int32_t mamiyaTagA5 = INT_UNSET;
};

static_assert(sizeof(MamiyaMakerFields) == 20);

}  // namespace qmx
