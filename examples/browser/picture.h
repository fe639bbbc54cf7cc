// Pictures as Windows draws them: decoded by Windows' own codecs, turned upright, scaled to fit.
#pragma once

#include <windows.h>

#include <objidl.h>

#include <memory>
#include <string>

namespace browser {

struct BitmapDeleter {
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
// Shared, so that the results of jobs can be copied.
using Bitmap = std::shared_ptr<HBITMAP__>;

// A transparent square of `edge` pixels with the picture, never enlarged, in its middle.
// `orientation` is the Exif code; anything but 2..8 leaves the picture as it is.
// Empty when the bytes are no picture that can be decoded.
Bitmap DecodeUpright(IStream* stream, UINT32 orientation, int edge);

// The same for a picture file without a preview.
Bitmap DecodeUpright(const std::wstring& path, UINT32 orientation, int edge);

}  // namespace browser
