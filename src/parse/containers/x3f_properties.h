#pragma once
// The property list of X3F files: pairs of texts, a name and a value, in 16-bit characters.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

// Reads the list that stands at a position.  False when it is not sound.
bool ParseX3fProperties(ParseContext& ctx, std::uint32_t offset, std::uint32_t length);

}  // namespace qmx
