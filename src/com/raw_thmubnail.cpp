#include "com/raw_thmubnail.h"

#include <objbase.h>
#include <qmxexif.h>

#include "com/picture.h"
#include "com/shell_item_path.h"
#include "com/system_library.h"

namespace qmx {
namespace {

// A stream over memory of its own; empty when there is none.
ComPtr<IStream> CreateMemoryStream() {
    ComPtr<IStream> stream;
    const SystemLibrary ole32(L"ole32.dll");
    const auto create = ole32.Find<decltype(CreateStreamOnHGlobal)>("CreateStreamOnHGlobal");
    if (create != nullptr) create(nullptr, TRUE, stream.Receive());
    return stream;
}

}  // namespace

HRESULT STDMETHODCALLTYPE CRawThmubnail::Initialize(IShellItem* item, DWORD) noexcept {
    if (item == nullptr) return E_UNEXPECTED;
    item->AddRef();
    item_.Detach();  // Deliberate: an item given before is not released.
    item_ = ComPtr<IShellItem>(item);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CRawThmubnail::GetThumbnail(UINT cx, HBITMAP* bitmapOut,
                                                      WTS_ALPHATYPE* alphaOut) noexcept {
    if (item_ && bitmapOut != nullptr && alphaOut != nullptr)
        DrawThumbnail(cx, bitmapOut, alphaOut);
    return E_FAIL;  // Deliberate: also with a bitmap delivered.
}

void CRawThmubnail::DrawThumbnail(UINT cx, HBITMAP* bitmapOut, WTS_ALPHATYPE* alphaOut) const {
    wchar_t path[kDropPathCapacity];
    if (!GetItemPath(*item_.Get(), path)) return;
    const ComPtr<IStream> stream = CreateMemoryStream();
    if (!stream) return;
    UINT32 orientation = 1;
    if (ExifGetExifInfoEx(path, stream.Get(), &orientation, 0, nullptr) == 0) return;

    Picture picture(gdiplus_, stream.Get());
    picture.TurnUpright(orientation);
    *bitmapOut = picture.FitInto(cx, cx);
    *alphaOut = WTSAT_RGB;
}

}  // namespace qmx
