#pragma once
// Sigma X3F: a header with the settings of the picture's development, and a directory of sections
// at the file's end, among them pictures and a list of properties.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

// Reads the mapped file and, when there is an output stream, writes one of its previews there.
// 1 when it is sound and the preview chosen, if any, was written, else 0.
std::uint8_t ParseX3f(ParseContext& ctx);

}  // namespace qmx
