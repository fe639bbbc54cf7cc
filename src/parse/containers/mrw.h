#pragma once
// Minolta MRW: a chain of tagged blocks, one of which holds a TIFF structure.

#include "parse/core/parse_context.h"

namespace qmx {

// Reads the file that begins at the cursor.
void ParseMrwBlocks(ParseContext& ctx);

}  // namespace qmx
