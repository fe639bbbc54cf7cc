#pragma once
// Pictures developed from the raw data of files that carry no usable preview.

#include <qmxexif.h>

#include <cstdint>

namespace qmx {

// Develops a raw file into a BMP in `stream` and fills `info` (may be null).  `largerSize` nonzero
// asks for half the sensor's size, zero for an eighth.  0, with nothing written, for files that no
// loader reads.
std::uint32_t DevelopRawFile(const wchar_t* path, IStream* stream, std::uint32_t largerSize,
                             InfoRequest* info);

}  // namespace qmx
