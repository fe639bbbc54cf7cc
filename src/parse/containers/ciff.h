#pragma once
// Canon CRW: the Camera Image File Format, a tree of heaps of records behind a short header.  The
// public CIFF description (Canon, 1997) and the tag lists of Canon's raw files tell its layout.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

// Reads the file at the cursor, whose position is `start`: the records of its heaps, and with an
// output stream the preview among them.
void ReadCiff(ParseContext& ctx, std::int32_t start);

}  // namespace qmx
