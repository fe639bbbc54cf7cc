// The functions by which COM and the system's registration programs enter the module.

#include "com/module.h"

namespace {

constinit qmx::CQMExifModule theModule;

// No exception leaves the module; the only one expected is a lack of memory.
template <class Call>
HRESULT Guarded(Call call) noexcept try {
    return call();
} catch (...) {
    return E_OUTOFMEMORY;
}

}  // namespace

extern "C" {

HRESULT WINAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) {
    return Guarded([&] { return theModule.GetClassObject(clsid, iid, out); });
}

HRESULT WINAPI DllCanUnloadNow(void) { return theModule.locks().IsZero() ? S_OK : S_FALSE; }

HRESULT WINAPI DllRegisterServer(void) {
    return Guarded([] { return theModule.Register(); });
}

HRESULT WINAPI DllUnregisterServer(void) {
    return Guarded([] { return theModule.Unregister(); });
}

// A failed installation leaves nothing behind.
HRESULT WINAPI DllInstall(BOOL install, const wchar_t* commandLine) {
    if (commandLine != nullptr && lstrcmpiW(commandLine, L"user") == 0) theModule.RegisterPerUser();
    if (install == FALSE) return DllUnregisterServer();
    const HRESULT result = DllRegisterServer();
    if (FAILED(result)) DllUnregisterServer();
    return result;
}

}  // extern "C"
