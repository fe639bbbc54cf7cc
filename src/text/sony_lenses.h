#pragma once
// Names of E-mount lenses; ids are those of the public lens lists.

#include <cstdint>

#include "text/text_buffer.h"

namespace qmx {

// The lens's name, or "(7)".
void AppendEMountLens(std::int32_t id, TextBuffer& dst);

}  // namespace qmx
