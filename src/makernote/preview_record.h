#pragma once
// A JPEG preview whose place and length are known, as one more image record.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

// True when a JPEG stream with a frame header stands at `position` of the file, all of it, and has
// become a record; what cannot be delivered must not take part in the choice.  The cursor stays.
bool AddJpegPreview(ParseContext& ctx, std::uint32_t position, std::uint32_t length);

}  // namespace qmx
