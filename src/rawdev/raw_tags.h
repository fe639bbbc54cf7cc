#pragma once
// Walks the directories of a TIFF-based raw file (TIFF 6, TIFF/EP, DNG 1.4, Exif 2.3) and keeps
// what the development needs.

#include <array>
#include <cstdint>

#include "rawdev/raw_decode_state.h"
#include "rawdev/raw_ifd.h"

namespace qmx {

// Colour tags, which stand in the first directory while the raw image often lies in another.
struct RawColorTags {
    TagValues dngVersion;
    TagValues colorMatrix[2], cameraCalibration[2], illuminant[2];
    TagValues analogBalance, asShotNeutral, asShotWhite;
    // Of Panasonic bodies: red and blue over 256, or red, green and blue on a scale of their own.
    TagValues epsonBalance;  // 256 words of the Epson bodies' MakerNote
    TagValues balanceRed, balanceBlue, levelRed, levelGreen, levelBlue;
};

struct RawTags {
    std::array<RawIfd, 32> ifds;
    std::uint32_t ifdCount = 0;
    RawColorTags color;
    TagValues panasonicIso, panasonicFormat, panasonicData;
    bool isProcessed = false;  // the output of a converter
};

// Reads the names, the shot data and the text block's balance into `state`, the rest into `tags`.
void ReadRawTags(RawDecodeState& state, RawTags& tags);

}  // namespace qmx
