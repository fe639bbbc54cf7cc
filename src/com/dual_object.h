#pragma once
// A COM object whose first interface is dual: IDispatch answered from the type library.

#include <memory>

#include "com/com_object.h"
#include "com/shared_type_info.h"

namespace qmx {

template <class Dual, class... Others>
class DualObject : public ComObject<Dual, Others...> {
public:
    DualObject(CQMExifModule& module, IUnknown* outer, SharedTypeInfo& shared)
        : ComObject<Dual, Others...>(module, outer), shared_(shared) {}

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
        if (count == nullptr) return E_POINTER;
        *count = 1;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale,
                                          ITypeInfo** out) noexcept override {
        if (index != 0) return DISP_E_BADINDEX;
        if (out == nullptr) return E_POINTER;
        *out = nullptr;
        return WithType(locale, [&](ITypeInfo& type) {
            type.AddRef();
            *out = &type;
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override {
        return WithType(locale,
                        [&](ITypeInfo& type) { return type.GetIDsOfNames(names, count, ids); });
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) noexcept override {
        return WithType(locale, [&](ITypeInfo& type) {
            return type.Invoke(static_cast<Dual*>(this), id, flags, arguments, result, exception,
                               wrongArgument);
        });
    }

private:
    template <class Use>
    HRESULT WithType(LCID locale, Use use) noexcept try {
        const HRESULT result = shared_.Hold(locale, type_);
        return FAILED(result) ? result : use(*type_->Get());
    } catch (...) {
        return E_OUTOFMEMORY;
    }

    SharedTypeInfo& shared_;
    std::shared_ptr<const TypeInfo> type_;
};

}  // namespace qmx
