// The exported functions: thin shells over the requests, through which no exception passes.

#include <qmxexif.h>

#include "api/enumerate_info.h"
#include "api/requests.h"

namespace {

// A caller's stream or callback may throw; the file is released on the way here.
template <class Call>
UINT32 Guarded(UINT32 failure, Call&& call) noexcept {
    try {
        return call();
    } catch (...) {
        return failure;
    }
}

}  // namespace

extern "C" {

UINT32 WINAPI ExifGetThumbsnail(const WCHAR* path, IStream* stream, WCHAR* text, INT32 textLength) {
    return Guarded(0,
                   [&] { return qmx::RunTextRequest(path, stream, nullptr, 0, text, textLength); });
}

UINT32 WINAPI ExifGetPrimaryImageEx(const WCHAR* path, IStream* stream, UINT32* orientation) {
    return Guarded(0, [&] { return qmx::DispatchRequest(path, stream, orientation, 1, nullptr); });
}

UINT32 WINAPI ExifGetPrimaryImage(const WCHAR* path, IStream* stream) {
    return Guarded(0, [&] { return qmx::DispatchRequest(path, stream, nullptr, 1, nullptr); });
}

UINT32 WINAPI ExifGetThumbnailImage(const WCHAR* path, IStream* stream, UINT32* orientation,
                                    UINT32 flag, WCHAR* text, INT32 textLength) {
    return Guarded(
        0, [&] { return qmx::RunTextRequest(path, stream, orientation, flag, text, textLength); });
}

UINT32 WINAPI ExifGetInfoTip(const WCHAR* path, WCHAR* text, INT32 textLength) {
    return Guarded(
        0, [&] { return qmx::RunTextRequest(path, nullptr, nullptr, 0, text, textLength); });
}

UINT32 WINAPI ExifEnumInfo(const WCHAR* path, ExifEnumCallback callback, INT_PTR user) {
    const qmx::EnumContext context = {callback, user};
    return Guarded(qmx::kEnumFailed, [&] { return qmx::EnumerateInfo(path, &context); });
}

UINT32 WINAPI ExifIsExifFile(const WCHAR* path) {
    return Guarded(0, [&] { return qmx::ProbeFile(path); });
}

UINT32 WINAPI ExifGetDateTimeString(const WCHAR* path, WCHAR* text, INT32 textLength) {
    return Guarded(0, [&] { return qmx::CopyDateTimeText(path, text, textLength); });
}

UINT32 WINAPI ExifGetExifInfo(const WCHAR* path, IStream* stream, InfoRequest* info) {
    return Guarded(0, [&] { return qmx::RunBasicRequest(path, stream, info); });
}

UINT32 WINAPI ExifGetExifInfoEx(const WCHAR* path, IStream* stream, UINT32* orientation,
                                UINT32 flag, InfoRequest* request) {
    return Guarded(0,
                   [&] { return qmx::DispatchRequest(path, stream, orientation, flag, request); });
}

UINT32 WINAPI ExifDrawDigiText(void) { return 0; }

}  // extern "C"
