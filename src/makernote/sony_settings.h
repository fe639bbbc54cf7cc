#pragma once
// The block of settings in the notes of Sony's interchangeable-lens cameras up to 2011: big-endian
// words in two orders, later bytes.

#include "makernote/settings_block.h"
#include "makernote/sony_fields.h"

namespace qmx {

// Fills fields of the record, and of Exif, that are not set yet.  The block's length tells its
// form; one of another length is not read.
void ReadSonySettings(ParseContext& ctx, const SettingsBlock& block, SonyMakerFields& fields);

}  // namespace qmx
