#pragma once
// Names of the lenses that Pentax's lens ids stand for; ids are those of the public lens lists.

#include <cstdint>

#include "text/value_names.h"

namespace qmx {

extern const ValueName kPentaxLensNames[];
extern const std::int32_t kPentaxLensCount;

}  // namespace qmx
