#include "library.h"

#include "paths.h"

namespace qmx {
namespace {

constexpr wchar_t kFileName[] = L"qmxexif.dll";

std::wstring ModulePath(HMODULE module) {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

// Never searches the current folder or PATH: photos may lie beside a foreign qmxexif.dll.
HMODULE LoadModule(const std::wstring& path, std::wstring& tried) {
    tried = path.empty() ? JoinPath(FolderOf(ModulePath(nullptr)), kFileName) : FullPath(path);
    HMODULE module = LoadLibraryExW(tried.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (module || !path.empty() || GetLastError() != ERROR_MOD_NOT_FOUND) return module;
    module = LoadLibraryExW(kFileName, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (!module) SetLastError(ERROR_MOD_NOT_FOUND);
    return module;
}

template <class Function>
bool Resolve(HMODULE module, const char* name, Function& function, std::wstring& error) {
    const FARPROC address = GetProcAddress(module, name);
    if (!address) {
        error = L"it does not export " + std::wstring(name, name + lstrlenA(name));
        return false;
    }
    // By way of void*: compilers warn about a direct cast between function types.
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(address));
    return true;
}

}  // namespace

bool LoadQmxexif(const std::wstring& path, Library& library, std::wstring& error) {
    const HMODULE module = LoadModule(path, library.path);
    if (!module) {
        error = L"cannot load " + library.path + L": " + ErrorText(GetLastError());
        return false;
    }
    library.path = ModulePath(module);
    std::wstring missing;
    const bool complete =
        Resolve(module, "ExifGetThumbsnail", library.getThumbnail, missing) &&
        Resolve(module, "ExifGetPrimaryImage", library.getPrimaryImage, missing) &&
        Resolve(module, "ExifGetExifInfoEx", library.getInfo, missing) &&
        Resolve(module, "ExifEnumInfo", library.enumInfo, missing) &&
        Resolve(module, "ExifIsExifFile", library.isExifFile, missing);
    if (!complete) error = L"cannot use " + library.path + L": " + missing;
    return complete;
}

}  // namespace qmx
