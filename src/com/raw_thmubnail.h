#pragma once
// The shell's thumbnail provider for camera files.

#include <shobjidl.h>
#include <thumbcache.h>

#include "com/dual_object.h"
#include "com/gdiplus_session.h"

namespace qmx {

// Deliberate: spelt so everywhere.
class CRawThmubnail final
    : public DualObject<IRawThmubnail, IInitializeWithItem, IThumbnailProvider> {
public:
    CRawThmubnail(CQMExifModule& module, IUnknown* outer)
        : DualObject(module, outer, module.rawThmubnailType()) {}

    // The item whose thumbnail is wanted; E_UNEXPECTED for none.
    HRESULT STDMETHODCALLTYPE Initialize(IShellItem* item, DWORD mode) noexcept override;

    // Stores the upright thumbnail, at most `cx` pixels wide and high, for the caller to own.
    // E_FAIL in every case.
    HRESULT STDMETHODCALLTYPE GetThumbnail(UINT cx, HBITMAP* bitmapOut,
                                           WTS_ALPHATYPE* alphaOut) noexcept override;

private:
    void DrawThumbnail(UINT cx, HBITMAP* bitmapOut, WTS_ALPHATYPE* alphaOut) const;

    GdiplusSession gdiplus_;
    ComPtr<IShellItem> item_;
};

}  // namespace qmx
