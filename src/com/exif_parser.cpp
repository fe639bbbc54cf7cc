#include "com/exif_parser.h"

#include <qmxexif.h>

namespace qmx {
namespace {

HRESULT AsResult(UINT32 success) { return success != 0 ? S_OK : E_FAIL; }

// Runs a request with the orientation as the exports have it; untouched stays untouched.
template <class Request>
HRESULT WithOrientation(LONG* orientation, Request request) {
    if (orientation == nullptr) return AsResult(request(nullptr));
    auto value = static_cast<UINT32>(*orientation);
    const HRESULT result = AsResult(request(&value));
    *orientation = static_cast<LONG>(value);
    return result;
}

}  // namespace

HRESULT STDMETHODCALLTYPE CExifParser::ExifIsExifFile(BSTR path) noexcept {
    return AsResult(::ExifIsExifFile(path));
}

HRESULT STDMETHODCALLTYPE CExifParser::ExifGetExifInfoEx(BSTR path, IStream* stream,
                                                         LONG* orientation, LONG flag,
                                                         LONG_PTR request) noexcept {
    return WithOrientation(orientation, [&](UINT32* value) {
        return ::ExifGetExifInfoEx(path, stream, value, static_cast<UINT32>(flag),
                                   reinterpret_cast<InfoRequest*>(request));
    });
}

HRESULT STDMETHODCALLTYPE CExifParser::ExifGetThumbnailImage(BSTR path, IStream* stream,
                                                             LONG* orientation, LONG flag,
                                                             BSTR text, LONG textLength) noexcept {
    return WithOrientation(orientation, [&](UINT32* value) {
        return ::ExifGetThumbnailImage(path, stream, value, static_cast<UINT32>(flag), text,
                                       textLength);
    });
}

HRESULT STDMETHODCALLTYPE CExifParser::ExifGetInfoTip(BSTR path, BSTR text,
                                                      LONG textLength) noexcept {
    return AsResult(::ExifGetInfoTip(path, text, textLength));
}

HRESULT STDMETHODCALLTYPE CExifParser::ExifGetDateTimeString(BSTR path, BSTR text,
                                                             LONG textLength) noexcept {
    return AsResult(::ExifGetDateTimeString(path, text, textLength));
}

HRESULT STDMETHODCALLTYPE CExifParser::ExifEnumInfo(BSTR path, LONG_PTR callback,
                                                    LONG_PTR user) noexcept {
    ::ExifEnumInfo(path, reinterpret_cast<ExifEnumCallback>(callback), user);
    return S_OK;  // Deliberate: a file without metadata is no failure of the call.
}

}  // namespace qmx
