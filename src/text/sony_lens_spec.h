#pragma once
// The description of the lens in Sony's notes (tag 0xB02A): focal lengths and apertures in decimal
// digits, features as bits.

#include <cstdint>

#include "text/text_buffer.h"

namespace qmx {

// Appends "E PZ 16-50mm F3.5-5.6 OSS" and returns true; false for an empty or damaged description.
bool FormatSonyLensSpec(TextBuffer& dst, const std::uint8_t (&spec)[8]);

}  // namespace qmx
