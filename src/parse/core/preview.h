#pragma once
// Getting a picture into the caller's stream.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

// Writes `length` bytes at `position` as a JPEG stream: they must all be in the file, and the
// first two become a start-of-image marker whatever they were.  `rewind` goes to the stream's
// start first.  False, with nothing written, when bytes are missing, there are none or no stream is
// wanted.
bool WriteEmbeddedJpeg(ParseContext& ctx, std::uint32_t position, std::uint32_t length,
                       bool rewind);

// Chooses among the image records (the smallest picture, or the largest with `wantPrimary`), writes
// it as JPEG or BMP and sets `thumbDone`.  A file gets one picture, however many structures it has.
void DeliverImage(ParseContext& ctx);

// Writes the picture that a reader left in `thumbOffset` and `thumbLength`, counted from the
// container's position; false when there is none.
bool WriteRecordedThumbnail(ParseContext& ctx, std::int32_t containerPosition);

}  // namespace qmx
