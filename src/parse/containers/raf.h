#pragma once
// Fujifilm RAF: a header that points at an embedded JPEG whose Exif data describe the picture.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

// Reads the file that begins at `start`.  With `wantPrimary` the embedded JPEG itself is delivered.
void ReadRaf(ParseContext& ctx, std::int32_t start);

}  // namespace qmx
