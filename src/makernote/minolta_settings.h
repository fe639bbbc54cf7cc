#pragma once
// The blocks of settings in Minolta's notes: one array of words per camera generation, big-endian
// in every file.

#include "makernote/minolta_fields.h"
#include "makernote/settings_block.h"

namespace qmx {

enum class MinoltaSettings { kNone, kCompact, k7D, k5D, kA100 };

// Fills fields of the record, and of Exif, that are not set yet.
void ReadMinoltaSettings(ParseContext& ctx, MinoltaSettings kind, const SettingsBlock& block,
                         MinoltaMakerFields& fields);

// Tag 0x0115 numbers white balances in steps of 16.  Its code 1, a colour temperature, is kept as
// 0x100, since the compacts' settings have a 1 of another meaning.
constexpr std::int32_t MinoltaTagWhiteBalance(std::int32_t code) {
    return code == 1 ? 0x100 : code;
}

}  // namespace qmx
