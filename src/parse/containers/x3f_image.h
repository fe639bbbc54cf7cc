#pragma once
// The previews of X3F files: complete JPEG streams, plain RGB rows, or differences of neighbouring
// pixels in a prefix code whose table comes with them.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

enum : std::uint32_t {
    kX3fRgb = 3,
    kX3fCoded = 11,
    kX3fJpeg = 18,
};

struct X3fImage {
    std::uint32_t format;
    std::uint32_t columns;
    std::uint32_t rows;
    std::uint32_t rowBytes;  // 0: rows are packed, or coded
    std::uint32_t position;  // of the data
    std::uint32_t length;
};

constexpr bool IsKnownFormat(const X3fImage& image) {
    return image.format == kX3fRgb || image.format == kX3fCoded || image.format == kX3fJpeg;
}

constexpr std::uint64_t AreaOf(const X3fImage& image) {
    return std::uint64_t{image.columns} * image.rows;
}

// Writes the picture to the output stream, as JPEG or BMP.  False, with nothing written, when its
// data do not make a whole picture.
bool WriteX3fImage(ParseContext& ctx, const X3fImage& image);

}  // namespace qmx
