#pragma once
// The numeric model ids that a few rules test.  The numbering is the library's own, per maker, and
// stands in makernote/model_rules.cpp; 0 is any model without a number.

#include "parse/core/parse_context.h"

namespace qmx {

// Sets `modelId` from `cameraModel` for the maker identified before, and makes Samsung's GX and
// Ricoh's PENTAX models the Pentax cameras that they are.  Leaves the model's text alone.
void IdentifyModel(ParseContext& ctx);

}  // namespace qmx
