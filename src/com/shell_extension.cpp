#include "com/shell_extension.h"

#include <qmx_interfaces.h>
#include <thumbcache.h>

#include <string>

#include "com/guid_text.h"
#include "com/registry_key.h"

namespace qmx {
namespace {

constexpr wchar_t kFileClass[] = L".qmxexif.DigitalImage";
constexpr wchar_t kApproved[] =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Shell Extensions\\Approved";

struct ValueRow {
    HKEY root;
    std::wstring key;
    const wchar_t* name;  // null for the default value
    std::wstring data;
};

HRESULT WriteValue(const ValueRow* row) {
    if (row == nullptr) return E_INVALIDARG;
    RegistryKey key;
    LSTATUS status = CreateKey(row->root, row->key.c_str(), KEY_ALL_ACCESS, key);
    if (status == ERROR_SUCCESS) status = SetText(key.get(), row->name, row->data);
    return HRESULT_FROM_WIN32(status);
}

}  // namespace

void WriteShellExtension() {
    const GuidText handler = FormatGuid(__uuidof(IThumbnailProvider));
    const GuidText clsid = FormatGuid(CLSID_RawThmubnail);
    const ValueRow rows[] = {
        {HKEY_CLASSES_ROOT, std::wstring(kFileClass) + L"\\ShellEx\\" + handler.data(), nullptr,
         clsid.data()},
        {HKEY_LOCAL_MACHINE, kApproved, clsid.data(), L"RawThmubnail Class"},
    };
    for (const ValueRow& row : rows) static_cast<void>(WriteValue(&row));
}

void RemoveShellExtension() {
    DeleteKeyTree(HKEY_CLASSES_ROOT, kFileClass);
    DeleteKeyValue(HKEY_LOCAL_MACHINE, kApproved, FormatGuid(CLSID_RawThmubnail).data());
}

}  // namespace qmx
