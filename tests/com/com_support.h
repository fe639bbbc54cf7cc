#pragma once
// The DLL as COM sees it, and objects that stand in for the system's.

#include <qmxexif.h>

#include <oleauto.h>
#include <qmx_interfaces.h>

#include <algorithm>
#include <string>
#include <vector>

#include "com/com_ptr.h"

namespace qmx::test {

// Initialises COM on this thread, in an apartment of its own.
class Apartment {
public:
    Apartment();
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment();
};

// The DLL's entry points for COM.
class ComModule {
public:
    // The DLL that QMX_DLL names; ends the program when there is none.
    ComModule();
    // Any other file.
    explicit ComModule(const std::wstring& path);
    ComModule(const ComModule&) = delete;
    ComModule& operator=(const ComModule&) = delete;
    ~ComModule();

    HRESULT(WINAPI* getClassObject)(REFCLSID, REFIID, void**);
    HRESULT(WINAPI* canUnloadNow)();
    HRESULT(WINAPI* registerServer)();
    HRESULT(WINAPI* unregisterServer)();
    HRESULT(WINAPI* install)(BOOL, const wchar_t*);

    HMODULE handle() const { return module_; }
    std::wstring path() const;
    bool isUnlocked() const { return canUnloadNow() == S_OK; }

    ComPtr<IClassFactory> Factory(REFCLSID clsid) const;
    template <class Interface>
    ComPtr<Interface> Create(REFCLSID clsid) const {
        ComPtr<Interface> object;
        const auto factory = Factory(clsid);
        if (factory) factory->CreateInstance(nullptr, __uuidof(Interface), object.ReceiveAny());
        return object;
    }

private:
    HMODULE module_;
};

template <class Interface, class From>
ComPtr<Interface> Query(const From& from) {
    ComPtr<Interface> to;
    from->QueryInterface(__uuidof(Interface), to.ReceiveAny());
    return to;
}

class AutoBstr {
public:
    explicit AutoBstr(const wchar_t* text) : text_(SysAllocString(text)) {}
    explicit AutoBstr(UINT length) : text_(SysAllocStringLen(nullptr, length)) {
        std::fill(text_, text_ + length, L'-');
    }
    AutoBstr(const AutoBstr&) = delete;
    AutoBstr& operator=(const AutoBstr&) = delete;
    ~AutoBstr() { SysFreeString(text_); }
    operator BSTR() const { return text_; }

private:
    BSTR text_;
};

// Path of the file that an environment variable names.
std::wstring Environment(const wchar_t* name);

// Three keys of the current user that stand in for HKEY_CLASSES_ROOT, HKEY_LOCAL_MACHINE and
// HKEY_CURRENT_USER in this process, from making them until their deletion.
class ScratchRegistry {
public:
    ScratchRegistry();
    ScratchRegistry(const ScratchRegistry&) = delete;
    ScratchRegistry& operator=(const ScratchRegistry&) = delete;
    ~ScratchRegistry();

    // Everything in it: "HKCR\Key" for each key, "HKCR\Key|name=text" for each value.
    std::vector<std::string> Content() const;

private:
    std::wstring path_;
    HKEY keys_[3] = {};
};

// Makes a key of a predefined one; with `options` REG_OPTION_VOLATILE no lasting key can be made
// below it.
void MakeKey(HKEY root, const wchar_t* path, DWORD options = REG_OPTION_NON_VOLATILE);
void MakeValue(HKEY root, const wchar_t* path, const wchar_t* name, const wchar_t* text);

}  // namespace qmx::test
