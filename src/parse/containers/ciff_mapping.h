#pragma once
// CRW files have no Exif data: what Canon's own records say of a shot stands in for it.

#include "parse/core/image_info.h"

namespace qmx {

// Fills the Exif fields of `info` from the CanonMakerFields that are present in it.
void MapCanonValues(ImageInfo& info);

}  // namespace qmx
