#pragma once
// What is kept of a TIFF directory that may describe an image (TIFF 6, DNG 1.4).

#include <cstdint>

#include "rawdev/file_view.h"

namespace qmx {

// The values of one tag, read where they stand.
struct TagValues {
    std::uint16_t type = 0;
    std::uint32_t count = 0;  // 0: the tag is absent
    std::uint64_t position = 0;
};

// Bytes of one value of a TIFF type; unknown types count as bytes.
std::uint32_t RawTypeSize(std::uint16_t type);

// Value `index` of a tag; 0 beyond its count or the file, NaN for a zero denominator.
double ReadNumber(const FileView& file, const TagValues& values, std::uint32_t index);

// The same as an unsigned integer; 0 when it is none of 32 bits.
std::uint32_t ReadUnsigned(const FileView& file, const TagValues& values, std::uint32_t index);

struct RawIfd {
    std::uint32_t subfileType = 0;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t bitsPerSample = 0;
    std::uint32_t compression = 0;
    std::uint32_t photometric = 0;
    std::uint32_t samplesPerPixel = 0;
    std::uint32_t planarConfig = 0;
    std::int32_t flip = -1;  // from the orientation; -1: not given
    std::uint32_t rowsPerStrip = 0;
    std::uint32_t tileWidth = 0;
    std::uint32_t tileHeight = 0;
    TagValues offsets;  // of strips or tiles
    TagValues byteCounts;
    TagValues cfaRepeat, cfaPattern;
    TagValues linearization, activeArea, whiteLevel, defaultScale;
    TagValues blackRepeat, blackLevel, blackDeltaH, blackDeltaV;
};

}  // namespace qmx
