#include "picture.h"

#include <wincodec.h>
#include <wrl/client.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace browser {
namespace {

using Microsoft::WRL::ComPtr;

// Some codecs unpack the whole picture before they scale it: nothing larger is asked of them.
constexpr std::uint64_t kMaxPixels = 150'000'000;

// The highest byte is alpha; new bitmaps are transparent.
constexpr std::uint32_t kOpaque = 0xFF000000;

struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> colours;  // BGRX, row by row from the top
};

struct Size {
    UINT width, height;
};

// Into a square of `edge` pixels; at least one pixel remains of either side.
Size FitInto(Size size, UINT edge) {
    const UINT longer = (std::max)(size.width, size.height);
    if (longer <= edge) return size;
    const auto scale = [&](UINT side) {
        return (std::max)(1u, static_cast<UINT>(std::uint64_t{side} * edge / longer));
    };
    return {scale(size.width), scale(size.height)};
}

bool CopyScaled(IWICImagingFactory* factory, IWICBitmapSource* source, UINT edge, Pixels& pixels) {
    Size full;
    if (FAILED(source->GetSize(&full.width, &full.height)) || full.width == 0 || full.height == 0 ||
        std::uint64_t{full.width} * full.height > kMaxPixels) {
        return false;
    }
    const Size size = FitInto(full, edge);
    ComPtr<IWICBitmapScaler> scaler;
    ComPtr<IWICFormatConverter> converter;
    if (FAILED(factory->CreateBitmapScaler(&scaler)) ||
        FAILED(factory->CreateFormatConverter(&converter)) ||
        FAILED(converter->Initialize(source, GUID_WICPixelFormat32bppBGR, WICBitmapDitherTypeNone,
                                     nullptr, 0.0, WICBitmapPaletteTypeCustom)) ||
        FAILED(scaler->Initialize(converter.Get(), size.width, size.height,
                                  WICBitmapInterpolationModeFant))) {
        return false;
    }
    pixels.width = static_cast<int>(size.width);
    pixels.height = static_cast<int>(size.height);
    pixels.colours.resize(std::size_t{size.width} * size.height);
    const UINT rowBytes = size.width * 4;
    return SUCCEEDED(scaler->CopyPixels(nullptr, rowBytes, rowBytes * size.height,
                                        reinterpret_cast<BYTE*>(pixels.colours.data())));
}

// Where the upright picture's pixel (x, y) stands in the stored one.
std::uint32_t PixelAt(const Pixels& stored, UINT32 orientation, int x, int y) {
    const int right = stored.width - 1, bottom = stored.height - 1;
    int column = x, row = y;
    switch (orientation) {
        case 2: column = right - x; break;
        case 3: column = right - x, row = bottom - y; break;
        case 4: row = bottom - y; break;
        case 5: column = y, row = x; break;
        case 6: column = y, row = bottom - x; break;
        case 7: column = right - y, row = bottom - x; break;
        case 8: column = right - y, row = x; break;
        default: break;
    }
    return stored.colours[static_cast<std::size_t>(row) * static_cast<std::size_t>(stored.width) +
                          static_cast<std::size_t>(column)];
}

Bitmap LayUpright(const Pixels& stored, UINT32 orientation, int edge) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = edge;
    info.bmiHeader.biHeight = -edge;  // negative: rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    Bitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0),
                  BitmapDeleter());
    if (!bitmap) return {};
    auto* out = static_cast<std::uint32_t*>(bits);
    const bool isTurned = orientation >= 5 && orientation <= 8;
    const int width = isTurned ? stored.height : stored.width;
    const int height = isTurned ? stored.width : stored.height;
    const int left = (edge - width) / 2, top = (edge - height) / 2;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            out[(top + y) * edge + left + x] = PixelAt(stored, orientation, x, y) | kOpaque;
        }
    }
    return bitmap;
}

// `open` makes the decoder from the factory.
template <class Open>
Bitmap Decode(Open open, UINT32 orientation, int edge) {
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    Pixels pixels;
    if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                IID_PPV_ARGS(&factory))) ||
        FAILED(open(factory.Get(), &decoder)) || FAILED(decoder->GetFrame(0, &frame)) ||
        !CopyScaled(factory.Get(), frame.Get(), static_cast<UINT>(edge), pixels)) {
        return {};
    }
    return LayUpright(pixels, orientation, edge);
}

}  // namespace

Bitmap DecodeUpright(IStream* stream, UINT32 orientation, int edge) {
    const auto open = [&](IWICImagingFactory* factory, IWICBitmapDecoder** decoder) {
        return factory->CreateDecoderFromStream(stream, nullptr, WICDecodeMetadataCacheOnDemand,
                                                decoder);
    };
    return Decode(open, orientation, edge);
}

Bitmap DecodeUpright(const std::wstring& path, UINT32 orientation, int edge) {
    const auto open = [&](IWICImagingFactory* factory, IWICBitmapDecoder** decoder) {
        return factory->CreateDecoderFromFilename(path.c_str(), nullptr, GENERIC_READ,
                                                  WICDecodeMetadataCacheOnDemand, decoder);
    };
    return Decode(open, orientation, edge);
}

}  // namespace browser
