#include "com/class_factory.h"

#include "com/com_object.h"

namespace qmx {
namespace {

class ClassFactory final : public ComObject<IClassFactory> {
public:
    ClassFactory(CQMExifModule& module, CreateFunction* create)
        : ComObject(module, nullptr), module_(module), create_(create) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid,
                                             void** out) noexcept override {
        if (out == nullptr) return E_POINTER;
        *out = nullptr;
        // An outer object needs the inner unknown: any other interface would lead back to itself.
        if (outer != nullptr && iid != __uuidof(IUnknown)) return CLASS_E_NOAGGREGATION;
        return create_(module_, outer, iid, out);
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override {
        if (lock != FALSE)
            module_.locks().Add();
        else
            module_.locks().Remove();
        return S_OK;
    }

private:
    CQMExifModule& module_;
    CreateFunction* const create_;
};

}  // namespace

HRESULT CreateClassFactory(CQMExifModule& module, CreateFunction* create, REFIID iid, void** out) {
    auto* factory = new (std::nothrow) ClassFactory(module, create);
    if (factory == nullptr) return E_OUTOFMEMORY;
    const ComPtr<IUnknown> inner(factory->inner());
    return inner->QueryInterface(iid, out);
}

}  // namespace qmx
