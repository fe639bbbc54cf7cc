#pragma once
// The automation object: the exported functions for callers that speak COM.

#include "com/dual_object.h"

namespace qmx {

// Each method runs the export of its name; success is S_OK, any failure E_FAIL.
class CExifParser final : public DualObject<IExifParser> {
public:
    CExifParser(CQMExifModule& module, IUnknown* outer)
        : DualObject(module, outer, module.exifParserType()) {}

    HRESULT STDMETHODCALLTYPE ExifIsExifFile(BSTR path) noexcept override;
    HRESULT STDMETHODCALLTYPE ExifGetExifInfoEx(BSTR path, IStream* stream, LONG* orientation,
                                                LONG flag, LONG_PTR request) noexcept override;
    HRESULT STDMETHODCALLTYPE ExifGetThumbnailImage(BSTR path, IStream* stream, LONG* orientation,
                                                    LONG flag, BSTR text,
                                                    LONG textLength) noexcept override;
    HRESULT STDMETHODCALLTYPE ExifGetInfoTip(BSTR path, BSTR text,
                                             LONG textLength) noexcept override;
    HRESULT STDMETHODCALLTYPE ExifGetDateTimeString(BSTR path, BSTR text,
                                                    LONG textLength) noexcept override;
    // S_OK whatever the list came to.
    HRESULT STDMETHODCALLTYPE ExifEnumInfo(BSTR path, LONG_PTR callback,
                                           LONG_PTR user) noexcept override;
};

}  // namespace qmx
