#include "com/picture.h"

#include <cmath>
#include <memory>

namespace qmx {
namespace {

// By orientation 0..8.
constexpr Gdiplus::RotateFlipType kTurns[] = {
    Gdiplus::RotateNoneFlipNone, Gdiplus::RotateNoneFlipNone, Gdiplus::RotateNoneFlipX,
    Gdiplus::Rotate180FlipNone,  Gdiplus::RotateNoneFlipY,    Gdiplus::Rotate90FlipX,
    Gdiplus::Rotate90FlipNone,   Gdiplus::Rotate270FlipX,     Gdiplus::Rotate270FlipNone,
};

constexpr Gdiplus::ARGB kOpaqueWhite = 0xFFFFFFFF;

struct Size {
    UINT width, height;
};

Size Shrink(Size size, UINT boxWidth, UINT boxHeight) {
    if (size.width <= boxWidth && size.height <= boxHeight) return size;
    const double scale = std::min(static_cast<double>(boxWidth) / size.width,
                                  static_cast<double>(boxHeight) / size.height);
    return {static_cast<UINT>(std::floor(size.width * scale)),
            static_cast<UINT>(std::floor(size.height * scale))};
}

// Owner types over the functions of one session.
struct ImageCloser {
    const GdiplusFunctions* gdiplus;
    void operator()(Gdiplus::GpImage* image) const { gdiplus->disposeImage(image); }
};
struct GraphicsCloser {
    const GdiplusFunctions* gdiplus;
    void operator()(Gdiplus::GpGraphics* graphics) const { gdiplus->deleteGraphics(graphics); }
};
using Image = std::unique_ptr<Gdiplus::GpImage, ImageCloser>;
using Graphics = std::unique_ptr<Gdiplus::GpGraphics, GraphicsCloser>;

}  // namespace

Picture::Picture(const GdiplusSession& gdiplus, IStream* stream) : gdiplus_(gdiplus) {
    if (!gdiplus.started()) {
        lastStatus_ = Gdiplus::GdiplusNotInitialized;
        return;
    }
    if (!Succeeded(gdiplus.functions().createBitmapFromStream(stream, &bitmap_))) bitmap_ = nullptr;
}

Picture::~Picture() {
    if (bitmap_ != nullptr) gdiplus_.functions().disposeImage(bitmap_);
}

bool Picture::Succeeded(Gdiplus::Status status) {
    if (status != Gdiplus::Ok) lastStatus_ = status;
    return status == Gdiplus::Ok;
}

void Picture::TurnUpright(std::uint32_t orientation) {
    if (bitmap_ == nullptr || orientation < 2 || orientation >= std::size(kTurns)) return;
    Succeeded(gdiplus_.functions().imageRotateFlip(bitmap_, kTurns[orientation]));
}

HBITMAP Picture::FitInto(UINT boxWidth, UINT boxHeight) {
    Size size = {};
    if (bitmap_ == nullptr ||
        !Succeeded(gdiplus_.functions().getImageWidth(bitmap_, &size.width)) ||
        !Succeeded(gdiplus_.functions().getImageHeight(bitmap_, &size.height)))
        return nullptr;
    if (size.width < 1 || size.height < 1) return nullptr;
    size = Shrink(size, boxWidth, boxHeight);
    return DrawScaled(size.width, size.height);
}

HBITMAP Picture::DrawScaled(UINT width, UINT height) {
    const GdiplusFunctions& f = gdiplus_.functions();
    const auto w = static_cast<INT>(width);
    const auto h = static_cast<INT>(height);

    Gdiplus::GpImage* scaled = nullptr;
    if (!Succeeded(f.getImageThumbnail(bitmap_, width, height, &scaled, nullptr, nullptr)))
        return nullptr;
    const Image scaledOwner(scaled, {&f});

    Gdiplus::GpBitmap* canvas = nullptr;
    if (!Succeeded(f.createBitmapFromScan0(w, h, 0, PixelFormat24bppRGB, nullptr, &canvas)))
        return nullptr;
    const Image canvasOwner(canvas, {&f});

    Gdiplus::GpGraphics* graphics = nullptr;
    if (!Succeeded(f.getImageGraphicsContext(canvas, &graphics))) return nullptr;
    const Graphics graphicsOwner(graphics, {&f});
    if (!Succeeded(f.drawImageRect(graphics, scaled, 0, 0, w, h))) return nullptr;

    HBITMAP result = nullptr;
    Succeeded(f.createHbitmapFromBitmap(canvas, &result, kOpaqueWhite));
    return result;
}

}  // namespace qmx
