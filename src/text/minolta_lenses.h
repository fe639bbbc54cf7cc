#pragma once
// Names of A-mount lenses, which Minolta and Sony number together; ids are those of the public lens
// lists.

#include <cstdint>

#include "text/text_buffer.h"

namespace qmx {

// The lens's name, or "(7)".
void AppendAMountLens(std::int32_t id, TextBuffer& dst);

}  // namespace qmx
