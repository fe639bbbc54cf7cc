#pragma once
// Functions of Windows' own DLLs, found when they are needed.  Most programs use the exported
// functions alone; importing advapi32, ole32, oleaut32, shell32 and gdiplus would make each of them
// wait several times as long for this DLL to load.

#include <cstring>

#include "parse/core/win32.h"

namespace qmx {

class SystemLibrary {
public:
    // The DLL stays loaded from then on: what it made for a caller may outlive this module.
    explicit SystemLibrary(const wchar_t* name)
        : module_(LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) {}

    // Null when the DLL or the function is missing.
    template <class Function>
    Function* Find(const char* name) const {
        const FARPROC address = module_ != nullptr ? GetProcAddress(module_, name) : nullptr;
        Function* function = nullptr;
        std::memcpy(&function, &address, sizeof function);
        return function;
    }

private:
    HMODULE module_;
};

}  // namespace qmx
