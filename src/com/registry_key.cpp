#include "com/registry_key.h"

#include "com/system_library.h"

namespace qmx {
namespace {

// Calls a function of the registry by its name.
template <class Function, class... Arguments>
LSTATUS Call(const char* name, Arguments... arguments) {
    const auto function = SystemLibrary(L"advapi32.dll").Find<Function>(name);
    return function != nullptr ? function(arguments...) : ERROR_PROC_NOT_FOUND;
}

LSTATUS MissingIsFine(LSTATUS status) {
    return status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND ? ERROR_SUCCESS
                                                                            : status;
}

LSTATUS SetValue(HKEY key, const wchar_t* name, DWORD type, const void* data, std::size_t size) {
    return Call<decltype(RegSetValueExW)>("RegSetValueExW", key, name, DWORD{0}, type,
                                          static_cast<const BYTE*>(data), static_cast<DWORD>(size));
}

}  // namespace

void RegistryKeyCloser::operator()(HKEY key) const {
    Call<decltype(RegCloseKey)>("RegCloseKey", key);
}

LSTATUS CreateKey(HKEY parent, const wchar_t* path, REGSAM access, RegistryKey& key) {
    HKEY created = nullptr;
    const LSTATUS status = Call<decltype(RegCreateKeyExW)>(
        "RegCreateKeyExW", parent, path, DWORD{0}, nullptr, DWORD{REG_OPTION_NON_VOLATILE}, access,
        nullptr, &created, nullptr);
    key.reset(status == ERROR_SUCCESS ? created : nullptr);
    return status;
}

LSTATUS OpenKey(HKEY parent, const wchar_t* path, REGSAM access, RegistryKey& key) {
    HKEY opened = nullptr;
    const LSTATUS status =
        Call<decltype(RegOpenKeyExW)>("RegOpenKeyExW", parent, path, DWORD{0}, access, &opened);
    key.reset(status == ERROR_SUCCESS ? opened : nullptr);
    return status;
}

LSTATUS SetText(HKEY key, const wchar_t* name, const std::wstring& text) {
    return SetValue(key, name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

LSTATUS SetNumber(HKEY key, const wchar_t* name, DWORD number) {
    return SetValue(key, name, REG_DWORD, &number, sizeof number);
}

LSTATUS DeleteKeyTree(HKEY parent, const wchar_t* path) {
    return MissingIsFine(Call<decltype(RegDeleteTreeW)>("RegDeleteTreeW", parent, path));
}

LSTATUS DeleteKeyValue(HKEY parent, const wchar_t* path, const wchar_t* name) {
    return MissingIsFine(
        Call<decltype(RegDeleteKeyValueW)>("RegDeleteKeyValueW", parent, path, name));
}

}  // namespace qmx
