#pragma once
// Names of the lenses of the Four Thirds systems by the ids in Olympus' notes, as the public lens
// lists have them: maker * 65536 + kind * 256 + number.

#include <cstdint>

#include "text/value_names.h"

namespace qmx {

extern const ValueName kOlympusLensNames[];
extern const std::int32_t kOlympusLensCount;

}  // namespace qmx
