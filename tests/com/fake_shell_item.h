#pragma once
// Items of the shell that count what is done with them and fail where they are told to.

#include <qmxexif.h>

#include <shlguid.h>
#include <shlobj.h>

#include <algorithm>
#include <string>

namespace qmx::test {

// A data object that holds one path, or fails where it is told to.
class FakeData final : public IDataObject {
public:
    enum Fault { kNone, kNoBinding, kQueryFails, kQuerySaysNo, kGetFails, kEmptyDrop };
    Fault fault = kNone;
    const wchar_t* path = nullptr;
    LONG references = 0;
    int mediums = 0;  // handed out and not given back yet

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override {
        const bool asked = format->cfFormat == CF_HDROP && format->ptd == nullptr &&
                           format->dwAspect == DVASPECT_CONTENT && format->lindex == -1 &&
                           format->tymed == TYMED_HGLOBAL;
        if (!asked || fault == kQueryFails) return DV_E_FORMATETC;
        return fault == kQuerySaysNo ? S_FALSE : S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetData(FORMATETC*, STGMEDIUM* medium) override {
        if (fault == kGetFails) return E_OUTOFMEMORY;
        const std::wstring text = fault == kEmptyDrop ? L"" : path;
        const std::size_t size = sizeof(DROPFILES) + (text.size() + 2) * sizeof(wchar_t);
        const HGLOBAL memory = GlobalAlloc(GHND, size);
        auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
        drop->pFiles = sizeof(DROPFILES);
        drop->fWide = TRUE;
        std::copy(text.begin(), text.end(), reinterpret_cast<wchar_t*>(drop + 1));
        GlobalUnlock(memory);
        memory_ = memory;
        ++mediums;
        *medium = {};
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = memory;
        medium->pUnkForRelease = &owner_;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD, IEnumFORMATETC**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }

private:
    // Released in place of the memory when the medium is given back.
    class MediumOwner final : public IUnknown {
    public:
        explicit MediumOwner(FakeData& data) : data_(data) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
        ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
        ULONG STDMETHODCALLTYPE Release() override {
            GlobalFree(data_.memory_);
            --data_.mediums;
            return 0;
        }

    private:
        FakeData& data_;
    };

    MediumOwner owner_{*this};
    HGLOBAL memory_ = nullptr;
};

// The item of such data.
class FakeItem final : public IShellItem {
public:
    explicit FakeItem(FakeData& data) : data_(data) {}
    LONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }
    HRESULT STDMETHODCALLTYPE BindToHandler(IBindCtx* context, REFGUID handler, REFIID iid,
                                            void** out) override {
        const bool asked =
            context == nullptr && handler == BHID_DataObject && iid == __uuidof(IDataObject);
        if (!asked || data_.fault == FakeData::kNoBinding) return E_NOINTERFACE;
        data_.AddRef();
        *out = static_cast<IDataObject*>(&data_);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetParent(IShellItem**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDisplayName(SIGDN, LPWSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAttributes(SFGAOF, SFGAOF*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Compare(IShellItem*, SICHINTF, int*) override { return E_NOTIMPL; }

private:
    FakeData& data_;
};

}  // namespace qmx::test
