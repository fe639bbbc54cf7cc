#pragma once
// The labelled list of everything that a record holds: the Exif section, the maker's, and GPS.

#include "parse/core/image_info.h"
#include "text/enum_context.h"

namespace qmx {

// Emits all sections in order; nothing when the callback is null.
void EmitInfo(const ImageInfo& info, const EnumContext& context);

void EmitExifSection(const ImageInfo& info, const EnumContext& context);
void EmitGpsSection(const ImageInfo& info, const EnumContext& context);

}  // namespace qmx
