#pragma once
// A decoded picture, turned upright and drawn into a bitmap of the shell's size.

#include <cstdint>

#include "com/gdiplus_session.h"

namespace qmx {

class Picture {
public:
    // Decodes an image file; the stream must outlive the picture.
    Picture(const GdiplusSession& gdiplus, IStream* stream);
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
    ~Picture();

    // `orientation` is the Exif value; anything outside 2..8 turns nothing.
    void TurnUpright(std::uint32_t orientation);

    // A bitmap of the picture, scaled down where it must be to fit the box; null when none could
    // be made.  The caller owns it.
    HBITMAP FitInto(UINT boxWidth, UINT boxHeight);

    // What GDI+ said last.
    Gdiplus::Status lastStatus() const { return lastStatus_; }

private:
    bool Succeeded(Gdiplus::Status status);
    HBITMAP DrawScaled(UINT width, UINT height);

    const GdiplusSession& gdiplus_;
    Gdiplus::GpBitmap* bitmap_ = nullptr;
    Gdiplus::Status lastStatus_ = Gdiplus::Ok;
};

}  // namespace qmx
