#include "com/shell_item_path.h"

#include <shellapi.h>
#include <shlguid.h>

#include "com/com_ptr.h"
#include "com/system_library.h"

namespace qmx {
namespace {

// Owns what a data object delivered.
class StorageMedium {
public:
    StorageMedium() = default;
    StorageMedium(const StorageMedium&) = delete;
    StorageMedium& operator=(const StorageMedium&) = delete;
    ~StorageMedium() {
        if (release_ != nullptr) release_(&medium_);
    }

    bool Fetch(IDataObject& data, FORMATETC& format) {
        const SystemLibrary ole32(L"ole32.dll");
        const auto release = ole32.Find<decltype(ReleaseStgMedium)>("ReleaseStgMedium");
        if (release == nullptr || FAILED(data.GetData(&format, &medium_))) return false;
        release_ = release;
        return true;
    }
    HDROP drop() const { return static_cast<HDROP>(medium_.hGlobal); }

private:
    STGMEDIUM medium_ = {};
    decltype(&ReleaseStgMedium) release_ = nullptr;
};

}  // namespace

bool GetItemPath(IShellItem& item, std::span<wchar_t, kDropPathCapacity> path) {
    ComPtr<IDataObject> data;
    if (FAILED(item.BindToHandler(nullptr, BHID_DataObject, __uuidof(IDataObject),
                                  data.ReceiveAny())) ||
        !data)
        return false;

    FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    // S_FALSE says no as well.
    if (data->QueryGetData(&format) != S_OK) return false;
    StorageMedium medium;
    if (!medium.Fetch(*data.Get(), format)) return false;

    const SystemLibrary shell32(L"shell32.dll");
    const auto query = shell32.Find<decltype(DragQueryFileW)>("DragQueryFileW");
    return query != nullptr &&
           query(medium.drop(), 0, path.data(), static_cast<UINT>(path.size())) != 0;
}

}  // namespace qmx
