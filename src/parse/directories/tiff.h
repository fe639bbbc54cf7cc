#pragma once
// TIFF structures: the directory chain with its sub-directories, the Exif and the GPS directory.
// Formats: TIFF 6, Exif 2.3 (CIPA DC-008).

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

// Parses the TIFF structure whose header stands at file position `base`, then delivers one of the
// pictures it describes to the output stream, if there is one.
void ReadTiffHeader(ParseContext& ctx, std::uint32_t base);

// One directory at the cursor, with its SubIFDs; leaves the cursor on the next-directory offset.
// False when the directory is rejected.
bool WalkIfd(ParseContext& ctx, std::uint32_t base);

void WalkExifIfd(ParseContext& ctx, std::uint32_t base);
void WalkGpsIfd(ParseContext& ctx, std::uint32_t base);

}  // namespace qmx
