#pragma once
// What the notes of Minolta and of Sony, who took over its cameras, have in common.

#include <cstdint>

#include "makernote/minolta_fields.h"
#include "parse/core/entry_walk.h"

namespace qmx {

// Makes the JPEG stream at `position` an image record, when it is one and the file holds all of it.
// Cameras leave out the first byte; delivering the picture mends it.
void AddAlphaPreview(ParseContext& ctx, std::int32_t position, std::uint32_t length);

// Stops of a rational; not set without a value or a denominator.
float ReadStops(ParseContext& ctx, const DirEntry& entry);

// Words that carry a sign whatever their type says.
inline std::int32_t ReadSigned(ParseContext& ctx, const DirEntry& entry) {
    return static_cast<std::int32_t>(ReadUnsigned(ctx, entry));
}

// Reads the directory at the cursor, Minolta's whole note or a part of an early Sony's, into the
// record.  `base` is what preview offsets count from.
void ReadMinoltaDirectory(ParseContext& ctx, std::uint32_t base, MinoltaMakerFields& fields);

}  // namespace qmx
