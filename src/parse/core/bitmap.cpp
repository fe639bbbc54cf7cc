#include "parse/core/bitmap.h"

#include <algorithm>
#include <cstring>

#include "parse/core/numeric.h"

namespace qmx {
namespace {

void PutU16(std::uint8_t* dst, std::uint32_t value) {
    dst[0] = static_cast<std::uint8_t>(value);
    dst[1] = static_cast<std::uint8_t>(value >> 8);
}

void PutU32(std::uint8_t* dst, std::uint32_t value) {
    PutU16(dst, value);
    PutU16(dst + 2, value >> 16);
}

std::uint8_t ClampToByte(float value) {
    return static_cast<std::uint8_t>(std::clamp(TruncateToI32(value), 0, 255));
}

struct YCbCrWeights {
    float red, green, blue;
};

// Without coefficients in the file those of ITU-R BT.601 hold, the default of TIFF 6.
YCbCrWeights WeightsOf(const ImageRecord& record) {
    if (record.lumaRed == 0 && record.lumaGreen == 0 && record.lumaBlue == 0)
        return {0.299f, 0.587f, 0.114f};
    return {record.lumaRed, record.lumaGreen, record.lumaBlue};
}

void PutYCbCrPixel(float y, float cb, float cr, const YCbCrWeights& weights, std::uint8_t* dst) {
    const float blue = y + (2 - 2 * weights.blue) * cb;
    const float red = y + (2 - 2 * weights.red) * cr;
    const float green = (y - weights.blue * blue - weights.red * red) / weights.green;
    dst[0] = ClampToByte(blue);
    dst[1] = ClampToByte(green);
    dst[2] = ClampToByte(red);
}

std::uint64_t GroupsPerRow(const BitmapLayout& layout) {
    return (static_cast<std::uint64_t>(layout.width) + 1) / 2;
}

std::uint8_t* RowFromTop(const BitmapLayout& layout, std::uint8_t* rows, std::int32_t y) {
    return rows + static_cast<std::size_t>(layout.height - 1 - y) * layout.rowBytes;
}

}  // namespace

bool LayOutBitmap(std::int32_t width, std::int32_t height, BitmapLayout& layout) {
    if (width < 1 || height < 1) return false;
    const std::uint64_t rowBytes = (static_cast<std::uint64_t>(width) * 24 + 31) / 32 * 4;
    const std::uint64_t imageBytes = rowBytes * static_cast<std::uint64_t>(height);
    if (imageBytes > UINT32_MAX - kBitmapHeaderBytes) return false;
    layout = {width, height, static_cast<std::uint32_t>(rowBytes),
              static_cast<std::uint32_t>(imageBytes)};
    return true;
}

void FillBitmapHeader(const BitmapLayout& layout, std::uint8_t* dst) {
    std::memset(dst, 0, kBitmapHeaderBytes);
    dst[0] = 'B';
    dst[1] = 'M';
    PutU32(dst + 2, layout.imageBytes + kBitmapHeaderBytes);
    PutU32(dst + 10, kBitmapHeaderBytes);
    PutU32(dst + 14, 40);  // size of the info header
    PutU32(dst + 18, static_cast<std::uint32_t>(layout.width));
    PutU32(dst + 22, static_cast<std::uint32_t>(layout.height));
    PutU16(dst + 26, 1);   // planes
    PutU16(dst + 28, 24);  // bits per pixel
    PutU32(dst + 34, layout.imageBytes);
}

std::uint64_t RgbSourceBytes(const BitmapLayout& layout) {
    return std::uint64_t{3} * static_cast<std::uint32_t>(layout.width) *
           static_cast<std::uint32_t>(layout.height);
}

std::uint64_t YCbCrSourceBytes(const BitmapLayout& layout) {
    return 4 * GroupsPerRow(layout) * static_cast<std::uint32_t>(layout.height);
}

void FillRgbRows(const BitmapLayout& layout, const std::uint8_t* src, const std::uint8_t* lut,
                 std::uint8_t* dst) {
    const std::size_t pixelBytes = std::size_t{3} * static_cast<std::uint32_t>(layout.width);
    for (std::int32_t y = 0; y < layout.height; ++y, src += pixelBytes) {
        std::uint8_t* out = RowFromTop(layout, dst, y);
        for (std::size_t i = 0; i < pixelBytes; i += 3) {
            const std::uint8_t red = src[i];
            const std::uint8_t green = src[i + 1];
            const std::uint8_t blue = src[i + 2];
            out[i] = blue;
            out[i + 1] = green;
            out[i + 2] = red;
        }
        if (lut == nullptr) continue;
        for (std::size_t i = 0; i < pixelBytes; ++i) out[i] = lut[out[i]];
    }
}

void FillYCbCrRows(const BitmapLayout& layout, const std::uint8_t* src, const ImageRecord& record,
                   std::uint8_t* dst) {
    const YCbCrWeights weights = WeightsOf(record);
    for (std::int32_t y = 0; y < layout.height; ++y) {
        std::uint8_t* out = RowFromTop(layout, dst, y);
        for (std::int32_t x = 0; x < layout.width; ++x, out += 3) {
            const std::uint8_t* group = src + std::size_t{4} * (static_cast<std::uint32_t>(x) / 2);
            PutYCbCrPixel(group[x % 2], group[2] - 128.0f, group[3] - 128.0f, weights, out);
        }
        src += 4 * GroupsPerRow(layout);
    }
}

void EqualiseLuminance(const std::uint8_t* pixels, std::uint64_t pixelCount,
                       std::uint8_t (&lut)[256]) {
    std::uint32_t cumulative[256] = {};
    for (std::uint64_t i = 0; i < pixelCount; ++i, pixels += 3)
        ++cumulative[(77u * pixels[0] + 150u * pixels[1] + 29u * pixels[2]) >> 8];
    for (int i = 1; i < 256; ++i) cumulative[i] += cumulative[i - 1];
    const std::uint32_t spread = cumulative[255] - cumulative[0];
    for (int i = 0; i < 256; ++i)
        lut[i] = static_cast<std::uint8_t>((cumulative[i] - cumulative[0]) * 255 /
                                           (spread == 0 ? 1 : spread));
}

}  // namespace qmx
