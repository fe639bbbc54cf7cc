#pragma once
// The finished picture as a 24-bit BMP in the caller's stream.

#include "parse/core/bitmap.h"
#include "parse/core/win32.h"

namespace qmx {

// What the stream answers is ignored.
void WriteBitmap(const BitmapLayout& layout, const std::uint8_t* rows, IStream* stream);

}  // namespace qmx
