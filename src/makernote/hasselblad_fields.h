#pragma once
// The record of a Hasselblad MakerNote, of which nothing is kept.

#include <cstdint>

namespace qmx {

struct HasselbladMakerFields {
    std::int32_t hasselbladField = 0;  // filled by no tag
};

static_assert(sizeof(HasselbladMakerFields) == 4);

}  // namespace qmx
