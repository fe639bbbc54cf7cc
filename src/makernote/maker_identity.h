#pragma once
// Which maker made the file, from the Make tag.

#include "parse/core/parse_context.h"

namespace qmx {

// Sets `makerId` from `cameraMake`; leaves it when no maker's test passes.
void IdentifyMaker(ParseContext& ctx);

}  // namespace qmx
