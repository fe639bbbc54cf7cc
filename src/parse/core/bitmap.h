#pragma once
// 24-bit bottom-up BMP pictures (BITMAPFILEHEADER and BITMAPINFOHEADER, 54 bytes) made from the
// uncompressed thumbnails of TIFF directories.

#include <cstddef>
#include <cstdint>

#include "parse/core/image_records.h"

namespace qmx {

inline constexpr std::uint32_t kBitmapHeaderBytes = 54;

struct BitmapLayout {
    std::int32_t width;
    std::int32_t height;
    std::uint32_t rowBytes;    // rows are padded to 4 bytes
    std::uint32_t imageBytes;  // all rows
};

// False when a side is below 1 or the file would pass 4 GiB.
bool LayOutBitmap(std::int32_t width, std::int32_t height, BitmapLayout& layout);

void FillBitmapHeader(const BitmapLayout& layout, std::uint8_t* dst);

// Bytes of source that a whole picture of this layout needs.
std::uint64_t RgbSourceBytes(const BitmapLayout& layout);
std::uint64_t YCbCrSourceBytes(const BitmapLayout& layout);

// Fill `imageBytes` bytes of zeroed rows.  `lut` maps every sample byte, null leaves them alone.
void FillRgbRows(const BitmapLayout& layout, const std::uint8_t* src, const std::uint8_t* lut,
                 std::uint8_t* dst);

// Source: groups Y0 Y1 Cb Cr of two pixels each; an odd width takes one more group per row.
void FillYCbCrRows(const BitmapLayout& layout, const std::uint8_t* src, const ImageRecord& record,
                   std::uint8_t* dst);

// The table that spreads the luminance of RGB pixels evenly over 0..255.
void EqualiseLuminance(const std::uint8_t* pixels, std::uint64_t pixelCount,
                       std::uint8_t (&lut)[256]);

}  // namespace qmx
