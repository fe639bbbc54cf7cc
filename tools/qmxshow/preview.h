// What a preview's bytes are: kind and pixel size, from a JPEG's frame header or a BMP's header.
#pragma once

#include <cstdint>
#include <vector>

namespace qmx {

enum class PreviewKind { kNone, kJpeg, kBmp, kUnknown };

struct Preview {
    std::vector<std::uint8_t> bytes;
    PreviewKind kind = PreviewKind::kNone;
    std::uint32_t width = 0;  // pixels; 0 when the bytes do not tell
    std::uint32_t height = 0;
};

Preview DescribePreview(std::vector<std::uint8_t> bytes);

// "JPEG", "BMP" or "unknown".
const char* KindName(PreviewKind kind);

}  // namespace qmx
