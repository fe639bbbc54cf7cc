#include "com/gdiplus_session.h"

#include <type_traits>

#include "com/system_library.h"

namespace qmx {
namespace {

class Finder {
public:
    template <class Function>
    void operator()(Function& function, const char* name) {
        function = gdiplus_.Find<std::remove_pointer_t<Function>>(name);
        complete_ = complete_ && function != nullptr;
    }
    bool complete() const { return complete_; }

private:
    const SystemLibrary gdiplus_{L"gdiplus.dll"};
    bool complete_ = true;
};

GdiplusFunctions FindFunctions() {
    GdiplusFunctions f = {};
    Finder find;
    find(f.startup, "GdiplusStartup");
    find(f.shutdown, "GdiplusShutdown");
    find(f.createBitmapFromStream, "GdipCreateBitmapFromStream");
    find(f.createBitmapFromScan0, "GdipCreateBitmapFromScan0");
    find(f.createHbitmapFromBitmap, "GdipCreateHBITMAPFromBitmap");
    find(f.getImageWidth, "GdipGetImageWidth");
    find(f.getImageHeight, "GdipGetImageHeight");
    find(f.getImageThumbnail, "GdipGetImageThumbnail");
    find(f.imageRotateFlip, "GdipImageRotateFlip");
    find(f.disposeImage, "GdipDisposeImage");
    find(f.getImageGraphicsContext, "GdipGetImageGraphicsContext");
    find(f.drawImageRect, "GdipDrawImageRectI");
    find(f.deleteGraphics, "GdipDeleteGraphics");
    return find.complete() ? f : GdiplusFunctions{};
}

}  // namespace

GdiplusSession::GdiplusSession() : functions_(FindFunctions()) {
    if (functions_.startup == nullptr) return;
    const Gdiplus::Status status = functions_.startup(&gdiplusToken_, &gdiplusInput_, nullptr);
    if (status != Gdiplus::Ok) gdiplusToken_ = 0;
}

GdiplusSession::~GdiplusSession() {
    if (started()) functions_.shutdown(gdiplusToken_);
}

}  // namespace qmx
