#pragma once
// The arrays of 16-bit words that Canon's MakerNotes and the heaps of CRW files share.  Each
// decoder is called with the cursor on the array, in the byte order in force, and reads as many of
// its `count` elements as have a meaning; words behind the end of the file read as all ones.  All
// fill the CanonMakerFields that the caller has laid over the maker area, and ImageInfo where Exif
// left a gap.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

void DecodeCanonCameraSettings(ParseContext& ctx, std::uint32_t count);
void DecodeCanonFocalLength(ParseContext& ctx, std::uint32_t count);
void DecodeCanonShotInfo(ParseContext& ctx, std::uint32_t count);
void DecodeCanonPanorama(ParseContext& ctx, std::uint32_t count);
void DecodeCanonAfInfo(ParseContext& ctx, std::uint32_t count);
void DecodeCanonTag1D(ParseContext& ctx, std::uint32_t count);
void DecodeCanonTag1F(ParseContext& ctx, std::uint32_t count);
void DecodeCanonFileInfo(ParseContext& ctx, std::uint32_t count);
void DecodeCanonProcessingInfo(ParseContext& ctx, std::uint32_t count);

// A block of bytes, not of words.
void DecodeCanonCameraInfo(ParseContext& ctx, std::uint32_t count);

}  // namespace qmx
