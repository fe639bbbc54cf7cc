#pragma once
// The layouts of sample data that can be read, each in a file of its own.

#include "rawdev/raw_decode_state.h"

namespace qmx {

extern const Loader kEightBit;         // one byte per sample, through `sampleCurve`
extern const Loader kPacked12;         // two samples in 3 bytes, high bits first
extern const Loader kPadded12;         // ten samples in 15 bytes and one that says nothing
extern const Loader kUnpacked16;       // one word per sample in the file's byte order
extern const Loader kEpson12;          // compression 32769
extern const Loader kLosslessJpeg;     // the whole picture as one stream
extern const Loader kHasselblad;       // the same with words and pairs of its own
extern const Loader kPanasonicBlocks;  // 14 samples in 16 bytes
extern const Loader kDngUncompressed;  // strips or tiles of 8 to 16 bits
extern const Loader kDngLosslessJpeg;  // strips or tiles of lossless JPEG

}  // namespace qmx
