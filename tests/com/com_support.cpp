#include "com/com_support.h"

#include <objbase.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "support/api.h"
#include "support/utf8.h"

namespace qmx::test {
namespace {

struct Root {
    HKEY key;
    const wchar_t* name;
};
constexpr std::size_t kRootCount = 3;
const Root kRoots[kRootCount] = {
    {HKEY_CLASSES_ROOT, L"HKCR"}, {HKEY_LOCAL_MACHINE, L"HKLM"}, {HKEY_CURRENT_USER, L"HKCU"}};

void List(HKEY key, const std::string& path, std::vector<std::string>& out) {
    wchar_t name[300];
    wchar_t text[2000];
    for (DWORD i = 0;; ++i) {
        DWORD nameLength = 300;
        DWORD size = sizeof text - sizeof(wchar_t);
        DWORD type = 0;
        std::memset(text, 0, sizeof text);
        if (RegEnumValueW(key, i, name, &nameLength, nullptr, &type, reinterpret_cast<BYTE*>(text),
                          &size) != ERROR_SUCCESS)
            break;
        DWORD number = 0;
        std::memcpy(&number, text, sizeof number);
        out.push_back(path + "|" + Utf8(name) + "=" +
                      (type == REG_SZ ? Utf8(text) : "#" + std::to_string(number)));
    }
    for (DWORD i = 0;; ++i) {
        DWORD nameLength = 300;
        if (RegEnumKeyExW(key, i, name, &nameLength, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        HKEY child = nullptr;
        if (RegOpenKeyExW(key, name, 0, KEY_READ, &child) != ERROR_SUCCESS) continue;
        const std::string childPath = path + "\\" + Utf8(name);
        out.push_back(childPath);
        List(child, childPath, out);
        RegCloseKey(child);
    }
}

}  // namespace

Apartment::Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
Apartment::~Apartment() { CoUninitialize(); }

ComModule::ComModule() : ComModule(Environment(L"QMX_DLL")) {}

ComModule::ComModule(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {
    LookUp(module_, "DllGetClassObject", getClassObject);
    LookUp(module_, "DllCanUnloadNow", canUnloadNow);
    LookUp(module_, "DllRegisterServer", registerServer);
    LookUp(module_, "DllUnregisterServer", unregisterServer);
    LookUp(module_, "DllInstall", install);
}

ComModule::~ComModule() { FreeLibrary(module_); }

std::wstring ComModule::path() const {
    std::wstring path(2000, L'\0');
    path.resize(GetModuleFileNameW(module_, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

ComPtr<IClassFactory> ComModule::Factory(REFCLSID clsid) const {
    ComPtr<IClassFactory> factory;
    getClassObject(clsid, __uuidof(IClassFactory), factory.ReceiveAny());
    return factory;
}

std::wstring Environment(const wchar_t* name) {
    const wchar_t* value = _wgetenv(name);
    return value != nullptr ? value : L"";
}

ScratchRegistry::ScratchRegistry()
    : path_(L"Software\\qmxexif-test-" + std::to_wstring(GetCurrentProcessId())) {
    RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());  // a crashed process may have had our number
    for (std::size_t i = 0; i < kRootCount; ++i) {
        const std::wstring path = path_ + L"\\" + kRoots[i].name;
        RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                        &keys_[i], nullptr);
    }
    for (std::size_t i = 0; i < kRootCount; ++i) RegOverridePredefKey(kRoots[i].key, keys_[i]);
}

ScratchRegistry::~ScratchRegistry() {
    for (const Root& root : kRoots) RegOverridePredefKey(root.key, nullptr);
    for (const HKEY key : keys_) RegCloseKey(key);
    RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
}

std::vector<std::string> ScratchRegistry::Content() const {
    std::vector<std::string> out;
    for (std::size_t i = 0; i < kRootCount; ++i) List(keys_[i], Utf8(kRoots[i].name), out);
    return out;
}

void MakeKey(HKEY root, const wchar_t* path, DWORD options) {
    HKEY key = nullptr;
    RegCreateKeyExW(root, path, 0, nullptr, options, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    RegCloseKey(key);
}

void MakeValue(HKEY root, const wchar_t* path, const wchar_t* name, const wchar_t* text) {
    MakeKey(root, path);
    RegSetKeyValueW(root, path, name, REG_SZ, text,
                    static_cast<DWORD>((lstrlenW(text) + 1) * sizeof(wchar_t)));
}

}  // namespace qmx::test
