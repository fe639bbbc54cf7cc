#pragma once
// The image resources that Photoshop leaves in TIFF tag 0x8649; blocks and resource ids are those
// of Adobe's "Photoshop File Formats Specification", section Image Resources.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

// Reads the resources in the `length` bytes at the cursor; the thumbnail becomes an image record.
void ReadPhotoshopResources(ParseContext& ctx, std::uint64_t length);

}  // namespace qmx
