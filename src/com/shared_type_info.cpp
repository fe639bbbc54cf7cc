#include "com/shared_type_info.h"

#include <oleauto.h>
#include <qmx_interfaces.h>

#include "com/system_library.h"

namespace qmx {
namespace {

constexpr WORD kMajorVersion = 1;
constexpr WORD kMinorVersion = 0;

class ExclusiveScope {
public:
    explicit ExclusiveScope(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    ExclusiveScope(const ExclusiveScope&) = delete;
    ExclusiveScope& operator=(const ExclusiveScope&) = delete;
    ~ExclusiveScope() { ReleaseSRWLockExclusive(&lock_); }

private:
    SRWLOCK& lock_;
};

HRESULT Load(REFIID iid, LCID locale, TypeInfo& info) {
    const SystemLibrary oleaut32(L"oleaut32.dll");
    const auto load = oleaut32.Find<decltype(LoadRegTypeLib)>("LoadRegTypeLib");
    if (load == nullptr) return E_FAIL;
    ComPtr<ITypeLib> library;
    const HRESULT result =
        load(LIBID_QMExifLib, kMajorVersion, kMinorVersion, locale, library.Receive());
    return FAILED(result) ? result : library->GetTypeInfoOfGuid(iid, info.Receive());
}

}  // namespace

HRESULT SharedTypeInfo::Hold(LCID locale, std::shared_ptr<const TypeInfo>& held) {
    if (held != nullptr) return S_OK;
    const ExclusiveScope scope(lock_);
    held = loaded_.lock();
    if (held != nullptr) return S_OK;

    TypeInfo info;
    const HRESULT result = Load(iid_, locale, info);
    if (FAILED(result)) return result;
    held = std::make_shared<const TypeInfo>(std::move(info));
    loaded_ = held;
    return S_OK;
}

}  // namespace qmx
