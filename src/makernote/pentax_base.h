#pragma once
// Where the offsets of a Pentax MakerNote count from.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

// For the forms "PENTAX" and "SAMSUNG", with the cursor on the entry count and the byte order set:
// sets the base to the note's start, which is `headerBytes` before, when the offsets only make
// sense so.  Newer cameras and the private data of DNGs have it thus.
void ChoosePentaxBase(ParseContext& ctx, std::uint32_t headerBytes);

}  // namespace qmx
