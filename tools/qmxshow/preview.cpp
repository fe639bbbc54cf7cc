#include "preview.h"

#include <cstddef>
#include <utility>

namespace qmx {
namespace {

using Bytes = std::vector<std::uint8_t>;

std::uint32_t BigEndian16(const Bytes& bytes, std::size_t at) {
    return static_cast<std::uint32_t>(bytes[at] << 8 | bytes[at + 1]);
}

std::uint32_t LittleEndian32(const Bytes& bytes, std::size_t at) {
    return bytes[at] | static_cast<std::uint32_t>(bytes[at + 1]) << 8 |
           static_cast<std::uint32_t>(bytes[at + 2]) << 16 |
           static_cast<std::uint32_t>(bytes[at + 3]) << 24;
}

// C0 to CF without the Huffman (C4), reserved (C8) and arithmetic (CC) markers.
bool IsFrameMarker(std::uint8_t marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

void MeasureJpeg(Preview& preview) {
    const Bytes& bytes = preview.bytes;
    // A frame header: FF, marker, length (2), precision (1), height (2), width (2).
    for (std::size_t at = 2; at + 9 <= bytes.size();) {
        if (bytes[at] != 0xFF) return;
        const std::uint8_t marker = bytes[at + 1];
        if (marker == 0xFF) {  // fill byte
            ++at;
        } else if (IsFrameMarker(marker)) {
            preview.height = BigEndian16(bytes, at + 5);
            preview.width = BigEndian16(bytes, at + 7);
            return;
        } else {
            at += 2 + BigEndian16(bytes, at + 2);
        }
    }
}

void MeasureBmp(Preview& preview) {
    if (preview.bytes.size() < 26) return;
    preview.width = LittleEndian32(preview.bytes, 18);
    const std::uint32_t rows = LittleEndian32(preview.bytes, 22);
    preview.height = rows > 0x80000000u ? 0u - rows : rows;  // negative: stored top-down
}

}  // namespace

Preview DescribePreview(std::vector<std::uint8_t> bytes) {
    Preview preview;
    preview.bytes = std::move(bytes);
    const Bytes& data = preview.bytes;
    if (data.empty()) return preview;
    preview.kind = PreviewKind::kUnknown;
    if (data.size() >= 2 && data[0] == 0xFF && data[1] == 0xD8) {
        preview.kind = PreviewKind::kJpeg;
        MeasureJpeg(preview);
    } else if (data.size() >= 2 && data[0] == 'B' && data[1] == 'M') {
        preview.kind = PreviewKind::kBmp;
        MeasureBmp(preview);
    }
    return preview;
}

const char* KindName(PreviewKind kind) {
    switch (kind) {
        case PreviewKind::kJpeg: return "JPEG";
        case PreviewKind::kBmp: return "BMP";
        default: return "unknown";
    }
}

}  // namespace qmx
