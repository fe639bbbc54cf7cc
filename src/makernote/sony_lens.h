#pragma once
// The lens in Sony's notes: a number of the A-mount, or in bodies with an E-mount one of several
// blocks, most of them enciphered, whose place for it changed with the camera generations.

#include <cstdint>

#include "makernote/settings_block.h"
#include "makernote/sony_fields.h"

namespace qmx {

// The blocks that may hold the lens, in order of trust.
struct SonyLensBlocks {
    SettingsBlock block9416;
    SettingsBlock block9405;
    SettingsBlock block940C;
    SettingsBlock block9050;
    SettingsBlock settings;  // tag 0x0114, plain
};

// Sets lens and mount; `sonyLensId` holds the A-mount number of its tag, if there was one.
void FindSonyLens(ParseContext& ctx, const SonyLensBlocks& blocks, SonyMakerFields& fields);

}  // namespace qmx
