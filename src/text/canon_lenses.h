#pragma once
// Names of the lenses that Canon's lens types stand for; ids are those of the public lens lists.

#include <cstdint>

#include "text/value_names.h"

namespace qmx {

extern const ValueName kCanonLensNames[];
extern const std::int32_t kCanonLensCount;

}  // namespace qmx
