#pragma once
// Names of the lenses that Nikon's notes identify; ids are those of the public lens lists.

#include <cstdint>

#include "text/value_names.h"

namespace qmx {

// By the lens id of 16 hexadecimal digits, no one of which begins another.
extern const PrefixName kNikonLensIdNames[];

// By the first byte of the lens data.  Shared by several lenses since 2013.
extern const ValueName kNikonLensNumberNames[];
extern const std::int32_t kNikonLensNumberCount;

// By the number of a Z-mount lens.
extern const ValueName kNikonZLensNames[];
extern const std::int32_t kNikonZLensCount;

}  // namespace qmx
