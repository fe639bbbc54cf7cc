#pragma once
// What is kept of the MakerNote of the cameras that Leica built itself.  Fields are named by tag;
// text/leica_section.cpp says what they mean.

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

// Below: built by Panasonic, whose record (makernote/panasonic_fields.h) they fill.
inline constexpr std::int32_t kFirstOwnLeicaModel = 768;

struct LeicaMakerFields {
    // Deliberate: starts at 0, which reads as automatic when the tag is absent.
    std::int32_t leicaTag304 = 0;
    std::int32_t leicaTag310 = INT_UNSET;
    std::int32_t leicaTag321 = INT_UNSET;
    std::int32_t leicaTag340 = INT_UNSET;
};

static_assert(sizeof(LeicaMakerFields) == 16);

}  // namespace qmx
