#pragma once
// GDI+ as far as thumbnails need it: its functions, and the time between start and shutdown.

#include <algorithm>

#include "parse/core/win32.h"

// The header leaves min and max to macros of the system, which are switched off here.
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

namespace qmx {

namespace gp = Gdiplus::DllExports;

// All or nothing: `startup` is null when one is missing.
struct GdiplusFunctions {
    decltype(&Gdiplus::GdiplusStartup) startup;
    decltype(&Gdiplus::GdiplusShutdown) shutdown;
    decltype(&gp::GdipCreateBitmapFromStream) createBitmapFromStream;
    decltype(&gp::GdipCreateBitmapFromScan0) createBitmapFromScan0;
    decltype(&gp::GdipCreateHBITMAPFromBitmap) createHbitmapFromBitmap;
    decltype(&gp::GdipGetImageWidth) getImageWidth;
    decltype(&gp::GdipGetImageHeight) getImageHeight;
    decltype(&gp::GdipGetImageThumbnail) getImageThumbnail;
    decltype(&gp::GdipImageRotateFlip) imageRotateFlip;
    decltype(&gp::GdipDisposeImage) disposeImage;
    decltype(&gp::GdipGetImageGraphicsContext) getImageGraphicsContext;
    decltype(&gp::GdipDrawImageRectI) drawImageRect;
    decltype(&gp::GdipDeleteGraphics) deleteGraphics;
};

class GdiplusSession {
public:
    GdiplusSession();
    GdiplusSession(const GdiplusSession&) = delete;
    GdiplusSession& operator=(const GdiplusSession&) = delete;
    ~GdiplusSession();

    bool started() const { return gdiplusToken_ != 0; }
    // To be called only once started.
    const GdiplusFunctions& functions() const { return functions_; }

private:
    GdiplusFunctions functions_;
    Gdiplus::GdiplusStartupInput gdiplusInput_;
    ULONG_PTR gdiplusToken_ = 0;
};

}  // namespace qmx
