#include "parse/core/mapped_file.h"

#include <cstring>
#include <memory>
#include <new>

#include "parse/core/cursor.h"

namespace qmx {
namespace {

HANDLE OpenForReading(const wchar_t* path) {
    return CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                       FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
}

// Opens `path` in the form that has no length limit: \\?\C:\... or \\?\UNC\server\...
HANDLE OpenExtendedLength(const wchar_t* path) {
    constexpr wchar_t kLocal[] = L"\\\\?\\";
    constexpr wchar_t kNetwork[] = L"\\\\?\\UNC\\";
    constexpr DWORD kPrefixRoom = 8;
    const DWORD room = GetFullPathNameW(path, 0, nullptr, nullptr);
    if (room < kPathCapacity) return INVALID_HANDLE_VALUE;

    const std::unique_ptr<wchar_t[]> buffer(new (std::nothrow) wchar_t[kPrefixRoom + room]);
    if (buffer == nullptr) return INVALID_HANDLE_VALUE;
    wchar_t* full = buffer.get() + kPrefixRoom;
    const DWORD length = GetFullPathNameW(path, room, full, nullptr);
    if (length == 0 || length >= room) return INVALID_HANDLE_VALUE;

    const bool device =
        full[0] == L'\\' && full[1] == L'\\' && (full[2] == L'?' || full[2] == L'.');
    if (device) return OpenForReading(full);
    const bool network = full[0] == L'\\' && full[1] == L'\\';
    const wchar_t* prefix = network ? kNetwork : kLocal;
    const std::size_t prefixLength = (network ? std::size(kNetwork) : std::size(kLocal)) - 1;
    wchar_t* extended = network ? full + 2 - prefixLength : full - prefixLength;
    std::memcpy(extended, prefix, prefixLength * sizeof(wchar_t));
    return OpenForReading(extended);
}

// Keeps as much of the path as fits; true when that is all of it.
bool StorePath(ParseContext& ctx, const wchar_t* path) {
    std::size_t length = 0;
    while (length < kPathCapacity - 1 && path[length] != 0) ++length;
    std::memcpy(ctx.filePath, path, length * sizeof(wchar_t));
    ctx.filePath[length] = 0;
    return path[length] == 0;
}

// The plain form first: it is right nearly always, and a relative path does not show its length.
HANDLE OpenPath(const wchar_t* path, bool isShort) {
    if (isShort) {
        const HANDLE file = OpenForReading(path);
        if (file != INVALID_HANDLE_VALUE) return file;
        const DWORD error = GetLastError();
        if (error != ERROR_PATH_NOT_FOUND && error != ERROR_FILENAME_EXCED_RANGE) return file;
    }
    return OpenExtendedLength(path);
}

}  // namespace

bool MapFile(ParseContext& ctx, const wchar_t* path) {
    ctx.mappingHandle = nullptr;
    if (path == nullptr) return false;
    const HANDLE file = OpenPath(path, StorePath(ctx, path));
    if (file == INVALID_HANDLE_VALUE) return false;

    LARGE_INTEGER size = {};
    if (GetFileSizeEx(file, &size) && size.QuadPart > 0)
        ctx.mappingHandle = CreateFileMappingW(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    if (ctx.mappingHandle != nullptr) {
        const void* view = MapViewOfFile(ctx.mappingHandle, FILE_MAP_READ, 0, 0, 0);
        if (view == nullptr) {
            CloseHandle(ctx.mappingHandle);
            ctx.mappingHandle = nullptr;
        } else {
            ctx.viewBase = static_cast<const std::uint8_t*>(view);
            ctx.cursor = ctx.viewBase;
            ctx.fileSize = size.QuadPart;
            ctx.readEnd = ctx.viewBase + ctx.fileSize;
            ctx.pageGuard = {ctx.viewBase, static_cast<std::uint64_t>(ctx.fileSize)};
        }
    }
    CloseHandle(file);  // the mapping keeps the file open
    return ctx.mappingHandle != nullptr;
}

void UnmapFile(ParseContext& ctx) {
    ctx.imageRecords.Clear();
    FreeWorkBuffer(ctx);
    if (ctx.mappingHandle == nullptr) return;
    UnmapViewOfFile(ctx.viewBase);
    CloseHandle(ctx.mappingHandle);
    ctx.viewBase = nullptr;
    ctx.pageGuard = {};
    ctx.mappingHandle = nullptr;
}

}  // namespace qmx
