#pragma once
// The parse driver: recognises a file by its first bytes and hands it to the reader of its kind.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

// Parses the mapped file at the cursor and, when there is an output stream, writes one of its
// pictures there.  1 when the file carries metadata and the picture wanted was delivered, else 0.
std::uint8_t ParseContainer(ParseContext& ctx, bool wantPrimary);

// Tells from the first bytes, the path's extension and a TIFF's first directory whether this is a
// file to parse: 1 or 0.  Leaves the cursor where it was.
std::uint32_t ProbeExifFile(ParseContext& ctx, const wchar_t* path);

}  // namespace qmx
