#pragma once
// One Nikon MakerNote being read: what several tags share, and the values that are blocks of bytes
// with a layout of their own.  Blocks shorter than their layout leave the fields behind their end
// as they are.

#include <cstdint>

#include "makernote/nikon_fields.h"
#include "parse/core/entry_walk.h"

namespace qmx {

// The lens data are enciphered with values that other tags hold, in any order.
struct NikonLensSource {
    std::int32_t position = 0;
    std::uint32_t length = 0;  // 0: no lens data
    std::uint32_t shutterCount = 0;
    bool hasShutterCount = false;
    bool hasSerialNumber = false;
    bool isSerialNumeric = false;  // the text as stored, blanks included
};

struct NikonNote {
    NikonMakerFields& fields;
    NikonLensSource lens = {};
};

// Deciphers the lens data and stores the lens's id, number or name.
void DecodeNikonLensData(ParseContext& ctx, const NikonLensSource& source,
                         NikonMakerFields& fields);

void StoreNikonVrInfo(ParseContext& ctx, const DirEntry& entry, NikonNote& note);
void StoreNikonPictureControl(ParseContext& ctx, const DirEntry& entry, NikonNote& note);
void StoreNikonIsoInfo(ParseContext& ctx, const DirEntry& entry, NikonNote& note);
void StoreNikonDistortInfo(ParseContext& ctx, const DirEntry& entry, NikonNote& note);
void StoreNikonHdrInfo(ParseContext& ctx, const DirEntry& entry, NikonNote& note);
void StoreNikonAfInfo(ParseContext& ctx, const DirEntry& entry, NikonNote& note);
void StoreNikonMultiExposure(ParseContext& ctx, const DirEntry& entry, NikonNote& note);
void StoreNikonPowerUpTime(ParseContext& ctx, const DirEntry& entry, NikonNote& note);
void StoreNikonAfInfo2(ParseContext& ctx, const DirEntry& entry, NikonNote& note);
void StoreNikonFileInfo(ParseContext& ctx, const DirEntry& entry, NikonNote& note);
void StoreNikonAfTune(ParseContext& ctx, const DirEntry& entry, NikonNote& note);

}  // namespace qmx
