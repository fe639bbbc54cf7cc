#include <new>

#include "api/requests.h"
#include "parse/containers/container.h"
#include "parse/core/mapped_file.h"

namespace qmx {

std::uint32_t ParseFile(const wchar_t* path, IStream* stream, ImageInfo* infoOut,
                        bool wantPrimary) {
    ParseContext ctx;
    ctx.outStream = stream;
    const MappedFile file(ctx, path);
    if (!file) return 0;
    const std::uint32_t parsed =
        RunGuarded(ctx.pageGuard, [&] { return ParseContainer(ctx, wantPrimary); });
    if (parsed == 0) return 0;
    if (stream != nullptr) stream->Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr);
    if (infoOut != nullptr) ::new (static_cast<void*>(infoOut)) ImageInfo(ctx.info);
    return 1;
}

std::uint32_t ProbeFile(const wchar_t* path) {
    ParseContext ctx;
    const MappedFile file(ctx, path);
    return file ? RunGuarded(ctx.pageGuard, [&] { return ProbeExifFile(ctx, path); }) : 0;
}

}  // namespace qmx
