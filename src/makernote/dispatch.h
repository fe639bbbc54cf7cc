#pragma once
// Hands a MakerNote to its maker's decoder.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

// At the first byte of a MakerNote (Exif tag 0x927C): sets `hasMakerNote` and decodes the note,
// or clears it again when the maker's header is not there.  `ifdBase` is the base of the IFD chain
// being walked, for offsets that point outside the note.  Byte order and base are the caller's
// again afterwards.
void ParseMakerNote(ParseContext& ctx, std::uint32_t ifdBase);

// The same for a DNG's private data (tag 0xC634) of a Pentax camera.
void ParsePentaxPrivateData(ParseContext& ctx);

}  // namespace qmx
