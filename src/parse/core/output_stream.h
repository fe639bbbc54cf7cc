#pragma once
// The caller's stream as parsers reach it.  Its failures are the caller's business, and so are
// exceptions in its code.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

void RewindStream(ParseContext& ctx);
// Bytes of the view should be touched before the stream is.
void WriteToStream(ParseContext& ctx, const void* bytes, std::uint32_t length);

}  // namespace qmx
